// SPDX-License-Identifier: MIT
// Tests with a real pseudo-terminal. They take some tens of milliseconds each.
#include "board/pty_server.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <system_error>
#include <thread>

#include "board_driver.h"
#include "support/fakes.h"
#include "support/ordinary_user.h"

namespace quillon {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

// A bare host on the terminal's other end.
class Terminal {
  public:
    explicit Terminal(const std::string& path)
        : file_{::open(path.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC)} {}
    ~Terminal() { ::close(file_); }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    bool is_open() const { return file_ >= 0; }
    bool write(std::vector<std::uint8_t> bytes) {
        return ::write(file_, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
    }
    void command(std::string_view letters, std::initializer_list<int> parameters = {}) {
        for (const char c : letters) paced(static_cast<std::uint8_t>(c));
        for (const int byte : parameters) paced(static_cast<std::uint8_t>(byte));
    }
    // Reads up to `count` bytes: fewer if nothing comes for 2 s or the terminal is gone.
    std::vector<std::uint8_t> read(std::size_t count) {
        std::vector<std::uint8_t> all;
        while (all.size() < count) {
            pollfd event{.fd = file_, .events = POLLIN, .revents = 0};
            if (::poll(&event, 1, 2000) != 1) break;
            std::uint8_t byte = 0;
            if (::read(file_, &byte, 1) != 1) break;
            all.push_back(byte);
        }
        return all;
    }

  private:
    void paced(std::uint8_t byte) {
        write({byte});
        std::this_thread::sleep_for(1ms);
    }
    int file_;
};

// A server in a thread of its own. A few measurements of the delay are enough here.
struct Service {
    explicit Service(PtyOptions options) : server{board, std::move(options)} {}
    explicit Service(int baud = 57600)
        : Service{PtyOptions{.baud = baud, .link = {}, .measurements = 4}} {}

