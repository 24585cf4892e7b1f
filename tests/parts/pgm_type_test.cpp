// SPDX-License-Identifier: MIT
// Which core each token of the catalogue belongs to, and what else depends on it.
#include "parts/pgm_type.h"

#include <gtest/gtest.h>

#include <array>
#include <string_view>

namespace quillon::test {

namespace {

constexpr std::array<std::string_view, 6> k12bit{"12C5", "10F2", "5F18", "5F28", "5X18", "5X28"};
constexpr std::array<std::string_view, 12> k14bit{
    "12F6",   "12C6",   "EPROM",    "EPROM2", "FLASH0", "FLASH1",
    "FLASH2", "FLASH4", "FLASH4.9", "FLASH8", "LDR412", "LDR412A",
};
constexpr std::array<std::string_view, 5> kPic18{"18F_00", "18F_01", "18F_02", "18C_00", "18C_01"};

}  // namespace

TEST(ProgrammingType, groups_hold_exactly_the_types_of_their_width) {
    for (const auto token : k12bit) {
        const auto type = programming_type(token);
        EXPECT_TRUE(is_12bit(type)) << token;
        EXPECT_FALSE(is_14bit(type) || is_pic18(type)) << token;
    }
    for (const auto token : k14bit) {
        const auto type = programming_type(token);
        EXPECT_TRUE(is_14bit(type)) << token;
        EXPECT_FALSE(is_12bit(type) || is_pic18(type)) << token;
    }
    for (const auto token : kPic18) {
        const auto type = programming_type(token);
        EXPECT_TRUE(is_pic18(type)) << token;
        EXPECT_FALSE(is_12bit(type) || is_14bit(type)) << token;
        EXPECT_EQ(is_pic18_flash(type), token[2] == 'F') << token;
    }
    for (const std::string_view token : {"LDR418", "", "5X_18", "FLASH", "12F5", "flash8"}) {
        const auto type = programming_type(token);
        EXPECT_FALSE(is_12bit(type) || is_14bit(type) || is_pic18(type)) << token;
    }
}

TEST(ProgrammingType, tokens_of_one_spelling_are_one_type_and_all_others_differ) {
    for (const auto one : k14bit)
        for (const auto other : k14bit)
            EXPECT_EQ(programming_type(one) == programming_type(other), one == other)
                << one << " " << other;
    EXPECT_NE(programming_type("18F_00"), programming_type("18F_01"));
    EXPECT_NE(programming_type("18F_00"), programming_type("18F_02"));
}

TEST(ProgrammingType, parts_with_a_calibration_word_in_program_memory_log_it) {
    for (const std::string_view token : {"12C5", "10F2", "12C6", "12F6"})
        EXPECT_TRUE(logs_calibration(programming_type(token))) << token;
    for (const std::string_view token : {"5F18", "EPROM", "FLASH4", "18F_00", ""})
        EXPECT_FALSE(logs_calibration(programming_type(token))) << token;
}

TEST(PgmTypeToken, keeps_the_catalogues_spelling_beside_the_type) {
    PgmTypeToken token;
    EXPECT_EQ(token, ProgrammingType::Other);
    EXPECT_EQ(token.text(), "");
    token = "FLASH4.9";
    EXPECT_EQ(token, ProgrammingType::FLASH4_9);
    EXPECT_EQ(token.text(), "FLASH4.9");
    token = "18F_77";
    EXPECT_EQ(token.text(), "18F_77");
}

}  // namespace quillon::test
