// SPDX-License-Identifier: MIT
// An Intel HEX text cut into items, and an item cut into its fields.
//
// Nothing here keeps a copy: items and records look into the text they came from.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

// An item ends at a line end (CR, LF or both) or at a comma. Leading blanks and TABs and trailing
// blanks are dropped. A double-quoted item loses its quotes and may hold commas; a quote that isn't
// closed ends with its line, so that it can't swallow the file. Text behind a closing quote is a
// new item.
class HexItems {
  public:
    explicit HexItems(std::string_view text) : rest_{text} {}

    // Nothing at the end of the text. A line end or comma that ends the text begins no item.
    std::optional<std::string_view> next();
    // The line of the last item, from 1; 0 before the first.
    std::size_t line() const { return line_; }

  private:
    std::string_view take(std::size_t length);
    void drop_blanks();
    void drop_separator();

    std::string_view rest_;
    std::size_t line_ = 0;
    bool line_ended_ = true;
};

// By character: the value of a hexadecimal digit of either case, -1 for any other.
inline constexpr auto kHexValues = [] {
    std::array<std::int16_t, 256> values{};
    values.fill(-1);
    std::int16_t value = 0;
    for (const char digit : std::string_view{"0123456789ABCDEF"})
        values[static_cast<std::uint8_t>(digit)] = value++;
    value = 0xA;
    for (const char digit : std::string_view{"abcdef"})
        values[static_cast<std::uint8_t>(digit)] = value++;
    return values;
}();

// Two digits at a position of an item, from 1; nothing where it ends before or a digit is bad.
inline std::optional<std::uint8_t> hex_byte_at(std::string_view item, std::size_t position) {
    if (position + 1 > item.size()) return std::nullopt;
    const int high = kHexValues[static_cast<std::uint8_t>(item[position - 1])];
    const int low = kHexValues[static_cast<std::uint8_t>(item[position])];
    if ((high | low) < 0) return std::nullopt;
    return static_cast<std::uint8_t>(high * 16 + low);
}

// A record's fields, found by character position; positions count from 1, as in the format's own
// description. The fields' values aren't validated, and the check sum is never read.
class HexRecord {
  public:
    // Nothing for a line that is too short or holds a bad digit in one of the three head fields. A
    // record of a type other than 00 is accepted with the rest unread, as it is dropped.
    static std::optional<HexRecord> parse(std::string_view item);

    bool is_data() const { return type_ == 0; }
    bool is_end() const { return type_ == 1; }
    // A 16-bit byte address.
    unsigned address() const { return address_; }
    // Characters of the data field, two a byte.
    std::size_t data_characters() const { return std::size_t{2} * count_; }
    std::optional<std::uint8_t> byte(std::size_t position) const {
        return hex_byte_at(item_, position);
    }
    std::optional<char> character(std::size_t position) const;

  private:
    std::string_view item_;
    unsigned count_ = 0;
    unsigned address_ = 0;
    unsigned type_ = 0;
};

// First character of the data.
inline constexpr std::size_t kHexData = 10;

// An item that begins ":02000004": an extended address record. Its value is the upper half of the
// addresses behind it.
bool is_extended_address(std::string_view item);
// An item that begins ":02000002": a segment record, which tools write for data below 1 MB. Its
// value is a sixteenth of what is added to the addresses behind it.
bool is_segment_address(std::string_view item);
// The 16-bit value of either; nothing where the digits are bad or missing.
std::optional<unsigned> address_value(std::string_view item);

// The numbers of the items that weren't records. The list stops at kListed: a file that isn't a HEX
// file must not produce a message with millions of numbers.
class SkippedItems {
  public:
    static constexpr std::size_t kListed = 10'000;

    void add(std::size_t item_number);
    bool empty() const { return numbers_.empty(); }
    // "1、3、7"
    std::string list() const;

  private:
    std::vector<std::size_t> numbers_;
    bool more_ = false;
};

// How many, and the line of the first, from 1.
struct Findings {
    std::size_t count = 0;
    std::size_t first_line = 0;

    void add(std::size_t line) {
        if (count++ == 0) first_line = line;
    }
};

// The sides of a device for which a file has data. Blank data count too.
struct HexSides {
    bool program = false;  // program memory, configuration or ID
    bool eeprom = false;   // a cell that the device has
};

// The result of a load. A fault stops the load; the data placed before it remain.
struct [[nodiscard]] HexLoad {
    bool ok = false;
    SkippedItems skipped{};
    bool has_config = false;  // the file supplied configuration words
    bool has_eeprom = false;  // PIC18: it supplied EEPROM data other than blank cells
    HexSides sides{};
    // Records of an odd byte count whose check sum was read, and placed, as the byte behind them.
    Findings sums_as_data{};
};

}  // namespace quillon
