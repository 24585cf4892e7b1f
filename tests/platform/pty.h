// SPDX-License-Identifier: MIT
// A pseudo-terminal for one test: the port under test opens its path, the test plays the board.
#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <string>
#include <string_view>

namespace quillon::test {

class Pty {
  public:
    Pty() {
        std::array<char, 128> name{};
        termios raw{};
        ::cfmakeraw(&raw);
        // The slave end stays open here, so that the pair survives closing and opening the port.
        EXPECT_EQ(::openpty(&master_, &slave_, name.data(), &raw, nullptr), 0);
        path_ = name.data();
    }
    ~Pty() { vanish(); }
    Pty(const Pty&) = delete;
    Pty& operator=(const Pty&) = delete;

    const std::string& path() const { return path_; }
    int slave() const { return slave_; }

    void send(std::string_view bytes) const {
        EXPECT_EQ(::write(master_, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    }
    // Returns what the port writes within a second.
    std::string receive(std::size_t count) const {
        std::string bytes;
        while (bytes.size() < count && readable()) {
            std::array<char, 4096> buffer{};
            const auto got = ::read(master_, buffer.data(), buffer.size());
            if (got <= 0) break;
            bytes.append(buffer.data(), static_cast<std::size_t>(got));
        }
        return bytes;
    }
    // As when the adapter is pulled out.
    void vanish() {
        if (slave_ >= 0) ::close(slave_);
        if (master_ >= 0) ::close(master_);
        slave_ = master_ = -1;
    }

  private:
    bool readable() const {
        pollfd entry{.fd = master_, .events = POLLIN, .revents = 0};
        return ::poll(&entry, 1, 1000) == 1;
    }
    int master_ = -1;
    int slave_ = -1;
    std::string path_;
};

}  // namespace quillon::test
