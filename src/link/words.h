// SPDX-License-Identifier: MIT
// Words as they are on the wire and in the image: high byte first.
#pragma once

#include <cstdint>

namespace quillon {

constexpr std::uint16_t word_high_first(std::uint8_t high, std::uint8_t low) {
    return static_cast<std::uint16_t>(high << 8 | low);
}

// The AND of all words seen, high and low byte apart: all ones only if each word was.
struct AndWord {
    std::uint8_t hi = 0xFF;
    std::uint8_t lo = 0xFF;
    void add(std::uint8_t high, std::uint8_t low) {
        hi &= high;
        lo &= low;
    }
    std::uint16_t value() const { return word_high_first(hi, lo); }
};

}  // namespace quillon
