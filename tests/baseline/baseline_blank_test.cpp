// SPDX-License-Identifier: MIT
// The blank check of 12-bit types without a family: counts, words, and the report by type.
#include "baseline_support.h"

namespace quillon::test {

namespace {

const Lines k5XStatus{
    "ブランクチェック中..........",
    "ブランクチェック中..........コンフィグ・ＩＤワード",
    "ブランクチェック中..........プログラムメモリー",
};
constexpr std::string_view kBlankMark = "：　ブランク。　　　　　　　　　　　　　";
constexpr std::string_view kUsedMark = "：　消去されていません。　　　　　　　　";

class blank_check_5X : public testing::TestWithParam<BaselineType> {};
INSTANTIATE_TEST_SUITE_P(, blank_check_5X, testing::Values(k5X18, k5X28), baseline_name);
class blank_check_12C5 : public testing::TestWithParam<BaselineType> {};
INSTANTIATE_TEST_SUITE_P(, blank_check_12C5, testing::Values(k12C5, k12C5Small), baseline_name);

}  // namespace

TEST_P(blank_check_5X, counts_program_memory_and_five_more_words_and_takes_five_bytes) {
    BaselineBench bench{GetParam()};
    EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Success);

    EXPECT_EQ(bench.wire(),
              bench.check() + bench.read_cfg(0x0FFF) + bench.blank(5, "0F FF 0F FF @"));
    EXPECT_EQ(pauses(bench), between_check_and_close({}));
    EXPECT_EQ(bench.log(), "ﾌﾞﾗﾝｸﾁｪｯｸ操作終了\t\t2026-11-20 14:03:22\n");
}

TEST_P(blank_check_5X, shows_the_oscillator_and_no_box) {
    struct Row {
        std::uint16_t config;
        std::string_view name;
    };
    for (const auto& [config, name] :
         {Row{0x0FFF, "ＲＣ"}, Row{0x0FFE, "ＨＳ"}, Row{0x0FFD, "ＸＴ"}, Row{0x0FFC, "ＬＰ"}}) {
        BaselineBench bench{GetParam()};
        bench.target().config[0] = config;
        EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Success);

        EXPECT_EQ(
            bench.shown->lines,
            bench.lines_after_check(in_order(
                {k5XStatus,
                 {"デバイスは消去されています。 | オシレータタイプ　：　" + std::string{name}}})));
        EXPECT_TRUE(bench.dialogs.boxes.empty());
    }
}

TEST_P(blank_check_5X, says_in_red_that_a_part_is_not_blank) {
    BaselineBench bench{GetParam()};
    bench.target().program[3] = 0x0123;
    EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Failed);

    EXPECT_EQ(bench.wire(),
              bench.check() + bench.read_cfg(0x0FFF) + bench.blank(5, "0F FF 01 23 @"));
    EXPECT_EQ(bench.shown->lines,
              bench.lines_after_check(in_order({k5XStatus,
                                                {"[red] デバイスは消去されてません。 | "
                                                 "オシレータタイプ　：　ＲＣ"}})));
    EXPECT_TRUE(bench.dialogs.boxes.empty());
}

TEST_P(blank_check_5X, counts_id_words_with_program_memory) {
    BaselineBench bench{GetParam()};
    bench.target().id[2] = 0x0FF4;
    EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Failed);
    EXPECT_EQ(bench.wire(),
              bench.check() + bench.read_cfg(0x0FFF) + bench.blank(5, "0F FF 0F F4 @"));
}

TEST_P(blank_check_5X, finds_the_configuration_word_used_beyond_its_oscillator_bits) {
    BaselineBench bench{GetParam()};
    bench.target().config[0] = 0x0FFB;  // watchdog off
    EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Failed);
    EXPECT_TRUE(bench.shown->lines.back().starts_with("[red] デバイスは消去されてません。"));
}

TEST_P(blank_check_5X, tells_a_protected_part) {
    BaselineBench bench{GetParam()};
    bench.protect_target();
    EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Failed);
    EXPECT_NE(std::ranges::find(bench.shown->lines, "このデバイスはコードプロテクトされています。"),
              bench.shown->lines.end());
    EXPECT_TRUE(bench.session().CodeProtect.any());
}

TEST(blank_check_5X_, leaves_the_oscillator_bits_out_for_four_devices) {
    for (const std::string_view device : {"PIC16C54", "PIC16C55", "PIC16C56", "PIC16C57"}) {
        const bool parallel18 = device == "PIC16C54" || device == "PIC16C56";
        BaselineType type = parallel18 ? k5X18 : k5X28;
        type.device = device;
        BaselineBench bench{type};
        bench.target().config[0] = 0x0FFC;
        EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Success) << device;
    }
}

TEST(blank_check_5X_, counts_the_oscillator_bits_of_other_devices) {
    Bench bench{"PIC16C58B", {{"PIC16C58B"}}};
    bench.target().config[0] = 0x0FFE;
    EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Failed);
}

