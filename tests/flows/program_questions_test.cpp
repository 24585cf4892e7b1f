// SPDX-License-Identifier: MIT
// The questions before a part is programmed, and the effect of each answer.
#include "program_lines.h"

namespace quillon::test {

namespace {

// The exchanges of a program run up to the question.
std::string wire_to_question(const ExpectedWire& wire, std::string_view word = "00 00") {
    return wire.check() + wire.config() + wire.blank_pgm(word) +
           wire.read_eep(wire.eeprom_of_target()) + wire.config();
}

const Lines kQuestion{"デバイスにコードが書き込まれています。"};

void expect_question(const Bench& bench, std::string_view line1) {
    ASSERT_EQ(bench.dialogs.hints.size(), 1U);
    EXPECT_EQ(bench.dialogs.hints[0].line1, line1);
    EXPECT_EQ(bench.dialogs.hints[0].line2, "上書きしますか？");
}

constexpr std::string_view kMismatch =
    "指定しているマイコンとソケットにセットしているマイコンの種類が違います。";

void expect_mismatch_box(const Bench& bench) {
    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    const auto& box = bench.dialogs.boxes[0];
    EXPECT_EQ(box.title, "書込みマイコンの種類の確認");
    EXPECT_EQ(box.text, std::string{kMismatch} +
                            "\r\n　継続する時は、　　『ＯＫ』　　 を押してください。"
                            "\r\n　中止する時は、『キャンセル』　を押してください。");
    EXPECT_EQ(box.buttons, BoxButtons::OkCancel);
    EXPECT_EQ(box.default_answer, BoxAnswer::Cancel);
}

}  // namespace

using program_question = EveryFamily;
INSTANTIATE_TEST_SUITE_P(, program_question, testing::ValuesIn(kFamilyCases), case_name);

TEST_P(program_question, overwrites_a_used_part_on_ok) {
    Bench bench{GetParam()};
    bench.dialogs.hint_answer = 1;
    bench.program_target();
    const ExpectedWire wire{bench};
    const auto before = wire_to_question(wire);
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);

    expect_question(bench, "書込み済みです。");
    expect_programmed(bench);
    EXPECT_EQ(bench.wire(), before + written_wire(wire));
    const auto last = bench.shown->lines.back();
    EXPECT_EQ(bench.shown->lines,
              after_check(joined(
                  {kSocketLines, kBlankLines, kQuestion, written_lines(GetParam()), {last}})));
    EXPECT_EQ(pauses(bench), between_check_and_close(joined(
                                 {{200ms}, erase_pauses(GetParam()), {200ms, 200ms, 200ms}})));
}

TEST_P(program_question, leaves_a_used_part_untouched_on_cancel) {
    Bench bench{GetParam()};
    bench.target().program[0x55] = 0x0155;
    const auto part = bench.target();
    const ExpectedWire wire{bench};
    const auto before = wire_to_question(wire, "01 55");
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Cancelled);

    expect_question(bench, "書込み済みです。");
    EXPECT_EQ(bench.target(), part);
    EXPECT_EQ(bench.wire(), before);
    EXPECT_EQ(bench.shown->lines,
              after_check(joined(
                  {kSocketLines, kBlankLines, kQuestion, {"上書き操作をキャンセルしました。"}})));
    EXPECT_EQ(bench.session().TryCount, 0);
    EXPECT_EQ(bench.log(), "");
    EXPECT_EQ(pauses(bench), between_check_and_close({}));
    EXPECT_TRUE(bench.dialogs.boxes.empty());
}

TEST_P(program_question, asks_once_for_whatever_area_is_used) {
    for (auto* const use : {
             +[](SimulatedTarget& part) { part.program.back() = 0; },
             +[](SimulatedTarget& part) { part.eeprom.back() = 0; },
             +[](SimulatedTarget& part) { part.id[0] = 0; },
         }) {
        Bench bench{GetParam()};
        use(bench.target());
        EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Cancelled);
        expect_question(bench, "書込み済みです。");
    }
}

TEST_P(program_question, says_that_the_part_is_protected) {
    Bench bench{GetParam()};
    bench.program_target();
    bench.protect_target();
    bench.dialogs.hint_answer = 1;
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);

    expect_question(bench, "書込み済みです。(コードプロテクトされています｡)");
    expect_programmed(bench);
}

