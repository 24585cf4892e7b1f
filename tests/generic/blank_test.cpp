// SPDX-License-Identifier: MIT
// The blank check of a whole part that no family claims.
#include "generic_lines.h"

namespace quillon::test {

namespace {

using generic::behind_check;

constexpr std::string_view kLogged = "ﾌﾞﾗﾝｸﾁｪｯｸ操作終了\t\t2026-11-20 14:03:22\n";
const std::string kIsBlank = "：　ブランク。　　　　　　　　　　　　　\r\n";
const std::string kIsUsed = "：　消去されていません。　　　　　　　　\r\n";

Lines blank_lines(const GenericBench& bench, const Lines& behind) {
    return behind_check(bench, generic::all_of({generic::blank(bench), behind}));
}

// The line of an area that the part doesn't have is left out.
std::string report(const GenericBench& bench, bool pgm, bool eep, bool cfg) {
    std::string text = "プログラムメモリ\t" + (pgm ? kIsBlank : kIsUsed);
    if (bench.has_eeprom()) text += "ＥＥＰＲＯＭデータメモリ\t" + (eep ? kIsBlank : kIsUsed);
    return text + "ＣＯＮＦＩＧ　，　ＩＤ\t" + (cfg ? kIsBlank : kIsUsed);
}

void expect_box(const GenericBench& bench, const std::string& text) {
    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    EXPECT_EQ(bench.dialogs.boxes[0].title, "ブランクチェック");
    EXPECT_EQ(bench.dialogs.boxes[0].text, text);
}

constexpr std::string_view kProtected = "このデバイスはコードプロテクトされています。";

}  // namespace

using generic_blank = EveryType;
INSTANTIATE_TEST_SUITE_P(, generic_blank, testing::ValuesIn(kGenericCases), type_name);

TEST_P(generic_blank, finds_a_fresh_part_blank) {
    GenericBench bench{GetParam()};
    const auto part = bench.target();
    EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Success);

    const GenericWire wire{bench};
    EXPECT_EQ(bench.wire(), wire.check() + wire.blank(bench.row().blank_word));
    EXPECT_EQ(bench.shown->lines, blank_lines(bench, {"デバイスは消去されています。"}));
    EXPECT_EQ(bench.session().ResultAll, generic::result_of(bench));
    EXPECT_TRUE(bench.dialogs.boxes.empty());
    EXPECT_EQ(bench.log(), kLogged);
    EXPECT_EQ(pauses(bench), between_check_and_close({}));
    EXPECT_EQ(bench.target(), part);
    EXPECT_EQ(bench.form().Focus.get(), "frmMain");
}

TEST_P(generic_blank, finds_a_used_part_used_in_all_its_areas) {
    GenericBench bench{GetParam()};
    bench.program_target();
    EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Failed);

    const GenericWire wire{bench};
    EXPECT_EQ(bench.wire(), wire.check() + wire.blank("00 00"));
    EXPECT_EQ(bench.shown->lines, blank_lines(bench, {"[red] デバイスは消去されてません。"}));
    EXPECT_EQ(bench.session().ResultAll, generic::result_of(bench, "NG", "NG", "NG"));
    expect_box(bench, report(bench, false, false, false));
    EXPECT_EQ(bench.log(), kLogged);
}

TEST_P(generic_blank, says_that_a_part_is_protected_and_compares_it_all_the_same) {
    GenericBench bench{GetParam()};
    bench.protect_target();
    EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Failed);

    const GenericWire wire{bench};
    EXPECT_EQ(bench.wire(), wire.check() + wire.blank("00 00"));
    EXPECT_EQ(bench.shown->lines,
              blank_lines(bench, {std::string{kProtected}, "[red] デバイスは消去されてません。"}));
    EXPECT_TRUE(bench.session().CodeProtect.any());
    EXPECT_EQ(bench.session().ResultCfg, Token::NG);
    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    EXPECT_TRUE(bench.dialogs.boxes[0].text.ends_with(kProtected));
}

TEST_P(generic_blank, names_the_one_area_that_is_used) {
    struct Use {
        void (*mark)(SimulatedTarget&);
        bool pgm, eep, cfg;
    };
    for (const auto& [mark, pgm, eep, cfg] : {
             Use{[](auto& part) { part.program[0] &= 0xFFFEU; }, false, true, true},
             Use{[](auto& part) { part.program[part.program.size() - 2] &= 0xDFFFU; }, false, true,
                 true},
             Use{[](auto& part) {
                     if (!part.eeprom.empty()) part.eeprom.back() = 0x7F;
                 },
                 true, false, true},
             Use{[](auto& part) { part.id[0] &= 0x3FFEU; }, true, true, false},
             Use{[](auto& part) { part.id[3] &= 0xFFF0U; }, true, true, false},
             Use{[](auto& part) { part.config[0] &= 0x3FFEU; }, true, true, false},
         }) {
        GenericBench bench{GetParam(), kFewWords};
        if (!eep && !bench.has_eeprom()) continue;
        mark(bench.target());
        EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Failed);

        EXPECT_EQ(
            bench.session().ResultAll,
            generic::result_of(bench, pgm ? "OK" : "NG", eep ? "OK" : "NG", cfg ? "OK" : "NG"));
        expect_box(bench, report(bench, pgm, eep, cfg));
    }
}

TEST_P(generic_blank, keeps_image_and_counters) {
    GenericBench bench{GetParam(), kFewWords};
    const auto program = bench.program_image();
    const auto area = bench.id_and_config_image();
    EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Success);

    EXPECT_EQ(bench.program_image(), program);
    EXPECT_EQ(bench.id_and_config_image(), area);
    EXPECT_EQ(bench.session().TryCount, 0);
}

// The last word of program memory.

TEST_P(generic_blank, leaves_out_the_last_word_of_program_memory) {
    // Of a part with a calibration word the board leaves it out, of the others the count.
    GenericBench bench{GetParam(), kFewWords};
    bench.target().program.back() = 0x0123;
    EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Success);
}

TEST(generic_blank_count, of_a_part_with_one_word_is_0) {
    GenericBench bench{generic_case("FLASH0_of_any_other"), {{"PGM_SIZE_WORD", "0"}}};
    ASSERT_EQ(bench.session().PgmWords, 1);
    EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Success);

    EXPECT_NE(bench.wire().find("> Nbs 00 00  < 3F FF @\n"), std::string::npos);
}

}  // namespace quillon::test
