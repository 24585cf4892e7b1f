// SPDX-License-Identifier: MIT
// Runs the board's program: coroutines of which one at a time waits for a byte or for a time.
//
// The board's program reads like firmware: it waits for a byte, waits out a pulse, sends. Time is a
// stamp that comes with each byte, so the same program runs in true and in virtual time. Routines
// that await another are kept in a list here, not on the call stack. So a stream of any length
// needs no more stack, and a restart can end all routines from any state.
#pragma once

#include <coroutine>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <exception>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "app/host.h"

namespace quillon::firmware {

using Time = Host::Time;

struct Received {
    std::uint8_t value = 0;
    Time at{};  // when its last bit was in
};

class Machine {
  public:
    // `program` starts the outermost routine; it never returns.
    explicit Machine(std::function<std::coroutine_handle<>()> program)
        : program_{std::move(program)} {}
    ~Machine() { drop(); }
    Machine(const Machine&) = delete;
    Machine& operator=(const Machine&) = delete;

    // The board's clock: the time up to which it has worked.
    Time now() const { return now_; }

    // A byte comes in. The times of successive calls must not decrease.
    void receive(std::uint8_t value, Time at);
    // Does all that is due up to and including that time.
    void run(Time until);
    // The next time at which it acts without a byte from the host. Unset where it waits for one.
    std::optional<Time> next_event() const;
    // Goes from any state back to the start of the program. Bytes not yet taken are dropped.
    void restart(Time at);

    // For the program's routines.
    auto byte() { return ByteAwaiter{*this, std::nullopt}; }
    // Unset where no byte came by that time.
    auto byte_until(Time limit) { return LimitedByteAwaiter{{*this, limit}}; }
    auto elapse(Time time) { return ElapseAwaiter{*this, time}; }
    // Ends all routines and starts the program again. Doesn't return.
    auto start_again() { return RestartAwaiter{*this}; }

    void enter(std::coroutine_handle<> routine) { pile_.push_back(routine); }
    void leave() { pile_.pop_back(); }

  private:
    enum class Wait : std::uint8_t { Nothing, Byte, Elapse, Restart };

    struct ByteAwaiter {
        Machine& machine;
        std::optional<Time> limit;
        bool await_ready() const { return false; }
        void await_suspend(std::coroutine_handle<>) {
            machine.wait_ = Wait::Byte;
            machine.limit_ = limit;
        }
        Received await_resume() { return *machine.taken_; }
    };
    struct LimitedByteAwaiter : ByteAwaiter {
        std::optional<Received> await_resume() { return machine.taken_; }
    };
    struct ElapseAwaiter {
        Machine& machine;
        Time time;
        bool await_ready() const { return time <= Time{0}; }
        void await_suspend(std::coroutine_handle<>) {
            machine.wait_ = Wait::Elapse;
            machine.limit_ = machine.now_ + time;
        }
        void await_resume() const {}
    };
    struct RestartAwaiter {
        Machine& machine;
        bool await_ready() const { return false; }
        void await_suspend(std::coroutine_handle<>) { machine.wait_ = Wait::Restart; }
        void await_resume() const {}
    };

    bool wait_is_over(Time until);
    bool byte_has_come(Time until);
    void drop();

    std::function<std::coroutine_handle<>()> program_;
    std::vector<std::coroutine_handle<>> pile_;  // the innermost last
    Wait wait_ = Wait::Nothing;
    std::optional<Time> limit_;
    std::optional<Received> taken_;
    std::deque<Received> input_;
    Time now_{};
};

// A routine of the board's program, a member function of an object with `machine()`. The caller
// must await it where it calls it, since the awaiter frees it: `co_await letter()`.
template <class T>
class Routine;

namespace detail {

struct PromiseBase {
    template <class Owner, class... Arguments>
    explicit PromiseBase(Owner& owner, Arguments&&...) : machine{owner.machine()} {}

    struct Leave {
        Machine& machine;
        bool await_ready() const noexcept { return false; }
        void await_suspend(std::coroutine_handle<>) const noexcept { machine.leave(); }
        void await_resume() const noexcept {}
    };
    std::suspend_always initial_suspend() const noexcept { return {}; }
    Leave final_suspend() const noexcept { return {machine}; }
    [[noreturn]] void unhandled_exception() const noexcept { std::terminate(); }

    Machine& machine;
};

template <class T>
struct Promise : PromiseBase {
    using PromiseBase::PromiseBase;
    Routine<T> get_return_object() {
        return Routine<T>{std::coroutine_handle<Promise>::from_promise(*this)};
    }
    void return_value(T result) { value = result; }
    T value{};
};

template <>
struct Promise<void> : PromiseBase {
    using PromiseBase::PromiseBase;
    Routine<void> get_return_object();
    void return_void() const {}
};

}  // namespace detail

template <class T>
class [[nodiscard]] Routine {
  public:
    using promise_type = detail::Promise<T>;
    using Handle = std::coroutine_handle<promise_type>;

    explicit Routine(Handle handle) : handle_{handle} {}
    Handle handle() const { return handle_; }

    struct Awaiter {
        Handle handle;
        bool await_ready() const { return false; }
        void await_suspend(std::coroutine_handle<>) { handle.promise().machine.enter(handle); }
        T await_resume() {
            if constexpr (std::is_void_v<T>) {
                handle.destroy();
            } else {
                const T result = handle.promise().value;
                handle.destroy();
                return result;
            }
        }
    };
    Awaiter operator co_await() const { return Awaiter{handle_}; }

  private:
    Handle handle_;
};

inline Routine<void> detail::Promise<void>::get_return_object() {
    return Routine<void>{std::coroutine_handle<Promise>::from_promise(*this)};
}

}  // namespace quillon::firmware
