// SPDX-License-Identifier: MIT
// How long the simulated board takes for its work, and the gaps by which it separates letters.
#pragma once

#include <chrono>

#include "app/host.h"

namespace quillon {

struct BoardTimes {
    using Time = Host::Time;

    // A letter or parameter that comes sooner after the one before it breaks the pacing and is
    // answered with silence. 0: not checked, for a line whose times are no better than a scheduler.
    Time letter_gap = std::chrono::milliseconds{1};
    // A command whose next letter or parameter doesn't come within this time is dropped, so that it
    // can't swallow the host's next check. Items and acknowledges have no limit.
    Time stall = std::chrono::seconds{1};
    // Where an item is awaited, a "*" may begin the item or call the board to the command loop. It
    // begins the item if the second byte comes within this time: an item is sent in one piece, the
    // "*" of a call come 1 ms apart.
    Time item_gap = std::chrono::microseconds{800};

    Time program_word = std::chrono::microseconds{1300};
    Time program_block18 = std::chrono::microseconds{1000};  // eight bytes
    Time eeprom_cell = std::chrono::microseconds{4000};
    Time config_word = std::chrono::microseconds{4000};
    Time erase = std::chrono::milliseconds{10};
    Time check_word = std::chrono::microseconds{20};  // blank check, a word

    // A board whose work takes no time: what is left is the line and the host.
    static constexpr BoardTimes none() {
        return {.program_word = Time{0},
                .program_block18 = Time{0},
                .eeprom_cell = Time{0},
                .config_word = Time{0},
                .erase = Time{0},
                .check_word = Time{0}};
    }
};

}  // namespace quillon
