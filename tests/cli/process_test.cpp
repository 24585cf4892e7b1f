// SPDX-License-Identifier: MIT
// The program itself in real time: signals, the pseudo-terminal, its streams.
//
// One test programs a part over the pseudo-terminal at 57600 baud. It takes ten seconds because the
// bytes take that long.
#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "cli_bench.h"
#include "program.h"

namespace quillon::cli {
namespace {

using namespace std::chrono_literals;
using test::Program;

using quillon_cli = test::ProgramBench;

TEST_F(quillon_cli, tells_its_version) {
    Program program{{"--version"}};
    EXPECT_EQ(program.wait(), 0);
    EXPECT_TRUE(program.out.starts_with("quillon-cli ")) << program.out;
}

TEST_F(quillon_cli, ends_with_4_on_ctrl_c_in_a_wait_without_limit) {
    Program program{on_board({"--fault", "rsp/silent-after:100", "read"})};
    ASSERT_TRUE(program.prints("プログラムメモリ読み出し中")) << program.out;
    std::this_thread::sleep_for(200ms);
    program.send(SIGINT);
    EXPECT_EQ(program.wait(), 4);
    EXPECT_NE(program.out.find("操作を中止しました。"), std::string::npos) << program.out;
    EXPECT_NE(program.out.find("\"status\":\"interrupted\""), std::string::npos) << program.out;
}

TEST_F(quillon_cli, ends_with_4_at_its_deadline) {
    Program program{json({"--port", "sim", "--device", "PIC16F877A", "--deadline", "1", "--fault",
                          "silent-after:0", "program", test::kBlinker})};
    EXPECT_EQ(program.wait(), 4);
}

TEST_F(quillon_cli, serves_the_board_until_it_is_ended_and_takes_its_link_away) {
    Program server{json(
        {"--device", "PIC16F84A", "--socket", path("s.json"), "simulate", "--link", path("tty")})};
    ASSERT_TRUE(server.prints("\"event\":\"serving\""));
    EXPECT_NE(server.out.find(path("tty")), std::string::npos) << server.out;
    EXPECT_TRUE(std::filesystem::is_symlink(home / "tty"));

    Program client{json({"--port", path("tty"), "detect"})};
    EXPECT_EQ(client.wait(), 0) << client.out;
    EXPECT_NE(client.out.find("ZQ-LDR412A V6.80"), std::string::npos) << client.out;

    server.send(SIGTERM);
    EXPECT_EQ(server.wait(), 0) << server.out;
    EXPECT_FALSE(std::filesystem::exists(std::filesystem::symlink_status(home / "tty")));
}

TEST_F(quillon_cli, programs_the_blinker_over_a_pseudo_terminal_at_57600_baud) {
    Program server{json(
        {"--device", "PIC16F877A", "--socket", path("s.json"), "simulate", "--link", path("tty")})};
    ASSERT_TRUE(server.prints("\"event\":\"serving\""));
    Program client{
        json({"--port", path("tty"), "--device", "PIC16F877A", "program", test::kBlinker})};
    EXPECT_EQ(client.wait(), 0) << client.out;
    EXPECT_NE(client.out.find("\"ResultAll\":\"OKOKOK\""), std::string::npos) << client.out;
    server.send(SIGINT);
    EXPECT_EQ(server.wait(), 0) << server.out;

    // Reads the part again without the pseudo-terminal, with a virtual clock.
    test::CliBench cli;
    ASSERT_EQ(cli.on_board(
                  {"--device", "PIC16F877A", "--socket", path("s.json"), "verify", test::kBlinker}),
              0)
        << cli.out;
    EXPECT_EQ(cli.result()["ResultAll"], "OKOKOK");
}

}  // namespace
}  // namespace quillon::cli
