// SPDX-License-Identifier: MIT
#include "cli/trace.h"

#include <gtest/gtest.h>

#include <array>
#include <sstream>
#include <utility>

#include "support/fakes.h"

namespace quillon::cli {
namespace {

using namespace std::chrono_literals;

// A port that returns the bytes that the test has put in.
class ScriptedPort : public SerialPort {
  public:
    void CommPort(int number) override { number_ = number; }
    PortOpen open() override { return opens; }
    void close() override {}
    bool is_open() const override { return true; }
    void RTSEnable(bool on) override { rts = on; }
    std::size_t InBufferCount() override { return waiting.size(); }
    void discard_input() override { waiting.clear(); }
    void discard_output() override {}
    void write(std::span<const std::uint8_t> bytes) override {
        if (lost) throw Abandoned{Abandoned::Reason::PortLost};
        written.insert(written.end(), bytes.begin(), bytes.end());
    }
    std::vector<std::uint8_t> read() override { return std::exchange(waiting, {}); }
    void wait_for_data(std::size_t wanted, std::chrono::microseconds) override { asked = wanted; }

    PortOpen opens = PortOpen::Busy;
    bool rts = false, lost = false;
    int number_ = 0;
    std::size_t asked = 0;
    std::vector<std::uint8_t> written, waiting;
};

class TracingPort_writes : public testing::Test {
  protected:
    test::FakeHost host;
    ScriptedPort port;
    std::ostringstream trace;
    TracingPort traced{port, host, trace};
};

TEST_F(TracingPort_writes, one_line_for_each_write_and_read_with_milliseconds_to_three_decimals) {
    traced.write(std::array<std::uint8_t, 1>{'*'});
    host.advance(1234567us);
    port.waiting = {0x5A, 0x0D, 0x0A};
    EXPECT_EQ(traced.read(), (std::vector<std::uint8_t>{0x5A, 0x0D, 0x0A}));
    traced.write(std::array<std::uint8_t, 2>{0x3F, 0x00});
    EXPECT_EQ(trace.str(), "0.000 > 2A\n1234.567 < 5A 0D 0A\n1234.567 > 3F 00\n");
    EXPECT_EQ(port.written, (std::vector<std::uint8_t>{'*', 0x3F, 0x00}));
}

TEST_F(TracingPort_writes, nothing_for_an_empty_read_or_what_is_discarded) {
    EXPECT_TRUE(traced.read().empty());
    port.waiting = {1};
    traced.discard_input();
    EXPECT_EQ(traced.InBufferCount(), 0U);
    EXPECT_EQ(trace.str(), "");
}

TEST_F(TracingPort_writes, the_write_that_found_the_port_gone) {
    port.lost = true;
    EXPECT_THROW(traced.write(std::array<std::uint8_t, 1>{'?'}), Abandoned);
    EXPECT_EQ(trace.str(), "0.000 > 3F\n");
}

using TracingPort_puts = TracingPort_writes;

TEST_F(TracingPort_puts, nothing_between_the_port_and_its_user) {
    traced.CommPort(7);
    traced.RTSEnable(true);
    traced.wait_for_data(16, 5ms);
    EXPECT_EQ(traced.open(), PortOpen::Busy);
    EXPECT_EQ(port.number_, 7);
    EXPECT_TRUE(port.rts);
    EXPECT_EQ(port.asked, 16U);
}

}  // namespace
}  // namespace quillon::cli
