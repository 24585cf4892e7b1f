// SPDX-License-Identifier: MIT
#include "platform/port_descriptor.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>
#ifdef __linux__
#include <linux/serial.h>
#endif

#include <array>
#include <cerrno>
#include <ctime>

namespace quillon::port_descriptor {

namespace {

constexpr int kSendStallMilliseconds = 2000;

// Poll with the resolution of the clock: the plain call rounds to milliseconds.
int poll_for(int descriptor, short events, std::chrono::microseconds time, short& happened) {
    pollfd entry{.fd = descriptor, .events = events, .revents = 0};
#ifdef __linux__
    const timespec limit{
        .tv_sec = static_cast<std::time_t>(time.count() / 1'000'000),
        .tv_nsec = static_cast<long>(time.count() % 1'000'000 * 1000),
    };
    const int result = ::ppoll(&entry, 1, &limit, nullptr);
#else
    const int result = ::poll(&entry, 1, static_cast<int>((time.count() + 999) / 1000));
#endif
    happened = entry.revents;
    return result;
}

}  // namespace

bool may_open(const std::string& path) {
    return ::faccessat(AT_FDCWD, path.c_str(), R_OK | W_OK, AT_EACCESS) == 0;
}

bool lock(int descriptor) {
    ::ioctl(descriptor, TIOCEXCL);
    return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0;
}

void tune(int descriptor) {
    termios settings{};
    if (::tcgetattr(descriptor, &settings) == 0) {
        settings.c_cc[VMIN] = 1;
        settings.c_cc[VTIME] = 0;
        ::tcsetattr(descriptor, TCSANOW, &settings);
    }
#ifdef __linux__
    serial_struct serial{};
    if (::ioctl(descriptor, TIOCGSERIAL, &serial) == 0) {
        serial.flags |= ASYNC_LOW_LATENCY;
        ::ioctl(descriptor, TIOCSSERIAL, &serial);
    }
#endif
}

bool set_rts(int descriptor, bool on) {
    const int line = TIOCM_RTS;
    return ::ioctl(descriptor, on ? TIOCMBIS : TIOCMBIC, &line) == 0;
}

bool receive(int descriptor, std::vector<std::uint8_t>& into) {
    std::array<std::uint8_t, 4096> buffer;
    for (;;) {
        const auto count = ::read(descriptor, buffer.data(), buffer.size());
        if (count > 0) {
            into.insert(into.end(), buffer.begin(), buffer.begin() + count);
            if (count < static_cast<ssize_t>(buffer.size())) return true;
        } else if (count < 0 && errno == EINTR) {
            continue;
        } else {
            // A read of 0 bytes means that the line was hung up. An idle line gives EAGAIN.
            return count < 0 && (errno == EAGAIN || errno == EWOULDBLOCK);
        }
    }
}

bool send(int descriptor, std::span<const std::uint8_t> bytes) {
    while (!bytes.empty()) {
        const auto count = ::write(descriptor, bytes.data(), bytes.size());
        if (count >= 0) {
            bytes = bytes.subspan(static_cast<std::size_t>(count));
        } else if (errno == EAGAIN || errno == EWOULDBLOCK) {
            // The driver's buffer is far larger than any write: when full, nobody takes the bytes.
            short happened = 0;
            if (poll_for(descriptor, POLLOUT, std::chrono::milliseconds{kSendStallMilliseconds},
                         happened) <= 0)
                return false;
        } else if (errno != EINTR) {
            return false;
        }
    }
    return true;
}

bool wait(int descriptor, std::chrono::microseconds time) {
    short happened = 0;
    if (poll_for(descriptor, POLLIN, time, happened) <= 0) return true;
    // Bytes that came before the hang-up can still be read.
    return (happened & POLLIN) != 0 || (happened & (POLLHUP | POLLERR | POLLNVAL)) == 0;
}

void discard_input(int descriptor) { ::tcflush(descriptor, TCIFLUSH); }

void discard_output(int descriptor) { ::tcflush(descriptor, TCOFLUSH); }

}  // namespace quillon::port_descriptor
