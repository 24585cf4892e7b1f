// SPDX-License-Identifier: MIT
// A value that notifies its observers when it changes.
//
// Controls are made of these, so that a flow can run under a window, the command line or a test.
// All use is on one thread. An observer may set the same property again, and may be added or
// removed while another one is being notified.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace quillon {

// Ends an observation when it is destroyed. It may outlive the property.
class Connection {
  public:
    Connection() = default;
    explicit Connection(std::function<void()> disconnect) : disconnect_{std::move(disconnect)} {}
    Connection(Connection&& other) noexcept
        : disconnect_{std::exchange(other.disconnect_, nullptr)} {}
    Connection& operator=(Connection&& other) noexcept {
        if (this != &other) {
            reset();
            disconnect_ = std::exchange(other.disconnect_, nullptr);
        }
        return *this;
    }
    ~Connection() { reset(); }

    void reset() {
        if (const auto disconnect = std::exchange(disconnect_, nullptr)) disconnect();
    }

  private:
    std::function<void()> disconnect_;
};

// A list of callbacks in shared ownership, so that a Connection can outlive its signal.
template <typename... Args>
class Signal {
  public:
    using Slot = std::function<void(Args...)>;

    [[nodiscard]] Connection connect(Slot slot) {
        const auto id = ++slots_->last_id;
        slots_->list.emplace_back(id, std::make_shared<Slot>(std::move(slot)));
        return Connection{[weak = std::weak_ptr{slots_}, id] {
            if (const auto slots = weak.lock())
                std::erase_if(slots->list, [id](const auto& entry) { return entry.first == id; });
        }};
    }

    void emit(Args... args) const {
        const auto told = slots_->list;  // a copy: observers may come and go meanwhile
        for (const auto& [id, slot] : told) (*slot)(args...);
    }

  private:
    struct Slots {
        std::uint64_t last_id = 0;
        std::vector<std::pair<std::uint64_t, std::shared_ptr<Slot>>> list;
    };
    std::shared_ptr<Slots> slots_ = std::make_shared<Slots>();
};

template <typename T>
class Property {
  public:
    Property() = default;
    explicit Property(T value) : value_{std::move(value)} {}
    Property(const Property&) = delete;
    Property& operator=(const Property&) = delete;

    const T& get() const { return value_; }

    // Notifies the observers only when the value differs from the present one.
    void set(T value) {
        if (value == value_) return;
        value_ = std::move(value);
        changed_.emit(value_);
    }

    [[nodiscard]] Connection observe(std::function<void(const T&)> observer) {
        return changed_.connect(std::move(observer));
    }

  private:
    T value_{};
    Signal<const T&> changed_;
};

}  // namespace quillon
