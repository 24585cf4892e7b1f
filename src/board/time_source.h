// SPDX-License-Identifier: MIT
// The clock of a simulated line: a test's own, or the machine's.
#pragma once

#include <algorithm>
#include <functional>
#include <thread>
#include <utility>

#include "app/host.h"

namespace quillon {

class TimeSource {
  public:
    using Time = Host::Time;
    virtual ~TimeSource() = default;
    virtual Time now() const = 0;
    // Returns at that time or later; at once if it has passed.
    virtual void advance_to(Time time) = 0;
};

// Time that only moves when somebody moves it: `advance` sets the test host's clock.
class VirtualTime : public TimeSource {
  public:
    VirtualTime(const Host& host, std::function<void(Time)> advance)
        : host_{host}, advance_{std::move(advance)} {}
    Time now() const override { return host_.now(); }
    void advance_to(Time time) override {
        if (time > host_.now()) advance_(time);
    }

  private:
    const Host& host_;
    std::function<void(Time)> advance_;
};

class RealTime : public TimeSource {
  public:
    explicit RealTime(const Host& host) : host_{host} {}
    Time now() const override { return host_.now(); }
    void advance_to(Time time) override {
        while (host_.now() < time) std::this_thread::sleep_for(time - host_.now());
    }

  private:
    const Host& host_;
};

}  // namespace quillon
