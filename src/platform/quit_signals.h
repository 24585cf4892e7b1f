// SPDX-License-Identifier: MIT
// Notifies a program with an event loop of Ctrl-C, of a polite kill and of a terminal that closes.
//
// The signal handler only writes a byte into a pipe. The event loop reads the byte and calls back,
// so no other code is interrupted. Programs started from here handle the signals in their own way.
#pragma once

#include <functional>
#include <memory>

namespace quillon {

class QuitSignals {
  public:
    // `told` is called from the event loop, once for each SIGINT, SIGTERM or SIGHUP, or once for
    // several that come together. A signal that the process was started to ignore stays ignored.
    // Only one such object may exist at a time. Does nothing on a system without signals.
    explicit QuitSignals(std::function<void()> told);
    // Restores the former handling of the signals.
    ~QuitSignals();
    QuitSignals(const QuitSignals&) = delete;
    QuitSignals& operator=(const QuitSignals&) = delete;

  private:
    struct Watch;
    std::unique_ptr<Watch> watch_;
};

}  // namespace quillon
