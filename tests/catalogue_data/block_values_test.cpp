// SPDX-License-Identifier: MIT
// The single-value rows of each block: known keys, values that convert, and the device's facts.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <set>

#include "device_facts.h"
#include "plain_reader.h"

namespace catalogue_data {
namespace {

const std::set<std::string> kPgmTypes{
    "12C5",     "12C6",   "12F6",   "10F2",    "5X18",   "5X28",   "5F18",
    "5F28",     "EPROM",  "EPROM2", "FLASH0",  "FLASH1", "FLASH2", "FLASH4",
    "FLASH4.9", "FLASH8", "LDR412", "LDR412A", "LDR418", "18F_00", "18F_01",
};

// The high byte of every erase word: the core instruction that writes a table.
constexpr std::string_view kTableWrite = "0x0C";
// CALIB of one-time parts, the middle of the register: the makers publish no value for them.
constexpr std::uint32_t kCalibUnknown = 0x80;
constexpr double kBoardVpp = 12.0;  // volts
constexpr double kBoardVdd = 5.0;   // volts

using Check = std::function<bool(const Row&)>;

Check one_of(const std::set<std::string>& allowed) {
    return [allowed](const Row& row) {
        return row.tokens.size() == 2 && allowed.contains(row.tokens[1]);
    };
}

Check up_to(std::uint32_t limit) {
    return [limit](const Row& row) {
        const auto value = row.tokens.size() == 2 ? number(row.tokens[1]) : std::nullopt;
        return value && *value <= limit;
    };
}

bool are_hex_digits(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789ABCDEF") == std::string_view::npos;
}

bool is_two_hex_digits(const Row& row) {
    return row.tokens.size() == 2 && row.tokens[1].size() == 2 && are_hex_digits(row.tokens[1]);
}

// "6.76": one digit, a point, two digits.
bool is_version(const Row& row) {
    if (row.tokens.size() != 2 || row.tokens[1].size() != 4) return false;
    const std::string& text = row.tokens[1];
    return text[1] == '.' &&
           (text[0] + text.substr(2)).find_first_not_of("0123456789") == std::string::npos;
}

bool is_erase_pair(const Row& row) {
    return row.tokens.size() == 3 &&
           std::all_of(row.tokens.begin() + 1, row.tokens.end(), [](const std::string& token) {
               return token.size() == 8 && token.starts_with("0x") &&
                      are_hex_digits(token.substr(2));
           });
}

bool is_three_bytes(const Row& row) {
    return row.tokens.size() == 4 &&
           std::all_of(row.tokens.begin() + 1, row.tokens.end(), [](const std::string& token) {
               const auto value = number(token);
               return value && *value <= 0xFF;
           });
}

bool is_mask(const Row& row) {
    std::size_t at = 1;
    const auto value = take_number(row, at);
    return value && *value <= 0xFFFF && at == row.tokens.size();
}

bool is_comment(const Row& row) { return row.tokens.size() >= 2 && row.tokens.size() <= 6; }

// Every key that may be in a block once, with the check of its value.
const std::map<std::string, Check>& single_keys() {
    static const std::map<std::string, Check> keys = [] {
        std::map<std::string, Check> table{
            {"PGM_TYPE", one_of(kPgmTypes)},
            {"POWER_MODE", one_of({"VPP", "VDD"})},
            {"PACKAGE", one_of({"8", "18", "28", "28A", "40"})},
            {"JP2", one_of({"1-2", "2-3", "NON"})},
            {"FIRM", is_version},
            {"VDD_VPP_DELAY", up_to(255)},
            {"PGM_SIZE_WORD", up_to(0xFFFFF)},  // the image holds 2^20 words
            {"EEPROM_BYTE", up_to(1023)},       // 2048 bytes, two a cell
            {"CALIB(movlw)", is_two_hex_digits},
            {"CALIB(retlw)", is_two_hex_digits},
            {"COMMENT", is_comment},
            {"CP_MASK_CF5", is_mask},
            {"DEVID1", is_three_bytes},
            {"WRITE_BUFFER_SIZE_BYTE", up_to(255)},
            {"ERASE_BUFFER_SIZE_BYTE", up_to(255)},
            {"PROGRAMMING_TIME_MS", up_to(255)},
            {"ERASE_TIME_MS", up_to(255)},
            {"BLOCK_NUMBER", up_to(8)},
            {"BLOCK_SIZE_WORD", up_to(0xFFFF)},
        };
        for (const char* area : {"CHIP", "CONFIG", "EEPROM", "BLOCKB", "BLOCK1", "BLOCK2", "BLOCK3",
                                 "BLOCK4", "BLOCK5", "BLOCK6", "BLOCK7", "BLOCK8"}) {
            table.emplace(std::string{"ERASE3C0005-04_"} + area, is_erase_pair);
        }
        return table;
    }();
    return keys;
}

bool is_config_key(std::string_view key) {
    const bool named = (key.starts_with("CONFIG") && key.size() == 7) ||
                       (key.starts_with("CFG") && key.size() == 4);
    return named && key.back() >= '1' && key.back() <= '7';
}

std::string text_of(const Block& block, std::string_view key) {
    const Row* const row = block.row(key);
    return row != nullptr && row->tokens.size() > 1 ? row->tokens[1] : std::string{"(missing)"};
}

std::optional<std::uint32_t> number_of(const Block& block, std::string_view key) {
    const Row* const row = block.row(key);
    std::size_t at = 1;
    return row == nullptr ? std::nullopt : take_number(*row, at);
}

// Calls `check` with each block and the facts of its device.
template <typename Body>
void for_each_device(Body check) {
    ASSERT_FALSE(catalogue().blocks.empty());
    for (const Block& block : catalogue().blocks) {
        const DeviceFacts* const device = facts_of(block.name);
        ASSERT_NE(device, nullptr) << block.name;
        check(block, *device);
    }
}

TEST(device_block, has_known_keys_only_each_of_them_once) {
    for (const Block& block : catalogue().blocks) {
        std::map<std::string, int> seen;
        for (const Row& row : block.rows) {
            const std::string& key = row.tokens[0];
            if (is_config_key(key)) continue;
            EXPECT_TRUE(single_keys().contains(key))
                << block.name << " line " << row.line << ": unknown key " << key;
            EXPECT_EQ(++seen[key], 1) << block.name << " " << key << " stands twice";
        }
        for (const char* required : {"PGM_TYPE", "POWER_MODE", "PACKAGE", "JP2", "FIRM",
                                     "VDD_VPP_DELAY", "PGM_SIZE_WORD", "EEPROM_BYTE", "COMMENT"}) {
            EXPECT_TRUE(seen.contains(required)) << block.name << " lacks " << required;
        }
    }
}

TEST(device_block, has_values_that_convert) {
    for (const Block& block : catalogue().blocks) {
        for (const Row& row : block.rows) {
            const auto key = single_keys().find(row.tokens[0]);
            if (key == single_keys().end()) continue;
            EXPECT_TRUE(key->second(row)) << block.name << " line " << row.line << ": "
                                          << row.tokens[0] << " " << text_of(block, row.tokens[0]);
        }
    }
}

TEST(device_block, states_the_device_s_sizes_type_socket_and_supply_order) {
    for_each_device([](const Block& block, const DeviceFacts& device) {
        EXPECT_EQ(number_of(block, "PGM_SIZE_WORD"), device.words - 1) << block.name;
        EXPECT_EQ(number_of(block, "EEPROM_BYTE"), device.eeprom == 0 ? 0 : device.eeprom - 1)
            << block.name;
        EXPECT_EQ(text_of(block, "PGM_TYPE"), device.type) << block.name;
        EXPECT_EQ(text_of(block, "PACKAGE"), device.package) << block.name;
        EXPECT_EQ(text_of(block, "POWER_MODE"), device.power) << block.name;
    });
}

TEST(device_block, gives_a_calibration_value_to_the_parts_with_oscillator_calibration_only) {
    for_each_device([](const Block& block, const DeviceFacts& device) {
        for (const char* opcode : {"movlw", "retlw"}) {
            const std::string key = std::string{"CALIB("} + opcode + ")";
            if (!device.osccal || device.osccal->opcode != opcode) {
                EXPECT_EQ(block.row(key), nullptr) << block.name << " " << key;
                continue;
            }
            EXPECT_EQ(number("0x" + text_of(block, key)),
                      device.osccal->centre.value_or(kCalibUnknown))
                << block.name << " " << key;
        }
    });
}

bool is_pic18_key(std::string_view key) {
    return key == "DEVID1" || key == "CP_MASK_CF5" || key.starts_with("BLOCK_") ||
           key.starts_with("ERASE") || key.ends_with("_TIME_MS") || key.ends_with("_SIZE_BYTE");
}

TEST(device_block, states_identity_buffers_and_times_of_a_PIC18_and_of_no_other_part) {
    for_each_device([](const Block& block, const DeviceFacts& device) {
        if (!device.pic18) {
            for (const Row& row : block.rows) {
                const std::string& key = row.tokens[0];
                EXPECT_FALSE(is_pic18_key(key)) << block.name << " " << key;
            }
            return;
        }
        const Row* const row = block.row("DEVID1");
        ASSERT_NE(row, nullptr) << block.name << " lacks DEVID1";
        ASSERT_EQ(row->tokens.size(), 4U) << block.name << " DEVID1";
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_EQ(number(row->tokens[i + 1]), device.pic18->devid[i])
                << block.name << " DEVID1 token " << i + 1;
        }
        EXPECT_EQ(number_of(block, "CP_MASK_CF5"), device.pic18->config5_mask) << block.name;
        for (const auto& [key, value] : device.pic18->numbers) {
            EXPECT_EQ(number_of(block, key), value) << block.name << " " << key;
        }
    });
}

std::string erase_word(std::uint32_t payload) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string text{kTableWrite};
    for (const unsigned shift : {12U, 8U, 4U, 0U}) {
        text += kDigits[(payload >> shift) & 0xFU];
    }
    return text;
}

