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

TEST(baseline_exchange, parallel_parts_have_the_letter_p_and_a_reply_of_two_words) {
    auto facts = facts_10f200();
    facts.name = "PIC16C54";
    facts.type = "5X18";
    Driver host{facts};
    host.board.target().config[0] = 0x0FFC;
    host.board.target().program[0] = 0x0FF1;
    host.command("Nbps", {1, 5});
    EXPECT_EQ(host.reply(), "0F FC 0F F1 40");
    host.command("Nrps", {0, 2});
    EXPECT_EQ(host.reply(), "0F FC 0F F1 40");
    host.command("Nrps", {0, 1});
    EXPECT_EQ(host.reply(), "0F FC 40");
    host.command("Nwps", {0, 2});
    host.item({0x0F, 0xFF});
    host.item({0x0F, 0x01});
    EXPECT_EQ(host.reply(), "2B 2B 40");
    EXPECT_EQ(host.board.target().program[0], 0x0F01);
}

struct ParallelCase {
    const char* type;
    const char* size;
    const char* other;
};

TEST(baseline_exchange, parallel_parts_answer_to_the_letters_of_their_size_only) {
    for (const auto& part : {ParallelCase{"5X18", "s", "l"}, ParallelCase{"5X28", "l", "s"}}) {
        auto facts = facts_10f200();
        facts.name = "PIC16C5X";
        facts.type = part.type;
        Driver host{facts};
        host.command(std::string{"Nrp"} + part.size, {0, 2});
        EXPECT_EQ(host.reply(), "0F FF 0F FF 40") << part.type;
        host.command(std::string{"Nbp"} + part.size, {1, 5});
        EXPECT_EQ(host.reply(), "0F FF 0F FF 40") << part.type;
        EXPECT_TRUE(host.board.notes().empty());
        host.command(std::string{"Nrp"} + part.other, {0, 2});
        EXPECT_EQ(host.reply(), "00 00 00 00 40") << part.type;
        host.command(std::string{"Nbp"} + part.other, {1, 5});
        EXPECT_EQ(host.reply(), "00 00 00 00 40") << part.type;
        EXPECT_EQ(host.board.notes().size(), 2u) << part.type;
        host.command(std::string{"Nwp"} + part.other, {1, 5});
        EXPECT_EQ(host.reply(), "2B") << part.type;
        host.item({0x0F, 0xF7});
        EXPECT_EQ(host.reply(), "2A 00 00 40") << part.type;
        EXPECT_EQ(host.board.target().config[0], 0x0FFF) << part.type;
        EXPECT_EQ(host.board.notes().back(),
                  fmt::format("\"wp{}\": PIC16C5X isn't written by these letters", part.other));
    }
}

TEST(baseline_exchange, a_parallel_part_is_asked_for_its_configuration_word) {
    for (const char* type : {"5X18", "5X28"}) {
        auto facts = facts_10f200();
        facts.name = "PIC16C5X";
        facts.type = type;
        Driver host{facts};
        host.command(type == std::string_view{"5X18"} ? "Nwps" : "Nwpl", {0, 1});
        EXPECT_EQ(host.reply(), "2B") << type;
        host.item({0x0F, 0xF7});
        EXPECT_EQ(host.reply(), "40") << type;
        EXPECT_EQ(host.board.target().config[0], 0x0FF7) << type;
        EXPECT_EQ(host.board.target().program[0], 0x0FFF) << type;
    }
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

TEST(baseline_exchange, bits_without_a_function_are_no_failure_of_the_configuration_word) {
    auto facts = facts_10f200();
    facts.name = "PIC16C54";
    facts.type = "5X18";
    facts.config_force[0] = 0x0FF0;
    Driver host{facts};
    host.command("Nwps", {0, 1});
    host.item({0x00, 0x0B});
    EXPECT_EQ(host.reply(), "2B 40");
    EXPECT_EQ(host.board.target().config[0], 0x0FFB);
}

TEST(baseline_exchange, a_parallel_stream_has_configuration_program_and_four_id_words) {
    auto facts = facts_10f200();
    facts.name = "PIC16C54";
    facts.type = "5X18";
    Driver host{facts};
    host.command("Nwps", {1, 5});
    for (int i = 0; i < 261; ++i) {
        EXPECT_EQ(host.reply(), "2B");
        host.item({0x0F, i == 0 ? 0xEF : i % 256});
    }
    EXPECT_EQ(host.reply(), "40");
    const auto& target = host.board.target();
    EXPECT_EQ(target.config[0], 0x0FEF);
    EXPECT_EQ(target.program[0], 0x0F01);
    EXPECT_EQ(target.program[255], 0x0F00);
    EXPECT_EQ(target.id, (std::vector<std::uint16_t>{0x0F01, 0x0F02, 0x0F03, 0x0F04}));
    host.command("Nrps", {1, 5});
    const auto all = host.stream(523);
    ASSERT_EQ(all.size(), 523u);
    EXPECT_EQ(all[1], 0xEF);
    EXPECT_EQ(all[521], 0x04);
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

TEST(baseline_exchange, a_protected_one_time_part_takes_no_word) {
    auto facts = facts_10f200();
    facts.name = "PIC16C54";
    facts.type = "5X18";
    Driver host{facts};
    host.board.target().config[0] = 0x0FF7;
    host.command("Nwps", {1, 5});
    host.item({0x0F, 0xFF});
    host.reply();
    host.item({0x0A, 0x55});
    EXPECT_EQ(host.reply(), "2A 00 00 40");
    EXPECT_EQ(host.board.target().program[0], 0x0FFF);
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
