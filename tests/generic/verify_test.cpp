// SPDX-License-Identifier: MIT
// The verify of a whole part that no family claims, and its list of mismatches.
#include "generic_lines.h"

namespace quillon::test {

namespace {

constexpr std::string_view kLogged = "ﾍﾞﾘﾌｧｲ 操作終了\t\t2026-11-20 14:03:22\n";
const std::string kVerifyingCfg = "ベリファイ中..........コンフィギュレーションワード";
const std::string kVerifyingPgm = "ベリファイ中..........プログラムメモリー";
const std::string kVerifyingEep = "ベリファイ中..........ＥＥＰＲＯＭデータメモリ";
const std::string kGood = "ベリファイは正常終了しました。";
const std::string kBad = "[red] ベリファイエラーを検出しました。";
constexpr std::string_view kMore = "\r\nこれ以降もエラーがある可能性があります。\r\n";

std::string whole_verify(GenericBench& bench) {
    const GenericWire wire{bench};
    return wire.check() + wire.socket() + wire.config(bench.row().words.verify) + wire.read_pgm() +
           wire.read_eep();
}

// The messages from the check on, with those that a mismatch adds behind the area's own.
Lines verify_lines(const GenericBench& bench, const Lines& cfg, const Lines& pgm, const Lines& eep,
                   const std::string& verdict) {
    Lines no_eeprom;
    if (!bench.has_eeprom()) no_eeprom.push_back(generic::kNoEeprom);
    return generic::behind_check(bench, generic::all_of({generic::kSocket,
                                                         {kVerifyingCfg},
                                                         cfg,
                                                         {kVerifyingPgm},
                                                         pgm,
                                                         {kVerifyingEep},
                                                         no_eeprom,
                                                         eep,
                                                         {verdict}}));
}

std::string mismatch(std::size_t address, unsigned expected, unsigned actual) {
    return "Error　 アドレス:0x" + hex(address, 4) + " , 正:0x" + hex(expected, 4) + " , 誤:0x" +
           hex(actual, 4) + "\r\n";
}

// The part of the program view behind the image.
std::string errors(GenericBench& bench) {
    const auto& view = bench.form().RichTxtPgmMem.Text.get();
    const auto first = view.find("Error");
    return first == std::string::npos ? "" : view.substr(first);
}

std::size_t count(const std::string& text, std::string_view what) {
    std::size_t found = 0;
    for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++found;
    return found;
}

// The further line of a part with a band gap.
std::string calibration_note(const GenericBench& bench) {
    if (bench.row().type != "12F6") return {};
    return fmt::format(
        "マイコン内部のＢＧ(コンフィグ内)データ:0x{:X} ,キャリブレーションデータ:0x{:04X}",
        bench.board.target().config[0] >> 12, bench.board.target().program.back());
}

void expect_box(const GenericBench& bench, std::string_view pgm, std::string_view eep,
                std::string_view cfg) {
    const auto& part = bench.board.target();
    std::string id;
    for (const auto word : part.id) id += hex(word & 0x0FU, 1);
    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    std::string text = fmt::format("プログラムメモリ\t：{}\r\n", pgm);
    if (bench.has_eeprom()) text += fmt::format("ＥＥＰＲＯＭデータメモリ\t：{}\r\n", eep);
    text += fmt::format("Ｃｏｎｆｉｇワード \t：{}　（Ｃｏｎｆｉｇ：{}，ＩＤ：{}）", cfg,
                        hex(part.config[0], 4), id);
    EXPECT_TRUE(bench.dialogs.boxes[0].text.starts_with(text)) << bench.dialogs.boxes[0].text;
    EXPECT_NE(bench.dialogs.boxes[0].text.find(calibration_note(bench)), std::string::npos);
}

}  // namespace

using generic_verify = EveryType;
INSTANTIATE_TEST_SUITE_P(, generic_verify, testing::ValuesIn(kGenericCases), type_name);

TEST_P(generic_verify, finds_a_part_that_holds_the_image_good) {
    GenericBench bench{GetParam()};
    bench.program_target();
    const auto part = bench.target();
    EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Success);

