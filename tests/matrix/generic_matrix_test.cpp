// SPDX-License-Identifier: MIT
// Every device that no family claims, in every operation, in virtual time. Each cell is judged by
// what the part in the socket and the image hold afterwards, not by the outcome alone.
//
// The test prints the matrix. A cell is "ok", or the reason why the device hasn't the operation:
//   otp  a one-time part can't be erased, and a used one can't take another program
//   none the device has no EEPROM: the operation sends nothing and fails
//   chip the device knows the chip erase only
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>
#include <vector>

#include "image/config_area.h"
#include "link/words.h"
#include "parts/modules.h"
#include "support/bench.h"
#include "support/bench_image.h"

namespace quillon::test {

namespace {

constexpr std::uint16_t kWord14 = 0x3FFF;

class Cell {
  public:
    explicit Cell(std::string_view device) : bench{device, {CatalogueBlock{device}}} {
        bench.dialogs.hint_answer = 1;
        bench.notes_expected = true;  // an erase that the part doesn't know is noted
        blank = bench.target();
    }

    bool one_time() { return bench.target().memory == ProgramMemory::OneTime; }
    bool has_eeprom() { return bench.session().EepBytes != 0; }
    bool chip_erase_only() { return bench.target().chip_erase_only; }
    bool calibrated() { return bench.target().osccal_word || logs_calibration(type()); }
    ProgrammingType type() { return bench.session().PgmType; }
    std::size_t words() { return bench.target().program.size(); }

    // A part that holds the image, with the factory's calibration of the blank one.
    void insert_programmed() {
        bench.target() = blank;
        bench.program_target();
        if (calibrated()) bench.target().program.back() = blank.program.back();
        if (type() == ProgrammingType::T12F6)
            bench.target().config[0] = static_cast<std::uint16_t>(
                (bench.target().config[0] & 0x0FFF) | (blank.config[0] & 0x3000));
    }
    // A part with another program.
    void insert_used() {
        insert_programmed();
        for (std::size_t w = 0; w + 1 < words(); ++w) bench.target().program[w] ^= 0x0055;
        for (auto& cell : bench.target().eeprom) cell ^= 0x5A;
    }

    std::uint16_t image_word(std::size_t w) {
        return word_high_first(bench.session().PgmMem[2 * w], bench.session().PgmMem[2 * w + 1]);
    }
    bool holds_program() {
        const auto end = words() - (calibrated() ? 1 : 0);
        for (std::size_t w = 0; w < end; ++w)
            if (bench.target().program[w] != image_word(w)) return false;
        return !calibrated() || bench.target().program.back() == blank.program.back();
    }
    bool holds_config() {
        for (std::size_t n = 1; n <= bench.target().config.size(); ++n) {
            const auto held = bench.target().config[n - 1];
            const auto wanted = config_area::word(bench.session().CfgIdMem, n);
            if (((held ^ wanted) & bench.target().config_mask[n - 1] & kWord14) != 0) return false;
        }
        for (std::size_t i = 0; i < 4; ++i)
            if ((bench.target().id[i] & 0x0F) != (bench.session().CfgIdMem[2 * i + 1] & 0x0F))
                return false;
        return true;
    }
    bool holds_eeprom() {
        for (std::size_t c = 0; c < bench.target().eeprom.size(); ++c)
            if (bench.target().eeprom[c] != bench.session().EepMem[2 * c + 1]) return false;
        return true;
    }
    bool program_is_blank() {
        for (std::size_t w = 0; w + 1 < words(); ++w)
            if (bench.target().program[w] != bench.target().blank_word) return false;
        return bench.target().program.back() ==
               (calibrated() ? blank.program.back() : bench.target().blank_word);
    }
    bool eeprom_is_blank() {
        for (const auto cell : bench.target().eeprom)
            if (cell != 0xFF) return false;
        return true;
    }
    bool config_is_blank() {
        return bench.target().config == blank.config && bench.target().id == blank.id;
    }
    std::string sent() { return bench.wire(); }