// A part of the older kind has no word at 3C0005. Zero is sent for it.
TEST(device_block, sends_the_erase_words_of_every_area_that_the_part_can_erase_alone) {
    for_each_device([](const Block& block, const DeviceFacts& device) {
        if (!device.pic18) return;
        std::size_t rows = 0;
        for (const Row& row : block.rows) {
            rows += row.tokens[0].starts_with("ERASE3C0005-04_") ? 1U : 0U;
        }
        EXPECT_EQ(rows, device.pic18->erase.size()) << block.name;
        for (const auto& [area, payload] : device.pic18->erase) {
            const Row* const row = block.row("ERASE3C0005-04_" + area);
            ASSERT_NE(row, nullptr) << block.name << " lacks the erase words of " << area;
            ASSERT_EQ(row->tokens.size(), 3U) << block.name << " " << area;
            EXPECT_EQ(row->tokens[1], erase_word(payload.at_3C0005.value_or(0)))
                << block.name << " " << area;
            EXPECT_EQ(row->tokens[2], erase_word(payload.at_3C0004)) << block.name << " " << area;
        }
    });
}

TEST(device_block, chooses_the_jumper_by_the_socket) {
    const std::map<std::string, std::string> jumper{
        {"8", "NON"}, {"18", "1-2"}, {"28A", "1-2"}, {"28", "2-3"}, {"40", "2-3"}};
    for_each_device([&](const Block& block, const DeviceFacts& device) {
        EXPECT_EQ(text_of(block, "JP2"), jumper.at(device.package)) << block.name;
    });
}

