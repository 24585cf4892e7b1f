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
#include "link/dialect.h"
#include "link/serial_port.h"
#include "link/silence_watch.h"
#include "link/wait.h"

namespace quillon {

inline constexpr std::uint8_t kEndCode = '@';
// The reply of an exchange in which the board has little work of its own.
inline constexpr std::chrono::milliseconds kUsualReply{1000};
// In a write stream of EEPROM or configuration: the item just sent failed.
inline constexpr std::uint8_t kItemFailed = '*';

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

// What bounds and ends a write stream.
struct WriteRules {
    std::string_view abort = "@";  // any of these interrupts where more bytes come behind it
    Limit limit = kNoLimit;        // of each wait
    std::size_t item_bytes = 2;
};

class Exchange {
  public:
    Exchange(const Dialect& dialect, Host& host, SerialPort& port, Messages& messages)
        : dialect_{dialect}, host_{host}, port_{port}, messages_{messages} {}

    // Gives the interface a turn, discards what has been received, powers the target, discards
    // again.
    void begin();
    void send(std::string_view letters);
    void send_byte(std::uint8_t byte);
    // A count of words or EEPROM locations, or an address: as many bytes as the dialect has, high
    // byte first.
    void send_number(std::int32_t value);
    // The mode byte of an erase: the reply follows it at once, so there is no pause behind it.
    void send_unpaced(std::uint8_t byte);
    // 1 ms, then "@": the board may go on.
    void acknowledge();

    // True once so many bytes are waiting. A wait without a limit that lasts three times as long
    // as `expected` with no byte coming in says so once, and goes on.
    bool wait(std::size_t bytes, Limit limit, std::chrono::milliseconds expected = kUsualReply);
    std::vector<std::uint8_t> take() { return port_.read(); }

    // Receives `total` bytes, the end code counted in, and shows the progress. The "@" for a block
    // goes out only when a poll finds the count at a multiple of the dialect's block. False when
    // the limit on the whole has passed.
    bool read_stream(std::size_t total, Limit limit);
    // The data of a configuration read, within the limit, then "@" and the end code. Empty where
    // the data didn't come; the wait for the end code has no limit.
    std::vector<std::uint8_t> read_config(std::size_t bytes, Limit limit);
    // The same for a routine that sends its "@" at once, before the data has come. No limit.
    std::vector<std::uint8_t> read_config_at_once(std::size_t bytes);

    // Sends the image item by item, each after a ready byte, and takes the end code. A lone abort
    // byte is a ready byte like any other; only one with more bytes behind it interrupts.
    WriteResult write_stream(std::span<const std::uint8_t> image, const WriteRules& rules);
    // The same for the configuration area: a reply of four bytes or more is the
    // report of an item that failed, and ends the stream.
    WriteResult write_config(std::span<const std::uint8_t> image, Limit limit = kNoLimit);

  private:
    bool wait_watched(std::size_t bytes, SilenceWatch& silence);
    std::vector<std::uint8_t> take_report(std::size_t most);
    std::vector<std::uint8_t> take_ready(std::string_view abort);
    void show_progress(std::size_t from, std::size_t to, std::size_t total);

    Dialect dialect_;
    Host& host_;
    SerialPort& port_;
    Messages& messages_;
};

}  // namespace quillon
