// SPDX-License-Identifier: MIT
#include "platform/precise_sleep.h"

#ifdef __linux__
#include <sys/prctl.h>

#include <ctime>
#else
#include <thread>
#endif

namespace quillon {

#ifdef __linux__

void sleep_precisely() { ::prctl(PR_SET_TIMERSLACK, 1UL, 0UL, 0UL, 0UL); }

void sleep_until(std::chrono::nanoseconds time) {
    const timespec until{
        .tv_sec = static_cast<std::time_t>(time.count() / 1'000'000'000),
        .tv_nsec = static_cast<long>(time.count() % 1'000'000'000),
    };
    ::clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &until, nullptr);
}

#else

void sleep_precisely() {}

void sleep_until(std::chrono::nanoseconds time) {
    std::this_thread::sleep_until(std::chrono::steady_clock::time_point{
        std::chrono::duration_cast<std::chrono::steady_clock::duration>(time)});
}

#endif

}  // namespace quillon
