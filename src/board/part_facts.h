// SPDX-License-Identifier: MIT
// What a part holds from the factory and no catalogue lists: identification and calibration words.
//
// Board-side data of its own: the programmer's tables are compared with it, not made from it.
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
};

// A part that isn't known has neither identification nor calibration.
PartFacts part_facts(std::string_view name);

}  // namespace quillon
