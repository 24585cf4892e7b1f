// SPDX-License-Identifier: MIT
// The file check: what it finds, what it lets pass, and that it names the first line.
#include "hex/hex_check.h"

#include <gtest/gtest.h>

#include <string>

#include "hex/hex_writer.h"
#include "image/image_support.h"

namespace quillon {

using test::Bytes;
using test::data;
using test::device;
using test::kEndRecord;
using test::segment;
using test::upper_address;

namespace {

HexCheck check(const Session& session, const std::string& text,
               HexAddresses addresses = HexAddresses::Folded) {
    return check_hex(text, session, addresses);
}

bool same(const Findings& found, std::size_t count, std::size_t first_line) {
    return found.count == count && found.first_line == first_line;
}

const auto kFlash = device("FLASH8", "PIC16F877A", 8192, 256);
const auto kSmall = device("FLASH1", "PIC16F84A", 1024, 64);
const auto kBaseline = device("10F2", "PIC10F200", 256);
const auto kPic18 = device("18F_00", "PIC18F2550", 16384, 256);
const auto kEnhanced = device("FLASH8", "PIC16F1938", 16384, 256);

}  // namespace

TEST(check_hex, finds_nothing_in_a_sound_file) {
    const auto text = upper_address(0) + data(0, {1, 2, 3, 4}) + data(0x400E, {1, 2}) +
                      data(0x4200, {1, 0}) + data(0x8000, {1, 0}) + kEndRecord;
    EXPECT_EQ(describe(check(*kFlash, text)), "");
}

TEST(check_hex, counts_records_with_a_wrong_or_missing_check_sum) {
    const auto found =
        check(*kFlash, "; head\r\n" + data(0, {1, 2}) + ":020002000102F8\r\n" +
                           ":02000400010\r\n:0200060001\r\n:020000040000FB\r\n" + kEndRecord)
            .bad_sums;
    EXPECT_TRUE(same(found, 4, 3)) << found.count << " " << found.first_line;
}

TEST(check_hex, numbers_lines_and_not_items) {
    const auto text = "; one, two, three\r\n\r\n; \"\r\n:020002000102F8\r\n" + kEndRecord;
    EXPECT_EQ(check(*kFlash, text).bad_sums.first_line, 4U);
    EXPECT_EQ(check(*kFlash, ";\n;\r;\r\n:020002000102F8").bad_sums.first_line, 4U);
}

TEST(check_hex, counts_bytes_outside_the_device) {
    struct Case {
        const Session* session;
        std::string text;
        std::size_t bytes;
    };
    const Case cases[] = {
        {kSmall.get(), data(0x07FC, {1, 2, 3, 4, 5, 6}), 2},
        {kSmall.get(), data(0x4200 + 0x7E, {1, 0, 2, 0}), 1},
        {kSmall.get(), data(0x8000 + 0x80, {1, 0}), 1},
        {kSmall.get(), data(0x8200, {1, 2}), 2},
        {kSmall.get(), data(0x5000, {1, 2}), 1},
        {kSmall.get(), data(0x401E, {1, 2}), 0},
        {kSmall.get(), data(0x4020, {1, 2}), 2},
        {kSmall.get(), upper_address(1) + data(0, {1, 2}), 2},
        {kBaseline.get(), data(0x01FE, {1, 2}), 0},
        {kBaseline.get(), data(0x0208, {1, 2}), 2},
        {kBaseline.get(), data(0x0400, {1, 0, 2, 0, 3, 0, 4, 0}), 0},  // its ID words
        {kBaseline.get(), data(0x1FFE, {1, 0}), 0},                    // its configuration
        {kPic18.get(), data(0x7FFE, {1, 2, 3, 4}), 2},
        {kPic18.get(), upper_address(1) + data(0, {1, 2}), 2},
        {kPic18.get(), upper_address(2) + data(0, {1, 2}), 2},
        {kPic18.get(), upper_address(0x20) + data(0, Bytes(8, 1)), 0},
        {kPic18.get(), upper_address(0x3F) + data(0xFFFC, {1, 2, 3, 4}), 2},
        {kPic18.get(), upper_address(0x30) + data(0, Bytes(14, 1)), 0},
        {kPic18.get(), upper_address(0x30) + data(14, {1, 2}), 2},
        {kPic18.get(), upper_address(0xF0) + data(0xFE, {1, 2, 3, 4}), 2},
        {kPic18.get(), upper_address(0x50) + data(0, {1, 2}), 2},
    };
    for (const auto& [session, text, bytes] : cases)
        EXPECT_EQ(check(*session, text).outside.count, bytes) << text;
}

TEST(check_hex, counts_bytes_written_again_with_another_value) {
    const auto again = check(*kFlash, data(0, {1, 2, 3, 4}) + data(2, {3, 5}) + data(0, {9}));
    EXPECT_TRUE(same(again.contradicting, 2, 2)) << again.contradicting.count;
    EXPECT_EQ(check(*kFlash, data(0, {1, 2}) + data(0, {1, 2})).contradicting.count, 0U);
    // Both EEPROM addresses mean the same cells.
    EXPECT_EQ(check(*kFlash, data(0x4200, {1, 0}) + data(0x8000, {2, 0})).contradicting.count, 1U);
    // On a PIC18 the upper address 2 folds onto 0.
    EXPECT_EQ(
        check(*kPic18, data(0, {1, 2}) + upper_address(2) + data(0, {1, 3})).contradicting.count,
        1U);
}

TEST(check_hex, notices_that_the_end_record_is_missing) {
    EXPECT_TRUE(check(*kFlash, data(0, {1, 2})).no_end);
    EXPECT_FALSE(check(*kFlash, data(0, {1, 2}) + kEndRecord + data(2, {1, 2})).no_end);
    // A file that was cut off at its very beginning loads as a blank image.
    EXPECT_TRUE(check(*kFlash, "").no_end);
    EXPECT_TRUE(check(*kFlash, "; nothing\r\n").no_end);
}

TEST(check_hex, tells_records_that_were_folded_and_the_option_that_places_them) {
    const auto text = data(0, {1, 2}) + upper_address(1) + data(0x000E, {1, 2}) +
                      data(0xE000, {1, 0}) + kEndRecord;
    const auto found = check(*kEnhanced, text);
    EXPECT_TRUE(same(found.folded, 2, 3)) << found.folded.count;
    EXPECT_NE(describe(found).find("HexUpperAddress"), std::string::npos);
    EXPECT_EQ(describe(check(*kEnhanced, text, HexAddresses::Full)), "");
    EXPECT_EQ(check(*kFlash, text).folded.count, 0U);  // has no such addresses
}

TEST(check_hex, tells_program_that_the_smaller_parts_zones_take_for_something_else) {
    for (const unsigned address : {0x4000U, 0x400EU, 0x4200U, 0x7FF0U})
        EXPECT_EQ(check(*kEnhanced, data(address, {1, 2})).folded.count, 1U) << address;
    EXPECT_EQ(check(*kEnhanced, data(0x3FF0, {1, 2})).folded.count, 0U);
    EXPECT_EQ(check(*kEnhanced, data(0x7FF0, {1, 2}), HexAddresses::Full).outside.count, 0U);
    EXPECT_EQ(check(*kEnhanced, data(0x8000, {1, 2}), HexAddresses::Full).outside.count, 2U);
}

TEST(check_hex, takes_no_blank_padding_for_data) {
    struct Case {
        const Session* session;
        std::string text;
        std::size_t bytes;
    };
    const Case cases[] = {
        {kSmall.get(), data(0x07FC, {1, 2, 3, 4, 0xFF, 0x3F, 0xFF, 0xFF}), 0},
        {kSmall.get(), data(0x0800, {0xFF, 0x3F, 0xFF, 0x3E, 0xFE, 0x3F, 0xFF, 0x1F}), 6},
        {kSmall.get(), data(0x4280, {0xFF, 0x00, 0xFF, 0x3F, 0xFE, 0x3F}), 1},
        {kSmall.get(), data(0x8080, {0xFF, 0x00, 0xFF, 0xFF, 0x00, 0x00}), 1},
        {kSmall.get(), data(0x8200, {0xFF, 0x3F, 0xFF, 0x00}), 2},
        {kBaseline.get(), data(0x0208, {0xFF, 0x0F, 0xFF, 0x07}), 2},
        {kSmall.get(), data(0x4020, {0xFF, 0x3F, 0xFF, 0xFF, 0xFE, 0x3F}), 2},
        {kPic18.get(), upper_address(0x30) + data(14, {0xFF, 0xFF, 0xFE}), 1},
        {kPic18.get(), data(0x8000, {0xFF, 0x00, 0xFF, 0x3F}), 2},
        {kPic18.get(), upper_address(0xF0) + data(0x100, {0xFF, 0xFE}), 1},
        {kPic18.get(), upper_address(0x3F) + data(0xFFFC, {0xFF, 0x12}), 1},
        // Padding counts if it stops the loader or is folded onto other data.
        {kSmall.get(), data(0x5000, {0xFF, 0x3F}), 1},
        {kSmall.get(), upper_address(1) + data(0, {0xFF, 0x3F}), 2},
        {kPic18.get(), upper_address(2) + data(0, {0xFF, 0xFF}), 2},
        {kSmall.get(), data(0x4102, {0xFF, 0x3F}), 2},
        {kPic18.get(), upper_address(0x30) + data(0x100, {0xFF, 0xFF}), 2},
        {kPic18.get(), upper_address(0xF0) + data(0x800, {0xFF, 0xFF}), 2},
    };
    for (const auto& [session, text, bytes] : cases)
        EXPECT_EQ(check(*session, text).outside.count, bytes) << text;
}

TEST(check_hex, tells_folded_records_as_such_and_not_as_data_outside) {
    const auto text = data(0x4800, {1, 2}) + data(0x5000, {1, 2}) + upper_address(1) +
                      data(0xE000, {1, 0}) + kEndRecord;
    const auto found = check(*kEnhanced, text);
    EXPECT_TRUE(same(found.folded, 3, 1)) << found.folded.count;
    EXPECT_EQ(found.outside.count, 0U);
}

// Unchanged output of a real assembler, for the parts whose files differ most in form.
TEST(check_hex, has_nothing_to_say_of_sound_files_of_an_assembler) {
    struct Case {
        const char* type;
        const char* name;
        int words;
        int cells;
        const char* text;
        HexAddresses addresses = HexAddresses::Folded;
    };
    const Case cases[] = {
        // ID words behind the program, configuration at 0x1FFE
        {"10F2", "PIC12F508", 512, 0,
         ":020000040000FA\n:040000002500000ACD\n:080400000100020003000400EA\n"
         ":021FFE00FB0FD7\n:00000001FF\n"},
        {"5F18", "PIC16F54", 512, 0,
         ":020000040000FA\n:02000000000AF4\n:080400000100020003000400EA\n"
         ":021FFE00FB0FD7\n:00000001FF\n"},
        // a part whose ID is at no other place
        {"10F2", "PIC12F510", 1024, 0,
         ":020000040000FA\n:02000000000AF4\n:080800000100020003000400E6\n"
         ":021FFE00EB0FE7\n:00000001FF\n"},
        // a calibration word and EEPROM
        {"12F6", "PIC12F675", 1024, 128,
         ":020000040000FA\n:020000000028D6\n:0207FE00803445\n:084000000100020003000400AE\n"
         ":02400E00F73F7A\n:06420000010002000300B2\n:00000001FF\n"},
        // program behind 64 K
        {"18F_01", "PIC18F8722", 65536, 1024,
         ":020000040000FA\n:04000000F8EFFFF026\n:020000040001F9\n:02FFF00000000F\n"
         ":020000040030CA\n:06000100071F1EF38385BA\n:06000800FFC0FFE0FF4015\n:00000001FF\n"},
        {"18F_01", "PIC18F2550", 16384, 256,
         ":020000040000FA\n:0800000000EF00F00102030013\n:020000040020DA\n:0100000012ED\n"
         ":020000040030CA\n:0400000000051F1EBA\n:020005008385F1\n:060008000FC00FE00F40E5\n"
         ":0200000400F00A\n:03000000010203F7\n:00000001FF\n"},
        // an enhanced part by full address
        {"FLASH8", "PIC16F1938", 16384, 256,
         ":020000040000FA\n:020000000028D6\n:020000040001F9\n:080000000100020003000400EE\n"
         ":02000E00E7FF0A\n:02001000FFDF10\n:06E0000001000200030014\n:00000001FF\n",
         HexAddresses::Full},
    };
    for (const auto& part : cases)
        EXPECT_EQ(describe(check(*device(part.type, part.name, part.words, part.cells), part.text,
                                 part.addresses)),
                  "")
            << part.name;
}

TEST(check_hex, names_the_ID_where_the_bytes_outside_are_ID_words) {
    const auto behind = data(0x0200, {1, 0, 2, 0, 3, 0, 4, 0});
    const auto own = data(0x0400, {1, 0, 2, 0, 3, 0, 4, 0});
    // These words are taken only if the file has no other ID, before or after them.
    EXPECT_EQ(describe(check(*kBaseline, behind + kEndRecord)), "");
    for (const auto& text : {behind + own, own + behind, data(0x4000, {1, 0}) + behind}) {
        const auto found = check(*kBaseline, text);
        EXPECT_EQ(found.outside_id.count, 8U) << text;
        EXPECT_EQ(found.outside.count, 0U) << text;
    }
    EXPECT_TRUE(same(check(*kBaseline, own + behind).outside_id, 8, 2));
    const auto blank = data(0x0200, {0xFF, 0x0F, 0xFF, 0x0F});
    EXPECT_EQ(check(*kBaseline, own + blank).outside_id.count, 0U);
    const auto ninth = check(*kPic18, upper_address(0x20) + data(8, {1, 0xFF}));
    EXPECT_TRUE(same(ninth.outside_id, 2, 2));
    EXPECT_EQ(ninth.outside.count, 0U);
}

TEST(check_hex, tells_segment_records_that_the_loader_drops) {
    const auto text = segment(0) + data(0, {1, 2}) + segment(0x1000) + data(0x000E, {1, 2}) +
                      segment(0) + data(4, {1, 2}) + kEndRecord;
    for (const auto* part : {kFlash.get(), kPic18.get(), kEnhanced.get()})
        EXPECT_TRUE(same(check(*part, text).segments, 1, 3)) << part->DeviceName;
    EXPECT_EQ(describe(check(*kEnhanced, text, HexAddresses::Full)), "");
    // With the option set, the data behind the segments would be placed.
    EXPECT_TRUE(same(check(*kEnhanced, text).folded, 1, 4));
    EXPECT_NE(describe(check(*kEnhanced, text)).find("HexUpperAddress"), std::string::npos);
    EXPECT_TRUE(same(check(*kFlash, text).outside, 2, 4));
    const auto ends_upper = upper_address(0x20) + data(0, {1}) + segment(0) + data(0, {1});
    EXPECT_TRUE(same(check(*kPic18, ends_upper).segments, 1, 3));
    // The PIC18 loader ignores segments, so no byte is moved out of the device.
    EXPECT_EQ(check(*kPic18, text).outside.count, 0U);
}

TEST(check_hex, follows_segment_records_where_they_place_data) {
    const auto text = segment(0x0800) + data(0, {1, 2}) + kEndRecord;
    EXPECT_TRUE(same(check(*kEnhanced, text, HexAddresses::Full).outside, 2, 2));
    EXPECT_EQ(check(*kEnhanced, text, HexAddresses::Full).segments.count, 0U);
}

TEST(check_hex, tells_data_behind_the_end_record) {
    const auto text = data(0, {1, 2}) + kEndRecord + data(2, {1, 2}) + "; more\r\n" +
                      data(4, {1, 2}) + kEndRecord;
    EXPECT_TRUE(same(check(*kFlash, text).behind_end, 2, 3));
    EXPECT_EQ(check(*kFlash, kEndRecord + upper_address(0)).behind_end.count, 0U);
}

TEST(check_hex, has_nothing_to_say_of_a_file_that_was_saved) {
    for (const auto* session : {kFlash.get(), kSmall.get(), kBaseline.get(), kPic18.get()}) {
        auto own = device(session->PgmType.text(), session->DeviceName, session->PgmWords,
                          session->EepBytes);
        const auto text = hex_text(*own, own->DeviceName);
        EXPECT_EQ(describe(check(*own, text)), "") << own->DeviceName;
    }
}

TEST(check_hex, survives_records_of_any_kind) {
    for (const auto* text : {":", ":1", ":10", ":FF000000", ":0200000", ":02000004", ":0200000400",
                             ":02000004GGGG", ":zz", "::::", ":FFFFFF00FF"})
        EXPECT_EQ(check(*kFlash, text).bad_sums.count, 1U) << text;
}

TEST(describe, puts_all_findings_in_one_line) {
    HexCheck found;
    found.bad_sums = {3, 12};
    found.outside = {16, 40};
    found.contradicting = {2, 41};
    found.outside_id = {8, 45};
    found.folded = {5, 50};
    found.segments = {1, 49};
    found.behind_end = {4, 70};
    found.no_end = true;
    EXPECT_EQ(
        describe(found),
        "redファイル検査：チェックサムの合わないレコードが3件（最初は12行目）"
        "、デバイスの範囲外のデータが16バイト（最初は40行目）"
        "、デバイスの範囲外のIDが8バイト（最初は45行目）"
        "、異なる値で二重に書かれたデータが2バイト（最初は41行目）"
        "、下位アドレスに折り返された上位アドレスのレコードが5件（最初は50行目。"
        "オプション「HEXファイルの上位アドレスを使う」(HexUpperAddress)で本来の位置に置けます）"
        "、無視されたセグメントレコード(タイプ02)が1件（最初は49行目）"
        "、終了レコードより後のデータレコードが4件（最初は70行目）"
        "、終了レコードがありません（途中で切れたファイルの可能性があります）");
}

TEST(describe, tells_what_the_loader_noted_behind_the_check_sums) {
    HexCheck found;
    found.no_end = true;
    EXPECT_EQ(
        describe(found, {.count = 2, .first_line = 4}),
        "redファイル検査：チェックサムまでデータとして読まれた奇数バイトのレコードが2件"
        "（最初は4行目）、終了レコードがありません（途中で切れたファイルの可能性があります）");
    EXPECT_EQ(describe({}), "");
}

}  // namespace quillon
