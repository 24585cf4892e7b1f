// SPDX-License-Identifier: MIT
// What a fresh part of each programming type is like, and by which letters it is worked on.
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "board_driver.h"

namespace quillon {
namespace {

using test::Driver;

constexpr auto kFlash = ProgramMemory::Flash;
constexpr auto kOneTime = ProgramMemory::OneTime;

struct TypeCase {
    const char* type;
    const char* device;
    std::size_t words, cells;
    Core core;
    ProgramMemory memory;
    char algorithm;
    int blank;      // a program word, and an ID word
    int last_word;  // of program memory
    int number;     // of the device, its identification without revision; 511: it has none
};

constexpr std::array kTypes{
    TypeCase{"5X18", "PIC16C54", 512, 0, Core::Bits12, kOneTime, 'p', 0xFFF, 0xFFF, 511},
    TypeCase{"5X28", "PIC16C57", 2048, 0, Core::Bits12, kOneTime, 'l', 0xFFF, 0xFFF, 511},
    TypeCase{"12C5", "PIC16C505", 1024, 0, Core::Bits12, kOneTime, 's', 0xFFF, 0xC74, 511},
    TypeCase{"10F2", "PIC10F200", 256, 0, Core::Bits12, kFlash, 's', 0xFFF, 0xC74, 511},
    TypeCase{"12C6", "PIC12C672", 2048, 0, Core::Bits14, kOneTime, 's', 0x3FFF, 0x3474, 41},
    TypeCase{"12F6", "PIC12F675", 1024, 128, Core::Bits14, kFlash, 's', 0x3FFF, 0x3474, 126},
    TypeCase{"EPROM", "PIC16C74A", 4096, 0, Core::Bits14, kOneTime, 's', 0x3FFF, 0x3FFF, 511},
    TypeCase{"EPROM2", "PIC16C642", 4096, 0, Core::Bits14, kOneTime, 'S', 0xFFFF, 0xFFFF, 511},
    TypeCase{"FLASH0", "PIC16F84A", 1024, 64, Core::Bits14, kFlash, 's', 0x3FFF, 0x3FFF, 43},
    TypeCase{"FLASH1", "PIC16F628A", 2048, 128, Core::Bits14, kFlash, 's', 0x3FFF, 0x3FFF, 131},
    TypeCase{"FLASH2", "PIC16F73", 4096, 0, Core::Bits14, kFlash, 's', 0x3FFF, 0x3FFF, 48},
    TypeCase{"FLASH4", "PIC16F819", 2048, 256, Core::Bits14, kFlash, 's', 0x3FFF, 0x3FFF, 39},
    TypeCase{"FLASH4.9", "PIC16F88", 4096, 256, Core::Bits14, kFlash, 's', 0x3FFF, 0x3FFF, 59},
    TypeCase{"FLASH8", "PIC16F877A", 8192, 256, Core::Bits14, kFlash, 's', 0x3FFF, 0x3FFF, 113},
    TypeCase{"LDR412", "PIC16LDR", 8192, 256, Core::Bits14, kFlash, '8', 0x3FFF, 0x3FFF, 511},
};

TargetFacts facts_of_type(const TypeCase& part) {
    TargetFacts facts;
    facts.name = part.device;
    facts.type = part.type;
    facts.program_words = part.words;
    facts.eeprom_cells = part.cells;
    const std::uint16_t config = part.core == Core::Bits12 ? 0x0FFF : 0x3FFF;
    facts.config_present[0] = true;
    facts.config_default[0] = config;
    facts.config_mask[0] = config;
    return facts;
}

std::string word_text(int word) { return fmt::format("{:02X} {:02X}", word >> 8, word & 0xFF); }

TEST(blank_target, has_the_words_and_the_algorithm_of_its_type) {
    for (const auto& part : kTypes) {
        const auto target = blank_target(facts_of_type(part));
        EXPECT_EQ(target.core, part.core) << part.type;
        EXPECT_EQ(target.memory, part.memory) << part.type;
        EXPECT_EQ(target.algorithm, part.algorithm) << part.type;
        EXPECT_EQ(target.blank_word, part.blank) << part.type;
        EXPECT_EQ(target.program.size(), part.words) << part.type;
        EXPECT_EQ(target.program.front(), part.blank) << part.type;
        EXPECT_EQ(target.program.back(), part.last_word) << part.type;
        EXPECT_EQ(target.eeprom, std::vector<std::uint8_t>(part.cells, 0xFF)) << part.type;
        const auto blank = static_cast<std::uint16_t>(part.blank);
        EXPECT_EQ(target.id, (std::vector<std::uint16_t>(4, blank))) << part.type;
        EXPECT_EQ(target.identity >> 5, part.number) << part.type;
        EXPECT_TRUE(target.calibration.empty()) << part.type;
    }
}

struct NumberCase {
    const char* device;
    int number;
};

// The devices that no family serves and that have an identification word.
constexpr std::array kNumbers{
    NumberCase{"PIC12C672", 41},   NumberCase{"PIC12CE674", 47},  NumberCase{"PIC16C620A", 36},
    NumberCase{"PIC16C621A", 37},  NumberCase{"PIC16C622A", 39},  NumberCase{"PIC16C63A", 12},
    NumberCase{"PIC16C65B", 14},   NumberCase{"PIC16C67", 30},    NumberCase{"PIC16C73B", 13},
    NumberCase{"PIC16C76", 29},    NumberCase{"PIC16C77", 31},    NumberCase{"PIC12F629", 124},
    NumberCase{"PIC12F675", 126},  NumberCase{"PIC16F627A", 130}, NumberCase{"PIC16F628", 62},
    NumberCase{"PIC16F628A", 131}, NumberCase{"PIC16F630", 134},  NumberCase{"PIC16F648A", 136},
    NumberCase{"PIC16F676", 135},  NumberCase{"PIC16F73", 48},    NumberCase{"PIC16F74", 49},
    NumberCase{"PIC16F76", 50},    NumberCase{"PIC16F77", 51},    NumberCase{"PIC16F819", 39},
    NumberCase{"PIC16F84A", 43},   NumberCase{"PIC16F87", 57},    NumberCase{"PIC16F870", 104},
    NumberCase{"PIC16F871", 105},  NumberCase{"PIC16F872", 71},   NumberCase{"PIC16F88", 59},
};

TEST(blank_target, has_the_number_of_each_device_that_has_one) {
    TypeCase part = kTypes[8];
    for (const auto& [device, number] : kNumbers) {
        part.device = device;
        EXPECT_EQ(blank_target(facts_of_type(part)).identity >> 5, number) << device;
    }
}

TEST(blank_target, knows_which_parts_have_calibration_and_which_only_a_chip_erase) {
    for (const auto& part : kTypes) {
        const std::string type = part.type;
        const auto target = blank_target(facts_of_type(part));
        EXPECT_EQ(target.osccal_word, type == "12F6" || type == "12C6") << type;
        EXPECT_EQ(target.backup_osccal.has_value(), type == "10F2") << type;
        EXPECT_EQ(target.chip_erase_only, type == "FLASH2") << type;
        EXPECT_EQ(target.config[0] == target.config_blank[0], type != "12F6") << type;
    }
}

TEST(blank_target, reads_blank_by_the_letters_of_its_type) {
    for (const auto& part : kTypes) {
        Driver host{facts_of_type(part)};
        const bool parallel = part.algorithm == 'p' || part.algorithm == 'l';
        const std::string letters = part.algorithm == 'p'   ? "ps"
                                    : part.algorithm == 'l' ? "pl"
                                                            : std::string(1, part.algorithm);
        // The calibration word of 12-bit parts is behind the count, that of others is left out.
        host.command("Nb" + letters,
                     {static_cast<int>(part.words / 256), static_cast<int>(part.words % 256)});
        const std::string word = word_text(part.blank);
        EXPECT_EQ(host.reply(), (parallel ? word + " " : "") + word + " 40") << part.type;

        host.command("Nr" + letters + (parallel ? "" : "p"), {0, 2});
        EXPECT_EQ(host.reply(), word + " " + word + " 40") << part.type;
        EXPECT_TRUE(host.board.notes().empty()) << part.type;
    }
}

struct WriteCase {
    const char* type;
    const char* program;  // the letters behind "w"
    const char* config;
    const char* eeprom;  // "" for none
};

// PIC10F200's program letters have their own stream and are tested with it.
constexpr std::array kWrites{
    WriteCase{"5X18", "ps", "ps", ""},       WriteCase{"5X28", "pl", "pl", ""},
    WriteCase{"12C5", "sp", "sc", ""},       WriteCase{"10F2", "eJ", "ec", ""},
    WriteCase{"12C6", "sp", "sc", ""},       WriteCase{"12F6", "ee", "ec", "ed"},
    WriteCase{"EPROM", "sp", "sc", ""},      WriteCase{"EPROM2", "Sp", "Sc", ""},
    WriteCase{"FLASH0", "ef", "ec", "ed"},   WriteCase{"FLASH1", "e8", "ec", "ed"},
    WriteCase{"FLASH2", "Ee", "Ec", ""},     WriteCase{"FLASH4", "He", "Fc", "Id"},
    WriteCase{"FLASH4.9", "He", "Jc", "Id"}, WriteCase{"FLASH8", "Ge", "Fc", "ed"},
    WriteCase{"LDR412", "84", "8c", "8d"},
};

TEST(blank_target, takes_program_configuration_and_eeprom_by_the_letters_of_its_type) {
    ASSERT_EQ(kTypes.size(), kWrites.size());
    for (std::size_t i = 0; i < kTypes.size(); ++i) {
        const auto& part = kTypes[i];
        const auto& letters = kWrites[i];
        ASSERT_STREQ(part.type, letters.type);
        Driver host{facts_of_type(part)};
        auto& target = host.board.target();
        const bool line = part.core == Core::Bits12;
        host.command(std::string{"Nw"} + letters.program, {0, 2});
        host.item({part.blank >> 8, 0xFF});
        host.item({0x01, 0x23});
        EXPECT_EQ(host.reply(), "2B 2B 40") << part.type;
        EXPECT_EQ(target.program[line ? 0 : 1], 0x0123) << part.type;

        host.command(std::string{"Nw"} + letters.config, {0, line ? 1 : 8});
        for (int word = 0; !line && word < 7; ++word) host.item({part.blank >> 8, 0xFF});
        host.item({0x01, 0xF0});
        EXPECT_EQ(host.bytes().back(), '@') << part.type;
        EXPECT_EQ(target.config[0], 0x01F0) << part.type;

        if (*letters.eeprom != '\0') {
            host.command(std::string{"Nw"} + letters.eeprom, {0, 1});
            host.item({0x3F, 0x5A});
            EXPECT_EQ(host.reply(), "2B 40") << part.type;
            EXPECT_EQ(target.eeprom[0], 0x5A) << part.type;
        }
        EXPECT_TRUE(host.board.notes().empty()) << part.type;
    }
}

}  // namespace
}  // namespace quillon
