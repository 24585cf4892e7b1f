// SPDX-License-Identifier: MIT
// Where the word-image loader puts what a file holds, at both sides of each zone's edge.
#include "hex/word_image_loader.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "image/fill.h"
#include "image/image_support.h"

namespace quillon {

using test::Bytes;
using test::bytes_of;
using test::data;
using test::device;
using test::record;
using test::segment;
using test::upper_address;

namespace {

std::unique_ptr<Session> flash(std::string_view name = "PIC16F877A") {
    auto session = device("FLASH8", name, 8192, 256);
    FillProgramOnes(*session);
    FillEepromOnes(*session);
    FillIdOnes(*session);
    return session;
}

HexLoad load(Session& session, std::string_view text) {
    return load_word_image(text, session.DeviceName, session);
}

}  // namespace

TEST(WordImageLoader, places_words_high_byte_first_at_their_byte_address) {
    auto session = flash();
    EXPECT_TRUE(load(*session, data(0x0010, {0x01, 0x30, 0xFE, 0x2F})).ok);
    EXPECT_EQ(bytes_of(session->PgmMem, 0x0E, 0x15), "3FFF30012FFE3FFF");
    EXPECT_EQ(session->IdText, "FFFF");
}

TEST(WordImageLoader, notes_the_sides_of_the_device_that_a_file_has_data_for) {
    struct Case {
        std::string text;
        bool program;
        bool eeprom;
    };
    const std::vector<Case> cases{
        {"", false, false},
        {test::kEndRecord, false, false},
        {":0000000000\n", false, false},
        {data(0, {0xFF, 0x3F}), true, false},
        {data(0x4000, {0, 0, 0, 0, 0, 0, 0, 0}), true, false},
        {data(0x400E, {0xFF, 0x3F}), true, false},
        {data(0x4200, {0xFF, 0}), false, true},
        {data(0x8000, {0x12, 0}), false, true},
        {data(0x81FE, {0x12, 0}), false, true},
        {data(0x8200, {0x12, 0}), false, false},
        {data(0, {0x34, 0x12}) + data(0x4200, {0x12, 0}), true, true},
    };
    for (const auto& [text, program, eeprom] : cases) {
        const auto sides = load(*flash(), text).sides;
        EXPECT_EQ(sides.program, program) << text;
        EXPECT_EQ(sides.eeprom, eeprom) << text;
    }
    auto small = device("FLASH0", "PIC16F84A", 1024, 64);
    EXPECT_TRUE(load(*small, data(0x427E, {0x12, 0})).sides.eeprom);
    EXPECT_FALSE(load(*small, data(0x4280, {0x12, 0})).sides.eeprom) << "it has 64 cells";
    auto none = device("FLASH2", "PIC16F73", 4096);
    EXPECT_FALSE(load(*none, data(0x4200, {0x12, 0})).sides.eeprom);
}

TEST(WordImageLoader, takes_program_up_to_3FFF) {
    auto session = flash();
    ASSERT_TRUE(load(*session, data(0x3FFE, {0x34, 0x12})).ok);
    EXPECT_EQ(bytes_of(session->PgmMem, 0x3FFE, 0x3FFF), "1234");
    // A record that begins below 0x4000 runs on into the program image.
    ASSERT_TRUE(load(*session, data(0x3FFE, {0x34, 0x12, 0x78, 0x56})).ok);
    EXPECT_EQ(bytes_of(session->PgmMem, 0x3FFE, 0x4001), "12345678");
    ASSERT_TRUE(load(*session, data(0x3FFF, {0xCD, 0xAB})).ok);
    EXPECT_EQ(bytes_of(session->PgmMem, 0x3FFE, 0x4001), "12ABCD78");
    EXPECT_EQ(bytes_of(session->CfgIdMem, 0, 3), "3FFF3FFF");
}

TEST(WordImageLoader, reads_the_check_sum_as_data_for_an_odd_byte_count) {
    auto session = flash();
    ASSERT_TRUE(load(*session, ":03000000010203F7\n").ok);
    EXPECT_EQ(bytes_of(session->PgmMem, 0, 5), "0201F7033FFF");
    EXPECT_FALSE(load(*session, ":03000000010203\n").ok);  // no check sum to read
}

TEST(WordImageLoader, takes_a_record_with_no_data) {
    auto session = flash();
    EXPECT_TRUE(load(*session, ":0000000000\n:00600000A0\n").ok);
    EXPECT_EQ(bytes_of(session->PgmMem, 0, 1), "3FFF");
}

TEST(WordImageLoader, ignores_the_check_sum) {
    auto session = flash();
    EXPECT_TRUE(load(*session, ":020000000130FF\n").ok);
    EXPECT_EQ(bytes_of(session->PgmMem, 0, 1), "3001");
}

TEST(WordImageLoader, sets_configuration_word_1_from_400E_without_its_upper_bits) {
    auto session = flash();
    const auto result = load(*session, data(0x400E, {0x3A, 0xFF}));
    EXPECT_TRUE(result.ok && result.has_config);
    EXPECT_EQ(bytes_of(session->CfgIdMem, 14, 15), "3F3A");
    EXPECT_EQ(session->ConfigWord[1], 0x3F3AU);
}

TEST(WordImageLoader, masks_four_configuration_words_and_no_more) {
    auto session = flash();
    const auto result = load(*session, data(0x4008, Bytes(20, 0xFF)));
    ASSERT_TRUE(result.ok);
    EXPECT_EQ(bytes_of(session->CfgIdMem, 8, 27), "FFFFFFFFFFFF3FFF3FFF3FFF3FFFFFFFFFFFFFFF");
    EXPECT_EQ(session->ConfigWord[2], 0x3FFFU);
}

TEST(WordImageLoader, takes_ID_and_configuration_from_4001_to_41FF) {
    auto session = flash();
    ASSERT_TRUE(load(*session, data(0x4001, {0x34, 0x12})).ok);
    EXPECT_EQ(bytes_of(session->CfgIdMem, 0, 3), "3F1234FF");
    ASSERT_TRUE(load(*session, data(0x40FE, {0x34, 0x12})).ok);
    EXPECT_EQ(bytes_of(session->CfgIdMem, 254, 255), "1234");
    ASSERT_TRUE(load(*session, data(0x40FF, {0x34, 0x12})).ok);
    EXPECT_EQ(bytes_of(session->CfgIdMem, 255, 256), "1234");
    EXPECT_FALSE(load(*session, data(0x4100, {0x34, 0x12})).ok);
    EXPECT_FALSE(load(*session, data(0x41FE, {0x34, 0x12})).ok);
}

TEST(WordImageLoader, tells_whether_the_file_supplied_configuration_words) {
    auto session = flash();
    EXPECT_FALSE(load(*session, data(0, {0, 0})).has_config);
    EXPECT_FALSE(load(*session, data(0x4000, Bytes(8, 0))).has_config);
    EXPECT_FALSE(load(*session, data(0x400C, {0, 0})).has_config);
    EXPECT_TRUE(load(*session, data(0x400E, {0, 0})).has_config);
    EXPECT_TRUE(load(*session, data(0x4002, Bytes(14, 0))).has_config);
    EXPECT_TRUE(load(*session, data(0x401A, {0, 0})).has_config);
    EXPECT_FALSE(load(*session, data(0x401C, {0, 0})).has_config);
}

TEST(WordImageLoader, takes_EEPROM_data_in_its_first_form) {
    auto session = flash();
    ASSERT_TRUE(load(*session, data(0x4200, {0x5A, 0x77, 0xA5, 0x00})).ok);
    EXPECT_EQ(bytes_of(session->EepMem, 0, 5), "3F5A3FA53FFF");
    ASSERT_TRUE(load(*session, data(0x43FE, {0x12, 0x00})).ok);
    EXPECT_EQ(bytes_of(session->EepMem, 0x1FE, 0x1FF), "3F12");
}

TEST(WordImageLoader, takes_EEPROM_data_in_its_second_form) {
    auto session = flash();
    ASSERT_TRUE(load(*session, data(0x8000, {0x5A, 0x00, 0xA5, 0x00})).ok);
    EXPECT_EQ(bytes_of(session->EepMem, 0, 5), "3F5A3FA53FFF");
    ASSERT_TRUE(load(*session, data(0x81FE, {0x12, 0x00})).ok);
    EXPECT_EQ(bytes_of(session->EepMem, 0x1FE, 0x1FF), "3F12");
}

TEST(WordImageLoader, needs_no_second_byte_for_an_EEPROM_cell) {
    auto session = flash();
    EXPECT_TRUE(load(*session, ":014200005A\n").ok);
    EXPECT_EQ(bytes_of(session->EepMem, 0, 3), "3F5A3FFF");
}

TEST(WordImageLoader, fails_for_addresses_from_4400_to_7FFF_as_a_PIC18_file_has_them) {
    for (const unsigned address : {0x4400U, 0x4402U, 0x6000U, 0x7FFEU, 0x7FFFU}) {
        auto session = flash();
        EXPECT_FALSE(load(*session, data(address, {0x12, 0x34})).ok) << address;
        EXPECT_EQ(bytes_of(session->EepMem, 0, 1), "3FFF") << address;
    }
    auto session = flash();
    EXPECT_TRUE(load(*session, data(0x43FF, {0x12, 0x34})).ok);
    EXPECT_TRUE(load(*session, data(0x8000, {0x12, 0x34})).ok);
}

TEST(WordImageLoader, ignores_what_has_no_zone) {
    for (const unsigned address : {0x8200U, 0xC000U, 0xFEFEU, 0xFEFFU, 0xFF01U, 0xFF02U, 0xFFFEU}) {
        auto session = flash();
        const auto before = session->CfgIdMem;
        const auto result = load(*session, data(address, {0x12, 0x34}));
        EXPECT_TRUE(result.ok && !result.has_config) << address;
        EXPECT_EQ(session->CfgIdMem, before) << address;
        EXPECT_EQ(bytes_of(session->EepMem, 0, 1), "3FFF") << address;
    }
}

TEST(WordImageLoader, loads_behind_an_end_record_and_drops_other_types) {
    auto session = flash();
    const auto text = test::kEndRecord + record(5, 0, {1, 2, 3, 4}) + record(2, 0, {0x10, 0}) +
                      record(3, 0, {9, 9}) + data(2, {0x34, 0x12});
    const auto result = load(*session, text);
    EXPECT_TRUE(result.ok && result.skipped.empty());
    EXPECT_EQ(bytes_of(session->PgmMem, 0, 3), "3FFF1234");
}

TEST(WordImageLoader, folds_extended_addresses_into_16_bits) {
    auto session = flash();
    const auto text = data(0, {0x11, 0x00, 0x22, 0x00}) + upper_address(1) + data(2, {0x33, 0x00});
    EXPECT_TRUE(load(*session, text).ok);
    EXPECT_EQ(bytes_of(session->PgmMem, 0, 5), "001100333FFF");
}

TEST(WordImageLoader, reads_the_digits_of_an_extended_address_though_it_drops_them) {
    auto session = flash();
    EXPECT_TRUE(load(*session, ":02000004FFFFFC\n").ok);
    EXPECT_FALSE(load(*session, ":02000004FFG0\n").ok);
    EXPECT_FALSE(load(*session, ":0200000400\n").ok);
}

TEST(WordImageLoader, loads_a_PIC18_file_whose_addresses_stay_low_without_a_word) {
    auto session = flash();
    const auto text =
        upper_address(0) + data(0, {0x11, 0x22}) + upper_address(0x30) + data(0, {0x33, 0x44});
    EXPECT_TRUE(load(*session, text).ok);
    EXPECT_EQ(bytes_of(session->PgmMem, 0, 1), "4433");
}

TEST(WordImageLoader, skips_and_numbers_items_that_are_no_records) {
    auto session = flash();
    const auto result =
        load(*session, ";a comment, in two\r\n" + data(0, {0x34, 0x12}) + "\r\nx\r\n");
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.skipped.list(), "1、2、4、5");
    EXPECT_EQ(bytes_of(session->PgmMem, 0, 1), "1234");
}

