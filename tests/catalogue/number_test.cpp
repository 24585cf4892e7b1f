// SPDX-License-Identifier: MIT
// The catalogue's numbers and the version in the board's identity.
#include "catalogue/number.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace quillon {
namespace {

TEST(ParseNumber, reads_binary_hexadecimal_and_decimal) {
    EXPECT_EQ(parse_number("0B1"), 1);
    EXPECT_EQ(parse_number("0B0011111111111111"), 0x3FFF);
    EXPECT_EQ(parse_number("0x1FFF"), 0x1FFF);
    EXPECT_EQ(parse_number("0Xff"), 255);
    EXPECT_EQ(parse_number("1023"), 1023);
    EXPECT_EQ(parse_number("-5"), -5);
    EXPECT_EQ(parse_number("+5"), 5);
}

TEST(ParseNumber, upper_cases_its_text_in_place) {
    std::string text = "0x3ffe";
    EXPECT_EQ(ParseNumber(text), 0x3FFE);
    EXPECT_EQ(text, "0X3FFE");
}

TEST(ParseNumber, gives_minus_one_for_a_bad_digit_behind_a_prefix) {
    EXPECT_EQ(parse_number("0B2"), -1);
    EXPECT_EQ(parse_number("0XFG"), -1);
    EXPECT_EQ(parse_number("0B-1"), -1);
}

TEST(ParseNumber, gives_zero_for_no_digits) {
    EXPECT_EQ(parse_number("0B"), 0);
    EXPECT_EQ(parse_number("0X"), 0);
    EXPECT_EQ(parse_number(""), 0);
}

TEST(ParseNumber, has_no_value_for_a_decimal_text_that_does_not_convert) {
    EXPECT_EQ(parse_number("abc"), std::nullopt);
    EXPECT_EQ(parse_number("12a"), std::nullopt);
    EXPECT_EQ(parse_number("-"), std::nullopt);
    EXPECT_EQ(parse_number("+-5"), std::nullopt);
    EXPECT_EQ(parse_number("1.5"), std::nullopt);
}

TEST(ParseNumber, takes_32_bits_and_no_more) {
    EXPECT_EQ(parse_number("0xFFFFFFFE"), -2);
    EXPECT_EQ(parse_number("0x100000000"), std::nullopt);
    EXPECT_EQ(parse_number("0B" + std::string(32, '1')), -1);
    EXPECT_EQ(parse_number("0B1" + std::string(32, '0')), std::nullopt);
    EXPECT_EQ(parse_number("0x" + std::string(400, 'F')), std::nullopt);
    EXPECT_EQ(parse_number("2147483647"), INT32_MAX);
    EXPECT_EQ(parse_number("2147483648"), std::nullopt);
}

TEST(parse_decimal, takes_a_whole_version_number_only) {
    EXPECT_EQ(parse_decimal("6.76"), 6.76);
    EXPECT_EQ(parse_decimal("6"), 6.0);
    EXPECT_EQ(parse_decimal("6.7x"), std::nullopt);
    EXPECT_EQ(parse_decimal("6.7.6"), std::nullopt);
    EXPECT_EQ(parse_decimal("."), std::nullopt);
    EXPECT_EQ(parse_decimal("nan"), std::nullopt);
    EXPECT_EQ(parse_decimal("-6.7"), std::nullopt);
    EXPECT_EQ(parse_decimal(""), std::nullopt);
}

TEST(numeric_prefix, reads_the_number_that_a_text_begins_with) {
    EXPECT_EQ(numeric_prefix("6.80"), 6.8);
    EXPECT_EQ(numeric_prefix("  6.80B"), 6.8);
    EXPECT_EQ(numeric_prefix("6.8.1"), 6.8);
    EXPECT_EQ(numeric_prefix("V6.80"), 0);
    EXPECT_EQ(numeric_prefix("inf"), 0);
    EXPECT_EQ(numeric_prefix(""), 0);
    EXPECT_EQ(numeric_prefix("   "), 0);
}

}  // namespace
}  // namespace quillon
