// SPDX-License-Identifier: MIT
#include "app/number_settings.h"

#include <limits>
#include <optional>

namespace quillon {

namespace {

std::optional<int> usable_value(const Settings& settings, const NumberSetting& setting) {
    // Outside of every range, so that it can mark a text that isn't a number.
    constexpr int kNone = std::numeric_limits<int>::min();
    const int value = settings.number(setting.key, kNone);
    if (value < setting.lowest || value > setting.highest) return std::nullopt;
    return value;
}

}  // namespace

int value_of(const Settings& settings, const NumberSetting& setting) {
    return usable_value(settings, setting).value_or(setting.default_value);
}

bool is_usable(const Settings& settings, const NumberSetting& setting) {
    // A text that is saved empty doesn't convert.
    const bool missing = settings.text(setting.key).empty() && settings.converts(setting.key);
    return missing || usable_value(settings, setting).has_value();
}

}  // namespace quillon