    Bench bench;
    SimulatedTarget blank;
};

constexpr std::string_view kOk = "ok";
constexpr std::string_view kBad = "BAD";

std::string_view ok(bool good) { return good ? kOk : kBad; }

std::string_view blank_check(Cell& cell) {
    cell.bench.target() = cell.blank;
    if (cell.bench.run->flows.Command_blank() != Outcome::Success) return kBad;
    cell.insert_used();
    return ok(cell.bench.run->flows.Command_blank() == Outcome::Failed);
}

std::string_view read(Cell& cell) {
    cell.insert_used();
    if (cell.bench.run->flows.Command_read() != Outcome::Success) return kBad;
    const bool same = cell.holds_program() && cell.holds_config() && cell.holds_eeprom();
    cell.bench.fill_image();
    return ok(same);
}

// The part that the program has just written, and the same with one bit changed.
std::string_view verify(Cell& cell) {
    if (cell.bench.run->flows.Command_Verify() != Outcome::Success) return kBad;
    cell.bench.target().program[cell.words() / 2] ^= 0x0004;
    return ok(cell.bench.run->flows.Command_Verify() == Outcome::Failed);
}

std::string_view program_blank(Cell& cell) {
    cell.bench.target() = cell.blank;
    const auto outcome = cell.bench.run->flows.Command_program();
    return ok(outcome == Outcome::Success && cell.holds_program() && cell.holds_config() &&
              cell.holds_eeprom());
}

std::string_view program_used(Cell& cell) {
    cell.insert_used();
    const auto outcome = cell.bench.run->flows.Command_program();
    if (cell.one_time()) return outcome == Outcome::Failed ? "otp" : kBad;
    return ok(outcome == Outcome::Success && cell.holds_program() && cell.holds_config() &&
              cell.holds_eeprom());
}

std::string_view chip_erase(Cell& cell) {
    cell.insert_used();
    const auto outcome = cell.bench.run->extend.Cmd_Chip_Erace_Click();
    if (cell.one_time())
        return outcome == Outcome::Failed && !cell.program_is_blank() ? "otp" : kBad;
    return ok(outcome == Outcome::Success && cell.program_is_blank() && cell.eeprom_is_blank() &&
              cell.config_is_blank());
}

std::string_view pgm_erase(Cell& cell) {
    cell.insert_used();
    const auto outcome = cell.bench.run->extend.Cmd_PGM_Erase_Click();
    if (cell.one_time()) return outcome == Outcome::Failed ? "otp" : kBad;
    if (cell.chip_erase_only()) return outcome == Outcome::Failed ? "chip" : kBad;
    return ok(outcome == Outcome::Success && cell.program_is_blank());
}

// Without EEPROM: nothing but the check goes over the wire.
std::string_view none(Cell& cell, Outcome outcome) {
    const auto wire = cell.sent();
    const auto lines = std::count(wire.begin(), wire.end(), '\n');
    return outcome == Outcome::Failed && lines == 2 ? "none" : kBad;
}

std::string_view data_erase(Cell& cell) {
    cell.insert_used();
    cell.sent();
    const auto outcome = cell.bench.run->extend.Cmd_DATA_Erase_Click();
    if (!cell.has_eeprom()) return none(cell, outcome);
    return ok(outcome == Outcome::Success && cell.eeprom_is_blank());
}

std::string_view pgm_program(Cell& cell) {
    cell.bench.target() = cell.blank;
    const auto outcome = cell.bench.run->extend.Cmd_PGM_Program_Click();
    return ok(outcome == Outcome::Success && cell.holds_program() && cell.holds_config() &&
              cell.eeprom_is_blank());
}

std::string_view data_program(Cell& cell) {
    cell.insert_used();
    cell.sent();
    const auto program = cell.bench.target().program;
    const auto outcome = cell.bench.run->extend.Cmd_DATA_Program_Click();
    if (!cell.has_eeprom()) return none(cell, outcome);
    return ok(outcome == Outcome::Success && cell.holds_eeprom() &&
              cell.bench.target().program == program);
}

std::string_view pgm_read(Cell& cell) {
    cell.insert_used();
    const auto eeprom = cell.bench.session().EepMem;
    const auto outcome = cell.bench.run->extend.Cmd_PGM_Read_Click();
    const bool good = outcome == Outcome::Success && cell.holds_program() && cell.holds_config() &&
                      cell.bench.session().EepMem == eeprom;
    cell.bench.fill_image();
    return ok(good);
}

std::string_view data_read(Cell& cell) {
    cell.insert_used();
    cell.sent();
    const auto program = cell.bench.program_image();
    const auto outcome = cell.bench.run->extend.Cmd_DATA_Read_Click();
    if (!cell.has_eeprom()) return none(cell, outcome);
    const bool good =
        outcome == Outcome::Success && cell.holds_eeprom() && cell.bench.program_image() == program;
    cell.bench.fill_image();
    return ok(good);
}

struct Column {
    std::string_view title;
    std::string_view (*judge)(Cell&);
};

constexpr std::array kColumns{
    Column{"blank", blank_check},      Column{"read", read},
    Column{"program", program_blank},  Column{"verify", verify},
    Column{"prog.used", program_used}, Column{"chip-er.", chip_erase},
    Column{"pgm-er.", pgm_erase},      Column{"data-er.", data_erase},
    Column{"pgm-prog.", pgm_program},  Column{"data-prog.", data_program},
    Column{"pgm-read", pgm_read},      Column{"data-read", data_read},
};

std::vector<std::string> generic_devices() {
    std::vector<std::string> devices;
    for (const auto& name : shipped_devices())
        if (module_of(name) == Module::Generic) devices.push_back(name);
    return devices;
}

}  // namespace

TEST(generic_matrix, holds_for_every_device_in_every_operation) {
    const auto devices = generic_devices();
    EXPECT_EQ(devices.size(), 86U);
    std::string table = fmt::format("{:<12} {:<9}", "device", "type");
    for (const auto& column : kColumns) table += fmt::format(" {:<10}", column.title);
    for (const auto& device : devices) {
        Cell cell{device};
        table += fmt::format("\n{:<12} {:<9}", device, cell.bench.session().PgmType.text());
        for (const auto& column : kColumns) {
            cell.bench.restart_the_clock();
            const auto verdict = column.judge(cell);
            table += fmt::format(" {:<10}", verdict);
            EXPECT_NE(verdict, kBad) << device << " " << column.title << "\n"
                                     << fmt::format("{}", fmt::join(cell.bench.shown->lines, "\n"));
            cell.bench.shown->lines.clear();
            cell.bench.wire();
        }
    }
    std::puts(table.c_str());
}

}  // namespace quillon::test
