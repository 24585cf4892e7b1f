// SPDX-License-Identifier: MIT
// A simulated board on a pseudo-terminal, at true line speed.
//
// A byte takes ten bit times in each direction. A byte from the host arrives one byte time after it
// was written, or after the byte before it. A byte to the host is handed over when its last bit
// would have been sent. Each due time is computed on that ideal line from the byte before, not from
// the clock. So a server that wakes late delays one byte, and the next is due at its old time.
//
// A pseudo-terminal has a delay that a UART doesn't have: the kernel passes bytes on in a worker
// and then wakes the reader. With `credit_delay` the server measures this delay at the start by
// sending bytes to and fro on the idle terminal. It credits the median, up to one byte time:
//   - A byte that was read counts as written that much earlier, but never before the byte that it
//     may answer was due.
//   - A byte is handed to the kernel that much before it is due.
// The host's own time is never credited, so an exchange can't be faster than on the ideal line.
#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <optional>
#include <span>
#include <stop_token>
#include <string>
#include <vector>

#include "board/board.h"
#include "board/line.h"

namespace quillon {

struct PtyOptions {
    int baud = 57600;            // 0: as fast as it goes
    std::filesystem::path link;  // a symbolic link to the terminal; "" for none
    bool credit_delay = true;
    int measurements = 60;  // about a millisecond each
    // How long before a byte is due the server stops sleeping and polls the clock instead. Polling
    // keeps one processor busy while bytes flow. 0: it only sleeps.
    std::chrono::microseconds spin{0};
};

class PtyServer {
  public:
    // Throws std::system_error where there is no terminal or the link can't be made. It replaces a
    // former link, never a file. The board's pacing check is switched off, because the times of
    // bytes are only as exact as the scheduler.
    PtyServer(SimulatedBoard& board, PtyOptions options = {});
    ~PtyServer();
    PtyServer(const PtyServer&) = delete;
    PtyServer& operator=(const PtyServer&) = delete;

    // "/dev/pts/7". A host may open and close it any number of times, and may be killed.
    const std::string& path() const { return path_; }

    // Serves until a stop is requested or the board's cable is pulled out (a fault), then closes
    // the terminal. Call it once, best in a thread of its own, which keeps the times most exact.
    void run(const std::stop_token& stop);

    // The measured delays, up to one byte time each.
    std::chrono::nanoseconds delay_to_board() const { return delay_in_; }
    std::chrono::nanoseconds delay_from_board() const { return delay_out_; }

  private:
    using Time = Host::Time;
    struct Byte {
        std::uint8_t value = 0;
        Time due{};
    };

    void open_terminal();
    void make_link();
    void remove_link();
    void free_abandoned();
    void close_terminal();
    void measure();
    void take_from_host();
    void schedule();
    void hand_to_host();
    void serve(const std::stop_token& stop);
    void wait();

    SimulatedBoard& board_;
    PtyOptions options_;
    int master_ = -1;
    // Held open so that the terminal lives on while no host has it.
    int slave_ = -1;
    int stop_event_ = -1;
    std::string path_;
    bool linked_ = false;
    Time delay_in_{};
    Time delay_out_{};
    SerialLine in_;
    SerialLine out_;
    std::deque<Byte> output_;
    Time handed_over_{};  // when the host's latest byte was due
    Time looked_at_{};    // when the terminal's exclusive use was last checked
    Time horizon_{};      // the time up to which the board has run
};

}  // namespace quillon
