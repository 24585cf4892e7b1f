// SPDX-License-Identifier: MIT
// The key table, and what each key does.
//
// Keys are compared in upper case. The two CALIB keys are compared in the file's case, and only
// when the table doesn't have the key. Any other key begins a configuration field; its last
// character is the word's number.
#include "catalogue/record_loader.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <utility>

#include "app/text.h"
#include "catalogue/catalogue_texts.h"
#include "catalogue/config_row.h"
#include "catalogue/number.h"

namespace quillon {

namespace {

constexpr RowProblem kFine = "";
constexpr std::int32_t kMostWords = MemoryImage::kPgmBytes / 2;
constexpr int kByte = 0xFF;
constexpr std::int32_t kWord = 0xFFFF;
// Twips. The view of the program memory makes room for the EEPROM's below it.
constexpr int kHeightAboveEeprom = 2640;
constexpr int kHeightAlone = 4310;

// A value from 0 to `most` in any form that a number may have.
std::optional<std::uint32_t> value_up_to(std::int32_t most, std::string_view text) {
    const auto value = parse_number(text);
    if (text.empty() || !value || *value < 0 || *value > most) return std::nullopt;
    return static_cast<std::uint32_t>(*value);
}

// A decimal number from 0 to `most`; these keys accept no prefix.
std::optional<std::uint32_t> decimal_up_to(std::int32_t most, std::string_view text) {
    const bool digits = text.find_first_not_of("0123456789") == std::string_view::npos;
    return digits ? value_up_to(most, text) : std::nullopt;
}

RowProblem unreadable(std::string_view text) {
    return text.empty() ? catalogue_text::kNoValue : catalogue_text::kBadValue;
}

bool are_hex_digits(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return hex_digit(c).has_value(); });
}

// "0x" and six digits, twice: three bytes of each.
std::optional<DeviceRecord::EraseRecord> erase_record(const CatRow& row) {
    DeviceRecord::EraseRecord record{};
    for (std::size_t i = 0; i < record.size(); ++i) {
        const std::string_view token = row[1 + i / 3];
        if (token.size() != 8 || upper(token.substr(0, 2)) != "0X") return std::nullopt;
        const std::string_view pair = token.substr(2 + 2 * (i % 3), 2);
        if (!are_hex_digits(pair)) return std::nullopt;
        record[i] = static_cast<std::uint8_t>(*hex_digit(pair[0]) * 16 + *hex_digit(pair[1]));
    }
    return record;
}

RowProblem take_erase_record(const CatRow& row, DeviceRecord::EraseRecord& record) {
    const auto read = erase_record(row);
    if (!read) return unreadable(row[2]);
    record = *read;
    return kFine;
}

}  // namespace

struct RecordLoader::Key {
    std::string_view key;
    Handler handler;
    int n = 0;  // the handler's number: word, block, or the highest value
};

const RecordLoader::Key* RecordLoader::find_key(std::string_view key) {
    using Loader = RecordLoader;
    static constexpr Key kKeys[] = {
        {"CP_MASK_CF5", &Loader::CP_MASK_CF5},
        {"PACKAGE", &Loader::PACKAGE},
        {"JP2", &Loader::JP2},
        {"FIRM", &Loader::FIRM},
        {"VDD_VPP_DELAY", &Loader::VDD_VPP_DELAY},
        {"POWER_MODE", &Loader::POWER_MODE},
        {"PGM_TYPE", &Loader::PGM_TYPE},
        {"COMMENT", &Loader::COMMENT},
        {"CONFIG1", &Loader::CONFIG, 1},
        {"CONFIG2", &Loader::CONFIG, 2},
        {"CONFIG3", &Loader::CONFIG, 3},
        {"CONFIG4", &Loader::CONFIG, 4},
        {"CONFIG5", &Loader::CONFIG, 5},
        {"CONFIG6", &Loader::CONFIG, 6},
        {"CONFIG7", &Loader::CONFIG, 7},
        {"PGM_SIZE_WORD", &Loader::PGM_SIZE_WORD},
        {"EEPROM_BYTE", &Loader::EEPROM_BYTE},
        {"ERASE3C0005-04_CHIP", &Loader::ERASE_CHIP},
        {"ERASE3C0005-04_CONFIG", &Loader::ERASE_CONFIG},
        {"ERASE3C0005-04_EEPROM", &Loader::ERASE_EEPROM},
        {"ERASE3C0005-04_BLOCKB", &Loader::ERASE_BLOCK, 0},
        {"ERASE3C0005-04_BLOCK1", &Loader::ERASE_BLOCK, 1},
        {"ERASE3C0005-04_BLOCK2", &Loader::ERASE_BLOCK, 2},
        {"ERASE3C0005-04_BLOCK3", &Loader::ERASE_BLOCK, 3},
        {"ERASE3C0005-04_BLOCK4", &Loader::ERASE_BLOCK, 4},
        {"ERASE3C0005-04_BLOCK5", &Loader::ERASE_BLOCK, 5},
        {"ERASE3C0005-04_BLOCK6", &Loader::ERASE_BLOCK, 6},
        {"ERASE3C0005-04_BLOCK7", &Loader::ERASE_BLOCK, 7},
        {"ERASE3C0005-04_BLOCK8", &Loader::ERASE_BLOCK, 8},
        {"WRITE_BUFFER_SIZE_BYTE", &Loader::WRITE_BUFFER_SIZE_BYTE},
        {"DEVID1", &Loader::DEVID1},
        {"BLOCK_NUMBER", &Loader::kept_number, INT16_MAX},
        {"BLOCK_SIZE_WORD", &Loader::kept_number, INT32_MAX},
        {"ERASE_BUFFER_SIZE_BYTE", &Loader::kept_number, kByte},
        {"PROGRAMMING_TIME_MS", &Loader::kept_number, kByte},
        {"ERASE_TIME_MS", &Loader::kept_number, kByte},
        {"CODE_PGM_DIRECT_ACCESS_SKIP_FLAG", &Loader::kept_text},
        {"CODE_PGM_CONFIGURE_FOR_MULTI_WRITE_SKIP_FLAG", &Loader::kept_text},
    };
    const auto* const found = std::ranges::find(kKeys, key, &Key::key);
    return found == std::end(kKeys) ? nullptr : found;
}

