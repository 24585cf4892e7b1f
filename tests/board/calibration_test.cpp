// SPDX-License-Identifier: MIT
// 14-bit parts whose last program word and configuration word hold the factory's calibration.
#include <gtest/gtest.h>

#include "board_driver.h"

namespace quillon {
namespace {

using test::Driver;

// PIC12F675 as the catalogue has it.
TargetFacts facts_12f675() {
    TargetFacts facts;
    facts.name = "PIC12F675";
    facts.type = "12F6";
    facts.program_words = 1024;
    facts.eeprom_cells = 128;
    facts.config_present[0] = true;
    facts.config_default[0] = 0x31FF;
    facts.config_mask[0] = 0x31FF;
    facts.protect_mask = 0x0080;
    return facts;
}

TargetFacts facts_12c672() {
    TargetFacts facts;
    facts.name = "PIC12C672";
    facts.type = "12C6";
    facts.program_words = 2048;
    facts.config_present[0] = true;
    facts.config_default[0] = 0x3FFF;
    facts.config_mask[0] = 0x3FFF;
    facts.protect_mask = 0x3F60;
    return facts;
}

TEST(calibration_word, is_left_out_of_the_blank_test_so_that_a_fresh_part_is_blank) {
    Driver flash{facts_12f675()};
    flash.command("nbs", {0x04, 0x00});
    EXPECT_EQ(flash.reply(), "3F FF 40");
    Driver one_time{facts_12c672()};
    one_time.command("nbs", {0x08, 0x00});
    EXPECT_EQ(one_time.reply(), "3F FF 40");
}

TEST(calibration_word, is_the_only_word_that_the_blank_test_leaves_out) {
    Driver host{facts_12f675()};
    host.board.target().program[1022] = 0x3FF0;
    host.command("nbs", {0x04, 0x00});
    EXPECT_EQ(host.reply(), "3F F0 40");
}

TEST(calibration_word, is_read_and_written_at_the_address_that_is_the_number_of_words) {
    Driver host{facts_12f675()};
    host.command("nbr", {0x04, 0x00});
    EXPECT_EQ(host.reply(), "34 74 40");
    host.board.target().program[1023] = 0x3FFF;
    host.command("nbw", {0x04, 0x00, 0x34, 0x5A});
    EXPECT_EQ(host.reply(), "40");
    EXPECT_EQ(host.board.target().program[1023], 0x345A);
    EXPECT_EQ(host.board.target().program[1022], 0x3FFF);

    Driver one_time{facts_12c672()};
    one_time.command("nbr", {0x08, 0x00});
    EXPECT_EQ(one_time.reply(), "34 74 40");
}

TEST(calibration_word, stays_readable_on_a_protected_part) {
    for (const auto& facts : {facts_12f675(), facts_12c672()}) {
        Driver host{facts};
        auto& target = host.board.target();
        target.config[0] = static_cast<std::uint16_t>(target.config[0] & ~facts.protect_mask);
        const int words = static_cast<int>(facts.program_words);
        host.command("nbr", {words / 256, words % 256});
        EXPECT_EQ(host.reply(), "34 74 40") << facts.name;
        host.command("nbr", {0, 1});
        EXPECT_EQ(host.reply(), "00 00 40") << facts.name;
        host.command("nrsp", {words / 256, words % 256});
        const auto all = host.stream(2 * facts.program_words + 1);
        ASSERT_EQ(all.size(), 2 * facts.program_words + 1);
        EXPECT_EQ(all[all.size() - 5] << 8 | all[all.size() - 4], 0x0000) << facts.name;
        EXPECT_EQ(all[all.size() - 3] << 8 | all[all.size() - 2], 0x3474) << facts.name;
    }
}

TEST(calibration_word, is_erased_with_program_memory_and_can_be_written_back) {
    for (const int mode : {0x08, 0x0A}) {
        Driver host{facts_12f675()};
        host.command("nbd", {mode});
        EXPECT_EQ(host.reply(), "40");
        EXPECT_EQ(host.board.target().program[1023], 0x3FFF) << mode;
        host.command("nbw", {0x04, 0x00, 0x34, 0x74});
        EXPECT_EQ(host.reply(), "40");
        host.command("nbr", {0x04, 0x00});
        EXPECT_EQ(host.reply(), "34 74 40") << mode;
    }
}

TEST(calibration_word, is_kept_by_the_erase_of_the_eeprom) {
    Driver host{facts_12f675()};
    host.command("nbd", {0x0C});
    EXPECT_EQ(host.reply(), "40");
    EXPECT_EQ(host.board.target().program[1023], 0x3474);
}

TEST(band_gap_bits, come_from_the_factory_with_a_value_of_their_own) {
    Driver host{facts_12f675()};
    host.command("nrsc", {0, 8});
    EXPECT_EQ(host.reply(), "3F FF 3F FF 3F FF 3F FF 3F FF 3F FF 0F C2 21 FF");
}

TEST(band_gap_bits, are_lost_by_a_chip_erase_and_kept_by_the_erase_of_program_memory) {
    Driver host{facts_12f675()};
    host.command("nbd", {0x08});
    EXPECT_EQ(host.board.target().config[0], 0x21FF);
    host.command("nbd", {0x0A});
    EXPECT_EQ(host.board.target().config[0], 0x31FF);
}

TEST(band_gap_bits, are_set_by_a_write_of_the_configuration_area) {
    for (const int value : {0x0, 0x1, 0x2, 0x3}) {
        Driver host{facts_12f675()};
        host.command("nwec", {0, 8});
        for (int i = 0; i < 4; ++i) host.item({0x3F, 0xFF});
        for (int i = 0; i < 3; ++i) host.item({0x80, 0x00});
        host.item({value << 4 | 0x01, 0xFF});
        EXPECT_EQ(host.reply(), "2B 2B 2B 2B 2B 2B 2B 2B 40") << value;
        EXPECT_EQ(host.board.target().config[0], value << 12 | 0x01FF);
    }
}

}  // namespace
}  // namespace quillon
