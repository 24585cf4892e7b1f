// SPDX-License-Identifier: MIT
// The exchanges of the 12-bit parts: one address range that begins with the configuration word.
#include <gtest/gtest.h>

#include "board_driver.h"

namespace quillon {
namespace {

using test::Driver;
using test::facts_10f200;

TEST(baseline_exchange, the_stream_leads_with_the_configuration_word) {
    Driver host{facts_10f200()};
    host.board.target().config[0] = 0x0FEB;
    host.board.target().program[0] = 0x0025;
    host.command("Nrsp", {0, 3});
    EXPECT_EQ(host.reply(), "0F EB 00 25 0F FF 40");
}

TEST(baseline_exchange, the_configuration_word_alone_is_not_acknowledged) {
    Driver host{facts_10f200()};
    host.command("Nrsc", {0, 1});
    EXPECT_EQ(host.reply(), "0F FF 40");
    host.command("Nrsp", {0, 1});
    EXPECT_EQ(host.reply(), "0F FF 40");
}

TEST(baseline_exchange, the_blank_check_of_p_words_leaves_the_calibration_word_out) {
    Driver host{facts_10f200()};
    host.command("Nbs", {1, 0});
    EXPECT_EQ(host.reply(), "0F FF 40");
    host.command("NbK", {1, 0});
    EXPECT_EQ(host.reply(), "0F FF 40");
    host.command("Nbs", {1, 1});
    EXPECT_EQ(host.reply(), "0C 74 40");
    host.command("Nbs", {1, 5});
    EXPECT_EQ(host.reply(), "0C 74 40");
}

TEST(baseline_exchange, the_blank_check_counts_the_configuration_word_and_does_not_test_it) {
    Driver host{facts_10f200()};
    host.board.target().config[0] = 0x0FEB;
    host.command("Nbs", {1, 0});
    EXPECT_EQ(host.reply(), "0F FF 40");
    host.board.target().program[254] = 0x0FFE;  // the last word that a count of P includes
    host.command("Nbs", {1, 0});
    EXPECT_EQ(host.reply(), "0F FE 40");
    host.command("Nbs", {0, 255});
    EXPECT_EQ(host.reply(), "0F FF 40");
}

TEST(baseline_exchange, the_blank_check_of_p_plus_five_words_reaches_the_last_id_word) {
    Driver host{facts_10f200()};
    auto& target = host.board.target();
    target.program[255] = 0x0FFF;
    target.id[3] = 0x0FF7;
    host.command("Nbs", {1, 4});
    EXPECT_EQ(host.reply(), "0F FF 40");
    host.command("Nbs", {1, 5});
    EXPECT_EQ(host.reply(), "0F F7 40");
}

TEST(baseline_exchange, single_words_are_reached_from_p_plus_one_on) {
    Driver host{facts_10f200()};
    host.board.target().id[0] = 0x0FF7;
    host.board.target().backup_osccal = 0x0C02;
    host.command("Nbr", {1, 1});
    EXPECT_EQ(host.reply(), "0C 74 40");
    host.command("Nbr", {1, 2});
    EXPECT_EQ(host.reply(), "0F F7 40");
    host.command("Nbr", {1, 6});
    EXPECT_EQ(host.reply(), "0C 02 40");
}

TEST(baseline_exchange, the_erase_takes_two_more_bytes_and_the_calibration) {
    Driver host{facts_10f200()};
    host.board.target().program[0] = 0;
    host.command("Nbd", {0x11, 1, 2});
    EXPECT_EQ(host.reply(), "40");
    EXPECT_EQ(host.board.target().program[0], 0x0FFF);
    EXPECT_EQ(host.board.target().program[255], 0x0FFF);
    EXPECT_EQ(host.board.target().backup_osccal, 0x0FFF);
    host.command("NbW", {1, 1, 0x0C, 0x20});
    host.command("NbW", {1, 6, 0x0C, 0x21});
    EXPECT_EQ(host.reply(), "40 40");
    EXPECT_EQ(host.board.target().program[255], 0x0C20);
    EXPECT_EQ(host.board.target().backup_osccal, 0x0C21);
}

TEST(baseline_exchange, one_stream_writes_configuration_program_id_and_backup) {
    Driver host{facts_10f200()};
    host.command("Nbd", {0x11, 1, 2});
    host.reply();
    host.command("NweJ", {1, 6});
    for (int i = 0; i < 262; ++i) {
        EXPECT_EQ(host.reply(), "2B");
        host.item({0x0F, i == 0 ? 0xEB : i % 256});
    }
    EXPECT_EQ(host.reply(), "40");
    const auto& target = host.board.target();
    EXPECT_EQ(target.config[0], 0x0FEB);
    EXPECT_EQ(target.program[0], 0x0F01);
    EXPECT_EQ(target.program[255], 0x0F00);
    EXPECT_EQ(target.id[0], 0x0F01);
    EXPECT_EQ(target.backup_osccal, 0x0F05);
}

TEST(baseline_exchange, the_last_configuration_write_comes_unasked) {
    Driver host{facts_10f200()};
    host.command("NweJ", {0, 1, 0x0F, 0xF7});
    EXPECT_EQ(host.reply(), "40");
    EXPECT_TRUE(host.board.target().program_protected());
    host.command("Nrsp", {0, 2});
    EXPECT_EQ(host.reply(), "0F F7 00 00 40");
}

TEST(baseline_exchange, a_configuration_write_serves_hosts_that_wait_and_hosts_that_do_not) {
    for (const bool waits : {true, false}) {
        auto facts = facts_10f200();
        facts.type = "12C5";
        Driver host{facts};
        host.command("Nwsc", {0, 1});
        if (waits) {
            EXPECT_EQ(host.reply(), "40");
        }
        host.command("", {0x0F, 0xF7});
        EXPECT_EQ(host.reply(), waits ? "40" : "40 40");
        EXPECT_EQ(host.board.target().config[0], 0x0FF7);
    }
}

TEST(baseline_exchange, a_one_time_part_reports_the_word_that_did_not_program) {
    auto facts = facts_10f200();
    facts.type = "12C5";
    Driver host{facts};
    host.board.target().program[0] = 0x0000;
    host.command("Nwsp", {1, 5});
    host.item({0x0F, 0xFF});
    host.reply();
    host.item({0x0A, 0x55});
    EXPECT_EQ(host.reply(), "2A 00 00 40");
}

TEST(baseline_exchange, a_configuration_word_that_does_not_program_is_reported) {
    for (const char* letters : {"Nwps", "Nwsc", "Nwec"}) {
        auto facts = facts_10f200();
        facts.name = "PIC16C5X";
        facts.type = letters == std::string_view{"Nwps"} ? "5X18" : "12C5";
        Driver host{facts};
        host.board.target().config[0] = 0x0FEF;  // the bit is lost for good
        host.command(letters, {0, 1});
        host.reply();
        host.item({0x0F, 0xFF});
        EXPECT_EQ(host.reply(), "2A 0F EF 40") << letters;
    }
}

TEST(baseline_exchange, a_part_without_a_configuration_word_takes_one_without_effect) {
    auto facts = facts_10f200();
    facts.type = "12C5";
    facts.config_present[0] = false;
    Driver host{facts};
    host.command("Nwsc", {0, 1});
    host.item({0x0F, 0xF7});
    EXPECT_EQ(host.reply(), "40 40");
}

TEST(baseline_exchange, the_57_has_the_modules_algorithm_and_its_own_last_write) {
    auto facts = facts_10f200();
    facts.name = "PIC16F57";
    facts.type = "5F28";
    Driver host{facts};
    host.command("Nb8", {0, 5});
    EXPECT_EQ(host.reply(), "0F FF 40");
    host.command("Nr8p", {0, 1});
    EXPECT_EQ(host.reply(), "0F FF 40");
    host.command("NbD", {0x11, 1, 2});
    EXPECT_EQ(host.reply(), "40");
    host.command("Nw5g", {0, 2});
    host.item({0x0F, 0xFF});
    host.item({0x01, 0x23});
    EXPECT_EQ(host.reply(), "2B 2B 40");
    host.command("Nb5", {0, 1, 0x0F, 0xF7});
    EXPECT_EQ(host.reply(), "40");
    EXPECT_EQ(host.board.target().config[0], 0x0FF7);
    EXPECT_TRUE(host.board.notes().empty());
}

}  // namespace
}  // namespace quillon
