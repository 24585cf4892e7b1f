// SPDX-License-Identifier: MIT
#include "app/settings.h"

#include <charconv>

#include "app/text.h"

namespace quillon {

std::string Settings::text(std::string_view key, std::string_view default_value) const {
    return store_.read(kSection, key).value_or(std::string{default_value});
}

int Settings::number(std::string_view key, int default_value) const {
    const std::string value = trim(text(key));
    int result = 0;
    const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), result);
    return error == std::errc{} && end == value.data() + value.size() ? result : default_value;
}

bool Settings::flag(std::string_view key, bool default_value) const {
    const std::string value = upper(trim(text(key)));
    if (value == "TRUE") return true;
    if (value == "FALSE") return false;
    return number(key, default_value ? 1 : 0) != 0;
}

bool Settings::save(std::string_view key, std::string_view value) {
    return store_.write(kSection, key, value);
}

bool Settings::save(std::string_view key, int value) { return save(key, std::to_string(value)); }

bool Settings::save_flag(std::string_view key, bool value) { return save(key, value ? 1 : 0); }

}  // namespace quillon
