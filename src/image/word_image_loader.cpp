// SPDX-License-Identifier: MIT
// The address zones of the word-image loader.
//
// The file's pair at a record's offset k is low byte, high byte; the image holds it at k+1 and k.
// The loop goes by whole words: with an odd byte count the last word's high byte is the check sum.
#include "image/word_image_loader.h"

#include <cstddef>
#include <cstdint>
#include <span>

#include "image/fill.h"
#include "image/fuse_block.h"
#include "image/id_words.h"

namespace quillon {

namespace {

constexpr unsigned kIdAddress = 0x4000;
constexpr unsigned kEepromForm1 = 0x4200;
constexpr unsigned kEepromForm2 = 0x4400;
constexpr unsigned kBehindEeprom = 0x8200;
constexpr unsigned kFuseBlock = 0xFF00;
constexpr unsigned kConfig12bit = 0x1FFE;
// Configuration words 1 to 7 in CfgIdMem.
constexpr std::ptrdiff_t kFirstConfig = 14;
constexpr std::ptrdiff_t kLastConfig = 27;

class WordImage {
  public:
    explicit WordImage(Session& session) : session_{session} {}

    // False for a fault.
    [[nodiscard]] bool place(const HexRecord& record);
    bool has_config() const { return has_config_; }

  private:
    // Calls `store` with offset, high and low byte of each file word; false where a digit is bad or
    // missing, or `store` has no place for the word.
    template <typename Store>
    [[nodiscard]] bool each_word(const HexRecord& record, Store store);

    bool place_program(const HexRecord& record);
    bool place_config_12bit(const HexRecord& record);
    bool place_config_area(const HexRecord& record);
    bool place_eeprom(const HexRecord& record, unsigned base);
    bool place_fuse_block(const HexRecord& record);
    bool store_config_pair(std::ptrdiff_t index, std::uint8_t high, std::uint8_t low);

    Session& session_;
    bool has_config_ = false;
};

template <typename Store>
bool WordImage::each_word(const HexRecord& record, Store store) {
    for (std::size_t i = 0; i + 2 <= record.data_characters(); i += 4) {
        const auto low = record.byte(kHexData + i);
        const auto high = record.byte(kHexData + i + 2);
        if (!low || !high || !store(static_cast<std::ptrdiff_t>(i / 2), *high, *low)) return false;
    }
    return true;
}

bool WordImage::place(const HexRecord& record) {
    const unsigned address = record.address();
    if (address < kIdAddress) return place_program(record);
    if (address == kIdAddress) return take_id_record(record, session_);
    if (address < kEepromForm1) return place_config_area(record);
    if (address < kEepromForm2) return place_eeprom(record, kEepromForm1);
    // Only the upper limit is tested: what lies below 0x8000 has a negative index, a fault.
    if (address < kBehindEeprom) return place_eeprom(record, 0x8000);
    if (address == kFuseBlock) return place_fuse_block(record);
    return true;
}

bool WordImage::place_program(const HexRecord& record) {
    if (is_12bit(session_.PgmType)) {
        if (record.address() == kConfig12bit && !place_config_12bit(record)) return false;
        if (is_own_id_address(session_, record.address()) && !take_id_digits(record, session_))
            return false;
    }
    const bool parity = session_.PgmType == "EPROM2";
    auto* const words = session_.PgmMem.data() + record.address();
    return each_word(record, [&](std::ptrdiff_t offset, std::uint8_t high, std::uint8_t low) {
        if (parity) ParityFix(high, low);
        words[offset] = high;
        words[offset + 1] = low;
        return true;
    });
}

// The last word of the record stands.
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

bool WordImage::place_config_area(const HexRecord& record) {
    const std::ptrdiff_t start = record.address() - kIdAddress;
    const auto store = [&](std::ptrdiff_t offset, std::uint8_t high, std::uint8_t low) {
        return store_config_pair(start + offset, high, low);
    };
    if (!each_word(record, store)) return false;
    // The first four words only, wherever the record began.
    for (const std::size_t word : {14U, 16U, 18U, 20U}) session_.CfgIdMem[word] &= 0x3F;
    if (session_.PgmType == "EPROM2") session_.CfgIdMem[14] |= 0xC0;
    return true;
}

// A cell is 0x3F and the word's low byte; the high byte isn't even read.
bool WordImage::place_eeprom(const HexRecord& record, unsigned base) {
    auto& cells = session_.EepMem;
    auto index = static_cast<std::ptrdiff_t>(record.address()) - static_cast<std::ptrdiff_t>(base);
    for (std::size_t i = 0; i + 2 <= record.data_characters(); i += 4, index += 2) {
        const auto low = record.byte(kHexData + i);
        if (!low || index < 0 || index + 1 >= std::ssize(cells)) return false;
        cells[static_cast<std::size_t>(index)] = 0x3F;
        cells[static_cast<std::size_t>(index) + 1] = *low;
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
    if (session.PgmType == "12C5" && (area[15] & 0x08) == 0) {
        area[14] = 0;
        area[15] &= 0x17;
    }
    session.ConfigWord[1] = (area[14] & 0x3FU) * 256U + area[15];
    session.ConfigWord[2] = (area[16] & 0x3FU) * 256U + area[17];
    if (session.PgmType == "EPROM2") area[14] |= 0xC0;
}

}  // namespace

HexLoad load_word_image(std::string_view text, std::string_view device_shown, Session& session) {
    HexLoad load;
    WordImage image{session};
    HexItems items{text};
    session.IdText = "FFFF";
    for (std::size_t number = 1; const auto item = items.next(); ++number) {
        if (!item->starts_with(':')) {
            load.skipped.add(number);
            continue;
        }
        if (is_extended_address(*item)) {
            // Read and thrown away; its digits must be digits all the same.
            if (!extended_address(*item)) return load;
            continue;
        }
        const auto record = HexRecord::parse(*item);
        if (!record) return load;
        if (!record->is_data()) continue;
        const bool placed = image.place(*record);
        load.has_config = image.has_config();
        if (!placed) return load;
    }
    fix_id_words(device_shown, session);
    take_config_words(session);
    load.ok = true;
    return load;
}

}  // namespace quillon
