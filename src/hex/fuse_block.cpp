// SPDX-License-Identifier: MIT
// The fuses' bits in configuration word 1.
#include "hex/fuse_block.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace quillon {

namespace {

// Bits that a fuse byte adds where it has the value; any other value adds nothing.
struct Fuse {
    std::size_t byte;  // index in CfgIdMem
    std::uint8_t value;
    std::uint16_t bits;
};

constexpr std::array k12bitFuses{
    Fuse{.byte = 11, .value = 1, .bits = 0x0004},
    Fuse{.byte = 12, .value = 0, .bits = 0x0FE8},
    Fuse{.byte = 13, .value = 0, .bits = 0x0010},
};

constexpr std::array k14bitFuses{
    Fuse{.byte = 10, .value = 0, .bits = 0x0008},
    Fuse{.byte = 11, .value = 1, .bits = 0x0004},
    Fuse{.byte = 12, .value = 0, .bits = 0x3FF0},
};

std::span<const Fuse> fuses_of(const std::string& DeviceName) {
    if (DeviceName.starts_with("PIC12C5") || DeviceName.starts_with("PIC12F5")) return k12bitFuses;
    return k14bitFuses;
}

std::uint16_t config_of(const Session& session) {
    // The oscillator's byte is the value of the word's two lowest bits.
    std::uint16_t word = session.CfgIdMem[8] <= 3 ? session.CfgIdMem[8] : 0;
    for (const auto& fuse : fuses_of(session.DeviceName))
        if (session.CfgIdMem[fuse.byte] == fuse.value) word |= fuse.bits;
    return word;
}

}  // namespace

void apply_fuse_block(Session& session) {
    auto& area = session.CfgIdMem;
    const std::uint16_t word = config_of(session);
    const auto id = [](int nibble) { return static_cast<std::uint8_t>(0x70 | nibble); };
    area[1] = id(area[14] >> 4);
    area[3] = id(area[14] & 0x0F);
    area[5] = id(area[15] >> 4);
    area[7] = id(area[15] & 0x0F);
    area[14] = static_cast<std::uint8_t>(word / 256);
    area[15] = static_cast<std::uint8_t>(word % 256);
}

}  // namespace quillon
