// SPDX-License-Identifier: MIT
#include "catalogue/number.h"

#include <charconv>
#include <system_error>

#include "app/text.h"

namespace quillon {

namespace {

constexpr std::int32_t kBadDigit = -1;

// Digits behind a prefix. All 32 bits may be used: 0XFFFFFFFF is the bit pattern.
std::optional<std::int32_t> from_digits(std::string_view digits, unsigned base) {
    std::uint64_t value = 0;
    for (const char c : digits) {
        const auto digit = hex_digit(c);
        if (!digit || *digit >= base) return kBadDigit;
        value = value * base + *digit;
        if (value > UINT32_MAX) return std::nullopt;
    }
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
}

// A plain decimal number at the front: digits, and at most one point. std::from_chars alone would
// also take "inf", "nan" and exponents.
std::string_view decimal_prefix(std::string_view text) {
    std::size_t end = 0;
    std::size_t digits = 0;
    bool point = false;
    for (; end < text.size(); ++end) {
        const char c = text[end];
        if (c >= '0' && c <= '9')
            ++digits;
        else if (c == '.' && !point)
            point = true;
        else
            break;
    }
    return digits == 0 ? std::string_view{} : text.substr(0, end);
}

double to_double(std::string_view decimal) {
    double value = 0;
    std::from_chars(decimal.data(), decimal.data() + decimal.size(), value,
                    std::chars_format::fixed);
    return value;
}

}  // namespace

std::optional<std::int32_t> ParseNumber(std::string& text) {
    text = upper(text);
    return parse_number(text);
}

std::optional<std::int32_t> parse_number(std::string_view text) {
    if (text.starts_with("0B") || text.starts_with("0b")) return from_digits(text.substr(2), 2);
    if (text.starts_with("0X") || text.starts_with("0x")) return from_digits(text.substr(2), 16);
    if (text.empty()) return 0;
    if (text.starts_with('+') && text.size() > 1 && text[1] != '-') text.remove_prefix(1);
    std::int32_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return value;
}

std::optional<double> parse_decimal(std::string_view text) {
    const auto decimal = decimal_prefix(text);
    if (decimal.empty() || decimal.size() != text.size()) return std::nullopt;
    return to_double(decimal);
}

double numeric_prefix(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return 0;
    const auto decimal = decimal_prefix(text.substr(first));
    return decimal.empty() ? 0 : to_double(decimal);
}

}  // namespace quillon
