// SPDX-License-Identifier: MIT
// A factory calibration that an operation has erased and not written back: only this program still
// knows it, so it is shown behind the verdict and noted in the log.
#include "generic_lines.h"

namespace quillon::test {

namespace {

constexpr std::string_view kNotice =
    "[+] [red] デバイスのキャリブレーションデータが書き戻されていません。 0x3474  BG:2 | "
    "「デバイス内部のデータを保持する」のチェックを外し、この値を入力してプログラムしてください。";
constexpr std::string_view kLogged =
    "デバイスのキャリブレーションデータが書き戻されていません。 0x3474  BG:2  "
    "PIC12F675\t\t2026-11-20 14:03:22\n";

}  // namespace

TEST(calibration_at_risk, is_shown_and_logged_where_the_write_fails_behind_the_erase) {
    GenericBench bench{"T12F6"};
    bench.board.add_fault("wee/abort-write:100");
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Failed);

    EXPECT_EQ(bench.target().program.back(), 0x3FFF);
    EXPECT_EQ(bench.calibration_notices, Lines{std::string{kNotice}});
    EXPECT_EQ(bench.Bench::log(), kLogged);
}

TEST(calibration_at_risk, is_shown_where_the_user_stops_and_where_the_port_is_lost) {
    for (const bool stopped : {true, false}) {
        GenericBench bench{"T12F6"};
        bench.notes_expected = true;
        bool writing = false;
        bench.when_shown("プログラムメモリのプログラミング中..........", [&] { writing = true; });
        if (stopped)
            bench.stop_when([&] { return writing; });
        else
            bench.board.add_fault("wee/unplug-after:100");
        EXPECT_EQ(bench.run->flows.Command_program(),
                  stopped ? Outcome::GivenUp : Outcome::PortLost);

        EXPECT_EQ(bench.calibration_notices, Lines{std::string{kNotice}});
        EXPECT_EQ(bench.Bench::log(), kLogged);
    }
}

TEST(calibration_at_risk, is_none_where_nothing_was_erased_and_where_all_was_written) {
    GenericBench bench{"T12F6"};
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);
    EXPECT_EQ(bench.run->extend.Cmd_Chip_Erace_Click(), Outcome::Success);
    bench.program_target();
    bench.dialogs.hint_answer = 2;
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Cancelled);

    EXPECT_EQ(bench.calibration_notices, Lines{});
}

TEST(calibration_at_risk, is_shown_where_the_word_does_not_go_back_after_a_chip_erase) {
    GenericBench bench{"T12F6"};
    bench.board.add_fault("bw/alter:1:0x2A");
    EXPECT_EQ(bench.run->extend.Cmd_Chip_Erace_Click(), Outcome::Failed);

    EXPECT_EQ(bench.calibration_notices, Lines{std::string{kNotice}});
}

TEST(calibration_at_risk, can_be_written_from_the_fields_by_the_next_run) {
    GenericBench bench{"T12F6"};
    bench.board.add_fault("wee/abort-write:100");
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Failed);
    bench.board.clear_faults();
    bench.dialogs.hint_answer = 1;
    bench.form().Chk_12F_CalibData_Select.Checked.set(false);
    bench.form().Text_Calib_Data.Text.set("74");
    bench.form().Text_BG.Text.set("2");
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);

    EXPECT_EQ(bench.target().program.back(), 0x3474);
    EXPECT_EQ(bench.target().config[0] >> 12, 2);
}

// Such a part runs into a word that is no instruction of the factory's. The run itself is good.
TEST(calibration_lost, is_shown_behind_the_success_of_a_part_without_its_word) {
    for (const std::string_view type : {"T12F6", "T12C6"}) {
        GenericBench bench{type};
        bench.target().program.back() = 0x3FFF;
        EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success) << type;

        EXPECT_EQ(bench.calibration_notices, Lines{"[+] [red] デバイスの最後のワード 0x3FFF "
                                                   "は、キャリブレーションデータではありません。"})
            << type;
    }
}

}  // namespace quillon::test
