// SPDX-License-Identifier: MIT
// Gives the run up on Ctrl-C, on a polite kill and when the terminal closes.
//
// A thread waits for the signals. So they work while the run is blocked, and no handler interrupts
// other code. A second signal ends the process at once. A signal that the process was started to
// ignore stays ignored, as for a background job of a script.
#pragma once

#include <atomic>
#include <csignal>
#include <functional>
#include <thread>

namespace quillon::cli {

class SignalWatch {
  public:
    // `first` is called once, from the watching thread, at the first SIGINT, SIGTERM or SIGHUP.
    explicit SignalWatch(std::function<void()> first);
    // Restores the former handling of the signals.
    ~SignalWatch();
    SignalWatch(const SignalWatch&) = delete;
    SignalWatch& operator=(const SignalWatch&) = delete;

  private:
    void watch();
    int take() const;

    std::function<void()> first_;
    sigset_t watched_{};
    sigset_t former_{};
    int stop_ = 0;  // one of the watched signals, sent to the thread to end it
    std::atomic<bool> ending_{false};
    std::thread thread_;
};

}  // namespace quillon::cli
