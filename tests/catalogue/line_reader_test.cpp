// SPDX-License-Identifier: MIT
// How the catalogue's text becomes lines and tokens.
#include "catalogue/line_reader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillon {
namespace {

std::vector<std::string> items(std::string_view text) {
    std::vector<std::string> result;
    for (LineReader reader{text}; reader.next();) result.emplace_back(reader.item());
    return result;
}

std::vector<std::string> tokens(std::string_view line) {
    const LineTokens cut = SplitLine(line);
    std::vector<std::string> result;
    for (std::size_t i = 0; i < cut.count(); ++i) result.emplace_back(cut[i]);
    return result;
}

using Texts = std::vector<std::string>;

TEST(ExpandTabs, turns_every_tab_into_eight_blanks) {
    EXPECT_EQ(ExpandTabs("a\tb"), "a        b");
    EXPECT_EQ(ExpandTabs("\t\t"), std::string(16, ' '));
    EXPECT_EQ(ExpandTabs("ab"), "ab");
}

TEST(SplitLine, cuts_at_any_run_of_blanks) {
    EXPECT_EQ(tokens("  CFG1   FOSC RC "), (Texts{"CFG1", "FOSC", "RC"}));
    EXPECT_EQ(tokens(""), Texts{});
    EXPECT_EQ(tokens("   "), Texts{});
}

TEST(SplitLine, does_not_cut_at_full_width_blanks) {
    EXPECT_EQ(tokens("CMT X 発振　器 y"), (Texts{"CMT", "X", "発振　器", "y"}));
}

TEST(SplitLine, gives_empty_texts_beyond_the_last_token) {
    const LineTokens cut = SplitLine("a b");
    EXPECT_EQ(cut[2], "");
    EXPECT_EQ(cut[64], "");
    EXPECT_EQ(cut[1000], "");
}

TEST(SplitLine, holds_65_tokens_and_tells_of_a_66th) {
    std::string line;
    for (int i = 0; i < 65; ++i) line += "t ";
    EXPECT_EQ(SplitLine(line).count(), 65U);
    EXPECT_FALSE(SplitLine(line).too_many());
    EXPECT_EQ(SplitLine(line + "t").count(), 65U);
    EXPECT_TRUE(SplitLine(line + "t").too_many());
}

TEST(LineReader, ends_an_item_at_a_comma) {
    EXPECT_EQ(items("COMMENT 8K words, 256 bytes\nJP2 NON\n"),
              (Texts{"COMMENT 8K words", "256 bytes", "JP2 NON"}));
}

TEST(LineReader, drops_leading_blanks) { EXPECT_EQ(items("   a b \n  c"), (Texts{"a b ", "c"})); }

TEST(LineReader, takes_the_quotes_off_a_quoted_item) {
    EXPECT_EQ(items("  \"COMMENT a, b\"\nnext"), (Texts{"COMMENT a, b", "next"}));
    EXPECT_EQ(items("\"a\" , b"), (Texts{"a", "b"}));
    EXPECT_EQ(items("\"a\"b\nc"), (Texts{"a", "b", "c"}));
    EXPECT_EQ(items("\"\"\nc"), (Texts{"", "c"}));
}

TEST(LineReader, loses_one_line_to_a_quote_that_is_not_closed) {
    EXPECT_EQ(items("\"COMMENT a, b\nJP2 NON\n"), (Texts{"COMMENT a, b", "JP2 NON"}));
    EXPECT_EQ(items("\""), Texts{""});
}

TEST(LineReader, reads_every_kind_of_line_end) {
    EXPECT_EQ(items("a\r\nb\nc\rd"), (Texts{"a", "b", "c", "d"}));
}

TEST(LineReader, reads_a_last_line_without_an_end) {
    EXPECT_EQ(items("a\n#END"), (Texts{"a", "#END"}));
}

TEST(LineReader, keeps_empty_lines) { EXPECT_EQ(items("\n\r\n a"), (Texts{"", "", "a"})); }

TEST(LineReader, has_nothing_to_read_in_an_empty_file) { EXPECT_EQ(items(""), Texts{}); }

TEST(LineReader, counts_physical_lines) {
    LineReader reader{"a, b\r\n\r\n\"c\"\nd"};
    std::vector<int> numbers;
    while (reader.next()) numbers.push_back(reader.line_number());
    EXPECT_EQ(numbers, (std::vector{1, 1, 2, 3, 4}));
}

TEST(LineReader, separates_tokens_at_tabs_too) {
    LineReader reader{"\tPGM_TYPE\tFLASH4\t\n"};
    ASSERT_TRUE(reader.next());
    EXPECT_EQ(reader.tokens()[0], "PGM_TYPE");
    EXPECT_EQ(reader.tokens()[1], "FLASH4");
    EXPECT_EQ(reader.tokens().count(), 2U);
}

}  // namespace
}  // namespace quillon
