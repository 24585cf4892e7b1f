// SPDX-License-Identifier: MIT
// What a run needs of the machine it runs on: time, the interface's events, folders, programs.
#pragma once

#include <chrono>
#include <cstdint>
#include <ctime>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace quillon {

// Thrown out of a wait that the user has given up, and by the port when it vanishes. Only the frame
// of an operation catches it; the frame then closes the port and enables the controls again.
struct Abandoned {
    enum class Reason : std::uint8_t {
        Stopped,      // the stop button or Esc: this operation alone
        Closed,       // the window is being closed
        Interrupted,  // Ctrl-C
        Deadline,     // the command line's --deadline has passed
        PortLost,     // the port vanished under an operation
    };
    Reason reason = Reason::Closed;
};

class Host {
  public:
    using Time = std::chrono::nanoseconds;  // since an arbitrary start

    virtual ~Host() = default;

    // Monotonic.
    virtual Time now() const = 0;
    // Local calendar time, for the log and the messages.
    virtual std::tm local_time() const = 0;
    // At least the given time. The interface stays responsive meanwhile. May throw Abandoned.
    virtual void sleep(std::chrono::milliseconds time) = 0;
    // Handles the interface's pending events once. Throws Abandoned once the user has given up.
    virtual void pump() = 0;
    // Makes the pump and the sleep of the running operation throw. Stopped is cleared at the end of
    // that operation; any other reason also applies to all operations that follow.
    virtual void give_up(Abandoned::Reason reason) = 0;

    // The folder of device6.ini and of the documents, with a separator at its end.
    virtual std::filesystem::path AppPath() const = 0;
    // The user's documents folder, empty where the platform names none.
    virtual std::filesystem::path documents_folder() const = 0;
    // Opens a file or a web page with its default program; false where that can't be done.
    virtual bool open_document(const std::string& path_or_url) = 0;
    // Replaces a file whole or not at all: the content is written beside it, flushed to the disk
    // and renamed. A device or a pipe is written to directly. Returns the reason if that failed;
    // the old content is then unchanged.
    [[nodiscard]] virtual std::optional<std::string> write_file(const std::filesystem::path& path,
                                                                std::string_view content) = 0;
    // A text of the system's code page as UTF-8. Bytes that don't convert become U+FFFD.
    virtual std::string from_code_page(std::string_view bytes) const = 0;
};

}  // namespace quillon