TEST(WordImageLoader, takes_an_empty_text_as_a_blank_image) {
    auto session = flash();
    const auto result = load(*session, "");
    EXPECT_TRUE(result.ok && result.skipped.empty() && !result.has_config);
    EXPECT_EQ(ProgramCheckSum(*session), "E000");
    EXPECT_EQ(session->ConfigWord[1], 0x3FFFU);
}

TEST(WordImageLoader, stops_at_a_bad_digit_or_a_short_line_and_keeps_what_it_placed) {
    const auto good = data(0, {0x34, 0x12});
    for (const auto* bad : {":02000200781G70", ":0200020078", ":020002007", ":02000200", ":0200",
                            ":", ":02000200 ÿ00", ":10000200000000000000000000000000000000"}) {
        auto session = flash();
        EXPECT_FALSE(load(*session, good + bad + "\r\n" + data(4, {0xFF, 0xFF})).ok) << bad;
        EXPECT_EQ(bytes_of(session->PgmMem, 0, 1), "1234") << bad;
        EXPECT_EQ(bytes_of(session->PgmMem, 0x14, 0x15), "3FFF") << bad;
    }
}

TEST(WordImageLoader, keeps_the_words_of_a_record_before_its_bad_digit) {
    auto session = flash();
    EXPECT_FALSE(load(*session, ":04000000341278ZZ00\n").ok);
    EXPECT_EQ(bytes_of(session->PgmMem, 0, 3), "12343FFF");
}

