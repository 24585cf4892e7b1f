// SPDX-License-Identifier: MIT
// A part that no family claims, programmed from the image without a fault: every exchange, message
// and pause.
#include "generic_lines.h"

namespace quillon::test {

namespace {

// The image with the calibration of the part in the socket, so that it is what the part shall hold
// at the end.
void take_over_calibration(GenericBench& bench) {
    if (!bench.row().calibrated) return;
    const auto word = bench.target().program.back();
    const auto at = 2 * static_cast<std::size_t>(bench.session().PgmWords) - 2;
    bench.session().PgmMem[at] = static_cast<std::uint8_t>(word >> 8U);
    bench.session().PgmMem[at + 1] = static_cast<std::uint8_t>(word);
    if (bench.row().type != "12F6") return;
    const auto config =
        (bench.session().ConfigWord[1] & 0x0FFFU) | (bench.target().config[0] & 0x3000U);
    bench.session().ConfigWord[1] = config;
    bench.session().CfgIdMem[14] = static_cast<std::uint8_t>(config >> 8U);
}

}  // namespace

using generic_program = EveryType;
INSTANTIATE_TEST_SUITE_P(, generic_program, testing::ValuesIn(kGenericCases), type_name);

TEST_P(generic_program, programs_a_fresh_part) {
    GenericBench bench{GetParam()};
    const GenericWire wire{bench};
    const auto before = wire.before_blank() + wire.blank(bench.row().blank_word);
    take_over_calibration(bench);
    const auto program = bench.program_image();
    bench.session().LoadedHexPath = "/home/user/BLINK.HEX";
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);

    generic::expect_programmed(bench);
    EXPECT_EQ(bench.program_image(), program);
    EXPECT_EQ(bench.wire(), before + wire.written());
    const auto last = generic::success(bench);
    EXPECT_EQ(bench.shown->lines,
              generic::behind_check(bench, generic::all_of({generic::before_blank(bench),
                                                            generic::blank(bench),
                                                            generic::kFoundBlank,
                                                            generic::written(bench),
                                                            {last}})));
    EXPECT_EQ(bench.log(), last + "  " + bench.device() + "  ID:ABCD" +
                               generic::calibration_field(bench) +
                               "  /home/user/BLINK.HEX\t2026-11-20 14:03:22\n");
    EXPECT_EQ(pauses(bench), generic::program_pauses(bench));
    EXPECT_TRUE(bench.dialogs.boxes.empty());
    EXPECT_TRUE(bench.dialogs.hints.empty());
    EXPECT_EQ(bench.form().Focus.get(), "frmMain");
    EXPECT_EQ(bench.session().ResultAll, generic::result_of(bench));
    EXPECT_EQ(bench.session().TryCount, 1);
    EXPECT_EQ(bench.session().PassCount, 1);
    EXPECT_EQ(bench.session().FailCount, 0);
    EXPECT_EQ(bench.session().FailDetail, last);
}

TEST_P(generic_program, writes_a_part_that_verifies_and_reads_back) {
    GenericBench bench{GetParam()};
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);
    EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Success);
    const auto program = bench.program_image();
    const auto eeprom = bench.eeprom_image();
    const auto id = bench.session().IdText;
    const auto words = bench.session().ConfigWord;
    bench.spoil_image();
    EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Success);

    EXPECT_EQ(bench.program_image(), program);
    EXPECT_EQ(bench.eeprom_image(), eeprom);
    EXPECT_EQ(bench.session().ConfigWord[1], words[1]);
    EXPECT_EQ(bench.form().Text_ID.Text.get(), "ABCD");
}

TEST_P(generic_program, leaves_no_mark_in_the_words_that_are_the_devices_own) {
    GenericBench bench{GetParam()};
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);

    for (const std::size_t i : {8U, 10U, 12U})
        EXPECT_EQ(bench.session().CfgIdVerify[i] & 0x80, 0) << i;
}

TEST_P(generic_program, takes_a_lone_end_code_for_a_request_of_the_next_word) {
    GenericBench bench{GetParam()};
    bench.board.set_ready_byte('@');
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);

    generic::expect_programmed(bench);
}

