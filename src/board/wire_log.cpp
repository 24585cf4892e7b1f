// SPDX-License-Identifier: MIT
#include "board/wire_log.h"

#include <fmt/core.h>

#include <chrono>

#include "board/wire_text.h"

namespace quillon {

void WireLog::to_board(Host::Time at, std::span<const std::uint8_t> bytes) {
    events_.push_back({at, WireEvent::Way::ToBoard, {bytes.begin(), bytes.end()}});
}

void WireLog::from_board(Host::Time at, std::uint8_t byte) {
    if (!events_.empty()) {
        auto& last = events_.back();
        if (last.way == WireEvent::Way::FromBoard && last.at == at) {
            last.bytes.push_back(byte);
            return;
        }
    }
    events_.push_back({at, WireEvent::Way::FromBoard, {byte}});
}

std::string WireLog::text() const {
    WireText text;
    for (const auto& event : events_) text.add(event);
    return text.finish();
}

std::string WireLog::full_text() const {
    std::string text;
    for (const auto& event : events_) {
        const std::chrono::duration<double, std::milli> time = event.at;
        text += fmt::format("{:.3f} {}", time.count(),
                            event.way == WireEvent::Way::ToBoard ? '>' : '<');
        for (const auto byte : event.bytes) text += fmt::format(" {:02X}", byte);
        text += '\n';
    }
    return text;
}

std::uint32_t crc32(std::span<const std::uint8_t> bytes) {
    constexpr std::uint32_t kPolynomial = 0xEDB88320;
    std::uint32_t crc = 0xFFFFFFFF;
    for (const auto byte : bytes) {
        crc ^= byte;
        for (int bit = 0; bit < 8; ++bit) crc = crc >> 1 ^ ((crc & 1) != 0 ? kPolynomial : 0);
    }
    return ~crc;
}

}  // namespace quillon
