// SPDX-License-Identifier: MIT
// Program runs of devices without a family that fail after the erase: writes that break off, and
// parts that don't hold what was written.
#include "generic_lines.h"

namespace quillon::test {

namespace {

constexpr std::string_view kPgmFailed = "プログラムメモリのプログラミングに失敗しました。";
constexpr std::string_view kEepFailed = "ＥＥＰＲＯＭデータメモリのプログラミングに失敗しました。";
constexpr std::string_view kCfgFailed =
    "コンフィギュレーションワードのプログラミングに失敗しました。　　";

// A run in which a fault is set, with what it shows behind its blank check and erase.
struct GenericRun {
    explicit GenericRun(const GenericCase& row) : bench{row, kFewWords} {}
    void fail_with(const std::string& fault) {
        bench.board.add_fault(fault);
        EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Failed) << bench.row().name;
    }
    const std::string& last() const { return bench.shown->lines.back(); }
    // A run that stopped: it counts as failed, with no line in the log.
    void expect_stopped(std::string_view title, std::string_view text) {
        ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
        EXPECT_EQ(bench.dialogs.boxes[0].title, title);
        EXPECT_EQ(bench.dialogs.boxes[0].text, text);
        EXPECT_EQ(bench.session().TryCount, 1);
        EXPECT_EQ(bench.session().PassCount, 0);
        EXPECT_EQ(bench.session().Status, Token::NG);
        EXPECT_EQ(bench.log(), "");
    }
    std::string pgm() const { return std::string{bench.row().write_pgm}; }
    std::string eep() const { return std::string{bench.row().write_eep}; }
    std::string cfg() const { return std::string{bench.row().write_cfg}; }

    GenericBench bench;
    GenericWire wire{bench};
};

constexpr std::string_view kPgmTitle = "プログラムメモリプログラミング";
constexpr std::string_view kEepTitle = "ＥＥＰＲＯＭデータメモリプログラミング";
constexpr std::string_view kCfgBox = "コンフィグレーションのプログラミングに失敗しました。";

}  // namespace

using generic_write = EveryType;
INSTANTIATE_TEST_SUITE_P(, generic_write, testing::ValuesIn(kGenericCases), type_name);

TEST_P(generic_write, stops_where_the_board_breaks_it_off) {
    GenericRun run{GetParam()};
    bool open = true;
    run.bench.dialogs.on_box = [&] { open = run.bench.port.is_open(); };
    run.fail_with(run.pgm() + "/abort-write:100");

    EXPECT_EQ(run.last(),
              "プログラムメモリのプログラミングに失敗しました。  "
              "中断コードが返信されました。");
    auto items = run.bench.program_image();
    items.resize(200);
    EXPECT_TRUE(run.bench.wire().ends_with(fmt::format(
        "{}  < + x100  > {}  < 40 40\n", run.wire.begin_write_pgm(), ExpectedWire::shown(items))));
    run.expect_stopped(kPgmTitle, kPgmFailed);
    EXPECT_FALSE(open);  // the board is let go while the user reads
}

TEST_P(generic_write, names_the_word_two_before_the_one_that_was_due_at_a_time_out) {
    GenericRun run{GetParam()};
    // The request for word 0x1F comes too late.
    run.fail_with(run.pgm() + "/late:10100ms:32");

    EXPECT_EQ(run.last(),
              "プログラムメモリのプログラミングに失敗しました。  | "
              "アドレスでタイムアウトが発生しました。 0x0001D");
    run.expect_stopped(kPgmTitle, kPgmFailed);
}

TEST_P(generic_write, waits_up_to_10_s_for_each_request) {
    GenericBench bench{GetParam(), kFewWords};
    bench.board.add_fault(std::string{bench.row().write_pgm} + "/late:9900ms:32");
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);
}

TEST_P(generic_write, says_that_the_end_code_came_too_late) {
    GenericRun run{GetParam()};
    run.fail_with(fmt::format("{}/late:10100ms:{}", run.pgm(), run.bench.session().PgmWords + 1));

    EXPECT_EQ(run.last(),
              "プログラムメモリのプログラミングに失敗しました。  "
              "受信タイムアウトが発生しました。");
    run.expect_stopped(kPgmTitle, kPgmFailed);
}

TEST_P(generic_write, says_that_the_end_code_is_another_byte) {
    GenericRun run{GetParam()};
    run.fail_with(fmt::format("{}/alter:{}:0x21", run.pgm(), run.bench.session().PgmWords + 1));

    EXPECT_EQ(run.last(),
              "プログラムメモリのプログラミングに失敗しました。  "
              "終了コードを受信できませんでした。");
    EXPECT_TRUE(run.bench.wire().ends_with(run.wire.write_pgm("21")));
    run.expect_stopped(kPgmTitle, kPgmFailed);
}

TEST_P(generic_write, reports_the_cell_of_eeprom_that_does_not_hold_its_value) {
    GenericRun run{GetParam()};
    if (!run.bench.has_eeprom()) return;
    run.fail_with("stuck-eeprom:5");

    // Write is what was sent, Read what the board answered.
    EXPECT_EQ(run.last(),
              std::string{kEepFailed} + "　　 | ( Address = 5  Write = 3FBE  Read = 00FF )");
    auto items = run.bench.eeprom_image();
    items.resize(12);
    EXPECT_TRUE(run.bench.wire().ends_with(fmt::format("{}  < + x6  > {}  < 2A 00 FF 40\n",
                                                       run.wire.begin_write_eep(),
                                                       ExpectedWire::shown(items))));
    run.expect_stopped(kEepTitle, kEepFailed);
}

