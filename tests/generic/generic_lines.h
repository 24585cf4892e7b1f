// SPDX-License-Identifier: MIT
// The messages and pauses of the devices without a family, stage by stage.
#pragma once

#include <algorithm>
#include <initializer_list>
#include <string>
#include <string_view>

#include "flows/flow_support.h"
#include "generic_case.h"
#include "generic_wire.h"

namespace quillon::test {

class EveryType : public testing::TestWithParam<GenericCase> {};
inline std::string type_name(const testing::TestParamInfo<GenericCase>& info) {
    return info.param.name;
}

namespace generic {

inline Lines all_of(std::initializer_list<Lines> stages) {
    Lines all;
    for (const auto& stage : stages) all.insert(all.end(), stage.begin(), stage.end());
    return all;
}
inline Pauses all_of(std::initializer_list<Pauses> stages) {
    Pauses all;
    for (const auto& stage : stages) all.insert(all.end(), stage.begin(), stage.end());
    return all;
}

inline Lines board_found(const GenericBench& bench) {
    return {"ライターを COM3に検出しました。",
            fmt::format("電源印加遅延時間　設定＝ {} ミリ秒", bench.row().delay)};
}
inline Lines behind_check(const GenericBench& bench, const Lines& lines) {
    return all_of({{"ライターチェック中.........."}, board_found(bench), lines});
}

inline const Lines kSocket{"ソケット確認中.....", "ソケット確認終了。"};
inline const Lines kWordRead{"指定プログラムメモリのデータリード中..........",
                             "指定プログラムメモリのデータリード成功。"};
inline const Lines kFoundBlank{"ブランクチェック終了。　デバイスは消去されています。"};
inline const Lines kQuestion{"デバイスにコードが書き込まれています。"};

inline Lines before_blank(const GenericBench& bench) {
    return bench.row().calibrated ? all_of({kSocket, kWordRead}) : kSocket;
}
inline Lines blank(const GenericBench& bench) {
    Lines lines{"ブランクチェック中..........", "ブランクチェック中..........プログラムメモリー"};
    if (bench.has_eeprom()) lines.emplace_back("ブランクチェック中..........ＥＥＰＲＯＭメモリ");
    lines.emplace_back("ブランクチェック中..........コンフィグ・ＩＤワード");
    return lines;
}
inline Lines erase(const GenericBench& bench) {
    if (bench.row().chip_erase.empty()) return {};
    return all_of({{"チップイレース中.........."},
                   board_found(bench),
                   {"チップイレース(コードプロテクト解除)中.....", "成功。"}});
}
inline Lines begin_write_pgm() {
    return {"プログラムメモリのプログラミング中..........",
            "プログラムメモリのプログラミング中.........."};
}
inline Lines write_pgm() {
    return all_of({begin_write_pgm(), {"プログラムメモリのプログラミングに成功しました。"}});
}
inline const std::string kNoEeprom = "このデバイスは、ＥＥＰＲＯＭデータメモリを内蔵していません。";
inline Lines write_eep(const GenericBench& bench) {
    return {"ＥＥＰＲＯＭデータメモリのプログラミング..........",
            bench.has_eeprom() ? "ＥＥＰＲＯＭデータメモリのプログラミングに成功しました。"
                               : kNoEeprom};
}
inline Lines verify(const GenericBench& bench) {
    Lines lines{"プログラムメモリのベリファイ中..........",
                "ＥＥＰＲＯＭデータメモリのベリファイ中.........."};
    if (!bench.has_eeprom()) lines.push_back(kNoEeprom);
    return lines;
}
inline const Lines kBeginWriteCfg{"コンフィグレーションの修正データ修得中..........",
                                  "コンフィギュレーションワード プログラミング中.........."};
inline const Lines kWriteCfg{"コンフィギュレーションワードのプログラミングに成功しました。",
                             "コンフィギュレーションワードのベリファイ中.........."};
// From the erase to the last verify of a successful run.
inline Lines written(const GenericBench& bench) {
    return all_of(
        {erase(bench), write_pgm(), write_eep(bench), verify(bench), kBeginWriteCfg, kWriteCfg});
}

inline Pauses erase_pauses(const GenericBench& bench) {
    return bench.row().chip_erase.empty() ? Pauses{200ms} : Pauses{200ms, 100ms, 500ms};
}
// Those of a successful run: the step to the writes, and one before each stage.
inline Pauses program_pauses(const GenericBench& bench) {
    return between_check_and_close(
        all_of({{300ms}, erase_pauses(bench), {100ms, 200ms, 200ms, 200ms}}));
}

// Whether the part holds the image, all of it.
inline void expect_programmed(GenericBench& bench) {
    const auto& image = bench.session();
    for (std::size_t w = 0; w < bench.target().program.size(); ++w)
        ASSERT_EQ(bench.target().program[w], image.PgmMem[2 * w] << 8 | image.PgmMem[2 * w + 1])
            << "word " << w;
    for (std::size_t c = 0; c < bench.target().eeprom.size(); ++c)
        ASSERT_EQ(bench.target().eeprom[c], image.EepMem[2 * c + 1]) << "cell " << c;
    EXPECT_EQ(bench.target().id, (std::vector<std::uint16_t>{0x3FFA, 0x3FFB, 0x3FFC, 0x3FFD}));
    for (std::size_t n = 1; n <= bench.target().config.size(); ++n)
        EXPECT_EQ(bench.target().config[n - 1], image.ConfigWord[n]) << "word " << n;
}

// "OKOKOK", or "OK--OK" for a part without EEPROM.
inline std::string result_of(const GenericBench& bench, std::string_view pgm = "OK",
                             std::string_view eep = "OK", std::string_view cfg = "OK") {
    return std::string{pgm} + std::string{bench.has_eeprom() ? eep : "--"} + std::string{cfg};
}

inline int seconds_shown(const GenericBench& bench) {
    const auto& line = bench.shown->lines.back();
    const auto from = line.find("　　");
    if (from == std::string::npos) return -1;
    return std::atoi(line.c_str() + from + std::string_view{"　　"}.size());
}
inline std::string success(const GenericBench& bench, int passed = 1, int failed = 0) {
    return fmt::format("プログラミング成功。　　{}sec　終了時刻：14:03:22  Pass = {}    Fail = {}",
                       seconds_shown(bench), passed, failed);
}
// What a log line shows behind the ID: the calibration, of a type that has one.
inline std::string calibration_field(GenericBench& bench) {
    if (!bench.row().calibrated) return {};
    return "  " + bench.form().Lbl_Calib_ReadWrite_Data.Caption.get();
}

}  // namespace generic

}  // namespace quillon::test
