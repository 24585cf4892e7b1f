// SPDX-License-Identifier: MIT
// The factory's calibration of 12F6 and 12C6 parts in a program run: kept as the device holds it,
// or taken from the fields.
#include <random>

#include "generic_lines.h"

namespace quillon::test {

namespace {

constexpr unsigned kBandgap = 0x3000;

bool has_bandgap(const GenericBench& bench) { return bench.row().type == "12F6"; }

void set_calibration(GenericBench& bench, unsigned word, unsigned bandgap) {
    bench.target().program.back() = static_cast<std::uint16_t>(word);
    if (has_bandgap(bench))
        bench.target().config[0] =
            static_cast<std::uint16_t>((bench.target().config[0] & ~kBandgap) | bandgap << 12U);
}
// The fields as the user fills them in, with the box clear.
void enter(GenericBench& bench, const std::string& word, const std::string& bandgap) {
    bench.form().Chk_12F_CalibData_Select.Checked.set(false);
    bench.form().Text_Calib_Data.Text.set(word);
    bench.form().Text_BG.Text.set(bandgap);
}
unsigned bandgap_of(const GenericBench& bench) { return bench.board.target().config[0] >> 12U; }

class Calibrated : public testing::TestWithParam<GenericCase> {};

}  // namespace

using generic_calibration = Calibrated;
INSTANTIATE_TEST_SUITE_P(, generic_calibration,
                         testing::Values(generic_case("T12C6"), generic_case("T12F6")), type_name);

TEST_P(generic_calibration, survives_programming_bit_for_bit_with_the_box_checked) {
    std::mt19937 random{20261120};
    for (int run = 0; run < 100; ++run) {
        GenericBench bench{GetParam(), kFewWords};
        EXPECT_TRUE(bench.form().Chk_12F_CalibData_Select.Checked.get());
        const unsigned word = random() & 0x3FFFU;
        const unsigned bandgap = random() & 3U;
        set_calibration(bench, word, bandgap);
        bench.dialogs.hint_answer = 1;
        ASSERT_EQ(bench.run->flows.Command_program(), Outcome::Success) << run;

        EXPECT_EQ(bench.target().program.back(), word);
        if (has_bandgap(bench)) {
            EXPECT_EQ(bandgap_of(bench), bandgap);
        }
        EXPECT_EQ(bench.form().Lbl_Calib_ReadWrite_Data.Caption.get(),
                  fmt::format("R:{0:04X},W:{0:04X}", word));
        EXPECT_EQ(bench.form().Text_Calib_Data.Text.get(), hex(word & 0xFFU, 2));
        if (has_bandgap(bench)) {
            EXPECT_EQ(bench.form().Text_BG.Text.get(), std::to_string(bandgap));
        }
        generic::expect_programmed(bench);
    }
}

TEST_P(generic_calibration, is_what_the_fields_hold_with_the_box_clear) {
    std::mt19937 random{20261121};
    for (int run = 0; run < 100; ++run) {
        GenericBench bench{GetParam(), kFewWords};
        const unsigned value = random() & 0xFFU;
        const unsigned bandgap = random() & 3U;
        // A one-time part can only lose bits.
        set_calibration(bench, 0x3FFF, 3);
        enter(bench, hex(value, 2), std::to_string(bandgap));
        bench.dialogs.hint_answer = 1;
        ASSERT_EQ(bench.run->flows.Command_program(), Outcome::Success) << run;

        EXPECT_EQ(bench.target().program.back(), 0x3400U | value);
        if (has_bandgap(bench)) {
            EXPECT_EQ(bandgap_of(bench), bandgap);
        }
        EXPECT_EQ(bench.form().Lbl_Calib_ReadWrite_Data.Caption.get(),
                  fmt::format("R:3FFF,W:34{:02X}", value));
        generic::expect_programmed(bench);
    }
}

TEST_P(generic_calibration, goes_into_the_image_and_the_log) {
    GenericBench bench{GetParam()};
    set_calibration(bench, 0x345A, 2);
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);

    const auto image = bench.program_image();
    EXPECT_EQ(image[image.size() - 2], 0x34);
    EXPECT_EQ(image.back(), 0x5A);
    EXPECT_NE(bench.log().find("  ID:ABCD  R:345A,W:345A  "), std::string::npos) << bench.log();
    if (!has_bandgap(bench)) return;
    EXPECT_EQ(bench.session().CfgIdMem[14] >> 4U, 2);
    EXPECT_EQ(bench.session().ConfigWord[1] >> 12U, 2U);
    EXPECT_EQ(bench.session().CalibBg, 2);
}

