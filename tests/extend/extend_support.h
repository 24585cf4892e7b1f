// SPDX-License-Identifier: MIT
// The per-area operations: one device for each type that the generic engine serves, and what is
// expected of it on the wire.
#pragma once

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "app/text.h"
#include "flows/flow_support.h"
#include "link/words.h"
#include "support/bench.h"

namespace quillon::test {

struct ExtendCase {
    std::string_view device;
    int delay;  // milliseconds between the supplies
    char power;
    std::string_view write_pgm;
    std::string_view write_eep;
    std::string_view write_cfg;
    unsigned config_words = 8;      // of the configuration area in a read
    unsigned written_words = 8;     // and in a write
    bool pgm_erase_is_chip = true;  // what the erase of the program side sends
};

inline void PrintTo(const ExtendCase& row, std::ostream* out) { *out << row.device; }

inline constexpr ExtendCase kFlash0{.device = "PIC16F84A",
                                    .delay = 10,
                                    .power = 'N',
                                    .write_pgm = "wef",
                                    .write_eep = "wed",
                                    .write_cfg = "wec",
                                    .pgm_erase_is_chip = false};
inline constexpr ExtendCase kFlash1{.device = "PIC16F628A",
                                    .delay = 5,
                                    .power = 'n',
                                    .write_pgm = "we8",
                                    .write_eep = "wed",
                                    .write_cfg = "wec"};
// No EEPROM, and no erase of program memory alone.
inline constexpr ExtendCase kFlash2{.device = "PIC16F76",
                                    .delay = 10,
                                    .power = 'N',
                                    .write_pgm = "wEe",
                                    .write_eep = "",
                                    .write_cfg = "wEc",
                                    .pgm_erase_is_chip = false};
inline constexpr ExtendCase kFlash4{.device = "PIC16F819",
                                    .delay = 2,
                                    .power = 'N',
                                    .write_pgm = "wHe",
                                    .write_eep = "wId",
                                    .write_cfg = "wFc"};
inline constexpr ExtendCase kFlash49{.device = "PIC16F88",
                                     .delay = 2,
                                     .power = 'N',
                                     .write_pgm = "wHe",
                                     .write_eep = "wId",
                                     .write_cfg = "wJc",
                                     .config_words = 16,
                                     .written_words = 9};
inline constexpr ExtendCase k12F6{.device = "PIC12F675",
                                  .delay = 5,
                                  .power = 'n',
                                  .write_pgm = "wee",
                                  .write_eep = "wed",
                                  .write_cfg = "wec"};
inline constexpr std::array kExtendCases{kFlash0, kFlash1, kFlash2, kFlash4, kFlash49, k12F6};
inline constexpr std::array kExtendCasesWithEeprom{kFlash0, kFlash1, kFlash4, kFlash49, k12F6};

inline std::string extend_name(const testing::TestParamInfo<ExtendCase>& info) {
    return std::string{info.param.device};
}

class ExtendBench : public Bench {
  public:
    explicit ExtendBench(const ExtendCase& row)
        : Bench{row.device,
                {{"PIC16F84A"},
                 {"PIC16F628A"},
                 {"PIC16F76"},
                 {"PIC16F819"},
                 {"PIC16F88"},
                 {"PIC12F675"},
                 {"PIC16F690"},
                 {"PIC12C508A"},
                 {"PIC16C54"},
                 {"PIC16F877A"}}},
          row_{row} {}

    // Copies the image into the part, which keeps its calibration word and band gap.
    void program_part() {
        const auto word = target().program.back();
        const auto gap = static_cast<std::uint16_t>(target().config[0] & 0x3000U);
        program_target();
        if (!is_12F6()) return;
        target().program.back() = word;
        target().config[0] = static_cast<std::uint16_t>((target().config[0] & 0x0FFFU) | gap);
    }
    bool is_12F6() const { return row_.device == k12F6.device; }

