// SPDX-License-Identifier: MIT
// The address zones of the word-image loader.
//
// The file's pair at a record's offset k is low byte, high byte; the image holds it at k+1 and k.
// The loop takes whole words: with an odd byte count the check sum is read as the last word's high
// byte.
#include "hex/word_image_loader.h"

#include <cstddef>
#include <cstdint>
#include <span>

#include "hex/fuse_block.h"
#include "hex/hex_zones.h"
#include "hex/id_behind_program.h"
#include "hex/id_words.h"
#include "image/config_area.h"
#include "image/fill.h"

namespace quillon {

namespace {

// Configuration words 1 to 7 in CfgIdMem.
constexpr std::ptrdiff_t kFirstConfig = 14;
constexpr std::ptrdiff_t kLastConfig = 27;
constexpr std::size_t kIdBytes = 8;

class WordImage {
  public:
    WordImage(Session& session, HexAddresses addresses)
        : session_{session}, addresses_{addresses}, id_behind_{session} {}

    // False for an address record with bad digits.
    [[nodiscard]] bool set_base(std::string_view address_record);
    // Whether an address record has no effect here. It is dropped unread, like records of other
    // types.
    bool drops(std::string_view address_record) const;
    // False for a fault.
    [[nodiscard]] bool place(const HexRecord& record);
    // Called after the last record.
    void finish(std::string_view device_shown);
    bool has_config() const { return has_config_; }
    const HexSides& sides() const { return sides_; }
    // Whether the last record's check sum was placed as its last word's high byte.
    bool sum_placed() const { return sum_placed_; }

  private:
    // Calls `store` with offset, high and low byte of each file word; false where a digit is bad or
    // missing, or `store` has no place for the word.
    template <typename Store>
    [[nodiscard]] bool each_word(const HexRecord& record, Store store);

    HexPlace place_of(const HexRecord& record) const;
    bool place_program(const HexRecord& record);
    bool place_full_program(const HexRecord& record, std::ptrdiff_t start);
    bool place_config_12bit(const HexRecord& record);
    bool place_id_record(const HexRecord& record);
    bool place_own_words_12bit(const HexRecord& record);
    bool place_config_area(const HexRecord& record, std::ptrdiff_t start);
    bool place_eeprom(const HexRecord& record, std::ptrdiff_t start);
    bool place_fuse_block(const HexRecord& record);
    bool store_config_pair(std::ptrdiff_t index, std::uint8_t high, std::uint8_t low);

