// SPDX-License-Identifier: MIT
// The program's streams and files when they can't take its output.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <filesystem>
#include <iterator>
#include <string>

#include "cli_bench.h"
#include "program.h"

namespace quillon::cli {
namespace {

using test::kBlinker;
using test::Program;
using test::Surroundings;

constexpr std::string_view kNoSpace = "No space left on device";

using a_stream = test::ProgramBench;

// As in "quillon-cli ... | head -1".
TEST_F(a_stream, that_its_reader_closes_lets_the_run_finish) {
    Program program{on_board({"program", kBlinker})};
    ASSERT_TRUE(program.prints("\"event\""));
    program.close_output();
    EXPECT_EQ(program.wait(), 0) << program.err;

    test::CliBench later;
    EXPECT_EQ(
        later.on_board({"--device", "PIC16F877A", "--socket", path("s.json"), "verify", kBlinker}),
        0)
        << "the part is whole";
}

TEST_F(a_stream, that_its_reader_closes_leaves_the_status_of_the_run) {
    Program program{on_board({"--deadline", "1", "--fault", "rsp/silent-after:100", "read"})};
    ASSERT_TRUE(program.prints("\"event\""));
    program.close_output();
    EXPECT_EQ(program.wait(), 4);
}

TEST_F(a_stream, on_a_full_disk_makes_the_status_1_and_says_why) {
    const Surroundings full{.out = "/dev/full"};
    Program plain{line({"devices"}), full};
    EXPECT_EQ(plain.wait(), 1);
    EXPECT_NE(plain.err.find(kNoSpace), std::string::npos) << plain.err;
    Program lines{json({"devices"}), full};
    EXPECT_EQ(lines.wait(), 1);
    EXPECT_NE(lines.err.find(kNoSpace), std::string::npos) << lines.err;
    Program help{{"--help"}, full};
    EXPECT_EQ(help.wait(), 1);
    EXPECT_NE(help.err.find(kNoSpace), std::string::npos) << help.err;
}

TEST_F(a_stream, on_a_full_disk_hides_no_worse_status) {
    Program program{json({"--device", "PIC99", "blank"}), {.out = "/dev/full"}};
    EXPECT_EQ(program.wait(), 2);
    EXPECT_NE(program.err.find(kNoSpace), std::string::npos) << program.err;
}

TEST_F(a_stream, of_a_file_that_may_not_grow_kills_nothing) {
    Program program{on_board({"--trace", path("trace"), "blank"}), {.prepare = [] {
                        const rlimit limit{1000, 1000};
                        ::setrlimit(RLIMIT_FSIZE, &limit);
                    }}};
    EXPECT_EQ(program.wait(), 2) << "the part doesn't fit into its file";
    EXPECT_NE(program.err.find("s.json: File too large"), std::string::npos) << program.err;
}

TEST_F(a_stream, that_was_closed_at_the_start_catches_nothing_else) {
    Program program{on_board({"--trace", path("trace"), "blank"}), {.prepare = [] {
                        for (const int stream : {0, 1, 2}) ::close(stream);
                    }}};
    EXPECT_EQ(program.wait(), 0);
    EXPECT_NE(home.read("trace").find(" > 2A\n"), std::string::npos);
    EXPECT_EQ(home.read("trace").find("event"), std::string::npos);
    EXPECT_EQ(home.read("settings.ini").find("event"), std::string::npos);
}

// A pipe that another program has made non-blocking refuses bytes while it is full.
TEST_F(a_stream, that_is_full_for_a_while_loses_nothing) {
    constexpr int kSmallest = 4096;
    Program program{json({"devices"}), {.prepare = [] {
                        ::fcntl(STDOUT_FILENO, F_SETFL, O_NONBLOCK);
                        ::fcntl(STDOUT_FILENO, F_SETPIPE_SZ, kSmallest);
                    }}};
    for (int i = 0; i < 100 && program.unread() < kSmallest - 512; ++i) ::usleep(100'000);
    ::usleep(500'000);  // time to lose the rest
    EXPECT_EQ(program.wait(), 0) << program.err;
    EXPECT_NE(program.out.find("\"event\":\"result\""), std::string::npos);
}

TEST_F(a_stream, of_the_trace_that_takes_nothing_makes_the_status_1_and_says_why) {
    Program program{on_board({"--trace", "/dev/full", "blank"})};
    EXPECT_EQ(program.wait(), 1);
    EXPECT_NE(program.err.find("/dev/full"), std::string::npos) << program.err;
    EXPECT_NE(program.err.find(kNoSpace), std::string::npos) << program.err;
    EXPECT_NE(program.out.find("\"ResultAll\":\"YBYBYB\""), std::string::npos)
        << "the operation itself went on: " << program.out;
}

// Runs on a production line share the work folder at the same time.
TEST_F(a_stream, of_display_text_goes_to_a_folder_that_ends_with_the_run) {
    const test::TempFolder temporary;
    const Surroundings own{.prepare = [&] { ::setenv("TMPDIR", temporary.path().c_str(), 1); }};
    Program program{on_board({"--fault", "rsp/silent-after:100", "read"}), own};
    ASSERT_TRUE(program.prints("プログラムメモリ読み出し中")) << program.out;
    const auto folders = [&] {
        return std::distance(std::filesystem::directory_iterator{temporary.path()}, {});
    };
    EXPECT_EQ(folders(), 1);
    program.send(SIGTERM);
    EXPECT_EQ(program.wait(), 4);
    EXPECT_EQ(folders(), 0);
}

}  // namespace
}  // namespace quillon::cli
