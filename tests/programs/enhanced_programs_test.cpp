// SPDX-License-Identifier: MIT
// Programs of the enhanced mid-range parts. Their assembler puts ID, configuration and EEPROM above
// 64 K. Large parts also have program memory beyond the first 8 K words. With HexUpperAddress all
// of it is loaded to its place. Without it the addresses fold, and the file check reports that.
#include <gtest/gtest.h>

#include <filesystem>
#include <ostream>

#include "programs/programs_bench.h"

namespace quillon {

using test::Content;
using test::ProgramBench;

namespace {

struct Enhanced {
    std::string name;
    std::string device;
    std::string eeprom;  // EepMem from cell 0 on
    std::string id;      // CfgIdMem[0] to [7]
    std::string IdText;
    std::uint32_t config1;
    std::uint32_t config2;

    friend std::ostream& operator<<(std::ostream& out, const Enhanced& program) {
        return out << program.name << " on " << program.device;
    }
};

const Enhanced kCodeLock{.name = "code_lock",
                         .device = "PIC16F1827",
                         .eeprom = "3F013F083F023F043F5A3FA5",
                         .id = "000C0000000D000E",
                         .IdText = "C0DE",
                         .config1 = 0x0F84,
                         .config2 = 0x1EFD};
const Enhanced kMelody{.name = "melody",
                       .device = "PIC16F1938",
                       .eeprom = "3F003F78",
                       .id = "0001000900030008",
                       .IdText = "1938",
                       .config1 = 0x09CC,
                       .config2 = 0x1AFF};

struct EnhancedBench : ProgramBench {
    explicit EnhancedBench(const Enhanced& program) : ProgramBench{program.name, program.device} {}

