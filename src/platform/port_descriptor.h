// SPDX-License-Identifier: MIT
// What an open serial port is asked for below QSerialPort, where the system has file descriptors.
#pragma once

#include <chrono>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace quillon::port_descriptor {

// True where the device file is there and may be read and written by this user.
bool may_open(const std::string& path);
// Excludes every other program that asks, the superuser's too; false where one was first.
bool lock(int descriptor);
// Reads with nothing to read are told from a port that has gone, and the driver hands bytes over at
// once where it has a flag for that.
void tune(int descriptor);
// False on ports that have no such line.
bool set_rts(int descriptor, bool on);

// The three below answer false once the port has vanished.
[[nodiscard]] bool receive(int descriptor, std::vector<std::uint8_t>& into);
[[nodiscard]] bool send(int descriptor, std::span<const std::uint8_t> bytes);
[[nodiscard]] bool wait(int descriptor, std::chrono::microseconds time);

void discard_input(int descriptor);
void discard_output(int descriptor);

}  // namespace quillon::port_descriptor
