// SPDX-License-Identifier: MIT
// The blank check of a whole part.
#include "flow_support.h"

namespace quillon::test {

namespace {

Lines blank_lines(const std::string& verdict) {
    return after_check({
        "ブランクチェック中..........",
        "ブランクチェック中..........プログラムメモリー",
        "ブランクチェック中..........ＥＥＰＲＯＭメモリ",
        "ブランクチェック中..........コンフィグ・ＩＤワード",
        verdict,
    });
}

std::string blank_report(bool pgm, bool eep, bool cfg) {
    const auto verdict = [](bool blank) {
        return blank ? "：　ブランク。　　　　　　　　　　　　　\r\n"
                     : "：　消去されていません。　　　　　　　　\r\n";
    };
    return std::string{"プログラムメモリ\t"} + verdict(pgm) + "ＥＥＰＲＯＭデータメモリ\t" +
           verdict(eep) + "ＣＯＮＦＩＧ　，　ＩＤ\t" + verdict(cfg);
}

void expect_not_blank(const Bench& bench, const std::string& report) {
    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    EXPECT_EQ(bench.dialogs.boxes[0].title, "ブランクチェック");
    EXPECT_EQ(bench.dialogs.boxes[0].icon, BoxIcon::Warning);
    EXPECT_EQ(bench.dialogs.boxes[0].text, report);
}

}  // namespace

using Command_blank = EveryFamily;
INSTANTIATE_TEST_SUITE_P(, Command_blank, testing::ValuesIn(kFamilyCases), case_name);

TEST_P(Command_blank, finds_a_blank_part_blank) {
    Bench bench{GetParam()};
    EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Success);

    const ExpectedWire wire{bench};
    EXPECT_EQ(bench.wire(), wire.check() + wire.blank_pgm("3F FF") +
                                wire.read_eep(wire.eeprom_of_target()) + wire.config());
    EXPECT_EQ(bench.shown->lines, blank_lines("デバイスは消去されています。"));
    EXPECT_EQ(bench.session().ResultAll, "YBYBYB");
    EXPECT_TRUE(bench.dialogs.boxes.empty());
    EXPECT_EQ(bench.log(), "ﾌﾞﾗﾝｸﾁｪｯｸ操作終了\t\t2026-11-20 14:03:22\n");
    EXPECT_EQ(pauses(bench), between_check_and_close({}));
    EXPECT_EQ(bench.form().Focus.get(), "frmMain");
}

TEST_P(Command_blank, finds_a_used_part_used_in_all_its_areas) {
    Bench bench{GetParam()};
    bench.program_target();
    EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Failed);

    EXPECT_EQ(bench.shown->lines, blank_lines("[red] デバイスは消去されてません。"));
    EXPECT_EQ(bench.session().ResultAll, "NBNBNB");
    expect_not_blank(bench, blank_report(false, false, false));
    EXPECT_EQ(bench.log(), "ﾌﾞﾗﾝｸﾁｪｯｸ操作終了\t\t2026-11-20 14:03:22\n");
}

TEST_P(Command_blank, tells_of_a_protected_part_what_it_is) {
    Bench bench{GetParam()};
    bench.protect_target();
    EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Failed);

    // Only ID and configuration can be read from a protected part.
    const ExpectedWire wire{bench};
    EXPECT_EQ(bench.wire(), wire.check() + wire.blank_pgm("00 00") +
                                wire.read_eep(wire.eeprom_of_target()) + wire.config());
    EXPECT_TRUE(bench.session().CodeProtect.any());
    EXPECT_EQ(bench.shown->lines[bench.shown->lines.size() - 2],
              "このデバイスはコードプロテクトされています。");
    EXPECT_EQ(bench.shown->lines.back(), "[red] デバイスは消去されてません。");
    expect_not_blank(
        bench, blank_report(false, false, false) + "このデバイスはコードプロテクトされています。");
}

TEST_P(Command_blank, names_the_one_area_that_is_used) {
    struct Case {
        void (*use)(SimulatedTarget&);
        bool pgm, eep, cfg;
        const char* result;
    };
    for (const auto& [use, pgm, eep, cfg, result] : {
             Case{[](auto& part) { part.program.back() = 0x3FFE; }, false, true, true, "NBYBYB"},
             Case{[](auto& part) { part.eeprom.back() = 0x7F; }, true, false, true, "YBNBYB"},
             Case{[](auto& part) { part.id[3] = 0x3FF0; }, true, true, false, "YBYBNB"},
             Case{[](auto& part) { part.config[0] &= 0x3FFEU; }, true, true, false, "YBYBNB"},
         }) {
        Bench bench{GetParam()};
        use(bench.target());
        EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Failed);

        EXPECT_EQ(bench.session().ResultAll, result);
        expect_not_blank(bench, blank_report(pgm, eep, cfg));
    }
}

TEST_P(Command_blank, leaves_image_and_part_alone) {
    Bench bench{GetParam()};
    bench.target().program[7] = 0x1234;
    const auto part = bench.target();
    const auto image = bench.program_image();
    EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Failed);

    EXPECT_EQ(bench.target(), part);
    EXPECT_EQ(bench.program_image(), image);
    EXPECT_EQ(bench.session().TryCount, 0);
}

TEST_P(Command_blank, checks_every_area_once_even_where_the_link_fails_in_one) {
    Bench bench{GetParam()};
    bench.board.add_fault("bs/alter:3:0x21");
    EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Failed);

    const ExpectedWire wire{bench};
    EXPECT_EQ(bench.wire(), wire.check() + wire.blank_pgm("3F FF", "21") +
                                wire.read_eep(wire.eeprom_of_target()) + wire.config());
    EXPECT_EQ(bench.session().ResultAll, "ERYBYB");
    EXPECT_EQ(bench.shown->lines.back(), "[red] 通信エラーが発生しました。\r\n");
    EXPECT_TRUE(bench.dialogs.boxes.empty());
}

TEST_P(Command_blank, takes_the_word_with_all_its_possible_bits_set_for_blank) {
    Bench bench{GetParam()};
    // A part with a bit of its configuration word that is always zero.
    bench.session().ConfigMask[1] = 0x3FFD;
    bench.target().config[0] = 0x3FFD;
    EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Success);
}

}  // namespace quillon::test
