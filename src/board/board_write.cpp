// SPDX-License-Identifier: MIT
// The writes behind "w": the board asks for each item with one byte, and ends with "@".
//
// The board breaks a write off with two or more bytes at once. In a program memory write they begin
// with "@". In a write that the board checks item by item (EEPROM, configuration, 12-bit stream)
// they are "*" and the word that was read back, high byte first.
#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <string_view>

#include "board/board_program.h"

namespace quillon::firmware {

namespace {

// In a configuration item's high byte: not to be written. On parts with words of 16 bits it is a
// bit like any other.
constexpr std::uint8_t kLeaveOut = 0x80;

struct WriteLetters {
    std::string_view letters;
    Area area;
    WordWrite how = WordWrite::ClearsBits;
};

// Parts of the first flash generation, and the modules that hold one, erase a word before they
// write it. These algorithms are for such parts.
constexpr auto kErasesFirst = WordWrite::ErasesFirst;
constexpr std::array kLetters{
    WriteLetters{"ps", Area::Program},
    WriteLetters{"pl", Area::Program},
    WriteLetters{"sp", Area::Program},
    WriteLetters{"Sp", Area::Program},
    WriteLetters{"ee", Area::Program},
    WriteLetters{"e8", Area::Program, kErasesFirst},
    WriteLetters{"e5", Area::Program, kErasesFirst},
    WriteLetters{"e1", Area::Program},
    WriteLetters{"ef", Area::Program, kErasesFirst},
    WriteLetters{"Ee", Area::Program},
    WriteLetters{"He", Area::Program},
    WriteLetters{"he", Area::Program},
    WriteLetters{"84", Area::Program, kErasesFirst},
    WriteLetters{"7e", Area::Program},
    WriteLetters{"7a", Area::Program},
    WriteLetters{"7b", Area::Program},
    WriteLetters{"Ge", Area::Program},
    WriteLetters{"Ga", Area::Program},
    WriteLetters{"Gb", Area::Program},
    WriteLetters{"Gk", Area::Program},
    WriteLetters{"Gj", Area::Program},
    WriteLetters{"Gm", Area::Program},
    WriteLetters{"Gn", Area::Program},
    WriteLetters{"Gp", Area::Program},
    WriteLetters{"Gq", Area::Program},
    WriteLetters{"Gt", Area::Program},
    WriteLetters{"eJ", Area::Program},
    WriteLetters{"5g", Area::Program},
    WriteLetters{"ed", Area::Eeprom},
    WriteLetters{"Id", Area::Eeprom},
    WriteLetters{"8d", Area::Eeprom},
    WriteLetters{"ec", Area::Config},
    WriteLetters{"ek", Area::Config},
    WriteLetters{"sc", Area::Config},
    WriteLetters{"Sc", Area::Config},
    WriteLetters{"Ec", Area::Config},
    WriteLetters{"Fc", Area::Config},
    WriteLetters{"Jc", Area::Config},
    WriteLetters{"8c", Area::Config},
    WriteLetters{"6c", Area::Config},
    WriteLetters{"hc", Area::Config},
    WriteLetters{"Gi", Area::Config},
    WriteLetters{"G<", Area::Config},
};

}  // namespace

Routine<void> BoardProgram::write() {
    using enum Area;
    co_await letter();
    co_await letter();
    const auto* known =
        std::ranges::find(kLetters, std::string_view{letters_}.substr(1), &WriteLetters::letters);
    if (known == kLetters.end()) co_await unknown();
    const bool line = bench_.socket.target.core == Core::Bits12;
    if (!suits_write()) {
        co_await write_in_vain(line || known->area != Program);
        co_return;
    }
    switch (known->area) {
        case Eeprom:
            co_await write_eeprom();
            break;
        case Config:
            if (line)
                co_await write_single_config();
            else
                co_await write_config();
            break;
        case Program:
            if (line)
                co_await write_line(known->how);
            else
                co_await write_program(known->how);
            break;
    }
}

// The parts with parity and those that are written in parallel have algorithms of their own.
bool BoardProgram::suits_write() {
    const SimulatedTarget& target = bench_.socket.target;
    const std::string_view letters = std::string_view{letters_}.substr(1);
    bool suitable = true;
    if (target.algorithm == 'S') suitable = letters[0] == 'S';
    if (target.algorithm == 'p') suitable = letters == "ps";
    if (target.algorithm == 'l') suitable = letters == "pl";
    if (!suitable)
        note(fmt::format("\"{}\": {} isn't written by these letters", letters_, target.name));
    return suitable;
}

// These parts get pulses until a word reads back equal, which none does.
Routine<void> BoardProgram::write_in_vain(bool reported) {
    co_await word();
    begin_exchange();
    send_ready();
    co_await item(2);
    co_await machine_.elapse(bench_.times.program_word);
    if (reported) {
        report_failure(0);
    } else {
        const std::array<std::uint8_t, 2> report{'@', '@'};
        send_report(report);
    }
}

bool BoardProgram::aborted(std::size_t items, std::uint8_t mark) {
    if (!bench_.faults.aborts_write(items)) return false;
    const std::array report{mark, mark};
    send_report(report);
    return true;
}

void BoardProgram::report_failure(std::uint16_t held) {
    const std::array<std::uint8_t, 4> report{'*', static_cast<std::uint8_t>(held >> 8),
                                             static_cast<std::uint8_t>(held), '@'};
    send_report(report);
}

Routine<void> BoardProgram::write_program(WordWrite how) {
    const std::size_t count = co_await word();
    begin_exchange();
    Socket& socket = bench_.socket;
    if (count > socket.target.program.size())
        note(fmt::format("\"{}\": {} words for a part of {}", letters_, count,
                         socket.target.program.size()));
    for (std::size_t i = 0; i < count; ++i) {
        if (aborted(i, '@')) co_return;
        send_ready();
        const Item taken = co_await item(2);
        socket.write_program(i, taken.word(), how);
        co_await machine_.elapse(bench_.times.program_word);
        // A one-time part gets pulses until the word reads back equal. A word that never does ends
        // the write.
        const bool pulsed = socket.target.memory == ProgramMemory::OneTime;
        if (pulsed && socket.read_program(i) != (taken.word() & socket.target.blank_word)) {
            const std::array<std::uint8_t, 2> report{'@', '@'};
            send_report(report);
            co_return;
        }
    }
    if (aborted(count, '@')) co_return;
    send_end();
}

Routine<void> BoardProgram::write_eeprom() {
    const std::size_t count = co_await word();
    begin_exchange();
    Socket& socket = bench_.socket;
    for (std::size_t i = 0; i < count; ++i) {
        if (bench_.faults.aborts_write(i)) {
            report_failure(i == 0 ? std::uint16_t{0xFF} : socket.read_eeprom(i - 1));
            co_return;
        }
        send_ready();
        const Item taken = co_await item(2);
        socket.write_eeprom(i, taken.bytes[1]);
        co_await machine_.elapse(bench_.times.eeprom_cell);
        if (socket.read_eeprom(i) != taken.bytes[1]) {
            report_failure(socket.read_eeprom(i));
            co_return;
        }
    }
    send_end();
}

Routine<void> BoardProgram::write_config() {
    const std::size_t count = co_await word();
    begin_exchange();
    Socket& socket = bench_.socket;
    for (std::size_t i = 0; i < count; ++i) {
        if (bench_.faults.aborts_write(i)) {
            report_failure(i == 0 ? std::uint16_t{0} : socket.read_area(i - 1));
            co_return;
        }
        send_ready();
        const Item taken = co_await item(2);
        if ((taken.bytes[0] & kLeaveOut) != 0 && !socket.target.wide()) continue;
        const std::uint16_t value = area_order(i, taken.word());
        socket.write_area(i, value);
        co_await machine_.elapse(bench_.times.config_word);
        const std::uint16_t held = socket.read_area(i);
        if (((held ^ value) & socket.target.area_mask(i)) != 0) {
            report_failure(area_order(i, held));
            co_return;
        }
    }
    send_end();
}

}  // namespace quillon::firmware
