// SPDX-License-Identifier: MIT
#include "app/text.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstring>

namespace quillon {

namespace {

template <typename Convert>
std::string converted(std::string_view text, Convert convert) {
    std::string result{text};
    std::ranges::transform(result, result.begin(), convert);
    return result;
}

// Length of the well-formed sequence at the front, 0 where there is none. The bounds of the second
// byte keep out overlong forms, surrogates and values beyond U+10FFFF.
std::size_t utf8_length(std::string_view bytes) {
    const auto at = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned char first = at(0);
    if (first < 0x80) return 1;
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4 || bytes.size() < length) return 0;
    const unsigned low = first == 0xE0 ? 0xA0U : first == 0xF0 ? 0x90U : 0x80U;
    const unsigned high = first == 0xED ? 0x9FU : first == 0xF4 ? 0x8FU : 0xBFU;
    if (at(1) < low || at(1) > high) return 0;
    for (std::size_t i = 2; i < length; ++i)
        if ((at(i) & 0xC0U) != 0x80U) return 0;
    return length;
}

// C0, DEL and C1, which is two bytes in UTF-8.
bool is_control(std::string_view character) {
    const auto first = static_cast<unsigned char>(character.front());
    if (character.size() == 1) return first < 0x20 || first == 0x7F;
    return character.size() == 2 && first == 0xC2 &&
           static_cast<unsigned char>(character.back()) < 0xA0;
}

std::string shown(std::string_view text, std::string_view kept) {
    std::string result;
    while (!text.empty()) {
        const auto length = utf8_length(text);
        const auto character = text.substr(0, std::max<std::size_t>(length, 1));
        const bool plain = length != 0 && !is_control(character);
        if (plain || kept.find(character) != std::string_view::npos)
            result += character;
        else
            result += fmt::format("\\x{:02X}", static_cast<unsigned char>(character.back()));
        text.remove_prefix(character.size());
    }
    return result;
}

}  // namespace

std::string upper(std::string_view text) {
    return converted(text,
                     [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
}

std::string lower(std::string_view text) {
    return converted(text,
                     [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
}

std::string trim(std::string_view text) {
    constexpr std::string_view kBlank = " \t\r\n";
    const auto first = text.find_first_not_of(kBlank);
    if (first == std::string_view::npos) return {};
    return std::string{text.substr(first, text.find_last_not_of(kBlank) - first + 1)};
}

std::string replace_all(std::string text, std::string_view from, std::string_view to) {
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
        text.replace(at, from.size(), to);
    return text;
}

std::optional<unsigned> hex_digit(char digit) {
    if (digit >= '0' && digit <= '9') return static_cast<unsigned>(digit - '0');
    if (digit >= 'A' && digit <= 'F') return static_cast<unsigned>(digit - 'A') + 10;
    if (digit >= 'a' && digit <= 'f') return static_cast<unsigned>(digit - 'a') + 10;
    return std::nullopt;
}

std::string hex(std::uint64_t value, int digits) { return fmt::format("{:0{}X}", value, digits); }

std::string hex_bytes(std::span<const std::uint8_t> bytes) {
    std::string result;
    for (const auto byte : bytes) result += hex(byte, 2);
    return result;
}

std::string printable(std::string_view text) { return shown(text, ""); }

std::string printable_lines(std::string_view text) { return shown(text, "\r\n"); }

bool is_utf8(std::string_view bytes) {
    // Most of a file is plain ASCII: eight bytes at a time until one isn't.
    constexpr std::uint64_t kHighBits = 0x8080808080808080;
    std::uint64_t chunk = 0;
    while (!bytes.empty()) {
        if (bytes.size() >= sizeof chunk) {
            std::memcpy(&chunk, bytes.data(), sizeof chunk);
            if ((chunk & kHighBits) == 0) {
                bytes.remove_prefix(sizeof chunk);
                continue;
            }
        }
        const std::size_t length = utf8_length(bytes);
        if (length == 0) return false;
        bytes.remove_prefix(length);
    }
    return true;
}

}  // namespace quillon
