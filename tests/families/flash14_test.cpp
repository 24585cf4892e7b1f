// SPDX-License-Identifier: MIT
// The rows of the 14-bit modules, printed and compared with a table written by hand, and the
// conditions that every row must meet.
#include "families/flash14.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "board/part_facts.h"

namespace quillon::test {

namespace {

// "G","e" for "Ge".
std::string letters(std::string_view word) {
    std::string shown;
    for (const char letter : word) {
        if (!shown.empty()) shown += ' ';
        shown += letter;
    }
    return shown;
}

std::string erase_name(std::span<const Step> steps) {
    if (steps.data() == steps14::kChipEep.data()) return "two-step";
    if (steps.data() == steps14::kCfgPgmEep.data()) return "three-step";
    return "?";
}

std::string counts_of(const ConfigCounts& counts) {
    return fmt::format("{} {} {} {} {}", counts.blank, counts.read, counts.verify, counts.check,
                       counts.write);
}

std::string line_of(const Module14& row) {
    const auto& wire = row.areas.letters;
    const auto& erase = row.areas.erase;
    return fmt::format(
        "{:<10} | w {}     | w {}     | w {}     | {}    | {}   | {:>2}, {:>2}, {:>2}"
        "     | {:<10} | {} | {:04X} | {}\n",
        name_of(row.module), letters(wire.write_pgm), letters(wire.write_eep),
        letters(wire.write_cfg), wire.read, letters(wire.erase), erase.chip, erase.pgm, erase.eep,
        erase_name(row.operation.erase), counts_of(row.areas.config), row.areas.blank_word,
        row.areas.texts == &kAreas14Texts ? "template" : "own");
}

}  // namespace

TEST(modules14, set_their_rows_apart_as_in_this_table) {
    std::string table;
    for (const auto& row : modules14()) table += line_of(row);

    // Module, Write_Pgm, Write_Eep, Write_Cfg, second letter of reads, erase letters, modes of
    // chip, program and EEPROM erase, Erase_All, words of the "c" area (blank, read, verify, check,
    // write), blank word, texts.
    EXPECT_EQ(table,
              "PIC16F877  | w e 8     | w e d     | w e c     | s    | b d   |  1,  1,  3     | "
              "two-step   | 8 8 8 8 8 | 3FFF | template\n"
              "PIC16F877A | w G e     | w e d     | w F c     | s    | b d   | 10, 11, 12     | "
              "three-step | 8 8 8 8 8 | 3FFF | template\n");
}

TEST(modules14, know_every_device_of_their_module_by_the_identity_that_the_part_has) {
    for (const auto& row : modules14()) {
        const auto names = devices_of(row.module);
        EXPECT_EQ(row.areas.devices.size(), names.size()) << name_of(row.module);
        for (const auto& device : row.areas.devices) {
            EXPECT_NE(std::ranges::find(names, device.name), names.end()) << device.name;
            EXPECT_EQ(device.id, part_facts(device.name).identity >> 5) << device.name;
        }
    }
}

TEST(modules14, hold_each_module_once) {
    std::set<Module> seen;
    for (const auto& row : modules14()) EXPECT_TRUE(seen.insert(row.module).second);
}

TEST(is_sound, finds_a_record_with_a_missing_letter_an_unnamed_or_a_doubled_device) {
    constexpr std::array kDevices{Device14{"A", 1}, Device14{"B", 2}};
    constexpr std::array kTwice{Device14{"A", 1}, Device14{"A", 2}};
    constexpr std::array kUnnamed{Device14{"", 1}};
    constexpr std::array kNoIdentity{Device14{"A", 0}};
    EXPECT_TRUE(is_sound({.devices = kDevices}));
    EXPECT_FALSE(is_sound({}));
    EXPECT_FALSE(is_sound({.devices = kTwice}));
    EXPECT_FALSE(is_sound({.devices = kUnnamed}));
    EXPECT_FALSE(is_sound({.devices = kNoIdentity}));
    EXPECT_FALSE(is_sound({.devices = kDevices, .letters = {.write_cfg = "e"}}));
    EXPECT_FALSE(is_sound({.devices = kDevices, .letters = {.erase = ""}}));
}

}  // namespace quillon::test
