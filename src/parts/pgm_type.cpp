// SPDX-License-Identifier: MIT
#include "parts/pgm_type.h"

#include <algorithm>
#include <array>
#include <utility>

namespace quillon {

namespace {

using enum ProgrammingType;

constexpr std::array<std::pair<std::string_view, ProgrammingType>, 21> kTokens{{
    {"5X18", T5X18},     {"5X28", T5X28},      {"5F18", T5F18},        {"5F28", T5F28},
    {"12C5", T12C5},     {"10F2", T10F2},      {"12C6", T12C6},        {"12F6", T12F6},
    {"EPROM", EPROM},    {"EPROM2", EPROM2},   {"FLASH0", FLASH0},     {"FLASH1", FLASH1},
    {"FLASH2", FLASH2},  {"FLASH4", FLASH4},   {"FLASH4.9", FLASH4_9}, {"FLASH8", FLASH8},
    {"LDR412", LDR412},  {"LDR412A", LDR412A}, {"LDR418", LDR418},     {"18F_00", T18F_00},
    {"18F_01", T18F_01},
}};

template <typename... Types>
constexpr bool one_of(ProgrammingType type, Types... types) {
    return ((type == types) || ...);
}

}  // namespace

ProgrammingType programming_type(std::string_view token) {
    const auto* const known =
        std::ranges::find(kTokens, token, &std::pair<std::string_view, ProgrammingType>::first);
    if (known != kTokens.end()) return known->second;
    if (token.starts_with("18F")) return T18F;
    return token.starts_with("18") ? T18C : Other;
}

bool is_12bit(ProgrammingType type) { return type >= T5X18 && type <= T10F2; }
bool is_14bit(ProgrammingType type) { return type >= T12C6 && type <= LDR412A; }
bool is_pic18(ProgrammingType type) { return type >= T18C; }
bool is_pic18_flash(ProgrammingType type) { return type >= T18F; }

bool has_word_eeprom(ProgrammingType type) {
    return one_of(type, T12F6, T12C6, FLASH0, FLASH1, FLASH4, FLASH4_9, FLASH8, LDR412, LDR412A);
}

bool logs_calibration(ProgrammingType type) { return one_of(type, T12C5, T10F2, T12C6, T12F6); }

bool has_single_calibration_word(ProgrammingType type) { return one_of(type, T12C6, T12F6); }

}  // namespace quillon
