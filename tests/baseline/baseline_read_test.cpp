// SPDX-License-Identifier: MIT
// The read of 12-bit types without a family: one stream that begins with the configuration word.
#include "baseline_support.h"

namespace quillon::test {

namespace {

const Lines kReadLines{
    "ソケット確認中.....",
    "プログラムメモリ読み出し中..........",
    "ＥＥＰＲＯＭデータメモリ読み出し中..........",
};
const Lines kReadConfig{"コンフィギュレーションワード読み出し中.........."};
constexpr std::string_view kNoEeprom = "ＯＴＰ版は、ＥＥＰＲＯＭデータメモリを内蔵していません。";
constexpr std::string_view kNoEeprom10F2 =
    "10F2xx,12F50xは、ＥＥＰＲＯＭデータメモリを内蔵していません。";

class read_12bit : public testing::TestWithParam<BaselineType> {};
INSTANTIATE_TEST_SUITE_P(, read_12bit, testing::Values(k5X18, k5X28, k12C5, k12C5Small, k10F2),
                         baseline_name);
class read_calibrated : public testing::TestWithParam<BaselineType> {};
INSTANTIATE_TEST_SUITE_P(, read_calibrated, testing::Values(k12C5, k12C5Small, k10F2),
                         baseline_name);

std::string_view no_eeprom(const BaselineType& type) {
    return type.device == k10F2.device ? kNoEeprom10F2 : kNoEeprom;
}

}  // namespace

TEST_P(read_12bit, fills_the_image_from_one_stream_and_the_configuration_word) {
    BaselineBench bench{GetParam()};
    bench.program_part();
    const auto image = bench.program_image();
    const auto area = bench.session().CfgIdMem;
    const auto config = bench.session().ConfigWord[1];
    const auto stream = bench.stream();
    bench.clear_image();
    EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Success);

    EXPECT_EQ(bench.wire(), bench.check() + bench.read_pgm(stream) + bench.read_cfg(config));
    const auto compared = image.size() - (GetParam().calibration != 0 ? 2 : 0);
    const auto read = bench.program_image();
    EXPECT_TRUE(std::equal(image.begin(), image.begin() + static_cast<std::ptrdiff_t>(compared),
                           read.begin()));
    EXPECT_TRUE(std::equal(area.begin(), area.begin() + 8, bench.session().CfgIdMem.begin()));
    EXPECT_EQ(word_high_first(bench.session().CfgIdMem[14], bench.session().CfgIdMem[15]), config);
    EXPECT_EQ(bench.session().ConfigWord[1], config);
    EXPECT_EQ(bench.session().IdText, "ABCD");
    EXPECT_EQ(bench.form().Text_ID.Text.get(), "ABCD");
    EXPECT_EQ(
        bench.shown->lines,
        bench.lines_after_check(in_order(
            {kReadLines, {std::string{no_eeprom(GetParam())}}, kReadConfig, {"読み出し完了。"}})));
    EXPECT_EQ(bench.log(), "リード 操作終了\t\t2026-11-20 14:03:22\n");
    EXPECT_EQ(pauses(bench), between_check_and_close({}));
}

TEST_P(read_12bit, says_that_an_erased_part_is_erased) {
    BaselineBench bench{GetParam()};
    EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Success);
    EXPECT_EQ(bench.shown->lines.back(), "読み出し完了。　デバイスは消去されています。");
}

TEST_P(read_12bit, says_in_red_that_a_part_is_protected) {
    BaselineBench bench{GetParam()};
    bench.program_part();
    bench.protect_target();
    bench.run->flows.Command_read();
    EXPECT_EQ(bench.shown->lines.back(),
              "[red] コードプロテクトされています。"
              "（または不適切なデータがコードプロテクトビットにセットされています。）");
}

TEST_P(read_12bit, keeps_the_image_where_the_end_code_of_the_stream_is_missing) {
    BaselineBench bench{GetParam()};
    bench.program_part();
    bench.clear_image();
    const auto image = bench.program_image();
    const auto last = 2 * (bench.session().PgmWords + 5) + 1;
    bench.board.add_fault(fmt::format("{}/alter:{}:0x21", GetParam().read_pgm, last));
    EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Failed);

    EXPECT_EQ(bench.program_image(), image);
    EXPECT_EQ(bench.shown->lines.back(),
              "プログラムメモリ読み出し失敗。　　終了コードを受信できませんでした。");
}

TEST_P(read_12bit, fails_where_the_end_code_of_the_configuration_word_is_missing) {
    BaselineBench bench{GetParam()};
    bench.program_part();
    // The two exchanges have the same letters on parallel parts, so bytes are counted from the
    // start: 18 of the identification, one of the delay.
    const auto last = 19 + 2 * (bench.session().PgmWords + 5) + 1 + 3;
    bench.board.add_fault(fmt::format("alter:{}:0x21", last));
    EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Failed);
    EXPECT_EQ(bench.shown->lines.back(),
              "コンフィギュレーションワード読み出し失敗。　　終了コードを受信できませんでした。");
}

TEST_P(read_12bit, waits_for_the_stream_as_long_as_it_takes) {
    BaselineBench bench{GetParam()};
    bench.program_part();
    bench.board.add_fault(fmt::format("{}/late:50s:9", GetParam().read_pgm));
    EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Success);
}

TEST_P(read_calibrated, shows_the_calibration_word_and_keeps_it_out_of_the_image) {
    BaselineBench bench{GetParam()};
    bench.program_part();
    const auto image = bench.program_image();
    EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Success);

    const auto digits = hex(GetParam().calibration & 0xFFU, 2);
    EXPECT_EQ(bench.session().CalibHi, 0x0C);
    EXPECT_EQ(bench.session().CalibLo, GetParam().calibration & 0xFFU);
    EXPECT_EQ(bench.session().CalibText, "movlw 0x" + digits);
    EXPECT_EQ(bench.form().Text_Calib_Data.Text.get(), digits);
    EXPECT_EQ(bench.program_image(), image);
}

TEST(read_12bit_, takes_the_last_word_of_a_part_without_calibration) {
    BaselineBench bench{k5X18};
    bench.program_part();
    bench.target().program.back() = 0x0A5C;
    EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Success);
    EXPECT_EQ(bench.session().PgmMem[2 * 511], 0x0A);
    EXPECT_EQ(bench.session().PgmMem[2 * 511 + 1], 0x5C);
    EXPECT_EQ(bench.session().CalibText, "");
}

}  // namespace quillon::test
