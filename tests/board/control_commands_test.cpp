// SPDX-License-Identifier: MIT
// The command loop: identification, delay, power, the call from any state, pacing.
#include <gtest/gtest.h>

#include "board_driver.h"

namespace quillon {
namespace {

using namespace std::chrono_literals;
using test::Driver;
using test::facts_16f877a;

constexpr const char* kIdentityBytes = "5A 51 2D 4C 44 52 34 31 32 41 20 56 36 2E 38 30 0D 0A";

TEST(SimulatedBoard, identifies_itself_with_sixteen_characters_and_a_line_end) {
    Driver host{facts_16f877a()};
    host.command("?");
    EXPECT_EQ(host.reply(), kIdentityBytes);
    host.board.set_identity("ZQ-LDR412  V6.75");
    host.command("?");
    EXPECT_EQ(host.reply(), "5A 51 2D 4C 44 52 34 31 32 20 20 56 36 2E 37 35 0D 0A");
}

TEST(SimulatedBoard, says_nothing_to_the_resynchronisation) {
    Driver host{facts_16f877a()};
    host.command("***");
    EXPECT_EQ(host.reply(), "");
    host.command("?");
    EXPECT_EQ(host.reply(), kIdentityBytes);
}

TEST(SimulatedBoard, sets_the_delay_and_echoes_it) {
    Driver host{facts_16f877a()};
    host.command("mD", {42});
    EXPECT_EQ(host.reply(), "2A");
    EXPECT_EQ(host.board.power_delay(), 42);
}

TEST(SimulatedBoard, holds_the_target_powered_until_it_is_switched_off) {
    Driver host{facts_16f877a()};
    host.command("nP");
    EXPECT_TRUE(host.board.target_powered());
    host.command("p");
    EXPECT_FALSE(host.board.target_powered());
    host.command("NP");
    EXPECT_TRUE(host.board.target_powered());
    host.command("***");
    EXPECT_FALSE(host.board.target_powered());
    EXPECT_EQ(host.reply(), "");
}

TEST(SimulatedBoard, powers_the_target_down_at_the_end_of_an_exchange) {
    Driver host{facts_16f877a()};
    host.command("n");
    EXPECT_TRUE(host.board.target_powered());
    host.command("bs", {0, 1});
    EXPECT_EQ(host.reply(), "3F FF 40");
    EXPECT_FALSE(host.board.target_powered());
}

TEST(SimulatedBoard, an_unknown_letter_is_met_with_silence_until_the_next_star) {
    Driver host{facts_16f877a()};
    host.command("nz?");
    host.command("?");
    EXPECT_EQ(host.reply(), "");
    ASSERT_EQ(host.board.notes().size(), 1u);
    EXPECT_EQ(host.board.notes()[0], "\"z\" is no command of this board");
    host.command("***?");
    EXPECT_EQ(host.reply(), kIdentityBytes);
}

TEST(SimulatedBoard, names_the_whole_command_that_it_does_not_know) {
    Driver host{test::facts_18f2550()};
    for (const char* command : {"nwzz", "nrsx", "nbz", "mX", "nXrsz", "nXz", "y"}) {
        host.command(command);
        host.command("***");
    }
    EXPECT_EQ(host.board.notes(),
              (std::vector<std::string>{
                  "\"wzz\" is no command of this board", "\"rsx\" is no command of this board",
                  "\"bz\" is no command of this board", "\"mX\" is no command of this board",
                  "\"Xrsz\" is no command of this board", "\"Xz\" is no command of this board",
                  "\"y\" is no command of this board"}));
}

TEST(SimulatedBoard, a_letter_one_millisecond_after_the_last_is_in_time) {
    Driver host{facts_16f877a()};
    for (const char c : std::string_view{"nbs"}) {
        host.send(static_cast<std::uint8_t>(c));
        host.wait(1ms);
    }
    host.send(0);
    host.wait(1ms);
    host.send(1);
    EXPECT_EQ(host.reply(), "3F FF 40");
    EXPECT_TRUE(host.board.notes().empty());
}

TEST(SimulatedBoard, a_letter_that_comes_sooner_breaks_the_pacing) {
    Driver host{facts_16f877a()};
    host.send('n');
    host.wait(999us);
    host.send('b');
    host.wait(1ms);
    host.command("s", {0, 1});
    EXPECT_EQ(host.reply(), "");
    ASSERT_EQ(host.board.notes().size(), 1u);
    EXPECT_EQ(host.board.notes()[0],
              "0x62 came 999 us after the byte before it: letters and parameters need 1000");
}

TEST(SimulatedBoard, a_parameter_that_comes_sooner_breaks_the_pacing) {
    Driver host{facts_16f877a()};
    host.command("nbs");
    host.send(0);
    host.send(1);
    EXPECT_EQ(host.reply(), "");
    EXPECT_EQ(host.board.notes().size(), 1u);
}

TEST(SimulatedBoard, does_not_look_at_the_pacing_where_it_is_told_not_to) {
    Driver host{facts_16f877a()};
    host.board.times().letter_gap = {};
    for (const int byte : {int{'n'}, int{'b'}, int{'s'}, 0, 1})
        host.send(static_cast<std::uint8_t>(byte));
    EXPECT_EQ(host.reply(), "3F FF 40");
}

TEST(SimulatedBoard, is_called_out_of_a_read_that_waits_for_its_acknowledge) {
    Driver host{facts_16f877a()};
    host.command("nrsp", {0x20, 0});
    EXPECT_EQ(host.bytes().size(), 16u);
    host.command("***?");
    EXPECT_EQ(host.reply(), kIdentityBytes);
}

TEST(SimulatedBoard, is_called_out_of_a_write_with_nothing_written) {
    Driver host{facts_16f877a()};
    host.command("nwGe", {0, 2});
    EXPECT_EQ(host.reply(), "2B");
    host.command("***?");
    EXPECT_EQ(host.reply(), kIdentityBytes);
    EXPECT_EQ(host.board.target().program[0], 0x3FFF);
}

TEST(SimulatedBoard, is_called_out_of_a_command_that_was_left_half_sent) {
    // Wherever a command stops: two "*" may pass for parameters, the third never does.
    for (const auto* letters : {"n", "nb", "nbw", "m", "mD", "nX", "nXr"}) {
        Driver host{facts_16f877a()};
        host.command(letters);
        host.command("***?");
        host.bytes();
        host.command("***?");
        EXPECT_EQ(host.reply(), kIdentityBytes) << letters;
    }
}

TEST(SimulatedBoard, is_called_out_of_a_long_pulse) {
    Driver host{facts_16f877a(), {.erase = 10s}};
    host.command("nbd", {0x0A});
    EXPECT_EQ(host.reply(), "");
    host.command("***?");
    EXPECT_EQ(host.reply(), kIdentityBytes);
    host.wait(20s);
    EXPECT_EQ(host.reply(), "");
}

TEST(SimulatedBoard, an_item_of_stars_is_data) {
    Driver host{facts_16f877a()};
    host.command("nwGe", {0, 3});
    for (int i = 0; i < 3; ++i) host.item({'*', '*'});
    EXPECT_EQ(host.reply(), "2B 2B 2B 40");
    EXPECT_EQ(host.board.target().program[2], 0x2A2A);
}

TEST(SimulatedBoard, an_item_that_begins_with_a_star_is_data) {
    Driver host{facts_16f877a()};
    host.command("nwGe", {0, 1});
    host.send('*');
    host.wait(174us);  // a byte's time at 57600 baud
    host.send(0x05);
    EXPECT_EQ(host.reply(), "2B 40");
    EXPECT_EQ(host.board.target().program[0], 0x2A05);
}

TEST(SimulatedBoard, stars_that_come_in_one_go_call_it_after_a_while) {
    // As from a host whose bytes a scheduler has held up and then delivered together.
    Driver host{facts_16f877a(), {.erase = 10s}};
    host.command("nbd", {0x0A});
    host.item({'*', '*', '*'});
    host.wait(19ms);
    EXPECT_EQ(host.reply(), "");
    host.wait(1ms);
    host.board.run_until(host.now);
    host.command("?");
    EXPECT_EQ(host.reply(), kIdentityBytes);
}

TEST(SimulatedBoard, passes_over_an_acknowledge_that_comes_after_the_end) {
    Driver host{facts_16f877a()};
    host.command("@@?");
    EXPECT_EQ(host.reply(), kIdentityBytes);
    EXPECT_TRUE(host.board.notes().empty());
}

}  // namespace
}  // namespace quillon
