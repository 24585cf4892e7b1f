// SPDX-License-Identifier: MIT
// A command that the host doesn't finish: it is dropped, but a stream may wait for ever.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "board_driver.h"

namespace quillon {
namespace {

using namespace std::chrono_literals;
using test::Driver;
using test::facts_16f877a;

constexpr const char* kIdentityBytes = "5A 51 2D 4C 44 52 34 31 32 41 20 56 36 2E 38 30 0D 0A";

TEST(stalled_command, is_dropped_after_a_second_wherever_it_stalls) {
    for (const auto* letters : {"n", "nb", "nbs", "nbw", "nbd", "nbps", "nr", "nrs", "nrsp", "nw",
                                "nwG", "nwGe", "m", "mD", "nX", "nXr", "nXrsp", "nXbd", "nb5"}) {
        Driver host{test::facts_18f2550()};
        host.command(letters);
        host.wait(999ms);  // a second with the millisecond after the last letter
        host.command("?");
        EXPECT_EQ(host.reply(), kIdentityBytes) << letters;
        EXPECT_FALSE(host.board.target_powered()) << letters;
        EXPECT_TRUE(host.board.notes().empty()) << letters;
    }
}

TEST(stalled_command, is_dropped_among_its_parameters_too) {
    for (const auto& parameters : {std::vector{0}, std::vector{0, 1}, std::vector{0, 1, 0x34}}) {
        Driver host{facts_16f877a()};
        host.command("nbw");
        for (const int byte : parameters) host.paced(static_cast<std::uint8_t>(byte));
        host.wait(999ms);
        host.command("?");
        EXPECT_EQ(host.reply(), kIdentityBytes) << parameters.size();
        EXPECT_EQ(host.board.target().program[0], 0x3FFF);
    }
}

TEST(stalled_command, goes_on_when_the_next_byte_comes_within_the_second) {
    Driver host{facts_16f877a()};
    for (const int byte : {int{'n'}, int{'b'}, int{'s'}, 0}) {
        host.send(static_cast<std::uint8_t>(byte));
        host.wait(999ms);
    }
    host.send(1);
    EXPECT_EQ(host.reply(), "3F FF 40");
}

TEST(stalled_command, leaves_no_letters_to_the_next_command) {
    Driver host{facts_16f877a()};
    host.command("nw");
    host.wait(1001ms);
    host.command("nbs", {0, 1});
    EXPECT_EQ(host.reply(), "3F FF 40");
    host.command("nz");
    EXPECT_EQ(host.board.notes(), (std::vector<std::string>{"\"z\" is no command of this board"}));
}

TEST(stalled_command, switches_the_target_off_when_it_is_dropped) {
    Driver host{facts_16f877a()};
    host.command("n");
    EXPECT_TRUE(host.board.target_powered());
    EXPECT_EQ(host.board.next_event(), host.now - 1ms + 1s);
    host.wait(1s);
    host.board.run_until(host.now);
    EXPECT_FALSE(host.board.target_powered());
}

TEST(stalled_command, is_none_that_waits_for_an_item_or_an_acknowledge) {
    Driver host{facts_16f877a()};
    host.command("nrsp", {0, 9});
    EXPECT_EQ(host.bytes().size(), 16u);
    host.wait(1h);
    host.send('@');
    EXPECT_EQ(host.reply(), "3F FF 40");

    host.command("nwGe", {0, 1});
    EXPECT_EQ(host.reply(), "2B");
    host.wait(1h);
    host.send(0x28);
    host.wait(1h);
    host.send(0x05);
    EXPECT_EQ(host.reply(), "40");
    EXPECT_EQ(host.board.target().program[0], 0x2805);
}

TEST(stalled_command, is_none_that_holds_the_power) {
    Driver host{facts_16f877a()};
    host.command("nP");
    host.wait(1h);
    host.board.run_until(host.now);
    EXPECT_TRUE(host.board.target_powered());
}

}  // namespace
}  // namespace quillon
