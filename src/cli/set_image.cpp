// SPDX-License-Identifier: MIT
#include "cli/set_image.h"

#include <fmt/format.h>

#include "app/text.h"
#include "cli/cli_texts.h"
#include "image/fill.h"
#include "image/id_words.h"

namespace quillon::cli {

namespace {

// The value of a text of hexadecimal digits, at most eight.
std::optional<std::uint32_t> hex_value(std::string_view text) {
    if (text.empty() || text.size() > 8) return std::nullopt;
    std::uint32_t value = 0;
    for (const char c : text) {
        const auto digit = hex_digit(c);
        if (!digit) return std::nullopt;
        value = value << 4 | *digit;
    }
    return value;
}

void put_config_word(Run& run, int n, std::uint32_t word) {
    auto& session = run.session;
    const auto at = static_cast<std::size_t>(n);
    word = (word & session.ConfigMask[at]) | session.ConfigForce[at];
    session.ConfigWord[at] = word;
    const auto high = static_cast<std::uint8_t>(word >> 8 & 0xFF);
    const auto low = static_cast<std::uint8_t>(word & 0xFF);
    session.CfgIdMem[12 + 2 * at] = high;
    session.CfgIdMem[13 + 2 * at] = low;
    if (session.PgmType == "EPROM2" && n == 1) session.CfgIdMem[14] |= 0xC0;
    session.CfgBytes18[2 * at - 2] = low;
    session.CfgBytes18[2 * at - 1] = high;
    run.config.ShowConfigWords();
    run.views.ShowConfigSummary();
}

// The word with one field changed.
std::optional<std::string> set_field(Run& run, int n, std::string_view field,
                                     std::string_view option) {
    const auto name = fmt::format("CONFIG{}", n);
    bool field_found = false;
    for (const auto& candidate : run.catalogue.options()) {
        if (candidate.word != n || candidate.name != field) continue;
        field_found = true;
        if (candidate.option != option) continue;
        const auto word = run.session.ConfigWord[static_cast<std::size_t>(n)];
        put_config_word(run, n, (word & ~candidate.mask) | candidate.value);
        return std::nullopt;
    }
    return field_found ? fmt::format(text::kNoConfigOption, name, field, option)
                       : fmt::format(text::kNoConfigField, name, field);
}

}  // namespace

bool set_id_digits(Run& run, std::string_view text) {
    auto& session = run.session;
    const bool pic18 = is_pic18_flash(session.PgmType);
    if (text.size() != (pic18 ? 8U : 4U) || !hex_value(text)) return false;
    const auto digits = upper(text);
    for (std::size_t i = 0; i < digits.size(); ++i) {
        const auto digit = static_cast<std::uint8_t>(hex_digit(digits[i]).value_or(0));
        if (pic18) {
            // The upper half of an ID location is all ones: executed, it is a NOP.
            session.IdBytes18[i] = static_cast<std::uint8_t>(0xF0 | digit);
        } else {
            session.CfgIdMem[2 * i] = 0;
            session.CfgIdMem[2 * i + 1] = digit;
        }
    }
    if (!pic18) fix_id_words(session.DeviceName, session);
    session.IdText = digits;
    run.views.ShowConfigSummary();
    run.form.Text_ID.Text.set(digits);
    return true;
}

bool set_id_word(Run& run, int n, std::string_view text) {
    const auto value = hex_value(text);
    if (text.size() != 4 || !value || *value > 0x3FFF) return false;
    const auto word = static_cast<std::size_t>(n - 1);
    run.session.CfgIdMem[2 * word] = static_cast<std::uint8_t>(*value >> 8);
    run.session.CfgIdMem[2 * word + 1] = static_cast<std::uint8_t>(*value & 0xFF);
    run.views.ShowConfigSummary();
    run.session.IdText = run.form.Text_ID.Text.get();
    return true;
}

std::optional<std::string> set_config(Run& run, int n, std::string_view value) {
    const auto name = fmt::format("CONFIG{}", n);
    const auto at = static_cast<std::size_t>(n);
    if (!run.session.ConfigPresent.at(at))
        return fmt::format(text::kNoConfigWord, name, run.session.DeviceName);
    if (const auto colon = value.find(':'); colon != std::string_view::npos)
        return set_field(run, n, value.substr(0, colon), value.substr(colon + 1));
    const auto digits = value.substr(upper(value).starts_with("0X") ? 2 : 0);
    const auto word = hex_value(digits);
    if (!word || (*word & ~run.session.ConfigWidth[at]) != 0)
        return fmt::format(text::kBadValue, name, value, "a word of this device in hexadecimal");
    put_config_word(run, n, *word);
    return std::nullopt;
}

}  // namespace quillon::cli