TEST_P(program_question, takes_a_closed_dialog_for_a_cancel) {
    Bench bench{GetParam()};
    bench.target().program[0] = 0;
    const auto part = bench.target();
    bench.dialogs.hint_answer = 2;
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Cancelled);

    EXPECT_EQ(bench.target(), part);
}

TEST_P(program_question, asks_nothing_and_checks_nothing_with_the_blank_check_skipped) {
    Bench bench{GetParam()};
    bench.form().mnuBlankSkip.Checked.set(true);
    bench.program_target();
    bench.protect_target();
    const ExpectedWire wire{bench};
    const auto before = wire.check() + wire.config();
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);

    EXPECT_TRUE(bench.dialogs.hints.empty());
    expect_programmed(bench);
    EXPECT_EQ(bench.wire(), before + written_wire(wire));
    const auto last = bench.shown->lines.back();
    EXPECT_EQ(bench.shown->lines,
              after_check(joined({kSocketLines, written_lines(GetParam()), {last}})));
    EXPECT_EQ(pauses(bench),
              between_check_and_close(joined({erase_pauses(GetParam()), {200ms, 200ms, 200ms}})));
}

TEST_P(program_question, checks_all_the_same_where_the_skip_is_checked_but_disabled) {
    Bench bench{GetParam()};
    bench.form().mnuBlankSkip.Checked.set(true);
    bench.form().mnuBlankSkip.Enabled.set(false);
    bench.target().program[0] = 0;
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Cancelled);

    expect_question(bench, "書込み済みです。");
}

TEST_P(program_question, programs_a_part_of_another_kind_on_ok) {
    Bench bench{GetParam()};
    bench.target().identity = 0x1062;
    bench.dialogs.answers = {BoxAnswer::Ok};
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);

    expect_mismatch_box(bench);
    expect_programmed(bench);
    const auto last = bench.shown->lines.back();
    EXPECT_EQ(bench.shown->lines,
              after_check(joined({{kSocketLines[0], std::string{kMismatch}, kSocketLines[2]},
                                  kBlankLines,
                                  kFoundBlankLines,
                                  written_lines(GetParam()),
                                  {last}})));
}

TEST_P(program_question, leaves_a_part_of_another_kind_alone_on_cancel) {
    Bench bench{GetParam()};
    bench.target().identity = 0x1062;
    const auto part = bench.target();
    bench.dialogs.answers = {BoxAnswer::Cancel};
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Cancelled);

    expect_mismatch_box(bench);
    EXPECT_EQ(bench.target(), part);
    const ExpectedWire wire{bench};
    EXPECT_EQ(bench.wire(), wire.check() + wire.config());
    EXPECT_EQ(bench.shown->lines, after_check({kSocketLines[0], std::string{kMismatch}}));
    EXPECT_EQ(bench.session().TryCount, 0);
    EXPECT_EQ(bench.log(), "");
}

TEST_P(program_question, takes_an_identity_above_31_for_another_part_and_up_to_31_for_none) {
    for (const auto& [identity, boxes] : {std::pair{0x0020, 1U}, std::pair{0x001F, 0U}}) {
        Bench bench{GetParam()};
        bench.target().identity = static_cast<std::uint16_t>(identity);
        EXPECT_NE(bench.run->flows.Command_program(), Outcome::Success);
        EXPECT_EQ(bench.dialogs.boxes.size(), boxes);
    }
}

TEST_P(program_question, looks_at_14_bits_of_the_identity_and_not_at_the_revision) {
    Bench bench{GetParam()};
    bench.target().identity |= 0xC01FU;
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);
}

TEST_P(program_question, tells_in_red_that_the_socket_is_empty) {
    Bench bench{GetParam()};
    bench.board.add_fault("empty-socket");
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Failed);

    EXPECT_EQ(bench.wire(), ExpectedWire::check() +
                                "> Nrsc 00 08  < 00 00 00 00 00 00 00 00 "
                                "00 00 00 00 00 00 00 00  > @  < @\n");
    EXPECT_EQ(
        bench.shown->lines,
        after_check(
            {kSocketLines[0],
             "[red] マイコンがソケットに正しくセットされていません。"
             " | "
             "キットの組立て直後の場合は、製作にミスがある可能性があります。メニューバー ⇒ ヘルプ ⇒ 製作確認資料をご覧になり確認を行ってください。"}));
    EXPECT_TRUE(bench.dialogs.boxes.empty());
    EXPECT_EQ(bench.session().TryCount, 0);
    EXPECT_EQ(bench.log(), "");
}

}  // namespace quillon::test
