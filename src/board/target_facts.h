// SPDX-License-Identifier: MIT
// A target as it comes from the factory, made from the catalogue's description of the device.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "board/target.h"

namespace quillon {

// The catalogue's values under plain names. The owner of a device record fills them in.
struct TargetFacts {
    using Words = std::array<std::uint16_t, 7>;      // configuration word n at index n-1
    using EraseWords = std::array<std::uint8_t, 6>;  // as sent; all zero: the part has none

    std::string name;
    std::string type;               // programming type as in the catalogue: "FLASH8", "18F_01"
    std::size_t program_words = 0;  // PIC18: half the byte count
    std::size_t eeprom_cells = 0;
    std::array<bool, 7> config_present{};
    Words config_default{};
    Words config_mask{};             // bits that may be 1
    Words config_force{};            // bits that are always 1
    std::uint16_t protect_mask = 0;  // CpMask; PIC18: CpMaskCf5
    std::uint16_t identity18 = 0;    // PIC18: DevIdExpect
    EraseWords erase_chip{};
    EraseWords erase_config{};
    EraseWords erase_eeprom{};
    std::array<EraseWords, 9> erase_block{};  // 0: the boot block
};

// Erased memories, the factory's identification (with a revision), calibration and OSCCAL words.
SimulatedTarget blank_target(const TargetFacts& facts);

}  // namespace quillon
