// SPDX-License-Identifier: MIT
// Imitates a full disk: while an object lives, no file of this process grows beyond a size. A write
// across that size is cut off there, as on a full disk.
#pragma once

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <cstddef>

namespace quillon::test {

class NoRoom {
  public:
    explicit NoRoom(std::size_t bytes) : former_action_{std::signal(SIGXFSZ, SIG_IGN)} {
        EXPECT_EQ(::getrlimit(RLIMIT_FSIZE, &former_), 0);
        rlimit limit = former_;
        limit.rlim_cur = bytes;
        EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    }
    ~NoRoom() {
        EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &former_), 0);
        std::signal(SIGXFSZ, former_action_);
    }
    NoRoom(const NoRoom&) = delete;
    NoRoom& operator=(const NoRoom&) = delete;

  private:
    rlimit former_{};
    void (*former_action_)(int);
};

}  // namespace quillon::test
