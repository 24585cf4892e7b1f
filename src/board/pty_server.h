// SPDX-License-Identifier: MIT
// A simulated board on a pseudo-terminal, at true line speed.
//
// A byte takes ten bit times in each direction. A byte from the host arrives one byte time after it
// was written or after the one before it; a byte to the host is handed over when its last bit would
// be through. All times are computed on that ideal line from the byte before: a server that wakes
// late is late with that one byte, and the next is due when it was due.
//
// A pseudo-terminal has a delay of its own, which a UART hasn't: the kernel passes bytes on in a
// worker and then wakes the reader. With `credit_delay` it is measured at the start, by sending
// bytes to and fro on the idle terminal, and its median is credited, up to one byte time: a byte
// read is taken as written that much sooner, though never sooner than the byte that it may answer
// was due, and a byte is handed to the kernel that much before it is due. What the host takes for
// itself is never credited, so that an exchange can't be faster than on the ideal line.
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
    // The last stretch before a byte is due is waited out by looking at the clock. It keeps one
    // processor busy while bytes flow; 0 sleeps all of it.
    std::chrono::microseconds spin{0};
};

class PtyServer {
  public:
    // Throws std::system_error where there is no terminal or the link can't be made. A file that is
    // no link is never replaced. The board's look at the pacing is switched off: stamps are no
    // better than the scheduler.
    PtyServer(SimulatedBoard& board, PtyOptions options = {});
    ~PtyServer();
    PtyServer(const PtyServer&) = delete;
    PtyServer& operator=(const PtyServer&) = delete;

    // "/dev/pts/7". The host may open and close it as often as it likes, and be killed.
    const std::string& path() const { return path_; }

    // Serves until it is told to stop or the board's cable is pulled out (a fault), which closes
    // the terminal. Call it once; a thread of its own keeps the times best.
    void run(std::stop_token stop);

    // The measured delays.
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
    Time handed_over_{};  // when the last byte that the host has was due
    Time looked_at_{};    // when the terminal's exclusive use was last looked at
    Time horizon_{};      // how far the board has been carried on
};

}  // namespace quillon
