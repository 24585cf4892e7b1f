// SPDX-License-Identifier: MIT
#include "platform/qt_serial_port.h"

#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <QCoreApplication>
#include <optional>
#include <thread>

#include "app/host.h"
#include "platform/pty.h"
#include "support/ordinary_user.h"

namespace quillon {
namespace {

using namespace std::chrono_literals;
using test::Pty;
using Clock = std::chrono::steady_clock;

std::string text(const std::vector<std::uint8_t>& bytes) { return {bytes.begin(), bytes.end()}; }

std::vector<std::uint8_t> bytes(std::string_view text) { return {text.begin(), text.end()}; }

// The reason with which the call gives up, nothing if it returns.
template <typename Call>
std::optional<Abandoned::Reason> abandons(Call call) {
    try {
        call();
    } catch (const Abandoned& abandoned) {
        return abandoned.reason;
    }
    return std::nullopt;
}

class QtSerialPort_ : public testing::Test {
  protected:
    QtSerialPort_() { port.CommPort(4); }
    void open() { ASSERT_EQ(port.open(), PortOpen::Ok); }
    // Waits as the link does, in slices, for at most a second.
    bool wait_for(std::size_t wanted) {
        const auto end = Clock::now() + 1s;
        while (port.InBufferCount() < wanted && Clock::now() < end) port.wait_for_data(wanted, 5ms);
        return port.InBufferCount() >= wanted;
    }

