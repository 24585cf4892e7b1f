// SPDX-License-Identifier: MIT
// The exchanges of the devices without a family in the wire log's notation, built from the contents
// of image and part.
#pragma once

#include <gtest/gtest.h>

#include "flows/expected_wire.h"
#include "flows/flow_support.h"
#include "generic_case.h"

namespace quillon::test {

class GenericWire {
  public:
    explicit GenericWire(GenericBench& bench) : bench_{bench}, row_{bench.row()} {}

    std::string check() const {
        return fmt::format("> ***?  < ZQ-LDR412A V6.80\n> mD {0:02X}  < {0:02X}\n", row_.delay);
    }
    // The "c" area in the order of the wire.
    std::string config(int words, std::string_view end = "@") const {
        return fmt::format("> {}{}c 00 {:02X}  < {}  > @{}  < {}\n", row_.power, row_.read, words,
                           ExpectedWire::shown(area(words)), words == 16 ? " x2" : "", end);
    }
    // The same of a part whose ID and configuration are blank, as it is before they are written.
    std::string config_of_blank(std::string_view end = "@") const {
        auto bytes = area(8);
        for (std::size_t i = 0; i < 8; ++i)
            bytes[i] = static_cast<std::uint8_t>(bench_.target().blank_word >> (i % 2 ? 0 : 8));
        bytes[14] = static_cast<std::uint8_t>(bench_.target().config_blank[0] >> 8);
        bytes[15] = static_cast<std::uint8_t>(bench_.target().config_blank[0]);
        return fmt::format("> {}{}c 00 08  < {}  > @  < {}\n", row_.power, row_.read,
                           ExpectedWire::shown(bytes), end);
    }
    std::string socket(std::string_view end = "@") const { return config(8, end); }
    std::string calibration_word() const {
        return fmt::format("> {}br {}  < {} @\n", row_.power, count(bench_.session().PgmWords),
                           pair(bench_.target().program.back()));
    }
    std::string blank_pgm(std::string_view word, std::string_view end = "@") const {
        const auto words = bench_.session().PgmWords - (row_.calibrated ? 0 : 1);
        return fmt::format("> {}{} {}  < {} {}\n", row_.power, row_.blank, count(words), word, end);
    }
    std::string read_pgm(std::string_view end = "@") const {
        return read('p', bench_.session().PgmWords, program_of_target(), end);
    }
    // Nothing for a part without EEPROM.
    std::string read_eep(std::string_view end = "@") const {
        if (!bench_.has_eeprom()) return {};
        return read('d', bench_.session().EepBytes, eeprom_of_target(), end);
    }
    // The chip erase checks the board itself once more. A one-time part has none.
    std::string erase(std::string_view end = "@") const {
        if (row_.chip_erase.empty()) return {};
        return check() + fmt::format("> {}{} 0A  < {}\n", row_.power, row_.chip_erase, end);
    }
    std::string begin_write_pgm() const { return begin(row_.write_pgm, bench_.session().PgmWords); }
    std::string begin_write_eep() const { return begin(row_.write_eep, bench_.session().EepBytes); }
    std::string begin_write_cfg() const { return begin(row_.write_cfg, row_.words.write); }
    std::string write_pgm(std::string_view end = "@") const {
        return begin_write_pgm() + ExpectedWire::items(bench_.program_image(), end);
    }
    std::string write_eep(std::string_view end = "@") const {
        if (!bench_.has_eeprom()) return {};
        return begin_write_eep() + ExpectedWire::items(bench_.eeprom_image(), end);
    }
    std::string write_cfg(std::string_view end = "@") const {
        return begin_write_cfg() + ExpectedWire::items(config_items(), end);
    }
    // ID words and configuration from the image; the three words between them as the device holds
    // them, the first bit of each set so that the board leaves them out.
    std::vector<std::uint8_t> config_items() const {
        auto bytes = area(row_.words.write);
        const auto& image = bench_.session().CfgIdMem;
        for (std::size_t i = 0; i < 8; ++i) bytes[i] = image[swaps() ? i ^ 1U : i];
        for (std::size_t i = 14; i < bytes.size(); ++i) bytes[i] = image[i];
        if (row_.marks)
            for (const std::size_t i : {8U, 10U, 12U}) bytes[i] |= 0x80;
        return bytes;
    }

    // The stages of a program run.
    std::string before_blank() const {
        std::string all = check() + socket();
        if (row_.calibrated) all += calibration_word();
        if (row_.type == "12F6") all += config(8);
        return all;
    }
    std::string blank(std::string_view word) const {
        return blank_pgm(word) + read_eep() + config(row_.words.blank);
    }
    // Call it once the part has been programmed.
    std::string written() const {
        return erase() + write_pgm() + write_eep() + read_pgm() + read_eep() + config_of_blank() +
               write_cfg() + config(row_.words.verify);
    }

    std::vector<std::uint8_t> area(int words) const {
        std::vector<std::uint8_t> bytes;
        for (std::size_t w = 0; w < static_cast<std::size_t>(words); ++w) {
            const auto word = bench_.target().read_area(w);
            const bool swapped = swaps() && w < 4;
            put(bytes, swapped ? static_cast<std::uint16_t>(word << 8 | word >> 8) : word);
        }
        return bytes;
    }
    std::vector<std::uint8_t> program_of_target() const {
        std::vector<std::uint8_t> bytes;
        for (std::size_t w = 0; w < bench_.target().program.size(); ++w)
            put(bytes, bench_.target().read_program(w));
        return bytes;
    }

  private:
    // Words with parity have the bytes of their ID words the other way round on the wire.
    bool swaps() const { return row_.type == "EPROM2"; }
    std::string begin(std::string_view letters, std::int32_t words) const {
        return fmt::format("> {}{} {}", row_.power, letters, count(words));
    }
    std::string read(char area, std::int32_t words, const std::vector<std::uint8_t>& data,
                     std::string_view end) const {
        return fmt::format("> {}{}{} {}  < {}  > @ x{}  < {}\n", row_.power, row_.read, area,
                           count(words), ExpectedWire::shown(data), data.size() / 16, end);
    }
    std::vector<std::uint8_t> eeprom_of_target() const {
        std::vector<std::uint8_t> bytes;
        const bool zeros = bench_.target().eeprom_protected();
        for (const auto cell : bench_.target().eeprom)
            put(bytes, static_cast<std::uint16_t>(zeros ? 0U : 0x3F00U | cell));
        return bytes;
    }
    static std::string count(std::int32_t value) { return pair(static_cast<unsigned>(value)); }
    static std::string pair(unsigned value) {
        return hex(value / 256, 2) + " " + hex(value % 256, 2);
    }
    static void put(std::vector<std::uint8_t>& bytes, std::uint16_t word) {
        bytes.push_back(static_cast<std::uint8_t>(word >> 8U));
        bytes.push_back(static_cast<std::uint8_t>(word));
    }

    GenericBench& bench_;
    const GenericCase& row_;
};

}  // namespace quillon::test
