// SPDX-License-Identifier: MIT
// The program itself, in true time: signals, the pseudo-terminal, its streams.
//
// The one test that programs a part over the pseudo-terminal at 57600 baud takes ten seconds: that
// is how long the bytes take.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "cli_bench.h"

namespace quillon::cli {
namespace {

using namespace std::chrono_literals;
using test::TempFolder;

// quillon-cli with its standard output at hand. It is killed where a test lets go of it.
class Program {
  public:
    explicit Program(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), QUILLON_CLI);
        int ends[2];
        if (::pipe(ends) != 0) return;
        child_ = ::fork();
        if (child_ == 0) {
            ::dup2(ends[1], STDOUT_FILENO);
            ::close(ends[0]);
            ::close(ends[1]);
            ::close(STDIN_FILENO);
            ::open("/dev/null", O_RDONLY);
            std::vector<char*> words;
            for (auto& argument : arguments) words.push_back(argument.data());
            words.push_back(nullptr);
            ::execv(words[0], words.data());
            ::_exit(127);
        }
        ::close(ends[1]);
        output_ = ends[0];
    }
    ~Program() {
        if (child_ > 0) {
            ::kill(child_, SIGKILL);
            ::waitpid(child_, nullptr, 0);
        }
        ::close(output_);
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    // Reads on until the text has been printed; false at the end of the output or after a minute.
    bool prints(std::string_view text) {
        const auto limit = std::chrono::steady_clock::now() + 60s;
        while (out.find(text) == std::string::npos) {
            pollfd event{.fd = output_, .events = POLLIN, .revents = 0};
            if (std::chrono::steady_clock::now() > limit) return false;
            if (::poll(&event, 1, 100) <= 0) continue;
            char bytes[4096];
            const auto count = ::read(output_, bytes, sizeof bytes);
            if (count <= 0) return false;
            out.append(bytes, static_cast<std::size_t>(count));
        }
        return true;
    }
    void send(int signal) const { ::kill(child_, signal); }
    // The exit status, or minus the signal that killed it. Reads the output to its end.
    int wait() {
        prints(std::string(1, '\0'));
        int status = 0;
        ::waitpid(child_, &status, 0);
        child_ = -1;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }

    std::string out;

  private:
    pid_t child_ = -1;
    int output_ = -1;
};

class quillon_cli : public testing::Test {
  protected:
    std::vector<std::string> line(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), {"--home", home.path().string(), "--catalogue",
                                             QUILLON_CATALOGUE, "--json"});
        return arguments;
    }
    std::string path(std::string_view name) const { return (home / name).string(); }

    TempFolder home;
};

TEST_F(quillon_cli, tells_its_version) {
    Program program{{"--version"}};
    EXPECT_EQ(program.wait(), 0);
    EXPECT_TRUE(program.out.starts_with("quillon-cli ")) << program.out;
}

TEST_F(quillon_cli, ends_with_4_on_ctrl_c_in_a_wait_without_limit) {
    Program program{line({"--port", "sim", "--device", "PIC16F877A", "--socket", path("s.json"),
                          "--fault", "rsp/silent-after:100", "read"})};
    ASSERT_TRUE(program.prints("プログラムメモリ読み出し中")) << program.out;
    std::this_thread::sleep_for(200ms);
    program.send(SIGINT);
    EXPECT_EQ(program.wait(), 4);
    EXPECT_NE(program.out.find("操作を中止しました。"), std::string::npos) << program.out;
    EXPECT_NE(program.out.find("\"status\":\"interrupted\""), std::string::npos) << program.out;
}

TEST_F(quillon_cli, ends_with_4_at_its_deadline) {
    Program program{line({"--port", "sim", "--device", "PIC16F877A", "--deadline", "1", "--fault",
                          "silent-after:0", "program", test::kBlinker})};
    EXPECT_EQ(program.wait(), 4);
}

TEST_F(quillon_cli, serves_the_board_until_it_is_ended_and_takes_its_link_away) {
    Program server{line(
        {"--device", "PIC16F84A", "--socket", path("s.json"), "simulate", "--link", path("tty")})};
    ASSERT_TRUE(server.prints("\"event\":\"serving\""));
    EXPECT_NE(server.out.find(path("tty")), std::string::npos) << server.out;
    EXPECT_TRUE(std::filesystem::is_symlink(home / "tty"));

    Program client{line({"--port", path("tty"), "detect"})};
    EXPECT_EQ(client.wait(), 0) << client.out;
    EXPECT_NE(client.out.find("ZQ-LDR412A V6.80"), std::string::npos) << client.out;

    server.send(SIGTERM);
    EXPECT_EQ(server.wait(), 0) << server.out;
    EXPECT_FALSE(std::filesystem::exists(std::filesystem::symlink_status(home / "tty")));
}

TEST_F(quillon_cli, programs_the_blinker_over_a_pseudo_terminal_at_57600_baud) {
    Program server{line(
        {"--device", "PIC16F877A", "--socket", path("s.json"), "simulate", "--link", path("tty")})};
    ASSERT_TRUE(server.prints("\"event\":\"serving\""));
    Program client{
        line({"--port", path("tty"), "--device", "PIC16F877A", "program", test::kBlinker})};
    EXPECT_EQ(client.wait(), 0) << client.out;
    EXPECT_NE(client.out.find("\"ResultAll\":\"OKOKOK\""), std::string::npos) << client.out;
    server.send(SIGINT);
    EXPECT_EQ(server.wait(), 0) << server.out;

    // The part is read again by the other way, which has a clock of its own.
    test::CliBench cli;
    ASSERT_EQ(cli.on_board(
                  {"--device", "PIC16F877A", "--socket", path("s.json"), "verify", test::kBlinker}),
              0)
        << cli.out;
    EXPECT_EQ(cli.result()["ResultAll"], "OKOKOK");
}

}  // namespace
}  // namespace quillon::cli