TEST_P(generic_write, says_that_the_end_code_of_eeprom_is_another_byte) {
    GenericRun run{GetParam()};
    if (!run.bench.has_eeprom()) return;
    run.fail_with(fmt::format("{}/alter:{}:0x21", run.eep(), run.bench.session().EepBytes + 1));

    EXPECT_EQ(run.last(), std::string{kEepFailed} + "  終了コードを受信できませんでした。");
    run.expect_stopped(kEepTitle, kEepFailed);
}

TEST_P(generic_write, waits_for_eeprom_as_long_as_it_takes) {
    GenericBench bench{GetParam(), kFewWords};
    if (!bench.has_eeprom()) return;
    bench.board.add_fault(std::string{bench.row().write_eep} + "/late:50s:10");
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);
    generic::expect_programmed(bench);
}

TEST_P(generic_write, reports_an_id_word_that_does_not_hold_its_value) {
    GenericRun run{GetParam()};
    run.fail_with("stuck-config:1");

    const auto& line = run.last();
    EXPECT_TRUE(line.starts_with(std::string{kCfgFailed} + " | ( Address = 1  Read = ")) << line;
    EXPECT_TRUE(line.ends_with("  Write = 0000 )")) << line;
    EXPECT_EQ(line.find("????"), std::string::npos) << line;
    run.expect_stopped("", kCfgBox);
}

TEST_P(generic_write, reports_the_configuration_word_that_does_not_hold_its_value) {
    GenericRun run{GetParam()};
    run.fail_with("stuck-config:7");

    const auto& line = run.last();
    EXPECT_TRUE(line.starts_with(std::string{kCfgFailed} + " | ( Address = 7  Read = ")) << line;
    run.expect_stopped("", kCfgBox);
    for (const std::size_t i : {8U, 10U, 12U})
        EXPECT_EQ(run.bench.session().CfgIdVerify[i] & 0x80, 0) << i;
}

TEST_P(generic_write, says_that_the_end_code_of_the_configuration_is_another_byte) {
    GenericRun run{GetParam()};
    run.fail_with(fmt::format("{}/alter:{}:0x21", run.cfg(), run.bench.row().words.write + 1));

    EXPECT_TRUE(run.last().starts_with(std::string{kCfgFailed} + " | ( Address = ")) << run.last();
    EXPECT_TRUE(run.last().ends_with("  Write = 0000 )")) << run.last();
    run.expect_stopped("", kCfgBox);
}

TEST_P(generic_write, goes_on_after_a_mismatch_and_lists_all_areas_at_the_end) {
    GenericRun run{GetParam()};
    // The cell loses a bit between write and verify.
    run.bench.when_shown("プログラムメモリのベリファイ中..........",
                         [&] { run.bench.target().program[3] ^= 1U; });
    run.bench.session().LoadedHexPath = "A.HEX";
    EXPECT_EQ(run.bench.run->flows.Command_program(), Outcome::Failed);

    const std::string verdict = "プログラミング失敗。　終了時刻：14:03:22  Pass = 0    Fail = 1";
    EXPECT_EQ(run.last(), "[red] " + verdict);
    ASSERT_EQ(run.bench.dialogs.boxes.size(), 1U);
    EXPECT_EQ(run.bench.dialogs.boxes[0].title, "ベリファイ");
    std::string text = "プログラムメモリ\t=　NG\r\n";
    if (run.bench.has_eeprom()) text += "ＥＥＰＲＯＭデータメモリ\t=　OK\r\n";
    EXPECT_EQ(run.bench.dialogs.boxes[0].text, text + "ＣＯＮＦＩＧ. ワード　　　\t=　OK\r\n");
    EXPECT_EQ(run.bench.log(), verdict + "  " + run.bench.device() + "  ID:ABCD" +
                                   generic::calibration_field(run.bench) +
                                   "  A.HEX\t2026-11-20 14:03:22\n");
    EXPECT_EQ(run.bench.session().ResultAll, generic::result_of(run.bench, "NG"));
    EXPECT_EQ(run.bench.session().TryCount, 1);
    EXPECT_EQ(run.bench.session().FailCount, 1);
}

TEST_P(generic_write, never_repeats_a_write_or_a_verify) {
    GenericRun run{GetParam()};
    run.bench.when_shown("プログラムメモリのベリファイ中..........",
                         [&] { run.bench.target().program[3] ^= 1U; });
    run.bench.when_shown("コンフィギュレーションワードのベリファイ中..........",
                         [&] { run.bench.target().config[0] ^= 2U; });
    EXPECT_EQ(run.bench.run->flows.Command_program(), Outcome::Failed);

    EXPECT_EQ(run.bench.session().ResultAll, generic::result_of(run.bench, "NG", "OK", "NG"));
    EXPECT_TRUE(run.bench.wire().ends_with(run.wire.written()));
}

}  // namespace quillon::test
