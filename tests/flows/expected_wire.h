// SPDX-License-Identifier: MIT
// The exchanges of an operation in the wire log's notation, built from the contents of image and
// part.
//
// What sets the families apart on the wire is in their rows. All these parts raise VDD first ("N")
// and have a power delay of 10 ms.
#pragma once

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "app/text.h"
#include "board/wire_log.h"
#include "support/bench.h"
#include "support/family_case.h"

namespace quillon::test {

class ExpectedWire {
  public:
    explicit ExpectedWire(Bench& bench)
        : bench_{bench},
          family_{case_of(bench.device())},
          pgm_count_{hex_count(bench.session().PgmWords)},
          eep_count_{hex_count(bench.session().EepBytes)} {}

    static std::string check() { return "> ***?  < ZQ-LDR412A V6.80\n> mD 0A  < 0A\n"; }

    // The "c" area: four ID words, two that hold nothing, the identity, the configuration word.
    std::string config(std::string_view end = "@") const {
        return "> Nrsc 00 08  < " + area() + "  > @  < " + std::string{end} + "\n";
    }
    std::string blank_pgm(std::string_view word, std::string_view end = "@") const {
        return fmt::format("> Nbs {}  < {} {}\n", pgm_count_, word, end);
    }
    std::string read_pgm(std::span<const std::uint8_t> data, std::string_view end = "@") const {
        return read("> Nrsp " + pgm_count_, data, end);
    }
    std::string read_eep(std::span<const std::uint8_t> data, std::string_view end = "@") const {
        return read("> Nrsd " + eep_count_, data, end);
    }
    // The n-th of the family's erases.
    std::string erase(std::size_t n) const {
        return fmt::format("> N{}  < @\n", family_.erases[n].command);
    }
    // All that the device needs.
    std::string erase_all() const {
        std::string all;
        for (std::size_t n = 0; n < family_.erases.size(); ++n)
            if (!family_.erases[n].of_eeprom || bench_.session().EepBytes != 0) all += erase(n);
        return all;
    }
    std::string erase_eep() const { return erase(family_.erases.size() - 1); }
    // The letters and the count with which a write begins.
    std::string begin_write_pgm() const {
        return fmt::format("> N{} {}", family_.write_pgm, pgm_count_);
    }
    std::string begin_write_eep() const {
        return fmt::format("> N{} {}", family_.write_eep, eep_count_);
    }
    std::string begin_write_cfg() const { return fmt::format("> N{} 00 08", family_.write_cfg); }

    std::string write_pgm(std::string_view end = "@") const {
        return begin_write_pgm() + items(bench_.program_image(), end);
    }
    std::string write_eep(std::string_view end = "@") const {
        return begin_write_eep() + items(bench_.eeprom_image(), end);
    }
    // The three words between ID and configuration have the mark for words that aren't written.
    std::string write_cfg(std::string_view end = "@") const {
        return begin_write_cfg() + items(config_items(), end);
    }
    std::vector<std::uint8_t> config_items() const {
        auto bytes = std::vector<std::uint8_t>(bench_.session().CfgIdMem.begin(),
                                               bench_.session().CfgIdMem.begin() + 16);
        for (const std::size_t i : {8U, 10U, 12U}) bytes[i] |= 0x80;
        return bytes;
    }

    // Ready bytes and items of a write stream up to its last byte.
    static std::string items(std::span<const std::uint8_t> data, std::string_view end) {
        return fmt::format("  < + x{}  > {}  < {}\n", data.size() / 2, shown(data), end);
    }
    // Data bytes as the log shows them.
    static std::string shown(std::span<const std::uint8_t> data) {
        constexpr std::size_t kInFull = 40;
        std::string pairs;
        for (const auto byte : data.first(std::min(data.size(), kInFull)))
            pairs += (pairs.empty() ? "" : " ") + hex(byte, 2);
        if (data.size() <= kInFull) return pairs;
        bool alike = true;
        for (std::size_t i = 2; i < data.size(); ++i) alike = alike && data[i] == data[i - 2];
        if (alike) return fmt::format("{} x {}", data.size() / 2, pairs.substr(0, 5));
        return fmt::format("{} bytes {:08X}", data.size(), crc32(data));
    }

    // The program memory as the part in the socket sends it.
    std::vector<std::uint8_t> program_of_target() const {
        std::vector<std::uint8_t> bytes;
        for (std::size_t w = 0; w < bench_.target().program.size(); ++w)
            put(bytes, bench_.target().read_program(w));
        return bytes;
    }
    std::vector<std::uint8_t> eeprom_of_target() const {
        std::vector<std::uint8_t> bytes;
        const bool zeros = bench_.target().eeprom_protected();
        for (std::size_t c = 0; c < bench_.target().eeprom.size(); ++c)
            put(bytes, zeros ? 0U : 0x3F00U | bench_.target().eeprom[c]);
        return bytes;
    }
    std::string area() const {
        std::vector<std::uint8_t> bytes;
        for (std::size_t w = 0; w < 8; ++w) put(bytes, bench_.target().read_area(w));
        return shown(bytes);
    }

  private:
    static std::string hex_count(std::int32_t count) {
        return hex(static_cast<unsigned>(count) / 256, 2) + " " +
               hex(static_cast<unsigned>(count) % 256, 2);
    }
    static void put(std::vector<std::uint8_t>& bytes, unsigned word) {
        bytes.push_back(static_cast<std::uint8_t>(word >> 8U));
        bytes.push_back(static_cast<std::uint8_t>(word));
    }
    static std::string read(const std::string& head, std::span<const std::uint8_t> data,
                            std::string_view end) {
        const auto blocks = data.size() / 16;
        return fmt::format("{}  < {}  > @{}  < {}\n", head, shown(data),
                           blocks == 1 ? "" : fmt::format(" x{}", blocks), end);
    }

    Bench& bench_;
    const FamilyCase& family_;
    std::string pgm_count_;
    std::string eep_count_;
};

}  // namespace quillon::test
