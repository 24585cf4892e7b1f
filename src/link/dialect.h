// SPDX-License-Identifier: MIT
// How the exchanges of one device read on the wire, where parts differ.
#pragma once

#include <cstddef>
#include <string_view>

namespace quillon {

struct Dialect {
    char power = 'N';             // 'n': VPP rises before VDD, 'N': VDD before VPP
    bool extended = false;        // "X" is sent after the power letter
    int number_bytes = 2;         // bytes of a count or of an address, high byte first
    std::size_t read_block = 16;  // bytes that the board sends before it waits for our "@"
};

// The dialect's power letter for a device whose catalogue record asks for that supply first.
constexpr char power_letter(std::string_view PowerMode) { return PowerMode == "VPP" ? 'n' : 'N'; }

}  // namespace quillon
