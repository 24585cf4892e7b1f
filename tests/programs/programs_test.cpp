// SPDX-License-Identifier: MIT
// Small real programs of each architecture, as their assembler writes them. Everything in the file
// must reach the image, and a saved file must hold it again.
//
// Program memory is compared with the assembler's listing. The expected ID, configuration and
// EEPROM are in the tables here, worked out by hand from the sources and the data sheets.
#include <gtest/gtest.h>

#include <filesystem>
#include <ostream>

#include "programs/programs_bench.h"

namespace quillon {

namespace fs = std::filesystem;
using test::Content;
using test::ProgramBench;

namespace {

struct Program {
    std::string name;
    std::string device;
    // EEPROM from cell 0 on. The rest is blank.
    std::string eeprom = {};
    // CfgIdMem[0] to [7], of a PIC18 IdBytes18
    std::string id;
    std::string IdText;
    // Configuration words, of a PIC18 all seven.
    std::vector<std::uint32_t> config;
    // The messages after "ファイルロード中..........".
    std::vector<std::string> told = {"ファイルロード完了"};
    std::int32_t used_words = 0;  // PIC18
    std::int32_t used_cells = 0;

    bool pic18() const { return used_words != 0; }
    friend std::ostream& operator<<(std::ostream& out, const Program& program) {
        return out << program.name << " on " << program.device;
    }
};

std::string hex_of(std::string_view text) {
    std::string digits;
    for (const char c : text) digits += hex(static_cast<std::uint8_t>(c), 2);
    return digits;
}

const std::vector<Program> kPrograms{
    // The assembler puts this part's ID at word 100, right after its program, not at word 200.
    {.name = "night_light",
     .device = "PIC10F200",
     .id = "0FF10FFA0FF20FFB",
     .IdText = "1A2B",
     .config = {0x0FEF}},
    {.name = "dice",
     .device = "PIC12F509",
     .id = "0FF00FF50FF00FF9",
     .IdText = "0509",
     .config = {0x0FEA}},
    {.name = "running_light",
     .device = "PIC16F54",
     .id = "0FF50FF40FF50FF4",
     .IdText = "5454",
     .config = {0x0FF9}},
    {.name = "power_counter",
     .device = "PIC16F84A",
     .eeprom = "5AA50000" + hex_of("Power counter 1.0, PIC16F84A"),
     .id = "00080004000A0000",
     .IdText = "84A0",
     .config = {0x3FF2}},
    {.name = "voltmeter",
     .device = "PIC16F877A",
     .eeprom = "1C385571"
               "8EAAC6E3" +
               hex_of("METER\r\n") + "00",
     .id = "0007000A00000001",
     .IdText = "7A01",
     .config = {0x3976}},
    {.name = "dimmer",
     .device = "PIC16F887",
     .eeprom = "07" + hex_of("DIM"),
     .id = "0000000800080007",
     .IdText = "0887",
     .config = {0x23C4, 0x3AFF}},
    {.name = "stepper",
     .device = "PIC18F2550",
     .eeprom = "402010" + hex_of("ABC"),
     .id = "020002060B0A0F0E",
     .IdText = "2026BAFE",
     .config = {0x0E24, 0x141E, 0x8100, 0x0081, 0xC00F, 0xE00E, 0x400F},
     .told = {"ファイルロード完了。\r\n"
              "データ最終アドレス ( コードメモリ≒0x04F1F , EEPROMメモリ≒0x0005 ) [byte換算]\r\n"
              "使用率 ( コードメモリ≒61% , EEPROMメモリ≒2% )"},
     .used_words = 10128,  // up to byte 4F0B, in blocks of 32
     .used_cells = 6},
    {.name = "servo",
     .device = "PIC18F14K50",
     .eeprom = "80A5",
     .id = hex_of("QERV") + "FFFFFFFF",
     .IdText = "1526FFFF",
     .config = {0x2800, 0x120A, 0x0000, 0x0081, 0xC003, 0xE003, 0x4003},
     .told = {"ファイルロード完了。\r\n"
              "データ最終アドレス ( コードメモリ≒0x03FFF , EEPROMメモリ≒0x0001 ) [byte換算]\r\n"
              "使用率 ( コードメモリ≒100% , EEPROMメモリ≒0% )"},
     .used_words = 8192,
     .used_cells = 2},
};

// EEPROM as the image holds it. A cell takes two bytes of EepMem, a PIC18's one.
std::string cells_of(const Program& program, std::int32_t count) {
    std::string cells;
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
        const bool given = 2 * i + 1 < program.eeprom.size();
        if (!program.pic18()) cells += "3F";
        cells += given ? program.eeprom.substr(2 * i, 2) : "FF";
    }
    return cells;
}

class program : public testing::TestWithParam<Program> {
  protected:
    void SetUp() override {
        ASSERT_TRUE(bench.selected);
        ASSERT_TRUE(bench.assembled.ok) << "gpasm of Debian's package gputils is needed";
    }
    ProgramBench bench{GetParam().name, GetParam().device};
};

}  // namespace