TEST_P(generic_calibration, is_shown_as_the_part_holds_it_where_it_was_lost) {
    GenericBench bench{GetParam()};
    set_calibration(bench, 0x345A, 2);
    bench.when_shown("プログラムメモリのベリファイ中..........",
                     [&] { bench.target().program.back() = 0x3412; });
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Failed);

    EXPECT_EQ(bench.form().Lbl_Calib_ReadWrite_Data.Caption.get(), "R:345A,W:3412");
    EXPECT_EQ(bench.session().ResultPgm, Token::NG);
}

TEST_P(generic_calibration, of_a_used_part_survives_with_the_question_answered_or_skipped) {
    for (const bool skipped : {false, true}) {
        GenericBench bench{GetParam(), kFewWords};
        bench.program_target();
        set_calibration(bench, 0x3499, 1);
        bench.form().mnuBlankSkip.Checked.set(skipped);
        bench.dialogs.hint_answer = 1;
        EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);
        EXPECT_EQ(bench.target().program.back(), 0x3499);
        if (has_bandgap(bench)) {
            EXPECT_EQ(bandgap_of(bench), 1U);
        }
    }
}

TEST_P(generic_calibration, that_can_not_be_read_stops_the_run_before_its_erase) {
    for (const auto* fault : {"br/alter:3:0x21", "br/late:3100ms", "br/drop:2"}) {
        GenericBench bench{GetParam()};
        const auto part = bench.target();
        bench.board.add_fault(fault);
        EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Failed) << fault;

        EXPECT_EQ(bench.target(), part);
        EXPECT_EQ(
            std::ranges::count(bench.shown->lines, "指定プログラムメモリのデータリード失敗。"), 1);
        const auto wire = bench.wire();
        EXPECT_EQ(wire.find("bd"), std::string::npos) << wire;
        EXPECT_EQ(wire.find(" w"), std::string::npos) << wire;
        EXPECT_EQ(bench.session().TryCount, 0);
        EXPECT_EQ(bench.log(), "");
    }
}

TEST_P(generic_calibration, is_waited_for_up_to_3_s) {
    GenericBench bench{GetParam()};
    bench.board.add_fault("br/late:2980ms");
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);
    generic::expect_programmed(bench);
}

TEST_P(generic_calibration, of_no_value_is_refused_before_the_part_is_touched) {
    for (const auto& [word, bandgap] :
         {std::pair{"", "3"}, std::pair{"--", "3"}, std::pair{"G0", "3"}, std::pair{"0x", "3"}}) {
        GenericBench bench{GetParam()};
        const auto part = bench.target();
        enter(bench, word, bandgap);
        EXPECT_NE(bench.run->flows.Command_program(), Outcome::Success) << word;

        const GenericWire wire{bench};
        EXPECT_EQ(bench.wire(), wire.check() + wire.socket());
        EXPECT_TRUE(bench.shown->lines.back().starts_with("[red] "));
        EXPECT_EQ(bench.target(), part);
        EXPECT_EQ(bench.session().TryCount, 0);
    }
}

TEST(generic_bandgap, of_no_value_is_refused_before_the_part_is_touched) {
    for (const auto* bandgap : {"", "4", "-", "X"}) {
        GenericBench bench{"T12F6"};
        const auto part = bench.target();
        enter(bench, "80", bandgap);
        EXPECT_NE(bench.run->flows.Command_program(), Outcome::Success) << bandgap;

        const GenericWire wire{bench};
        EXPECT_EQ(bench.wire(), wire.check() + wire.socket());
        EXPECT_TRUE(bench.shown->lines.back().starts_with("[red] "));
        EXPECT_EQ(bench.target(), part);
    }
}

TEST(generic_bandgap, that_can_not_be_read_stops_the_run_before_its_erase) {
    GenericBench bench{"T12F6"};
    const auto part = bench.target();
    bench.when_shown("指定プログラムメモリのデータリード成功。",
                     [&] { bench.board.add_fault("rsc/alter:17:0x21"); });
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Failed);

    EXPECT_EQ(bench.target(), part);
    const auto wire = bench.wire();
    EXPECT_EQ(wire.find("bd"), std::string::npos) << wire;
    EXPECT_EQ(bench.session().TryCount, 0);
}

TEST(generic_bandgap, counts_as_set_in_the_blank_check) {
    for (unsigned bandgap = 0; bandgap < 4; ++bandgap) {
        GenericBench bench{"T12F6"};
        set_calibration(bench, 0x3480, bandgap);
        EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Success) << bandgap;
    }
}

TEST(generic_bandgap, that_differs_from_the_image_is_found_by_a_verify) {
    GenericBench bench{"T12F6"};
    bench.program_target();
    bench.target().config[0] ^= 0x1000U;
    EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Failed);
    EXPECT_EQ(bench.session().ResultCfg, Token::NG);
}

}  // namespace quillon::test
