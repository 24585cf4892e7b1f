// SPDX-License-Identifier: MIT
// The 12-bit types that no family serves: what is expected of each on the wire, and parts with a
// content of their own.
#pragma once

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
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

// Letters behind the power letter, as they are listed for the type.
struct BaselineType {
    std::string_view device;
    std::string_view delay;  // between the supplies, in the digits of the wire log
    std::string_view blank;
    std::string_view read_pgm;
    std::string_view read_cfg;
    std::string_view write_pgm;
    std::string_view write_cfg;
    std::uint16_t calibration = 0;  // the factory's last word, 0 for a part that has none
};

inline void PrintTo(const BaselineType& type, std::ostream* out) { *out << type.device; }

inline constexpr BaselineType k5X18{"PIC16C54", "0A", "bps", "rps", "rps", "wps", "wps"};
inline constexpr BaselineType k5X28{"PIC16C57", "0A", "bpl", "rpl", "rpl", "wpl", "wpl"};
inline constexpr BaselineType k12C5{"PIC16C505", "02", "bs", "rsp", "rsc", "wsp", "wsc", 0x0C5A};
inline constexpr BaselineType k12C5Small{"PIC12CE518", "02",  "bs",  "rsp",
                                         "rsc",        "wsp", "wsc", 0x0C33};
// A device that a user has entered. No write letters are listed for program memory of this type.
inline constexpr BaselineType k10F2{"PIC12F599", "02", "bs", "rsp", "rsc", "", "wec", 0x0C27};

inline std::string baseline_name(const testing::TestParamInfo<BaselineType>& info) {
    return std::string{info.param.device};
}

// A bench with the type's device: a fresh part with its calibration word is in the socket.
class BaselineBench : public Bench {
  public:
    explicit BaselineBench(const BaselineType& type)
        : Bench{type.device,
                {{"PIC16C54"},
                 {"PIC16C55"},
                 {"PIC16C56"},
                 {"PIC16C57"},
                 {"PIC16C505"},
                 {"PIC12CE518"},
                 {.device = "PIC12F508", .name = "PIC12F599"}}},
          type_{type} {
        calibrate(type.calibration);
    }

    // The factory's word in the last location, 0 to leave it alone.
    void calibrate(std::uint16_t word) {
        if (word != 0) target().program.back() = word;
    }
    // Copies the image into the part, which keeps its calibration word.
    void program_part() {
        program_target();
        calibrate(type_.calibration);
    }
    // What every address of the part holds: configuration, program memory, four ID words.
    std::vector<std::uint8_t> stream() {
        std::vector<std::uint8_t> bytes;
        const auto words = static_cast<std::size_t>(session().PgmWords) + 5;
        for (std::size_t w = 0; w < words; ++w) put(bytes, target().read_line(w));
        return bytes;
    }
    // What is written: the configuration word without its protection, program memory, ID words.
    std::vector<std::uint8_t> image_stream() {
        std::vector<std::uint8_t> bytes;
        put(bytes, session().ConfigWord[1] | session().CpMask);
        const auto program = program_image();
        bytes.insert(bytes.end(), program.begin(), program.end());
        const auto& area = session().CfgIdMem;
        bytes.insert(bytes.end(), area.begin(), area.begin() + 8);
        return bytes;
    }
    static void put(std::vector<std::uint8_t>& bytes, unsigned word) {
        bytes.push_back(static_cast<std::uint8_t>(word >> 8U));
        bytes.push_back(static_cast<std::uint8_t>(word));
    }

    std::string check() const {
        return fmt::format("> ***?  < ZQ-LDR412A V6.80\n> mD {0}  < {0}\n", type_.delay);
    }
    // Counts beyond the program words: 5 for the whole part.
    std::string count(unsigned beyond) const {
        const auto n = static_cast<unsigned>(run->session.PgmWords) + beyond;
        return hex(n / 256, 2) + " " + hex(n % 256, 2);
    }
    // The answer to a blank test, its words in the log's digits.
    std::string blank(unsigned beyond, std::string_view answer) const {
        return fmt::format("> N{} {}  < {}\n", type_.blank, count(beyond), answer);
    }
    std::string read_pgm(std::span<const std::uint8_t> data, std::string_view end = "@") const {
        return fmt::format("> N{} {}  < {}  > @ x{}  < {}\n", type_.read_pgm, count(5),
                           ExpectedWire::shown(data), data.size() / 16, end);
    }
    std::string read_cfg(unsigned word, std::string_view end = "@") const {
        return fmt::format("> N{} 00 01  < {:02X} {:02X}  < {}\n", type_.read_cfg, word >> 8U,
                           word & 0xFFU, end);
    }
    std::string write_pgm(std::span<const std::uint8_t> data, std::string_view end = "@") const {
        return fmt::format("> N{} {}", type_.write_pgm, count(5)) + ExpectedWire::items(data, end);
    }
    std::string write_cfg(unsigned word, std::string_view end = "@") const {
        // The board asks for this one word of serial parts with "@", which is a request here.
        return fmt::format("> N{} 00 01  < {}  > {:02X} {:02X}  < {}\n", type_.write_cfg,
                           type_.write_cfg == "wsc" ? "@" : "+", word >> 8U, word & 0xFFU, end);
    }
    // The lines of the check, then the given ones.
    Lines lines_after_check(const Lines& lines) const {
        Lines all{"ライターチェック中..........", "ライターを COM3に検出しました。",
                  type_.delay == "0A" ? "電源印加遅延時間　設定＝ 10 ミリ秒"
                                      : "電源印加遅延時間　設定＝ 2 ミリ秒"};
        all.insert(all.end(), lines.begin(), lines.end());
        return all;
    }

  private:
    const BaselineType& type_;
};

inline Lines in_order(std::initializer_list<Lines> stages) {
    Lines all;
    for (const auto& stage : stages) all.insert(all.end(), stage.begin(), stage.end());
    return all;
}

}  // namespace quillon::test
