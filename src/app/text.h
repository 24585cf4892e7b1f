// SPDX-License-Identifier: MIT
// Small operations on texts. Only ASCII letters have cases and only ASCII blanks count as blanks:
// names and keys hold no others.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

std::string upper(std::string_view text);
std::string lower(std::string_view text);
// Without leading and trailing blanks, TABs and line ends.
std::string trim(std::string_view text);
std::string replace_all(std::string text, std::string_view from, std::string_view to);
// Value of a hexadecimal digit of either case, nothing for any other character.
std::optional<unsigned> hex_digit(char digit);
// Upper-case hexadecimal with leading zeros, at least so many digits.
std::string hex(std::uint64_t value, int digits);
// Two digits a byte, with nothing between.
std::string hex_bytes(std::span<const std::uint8_t> bytes);
// The text with every control character, and every byte that isn't UTF-8, shown as "\x1B": so that
// a name from a file can neither control a terminal nor end a line.
std::string printable(std::string_view text);
// The same for a text of several lines: CR and LF stay.
std::string printable_lines(std::string_view text);
// True for well-formed UTF-8 (plain ASCII is).
bool is_utf8(std::string_view bytes);

}  // namespace quillon
