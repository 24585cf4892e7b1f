// SPDX-License-Identifier: MIT
// The ID and configuration area of the 12-bit and 14-bit parts: the order of CfgIdMem and of the
// "c" area on the wire. Four ID words, three words that are the device's own (the last is its
// identity), configuration word 1, and behind it further configuration or calibration words. All
// high byte first.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "app/session.h"

namespace quillon::config_area {

inline constexpr std::size_t kIdEnd = 8;
inline constexpr std::size_t kIdentity = 12;
inline constexpr std::size_t kConfig1 = 14;

// Byte index of configuration word n, 1 to 7.
constexpr std::size_t place_of_word(std::size_t n) { return 12 + 2 * n; }

// Configuration word n without the two bits that a 14-bit word doesn't have.
std::uint16_t word(std::span<const std::uint8_t> area, std::size_t n);
// Puts all 16 bits into the image. An EPROM2 part's word 1 gets its mark.
void put_word(Session& session, std::size_t n, std::uint32_t value);
// The bits above an EPROM2 part's word 1 read as ones; other types are left alone.
void mark_eprom2(Session& session);

}  // namespace quillon::config_area
