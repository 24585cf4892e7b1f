// SPDX-License-Identifier: MIT
// ID words right behind the program of a 12-bit part, where assemblers put them.
//
// The parts' own ID addresses (is_own_id_address) have precedence: these words count only in a file
// that has no ID there and none at 0x4000. They are found by their addresses and not by a record's
// start: behind a full program, an assembler puts them into the program's last record.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "app/session.h"

namespace quillon {

class IdBehindProgram {
  public:
    static constexpr std::size_t kBytes = 8;

    explicit IdBehindProgram(const DeviceRecord& device);

    // Whether one of the four words has this byte address. Never for a part that isn't 12-bit.
    bool holds(std::size_t address) const;
    // Notes a program word of the file if it is one of the four, and ignores any other.
    void note(std::size_t address, std::uint8_t high, std::uint8_t low);
    // Copies the noted words to the image; the others keep their values.
    void take(Session& session) const;

  private:
    struct Word {
        std::uint8_t high, low;
    };
    std::optional<std::size_t> first_;
    std::array<std::optional<Word>, kBytes / 2> words_{};
    bool noted_ = false;
};

}  // namespace quillon
