// SPDX-License-Identifier: MIT
// One pass over the records: sums, places, and a shadow of what was written where.
#include "hex/hex_check.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <tuple>
#include <vector>

#include "hex/hex_check_texts.h"
#include "hex/id_behind_program.h"
#include "hex/id_words.h"
#include "image/fill.h"

namespace quillon {

namespace {

constexpr unsigned kBehindFirst64K = 2;
// Four ID words, and the words behind them up to the last that a saved file holds.
constexpr std::ptrdiff_t kCfgIdBytes = 32;
constexpr std::ptrdiff_t kEepromBytes = std::tuple_size_v<decltype(MemoryImage::EepMem)>;
constexpr std::ptrdiff_t kId18Bytes = 8;
constexpr std::ptrdiff_t kConfig18Bytes = std::ptrdiff_t{2} * kConfigWords;
// Data beyond these arrays make the loader stop.
constexpr std::ptrdiff_t kCfgIdArray = std::tuple_size_v<decltype(MemoryImage::CfgIdMem)>;
constexpr std::ptrdiff_t kConfig18Array = std::tuple_size_v<decltype(MemoryImage::CfgBytes18)>;
// The two device-ID words of a PIC18, 0x3FFFFE: a dump of a part holds them, but they are never
// written.
constexpr unsigned kDeviceId18Upper = 0x3F;
constexpr std::ptrdiff_t kDeviceId18 = 0xFFFE;

// The bytes that were written to one area.
class Shadow {
  public:
    // False if the place already has another value.
    bool put(std::size_t index, std::uint8_t byte) {
        if (index >= bytes_.size())
            bytes_.resize(std::max(index + 1, 2 * bytes_.size()), kUnwritten);
        const auto before = bytes_[index];
        bytes_[index] = byte;
        return before == kUnwritten || before == byte;
    }

  private:
    static constexpr std::int16_t kUnwritten = -1;
    std::vector<std::int16_t> bytes_;
};

class Checker {
  public:
    Checker(const DeviceRecord& device, HexAddresses addresses)
        : device_{device},
          pic18_{is_pic18_flash(device.PgmType)},
          full_{!pic18_ && addresses == HexAddresses::Full},
          may_fold_{!pic18_ && !full_ && has_full_addresses(device.DeviceName)},
          id_behind_{device} {}

    void take(std::string_view item, std::size_t line);
    HexCheck result() const;

  private:
    void take_segment(std::string_view item, std::size_t line);
    void take_data(const HexRecord& record, std::size_t line);
    Findings* misplaced(const HexRecord& record, HexPlace place, bool blank);
    unsigned upper() const { return base_ >> 16; }
    HexPlace place_of(const HexRecord& record) const;
    bool is_folded(const HexRecord& record) const;
    bool is_outside(const HexRecord& record, HexPlace place, bool blank) const;
    bool is_device_id(HexPlace place) const;
    bool is_blank(const HexRecord& record, std::size_t at) const;
    bool is_own_word_12bit(const HexRecord& record) const;
    std::ptrdiff_t program_bytes() const { return std::ptrdiff_t{2} * device_.PgmWords; }

