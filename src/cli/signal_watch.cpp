// SPDX-License-Identifier: MIT
#include "cli/signal_watch.h"

#include <pthread.h>

#include <utility>

namespace quillon::cli {

namespace {
// Ends the watching thread; nobody else sends it.
constexpr int kStop = SIGUSR1;
}  // namespace

SignalWatch::SignalWatch(std::function<void()> first) : first_{std::move(first)} {
    sigemptyset(&watched_);
    sigaddset(&watched_, SIGINT);
    sigaddset(&watched_, SIGTERM);
    sigaddset(&watched_, kStop);
    pthread_sigmask(SIG_BLOCK, &watched_, &former_);
    thread_ = std::thread{[this] { watch(); }};
}

SignalWatch::~SignalWatch() {
    pthread_kill(thread_.native_handle(), kStop);
    thread_.join();
    pthread_sigmask(SIG_SETMASK, &former_, nullptr);
}

void SignalWatch::watch() {
    for (bool told = false;;) {
        int signal = 0;
        if (sigwait(&watched_, &signal) != 0 || signal == kStop) return;
        if (!std::exchange(told, true)) {
            first_();
            continue;
        }
        std::signal(signal, SIG_DFL);
        pthread_sigmask(SIG_UNBLOCK, &watched_, nullptr);
        std::raise(signal);
    }
}

}  // namespace quillon::cli