    EXPECT_EQ(bench.wire(), whole_verify(bench));
    EXPECT_EQ(bench.shown->lines, verify_lines(bench, {}, {}, {}, kGood));
    EXPECT_EQ(bench.session().ResultAll, generic::result_of(bench));
    EXPECT_TRUE(bench.dialogs.boxes.empty());
    EXPECT_EQ(errors(bench), "");
    EXPECT_EQ(bench.log(), kLogged);
    EXPECT_EQ(bench.target(), part);
}

TEST_P(generic_verify, lists_each_word_that_differs_with_both_values) {
    GenericBench bench{GetParam()};
    bench.program_target();
    const auto first = bench.target().program[0];
    const auto last = bench.target().program.back();
    bench.target().program[0] = 0x0000;
    bench.target().program.back() = 0x3FFF;
    EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Failed);

    EXPECT_EQ(bench.wire(), whole_verify(bench));
    EXPECT_EQ(errors(bench),
              mismatch(0, first, 0) + mismatch(bench.target().program.size() - 1, last, 0x3FFF));
    EXPECT_EQ(bench.shown->lines,
              verify_lines(bench, {}, {"プログラムメモリ ベリファイエラー。"}, {}, kBad));
    EXPECT_EQ(bench.session().ResultAll, generic::result_of(bench, "NG"));
    expect_box(bench, "NG", "OK", "OK");
    EXPECT_EQ(bench.log(), kLogged);
}

TEST_P(generic_verify, lists_a_cell_of_eeprom_in_the_same_form) {
    GenericBench bench{GetParam()};
    if (!bench.has_eeprom()) return;
    bench.program_target();
    const auto cell = bench.target().eeprom[0x10];
    bench.target().eeprom[0x10] = static_cast<std::uint8_t>(~cell);
    EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Failed);

    EXPECT_EQ(errors(bench), mismatch(0x10, cell, static_cast<std::uint8_t>(~cell)));
    EXPECT_EQ(bench.session().ResultAll, "OKNGOK");
    expect_box(bench, "OK", "NG", "OK");
}

TEST_P(generic_verify, shows_the_configuration_and_id_that_the_device_has_where_they_differ) {
    GenericBench bench{GetParam()};
    bench.program_target();
    bench.target().config[0] ^= 0x0004U;
    bench.target().id[2] = 0x3FF7;
    const auto held = hex(bench.target().config[0], 4);
    EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Failed);

    const auto& lines = bench.shown->lines;
    const auto shown = std::ranges::find_if(lines, [](const auto& line) {
        return line.starts_with("コンフィギュレーションワードのベリファイエラー");
    });
    ASSERT_NE(shown, lines.end());
    EXPECT_EQ(*shown,
              "コンフィギュレーションワードのベリファイエラー\r\n"
              "デバイスにプログラミングされているデータ。ＣＯＮＦＩＧ：0x" +
                  held + "ＩＤ：AB7D");
    EXPECT_EQ(bench.session().ResultAll, generic::result_of(bench, "OK", "OK", "NG"));
    expect_box(bench, "OK", "OK", "NG");
}

TEST_P(generic_verify, finds_every_bit_of_the_configuration_that_differs) {
    GenericBench bench{GetParam(), kFewWords};
    bench.program_target();
    auto& part = bench.target();
    part.config_mask[0] = 0x3FFF;
    part.config_force[0] = 0;
    for (unsigned bit = 0; bit < 14; ++bit) {
        const auto flag = static_cast<std::uint16_t>(1U << bit);
        // Protection is another verdict.
        if ((bench.session().CpMask & flag) != 0) continue;
        part.config[0] ^= flag;
        EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Failed) << bit;
        EXPECT_EQ(bench.session().ResultCfg, Token::NG) << bit;
        part.config[0] ^= flag;
    }
    EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Success);
}

