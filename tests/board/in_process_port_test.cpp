// SPDX-License-Identifier: MIT
#include "board/in_process_port.h"

#include <gtest/gtest.h>

#include <chrono>
#include <ctime>

#include "board_driver.h"
#include "support/fakes.h"

namespace quillon {
namespace {

using namespace std::chrono_literals;

struct Bench {
    explicit Bench(int baud = 57600, BoardTimes times = BoardTimes::none())
        : board{blank_target(test::facts_16f877a()), times},
          time{host, [this](Host::Time to) { host.advance_to(to); }},
          port{board, time, baud} {
        port.CommPort(3);
    }
    void send(std::string_view letters, std::initializer_list<int> parameters = {}) {
        for (const char c : letters) paced(static_cast<std::uint8_t>(c));
        for (const int byte : parameters) paced(static_cast<std::uint8_t>(byte));
    }
    void paced(std::uint8_t byte) {
        port.write({&byte, 1});
        host.sleep(1ms);
    }
    test::FakeHost host;
    SimulatedBoard board;
    VirtualTime time;
    InProcessPort port;
};

TEST(InProcessPort, carries_a_command_and_its_reply) {
    Bench bench;
    EXPECT_EQ(bench.port.open(), PortOpen::Ok);
    bench.send("nbs", {0x20, 0});
    bench.port.wait_for_data(3, 10s);
    EXPECT_EQ(bench.port.read(), (std::vector<std::uint8_t>{0x3F, 0xFF, 0x40}));
    EXPECT_EQ(bench.port.InBufferCount(), 0u);
    EXPECT_EQ(bench.port.wire().text(), "> nbs 20 00  < 3F FF @\n");
    EXPECT_TRUE(bench.board.notes().empty());
}

TEST(InProcessPort, a_wait_moves_time_to_the_awaited_byte_and_no_further) {
    Bench bench;
    (void)bench.port.open();
    bench.send("nb");
    const auto before = bench.host.now();
    bench.port.write(std::vector<std::uint8_t>{'?'});  // unknown: no answer
    bench.host.sleep(1ms);
    bench.send("***");
    const std::uint8_t question = '?';
    const auto asked = bench.host.now();
    bench.port.write({&question, 1});
    bench.port.wait_for_data(18, 4s);
    EXPECT_EQ(bench.port.InBufferCount(), 18u);
    const auto byte = std::chrono::nanoseconds{10s} / 57600;
    EXPECT_EQ(bench.host.now() - asked, 19 * byte);
    EXPECT_GT(asked, before);
}

TEST(InProcessPort, a_wait_in_vain_takes_its_limit_of_virtual_time) {
    Bench bench;
    (void)bench.port.open();
    const auto before = bench.host.now();
    bench.port.wait_for_data(1, 10s);
    EXPECT_EQ(bench.host.now() - before, 10s);
    EXPECT_EQ(bench.port.InBufferCount(), 0u);
}

TEST(InProcessPort, a_line_of_no_baud_takes_no_time) {
    Bench bench{0};
    (void)bench.port.open();
    bench.send("mD", {5});
    const auto before = bench.host.now();
    bench.port.wait_for_data(1, 10s);
    EXPECT_EQ(bench.host.now(), before);
    EXPECT_EQ(bench.port.read(), std::vector<std::uint8_t>{5});
}

TEST(InProcessPort, an_item_exchange_takes_three_byte_times_at_true_speed) {
    Bench bench;
    (void)bench.port.open();
    bench.send("nwGe", {0x01, 0x00});
    const auto before = bench.host.now();
    for (int i = 0; i < 256; ++i) {
        bench.port.wait_for_data(1, 10s);
        ASSERT_EQ(bench.port.read().size(), 1u);
        bench.port.write(std::vector<std::uint8_t>{0x12, 0x34});
    }
    bench.port.wait_for_data(1, 10s);
    EXPECT_EQ(bench.port.read(), std::vector<std::uint8_t>{'@'});
    EXPECT_EQ(bench.host.now() - before, 256 * 3 * (std::chrono::nanoseconds{10s} / 57600));
    EXPECT_EQ(bench.board.target().program[255], 0x1234);
}

TEST(InProcessPort, waits_out_the_boards_own_work) {
    Bench bench{0, {.erase = 50ms}};
    (void)bench.port.open();
    bench.send("nbd");
    const std::uint8_t mode = 0x0A;
    bench.port.write({&mode, 1});
    const auto before = bench.host.now();
    bench.port.wait_for_data(1, 3s);
    EXPECT_EQ(bench.host.now() - before, 50ms);
    EXPECT_EQ(bench.port.InBufferCount(), 1u);
}

TEST(InProcessPort, a_report_of_several_bytes_is_seen_at_once) {
    Bench bench;
    bench.board.add_fault("abort-write:1");
    (void)bench.port.open();
    bench.send("nwed", {0, 2});
    bench.port.wait_for_data(1, 10s);
    bench.port.read();
    bench.port.write(std::vector<std::uint8_t>{0x3F, 0x11});
    bench.port.wait_for_data(1, 10s);
    EXPECT_EQ(bench.port.read(), (std::vector<std::uint8_t>{'*', 0x00, 0x11, '@'}));
}

TEST(InProcessPort, discarded_bytes_are_gone_but_stand_in_the_log) {
    Bench bench;
    (void)bench.port.open();
    bench.send("?");
    bench.host.sleep(200ms);
    bench.port.discard_input();
    EXPECT_EQ(bench.port.InBufferCount(), 0u);
    EXPECT_EQ(bench.port.wire().text(), "> ?  < ZQ-LDR412A V6.80\n");
}

TEST(InProcessPort, keeps_what_the_host_has_set) {
    Bench bench;
    EXPECT_FALSE(bench.port.is_open());
    EXPECT_EQ(bench.port.rts(), std::nullopt);
    bench.port.RTSEnable(false);
    EXPECT_EQ(bench.port.rts(), false);
    EXPECT_EQ(bench.port.number(), 3);
    EXPECT_EQ(bench.port.open(), PortOpen::Ok);
    EXPECT_TRUE(bench.port.is_open());
    bench.port.close();
    bench.port.close();
    EXPECT_FALSE(bench.port.is_open());
    EXPECT_EQ(bench.port.opens(), 1);
    EXPECT_EQ(bench.port.closes(), 1);
}

TEST(InProcessPort, can_be_busy_or_unavailable) {
    Bench bench;
    bench.port.set_open_result(PortOpen::Busy);
    EXPECT_EQ(bench.port.open(), PortOpen::Busy);
    EXPECT_FALSE(bench.port.is_open());
    bench.port.set_open_result(PortOpen::Unavailable);
    EXPECT_EQ(bench.port.open(), PortOpen::Unavailable);
}

TEST(InProcessPort, what_comes_while_it_is_closed_is_lost) {
    Bench bench{57600, {.erase = 50ms}};
    (void)bench.port.open();
    bench.send("nbd", {0x0A});
    bench.port.close();
    bench.host.sleep(100ms);
    (void)bench.port.open();
    EXPECT_EQ(bench.port.InBufferCount(), 0u);
}

void expect_lost(const std::function<void()>& call) {
    try {
        call();
        FAIL() << "the port was there";
    } catch (const Abandoned& given_up) {
        EXPECT_EQ(given_up.reason, Abandoned::Reason::PortLost);
    }
}

TEST(InProcessPort, a_vanished_port_gives_every_call_up) {
    Bench bench;
    (void)bench.port.open();
    bench.board.add_fault("unplug-after:5");
    bench.send("nrsp", {0x20, 0});
    expect_lost([&] { bench.port.wait_for_data(16, 10s); });
    EXPECT_LT(bench.host.now(), 1s);
    expect_lost([&] { (void)bench.port.InBufferCount(); });
    expect_lost([&] { (void)bench.port.read(); });
    expect_lost([&] { bench.port.write(std::vector<std::uint8_t>{'@'}); });
    expect_lost([&] { bench.port.discard_input(); });
    bench.port.close();
    EXPECT_FALSE(bench.port.is_open());
    EXPECT_EQ(bench.port.open(), PortOpen::Unavailable);
    bench.board.clear_faults();
    EXPECT_EQ(bench.port.open(), PortOpen::Ok);
}

TEST(InProcessPort, a_closed_port_has_nothing_waiting_and_takes_nothing) {
    Bench bench;
    EXPECT_EQ(bench.port.InBufferCount(), 0U);
    EXPECT_NO_THROW(bench.port.discard_input());
    EXPECT_NO_THROW(bench.port.discard_output());
    expect_lost([&] { bench.port.write(std::vector<std::uint8_t>{'?'}); });
    expect_lost([&] { (void)bench.port.read(); });
}

TEST(InProcessPort, slow_lines_keep_items_that_begin_with_a_star_apart_from_calls) {
    Bench bench{9600};
    (void)bench.port.open();
    bench.send("nwGe", {0, 1});
    bench.port.wait_for_data(1, 10s);
    bench.port.read();
    bench.port.write(std::vector<std::uint8_t>{'*', 0x05});
    bench.port.wait_for_data(1, 10s);
    EXPECT_EQ(bench.port.read(), std::vector<std::uint8_t>{'@'});
    EXPECT_EQ(bench.board.target().program[0], 0x2A05);
}

// A host with the machine's real clock.
class ClockHost : public test::FakeHost {
  public:
    Time now() const override { return std::chrono::steady_clock::now().time_since_epoch(); }
};

TEST(InProcessPort, runs_by_the_machines_clock_as_well) {
    const ClockHost host;
    RealTime time{host};
    SimulatedBoard board{blank_target(test::facts_16f877a()), {.erase = 5ms}};
    InProcessPort port{board, time, 57600};
    (void)port.open();
    const auto before = host.now();
    for (const int byte : {int{'n'}, int{'b'}, int{'d'}, 0x0A}) {
        const auto value = static_cast<std::uint8_t>(byte);
        port.write({&value, 1});
        time.advance_to(host.now() + 1ms);
    }
    port.wait_for_data(1, 3s);
    EXPECT_EQ(port.read(), std::vector<std::uint8_t>{'@'});
    EXPECT_GE(host.now() - before, 8ms);
    EXPECT_TRUE(board.notes().empty());
}

}  // namespace
}  // namespace quillon
