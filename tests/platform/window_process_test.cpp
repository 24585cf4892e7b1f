// SPDX-License-Identifier: MIT
// The window's program as a process: ended by a signal, started twice, over damaged settings.
//
// There is no display. The files in the work folder show how far the program has come.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "pty.h"
#include "support/fakes.h"

namespace quillon::test {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

template <typename Condition>
bool comes(Condition condition, std::chrono::seconds limit = 30s) {
    for (const auto end = Clock::now() + limit; !condition();) {
        if (Clock::now() > end) return false;
        std::this_thread::sleep_for(5ms);
    }
    return true;
}

// The program as a process. The destructor kills it if it still runs.
class Window {
  public:
    Window(const TempFolder& home, std::vector<std::string> arguments) {
        const std::string leaks = home.write("leaks", kToolkitsLeaks).string();
        arguments.insert(arguments.begin(), {QUILLON_WINDOW, "--home", home.path().string(),
                                             "--catalogue", QUILLON_CATALOGUE});
        std::vector<char*> words;
        for (auto& argument : arguments) words.push_back(argument.data());
        words.push_back(nullptr);
        child_ = ::fork();
        if (child_ != 0) return;
        for (const int number : {SIGINT, SIGTERM, SIGHUP}) ::signal(number, SIG_DFL);
        ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
        ::setenv("LSAN_OPTIONS", ("print_suppressions=0:suppressions=" + leaks).c_str(), 1);
        ::execv(words[0], words.data());
        ::_exit(127);
    }
    ~Window() {
        if (child_ <= 0) return;
        ::kill(child_, SIGKILL);
        ::waitpid(child_, nullptr, 0);
    }
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    void send(int signal) const { ::kill(child_, signal); }
    bool runs() { return !ended(); }
    // The exit status, minus the signal that killed it, or "still runs" after half a minute.
    int status() {
        if (!comes([this] { return ended(); })) return kStillRuns;
        return WIFEXITED(status_) ? WEXITSTATUS(status_) : -WTERMSIG(status_);
    }

    static constexpr int kStillRuns = 1000;

  private:
    // Font and platform libraries keep what they have loaded until the process ends.
    static constexpr std::string_view kToolkitsLeaks =
        "leak:libfontconfig\nleak:libQt6Gui\nleak:libQt6XcbQpa\nleak:libqoffscreen\n"
        "leak:libglib\nleak:libdbus\n";

    bool ended() {
        if (child_ > 0 && ::waitpid(child_, &status_, WNOHANG) == child_) child_ = -1;
        return child_ < 0;
    }

    pid_t child_ = -1;
    int status_ = 0;
};

class quillon_ : public testing::Test {
  protected:
    fs::path work(std::string_view name) const { return home.path() / "QUILLON4_TEMP" / name; }
    std::string settings() const { return home.read("settings.ini"); }
    bool saved(std::string_view text) const { return settings().find(text) != std::string::npos; }
    // Rotating the logs is the last step that leaves a trace.
    bool ready() const {
        return comes([this] { return fs::exists(work("LOG_OLD9.txt")); });
    }
    void expect_left_in_order() const {
        EXPECT_TRUE(saved("MainLeft=")) << settings();
        EXPECT_TRUE(saved("MainTop=")) << settings();
        EXPECT_TRUE(saved("MainHeight=")) << settings();
        for (const auto* name :
             {"temp.txt", "pgmmemory_temp.txt", "eepmemory_temp.txt", "quillon.lock"})
            EXPECT_FALSE(fs::exists(work(name))) << name;
    }

