// SPDX-License-Identifier: MIT
#include "app/settings.h"

#include <charconv>

#include "app/text.h"

namespace quillon {

namespace {

std::optional<int> to_number(std::string_view text) {
    const std::string value = trim(text);
    int result = 0;
    const auto* last = value.data() + value.size();
    const auto [end, error] = std::from_chars(value.data(), last, result);
    if (error != std::errc{} || end != last) return std::nullopt;
    return result;
}

std::optional<bool> to_flag(std::string_view text) {
    const std::string value = upper(trim(text));
    if (value == "TRUE") return true;
    if (value == "FALSE") return false;
    const auto number = to_number(value);
    return number ? std::optional{*number != 0} : std::nullopt;
}

}  // namespace

std::string Settings::text(std::string_view key, std::string_view default_value) const {
    return store_.read(kSection, key).value_or(std::string{default_value});
}

int Settings::number(std::string_view key, int default_value) const {
    return to_number(text(key)).value_or(default_value);
}

bool Settings::flag(std::string_view key, bool default_value) const {
    return to_flag(text(key)).value_or(default_value);
}

bool Settings::converts(std::string_view key) const {
    const auto value = store_.read(kSection, key);
    return !value || to_flag(*value).has_value();
}

bool Settings::save(std::string_view key, std::string_view value) {
    return store_.write(kSection, key, value);
}

bool Settings::save(std::string_view key, int value) { return save(key, std::to_string(value)); }

bool Settings::save_flag(std::string_view key, bool value) { return save(key, value ? 1 : 0); }

}  // namespace quillon
