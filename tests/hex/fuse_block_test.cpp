// SPDX-License-Identifier: MIT
// The packed fuse block at 0xFF00, by device.
#include "hex/fuse_block.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "hex/word_image_loader.h"
#include "image/image_support.h"

namespace quillon {

using test::Bytes;
using test::bytes_of;
using test::data;
using test::device;

namespace {

// Fuse bytes that add nothing: 4 isn't an oscillator, and 0xFF isn't a value of any fuse.
std::unique_ptr<Session> with_fuses(std::string_view name,
                                    const std::vector<std::pair<int, int>>& set) {
    auto session = device("FLASH8", name, 512);
    session->CfgIdMem.fill(0xFF);
    session->CfgIdMem[8] = 4;
    for (const auto& [index, value] : set)
        session->CfgIdMem[static_cast<std::size_t>(index)] = static_cast<std::uint8_t>(value);
    return session;
}

std::string word_of(std::string_view name, const std::vector<std::pair<int, int>>& set) {
    auto session = with_fuses(name, set);
    apply_fuse_block(*session);
    return bytes_of(session->CfgIdMem, 14, 15);
}

}  // namespace

TEST(FuseBlock, adds_nothing_for_values_that_stand_for_nothing) {
    EXPECT_EQ(word_of("PIC16F84", {}), "0000");
    EXPECT_EQ(word_of("PIC12C508", {}), "0000");
}

TEST(FuseBlock, takes_the_oscillator_as_it_stands) {
    for (const auto* name : {"PIC16F84", "PIC12C508", "PIC12F509"})
        for (const int oscillator : {0, 1, 2, 3})
            EXPECT_EQ(word_of(name, {{8, oscillator}}), "000" + std::to_string(oscillator)) << name;
}

TEST(FuseBlock, adds_each_fuse_of_the_14_bit_table) {
    EXPECT_EQ(word_of("PIC16F84", {{10, 0}}), "0008");
    EXPECT_EQ(word_of("PIC16F84", {{11, 1}}), "0004");
    EXPECT_EQ(word_of("PIC16F84", {{12, 0}}), "3FF0");
    EXPECT_EQ(word_of("PIC16F84", {{13, 0}}), "0000");
    EXPECT_EQ(word_of("PIC16F84", {{10, 1}, {11, 0}, {12, 1}}), "0000");
    EXPECT_EQ(word_of("PIC16F84", {{8, 3}, {10, 0}, {11, 1}, {12, 0}}), "3FFF");
}

TEST(FuseBlock, adds_each_fuse_of_the_12_bit_table) {
    for (const auto* name : {"PIC12C508A", "PIC12F508"}) {
        EXPECT_EQ(word_of(name, {{10, 0}}), "0000") << name;
        EXPECT_EQ(word_of(name, {{11, 1}}), "0004") << name;
        EXPECT_EQ(word_of(name, {{12, 0}}), "0FE8") << name;
        EXPECT_EQ(word_of(name, {{13, 0}}), "0010") << name;
        EXPECT_EQ(word_of(name, {{8, 2}, {11, 1}, {12, 0}, {13, 0}}), "0FFE") << name;
    }
    EXPECT_EQ(word_of("PIC12F675", {{12, 0}}), "3FF0");
}

TEST(FuseBlock, has_the_12_bit_table_for_names_that_begin_with_PIC12C5_or_PIC12F5) {
    for (const auto* name : {"PIC12C5", "PIC12C508", "PIC12C508A", "PIC12C509", "PIC12C509A",
                             "PIC12C518", "PIC12C519", "PIC12F508", "PIC12F509", "PIC12F510"})
        EXPECT_EQ(word_of(name, {{10, 0}, {12, 0}, {13, 0}}), "0FF8") << name;
    // With an E behind the C the name has another prefix.
    for (const auto* name : {"PIC12CE518", "PIC12CE519", "PIC12F609", "PIC12F629", "PIC12C671",
                             "PIC16C505", "PIC10F200", "PIC16F54", "XPIC12C508"})
        EXPECT_EQ(word_of(name, {{10, 0}, {12, 0}, {13, 0}}), "3FF8") << name;
}

TEST(FuseBlock, adds_a_fuse_for_its_one_value_only) {
    for (const int value : {0, 1, 2, 3, 4, 5, 0x10, 0x7F, 0x80, 0xFE, 0xFF}) {
        const bool zero = value == 0;
        EXPECT_EQ(word_of("PIC16F84", {{8, value}}),
                  value < 4 ? "000" + std::to_string(value) : "0000")
            << value;
        EXPECT_EQ(word_of("PIC16F84", {{10, value}}), zero ? "0008" : "0000") << value;
        EXPECT_EQ(word_of("PIC16F84", {{11, value}}), value == 1 ? "0004" : "0000") << value;
        EXPECT_EQ(word_of("PIC16F84", {{12, value}}), zero ? "3FF0" : "0000") << value;
        EXPECT_EQ(word_of("PIC12F508", {{12, value}}), zero ? "0FE8" : "0000") << value;
        EXPECT_EQ(word_of("PIC12F508", {{13, value}}), zero ? "0010" : "0000") << value;
    }
}

TEST(FuseBlock, takes_the_ID_from_the_nibbles_of_its_last_two_bytes) {
    auto session = with_fuses("PIC16F84", {{14, 0x12}, {15, 0xAF}});
    apply_fuse_block(*session);
    EXPECT_EQ(bytes_of(session->CfgIdMem, 0, 7), "FF71FF72FF7AFF7F");
    EXPECT_EQ(bytes_of(session->CfgIdMem, 14, 15), "0000");
}

TEST(FuseBlock, loses_to_the_catalogues_masks_what_the_device_has_not) {
    auto session = device("12C5", "PIC12C508", 512);
    session->ConfigMask[1] = 0x001F;
    const Bytes block{0, 0, 0, 0, 0, 0, 0, 0, 0, 2, 1, 0, 0, 0, 0xCD, 0xAB};
    ASSERT_TRUE(load_word_image(data(0xFF00, block), "PIC12C508", *session).ok);
    // 2 + 0x0004 + 0x0FE8 + 0x0010, of which the device has the lowest five bits
    EXPECT_EQ(session->ConfigWord[1], 0x001EU);
    EXPECT_EQ(bytes_of(session->CfgIdMem, 0, 7), "3FFA3FFB3FFC3FFD");
}

TEST(FuseBlock, that_is_too_short_or_bad_is_a_fault) {
    for (const auto* bad : {":10FF00000000000000000000000000000000\n", ":02FF00000G00\n"}) {
        auto session = device("FLASH1", "PIC16F84", 1024);
        EXPECT_FALSE(load_word_image(bad, "PIC16F84", *session).ok) << bad;
    }
}

TEST(FuseBlock, loads_by_swapped_pairs_from_FF00_exactly) {
    const Bytes block{0, 0, 0, 0, 0, 0, 0, 0, 9, 1, 1, 0, 9, 0, 0x34, 0x12};
    auto session = device("FLASH1", "PIC16F84", 1024);
    const auto load = load_word_image(data(0xFF00, block), "PIC16F84", *session);
    EXPECT_TRUE(load.ok && load.has_config);
    // Bytes [8] = 1, [10] = 0, [11] = 1, [12] = 0, [14] = 0x12, [15] = 0x34
    EXPECT_EQ(session->ConfigWord[1], 0x3FFDU);
    EXPECT_EQ(bytes_of(session->CfgIdMem, 0, 7), "0071007200730074");

    auto beside = device("FLASH1", "PIC16F84", 1024);
    ASSERT_TRUE(load_word_image(data(0xFF02, block), "PIC16F84", *beside).ok);
    EXPECT_EQ(beside->ConfigWord[1], 0U);
}

}  // namespace quillon
