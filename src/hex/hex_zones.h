// SPDX-License-Identifier: MIT
// The address zones of a HEX file: which part of the image a record belongs to, by its address.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quillon {

enum class HexArea : std::uint8_t {
    None,      // no part of the image: silently ignored
    Program,   // PgmMem
    IdRecord,  // CfgIdMem, by the ID rule
    CfgId,     // CfgIdMem
    Eeprom,    // EepMem
    FuseBlock,
    Id18,      // IdBytes18
    Config18,  // CfgBytes18
};

struct HexPlace {
    HexArea area = HexArea::None;
    // Byte index in the area of the record's first byte. A negative index is a fault: there is no
    // such place.
    std::ptrdiff_t index = 0;
};

// How the files of the 12-bit and 14-bit devices are read.
enum class HexAddresses : std::uint8_t {
    Folded,  // extended addresses are ignored: all records fold into the 16-bit space
    Full,    // by their full address, as enhanced mid-range parts need it
};

// `address` is a record's 16-bit byte address.
HexPlace word_image_place(unsigned address);
// `address` is a record's full 32-bit byte address.
HexPlace full_address_place(std::uint32_t address);
// `upper` is the value of the last extended address record. In the program zone only its bit 0
// counts, on purpose: 2 folds onto 0 and 3 onto 1.
HexPlace pic18_place(unsigned upper, unsigned address);

// Addresses of ID, configuration and EEPROM of an enhanced mid-range part in a file with full
// addresses.
inline constexpr std::uint32_t kFullIdAddress = 0x10000;
inline constexpr std::uint32_t kFullEepromAddress = 0x1E000;

// The configuration word of the 12-bit parts, word address 0x0FFF. It is in the program's zone.
inline constexpr unsigned kConfig12bitAddress = 0x1FFE;

// Bytes of program that fit into a folded file.
inline constexpr std::size_t kFoldedProgramBytes = 0x4000;

// The enhanced mid-range parts, PIC12F1xxx, PIC16F1xxx and their LF forms: their assemblers put ID,
// configuration and EEPROM above 64 K.
bool has_full_addresses(std::string_view DeviceName);

}  // namespace quillon
