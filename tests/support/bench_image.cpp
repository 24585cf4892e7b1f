// SPDX-License-Identifier: MIT
#include "support/bench_image.h"

#include <cstdint>

#include "image/config_area.h"

namespace quillon::test {

namespace {

void put_word(auto& bytes, std::size_t word, unsigned value) {
    bytes[2 * word] = static_cast<std::uint8_t>(value >> 8U);
    bytes[2 * word + 1] = static_cast<std::uint8_t>(value);
}

std::uint16_t word_of(const auto& bytes, std::size_t word) {
    return static_cast<std::uint16_t>(bytes[2 * word] << 8 | bytes[2 * word + 1]);
}

unsigned blank_of(ProgrammingType type) {
    if (is_pic18(type)) return 0xFFFF;
    return is_12bit(type) ? 0x0FFF : 0x3FFF;
}

void fill_words(Session& session) {
    const auto ones = blank_of(session.PgmType);
    for (unsigned w = 0; w < static_cast<unsigned>(session.PgmWords); ++w)
        put_word(session.PgmMem, w, (w * 0x1A35U + 0x0123U) & ones);
}

void fill_cells(Session& session) {
    const bool bytes = is_pic18(session.PgmType);
    for (unsigned c = 0; c < static_cast<unsigned>(session.EepBytes); ++c) {
        const unsigned value = (c * 37U + 5U) & 0xFFU;
        if (bytes)
            session.EepMem[c] = static_cast<std::uint8_t>(value);
        else
            put_word(session.EepMem, c, 0x3F00U | value);
    }
}

// The digits A, B, C and D. The eight bytes of a PIC18 go on with E, F, 0 and 1.
void fill_id(Session& session) {
    for (unsigned i = 0; i < session.IdBytes18.size(); ++i)
        session.IdBytes18[i] = static_cast<std::uint8_t>(0xF0U | ((0xAU + i) & 0x0FU));
    const auto upper_ones = blank_of(session.PgmType) & ~0x0FU;
    for (unsigned digit = 0; digit < 4; ++digit)
        put_word(session.CfgIdMem, digit, upper_ones | (0xAU + digit));
}

// The defaults, but bit 0 of word 1 cleared: the lowest bit of the oscillator field.
void fill_config(Session& session) {
    for (std::size_t n = 1; n <= kConfigWords; ++n) {
        session.ConfigWord[n] = session.ConfigDefault[n] | session.ConfigForce[n];
        if (n == 1) session.ConfigWord[n] &= ~1U;
        session.CfgBytes18[2 * n - 2] = static_cast<std::uint8_t>(session.ConfigWord[n]);
        session.CfgBytes18[2 * n - 1] = static_cast<std::uint8_t>(session.ConfigWord[n] >> 8);
    }
    config_area::put_word(session, 1, session.ConfigWord[1]);
}

}  // namespace

void fill_pattern(Session& session) {
    fill_words(session);
    fill_cells(session);
    fill_id(session);
    fill_config(session);
}

void put_into_part(const Session& session, SimulatedTarget& target) {
    const bool pic18 = target.core == Core::Pic18;
    for (std::size_t w = 0; w < target.program.size(); ++w)
        target.program[w] = word_of(session.PgmMem, w);
    for (std::size_t c = 0; c < target.eeprom.size(); ++c)
        target.eeprom[c] = session.EepMem[pic18 ? c : 2 * c + 1];
    for (std::size_t i = 0; i < target.id.size(); ++i)
        target.id[i] = pic18 ? session.IdBytes18[i] : word_of(session.CfgIdMem, i);
    for (std::size_t n = 1; n <= target.config.size(); ++n)
        target.config[n - 1] = static_cast<std::uint16_t>(session.ConfigWord[n]);
}

}  // namespace quillon::test