TEST(WordImageLoader, takes_the_words_behind_the_ID_words_of_a_longer_record) {
    auto session = flash();
    Bytes dump(20, 0x00);
    dump[0] = 0x05;
    dump[14] = 0x3A;
    dump[15] = 0xFF;
    dump[16] = 0x21;
    const auto result = load(*session, data(0x4000, dump));
    ASSERT_TRUE(result.ok && result.has_config);
    EXPECT_EQ(bytes_of(session->CfgIdMem, 0, 7), "0005000000000000");
    EXPECT_EQ(session->ConfigWord[1], 0x3F3AU);
    EXPECT_EQ(session->ConfigWord[2], 0x0021U);
    EXPECT_EQ(session->IdText, "5000");
}

TEST(WordImageLoader, places_an_enhanced_part_by_full_address_where_it_is_asked_to) {
    auto session = device("FLASH8", "PIC16F1938", 16384, 256);
    FillProgramOnes(*session);
    FillEepromOnes(*session);
    FillIdOnes(*session);
    const auto text = data(0, {0x34, 0x12}) + data(0x4000, {0x78, 0x16}) +
                      data(0x7FFE, {0xBC, 0x2A, 0x11, 0x11}) + data(0x8000, {0x22, 0x22}) +
                      upper_address(1) + data(0, {1, 0, 2, 0, 3, 0, 4, 0}) +
                      data(0x000E, {0xA4, 0x0F, 0xFF, 0x1E}) + data(0xE000, {0x5A, 0x00}) +
                      data(0xE800, {1, 2}) + upper_address(2) + data(0, {9, 9});
    const auto result = load_word_image(text, session->DeviceName, *session, HexAddresses::Full);
    ASSERT_TRUE(result.ok && result.has_config);
    EXPECT_EQ(bytes_of(session->PgmMem, 0, 1), "1234");
    EXPECT_EQ(bytes_of(session->PgmMem, 0x4000, 0x4001), "1678");
    EXPECT_EQ(bytes_of(session->PgmMem, 0x7FFE, 0x8001), "2ABC0000");
    EXPECT_EQ(bytes_of(session->CfgIdMem, 0, 7), "0001000200030004");
    EXPECT_EQ(session->IdText, "1234");
    EXPECT_EQ(session->ConfigWord[1], 0x0FA4U);
    EXPECT_EQ(session->ConfigWord[2], 0x1EFFU);
    EXPECT_EQ(bytes_of(session->EepMem, 0, 3), "3F5A3FFF");
}

