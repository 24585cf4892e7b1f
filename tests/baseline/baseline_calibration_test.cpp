// SPDX-License-Identifier: MIT
// The calibration word of 12C5 parts. Its location can be written once, so a wrong word there ruins
// the part.
#include "baseline_support.h"

namespace quillon::test {

namespace {

class calibration_12C5 : public testing::TestWithParam<BaselineType> {};
INSTANTIATE_TEST_SUITE_P(, calibration_12C5, testing::Values(k12C5, k12C5Small), baseline_name);

unsigned last_word(BaselineBench& bench) {
    const auto image = bench.program_image();
    return word_high_first(image[image.size() - 2], image.back());
}

}  // namespace

TEST_P(calibration_12C5, keeps_the_word_of_the_part_with_the_box_checked) {
    BaselineBench bench{GetParam()};
    EXPECT_TRUE(bench.form().Chk_12F_CalibData_Select.Checked.get());
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);

    const auto word = GetParam().calibration;
    EXPECT_EQ(bench.target().program.back(), word);
    EXPECT_EQ(last_word(bench), word);
    EXPECT_EQ(bench.form().Text_Calib_Data.Text.get(), hex(word & 0xFFU, 2));
    EXPECT_EQ(bench.form().Lbl_Calib_ReadWrite_Data.Caption.get(),
              "R:" + hex(word, 4) + ",W:" + hex(word, 4));
}

TEST_P(calibration_12C5, keeps_100_words_bit_for_bit) {
    unsigned seed = 12345;
    BaselineBench bench{GetParam()};
    const auto fresh = bench.target();
    for (int i = 0; i < 100; ++i) {
        seed = seed * 1103515245U + 12345U;
        const auto word = static_cast<std::uint16_t>(0x0C00U | ((seed >> 16U) & 0xFFU));
        bench.target() = fresh;
        bench.calibrate(word);
        bench.restart_the_clock();
        ASSERT_EQ(bench.run->flows.Command_program(), Outcome::Success) << word;
        ASSERT_EQ(bench.target().program.back(), word);
    }
}

TEST_P(calibration_12C5, takes_the_field_with_the_box_clear) {
    BaselineBench bench{GetParam()};
    bench.target().program.back() = 0x0FFF;
    bench.form().Chk_12F_CalibData_Select.Checked.set(false);
    bench.form().Text_Calib_Data.Text.set("4E");
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);
    EXPECT_EQ(bench.target().program.back(), 0x0C4E);
    EXPECT_EQ(last_word(bench), 0x0C4EU);
    EXPECT_EQ(bench.form().Lbl_Calib_ReadWrite_Data.Caption.get(), "R:0FFF,W:0C4E");
}

TEST_P(calibration_12C5, takes_the_catalogue_value_for_a_part_without_a_word) {
    BaselineBench bench{GetParam()};
    bench.target().program.back() = 0x0FFF;
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);
    EXPECT_EQ(bench.target().program.back(), 0x0C80);
    EXPECT_TRUE(bench.form().Lbl_Calib_ReadWrite_Data.Caption.get().ends_with("W:0C80"));
}

TEST_P(calibration_12C5, reads_the_stream_where_the_blank_test_ended_before_the_word) {
    BaselineBench bench{GetParam()};
    bench.target().program[5] &=
        word_high_first(bench.session().PgmMem[10], bench.session().PgmMem[11]);
    const auto word = bench.target().program[5];
    ASSERT_NE(word, 0x0FFF);
    const auto used = bench.stream();
    bench.dialogs.hint_answer = 1;
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);

    const auto config = bench.session().ConfigWord[1];
    EXPECT_EQ(
        bench.wire(),
        bench.check() + bench.blank(0, hex(word >> 8U, 2) + " " + hex(word & 0xFFU, 2) + " @") +
            bench.read_cfg(0x0FFF) + bench.read_pgm(used) + bench.write_pgm(bench.image_stream()) +
            bench.read_pgm(bench.stream()) + bench.write_cfg(config) + bench.read_cfg(config));
    EXPECT_EQ(bench.target().program.back(), GetParam().calibration);
}

TEST_P(calibration_12C5, reads_the_stream_where_the_blank_check_is_skipped) {
    BaselineBench bench{GetParam()};
    bench.form().mnuBlankSkip.Enabled.set(true);
    bench.form().mnuBlankSkip.Checked.set(true);
    const auto fresh = bench.stream();
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);

    const auto config = bench.session().ConfigWord[1];
    EXPECT_EQ(bench.wire(), bench.check() + bench.read_pgm(fresh) +
                                bench.write_pgm(bench.image_stream()) +
                                bench.read_pgm(bench.stream()) + bench.write_cfg(config) +
                                bench.read_cfg(config));
    EXPECT_EQ(bench.target().program.back(), GetParam().calibration);
}

TEST_P(calibration_12C5, writes_nothing_where_that_stream_fails) {
    BaselineBench bench{GetParam()};
    bench.form().mnuBlankSkip.Enabled.set(true);
    bench.form().mnuBlankSkip.Checked.set(true);
    const auto part = bench.target();
    const auto last = 2 * (bench.session().PgmWords + 5) + 1;
    bench.board.add_fault(fmt::format("rsp/alter:{}:0x21", last));
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Failed);
    EXPECT_EQ(bench.target(), part);
    EXPECT_EQ(bench.wire().find("> Nw"), std::string::npos);
}

TEST_P(calibration_12C5, never_gives_a_second_part_the_word_of_the_first) {
    BaselineBench bench{GetParam()};
    const auto fresh = bench.target();
    bench.dialogs.hint_answer = 1;
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);

    // The second part is used, so its blank test ends before the word.
    for (const unsigned word : {0x0C11U, 0x0CEEU}) {
        bench.target() = fresh;
        bench.target().program[0] =
            word_high_first(bench.session().PgmMem[0], bench.session().PgmMem[1]);
        bench.calibrate(static_cast<std::uint16_t>(word));
        EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);
        EXPECT_EQ(bench.target().program.back(), word);
    }
}

TEST_P(calibration_12C5, tells_in_the_verify_what_the_part_really_holds) {
    BaselineBench bench{GetParam()};
    bench.when_shown("プログラムメモリのベリファイ中..........",
                     [&] { bench.target().program.back() &= 0x0C0FU; });
    bench.run->flows.Command_program();
    EXPECT_EQ(
        bench.form().Lbl_Calib_ReadWrite_Data.Caption.get(),
        "R:" + hex(GetParam().calibration, 4) + ",W:" + hex(GetParam().calibration & 0x0C0FU, 4));
}

// No letters are listed for this type's program memory.
TEST(program_10F2, sends_nothing_and_fails_at_the_write) {
    BaselineBench bench{k10F2};
    const auto part = bench.target();
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Failed);

    EXPECT_EQ(bench.target(), part);
    EXPECT_EQ(bench.wire(), bench.check() + bench.blank(0, "0F FF @") + bench.blank(1, "0C 27 @") +
                                bench.blank(5, "0C 27 @") + bench.read_cfg(0x0FFF));
    EXPECT_EQ(bench.session().TryCount, 1);
    EXPECT_EQ(bench.session().PassCount, 0);
    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    EXPECT_EQ(bench.dialogs.boxes[0].title, "プログラムメモリプログラミング");
    EXPECT_EQ(bench.dialogs.boxes[0].text, "プログラムメモリのプログラミングに失敗しました。");
}

}  // namespace quillon::test
