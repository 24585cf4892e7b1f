// SPDX-License-Identifier: MIT
// What became of an operation, beyond the status words in the session.
#pragma once

#include <cstdint>

namespace quillon {

enum class Outcome : std::uint8_t {
    Success,
    Failed,     // it ran, and its verdict is bad: not blank, mismatch, write failed
    NoDevice,   // none selected
    NotServed,  // no algorithm for this device yet
    NoBoard,    // the board wasn't found, or the port can't be opened
    Cancelled,  // by the answer to a question
    GivenUp,    // the user stopped, closed or interrupted it, or the deadline passed
    PortLost,   // the port vanished under it
};

}  // namespace quillon
