// SPDX-License-Identifier: MIT
#include "cli/trace.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <chrono>

namespace quillon::cli {

void TracingPort::write(std::span<const std::uint8_t> bytes) {
    note('>', bytes);  // first, so that a failed write is in the trace
    port_.write(bytes);
}

std::vector<std::uint8_t> TracingPort::read() {
    auto bytes = port_.read();
    if (!bytes.empty()) note('<', bytes);
    return bytes;
}

void TracingPort::note(char direction, std::span<const std::uint8_t> bytes) {
    const std::chrono::duration<double, std::milli> time = host_.now() - start_;
    // Flushed because the last lines matter after a hang.
    trace_ << fmt::format("{:.3f} {} {:02X}\n", time.count(), direction, fmt::join(bytes, " "))
           << std::flush;
}

}  // namespace quillon::cli
