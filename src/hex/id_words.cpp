// SPDX-License-Identifier: MIT
// ID words of the 12-bit and 14-bit parts.
//
// Most parts use the low digit of each word only. Files hold the words low byte first, so a word's
// digits are at 12, 13 (high byte) and 10, 11 (low byte), and its low digit is at 11.
#include "hex/id_words.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "app/text.h"
#include "image/config_area.h"
#include "image/fill.h"
#include "parts/device_traits.h"

namespace quillon {

namespace {

constexpr std::size_t kIdWords = 4;

enum class Match : std::uint8_t { Name, Prefix };

struct OwnIdAddress {
    ProgrammingType type;
    std::string_view device;
    Match match;
    unsigned address;
};

constexpr std::array kOwnIdAddresses{
    OwnIdAddress{ProgrammingType::T5F28, "PIC16F57", Match::Name, 0x1000},
    OwnIdAddress{ProgrammingType::T12C5, "PIC12CE519", Match::Name, 0x0800},
    OwnIdAddress{ProgrammingType::T12C5, "PIC12C509A", Match::Name, 0x0800},
    OwnIdAddress{ProgrammingType::T12C5, "PIC12C509", Match::Name, 0x0800},
    OwnIdAddress{ProgrammingType::T10F2, "PIC12F509", Match::Name, 0x0800},
    OwnIdAddress{ProgrammingType::T10F2, "PIC10F222", Match::Name, 0x0800},
    OwnIdAddress{ProgrammingType::T10F2, "PIC10F206", Match::Name, 0x0800},
    OwnIdAddress{ProgrammingType::T10F2, "PIC10F202", Match::Name, 0x0800},
    OwnIdAddress{ProgrammingType::T12C5, "PIC12CE518", Match::Name, 0x0400},
    OwnIdAddress{ProgrammingType::T12C5, "PIC12C508A", Match::Name, 0x0400},
    OwnIdAddress{ProgrammingType::T12C5, "PIC12C508", Match::Name, 0x0400},
    OwnIdAddress{ProgrammingType::T5F18, "PIC16F54", Match::Name, 0x0400},
    OwnIdAddress{ProgrammingType::T10F2, "PIC12F508", Match::Name, 0x0400},
    OwnIdAddress{ProgrammingType::T10F2, "PIC10F220", Match::Name, 0x0400},
    OwnIdAddress{ProgrammingType::T10F2, "PIC10F204", Match::Name, 0x0400},
    OwnIdAddress{ProgrammingType::T10F2, "PIC10F200", Match::Name, 0x0400},
    OwnIdAddress{ProgrammingType::T5X18, "PIC16C54", Match::Prefix, 0x0400},
    OwnIdAddress{ProgrammingType::T5X18, "PIC16C56", Match::Prefix, 0x0800},
    OwnIdAddress{ProgrammingType::T5X18, "PIC16C58", Match::Prefix, 0x1000},
    OwnIdAddress{ProgrammingType::T5X28, "PIC16C55", Match::Prefix, 0x0400},
    OwnIdAddress{ProgrammingType::T5X28, "PIC16C57", Match::Prefix, 0x1000},
};

// The number of ID words in the record. The last one may lack its high byte.
std::size_t words_in(const HexRecord& record) {
    return std::min((record.data_characters() + 2) / 4, kIdWords);
}

// True for ones in all 14 bits. There may be parity bits above them.
bool is_blank_word(const HexRecord& record, std::size_t word) {
    const auto low = record.byte(kHexData + 4 * word);
    const auto high = record.byte(kHexData + 4 * word + 2);
    return low == 0xFF && high && (*high & 0x3F) == 0x3F;
}

bool take_whole_words(const HexRecord& record, Session& session) {
    for (std::size_t word = 0; word < words_in(record); ++word) {
        const auto low = record.byte(kHexData + 4 * word);
        const auto high = record.byte(kHexData + 4 * word + 2);
        if (!low || !high) return false;
        session.CfgIdMem[2 * word] = *high;
        session.CfgIdMem[2 * word + 1] = *low;
    }
    return true;
}

// The digits as the file spells them, in its case; the image's digits for words that it lacks.
void take_id_text(const HexRecord& record, Session& session) {
    session.IdText.clear();
    for (std::size_t word = 0; word < kIdWords; ++word) {
        if (word >= words_in(record))
            session.IdText += hex(session.CfgIdMem[2 * word + 1] & 0x0FU, 1);
        else if (const auto digit = record.character(kHexData + 1 + 4 * word))
            session.IdText += *digit;
    }
}

// Sets each even byte to `high` and each odd one to low(byte).
template <typename Low>
void fix_each(Session& session, std::uint8_t high, Low low) {
    for (std::size_t word = 0; word < kIdWords; ++word) {
        session.CfgIdMem[2 * word] = high;
        session.CfgIdMem[2 * word + 1] = low(session.CfgIdMem[2 * word + 1]);
    }
}

constexpr auto with_upper_ones = [](std::uint8_t low) {
    return static_cast<std::uint8_t>(low | 0xF0);
};
constexpr auto with_bit_7 = [](std::uint8_t low) {
    return static_cast<std::uint8_t>((low & 0x0F) | 0x80);
};

}  // namespace

// An erased word stays erased: a part without an ID is saved and loaded unchanged.
bool take_id_digits(const HexRecord& record, Session& session) {
    take_id_text(record, session);
    for (std::size_t word = 0; word < words_in(record); ++word) {
        const auto character = record.character(kHexData + 1 + 4 * word);
        const auto digit = character ? hex_digit(*character) : std::nullopt;
        if (!digit) return false;
        const bool blank = is_blank_word(record, word);
        session.CfgIdMem[2 * word] = blank ? 0x3F : 0x00;
        session.CfgIdMem[2 * word + 1] = blank ? 0xFF : static_cast<std::uint8_t>(*digit);
    }
    return true;
}

bool take_id_record(const HexRecord& record, Session& session, HexAddresses addresses) {
    const auto type = static_cast<ProgrammingType>(session.PgmType);
    if (addresses == HexAddresses::Full || type == ProgrammingType::T12C5 ||
        type == ProgrammingType::T10F2) {
        take_id_text(record, session);
        return take_whole_words(record, session);
    }
    if (!take_id_digits(record, session)) return false;
    return !has_whole_id(session.DeviceName) || take_whole_words(record, session);
}

bool is_own_id_address(const DeviceRecord& device, unsigned address) {
    return std::ranges::any_of(kOwnIdAddresses, [&](const OwnIdAddress& row) {
        const bool named = row.match == Match::Name ? device.DeviceName == row.device
                                                    : device.DeviceName.starts_with(row.device);
        return row.address == address && row.type == device.PgmType && named;
    });
}

std::string pic18_id_digits(const Session& session) {
    std::string digits;
    for (const auto byte : session.IdBytes18) digits += hex(byte & 0x0FU, 1);
    return digits;
}

void fix_id_words(std::string_view device_shown, Session& session) {
    if (session.PgmType == ProgrammingType::T12C5)
        fix_each(session, 0x3F, with_upper_ones);
    else if (is_12bit(session.PgmType))
        fix_each(session, 0x0F, with_upper_ones);
    if (session.PgmType == ProgrammingType::EPROM2) {
        for (std::size_t i = 0; i < 2 * kIdWords; i += 2)
            ParityFix(session.CfgIdMem[i], session.CfgIdMem[i + 1]);
        config_area::mark_eprom2(session);
    }
    if (has_id_with_bit_7(device_shown)) fix_each(session, 0x3F, with_bit_7);
}

}  // namespace quillon
