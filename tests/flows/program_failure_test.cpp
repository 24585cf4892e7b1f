// SPDX-License-Identifier: MIT
// A program run that fails after the erase: writes that break off, and parts that don't hold what
// was written.
#include "program_lines.h"

namespace quillon::test {

namespace {

constexpr std::string_view kPgmTitle = "プログラムメモリプログラミング";
constexpr std::string_view kPgmBox = "プログラムメモリのプログラミングに失敗しました。";
constexpr std::string_view kEepTitle = "ＥＥＰＲＯＭデータメモリプログラミング";
constexpr std::string_view kEepBox = "ＥＥＰＲＯＭデータメモリのプログラミングに失敗しました。";
constexpr std::string_view kCfgBox = "コンフィグレーションのプログラミングに失敗しました。";

// A run that begins with the erase, so that its first exchanges are known.
class FailingRun {
  public:
    explicit FailingRun(std::string_view device) : bench{device} {
        bench.form().mnuBlankSkip.Checked.set(true);
        before_ = wire.check() + wire.config() + wire.erase_all();
    }
    void fail_with(std::string_view fault) {
        bench.board.add_fault(fault);
        run();
    }
    void run() { EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Failed); }
    // The exchanges of the writes and verifies.
    std::string written() {
        const auto all = bench.wire();
        EXPECT_TRUE(all.starts_with(before_)) << all;
        return all.substr(std::min(before_.size(), all.size()));
    }
    // The messages from the first write on.
    Lines lines() const {
        const auto head =
            after_check(joined({kSocketLines, erase_lines(bench.run->session.DeviceName)}));
        const auto& all = bench.shown->lines;
        if (all.size() < head.size() || !std::equal(head.begin(), head.end(), all.begin()))
            return all;
        return {all.begin() + static_cast<std::ptrdiff_t>(head.size()), all.end()};
    }
    // A run that stopped: it counts as failed, with no line in the log.
    void expect_stopped() {
        EXPECT_EQ(bench.session().TryCount, 1);
        EXPECT_EQ(bench.session().PassCount, 0);
        EXPECT_EQ(bench.session().Status, Token::NG);
        EXPECT_EQ(bench.log(), "");
    }
    std::vector<std::uint8_t> first_items(std::size_t count) const {
        auto image = bench.program_image();
        image.resize(2 * count);
        return image;
    }

    Bench bench;
    ExpectedWire wire{bench};

  private:
    std::string before_;
};

std::string broken_off(const std::string& head, std::size_t ready,
                       std::span<const std::uint8_t> items, std::string_view report) {
    return fmt::format("{}  < + x{}  > {}  < {}\n", head, ready, ExpectedWire::shown(items),
                       report);
}

}  // namespace

using program_failure = EveryFamily;
INSTANTIATE_TEST_SUITE_P(, program_failure, testing::ValuesIn(kFamilyCases), case_name);

TEST_P(program_failure, stops_where_the_board_breaks_off_the_write_of_program_memory) {
    FailingRun run{GetParam()};
    run.fail_with("w/abort-write:100");

    EXPECT_EQ(run.written(),
              broken_off(run.wire.begin_write_pgm(), 100, run.first_items(100), "40 40"));
    EXPECT_EQ(run.lines(), (Lines{kWritePgmLines[0],
                                  "プログラムメモリのプログラミングに失敗しました。  "
                                  "中断コードが返信されました。"}));
    expect_critical_box(run.bench, kPgmTitle, kPgmBox);
    run.expect_stopped();
}

TEST_P(program_failure, lets_the_board_go_before_the_box_and_once_more_at_the_end) {
    FailingRun run{GetParam()};
    bool open = true;
    run.bench.dialogs.on_box = [&] { open = run.bench.port.is_open(); };
    run.fail_with("w/abort-write:0");

    EXPECT_FALSE(open);
    EXPECT_EQ(pauses(run.bench),
              between_check_and_close(joined({erase_pauses(GetParam()), {200ms}, {200ms, 200ms}})));
}

TEST_P(program_failure, names_the_word_two_before_the_one_that_was_due_at_a_time_out) {
    FailingRun run{GetParam()};
    // The request for word 5 comes too late.
    run.fail_with("w/late:11s:6");

    EXPECT_EQ(run.lines(), (Lines{kWritePgmLines[0],
                                  "プログラムメモリのプログラミングに失敗しました。  | "
                                  "0x3アドレスでタイムアウトが発生しました。"}));
    expect_critical_box(run.bench, kPgmTitle, kPgmBox);
    run.expect_stopped();
}

