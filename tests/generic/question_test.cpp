// SPDX-License-Identifier: MIT
// The overwrite question of a program run on a part that no family claims, the skipped blank check,
// and one-time parts that are used.
#include "generic_lines.h"

namespace quillon::test {

namespace {

void expect_question(const GenericBench& bench, std::string_view line1) {
    ASSERT_EQ(bench.dialogs.hints.size(), 1U);
    EXPECT_EQ(bench.dialogs.hints[0].line1, line1);
    EXPECT_EQ(bench.dialogs.hints[0].line2, "上書きしますか？");
}

}  // namespace

using generic_question = EveryType;
INSTANTIATE_TEST_SUITE_P(, generic_question, testing::ValuesIn(kGenericCases), type_name);

TEST_P(generic_question, leaves_a_used_part_untouched_on_cancel) {
    GenericBench bench{GetParam()};
    bench.program_target();
    const auto part = bench.target();
    const GenericWire wire{bench};
    const auto before = wire.before_blank() + wire.blank("00 00");
    bench.dialogs.hint_answer = 2;
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Cancelled);

    expect_question(bench, "書込み済みです。");
    EXPECT_EQ(bench.target(), part);
    EXPECT_EQ(bench.wire(), before);
    EXPECT_EQ(
        bench.shown->lines,
        generic::behind_check(bench, generic::all_of({generic::before_blank(bench),
                                                      generic::blank(bench),
                                                      generic::kQuestion,
                                                      {"上書き操作をキャンセルしました。"}})));
    EXPECT_EQ(bench.session().TryCount, 0);
    EXPECT_EQ(bench.log(), "");
    EXPECT_EQ(pauses(bench), between_check_and_close({300ms}));
}

TEST_P(generic_question, overwrites_a_used_part_on_ok) {
    GenericBench bench{GetParam()};
    // Words that lack bits. A one-time part gets them written once more, where nothing is missing.
    bench.program_target();
    if (!bench.row().chip_erase.empty()) std::ranges::fill(bench.target().id, std::uint16_t{0});
    bench.dialogs.hint_answer = 1;
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);

    expect_question(bench, "書込み済みです。");
    generic::expect_programmed(bench);
    EXPECT_EQ(bench.shown->lines,
              generic::behind_check(bench, generic::all_of({generic::before_blank(bench),
                                                            generic::blank(bench),
                                                            generic::kQuestion,
                                                            generic::written(bench),
                                                            {generic::success(bench)}})));
    EXPECT_EQ(pauses(bench), generic::program_pauses(bench));
}

TEST_P(generic_question, says_that_the_part_is_protected) {
    GenericBench bench{GetParam()};
    bench.program_target();
    bench.protect_target();
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Cancelled);

    expect_question(bench, "書込み済みです。(コードプロテクトされています｡)");
}

TEST_P(generic_question, is_asked_for_whatever_area_is_used) {
    for (auto* const use : {
             +[](SimulatedTarget& part) { part.program[7] &= 0xFFFEU; },
             +[](SimulatedTarget& part) {
                 if (!part.eeprom.empty()) part.eeprom[3] = 0;
             },
             +[](SimulatedTarget& part) { part.id[0] &= 0x3FFEU; },
             +[](SimulatedTarget& part) { part.config[0] &= 0x3FFEU; },
         }) {
        GenericBench bench{GetParam(), kFewWords};
        const auto fresh = bench.target();
        use(bench.target());
        if (bench.target() == fresh) continue;
        EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Cancelled);
        expect_question(bench, "書込み済みです。");
    }
}

