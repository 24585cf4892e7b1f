// SPDX-License-Identifier: MIT
// Items, records and the list of items that weren't records.
#include "hex/hex_items.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillon {

namespace {

std::vector<std::string> items_of(std::string_view text) {
    std::vector<std::string> result;
    HexItems items{text};
    while (const auto item = items.next()) result.emplace_back(*item);
    return result;
}

using Items = std::vector<std::string>;

}  // namespace

TEST(HexItems, end_at_any_kind_of_line_end) {
    EXPECT_EQ(items_of("a\r\nb\nc\rd"), (Items{"a", "b", "c", "d"}));
}

TEST(HexItems, end_at_a_comma_so_that_a_comment_with_one_counts_twice) {
    EXPECT_EQ(items_of(";one, two\n:00"), (Items{";one", "two", ":00"}));
}

TEST(HexItems, lose_leading_blanks_and_TABs_and_trailing_blanks) {
    EXPECT_EQ(items_of("  \t:00  \n, :01 , a b \t"), (Items{":00", "", ":01", "a b \t"}));
    EXPECT_EQ(items_of("\" a \""), Items{" a "});
}

TEST(HexItems, take_a_final_end_of_file_sign_as_text) {
    EXPECT_EQ(items_of("a\r\n\x1A"), (Items{"a", "\x1A"}));
}

TEST(HexItems, know_their_line) {
    HexItems items{"a, b\r\n\"c\nd\"\re,\n\nf"};
    EXPECT_EQ(items.line(), 0U);
    std::vector<std::size_t> lines;
    while (items.next()) lines.push_back(items.line());
    EXPECT_EQ(lines, (std::vector<std::size_t>{1, 1, 2, 3, 4, 4, 5, 6}));
}

TEST(HexItems, count_empty_lines_but_not_the_end_of_the_text) {
    EXPECT_EQ(items_of(""), Items{});
    EXPECT_EQ(items_of("a"), Items{"a"});
    EXPECT_EQ(items_of("a\n"), Items{"a"});
    EXPECT_EQ(items_of("a,"), Items{"a"});
    EXPECT_EQ(items_of("a\r\n\r\n"), (Items{"a", ""}));
    EXPECT_EQ(items_of("\n\n"), (Items{"", ""}));
    EXPECT_EQ(items_of("a,\n"), (Items{"a", ""}));
    EXPECT_EQ(items_of("  "), Items{""});
}

TEST(HexItems, lose_their_quotes_and_may_hold_commas_in_them) {
    EXPECT_EQ(items_of("\"a, b\"\nc"), (Items{"a, b", "c"}));
    EXPECT_EQ(items_of("  \" a\" , b"), (Items{" a", "b"}));
    EXPECT_EQ(items_of("a \"b, c\""), (Items{"a \"b", "c\""}));  // a quote inside is a character
    EXPECT_EQ(items_of("\"\"\n\"\""), (Items{"", ""}));
}

TEST(HexItems, with_an_open_quote_end_with_their_line) {
    EXPECT_EQ(items_of("\"a\r\n:00\r\n:01\"\n"), (Items{"a", ":00", ":01\""}));
    EXPECT_EQ(items_of("\""), Items{""});
}

TEST(HexItems, go_on_behind_a_closing_quote) {
    EXPECT_EQ(items_of("\"a\" :00\n:01"), (Items{"a", ":00", ":01"}));
    EXPECT_EQ(items_of("\"a\"\"b\",c"), (Items{"a", "b", "c"}));
}

TEST(HexRecord, finds_its_fields_by_position_in_either_case) {
    const auto record = HexRecord::parse(":02aBcD00fE01ignored");
    ASSERT_TRUE(record);
    EXPECT_TRUE(record->is_data());
    EXPECT_EQ(record->address(), 0xABCDU);
    EXPECT_EQ(record->data_characters(), 4U);
    EXPECT_EQ(record->byte(kHexData), 0xFE);
    EXPECT_EQ(record->byte(kHexData + 2), 0x01);
    EXPECT_EQ(record->character(11), 'E');
}

TEST(HexRecord, is_refused_where_a_head_field_is_short_or_bad) {
    for (const auto* line :
         {":", ":0", ":0000000", ":000000", ":0G000000", ":00G00000", ":000G0000", ":0000G000",
          ":00000G00", ":000000G0", ":0000000G", ":hello world", ": 0000000"})
        EXPECT_FALSE(HexRecord::parse(line)) << line;
    EXPECT_TRUE(HexRecord::parse(":00000000"));
}

TEST(HexRecord, of_another_type_is_taken_unread) {
    for (const auto* line : {":00000001FF", ":xxyyyy05", ":GGGGGG01"}) {
        const auto record = HexRecord::parse(line);
        ASSERT_TRUE(record) << line;
        EXPECT_FALSE(record->is_data()) << line;
    }
}

TEST(HexRecord, has_nothing_behind_its_end) {
    const auto record = HexRecord::parse(":0100000012");
    ASSERT_TRUE(record);
    EXPECT_EQ(record->byte(10), 0x12);
    EXPECT_FALSE(record->byte(11));
    EXPECT_FALSE(record->byte(12));
    EXPECT_FALSE(record->character(12));
    EXPECT_EQ(record->character(11), '2');
}

TEST(address_record, is_known_by_its_first_nine_characters) {
    EXPECT_TRUE(is_extended_address(":02000004"));
    EXPECT_FALSE(is_extended_address(":0200000"));
    EXPECT_FALSE(is_extended_address(":02000104"));
    EXPECT_FALSE(is_extended_address(":02000002"));
    EXPECT_TRUE(is_segment_address(":02000002"));
    EXPECT_FALSE(is_segment_address(":0200000"));
    EXPECT_FALSE(is_segment_address(":02000004"));
}

TEST(address_record, gives_its_sixteen_bits) {
    EXPECT_EQ(address_value(":0200000400F00A"), 0xF0U);
    EXPECT_EQ(address_value(":020000041234"), 0x1234U);
    EXPECT_FALSE(address_value(":02000004"));
    EXPECT_FALSE(address_value(":02000004001"));
    EXPECT_FALSE(address_value(":0200000400G0"));
}

TEST(SkippedItems, list_their_numbers) {
    SkippedItems items;
    EXPECT_TRUE(items.empty());
    items.add(1);
    EXPECT_EQ(items.list(), "1");
    items.add(3);
    items.add(12);
    EXPECT_FALSE(items.empty());
    EXPECT_EQ(items.list(), "1、3、12");
}

TEST(SkippedItems, stop_their_list_in_a_file_that_is_no_HEX_file_at_all) {
    SkippedItems items;
    for (std::size_t i = 1; i <= 10'000; ++i) items.add(i);
    EXPECT_TRUE(items.list().ends_with("、9999、10000"));
    for (std::size_t i = 10'001; i <= 200'000; ++i) items.add(i);
    EXPECT_TRUE(items.list().ends_with("、9999、10000、…"));
}

}  // namespace quillon
