// SPDX-License-Identifier: MIT
// Calls on an open serial port below QSerialPort, for systems with file descriptors.
#pragma once

#include <chrono>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace quillon::port_descriptor {

// True if the device file exists and this user may read and write it.
bool may_open(const std::string& path);
// Locks out every other program that locks its port, the superuser's too. False if another program
// holds the lock.
bool lock(int descriptor);
// Makes a read without data differ from a read of a port that is gone. Also makes the driver
// deliver bytes at once, where it has a flag for that.
void tune(int descriptor);
// False on ports that have no such line.
bool set_rts(int descriptor, bool on);

// These three return false once the port has vanished.
[[nodiscard]] bool receive(int descriptor, std::vector<std::uint8_t>& into);
[[nodiscard]] bool send(int descriptor, std::span<const std::uint8_t> bytes);
[[nodiscard]] bool wait(int descriptor, std::chrono::microseconds time);

void discard_input(int descriptor);
void discard_output(int descriptor);

}  // namespace quillon::port_descriptor
