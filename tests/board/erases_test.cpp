// SPDX-License-Identifier: MIT
// The erases: what each mode takes, and which part knows which.
#include <gtest/gtest.h>

#include "board_driver.h"

namespace quillon {
namespace {

using namespace std::chrono_literals;
using test::Driver;
using test::facts_16f877a;

struct ModeCase {
    int mode;
    bool program, eeprom, config, calibration;
};

TEST(erase_exchange, each_mode_takes_its_areas) {
    for (const auto& expected : {
             ModeCase{0x01, true, false, true, false},
             ModeCase{0x02, true, false, false, false},
             ModeCase{0x03, false, true, false, false},
             ModeCase{0x07, true, true, true, false},
             ModeCase{0x08, true, false, false, false},
             ModeCase{0x0A, true, true, true, false},
             ModeCase{0x0B, true, false, false, false},
             ModeCase{0x0C, false, true, false, false},
             ModeCase{0x0E, true, false, true, false},
             ModeCase{0x0F, false, true, false, false},
             ModeCase{0x12, true, true, true, true},
             ModeCase{0x13, true, true, true, true},
             ModeCase{0x14, true, true, true, true},
         }) {
        Driver host{facts_16f877a()};
        auto& target = host.board.target();
        target.program[9] = 0, target.eeprom[9] = 0, target.config[0] = 0x3FF0;
        target.id[0] = 1, target.calibration = {0x2149};
        host.command("nbd", {expected.mode});
        EXPECT_EQ(host.reply(), "40");
        EXPECT_EQ(target.program[9] == 0x3FFF, expected.program) << expected.mode;
        EXPECT_EQ(target.eeprom[9] == 0xFF, expected.eeprom) << expected.mode;
        EXPECT_EQ(target.config[0] == 0x3FFF, expected.config) << expected.mode;
        EXPECT_EQ(target.id[0] == 0x3FFF, expected.config) << expected.mode;
        EXPECT_EQ(target.calibration[0] == 0x3FFF, expected.calibration) << expected.mode;
    }
}

TEST(erase_exchange, ends_when_the_pulse_is_over) {
    Driver host{facts_16f877a(), {.erase = 30ms}};
    host.command("nbd");
    host.send(0x0A);
    host.wait(29ms);
    EXPECT_EQ(host.reply(), "");
    host.wait(1ms);
    EXPECT_EQ(host.reply(), "40");
}

TEST(erase_exchange, a_mode_that_there_is_not_gets_silence) {
    Driver host{facts_16f877a()};
    host.command("nbd", {0x55});
    EXPECT_EQ(host.reply(), "");
    ASSERT_EQ(host.board.notes().size(), 1u);
    EXPECT_EQ(host.board.notes()[0], "\"bd\": there is no erase mode 0x55");
}

TEST(erase_exchange, a_module_is_erased_by_its_own_algorithm) {
    auto facts = facts_16f877a();
    facts.name = "ZQ-LDR412A";
    Driver host{facts};
    host.board.target().program[0] = 0;
    host.command("nbd", {0x0A});
    EXPECT_EQ(host.reply(), "40");
    EXPECT_EQ(host.board.target().program[0], 0);
    EXPECT_EQ(host.board.notes().back(), "\"bd\": ZQ-LDR412A is erased by \"D\"");
    host.command("nbD", {0x0A});
    EXPECT_EQ(host.board.target().program[0], 0x3FFF);
}

TEST(erase_exchange, a_catalogue_device_of_the_modules_type_has_the_letter_D_too) {
    auto facts = facts_16f877a();
    facts.name = "PIC16LDR";
    facts.type = "LDR412";
    Driver host{facts};
    auto& target = host.board.target();
    target.program[0] = 0, target.eeprom[0] = 0, target.config[0] = 0x3FF0;
    host.command("NbD", {0x02});
    EXPECT_EQ(target.program[0], 0x3FFF);
    EXPECT_EQ(target.eeprom[0], 0);
    host.command("NbD", {0x03});
    EXPECT_EQ(target.eeprom[0], 0xFF);
    EXPECT_EQ(target.config[0], 0x3FF0);
    host.command("NbD", {0x0A});
    EXPECT_EQ(target.config[0], 0x3FFF);
    EXPECT_EQ(host.reply(), "40 40 40");
    EXPECT_TRUE(host.board.notes().empty());
}

TEST(erase_exchange, a_part_without_area_erases_reacts_to_the_chip_erase_only) {
    auto facts = facts_16f877a();
    facts.name = "PIC16F73";
    facts.type = "FLASH2";
    for (const int mode : {0x01, 0x02, 0x08, 0x0B, 0x0C}) {
        Driver host{facts};
        host.board.target().program[0] = 0;
        host.command("Nbd", {mode});
        EXPECT_EQ(host.reply(), "40");
        EXPECT_EQ(host.board.target().program[0], 0) << mode;
        ASSERT_EQ(host.board.notes().size(), 1u) << mode;
        EXPECT_EQ(host.board.notes()[0],
                  "\"bd\": PIC16F73 has no erase but that of the whole chip, 0x0A");
    }
    Driver host{facts};
    host.board.target().program[0] = 0;
    host.command("Nbd", {0x0A});
    EXPECT_EQ(host.reply(), "40");
    EXPECT_EQ(host.board.target().program[0], 0x3FFF);
    EXPECT_TRUE(host.board.notes().empty());
}

TEST(erase_exchange, a_one_time_part_is_not_erased_and_that_is_noted) {
    auto facts = facts_16f877a();
    facts.name = "PIC16C74";
    facts.type = "EPROM";
    Driver host{facts};
    host.board.target().program[0] = 0;
    host.command("Nbd", {0x0A});
    EXPECT_EQ(host.reply(), "40");
    EXPECT_EQ(host.board.target().program[0], 0);
    EXPECT_EQ(host.board.notes(),
              (std::vector<std::string>{"\"bd\": PIC16C74 can't be erased by the board"}));
}

TEST(erase_exchange, the_power_letter_alone_gets_nothing) {
    Driver host{facts_16f877a()};
    host.command("n");
    host.wait(5s);
    EXPECT_EQ(host.reply(), "");
    EXPECT_TRUE(host.board.notes().empty());
    host.command("***?");
    EXPECT_EQ(host.bytes().size(), 18u);
}

}  // namespace
}  // namespace quillon