TEST_P(program_failure, tells_a_time_out_of_the_end_code) {
    FailingRun run{GetParam()};
    run.fail_with("w/late:11s:8193");

    EXPECT_EQ(run.lines().back(),
              "プログラムメモリのプログラミングに失敗しました。  受信タイムアウトが発生しました。");
    expect_critical_box(run.bench, kPgmTitle, kPgmBox);
    run.expect_stopped();
}

TEST_P(program_failure, tells_a_missing_end_code_of_program_memory) {
    FailingRun run{GetParam()};
    run.fail_with("w/alter:8193:0x21");

    EXPECT_EQ(run.written(), run.wire.write_pgm("21"));
    EXPECT_EQ(run.lines().back(),
              "プログラムメモリのプログラミングに失敗しました。  "
              "終了コードを受信できませんでした。");
    expect_critical_box(run.bench, kPgmTitle, kPgmBox);
    run.expect_stopped();
}

TEST_P(program_failure, reports_the_cell_of_eeprom_that_does_not_hold_its_value) {
    FailingRun run{GetParam()};
    run.fail_with("stuck-eeprom:5");

    auto items = run.bench.eeprom_image();
    items.resize(12);
    EXPECT_EQ(run.written(), run.wire.write_pgm() +
                                 broken_off(run.wire.begin_write_eep(), 6, items, "2A 00 FF 40"));
    // Write is what the host sent, Read what the board answered.
    EXPECT_EQ(run.lines(), joined({kWritePgmLines,
                                   {kWriteEepLines[0],
                                    "ＥＥＰＲＯＭデータメモリのプログラミングに失敗しました。 "
                                    "| ( Address = 5  Write = 3FBE  Read = 00FF )"}}));
    expect_critical_box(run.bench, kEepTitle, kEepBox);
    run.expect_stopped();
}

TEST_P(program_failure, takes_a_report_on_the_last_cell_for_a_missing_end_code) {
    FailingRun run{GetParam()};
    run.fail_with("stuck-eeprom:255");

    EXPECT_EQ(run.written(), run.wire.write_pgm() + run.wire.write_eep("2A 00 FF 40"));
    EXPECT_EQ(run.lines().back(),
              "ＥＥＰＲＯＭデータメモリのプログラミングに失敗しました。  "
              "終了コードを受信できませんでした。");
    expect_critical_box(run.bench, kEepTitle, kEepBox);
}

TEST_P(program_failure, tells_a_missing_end_code_of_eeprom) {
    FailingRun run{GetParam()};
    run.fail_with("wed/alter:257:0x21");

    EXPECT_EQ(run.lines().back(),
              "ＥＥＰＲＯＭデータメモリのプログラミングに失敗しました。  "
              "終了コードを受信できませんでした。");
    expect_critical_box(run.bench, kEepTitle, kEepBox);
    run.expect_stopped();
}

TEST_P(program_failure, waits_for_eeprom_as_long_as_it_takes) {
    Bench bench{GetParam()};
    bench.board.add_fault("wed/late:50s:100");
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);
    expect_programmed(bench);
}

TEST_P(program_failure, reports_an_id_word_that_does_not_hold_its_value) {
    FailingRun run{GetParam()};
    run.fail_with("stuck-config:1");

    auto items = run.wire.config_items();
    items.resize(4);
    const auto all = run.written();
    EXPECT_TRUE(all.ends_with(broken_off(run.wire.begin_write_cfg(), 2, items, "2A 3F FF 40")))
        << all;
    EXPECT_EQ(run.lines(), joined({kWritePgmLines,
                                   kWriteEepLines,
                                   kVerifyLines,
                                   {kConfigLines[0],
                                    "コンフィギュレーションワードのプログラミングに失敗しました。 "
                                    "| ( Address = 1  Read = 3FFF  Write = ???? )"}}));
    expect_critical_box(run.bench, "", kCfgBox);
    run.expect_stopped();
}

TEST_P(program_failure, reports_the_first_word_of_a_report_that_lacks_its_mark) {
    FailingRun run{GetParam()};
    run.bench.board.add_fault("stuck-config:1");
    run.fail_with(std::string{GetParam().write_cfg} + "/alter:3:0x2B");

    EXPECT_EQ(run.lines().back(),
              "コンフィギュレーションワードのプログラミングに失敗しました。 "
              "| ( Address = 1  Read = 2B3F  Write = ???? )");
}

