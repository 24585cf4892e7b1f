// SPDX-License-Identifier: MIT
// The records of the three forms, in their order.
//
// Word image: program, EEPROM twice, ID, configuration, with no extended address at all. PIC18:
// program, EEPROM, configuration, ID. An incomplete last line isn't written: device sizes are whole
// lines.
#include "hex/hex_writer.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <utility>

#include "hex/id_words.h"
#include "image/fill.h"
#include "parts/device_traits.h"

namespace quillon {

namespace {

constexpr std::size_t kLine = 16;
constexpr std::uint8_t kData = 0x00;
constexpr std::uint8_t kEnd = 0x01;
constexpr std::uint8_t kExtendedAddress = 0x04;

class HexText {
  public:
    // A record with its check sum: the two's complement of the sum of all its bytes.
    void record(std::uint8_t type, unsigned address, std::span<const std::uint8_t> data);
    void record(std::uint8_t type, unsigned address, std::initializer_list<std::uint8_t> data) {
        record(type, address, std::span{data.begin(), data.size()});
    }
    // Whole lines from `address` on; `byte(i)` is byte i of the file.
    template <typename Byte>
    void lines(unsigned address, std::size_t bytes, Byte byte);
    void upper_address(unsigned upper);
    std::string finish();

  private:
    void put(std::uint8_t byte);

    std::string text_;
    std::uint8_t sum_ = 0;
};

void HexText::put(std::uint8_t byte) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    text_ += kDigits[byte >> 4];
    text_ += kDigits[byte & 0x0F];
    sum_ = static_cast<std::uint8_t>(sum_ + byte);
}

void HexText::record(std::uint8_t type, unsigned address, std::span<const std::uint8_t> data) {
    text_ += ':';
    sum_ = 0;
    put(static_cast<std::uint8_t>(data.size()));
    put(static_cast<std::uint8_t>(address >> 8));
    put(static_cast<std::uint8_t>(address));
    put(type);
    for (const auto byte : data) put(byte);
    put(static_cast<std::uint8_t>(0U - sum_));
    text_ += "\r\n";
}

template <typename Byte>
void HexText::lines(unsigned address, std::size_t bytes, Byte byte) {
    std::array<std::uint8_t, kLine> line{};
    for (std::size_t at = 0; at + kLine <= bytes; at += kLine) {
        for (std::size_t i = 0; i < kLine; ++i) line[i] = byte(at + i);
        record(kData, address + static_cast<unsigned>(at), line);
    }
}

void HexText::upper_address(unsigned upper) {
    record(kExtendedAddress, 0,
           {static_cast<std::uint8_t>(upper >> 8), static_cast<std::uint8_t>(upper)});
}

std::string HexText::finish() {
    record(kEnd, 0, std::span<const std::uint8_t>{});
    return std::move(text_);
}

// The file holds a word low byte first, the image high byte first.
auto swapped(std::span<const std::uint8_t> image) {
    return [image](std::size_t i) { return image[i ^ 1U]; };
}

// Two bytes a cell: the data and a zero.
auto cells(const Session& session) {
    return
        [&session](std::size_t i) { return i % 2 == 0 ? session.EepMem[i + 1] : std::uint8_t{0}; };
}

void id_line(HexText& text, unsigned address, const Session& session,
             std::string_view device_shown) {
    std::array<std::uint8_t, 8> words{};
    for (std::size_t i = 0; i < words.size(); i += 2) {
        words[i] = session.CfgIdMem[i + 1];
        words[i + 1] = session.CfgIdMem[i];
        if (has_id_with_bit_7(device_shown)) {
            words[i] = static_cast<std::uint8_t>((words[i] & 0x0F) | 0x80);
            words[i + 1] = 0x3F;
        }
    }
    text.record(kData, address, words);
}

std::string word_image_text(const Session& session, std::string_view device_shown) {
    HexText text;
    const std::span area{session.CfgIdMem};
    text.lines(0x0000, program_span(session), swapped(session.PgmMem));
    // Written at both addresses where readers look for it. A device without cells gets no lines.
    text.lines(0x4200, eeprom_span(session), cells(session));
    text.lines(0x8000, eeprom_span(session), cells(session));
    id_line(text, 0x4000, session, device_shown);
    if (is_12bit(session.PgmType)) {
        text.record(kData, kConfig12bitAddress, {area[15], area[14]});
    } else {
        text.record(kData, 0x400E, {area[15], area[14]});
        text.lines(0x4010, kLine, swapped(area.subspan(16)));
    }
    return text.finish();
}

// In the order of addresses, as the assemblers for these parts write it.
std::string full_address_text(const Session& session, std::string_view device_shown) {
    HexText text;
    const std::span area{session.CfgIdMem};
    text.upper_address(0);
    text.lines(0x0000, program_span(session), swapped(session.PgmMem));
    text.upper_address(kFullIdAddress >> 16);
    id_line(text, kFullIdAddress & 0xFFFF, session, device_shown);
    text.record(kData, 0x000E, {area[15], area[14], area[17], area[16]});
    text.lines(kFullEepromAddress & 0xFFFF, eeprom_span(session), cells(session));
    return text.finish();
}

void pic18_program(HexText& text, const Session& session) {
    constexpr std::size_t kBank = 0x10000;
    const std::span image{session.PgmMem};
    const auto bytes = program_span(session);
    for (std::size_t bank = 0; bank < bytes; bank += kBank) {
        const auto in_bank = std::min(bytes - bank, kBank);
        text.lines(0x0000, in_bank, swapped(image.subspan(bank, in_bank)));
        // Follows the line at FFF0 even if the program ends there.
        if (in_bank == kBank) text.upper_address(static_cast<unsigned>(bank / kBank + 1) & 0xFF);
    }
}

std::string pic18_text(Session& session) {
    HexText text;
    text.upper_address(0x0000);
    pic18_program(text, session);
    if (session.EepBytes != 0) {
        text.upper_address(0x00F0);
        const auto bytes =
            std::clamp<std::ptrdiff_t>(session.EepBytes, 0, std::ssize(session.EepMem));
        text.lines(0x0000, static_cast<std::size_t>(bytes),
                   [&session](std::size_t i) { return session.EepMem[i]; });
    }
    text.upper_address(0x0030);
    auto& config = session.CfgBytes18;
    for (std::size_t n = 1; n <= kConfigWords; ++n) {
        config[2 * n - 2] = static_cast<std::uint8_t>(session.ConfigWord[n]);
        config[2 * n - 1] = static_cast<std::uint8_t>(session.ConfigWord[n] >> 8);
    }
    text.record(kData, 0x0000, std::span{config}.first(std::size_t{2} * kConfigWords));
    text.upper_address(0x0020);
    text.record(kData, 0x0000, session.IdBytes18);
    return text.finish();
}

}  // namespace

std::string hex_text(Session& session, std::string_view device_shown, HexAddresses addresses) {
    if (is_pic18_flash(session.PgmType)) return pic18_text(session);
    if (addresses == HexAddresses::Full && has_full_addresses(session.DeviceName))
        return full_address_text(session, device_shown);
    return word_image_text(session, device_shown);
}

}  // namespace quillon
