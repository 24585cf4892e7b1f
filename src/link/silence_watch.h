// SPDX-License-Identifier: MIT
// Reports that the board has gone silent in a wait that has no limit.
//
// Such a wait goes on until the user gives up. Without a message, a dead board looks like a busy
// one.
#pragma once

#include <chrono>
#include <cstddef>

#include "app/host.h"
#include "app/messages.h"

namespace quillon {

class SilenceWatch {
  public:
    // `expected`: how long a working board may take for its next byte.
    SilenceWatch(const Host& host, Messages& messages, std::chrono::milliseconds expected)
        : host_{host}, messages_{messages}, longest_{3 * expected}, since_{host.now()} {}

    // The next wait of the same stream begins.
    void restart() { since_ = host_.now(); }
    // At each poll, with the count of bytes that are waiting. Reports once.
    void poll(std::size_t count);

  private:
    const Host& host_;
    Messages& messages_;
    std::chrono::milliseconds longest_;
    Host::Time since_;
    std::size_t count_ = 0;
    bool reported_ = false;
};

}  // namespace quillon
