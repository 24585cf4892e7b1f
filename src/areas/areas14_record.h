// SPDX-License-Identifier: MIT
// What sets one group of 14-bit parts apart on the wire. The defaults are the template, PIC16F877.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "areas/areas14_texts.h"
#include "areas/identity_check.h"

namespace quillon {

struct Device14 {
    std::string_view name;
    std::uint16_t id = 0;  // identity word >> 5, without the five bits of the revision
};

struct Letters14 {
    char read = 's';  // second letter of every read and blank check
    std::string_view write_pgm = "e8", write_eep = "ed", write_cfg = "ec";  // behind "w"
    std::string_view erase = "bd";
};

// Mode bytes behind the erase letters.
struct EraseModes {
    std::uint8_t chip = 1, pgm = 1, eep = 3;
};

// Words of the "c" area that each routine takes, from the first ID word on.
struct ConfigCounts {
    std::uint8_t blank = 8, read = 8, verify = 8, check = 8, write = 8;
};

// On the wire and in the image.
constexpr std::size_t bytes_of(std::uint8_t words) { return std::size_t{2} * words; }

struct Areas14Record {
    std::span<const Device14> devices;
    Letters14 letters{};
    ConfigCounts config{};
    EraseModes erase{};
    std::uint16_t blank_word = 0x3FFF;
    const Areas14Texts* texts = &kAreas14Texts;
    const IdentityTexts* identity = &kIdentityTexts;
};

// True for a record that names its devices once each, with letters in every place. Zero is what an
// empty socket reads, so no device has it.
constexpr bool is_sound(const Areas14Record& record) {
    const auto& letters = record.letters;
    if (record.devices.empty() || letters.write_pgm.size() != 2 || letters.write_eep.size() != 2 ||
        letters.write_cfg.size() != 2 || letters.erase.size() != 2)
        return false;
    for (std::size_t i = 0; i < record.devices.size(); ++i) {
        if (record.devices[i].name.empty() || record.devices[i].id == 0) return false;
        for (std::size_t j = 0; j < i; ++j)
            if (record.devices[j].name == record.devices[i].name) return false;
    }
    return true;
}

}  // namespace quillon