    void by_full_address(bool asked) { form.HexUpperAddress.Checked.set(asked); }
};

// The file check's line. It names the option that helps.
void expect_findings(const std::string& line, const std::vector<std::string>& findings) {
    EXPECT_TRUE(line.starts_with("red ファイル検査：")) << line;
    EXPECT_NE(line.find("HexUpperAddress"), std::string::npos) << line;
    for (const auto& finding : findings)
        EXPECT_NE(line.find(finding), std::string::npos) << line << "\n" << finding;
}

class enhanced_program : public testing::TestWithParam<Enhanced> {
  protected:
    void SetUp() override {
        ASSERT_TRUE(bench.selected);
        ASSERT_TRUE(bench.assembled.ok) << "gpasm of Debian's package gputils is needed";
        bench.by_full_address(true);
        ASSERT_EQ(bench.open_program(), Token::OK);
    }
    EnhancedBench bench{GetParam()};
};

}  // namespace

TEST_P(enhanced_program, is_all_at_its_place_by_full_address) {
    const auto& wanted = GetParam();
    const auto& session = bench.session;
    expect_program_of_listing(bench);
    const auto cells = hex_bytes(std::span{session.EepMem}.first(512));
    EXPECT_EQ(cells.substr(0, wanted.eeprom.size()), wanted.eeprom);
    for (std::size_t at = wanted.eeprom.size(); at < cells.size(); at += 4)
        ASSERT_EQ(cells.substr(at, 4), "3FFF") << "cell " << at / 4;
    EXPECT_EQ(session.IdText, wanted.IdText);
    EXPECT_EQ(hex_bytes(std::span{session.CfgIdMem}.first(8)), wanted.id);
    EXPECT_EQ(session.ConfigWord[1], wanted.config1);
    EXPECT_EQ(session.ConfigWord[2], wanted.config2);
    EXPECT_EQ(session.CfgIdMem[14] * 256U + session.CfgIdMem[15], wanted.config1);
    EXPECT_EQ(session.CfgIdMem[16] * 256U + session.CfgIdMem[17], wanted.config2);
    EXPECT_EQ(session.PgmWordsCat, session.PgmWords);
    EXPECT_EQ(session.EepBytesCat, 256);
    EXPECT_EQ(bench.told(),
              (std::vector<std::string>{"ファイルロード中..........", "ファイルロード完了"}));
}

TEST_P(enhanced_program, comes_back_from_a_file_saved_by_full_address) {
    const Content before{bench};
    const auto saved = bench.folder / "saved.hex";
    ASSERT_EQ(bench.files.mnuFileSave_Click(saved), Outcome::Success);
    bench.shown.clear();
    ASSERT_EQ(bench.files.mnuFileOpen_Click(saved), Token::OK);
    Content{bench}.expect(before);
    EXPECT_EQ(bench.told().size(), 2U) << testing::PrintToString(bench.shown);
}

// The assembler also writes bits that mean nothing. The reader drops them.
TEST_P(enhanced_program, is_saved_where_its_assembler_put_it) {
    const auto saved = bench.folder / "saved.hex";
    ASSERT_EQ(bench.files.mnuFileSave_Click(saved), Outcome::Success);
    const auto wanted = test::bytes_of_hex(bench.assembled.hex);
    const auto found = test::bytes_of_hex(saved);
    ASSERT_GT(wanted.size(), 80U);
    for (const auto& [address, byte] : wanted) {
        const bool high_of_config = address == 0x1000F || address == 0x10011;
        ASSERT_TRUE(found.contains(address)) << std::hex << address;
        EXPECT_EQ(found.at(address), high_of_config ? byte & 0x3F : byte) << std::hex << address;
    }
    EXPECT_TRUE(wanted.contains(0x10000) && wanted.contains(0x1000E) && wanted.contains(0x10010) &&
                wanted.contains(0x1E000));
}

INSTANTIATE_TEST_SUITE_P(real, enhanced_program, testing::Values(kCodeLock, kMelody),
                         [](const auto& program_info) { return program_info.param.name; });

TEST(folded_program, of_an_enhanced_part_lands_on_low_addresses_and_the_check_says_so) {
    EnhancedBench bench{kCodeLock};
    ASSERT_TRUE(bench.assembled.ok);
    ASSERT_EQ(bench.open_program(), Token::OK);
    const auto told = bench.told();
    ASSERT_EQ(told.size(), 3U);
    EXPECT_EQ(told[1], "ファイルロード完了");
    expect_findings(told[2], {"異なる値で二重に書かれたデータが6バイト（最初は11行目）",
                              "上位アドレスのレコードが4件（最初は11行目"});
    // The four ID words have overwritten the reset vector, the configuration words 7 and 8.
    EXPECT_EQ(hex_bytes(std::span{bench.session.PgmMem}.first(8)), "000C0000000D000E");
    EXPECT_EQ(bench.program_word(14), "CF84");
    EXPECT_EQ(bench.program_word(16), "DEFD");
    EXPECT_EQ(bench.program_word(12), "018C") << "the rest is the program's";
    EXPECT_EQ(bench.session.IdText, "FFFF");
    EXPECT_NE(bench.session.ConfigWord[1], kCodeLock.config1);
    for (std::size_t i = 0; i < 512; i += 2)
        ASSERT_EQ(hex_bytes(std::span{bench.session.EepMem}.subspan(i, 2)), "3FFF") << i;
}

TEST(folded_program, of_a_large_part_fails_names_the_option_and_loads_with_it) {
    EnhancedBench bench{kMelody};
    ASSERT_TRUE(bench.assembled.ok);
    EXPECT_EQ(bench.open_program(), Token::NG);
    const auto told = bench.told();
    ASSERT_EQ(told.size(), 3U);
    EXPECT_EQ(told[1],
              "ファイルをロードできませんでした。"
              "|ＰＩＣ１８用のファイルをロードしようとした可能性があります。");
    expect_findings(told[2], {"上位アドレスのレコードが7件（最初は7行目"});
    bench.by_full_address(true);
    EXPECT_EQ(bench.open_program(), Token::OK);
    expect_program_of_listing(bench);
}

}  // namespace quillon
