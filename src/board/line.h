// SPDX-License-Identifier: MIT
// One direction of a serial line: ten bits a byte, one byte after the other.
#pragma once

#include <algorithm>
#include <chrono>

#include "app/host.h"

namespace quillon {

class SerialLine {
  public:
    using Time = Host::Time;

    // 0 baud: a line that takes no time.
    explicit SerialLine(int baud)
        : byte_time_{baud > 0 ? Time{std::chrono::seconds{10}} / baud : Time{0}} {}

    // Takes a byte at `handed`. Returns the time at which its last bit has been sent.
    Time pass(Time handed) {
        free_ = std::max(free_, handed) + byte_time_;
        return free_;
    }
    Time byte_time() const { return byte_time_; }

  private:
    Time byte_time_;
    Time free_{};
};

}  // namespace quillon
