// SPDX-License-Identifier: MIT
// The fills of the memory image.
//
// A blank cell reads as ones, but only in the bits that the core has: 0x0FFF, 0x3FFF or 0xFFFF.
#include "image/fill.h"

#include <algorithm>
#include <bit>
#include <span>

#include "app/text.h"
#include "image/config_area.h"

namespace quillon {

namespace {

std::size_t span_of(std::int32_t cells, std::size_t array_bytes) {
    if (cells <= 0) return 0;
    return std::min(static_cast<std::size_t>(cells) * 2, array_bytes);
}

void fill_pairs(std::span<std::uint8_t> bytes, std::uint8_t first, std::uint8_t second) {
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        bytes[i] = first;
        bytes[i + 1] = second;
    }
}

void fix_pairs(std::span<std::uint8_t> bytes) {
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) ParityFix(bytes[i], bytes[i + 1]);
}

std::span<std::uint8_t> program(Session& session) {
    return std::span{session.PgmMem}.first(program_span(session));
}

std::span<std::uint8_t> eeprom(Session& session) {
    return std::span{session.EepMem}.first(eeprom_span(session));
}

// The ID words get parity as program words do; word 1 has its two top bits set instead.
void fix_id_area(Session& session) {
    if (session.PgmType != ProgrammingType::EPROM2) return;
    fix_pairs(std::span{session.CfgIdMem}.first(8));
    config_area::mark_eprom2(session);
}

}  // namespace

std::size_t program_span(const Session& session) {
    return span_of(session.PgmWords, session.PgmMem.size());
}

std::size_t eeprom_span(const Session& session) {
    return span_of(session.EepBytes, session.EepMem.size());
}

void FillProgramOnes(Session& session) {
    if (is_12bit(session.PgmType)) fill_pairs(program(session), 0x0F, 0xFF);
    if (is_14bit(session.PgmType)) fill_pairs(program(session), 0x3F, 0xFF);
    if (session.PgmType == ProgrammingType::EPROM2) fix_pairs(program(session));
    if (is_pic18(session.PgmType)) {
        session.PgmWordsCat = session.PgmWords;
        fill_pairs(program(session), 0xFF, 0xFF);
    }
}

void FillProgramZeros(Session& session) {
    if (is_12bit(session.PgmType) || is_14bit(session.PgmType)) fill_pairs(program(session), 0, 0);
    if (session.PgmType == ProgrammingType::EPROM2) fix_pairs(program(session));
    if (is_pic18(session.PgmType)) {
        session.PgmWordsCat = session.PgmWords;
        fill_pairs(program(session), 0, 0);
    }
}

void FillEepromOnes(Session& session) {
    if (has_word_eeprom(session.PgmType)) fill_pairs(eeprom(session), 0x3F, 0xFF);
    if (is_pic18(session.PgmType)) {
        session.EepBytesCat = session.EepBytes;
        fill_pairs(eeprom(session), 0xFF, 0xFF);
    }
}

void FillEepromZeros(Session& session) {
    if (has_word_eeprom(session.PgmType)) fill_pairs(eeprom(session), 0, 0);
    if (is_pic18(session.PgmType)) {
        session.EepBytesCat = session.EepBytes;
        fill_pairs(eeprom(session), 0, 0);
    }
}

void FillIdOnes(Session& session) {
    const std::span area{session.CfgIdMem};
    if (is_12bit(session.PgmType)) fill_pairs(area.first(16), 0x0F, 0xFF);
    if (is_14bit(session.PgmType)) fill_pairs(area.first(34), 0x3F, 0xFF);
    fix_id_area(session);
    if (is_pic18(session.PgmType)) session.ConfigWord = session.ConfigDefault;
}

void FillIdZeros(Session& session) {
    const std::span area{session.CfgIdMem};
    if (is_12bit(session.PgmType)) fill_pairs(area.first(16), 0, 0);
    // One word fewer than the fill with ones.
    if (is_14bit(session.PgmType)) fill_pairs(area.first(32), 0, 0);
    fix_id_area(session);
    if (is_pic18_flash(session.PgmType)) session.ConfigWord.fill(0);
}

void ParityFix(std::uint8_t& high, std::uint8_t& low) {
    high &= 0x3F;
    const auto ones = [&](unsigned high_mask, unsigned low_mask) {
        return std::popcount(high & high_mask) + std::popcount(low & low_mask);
    };
    const bool even_bits_odd = ones(0x15, 0x55) % 2 != 0;
    const bool odd_bits_even = ones(0x2A, 0xAA) % 2 == 0;
    if (even_bits_odd) high |= 0x40;
    if (odd_bits_even) high |= 0x80;
}

std::string ProgramCheckSum(const Session& session) {
    std::uint32_t sum = 0;
    const std::size_t bytes = program_span(session);
    for (std::size_t i = 0; i + 1 < bytes; i += 2)
        sum += session.PgmMem[i] * 256U + session.PgmMem[i + 1];
    return hex(sum & 0xFFFFU, 4);
}

}  // namespace quillon
