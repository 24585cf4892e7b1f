// SPDX-License-Identifier: MIT
// The per-area operations of a device with a family: each runs the family's own entry.
#include "flows/program_lines.h"

namespace quillon::test {

namespace {

const Lines kFoundBoard{"ライターを COM3に検出しました。", "電源印加遅延時間　設定＝ 10 ミリ秒"};

class area_of_family : public testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(, area_of_family, testing::Values("PIC16F877", "PIC16F877A"), device_name);

// The place of that erase in the family's list.
std::size_t pgm_erase_of(std::string_view device) { return device == "PIC16F877A" ? 1 : 0; }

}  // namespace

TEST_P(area_of_family, Cmd_Chip_Erace_runs_the_whole_erase) {
    Bench bench{GetParam()};
    const auto blank = bench.target();
    bench.program_target();
    bench.protect_target();
    EXPECT_EQ(bench.run->extend.Cmd_Chip_Erace_Click(), Outcome::Success);

    const ExpectedWire wire{bench};
    EXPECT_EQ(bench.target(), blank);
    EXPECT_EQ(bench.wire(), wire.check() + wire.erase_all());
    EXPECT_EQ(pauses(bench), between_check_and_close(erase_pauses(GetParam())));
    auto lines = joined({kFoundBoard, erase_lines(GetParam()), {"チップイレースしました。"}});
    std::erase(lines, "チップイレース中..........");  // of a program run
    EXPECT_EQ(bench.shown->lines, lines);
}

TEST_P(area_of_family, Cmd_PGM_Erase_sends_the_erase_of_program_memory_alone) {
    Bench bench{GetParam()};
    bench.program_target();
    const auto eeprom = bench.target().eeprom;
    EXPECT_EQ(bench.run->extend.Cmd_PGM_Erase_Click(), Outcome::Success);

    const ExpectedWire wire{bench};
    EXPECT_EQ(bench.wire(), wire.check() + wire.erase(pgm_erase_of(GetParam())));
    EXPECT_EQ(std::ranges::count(bench.target().program, std::uint16_t{0x3FFF}), 8192);
    EXPECT_EQ(bench.target().eeprom, eeprom);
    EXPECT_EQ(bench.shown->lines.back(), "プログラムメモリ、コンフィグ、ＩＤの消去しました。");
}

TEST_P(area_of_family, Cmd_DATA_Erase_sends_the_erase_of_eeprom_alone) {
    Bench bench{GetParam()};
    bench.program_target();
    const auto program = bench.target().program;
    EXPECT_EQ(bench.run->extend.Cmd_DATA_Erase_Click(), Outcome::Success);

    const ExpectedWire wire{bench};
    EXPECT_EQ(bench.wire(), wire.check() + wire.erase_eep());
    EXPECT_EQ(bench.target().program, program);
    EXPECT_EQ(bench.target().eeprom, std::vector<std::uint8_t>(256, 0xFF));
    EXPECT_EQ(bench.shown->lines.back(), "データメモリの消去しました。");
}

TEST_P(area_of_family, Cmd_PGM_Program_checks_once_and_runs_Pgm_Reload) {
    Bench bench{GetParam()};
    EXPECT_EQ(bench.run->extend.Cmd_PGM_Program_Click(), Outcome::Success);

    const ExpectedWire wire{bench};
    EXPECT_EQ(bench.wire(), wire.check() + wire.write_pgm() +
                                wire.read_pgm(wire.program_of_target()) + wire.write_cfg() +
                                wire.config());
    EXPECT_EQ(bench.shown->lines,
              after_check({
                  "Ｆｌａｓｈプログラムメモリのプログラミング中..........",
                  "プログラムメモリのプログラミングに成功しました。",
                  "Ｆｌａｓｈプログラムメモリのベリファイ中..........",
                  "コンフィギュレーションワードのプログラミング中..........",
                  "コンフィギュレーションワードのプログラミングに成功しました。",
                  "コンフィギュレーションワードのベリファイ中..........",
                  "Ｆｌａｓｈプログラムメモリ＆コンフィグレーションワード プログラム終了",
              }));
    EXPECT_EQ(bench.target().eeprom, std::vector<std::uint8_t>(256, 0xFF));
    EXPECT_FALSE(bench.session().ExtendPgmOnly);
    EXPECT_FALSE(bench.session().ExtendCfgToo);
}

TEST_P(area_of_family, Cmd_DATA_Program_runs_Eep_Reload) {
    Bench bench{GetParam()};
    std::ranges::fill(bench.target().eeprom, std::uint8_t{0});
    EXPECT_EQ(bench.run->extend.Cmd_DATA_Program_Click(), Outcome::Success);

    const ExpectedWire wire{bench};
    EXPECT_EQ(bench.wire(), wire.check() + wire.erase_eep() + wire.write_eep() +
                                wire.read_eep(wire.eeprom_of_target()));
    EXPECT_EQ(bench.shown->lines.front(), "ＥＥＰＲＯＭデータメモリのプログラミング..........");
    EXPECT_NE(std::ranges::find(bench.shown->lines,
                                "プログラムデータメモリー..........ＥＥＰＲＯＭデータメモリーの"
                                "プログラミングに成功しました。"),
              bench.shown->lines.end());
}

TEST_P(area_of_family, Cmd_PGM_Read_and_Cmd_DATA_Read_read_their_side_alone) {
    Bench bench{GetParam()};
    bench.program_target();
    const ExpectedWire wire{bench};
    const auto program = wire.program_of_target();
    const auto cells = wire.eeprom_of_target();
    bench.clear_image();
    EXPECT_EQ(bench.run->extend.Cmd_PGM_Read_Click(), Outcome::Success);
    EXPECT_EQ(bench.wire(), wire.check() + wire.read_pgm(program) + wire.config());
    EXPECT_EQ(bench.program_image(), program);
    EXPECT_NE(bench.eeprom_image(), cells);
    EXPECT_EQ(bench.shown->lines.back(), "プログラムメモリ読み出し成功。");
    EXPECT_EQ(bench.log(),
              "Ｆｌａｓｈプログラムメモリ＆コンフィグレーションワード　読み出し終了"
              "\t\t2026-11-20 14:03:22\n");

    EXPECT_EQ(bench.run->extend.Cmd_DATA_Read_Click(), Outcome::Success);
    EXPECT_EQ(bench.wire(), wire.check() + wire.read_eep(cells));
    EXPECT_EQ(bench.eeprom_image(), cells);
    EXPECT_EQ(bench.shown->lines.back(), "ＥＥＰＲＯＭデータメモリ読み出し成功。");
}

TEST_P(area_of_family, a_failing_step_fails_the_operation_and_clears_the_flags) {
    Bench bench{GetParam()};
    bench.board.add_fault("stuck-cell:9");
    EXPECT_EQ(bench.run->extend.Cmd_PGM_Program_Click(), Outcome::Failed);
    EXPECT_FALSE(bench.session().ExtendPgmOnly);
    EXPECT_FALSE(bench.session().ExtendCfgToo);
    EXPECT_EQ(bench.shown->lines.back(), "Ｆｌａｓｈプログラムメモリのベリファイに敗しました。");
}

}  // namespace quillon::test
