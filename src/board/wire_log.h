// SPDX-License-Identifier: MIT
// Keeps what has gone over the wire, with times, and shows it as a text that a test can quote.
//
// text() has a line for each exchange, each line ended by "\n":
//
//   > ***?  < ZQ-LDR412A V6.80
//   > mD 0A  < 0A
//   > nbs 20 00  < 3F FF @
//   > nrsc 00 08  < 3F FF 3F FF 3F FF 3F FF 3F FF 3F FF 0E 22 3F FF  > @  < @
//   > nrsp 20 00  < 8192 x 3F FF  > @ x1024  < @
//   > nwGe 20 00  < + x8192  > 16384 bytes 5F3A9C01  < @
//   > nbd 0A  < @
//
// ">" is the host, "<" the board. A command's letters are shown without blanks, its parameters in
// hexadecimal.
//   - Data of up to 40 bytes is shown in hexadecimal. Longer data is "N x HH HH" where all pairs
//     are alike, else the number of bytes and their CRC-32.
//   - A read is folded into all data, the number of acknowledges "@", and what came after the data.
//   - A write is folded into the number of ready bytes, all items, and what came after the last
//     item. Ready bytes that come more than one at a time end a fold: the write in
//     "< + x17  > 34 bytes 01234567  < 40 40" was broken off after 17 items.
//   - The last byte of an exchange is shown as a character ("@") only where the end code is due.
//   - The answer to "?" is text without its CR LF. "(no CR LF)" marks an answer that had none.
//
// A line begins at a power letter, at "?", "m" or "p", and at the first of several "*", unless a
// parameter or an item is due. A command that was left unfinished ends after 50 ms.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "app/host.h"

namespace quillon {

struct WireEvent {
    enum class Way : std::uint8_t { ToBoard, FromBoard };
    Host::Time at{};
    Way way = Way::ToBoard;
    std::vector<std::uint8_t> bytes;  // of one write; from the board: all that came at one time
};

class WireLog {
  public:
    void to_board(Host::Time at, std::span<const std::uint8_t> bytes);
    void from_board(Host::Time at, std::uint8_t byte);
    void clear() { events_.clear(); }

    const std::vector<WireEvent>& events() const { return events_; }
    // The notation above.
    std::string text() const;
    // Every event in full: "12.345 > 6E", milliseconds since the clock's start.
    std::string full_text() const;

  private:
    std::vector<WireEvent> events_;
};

// CRC-32 of IEEE 802.3, as in the notation.
std::uint32_t crc32(std::span<const std::uint8_t> bytes);

}  // namespace quillon
