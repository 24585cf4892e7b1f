// SPDX-License-Identifier: MIT
// The operations of the serial port that the link uses, and no others.
//
// 57600 baud, no parity, 8 data bits, 1 stop bit, no flow control. Reception is buffered by the
// port; only these calls receive and send.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace quillon {

enum class PortOpen : std::uint8_t {
    Ok,
    Busy,         // somebody else holds it
    Denied,       // it exists, but this user may not open it
    Unavailable,  // no such port, no port chosen
};

class SerialPort {
  public:
    virtual ~SerialPort() = default;

    // Chooses the port by its number n of COMn. Takes effect at the next open.
    virtual void CommPort(int number) = 0;
    [[nodiscard]] virtual PortOpen open() = 0;
    // Closing a closed port does nothing.
    virtual void close() = 0;
    virtual bool is_open() const = 0;
    virtual void RTSEnable(bool on) = 0;

    // Bytes waiting. On a closed port nothing waits and there is nothing to discard. This and the
    // four below throw Abandoned{PortLost} once the port has vanished.
    virtual std::size_t InBufferCount() = 0;
    // Discards what has been received.
    virtual void discard_input() = 0;
    virtual void discard_output() = 0;
    // Hands the bytes over to the line, in one write, without waiting for them to go out.
    virtual void write(std::span<const std::uint8_t> bytes) = 0;
    // All bytes that are waiting.
    virtual std::vector<std::uint8_t> read() = 0;

    // Blocks until at least `wanted` bytes are waiting or the time has passed. May return early.
    // The host isn't pumped meanwhile, so the time is short.
    virtual void wait_for_data(std::size_t wanted, std::chrono::microseconds time) = 0;
};

}  // namespace quillon
