// SPDX-License-Identifier: MIT
// The exchanges behind "X": PIC18 parts, whose words go low byte first.
//
// An address is sent as the real one plus 1. 0 also means address 0. A read has blocks of 16 bytes.
// A host that acknowledges at each multiple of 8 sends some of its "@" early, which does no harm.
#include <fmt/core.h>

#include <algorithm>
#include <array>

#include "board/board_program.h"

namespace quillon::firmware {
namespace {

constexpr std::uint32_t kIdentityAddress = 0x3FFFFE;
constexpr std::uint32_t kConfigAddress = 0x300000;
constexpr std::uint32_t kIdAddress = 0x200000;
constexpr std::size_t kEraseBytes = 6;
constexpr std::size_t kItemBytes = 8;
constexpr std::size_t kPanelBytes = 8192;
constexpr std::uint32_t kWholeConfig = 11;  // items: eight ID bytes, fourteen configuration bytes

std::uint32_t real_address(std::uint32_t field) { return field == 0 ? 0 : field - 1; }

}  // namespace

Routine<void> BoardProgram::exchange18() {
    const std::uint8_t what = co_await letter();
    if (bench_.socket.target.core != Core::Pic18)
        note(fmt::format("\"{}\": {} is no PIC18 part", letters_, bench_.socket.target.name));
    switch (what) {
        case 'r':
            co_await read18();
            break;
        case 'b': {
            const std::uint8_t which = co_await letter();
            if (which == 's')
                co_await blank18();
            else if (which == 'd' || which == 'k')
                co_await erase18();
            else
                co_await unknown();
            break;
        }
        case 'w':
            co_await write18();
            break;
        default:
            co_await unknown();
    }
}

Routine<void> BoardProgram::read18() {
    const std::uint8_t algorithm = co_await letter();
    const std::uint8_t area = co_await letter();
    if (algorithm != 's' || (area != 'p' && area != 'd' && area != 'c')) co_await unknown();
    const std::uint32_t address = real_address(co_await long_word());
    std::uint32_t count = co_await long_word();
    begin_exchange();
    // The host's device check sends the address again in place of the count, for two bytes.
    if (address >= kIdentityAddress && count > kIdentityAddress) count = 2;
    data_.clear();
    for (std::uint32_t i = 0; i < count; ++i)
        data_.push_back(area == 'd' ? bench_.socket.read_eeprom(address + i)
                                    : bench_.socket.read_byte(address + i));
    co_await stream();
}

Routine<void> BoardProgram::blank18() {
    const std::uint32_t address = real_address(co_await long_word());
    const std::uint32_t count = co_await long_word();
    begin_exchange();
    std::uint16_t all = 0xFFFF;
    for (std::uint32_t i = 0; i < count; ++i)
        all = static_cast<std::uint16_t>(all & bench_.socket.read_program(address / 2 + i));
    co_await machine_.elapse(bench_.times.check_word * static_cast<std::int64_t>(count));
    send_word(all);
    send_end();
}

// Two words of three bytes, each sent in one piece: the board shifts them to the part as they are.
Routine<void> BoardProgram::erase18() {
    std::vector<std::uint8_t> code;
    for (std::size_t i = 0; i < kEraseBytes; ++i) {
        const Received in = co_await command_byte();
        code.push_back(in.value);
    }
    begin_exchange();
    const auto& codes = bench_.socket.target.erase_codes;
    const auto known = std::ranges::find(codes, code, &EraseCode18::code);
    if (known == codes.end()) {
        note(fmt::format("\"{}\": {} knows no such erase code", letters_,
                         bench_.socket.target.name));
    } else {
        bench_.socket.erase(known->erases);
        bench_.socket.erase_program(known->from, known->to);
    }
    co_await machine_.elapse(bench_.times.erase);
    send_end();
}

Routine<void> BoardProgram::write18() {
    const std::uint8_t algorithm = co_await letter();
    const std::uint8_t area = co_await letter();
    if (algorithm != 'e') co_await unknown();
    switch (area) {
        case 's':
            co_await write_blocks18();
            break;
        case 'p':
        case 'm':
            co_await write_panels18();
            break;
        case 'd':
            co_await write_eeprom18();
            break;
        case 'c':
            co_await write_config18();
            break;
        default:
            co_await unknown();
    }
}

// Address, then the number of eight-byte items less one in two bytes, then the write buffer's size
// in items.
Routine<void> BoardProgram::write_blocks18() {
    const std::uint32_t start = real_address(co_await long_word());
    const std::size_t items = std::size_t{co_await word()} + 1;
    co_await parameter();
    begin_exchange();
    for (std::size_t i = 0; i < items; ++i) {
        if (aborted(i, '@')) co_return;
        send_ready();
        const Item taken = co_await item(kItemBytes);
        for (std::size_t k = 0; k < kItemBytes; ++k)
            bench_.socket.write_byte(static_cast<std::uint32_t>(start + i * kItemBytes + k),
                                     taken.bytes[k]);
        co_await machine_.elapse(bench_.times.program_block18);
    }
    send_end();
}

// Address, then the number of panels plus one. Each panel gets one item in turn.
Routine<void> BoardProgram::write_panels18() {
    co_await long_word();
    const std::uint32_t field = co_await long_word();
    begin_exchange();
    const std::size_t panels = field == 0 ? 0 : field - 1;
    const std::size_t items = panels * (kPanelBytes / kItemBytes);
    for (std::size_t i = 0; i < items; ++i) {
        if (aborted(i, '@')) co_return;
        send_ready();
        const Item taken = co_await item(kItemBytes);
        const std::size_t base = i % panels * kPanelBytes + i / panels * kItemBytes;
        for (std::size_t k = 0; k < kItemBytes; ++k)
            bench_.socket.write_byte(static_cast<std::uint32_t>(base + k), taken.bytes[k]);
        co_await machine_.elapse(bench_.times.program_block18);
    }
    send_end();
}

// An item is one cell, or two when a second byte comes with the first.
Routine<void> BoardProgram::write_eeprom18() {
    const std::uint32_t start = real_address(co_await long_word());
    const std::uint32_t count = co_await long_word();
    begin_exchange();
    for (std::uint32_t i = 0; i < count;) {
        if (bench_.faults.aborts_write(i)) {
            report_failure(i == 0 ? std::uint16_t{0xFF} : bench_.socket.read_eeprom(start + i - 1));
            co_return;
        }
        send_ready();
        const Item first = co_await item(1);
        Item taken = first;
        const Time limit = machine_.now() + bench_.times.item_gap;
        const std::optional<Received> second = co_await machine_.byte_until(limit);
        if (second) taken.bytes[taken.size++] = second->value;
        if (!second && taken.bytes[0] == '*') co_await machine_.start_again();
        for (std::size_t k = 0; k < taken.size && i < count; ++k, ++i) {
            bench_.socket.write_eeprom(start + i, taken.bytes[k]);
            co_await machine_.elapse(bench_.times.eeprom_cell);
            if (bench_.socket.read_eeprom(start + i) == taken.bytes[k]) continue;
            report_failure(bench_.socket.read_eeprom(start + i));
            co_return;
        }
    }
    send_end();
}

Routine<void> BoardProgram::write_config18() {
    const std::uint32_t address = co_await long_word();
    const std::uint32_t count = co_await long_word();
    begin_exchange();
    // 11 twice: ID and configuration in items of two bytes. Else bytes from the given address.
    const bool whole = address == kWholeConfig && count == kWholeConfig;
    const std::size_t size = whole ? 2 : 1;
    Socket& socket = bench_.socket;
    for (std::uint32_t i = 0; i < count; ++i) {
        if (aborted(i, '*')) co_return;
        send_ready();
        const Item taken = co_await item(size);
        for (std::uint32_t k = 0; k < size; ++k) {
            const std::uint32_t offset = 2 * i + k;
            const std::uint32_t place = !whole       ? real_address(address) + i
                                        : offset < 8 ? kIdAddress + offset
                                                     : kConfigAddress + offset - 8;
            socket.write_byte(place, taken.bytes[k]);
        }
        co_await machine_.elapse(bench_.times.config_word);
    }
    send_end();
}

}  // namespace quillon::firmware
