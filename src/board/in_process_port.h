// SPDX-License-Identifier: MIT
// The serial port of a simulated board in the same process, over a line of any speed.
//
// The board runs only when it is asked: each call first brings it up to the present time. A wait
// moves the clock from event to event, so that in virtual time a limit of 10 s takes
// microseconds.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <span>
#include <vector>

#include "board/board.h"
#include "board/line.h"
#include "board/time_source.h"
#include "board/wire_log.h"
#include "link/serial_port.h"

namespace quillon {

class InProcessPort : public SerialPort {
  public:
    // `baud` 0: as fast as the host goes.
    InProcessPort(SimulatedBoard& board, TimeSource& time, int baud = 0);

    void CommPort(int number) override { number_ = number; }
    PortOpen open() override;
    void close() override;
    bool is_open() const override { return open_; }
    void RTSEnable(bool on) override { rts_ = on; }
    std::size_t InBufferCount() override;
    void discard_input() override;
    void discard_output() override;
    void write(std::span<const std::uint8_t> bytes) override;
    std::vector<std::uint8_t> read() override;
    void wait_for_data(std::size_t wanted, std::chrono::microseconds time) override;

    // What open() returns from now on. The port of an unplugged board is Unavailable all the same.
    void set_open_result(PortOpen result) { open_result_ = result; }
    int number() const { return number_; }
    std::optional<bool> rts() const { return rts_; }
    int opens() const { return opens_; }
    int closes() const { return closes_; }

    // Brings the log up to the present time first.
    WireLog& wire();
    // Brings the board up to the present time.
    void catch_up();

  private:
    using Time = Host::Time;
    struct Byte {
        std::uint8_t value = 0;
        Time at{};  // when its last bit is through
    };

    void require_port();
    void collect(Time until);
    std::optional<Time> next_event(std::size_t wanted) const;

    SimulatedBoard& board_;
    TimeSource& time_;
    SerialLine out_;
    SerialLine in_;
    std::deque<Byte> to_board_;
    std::deque<Byte> from_board_;
    std::vector<std::uint8_t> input_;
    WireLog wire_;
    PortOpen open_result_ = PortOpen::Ok;
    bool open_ = false;
    int number_ = 0;
    std::optional<bool> rts_;
    int opens_ = 0;
    int closes_ = 0;
};

}  // namespace quillon
