// SPDX-License-Identifier: MIT
// Sleeps that end on time, for the 1 ms pauses between letters.
#pragma once

#include <chrono>

namespace quillon {

// Asks the system not to round the times at which this thread wakes up. Linux does so by default.
void sleep_precisely();
// Sleeps until the monotonic clock reaches `time`. A signal may end the sleep early.
void sleep_until(std::chrono::nanoseconds time);

}  // namespace quillon
