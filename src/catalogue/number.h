// SPDX-License-Identifier: MIT
// The numbers of the catalogue file, and the version number inside the board's identity.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillon {

// Reads "0B" and binary digits, "0X" and hexadecimal digits, or a decimal number; upper-cases the
// text in place. No digits give 0, a bad digit behind a prefix gives -1. Nothing for a decimal
// text that doesn't convert and for a value beyond 32 bits.
std::optional<std::int32_t> ParseNumber(std::string& text);
// The same without changing the text.
std::optional<std::int32_t> parse_number(std::string_view text);

// A whole text that is a decimal number with or without a point, such as "6.76".
std::optional<double> parse_decimal(std::string_view text);
// The number that a text begins with, behind leading blanks: 6.8 of "6.80 B". 0 where there is
// none.
double numeric_prefix(std::string_view text);

}  // namespace quillon
