// SPDX-License-Identifier: MIT
// The verify of a whole part, and its list of mismatches.
#include "flow_support.h"

namespace quillon::test {

namespace {

Lines verify_lines(const Lines& behind) {
    Lines lines = after_check({
        "マイコンの種類の確認中.....",
        "書込みマイコンの種類の確認終了。",
        "ベリファイ中..........コンフィギュレーションワード",
    });
    lines.insert(lines.end(), behind.begin(), behind.end());
    return lines;
}

std::string whole_verify(Bench& bench) {
    const ExpectedWire wire{bench};
    return wire.check() + wire.config() + wire.config() + wire.read_pgm(wire.program_of_target()) +
           wire.read_eep(wire.eeprom_of_target());
}

void expect_box(const Bench& bench, const std::string& text) {
    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    EXPECT_EQ(bench.dialogs.boxes[0].title, "ベリファイエラー");
    EXPECT_EQ(bench.dialogs.boxes[0].icon, BoxIcon::Critical);
    EXPECT_EQ(bench.dialogs.boxes[0].text, text);
}

std::string mismatch(std::size_t address, unsigned expected, unsigned actual) {
    return "Error　 アドレス:0x" + hex(address, 4) + " , 正:0x" + hex(expected, 4) + " , 誤:0x" +
           hex(actual, 4) + "\r\n";
}

// The part of the program view behind the image.
std::string errors(Bench& bench) {
    const auto& view = bench.form().RichTxtPgmMem.Text.get();
    const auto first = view.find("Error");
    return first == std::string::npos ? "" : view.substr(first);
}

std::size_t count(const std::string& text, std::string_view what) {
    std::size_t found = 0;
    for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++found;
    return found;
}

constexpr std::string_view kMore = "\r\nこれ以降もエラーがある可能性があります。\r\n";

}  // namespace

using Command_Verify = EveryFamily;
INSTANTIATE_TEST_SUITE_P(, Command_Verify, testing::ValuesIn(kFamilyCases), case_name);

TEST_P(Command_Verify, finds_a_part_that_holds_the_image_good) {
    Bench bench{GetParam()};
    bench.program_target();
    EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Success);

    EXPECT_EQ(bench.wire(), whole_verify(bench));
    EXPECT_EQ(bench.shown->lines, verify_lines({
                                      "ベリファイ中..........プログラムメモリー",
                                      "ベリファイ中..........ＥＥＰＲＯＭデータメモリ",
                                      "ベリファイは正常終了しました。",
                                  }));
    EXPECT_EQ(bench.session().ResultAll, "OKOKOK");
    EXPECT_TRUE(bench.dialogs.boxes.empty());
    EXPECT_EQ(errors(bench), "");
    EXPECT_EQ(bench.log(), "ﾍﾞﾘﾌｧｲ 操作終了\t\t2026-11-20 14:03:22\n");
    EXPECT_EQ(pauses(bench), between_check_and_close({200ms, 200ms}));
}

TEST_P(Command_Verify, lists_each_word_that_differs_with_both_values) {
    Bench bench{GetParam()};
    bench.program_target();
    const auto first = bench.target().program[0];
    const auto last = bench.target().program.back();
    bench.target().program[0] = 0x0000;
    bench.target().program.back() = 0x3FFF;
    EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Failed);

    EXPECT_EQ(bench.wire(), whole_verify(bench));
    EXPECT_EQ(errors(bench), mismatch(0, first, 0) + mismatch(0x1FFF, last, 0x3FFF));
    EXPECT_EQ(bench.shown->lines, verify_lines({
                                      "ベリファイ中..........プログラムメモリー",
                                      "プログラムメモリ ベリファイエラー。",
                                      "ベリファイ中..........ＥＥＰＲＯＭデータメモリ",
                                      "[red] ベリファイエラーを検出しました。",
                                  }));
    EXPECT_EQ(bench.session().ResultAll, "NGOKOK");
    expect_box(bench,
               "プログラムメモリ\t：NG\r\nＥＥＰＲＯＭデータメモリ\t：OK\r\n"
               "Ｃｏｎｆｉｇワード \t：OK　（Ｃｏｎｆｉｇ：OK，ＩＤ：OK）　　");
    EXPECT_EQ(bench.log(), "ﾍﾞﾘﾌｧｲ 操作終了\t\t2026-11-20 14:03:22\n");
}

TEST_P(Command_Verify, lists_a_cell_of_eeprom_in_the_same_form) {
    Bench bench{GetParam()};
    bench.program_target();
    const auto cell = bench.target().eeprom[0x10];
    bench.target().eeprom[0x10] = static_cast<std::uint8_t>(~cell);
    EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Failed);

    EXPECT_EQ(errors(bench), mismatch(0x10, cell, static_cast<std::uint8_t>(~cell)));
    EXPECT_EQ(bench.session().ResultAll, "OKNGOK");
}

TEST_P(Command_Verify, lists_100_mismatches_in_full) {
    Bench bench{GetParam()};
    bench.program_target();
    for (std::size_t w = 0; w < 100; ++w) bench.target().program[17 * w] ^= 1U;
    EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Failed);

    EXPECT_EQ(count(errors(bench), "Error"), 100U);
    EXPECT_EQ(count(errors(bench), kMore), 0U);
}