TEST(device_block, chooses_the_power_delay_by_the_order_of_the_supplies) {
    for_each_device([](const Block& block, const DeviceFacts& device) {
        std::uint32_t delay = 10;
        if (device.power == "VPP") {
            delay = 5;
        } else if (!device.pic18 && device.has_field("MCLRE")) {
            delay = 2;
        }
        EXPECT_EQ(number_of(block, "VDD_VPP_DELAY"), delay) << block.name;
    });
}

// The first firmware that knows the part's generation, by the rule in CATALOGUE.md.
std::string firmware_for(const DeviceFacts& device) {
    static const std::set<std::string> factory_words{
        "PIC16F88X", "PIC16F91X", "PIC16F785", "PIC16F716", "PIC16F6XX",
        "PIC1XF63X", "PIC12F609", "PIC12F683", "ZQLDR418",
    };
    static const std::set<std::string> first_flash{"FLASH0", "LDR412", "LDR412A"};
    if (device.core == "enhanced-14-bit" || device.name.ends_with("K50")) return "6.76";
    if (device.type == "18F_01" || factory_words.contains(device.family)) return "6.70";
    if (device.memory == "eprom") return "6.00";
    if (first_flash.contains(device.type) || device.family == "PIC16F877A") return "6.50";
    return "6.60";
}

TEST(device_block, asks_for_the_firmware_that_knows_the_generation_of_the_part) {
    for_each_device([](const Block& block, const DeviceFacts& device) {
        EXPECT_EQ(text_of(block, "FIRM"), firmware_for(device)) << block.name;
    });
}

std::string comment_of(const Block& block) {
    std::string text;
    if (const Row* const row = block.row("COMMENT")) {
        for (std::size_t i = 1; i < row->tokens.size(); ++i) text += row->tokens[i] + " ";
    }
    return text;
}

// 9.0 is "9V", 3.6 is "3.6V".
std::string volts(double value) {
    std::string text = std::to_string(value);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) text.pop_back();
    return text + "V";
}

TEST(device_comment, tells_the_sizes_in_words_and_bytes) {
    for_each_device([](const Block& block, const DeviceFacts& device) {
        const std::string comment = comment_of(block);
        EXPECT_NE(comment.find(":" + std::to_string(device.words) + "ワード"), std::string::npos)
            << block.name << ": " << comment;
        if (device.eeprom != 0) {
            EXPECT_NE(comment.find("EEPROM:" + std::to_string(device.eeprom) + "バイト"),
                      std::string::npos)
                << block.name << ": " << comment;
        }
    });
}

TEST(device_comment, warns_of_a_part_that_the_usual_supplies_would_damage) {
    for_each_device([](const Block& block, const DeviceFacts& device) {
        const std::string comment = comment_of(block);
        const bool low_vpp = device.vpp_max < kBoardVpp;
        const bool low_vdd = device.vdd_max < kBoardVdd;
        const auto has = [&](const std::string& text) {
            return comment.find(text) != std::string::npos;
        };
        EXPECT_EQ(has("【警告】"), low_vpp || low_vdd) << block.name << ": " << comment;
        EXPECT_EQ(has("VPP上限" + volts(device.vpp_max)), low_vpp) << block.name << ": " << comment;
        EXPECT_EQ(has("VDD上限" + volts(device.vdd_max)), low_vdd) << block.name << ": " << comment;
    });
}

}  // namespace
}  // namespace catalogue_data
