// SPDX-License-Identifier: MIT
// ID words right behind the program of a 12-bit part, where assemblers put them.
//
// The parts' own ID addresses (is_own_id_address) come first: these words count only in a file that
// has no ID there nor at 0x4000. They are found by their addresses and not by the record that they
// begin, as an assembler joins them to the program where that is full.
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
    // A program word of the file; others than these four are passed over.
    void note(std::size_t address, std::uint8_t high, std::uint8_t low);
    // The noted words become the image's; the others stay.
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