TEST_P(generic_verify, finds_every_bit_of_the_id_that_differs) {
    GenericBench bench{GetParam(), kFewWords};
    bench.program_target();
    for (std::size_t word = 0; word < 4; ++word) {
        for (unsigned bit = 0; bit < 14; ++bit) {
            const auto flag = static_cast<std::uint16_t>(1U << bit);
            bench.target().id[word] ^= flag;
            EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Failed) << word << " " << bit;
            EXPECT_EQ(bench.session().ResultCfg, Token::NG);
            bench.target().id[word] ^= flag;
        }
        bench.restart_the_clock();
    }
}

TEST_P(generic_verify, skips_the_memories_of_a_protected_part) {
    GenericBench bench{GetParam()};
    bench.program_target();
    bench.protect_target();
    EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Failed);

    const GenericWire wire{bench};
    EXPECT_EQ(bench.wire(), wire.check() + wire.socket() + wire.config(bench.row().words.verify));
    EXPECT_EQ(bench.shown->lines.back(), "[red] このデバイスはコードプロテクトされています。");
    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    EXPECT_EQ(bench.dialogs.boxes[0].title, "ベリファイ");
    EXPECT_EQ(bench.dialogs.boxes[0].text,
              "このデバイスはコードプロテクトされています。"
              "\r"
              "ベリファイををスキップしました。             ");
}

TEST_P(generic_verify, ends_its_list_after_more_than_100_mismatches_and_says_so) {
    GenericBench bench{GetParam()};
    bench.program_target();
    for (std::size_t w = 0; w < 200; ++w) bench.target().program[w] ^= 1U;
    EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Failed);

    EXPECT_EQ(bench.wire(), whole_verify(bench));
    EXPECT_EQ(count(errors(bench), "Error"), 101U);
    EXPECT_TRUE(errors(bench).ends_with(kMore));
}

TEST_P(generic_verify, lists_100_mismatches_without_that_line) {
    GenericBench bench{GetParam()};
    bench.program_target();
    for (std::size_t w = 0; w < 100; ++w) bench.target().program[w] ^= 1U;
    EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Failed);

    EXPECT_EQ(count(errors(bench), "Error"), 100U);
    EXPECT_EQ(count(errors(bench), kMore), 0U);
}

TEST_P(generic_verify, lists_any_number_of_cells_without_that_line) {
    GenericBench bench{GetParam()};
    if (!bench.has_eeprom()) return;
    bench.program_target();
    for (auto& cell : bench.target().eeprom) cell = static_cast<std::uint8_t>(~cell);
    EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Failed);

    EXPECT_EQ(count(errors(bench), kMore), 0U);
    EXPECT_EQ(bench.session().ResultAll, "OKNGOK");
}

TEST_P(generic_verify, keeps_image_and_counters) {
    GenericBench bench{GetParam()};
    bench.target().program[3] = 0x1111;
    const auto program = bench.program_image();
    const auto area = bench.id_and_config_image();
    EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Failed);

    EXPECT_EQ(bench.program_image(), program);
    EXPECT_EQ(bench.id_and_config_image(), area);
    EXPECT_EQ(bench.session().TryCount, 0);
}

TEST(generic_verify_of_EPROM2, compares_the_parity_bits_too) {
    for (const unsigned bit : {0x4000U, 0x8000U}) {
        GenericBench bench{"EPROM2"};
        bench.program_target();
        bench.target().program[5] ^= static_cast<std::uint16_t>(bit);
        EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Failed);
        EXPECT_EQ(bench.session().ResultPgm, Token::NG);
        EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Success);
        EXPECT_EQ(bench.session().PgmMem[10], bench.target().program[5] >> 8U);
        EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Success);
    }
}

}  // namespace quillon::test
