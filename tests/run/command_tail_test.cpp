// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "run/start_up.h"

namespace quillon {
namespace {

using Items = std::vector<std::string>;

TEST(GetCommandLine, parts_items_at_TABs_only) {
    EXPECT_EQ(GetCommandLine("C:\\A B\\X.HEX /PIC16F877\tsecond one"),
              (Items{"C:\\A B\\X.HEX /PIC16F877", "second one"}));
}

TEST(GetCommandLine, has_no_item_for_an_empty_tail) {
    EXPECT_EQ(GetCommandLine(""), Items{});
    EXPECT_EQ(GetCommandLine("\t\t"), Items{});
}

TEST(GetCommandLine, takes_a_run_of_TABs_as_one) {
    EXPECT_EQ(GetCommandLine("\ta\t\tb\t"), (Items{"a", "b"}));
}

TEST(GetCommandLine, keeps_ten_items_and_stops_at_the_eleventh) {
    EXPECT_EQ(GetCommandLine("1\t2\t3\t4\t5\t6\t7\t8\t9\t10\t11\t12"),
              (Items{"1", "2", "3", "4", "5", "6", "7", "8", "9", "10"}));
    EXPECT_EQ(GetCommandLine("1\t2\t3", 2), (Items{"1", "2"}));
    EXPECT_EQ(GetCommandLine("1\t2\t3", 0), Items{});
}

TEST(command_tail, joins_the_arguments_by_blanks) {
    const std::array<std::string, 2> arguments{"/a b/X.HEX", "/PIC16F877"};
    EXPECT_EQ(command_tail(arguments), "/a b/X.HEX /PIC16F877");
    EXPECT_EQ(command_tail({}), "");
}

void expect_operands(std::string_view item, std::string_view path, std::string_view second,
                     std::string_view third) {
    const auto operands = hex_operands(item);
    EXPECT_EQ(operands.CmdHexPath, path) << item;
    EXPECT_EQ(operands.CmdArg2, second) << item;
    EXPECT_EQ(operands.CmdArg3, third) << item;
}

TEST(hex_operands, takes_the_blank_behind_the_extension_with_the_path_and_trims_it) {
    expect_operands("C:\\A B\\X.HEX /PIC16F877", "C:\\A B\\X.HEX", "PIC16F877", "");
}

TEST(hex_operands, takes_a_slash_that_stands_right_behind_the_extension_with_the_path) {
    expect_operands("X.HEX/PIC16F877", "X.HEX/", "", "");
}

TEST(hex_operands, cuts_a_longer_extension_one_character_behind_HEX) {
    expect_operands("A.HEX.BAK", "A.HEX.", "", "");
    expect_operands("A.HEX2", "A.HEX2", "", "");
}

TEST(hex_operands, cuts_no_character_in_two) {
    expect_operands("A.HEXあい /P", "A.HEXあ", "P", "");
}

TEST(hex_operands, looks_for_the_first_HEX_wherever_it_stands) {
    expect_operands("/MY.HEX FILES/A.HEX", "/MY.HEX", "A.HEX", "");
}

TEST(hex_operands, are_empty_without_HEX) {
    expect_operands("A.TXT /PIC16F877 /X", "", "", "");
    expect_operands("", "", "", "");
    expect_operands("a.hex", "", "", "");  // the caller upper-cases
}

TEST(hex_operands, loses_what_stands_before_the_first_slash) {
    expect_operands("X.HEX ABC/PIC16F877", "X.HEX", "PIC16F877", "");
    expect_operands("X.HEX ABC", "X.HEX", "", "");
}

TEST(hex_operands, takes_two_operands_trimmed_and_drops_the_rest) {
    expect_operands("X.HEX / PIC16F877 / B C / D", "X.HEX", "PIC16F877", "B C");
}

TEST(hex_operands, skips_quotes_in_the_operands) {
    expect_operands("X.HEX /\"PIC\"16F877", "X.HEX", "PIC16F877", "");
}

}  // namespace
}  // namespace quillon
