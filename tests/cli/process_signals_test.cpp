// SPDX-License-Identifier: MIT
// What signals do to the program itself: they give an operation up in order, or do nothing.
#include <gtest/gtest.h>
#include <signal.h>

#include <chrono>
#include <string>
#include <thread>

#include "cli_bench.h"
#include "program.h"

namespace quillon::cli {
namespace {

using namespace std::chrono_literals;
using test::Program;
using test::Surroundings;

class a_signal : public test::ProgramBench {
  protected:
    // A read that hangs in a wait without a limit.
    std::vector<std::string> hanging_read() const {
        return on_board({"--fault", "rsp/silent-after:100", "read"});
    }
    static bool hangs(Program& program) {
        const bool reading = program.prints("プログラムメモリ読み出し中");
        std::this_thread::sleep_for(100ms);
        return reading;
    }
};

Surroundings ignoring(int signal) {
    return {.prepare = [signal] { ::signal(signal, SIG_IGN); }};
}

TEST_F(a_signal, of_a_terminal_that_goes_away_gives_up_as_a_polite_kill_does) {
    for (const int signal : {SIGHUP, SIGTERM, SIGINT}) {
        Program program{hanging_read()};
        ASSERT_TRUE(hangs(program)) << program.out;
        program.send(signal);
        EXPECT_EQ(program.wait(), 4) << signal;
        EXPECT_NE(program.out.find("\"status\":\"interrupted\""), std::string::npos) << program.out;
        EXPECT_NE(home.read("s.json").find("PIC16F877A"), std::string::npos) << "target kept";
    }
}

TEST_F(a_signal, that_was_ignored_at_the_start_stays_ignored) {
    for (const int signal : {SIGINT, SIGHUP}) {
        Program program{hanging_read(), ignoring(signal)};
        ASSERT_TRUE(hangs(program)) << program.out;
        program.send(signal);
        program.send(signal);
        std::this_thread::sleep_for(500ms);
        EXPECT_TRUE(program.runs()) << signal;
        program.send(SIGTERM);
        EXPECT_EQ(program.wait(), 4) << "signal " << signal << " left the other one to work";
    }
}

// Like "nohup quillon-cli ... &" in a script, but with all of these signals ignored.
TEST_F(a_signal, is_none_where_all_are_ignored) {
    Program program{on_board({"--deadline", "1", "--fault", "rsp/silent-after:100", "read"}),
                    {.prepare = [] {
                        for (const int signal : {SIGINT, SIGTERM, SIGHUP})
                            ::signal(signal, SIG_IGN);
                    }}};
    ASSERT_TRUE(hangs(program)) << program.out;
    program.send(SIGTERM);
    EXPECT_EQ(program.wait(), 4) << "the deadline still counts";
}

// A stray signal must not take away the ways to stop the program.
TEST_F(a_signal, that_means_nothing_to_the_program_leaves_ctrl_c_working) {
    Program program{hanging_read()};
    ASSERT_TRUE(hangs(program)) << program.out;
    program.send(SIGWINCH);
    program.send(SIGUSR1);
    std::this_thread::sleep_for(100ms);
    program.send(SIGINT);
    const int status = program.wait();
    EXPECT_TRUE(status == 4 || status == -SIGUSR1) << status;
}

// timeout(1) signals the program and then its process group.
TEST_F(a_signal, given_twice_in_one_moment_is_one_signal) {
    Program program{hanging_read()};
    ASSERT_TRUE(hangs(program)) << program.out;
    program.send(SIGTERM);
    program.send(SIGTERM);
    EXPECT_EQ(program.wait(), 4);
}

TEST_F(a_signal, given_twice_ends_the_program_at_once) {
    Program program{hanging_read()};
    ASSERT_TRUE(hangs(program)) << program.out;
    program.send(SIGINT);
    program.send(SIGTERM);
    const int status = program.wait();
    EXPECT_TRUE(status == 4 || status == -SIGTERM) << status;
}

}  // namespace
}  // namespace quillon::cli
