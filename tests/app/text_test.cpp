// SPDX-License-Identifier: MIT
#include "app/text.h"

#include <gtest/gtest.h>

#include <array>

namespace quillon {
namespace {

TEST(upper, changes_ascii_letters_only) {
    EXPECT_EQ(upper("pic16f877a ｱあz"), "PIC16F877A ｱあZ");
    EXPECT_EQ(lower("PIC16F877A ＡZ"), "pic16f877a Ａz");
}

TEST(trim, takes_blanks_and_line_ends_from_both_ends_only) {
    EXPECT_EQ(trim(" \ta b\r\n"), "a b");
    EXPECT_EQ(trim(" \t\r\n"), "");
    EXPECT_EQ(trim(""), "");
    EXPECT_EQ(trim("　a"), "　a");  // a full-width blank is a character
}

TEST(replace_all, goes_on_behind_what_it_put_in) {
    EXPECT_EQ(replace_all("a=b=c", "=", " = "), "a = b = c");
    EXPECT_EQ(replace_all("aaa", "a", "aa"), "aaaaaa");
    EXPECT_EQ(replace_all("abc", "x", "y"), "abc");
}

TEST(hex_digit, knows_both_cases_and_nothing_else) {
    EXPECT_EQ(hex_digit('0'), 0U);
    EXPECT_EQ(hex_digit('9'), 9U);
    EXPECT_EQ(hex_digit('a'), 10U);
    EXPECT_EQ(hex_digit('F'), 15U);
    EXPECT_EQ(hex_digit('g'), std::nullopt);
    EXPECT_EQ(hex_digit('/'), std::nullopt);
    EXPECT_EQ(hex_digit(':'), std::nullopt);
    EXPECT_EQ(hex_digit('@'), std::nullopt);
}

TEST(hex, has_at_least_the_digits_asked_for) {
    EXPECT_EQ(hex(0x3F, 4), "003F");
    EXPECT_EQ(hex(0x12345, 4), "12345");
    EXPECT_EQ(hex_bytes(std::array<std::uint8_t, 3>{0, 0xAB, 0x0F}), "00AB0F");
    EXPECT_EQ(hex_bytes({}), "");
}

TEST(printable, shows_what_a_terminal_would_obey_by_its_code) {
    EXPECT_EQ(printable("a\x1b[31mb"), "a\\x1B[31mb");
    EXPECT_EQ(printable("a\r\n\tb\x7f"), "a\\x0D\\x0A\\x09b\\x7F");
    EXPECT_EQ(printable(std::string_view{"\0", 1}), "\\x00");
    EXPECT_EQ(printable("\xC2\x9B"
                        "2J"),
              "\\x9B2J")
        << "one character for ESC and [";
    EXPECT_EQ(printable("\xC2\xA0"), "\xC2\xA0") << "the first character behind them";
}

TEST(printable, shows_bytes_that_are_no_text_by_their_code) {
    EXPECT_EQ(printable("\x9B"
                        "2J"),
              "\\x9B2J");
    EXPECT_EQ(printable("\xE3\x81"), "\\xE3\\x81");
}

TEST(printable, leaves_other_characters_alone) {
    for (const auto* text : {"", "PIC16F877A", "c:\\仕事\\a b", "ﾌﾟﾛｸﾞﾗﾑ　", "\xF0\x9F\x98\x80"})
        EXPECT_EQ(printable(text), text);
}

TEST(printable_lines, keeps_the_ends_of_lines_and_nothing_else) {
    EXPECT_EQ(printable_lines("a\r\nb\tc\x1b"), "a\r\nb\\x09c\\x1B");
}

TEST(is_utf8, takes_well_formed_sequences) {
    EXPECT_TRUE(is_utf8(""));
    EXPECT_TRUE(is_utf8("MOVLW 0x80"));
    EXPECT_TRUE(is_utf8("製作確認資料"));
    EXPECT_TRUE(is_utf8("\xF0\x9F\x98\x80"));
    EXPECT_TRUE(is_utf8("\xF4\x8F\xBF\xBF"));
}

TEST(is_utf8, refuses_code_page_932_overlong_forms_surrogates_and_cut_sequences) {
    EXPECT_FALSE(is_utf8("\x83\x77\x83\x8B\x83\x76"));  // ヘルプ in code page 932
    EXPECT_FALSE(is_utf8("\xC0\x80"));
    EXPECT_FALSE(is_utf8("\xE0\x80\x80"));
    EXPECT_FALSE(is_utf8("\xED\xA0\x80"));
    EXPECT_FALSE(is_utf8("\xF4\x90\x80\x80"));
    EXPECT_FALSE(is_utf8("\xE3\x81"));
    EXPECT_FALSE(is_utf8("\x80"));
}

}  // namespace
}  // namespace quillon
