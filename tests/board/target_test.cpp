// SPDX-License-Identifier: MIT
#include "board/target.h"

#include <gtest/gtest.h>

#include "board_driver.h"

namespace quillon {
namespace {

using test::facts_10f200;
using test::facts_16f877a;
using test::facts_18f2550;

TEST(SimulatedTarget, comes_erased_from_the_factory_with_its_identification) {
    const auto target = blank_target(facts_16f877a());
    EXPECT_EQ(target.core, Core::Bits14);
    EXPECT_EQ(target.memory, ProgramMemory::Flash);
    EXPECT_EQ(target.program.size(), 8192u);
    EXPECT_EQ(target.read_program(0), 0x3FFF);
    EXPECT_EQ(target.read_eeprom(255), 0xFF);
    EXPECT_EQ(target.read_area(3), 0x3FFF);
    EXPECT_EQ(target.read_area(6) >> 5, 113);
    EXPECT_EQ(target.read_area(6) & 0x1F, 2);  // the revision
    EXPECT_EQ(target.read_area(7), 0x3FFF);
    EXPECT_EQ(target.read_area(8), 0x3FFF);
}

TEST(SimulatedTarget, has_the_identification_of_each_known_part) {
    auto facts = facts_16f877a();
    const auto number = [&](std::string_view name, int shift) {
        facts.name = name;
        return blank_target(facts).identity >> shift;
    };
    EXPECT_EQ(number("PIC16F877", 5), 77);
    EXPECT_EQ(number("PIC16F873A", 5), 114);
    EXPECT_EQ(number("PIC16F628A", 5), 131);
    EXPECT_EQ(number("PIC12F675", 5), 126);
    EXPECT_EQ(number("PIC16F913", 4), 318);
    EXPECT_EQ(number("PIC16LF1939", 4), 588);
    EXPECT_EQ(number("PIC16F84", 5), 511);  // has none
}

TEST(SimulatedTarget, a_protected_part_reads_as_zeros_but_shows_id_and_configuration) {
    auto target = blank_target(facts_16f877a());
    target.write_program(5, 0x1234, WordWrite::ClearsBits);
    target.write_eeprom(7, 0x55);
    target.write_area(0, 0x0003);
    target.write_area(7, 0x1FFF);
    EXPECT_TRUE(target.program_protected());
    EXPECT_EQ(target.read_program(5), 0);
    EXPECT_EQ(target.read_program(6), 0);
    EXPECT_EQ(target.read_eeprom(7), 0);
    EXPECT_EQ(target.read_area(0), 0x0003);
    EXPECT_EQ(target.read_area(7), 0x1FFF);
}

TEST(SimulatedTarget, protection_can_only_be_released_by_an_erase_which_takes_the_code_along) {
    auto target = blank_target(facts_16f877a());
    target.write_program(5, 0x1234, WordWrite::ClearsBits);
    target.write_eeprom(7, 0x55);
    target.write_area(7, 0x1FFF);
    target.write_area(7, 0x3FFF);
    EXPECT_TRUE(target.program_protected());

    target.erase({.config = true});
    EXPECT_FALSE(target.program_protected());
    EXPECT_EQ(target.read_program(5), 0x3FFF);
    EXPECT_EQ(target.read_eeprom(7), 0xFF);
}

TEST(SimulatedTarget, a_write_clears_bits_unless_the_algorithm_erases_first) {
    auto target = blank_target(facts_16f877a());
    target.write_program(0, 0x0FF0, WordWrite::ClearsBits);
    target.write_program(0, 0x3F0F, WordWrite::ClearsBits);
    EXPECT_EQ(target.read_program(0), 0x0F00);
    target.write_program(0, 0x3F0F, WordWrite::ErasesFirst);
    EXPECT_EQ(target.read_program(0), 0x3F0F);
}

TEST(SimulatedTarget, a_one_time_part_only_clears_bits_and_knows_no_erase) {
    auto facts = facts_16f877a();
    facts.type = "EPROM";
    auto target = blank_target(facts);
    target.write_program(0, 0x0FF0, WordWrite::ErasesFirst);
    target.write_program(0, 0x3F0F, WordWrite::ErasesFirst);
    target.write_area(7, 0x3FF0);
    target.write_area(7, 0x3FFF);
    target.write_area(0, 0x3FF1);
    target.write_area(0, 0x3FF2);
    target.erase({.program = true, .eeprom = true, .config = true, .calibration = true});
    EXPECT_EQ(target.read_program(0), 0x0F00);
    EXPECT_EQ(target.read_area(7), 0x3FF0);
    EXPECT_EQ(target.read_area(0), 0x3FF0);
}

TEST(SimulatedTarget, configuration_bits_without_a_function_keep_their_value) {
    auto target = blank_target(facts_16f877a());
    target.write_area(7, 0x2000);
    EXPECT_EQ(target.read_area(7), 0x3030);
    EXPECT_EQ(target.area_mask(7), 0x2FCF);
    EXPECT_EQ(target.area_mask(6), 0);
}

TEST(SimulatedTarget, an_erase_keeps_or_loses_the_calibration_words) {
    auto facts = facts_16f877a();
    facts.name = "PIC16F913";
    auto target = blank_target(facts);
    EXPECT_EQ(target.read_area(8), 0x2149);
    EXPECT_EQ(target.read_area(9), 0x3FFC);
    target.erase({.program = true, .config = true});
    EXPECT_EQ(target.read_area(8), 0x2149);
    target.erase({.config = true, .calibration = true});
    EXPECT_EQ(target.read_area(8), 0x3FFF);
    EXPECT_EQ(target.read_area(9), 0x3FFF);
}

TEST(SimulatedTarget, a_second_configuration_word_stands_before_the_calibration) {
    auto facts = facts_16f877a();
    facts.name = "PIC16F887";
    facts.config_present[1] = true;
    facts.config_default[1] = 0x3FFF;
    facts.config_mask[1] = 0x0700;
    facts.config_force[1] = 0x38FF;
    auto target = blank_target(facts);
    target.write_area(8, 0x0100);
    EXPECT_EQ(target.read_area(8), 0x39FF);
    EXPECT_EQ(target.read_area(9), 0x2149);
}

TEST(SimulatedTarget, twelve_bit_parts_lie_in_one_line_with_the_configuration_in_front) {
    auto target = blank_target(facts_10f200());
    EXPECT_EQ(target.core, Core::Bits12);
    EXPECT_EQ(target.read_line(0), 0x0FFF);
    EXPECT_EQ(target.read_line(1), 0x0FFF);
    EXPECT_EQ(target.read_line(256), 0x0C74);  // OSCCAL, the last program word
    EXPECT_EQ(target.read_line(257), 0x0FFF);  // ID
    EXPECT_EQ(target.read_line(261), 0x0C74);  // backup OSCCAL
    target.write_line(0, 0x0FFB, WordWrite::ClearsBits);
    target.write_line(258, 0x0FF3, WordWrite::ClearsBits);
    EXPECT_EQ(target.read_line(0), 0x0FFB);
    EXPECT_EQ(target.id[1], 0x0FF3);
    target.erase({.program = true, .config = true, .calibration = true});
    EXPECT_EQ(target.read_line(256), 0x0FFF);
    EXPECT_EQ(target.read_line(261), 0x0FFF);
}

TEST(SimulatedTarget, pic18_memories_are_read_by_byte_address) {
    auto target = blank_target(facts_18f2550());
    target.write_byte(2, 0x34);
    target.write_byte(3, 0x12);
    target.write_byte(0x200001, 0x05);
    target.write_byte(0x300001, 0x0E);
    EXPECT_EQ(target.read_program(1), 0x1234);
    EXPECT_EQ(target.read_byte(2), 0x34);
    EXPECT_EQ(target.read_byte(0x200001), 0x05);
    EXPECT_EQ(target.read_byte(0x300001), 0x0E);
    EXPECT_EQ(target.read_byte(0x300000), 0x00);
    EXPECT_EQ(target.read_byte(0x3FFFFE), 0x42);
    EXPECT_EQ(target.read_byte(0x3FFFFF), 0x12);
}

TEST(SimulatedTarget, pic18_protection_is_apart_for_program_memory_and_eeprom) {
    auto target = blank_target(facts_18f2550());
    target.write_byte(0x300009, 0x40);  // CPD
    EXPECT_FALSE(target.program_protected());
    EXPECT_TRUE(target.eeprom_protected());
    EXPECT_EQ(target.read_byte(0), 0xFF);
    EXPECT_EQ(target.read_eeprom(0), 0);
    target.write_byte(0x300008, 0x0E);
    EXPECT_TRUE(target.program_protected());
    EXPECT_EQ(target.read_byte(0), 0);
}

}  // namespace
}  // namespace quillon