TEST_P(Command_Verify, stops_its_list_after_more_than_100_mismatches_and_says_so) {
    Bench bench{GetParam()};
    bench.program_target();
    for (std::size_t w = 0; w < 200; ++w) bench.target().program[17 * w] ^= 1U;
    EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Failed);

    EXPECT_EQ(bench.wire(), whole_verify(bench));
    EXPECT_EQ(count(errors(bench), "Error"), 101U);
    EXPECT_TRUE(errors(bench).ends_with(kMore));
    EXPECT_EQ(bench.session().ResultAll, "NGOKOK");
}

TEST_P(Command_Verify, stops_the_list_of_eeprom_in_the_same_way) {
    Bench bench{GetParam()};
    bench.program_target();
    for (auto& cell : bench.target().eeprom) cell = static_cast<std::uint8_t>(~cell);
    EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Failed);

    EXPECT_EQ(count(errors(bench), "Error"), 101U);
    EXPECT_TRUE(errors(bench).ends_with(kMore));
    EXPECT_EQ(bench.session().ResultAll, "OKNGOK");
}

TEST_P(Command_Verify, shows_the_mismatches_of_the_last_run_only) {
    Bench bench{GetParam()};
    bench.program_target();
    bench.target().program[5] ^= 1U;
    EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Failed);
    bench.target().program[5] ^= 1U;
    EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Success);

    EXPECT_EQ(errors(bench), "");
}

TEST_P(Command_Verify, shows_the_configuration_that_the_device_has_where_it_differs) {
    Bench bench{GetParam()};
    bench.program_target();
    bench.target().config[0] ^= 0x0004U;
    bench.target().id[2] = 0x3FF7;
    const auto held = hex(bench.target().config[0], 4);
    EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Failed);

    EXPECT_EQ(bench.shown->lines, verify_lines({
                                      "コンフィギュレーションワードのベリファイエラー\r\n"
                                      "デバイスにプログラミングされているデータ。ＣＯＮＦＩＧ：" +
                                          held + "ＩＤ：AB7D",
                                      "ベリファイ中..........プログラムメモリー",
                                      "ベリファイ中..........ＥＥＰＲＯＭデータメモリ",
                                      "[red] ベリファイエラーを検出しました。",
                                  }));
    EXPECT_EQ(bench.session().ResultAll, "OKOKNG");
    expect_box(bench,
               "プログラムメモリ\t：OK\r\nＥＥＰＲＯＭデータメモリ\t：OK\r\n"
               "Ｃｏｎｆｉｇワード \t：NG　（Ｃｏｎｆｉｇ：" +
                   held + "，ＩＤ：AB7D）　　");
}

TEST_P(Command_Verify, compares_the_low_digit_of_each_id_word_only) {
    Bench bench{GetParam()};
    bench.program_target();
    bench.target().id = {0x000A, 0x120B, 0x3FFC, 0x20CD};
    EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Success);

    for (std::size_t word = 0; word < 4; ++word) {
        Bench other{GetParam()};
        other.program_target();
        other.target().id[word] ^= 0x8U;
        EXPECT_EQ(other.run->flows.Command_Verify(), Outcome::Failed);
        EXPECT_EQ(other.session().ResultAll, "OKOKNG");
    }
}

TEST_P(Command_Verify, ignores_what_the_device_holds_between_id_and_configuration) {
    Bench bench{GetParam()};
    bench.program_target();
    for (std::size_t i = 8; i < 14; ++i) bench.session().CfgIdMem[i] = 0x15;
    EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Success);
}

TEST_P(Command_Verify, skips_the_memories_of_a_protected_part) {
    Bench bench{GetParam()};
    bench.program_target();
    bench.protect_target();
    bench.session().CfgIdMem[14] = static_cast<std::uint8_t>(bench.target().config[0] >> 8U);
    bench.session().CfgIdMem[15] = static_cast<std::uint8_t>(bench.target().config[0]);
    EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Failed);

    const ExpectedWire wire{bench};
    EXPECT_EQ(bench.wire(), wire.check() + wire.config() + wire.config());
    EXPECT_EQ(bench.shown->lines, verify_lines({
                                      "このデバイスはコードプロテクトされています。",
                                      "[red] このデバイスはコードプロテクトされています。",
                                  }));
    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    EXPECT_EQ(bench.dialogs.boxes[0].title, "ベリファイ");
    EXPECT_EQ(bench.dialogs.boxes[0].text,
              "このデバイスはコードプロテクトされています。"
              "\r"
              "ベリファイををスキップしました。             ");
}

TEST_P(Command_Verify, leaves_image_and_part_alone) {
    Bench bench{GetParam()};
    bench.target().program[3] = 0x1111;
    const auto part = bench.target();
    const auto program = bench.program_image();
    const auto config = bench.session().CfgIdMem;
    EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Failed);

    EXPECT_EQ(bench.target(), part);
    EXPECT_EQ(bench.program_image(), program);
    EXPECT_EQ(bench.session().CfgIdMem, config);
    EXPECT_EQ(bench.session().TryCount, 0);
}

}  // namespace quillon::test
