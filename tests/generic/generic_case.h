// SPDX-License-Identifier: MIT
// One device for each programming type of the 14-bit parts that no family claims. A row names what
// the program is expected to send for it.
//
// The letters and counts are written a second time here on purpose: a test that took them from the
// program's tables would repeat their mistakes.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <ostream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "support/bench.h"

namespace quillon::test {

// Words of the "c" area in each operation.
struct GenericCounts {
    int blank = 8, read = 8, verify = 8, write = 8;
};

struct GenericCase {
    const char* name;
    std::string_view device;
    std::string_view type;          // of the device's row PGM_TYPE
    std::string_view renamed = "";  // the name that the device has in the session, "" for its own
    char power = 'N';
    int delay = 10;
    std::string_view blank = "bs";
    std::string_view read = "rs";
    std::string_view chip_erase = "bd";  // "" for a part that the board can't erase
    std::string_view write_pgm = "";
    std::string_view write_eep = "";  // "" for a type without EEPROM
    std::string_view write_cfg = "";
    GenericCounts words = {};
    bool calibrated = false;  // the last program word is the oscillator's calibration
    std::string_view blank_word = "3F FF";
    bool marks = true;  // the words that aren't to be written get a mark
};

inline void PrintTo(const GenericCase& row, std::ostream* out) { *out << row.name; }

// "LDR412" is no name that the device list takes. So the type gets a device of the list, and the
// name is set in the session, where the erases look for it.
inline constexpr std::array kGenericCases{
    GenericCase{.name = "T12C6",
                .device = "PIC12C672",
                .type = "12C6",
                .power = 'n',
                .delay = 5,
                .chip_erase = "",
                .write_pgm = "wsp",
                .write_cfg = "wsc",
                .calibrated = true},
    GenericCase{.name = "T12F6",
                .device = "PIC12F675",
                .type = "12F6",
                .power = 'n',
                .delay = 5,
                .write_pgm = "wee",
                .write_eep = "wed",
                .write_cfg = "wec",
                .calibrated = true},
    GenericCase{.name = "EPROM",
                .device = "PIC16C622A",
                .type = "EPROM",
                .chip_erase = "",
                .write_pgm = "wsp",
                .write_cfg = "wsc"},
    GenericCase{.name = "EPROM2",
                .device = "PIC16C715",
                .type = "EPROM2",
                .blank = "bS",
                .read = "rS",
                .chip_erase = "",
                .write_pgm = "wSp",
                .write_cfg = "wSc",
                .blank_word = "FF FF",
                .marks = false},
    GenericCase{.name = "FLASH0_of_PIC16F87",
                .device = "PIC16F870",
                .type = "FLASH0",
                .write_pgm = "we8",
                .write_eep = "wed",
                .write_cfg = "wec"},
    GenericCase{.name = "FLASH0_of_PIC16F62",
                .device = "PIC16F628",
                .type = "FLASH0",
                .power = 'n',
                .delay = 5,
                .write_pgm = "we5",
                .write_eep = "wed",
                .write_cfg = "wec"},
    GenericCase{.name = "FLASH0_of_PIC16F7",
                .device = "PIC16F73",
                .type = "FLASH0",
                .write_pgm = "we1",
                .write_cfg = "wec"},
    GenericCase{.name = "FLASH0_of_any_other",
                .device = "PIC16F84A",
                .type = "FLASH0",
                .write_pgm = "wef",
                .write_eep = "wed",
                .write_cfg = "wec"},
    GenericCase{.name = "FLASH1",
                .device = "PIC16F628A",
                .type = "FLASH1",
                .power = 'n',
                .delay = 5,
                .write_pgm = "we8",
                .write_eep = "wed",
                .write_cfg = "wec"},
    GenericCase{.name = "FLASH2",
                .device = "PIC16F73",
                .type = "FLASH2",
                .write_pgm = "wEe",
                .write_cfg = "wEc"},
    GenericCase{.name = "FLASH4",
                .device = "PIC16F818",
                .type = "FLASH4",
                .delay = 2,
                .write_pgm = "wHe",
                .write_eep = "wId",
                .write_cfg = "wFc"},
    GenericCase{.name = "FLASH4_9",
                .device = "PIC16F88",
                .type = "FLASH4.9",
                .delay = 2,
                .write_pgm = "wHe",
                .write_eep = "wId",
                .write_cfg = "wJc",
                .words = {.blank = 16, .read = 16, .verify = 16, .write = 9}},
    GenericCase{.name = "FLASH8",
                .device = "PIC16F84A",
                .type = "FLASH8",
                .write_pgm = "wGe",
                .write_eep = "wed",
                .write_cfg = "wFc"},
    GenericCase{.name = "LDR412",
                .device = "PIC16F84A",
                .type = "LDR412",
                .renamed = "LDR412",
                .blank = "b8",
                .read = "r8",
                .chip_erase = "bD",
                .write_pgm = "w84",
                .write_eep = "w8d",
                .write_cfg = "w8c"},
};

inline const GenericCase& generic_case(std::string_view name) {
    for (const auto& row : kGenericCases)
        if (row.name == name) return row;
    return kGenericCases.front();
}

// For tests that run often: a part of 256 words. All algorithms count words, so no more is needed.
inline const std::vector<std::pair<std::string, std::string>> kFewWords{{"PGM_SIZE_WORD", "0xFF"}};

// A bench with the row's device chosen, its part in the socket and a pattern in the image.
class GenericBench : public Bench {
  public:
    explicit GenericBench(const GenericCase& row,
                          std::vector<std::pair<std::string, std::string>> other_values = {})
        : Bench{row.device, {CatalogueBlock{row.device, with_type(row, std::move(other_values))}}},
          row_{row} {
        if (!row.renamed.empty()) session().DeviceName = row.renamed;
        // The per-area dialog isn't offered for one-time parts, so its button may be locked.
        buttons_stay_locked = true;
        buttons_ = enabled_buttons();
        notices_ = run->messages.shown.connect([this](const ShownMessage& message) {
            if (!message.text.starts_with("デバイスのキャリブレーションデータが") &&
                !message.text.starts_with("デバイスの最後のワード"))
                return;
            calibration_notices.push_back(shown->lines.back());
            shown->lines.pop_back();
        });
    }
    ~GenericBench() { EXPECT_EQ(enabled_buttons(), buttons_); }
    GenericBench(const GenericBench&) = delete;
    GenericBench& operator=(const GenericBench&) = delete;
    explicit GenericBench(std::string_view name) : GenericBench{generic_case(name)} {}

