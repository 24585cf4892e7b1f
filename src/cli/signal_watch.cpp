// SPDX-License-Identifier: MIT
#include "cli/signal_watch.h"

#include <pthread.h>

#include <array>
#include <chrono>
#include <optional>
#include <utility>

namespace quillon::cli {

namespace {

using Clock = std::chrono::steady_clock;

// timeout(1) signals its child and then the whole process group: that is one wish, not two.
constexpr auto kSameWish = std::chrono::milliseconds{200};

constexpr std::array kSignals{SIGINT, SIGTERM, SIGHUP};

bool is_ignored(int signal) {
    struct sigaction action {};
    return ::sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

}  // namespace

SignalWatch::SignalWatch(std::function<void()> first) : first_{std::move(first)} {
    sigemptyset(&watched_);
    for (const int signal : kSignals) {
        if (is_ignored(signal)) continue;
        sigaddset(&watched_, signal);
        stop_ = signal;
    }
    if (stop_ == 0) return;
    pthread_sigmask(SIG_BLOCK, &watched_, &former_);
    thread_ = std::thread{[this] { watch(); }};
}

SignalWatch::~SignalWatch() {
    if (stop_ == 0) return;
    ending_ = true;
    pthread_kill(thread_.native_handle(), stop_);
    thread_.join();
    pthread_sigmask(SIG_SETMASK, &former_, nullptr);
}

// Returns the next watched signal, or 0 to end the watch.
int SignalWatch::take() const {
    int signal = 0;
    const int error = sigwait(&watched_, &signal);
    return error != 0 || ending_ ? 0 : signal;
}

void SignalWatch::watch() {
    std::optional<Clock::time_point> given_up;
    while (const int signal = take()) {
        if (!given_up) {
            given_up = Clock::now();
            first_();
            continue;
        }
        if (Clock::now() - *given_up < kSameWish) continue;
        std::signal(signal, SIG_DFL);
        pthread_sigmask(SIG_UNBLOCK, &watched_, nullptr);
        std::raise(signal);
    }
}

}  // namespace quillon::cli
