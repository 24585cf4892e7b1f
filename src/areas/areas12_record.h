// SPDX-License-Identifier: MIT
// What sets one group of 12-bit parts apart on the wire. The defaults are 12C5's.
#pragma once

#include <cstdint>
#include <string_view>

#include "areas/areas12_texts.h"
#include "areas/areas14_record.h"

namespace quillon {

// Behind the power letter. A write without letters sends nothing and fails.
struct Letters12 {
    std::string_view blank = "bs";
    std::string_view read_pgm = "rsp", read_cfg = "rsc";
    std::string_view write_pgm = "wsp", write_cfg = "wsc";
};

// Words of the stream beyond program memory: configuration word and ID words.
inline constexpr std::int32_t kMoreWords12 = 5;

// How the board answers a blank check of program memory.
enum class BlankReply12 : std::uint8_t {
    Word,           // the AND of the words
    ConfigAndWord,  // the configuration word before it
};

struct Areas12Record {
    Letters12 letters{};
    BlankReply12 blank_reply = BlankReply12::Word;
    bool osccal = true;             // the last word of program memory is the factory's calibration
    bool names_oscillator = false;  // the blank check names the oscillator's type
    BlankWords words{.blank = Token::OK, .used = Token::NG};
    const Areas12Texts* texts = &kAreas12Texts;
};

// True for a record that has the letters of every read.
constexpr bool is_sound(const Areas12Record& record) {
    const auto& letters = record.letters;
    return letters.blank.size() >= 2 && letters.read_pgm.size() == 3 &&
           letters.read_cfg.size() == 3 &&
           (letters.write_pgm.empty() || letters.write_pgm.size() == 3) &&
           letters.write_cfg.size() == 3;
}

}  // namespace quillon
