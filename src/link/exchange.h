// SPDX-License-Identifier: MIT
// One exchange of the board's command protocol, in the order of the wire.
//
// An exchange is a power letter, command letters, parameter bytes, and a data stream that ends in
// the end code "@". Each letter and parameter is one write followed by 1 ms; the items of a write
// stream are paced by the board's ready byte alone. Nothing is retried.
#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "app/host.h"
#include "app/messages.h"
#include "app/session.h"
#include "link/serial_port.h"
#include "link/wait.h"

namespace quillon {

inline constexpr std::uint8_t kEndCode = '@';
// In a write stream of EEPROM or configuration: the item just sent failed.
inline constexpr std::uint8_t kItemFailed = '*';
// Bytes that the board sends before it waits for our "@".
inline constexpr std::size_t kReadBlock = 16;

enum class WriteEnd : std::uint8_t {
    Done,
    NoReady,      // no ready byte came within the limit
    Interrupted,  // the abort byte came with more behind it
    NoReply,      // nothing came after the last item
    NoEndCode,    // something else than "@" did
};

struct WriteResult {
    WriteEnd end = WriteEnd::Done;
    std::size_t index = 0;            // image index of the item that was due
    std::vector<std::uint8_t> reply;  // the board's last bytes
};

class Exchange {
  public:
    Exchange(const Session& session, Host& host, SerialPort& port, Messages& messages)
        : session_{session}, host_{host}, port_{port}, messages_{messages} {}

    // Gives the interface a turn, discards what has been received, powers the target ("n": VPP
    // rises first, "N": VDD first), discards again.
    void begin();
    void send(std::string_view letters);
    void send_byte(std::uint8_t byte);
    // Two bytes, high byte first; words, or EEPROM locations.
    void send_count(std::int32_t count);
    // The mode byte of an erase: the reply follows it at once, so no pause stands behind it.
    void send_unpaced(std::uint8_t byte);
    // 1 ms, then "@": the board may go on.
    void acknowledge();

    // True once so many bytes are waiting.
    bool wait(std::size_t bytes, Limit limit);
    std::vector<std::uint8_t> take() { return port_.read(); }

    enum class Bar : std::uint8_t { Hidden, Shown };
    // Receives `total` bytes, the end code counted in. The "@" for a block goes out only when a
    // poll finds the count at a multiple of 16. False when the limit on the whole has passed.
    bool read_stream(std::size_t total, Limit limit, Bar bar);
    // The first 16 bytes of a configuration read, within the limit, then "@" and the end code.
    // Nothing where the 16 didn't come; the second wait has no limit.
    std::vector<std::uint8_t> read_config(Limit limit);

    // Sends the image in two-byte items, each after a ready byte, and takes the end code. `limit`
    // bounds each wait. A lone abort byte is a ready byte like any other; only one with more bytes
    // behind it interrupts.
    WriteResult write_stream(std::span<const std::uint8_t> image, Limit limit, std::uint8_t abort);
    // The same without limits for the configuration area: a reply of four bytes or more is the
    // report of an item that failed, and ends the stream.
    WriteResult write_config(std::span<const std::uint8_t> image);

  private:
    std::vector<std::uint8_t> take_report(std::size_t most);
    std::vector<std::uint8_t> take_ready(std::uint8_t abort);
    void show_progress(std::size_t from, std::size_t to, std::size_t total);

    const Session& session_;
    Host& host_;
    SerialPort& port_;
    Messages& messages_;
};

}  // namespace quillon
