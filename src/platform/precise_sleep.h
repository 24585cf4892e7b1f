// SPDX-License-Identifier: MIT
// Sleeps to the point, for the 1 ms pauses between letters.
#pragma once

#include <chrono>

namespace quillon {

// Asks the system not to round this thread's wake-ups, where it does by default.
void sleep_precisely();
// Until the monotonic clock shows the time. May end early: a signal ends it.
void sleep_until(std::chrono::nanoseconds time);

}  // namespace quillon
