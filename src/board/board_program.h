// SPDX-License-Identifier: MIT
// The board's own program: the command loop and every exchange, from the board's side.
//
// An exchange begins with a power letter and ends in the command loop. The order of bytes in each
// routine is the order on the wire. Words and counts come high byte first; the PIC18 exchanges
// behind the letter "X" have three-byte addresses and counts.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "board/board_times.h"
#include "board/faults.h"
#include "board/machine.h"
#include "board/socket.h"
#include "board/transmitter.h"

namespace quillon::firmware {

// What the program works on, apart from its own state.
struct Bench {
    BoardTimes times;
    FaultDesk faults;
    Socket socket{faults};
    Transmitter out{faults};
    std::string identity;
    std::uint8_t ready_byte = '+';
    std::uint8_t power_delay = 0;  // milliseconds, as set by "m" "D"
    bool powered = false;
    std::size_t items_taken = 0;  // over all writes
    std::vector<std::string> notes;
};

enum class Area : std::uint8_t { Program, Eeprom, Config };

struct Item {
    std::array<std::uint8_t, 8> bytes{};
    std::size_t size = 0;
    std::uint16_t word() const { return static_cast<std::uint16_t>(bytes[0] << 8 | bytes[1]); }
};

class BoardProgram {
  public:
    explicit BoardProgram(Bench& bench) : bench_{bench}, machine_{[this] { return start(); }} {}

    Machine& machine() { return machine_; }
    const Machine& machine() const { return machine_; }

  private:
    // Receiving. An unknown letter, or one that comes too soon, ends in deaf(). A "*" in place of a
    // letter restarts the program, and so does a command that stalls. None of these returns.
    std::coroutine_handle<> start();
    bool too_soon(const Received& in);
    Routine<Received> command_byte();
    Routine<std::uint8_t> letter();
    Routine<std::uint8_t> parameter();
    Routine<std::uint16_t> word();
    Routine<std::uint32_t> long_word();
    Routine<Item> item(std::size_t size);
    Routine<void> acknowledge();
    Routine<void> unknown();
    Routine<void> deaf();

    // Sending
    void send(std::uint8_t byte, bool end_code = false, bool more = false);
    void send_word(std::uint16_t value);
    // A word of the configuration area in the byte order of the wire, and back.
    std::uint16_t area_order(std::size_t word, std::uint16_t value) const;
    void send_ready() { send(bench_.ready_byte); }
    void send_end() { send('@', true); }
    // A report of more than one byte. The host must see all of it at once.
    void send_report(std::span<const std::uint8_t> bytes);
    void begin_exchange() { bench_.faults.begin(letters_); }
    void note(std::string text) { bench_.notes.push_back(std::move(text)); }

    // The command loop and its control commands
    Routine<void> command_loop();
    Routine<void> identify();
    Routine<void> set_delay();
    Routine<void> powered();

    // "r"
    Routine<void> read();
    void collect(Area area, std::size_t words);
    bool suits(char algorithm);
    Routine<void> stream();
    Routine<void> area_of_odd_size();

    // "b"
    Routine<void> blank();
    Routine<void> blank_check();
    Routine<void> blank_check_parallel();
    Routine<void> read_one_word();
    Routine<void> write_one_word();
    Routine<void> write_last_config();
    Routine<void> erase();
    std::string erase_hindrance(char algorithm, std::uint8_t mode) const;
    std::uint16_t and_of_words(std::size_t count) const;

    // "w"
    Routine<void> write();
    bool suits_write();
    Routine<void> write_in_vain(bool reported);
    Routine<void> write_program(WordWrite how);
    Routine<void> write_line(WordWrite how);
    Routine<void> write_eeprom();
    Routine<void> write_config();
    Routine<void> write_single_config();
    Routine<void> single_config(std::uint8_t ready);
    bool aborted(std::size_t items, std::uint8_t mark);
    void report_failure(std::uint16_t held);

    // "X"
    Routine<void> exchange18();
    Routine<void> read18();
    Routine<void> blank18();
    Routine<void> erase18();
    Routine<void> write18();
    Routine<void> write_blocks18();
    Routine<void> write_panels18();
    Routine<void> write_eeprom18();
    Routine<void> write_config18();

    Bench& bench_;
    std::string letters_;              // of the running exchange, without the power letter
    std::optional<Time> last_letter_;  // the next one must keep a gap; unset: need not
    std::vector<std::uint8_t> data_;   // of the running read
    Machine machine_;
};

}  // namespace quillon::firmware
