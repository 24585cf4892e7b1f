// SPDX-License-Identifier: MIT
// The factory's words in a part, which no catalogue lists: identification and calibration.
//
// This is the board's own data. The programmer's tables are compared with it, not made from it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quillon {

struct PartFacts {
    std::string_view name;
    std::uint16_t identity = 0;  // without its revision bits; 0: the part has none
    std::array<std::uint16_t, 2> calibration{};
    std::size_t calibration_words = 0;
    std::uint16_t osccal_opcode = 0;  // 0: no calibration in the last program word
    bool backup_osccal = false;
    // The band gap's calibration in bits 12 and 13 of configuration word 1. 0: no such bits.
    std::uint16_t bandgap = 0;
    bool chip_erase_only = false;  // no memory of the part can be erased alone
};

// An unknown part has neither identification nor calibration.
PartFacts part_facts(std::string_view name);

}  // namespace quillon
