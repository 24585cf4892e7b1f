// SPDX-License-Identifier: MIT
// The records of a saved file: which, in which order, at which addresses.
#include "hex/hex_writer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "hex/hex_items.h"
#include "image/fill.h"
#include "image/image_support.h"

namespace quillon {

using test::data;
using test::device;

namespace {

using Lines = std::vector<std::string>;

std::unique_ptr<Session> blank(std::string_view PgmType, std::string_view name, std::int32_t words,
                               std::int32_t cells = 0) {
    auto session = device(PgmType, name, words, cells);
    FillProgramOnes(*session);
    FillEepromOnes(*session);
    FillIdOnes(*session);
    return session;
}

// Lines without their ends, which must be CR LF.
Lines lines_of(const std::string& text) {
    Lines lines;
    std::size_t at = 0;
    for (auto end = text.find("\r\n"); end != std::string::npos; end = text.find("\r\n", at)) {
        lines.push_back(text.substr(at, end - at));
        at = end + 2;
    }
    EXPECT_EQ(at, text.size());
    return lines;
}

Lines saved(Session& session, HexAddresses addresses = HexAddresses::Folded) {
    return lines_of(hex_text(session, session.DeviceName, addresses));
}

std::size_t count_starting(const Lines& lines, std::string_view head) {
    return static_cast<std::size_t>(
        std::ranges::count_if(lines, [&](const auto& line) { return line.starts_with(head); }));
}

std::size_t index_of(const Lines& lines, std::string_view line) {
    return static_cast<std::size_t>(std::ranges::find(lines, line) - lines.begin());
}

}  // namespace

TEST(hex_text, of_a_blank_PIC16F84_is_told_line_by_line) {
    auto session = blank("FLASH1", "PIC16F84", 1024, 64);
    const auto lines = saved(*session);
    ASSERT_EQ(lines.size(), 128U + 8 + 8 + 1 + 2 + 1);
    EXPECT_EQ(lines[0], ":10000000FF3FFF3FFF3FFF3FFF3FFF3FFF3FFF3F00");
    EXPECT_EQ(lines[127], ":1007F000FF3FFF3FFF3FFF3FFF3FFF3FFF3FFF3F09");
    EXPECT_EQ(lines[128], ":10420000FF00FF00FF00FF00FF00FF00FF00FF00B6");
    EXPECT_EQ(lines[135], ":10427000FF00FF00FF00FF00FF00FF00FF00FF0046");
    EXPECT_EQ(lines[136], ":10800000FF00FF00FF00FF00FF00FF00FF00FF0078");
    EXPECT_EQ(lines[143].substr(0, 9), ":10807000");
    EXPECT_EQ(lines[144].substr(0, 9), ":08400000");
    EXPECT_EQ(lines[145].substr(0, 9), ":02400E00");
    EXPECT_EQ(lines[146].substr(0, 9), ":10401000");
    EXPECT_EQ(lines[147], ":00000001FF");
    EXPECT_EQ(count_starting(lines, ":02000004"), 0U);
}

TEST(hex_text, ends_every_record_with_the_twos_complement_of_its_sum) {
    auto session = blank("FLASH8", "PIC16F877A", 8192, 256);
    session->CfgIdMem[15] = 0x77;
    for (const auto& line : saved(*session)) {
        unsigned sum = 0;
        for (std::size_t at = 2; at + 1 <= line.size(); at += 2)
            sum += hex_byte_at(line, at).value_or(0x99);
        EXPECT_EQ(sum % 0x100, 0U) << line;
    }
}

TEST(hex_text, writes_words_low_byte_first_at_twice_their_number) {
    auto session = blank("FLASH8", "PIC16F877A", 8192);
    session->PgmMem[0x10] = 0x12;
    session->PgmMem[0x11] = 0x34;
    EXPECT_EQ(saved(*session)[1], ":100010003412FF3FFF3FFF3FFF3FFF3FFF3FFF3FE8");
}

TEST(hex_text, writes_a_cell_as_its_byte_and_00_in_both_forms) {
    auto session = blank("FLASH8", "PIC16F877", 8192, 256);
    session->EepMem[1] = 0x5A;
    session->EepMem[17] = 0xA5;
    const auto lines = saved(*session);
    EXPECT_EQ(lines[1024].substr(0, 17), ":104200005A00FF00");
    EXPECT_EQ(lines[1025].substr(0, 13), ":10421000A500");
    EXPECT_EQ(lines[1024 + 32].substr(0, 17), ":108000005A00FF00");
    EXPECT_EQ(lines[1025 + 32].substr(0, 13), ":10801000A500");
    EXPECT_EQ(lines[1024 + 63].substr(0, 9), ":1081F000");
}

TEST(hex_text, writes_no_EEPROM_lines_without_cells) {
    auto words = blank("FLASH0", "PIC16F73", 4096, 0);
    EXPECT_EQ(saved(*words).size(), 512U + 1 + 2 + 1);
    auto pic18 = blank("18F_00", "PIC18F2515", 1024, 0);
    EXPECT_EQ(count_starting(saved(*pic18), ":0200000400F0"), 0U);
}

TEST(hex_text, leaves_a_line_that_the_words_do_not_fill_unwritten) {
    auto session = blank("FLASH8", "PIC", 20);
    EXPECT_EQ(saved(*session).size(), 2U + 1 + 2 + 1);
}

TEST(hex_text, writes_the_ID_words_low_byte_first) {
    auto session = blank("FLASH8", "PIC16F877A", 8192);
    for (std::size_t i = 0; i < 8; ++i) session->CfgIdMem[i] = static_cast<std::uint8_t>(i);
    EXPECT_EQ(saved(*session)[1024], ":0840000001000302050407069C");
}

TEST(hex_text, puts_the_digits_of_a_PIC16F7x_under_bit_7) {
    for (const auto* name : {"PIC16F73", "PIC16F74", "PIC16F76", "PIC16F77"}) {
        auto session = blank("FLASH0", name, 4096);
        for (std::size_t i = 0; i < 8; ++i)
            session->CfgIdMem[i] = static_cast<std::uint8_t>(0xF0 + i);
        EXPECT_EQ(saved(*session)[512].substr(0, 25), ":08400000813F833F853F873F") << name;
        // The device that the list shows decides.
        const auto other = lines_of(hex_text(*session, "PIC16F877A"));
        EXPECT_EQ(other[512].substr(0, 25), ":08400000F1F0F3F2F5F4F7F6") << name;
    }
}

TEST(hex_text, ends_a_12_bit_part_with_one_configuration_word_at_1FFE) {
    for (const auto* type : {"5F18", "10F2", "5F28", "5X18", "5X28", "12C5"}) {
        auto session = blank(type, "PIC10F200", 256);
        session->CfgIdMem[14] = 0x0F;
        session->CfgIdMem[15] = 0xE4;
        const auto lines = saved(*session);
        ASSERT_EQ(lines.size(), 32U + 1 + 1 + 1) << type;
        EXPECT_EQ(lines[32].substr(0, 9), ":08400000") << type;
        EXPECT_EQ(lines[33], ":021FFE00E40FEE") << type;
    }
}

TEST(hex_text, writes_nine_configuration_words_of_the_other_types) {
    auto session = blank("FLASH4", "PIC16F887", 8192);
    for (std::size_t i = 14; i < 32; ++i) session->CfgIdMem[i] = static_cast<std::uint8_t>(i);
    const auto lines = saved(*session);
    EXPECT_EQ(lines[1025].substr(0, 13), ":02400E000F0E");
    EXPECT_EQ(lines[1026].substr(0, 41),
              ":1040100011101312151417161918"
              "1B1A1D1C1F1E");
}

TEST(hex_text, of_a_PIC18_has_program_EEPROM_configuration_and_ID_in_this_order) {
    auto session = blank("18F_00", "PIC18F2550", 16384, 256);
    session->PgmMem[0] = 0x12;
    session->PgmMem[1] = 0x34;
    session->EepMem[0] = 0x5A;
    session->ConfigWord[1] = 0x0524;
    session->ConfigWord[7] = 0x400F;
    session->IdBytes18 = {0xF1, 0xF2, 0xF3, 0xF4, 0xF5, 0xF6, 0xF7, 0xF8};
    const auto lines = saved(*session);
    ASSERT_EQ(lines.size(), 1U + 2048 + 1 + 16 + 2 + 2 + 1);
    EXPECT_EQ(lines[0], ":020000040000FA");
    EXPECT_EQ(lines[1].substr(0, 17), ":100000003412FFFF");
    EXPECT_EQ(lines[2048].substr(0, 9), ":107FF000");
    EXPECT_EQ(lines[2049], ":0200000400F00A");
    EXPECT_EQ(lines[2050].substr(0, 13), ":100000005AFF");
    EXPECT_EQ(lines[2065].substr(0, 9), ":1000F000");
    EXPECT_EQ(lines[2066], ":020000040030CA");
    EXPECT_EQ(lines[2067].substr(0, 37),
              ":0E000000"
              "2405"
              "00000000000000000000"
              "0F40");
    EXPECT_EQ(lines[2068], ":020000040020DA");
    EXPECT_EQ(lines[2069].substr(0, 25), ":08000000F1F2F3F4F5F6F7F8");
    EXPECT_EQ(lines[2070], ":00000001FF");
    EXPECT_EQ(test::bytes_of(session->CfgBytes18, 0, 1), "2405");
    EXPECT_EQ(test::bytes_of(session->CfgBytes18, 12, 13), "0F40");
}

TEST(hex_text, tells_the_next_64_K_right_behind_the_line_at_FFF0) {
    struct Case {
        std::int32_t words;
        std::size_t next;  // how often an extended address of 1 or 2 follows
    };
    for (const auto& [words, next] :
         {Case{24576, 0}, Case{32768, 1}, Case{49152, 1}, Case{65536, 2}}) {
        auto session = blank("18F_00", "PIC18F", words);
        const auto lines = saved(*session);
        EXPECT_EQ(
            count_starting(lines, ":020000040001F9") + count_starting(lines, ":020000040002F8"),
            next)
            << words;
        if (next > 0) {
            const auto at = index_of(lines, ":020000040001F9");
            ASSERT_LT(at + 1, lines.size()) << words;
            EXPECT_EQ(lines[at - 1].substr(0, 9), ":10FFF000");
            EXPECT_EQ(lines[at + 1].substr(0, 9), words == 32768 ? ":02000004" : ":10000000");
        }
    }
}

TEST(hex_text, of_an_enhanced_part_by_full_address_stands_where_its_assembler_puts_it) {
    auto session = blank("FLASH8", "PIC16F1938", 16384, 256);
    for (std::size_t i = 0; i < 18; ++i) session->CfgIdMem[i] = static_cast<std::uint8_t>(i);
    session->EepMem[1] = 0x5A;
    const auto lines = saved(*session, HexAddresses::Full);
    ASSERT_EQ(lines.size(), 1U + 2048 + 1 + 1 + 1 + 32 + 1);
    EXPECT_EQ(lines[0], ":020000040000FA");
    EXPECT_EQ(lines[2048].substr(0, 9), ":107FF000");
    EXPECT_EQ(lines[2049], ":020000040001F9");
    EXPECT_EQ(lines[2050].substr(0, 25), ":080000000100030205040706");
    EXPECT_EQ(lines[2051].substr(0, 17), ":04000E000F0E1110");
    EXPECT_EQ(lines[2052].substr(0, 17), ":10E000005A00FF00");
    EXPECT_EQ(lines[2083].substr(0, 9), ":10E1F000");
    EXPECT_EQ(lines[2084], ":00000001FF");
}

TEST(hex_text, by_full_address_is_for_the_enhanced_parts_alone) {
    for (const auto* type : {"FLASH8", "10F2", "18F_00"}) {
        auto session = blank(type, "PIC16F877A", 256, 64);
        EXPECT_EQ(saved(*session), saved(*session, HexAddresses::Full)) << type;
    }
}

}  // namespace quillon
