// SPDX-License-Identifier: MIT
// Where the PIC18 loader puts what a file holds, and how much of the device the file uses.
#include "hex/pic18_loader.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "image/fill.h"
#include "image/image_support.h"

namespace quillon {

using test::Bytes;
using test::bytes_of;
using test::data;
using test::device;
using test::upper_address;

namespace {

std::unique_ptr<Session> pic18(std::int32_t words = 16384, std::int32_t cells = 256) {
    auto session = device("18F_00", "PIC18F2550", words, cells);
    session->WriteBufBytes = 32;
    FillProgramOnes(*session);
    FillEepromOnes(*session);
    session->IdBytes18.fill(0xFF);
    return session;
}

}  // namespace

TEST(Pic18Loader, places_each_byte_in_the_other_place_of_its_pair) {
    auto session = pic18();
    ASSERT_TRUE(load_pic18(data(0, {0x11, 0x22, 0x33, 0x44}), *session).ok);
    EXPECT_EQ(bytes_of(session->PgmMem, 0, 5), "22114433FFFF");
    ASSERT_TRUE(load_pic18(data(7, {0x77}), *session).ok);
    EXPECT_EQ(bytes_of(session->PgmMem, 6, 7), "77FF");
    EXPECT_EQ(session->IdText, "FFFF");
}

TEST(Pic18Loader, counts_only_bit_0_of_an_upper_address_below_20) {
    for (const unsigned upper : {0U, 1U, 2U, 3U, 0x1EU, 0x1FU}) {
        auto session = pic18(65536);
        ASSERT_TRUE(load_pic18(upper_address(upper) + data(0x10, {0x11, 0x22}), *session).ok);
        const std::size_t base = upper % 2 == 0 ? 0x10 : 0x10010;
        EXPECT_EQ(bytes_of(session->PgmMem, base, base + 1), "2211") << upper;
    }
}

TEST(Pic18Loader, lets_upper_2_overwrite_what_upper_0_placed) {
    auto session = pic18();
    const auto text = data(0, {0x11, 0x22}) + upper_address(2) + data(0, {0x33, 0x44});
    ASSERT_TRUE(load_pic18(text, *session).ok);
    EXPECT_EQ(bytes_of(session->PgmMem, 0, 1), "4433");
}

TEST(Pic18Loader, goes_on_behind_64_K_within_a_record) {
    auto session = pic18(65536);
    ASSERT_TRUE(load_pic18(data(0xFFFE, {1, 2, 3, 4}), *session).ok);
    EXPECT_EQ(bytes_of(session->PgmMem, 0xFFFE, 0x10001), "02010403");
}

TEST(Pic18Loader, keeps_the_order_of_ID_bytes) {
    auto session = pic18();
    ASSERT_TRUE(load_pic18(upper_address(0x20) + data(0, {1, 2, 3, 4, 5, 6, 7, 8}), *session).ok);
    EXPECT_EQ(bytes_of(session->IdBytes18, 0, 7), "0102030405060708");
}

TEST(Pic18Loader, takes_ID_bytes_below_index_9) {
    auto session = pic18();
    EXPECT_TRUE(load_pic18(upper_address(0x20) + data(7, {0x11, 0x22}), *session).ok);
    EXPECT_EQ(session->IdBytes18[7], 0x11);
    EXPECT_FALSE(load_pic18(upper_address(0x20) + data(8, {0x11, 0x22}), *session).ok);
    EXPECT_FALSE(load_pic18(upper_address(0x20) + data(0, Bytes(10, 1)), *session).ok);
}

TEST(Pic18Loader, reads_the_check_sum_as_data_for_an_odd_count_of_ID_or_EEPROM_bytes) {
    auto session = pic18();
    ASSERT_TRUE(load_pic18(":020000040020DA\n:0100000011EE\n", *session).ok);
    EXPECT_EQ(bytes_of(session->IdBytes18, 0, 2), "11EEFF");
    ASSERT_TRUE(load_pic18(":0200000400F00A\n:0100000011EE\n", *session).ok);
    EXPECT_EQ(bytes_of(session->EepMem, 0, 2), "11EEFF");
    EXPECT_FALSE(load_pic18(":0200000400F00A\n:0100000011\n", *session).ok);
    // Program and configuration are placed byte by byte.
    EXPECT_TRUE(load_pic18(":0100000011\n:020000040030CA\n:0100000011\n", *session).ok);
    EXPECT_EQ(bytes_of(session->PgmMem, 0, 1), "FF11");
}

TEST(Pic18Loader, notes_records_whose_check_sum_became_data) {
    auto session = pic18();
    const auto bytewise = data(0, {1}) + upper_address(0x30) + data(0, {1});
    EXPECT_EQ(load_pic18(bytewise, *session).sums_as_data.count, 0U);
    const auto text = bytewise + upper_address(0x20) + data(0, {1}) + upper_address(0xF0) +
                      data(0, {1, 2}) + data(2, {3}) + upper_address(0x50) + data(0, {1});
    const auto found = load_pic18(text, *session).sums_as_data;
    EXPECT_EQ(found.count, 2U);
    EXPECT_EQ(found.first_line, 5U);
}

TEST(Pic18Loader, makes_words_of_the_configuration_bytes_by_the_catalogues_masks) {
    auto session = pic18();
    session->ConfigMask = {0, 0xFFFF, 0x00FF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF};
    session->ConfigForce[3] = 0x8000;
    Bytes bytes;
    for (int i = 1; i <= 14; ++i) bytes.push_back(static_cast<std::uint8_t>(i));
    const auto load = load_pic18(upper_address(0x30) + data(0, bytes), *session);
    EXPECT_TRUE(load.ok && load.has_config);
    EXPECT_EQ(bytes_of(session->CfgBytes18, 0, 13), "0102030405060708090A0B0C0D0E");
    EXPECT_EQ(session->ConfigWord,
              (PerConfigWord{0, 0x0201, 0x0003, 0x8605, 0x0807, 0x0A09, 0x0C0B, 0x0E0D}));
}

TEST(Pic18Loader, takes_configuration_bytes_below_index_256) {
    auto session = pic18();
    EXPECT_TRUE(load_pic18(upper_address(0x30) + data(0xFE, {1, 2}), *session).ok);
    EXPECT_FALSE(load_pic18(upper_address(0x30) + data(0xFF, {1, 2}), *session).ok);
    EXPECT_FALSE(load_pic18(upper_address(0x30) + data(0x100, {1}), *session).ok);
}

TEST(Pic18Loader, takes_EEPROM_bytes_below_index_2048) {
    auto session = pic18(16384, 1024);
    EXPECT_TRUE(load_pic18(upper_address(0xF0) + data(0x7FE, {1, 2}), *session).ok);
    EXPECT_EQ(bytes_of(session->EepMem, 0x7FE, 0x7FF), "0102");
    EXPECT_FALSE(load_pic18(upper_address(0xF0) + data(0x800, {1, 2}), *session).ok);
}

TEST(Pic18Loader, notes_the_sides_of_the_device_that_a_file_has_data_for) {
    const auto sides = [](const std::string& text) { return load_pic18(text, *pic18()).sides; };
    for (const unsigned upper : {0U, 1U, 0x20U, 0x30U}) {
        EXPECT_TRUE(sides(upper_address(upper) + data(0, {0xFF, 0xFF})).program) << upper;
        EXPECT_FALSE(sides(upper_address(upper) + data(0, {0xFF, 0xFF})).eeprom) << upper;
    }
    EXPECT_TRUE(sides(upper_address(0xF0) + data(0xFE, {0xFF, 0xFF})).eeprom) << "blank data count";
    EXPECT_FALSE(sides(upper_address(0xF0) + data(0xFE, {0xFF, 0xFF})).program);
    EXPECT_FALSE(sides(upper_address(0xF0) + data(0x100, {1, 2})).eeprom) << "behind the cells";
    EXPECT_FALSE(sides(upper_address(0x21) + data(0, {1, 2})).program);
    EXPECT_FALSE(sides(test::kEndRecord).program);
}

TEST(Pic18Loader, ignores_every_other_upper_address) {
    for (const unsigned upper : {0x21U, 0x2FU, 0x31U, 0xEFU, 0xF1U, 0x100U, 0x120U, 0xFFFFU}) {
        auto session = pic18();
        const auto load = load_pic18(upper_address(upper) + data(0, {1, 2}), *session);
        EXPECT_TRUE(load.ok && !load.has_config && !load.has_eeprom) << upper;
        EXPECT_EQ(bytes_of(session->PgmMem, 0, 1), "FFFF") << upper;
        EXPECT_EQ(bytes_of(session->IdBytes18, 0, 1), "FFFF") << upper;
    }
}

TEST(Pic18Loader, rounds_the_used_program_up_to_whole_write_buffers) {
    struct Case {
        std::uint8_t buffer;
        unsigned last;  // address of the last byte below 0xFF
        std::int32_t words;
    };
    for (const auto& [buffer, last, words] : std::vector<Case>{{32, 0x0FFF, 2048},
                                                               {32, 0x0FFE, 2048},
                                                               {32, 0x1000, 2064},
                                                               {32, 0, 16},
                                                               {8, 0x0F, 8},
                                                               {8, 0x10, 16},
                                                               {0, 0x0F, 8},
                                                               {15, 0x10, 16},
                                                               {64, 0x3F, 32},
                                                               {64, 0x40, 64}}) {
        auto session = pic18();
        session->WriteBufBytes = buffer;
        std::string text;
        for (unsigned at = 0; at <= last; ++at) text += data(at, {0x12});
        ASSERT_TRUE(load_pic18(text, *session).ok);
        EXPECT_EQ(session->PgmWordsCat, words) << int{buffer} << " " << last;
    }
}

TEST(Pic18Loader, counts_a_word_as_used_when_either_of_its_bytes_is) {
    for (const unsigned address : {0x0FFEU, 0x0FFFU}) {
        auto session = pic18();
        ASSERT_TRUE(load_pic18(data(address, {0x12}), *session).ok);
        EXPECT_EQ(session->PgmWordsCat, 2048) << address;
    }
}

TEST(Pic18Loader, counts_no_byte_that_is_blank) {
    auto session = pic18();
    ASSERT_TRUE(load_pic18(data(0, {1, 2}) + data(0x1000, {0xFF, 0xFF}), *session).ok);
    EXPECT_EQ(session->PgmWordsCat, 16);
    ASSERT_TRUE(load_pic18("", *session).ok);
    EXPECT_EQ(session->PgmWordsCat, 16);  // one buffer, for a file with nothing
}

TEST(Pic18Loader, counts_no_blank_byte_behind_the_device) {
    auto session = pic18();  // whose image still holds zeros there
    const auto padding = data(0x8000, Bytes(16, 0xFF));
    ASSERT_TRUE(load_pic18(data(0, {1, 2}) + padding, *session).ok);
    EXPECT_EQ(session->PgmWordsCat, 16);
    ASSERT_TRUE(load_pic18(data(0, {1, 2}) + data(0x8000, {0xFF, 0x12}), *session).ok);
    EXPECT_EQ(session->PgmWordsCat, 16384);
}

TEST(Pic18Loader, drops_segment_records) {
    auto session = pic18();
    ASSERT_TRUE(load_pic18(test::segment(0x1000) + data(0, {1, 2}), *session).ok);
    EXPECT_EQ(bytes_of(session->PgmMem, 0, 1), "0201");
}

TEST(Pic18Loader, takes_the_highest_byte_that_is_not_blank_whatever_the_order_of_the_records) {
    auto session = pic18();
    const auto text = data(0x1000, {1, 2}) + data(0, {1, 2}) + upper_address(0xF0) +
                      data(0x10, {1, 2}) + data(0, {1, 2});
    ASSERT_TRUE(load_pic18(text, *session).ok);
    EXPECT_EQ(session->PgmWordsCat, 2064);
    EXPECT_EQ(session->EepBytesCat, 0x12);
}

TEST(Pic18Loader, leaves_an_ID_or_EEPROM_pair_whose_second_byte_is_bad_as_it_was) {
    for (const unsigned upper : {0x20U, 0xF0U}) {
        auto session = pic18();
        EXPECT_FALSE(load_pic18(upper_address(upper) + ":040000000102031G\n", *session).ok);
        if (upper == 0x20)
            EXPECT_EQ(bytes_of(session->IdBytes18, 0, 3), "0102FFFF");
        else
            EXPECT_EQ(bytes_of(session->EepMem, 0, 3), "0102FFFF");
    }
}

TEST(Pic18Loader, ends_the_used_sizes_at_the_devices_own) {
    auto session = pic18(1024, 16);
    const auto text = data(0x0FFE, {1, 2}) + upper_address(0xF0) + data(0x20, {1, 2});
    ASSERT_TRUE(load_pic18(text, *session).ok);
    EXPECT_EQ(session->PgmWordsCat, 1024);
    EXPECT_EQ(session->EepBytesCat, 16);
}

TEST(Pic18Loader, uses_the_EEPROM_up_to_its_last_byte_that_is_not_blank) {
    struct Case {
        Bytes bytes;
        std::int32_t used;
    };
    for (const auto& [bytes, used] : std::vector<Case>{{{}, 0},
                                                       {{0xFF, 0xFF}, 0},
                                                       {{0x00, 0xFF}, 1},
                                                       {{0xFF, 0x00}, 2},
                                                       {{1, 2, 0xFF, 0xFF}, 2},
                                                       {{0xFF, 0xFF, 0xFE, 0xFF}, 3}}) {
        auto session = pic18();
        const auto load = load_pic18(upper_address(0xF0) + data(0, bytes), *session);
        ASSERT_TRUE(load.ok);
        EXPECT_EQ(session->EepBytesCat, used);
        EXPECT_EQ(load.has_eeprom, used != 0);
    }
}

TEST(Pic18Loader, uses_no_EEPROM_of_a_device_that_has_none) {
    auto session = pic18(16384, 0);
    const auto load = load_pic18(upper_address(0xF0) + data(0, {1, 2}), *session);
    EXPECT_TRUE(load.ok && !load.has_eeprom);
    EXPECT_EQ(session->EepBytesCat, 0);
}

TEST(Pic18Loader, skips_items_and_drops_types_as_the_other_loader_does) {
    auto session = pic18();
    const auto load = load_pic18(
        ";a, b\n" + test::kEndRecord + test::record(5, 0, {1}) + data(0, {1, 2}), *session);
    EXPECT_TRUE(load.ok);
    EXPECT_EQ(load.skipped.list(), "1、2");
    EXPECT_EQ(bytes_of(session->PgmMem, 0, 1), "0201");
}

TEST(Pic18Loader, stops_at_a_fault_keeps_what_it_placed_and_uses_the_whole_device_again) {
    for (const auto* bad : {":0200020078", ":02000200781G", ":0", ":0200000400", ":02000004ZZZZ",
                            ":020000040020DA\n:0200080001020000"}) {
        auto session = pic18();
        const auto load =
            load_pic18(data(0, {1, 2}) + bad + "\n" + upper_address(0) + data(4, {9, 9}), *session);
        EXPECT_FALSE(load.ok) << bad;
        EXPECT_EQ(bytes_of(session->PgmMem, 0, 1), "0201") << bad;
        EXPECT_EQ(bytes_of(session->PgmMem, 4, 5), "FFFF") << bad;
        EXPECT_EQ(session->PgmWordsCat, 16384) << bad;
        EXPECT_EQ(session->EepBytesCat, 256) << bad;
    }
}

}  // namespace quillon