    Session& session_;
    HexAddresses addresses_;
    std::uint32_t base_ = 0;  // what is added to the records' addresses
    IdBehindProgram id_behind_;
    bool has_id_ = false;  // an ID at an address that has precedence
    bool has_config_ = false;
    HexSides sides_;
    bool sum_placed_ = false;
};

template <typename Store>
bool WordImage::each_word(const HexRecord& record, Store store) {
    for (std::size_t i = 0; i + 2 <= record.data_characters(); i += 4) {
        const auto low = record.byte(kHexData + i);
        const auto high = record.byte(kHexData + i + 2);
        if (!low || !high || !store(static_cast<std::ptrdiff_t>(i / 2), *high, *low)) return false;
        if (i + 2 == record.data_characters()) sum_placed_ = true;
    }
    return true;
}

HexPlace WordImage::place_of(const HexRecord& record) const {
    if (addresses_ == HexAddresses::Folded) return word_image_place(record.address());
    return full_address_place(base_ + record.address());
}

bool WordImage::set_base(std::string_view address_record) {
    const auto value = address_value(address_record);
    if (value) base_ = is_segment_address(address_record) ? *value << 4 : *value << 16;
    return value.has_value();
}

bool WordImage::drops(std::string_view address_record) const {
    return addresses_ == HexAddresses::Folded && is_segment_address(address_record);
}

bool WordImage::place(const HexRecord& record) {
    const auto [area, start] = place_of(record);
    sum_placed_ = false;
    if (record.data_characters() > 0 && area != HexArea::None && area != HexArea::Eeprom)
        sides_.program = true;
    switch (area) {
        case HexArea::Program:
            return addresses_ == HexAddresses::Full ? place_full_program(record, start)
                                                    : place_program(record);
        case HexArea::IdRecord:
            return place_id_record(record);
        case HexArea::CfgId:
            return place_config_area(record, start);
        case HexArea::Eeprom:
            return place_eeprom(record, start);
        case HexArea::FuseBlock:
            return place_fuse_block(record);
        case HexArea::None:
        case HexArea::Id18:
        case HexArea::Config18:
            break;
    }
    return true;
}

bool WordImage::place_program(const HexRecord& record) {
    if (is_12bit(session_.PgmType) && !place_own_words_12bit(record)) return false;
    const bool parity = session_.PgmType == ProgrammingType::EPROM2;
    auto* const words = session_.PgmMem.data() + record.address();
    return each_word(record, [&](std::ptrdiff_t offset, std::uint8_t high, std::uint8_t low) {
        if (parity) ParityFix(high, low);
        id_behind_.note(record.address() + static_cast<std::size_t>(offset), high, low);
        words[offset] = high;
        words[offset + 1] = low;
        return true;
    });
}

// The configuration and ID of 12-bit parts are in the program zone; they are also kept as program
// data.
bool WordImage::place_own_words_12bit(const HexRecord& record) {
    if (record.address() == kConfig12bitAddress && !place_config_12bit(record)) return false;
    if (!is_own_id_address(session_, record.address())) return true;
    has_id_ = true;
    return take_id_digits(record, session_);
}

// Data beyond the device's program have no place and aren't folded onto anything else.
bool WordImage::place_full_program(const HexRecord& record, std::ptrdiff_t start) {
    auto& words = session_.PgmMem;
    const auto behind = static_cast<std::ptrdiff_t>(program_span(session_));
    return each_word(record, [&](std::ptrdiff_t offset, std::uint8_t high, std::uint8_t low) {
        if (start + offset + 1 >= behind) return true;
        const auto at = static_cast<std::size_t>(start + offset);
        words[at] = high;
        words[at + 1] = low;
        return true;
    });
}

// Each word replaces the one before, so the record's last word counts.
bool WordImage::place_config_12bit(const HexRecord& record) {
    return each_word(record, [&](std::ptrdiff_t, std::uint8_t high, std::uint8_t low) {
        return store_config_pair(kFirstConfig, high, low);
    });
}

bool WordImage::store_config_pair(std::ptrdiff_t index, std::uint8_t high, std::uint8_t low) {
    if (index + 1 >= std::ssize(session_.CfgIdMem)) return false;
    session_.CfgIdMem[static_cast<std::size_t>(index)] = high;
    session_.CfgIdMem[static_cast<std::size_t>(index) + 1] = low;
    if (index + 1 >= kFirstConfig && index <= kLastConfig) has_config_ = true;
    return true;
}

// A full dump continues behind the ID words. Those further words are placed first, so that the ID
// rule doesn't drop the configuration.
bool WordImage::place_id_record(const HexRecord& record) {
    const bool longer = record.data_characters() > 2 * kIdBytes;
    if (longer && !place_config_area(record, 0)) return false;
    has_id_ = true;
    return take_id_record(record, session_, addresses_);
}

bool WordImage::place_config_area(const HexRecord& record, std::ptrdiff_t start) {
    const auto store = [&](std::ptrdiff_t offset, std::uint8_t high, std::uint8_t low) {
        return store_config_pair(start + offset, high, low);
    };
    if (!each_word(record, store)) return false;
    // Only the first four words are masked, wherever the record began.
    for (const std::size_t word : {14U, 16U, 18U, 20U}) session_.CfgIdMem[word] &= 0x3F;
    config_area::mark_eprom2(session_);
    return true;
}

// A cell is 0x3F and the word's low byte; the high byte isn't even read.
bool WordImage::place_eeprom(const HexRecord& record, std::ptrdiff_t start) {
    auto& cells = session_.EepMem;
    auto index = start;
    for (std::size_t i = 0; i + 2 <= record.data_characters(); i += 4, index += 2) {
        const auto low = record.byte(kHexData + i);
        if (!low || index < 0 || index + 1 >= std::ssize(cells)) return false;
        cells[static_cast<std::size_t>(index)] = 0x3F;
        cells[static_cast<std::size_t>(index) + 1] = *low;
        if (index / 2 < session_.EepBytes) sides_.eeprom = true;
    }
    return true;
}

bool WordImage::place_fuse_block(const HexRecord& record) {
    const auto store = [&](std::ptrdiff_t offset, std::uint8_t high, std::uint8_t low) {
        return store_config_pair(offset, high, low);
    };
    if (!each_word(record, store)) return false;
    apply_fuse_block(session_);
    has_config_ = true;
    return true;
}

// Word 1 as the catalogue allows it, and the two words that the panel shows as numbers.
void take_config_words(Session& session) {
    auto& area = session.CfgIdMem;
    const std::uint32_t word = area[14] * 256U + area[15];
    const std::uint32_t masked = (word & session.ConfigMask[1]) | session.ConfigForce[1];
    area[14] = static_cast<std::uint8_t>(masked / 256);
    area[15] = static_cast<std::uint8_t>(masked % 256);
    // With bit 3 clear only bits 0, 1, 2 and 4 hold meaning.
    if (session.PgmType == ProgrammingType::T12C5 && (area[15] & 0x08) == 0) {
        area[14] = 0;
        area[15] &= 0x17;
    }
    for (const std::size_t n : {1U, 2U}) session.ConfigWord[n] = config_area::word(area, n);
    config_area::mark_eprom2(session);
}

void WordImage::finish(std::string_view device_shown) {
    if (!has_id_) id_behind_.take(session_);
    fix_id_words(device_shown, session_);
    take_config_words(session_);
}

}  // namespace

HexLoad load_word_image(std::string_view text, std::string_view device_shown, Session& session,
                        HexAddresses addresses) {
    HexLoad load;
    WordImage image{session, addresses};
    HexItems items{text};
    session.IdText = "FFFF";
    for (std::size_t number = 1; const auto item = items.next(); ++number) {
        if (!item->starts_with(':')) {
            load.skipped.add(number);
            continue;
        }
        if (is_extended_address(*item) || is_segment_address(*item)) {
            // A folded file doesn't use the value, but an upper address must have valid digits all
            // the same.
            if (!image.drops(*item) && !image.set_base(*item)) return load;
            continue;
        }
        const auto record = HexRecord::parse(*item);
        if (!record) return load;
        if (!record->is_data()) continue;
        const bool placed = image.place(*record);
        load.has_config = image.has_config();
        if (image.sum_placed()) load.sums_as_data.add(items.line());
        if (!placed) return load;
    }
    image.finish(device_shown);
    load.sides = image.sides();
    load.ok = true;
    return load;
}

}  // namespace quillon