RowProblem RecordLoader::take(const CatRow& row) {
    const std::string key = upper(row[0]);
    if (key.empty()) return kFine;
    if (const Key* const known = find_key(key)) return (this->*known->handler)(row, known->n);
    if (row[0] == "CALIB(movlw)") return calibration("movlw", row[1]);
    if (row[0] == "CALIB(retlw)") return calibration("retlw", row[1]);
    return field(key, row);
}

RowProblem RecordLoader::CP_MASK_CF5(const CatRow& row, int) {
    const auto mask = value_up_to(INT32_MAX, row[1]);
    if (!mask) return unreadable(row[1]);
    session_.CpMaskCf5 = *mask;
    return kFine;
}

RowProblem RecordLoader::PACKAGE(const CatRow& row, int) {
    if (row[1].empty()) return catalogue_text::kNoValue;
    session_.PackageKey = row[1];
    board_.Shape_8P.Visible.set(row[1] == "8");
    board_.Shape_18P.Visible.set(row[1] == "18");
    board_.Shape_28P.Visible.set(row[1] == "28");
    board_.Shape_28AP.Visible.set(row[1] == "28A");
    board_.Shape_40P.Visible.set(row[1] == "40");
    return kFine;
}

RowProblem RecordLoader::JP2(const CatRow& row, int) {
    if (row[1].empty()) return catalogue_text::kNoValue;
    session_.Jp2Key = row[1];
    board_.Shape_12.Visible.set(row[1] == "1-2");
    board_.Shape_23.Visible.set(row[1] == "2-3");
    board_.Label_sel.Visible.set(row[1] == "NON");
    return kFine;
}

RowProblem RecordLoader::FIRM(const CatRow& row, int) {
    const auto version = parse_decimal(row[1]);
    if (!version) return unreadable(row[1]);
    session_.FirmRequired = *version;
    return kFine;
}

RowProblem RecordLoader::VDD_VPP_DELAY(const CatRow& row, int) {
    const auto delay = decimal_up_to(kByte, row[1]);
    if (!delay) return unreadable(row[1]);
    session_.VddVppDelay = static_cast<std::uint8_t>(*delay);
    return kFine;
}

// Any other word is refused: it would silently power the part in one of the two orders.
RowProblem RecordLoader::POWER_MODE(const CatRow& row, int) {
    if (row[1] != "VPP" && row[1] != "VDD") return unreadable(row[1]);
    session_.PowerMode = row[1];
    return kFine;
}

RowProblem RecordLoader::PGM_TYPE(const CatRow& row, int) {
    if (row[1].empty()) return catalogue_text::kNoValue;
    session_.PgmType = row[1];
    return kFine;
}

RowProblem RecordLoader::COMMENT(const CatRow& row, int) {
    constexpr std::size_t kMostWordsShown = 5;
    if (row[1].empty()) return catalogue_text::kNoValue;
    session_.CommentText.clear();
    for (std::size_t i = 1; i <= kMostWordsShown && !row[i].empty(); ++i)
        session_.CommentText += " " + row[i];
    return kFine;
}

RowProblem RecordLoader::CONFIG(const CatRow& row, int n) {
    for (std::size_t i = 1; i <= 4; ++i)
        if (!value_up_to(kWord, row[i])) return unreadable(row[i]);
    session_.ConfigPresent[static_cast<std::size_t>(n)] = true;
    ApplyConfigRow(session_, form_, n, row);
    return kFine;
}

