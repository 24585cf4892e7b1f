// SPDX-License-Identifier: MIT
// The zones as tables: a row covers the addresses from its first one up to the next row's.
#include "hex/hex_zones.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <span>

namespace quillon {

namespace {

struct Zone {
    std::uint32_t first;
    HexArea area;
    std::uint32_t base;  // the address of the area's byte 0
};

constexpr std::array kWordImage{
    Zone{0x0000, HexArea::Program, 0x0000},
    Zone{0x4000, HexArea::IdRecord, 0x4000},
    Zone{0x4001, HexArea::CfgId, 0x4000},
    Zone{0x4200, HexArea::Eeprom, 0x4200},
    // The zone begins below its base. An address below 0x8000 gets a negative index, which is a
    // fault: that is how a file for a PIC18 is detected.
    Zone{0x4400, HexArea::Eeprom, 0x8000},
    Zone{0x8200, HexArea::None, 0x8200},
    Zone{0xFF00, HexArea::FuseBlock, 0xFF00},
    Zone{0xFF01, HexArea::None, 0xFF01},
};

constexpr std::array kFullAddress{
    Zone{0x00000, HexArea::Program, 0x00000},
    Zone{0x10000, HexArea::IdRecord, kFullIdAddress},
    Zone{0x10001, HexArea::CfgId, kFullIdAddress},
    Zone{0x10100, HexArea::None, 0x10100},
    Zone{0x1E000, HexArea::Eeprom, kFullEepromAddress},
    Zone{0x1E800, HexArea::None, 0x1E800},
};

// By upper address.
constexpr std::array kPic18{
    Zone{0x00, HexArea::Program, 0},  Zone{0x20, HexArea::Id18, 0}, Zone{0x21, HexArea::None, 0},
    Zone{0x30, HexArea::Config18, 0}, Zone{0x31, HexArea::None, 0}, Zone{0xF0, HexArea::Eeprom, 0},
    Zone{0xF1, HexArea::None, 0},
};

// The zones begin at 0 and are in ascending order.
const Zone& zone_of(std::span<const Zone> zones, std::uint32_t address) {
    return *std::prev(std::ranges::upper_bound(zones, address, {}, &Zone::first));
}

HexPlace place_in(std::span<const Zone> zones, std::uint32_t address) {
    const auto& zone = zone_of(zones, address);
    return {zone.area,
            static_cast<std::ptrdiff_t>(address) - static_cast<std::ptrdiff_t>(zone.base)};
}

}  // namespace

HexPlace word_image_place(unsigned address) { return place_in(kWordImage, address); }

HexPlace full_address_place(std::uint32_t address) { return place_in(kFullAddress, address); }

HexPlace pic18_place(unsigned upper, unsigned address) {
    const auto area = zone_of(kPic18, upper).area;
    const unsigned base = area == HexArea::Program ? (upper & 1U) * 0x10000U : 0;
    return {area, static_cast<std::ptrdiff_t>(base + address)};
}

bool has_full_addresses(std::string_view DeviceName) {
    for (const std::string_view series : {"PIC12F1", "PIC12LF1", "PIC16F1", "PIC16LF1"})
        if (DeviceName.starts_with(series)) return DeviceName.size() == series.size() + 3;
    return false;
}

}  // namespace quillon