    int count_ = 1;
    std::string name_ = "platform_tests";
    std::array<char*, 2> arguments_{name_.data(), nullptr};
    QCoreApplication application_{count_, arguments_.data()};
    Pty pty;
    QtSerialPort port{[this](int number) { return number == 4 ? pty.path() : std::string{}; }};
};

TEST_F(QtSerialPort_, opens_a_pseudo_terminal_at_57600_8N1_without_flow_control) {
    EXPECT_FALSE(port.is_open());
    open();
    EXPECT_TRUE(port.is_open());
    termios settings{};
    ASSERT_EQ(tcgetattr(pty.slave(), &settings), 0);
    EXPECT_EQ(cfgetospeed(&settings), static_cast<speed_t>(B57600));
    EXPECT_EQ(cfgetispeed(&settings), static_cast<speed_t>(B57600));
    EXPECT_EQ(settings.c_cflag & CSIZE, static_cast<tcflag_t>(CS8));
    EXPECT_EQ(settings.c_cflag & (PARENB | CSTOPB | CRTSCTS), 0U);
    EXPECT_EQ(settings.c_iflag & (IXON | IXOFF | ICRNL | INLCR), 0U);
    EXPECT_EQ(settings.c_lflag & (ICANON | ECHO), 0U);
}

TEST_F(QtSerialPort_, passes_every_byte_value_both_ways) {
    open();
    std::string all;
    for (int value = 0; value < 256; ++value) all += static_cast<char>(value);
    port.write(bytes(all));
    EXPECT_EQ(pty.receive(256), all);
    pty.send(all);
    ASSERT_TRUE(wait_for(256));
    EXPECT_EQ(text(port.read()), all);
    EXPECT_EQ(port.InBufferCount(), 0U);
}

TEST_F(QtSerialPort_, holds_more_than_the_systems_own_buffer) {
    open();
    const std::string block(4000, 'x');
    for (int i = 0; i < 9; ++i) {
        pty.send(block);
        ASSERT_TRUE(wait_for(4000U * static_cast<unsigned>(i + 1)));
    }
    EXPECT_EQ(port.read().size(), 36000U);
}

TEST_F(QtSerialPort_, takes_an_rts_setting_where_the_port_has_no_such_line) {
    port.RTSEnable(true);
    open();
    port.RTSEnable(false);
    port.write(bytes("?"));
    EXPECT_EQ(pty.receive(1), "?");
}

TEST_F(QtSerialPort_, discards_what_has_been_received) {
    open();
    pty.send("rest");
    ASSERT_TRUE(wait_for(4));
    port.discard_input();
    EXPECT_EQ(port.InBufferCount(), 0U);
    pty.send("new");
    ASSERT_TRUE(wait_for(3));
    EXPECT_EQ(text(port.read()), "new");
}

// A pseudo-terminal has no line: what the board's side hasn't read yet must count as sent.
TEST_F(QtSerialPort_, discards_no_output_that_the_line_has_had_time_to_carry) {
    open();
    port.write(bytes("p"));
    std::this_thread::sleep_for(1ms);
    port.discard_output();
    EXPECT_EQ(pty.receive(1), "p");
}

TEST_F(QtSerialPort_, leaves_the_bytes_to_its_reader_while_the_event_loop_turns) {
    open();
    pty.send("abc");
    for (int i = 0; i < 10; ++i) {
        QCoreApplication::processEvents();
        std::this_thread::sleep_for(1ms);
    }
    ASSERT_TRUE(wait_for(3));
    EXPECT_EQ(text(port.read()), "abc");
}

TEST_F(QtSerialPort_, is_unavailable_without_a_name_and_where_the_name_leads_nowhere) {
    port.CommPort(5);
    EXPECT_EQ(port.open(), PortOpen::Unavailable);
    QtSerialPort absent{[](int) { return std::string{"/dev/quillon-absent"}; }};
    EXPECT_EQ(absent.open(), PortOpen::Unavailable);
    EXPECT_FALSE(absent.is_open());
    QtSerialPort folder{[](int) { return std::string{"/tmp"}; }};
    EXPECT_EQ(folder.open(), PortOpen::Unavailable);
}

TEST_F(QtSerialPort_, is_denied_to_a_user_without_rights_to_it) {
    ASSERT_EQ(::fchmod(pty.slave(), 0600), 0);
    const test::OrdinaryUser user;
    if (::faccessat(AT_FDCWD, pty.path().c_str(), R_OK, AT_EACCESS) == 0)
        GTEST_SKIP() << "the terminal belongs to this user";
    EXPECT_EQ(port.open(), PortOpen::Denied);
    EXPECT_FALSE(port.is_open());
}

TEST_F(QtSerialPort_, is_busy_while_somebody_else_holds_it) {
    open();
    QtSerialPort other{[this](int) { return pty.path(); }};
    EXPECT_EQ(other.open(), PortOpen::Busy);
    EXPECT_FALSE(other.is_open());
    port.close();
    EXPECT_EQ(other.open(), PortOpen::Ok);
}

// The system's own exclusion doesn't stop the superuser, but two programs must not share a board.
TEST_F(QtSerialPort_, is_busy_while_another_program_holds_the_device_by_its_lock) {
    open();
    const int other = ::open(pty.path().c_str(), O_RDWR | O_NOCTTY);
    if (other >= 0) {
        EXPECT_NE(::flock(other, LOCK_EX | LOCK_NB), 0);
        ::close(other);
    }
    port.close();
    const int holder = ::open(pty.path().c_str(), O_RDWR | O_NOCTTY);
    ASSERT_GE(holder, 0);
    ASSERT_EQ(::flock(holder, LOCK_EX | LOCK_NB), 0);
    EXPECT_EQ(port.open(), PortOpen::Busy);
    ::close(holder);
    EXPECT_EQ(port.open(), PortOpen::Ok);
}

TEST_F(QtSerialPort_, can_be_opened_again_after_a_close) {
    open();
    pty.send("old");
    ASSERT_TRUE(wait_for(3));
    port.close();
    port.close();
    EXPECT_FALSE(port.is_open());
    open();
    EXPECT_EQ(port.InBufferCount(), 0U);
    port.write(bytes("?"));
    EXPECT_EQ(pty.receive(1), "?");
}

TEST_F(QtSerialPort_, has_nothing_and_discards_nothing_while_closed) {
    EXPECT_EQ(port.InBufferCount(), 0U);
    EXPECT_TRUE(port.read().empty());
    port.discard_input();
    port.discard_output();
    EXPECT_EQ(abandons([&] { port.write(bytes("?")); }), Abandoned::Reason::PortLost);
    EXPECT_EQ(abandons([&] { port.wait_for_data(1, 1ms); }), Abandoned::Reason::PortLost);
}

TEST_F(QtSerialPort_, gives_up_in_every_call_once_the_port_has_vanished) {
    open();
    pty.vanish();
    EXPECT_EQ(abandons([&] { port.wait_for_data(1, 1s); }), Abandoned::Reason::PortLost);
    EXPECT_EQ(abandons([&] { port.write(bytes("?")); }), Abandoned::Reason::PortLost);
    EXPECT_EQ(abandons([&] { port.InBufferCount(); }), Abandoned::Reason::PortLost);
    EXPECT_EQ(abandons([&] { port.read(); }), Abandoned::Reason::PortLost);
    EXPECT_EQ(abandons([&] { port.discard_input(); }), Abandoned::Reason::PortLost);
    EXPECT_EQ(abandons([&] { port.discard_output(); }), Abandoned::Reason::PortLost);
    EXPECT_EQ(abandons([&] { port.wait_for_data(1, 1ms); }), Abandoned::Reason::PortLost);
    port.close();
    EXPECT_FALSE(port.is_open());
}

TEST_F(QtSerialPort_, finds_a_vanished_port_by_a_write_alone) {
    open();
    pty.vanish();
    EXPECT_EQ(abandons([&] { port.write(bytes("?")); }), Abandoned::Reason::PortLost);
}

TEST_F(QtSerialPort_, finds_a_port_that_vanishes_in_an_idle_wait_at_once) {
    open();
    std::thread unplug{[this] {
        std::this_thread::sleep_for(20ms);
        pty.vanish();
    }};
    const auto start = Clock::now();
    EXPECT_EQ(abandons([&] { port.wait_for_data(1, 5s); }), Abandoned::Reason::PortLost);
    EXPECT_LT(Clock::now() - start, 2s);
    unplug.join();
}

TEST_F(QtSerialPort_, waits_no_longer_than_the_time_given) {
    open();
    const auto start = Clock::now();
    port.wait_for_data(1, 20ms);
    EXPECT_GE(Clock::now() - start, 19ms);
    pty.send("a");
    port.wait_for_data(2, 20ms);  // one is there, the other never comes
    EXPECT_LT(Clock::now() - start, 2s);
    EXPECT_EQ(text(port.read()), "a");
}

TEST_F(QtSerialPort_, wakes_when_the_byte_comes) {
    open();
    std::thread board{[this] {
        std::this_thread::sleep_for(20ms);
        pty.send("!");
    }};
    const auto start = Clock::now();
    port.wait_for_data(1, 10s);
    EXPECT_LT(Clock::now() - start, 5s);
    EXPECT_EQ(port.InBufferCount(), 1U);
    board.join();
}

TEST_F(QtSerialPort_, waits_for_the_rest_of_a_block_that_comes_in_pieces) {
    open();
    std::thread board{[this] {
        for (int i = 0; i < 16; ++i) {
            pty.send("x");
            std::this_thread::sleep_for(174us);
        }
    }};
    EXPECT_TRUE(wait_for(16));
    board.join();
}

TEST_F(QtSerialPort_, costs_next_to_no_processor_time_while_the_line_is_silent) {
    open();
    const auto used = [] {
        rusage usage{};
        ::getrusage(RUSAGE_THREAD, &usage);
        return std::chrono::seconds{usage.ru_utime.tv_sec + usage.ru_stime.tv_sec} +
               std::chrono::microseconds{usage.ru_utime.tv_usec + usage.ru_stime.tv_usec};
    };
    const auto before = used();
    const auto end = Clock::now() + 200ms;
    while (Clock::now() < end) port.wait_for_data(16, 5ms);
    EXPECT_LT(used() - before, 50ms);
}

}  // namespace
}  // namespace quillon