RowProblem RecordLoader::PGM_SIZE_WORD(const CatRow& row, int) {
    const auto highest = value_up_to(INT32_MAX, row[1]);
    if (!highest) return unreadable(row[1]);
    if (*highest >= kMostWords) return catalogue_text::kBadSize;
    session_.PgmWords = session_.PgmWordsCat = static_cast<std::int32_t>(*highest) + 1;
    form_.Label_pm_size.Caption.set(fmt::format("= {} word", session_.PgmWords));
    return kFine;
}

RowProblem RecordLoader::EEPROM_BYTE(const CatRow& row, int) {
    const auto highest = value_up_to(INT32_MAX, row[1]);
    if (!highest) return unreadable(row[1]);
    const auto most = static_cast<std::uint32_t>(most_eeprom_cells(type_));
    if (*highest >= most) return catalogue_text::kBadSize;
    const std::int32_t cells = *highest == 0 ? 0 : static_cast<std::int32_t>(*highest) + 1;
    session_.EepBytes = session_.EepBytesCat = cells;
    show_eeprom_controls(cells != 0);
    return kFine;
}

// Label4 is the view's heading. Its text is kept, as no code would set it again.
void RecordLoader::show_eeprom_controls(bool present) {
    form_.RichTxtPgmMem.Height.set(present ? kHeightAboveEeprom : kHeightAlone);
    form_.Label4.Visible.set(present);
    form_.Label_ed_size.Visible.set(present);
    form_.rText_EepromMem.Visible.set(present);
    if (!present) form_.rText_EepromMem.Text.set("");
    form_.Label_ed_size.Caption.set(present ? fmt::format("= {} byte", session_.EepBytes) : "");
}

RowProblem RecordLoader::ERASE_CHIP(const CatRow& row, int) {
    return take_erase_record(row, session_.EraseChip18);
}

RowProblem RecordLoader::ERASE_CONFIG(const CatRow& row, int) {
    return take_erase_record(row, session_.EraseConfig18);
}

RowProblem RecordLoader::ERASE_EEPROM(const CatRow& row, int) {
    return take_erase_record(row, session_.EraseEeprom18);
}

RowProblem RecordLoader::ERASE_BLOCK(const CatRow& row, int n) {
    return take_erase_record(row, session_.EraseBlock18[static_cast<std::size_t>(n)]);
}

RowProblem RecordLoader::WRITE_BUFFER_SIZE_BYTE(const CatRow& row, int) {
    const auto bytes = decimal_up_to(kByte, row[1]);
    if (!bytes) return unreadable(row[1]);
    session_.WriteBufBytes = static_cast<std::uint8_t>(*bytes);
    return kFine;
}

RowProblem RecordLoader::DEVID1(const CatRow& row, int) {
    std::array<std::uint32_t, 3> values{};
    for (std::size_t i = 0; i < values.size(); ++i) {
        const auto value = value_up_to(kWord, row[1 + i]);
        if (!value) return unreadable(row[1 + i]);
        values[i] = *value;
    }
    const auto [high, low, revision] = values;
    session_.DevIdMask = revision;
    session_.DevIdExpect = (low & ~revision) + high * 256;
    return kFine;
}

RowProblem RecordLoader::kept_number(const CatRow& row, int most) {
    return decimal_up_to(most, row[1]) ? kFine : unreadable(row[1]);
}

RowProblem RecordLoader::kept_text(const CatRow& row, int) {
    return row[1].empty() ? catalogue_text::kNoValue : kFine;
}

RowProblem RecordLoader::calibration(std::string_view opcode, std::string_view digits) {
    if (digits.size() != 2 || !are_hex_digits(digits)) return unreadable(digits);
    session_.CalibText = fmt::format("{} 0x{}", opcode, digits);
    form_.Text_Calib_Data.Text.set(std::string{digits});
    return kFine;
}

// The first row of a field makes a grid row, the others only add options. Only the previous row is
// compared: a field that another one interrupts is in the grid twice.
RowProblem RecordLoader::field(const std::string& key, const CatRow& row) {
    const int n = key.back() - '0';
    if (n < 1 || n > kConfigWords) return catalogue_text::kBadKey;
    if (row[1].empty() || row[2].empty()) return catalogue_text::kNoValue;
    const auto mask = value_up_to(kWord, row[3]);
    const auto value = value_up_to(kWord, row[4]);
    if (!mask || !value) return unreadable(row[4]);

    if (row[1] == "CP") {
        session_.CpMask = *mask;
        form_.Label_Debug.Caption.set(fmt::format("dec:{} , hex:{}", *mask, hex(*mask, 4)));
    }
    options_.push_back({n, row[1], row[2], *mask, *value});
    std::string pair = key + row[1];
    if (pair == remembered_) return kFine;
    remembered_ = std::move(pair);
    form_.HFGrid(n).set_cell(next_grid_row_[static_cast<std::size_t>(n)]++, 0, row[1]);
    return kFine;
}

std::int32_t most_eeprom_cells(ProgrammingType type) {
    constexpr auto kBytes = static_cast<std::int32_t>(sizeof(MemoryImage::EepMem));
    return is_pic18(type) ? kBytes : kBytes / 2;
}

}  // namespace quillon