    // The notices of a calibration at risk or lost, which are not in shown->lines: any run that
    // stops behind the erase of a 12F6 part has one.
    Lines calibration_notices;
    // Without the line of such a notice.
    std::string log() const {
        std::string kept;
        std::istringstream all{Bench::log()};
        for (std::string line; std::getline(all, line);)
            if (!line.starts_with("デバイスのキャリブレーションデータが")) kept += line + "\n";
        return kept;
    }

    const GenericCase& row() const { return row_; }
    bool has_eeprom() const { return run->session.EepBytes != 0; }

    // The buttons are as an operation in production mode leaves them, and shall stay so.
    void expect_locked_buttons() { buttons_ = enabled_buttons(); }
    // Fills the image with a value that neither the part nor the pattern has.
    void spoil_image() {
        auto& image = session();
        std::fill_n(image.PgmMem.begin(), 2 * image.PgmWords, std::uint8_t{0x2A});
        image.EepMem.fill(0x2A);
        image.CfgIdMem.fill(0x2A);
        image.ConfigWord.fill(0x2A2A);
    }
    // What the image holds once the part was read: the areas as one text of bytes.
    std::vector<std::uint8_t> id_and_config_image() const {
        const auto& area = run->session.CfgIdMem;
        return {area.begin(), area.begin() + 18};
    }

  private:
    static std::vector<std::pair<std::string, std::string>> with_type(
        const GenericCase& row, std::vector<std::pair<std::string, std::string>> values) {
        values.emplace_back("PGM_TYPE", row.type);
        return values;
    }
    const GenericCase& row_;
    Lines buttons_;
    Connection notices_;
};

}  // namespace quillon::test
