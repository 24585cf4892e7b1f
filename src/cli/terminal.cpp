// SPDX-License-Identifier: MIT
#include "cli/terminal.h"

#include <poll.h>
#include <unistd.h>

#include <array>

namespace quillon::cli {

namespace {
constexpr int kIdleMilliseconds = 50;
}

bool StandardInput::interactive() const { return ::isatty(STDIN_FILENO) != 0; }

std::optional<std::string> StandardInput::read_line(const std::function<void()>& idle) {
    for (;;) {
        if (const auto end = waiting_.find('\n'); end != std::string::npos) {
            auto line = waiting_.substr(0, end);
            waiting_.erase(0, end + 1);
            return line;
        }
        pollfd input{.fd = STDIN_FILENO, .events = POLLIN, .revents = 0};
        const int ready = ::poll(&input, 1, kIdleMilliseconds);
        idle();
        if (ready <= 0) continue;
        std::array<char, 256> bytes{};
        const auto count = ::read(STDIN_FILENO, bytes.data(), bytes.size());
        if (count <= 0) return std::nullopt;
        waiting_.append(bytes.data(), static_cast<std::size_t>(count));
    }
}

}  // namespace quillon::cli
