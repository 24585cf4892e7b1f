// SPDX-License-Identifier: MIT
// The writes of 12-bit parts: one stream that the configuration word leads, and that word alone.
#include <fmt/core.h>

#include "board/board_program.h"

namespace quillon::firmware {

// 12-bit parts: configuration word, program memory, ID words and backup OSCCAL in one stream. With
// count 1 the host sends the configuration word alone. Parts that are written in parallel get it in
// answer to a ready byte, the others without waiting for one.
Routine<void> BoardProgram::write_line(WordWrite how) {
    const std::size_t count = co_await word();
    begin_exchange();
    Socket& socket = bench_.socket;
    if (count == 1 && letters_[1] == 'p') {
        co_await single_config(bench_.ready_byte);
        co_return;
    }
    for (std::size_t i = 0; i < count; ++i) {
        if (aborted(i, '*')) co_return;
        if (count > 1) send_ready();
        const Item taken = co_await item(2);
        socket.write_line(i, taken.word(), how);
        co_await machine_.elapse(bench_.times.program_word);
        const auto held = socket.read_line(i);
        const bool pulsed = socket.target.memory == ProgramMemory::OneTime;
        if (pulsed && i > 0 && held != (taken.word() & socket.target.blank_word)) {
            report_failure(held);
            co_return;
        }
    }
    if (aborted(count, '*')) co_return;
    send_end();
}

// The one configuration word of 12-bit parts. Some hosts wait for the ready byte. Others send the
// word at once and take the next byte for the end code. "@" as the ready byte serves both.
Routine<void> BoardProgram::write_single_config() {
    const std::size_t count = co_await word();
    begin_exchange();
    if (count != 1) note(fmt::format("\"{}\": {} words where there is one", letters_, count));
    co_await single_config('@');
}

Routine<void> BoardProgram::single_config(std::uint8_t ready) {
    if (bench_.faults.aborts_write(0)) {
        report_failure(0);
        co_return;
    }
    send(ready);
    const Item taken = co_await item(2);
    Socket& socket = bench_.socket;
    socket.write_line(0, taken.word(), WordWrite::ClearsBits);
    co_await machine_.elapse(bench_.times.config_word);
    const std::uint16_t held = socket.read_line(0);
    // Bits without a function read back as ones, whatever the host sent.
    if (((held ^ taken.word()) & socket.target.config_bits(0)) != 0)
        report_failure(held);
    else
        send_end();
}

}  // namespace quillon::firmware
