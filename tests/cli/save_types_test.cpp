// SPDX-License-Identifier: MIT
// `load --save --dump` for each kind of device: the dump and the saved file agree, and the file
// loads again.
#include <gtest/gtest.h>

#include <ostream>

#include "cli_bench.h"
#include "saved_file.h"

namespace quillon::cli {
namespace {

using test::CliBench;
using test::data;
using test::filled;
using test::kEndRecord;
using test::line;
using test::lines_of_file;
using test::upper_address;

// A file for one kind of device, and the same values in the image and in a saved file.
struct Kind {
    std::string name;
    std::string device;
    std::vector<std::string> options;
    std::string hex;
    // How PgmMem, EepMem and the ID begin. The ID is CfgIdMem, for a PIC18 IdBytes18.
    std::string program;
    std::string eeprom;
    std::string id;
    std::vector<std::uint32_t> config;
    // Whole lines of the saved file.
    std::vector<std::string> lines;
    std::size_t line_count;

    bool pic18() const { return device.starts_with("PIC18"); }
    friend std::ostream& operator<<(std::ostream& out, const Kind& kind) {
        return out << kind.device;
    }
};

const std::vector<Kind> kKinds{
    {.name = "a_12_bit_part",
     .device = "PIC16F54",
     .options = {},
     .hex = data(0, {0x12, 0x0A, 0x34, 0x0C}) + data(0x400, {5, 0, 4, 0, 5, 0, 4, 0}) +
            data(0x1FFE, {0xF9, 0x0F}) + kEndRecord,
     .program = "0A120C340FFF",
     .eeprom = "",
     .id = "0FF50FF40FF50FF4",
     .config = {0x0FF9},
     .lines = {line(0, filled({0x12, 0x0A, 0x34, 0x0C}, {0xFF, 0x0F})),
               line(0x4000, {0xF5, 0x0F, 0xF4, 0x0F, 0xF5, 0x0F, 0xF4, 0x0F}),
               line(0x1FFE, {0xF9, 0x0F})},
     .line_count = 512 / 8 + 3},
    {.name = "a_14_bit_part",
     .device = "PIC16F84A",
     .options = {},
     .hex = data(0, {0x34, 0x12}) + data(0x4000, {1, 0, 2, 0, 3, 0, 0x0F, 0}) +
            data(0x400E, {0xF2, 0x3F}) + data(0x4200, {0x5A, 0, 0xA5, 0}) + kEndRecord,
     .program = "12343FFF",
     .eeprom = "3F5A3FA53FFF",
     .id = "000100020003000F",
     .config = {0x3FF2},
     .lines = {line(0, filled({0x34, 0x12}, {0xFF, 0x3F})),
               line(0x4200, filled({0x5A, 0, 0xA5, 0}, {0xFF, 0})),
               line(0x8000, filled({0x5A, 0, 0xA5, 0}, {0xFF, 0})),
               line(0x4000, {1, 0, 2, 0, 3, 0, 0x0F, 0}), line(0x400E, {0xF2, 0x3F})},
     .line_count = 1024 / 8 + 2 * 64 / 8 + 4},
    // Word 0 has no bit set: even parity 0, odd parity 1. Word 1 has an even bit and an odd one.
    {.name = "a_part_with_parity",
     .device = "PIC16C715",
     .options = {},
     .hex = data(0, {0x00, 0x00, 0x03, 0x00}) + data(0x4000, {1, 0, 2, 0, 3, 0, 0x0F, 0}) +
            data(0x400E, {0x3F, 0x3F}) + kEndRecord,
     .program = "80004003",
     .eeprom = "",
     .id = "C00100024003800F",
     .config = {0x3F3F},
     .lines = {line(0, filled({0x00, 0x80, 0x03, 0x40}, {0xFF, 0x7F})),
               line(0x4000, {1, 0xC0, 2, 0, 3, 0x40, 0x0F, 0x80}), line(0x400E, {0x3F, 0xFF})},
     .line_count = 2048 / 8 + 4},
    {.name = "a_pic18",
     .device = "PIC18F2550",
     .options = {},
     .hex = upper_address(0) + data(0, {0x01, 0xEF, 0x00, 0xF0}) + upper_address(0x20) +
            data(0, {1, 2, 3, 4, 5, 6, 7, 8}) + upper_address(0x30) +
            data(0, {0x24, 0x0E, 0x1E, 0x14, 0x00, 0x81, 0x81, 0x00, 0x0F, 0xC0, 0x0F, 0xE0, 0x0F,
                     0x40}) +
            upper_address(0xF0) + data(0, {0x5A, 0xA5}) + kEndRecord,
     .program = "EF01F000FFFF",
     .eeprom = "5AA5FFFF",
     .id = "0102030405060708",
     .config = {0x0E24, 0x141E, 0x8100, 0x0081, 0xC00F, 0xE00F, 0x400F},
     .lines = {":020000040000FA", line(0, filled({0x01, 0xEF, 0x00, 0xF0}, {0xFF, 0xFF})),
               ":0200000400F00A", line(0, filled({0x5A, 0xA5}, {0xFF})), ":020000040030CA",
               line(0, {0x24, 0x0E, 0x1E, 0x14, 0x00, 0x81, 0x81, 0x00, 0x0F, 0xC0, 0x0F, 0xE0,
                        0x0F, 0x40}),
               ":020000040020DA", line(0, {1, 2, 3, 4, 5, 6, 7, 8})},
     .line_count = 32768 / 16 + 256 / 16 + 7},
    {.name = "an_enhanced_part_by_full_address",
     .device = "PIC16F1827",
     .options = {"--set", "HexUpperAddress=1"},
     .hex = upper_address(0) + data(0, {0x34, 0x12}) + upper_address(1) +
            data(0, {0x0C, 0, 0, 0, 0x0D, 0, 0x0E, 0}) + data(0x0E, {0x84, 0xCF}) +
            data(0x10, {0xFD, 0xDE}) + data(0xE000, {0x5A, 0, 0xA5, 0}) + kEndRecord,
     .program = "12343FFF",
     .eeprom = "3F5A3FA53FFF",
     .id = "000C0000000D000E",
     .config = {0x0F84, 0x1EFD},
     .lines = {line(0, filled({0x34, 0x12}, {0xFF, 0x3F})), ":020000040001F9",
               line(0, {0x0C, 0, 0, 0, 0x0D, 0, 0x0E, 0}), line(0x0E, {0x84, 0x0F, 0xFD, 0x1E}),
               line(0xE000, filled({0x5A, 0, 0xA5, 0}, {0xFF, 0}))},
     .line_count = 4096 / 8 + 256 / 8 + 5},
};

class load_and_save : public testing::TestWithParam<Kind> {
  protected:
    int load(const std::string& hex, std::vector<std::string> more) {
        std::vector<std::string> arguments{"--device", GetParam().device};
        const auto& options = GetParam().options;
        arguments.insert(arguments.end(), options.begin(), options.end());
        arguments.insert(arguments.end(), {"load", hex});
        arguments.insert(arguments.end(), more.begin(), more.end());
        return cli.json(std::move(arguments));
    }
    CliBench cli;
};

TEST_P(load_and_save, writes_the_image_that_it_dumps) {
    const auto& kind = GetParam();
    const auto hex = cli.home.write("in.hex", kind.hex).string();
    ASSERT_EQ(load(hex, {"--save", cli.path("out.hex"), "--dump", cli.path("d.json")}), 0)
        << cli.err;
    EXPECT_EQ(cli.result()["status"], "success");
    const auto dump = cli.file("d.json");
    EXPECT_EQ(dump["device"], kind.device);
    EXPECT_EQ(dump["PgmMem"].get<std::string>().substr(0, kind.program.size()), kind.program);
    EXPECT_EQ(dump["EepMem"].get<std::string>().substr(0, kind.eeprom.size()), kind.eeprom);
    EXPECT_EQ(dump["EepMem"].get<std::string>().empty(), kind.eeprom.empty());
    const std::string id = dump[kind.pic18() ? "IdBytes18" : "CfgIdMem"];
    EXPECT_EQ(id.substr(0, kind.id.size()), kind.id);
    for (std::size_t n = 0; n < kind.config.size(); ++n)
        EXPECT_EQ(dump["ConfigWord"][n], kind.config[n]) << "word " << n + 1;
    const auto saved = lines_of_file(cli.home.read("out.hex"));
    for (const auto& wanted : kind.lines) EXPECT_EQ(std::ranges::count(saved, wanted), 1) << wanted;
    EXPECT_EQ(saved.back(), ":00000001FF");
    EXPECT_EQ(saved.size(), kind.line_count);
}

TEST_P(load_and_save, brings_the_saved_file_back_as_the_same_dump_and_the_same_file) {
    const auto hex = cli.home.write("in.hex", GetParam().hex).string();
    ASSERT_EQ(load(hex, {"--save", cli.path("out.hex"), "--dump", cli.path("in.json")}), 0);
    ASSERT_EQ(load(cli.path("out.hex"),
                   {"--save", cli.path("again.hex"), "--dump", cli.path("out.json")}),
              0)
        << cli.err;
    EXPECT_EQ(cli.file("out.json"), cli.file("in.json"));
    EXPECT_EQ(cli.home.read("again.hex"), cli.home.read("out.hex"));
    for (const auto& text : cli.messages())
        EXPECT_EQ(text.find("ファイル検査"), std::string::npos) << text;
}

INSTANTIATE_TEST_SUITE_P(of, load_and_save, testing::ValuesIn(kKinds),
                         [](const auto& kind_info) { return kind_info.param.name; });

}  // namespace
}  // namespace quillon::cli