TEST_P(generic_program, protects_a_part_last_of_all) {
    GenericBench bench{GetParam()};
    auto& session = bench.session();
    session.ConfigWord[1] &= ~session.CpMask;
    session.CfgIdMem[14] =
        static_cast<std::uint8_t>((session.CfgIdMem[14] & 0xC0U) | session.ConfigWord[1] >> 8U);
    session.CfgIdMem[15] = static_cast<std::uint8_t>(session.ConfigWord[1]);
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);

    generic::expect_programmed(bench);
    EXPECT_TRUE(bench.target().program_protected());
    EXPECT_EQ(session.ResultAll, generic::result_of(bench));
}

TEST_P(generic_program, leaves_out_eeprom_and_configuration_for_program_memory_alone) {
    GenericBench bench{GetParam()};
    const GenericWire wire{bench};
    const auto before = wire.before_blank() + wire.blank(bench.row().blank_word);
    bench.session().ExtendPgmOnly = true;
    const auto id = bench.target().id;
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);

    EXPECT_EQ(bench.wire(), before + wire.erase() + wire.write_pgm() + wire.read_pgm());
    EXPECT_EQ(bench.session().ResultAll, "OK----");
    EXPECT_EQ(bench.session().PassCount, 1);
    EXPECT_EQ(bench.target().id, id);
}

TEST_P(generic_program, counts_on_from_run_to_run) {
    GenericBench bench{GetParam(), kFewWords};
    bench.dialogs.hint_answer = 1;
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);
    bench.board.add_fault("w/abort-write:0");
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Failed);
    bench.board.clear_faults();
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);

    EXPECT_EQ(bench.session().TryCount, 4);
    EXPECT_EQ(bench.session().PassCount, 3);
    EXPECT_TRUE(bench.shown->lines.back().ends_with("  Pass = 3    Fail = 1"));
}

TEST_P(generic_program, verifies_the_configuration_word_and_not_the_id_again) {
    // The board has checked each ID word itself when it wrote it.
    for (const bool id : {true, false}) {
        GenericBench bench{GetParam(), kFewWords};
        bench.when_shown("コンフィギュレーションワードのベリファイ中..........",
                         [&] { id ? bench.target().id[1] ^= 1U : bench.target().config[0] ^= 2U; });
        EXPECT_EQ(bench.run->flows.Command_program(), id ? Outcome::Success : Outcome::Failed);
        EXPECT_EQ(bench.session().ResultAll,
                  generic::result_of(bench, "OK", "OK", id ? "OK" : "NG"));
    }
}

TEST_P(generic_program, stops_where_the_board_is_gone_at_the_chip_erase) {
    GenericBench bench{GetParam(), kFewWords};
    if (bench.row().chip_erase.empty()) return;
    const auto part = bench.target();
    bench.when_shown("チップイレース中..........", [&] { bench.board.ignore_bursts(2); });
    EXPECT_NE(bench.run->flows.Command_program(), Outcome::Success);

    EXPECT_EQ(bench.target(), part);
    EXPECT_TRUE(bench.wire().ends_with("> ***?\n> ***?\n"));
    EXPECT_EQ(bench.shown->lines.back(), "チップイレース失敗。");
    EXPECT_EQ(std::ranges::count(bench.shown->lines, "*"), 1);
    EXPECT_EQ(bench.session().TryCount, 0);
    EXPECT_FALSE(bench.session().WriterFound);
}

TEST_P(generic_program, leaves_three_buttons_in_production_mode) {
    for (const auto operation :
         {&Flows::Command_blank, &Flows::Command_Verify, &Flows::Command_program}) {
        GenericBench bench{GetParam(), kFewWords};
        bench.form().mnuLock.Checked.set(true);
        (bench.run->flows.*operation)();
        EXPECT_EQ(bench.enabled_buttons(),
                  (Lines{"Command_program", "Command_Verify", "Command_blank"}));
        bench.expect_locked_buttons();
    }
}

}  // namespace quillon::test