    TempFolder home;
};

class quillon_ended_by : public quillon_, public testing::WithParamInterface<int> {};

TEST_P(quillon_ended_by, a_signal_saves_its_place_and_clears_its_work_files) {
    Window window{home, {"--port", "sim"}};
    ASSERT_TRUE(ready());
    EXPECT_TRUE(fs::exists(work("pgmmemory_temp.txt")));
    window.send(GetParam());
    EXPECT_EQ(window.status(), 0);
    expect_left_in_order();
    EXPECT_TRUE(fs::exists(work("LOG_OLD9.txt")));
}

INSTANTIATE_TEST_SUITE_P(each, quillon_ended_by, testing::Values(SIGINT, SIGTERM, SIGHUP));

// Nobody answers on this port. The search waits in the same way as an operation.
TEST_F(quillon_, is_ended_by_a_signal_in_the_middle_of_a_wait_for_the_board) {
    const Pty silent;
    Window window{home, {"--port", silent.path()}};
    EXPECT_EQ(silent.receive(1), "?");
    const auto asked = Clock::now();
    window.send(SIGTERM);
    EXPECT_EQ(window.status(), 0);
    EXPECT_LT(Clock::now() - asked, 2s);  // the search alone waits for more than three
    EXPECT_FALSE(fs::exists(work("LOG_OLD9.txt")));
    expect_left_in_order();
}

TEST_F(quillon_, is_ended_by_a_signal_while_it_asks_for_the_port) {
    Window window{home, {}};
    // The list is written right before the question opens, so the signal may still come first.
    ASSERT_TRUE(comes([this] { return fs::exists(work("Support_PIC_List.txt")); }));
    std::this_thread::sleep_for(300ms);
    EXPECT_FALSE(fs::exists(work("LOG_OLD9.txt")));
    window.send(SIGTERM);
    EXPECT_EQ(window.status(), 0);
    expect_left_in_order();
}

// Between the two questions nothing checks for a request to end.
TEST_F(quillon_, is_ended_by_one_signal_although_another_question_follows) {
    const std::string hex = home.write("A.HEX", ":00000001FF\r\n").string();
    Window window{home, {hex}};
    ASSERT_TRUE(comes([this] { return fs::exists(work("Support_PIC_List.txt")); }));
    std::this_thread::sleep_for(300ms);
    window.send(SIGTERM);
    EXPECT_EQ(window.status(), 0);
    expect_left_in_order();
}

TEST_F(quillon_, ends_at_once_as_a_second_instance_and_leaves_the_first_alone) {
    Window first{home, {"--port", "sim"}};
    ASSERT_TRUE(ready());
    home.write("QUILLON4_TEMP/temp.txt", "the first one's");
    Window second{home, {"--port", "sim"}};
    EXPECT_EQ(second.status(), 0);
    EXPECT_TRUE(first.runs());
    EXPECT_EQ(home.read("QUILLON4_TEMP/temp.txt"), "the first one's");
    EXPECT_TRUE(fs::exists(work("quillon.lock")));
    EXPECT_FALSE(saved("MainLeft="));
    first.send(SIGTERM);
    EXPECT_EQ(first.status(), 0);
    expect_left_in_order();
}

TEST_F(quillon_, starts_again_after_it_was_killed) {
    {
        Window killed{home, {"--port", "sim"}};
        ASSERT_TRUE(ready());
    }
    fs::remove(work("LOG_OLD9.txt"));
    Window window{home, {"--port", "sim"}};
    ASSERT_TRUE(ready());
    window.send(SIGTERM);
    EXPECT_EQ(window.status(), 0);
    expect_left_in_order();
}

TEST_F(quillon_, keeps_a_damaged_settings_file_and_what_could_be_read_of_it) {
    const std::string damaged = "[Settings6]\nSkipMode=1\nMainLeft=abc\nrubbish\n";
    home.write("settings.ini", damaged);
    Window window{home, {"--port", "sim"}};
    ASSERT_TRUE(ready());
    window.send(SIGTERM);
    EXPECT_EQ(window.status(), 0);
    EXPECT_EQ(home.read("settings.ini.bak"), damaged);
    EXPECT_TRUE(saved("SkipMode=1")) << settings();
    EXPECT_FALSE(saved("MainLeft=abc")) << settings();
    expect_left_in_order();
}

TEST_F(quillon_, runs_over_a_settings_file_that_cannot_be_written) {
    fs::create_directory(home / "settings.ini");
    Window window{home, {"--port", "sim"}};
    ASSERT_TRUE(ready());
    window.send(SIGTERM);
    EXPECT_EQ(window.status(), 0);
    EXPECT_FALSE(fs::exists(work("pgmmemory_temp.txt")));
}

}  // namespace
}  // namespace quillon::test
