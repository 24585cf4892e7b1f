// SPDX-License-Identifier: MIT
// A program run of 12-bit one-time types: nothing is erased, the whole part is one stream, and the
// protection is written last.
#include "baseline_support.h"
#include "image/config_area.h"

namespace quillon::test {

namespace {

constexpr std::string_view kNoEep = "このデバイスは、ＥＥＰＲＯＭデータメモリを内蔵していません。";
const Lines kBlankCheck{
    "ソケット確認中.....",
    "ブランクチェック中..........",
    "ブランクチェック中..........プログラムメモリー",
    "ブランクチェック中..........コンフィグ・ＩＤワード",
};
const Lines kIsBlank{"ブランクチェック終了。　デバイスは消去されています。"};
const Lines kWritten{
    "プログラムメモリのプログラミング中..........",
    "プログラムメモリのプログラミング中..........",
    "プログラムメモリのプログラミングに成功しました。",
    "ＥＥＰＲＯＭデータメモリのプログラミング..........",
    std::string{kNoEep},
    "プログラムメモリのベリファイ中..........",
    "ＥＥＰＲＯＭデータメモリのベリファイ中..........",
    std::string{kNoEep},
    "コンフィギュレーションワード プログラミング中..........",
    "コンフィギュレーションワードのプログラミングに成功しました。",
    "コンフィギュレーションワードのベリファイ中..........",
};

class program_12bit : public testing::TestWithParam<BaselineType> {};
INSTANTIATE_TEST_SUITE_P(, program_12bit, testing::Values(k5X18, k5X28, k12C5, k12C5Small),
                         baseline_name);
class program_5X : public testing::TestWithParam<BaselineType> {};
INSTANTIATE_TEST_SUITE_P(, program_5X, testing::Values(k5X18, k5X28), baseline_name);

// The blank tests of a fresh part, in the order of a program run.
std::string blank_wire(const BaselineBench& bench, const BaselineType& type) {
    if (type.calibration == 0) return bench.blank(5, "0F FF 0F FF @") + bench.read_cfg(0x0FFF);
    const auto word = fmt::format("0C {:02X} @", type.calibration & 0xFFU);
    return bench.blank(0, "0F FF @") + bench.blank(1, word) + bench.blank(5, word) +
           bench.read_cfg(0x0FFF);
}

void protect_image(Bench& bench) {
    auto& session = bench.session();
    session.ConfigWord[1] &= ~session.CpMask;
    config_area::put_word(session, 1, session.ConfigWord[1]);
}

void expect_holds_image(BaselineBench& bench, const BaselineType& type) {
    const auto& session = bench.session();
    for (std::size_t w = 0; w + 1 < bench.target().program.size(); ++w)
        ASSERT_EQ(bench.target().program[w],
                  word_high_first(session.PgmMem[2 * w], session.PgmMem[2 * w + 1]))
            << "word " << w;
    if (type.calibration != 0) {
        EXPECT_EQ(bench.target().program.back(), type.calibration);
    }
    EXPECT_EQ(bench.target().id, (std::vector<std::uint16_t>{0x0FFA, 0x0FFB, 0x0FFC, 0x0FFD}));
    EXPECT_EQ(bench.target().config[0], session.ConfigWord[1]);
}

}  // namespace

TEST_P(program_12bit, writes_and_verifies_a_blank_part) {
    BaselineBench bench{GetParam()};
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);

    const auto config = bench.session().ConfigWord[1];
    EXPECT_EQ(bench.wire(), bench.check() + blank_wire(bench, GetParam()) +
                                bench.write_pgm(bench.image_stream()) +
                                bench.read_pgm(bench.stream()) + bench.write_cfg(config) +
                                bench.read_cfg(config));
    expect_holds_image(bench, GetParam());
    const auto last = bench.session().FailDetail;
    EXPECT_TRUE(last.starts_with("プログラミング成功。　　"));
    EXPECT_TRUE(last.ends_with("sec　終了時刻：14:03:22  Pass = 1    Fail = 0"));
    EXPECT_EQ(bench.shown->lines,
              bench.lines_after_check(in_order({kBlankCheck, kIsBlank, kWritten, {last}})));
    EXPECT_EQ(pauses(bench), between_check_and_close({300ms, 200ms, 100ms, 200ms, 200ms, 200ms}));
    EXPECT_TRUE(bench.dialogs.boxes.empty());
    EXPECT_TRUE(bench.dialogs.hints.empty());
    EXPECT_EQ(bench.session().ResultAll, "OK--OK");
}

