// SPDX-License-Identifier: MIT
// Ctrl-C, a polite kill and a terminal that goes away, taken as a wish to give the run up.
//
// The signals are taken by a thread of their own: so they reach a run that is blocked, and no
// handler runs in the middle of anything. A second signal ends the process at once. A signal that
// the process was started to ignore stays ignored, as for a job in the background of a script.
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
    // The signals do again what they did before.
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
