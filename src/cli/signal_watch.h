// SPDX-License-Identifier: MIT
// Ctrl-C and a polite kill, told to the run as a wish to give up.
//
// The signals are taken by a thread of their own: so they reach a run that is blocked, and no
// handler runs in the middle of anything. A second signal ends the process at once.
#pragma once

#include <csignal>
#include <functional>
#include <thread>

namespace quillon::cli {

class SignalWatch {
  public:
    // `first` is called once, from the watching thread, at the first SIGINT or SIGTERM.
    explicit SignalWatch(std::function<void()> first);
    // The signals do again what they did before.
    ~SignalWatch();
    SignalWatch(const SignalWatch&) = delete;
    SignalWatch& operator=(const SignalWatch&) = delete;

  private:
    void watch();

    std::function<void()> first_;
    sigset_t watched_{};
    sigset_t former_{};
    std::thread thread_;
};

}  // namespace quillon::cli
