// SPDX-License-Identifier: MIT
// What sets one group of 14-bit parts apart on the wire. The defaults are the template, PIC16F877.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "app/token.h"
#include "areas/areas14_texts.h"
#include "areas/calibration_word.h"
#include "areas/identity_check.h"

namespace quillon {

struct Device14 {
    std::string_view name;
    std::uint16_t id = 0;  // identity word >> 5, without the five bits of the revision
};

// Letters that the beginning of the device's name decides.
struct LettersByName {
    std::string_view prefix;
    std::string_view letters;
};

// A write without letters sends nothing and fails.
struct Letters14 {
    char read = 's';  // second letter of every read and blank check
    std::string_view write_pgm = "e8", write_eep = "ed", write_cfg = "ec";  // behind "w"
    std::string_view erase = "bd";
    std::span<const LettersByName> write_pgm_of{};  // the first that fits; none: write_pgm
};

// Mode bytes behind the erase letters.
struct EraseModes {
    std::uint8_t chip = 1, pgm = 1, eep = 3;
};

// Words of the "c" area that each routine takes, from the first ID word on. A count above eight
// that fills whole blocks is a stream with an "@" for each block.
struct ConfigCounts {
    std::uint8_t blank = 8, read = 8, verify = 8, check = 8, write = 8;
};

// When the host's "@" goes out in the config blank check and verify.
enum class ConfigAck : std::uint8_t { BehindData, AtOnce };

// Which bits of ID and configuration a verify compares.
enum class ConfigCompare : std::uint8_t {
    Digits,  // the low digit of each ID word, configuration word 1 whole
    Words,   // 14 bits of each word; Verify_Cfg leaves the ID words out
};

// The verdicts of a blank check.
struct BlankWords {
    Token blank = Token::YB;
    Token used = Token::NB;
};

// The factory's calibration in the last word of program memory.
enum class Osccal14 : std::uint8_t { None, Word, WordAndBandgap };

// On the wire and in the image.
constexpr std::size_t bytes_of(std::uint8_t words) { return std::size_t{2} * words; }

struct Areas14Record {
    std::span<const Device14> devices;
    bool other_devices_pass = false;  // the identity of a device that isn't listed isn't judged
    Letters14 letters{};
    ConfigCounts config{};
    EraseModes erase{};
    std::uint16_t blank_word = 0x3FFF;
    std::uint8_t blank_leaves_out = 0;  // words at the end of program memory
    ConfigAck config_ack = ConfigAck::BehindData;
    ConfigCompare compare = ConfigCompare::Digits;
    // The device's own words are read before the configuration is written, and written back.
    bool patches_config = false;
    bool marks_own_words = true;       // bit 7 above these words: the board doesn't write them
    bool swaps_id_bytes = false;       // the ID words are low byte first on the wire
    bool limits_config_write = false;  // 10 s for each item and the end code
    bool limits_eep_verify = false;    // 10 s, and the list of differing cells has no limit
    Osccal14 osccal = Osccal14::None;
    WordBits bits = WordBits::Erasable;
    bool shows_id_number = false;  // of the part in Label_DEV_id
    BlankWords words{};
    const Areas14Texts* texts = &kAreas14Texts;
    const IdentityTexts* identity = &kIdentityTexts;
};

constexpr bool is_pair_or_none(std::string_view letters) {
    return letters.empty() || letters.size() == 2;
}

// True for a record that names its devices once each, with letters in every place. Zero is what an
// empty socket reads, so no device has it.
constexpr bool is_sound(const Areas14Record& record) {
    const auto& letters = record.letters;
    if (record.devices.empty() || letters.write_pgm.size() != 2 ||
        !is_pair_or_none(letters.write_eep) || letters.write_cfg.size() != 2 ||
        letters.erase.size() != 2)
        return false;
    for (const auto& named : letters.write_pgm_of)
        if (named.prefix.empty() || named.letters.size() != 2) return false;
    for (std::size_t i = 0; i < record.devices.size(); ++i) {
        if (record.devices[i].name.empty() || record.devices[i].id == 0) return false;
        for (std::size_t j = 0; j < i; ++j)
            if (record.devices[j].name == record.devices[i].name) return false;
    }
    return true;
}

}  // namespace quillon
