// SPDX-License-Identifier: MIT
// The one wait of the system: polls the receive count, keeps the interface responsive, and gives up
// only if it has a limit.
//
// A wait without a limit ends only when the user gives up (Host::pump throws Abandoned) or the port
// vanishes. That is how the product behaves: for some steps no limit would be right for all parts.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <optional>

#include "app/host.h"
#include "link/serial_port.h"

namespace quillon {

using Limit = std::optional<std::chrono::milliseconds>;
inline constexpr Limit kNoLimit = std::nullopt;

// The longest that the interface goes unpumped while the line is silent.
inline constexpr std::chrono::microseconds kPollSlice{5000};

// Waits until `wanted` bytes are there: true, or false once more than the limit has passed. The
// limit bounds the whole wait, however much has come. `on_poll(count)` is called at each poll that
// finds too few; it may write to the port, and returns the count that is worth waking up for.
template <typename OnPoll>
bool wait_for(Host& host, SerialPort& port, std::size_t wanted, Limit limit, OnPoll on_poll) {
    const auto start = host.now();
    for (;;) {
        const std::size_t count = port.InBufferCount();
        if (count >= wanted) return true;
        const std::size_t next = on_poll(count);
        host.pump();
        auto slice = kPollSlice;
        if (limit) {
            const auto passed = host.now() - start;
            if (passed > *limit) return false;
            // One microsecond more: only a time beyond the limit ends the wait.
            slice = std::min(slice, std::chrono::ceil<std::chrono::microseconds>(*limit - passed) +
                                        std::chrono::microseconds{1});
        }
        port.wait_for_data(next, slice);
    }
}

inline bool wait_for(Host& host, SerialPort& port, std::size_t wanted, Limit limit) {
    return wait_for(host, port, wanted, limit, [wanted](std::size_t) { return wanted; });
}

}  // namespace quillon
