// SPDX-License-Identifier: MIT
// The file as a whole: its text, its help lines, its list of devices and their order.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <map>
#include <set>
#include <tuple>

#include "device_facts.h"
#include "plain_reader.h"

namespace catalogue_data {
namespace {

constexpr std::size_t kMaxTokens = 65;     // of a line; more stop the start-up
constexpr std::size_t kMaxRowTokens = 16;  // of a row in a block; more are lost
constexpr std::size_t kMaxRows = 256;      // of a block; more are not processed
constexpr std::size_t kMaxDevices = 1024;
constexpr std::size_t kMaxHelpRows = 129;

// Bytes that follow a UTF-8 lead byte; -1 for a byte that can't lead.
int continuation_bytes(unsigned char lead) {
    if (lead < 0x80) return 0;
    if (lead >= 0xC2 && lead <= 0xDF) return 1;
    if (lead >= 0xE0 && lead <= 0xEF) return 2;
    if (lead >= 0xF0 && lead <= 0xF4) return 3;
    return -1;
}

// The offset of the first byte that isn't UTF-8, or npos.
std::size_t first_bad_byte(const std::string& bytes) {
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const std::size_t start = i;
        int left = continuation_bytes(static_cast<unsigned char>(bytes[i]));
        if (left < 0) return start;
        for (; left > 0; --left) {
            if (++i >= bytes.size() || (static_cast<unsigned char>(bytes[i]) & 0xC0U) != 0x80) {
                return start;
            }
        }
    }
    return std::string::npos;
}

std::string line_of_byte(const std::string& bytes, std::size_t offset) {
    const auto end = bytes.begin() + static_cast<std::ptrdiff_t>(offset);
    return "line " + std::to_string(1 + std::count(bytes.begin(), end, '\n'));
}

std::vector<const Row*> outside_rows(std::string_view key) {
    std::vector<const Row*> found;
    for (const Row& row : catalogue().outside) {
        if (row.tokens[0] == key) found.push_back(&row);
    }
    return found;
}

// The group in which a user looks for a device: family and kind of memory, not the supply variant.
int group_of(std::string_view name) {
    struct Group {
        std::string_view prefix;
        int place;
    };
    constexpr std::array kGroups{
        Group{"PIC10F", 0},  Group{"PIC12C", 1}, Group{"PIC12F", 2},  Group{"PIC12HV", 2},
        Group{"PIC12LF", 2}, Group{"PIC16C", 3}, Group{"PIC16F", 4},  Group{"PIC16HV", 4},
        Group{"PIC16LF", 4}, Group{"PIC18F", 5}, Group{"PIC18LF", 5}, Group{"ZQ-", 6},
    };
    const auto found = std::ranges::find_if(
        kGroups, [&](const Group& each) { return name.starts_with(each.prefix); });
    return found == kGroups.end() ? -1 : found->place;
}

// The order is by group, number, suffix, then letters. So PIC16LF1823 follows PIC16F1823.
std::tuple<int, int, std::string, std::string> place_of(const std::string& name) {
    const auto is_digit = [](char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; };
    const auto letters_from = name.begin() + (name.starts_with("PIC") ? 5 : 3);
    const auto number_from = std::find_if(letters_from, name.end(), is_digit);
    const auto suffix_from = std::find_if_not(number_from, name.end(), is_digit);
    const std::string digits{number_from, suffix_from};
    return {group_of(name), digits.empty() ? -1 : std::stoi(digits),
            std::string{suffix_from, name.end()}, std::string{letters_from, number_from}};
}

TEST(device6_ini, is_utf8_without_a_byte_order_mark) {
    const std::string& bytes = catalogue().bytes;
    ASSERT_FALSE(bytes.empty());
    EXPECT_FALSE(bytes.starts_with("\xEF\xBB\xBF"));
    const std::size_t bad = first_bad_byte(bytes);
    EXPECT_EQ(bad, std::string::npos) << line_of_byte(bytes, std::min(bad, bytes.size()));
}

TEST(device6_ini, has_none_of_the_characters_that_break_a_line_apart) {
    const std::string& bytes = catalogue().bytes;
    for (const char forbidden : {',', '\t', '"', '\r', '\0'}) {
        const std::size_t at = bytes.find(forbidden);
        EXPECT_EQ(at, std::string::npos) << "character " << int{forbidden} << " in "
                                         << line_of_byte(bytes, std::min(at, bytes.size()));
    }
    EXPECT_TRUE(bytes.ends_with('\n'));
}

TEST(device6_ini, keeps_every_line_and_row_within_the_token_limits) {
    for (const Row& row : catalogue().lines) {
        EXPECT_LE(row.tokens.size(), kMaxTokens) << "line " << row.line;
    }
    for (const Block& block : catalogue().blocks) {
        EXPECT_LE(block.rows.size(), kMaxRows) << block.name;
        for (const Row& row : block.rows) {
            EXPECT_LE(row.tokens.size(), kMaxRowTokens) << block.name << " line " << row.line;
        }
    }
}

TEST(device6_ini, reads_without_a_problem) {
    for (const std::string& problem : catalogue().problems) {
        ADD_FAILURE() << problem;
    }
    EXPECT_FALSE(catalogue().blocks.empty());
}

TEST(device6_ini, has_nothing_outside_blocks_but_version_help_and_comments) {
    for (const Row& row : catalogue().outside) {
        const std::string& key = row.tokens[0];
        EXPECT_TRUE(key == "VERSION" || key == "CMT" || key.starts_with(';'))
            << "line " << row.line << ": " << key;
    }
}

// The third token is taken twice, so "6 . 1" shows as 6.11.
TEST(device6_ini, shows_its_version_as_a_number_with_two_decimals) {
    const auto rows = outside_rows("VERSION");
    ASSERT_EQ(rows.size(), 1U);
    const auto& tokens = rows[0]->tokens;
    ASSERT_EQ(tokens.size(), 4U);
    const auto is_digit = [](const std::string& text) {
        return text.size() == 1 && text[0] >= '0' && text[0] <= '9';
    };
    EXPECT_TRUE(is_digit(tokens[1]) && tokens[2] == "." && is_digit(tokens[3]))
        << tokens[1] << tokens[2] << tokens[3] << tokens[3];
    EXPECT_EQ(catalogue().lines.front().line, rows[0]->line) << "VERSION isn't the first line";
}

TEST(device6_ini, explains_every_field_exactly_once_before_the_first_block) {
    const auto help = outside_rows("CMT");
    EXPECT_LE(help.size(), kMaxHelpRows);
    std::map<std::string, int> explained;
    for (const Row* row : help) {
        ASSERT_EQ(row->tokens.size(), 4U) << "line " << row->line << ": key, title and text";
        EXPECT_LT(row->line, catalogue().blocks.front().line) << row->tokens[1];
        EXPECT_EQ(++explained[row->tokens[1]], 1) << row->tokens[1] << " is explained twice";
    }
    std::set<std::string> used;
    for (const Block& block : catalogue().blocks) {
        for (const Word& word : block.words) {
            for (const Field& field : word.fields) {
                used.insert(field.name);
                EXPECT_TRUE(explained.contains(field.name)) << block.name << " " << field.name;
            }
        }
    }
    for (const auto& [name, count] : explained) {
        EXPECT_TRUE(used.contains(name)) << name << " is explained, but no device has it";
    }
}

TEST(device6_ini, lists_every_known_device_once_and_no_other) {
    EXPECT_LE(catalogue().blocks.size(), kMaxDevices);
    std::map<std::string, int> listed;
    for (const Block& block : catalogue().blocks) {
        EXPECT_EQ(++listed[block.name], 1) << block.name << " line " << block.line;
        EXPECT_NE(facts_of(block.name), nullptr) << block.name << " isn't a known device";
        EXPECT_TRUE(block.name.starts_with("PIC") || block.name.starts_with("ZQ-")) << block.name;
    }
    for (const DeviceFacts& device : all_facts()) {
        EXPECT_TRUE(listed.contains(device.name)) << device.name << " has no block";
    }
}

// Settings and history store a device as its position in the list.
TEST(device6_ini, keeps_every_device_at_its_position) {
    ASSERT_EQ(catalogue().blocks.size(), all_facts().size());
    for (std::size_t i = 0; i < all_facts().size(); ++i) {
        EXPECT_EQ(catalogue().blocks[i].name, all_facts()[i].name) << "position " << i;
    }
}

TEST(device6_ini, groups_devices_by_family_and_counts_up_within_a_group) {
    const auto& blocks = catalogue().blocks;
    for (const Block& block : blocks) {
        EXPECT_GE(group_of(block.name), 0) << block.name << " belongs to no group";
    }
    for (std::size_t i = 1; i < blocks.size(); ++i) {
        EXPECT_LT(place_of(blocks[i - 1].name), place_of(blocks[i].name))
            << blocks[i].name << " stands behind " << blocks[i - 1].name;
    }
}

}  // namespace
}  // namespace catalogue_data
