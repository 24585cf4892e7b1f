// SPDX-License-Identifier: MIT
// Blank and zero values, parity and check sum.
#include "image/fill.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <span>
#include <string>

#include "image/image_support.h"

namespace quillon {

using test::bytes_of;
using test::device;

namespace {

constexpr std::array k12bit{"12C5", "10F2", "5F18", "5F28", "5X18", "5X28"};
constexpr std::array k14bit{"12F6",   "12C6",   "EPROM",    "EPROM2", "FLASH0", "FLASH1",
                            "FLASH2", "FLASH4", "FLASH4.9", "FLASH8", "LDR412", "LDR412A"};
constexpr std::array kWordEeprom{"12F6",     "12C6",   "FLASH0", "FLASH1", "FLASH4",
                                 "FLASH4.9", "FLASH8", "LDR412", "LDR412A"};
constexpr std::array kPic18{"18F_00", "18F_01", "18C_00", "18C_01"};

bool is_one_of(std::span<const char* const> list, std::string_view type) {
    return std::ranges::any_of(list, [&](std::string_view entry) { return entry == type; });
}

}  // namespace

TEST(FillProgramOnes, gives_each_width_its_erased_word_and_leaves_what_lies_beyond) {
    for (const auto* type : k12bit) {
        auto session = device(type, "PIC", 2);
        FillProgramOnes(*session);
        EXPECT_EQ(bytes_of(session->PgmMem, 0, 5), "0FFF0FFF0000") << type;
    }
    for (const auto* type : k14bit) {
        auto session = device(type, "PIC", 2);
        FillProgramOnes(*session);
        const bool parity = std::string_view{type} == "EPROM2";
        EXPECT_EQ(bytes_of(session->PgmMem, 0, 5), parity ? "7FFF7FFF0000" : "3FFF3FFF0000")
            << type;
    }
    for (const auto* type : kPic18) {
        auto session = device(type, "PIC", 2);
        FillProgramOnes(*session);
        EXPECT_EQ(bytes_of(session->PgmMem, 0, 5), "FFFFFFFF0000") << type;
    }
}

TEST(FillProgramOnes, sets_the_used_words_of_a_PIC18_back_to_all) {
    for (const auto fill : {FillProgramOnes, FillProgramZeros}) {
        auto session = device("18F_00", "PIC18F2550", 16384);
        session->PgmWordsCat = 8;
        fill(*session);
        EXPECT_EQ(session->PgmWordsCat, 16384);
    }
}

TEST(FillProgramZeros, clears_every_byte_but_the_parity_bits_of_EPROM2) {
    for (const auto* type : k14bit) {
        auto session = device(type, "PIC", 2);
        session->PgmMem[4] = 0xAA;
        FillProgramOnes(*session);
        FillProgramZeros(*session);
        const bool parity = std::string_view{type} == "EPROM2";
        EXPECT_EQ(bytes_of(session->PgmMem, 0, 4), parity ? "80008000AA" : "00000000AA") << type;
    }
    for (const auto& group : {std::span<const char* const>{k12bit}, {kPic18}}) {
        for (const auto* type : group) {
            auto session = device(type, "PIC", 2);
            session->PgmMem[4] = 0xAA;
            FillProgramOnes(*session);
            FillProgramZeros(*session);
            EXPECT_EQ(bytes_of(session->PgmMem, 0, 4), "00000000AA") << type;
        }
    }
}

TEST(FillEepromOnes, fills_cells_of_the_types_that_have_them) {
    for (const auto* type : k14bit) {
        auto session = device(type, "PIC", 2, 2);
        FillEepromOnes(*session);
        const bool has = is_one_of(kWordEeprom, type);
        EXPECT_EQ(bytes_of(session->EepMem, 0, 4), has ? "3FFF3FFF00" : "0000000000") << type;
        session->EepMem.fill(0x55);
        FillEepromZeros(*session);
        EXPECT_EQ(bytes_of(session->EepMem, 0, 4), has ? "0000000055" : "5555555555") << type;
    }
    for (const auto* type : k12bit) {
        auto session = device(type, "PIC", 2, 2);
        FillEepromOnes(*session);
        EXPECT_EQ(bytes_of(session->EepMem, 0, 3), "00000000") << type;
    }
}

TEST(FillEepromOnes, fills_two_bytes_a_cell_of_a_PIC18_and_sets_its_used_size_back) {
    for (const auto* type : kPic18) {
        auto session = device(type, "PIC18", 16384, 2);
        session->EepBytesCat = 1;
        FillEepromOnes(*session);
        EXPECT_EQ(bytes_of(session->EepMem, 0, 4), "FFFFFFFF00") << type;
        EXPECT_EQ(session->EepBytesCat, 2) << type;
        session->EepBytesCat = 1;
        FillEepromZeros(*session);
        EXPECT_EQ(bytes_of(session->EepMem, 0, 3), "00000000") << type;
        EXPECT_EQ(session->EepBytesCat, 2) << type;
    }
}

TEST(FillEeprom, leaves_the_used_sizes_of_all_types_but_PIC18) {
    for (const auto& group : {std::span<const char* const>{k12bit}, {k14bit}}) {
        for (const auto* type : group) {
            auto session = device(type, "PIC", 8, 2);
            session->PgmWordsCat = 5;
            session->EepBytesCat = 1;
            for (const auto fill :
                 {FillProgramOnes, FillProgramZeros, FillEepromOnes, FillEepromZeros})
                fill(*session);
            EXPECT_EQ(session->PgmWordsCat, 5) << type;
            EXPECT_EQ(session->EepBytesCat, 1) << type;
        }
    }
}

TEST(FillIdOnes, covers_sixteen_bytes_of_12_bit_parts_and_thirty_four_of_14_bit_ones) {
    for (const auto* type : k12bit) {
        auto session = device(type, "PIC", 256);
        session->CfgIdMem.fill(0x55);
        session->ConfigWord.fill(0x1234);
        FillIdOnes(*session);
        EXPECT_EQ(bytes_of(session->CfgIdMem, 0, 17), "0FFF0FFF0FFF0FFF0FFF0FFF0FFF0FFF5555")
            << type;
        FillIdZeros(*session);
        EXPECT_EQ(bytes_of(session->CfgIdMem, 0, 17), "000000000000000000000000000000005555")
            << type;
        EXPECT_EQ(session->ConfigWord[1], 0x1234U) << type;
    }
    for (const auto* type : k14bit) {
        if (std::string_view{type} == "EPROM2") continue;  // its parity has a test of its own
        auto session = device(type, "PIC", 8192);
        session->CfgIdMem.fill(0x55);
        session->ConfigWord.fill(0x1234);
        FillIdOnes(*session);
        std::string ones;
        for (int word = 0; word < 17; ++word) ones += "3FFF";
        EXPECT_EQ(bytes_of(session->CfgIdMem, 0, 35), ones + "5555") << type;
        FillIdZeros(*session);
        EXPECT_EQ(bytes_of(session->CfgIdMem, 0, 35), std::string(64, '0') + "3FFF5555") << type;
        EXPECT_EQ(session->ConfigWord[1], 0x1234U) << type;
    }
}

TEST(FillIdZeros, ends_one_word_before_the_fill_with_ones) {
    auto session = device("FLASH8", "PIC16F877A", 8192);
    FillIdOnes(*session);
    FillIdZeros(*session);
    EXPECT_EQ(bytes_of(session->CfgIdMem, 28, 35), "000000003FFF0000");
}

TEST(FillId, gives_EPROM2_parity_in_its_ID_words_and_two_bits_in_word_1) {
    auto session = device("EPROM2", "PIC16C710", 512);
    FillIdOnes(*session);
    EXPECT_EQ(bytes_of(session->CfgIdMem, 0, 9), "7FFF7FFF7FFF7FFF3FFF");
    EXPECT_EQ(bytes_of(session->CfgIdMem, 14, 17), "FFFF3FFF");
    FillIdZeros(*session);
    EXPECT_EQ(bytes_of(session->CfgIdMem, 0, 9), "80008000800080000000");
    EXPECT_EQ(bytes_of(session->CfgIdMem, 14, 17), "C0000000");
}

TEST(FillId, gives_a_PIC18_its_default_words_and_zeros_to_the_flash_types_alone) {
    for (const auto* type : kPic18) {
        auto session = device(type, "PIC18", 1024);
        session->ConfigDefault = {0, 1, 2, 3, 4, 5, 6, 7};
        session->CfgIdMem.fill(0x55);
        FillIdOnes(*session);
        EXPECT_EQ(session->ConfigWord, session->ConfigDefault) << type;
        FillIdZeros(*session);
        EXPECT_EQ(session->ConfigWord == PerConfigWord{}, is_pic18_flash(programming_type(type)))
            << type;
        EXPECT_EQ(bytes_of(session->CfgIdMem, 0, 3), "55555555") << type;
    }
}

TEST(Fills, leave_every_array_of_LDR418_as_it_is) {
    auto session = device("LDR418", "ZQ-LDR418", 4, 4);
    std::ranges::fill(session->PgmMem, std::uint8_t{0x5A});
    session->EepMem.fill(0x5A);
    session->CfgIdMem.fill(0x5A);
    for (const auto fill : {FillProgramOnes, FillProgramZeros, FillEepromOnes, FillEepromZeros,
                            FillIdOnes, FillIdZeros})
        fill(*session);
    EXPECT_EQ(bytes_of(session->PgmMem, 0, 7), "5A5A5A5A5A5A5A5A");
    EXPECT_EQ(bytes_of(session->EepMem, 0, 7), "5A5A5A5A5A5A5A5A");
    EXPECT_EQ(bytes_of(session->CfgIdMem, 0, 7), "5A5A5A5A5A5A5A5A");
}

TEST(Fills, stay_inside_the_arrays_whatever_sizes_the_catalogue_names) {
    for (const std::int32_t size : {0x7FFFFFFF, 0x100001, 0x100000, 1025, -1}) {
        for (const auto* type : {"FLASH8", "EPROM2", "18F_00"}) {
            auto session = device(type, "PIC", size, size);
            for (const auto fill : {FillProgramOnes, FillProgramZeros, FillEepromOnes,
                                    FillEepromZeros, FillIdOnes, FillIdZeros})
                fill(*session);
            EXPECT_EQ(session->PgmMem.size(), 0x200000U);
            EXPECT_EQ(ProgramCheckSum(*session).size(), 4U);
        }
    }
    EXPECT_EQ(program_span(*device("FLASH8", "PIC", 0x100000)), 0x200000U);
    EXPECT_EQ(program_span(*device("FLASH8", "PIC", 0x100001)), 0x200000U);
    EXPECT_EQ(eeprom_span(*device("FLASH8", "PIC", 1, 1024)), 2048U);
    EXPECT_EQ(eeprom_span(*device("FLASH8", "PIC", 1, 1025)), 2048U);
    EXPECT_EQ(eeprom_span(*device("FLASH8", "PIC", 1, -1)), 0U);
}

TEST(ParityFix, makes_bit_6_even_parity_and_bit_7_odd_parity_of_every_word) {
    for (unsigned word = 0; word < 0x4000; ++word) {
        auto high = static_cast<std::uint8_t>(word >> 8U);
        auto low = static_cast<std::uint8_t>(word);
        ParityFix(high, low);
        unsigned even = 0;
        unsigned odd = 0;
        for (unsigned bit = 0; bit < 14; ++bit) (bit % 2 == 0 ? even : odd) += word >> bit & 1U;
        const unsigned expected = (even % 2 != 0 ? 0x40U : 0U) | (odd % 2 == 0 ? 0x80U : 0U);
        ASSERT_EQ(high, expected | word >> 8U) << word;
        ASSERT_EQ(low, word & 0xFFU) << word;
    }
}

TEST(ParityFix, forgets_the_parity_bits_that_were_there) {
    std::uint8_t high = 0xC0;
    std::uint8_t low = 0x01;
    ParityFix(high, low);
    EXPECT_EQ(high, 0xC0);
    high = 0x40;
    low = 0;
    ParityFix(high, low);
    EXPECT_EQ(high, 0x80);
}

TEST(ProgramCheckSum, adds_words_modulo_10000_in_four_digits) {
    auto session = device("FLASH8", "PIC16F877A", 8192);
    FillProgramOnes(*session);
    EXPECT_EQ(ProgramCheckSum(*session), "E000");  // 0x3FFF * 8192 modulo 0x10000
    FillProgramZeros(*session);
    EXPECT_EQ(ProgramCheckSum(*session), "0000");
    session->PgmMem[1] = 0x0A;
    EXPECT_EQ(ProgramCheckSum(*session), "000A");
    session->PgmMem[16384] = 0xFF;  // behind the device
    EXPECT_EQ(ProgramCheckSum(*session), "000A");
}

TEST(ProgramCheckSum, of_a_blank_14_bit_image_is_3FFF_times_its_words) {
    for (const std::uint32_t words : {0U, 1U, 4U, 1024U, 2048U, 3072U, 8192U}) {
        auto session = device("FLASH4", "PIC", static_cast<std::int32_t>(words), 8);
        FillProgramOnes(*session);
        EXPECT_EQ(ProgramCheckSum(*session), hex(0x3FFFU * words & 0xFFFFU, 4)) << words;
        // Neither EEPROM nor configuration enters it.
        session->EepMem.fill(0x12);
        session->CfgIdMem.fill(0x34);
        session->ConfigWord.fill(0x56);
        EXPECT_EQ(ProgramCheckSum(*session), hex(0x3FFFU * words & 0xFFFFU, 4)) << words;
    }
}

TEST(ProgramCheckSum, reads_PIC18_pairs_in_the_same_order_as_all_others) {
    auto session = device("18F_00", "PIC18F2550", 2);
    session->PgmMem[0] = 0x12;
    session->PgmMem[1] = 0x34;
    EXPECT_EQ(ProgramCheckSum(*session), "1234");
}

}  // namespace quillon
