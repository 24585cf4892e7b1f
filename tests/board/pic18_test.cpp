// SPDX-License-Identifier: MIT
// The exchanges behind "X".
#include <gtest/gtest.h>

#include "board_driver.h"

namespace quillon {
namespace {

using test::Driver;
using test::facts_18f2550;

TEST(pic18_exchange, program_memory_is_read_low_byte_first_in_blocks_of_sixteen) {
    Driver host{facts_18f2550()};
    host.board.target().program[0] = 0x1234;
    host.command("NXrsp", {0, 0, 0, 0, 0, 32});
    EXPECT_EQ(host.reply(), "34 12 FF FF FF FF FF FF FF FF FF FF FF FF FF FF");
    host.send('@');
    EXPECT_EQ(host.bytes().size(), 16u);
    host.send('@');
    EXPECT_EQ(host.reply(), "40");
}

TEST(pic18_exchange, an_address_of_one_means_zero_and_two_acknowledges_a_block_do_no_harm) {
    Driver host{facts_18f2550()};
    host.board.target().program[0] = 0x1234;
    host.command("NXrsp", {0, 0, 1, 0, 0, 48});
    host.send('@');
    host.send('@');
    EXPECT_EQ(host.bytes().size(), 48u);
    host.send('@');
    EXPECT_EQ(host.reply(), "40");
}

TEST(pic18_exchange, id_and_configuration_are_read_by_their_addresses) {
    Driver host{facts_18f2550()};
    host.board.target().id[0] = 0x0A;
    host.command("NXrsc", {0x20, 0, 1, 0, 0, 16});
    EXPECT_EQ(host.reply().substr(0, 8), "0A FF FF");
    host.send('@');
    EXPECT_EQ(host.reply(), "40");
    host.command("NXrsc", {0x30, 0, 1, 0, 0, 16});
    EXPECT_EQ(host.reply(), "00 05 1F 1F 00 83 85 00 0F C0 0F E0 0F 40 00 00");
}

TEST(pic18_exchange, the_device_check_gets_two_bytes) {
    Driver host{facts_18f2550()};
    host.command("NXrsc", {0x3F, 0xFF, 0xFF, 0x3F, 0xFF, 0xFF});
    EXPECT_EQ(host.reply(), "42 12 40");
    host.command("NXrsc", {0x3F, 0xFF, 0xFF, 0, 0, 16});
    EXPECT_EQ(host.reply().substr(0, 5), "42 12");
}

TEST(pic18_exchange, eeprom_comes_one_byte_a_cell) {
    Driver host{facts_18f2550()};
    host.board.target().eeprom[1] = 0x5A;
    host.command("NXrsd", {0, 0, 1, 0, 0, 3});
    EXPECT_EQ(host.reply(), "FF 5A FF 40");
}

TEST(pic18_exchange, the_blank_check_answers_one_word) {
    Driver host{facts_18f2550()};
    host.command("NXbs", {0, 0, 0, 0, 0x40, 0});
    EXPECT_EQ(host.reply(), "FF FF 40");
    host.board.target().program[16383] = 0x7FFF;
    host.command("NXbs", {0, 0, 0, 0, 0x40, 0});
    EXPECT_EQ(host.reply(), "7F FF 40");
}

TEST(pic18_exchange, erase_codes_come_as_two_words_in_one_piece_each) {
    Driver host{facts_18f2550()};
    auto& target = host.board.target();
    target.program.assign(16384, 0);
    target.eeprom[0] = 0;
    target.config[4] = 0;
    host.command("NXbd");
    host.item({0x0C, 0x04, 0x04});
    host.wait(std::chrono::milliseconds{5});
    host.item({0x0C, 0x80, 0x80});
    EXPECT_EQ(host.reply(), "40");
    EXPECT_EQ(target.program[0x1FFF], 0);
    EXPECT_EQ(target.program[0x2000], 0xFFFF);
    EXPECT_EQ(target.program[0x2FFF], 0xFFFF);
    EXPECT_EQ(target.program[0x3000], 0);
    host.command("NXbk");
    host.item({0x0C, 0x00, 0x00});
    host.item({0x0C, 0x84, 0x84});
    EXPECT_EQ(target.eeprom[0], 0xFF);
    host.command("NXbd");
    host.item({0x0C, 0x3F, 0x3F});
    host.item({0x0C, 0x8F, 0x8F});
    EXPECT_EQ(target.program[0], 0xFFFF);
    EXPECT_EQ(target.config[4], 0xC00F);
    EXPECT_TRUE(host.board.notes().empty());
}

TEST(pic18_exchange, an_erase_code_of_another_part_does_nothing) {
    Driver host{facts_18f2550()};
    host.board.target().program[0] = 0;
    host.command("NXbd", {0, 0, 0, 0, 0, 0});
    EXPECT_EQ(host.reply(), "40");
    EXPECT_EQ(host.board.target().program[0], 0);
    EXPECT_EQ(host.board.notes().back(), "\"Xbd\": PIC18F2550 knows no such erase code");
}

TEST(pic18_exchange, blocks_are_written_eight_bytes_an_item) {
    Driver host{facts_18f2550()};
    host.command("NXwes", {0, 0, 0, 0, 1, 4});
    EXPECT_EQ(host.reply(), "2B");
    host.item({0x34, 0x12, 1, 2, 3, 4, 5, 6});
    EXPECT_EQ(host.reply(), "2B");
    host.item({'*', '*', '*', '*', '*', '*', '*', '*'});
    EXPECT_EQ(host.reply(), "40");
    EXPECT_EQ(host.board.target().program[0], 0x1234);
    EXPECT_EQ(host.board.target().program[3], 0x0605);
    EXPECT_EQ(host.board.target().program[7], 0x2A2A);
}

TEST(pic18_exchange, panels_are_written_side_by_side) {
    for (const char* letters : {"NXwem", "NXwep"}) {
        Driver host{facts_18f2550()};
        host.command(letters, {0, 0, 0, 0, 0, 3});
        for (int i = 0; i < 2048; ++i) host.item({i / 256, i % 256, 0, 0, 0, 0, 0, 0});
        const auto all = host.bytes();
        ASSERT_EQ(all.size(), 2049u);
        EXPECT_EQ(all.back(), '@');
        const auto& program = host.board.target().program;
        EXPECT_EQ(program[0], 0x0000);
        EXPECT_EQ(program[4096], 0x0100);
        EXPECT_EQ(program[4], 0x0200);
        EXPECT_EQ(program[4100], 0x0300);
    }
}

TEST(pic18_exchange, eeprom_is_written_one_or_two_cells_an_item) {
    Driver host{facts_18f2550()};
    host.command("NXwed", {0, 0, 1, 0, 0, 4});
    EXPECT_EQ(host.reply(), "2B");
    host.item({0x11, 0x22});
    host.wait(std::chrono::milliseconds{1});
    EXPECT_EQ(host.reply(), "2B");
    host.item({0x33});
    host.wait(std::chrono::milliseconds{1});
    EXPECT_EQ(host.reply(), "2B");
    host.item({0x44});
    host.wait(std::chrono::milliseconds{1});
    EXPECT_EQ(host.reply(), "40");
    const auto& eeprom = host.board.target().eeprom;
    EXPECT_EQ(std::vector<std::uint8_t>(eeprom.begin(), eeprom.begin() + 4),
              (std::vector<std::uint8_t>{0x11, 0x22, 0x33, 0x44}));
}

TEST(pic18_exchange, id_and_configuration_are_written_in_eleven_items) {
    Driver host{facts_18f2550()};
    host.command("NXwec", {0, 0, 11, 0, 0, 11});
    for (int i = 0; i < 4; ++i) host.item({2 * i, 2 * i + 1});
    host.item({0x21, 0x0E});
    for (int i = 0; i < 6; ++i) host.item({0xFF, 0xFF});
    EXPECT_EQ(host.reply(), "2B 2B 2B 2B 2B 2B 2B 2B 2B 2B 2B 40");
    const auto& target = host.board.target();
    EXPECT_EQ(target.id[7], 7);
    EXPECT_EQ(target.config[0], 0x0E21);
    EXPECT_EQ(target.config[6], 0x400F);
}

TEST(pic18_exchange, another_part_in_the_socket_is_noted) {
    Driver host{test::facts_16f877a()};
    host.command("NXrsp", {0, 0, 0, 0, 0, 2});
    ASSERT_FALSE(host.board.notes().empty());
    EXPECT_EQ(host.board.notes()[0], "\"Xr\": PIC16F877A is no PIC18 part");
}

}  // namespace
}  // namespace quillon