TEST(WordImageLoader, places_an_enhanced_part_by_segment_as_by_upper_address) {
    auto session = device("FLASH8", "PIC16F1938", 16384, 256);
    FillProgramOnes(*session);
    FillEepromOnes(*session);
    FillIdOnes(*session);
    const auto text = segment(0x0400) + data(0, {0x78, 0x16}) + segment(0x1000) +
                      data(0x000E, {0xA4, 0x0F}) + segment(0x1E00) + data(0, {0x5A, 0x00}) +
                      upper_address(0) + data(2, {0x34, 0x12}) + segment(0x1000) + segment(0) +
                      data(0, {0x22, 0x11});
    const auto result = load_word_image(text, session->DeviceName, *session, HexAddresses::Full);
    ASSERT_TRUE(result.ok && result.has_config);
    EXPECT_EQ(bytes_of(session->PgmMem, 0, 3), "11221234");
    EXPECT_EQ(bytes_of(session->PgmMem, 0x4000, 0x4001), "1678");
    EXPECT_EQ(session->ConfigWord[1], 0x0FA4U);
    EXPECT_EQ(bytes_of(session->EepMem, 0, 3), "3F5A3FFF");
    EXPECT_FALSE(
        load_word_image(":0200000210G0EC\n", session->DeviceName, *session, HexAddresses::Full).ok);
}

