// SPDX-License-Identifier: MIT
// The commands behind "b": blank checks, single words, erases.
//
// The address of a single word counts from 1. Address 1 is word 0 of program memory. On 12-bit
// parts it is the configuration word, the first word of their address range.
//
// The count of a blank check on a 12-bit part includes that leading word, but the check leaves it
// out. So a count of P ends before the last program word, P + 1 includes it, P + 5 the ID words.
// On a 14-bit part with a calibration word the check leaves that word out, so a fresh part is
// blank.
#include <fmt/core.h>

#include <algorithm>
#include <array>

#include "board/board_program.h"

namespace quillon::firmware {
namespace {

struct EraseMode {
    std::uint8_t mode;
    Erasure erases;
};

constexpr Erasure kProgram{.program = true};
constexpr Erasure kEeprom{.eeprom = true};
constexpr Erasure kProgramConfig{.program = true, .config = true};
constexpr Erasure kChip{.program = true, .eeprom = true, .config = true};
constexpr Erasure kChipCalibration{
    .program = true, .eeprom = true, .config = true, .calibration = true};
constexpr std::uint8_t kChipErase = 0x0A;
constexpr std::uint8_t kWithPlace = 0x11;  // two bytes follow: how far to count before the pulse

constexpr std::array kModes{
    EraseMode{0x01, kProgramConfig},
    EraseMode{0x02, kProgram},
    EraseMode{0x03, kEeprom},
    EraseMode{0x07, kChip},
    EraseMode{0x08, kProgram},
    EraseMode{kChipErase, kChip},
    EraseMode{0x0B, kProgram},
    EraseMode{0x0C, kEeprom},
    EraseMode{0x0E, kProgramConfig},
    EraseMode{0x0F, kEeprom},
    // 12-bit parts: the OSCCAL words are erased too. The host has saved them before.
    EraseMode{kWithPlace, kChipCalibration},
    EraseMode{0x12, kChipCalibration},
    EraseMode{0x13, kChipCalibration},
    EraseMode{0x14, kChipCalibration},
};

}  // namespace

Routine<void> BoardProgram::blank() {
    const std::uint8_t what = co_await letter();
    switch (what) {
        case 's':
        case '8':
        case 'S':
        case 'K':
            co_await blank_check();
            break;
        case 'p':
            co_await blank_check_parallel();
            break;
        case 'r':
            co_await read_one_word();
            break;
        case 'w':
        case 'W':
            co_await write_one_word();
            break;
        case '5':
        case '6':
            co_await write_last_config();
            break;
        case 'd':
        case 'D':
            co_await erase();
            break;
        default:
            co_await unknown();
    }
}

std::uint16_t BoardProgram::and_of_words(std::size_t count) const {
    const Socket& socket = bench_.socket;
    const bool line = socket.target.core == Core::Bits12;
    std::uint16_t all = socket.target.blank_word;
    for (std::size_t i = line ? 1 : 0; i < count; ++i) {
        if (socket.target.is_osccal(i)) continue;
        const std::uint16_t word = line ? socket.read_line(i) : socket.read_program(i);
        all = static_cast<std::uint16_t>(all & word);
    }
    return all;
}

Routine<void> BoardProgram::blank_check() {
    const char algorithm = letters_.back() == 'K' ? 's' : letters_.back();
    const std::size_t count = co_await word();
    begin_exchange();
    const std::uint16_t all = suits(algorithm) ? and_of_words(count) : std::uint16_t{0};
    co_await machine_.elapse(bench_.times.check_word * static_cast<std::int64_t>(count));
    send_word(all);
    send_end();
}

Routine<void> BoardProgram::blank_check_parallel() {
    const std::uint8_t size = co_await letter();
    if (size != 's' && size != 'l') co_await unknown();
    const std::size_t count = co_await word();
    begin_exchange();
    const bool suitable = suits(size == 'l' ? 'l' : 'p');
    const std::uint16_t config = suitable ? bench_.socket.read_line(0) : std::uint16_t{0};
    const std::uint16_t all = suitable ? and_of_words(count) : std::uint16_t{0};
    co_await machine_.elapse(bench_.times.check_word * static_cast<std::int64_t>(count));
    send_word(config);
    send_word(all);
    send_end();
}

Routine<void> BoardProgram::read_one_word() {
    const std::size_t address = co_await word();
    begin_exchange();
    const Socket& socket = bench_.socket;
    const std::size_t place = address == 0 ? 0 : address - 1;
    send_word(socket.target.core == Core::Bits12 ? socket.read_line(place)
                                                 : socket.read_program(place));
    send_end();
}

Routine<void> BoardProgram::write_one_word() {
    const std::size_t address = co_await word();
    const std::uint16_t value = co_await word();
    begin_exchange();
    const std::size_t place = address == 0 ? 0 : address - 1;
    Socket& socket = bench_.socket;
    if (socket.target.core == Core::Bits12)
        socket.write_line(place, value, WordWrite::ClearsBits);
    else
        socket.write_program(place, value, WordWrite::ClearsBits);
    co_await machine_.elapse(bench_.times.program_word);
    send_end();
}

// The configuration word of PIC16F54 and PIC16F57: 0, 1 and the word, all as parameters.
Routine<void> BoardProgram::write_last_config() {
    const std::uint16_t count = co_await word();
    const std::uint16_t value = co_await word();
    begin_exchange();
    if (count == 1) bench_.socket.write_line(0, value, WordWrite::ClearsBits);
    co_await machine_.elapse(bench_.times.config_word);
    send_end();
}

// Why the part doesn't react to the erase, "" where it does.
std::string BoardProgram::erase_hindrance(char algorithm, std::uint8_t mode) const {
    const SimulatedTarget& target = bench_.socket.target;
    const char own = target.algorithm == '8' ? 'D' : 'd';
    if (target.memory == ProgramMemory::OneTime)
        return fmt::format("{} can't be erased by the board", target.name);
    if (algorithm != own) return fmt::format("{} is erased by \"{}\"", target.name, own);
    if (target.chip_erase_only && mode != kChipErase)
        return fmt::format("{} has no erase but that of the whole chip, 0x{:02X}", target.name,
                           kChipErase);
    return {};
}

// The end code says that the pulse is over, not that the part is erased.
Routine<void> BoardProgram::erase() {
    const char algorithm = letters_.back();
    const std::uint8_t mode = co_await parameter();
    const auto* known = std::ranges::find(kModes, mode, &EraseMode::mode);
    if (known == kModes.end()) {
        note(fmt::format("\"{}\": there is no erase mode 0x{:02X}", letters_, mode));
        co_await deaf();
    }
    if (mode == kWithPlace) co_await word();
    begin_exchange();
    const std::string hindrance = erase_hindrance(algorithm, mode);
    if (hindrance.empty())
        bench_.socket.erase(known->erases);
    else
        note(fmt::format("\"{}\": {}", letters_, hindrance));
    co_await machine_.elapse(bench_.times.erase);
    send_end();
}

}  // namespace quillon::firmware
