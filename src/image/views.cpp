// SPDX-License-Identifier: MIT
// Renders the memory views.
//
// For speed, each line is built in a buffer and appended whole: a part of 64K words has 8,192
// lines, and a view is rendered at each load, read and verify.
#include "image/views.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "app/own_files.h"
#include "app/text.h"
#include "image/file_names.h"
#include "image/fill.h"
#include "parts/device_traits.h"

namespace quillon {

namespace {

constexpr std::string_view kProgramFile = "pgmmemory_temp.txt";
constexpr std::string_view kEepromFile = "eepmemory_temp.txt";
constexpr std::string_view kDigits = "0123456789ABCDEF";
// Half-width middle dot, byte 165 of code page 932.
constexpr std::string_view kDot = "･";
constexpr std::size_t kLineBytes = 16;

class Line {
  public:
    void put(char character) { characters_[length_++] = character; }
    void put(std::string_view text) {
        for (const char character : text) put(character);
    }
    void put_hex(std::size_t value, unsigned digits) {
        while (digits-- > 0) put(kDigits[value >> (4 * digits) & 0xFU]);
    }
    // The character column: a byte that can't be printed is shown as a dot.
    void put_character(std::uint8_t byte) {
        if (byte >= 32 && byte <= 126)
            put(static_cast<char>(byte));
        else
            put(kDot);
    }
    std::string_view text() const { return {characters_.data(), length_}; }

  private:
    // Address, data and sixteen dots of three bytes each take 102 at most.
    std::array<char, 128> characters_{};
    std::size_t length_ = 0;
};

enum class FirstByte : std::uint8_t { Dot, Shown };
enum class Data : std::uint8_t { Words, Parity };

Line program_line(std::size_t address, std::span<const std::uint8_t> bytes, Data data,
                  FirstByte first) {
    Line line;
    line.put_hex(address, 6);
    line.put(": ");
    for (std::size_t i = 0; i < bytes.size(); i += 2) {
        if (data == Data::Parity) {
            line.put("---");
            line.put_hex(bytes[i] >> 6U, 1);
        } else {
            line.put_hex(bytes[i], 2);
            line.put_hex(bytes[i + 1], 2);
        }
        line.put(' ');
    }
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        // Except on PIC18, the first byte of a word holds only its upper bits.
        if (i % 2 == 0 && first == FirstByte::Dot)
            line.put(kDot);
        else
            line.put_character(bytes[i]);
    }
    line.put('\n');
    return line;
}

Line eeprom_line(std::size_t address, std::span<const std::uint8_t> cells) {
    Line line;
    line.put_hex(address, 4);
    line.put(':');
    for (const auto cell : cells) {
        line.put(' ');
        line.put_hex(cell, 2);
    }
    for (const auto cell : cells) line.put_character(cell);
    line.put('\n');
    return line;
}

std::string eeprom_text(std::span<const std::uint8_t> cells) {
    std::string text;
    text.reserve((cells.size() / kLineBytes + 1) * 104);
    for (std::size_t at = 0; at < cells.size(); at += kLineBytes) {
        const auto row = cells.subspan(at, std::min(kLineBytes, cells.size() - at));
        text += eeprom_line(at, row).text();
    }
    return text;
}

void load(RichTextBox& box, std::string text) {
    box.Redraw.set(false);
    box.Text.set(std::move(text));
    box.Redraw.set(true);
}

std::string id_digits(const Session& session) {
    std::string digits;
    for (const std::size_t i : {1U, 3U, 5U, 7U}) digits += kDigits[session.CfgIdMem[i] & 0x0FU];
    return digits;
}

// The low 14 bits of the word of CfgIdMem at an even index, as four digits.
std::string word_digits(const Session& session, std::size_t index) {
    return hex((session.CfgIdMem[index] & 0x3FU) * 256U + session.CfgIdMem[index + 1], 4);
}

// The same 14 bits in binary, in groups that are one hexadecimal digit each.
std::string binary_word_digits(const Session& session, std::size_t index) {
    std::string digits;
    for (const char digit : word_digits(session, index))
        digits += fmt::format("{}{:04b}", digits.empty() ? "" : " ", *hex_digit(digit));
    return digits.substr(2);
}

}  // namespace

