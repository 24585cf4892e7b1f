// SPDX-License-Identifier: MIT
// The verify of 12-bit types without a family: the configuration word first, then the stream.
#include "baseline_support.h"

namespace quillon::test {

namespace {

const Lines kVerifyLines12{
    "ソケット確認中.....",
    "ベリファイ中..........コンフィギュレーションワード",
    "ベリファイ中..........プログラムメモリー",
    "ベリファイ中..........ＥＥＰＲＯＭデータメモリ",
};

class verify_12bit : public testing::TestWithParam<BaselineType> {};
INSTANTIATE_TEST_SUITE_P(, verify_12bit, testing::Values(k5X18, k5X28, k12C5, k12C5Small, k10F2),
                         baseline_name);

std::string mismatch12(std::size_t address, unsigned expected, unsigned actual) {
    return "Error　 アドレス:0x" + hex(address, 4) + " , 正:0x" + hex(expected, 4) + " , 誤:0x" +
           hex(actual, 4) + "\r\n";
}

bool was_shown(const Bench& bench, std::string_view line) {
    return std::ranges::find(bench.shown->lines, line) != bench.shown->lines.end();
}

void expect_failed(Bench& bench) {
    EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Failed);
    EXPECT_TRUE(was_shown(bench, "[red] ベリファイエラーを検出しました。"));
    EXPECT_FALSE(was_shown(bench, "ベリファイは正常終了しました。"));
    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
}

}  // namespace

TEST_P(verify_12bit, compares_configuration_and_stream_with_the_image) {
    BaselineBench bench{GetParam()};
    bench.program_part();
    EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Success);

    EXPECT_EQ(bench.wire(), bench.check() + bench.read_cfg(bench.session().ConfigWord[1]) +
                                bench.read_pgm(bench.stream()));
    EXPECT_EQ(bench.shown->lines.back(), "ベリファイは正常終了しました。");
    const auto wanted = bench.lines_after_check(kVerifyLines12);
    ASSERT_GE(bench.shown->lines.size(), wanted.size());
    Lines without_own;
    for (const auto& line : bench.shown->lines)
        if (std::ranges::find(wanted, line) != wanted.end()) without_own.push_back(line);
    EXPECT_EQ(without_own, wanted);
    EXPECT_TRUE(bench.dialogs.boxes.empty());
    EXPECT_EQ(bench.log(), "ﾍﾞﾘﾌｧｲ 操作終了\t\t2026-11-20 14:03:22\n");
}

TEST_P(verify_12bit, lists_each_word_that_differs) {
    BaselineBench bench{GetParam()};
    bench.program_part();
    const auto expected = word_high_first(bench.session().PgmMem[14], bench.session().PgmMem[15]);
    bench.target().program[7] ^= 0x0010U;
    expect_failed(bench);

    EXPECT_NE(
        bench.form().RichTxtPgmMem.Text.get().find(mismatch12(7, expected, expected ^ 0x0010U)),
        std::string::npos);
    EXPECT_TRUE(was_shown(bench, "プログラムメモリ ベリファイエラー。"));
    EXPECT_NE(bench.dialogs.boxes[0].text.find("プログラムメモリ　ｏｒ　ＩＤ\t：NG"),
              std::string::npos)
        << bench.dialogs.boxes[0].text;
    EXPECT_NE(bench.dialogs.boxes[0].text.find("Ｃｏｎｆｉｇ.ワード "), std::string::npos);
}

TEST_P(verify_12bit, stops_listing_after_more_than_100_words) {
    BaselineBench bench{GetParam()};
    bench.program_part();
    for (std::size_t w = 0; w < 200; ++w) bench.target().program[w] ^= 1U;
    expect_failed(bench);

    const auto text = bench.form().RichTxtPgmMem.Text.get();
    std::size_t lines = 0;
    for (auto at = text.find("Error　"); at != std::string::npos; at = text.find("Error　", at + 1))
        ++lines;
    EXPECT_EQ(lines, 101U);
    EXPECT_NE(text.find("\r\nこれ以降もエラーがある可能性があります。\r\n"), std::string::npos);
}

TEST_P(verify_12bit, compares_the_digits_of_the_id_words) {
    for (std::size_t digit = 0; digit < 4; ++digit) {
        BaselineBench bench{GetParam()};
        bench.program_part();
        bench.target().id[digit] ^= 0x0001U;
        expect_failed(bench);
    }
}

TEST_P(verify_12bit, finds_another_configuration_word_and_tells_it) {
    BaselineBench bench{GetParam()};
    bench.program_part();
    bench.target().config[0] ^= 0x0004U;
    const auto word = bench.target().config[0];
    expect_failed(bench);

    EXPECT_NE(bench.dialogs.boxes[0].text.find("プログラムメモリ　ｏｒ　ＩＤ\t：OK"),
              std::string::npos)
        << bench.dialogs.boxes[0].text;
    EXPECT_NE(bench.dialogs.boxes[0].text.find("Ｃｏｎｆｉｇ.ワード "), std::string::npos);
    EXPECT_NE(bench.dialogs.boxes[0].text.find("（0x" + hex(word, 4) + "）"), std::string::npos)
        << bench.dialogs.boxes[0].text;
}

TEST_P(verify_12bit, skips_a_protected_part) {
    BaselineBench bench{GetParam()};
    bench.program_part();
    bench.protect_target();
    const auto word = bench.target().config[0];
    EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Failed);

    EXPECT_EQ(bench.wire(), bench.check() + bench.read_cfg(word));
    EXPECT_TRUE(was_shown(bench, "[red] このデバイスはコードプロテクトされています。"));
    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    EXPECT_EQ(bench.dialogs.boxes[0].title, "ベリファイ");
    EXPECT_EQ(bench.dialogs.boxes[0].text,
              "このデバイスはコードプロテクトされています。\r"
              "ベリファイををスキップしました。             ");
}

TEST_P(verify_12bit, fails_where_an_end_code_is_missing) {
    for (const bool of_stream : {false, true}) {
        BaselineBench bench{GetParam()};
        bench.program_part();
        // 18 bytes of the identification, one of the delay, three of the configuration word.
        const int last = 22 + (of_stream ? 2 * (bench.session().PgmWords + 5) + 1 : 0);
        bench.board.add_fault(fmt::format("alter:{}:0x21", last));
        EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Failed) << last;
        EXPECT_FALSE(was_shown(bench, "ベリファイは正常終了しました。"));
    }
}

TEST(verify_12bit_, skips_the_calibration_word_and_keeps_it) {
    for (const auto& type : {k12C5, k12C5Small, k10F2}) {
        BaselineBench bench{type};
        bench.program_part();
        bench.calibrate(0x0C11);
        EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Success) << type.device;
        EXPECT_EQ(bench.session().CalibHi, 0x0C);
        EXPECT_EQ(bench.session().CalibLo, 0x11);
    }
}

TEST(verify_12bit_, compares_the_last_word_of_a_device_without_calibration) {
    for (const auto& type : {k5X18, k5X28}) {
        BaselineBench bench{type};
        bench.program_part();
        bench.target().program.back() ^= 0x0100U;
        expect_failed(bench);
    }
}

TEST(verify_12bit_, leaves_image_and_part_alone) {
    BaselineBench bench{k12C5};
    bench.program_part();
    const auto part = bench.target();
    const auto image = bench.program_image();
    bench.run->flows.Command_Verify();
    EXPECT_EQ(bench.target(), part);
    EXPECT_EQ(bench.program_image(), image);
}

}  // namespace quillon::test