TEST_P(blank_check_5X, reports_a_missing_end_code) {
    struct Row {
        std::string fault;
        std::string_view line;
    };
    const std::string blank{GetParam().blank};
    const std::string read{GetParam().read_cfg};
    for (const auto& [fault, line] :
         {Row{blank + "/alter:5:0x21",
              "プログラムメモリブランクチェック失敗。　　終了コードを受信できませんでした。"},
          Row{read + "/alter:3:0x21",
              "コンフィギュレーションワードブランクチェック失敗。　　"
              "終了コードを受信できませんでした。"}}) {
        BaselineBench bench{GetParam()};
        bench.board.add_fault(fault);
        EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Failed) << fault;
        EXPECT_NE(std::ranges::find(bench.shown->lines, line), bench.shown->lines.end()) << fault;
        EXPECT_EQ(std::ranges::find(bench.shown->lines, "デバイスは消去されています。"),
                  bench.shown->lines.end());
    }
}

TEST_P(blank_check_12C5, looks_behind_program_memory_at_the_calibration_word_and_at_the_id_words) {
    BaselineBench bench{GetParam()};
    EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Success);

    const auto calibration = fmt::format("0C {:02X} @", GetParam().calibration & 0xFFU);
    const auto wire = bench.wire();
    EXPECT_NE(wire.find(bench.blank(0, "0F FF @") + bench.blank(1, calibration) +
                        bench.blank(5, calibration)),
              std::string::npos)
        << wire;
    EXPECT_NE(wire.find(bench.read_cfg(0x0FFF)), std::string::npos) << wire;
    EXPECT_EQ(pauses(bench), between_check_and_close({}));
    EXPECT_EQ(bench.log(), "ﾌﾞﾗﾝｸﾁｪｯｸ操作終了\t\t2026-11-20 14:03:22\n");
}

TEST_P(blank_check_12C5, is_not_blank_where_an_id_word_adds_a_zero_to_the_calibration_word) {
    BaselineBench bench{GetParam()};
    bench.target().id[1] = 0x0FF0;
    EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Failed);
    EXPECT_EQ(bench.shown->lines.back().find("消去されています"), std::string::npos);
}

TEST_P(blank_check_12C5, stops_looking_at_the_first_word_that_is_not_blank) {
    BaselineBench bench{GetParam()};
    bench.target().program[5] = 0x0A0A;
    EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Failed);

    const auto wire = bench.wire();
    EXPECT_NE(wire.find(bench.blank(0, "0A 0A @")), std::string::npos) << wire;
    EXPECT_EQ(wire.find(fmt::format("> Nbs {}", bench.count(1))), std::string::npos) << wire;
    EXPECT_EQ(wire.find(fmt::format("> Nbs {}", bench.count(5))), std::string::npos) << wire;
}

TEST_P(blank_check_12C5, lists_areas_and_oscillator_in_its_box) {
    BaselineBench bench{GetParam()};
    bench.target().program[5] = 0x0A0A;
    EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Failed);

    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    EXPECT_EQ(bench.dialogs.boxes[0].title, "ブランクチェック");
    const auto& text = bench.dialogs.boxes[0].text;
    const auto pgm = text.find("プログラムメモリ　ｏｒ　ＩＤ\t" + std::string{kUsedMark});
    const auto cfg = text.find("ＣＯＮＦＩＧワード\t" + std::string{kBlankMark});
    const auto osc = text.find("オシレータタイプ　　　　\t" + std::string{kBlankMark});
    EXPECT_NE(pgm, std::string::npos) << text;
    EXPECT_NE(cfg, std::string::npos) << text;
    EXPECT_NE(osc, std::string::npos) << text;
    EXPECT_LT(pgm, cfg);
    EXPECT_LT(cfg, osc);
}

TEST_P(blank_check_12C5, tells_the_word_at_the_calibration_address) {
    BaselineBench bench{GetParam()};
    EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Success);

    const auto word = fmt::format("{:04X}", GetParam().calibration);
    const auto line = "キャリブレーションデータ格納アドレスのデータは 0x" + word + "(0x" +
                      word.substr(2) + ") です。";
    std::string told;
    for (const auto& shown : bench.shown->lines) told += shown + "\n";
    for (const auto& box : bench.dialogs.boxes) told += box.text + "\n";
    EXPECT_NE(told.find(line), std::string::npos) << told;
}

TEST_P(blank_check_12C5, tells_a_protected_part_in_its_box) {
    BaselineBench bench{GetParam()};
    bench.protect_target();
    EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Failed);
    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    EXPECT_NE(bench.dialogs.boxes[0].text.find("このデバイスはコードプロテクトされています。"),
              std::string::npos);
}

TEST_P(blank_check_12C5, fails_without_the_end_code_of_any_of_its_four_answers) {
    // The identification has 18 bytes, the delay one, each of the answers three.
    for (const int n : {22, 25, 28, 31}) {
        BaselineBench bench{GetParam()};
        bench.board.add_fault(fmt::format("alter:{}:0x21", n));
        EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Failed) << n;
        EXPECT_EQ(std::ranges::find(bench.shown->lines, "デバイスは消去されています。"),
                  bench.shown->lines.end())
            << n;
    }
}

}  // namespace quillon::test
