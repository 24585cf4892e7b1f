// SPDX-License-Identifier: MIT
// Helpers that several of the flows' tests use on a bench.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <string>
#include <utility>
#include <vector>

#include "expected_wire.h"
#include "support/bench.h"
#include "support/family_case.h"

namespace quillon::test {

using Pauses = std::vector<std::chrono::milliseconds>;

// For behaviour that every family must show.
class EveryFamily : public testing::TestWithParam<FamilyCase> {};
inline std::string case_name(const testing::TestParamInfo<FamilyCase>& info) {
    return std::string{info.param.device};
}
inline std::string device_name(const testing::TestParamInfo<const char*>& info) {
    return info.param;
}

// The lines of an operation whose check found the board.
inline Lines after_check(const Lines& lines) {
    Lines all{
        "ライターチェック中..........",
        "ライターを COM3に検出しました。",
        "電源印加遅延時間　設定＝ 10 ミリ秒",
    };
    all.insert(all.end(), lines.begin(), lines.end());
    return all;
}

// The sleeps of an operation, except those behind letters, parameters and acknowledges.
inline Pauses pauses(const Bench& bench) {
    Pauses found;
    for (const auto time : bench.host.sleeps)
        if (time != 1ms) found.push_back(time);
    return found;
}
// The given pauses between those of the check at the beginning and those of the close at the end.
inline Pauses between_check_and_close(const Pauses& middle) {
    Pauses all{100ms, 500ms};
    all.insert(all.end(), middle.begin(), middle.end());
    all.insert(all.end(), {200ms, 200ms});
    return all;
}

}  // namespace quillon::test
