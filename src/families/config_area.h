// SPDX-License-Identifier: MIT
// The "c" area of the 14-bit parts, on the wire and in CfgIdMem: four ID words, three words that
// are the device's own (the last is its identity), configuration word 1. All high byte first.
#pragma once

#include <cstddef>
#include <cstdint>

namespace quillon::config_area {

inline constexpr std::int32_t kWords = 8;
inline constexpr std::size_t kBytes = 16;
inline constexpr std::size_t kReply = kBytes + 1;  // with the end code
inline constexpr std::size_t kIdEnd = 8;
inline constexpr std::size_t kIdentity = 12;
inline constexpr std::size_t kConfig1 = 14;

}  // namespace quillon::config_area
