// SPDX-License-Identifier: MIT
// quillon-cli as a process, with streams, signals and input chosen by a test.
#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/fakes.h"

namespace quillon::test {

// What the program finds when it starts. The defaults are those of a pipe in a script.
struct Surroundings {
    std::string out{};  // a file to open for standard output, "" for a pipe that the test reads
    // Called in the program's process right before the program runs.
    std::function<void()> prepare = [] {};
};

// The program as a process. The destructor kills it if it still runs.
class Program {
  public:
    explicit Program(std::vector<std::string> arguments, const Surroundings& surroundings = {}) {
        arguments.insert(arguments.begin(), QUILLON_CLI);
        std::array<int, 2> out{-1, -1};
        std::array<int, 2> err{-1, -1};
        if (::pipe2(out.data(), O_CLOEXEC) != 0 || ::pipe2(err.data(), O_CLOEXEC) != 0) return;
        child_ = ::fork();
        if (child_ == 0) {
            ::dup2(out[1], STDOUT_FILENO);
            ::dup2(err[1], STDERR_FILENO);
            become(arguments, surroundings);
        }
        ::close(out[1]);
        ::close(err[1]);
        output_ = out[0];
        complaints_ = err[0];
    }
    ~Program() {
        kill();
        close_output();
        ::close(complaints_);
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    // Reads until the text has been printed; false at the end of the output or after a minute.
    bool prints(std::string_view text) {
        const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds{60};
        while (out.find(text) == std::string::npos) {
            if (std::chrono::steady_clock::now() > limit) return false;
            pollfd event{.fd = output_, .events = POLLIN, .revents = 0};
            if (::poll(&event, 1, 100) > 0 && !read_some(output_, out)) return false;
        }
        return true;
    }
    // Closes the reader's end, as `head` does.
    void close_output() {
        if (output_ >= 0) ::close(std::exchange(output_, -1));
    }
    // Bytes that it has printed and nobody has read.
    int unread() const {
        int count = 0;
        return ::ioctl(output_, FIONREAD, &count) == 0 ? count : 0;
    }
    bool runs() const {
        siginfo_t ended{};
        return ::waitid(P_PID, static_cast<id_t>(child_), &ended, WEXITED | WNOHANG | WNOWAIT) ==
                   0 &&
               ended.si_pid == 0;
    }
    void send(int signal) const { ::kill(child_, signal); }
    // The exit status, or minus the signal that killed it. Reads both streams to their ends.
    int wait() {
        if (output_ >= 0) prints(std::string(1, '\0'));
        while (read_some(complaints_, err)) continue;
        int status = 0;
        ::waitpid(std::exchange(child_, -1), &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }
    // Like a power cut: the program can't clean up.
    void kill() {
        if (child_ <= 0) return;
        ::kill(child_, SIGKILL);
        ::waitpid(std::exchange(child_, -1), nullptr, 0);
    }

    std::string out, err;

  private:
    // Seconds after which the system ends a program that hangs, so that the test fails.
    static constexpr unsigned kLongestLife = 40;

    static bool read_some(int from, std::string& into) {
        std::array<char, 4096> bytes{};
        const auto count = ::read(from, bytes.data(), bytes.size());
        if (count > 0) into.append(bytes.data(), static_cast<std::size_t>(count));
        return count > 0;
    }
    [[noreturn]] static void become(std::vector<std::string>& arguments,
                                    const Surroundings& surroundings) {
        ::close(STDIN_FILENO);
        ::open("/dev/null", O_RDONLY);
        if (!surroundings.out.empty()) {
            ::close(STDOUT_FILENO);
            ::open(surroundings.out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        }
        ::alarm(kLongestLife);
        surroundings.prepare();
        std::vector<char*> words;
        for (auto& argument : arguments) words.push_back(argument.data());
        words.push_back(nullptr);
        ::execv(words[0], words.data());
        ::_exit(127);
    }

    pid_t child_ = -1;
    int output_ = -1;
    int complaints_ = -1;
};

// A home folder for each test, and the arguments that select it.
class ProgramBench : public testing::Test {
  protected:
    std::vector<std::string> line(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(),
                         {"--home", home.path().string(), "--catalogue", QUILLON_CATALOGUE});
        return arguments;
    }
    std::vector<std::string> json(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), "--json");
        return line(std::move(arguments));
    }
    // On the simulated board, with its part in a file.
    std::vector<std::string> on_board(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(),
                         {"--port", "sim", "--device", "PIC16F877A", "--socket", path("s.json")});
        return json(std::move(arguments));
    }
    std::string path(std::string_view name) const { return (home / name).string(); }

    TempFolder home;
};

}  // namespace quillon::test
