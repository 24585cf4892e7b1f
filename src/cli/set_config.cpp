// SPDX-License-Identifier: MIT
#include "cli/set_config.h"

#include <fmt/format.h>

#include "app/text.h"
#include "cli/cli_texts.h"

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
    if (session.PgmType == ProgrammingType::EPROM2 && n == 1) session.CfgIdMem[14] |= 0xC0;
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
