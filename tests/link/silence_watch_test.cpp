// SPDX-License-Identifier: MIT
// What is shown when the board goes silent in a wait that has no limit.
#include <array>

#include "link_bench.h"

namespace quillon::test {

namespace {

std::string data(std::size_t bytes) { return std::string(bytes, 'd'); }

}  // namespace

TEST(silent_board, is_reported_once_after_three_times_the_expected_time) {
    LinkBench bench;
    bench.open_port();
    bench.port.arrives(1min, "@");
    EXPECT_TRUE(bench.wire.wait(1, kNoLimit, 2s));

    EXPECT_EQ(
        bench.shown.lines,
        (Lines{"[+] [red] <<注意>>ライターからの応答が 6 秒間ありません。待ち続けています。"}));
}

TEST(silent_board, is_not_reported_where_it_answers_in_time) {
    LinkBench bench;
    bench.open_port();
    bench.port.arrives(6s, "@");
    EXPECT_TRUE(bench.wire.wait(1, kNoLimit, 2s));

    EXPECT_EQ(bench.shown.lines, Lines{});
}

TEST(silent_board, is_reported_in_a_read_from_its_last_byte_on) {
    LinkBench bench;
    bench.open_port();
    bench.port.arrives(2s, data(5));
    bench.port.arrives(4s, data(5));
    bench.port.arrives(1min, "@");
    std::vector<Host::Time> reported;
    const auto watch = bench.messages.shown.connect(
        [&](const ShownMessage&) { reported.push_back(bench.host.now()); });
    const auto start = bench.host.now();
    EXPECT_TRUE(bench.wire.read_stream(11, kNoLimit));

    ASSERT_EQ(reported.size(), 1U);
    EXPECT_GE(reported[0] - start, 7s);
    EXPECT_LT(reported[0] - start, 7100ms);
}

TEST(silent_board, is_reported_once_in_a_write_of_many_slow_items) {
    LinkBench bench;
    bench.open_port();
    constexpr std::array<std::uint8_t, 6> kImage{1, 2, 3, 4, 5, 6};
    bench.port.arrives(5s, "r");
    bench.port.when("\x01\x02", {{5s, "r"}});
    bench.port.when("\x03\x04", {{2s, "r"}});
    bench.port.when("\x05\x06", {{5s, "@"}});
    EXPECT_EQ(bench.wire.write_stream(kImage, {.abort = "*"}).end, WriteEnd::Done);

    EXPECT_EQ(bench.shown.lines.size(), 1U);
}

TEST(silent_board, is_not_reported_where_each_item_of_a_write_comes_in_time) {
    LinkBench bench;
    bench.open_port();
    constexpr std::array<std::uint8_t, 4> kImage{1, 2, 3, 4};
    bench.port.arrives(2s, "r");
    bench.port.when("\x01\x02", {{2s, "r"}});
    bench.port.when("\x03\x04", {{2s, "@"}});
    EXPECT_EQ(bench.wire.write_stream(kImage, {.abort = "*"}).end, WriteEnd::Done);

    EXPECT_EQ(bench.shown.lines, Lines{});
}

TEST(silent_board, is_reported_by_the_time_out_alone_where_the_wait_has_a_limit) {
    LinkBench bench;
    bench.open_port();
    EXPECT_FALSE(bench.wire.wait(1, 10s));
    EXPECT_FALSE(bench.wire.read_stream(3, 10s));

    EXPECT_EQ(bench.shown.lines, Lines{});
}

}  // namespace quillon::test