    SimulatedBoard board{blank_target(test::facts_16f877a()), BoardTimes::none()};
    PtyServer server;
    std::jthread thread{[this](std::stop_token stop) { server.run(stop); }};
};

constexpr std::string_view kIdentity = "ZQ-LDR412A V6.80\r\n";

std::string text(const std::vector<std::uint8_t>& bytes) { return {bytes.begin(), bytes.end()}; }

TEST(PtyServer, serves_the_board_on_a_terminal) {
    Service service;
    Terminal host{service.server.path()};
    ASSERT_TRUE(host.is_open());
    host.command("***?");
    EXPECT_EQ(text(host.read(18)), kIdentity);
}

TEST(PtyServer, bytes_of_every_value_pass_unchanged) {
    Service service{0};
    for (std::size_t i = 0; i < 256; ++i)
        service.board.target().eeprom[i] = static_cast<std::uint8_t>(i);
    Terminal host{service.server.path()};
    host.command("nrsd", {1, 0});
    std::vector<std::uint8_t> all;
    while (all.size() < 512) {
        const auto block = host.read(16);
        ASSERT_EQ(block.size(), 16u);
        all.insert(all.end(), block.begin(), block.end());
        host.write({'@'});
    }
    EXPECT_EQ(text(host.read(1)), "@");
    for (std::size_t i = 0; i < 256; ++i) ASSERT_EQ(all[2 * i + 1], i);
}

TEST(PtyServer, is_never_faster_than_the_line) {
    Service service;
    Terminal host{service.server.path()};
    host.command("nwGe", {0, 100});
    host.read(1);
    const auto start = Clock::now();
    for (int i = 0; i < 99; ++i) {
        host.write({0x12, 0x34});
        ASSERT_EQ(host.read(1).size(), 1u);
    }
    const std::chrono::duration<double, std::micro> taken = Clock::now() - start;
    // 99 exchanges of three bytes. At each end up to one byte time is credited.
    EXPECT_GT(taken.count(), 99 * 3 * 173.6 - 2 * 173.7);
}

TEST(PtyServer, lives_on_when_the_host_closes_and_comes_back) {
    Service service;
    for (int round = 0; round < 3; ++round) {
        Terminal host{service.server.path()};
        ASSERT_TRUE(host.is_open());
        host.command("***?");
        EXPECT_EQ(text(host.read(18)), kIdentity);
    }
}

// Starts another process, which takes the terminal for exclusive use, as users of a serial port do.
pid_t exclusive_user(const std::string& path) {
    const pid_t user = ::fork();
    if (user != 0) return user;
    const int file = ::open(path.c_str(), O_RDWR | O_NOCTTY);
    ::ioctl(file, TIOCEXCL);
    ::flock(file, LOCK_EX);
    for (;;) ::pause();
}

bool becomes(bool open, const std::string& path) {
    const auto limit = Clock::now() + 10s;
    while (Terminal{path}.is_open() != open && Clock::now() < limit)
        std::this_thread::sleep_for(10ms);
    return Terminal{path}.is_open() == open;
}

// Exclusive use doesn't stop the superuser, so the test runs as an ordinary user.
TEST(PtyServer, is_free_again_after_its_user_was_killed_and_not_before) {
    const test::OrdinaryUser user;
    const Service service;
    const pid_t other = exclusive_user(service.server.path());
    EXPECT_TRUE(becomes(false, service.server.path()));
    std::this_thread::sleep_for(700ms);  // the server checks several times
    EXPECT_FALSE(Terminal{service.server.path()}.is_open()) << "the user still has it";
    ::kill(other, SIGKILL);
    ::waitpid(other, nullptr, 0);
    EXPECT_TRUE(becomes(true, service.server.path()));
}

TEST(PtyServer, stops_when_it_is_told_to) {
    Service service;
    const auto start = Clock::now();
    service.thread.request_stop();
    service.thread.join();
    EXPECT_LT(Clock::now() - start, 1s);
    Terminal host{service.server.path()};
    EXPECT_FALSE(host.is_open());
}

TEST(PtyServer, an_unplugged_board_takes_the_terminal_away) {
    PtyOptions options{.link = {}, .measurements = 4};
    SimulatedBoard board{blank_target(test::facts_16f877a()), BoardTimes::none()};
    board.add_fault("unplug-after:20");
    PtyServer server{board, options};
    std::jthread thread{[&](std::stop_token stop) { server.run(stop); }};
    Terminal host{server.path()};
    host.command("***?");
    EXPECT_EQ(text(host.read(18)), kIdentity);
    host.command("nrsp", {0x20, 0});
    EXPECT_LE(host.read(16).size(), 2u);
    thread.join();
    EXPECT_FALSE(host.write({'@'}));
}

TEST(PtyServer, makes_and_removes_a_link_to_its_terminal) {
    const test::TempFolder folder;
    const auto link = folder / "board";
    std::filesystem::create_symlink("/nowhere", link);
    folder.write("board.new", "somebody's");
    {
        const Service service{PtyOptions{.link = link, .measurements = 4}};
        EXPECT_EQ(std::filesystem::read_symlink(link), service.server.path());
    }
    EXPECT_EQ(folder.read("board.new"), "somebody's");
    EXPECT_FALSE(std::filesystem::is_symlink(std::filesystem::symlink_status(link)));
}

TEST(PtyServer, leaves_a_link_alone_that_somebody_else_has_put_there) {
    const test::TempFolder folder;
    const auto link = folder / "board";
    {
        const Service service{PtyOptions{.link = link, .measurements = 4}};
        std::filesystem::remove(link);
        std::filesystem::create_symlink("/elsewhere", link);
    }
    EXPECT_EQ(std::filesystem::read_symlink(link), "/elsewhere");
}

TEST(PtyServer, never_replaces_a_file_that_is_no_link) {
    const test::TempFolder folder;
    const auto file = folder.write("board", "mine");
    SimulatedBoard board;
    EXPECT_THROW((PtyServer{board, PtyOptions{.link = file, .measurements = 4}}),
                 std::system_error);
    EXPECT_EQ(folder.read("board"), "mine");
    EXPECT_THROW((PtyServer{board, PtyOptions{.link = folder / "no/where", .measurements = 4}}),
                 std::system_error);
}

}  // namespace
}  // namespace quillon
