// SPDX-License-Identifier: MIT
#include "platform/qt_host.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTimer>
#include <algorithm>
#include <array>
#include <csignal>
#include <filesystem>

#include "support/fakes.h"

namespace quillon {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using test::TempFolder;
using Reason = Abandoned::Reason;

template <typename Call>
std::optional<Reason> abandons(Call call) {
    try {
        call();
    } catch (const Abandoned& abandoned) {
        return abandoned.reason;
    }
    return std::nullopt;
}

class QtHost_ : public testing::Test {
  protected:
    QtHost host{QtHost::Interface::CommandLine};
};

TEST_F(QtHost_, sleeps_at_least_the_time_asked_for) {
    for (const auto time : {0ms, 1ms, 7ms, 25ms}) {
        const auto start = host.now();
        host.sleep(time);
        EXPECT_GE(host.now() - start, time);
    }
}

TEST_F(QtHost_, sleeps_a_millisecond_to_the_point) {
    // Takes the best of many, because a busy machine may delay any of them.
    Host::Time best = 1s;
    for (int i = 0; i < 50; ++i) {
        const auto start = host.now();
        host.sleep(1ms);
        best = std::min(best, host.now() - start);
    }
    EXPECT_GE(best, 1ms);
    EXPECT_LT(best, 1500us);
}

TEST_F(QtHost_, gives_up_in_a_turn_of_an_operation) {
    const QtHost::Operation operation{host};
    host.pump();
    host.give_up(Reason::Interrupted);
    EXPECT_TRUE(host.given_up());
    EXPECT_EQ(abandons([&] { host.pump(); }), Reason::Interrupted);
}

TEST_F(QtHost_, gives_up_in_a_long_sleep_soon) {
    const QtHost::Operation operation{host};
    host.set_deadline(host.now() + 30ms);
    const auto start = host.now();
    EXPECT_EQ(abandons([&] { host.sleep(10s); }), Reason::Deadline);
    EXPECT_GE(host.now() - start, 30ms);
    EXPECT_LT(host.now() - start, 5s);
}

TEST_F(QtHost_, never_gives_up_outside_an_operation) {
    host.give_up(Reason::Closed);
    host.set_deadline(host.now());
    EXPECT_EQ(abandons([&] { host.pump(); }), std::nullopt);
    EXPECT_EQ(abandons([&] { host.sleep(20ms); }), std::nullopt);
    { const QtHost::Operation operation{host}; }
    EXPECT_EQ(abandons([&] { host.pump(); }), std::nullopt);
}

// The catcher closes the port, which needs turns and sleeps of its own.
TEST_F(QtHost_, gives_up_once_for_each_operation) {
    host.give_up(Reason::Closed);
    {
        const QtHost::Operation operation{host};
        EXPECT_EQ(abandons([&] { host.pump(); }), Reason::Closed);
        EXPECT_EQ(abandons([&] { host.pump(); }), std::nullopt);
    }
    const QtHost::Operation operation{host};
    EXPECT_EQ(abandons([&] { host.pump(); }), Reason::Closed);
}

TEST_F(QtHost_, keeps_the_first_reason) {
    host.give_up(Reason::Interrupted);
    host.give_up(Reason::Closed);
    const QtHost::Operation operation{host};
    EXPECT_EQ(abandons([&] { host.pump(); }), Reason::Interrupted);
}

TEST_F(QtHost_, stops_one_operation_and_not_the_next) {
    {
        const QtHost::Operation operation{host};
        host.give_up(Reason::Stopped);
        EXPECT_EQ(abandons([&] { host.pump(); }), Reason::Stopped);
        EXPECT_EQ(abandons([&] { host.sleep(20ms); }), std::nullopt);
    }
    {
        // The stop came too late to end any wait.
        const QtHost::Operation operation{host};
        host.give_up(Reason::Stopped);
    }
    EXPECT_FALSE(host.given_up());
    const QtHost::Operation operation{host};
    EXPECT_EQ(abandons([&] { host.sleep(20ms); }), std::nullopt);
}

TEST_F(QtHost_, closes_where_the_window_is_closed_right_after_a_stop) {
    {
        const QtHost::Operation operation{host};
        host.give_up(Reason::Stopped);
        host.give_up(Reason::Closed);
        EXPECT_EQ(abandons([&] { host.pump(); }), Reason::Closed);
    }
    EXPECT_TRUE(host.given_up());
}

QtHost* g_signalled = nullptr;

TEST_F(QtHost_, can_be_given_up_from_a_signal_handler) {
    g_signalled = &host;
    const auto before =
        std::signal(SIGUSR1, [](int) { g_signalled->give_up(Reason::Interrupted); });
    const QtHost::Operation operation{host};
    std::raise(SIGUSR1);
    EXPECT_EQ(abandons([&] { host.pump(); }), Reason::Interrupted);
    std::signal(SIGUSR1, before);
}

TEST_F(QtHost_, tells_the_local_time) {
    const std::tm time = host.local_time();
    EXPECT_GE(time.tm_year, 124);
    EXPECT_LT(time.tm_mon, 12);
    EXPECT_GE(time.tm_mday, 1);
}

TEST_F(QtHost_, reads_texts_of_the_code_page) {
    EXPECT_EQ(host.from_code_page("\x83\x77\x83\x8B\x83\x76"), "ヘルプ");
}

TEST(QtHost_folders, are_those_given_made_absolute) {
    const TempFolder folder;
    const auto before = fs::current_path();
    fs::current_path(folder.path());
    const QtHost host{QtHost::Interface::CommandLine, {.home = "home", .data = "data"}};
    fs::current_path(before);
    EXPECT_EQ(fs::weakly_canonical(host.documents_folder()), folder / "home");
    EXPECT_EQ(host.AppPath(), folder / "data" / "");
}

TEST(QtHost_folders, have_a_documents_folder_of_the_user_otherwise) {
    const QtHost host{QtHost::Interface::CommandLine};
    EXPECT_TRUE(host.documents_folder().is_absolute());
}

class find_data_folder_ : public testing::Test {
  protected:
    void put(std::string_view where) const {
        fs::create_directories(folder / where);
        folder.write(std::string{where} + "/device6.ini", "x");
    }
    TempFolder folder;
};

TEST_F(find_data_folder_, is_the_programs_own_where_the_catalogue_stands_beside_it) {
    put("bin");
    put("share/quillon");
    EXPECT_EQ(find_data_folder(folder / "bin"), folder / "bin");
}

TEST_F(find_data_folder_, is_the_installed_one) {
    fs::create_directories(folder / "bin");
    put("share/quillon");
    EXPECT_EQ(find_data_folder(folder / "bin"), folder / "share/quillon");
}

TEST_F(find_data_folder_, is_the_source_trees_up_to_four_levels_above) {
    put("data");
    EXPECT_EQ(find_data_folder(folder / "build/release/bin"), folder / "data");
    EXPECT_EQ(find_data_folder(folder / "a/b/c/d"), folder / "data");
    EXPECT_EQ(find_data_folder(folder / "a/b/c/d/e"), folder / "a/b/c/d/e");
}

TEST_F(find_data_folder_, is_the_programs_own_where_there_is_none) {
    EXPECT_EQ(find_data_folder(folder / "bin"), folder / "bin");
}

class QtHost_window : public testing::Test {
  protected:
    int count_ = 1;
    std::string name_ = "platform_tests";
    std::array<char*, 2> arguments_{name_.data(), nullptr};
    QCoreApplication application_{count_, arguments_.data()};
    QtHost host{QtHost::Interface::Window};
};

TEST_F(QtHost_window, gives_the_interface_a_turn) {
    bool fired = false;
    QTimer::singleShot(0, [&] { fired = true; });
    host.pump();
    EXPECT_TRUE(fired);
}

TEST_F(QtHost_window, keeps_the_interface_alive_in_a_sleep) {
    int turns = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++turns; });
    timer.start(5ms);
    host.sleep(200ms);
    EXPECT_GE(turns, 5);
}

TEST_F(QtHost_window, gives_up_in_the_turn_in_which_the_window_is_closed) {
    const QtHost::Operation operation{host};
    QTimer::singleShot(0, [&] { host.give_up(Reason::Closed); });
    EXPECT_EQ(abandons([&] { host.pump(); }), Reason::Closed);
}

TEST_F(QtHost_window, cuts_a_long_sleep_within_300_ms_of_the_stop) {
    const QtHost::Operation operation{host};
    Host::Time pressed{};
    QTimer::singleShot(50, [&] {
        pressed = host.now();
        host.give_up(Reason::Stopped);
    });
    EXPECT_EQ(abandons([&] { host.sleep(30s); }), Reason::Stopped);
    EXPECT_LT(host.now() - pressed, 300ms);
}

TEST_F(QtHost_window, throws_nothing_through_the_event_loop) {
    const QtHost::Operation operation{host};
    std::optional<Reason> inside = Reason::Deadline;
    QTimer::singleShot(0, [&] {
        host.give_up(Reason::Closed);
        inside = abandons([&] { host.pump(); });
    });
    EXPECT_EQ(abandons([&] { host.pump(); }), Reason::Closed);
    EXPECT_EQ(inside, std::nullopt);
}

}  // namespace
}  // namespace quillon
