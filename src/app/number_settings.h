// SPDX-License-Identifier: MIT
// The settings that start-up reads as numbers, with their defaults and the range that can be used.
//
// An edit by hand or a damaged disk may put anything into the store. A number out of its range is
// treated like a text that isn't a number.
#pragma once

#include <array>
#include <string_view>

#include "app/settings.h"

namespace quillon {

struct NumberSetting {
    std::string_view key;
    int default_value;
    int lowest;
    int highest;
};

namespace number_setting {

// Places in twips. No desktop is wider, and sums of them stay far from an overflow.
inline constexpr int kFarthest = 1'000'000;

inline constexpr NumberSetting MainLeft{"MainLeft", 100, -kFarthest, kFarthest};
inline constexpr NumberSetting MainTop{"MainTop", 100, -kFarthest, kFarthest};
inline constexpr NumberSetting MainHeight{"MainHeight", 7860, 0, kFarthest};
inline constexpr NumberSetting BoardLeft{"BoardLeft", 0, -kFarthest, kFarthest};
inline constexpr NumberSetting BoardTop{"BoardTop", 0, -kFarthest, kFarthest};
inline constexpr NumberSetting ExtPgmLeft{"ExtPgmLeft", 100, -kFarthest, kFarthest};
inline constexpr NumberSetting ExtPgmTop{"ExtPgmTop", 100, -kFarthest, kFarthest};
inline constexpr NumberSetting ComNo{"ComNo", 0, 0, 32767};  // a 16-bit number, 0 for none

inline constexpr std::array kAll{MainLeft, MainTop,    MainHeight, BoardLeft,
                                 BoardTop, ExtPgmLeft, ExtPgmTop,  ComNo};

}  // namespace number_setting

// The saved number, or the default where there is none that can be used.
int value_of(const Settings& settings, const NumberSetting& setting);
// False where something is saved that can't be used.
bool is_usable(const Settings& settings, const NumberSetting& setting);

}  // namespace quillon
