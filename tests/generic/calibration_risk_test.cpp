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

// The dialog's erases check no identity. A bad contact reads as zeros.
TEST(calibration_check, stops_an_erase_where_the_word_read_is_no_calibration) {
    for (const auto erase :
         {&ExtendFlows::Cmd_Chip_Erace_Click, &ExtendFlows::Cmd_PGM_Erase_Click}) {
        GenericBench bench{"T12F6"};
        bench.board.add_fault("br/alter:1:0x00");
        const auto part = bench.target();
        EXPECT_EQ((bench.run->extend.*erase)(), Outcome::Failed);

        EXPECT_EQ(bench.target(), part);
        EXPECT_EQ(bench.wire().find("> nbd"), std::string::npos);
    }
}

TEST(calibration_check, leaves_an_erased_word_as_it_is_and_says_so) {
    GenericBench bench{"T12F6"};
    bench.target().program.back() = 0x3FFF;
    EXPECT_EQ(bench.run->extend.Cmd_Chip_Erace_Click(), Outcome::Success);

    EXPECT_EQ(bench.target().program.back(), 0x3FFF);
    EXPECT_EQ(bench.wire().find("bw"), std::string::npos);
    EXPECT_EQ(bench.calibration_notices.size(), 1U);
}

// A bit of a one-time part never becomes 1 again.
TEST(one_time_calibration, is_refused_before_the_first_write_where_the_word_cannot_take_it) {
    GenericBench bench{"T12C6"};
    const auto part = bench.target();
    bench.form().Chk_12F_CalibData_Select.Checked.set(false);
    bench.form().Text_Calib_Data.Text.set("8B");
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Failed);

    EXPECT_EQ(bench.target(), part);
    EXPECT_TRUE(bench.calibration_notices.back().starts_with(
        "[red] デバイスの最後のワード 0x3474 は、0x348B に書き換えられません。"));
}

TEST(verify_of_a_calibrated_part, says_that_the_file_has_no_calibration) {
    for (const std::string_view type : {"T12F6", "T12C6"}) {
        GenericBench bench{type};
        EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);
        const auto last = 2 * static_cast<std::size_t>(bench.session().PgmWords) - 2;
        bench.session().PgmMem[last] = 0x3F;
        bench.session().PgmMem[last + 1] = 0xFF;
        EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Failed);

        ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
        EXPECT_TRUE(bench.dialogs.boxes[0].text.ends_with(
            "ファイルにキャリブレーションデータがないため、最後のワードは一致しません。"))
            << type;
    }
}

// Files of some compilers set the three bits that the word hasn't got.
TEST(verify_of_a_calibrated_part, accepts_bits_of_the_file_that_the_word_has_not_got) {
    GenericBench bench{"T12F6"};
    bench.session().CfgIdMem[14] |= 0x0E;
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);
    EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Success);
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
