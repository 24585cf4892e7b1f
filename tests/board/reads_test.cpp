// SPDX-License-Identifier: MIT
// The exchanges behind "r" and "b", 14-bit parts and modules.
#include <gtest/gtest.h>

#include "board_driver.h"

namespace quillon {
namespace {

using namespace std::chrono_literals;
using test::Driver;
using test::facts_16f877a;

TEST(read_exchange, sends_sixteen_bytes_and_waits_for_the_acknowledge) {
    Driver host{facts_16f877a()};
    host.board.target().program[0] = 0x2805;
    host.command("nrsp", {0, 16});
    EXPECT_EQ(host.reply(), "28 05 3F FF 3F FF 3F FF 3F FF 3F FF 3F FF 3F FF");
    host.wait(30s);
    EXPECT_EQ(host.reply(), "");
    host.send('@');
    EXPECT_EQ(host.reply(), "3F FF 3F FF 3F FF 3F FF 3F FF 3F FF 3F FF 3F FF");
}

TEST(read_exchange, a_full_last_block_is_acknowledged_before_the_end_code_comes) {
    Driver host{facts_16f877a()};
    host.command("nrsp", {0, 8});
    EXPECT_EQ(host.bytes().size(), 16u);
    host.send('@');
    EXPECT_EQ(host.reply(), "40");
}

TEST(read_exchange, a_last_block_that_is_not_full_is_followed_by_the_end_code) {
    Driver host{facts_16f877a()};
    host.command("nrsp", {0, 9});
    EXPECT_EQ(host.bytes().size(), 16u);
    host.send('@');
    EXPECT_EQ(host.reply(), "3F FF 40");
}

TEST(read_exchange, all_of_program_memory_comes_in_order) {
    Driver host{facts_16f877a()};
    for (std::size_t i = 0; i < 8192; ++i)
        host.board.target().program[i] = static_cast<std::uint16_t>(i);
    host.command("nrsp", {0x20, 0});
    const auto all = host.stream(16385);
    ASSERT_EQ(all.size(), 16385u);
    for (std::size_t i = 0; i < 8192; ++i)
        ASSERT_EQ(all[2 * i] << 8 | all[2 * i + 1], static_cast<int>(i));
    EXPECT_EQ(all.back(), '@');
}

TEST(read_exchange, eeprom_cells_come_as_pairs_with_the_data_in_the_low_byte) {
    Driver host{facts_16f877a()};
    host.board.target().eeprom[1] = 0x5A;
    host.command("nrsd", {0, 3});
    EXPECT_EQ(host.reply(), "3F FF 3F 5A 3F FF 40");
}

TEST(read_exchange, the_configuration_area_has_id_identification_and_configuration) {
    Driver host{facts_16f877a()};
    auto& target = host.board.target();
    target.id = {0x3F81, 0x3F82, 0x3F83, 0x3F84};
    target.config[0] = 0x3F72;
    host.command("nrsc", {0, 8});
    EXPECT_EQ(host.reply(), "3F 81 3F 82 3F 83 3F 84 3F FF 3F FF 0E 22 3F 72");
    host.send('@');
    EXPECT_EQ(host.reply(), "40");
}

TEST(read_exchange, sixteen_words_of_the_area_are_acknowledged_twice) {
    Driver host{facts_16f877a()};
    host.command("nrsc", {0, 16});
    EXPECT_EQ(host.bytes().size(), 16u);
    host.send('@');
    EXPECT_EQ(host.bytes().size(), 16u);
    host.send('@');
    EXPECT_EQ(host.reply(), "40");
}

TEST(read_exchange, sixteen_words_of_the_area_have_the_second_configuration_word_behind_the_first) {
    auto facts = facts_16f877a();
    facts.name = "PIC16F88";
    facts.type = "FLASH4.9";
    facts.config_present[1] = true;
    facts.config_default[1] = 0x3FFF;
    facts.config_mask[1] = 0x3FFF;
    facts.config_force[1] = 0x3FFC;
    Driver host{facts};
    host.board.target().config = {0x3F70, 0x3FFE};
    host.command("nrsc", {0, 16});
    EXPECT_EQ(host.reply(), "3F FF 3F FF 3F FF 3F FF 3F FF 3F FF 07 62 3F 70");
    host.send('@');
    EXPECT_EQ(host.reply(), "3F FE 3F FF 3F FF 3F FF 3F FF 3F FF 3F FF 3F FF");
    host.send('@');
    EXPECT_EQ(host.reply(), "40");
}

TEST(read_exchange, nine_or_ten_words_of_the_area_come_in_one_piece_with_one_acknowledge) {
    for (const int words : {9, 10}) {
        Driver host{facts_16f877a()};
        host.command("nrsc", {0, words});
        EXPECT_EQ(host.bytes().size(), static_cast<std::size_t>(2 * words));
        host.wait(5s);
        EXPECT_EQ(host.reply(), "");
        host.send('@');
        EXPECT_EQ(host.reply(), "40");
    }
}

TEST(read_exchange, an_acknowledge_that_comes_early_counts) {
    Driver host{facts_16f877a()};
    host.command("nrsc");
    host.command("", {0});
    host.send(8);
    host.send('@');
    EXPECT_EQ(host.bytes().size(), 17u);
}

TEST(read_exchange, another_byte_than_the_acknowledge_is_noted_and_passed_over) {
    Driver host{facts_16f877a()};
    host.command("nrsc", {0, 8});
    host.bytes();
    host.send('!');
    EXPECT_EQ(host.reply(), "");
    ASSERT_EQ(host.board.notes().size(), 1u);
    EXPECT_EQ(host.board.notes()[0], "0x21 came where the acknowledge of a read was awaited");
    host.send('@');
    EXPECT_EQ(host.reply(), "40");
}

TEST(read_exchange, a_module_answers_to_its_own_algorithm_only) {
    auto facts = facts_16f877a();
    facts.name = "ZQ-LDR412A";
    Driver host{facts};
    host.command("nr8c", {0, 8});
    EXPECT_EQ(host.reply().substr(36, 5), "0E 22");
    host.send('@');
    host.bytes();
    host.command("nrsc", {0, 8});
    EXPECT_EQ(host.reply().substr(36, 5), "00 00");
    ASSERT_EQ(host.board.notes().size(), 1u);
    EXPECT_EQ(host.board.notes()[0], "\"rsc\": ZQ-LDR412A doesn't answer to algorithm \"s\"");
}

TEST(read_exchange, words_with_parity_have_an_algorithm_of_their_own) {
    auto facts = facts_16f877a();
    facts.type = "EPROM2";
    Driver host{facts};
    host.command("nrSp", {0, 2});
    EXPECT_EQ(host.reply(), "FF FF FF FF 40");
    host.command("nbS", {0, 2});
    EXPECT_EQ(host.reply(), "FF FF 40");
}

TEST(read_exchange, a_protected_part_gives_zeros_and_its_configuration) {
    Driver host{facts_16f877a()};
    host.board.target().program[0] = 0x1234;
    host.board.target().config[0] = 0x1FFF;
    host.command("nrsp", {0, 2});
    EXPECT_EQ(host.reply(), "00 00 00 00 40");
    host.command("nrsd", {0, 1});
    EXPECT_EQ(host.reply(), "00 00 40");
    host.command("nbs", {0, 2});
    EXPECT_EQ(host.reply(), "00 00 40");
    host.command("nrsc", {0, 8});
    EXPECT_EQ(host.reply().substr(42), "1F FF");
}

TEST(blank_exchange, answers_the_and_of_all_words_in_the_range) {
    Driver host{facts_16f877a()};
    host.command("nbs", {0x20, 0});
    EXPECT_EQ(host.reply(), "3F FF 40");
    host.board.target().program[8191] = 0x3FF0;
    host.board.target().program[0] = 0x0FFF;
    host.command("nbs", {0x20, 0});
    EXPECT_EQ(host.reply(), "0F F0 40");
    host.command("nbs", {0x1F, 0xFF});
    EXPECT_EQ(host.reply(), "0F FF 40");
}

TEST(blank_exchange, takes_its_time_for_each_word) {
    Driver host{facts_16f877a(), {.check_word = 100us}};
    host.command("nbs", {0x20, 0});
    host.wait(817ms);  // 818 with the millisecond after the last parameter
    EXPECT_EQ(host.reply(), "");
    host.wait(2ms);
    EXPECT_EQ(host.reply(), "3F FF 40");
}

TEST(blank_exchange, an_empty_range_is_blank) {
    Driver host{facts_16f877a()};
    host.command("nbs", {0, 0});
    EXPECT_EQ(host.reply(), "3F FF 40");
}

TEST(single_word, is_read_and_written_by_an_address_that_counts_from_one) {
    Driver host{facts_16f877a()};
    host.board.target().program[1023] = 0x3480;
    host.command("nbr", {0x04, 0x00});
    EXPECT_EQ(host.reply(), "34 80 40");
    host.command("nbw", {0x00, 0x01, 0x34, 0x55});
    EXPECT_EQ(host.reply(), "40");
    EXPECT_EQ(host.board.target().program[0], 0x3455);
}

}  // namespace
}  // namespace quillon