TEST_P(program, comes_into_the_image_as_its_assembler_wrote_it) {
    const auto& wanted = GetParam();
    const auto& session = bench.session;
    ASSERT_EQ(bench.open_program(), Token::OK);
    expect_program_of_listing(bench);
    const auto bytes = static_cast<std::size_t>(session.EepBytes) * (wanted.pic18() ? 1 : 2);
    EXPECT_EQ(hex_bytes(std::span{session.EepMem}.first(bytes)),
              cells_of(wanted, session.EepBytes));
    EXPECT_EQ(session.IdText, wanted.IdText);
    EXPECT_EQ(wanted.pic18() ? hex_bytes(session.IdBytes18)
                             : hex_bytes(std::span{session.CfgIdMem}.first(8)),
              wanted.id);
    for (std::size_t n = 1; n <= wanted.config.size(); ++n)
        EXPECT_EQ(session.ConfigWord[n], wanted.config[n - 1]) << "word " << n;
    for (std::size_t n = 1; n <= wanted.config.size() && !wanted.pic18(); ++n) {
        const auto in_area = session.CfgIdMem[12 + 2 * n] * 256U + session.CfgIdMem[13 + 2 * n];
        EXPECT_EQ(in_area, wanted.config[n - 1]) << "word " << n;
    }
    EXPECT_EQ(session.PgmWordsCat, wanted.pic18() ? wanted.used_words : session.PgmWords);
    EXPECT_EQ(session.EepBytesCat, wanted.pic18() ? wanted.used_cells : session.EepBytes);
}

TEST_P(program, is_told_of_in_the_products_words) {
    bench.open_program();
    auto wanted = GetParam().told;
    wanted.insert(wanted.begin(), "ファイルロード中..........");
    EXPECT_EQ(bench.told(), wanted);
}

TEST_P(program, comes_back_from_a_saved_file_without_a_finding) {
    ASSERT_EQ(bench.open_program(), Token::OK);
    const Content before{bench};
    const auto used = bench.session.PgmWordsCat;
    const auto saved = bench.folder / "saved.hex";
    ASSERT_EQ(bench.files.mnuFileSave_Click(saved), Outcome::Success);
    bench.shown.clear();
    ASSERT_EQ(bench.files.mnuFileOpen_Click(saved), Token::OK);
    Content{bench}.expect(before);
    EXPECT_EQ(bench.session.PgmWordsCat, used);
    EXPECT_EQ(bench.told().size(), 2U) << testing::PrintToString(bench.shown);
}

// The saved file is read by its records alone. The ID of a 12-bit part has another place in it.
TEST_P(program, stands_in_the_saved_file_where_its_assembler_put_it) {
    ASSERT_EQ(bench.open_program(), Token::OK);
    const auto saved = bench.folder / "saved.hex";
    ASSERT_EQ(bench.files.mnuFileSave_Click(saved), Outcome::Success);
    const auto wanted = test::bytes_of_hex(bench.assembled.hex);
    const auto found = test::bytes_of_hex(saved);
    ASSERT_GT(wanted.size(), 40U);
    std::size_t compared = 0;
    for (const auto& [address, byte] : wanted) {
        const bool program = address < bench.program_bytes();
        if (is_12bit(bench.session.PgmType) && !program && address < 0x1FFE) continue;
        ASSERT_TRUE(found.contains(address)) << std::hex << address;
        EXPECT_EQ(found.at(address), byte) << std::hex << address;
        ++compared;
    }
    EXPECT_GE(compared, wanted.size() - 8);
}

TEST_P(program, is_read_and_saved_the_same_whatever_the_option_of_the_enhanced_parts) {
    bench.open_program();
    const Content before{bench};
    bench.files.mnuFileSave_Click(bench.folder / "off.hex");
    bench.form.HexUpperAddress.Checked.set(true);
    EXPECT_EQ(bench.open_program(), Token::OK);
    Content{bench}.expect(before);
    bench.files.mnuFileSave_Click(bench.folder / "on.hex");
    EXPECT_EQ(bench.folder.read("on.hex"), bench.folder.read("off.hex"));
    EXPECT_GT(bench.folder.read("on.hex").size(), 1000U);
}

INSTANTIATE_TEST_SUITE_P(real, program, testing::ValuesIn(kPrograms),
                         [](const auto& program_info) { return program_info.param.name; });

}  // namespace quillon
