// SPDX-License-Identifier: MIT
// Two processes that ask for one port: the second one must not disturb the first one's part.
#include <gtest/gtest.h>

#include <string>

#include "cli_bench.h"
#include "program.h"

namespace quillon::cli {
namespace {

using test::Program;

using quillon_cli_port = test::ProgramBench;

// A search says who has the port. The check of an operation has one line for all ports that can't
// be opened.
constexpr std::string_view kInUse = "他のソフトウエアが、すでに通信ポート使用しています。";
constexpr std::string_view kNotOpened = "シリアルポートが未指定です。";

TEST_F(quillon_cli_port, is_refused_to_a_second_process_which_then_does_nothing) {
    // The board stops in the first process's read, so that it holds the port.
    Program server{json({"--device", "PIC16F84A", "--socket", path("s.json"), "--fault",
                         "rsp/silent-after:100", "simulate", "--link", path("tty")})};
    ASSERT_TRUE(server.prints("\"event\":\"serving\""));
    Program first{json({"--port", path("tty"), "--device", "PIC16F84A", "read"})};
    ASSERT_TRUE(first.prints("プログラムメモリ読み出し中")) << first.out;

    Program search{json({"--port", path("tty"), "detect"})};
    EXPECT_EQ(search.wait(), 3) << search.out;
    EXPECT_NE(search.out.find(kInUse), std::string::npos) << search.out;
    for (const char* command : {"blank", "read"}) {
        Program second{json({"--port", path("tty"), "--device", "PIC16F84A", command})};
        EXPECT_EQ(second.wait(), 3) << second.out;
        EXPECT_NE(second.out.find(kNotOpened), std::string::npos) << command << second.out;
        EXPECT_EQ(second.out.find("読み出し中"), std::string::npos) << second.out;
        EXPECT_EQ(second.out.find("ブランクチェック中"), std::string::npos) << second.out;
    }
    EXPECT_TRUE(first.runs());

    first.send(SIGINT);
    EXPECT_EQ(first.wait(), 4) << first.out;
    server.send(SIGTERM);
    EXPECT_EQ(server.wait(), 0) << server.out;
}

}  // namespace
}  // namespace quillon::cli