    std::string check() const {
        return fmt::format("> ***?  < ZQ-LDR412A V6.80\n> mD {0:02X}  < {0:02X}\n", row_.delay);
    }
    std::string erase(std::string_view mode) const {
        return fmt::format("> {}bd {}  < @\n", row_.power, mode);
    }
    std::string count(std::int32_t n) const {
        return hex(static_cast<unsigned>(n) / 256, 2) + " " +
               hex(static_cast<unsigned>(n) % 256, 2);
    }
    // The configuration area, its first block acknowledged behind its 16 bytes.
    std::string config() { return config_of(target()); }
    std::string config_of(const SimulatedTarget& part) const {
        std::vector<std::uint8_t> bytes;
        for (std::size_t w = 0; w < row_.config_words; ++w) put(bytes, part.read_area(w));
        return fmt::format("> {}rsc 00 {:02X}  < {}  > @{}  < @\n", row_.power, row_.config_words,
                           ExpectedWire::shown(bytes), row_.config_words == 8 ? "" : " x2");
    }
    std::string read_word() {
        return fmt::format("> {}br {}  < {:02X} {:02X} @\n", row_.power, count(session().PgmWords),
                           target().program.back() >> 8U, target().program.back() & 0xFFU);
    }
    std::string write_word(unsigned value) const {
        return fmt::format("> {}bw {} 34 {:02X}  < @\n", row_.power, count(run->session.PgmWords),
                           value);
    }
    std::string write(std::string_view letters, std::int32_t words,
                      std::span<const std::uint8_t> data) const {
        return fmt::format("> {}{} {}", row_.power, letters, count(words)) +
               ExpectedWire::items(data, "@");
    }
    std::string write_pgm() const {
        return write(row_.write_pgm, run->session.PgmWords, program_image());
    }
    std::string write_eep() const {
        return write(row_.write_eep, run->session.EepBytes, eeprom_image());
    }
    std::string read(std::string_view letters, std::int32_t words,
                     std::span<const std::uint8_t> data) const {
        const auto blocks = data.size() / 16;
        return fmt::format("> {}{} {}  < {}  > @{}  < @\n", row_.power, letters, count(words),
                           ExpectedWire::shown(data),
                           blocks == 1 ? "" : fmt::format(" x{}", blocks));
    }
    std::string read_pgm() {
        return read("rsp", session().PgmWords, ExpectedWire{*this}.program_of_target());
    }
    std::string read_eep() {
        return read("rsd", session().EepBytes, ExpectedWire{*this}.eeprom_of_target());
    }
    static void put(std::vector<std::uint8_t>& bytes, unsigned word) {
        bytes.push_back(static_cast<std::uint8_t>(word >> 8U));
        bytes.push_back(static_cast<std::uint8_t>(word));
    }

    // The two lines of a check that found the board.
    Lines found() const {
        return {"ライターを COM3に検出しました。",
                fmt::format("電源印加遅延時間　設定＝ {} ミリ秒", row_.delay)};
    }
    bool was_shown(std::string_view line) const {
        return std::ranges::find(shown->lines, line) != shown->lines.end();
    }

  private:
    const ExtendCase& row_;
};

inline Lines stages(std::initializer_list<Lines> all) {
    Lines lines;
    for (const auto& stage : all) lines.insert(lines.end(), stage.begin(), stage.end());
    return lines;
}

inline const Lines kReadWordLines{"指定プログラムメモリのデータリード中..........",
                                  "指定プログラムメモリのデータリード成功。"};
inline const Lines kWriteWordLines{"指定プログラムメモリのデータライト中..........",
                                   "指定プログラムメモリのデータライト成功。"};
inline const Lines kChipErased{"チップイレース(コードプロテクト解除)中.....", "成功。"};
inline const Lines kPgmErased{"Ｆｌａｓｈプログラムメモリ消去中.........",
                              "プログラムメモリを消去ました。"};
inline const Lines kEepErased{"ＥＥＰＲＯＭデータメモリ消去中.........", "成功。"};

}  // namespace quillon::test
