// SPDX-License-Identifier: MIT
// The simulated programmer board, the other end of the wire: takes bytes, keeps time, answers
// bytes.
//
// An incoming byte carries the time at which its last bit arrived, an outgoing one the time at
// which it is ready for the line. The owner of the line adds the line's delay. The board does
// nothing between calls: run_until() continues work that waits for a pulse or a time limit.
//
// Three "*" in a row return it to its command loop from any state. One is enough while it waits for
// an item or an acknowledge. From a command that stalls it returns by itself. A host that sends an
// unknown letter, or sends too fast, gets silence until the next "*", and a line in notes().
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "board/board_program.h"
#include "board/board_times.h"
#include "board/faults.h"
#include "board/target.h"
#include "board/transmitter.h"

namespace quillon {

class SimulatedBoard {
  public:
    using Time = Host::Time;
    static constexpr std::string_view kIdentity = "ZQ-LDR412A V6.80";

    explicit SimulatedBoard(SimulatedTarget target = {}, BoardTimes times = {});
    SimulatedBoard(const SimulatedBoard&) = delete;
    SimulatedBoard& operator=(const SimulatedBoard&) = delete;

    // The times of successive calls must not decrease.
    void receive(std::uint8_t byte, Time arrived);
    void run_until(Time now);
    // The bytes that are ready by then, in order. Each byte is returned once.
    std::vector<SentByte> take_sent(Time until) { return bench_.out.take(until); }
    // The next time at which the board acts or sends without a byte from the host. Unset while it
    // waits for one.
    std::optional<Time> next_event() const;
    // The cable is out: the board takes nothing more, and the owner of the line reports it.
    bool unplugged() const { return bench_.faults.unplugged(); }

    SimulatedTarget& target() { return bench_.socket.target; }
    const SimulatedTarget& target() const { return bench_.socket.target; }
    BoardTimes& times() { return bench_.times; }

    // 16 characters: module name of ten, blank, "V6.80". CR LF is added on the wire.
    void set_identity(std::string text) { bench_.identity = std::move(text); }
    // The byte that asks for an item; the host doesn't look at it. '+' unless set.
    void set_ready_byte(std::uint8_t byte) { bench_.ready_byte = byte; }

    void add_fault(Fault fault) { bench_.faults.add(std::move(fault)); }
    // Takes the text notation of faults.h. Throws std::invalid_argument where it is no fault.
    void add_fault(std::string_view text);
    void clear_faults() { bench_.faults.clear(); }
    void ignore_bursts(std::size_t count);

    const std::vector<std::string>& notes() const { return bench_.notes; }
    bool target_powered() const { return bench_.powered; }
    std::uint8_t power_delay() const { return bench_.power_delay; }

  private:
    // The state when a "*" came. If anything has changed by the next one, the row starts anew.
    struct Progress {
        std::size_t sent = 0;
        std::size_t items = 0;
        bool operator==(const Progress&) const = default;
    };
    Progress progress() const { return {bench_.out.sent(), bench_.items_taken}; }
    bool ignored(std::uint8_t byte);
    // True when the "*" completes the call to the command loop.
    bool counts_star(std::uint8_t byte, Time arrived);
    void call_to_command_loop(Time at);

    firmware::Bench bench_;
    firmware::BoardProgram program_;
    std::optional<Time> last_byte_;
    std::size_t stars_ = 0;
    bool spaced_ = false;  // no "*" of the row came within an item gap
    Progress progress_at_star_;
    std::optional<Time> call_at_;  // set where three "*" came so close that they may be data
};

}  // namespace quillon
