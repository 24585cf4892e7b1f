// SPDX-License-Identifier: MIT
// Ctrl-C, a polite kill and a terminal that goes away, told to a program with an event loop.
//
// A handler only writes a byte into a pipe; the event loop finds it there and tells, so that
// nothing runs in the middle of anything. Programs that are started from here get the signals as
// ever.
#pragma once

#include <functional>
#include <memory>

namespace quillon {

class QuitSignals {
  public:
    // `told` is called from the event loop, for each SIGINT, SIGTERM and SIGHUP or for several that
    // came at once. A signal that the process was started to ignore stays ignored. One such object
    // at a time. Does nothing on a system without signals.
    explicit QuitSignals(std::function<void()> told);
    // The signals do again what they did before.
    ~QuitSignals();
    QuitSignals(const QuitSignals&) = delete;
    QuitSignals& operator=(const QuitSignals&) = delete;

  private:
    struct Watch;
    std::unique_ptr<Watch> watch_;
};

}  // namespace quillon
