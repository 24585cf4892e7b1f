// SPDX-License-Identifier: MIT
#include "image/config_area.h"

namespace quillon::config_area {

std::uint16_t word(std::span<const std::uint8_t> area, std::size_t n) {
    const auto at = place_of_word(n);
    return static_cast<std::uint16_t>((area[at] & 0x3F) << 8 | area[at + 1]);
}

void put_word(Session& session, std::size_t n, std::uint32_t value) {
    const auto at = place_of_word(n);
    session.CfgIdMem[at] = static_cast<std::uint8_t>(value >> 8);
    session.CfgIdMem[at + 1] = static_cast<std::uint8_t>(value);
    if (n == 1) mark_eprom2(session);
}

void mark_eprom2(Session& session) {
    if (session.PgmType == ProgrammingType::EPROM2) session.CfgIdMem[kConfig1] |= 0xC0;
}

}  // namespace quillon::config_area
