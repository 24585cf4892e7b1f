// SPDX-License-Identifier: MIT
// Each area routine with another byte in the place of its end code, and those with a limit with no
// answer in time: its own words, and what the operation does then.
#include "program_lines.h"

namespace quillon::test {

namespace {

struct Case {
    const char* name;
    Outcome (Flows::*operation)();
    std::string_view fault;
    std::string_view message;
    std::string_view from = "";  // the message at which the fault is set, "" for the start
    std::string_view result = "";
};

std::string wait_name(const testing::TestParamInfo<Case>& info) { return info.param.name; }

constexpr auto kBlank = &Flows::Command_blank;
constexpr auto kRead = &Flows::Command_read;
constexpr auto kVerify = &Flows::Command_Verify;
constexpr auto kProgram = &Flows::Command_program;

constexpr std::string_view kVerifyingCfg = "ベリファイ中..........コンフィギュレーションワード";
constexpr std::string_view kReadingCfg = "コンフィギュレーションワード読み出し中.....";
constexpr std::string_view kBlankCfg = "ブランクチェック中..........コンフィグ・ＩＤワード";
constexpr std::string_view kVerifyingPgm = "プログラムメモリのベリファイ中..........";
constexpr std::string_view kVerifyingWritten =
    "コンフィギュレーションワードのベリファイ中..........";

const std::vector<Case> kCases{
    {"Blank_Pgm", kBlank, "bs/alter:3:0x21",
     "プログラムメモリブランクチェック失敗。　　終了コードを受信できませんでした。", "", "ERYBYB"},
    {"Blank_Eep", kBlank, "rsd/alter:513:0x21",
     "ＥＥＰＲＯＭデータメモリブランクチェック失敗。　　終了コードを受信できませんでした。", "",
     "YBERYB"},
    {"Blank_Eep_short", kBlank, "rsd/drop:513",
     "ＥＥＰＲＯＭデータメモリブランクチェック失敗。　　読み出しデータ不足。", "", "YBERYB"},
    {"Blank_Cfg", kBlank, "rsc/alter:17:0x21",
     "コンフィギュレーションワードブランクチェック失敗。　　終了コードを受信できませんでした。", "",
     "YBYBER"},
    {"Socket_Check", kRead, "rsc/alter:17:0x21",
     "モジュールチェック失敗。　　終了コードを受信できませんでした。"},
    {"Socket_Check_late", kRead, "rsc/late:11s",
     "書込みマイコンの種類の確認失敗。　　読み出しデータ不足。"},
    {"Socket_Check_of_a_program_run", kProgram, "rsc/alter:17:0x21",
     "モジュールチェック失敗。　　終了コードを受信できませんでした。"},
    {"Read_Pgm", kRead, "rsp/alter:16385:0x21",
     "プログラムメモリ読み出し失敗。　　終了コードを受信できませんでした。"},
    {"Read_Eep", kRead, "rsd/alter:513:0x21",
     "ＥＥＰＲＯＭデータメモリ読み出し失敗。　　終了コードを受信できませんでした。"},
    {"Read_Eep_late", kRead, "rsd/late:11s:17",
     "ＥＥＰＲＯＭデータメモリ読み出し失敗。　　読み出しデータ不足。"},
    {"Read_Cfg", kRead, "rsc/alter:17:0x21",
     "コンフィギュレーションワード読み出し失敗。　　終了コードを受信できませんでした。",
     kReadingCfg},
    {"Read_Cfg_late", kRead, "rsc/late:11s:16",
     "コンフィギュレーションワード読み出し失敗。　　読み出しデータ不足。", kReadingCfg},
    {"Verify_Cfg", kVerify, "rsc/alter:17:0x21",
     "コンフィギュレーションワードのベリファイに失敗しました。  "
     "終了コードを受信できませんでした。",
     kVerifyingCfg, "OKOKNG"},
    {"Verify_Pgm", kVerify, "rsp/alter:16385:0x21",
     "プログラムメモリ ベリファイ失敗。　　終了コードを受信できませんでした。", "", "NGOKOK"},
    {"Verify_Eep", kVerify, "rsd/alter:513:0x21",
     "ＥＥＰＲＯＭデータメモリの ベリファイエラー。  終了コードを受信できませんでした。", "",
     "OKNGOK"},
    {"Verify_Pgm_of_a_program_run", kProgram, "rsp/alter:16385:0x21",
     "プログラムメモリ ベリファイ失敗。　　終了コードを受信できませんでした。", "", "NGOKOK"},
    {"Verify_Eep_of_a_program_run", kProgram, "rsd/alter:513:0x21",
     "ＥＥＰＲＯＭデータメモリの ベリファイエラー。  終了コードを受信できませんでした。",
     kVerifyingPgm, "OKNGOK"},
    {"Verify_Cfg_of_a_program_run", kProgram, "rsc/alter:17:0x21",
     "コンフィギュレーションワードのベリファイに失敗しました。  "
     "終了コードを受信できませんでした。",
     kVerifyingWritten, "OKOKNG"},
};

}  // namespace

class end_code : public testing::TestWithParam<Case> {};
INSTANTIATE_TEST_SUITE_P(, end_code, testing::ValuesIn(kCases), wait_name);

TEST_P(end_code, is_missed_in_the_routines_own_words) {
    const Case& given = GetParam();
    for (const auto* device : {"PIC16F877", "PIC16F877A"}) {
        Bench bench{device};
        if (given.operation == kVerify) bench.program_target();
        const auto set = [&] { bench.board.add_fault(given.fault); };
        if (given.from.empty())
            set();
        else
            bench.when_shown(given.from, set);
        EXPECT_EQ((bench.run->flows.*given.operation)(), Outcome::Failed) << device;

        EXPECT_EQ(std::ranges::count(bench.shown->lines, given.message), 1) << device;
        if (given.result.empty()) continue;
        EXPECT_EQ(bench.session().ResultAll, given.result) << device;
    }
}

using stops_at_a_link_error = EveryFamily;
INSTANTIATE_TEST_SUITE_P(, stops_at_a_link_error, testing::ValuesIn(kFamilyCases), case_name);

TEST_P(stops_at_a_link_error, a_program_run_in_its_blank_check) {
    struct Step {
        std::string_view fault, from;
        int exchanges;
    };
    for (const auto& [fault, from, exchanges] : {
             Step{"bs/alter:3:0x21", "", 1},
             Step{"rsd/alter:513:0x21", "", 2},
             Step{"rsc/alter:17:0x21", kBlankCfg, 3},
         }) {
        Bench bench{GetParam()};
        const auto set = [&] { bench.board.add_fault(fault); };
        from.empty() ? set() : bench.when_shown(from, set);
        EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Failed);

        const auto wire = bench.wire();
        EXPECT_EQ(std::ranges::count(wire, '\n'), 3 + exchanges) << wire;
        EXPECT_TRUE(wire.ends_with(" 21\n")) << wire;
        EXPECT_TRUE(bench.dialogs.hints.empty());
        EXPECT_EQ(bench.session().TryCount, 0);
        EXPECT_EQ(bench.log(), "");
        EXPECT_EQ(pauses(bench), between_check_and_close({}));
    }
}

