// SPDX-License-Identifier: MIT
// The status words that routines return.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quillon {

enum class Token : std::uint8_t {
    None,    // "": no result yet
    OK,      // "OK": done, and the data agreed
    NG,      // "NG": the data disagreed, or the step was refused
    ER,      // "ER": the end code or the data didn't come
    Absent,  // "--": the device has no such area, or the step was left out
    YB,      // "YB": blank
    NB,      // "NB": not blank
};

std::string_view text(Token token);

// The areas of the device that are protected against being read.
struct Protection {
    bool pgm = false;
    bool eep = false;
    constexpr bool any() const { return pgm || eep; }
    bool operator==(const Protection&) const = default;
};

// "CP" or "--".
std::string_view text(const Protection& protection);

// The results of one operation, area by area.
struct AreaTokens {
    Token pgm = Token::None;
    Token eep = Token::None;
    Token cfg = Token::None;
    bool operator==(const AreaTokens&) const = default;
};

// The three words in one, program first: "OK--OK". The form in which logs and dumps show them.
std::string text(const AreaTokens& tokens);

// Some families say YB and NB of a blank check, others OK and NG.
constexpr bool is_blank(Token token) { return token == Token::YB || token == Token::OK; }

// A device without EEPROM is as blank as one with a blank EEPROM.
constexpr bool all_blank(const AreaTokens& result) {
    return is_blank(result.pgm) && is_blank(result.cfg) &&
           (is_blank(result.eep) || result.eep == Token::Absent);
}

// "OK----" is the result of a run for program memory alone.
constexpr bool all_verified(const AreaTokens& result) {
    using enum Token;
    return result == AreaTokens{OK, OK, OK} || result == AreaTokens{OK, Absent, OK} ||
           result == AreaTokens{OK, Absent, Absent};
}

}  // namespace quillon
