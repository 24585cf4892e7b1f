// SPDX-License-Identifier: MIT
// The key filter of the boxes that take hexadecimal digits: the ID boxes and TxtInit.
#pragma once

#include <optional>

namespace quillon {

inline constexpr char kBackspace = '\b';

// The character that a typed key enters: 0-9 and A-F as they are, a-f in upper case, backspace for
// deleting. Nothing for a key that has no effect.
constexpr std::optional<char> hex_key(char key) {
    if ((key >= '0' && key <= '9') || (key >= 'A' && key <= 'F') || key == kBackspace) return key;
    if (key >= 'a' && key <= 'f') return static_cast<char>(key - 'a' + 'A');
    return std::nullopt;
}

}  // namespace quillon
