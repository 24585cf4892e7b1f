// SPDX-License-Identifier: MIT
// The serial port of the machine: real ports, USB adapters and pseudo-terminals.
//
// QSerialPort opens the port, sets it up and locks it. Where the system has file descriptors the
// bytes then pass by plain read, write and poll: that halves the cost of a word, and needs no event
// loop. A wait sleeps through the time that the line needs for the bytes still missing, so that a
// block of 16 costs two wake-ups and not 16.
#pragma once

#include <QSerialPort>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "link/serial_port.h"

namespace quillon {

class QtSerialPort : public SerialPort {
  public:
    // Name of the host port behind COMn, empty where there is none.
    using NameOf = std::function<std::string(int number)>;

    explicit QtSerialPort(NameOf name_of);
    ~QtSerialPort() override;

    void CommPort(int number) override { number_ = number; }
    [[nodiscard]] PortOpen open() override;
    void close() override;
    bool is_open() const override { return port_ != nullptr; }
    void RTSEnable(bool on) override;

    // A closed port has nothing waiting and nothing to discard; it refuses the others as a lost
    // one.
    std::size_t InBufferCount() override;
    void discard_input() override;
    void discard_output() override;
    void write(std::span<const std::uint8_t> bytes) override;
    std::vector<std::uint8_t> read() override;
    void wait_for_data(std::size_t wanted, std::chrono::microseconds time) override;

  private:
    using Clock = std::chrono::steady_clock;

    void receive();
    void wait_for_byte(std::chrono::microseconds time);
    void apply_rts();
    [[noreturn]] void lose();

    NameOf name_of_;
    int number_ = 0;
    std::optional<bool> rts_;  // nothing until it is set: the driver's own choice stands
    std::unique_ptr<QSerialPort> port_;
    std::vector<std::uint8_t> received_;
    Clock::time_point sent_by_{};  // when the line will have taken what was written
    bool lost_ = false;
};

}  // namespace quillon
