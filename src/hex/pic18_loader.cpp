// SPDX-License-Identifier: MIT
// The zones of the PIC18 loader.
//
// The image holds a program word high byte first, so each byte of the file goes to the other place
// of its pair. ID, configuration and EEPROM bytes keep the file's order. The ID and EEPROM zones
// are read two bytes at a time: with an odd byte count the check sum is read as the last byte.
#include "hex/pic18_loader.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "hex/hex_zones.h"

namespace quillon {

namespace {

// A ninth ID byte has room in the zone but no meaning.
constexpr std::size_t kIdZone = 9;
constexpr std::uint8_t kBlank = 0xFF;

class Pic18Image {
  public:
    explicit Pic18Image(Session& session) : session_{session} {}

    void set_upper(unsigned upper) { upper_ = upper; }
    // False for a fault.
    [[nodiscard]] bool place(const HexRecord& record);
    // Called at the end of the text: rounds up the sizes that the records used.
    void finish();

    bool has_config() const { return has_config_; }
    bool has_eeprom() const { return has_eeprom_; }
    const HexSides& sides() const { return sides_; }
    // Whether the last record's check sum was placed as the second byte of a pair.
    bool sum_placed() const { return sum_placed_; }

  private:
    // Calls `store` with address and value of each byte, `step` bytes at a time. If one of them is
    // bad, none of that step is stored.
    template <typename Store>
    [[nodiscard]] bool each_byte(const HexRecord& record, std::size_t start, std::size_t step,
                                 Store store);

    bool store_program(std::size_t address, std::uint8_t byte);
    bool store_id(std::size_t index, std::uint8_t byte);
    bool store_config(std::size_t index, std::uint8_t byte);
    bool store_eeprom(std::size_t index, std::uint8_t byte);

    Session& session_;
    unsigned upper_ = 0;
    bool has_config_ = false;
    bool has_eeprom_ = false;
    HexSides sides_;
    bool sum_placed_ = false;
};

template <typename Store>
bool Pic18Image::each_byte(const HexRecord& record, std::size_t start, std::size_t step,
                           Store store) {
    const std::size_t bytes = record.data_characters() / 2;
    for (std::size_t at = 0; at < bytes; at += step) {
        const auto first = record.byte(kHexData + 2 * at);
        const auto last = record.byte(kHexData + 2 * (at + step - 1));
        if (!first || !last || !store(start + at, *first)) return false;
        if (step == 1) continue;
        if (!store(start + at + 1, *last)) return false;
        if (at + 1 == bytes) sum_placed_ = true;
    }
    return true;
}

bool Pic18Image::place(const HexRecord& record) {
    const auto place = pic18_place(upper_, record.address());
    sum_placed_ = false;
    if (record.data_characters() > 0 && place.area != HexArea::None &&
        place.area != HexArea::Eeprom)
        sides_.program = true;
    const auto each = [&](std::size_t step, auto store) {
        return each_byte(record, static_cast<std::size_t>(place.index), step,
                         [&](std::size_t i, std::uint8_t byte) { return (this->*store)(i, byte); });
    };
    switch (place.area) {
        case HexArea::Program:
            return each(1, &Pic18Image::store_program);
        case HexArea::Id18:
            return each(2, &Pic18Image::store_id);
        case HexArea::Config18:
            return each(1, &Pic18Image::store_config);
        case HexArea::Eeprom:
            return each(2, &Pic18Image::store_eeprom);
        case HexArea::None:
        case HexArea::IdRecord:
        case HexArea::CfgId:
        case HexArea::FuseBlock:
            break;
    }
    return true;
}

// A word counts as used when the file has either of its bytes below FF. The highest one counts,
// whatever the order of the records: a file may not lose its upper code because a lower record came
// later. Its other byte is ignored: beyond the device it may still be a former image's.
bool Pic18Image::store_program(std::size_t address, std::uint8_t byte) {
    auto& memory = session_.PgmMem;
    const std::size_t place = address ^ 1U;
    memory[place] = byte;
    const std::size_t word = place & ~std::size_t{1};
    if (byte < kBlank)
        session_.PgmWordsCat = std::max(session_.PgmWordsCat, static_cast<std::int32_t>(word + 1));
    return true;
}

bool Pic18Image::store_id(std::size_t index, std::uint8_t byte) {
    if (index >= kIdZone) return false;
    if (index < session_.IdBytes18.size()) session_.IdBytes18[index] = byte;
    return true;
}

bool Pic18Image::store_config(std::size_t index, std::uint8_t byte) {
    if (index >= session_.CfgBytes18.size()) return false;
    session_.CfgBytes18[index] = byte;
    has_config_ = true;
    return true;
}

bool Pic18Image::store_eeprom(std::size_t index, std::uint8_t byte) {
    if (index >= session_.EepMem.size()) return false;
    session_.EepMem[index] = byte;
    if (std::cmp_less(index, session_.EepBytes)) sides_.eeprom = true;
    if (byte < kBlank) {
        session_.EepBytesCat = std::max(session_.EepBytesCat, static_cast<std::int32_t>(index));
        has_eeprom_ = true;
    }
    return true;
}

void Pic18Image::finish() {
    const std::int32_t buffer = std::max<std::int32_t>(session_.WriteBufBytes, 16);
    const std::int32_t blocks = (session_.PgmWordsCat + 1 + buffer - 1) / buffer;
    session_.PgmWordsCat = std::min(blocks * buffer / 2, session_.PgmWords);
    has_eeprom_ = has_eeprom_ && session_.EepBytes > 0;
    session_.EepBytesCat = has_eeprom_ ? std::min(session_.EepBytesCat + 1, session_.EepBytes) : 0;
    for (std::size_t n = 1; n <= kConfigWords; ++n) {
        const std::uint32_t word =
            session_.CfgBytes18[2 * n - 1] * 256U + session_.CfgBytes18[2 * n - 2];
        session_.ConfigWord[n] = (word & session_.ConfigMask[n]) | session_.ConfigForce[n];
    }
}

bool place_items(std::string_view text, Pic18Image& image, HexLoad& load) {
    HexItems items{text};
    for (std::size_t number = 1; const auto item = items.next(); ++number) {
        if (!item->starts_with(':')) {
            load.skipped.add(number);
            continue;
        }
        if (is_extended_address(*item)) {
            const auto upper = address_value(*item);
            if (!upper) return false;
            image.set_upper(*upper);
            continue;
        }
        const auto record = HexRecord::parse(*item);
        if (!record) return false;
        if (!record->is_data()) continue;
        const bool placed = image.place(*record);
        if (image.sum_placed()) load.sums_as_data.add(items.line());
        if (!placed) return false;
    }
    return true;
}

}  // namespace

HexLoad load_pic18(std::string_view text, Session& session) {
    HexLoad load;
    Pic18Image image{session};
    session.PgmWordsCat = 0;
    session.EepBytesCat = 0;
    session.IdText = "FFFF";
    load.ok = place_items(text, image, load);
    if (load.ok) {
        image.finish();
    } else {
        session.PgmWordsCat = session.PgmWords;
        session.EepBytesCat = session.EepBytes;
    }
    load.has_config = image.has_config();
    load.has_eeprom = image.has_eeprom();
    load.sides = image.sides();
    return load;
}

}  // namespace quillon
