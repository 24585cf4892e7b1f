// SPDX-License-Identifier: MIT
// The one wait: its limit, which is strict and bounds the whole wait, and how a wait without one
// ends.
#include "link/wait.h"
#include "link_bench.h"

namespace quillon::test {

TEST(wait_for, returns_at_once_and_gives_no_turn_where_the_bytes_are_there) {
    LinkBench bench;
    bench.port.arrives(0ms, "abc");
    EXPECT_TRUE(wait_for(bench.host, bench.port, 3, 0ms));

    EXPECT_EQ(bench.host.now(), 0ms);
    EXPECT_EQ(bench.host.pumps, 0);
}

TEST(wait_for, sees_a_byte_in_the_moment_it_comes) {
    LinkBench bench;
    bench.port.arrives(1234567us, "a");
    EXPECT_TRUE(wait_for(bench.host, bench.port, 1, kNoLimit));

    EXPECT_EQ(bench.host.now(), 1234567us);
}

TEST(wait_for, goes_on_at_exactly_the_limit) {
    LinkBench bench;
    bench.port.arrives(3s, "a");
    EXPECT_TRUE(wait_for(bench.host, bench.port, 1, 3s));
}

TEST(wait_for, gives_up_beyond_the_limit_and_no_earlier) {
    LinkBench bench;
    bench.port.arrives(3s + 1ms, "a");
    EXPECT_FALSE(wait_for(bench.host, bench.port, 1, 3s));

    EXPECT_GT(bench.host.now(), 3s);
    EXPECT_LT(bench.host.now(), 3s + 1ms);
    EXPECT_EQ(bench.port.InBufferCount(), 0U);
}

TEST(wait_for, does_not_start_the_limit_anew_when_a_part_arrives) {
    LinkBench bench;
    for (int i = 1; i <= 5; ++i) bench.port.arrives(i * 2s, "a");
    EXPECT_FALSE(wait_for(bench.host, bench.port, 5, 9s));

    EXPECT_LT(bench.host.now(), 9s + 1ms);
}

TEST(wait_for, has_no_end_of_its_own_without_a_limit) {
    LinkBench bench;
    bench.port.arrives(5min, "a");
    EXPECT_TRUE(wait_for(bench.host, bench.port, 1, kNoLimit));

    EXPECT_EQ(bench.host.now(), 5min);
}

TEST(wait_for, gives_the_interface_a_turn_every_few_milliseconds) {
    LinkBench bench;
    EXPECT_FALSE(wait_for(bench.host, bench.port, 1, 1s));

    EXPECT_GE(bench.host.pumps, 100);
}

TEST(wait_for, ends_when_the_user_gives_up) {
    LinkBench bench;
    bench.host.on_pump = [&bench] {
        if (bench.host.now() >= 1min) throw Abandoned{Abandoned::Reason::Interrupted};
    };
    EXPECT_THROW(wait_for(bench.host, bench.port, 1, kNoLimit), Abandoned);

    EXPECT_LT(bench.host.now(), 1min + 10ms);
}

}  // namespace quillon::test
