// SPDX-License-Identifier: MIT
// Both families with a device that has no EEPROM: no exchange for it, and verdicts of two areas.
#include "program_lines.h"

namespace quillon::test {

namespace {

struct BenchWithoutEeprom : Bench {
    explicit BenchWithoutEeprom(std::string_view device)
        : Bench{device, {CatalogueBlock{device, {{"EEPROM_BYTE", "0"}}}}} {
        EXPECT_EQ(session().EepBytes, 0);
    }
};

constexpr std::string_view kNotToWrite =
    "このデバイスは、ＥＥＰＲＯＭデータメモリを内蔵していません。";
constexpr std::string_view kNotToRead = "ＯＴＰ版は、ＥＥＰＲＯＭデータメモリを内蔵していません。";

}  // namespace

using no_eeprom = EveryFamily;
INSTANTIATE_TEST_SUITE_P(, no_eeprom, testing::ValuesIn(kFamilyCases), case_name);

TEST_P(no_eeprom, is_blank_in_two_areas) {
    BenchWithoutEeprom bench{GetParam()};
    EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Success);

    const ExpectedWire wire{bench};
    EXPECT_EQ(bench.wire(), wire.check() + wire.blank_pgm("3F FF") + wire.config());
    EXPECT_EQ(bench.session().ResultAll, "YB--YB");
    EXPECT_EQ(bench.shown->lines.back(), "デバイスは消去されています。");
}

TEST_P(no_eeprom, reads_as_not_erased_in_the_report_of_a_used_part) {
    BenchWithoutEeprom bench{GetParam()};
    bench.target().program[0] = 0;
    EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Failed);

    EXPECT_EQ(bench.session().ResultAll, "NB--YB");
    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    EXPECT_EQ(bench.dialogs.boxes[0].text,
              "プログラムメモリ\t：　消去されていません。　　　　　　　　\r\n"
              "ＥＥＰＲＯＭデータメモリ\t：　消去されていません。　　　　　　　　\r\n"
              "ＣＯＮＦＩＧ　，　ＩＤ\t：　ブランク。　　　　　　　　　　　　　\r\n");
}

TEST_P(no_eeprom, is_programmed_in_two_areas_with_no_erase_of_a_third) {
    BenchWithoutEeprom bench{GetParam()};
    const ExpectedWire wire{bench};
    const auto before =
        wire.check() + wire.config() + wire.blank_pgm("3F FF") + wire.config() + wire.erase_all();
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);

    EXPECT_EQ(bench.wire(), before + wire.write_pgm() + wire.read_pgm(wire.program_of_target()) +
                                wire.write_cfg() + wire.config());
    EXPECT_EQ(bench.session().ResultAll, "OK--OK");
    EXPECT_EQ(bench.session().PassCount, 1);
    EXPECT_EQ(std::ranges::count(bench.shown->lines, kNotToWrite), 1);
    EXPECT_TRUE(bench.shown->lines.back().starts_with("プログラミング成功。"));
    expect_programmed(bench);
}

TEST_P(no_eeprom, is_left_out_of_the_box_of_a_failed_run) {
    BenchWithoutEeprom bench{GetParam()};
    bench.board.add_fault("stuck-cell:0");
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Failed);

    EXPECT_EQ(bench.session().ResultAll, "NG--OK");
    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    EXPECT_EQ(bench.dialogs.boxes[0].text,
              "プログラムメモリ\t=NG\r\nＣＯＮＦＩＧ. ワード　　　\t=OK\r\n");
}

TEST_P(no_eeprom, is_read_in_two_areas) {
    BenchWithoutEeprom bench{GetParam()};
    bench.program_target();
    const auto program = bench.program_image();
    bench.clear_image();
    EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Success);

    const ExpectedWire wire{bench};
    EXPECT_EQ(bench.wire(), wire.check() + wire.config() + wire.read_pgm(wire.program_of_target()) +
                                wire.config());
    EXPECT_EQ(bench.program_image(), program);
    EXPECT_EQ(std::ranges::count(bench.shown->lines, kNotToRead), 1);
    EXPECT_EQ(bench.session().ResultAll, "OK--OK");
}

TEST_P(no_eeprom, is_told_blank_by_a_read_of_two_blank_areas) {
    BenchWithoutEeprom bench{GetParam()};
    EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Success);

    EXPECT_EQ(bench.shown->lines.back(), "読み出し完了。　デバイスは消去されています。");
}

TEST_P(no_eeprom, is_verified_in_two_areas) {
    BenchWithoutEeprom bench{GetParam()};
    bench.program_target();
    EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Success);

    const ExpectedWire wire{bench};
    EXPECT_EQ(bench.wire(), wire.check() + wire.config() + wire.config() +
                                wire.read_pgm(wire.program_of_target()));
    EXPECT_EQ(bench.session().ResultAll, "OK--OK");
    EXPECT_EQ(bench.shown->lines.back(), "ベリファイは正常終了しました。");
}

}  // namespace quillon::test