// The view is shown even if its file can't be written: a full disk must not hide the image from the
// user.
//
// The file is deleted and created again, never truncated: some file systems flush a truncated file
// to the disk before its close returns, which delayed a selection by up to 160 ms.
void MemoryViews::write_display_file(std::string_view name, std::string_view text) const {
    const auto& folder = folder_ ? *folder_ : session_.TempDir;
    if (!folder.empty()) write_fresh(path_of(folder) / name, text);
}

// The box is hidden while its text changes, then as visible as before.
void MemoryViews::show_eeprom_text(std::string text) {
    auto& box = form_.rText_EepromMem;
    const bool visible = box.Visible.get();
    box.Visible.set(false);
    box.Text.set("");
    write_display_file(kEepromFile, text);
    load(box, std::move(text));
    box.Visible.set(visible);
}

void MemoryViews::ShowProgramMemory() {
    host_.pump();
    const auto data = form_.Check_Parity_Disp.Checked.get() ? Data::Parity : Data::Words;
    const auto first = is_pic18_flash(session_.PgmType) ? FirstByte::Shown : FirstByte::Dot;
    const std::size_t step = is_pic18(session_.PgmType) ? 16 : 8;
    const auto bytes = std::span<const std::uint8_t>{session_.PgmMem}.first(program_span(session_));

    std::string text;
    text.reserve(bytes.size() / kLineBytes * 98);
    std::size_t address = 0;
    // A last group of less than eight words isn't shown.
    for (std::size_t at = 0; at + kLineBytes <= bytes.size(); at += kLineBytes, address += step)
        text += program_line(address, bytes.subspan(at, kLineBytes), data, first).text();
    write_display_file(kProgramFile, text);
    load(form_.RichTxtPgmMem, std::move(text));
}

void MemoryViews::ShowEepromMemory() {
    std::array<std::uint8_t, std::tuple_size_v<decltype(MemoryImage::EepMem)> / 2> cells{};
    const std::size_t count = eeprom_span(session_) / 2;
    for (std::size_t cell = 0; cell < count; ++cell) cells[cell] = session_.EepMem[2 * cell + 1];
    show_eeprom_text(eeprom_text(std::span{cells}.first(count)));
}

void MemoryViews::ShowEepromBytes() {
    const auto asked = static_cast<std::size_t>(std::max(session_.EepBytes, 0));
    const std::size_t count = std::min(asked, session_.EepMem.size());
    show_eeprom_text(eeprom_text(std::span{session_.EepMem}.first(count)));
}

void MemoryViews::show_eeprom() {
    if (is_pic18_flash(session_.PgmType))
        ShowEepromBytes();
    else
        ShowEepromMemory();
}

void MemoryViews::ShowConfigSummary() {
    if (!is_pic18_flash(session_.PgmType)) {
        form_.Text_ID.Text.set(id_digits(session_));
        if (has_four_word_id(session_.DeviceName)) {
            form_.Text_ID1.Text.set(word_digits(session_, 0));
            form_.Text_ID2.Text.set(word_digits(session_, 2));
            form_.Text_ID3.Text.set(word_digits(session_, 4));
            form_.Text_ID4.Text.set(word_digits(session_, 6));
        }
        const auto digits = config_in_binary_ ? binary_word_digits : word_digits;
        form_.Text_Config1.Text.set(digits(session_, 14));
        form_.Text_Config2.Text.set(digits(session_, 16));
    }
    form_.LblCheckSUM.Caption.set(ProgramCheckSum(session_));
}

void MemoryViews::switch_config_radix() {
    config_in_binary_ = !config_in_binary_;
    ShowConfigSummary();
}

}  // namespace quillon
