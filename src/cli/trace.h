// SPDX-License-Identifier: MIT
// Records the wire: a port that writes down all bytes that pass through it.
//
// Each write, and each read that returned bytes, is one line: milliseconds since the trace began
// with three decimals, ">" to the board or "<" from it, and the bytes in hexadecimal. Bytes that
// were discarded unread aren't in the trace because the program never saw them.
#pragma once

#include <fstream>
#include <string>
#include <string_view>

#include "app/host.h"
#include "link/serial_port.h"

namespace quillon::cli {

class TracingPort : public SerialPort {
  public:
    TracingPort(SerialPort& port, Host& host, std::ostream& trace)
        : port_{port}, host_{host}, trace_{trace}, start_{host.now()} {}

    void CommPort(int number) override { port_.CommPort(number); }
    PortOpen open() override { return port_.open(); }
    void close() override { port_.close(); }
    bool is_open() const override { return port_.is_open(); }
    void RTSEnable(bool on) override { port_.RTSEnable(on); }
    std::size_t InBufferCount() override { return port_.InBufferCount(); }
    void discard_input() override { port_.discard_input(); }
    void discard_output() override { port_.discard_output(); }
    void write(std::span<const std::uint8_t> bytes) override;
    std::vector<std::uint8_t> read() override;
    void wait_for_data(std::size_t wanted, std::chrono::microseconds time) override {
        port_.wait_for_data(wanted, time);
    }

  private:
    void note(char direction, std::span<const std::uint8_t> bytes);

    SerialPort& port_;
    Host& host_;
    std::ostream& trace_;
    Host::Time start_;
};

}  // namespace quillon::cli