    const DeviceRecord& device_;
    const bool pic18_;
    const bool full_;
    const bool may_fold_;  // the part has full addresses, but the file is read folded
    const IdBehindProgram id_behind_;
    std::uint32_t base_ = 0;  // what is added to the records' addresses
    bool ended_ = false;
    bool has_id_12bit_ = false;      // an ID at an address that has precedence
    Findings behind_program_;        // ID words behind a 12-bit part's program
    std::array<Shadow, 8> written_;  // by HexArea
    HexCheck check_;
};

// True if the sum of all bytes of the record, its check sum included, is 0 modulo 0x100.
bool sum_is_right(std::string_view item) {
    const auto count = hex_byte_at(item, 2);
    if (!count) return false;
    unsigned sum = 0;
    for (std::size_t at = 2; at <= kHexData + std::size_t{2} * *count; at += 2) {
        const auto byte = hex_byte_at(item, at);
        if (!byte) return false;
        sum += *byte;
    }
    return sum % 0x100 == 0;
}

void Checker::take(std::string_view item, std::size_t line) {
    if (!item.starts_with(':')) return;
    if (!sum_is_right(item)) check_.bad_sums.add(line);
    if (is_extended_address(item)) {
        if (const auto value = address_value(item)) base_ = *value << 16;
        return;
    }
    if (is_segment_address(item)) return take_segment(item, line);
    const auto record = HexRecord::parse(item);
    if (!record) return;
    ended_ = ended_ || record->is_end();
    if (!record->is_data()) return;
    if (ended_) check_.behind_end.add(line);
    take_data(*record, line);
}

// Many files begin with a segment of 0. Dropping it matters only if it should have ended an upper
// address that the loader follows.
void Checker::take_segment(std::string_view item, std::size_t line) {
    const auto value = address_value(item);
    if (!value) return;
    if (!full_ && (*value != 0 || (pic18_ && base_ != 0))) check_.segments.add(line);
    // The PIC18 loader ignores segments, so its data aren't moved.
    if (!pic18_) base_ = *value << 4;
}

void Checker::take_data(const HexRecord& record, std::size_t line) {
    const bool folded = is_folded(record);
    if (folded) check_.folded.add(line);
    auto [area, index] = place_of(record);
    has_id_12bit_ =
        has_id_12bit_ || area == HexArea::IdRecord || is_own_id_address(device_, record.address());
    if (area == HexArea::IdRecord) area = HexArea::CfgId;
    const bool cells = area == HexArea::Eeprom && !pic18_;
    for (std::size_t at = 0; 2 * at < record.data_characters(); ++at, ++index) {
        const auto byte = record.byte(kHexData + 2 * at);
        if (!byte) return;
        if (cells && at % 2 != 0) continue;  // the upper half of a cell is unused
        // Folded data have a place in the device; they are reported as folded instead.
        if (!folded)
            if (auto* found = misplaced(record, {area, index}, is_blank(record, at)))
                found->add(line);
        if (area == HexArea::None || index < 0) continue;
        if (!written_[static_cast<std::size_t>(area)].put(static_cast<std::size_t>(index), *byte))
            check_.contradicting.add(line);
    }
}

// The findings that count a byte with no place in the device; null for a byte that has one.
Findings* Checker::misplaced(const HexRecord& record, HexPlace place, bool blank) {
    if (!is_outside(record, place, blank)) return nullptr;
    if (place.area == HexArea::Program && id_behind_.holds(static_cast<std::size_t>(place.index)))
        return &behind_program_;
    return place.area == HexArea::Id18 ? &check_.outside_id : &check_.outside;
}

HexPlace Checker::place_of(const HexRecord& record) const {
    if (pic18_) return pic18_place(upper(), record.address());
    if (full_) return full_address_place(base_ + record.address());
    return word_image_place(record.address());
}

// Data above 64 K, or program data in a zone that has another meaning in the smaller parts.
bool Checker::is_folded(const HexRecord& record) const {
    if (!may_fold_) return false;
    const auto place = word_image_place(record.address());
    return base_ != 0 ||
           (place.area != HexArea::Program && std::ptrdiff_t{record.address()} < program_bytes());
}

// `place` is the place of one byte. Blank padding beyond the device isn't data: nothing is lost
// without it. It counts only if it is folded onto something else or makes the loader stop.
bool Checker::is_outside(const HexRecord& record, HexPlace place, bool blank) const {
    const std::ptrdiff_t cell = pic18_ ? 1 : 2;
    if (pic18_ && place.area == HexArea::Program && upper() >= kBehindFirst64K) return true;
    if (!pic18_ && !full_ && base_ != 0) return true;
    switch (place.area) {
        case HexArea::Program:
            return !blank && place.index >= program_bytes() && !is_own_word_12bit(record);
        case HexArea::Eeprom:
            if (place.index < 0 || place.index >= kEepromBytes) return true;
            return !blank && place.index >= cell * device_.EepBytes;
        case HexArea::CfgId:
            if (place.index >= kCfgIdArray) return true;
            return !blank && place.index >= kCfgIdBytes;
        case HexArea::Id18:
            return place.index >= kId18Bytes;
        case HexArea::Config18:
            if (place.index >= kConfig18Array) return true;
            return !blank && place.index >= kConfig18Bytes;
        case HexArea::FuseBlock:
            return false;
        case HexArea::None:
        case HexArea::IdRecord:
            break;
    }
    return !blank && !is_device_id(place);
}

bool Checker::is_device_id(HexPlace place) const {
    return pic18_ && upper() == kDeviceId18Upper && place.index >= kDeviceId18;
}

// Whether byte `at` of the record belongs to a unit that reads as erased: a PIC18's byte, a cell's
// lower half, a word with ones in all bits that the core has.
bool Checker::is_blank(const HexRecord& record, std::size_t at) const {
    if (pic18_) return record.byte(kHexData + 2 * at) == 0xFF;
    const std::size_t word = kHexData + 2 * (at & ~std::size_t{1});
    const unsigned upper_bits = is_12bit(device_.PgmType) ? 0x0F : 0x3F;
    // The upper half of a blank cell is written as ones or as a zero.
    const bool cell = place_of(record).area == HexArea::Eeprom;
    const auto high = record.byte(word + 2).value_or(0xFF);
    return record.byte(word) == 0xFF && (cell || (high & upper_bits) == upper_bits);
}

// The ID and configuration of 12-bit parts are in the program's address space.
bool Checker::is_own_word_12bit(const HexRecord& record) const {
    return is_12bit(device_.PgmType) && (record.address() == kConfig12bitAddress ||
                                         is_own_id_address(device_, record.address()));
}

HexCheck Checker::result() const {
    auto check = check_;
    check.no_end = !ended_;
    if (has_id_12bit_ && behind_program_.count != 0) check.outside_id = behind_program_;
    return check;
}

}  // namespace

HexCheck check_hex(std::string_view text, const DeviceRecord& device, HexAddresses addresses) {
    Checker checker{device, addresses};
    HexItems items{text};
    while (const auto item = items.next()) checker.take(*item, items.line());
    return checker.result();
}

std::string describe(const HexCheck& check, const Findings& sums_as_data) {
    std::vector<std::string> parts;
    const auto tell = [&parts](const Findings& found, std::string_view form) {
        if (found.count != 0)
            parts.push_back(fmt::format(fmt::runtime(form), found.count, found.first_line));
    };
    tell(check.bad_sums, hex_check_text::kBadSums);
    tell(sums_as_data, hex_check_text::kSumsAsData);
    tell(check.outside, hex_check_text::kOutside);
    tell(check.outside_id, hex_check_text::kOutsideId);
    tell(check.contradicting, hex_check_text::kContradicting);
    tell(check.folded, hex_check_text::kFolded);
    tell(check.segments, hex_check_text::kSegments);
    tell(check.behind_end, hex_check_text::kBehindEnd);
    if (check.no_end) parts.emplace_back(hex_check_text::kNoEnd);
    if (parts.empty()) return {};
    return fmt::format("{}{}", hex_check_text::kHead, fmt::join(parts, hex_check_text::kJoin));
}

}  // namespace quillon
