// SPDX-License-Identifier: MIT
// The fills of the memory image.
//
// A blank cell reads as ones, but only in the bits that the core has: 0x0FFF, 0x3FFF or 0xFFFF.
#include "image/fill.h"

#include <algorithm>
#include <array>
#include <bit>
#include <span>

#include "app/text.h"

namespace quillon {

namespace {

constexpr std::array<std::string_view, 6> k12bit{"12C5", "10F2", "5F18", "5F28", "5X18", "5X28"};

constexpr std::array<std::string_view, 12> k14bit{
    "12F6",   "12C6",   "EPROM",    "EPROM2", "FLASH0", "FLASH1",
    "FLASH2", "FLASH4", "FLASH4.9", "FLASH8", "LDR412", "LDR412A",
};

constexpr std::array<std::string_view, 9> kWordEeprom{
    "12F6", "12C6", "FLASH0", "FLASH1", "FLASH4", "FLASH4.9", "FLASH8", "LDR412", "LDR412A",
};

constexpr std::array<std::string_view, 57> kFourWordId{
    "PIC12F1822", "PIC12LF1822", "PIC16F1823", "PIC16LF1823", "PIC16F1824", "PIC16LF1824",
    "PIC16F1825", "PIC16LF1825", "PIC16F1828", "PIC16LF1828", "PIC16F1829", "PIC16LF1829",
    "PIC16F1933", "PIC16LF1933", "PIC16F1934", "PIC16LF1934", "PIC16F1936", "PIC16LF1936",
    "PIC16F1937", "PIC16LF1937", "PIC16F1938", "PIC16LF1938", "PIC16F1939", "PIC16LF1939",
    "PIC16F882",  "PIC16F883",   "PIC16F884",  "PIC16F886",   "PIC16F887",  "ZQ-LDR418",
    "PIC16F913",  "PIC16F914",   "PIC16F916",  "PIC16F917",   "PIC16F946",  "PIC16F631",
    "PIC16F677",  "PIC16F684",   "PIC16F685",  "PIC16F687",   "PIC16F688",  "PIC16F689",
    "PIC16F690",  "PIC12F635",   "PIC16F636",  "PIC16F639",   "PIC12F609",  "PIC12F615",
    "PIC16F610",  "PIC16F616",   "PIC12HV609", "PIC12HV615",  "PIC16HV610", "PIC16HV616",
    "PIC16F785",  "PIC16HV785",  "PIC16F716",
};

constexpr bool holds(std::span<const std::string_view> list, std::string_view name) {
    return std::ranges::find(list, name) != list.end();
}

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
    if (session.PgmType != "EPROM2") return;
    fix_pairs(std::span{session.CfgIdMem}.first(8));
    session.CfgIdMem[14] |= 0xC0;
}

}  // namespace

bool is_12bit(std::string_view PgmType) { return holds(k12bit, PgmType); }
bool is_14bit(std::string_view PgmType) { return holds(k14bit, PgmType); }
bool is_pic18(std::string_view PgmType) { return PgmType.starts_with("18"); }
bool is_pic18_flash(std::string_view PgmType) { return PgmType.starts_with("18F"); }

bool has_four_word_id(std::string_view DeviceName) { return holds(kFourWordId, DeviceName); }

std::size_t program_span(const Session& session) {
    return span_of(session.PgmWords, session.PgmMem.size());
}

std::size_t eeprom_span(const Session& session) {
    return span_of(session.EepBytes, session.EepMem.size());
}

void FillProgramOnes(Session& session) {
    if (is_12bit(session.PgmType)) fill_pairs(program(session), 0x0F, 0xFF);
    if (is_14bit(session.PgmType)) fill_pairs(program(session), 0x3F, 0xFF);
    if (session.PgmType == "EPROM2") fix_pairs(program(session));
    if (is_pic18(session.PgmType)) {
        session.PgmWordsCat = session.PgmWords;
        fill_pairs(program(session), 0xFF, 0xFF);
    }
}

void FillProgramZeros(Session& session) {
    if (is_12bit(session.PgmType) || is_14bit(session.PgmType)) fill_pairs(program(session), 0, 0);
    if (session.PgmType == "EPROM2") fix_pairs(program(session));
    if (is_pic18(session.PgmType)) {
        session.PgmWordsCat = session.PgmWords;
        fill_pairs(program(session), 0, 0);
    }
}

void FillEepromOnes(Session& session) {
    if (holds(kWordEeprom, session.PgmType)) fill_pairs(eeprom(session), 0x3F, 0xFF);
    if (is_pic18(session.PgmType)) {
        session.EepBytesCat = session.EepBytes;
        fill_pairs(eeprom(session), 0xFF, 0xFF);
    }
}

void FillEepromZeros(Session& session) {
    if (holds(kWordEeprom, session.PgmType)) fill_pairs(eeprom(session), 0, 0);
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
