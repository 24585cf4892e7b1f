// SPDX-License-Identifier: MIT
// The serial port of the machine: real ports, USB adapters and pseudo-terminals.
//
// QSerialPort opens the port and sets it up. On systems with file descriptors the bytes then go
// through plain read, write and poll. That halves the time for a word and needs no event loop. A
// wait sleeps for as long as the line needs for the missing bytes, so a block of 16 bytes costs two
// wake-ups instead of 16.
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

    // On a closed port nothing is waiting and nothing is discarded. write() and wait_for_data()
    // throw as on a lost port.
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
    std::optional<bool> rts_;  // unset: the driver's own choice is kept
    std::unique_ptr<QSerialPort> port_;
    std::vector<std::uint8_t> received_;
    Clock::time_point sent_by_{};  // when the line will have carried all that was written
    bool lost_ = false;
};

}  // namespace quillon
