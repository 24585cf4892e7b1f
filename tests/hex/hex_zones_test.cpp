// SPDX-License-Identifier: MIT
// The three address tables, at both sides of each edge.
#include "hex/hex_zones.h"

#include <gtest/gtest.h>

#include <array>
#include <span>

namespace quillon {

namespace {

struct Row {
    std::uint32_t address;
    HexArea area;
    std::ptrdiff_t index;
};

template <typename Place>
void expect_rows(std::span<const Row> rows, Place place) {
    for (const auto& row : rows) {
        const HexPlace found = place(row.address);
        EXPECT_EQ(found.area, row.area) << std::hex << row.address;
        EXPECT_TRUE(found.index == row.index || row.area == HexArea::None)
            << std::hex << row.address;
    }
}

}  // namespace

TEST(word_image_place, follows_the_16_bit_zones) {
    constexpr std::array kRows{
        Row{0x0000, HexArea::Program, 0},      Row{0x3FFF, HexArea::Program, 0x3FFF},
        Row{0x4000, HexArea::IdRecord, 0},     Row{0x4001, HexArea::CfgId, 1},
        Row{0x400E, HexArea::CfgId, 14},       Row{0x41FF, HexArea::CfgId, 0x1FF},
        Row{0x4200, HexArea::Eeprom, 0},       Row{0x43FF, HexArea::Eeprom, 0x1FF},
        Row{0x4400, HexArea::Eeprom, -0x3C00}, Row{0x7FFF, HexArea::Eeprom, -1},
        Row{0x8000, HexArea::Eeprom, 0},       Row{0x81FF, HexArea::Eeprom, 0x1FF},
        Row{0x8200, HexArea::None, 0},         Row{0xFEFF, HexArea::None, 0},
        Row{0xFF00, HexArea::FuseBlock, 0},    Row{0xFF01, HexArea::None, 0},
        Row{0xFFFF, HexArea::None, 0},
    };
    expect_rows(kRows, word_image_place);
}

TEST(full_address_place, follows_the_zones_above_64_K) {
    constexpr std::array kRows{
        Row{0x00000, HexArea::Program, 0},      Row{0x4000, HexArea::Program, 0x4000},
        Row{0x0FFFF, HexArea::Program, 0xFFFF}, Row{0x10000, HexArea::IdRecord, 0},
        Row{0x1000E, HexArea::CfgId, 14},       Row{0x10010, HexArea::CfgId, 16},
        Row{0x10100, HexArea::None, 0},         Row{0x1DFFF, HexArea::None, 0},
        Row{0x1E000, HexArea::Eeprom, 0},       Row{0x1E7FF, HexArea::Eeprom, 0x7FF},
        Row{0x1E800, HexArea::None, 0},         Row{0xFFFFFFFF, HexArea::None, 0},
    };
    expect_rows(kRows, full_address_place);
}

TEST(pic18_place, goes_by_the_upper_address_and_folds_the_program_on_its_bit_0) {
    struct Upper {
        unsigned upper;
        HexArea area;
        std::ptrdiff_t base;
    };
    for (const auto& [upper, area, base] : {
             Upper{0x00, HexArea::Program, 0},
             Upper{0x01, HexArea::Program, 0x10000},
             Upper{0x02, HexArea::Program, 0},
             Upper{0x03, HexArea::Program, 0x10000},
             Upper{0x1E, HexArea::Program, 0},
             Upper{0x1F, HexArea::Program, 0x10000},
             Upper{0x20, HexArea::Id18, 0},
             Upper{0x30, HexArea::Config18, 0},
             Upper{0xF0, HexArea::Eeprom, 0},
         }) {
        const auto place = pic18_place(upper, 0x1234);
        EXPECT_EQ(place.area, area) << upper;
        EXPECT_EQ(place.index, base + 0x1234) << upper;
    }
    for (const unsigned upper : {0x21U, 0x2FU, 0x31U, 0xEFU, 0xF1U, 0x100U, 0xFFFFU})
        EXPECT_EQ(pic18_place(upper, 0).area, HexArea::None) << upper;
}

TEST(has_full_addresses, is_for_the_enhanced_mid_range_parts_alone) {
    for (const auto* device : {"PIC12F1822", "PIC12LF1822", "PIC16F1823", "PIC16LF1829",
                               "PIC16F1933", "PIC16F1939", "PIC16LF1939"})
        EXPECT_TRUE(has_full_addresses(device)) << device;
    for (const auto* device : {"", "PIC16F1", "PIC16F183", "PIC16F182", "PIC12F683", "PIC16F887",
                               "PIC16F877A", "PIC18F1320", "PIC18F14K50", "ZQ-LDR412"})
        EXPECT_FALSE(has_full_addresses(device)) << device;
}

}  // namespace quillon