TEST_P(stops_at_a_link_error, a_read_and_keeps_the_image_of_the_area) {
    Bench bench{GetParam()};
    const auto program = bench.program_image();
    const auto eeprom = bench.eeprom_image();
    bench.board.add_fault("rsp/alter:16385:0x21");
    EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Failed);

    const ExpectedWire wire{bench};
    EXPECT_EQ(bench.wire(),
              wire.check() + wire.config() + wire.read_pgm(wire.program_of_target(), "21"));
    EXPECT_EQ(bench.program_image(), program);
    EXPECT_EQ(bench.eeprom_image(), eeprom);
    EXPECT_EQ(bench.log(), "");
}

TEST_P(stops_at_a_link_error, a_verify_of_the_socket_with_no_line_in_the_log) {
    Bench bench{GetParam()};
    bench.board.add_fault("rsc/alter:17:0x21");
    EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Failed);

    const ExpectedWire wire{bench};
    EXPECT_EQ(bench.wire(), wire.check() + wire.config("21"));
    EXPECT_TRUE(bench.dialogs.boxes.empty());
}

TEST_P(stops_at_a_link_error, no_verify_that_has_seen_a_mismatch) {
    // The end code is looked at only where no word differed.
    Bench bench{GetParam()};
    bench.program_target();
    bench.target().program[0] ^= 1U;
    bench.board.add_fault("rsp/alter:16385:0x21");
    EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Failed);

    EXPECT_EQ(bench.session().ResultAll, "NGOKOK");
    EXPECT_EQ(std::ranges::count(bench.shown->lines, "プログラムメモリ ベリファイエラー。"), 1);
}

// The steps of the erase: its status line, its failure.

TEST_P(stops_at_a_link_error, a_program_run_in_each_step_of_its_erase) {
    for (const auto& [command, status, failure, pause, of_eeprom] : GetParam().erases) {
        for (const std::string_view fault : {"bd/alter:1:0x21", "bd/late:3100ms"}) {
            Bench bench{GetParam()};
            bench.when_shown(status, [&] { bench.board.add_fault(fault); });
            EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Failed);

            const auto& lines = bench.shown->lines;
            const Lines last{lines.end() - 4, lines.end()};
            EXPECT_EQ(last, (Lines{std::string{status}, "失敗。", std::string{failure},
                                   "チップイレース失敗。"}));
            EXPECT_EQ(bench.session().TryCount, 0);
            EXPECT_TRUE(bench.dialogs.boxes.empty());
            // The port is closed at once, and once more at the end of the operation.
            const auto all = pauses(bench);
            EXPECT_EQ((Pauses{all.end() - 4, all.end()}), (Pauses{200ms, 200ms, 200ms, 200ms}));
        }
    }
}

TEST_P(stops_at_a_link_error, no_erase_that_takes_just_under_3_s) {
    Bench bench{GetParam()};
    bench.board.add_fault("bd/late:2980ms");
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);
}

}  // namespace quillon::test
