// SPDX-License-Identifier: MIT
#include "cli/set_config.h"

#include <fmt/format.h>

#include "app/text.h"
#include "cli/cli_texts.h"

namespace quillon::cli {

namespace {

// The value of at most eight hexadecimal digits.
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

// Changes one field of the word.
std::optional<std::string> set_field(Run& run, int n, std::string_view field,
                                     std::string_view option) {
    const auto name = fmt::format("CONFIG{}", n);
    using enum ConfigModel::FieldChange;
    switch (run.config.set_field(n, field, option)) {
        case Done:
            return std::nullopt;
        case NoField:
            return fmt::format(text::kNoConfigField, name, field);
        case NoOption:
            return fmt::format(text::kNoConfigOption, name, field, option);
    }
    return std::nullopt;
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
    run.config.put_word(n, *word);
    return std::nullopt;
}

}  // namespace quillon::cli
