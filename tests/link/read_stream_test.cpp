// SPDX-License-Identifier: MIT
// How an exchange begins, and what the board sends to the host: streams of blocks and the
// configuration in its two phases.
#include "link_bench.h"

namespace quillon::test {

namespace {

using Piece = ScriptedPort::Piece;

// Runs a read stream of so many bytes, the end code counted in, on an open port.
bool read_stream(LinkBench& bench, std::size_t total, Limit limit = kNoLimit) {
    bench.open_port();
    return bench.wire.read_stream(total, limit);
}

std::string data(std::size_t bytes) { return std::string(bytes, 'd'); }

}  // namespace

TEST(Exchange_begin, discards_before_and_after_the_power_letter) {
    LinkBench bench;
    bench.open_port();
    bench.port.arrives(0ms, "left over");
    bench.port.when("N", {{500us, "noise of the power coming up"}});
    bench.wire.begin();

    EXPECT_EQ(bench.journal.text(), "pump, flush, send N, sleep 1, flush");
    EXPECT_EQ(bench.port.InBufferCount(), 0U);
}

TEST(Exchange_begin, raises_vpp_first_only_where_the_device_asks_for_exactly_that) {
    EXPECT_EQ(power_letter("VPP"), 'n');
    for (const auto* mode : {"VDD", "", "vpp", "VPP "}) EXPECT_EQ(power_letter(mode), 'N') << mode;
}

TEST(Exchange_begin, sends_the_power_letter_of_the_dialect) {
    LinkBench bench;
    bench.open_port();
    bench.port.when("n");
    Exchange{{.power = 'n'}, bench.host, bench.port, bench.messages}.begin();
}

TEST(Exchange_begin, sends_the_extended_prefix_behind_the_second_flush) {
    LinkBench bench;
    bench.open_port();
    bench.port.when("NX");
    Exchange{{.extended = true}, bench.host, bench.port, bench.messages}.begin();

    EXPECT_EQ(bench.journal.text(), "pump, flush, send N, sleep 1, flush, send X, sleep 1");
}

TEST(Exchange_send, splits_a_number_into_as_many_bytes_as_the_dialect_has) {
    LinkBench bench;
    bench.open_port();
    bench.port.when(std::string_view{"\x30\x00\x01\x00\x01\x00", 6});
    Exchange wide{{.number_bytes = 3}, bench.host, bench.port, bench.messages};
    wide.send_number(0x300001);
    wide.send_number(256);
}

TEST(Exchange_send, pauses_1_ms_after_each_letter_and_parameter) {
    LinkBench bench;
    bench.open_port();
    bench.port.when("rsp\x1F\x40\x0A");
    bench.wire.send("rsp");
    bench.wire.send_number(8000);
    bench.wire.send_byte(10);

    EXPECT_EQ(bench.journal.text(),
              "send r, sleep 1, send s, sleep 1, send p, sleep 1, send 1F, sleep 1, send @, "
              "sleep 1, send 0A, sleep 1");
}

TEST(Exchange_send, splits_a_count_high_byte_first) {
    LinkBench bench;
    bench.open_port();
    bench.port.when(std::string_view{"\x00\xFF\x01\x00\x20\x00", 6});
    bench.wire.send_number(255);
    bench.wire.send_number(256);
    bench.wire.send_number(8192);
}

TEST(Exchange_send, makes_no_pause_behind_the_mode_of_an_erase) {
    LinkBench bench;
    bench.open_port();
    bench.port.when("\x0A");
    bench.wire.send_unpaced(10);

    EXPECT_EQ(bench.journal.text(), "send 0A");
}

TEST(read_stream, acknowledges_each_block_of_16_and_the_last_before_the_end_code) {
    LinkBench bench;
    bench.port.arrives(5ms, data(16));
    bench.port.when("@", data(16));
    bench.port.when("@", "@");
    EXPECT_TRUE(read_stream(bench, 33));

    EXPECT_EQ(bench.journal.text(), "pump, sleep 1, send @, pump, sleep 1, send @, pump");
    EXPECT_EQ(bench.wire.take().size(), 33U);
}

TEST(read_stream, acknowledges_blocks_of_the_dialects_size) {
    LinkBench bench;
    bench.open_port();
    bench.port.arrives(5ms, data(8));
    bench.port.when("@", data(8));
    bench.port.when("@", "@");
    Exchange eights{{.read_block = 8}, bench.host, bench.port, bench.messages};
    EXPECT_TRUE(eights.read_stream(17, kNoLimit));

    EXPECT_EQ(bench.journal.text(), "pump, sleep 1, send @, pump, sleep 1, send @, pump");
}

TEST(read_stream, acknowledges_nothing_of_less_than_a_block) {
    LinkBench bench;
    bench.port.arrives(5ms, data(8));
    bench.port.arrives(6ms, data(2) + "@");
    EXPECT_TRUE(read_stream(bench, 11));

    EXPECT_EQ(bench.journal.text(), "pump");
}

TEST(read_stream, acknowledges_full_blocks_only_where_the_size_is_no_multiple_of_16) {
    LinkBench bench;
    bench.port.arrives(5ms, data(16));
    bench.port.when("@", data(4) + "@");
    EXPECT_TRUE(read_stream(bench, 21));

    EXPECT_EQ(bench.journal.text(), "pump, sleep 1, send @, pump");
}

TEST(read_stream, acknowledges_a_block_once_however_long_the_board_takes_then) {
    LinkBench bench;
    bench.port.arrives(5ms, data(16));
    bench.port.when("@", {{400ms, "d"}, {400ms, data(15) + "@"}});
    EXPECT_TRUE(read_stream(bench, 33));

    EXPECT_EQ(bench.journal.text(), "pump, sleep 1, send @, pump");
}

TEST(read_stream, waits_for_a_block_that_comes_in_pieces) {
    LinkBench bench;
    for (int i = 1; i <= 16; ++i) bench.port.arrives(i * 7ms, "d");
    bench.port.when("@", "@");
    EXPECT_TRUE(read_stream(bench, 17));

    EXPECT_EQ(bench.journal.text(), "pump, sleep 1, send @, pump");
}

TEST(read_stream, acknowledges_nothing_where_a_poll_finds_the_count_beyond_a_multiple) {
    LinkBench bench;
    bench.port.arrives(5ms, data(17));
    bench.port.arrives(50ms, data(15) + "@");
    EXPECT_TRUE(read_stream(bench, 33));

    EXPECT_EQ(bench.journal.text(), "pump");
}

TEST(read_stream, takes_a_last_byte_that_comes_after_exactly_10_s) {
    LinkBench bench;
    bench.port.arrives(5ms, data(2));
    bench.port.arrives(10s, "@");
    EXPECT_TRUE(read_stream(bench, 3, 10s));
}

TEST(read_stream, bounds_the_whole_read_and_not_the_pause_between_two_bytes) {
    LinkBench bench;
    for (int i = 1; i <= 9; ++i) bench.port.arrives(i * 1s, "d");
    bench.port.arrives(10s + 1ms, "d@");
    EXPECT_FALSE(read_stream(bench, 11, 10s));
}

TEST(read_stream, has_no_end_of_its_own_without_a_limit) {
    LinkBench bench;
    bench.port.arrives(1ms, data(2));
    bench.port.arrives(5min, "@");
    EXPECT_TRUE(read_stream(bench, 3));
}

TEST(read_stream, draws_the_bar_and_hides_it_at_the_end) {
    LinkBench bench;
    std::vector<std::string> percents;
    const auto watch = bench.form.Lbl_Persent.Caption.observe(
        [&](const std::string& text) { percents.push_back(text); });
    bench.port.arrives(5ms, data(100));
    bench.port.arrives(10ms, data(105));
    bench.port.arrives(15ms, data(195) + "@");
    EXPECT_TRUE(read_stream(bench, 401));

    EXPECT_EQ(percents, (Lines{"0%", "25%", "51%"}));
    EXPECT_FALSE(bench.form.P_Bar.Visible.get());
    EXPECT_FALSE(bench.form.Lbl_Persent.Visible.get());
}

TEST(read_config, takes_16_bytes_acknowledges_them_and_takes_the_end_code) {
    LinkBench bench;
    bench.open_port();
    bench.port.arrives(5ms, data(16));
    bench.port.when("@", "@");
    const auto reply = bench.wire.read_config(16, 10s);

    EXPECT_EQ(reply, bytes_of(data(16) + "@"));
    EXPECT_EQ(bench.journal.text(), "pump, sleep 1, send @, pump");
}

TEST(read_config, takes_as_many_bytes_as_the_area_has_before_it_acknowledges) {
    LinkBench bench;
    bench.open_port();
    bench.port.arrives(5ms, data(16));
    bench.port.arrives(9ms, data(4));
    bench.port.when("@", "@");

    EXPECT_EQ(bench.wire.read_config(20, 10s), bytes_of(data(20) + "@"));
}

TEST(read_config, times_out_for_the_first_16_bytes_only) {
    LinkBench late;
    late.port.arrives(1ms, data(15));
    late.port.arrives(10s + 1ms, "d");
    EXPECT_TRUE(late.wire.read_config(16, 10s).empty());
    EXPECT_EQ(late.journal.text(), "pump");

    LinkBench in_time;
    in_time.port.arrives(10s, data(16));
    in_time.port.when("@", {{5min, "@"}});
    EXPECT_EQ(in_time.wire.read_config(16, 10s).size(), 17U);
}

TEST(read_config, hands_over_whatever_stands_in_the_place_of_the_end_code) {
    LinkBench bench;
    bench.port.arrives(5ms, data(16));
    bench.port.when("@", "x");

    EXPECT_EQ(bench.wire.read_config(16, kNoLimit), bytes_of(data(16) + "x"));
}

}  // namespace quillon::test