TEST_P(program_12bit, writes_its_log_line_with_the_calibration_where_the_type_has_one) {
    BaselineBench bench{GetParam()};
    bench.session().LoadedHexPath = "/home/user/BLINK.HEX";
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);

    const auto word = fmt::format("{:04X}", GetParam().calibration);
    const std::string calibration = GetParam().calibration == 0 ? "" : "  R:" + word + ",W:" + word;
    EXPECT_EQ(bench.log(), bench.session().FailDetail + "  " + bench.device() + "  ID:ABCD" +
                               calibration + "  /home/user/BLINK.HEX\t2026-11-20 14:03:22\n");
}

TEST_P(program_12bit, leaves_the_protection_to_the_last_write) {
    BaselineBench bench{GetParam()};
    protect_image(bench);
    const auto config = bench.session().ConfigWord[1];
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);

    const auto stream = bench.image_stream();
    EXPECT_NE(word_high_first(stream[0], stream[1]), config);
    EXPECT_EQ(bench.wire(), bench.check() + blank_wire(bench, GetParam()) +
                                bench.write_pgm(stream) + bench.read_pgm(stream) +
                                bench.write_cfg(config) + bench.read_cfg(config));
    expect_holds_image(bench, GetParam());
    EXPECT_TRUE(bench.target().program_protected());
}

TEST_P(program_12bit, asks_before_it_overwrites_a_used_part_and_writes_nothing_when_cancelled) {
    BaselineBench bench{GetParam()};
    bench.target().program[9] = 0x0123;
    const auto part = bench.target();
    bench.dialogs.hint_answer = 2;
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Cancelled);

    EXPECT_EQ(bench.target(), part);
    ASSERT_EQ(bench.dialogs.hints.size(), 1U);
    EXPECT_EQ(bench.dialogs.hints[0].line1, "書込み済みです。");
    EXPECT_EQ(bench.dialogs.hints[0].line2, "上書きしますか？");
    EXPECT_EQ(bench.shown->lines,
              bench.lines_after_check(in_order({kBlankCheck,
                                                {"デバイスにコードが書き込まれています。",
                                                 "上書き操作をキャンセルしました。"}})));
    EXPECT_EQ(bench.wire().find("> Nw"), std::string::npos);
    EXPECT_EQ(bench.session().TryCount, 0);
}

TEST_P(program_12bit, says_in_its_question_that_the_part_is_protected) {
    BaselineBench bench{GetParam()};
    bench.protect_target();
    bench.dialogs.hint_answer = 2;
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Cancelled);
    ASSERT_EQ(bench.dialogs.hints.size(), 1U);
    EXPECT_EQ(bench.dialogs.hints[0].line1, "書込み済みです。(コードプロテクトされています｡)");
}

TEST_P(program_12bit, lists_the_areas_in_a_box_where_a_word_differs) {
    BaselineBench bench{GetParam()};
    bench.when_shown("プログラムメモリのベリファイ中..........",
                     [&] { bench.target().program[9] ^= 0x0100U; });
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Failed);

    EXPECT_EQ(bench.session().ResultAll, "NG--OK");
    EXPECT_EQ(bench.session().FailDetail,
              "プログラミング失敗。　終了時刻：14:03:22  Pass = 0    Fail = 1");
    EXPECT_EQ(bench.shown->lines.back(), "[red] " + bench.session().FailDetail);
    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    EXPECT_EQ(bench.dialogs.boxes[0].title, "ベリファイ");
    const auto& text = bench.dialogs.boxes[0].text;
    EXPECT_NE(text.find("プログラムメモリ\t=　NG"), std::string::npos) << text;
    EXPECT_EQ(text.find("ＥＥＰＲＯＭデータメモリ"), std::string::npos) << text;
    EXPECT_NE(text.find("ＣＯＮＦＩＧ. ワード　　　\t=　OK"), std::string::npos) << text;
    EXPECT_TRUE(bench.log().starts_with(bench.session().FailDetail + "  " + bench.device()));
}

TEST_P(program_5X, does_not_touch_the_calibration_label) {
    BaselineBench bench{GetParam()};
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);
    EXPECT_EQ(bench.form().Lbl_Calib_ReadWrite_Data.Caption.get(), "");
}

TEST_P(program_5X, asks_nothing_about_a_part_with_only_its_oscillator_set) {
    BaselineBench bench{GetParam()};
    bench.target().config[0] = 0x0FFE;  // as in the image
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);
    EXPECT_TRUE(bench.dialogs.hints.empty());
}

}  // namespace quillon::test
