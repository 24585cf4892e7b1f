// SPDX-License-Identifier: MIT
#include "platform/quit_signals.h"

#ifndef _WIN32
#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <array>
#include <atomic>
#include <cerrno>
#include <utility>
#endif

namespace quillon {

#ifdef _WIN32

struct QuitSignals::Watch {};

QuitSignals::QuitSignals(std::function<void()>) {}

#else

namespace {

constexpr std::array kSignals{SIGINT, SIGTERM, SIGHUP};

// At file scope, because a signal handler gets nothing but the signal's number.
std::atomic<int> write_end{-1};
static_assert(std::atomic<int>::is_always_lock_free);

extern "C" void write_byte(int) {
    const int before = errno;
    const char byte = 0;
    // The write fails only on a full pipe, and that one wakes the event loop already.
    static_cast<void>(!::write(write_end, &byte, 1));
    errno = before;
}

// Child processes don't inherit the ends. Reads and writes never block.
bool open_pipe(std::array<int, 2>& ends) {
    if (::pipe(ends.data()) != 0) return false;
    for (const int end : ends) {
        ::fcntl(end, F_SETFD, FD_CLOEXEC);
        ::fcntl(end, F_SETFL, O_NONBLOCK);
    }
    return true;
}

}  // namespace

struct QuitSignals::Watch {
    explicit Watch(std::function<void()> told_) : told{std::move(told_)} {
        if (!open_pipe(ends)) return;
        write_end = ends[1];
        notifier = std::make_unique<QSocketNotifier>(ends[0], QSocketNotifier::Read);
        QObject::connect(notifier.get(), &QSocketNotifier::activated, notifier.get(),
                         [this] { tell(); });
        for (std::size_t i = 0; i < kSignals.size(); ++i) take(kSignals[i], former[i]);
    }
    ~Watch() {
        if (!notifier) return;
        for (std::size_t i = 0; i < kSignals.size(); ++i)
            ::sigaction(kSignals[i], &former[i], nullptr);
        notifier.reset();
        write_end = -1;
        for (const int end : ends) ::close(end);
    }
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

    static void take(int signal, struct sigaction& before) {
        ::sigaction(signal, nullptr, &before);
        if (before.sa_handler == SIG_IGN) return;
        struct sigaction action {};
        action.sa_handler = write_byte;
        action.sa_flags = SA_RESTART;
        ::sigaction(signal, &action, nullptr);
    }
    void tell() const {
        std::array<char, 64> bytes{};
        while (::read(ends[0], bytes.data(), bytes.size()) > 0) continue;
        told();
    }

    std::function<void()> told;
    std::array<int, 2> ends{-1, -1};
    std::array<struct sigaction, kSignals.size()> former{};
    std::unique_ptr<QSocketNotifier> notifier;
};

QuitSignals::QuitSignals(std::function<void()> told)
    : watch_{std::make_unique<Watch>(std::move(told))} {}

#endif

QuitSignals::~QuitSignals() = default;

}  // namespace quillon