TEST_P(generic_question, is_left_out_with_the_blank_check_but_the_erase_is_not) {
    GenericBench bench{GetParam(), kFewWords};
    bench.form().mnuBlankSkip.Checked.set(true);
    // One-time parts can't have it skipped.
    EXPECT_EQ(
        bench.form().mnuBlankSkip.Enabled.get(),
        !bench.row().device.starts_with("PIC16C") && !bench.row().device.starts_with("PIC12C"));
    if (!bench.form().mnuBlankSkip.Enabled.get()) return;
    bench.program_target();
    bench.protect_target();
    const GenericWire wire{bench};
    const auto before = wire.before_blank();
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);

    EXPECT_TRUE(bench.dialogs.hints.empty());
    generic::expect_programmed(bench);
    EXPECT_EQ(bench.wire(), before + wire.written());
    EXPECT_EQ(bench.shown->lines,
              generic::behind_check(bench, generic::all_of({generic::before_blank(bench),
                                                            generic::written(bench),
                                                            {generic::success(bench)}})));
}

TEST(generic_one_time_part, is_checked_though_the_skip_is_checked) {
    for (const auto* type : {"T12C6", "EPROM", "EPROM2"}) {
        GenericBench bench{generic_case(type), kFewWords};
        bench.form().mnuBlankSkip.Checked.set(true);
        bench.program_target();
        EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Cancelled);
        expect_question(bench, "書込み済みです。");
    }
}

TEST(generic_one_time_part, that_holds_other_bits_is_not_reported_as_programmed) {
    for (const auto* type : {"T12C6", "EPROM", "EPROM2"}) {
        GenericBench bench{generic_case(type), kFewWords};
        bench.target().program[2] = 0;
        bench.dialogs.hint_answer = 1;
        EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Failed) << type;

        EXPECT_EQ(bench.session().PassCount, 0);
        EXPECT_TRUE(bench.shown->lines.back().ends_with("中断コードが返信されました。")) << type;
        ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
        EXPECT_EQ(bench.dialogs.boxes[0].title, "プログラムメモリプログラミング");
    }
}

TEST(generic_one_time_part, sends_no_erase) {
    for (const auto* type : {"T12C6", "EPROM", "EPROM2"}) {
        GenericBench bench{generic_case(type), kFewWords};
        EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);
        const auto wire = bench.wire();
        EXPECT_EQ(wire.find("bd"), std::string::npos) << wire;
        EXPECT_EQ(std::ranges::count(bench.shown->lines, "チップイレース中.........."), 0);
    }
}

TEST(generic_device_without_erase_letters, fails_at_the_erase_with_the_power_letter_alone) {
    // A flash device that the erase table doesn't know.
    const GenericCase row{.name = "unknown",
                          .device = "PIC16F84A",
                          .type = "FLASH1",
                          .renamed = "PIC16F99",
                          .write_pgm = "we8",
                          .write_eep = "wed",
                          .write_cfg = "wec"};
    GenericBench bench{row};
    bench.notes_expected = true;
    const auto part = bench.target();
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Failed);

    EXPECT_TRUE(bench.wire().ends_with("> N\n"));
    EXPECT_EQ(bench.target(), part);
    EXPECT_EQ(std::ranges::count(bench.shown->lines, "失敗。"), 1);
    EXPECT_EQ(std::ranges::count(bench.shown->lines, "チップイレース失敗。"), 1);
    EXPECT_EQ(bench.session().TryCount, 0);
}

TEST(generic_device_without_erase_letters, names_the_chip_erase_of_the_other_window_instead) {
    for (const auto* type : {"FLASH2", "FLASH0_of_PIC16F7"}) {
        GenericBench bench{generic_case(type), kFewWords};
        bench.program_target();
        const auto part = bench.target();
        EXPECT_EQ(bench.run->flows.mnuPgmErase_Click(), Outcome::Failed);

        EXPECT_EQ(bench.wire(), GenericWire{bench}.check() + "> N\n");
        EXPECT_EQ(bench.target(), part);
        const auto& lines = bench.shown->lines;
        EXPECT_EQ(lines[lines.size() - 2], "プログラムメモリを消去に失敗しました。");
        EXPECT_TRUE(lines.back().starts_with("[+] ")) << lines.back();
    }
}

}  // namespace quillon::test
