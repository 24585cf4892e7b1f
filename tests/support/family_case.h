// SPDX-License-Identifier: MIT
// The family modules whose operations the flow tests run. A row names the device that represents
// the module and what the program is expected to send for it.
//
// The letters and modes are written a second time here on purpose: a test that took them from the
// program's tables would repeat their mistakes.
#pragma once

#include <array>
#include <ostream>
#include <span>
#include <string_view>

#include "parts/modules.h"

namespace quillon::test {

// One step of a whole erase.
struct ExpectedErase {
    std::string_view command;  // letters and mode as the wire log shows them
    std::string_view status;
    std::string_view failure;
    int pause = 100;  // milliseconds between the status and the command
    bool of_eeprom = false;
};

struct FamilyCase {
    Module module;
    std::string_view device;
    std::string_view write_pgm;  // letters from "w" on
    std::string_view write_eep;
    std::string_view write_cfg;
    std::string_view erase_title;  // shown before the erases, "" for none
    std::span<const ExpectedErase> erases;

    // So that a case can be passed wherever a device's name is expected.
    operator std::string_view() const { return device; }
};

inline void PrintTo(const FamilyCase& family, std::ostream* out) { *out << family.device; }

inline constexpr std::string_view kErasingEep =
    "イレース..........ＥＥＰＲＯＭデータメモリーのイレース中..........";
inline constexpr std::string_view kEraseEepFailed =
    "イレース.........ＥＥＰＲＯＭデータメモリーのイレースに失敗しました。";

inline constexpr std::array kErases877{
    ExpectedErase{
        .command = "bd 01",
        .status = "イレース..........プロテクト解除中（プログラムメモリイレース）..........",
        .failure = "イレース.........プロテクト解除（プログラムメモリイレース）に失敗しました。",
    },
    ExpectedErase{
        .command = "bd 03",
        .status = kErasingEep,
        .failure = kEraseEepFailed,
        .of_eeprom = true,
    },
};
inline constexpr std::array kErases877A{
    ExpectedErase{
        .command = "bd 0A",
        .status = "イレース..........プロテクト解除中（コンフィグワードイレース）..........",
        .failure = "イレース.........プロテクト解除（コンフィグワードイレース）に失敗しました。",
        .pause = 0,
    },
    ExpectedErase{
        .command = "bd 0B",
        .status = "イレース..........ＦＬＡＳＨプログラムメモリーのイレース中..........",
        .failure = "イレース.........ＦＬＡＳＨプログラムメモリーのイレースに失敗しました。",
    },
    ExpectedErase{
        .command = "bd 0C",
        .status = kErasingEep,
        .failure = kEraseEepFailed,
        .of_eeprom = true,
    },
};

inline constexpr std::array kFamilyCases{
    FamilyCase{
        .module = Module::PIC16F877,
        .device = "PIC16F877",
        .write_pgm = "we8",
        .write_eep = "wed",
        .write_cfg = "wec",
        .erase_title = "チップイレース(コードプロテクト解除)中.....",
        .erases = kErases877,
    },
    FamilyCase{
        .module = Module::PIC16F877A,
        .device = "PIC16F877A",
        .write_pgm = "wGe",
        .write_eep = "wed",
        .write_cfg = "wFc",
        .erase_title = "",
        .erases = kErases877A,
    },
};

// The row of a device's module.
inline const FamilyCase& case_of(std::string_view device) {
    const auto module = module_of(device);
    for (const auto& row : kFamilyCases)
        if (row.module == module) return row;
    return kFamilyCases.front();
}

}  // namespace quillon::test
