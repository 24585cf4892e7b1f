// SPDX-License-Identifier: MIT
// The simulated board behind a port number of the window, at true line speed. The target follows
// the selected device: when the device changes, a blank one is put into the socket.
#pragma once

#include <string>

#include "board/board.h"
#include "board/in_process_port.h"
#include "board/time_source.h"
#include "run/run.h"

namespace quillon {

class SimulatedSocket {
  public:
    static constexpr int kNumber = 1;  // COM1; no other number has a port
    static constexpr int kTrueBaud = 57600;

    explicit SimulatedSocket(const Host& host, int baud = kTrueBaud);

    SerialPort& port() { return port_; }
    SimulatedBoard& board() { return board_; }
    // From now on the target follows the run's selected device.
    void follow(Run& run);

  private:
    class Port : public InProcessPort {
      public:
        using InProcessPort::InProcessPort;
        void CommPort(int number) override {
            InProcessPort::CommPort(number);
            set_open_result(number == kNumber ? PortOpen::Ok : PortOpen::Unavailable);
        }
    };

    void insert(const Session& session);

    RealTime time_;
    SimulatedBoard board_;
    Port port_;
    std::string inserted_;
};

}  // namespace quillon