TEST_P(program_failure, reports_a_configuration_word_that_does_not_hold_its_value) {
    FailingRun run{GetParam()};
    run.fail_with("stuck-config:7");

    EXPECT_EQ(run.lines().back(),
              "コンフィギュレーションワードのプログラミングに失敗しました。 "
              "| ( Address = 7  Read = 3FFF  Write = ???? )");
    expect_critical_box(run.bench, "", kCfgBox);
    run.expect_stopped();
    EXPECT_EQ(run.bench.session().CfgIdMem[8], 0x3F);
    EXPECT_EQ(run.bench.session().CfgIdMem[10], 0x3F);
    EXPECT_EQ(run.bench.session().CfgIdMem[12], 0x3F);
}

TEST_P(program_failure, goes_on_after_a_mismatch_and_tells_all_areas_at_the_end) {
    FailingRun run{GetParam()};
    run.bench.session().LoadedHexPath = "A.HEX";
    run.fail_with("stuck-cell:0x10");

    EXPECT_EQ(run.written(), run.wire.write_pgm() + run.wire.write_eep() +
                                 run.wire.read_pgm(run.wire.program_of_target()) +
                                 run.wire.read_eep(run.wire.eeprom_of_target()) +
                                 run.wire.write_cfg() + run.wire.config());
    const std::string verdict = "プログラミング失敗。　終了時刻：14:03:22  Pass = 0    Fail = 1";
    EXPECT_EQ(run.lines(),
              joined({kWritePgmLines,
                      kWriteEepLines,
                      {kVerifyLines[0], "プログラムメモリ ベリファイエラー。", kVerifyLines[1]},
                      kConfigLines,
                      {"[red] " + verdict}}));
    ASSERT_EQ(run.bench.dialogs.boxes.size(), 1U);
    EXPECT_EQ(run.bench.dialogs.boxes[0].title, "ベリファイ");
    EXPECT_EQ(run.bench.dialogs.boxes[0].icon, BoxIcon::Information);
    EXPECT_EQ(run.bench.dialogs.boxes[0].text,
              "プログラムメモリ\t=NG\r\n"
              "ＥＥＰＲＯＭデータメモリ\t=OK\r\n"
              "ＣＯＮＦＩＧ. ワード　　　\t=OK\r\n");
    EXPECT_EQ(run.bench.log(),
              verdict + "  " + run.bench.device() + "  ID:ABCD  A.HEX\t2026-11-20 14:03:22\n");
    EXPECT_EQ(run.bench.session().ResultAll, "NGOKOK");
    EXPECT_EQ(run.bench.session().TryCount, 1);
    EXPECT_EQ(run.bench.session().PassCount, 0);
    EXPECT_EQ(run.bench.session().FailCount, 1);
    EXPECT_TRUE(run.bench.form().RichTxtPgmMem.Text.get().ends_with(
        "Error　 アドレス:0x0010 , 正:0x" + hex(run.bench.session().PgmMem[0x20], 2) +
        hex(run.bench.session().PgmMem[0x21], 2) + " , 誤:0x3FFF\r\n"));
}

TEST_P(program_failure, never_repeats_a_write_or_a_verify) {
    FailingRun run{GetParam()};
    run.bench.when_shown("ＥＥＰＲＯＭデータメモリのベリファイ中..........",
                         [&] { run.bench.target().eeprom[3] ^= 1U; });
    run.bench.when_shown("コンフィギュレーションワードのベリファイ中..........",
                         [&] { run.bench.target().id[0] ^= 1U; });
    run.bench.board.add_fault("stuck-cell:0");
    run.run();

    EXPECT_EQ(run.bench.session().ResultAll, "NGNGNG");
    EXPECT_EQ(run.bench.dialogs.boxes.at(0).text,
              "プログラムメモリ\t=NG\r\n"
              "ＥＥＰＲＯＭデータメモリ\t=NG\r\n"
              "ＣＯＮＦＩＧ. ワード　　　\t=NG\r\n");
    EXPECT_EQ(run.written(), run.wire.write_pgm() + run.wire.write_eep() +
                                 run.wire.read_pgm(run.wire.program_of_target()) +
                                 run.wire.read_eep(run.wire.eeprom_of_target()) +
                                 run.wire.write_cfg() + run.wire.config());
}

TEST_P(program_failure, is_over_with_the_next_run_on_a_good_part) {
    FailingRun run{GetParam()};
    run.fail_with("w/abort-write:4096");
    run.bench.board.clear_faults();

    EXPECT_EQ(run.bench.run->flows.Command_program(), Outcome::Success);
    expect_programmed(run.bench);
    EXPECT_TRUE(run.bench.shown->lines.back().ends_with("  Pass = 1    Fail = 1"));
}

}  // namespace quillon::test
