// SPDX-License-Identifier: MIT
// The rows of a device block, and the joining of binary values that are written as two tokens.
#include "catalogue/device_block.h"

#include <gtest/gtest.h>

#include <string>

namespace quillon {
namespace {

CatRow row_of(std::string_view line) {
    const LineTokens tokens = SplitLine(line);
    CatRow row;
    for (std::size_t i = 0; i < row.size(); ++i) row[i] = tokens[i];
    return row;
}

CatRow joined(std::string_view line) {
    CatRow row = row_of(line);
    join_binary_pairs(row);
    return row;
}

DeviceBlock read(std::string_view text) {
    LineReader reader{text};
    return ReadDeviceBlock(reader);
}

TEST(join_binary_pairs, joins_mask_and_value_of_a_field_row) {
    const CatRow row = joined("CFG1 FOSC RC 0B00000000 00000011 0B00000000 00000010");
    EXPECT_EQ(row, row_of("CFG1 FOSC RC 0B0000000000000011 0B0000000000000010"));
}

TEST(join_binary_pairs, joins_three_values_of_a_word_row_and_moves_the_fourth_up) {
    const CatRow row =
        joined("CONFIG1 0B00111111 11111111 0B00000000 00000001 0B00000000 00000100 0x3FFF");
    EXPECT_EQ(row,
              row_of("CONFIG1 0B0011111111111111 0B0000000000000001 0B0000000000000100 0x3FFF"));
}

TEST(join_binary_pairs, joins_the_protection_mask) {
    EXPECT_EQ(joined("CP_MASK_CF5 0B11000000 00001111"), row_of("CP_MASK_CF5 0B1100000000001111"));
}

TEST(join_binary_pairs, works_for_keys_of_either_case) {
    EXPECT_EQ(joined("cfg1 A B 0B00000000 00000011 0B00000000 00000010"),
              row_of("cfg1 A B 0B0000000000000011 0B0000000000000010"));
}

TEST(join_binary_pairs, leaves_a_row_whose_lengths_do_not_fit) {
    for (const char* line : {
             "CFG1 FOSC RC 0x0003 0x0002",
             "CFG1 FOSC RC 0B00000000 00000011 0B00000000 0000001",
             "CONFIG1 0x3FFF 0 0 0x3FFF",
             "CONFIG1 0B00111111 11111111 0B00000000 00000000 0 0x3FFF",
             "CP_MASK_CF5 0xC00F",
             "COMMENT 0B00000000 00000011 0B00000000 00000010",
         })
        EXPECT_EQ(joined(line), row_of(line)) << line;
}

TEST(ReadDeviceBlock, stores_rows_up_to_the_end_mark) {
    const auto block = read("PGM_TYPE FLASH4\nJP2 NON\n#END\nPACKAGE 8\n");
    EXPECT_EQ(block.error, "");
    ASSERT_EQ(block.rows.size(), 2U);
    EXPECT_EQ(block.rows[0], row_of("PGM_TYPE FLASH4"));
    EXPECT_EQ(block.rows[1], row_of("JP2 NON"));
    EXPECT_EQ(block.sources[1].line, 2);
}

TEST(ReadDeviceBlock, skips_comments_and_empty_lines) {
    const auto block = read("; a\n\n   \n  ;b\n;c d\nJP2 NON\n#END\n");
    EXPECT_EQ(block.error, "");
    ASSERT_EQ(block.rows.size(), 1U);
    EXPECT_EQ(block.rows[0][0], "JP2");
}

TEST(ReadDeviceBlock, keeps_the_first_16_tokens_of_a_line) {
    const auto block = read("COMMENT 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17\n#END\n");
    ASSERT_EQ(block.rows.size(), 1U);
    EXPECT_EQ(block.rows[0][15], "15");
}

TEST(ReadDeviceBlock, detects_the_end_of_the_file) {
    EXPECT_EQ(read("JP2 NON\n").error, "EOF を検出しました。");
    EXPECT_EQ(read("").error, "EOF を検出しました。");
}

TEST(ReadDeviceBlock, detects_a_block_that_begins_inside) {
    EXPECT_EQ(read("JP2 NON\n#BEGIN\nPIC2\n#END\n").error, "#End が見つかりませんでした。");
}

TEST(ReadDeviceBlock, stores_257_rows_and_no_more) {
    std::string rows;
    for (int i = 0; i < 257; ++i) rows += "JP2 NON\n";
    EXPECT_EQ(read(rows + "#END").rows.size(), 257U);
    EXPECT_EQ(read(rows + "#END").error, "");
    EXPECT_EQ(read(rows + "JP2 NON\n#END").error,
              "258行目 : 一つのデバイスの行数が多すぎます。（最大257行）");
}

}  // namespace
}  // namespace quillon
