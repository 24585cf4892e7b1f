// SPDX-License-Identifier: MIT
// The command loop, the control commands, and how bytes are taken and sent.
#include "board/board_program.h"

#include <fmt/core.h>

namespace quillon::firmware {

std::coroutine_handle<> BoardProgram::start() {
    letters_.clear();
    last_letter_.reset();
    return command_loop().handle();
}

Routine<void> BoardProgram::command_loop() {
    bench_.powered = false;
    for (;;) {
        letters_.clear();
        const Received in = co_await machine_.byte();
        // A late acknowledge of a read that has already ended.
        if (in.value == '@') continue;
        if (too_soon(in)) co_await deaf();
        switch (in.value) {
            case '*':
                break;
            case '?':
                co_await identify();
                break;
            case 'm':
                co_await set_delay();
                break;
            case 'p':
                bench_.powered = false;
                break;
            case 'n':
            case 'N':
                co_await powered();
                break;
            default:
                letters_ = static_cast<char>(in.value);
                co_await unknown();
        }
    }
}

Routine<void> BoardProgram::identify() {
    letters_ = "?";
    begin_exchange();
    const Fault* other = bench_.faults.standing(Fault::Kind::Identity);
    const std::string& text = other == nullptr ? bench_.identity : other->text;
    for (const char c : text) send(static_cast<std::uint8_t>(c));
    send('\r');
    send('\n');
    co_return;
}

Routine<void> BoardProgram::set_delay() {
    letters_ = "m";
    const std::uint8_t what = co_await letter();
    if (what != 'D') co_await unknown();
    bench_.power_delay = co_await parameter();
    begin_exchange();
    send(bench_.power_delay);
}

Routine<void> BoardProgram::powered() {
    bench_.powered = true;
    const std::uint8_t what = co_await letter();
    switch (what) {
        case 'P':
            co_return;  // the power stays on until "p" or "*"
        case 'r':
            co_await read();
            break;
        case 'b':
            co_await blank();
            break;
        case 'w':
            co_await write();
            break;
        case 'X':
            co_await exchange18();
            break;
        default:
            co_await unknown();
    }
    bench_.powered = false;
}

bool BoardProgram::too_soon(const Received& in) {
    const auto gap = last_letter_ ? in.at - *last_letter_ : bench_.times.letter_gap;
    last_letter_ = in.at;
    if (gap >= bench_.times.letter_gap) return false;
    note(fmt::format("0x{:02X} came {} us after the byte before it: letters and parameters need {}",
                     in.value, gap / std::chrono::microseconds{1},
                     bench_.times.letter_gap / std::chrono::microseconds{1}));
    return true;
}

Routine<Received> BoardProgram::command_byte() {
    const Time limit = machine_.now() + bench_.times.stall;
    const std::optional<Received> in = co_await machine_.byte_until(limit);
    if (!in) co_await machine_.start_again();
    co_return *in;
}

Routine<std::uint8_t> BoardProgram::letter() {
    const Received in = co_await command_byte();
    if (in.value == '*') co_await machine_.start_again();
    if (too_soon(in)) co_await deaf();
    letters_ += static_cast<char>(in.value);
    co_return in.value;
}

// A parameter may have any value, so "*" doesn't restart here.
Routine<std::uint8_t> BoardProgram::parameter() {
    const Received in = co_await command_byte();
    if (too_soon(in)) co_await deaf();
    co_return in.value;
}

Routine<std::uint16_t> BoardProgram::word() {
    const std::uint8_t high = co_await parameter();
    const std::uint8_t low = co_await parameter();
    co_return static_cast<std::uint16_t>(high << 8 | low);
}

Routine<std::uint32_t> BoardProgram::long_word() {
    const std::uint8_t top = co_await parameter();
    const std::uint16_t rest = co_await word();
    co_return static_cast<std::uint32_t>(top) << 16 | rest;
}

Routine<Item> BoardProgram::item(std::size_t size) {
    Item taken;
    const Received first = co_await machine_.byte();
    taken.bytes[0] = first.value;
    taken.size = 1;
    // A "*" may also be the host's call to the command loop, see BoardTimes::item_gap.
    if (first.value == '*' && size > 1) {
        const Time limit = first.at + bench_.times.item_gap;
        const std::optional<Received> second = co_await machine_.byte_until(limit);
        if (!second) co_await machine_.start_again();
        taken.bytes[taken.size++] = second->value;
    }
    while (taken.size < size) {
        const Received in = co_await machine_.byte();
        taken.bytes[taken.size++] = in.value;
    }
    ++bench_.items_taken;
    co_return taken;
}

Routine<void> BoardProgram::acknowledge() {
    for (;;) {
        const Received in = co_await machine_.byte();
        if (in.value == '@') co_return;
        if (in.value == '*') co_await machine_.start_again();
        note(fmt::format("0x{:02X} came where the acknowledge of a read was awaited", in.value));
    }
}

Routine<void> BoardProgram::unknown() {
    note(fmt::format("\"{}\" is no command of this board", letters_));
    co_await deaf();
}

Routine<void> BoardProgram::deaf() {
    for (;;) {
        const Received in = co_await machine_.byte();
        if (in.value == '*') co_await machine_.start_again();
    }
}

void BoardProgram::send(std::uint8_t byte, bool end_code, bool more) {
    last_letter_.reset();  // after an answer the host may send at once
    bench_.out.send(byte, machine_.now(), end_code, more);
}

void BoardProgram::send_word(std::uint16_t value) {
    send(static_cast<std::uint8_t>(value >> 8));
    send(static_cast<std::uint8_t>(value));
}

// The ID words of parts with parity go low byte first, against all other words.
std::uint16_t BoardProgram::area_order(std::size_t word, std::uint16_t value) const {
    const SimulatedTarget& target = bench_.socket.target;
    if (!target.wide() || word >= target.id.size()) return value;
    return static_cast<std::uint16_t>(value << 8 | value >> 8);
}

void BoardProgram::send_report(std::span<const std::uint8_t> bytes) {
    for (std::size_t i = 0; i < bytes.size(); ++i) send(bytes[i], false, i + 1 < bytes.size());
}

}  // namespace quillon::firmware