TEST(WordImageLoader, drops_segment_records_unread_unless_it_is_asked_for_full_addresses) {
    auto session = flash();
    const auto text = segment(0x1000) + data(0, {0x34, 0x12}) + ":02000002GGGG\n";
    ASSERT_TRUE(load(*session, text).ok);
    EXPECT_EQ(bytes_of(session->PgmMem, 0, 1), "1234");
}

TEST(WordImageLoader, folds_an_enhanced_part_unless_it_is_asked) {
    auto session = device("FLASH8", "PIC16F1938", 16384, 256);
    FillProgramOnes(*session);
    EXPECT_TRUE(load(*session, upper_address(1) + data(0x000E, {0xA4, 0x0F})).ok);
    EXPECT_EQ(bytes_of(session->PgmMem, 0x0E, 0x0F), "0FA4");
    EXPECT_FALSE(load(*session, data(0x5000, {1, 2})).ok);
}

TEST(WordImageLoader, applies_the_catalogues_masks_to_word_1) {
    auto session = flash();
    session->ConfigMask[1] = 0x0FF0;
    session->ConfigForce[1] = 0x2004;
    ASSERT_TRUE(load(*session, data(0x400E, {0xFF, 0x3F})).ok);
    EXPECT_EQ(bytes_of(session->CfgIdMem, 14, 15), "2FF4");
    EXPECT_EQ(session->ConfigWord[1], 0x2FF4U);
}

TEST(WordImageLoader, takes_word_2_as_it_came) {
    auto session = flash();
    session->ConfigMask[2] = 0x0003;
    ASSERT_TRUE(load(*session, data(0x4010, {0xFC, 0xFF})).ok);
    EXPECT_EQ(session->ConfigWord[2], 0x3FFCU);
}

TEST(WordImageLoader, keeps_only_meaningful_bits_of_a_12C5_word_with_bit_3_clear) {
    auto session = device("12C5", "PIC12CE518", 512);
    ASSERT_TRUE(load(*session, data(0x1FFE, {0xF7, 0x0F})).ok);
    EXPECT_EQ(bytes_of(session->CfgIdMem, 14, 15), "0017");
    EXPECT_EQ(session->ConfigWord[1], 0x0017U);
    ASSERT_TRUE(load(*session, data(0x1FFE, {0xFF, 0x0F})).ok);
    EXPECT_EQ(session->ConfigWord[1], 0x0FFFU);
    auto other = device("10F2", "PIC10F200", 256);
    ASSERT_TRUE(load(*other, data(0x1FFE, {0xF7, 0x0F})).ok);
    EXPECT_EQ(other->ConfigWord[1], 0x0FF7U);
}

