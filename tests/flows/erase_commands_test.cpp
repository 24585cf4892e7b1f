// SPDX-License-Identifier: MIT
// The main form's two erase commands, which serve every device in the generic way.
#include "flow_support.h"

namespace quillon::test {

namespace {

const Lines kFound{"ライターを COM3に検出しました。", "電源印加遅延時間　設定＝ 10 ミリ秒"};

Lines behind_check(const Lines& lines) {
    Lines all = kFound;
    all.insert(all.end(), lines.begin(), lines.end());
    return all;
}
// The chip erase checks the board itself once more.
Lines behind_two_checks(const Lines& lines) {
    Lines all = behind_check({"チップイレース....."});
    all.insert(all.end(), kFound.begin(), kFound.end());
    all.insert(all.end(), lines.begin(), lines.end());
    return all;
}

class erase_command : public testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(, erase_command, testing::Values("PIC16F877", "PIC16F877A", "PIC16F84A"),
                         device_name);

}  // namespace

TEST_P(erase_command, mnuPgmErase_erases_program_memory_with_mode_08) {
    Bench bench{GetParam()};
    bench.program_target();
    auto part = bench.target();
    EXPECT_EQ(bench.run->flows.mnuPgmErase_Click(), Outcome::Success);

    std::ranges::fill(part.program, std::uint16_t{0x3FFF});
    EXPECT_EQ(bench.target(), part);
    EXPECT_EQ(bench.wire(), ExpectedWire::check() + "> Nbd 08  < @\n");
    EXPECT_EQ(bench.shown->lines, behind_check({"Ｆｌａｓｈプログラムメモリ消去中.........",
                                                "プログラムメモリを消去ました。"}));
    EXPECT_EQ(pauses(bench), between_check_and_close({}));
    EXPECT_EQ(bench.log(), "");
}

TEST_P(erase_command, mnuChipErase_erases_all_and_releases_protection_with_mode_0A) {
    Bench bench{GetParam()};
    const auto blank = bench.target();
    bench.program_target();
    bench.protect_target();
    EXPECT_EQ(bench.run->flows.mnuChipErase_Click(), Outcome::Success);

    EXPECT_EQ(bench.target(), blank);
    EXPECT_EQ(bench.wire(), ExpectedWire::check() + ExpectedWire::check() + "> Nbd 0A  < @\n");
    EXPECT_EQ(bench.shown->lines,
              behind_two_checks({"チップイレース(コードプロテクト解除)中.....", "成功。"}));
    EXPECT_EQ(pauses(bench), between_check_and_close({100ms, 500ms}));
    EXPECT_EQ(bench.log(), "");
}

TEST_P(erase_command, fails_at_another_byte_than_the_end_code_and_after_3_s) {
    for (const std::string_view fault : {"bd/alter:1:0x2A", "bd/late:3100ms"}) {
        Bench bench{GetParam()};
        bench.board.add_fault(fault);
        EXPECT_EQ(bench.run->flows.mnuPgmErase_Click(), Outcome::Failed);
        EXPECT_EQ(bench.shown->lines.back(), "プログラムメモリを消去に失敗しました。");

        Bench chip{GetParam()};
        chip.board.add_fault(fault);
        EXPECT_EQ(chip.run->flows.mnuChipErase_Click(), Outcome::Failed);
        EXPECT_EQ(chip.shown->lines.back(), "失敗。");
    }
}

TEST_P(erase_command, keeps_image_and_counters) {
    Bench bench{GetParam()};
    const auto program = bench.program_image();
    EXPECT_EQ(bench.run->flows.mnuChipErase_Click(), Outcome::Success);
    EXPECT_EQ(bench.run->flows.mnuPgmErase_Click(), Outcome::Success);

    EXPECT_EQ(bench.program_image(), program);
    EXPECT_EQ(bench.session().TryCount, 0);
}

}  // namespace quillon::test
