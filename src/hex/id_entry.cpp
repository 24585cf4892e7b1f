// SPDX-License-Identifier: MIT
#include "hex/id_entry.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "app/text.h"
#include "hex/id_words.h"
#include "image/fill.h"
#include "parts/device_traits.h"

namespace quillon {

namespace {

constexpr std::size_t kWordDigits = 4;
constexpr std::uint32_t kHighestWord = 0x3FFF;

// The value of a text of exactly `digits` hexadecimal digits, at most eight.
std::optional<std::uint32_t> value_of(std::string_view text, std::size_t digits) {
    if (text.size() != digits) return std::nullopt;
    std::uint32_t value = 0;
    for (const char c : text) {
        const auto digit = hex_digit(c);
        if (!digit) return std::nullopt;
        value = value << 4 | *digit;
    }
    return value;
}

// A whole ID word.
std::optional<std::uint32_t> word_of(std::string_view text) {
    const auto value = value_of(text, kWordDigits);
    return value && *value <= kHighestWord ? value : std::nullopt;
}

std::array<TextBox*, 4> word_boxes(MainForm& form) {
    return {&form.Text_ID1, &form.Text_ID2, &form.Text_ID3, &form.Text_ID4};
}

}  // namespace

int IdEntry::digits() const { return is_pic18_flash(session_.PgmType) ? 8 : 4; }

bool IdEntry::take_digits(std::string_view text) {
    const bool pic18 = is_pic18_flash(session_.PgmType);
    if (!value_of(text, static_cast<std::size_t>(digits()))) return false;
    const auto entered = upper(text);
    for (std::size_t i = 0; i < entered.size(); ++i) {
        const auto digit = static_cast<std::uint8_t>(hex_digit(entered[i]).value_or(0));
        if (pic18) {
            // The upper half of an ID location is all ones: executed, it is a NOP.
            session_.IdBytes18[i] = static_cast<std::uint8_t>(0xF0 | digit);
        } else {
            session_.CfgIdMem[2 * i] = 0;
            session_.CfgIdMem[2 * i + 1] = digit;
        }
    }
    if (!pic18) fix_id_words(session_.DeviceName, session_);
    session_.IdText = entered;
    show();
    return true;
}

bool IdEntry::take_word(int n, std::string_view text) {
    const auto value = word_of(text);
    if (!value || !form_.Text_ID.Enabled.get()) return false;
    const auto at = 2 * static_cast<std::size_t>(n - 1);
    session_.CfgIdMem[at] = static_cast<std::uint8_t>(*value >> 8);
    session_.CfgIdMem[at + 1] = static_cast<std::uint8_t>(*value & 0xFF);
    show();
    session_.IdText = form_.Text_ID.Text.get();
    return true;
}

void IdEntry::drop_unfinished() {
    if (session_.DeviceName.empty()) return;
    const auto boxes = word_boxes(form_);
    const bool words = has_four_word_id(session_.DeviceName);
    const auto unfinished = [](const TextBox* box) { return !word_of(box->Text.get()); };
    if (!value_of(form_.Text_ID.Text.get(), static_cast<std::size_t>(digits())) ||
        (words && std::ranges::any_of(boxes, unfinished)))
        show();
}

void IdEntry::show() {
    views_.ShowConfigSummary();
    if (is_pic18_flash(session_.PgmType)) form_.Text_ID.Text.set(pic18_id_digits(session_));
}

}  // namespace quillon
