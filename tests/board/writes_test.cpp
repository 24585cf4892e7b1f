// SPDX-License-Identifier: MIT
// The exchanges behind "w", 14-bit parts and modules.
#include <gtest/gtest.h>

#include "board_driver.h"

namespace quillon {
namespace {

using namespace std::chrono_literals;
using test::Driver;
using test::facts_16f877a;

TEST(write_exchange, asks_for_each_word_and_ends_with_the_end_code) {
    Driver host{facts_16f877a()};
    host.command("nwGe", {0, 2});
    EXPECT_EQ(host.reply(), "2B");
    host.item({0x28, 0x05});
    EXPECT_EQ(host.reply(), "2B");
    host.item({0x01, 0x83});
    EXPECT_EQ(host.reply(), "40");
    EXPECT_EQ(host.board.target().program[0], 0x2805);
    EXPECT_EQ(host.board.target().program[1], 0x0183);
}

TEST(write_exchange, takes_an_item_in_two_pieces_too) {
    Driver host{facts_16f877a()};
    host.command("nwGe", {0, 1});
    host.send(0x28);
    host.wait(3ms);
    host.send(0x05);
    EXPECT_EQ(host.reply(), "2B 40");
    EXPECT_EQ(host.board.target().program[0], 0x2805);
}

TEST(write_exchange, asks_for_the_next_word_when_the_pulse_is_over) {
    Driver host{facts_16f877a(), {.program_word = 2ms}};
    host.command("nwGe", {0, 2});
    host.reply();
    host.item({0x28, 0x05});
    host.wait(1999us);
    EXPECT_EQ(host.reply(), "");
    host.wait(1us);
    EXPECT_EQ(host.reply(), "2B");
}

TEST(write_exchange, the_ready_byte_can_be_any) {
    Driver host{facts_16f877a()};
    host.board.set_ready_byte('@');
    host.command("nwGe", {0, 1});
    EXPECT_EQ(host.reply(), "40");
    host.item({0, 0});
    EXPECT_EQ(host.reply(), "40");
}

TEST(write_exchange, words_that_are_not_erased_only_lose_bits) {
    Driver host{facts_16f877a()};
    host.board.target().program[0] = 0x0FFF;
    host.command("nwGe", {0, 1});
    host.item({0x3F, 0xF0});
    EXPECT_EQ(host.board.target().program[0], 0x0FF0);
}

TEST(write_exchange, the_first_generations_algorithm_erases_each_word_first) {
    for (const char* letters : {"nwe8", "nwe5", "nwef", "nw84"}) {
        Driver host{facts_16f877a()};
        host.board.target().program[0] = 0x0FFF;
        host.command(letters, {0, 1});
        host.item({0x3F, 0xF0});
        EXPECT_EQ(host.board.target().program[0], 0x3FF0) << letters;
    }
}

TEST(write_exchange, knows_the_program_letters_of_every_family) {
    for (const char* letters : {"nwsp", "nwSp", "nwee", "nwe8", "nwe5", "nwe1", "nwef", "nwEe",
                                "nwHe", "nwhe", "nw84", "nw7e", "nw7a", "nw7b", "nwGe", "nwGa",
                                "nwGb", "nwGk", "nwGj", "nwGm", "nwGn", "nwGp", "nwGq", "nwGt"}) {
        Driver host{facts_16f877a()};
        host.command(letters, {0, 1});
        host.item({0x12, 0x34});
        EXPECT_EQ(host.reply(), "2B 40") << letters;
        EXPECT_EQ(host.board.target().program[0], 0x1234) << letters;
    }
}

TEST(write_exchange, eeprom_cells_are_replaced_by_the_low_byte) {
    for (const char* letters : {"nwed", "nwId", "nw8d"}) {
        Driver host{facts_16f877a()};
        host.board.target().eeprom[0] = 0x00;
        host.command(letters, {0, 2});
        host.item({0x3F, 0x5A});
        host.item({0x3F, 0xA5});
        EXPECT_EQ(host.reply(), "2B 2B 40") << letters;
        EXPECT_EQ(host.board.target().eeprom[0], 0x5A);
        EXPECT_EQ(host.board.target().eeprom[1], 0xA5);
    }
}

TEST(write_exchange, a_cell_that_does_not_program_is_reported_with_what_it_holds) {
    Driver host{facts_16f877a()};
    host.board.add_fault("stuck-eeprom:1");
    host.command("nwed", {0, 3});
    host.item({0x3F, 0x5A});
    host.reply();
    host.item({0x3F, 0xA5});
    EXPECT_EQ(host.reply(), "2A 00 FF 40");
    host.command("?");
    EXPECT_EQ(host.bytes().size(), 18u);  // back in the command loop
}

TEST(write_exchange, configuration_and_id_go_in_but_the_marked_words) {
    for (const char* letters :
         {"nwec", "nwFc", "nwEc", "nwJc", "nw8c", "nw6c", "nwhc", "nwGi", "nwG<", "nwek", "nwsc"}) {
        Driver host{facts_16f877a()};
        host.command(letters, {0, 8});
        for (int i = 0; i < 4; ++i) host.item({0x3F, 0xF0 + i});
        for (int i = 0; i < 3; ++i) host.item({0x80, 0x00});
        host.item({0x3F, 0x72});
        EXPECT_EQ(host.reply(), "2B 2B 2B 2B 2B 2B 2B 2B 40") << letters;
        const auto& target = host.board.target();
        EXPECT_EQ(target.id, (std::vector<std::uint16_t>{0x3FF0, 0x3FF1, 0x3FF2, 0x3FF3}));
        EXPECT_EQ(target.config[0], 0x3F72);
        EXPECT_EQ(target.identity, 0x0E22);
    }
}

TEST(write_exchange, nine_items_reach_the_second_configuration_word) {
    auto facts = facts_16f877a();
    facts.name = "PIC16F88";
    facts.type = "FLASH4.9";
    facts.config_present[1] = true;
    facts.config_default[1] = 0x3FFF;
    facts.config_mask[1] = 0x3FFF;
    facts.config_force[1] = 0x3FFC;
    Driver host{facts};
    host.command("nwJc", {0, 9});
    for (int i = 0; i < 4; ++i) host.item({0x3F, 0xF0 + i});
    for (int i = 0; i < 3; ++i) host.item({0xBF, 0xFF});
    host.item({0x3F, 0x70});
    host.item({0x00, 0x02});
    EXPECT_EQ(host.reply(), "2B 2B 2B 2B 2B 2B 2B 2B 2B 40");
    EXPECT_EQ(host.board.target().id[3], 0x3FF3);
    EXPECT_EQ(host.board.target().config[0], 0x3F70);
    EXPECT_EQ(host.board.target().config[1], 0x3FFE);
}

TEST(write_exchange, a_configuration_word_that_does_not_program_is_reported) {
    Driver host{facts_16f877a()};
    host.board.add_fault("stuck-config:7");
    host.command("nwFc", {0, 8});
    for (int i = 0; i < 7; ++i) host.item({0xBF, 0xFF});
    host.reply();
    host.item({0x3F, 0x72});
    EXPECT_EQ(host.reply(), "2A 3F FF 40");
}

TEST(write_exchange, a_report_is_one_piece) {
    Driver host{facts_16f877a()};
    host.board.add_fault("stuck-eeprom:0");
    host.command("nwed", {0, 1});
    host.item({0x3F, 0x00});
    host.board.run_until(host.now);
    const auto sent = host.board.take_sent(host.now);
    ASSERT_EQ(sent.size(), 5u);
    EXPECT_FALSE(sent[0].more);
    EXPECT_TRUE(sent[1].more);
    EXPECT_TRUE(sent[3].more);
    EXPECT_FALSE(sent[4].more);
}

TEST(write_exchange, a_one_time_word_that_cannot_take_the_value_breaks_the_write_off) {
    auto facts = facts_16f877a();
    facts.type = "EPROM";
    Driver host{facts};
    host.board.target().program[1] = 0x0000;
    host.command("nwsp", {0, 3});
    host.item({0x12, 0x34});
    host.reply();
    host.item({0x12, 0x34});
    EXPECT_EQ(host.reply(), "40 40");
}

TEST(write_exchange, more_words_than_the_part_has_are_taken_and_noted) {
    auto facts = facts_16f877a();
    facts.program_words = 1;
    Driver host{facts};
    host.command("nwGe", {0, 2});
    host.item({0, 1});
    host.item({0, 2});
    EXPECT_EQ(host.reply(), "2B 2B 40");
    ASSERT_EQ(host.board.notes().size(), 1u);
    EXPECT_EQ(host.board.notes()[0], "\"wGe\": 2 words for a part of 1");
}

}  // namespace
}  // namespace quillon
