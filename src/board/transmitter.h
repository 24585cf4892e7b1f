// SPDX-License-Identifier: MIT
// The sending side of the board: bytes with the time at which they are ready for the line.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <vector>

#include "app/host.h"
#include "board/faults.h"

namespace quillon {

struct SentByte {
    std::uint8_t value = 0;
    Host::Time ready{};
    // The next byte belongs to the same report, so an adapter hands both over at once.
    bool more = false;
};

class Transmitter {
  public:
    explicit Transmitter(FaultDesk& faults) : faults_{faults} {}

    void send(std::uint8_t byte, Host::Time now, bool end_code, bool more) {
        ++sent_;
        const auto sending = faults_.send(byte, end_code);
        hold_ = std::max(hold_, now + sending.late);
        for (const auto value : sending.bytes) queue_.push_back({value, hold_, more});
    }
    // Removes and returns the bytes that are ready by that time.
    std::vector<SentByte> take(Host::Time until) {
        std::vector<SentByte> taken;
        while (!queue_.empty() && queue_.front().ready <= until) {
            taken.push_back(queue_.front());
            queue_.pop_front();
        }
        return taken;
    }
    std::optional<Host::Time> next() const {
        if (queue_.empty()) return std::nullopt;
        return queue_.front().ready;
    }
    // Drops the bytes that aren't ready yet.
    void forget(Host::Time now) {
        while (!queue_.empty() && queue_.back().ready > now) queue_.pop_back();
        hold_ = now;
    }
    // The count of bytes that the program has sent, before faults removed or added any.
    std::size_t sent() const { return sent_; }

  private:
    FaultDesk& faults_;
    std::deque<SentByte> queue_;
    Host::Time hold_{};
    std::size_t sent_ = 0;
};

}  // namespace quillon
