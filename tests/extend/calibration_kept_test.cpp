// SPDX-License-Identifier: MIT
// The calibration word and the band gap of 12F6 parts under the erases and the program runs: kept
// bit for bit with the box checked, taken from the fields with the box clear.
#include "extend_support.h"

namespace quillon::test {

namespace {

// The same values in each run of the tests.
class Values {
  public:
    unsigned next(unsigned below) {
        seed_ = seed_ * 1103515245U + 12345U;
        return (seed_ >> 16U) % below;
    }

  private:
    unsigned seed_ = 20261120;
};

struct Trim {
    std::uint16_t word;
    std::uint16_t gap;
};

Trim random_trim(Values& values) {
    return {.word = static_cast<std::uint16_t>(0x3400U | values.next(256)),
            .gap = static_cast<std::uint16_t>(values.next(4) << 12U)};
}

// A used part with that trim.
void give_trim(ExtendBench& bench, Trim trim) {
    bench.program_target();
    bench.target().program.back() = trim.word;
    bench.target().config[0] =
        static_cast<std::uint16_t>((bench.target().config[0] & 0x0FFFU) | trim.gap);
}

Trim trim_of(const SimulatedTarget& part) {
    return {.word = part.program.back(),
            .gap = static_cast<std::uint16_t>(part.config[0] & 0x3000U)};
}

using Button12F6 = Outcome (*)(ExtendBench&);
struct Way {
    const char* name;
    Button12F6 press;
    bool erases;
};
void PrintTo(const Way& way, std::ostream* out) { *out << way.name; }

std::string way_name(const testing::TestParamInfo<Way>& way) { return way.param.name; }

class calibration_12F6 : public testing::TestWithParam<Way> {};
INSTANTIATE_TEST_SUITE_P(
    , calibration_12F6,
    testing::Values(
        Way{"chip_erase", [](ExtendBench& b) { return b.run->extend.Cmd_Chip_Erace_Click(); },
            true},
        Way{"program_side_erase",
            [](ExtendBench& b) { return b.run->extend.Cmd_PGM_Erase_Click(); }, true},
        Way{"program_side_program",
            [](ExtendBench& b) { return b.run->extend.Cmd_PGM_Program_Click(); }, false},
        Way{"program", [](ExtendBench& b) { return b.run->flows.Command_program(); }, false}),
    way_name);

}  // namespace

TEST_P(calibration_12F6, survives_with_100_random_values_while_the_box_is_checked) {
    ExtendBench bench{k12F6};
    bench.dialogs.hint_answer = 1;
    ASSERT_TRUE(bench.form().Chk_12F_CalibData_Select.Checked.get());
    Values values;
    for (int i = 0; i < 100; ++i) {
        const auto trim = random_trim(values);
        bench.fill_image();
        give_trim(bench, trim);
        bench.restart_the_clock();
        ASSERT_EQ(GetParam().press(bench), Outcome::Success) << i;
        const auto kept = trim_of(bench.target());
        ASSERT_EQ(kept.word, trim.word) << i;
        ASSERT_EQ(kept.gap, trim.gap) << i;
        if (GetParam().erases) {
            ASSERT_EQ(bench.target().id, (std::vector<std::uint16_t>(4, 0x3FFF)));
        }
    }
}

TEST_P(calibration_12F6, takes_the_fields_with_the_box_clear) {
    Values values;
    for (int i = 0; i < 20; ++i) {
        const auto trim = random_trim(values);
        ExtendBench bench{k12F6};
        bench.dialogs.hint_answer = 1;
        give_trim(bench, random_trim(values));
        bench.form().Chk_12F_CalibData_Select.Checked.set(false);
        bench.form().Text_Calib_Data.Text.set(hex(trim.word & 0xFFU, 2));
        bench.form().Text_BG.Text.set(std::to_string(trim.gap >> 12U));
        ASSERT_EQ(GetParam().press(bench), Outcome::Success) << i;
        EXPECT_EQ(trim_of(bench.target()).word, trim.word);
        EXPECT_EQ(trim_of(bench.target()).gap, trim.gap);
    }
}

TEST_P(calibration_12F6, shows_what_was_read_in_the_fields) {
    ExtendBench bench{k12F6};
    bench.dialogs.hint_answer = 1;
    give_trim(bench, {.word = 0x345A, .gap = 0x2000});
    EXPECT_EQ(GetParam().press(bench), Outcome::Success);
    EXPECT_EQ(bench.form().Text_Calib_Data.Text.get(), "5A");
    EXPECT_EQ(bench.form().Text_BG.Text.get(), "2");
}

// Without the word an erase would lose it for good.
TEST_P(calibration_12F6, touches_nothing_where_the_word_cannot_be_read) {
    for (const std::string_view fault : {"br/alter:3:0x21", "br/late:3100ms"}) {
        ExtendBench bench{k12F6};
        bench.dialogs.hint_answer = 1;
        give_trim(bench, {.word = 0x345A, .gap = 0x2000});
        const auto part = bench.target();
        bench.board.add_fault(fault);
        EXPECT_EQ(GetParam().press(bench), Outcome::Failed) << fault;
        EXPECT_EQ(bench.target(), part) << fault;
        EXPECT_TRUE(bench.was_shown("指定プログラムメモリのデータリード失敗。")) << fault;
    }
}

TEST_P(calibration_12F6, touches_nothing_where_the_band_gap_cannot_be_read) {
    ExtendBench bench{k12F6};
    bench.dialogs.hint_answer = 1;
    give_trim(bench, {.word = 0x345A, .gap = 0x2000});
    const auto part = bench.target();
    bench.when_shown("指定プログラムメモリのデータリード成功。",
                     [&] { bench.board.add_fault("rsc/alter:17:0x21"); });
    EXPECT_EQ(GetParam().press(bench), Outcome::Failed);
    EXPECT_EQ(bench.target(), part);
}

// The board may have erased the part although its answer was lost.
TEST(calibration_12F6_, is_restored_behind_an_erase_that_failed) {
    for (const bool chip : {true, false}) {
        ExtendBench bench{k12F6};
        give_trim(bench, {.word = 0x345A, .gap = 0x2000});
        bench.board.add_fault("bd/alter:1:0x21");
        EXPECT_EQ(chip ? bench.run->extend.Cmd_Chip_Erace_Click()
                       : bench.run->extend.Cmd_PGM_Erase_Click(),
                  Outcome::Failed);
        EXPECT_EQ(trim_of(bench.target()).word, 0x345A);
        EXPECT_EQ(trim_of(bench.target()).gap, 0x2000);
    }
}

TEST(calibration_12F6_, is_no_success_where_it_could_not_be_written_back) {
    for (const std::string_view fault : {"bw/alter:1:0x21", "bw/late:3100ms"}) {
        for (const bool chip : {true, false}) {
            ExtendBench bench{k12F6};
            give_trim(bench, {.word = 0x345A, .gap = 0x2000});
            bench.board.add_fault(fault);
            EXPECT_EQ(chip ? bench.run->extend.Cmd_Chip_Erace_Click()
                           : bench.run->extend.Cmd_PGM_Erase_Click(),
                      Outcome::Failed)
                << fault << chip;
            EXPECT_TRUE(bench.was_shown("指定プログラムメモリのデータライト失敗。"));
        }
    }
}

TEST(calibration_12F6_, stays_in_the_image_with_the_band_gap) {
    ExtendBench bench{k12F6};
    bench.dialogs.hint_answer = 1;
    give_trim(bench, {.word = 0x345A, .gap = 0x2000});
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);
    const auto image = bench.program_image();
    EXPECT_EQ(word_high_first(image[image.size() - 2], image.back()), 0x345A);
    EXPECT_EQ(bench.session().CfgIdMem[14] & 0xF0U, 0x20U);
    EXPECT_EQ(bench.session().ConfigWord[1] & 0x3000U, 0x2000U);
    EXPECT_EQ(bench.form().Lbl_Calib_ReadWrite_Data.Caption.get(), "R:345A,W:345A");
}

}  // namespace quillon::test
