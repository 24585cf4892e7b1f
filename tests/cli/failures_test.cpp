// SPDX-License-Identifier: MIT
// A board that isn't connected, vanishes or doesn't answer, and a user who gives up.
#include <gtest/gtest.h>

#include "cli_bench.h"

namespace quillon::cli {
namespace {

using test::CliBench;
using test::kBlinker;

class a_board_that : public testing::Test {
  protected:
    int run(std::string fault, std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(),
                         {"--device", "PIC16F877A", "--fault", std::move(fault)});
        return cli.on_board(std::move(arguments));
    }
    std::string last_message() const { return cli.of("message").back()["text"]; }

    CliBench cli;
};

TEST_F(a_board_that, does_not_answer_is_not_found) {
    EXPECT_EQ(run("silent-after:0", {"detect"}), 3);
    EXPECT_EQ(cli.result()["status"], "no-board");
    EXPECT_EQ(run("silent-after:0", {"program", kBlinker}), 3);
    EXPECT_NE(last_message().find("ライターを検出できませんでした。"), std::string::npos);
    EXPECT_GT(cli.result()["seconds"], 7.0) << "both attempts have their limits";
}

TEST_F(a_board_that, answers_the_second_burst_only_is_found) {
    EXPECT_EQ(run("ignore-bursts:1", {"blank"}), 0);
}

TEST_F(a_board_that, is_another_device_is_not_found) {
    EXPECT_EQ(run("identity:SOMETHING ELSE 9", {"detect"}), 3);
}

TEST_F(a_board_that, sends_another_byte_for_the_end_code_makes_the_operation_fail) {
    EXPECT_EQ(run("rsc/alter:17", {"blank"}), 1);
    EXPECT_EQ(cli.result()["ResultCfg"], "ER");
}

TEST_F(a_board_that, is_unplugged_in_the_middle_is_a_lost_link) {
    EXPECT_EQ(run("unplug-after:100", {"program", kBlinker}), 3);
    EXPECT_EQ(cli.result()["status"], "port-lost");
}

TEST_F(a_board_that, breaks_the_write_off_makes_the_operation_fail) {
    EXPECT_EQ(run("abort-write:5", {"program", kBlinker}), 1);
    EXPECT_EQ(cli.result()["TryCount"], 1);
    EXPECT_EQ(cli.result()["PassCount"], 0);
}

TEST_F(a_board_that, falls_silent_in_a_wait_without_limit_is_given_up_at_the_deadline) {
    EXPECT_EQ(run("rsp/silent-after:100", {"--deadline", "30", "read"}), 4);
    EXPECT_EQ(cli.result()["status"], "interrupted");
    EXPECT_GE(cli.result()["seconds"], 30.0);
    EXPECT_LT(cli.result()["seconds"], 31.0);
    EXPECT_EQ(last_message(), "操作を中止しました。");
}

TEST_F(a_board_that, works_is_not_disturbed_by_a_deadline_far_away) {
    EXPECT_EQ(cli.on_board({"--device", "PIC16F877A", "--deadline", "600", "blank"}), 0);
}

TEST(a_host_port, that_is_not_there_ends_with_3) {
    CliBench cli;
    EXPECT_EQ(cli.json({"--port", cli.path("tty"), "--device", "PIC16F877A", "blank"}), 3);
    EXPECT_EQ(cli.result()["status"], "no-board");
    EXPECT_EQ(cli.of("message").back()["colour"], "red");
    EXPECT_EQ(cli.json({"--port", "COM19", "detect"}), 3);
    EXPECT_EQ(cli.json({"--port", "/dev/null", "detect"}), 3) << "no serial port";
}

TEST(a_host_port, that_was_never_chosen_ends_with_3_and_says_what_to_do) {
    CliBench cli;
    EXPECT_EQ(cli.json({"--device", "PIC16F877A", "blank"}), 3);
    EXPECT_NE(cli.messages().back().find("シリアルポートが未指定です。"), std::string::npos);
    EXPECT_EQ(cli.json({"detect"}), 3);
    ASSERT_EQ(cli.of("box").size(), 1U);
    EXPECT_EQ(cli.of("box")[0]["icon"], "information");
}

TEST(the_simulated_board, leaves_no_trace_in_the_settings_of_ports) {
    CliBench cli;
    ASSERT_EQ(cli.on_board({"detect"}), 0);
    EXPECT_EQ(cli.home.read("settings.ini").find("ComNo"), std::string::npos);
}

}  // namespace
}  // namespace quillon::cli