TEST(WordImageLoader, asks_bit_3_of_a_12C5_word_after_the_catalogues_masks) {
    auto session = device("12C5", "PIC12C508", 512);
    session->ConfigMask[1] = 0x0FF7;
    ASSERT_TRUE(load(*session, data(0x1FFE, {0xFF, 0x0F})).ok);
    EXPECT_EQ(bytes_of(session->CfgIdMem, 14, 15), "0017");
    session->ConfigForce[1] = 0x0008;
    ASSERT_TRUE(load(*session, data(0x1FFE, {0xF7, 0x0F})).ok);
    EXPECT_EQ(bytes_of(session->CfgIdMem, 14, 15), "0FFF");
}

TEST(WordImageLoader, notes_records_whose_check_sum_became_data) {
    auto session = flash();
    EXPECT_EQ(load(*session, data(0, {1, 2}) + data(0x4200, {1})).sums_as_data.count, 0U);
    const auto text = ";\n" + data(0x10, {1, 2, 3}) + data(0x4010, {1}) + data(0x8200, {1}) +
                      data(0x4000, Bytes(9, 1)) + data(0x4002, {1, 2});
    const auto found = load(*session, text).sums_as_data;
    EXPECT_EQ(found.count, 3U);
    EXPECT_EQ(found.first_line, 2U);
    EXPECT_EQ(session->PgmMem[0x12], 0xE7);
}

TEST(WordImageLoader, takes_1FFE_as_configuration_and_program_of_the_12_bit_types_alone) {
    for (const auto* type : {"5F18", "10F2", "5F28", "5X18", "5X28", "12C5"}) {
        auto session = device(type, "PIC", 512);
        const auto result = load(*session, data(0x1FFE, {0x11, 0x01, 0x1F, 0x02}));
        EXPECT_TRUE(result.ok && result.has_config) << type;
        EXPECT_EQ(session->ConfigWord[1], 0x021FU) << type;  // the last word counts
        EXPECT_EQ(bytes_of(session->PgmMem, 0x1FFE, 0x2001), "0111021F") << type;
    }
    for (const unsigned address : {0x1FFCU, 0x1FFDU, 0x1FFFU, 0x2000U}) {
        auto session = device("10F2", "PIC", 512);
        EXPECT_FALSE(load(*session, data(address, {0x11, 0x01})).has_config) << address;
    }
    auto session = flash();
    EXPECT_FALSE(load(*session, data(0x1FFE, {0x11, 0x01})).has_config);
    EXPECT_EQ(session->ConfigWord[1], 0x3FFFU);
}

TEST(WordImageLoader, gives_EPROM2_words_their_parity_and_word_1_its_two_bits) {
    auto session = device("EPROM2", "PIC16C710", 512);
    session->ConfigMask[1] = 0x3FFF;
    FillIdOnes(*session);
    const auto text = data(0, {0x00, 0x00, 0xFF, 0x3F, 0x01, 0x00}) + data(0x400E, {0x15, 0x00}) +
                      data(0x4000, {0x01, 0x00, 0x02, 0x00, 0x03, 0x00, 0x00, 0x00});
    ASSERT_TRUE(load(*session, text).ok);
    EXPECT_EQ(bytes_of(session->PgmMem, 0, 5), "80007FFFC001");
    EXPECT_EQ(bytes_of(session->CfgIdMem, 0, 7), "C001000240038000");
    EXPECT_EQ(bytes_of(session->CfgIdMem, 14, 15), "C015");
    EXPECT_EQ(session->ConfigWord[1], 0x0015U);
}

TEST(WordImageLoader, survives_the_longest_record_at_every_edge) {
    for (const unsigned address : {0U, 0x3FFFU, 0x4001U, 0x40FFU, 0x41FFU, 0x4200U, 0x43FFU,
                                   0x4400U, 0x8000U, 0x81FFU, 0x8200U, 0xFF00U, 0xFFFFU}) {
        auto session = flash();
        const auto result = load(*session, data(address, Bytes(255, 0xA5)));
        const bool fails =
            (address > 0x4001 && address < 0x4200) || (address >= 0x4400 && address < 0x8000);
        EXPECT_EQ(result.ok, !fails) << address;
    }
}

}  // namespace quillon
