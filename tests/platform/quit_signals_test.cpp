// SPDX-License-Identifier: MIT
#include "platform/quit_signals.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <csignal>
#include <string>

namespace quillon {
namespace {

class QuitSignals_ : public testing::Test {
  protected:
    // Runs the event loop until the condition holds. Returns false after five seconds.
    template <typename Condition>
    static bool comes(Condition condition) {
        for (const QDeadlineTimer limit{5000}; !condition();) {
            if (limit.hasExpired()) return false;
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        }
        return true;
    }
    static bool is_default(int signal) {
        struct sigaction action {};
        ::sigaction(signal, nullptr, &action);
        return action.sa_handler == SIG_DFL;
    }

    int count_ = 1;
    std::string name_ = "platform_tests";
    char* arguments_[2] = {name_.data(), nullptr};
    QCoreApplication application_{count_, arguments_};
};

TEST_F(QuitSignals_, tells_of_each_signal_from_the_event_loop) {
    int told = 0;
    const QuitSignals signals_to_quit{[&] { ++told; }};
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        const int before = told;
        ::raise(signal);
        EXPECT_EQ(told, before);  // other code isn't interrupted
        EXPECT_TRUE(comes([&] { return told == before + 1; })) << signal;
    }
}

TEST_F(QuitSignals_, tells_at_least_once_of_many_that_come_at_once) {
    int told = 0;
    const QuitSignals signals_to_quit{[&] { ++told; }};
    for (int i = 0; i < 100'000; ++i) ::raise(SIGTERM);  // more than a pipe holds
    EXPECT_TRUE(comes([&] { return told > 0; }));
    const int before = told;
    ::raise(SIGTERM);
    EXPECT_TRUE(comes([&] { return told > before; }));
}

TEST_F(QuitSignals_, gives_the_signals_back_when_it_ends) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) std::signal(signal, SIG_DFL);
    {
        const QuitSignals signals_to_quit{[] {}};
        EXPECT_FALSE(is_default(SIGINT));
        EXPECT_FALSE(is_default(SIGTERM));
        EXPECT_FALSE(is_default(SIGHUP));
    }
    EXPECT_TRUE(is_default(SIGINT));
    EXPECT_TRUE(is_default(SIGTERM));
    EXPECT_TRUE(is_default(SIGHUP));
}

TEST_F(QuitSignals_, leaves_an_ignored_signal_ignored) {
    const auto former = std::signal(SIGHUP, SIG_IGN);
    int told = 0;
    const QuitSignals signals_to_quit{[&] { ++told; }};
    ::raise(SIGHUP);
    ::raise(SIGTERM);
    EXPECT_TRUE(comes([&] { return told > 0; }));
    EXPECT_EQ(told, 1);
    std::signal(SIGHUP, former);
}

TEST_F(QuitSignals_, are_not_handed_on_to_a_program_that_is_started) {
    const QuitSignals signals_to_quit{[] {}};
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        ::execl("/bin/sh", "sh", "-c", "kill -TERM $$; exit 3", static_cast<char*>(nullptr));
        ::_exit(127);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(WTERMSIG(status), SIGTERM);
}

}  // namespace
}  // namespace quillon
