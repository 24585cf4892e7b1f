// SPDX-License-Identifier: MIT
#include "parts/device_traits.h"

#include <algorithm>
#include <array>
#include <span>

#include "parts/modules.h"

namespace quillon {

namespace {

// The modules of the parts with calibration words, and of the enhanced mid-range parts.
constexpr std::array kFourWordIdModules{
    Module::PIC1XF18XX, Module::PIC16F19xx, Module::PIC16F1939, Module::PIC16F88X,
    Module::ZQLDR418,   Module::PIC16F91X,  Module::PIC16F6XX,  Module::PIC1XF63X,
    Module::PIC12F609,  Module::PIC16F785,  Module::PIC16F716,
};
// These parts have the four words too, but the panel shows no boxes for them.
constexpr std::array<std::string_view, 4> kWithoutIdBoxes{
    "PIC16F1826",
    "PIC16LF1826",
    "PIC16F1827",
    "PIC16LF1827",
};
constexpr std::array kWholeIdModules{Module::PIC16F88X, Module::PIC16F91X};
constexpr std::array<std::string_view, 4> kIdWithBit7{
    "PIC16F73",
    "PIC16F74",
    "PIC16F76",
    "PIC16F77",
};
constexpr std::array<std::string_view, 5> kFlashNames{
    "PIC12F", "PIC16F", "ZQ-LDR", "PIC10F", "PIC18F",
};

template <typename List, typename Value>
bool holds(const List& list, const Value& value) {
    return std::ranges::find(list, value) != std::end(list);
}

}  // namespace

bool has_four_word_id(std::string_view device) {
    return holds(kFourWordIdModules, module_of(device)) && !holds(kWithoutIdBoxes, device);
}

bool has_whole_id(std::string_view device) { return holds(kWholeIdModules, module_of(device)); }

bool has_id_with_bit_7(std::string_view device) { return holds(kIdWithBit7, device); }

bool has_flash_name(std::string_view device) {
    return std::ranges::any_of(kFlashNames,
                               [&](std::string_view prefix) { return device.starts_with(prefix); });
}

}  // namespace quillon
