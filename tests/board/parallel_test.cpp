// SPDX-License-Identifier: MIT
// The exchanges of the 12-bit parts that are read and written in parallel, of 18 and of 28 pins.
#include <gtest/gtest.h>

#include "board_driver.h"

namespace quillon {
namespace {

using test::Driver;
using test::facts_10f200;

TEST(parallel_exchange, has_the_letter_p_and_a_blank_reply_of_two_words) {
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

TEST(parallel_exchange, a_part_answers_to_the_letters_of_its_size_only) {
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

TEST(parallel_exchange, asks_for_the_configuration_word_that_comes_alone) {
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

TEST(parallel_exchange, the_configuration_word_can_be_refused_at_once) {
    for (const char* letters : {"wps", "wsc"}) {
        auto facts = facts_10f200();
        facts.name = "PIC16C5X";
        facts.type = letters == std::string_view{"wps"} ? "5X18" : "12C5";
        Driver host{facts};
        host.board.add_fault("abort-write:0");
        host.command(std::string{"N"} + letters, {0, 1});
        EXPECT_EQ(host.reply(), "2A 00 00 40") << letters;
        EXPECT_EQ(host.board.target().config[0], 0x0FFF) << letters;
    }
}

TEST(parallel_exchange, bits_without_a_function_are_no_failure_of_the_configuration_word) {
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

TEST(parallel_exchange, one_stream_has_configuration_program_and_four_id_words) {
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

TEST(parallel_exchange, a_protected_one_time_part_takes_no_word) {
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

}  // namespace
}  // namespace quillon
