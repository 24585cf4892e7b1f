// SPDX-License-Identifier: MIT
// What the host sends in items of two bytes, each after a ready byte: what is a ready byte, what an
// interruption, and how the stream ends.
#include <array>

#include "link_bench.h"

namespace quillon::test {

namespace {

constexpr std::array<std::uint8_t, 6> kImage{0x3F, 0xFF, 0x01, 0x02, 0x20, 0x7E};
constexpr std::string_view kItem1 = "\x3F\xFF";
constexpr std::string_view kItem2 = "\x01\x02";
constexpr std::string_view kItem3 = "\x20\x7E";
// The time of a byte at 57600 baud.
constexpr auto kByteTime = 174us;

// The board asks at once for the first item; the test decides what it answers to each.
WriteResult write(LinkBench& bench, std::string_view abort = "@", Limit limit = 10s) {
    bench.open_port();
    return bench.wire.write_stream(kImage, {.abort = abort, .limit = limit});
}

std::array<std::uint8_t, 16> config_image() {
    std::array<std::uint8_t, 16> image{};
    for (std::size_t i = 0; i < image.size(); ++i) image[i] = static_cast<std::uint8_t>(0x40 + i);
    return image;
}

// The board takes so many of the configuration's items.
void take_config_items(LinkBench& bench, int count) {
    bench.port.arrives(1ms, "r");
    for (int item = 0; item < count; ++item) {
        const auto first = static_cast<char>(0x40 + 2 * item);
        bench.port.when(std::string{first, static_cast<char>(first + 1)}, "r");
    }
}

}  // namespace

TEST(write_stream, sends_each_item_as_one_write_paced_by_the_ready_byte_alone) {
    LinkBench bench;
    bench.port.arrives(1ms, "r");
    bench.port.when(kItem1, "r");
    bench.port.when(kItem2, "r");
    bench.port.when(kItem3, "@");
    const auto result = write(bench);

    EXPECT_EQ(result.end, WriteEnd::Done);
    EXPECT_EQ(bench.journal.text(), "pump, send 3F FF, pump, send 01 02, pump, send 20 7E, pump");
    EXPECT_TRUE(bench.host.sleeps.empty());
}

TEST(write_stream, takes_any_single_byte_for_a_ready_byte_a_lone_end_code_too) {
    LinkBench bench;
    bench.port.arrives(1ms, "@");
    bench.port.when(kItem1, "*");
    bench.port.when(kItem2, std::string_view{"\0", 1});
    bench.port.when(kItem3, "@");

    EXPECT_EQ(write(bench).end, WriteEnd::Done);
}

TEST(write_stream, takes_a_lone_failure_mark_for_a_ready_byte_in_an_eeprom_write_too) {
    LinkBench bench;
    bench.port.arrives(1ms, "r");
    bench.port.when(kItem1, "*");
    bench.port.when(kItem2, "@");
    bench.port.when(kItem3, "@");

    EXPECT_EQ(write(bench, "*", kNoLimit).end, WriteEnd::Done);
}

TEST(write_stream, goes_on_after_several_bytes_that_do_not_begin_with_the_abort_byte) {
    LinkBench bench;
    bench.port.arrives(1ms, "rrr");
    bench.port.when(kItem1, "*@");
    bench.port.when(kItem2, "r");
    bench.port.when(kItem3, "@");

    EXPECT_EQ(write(bench).end, WriteEnd::Done);
}

TEST(write_stream, is_interrupted_by_an_abort_byte_with_another_behind_it) {
    LinkBench bench;
    bench.port.arrives(1ms, "r");
    bench.port.when(kItem1, "@!");
    const auto result = write(bench);

    EXPECT_EQ(result.end, WriteEnd::Interrupted);
    EXPECT_EQ(result.index, 2U);
    EXPECT_EQ(result.reply, bytes_of("@!"));
    EXPECT_EQ(bench.journal.text(), "pump, send 3F FF, pump");
}

TEST(write_stream, knows_an_interruption_before_the_first_item) {
    LinkBench bench;
    bench.port.arrives(1ms, "@@");
    const auto result = write(bench);

    EXPECT_EQ(result.end, WriteEnd::Interrupted);
    EXPECT_EQ(result.index, 0U);
}

TEST(write_stream, waits_for_bytes_on_the_heels_of_an_abort_byte) {
    LinkBench bench;
    bench.port.arrives(1ms, "r");
    bench.port.when(kItem1, {{1ms, "*"}, {kByteTime, "\x3F"}, {kByteTime, "\x55"}});
    const auto result = write(bench, "*", kNoLimit);

    EXPECT_EQ(result.end, WriteEnd::Interrupted);
    EXPECT_EQ(result.index, 2U);
    EXPECT_EQ(result.reply, bytes_of("*\x3F\x55"));
}

TEST(write_stream, takes_a_ready_byte_after_exactly_10_s_at_each_item) {
    LinkBench bench;
    bench.port.arrives(10s, "r");
    bench.port.when(kItem1, {{10s, "r"}});
    bench.port.when(kItem2, {{10s, "r"}});
    bench.port.when(kItem3, {{10s, "@"}});

    EXPECT_EQ(write(bench).end, WriteEnd::Done);
}

TEST(write_stream, gives_up_an_item_whose_ready_byte_takes_longer_and_names_it) {
    LinkBench bench;
    bench.port.arrives(1ms, "r");
    bench.port.when(kItem1, "r");
    bench.port.when(kItem2, {{10s + 1ms, "r"}});
    const auto result = write(bench);

    EXPECT_EQ(result.end, WriteEnd::NoReady);
    EXPECT_EQ(result.index, 4U);
}

TEST(write_stream, tells_a_late_end_code_from_a_late_ready_byte) {
    LinkBench bench;
    bench.port.arrives(1ms, "r");
    bench.port.when(kItem1, "r");
    bench.port.when(kItem2, "r");
    bench.port.when(kItem3, {{10s + 1ms, "@"}});

    EXPECT_EQ(write(bench).end, WriteEnd::NoReply);
}

TEST(write_stream, ends_well_with_the_end_code_only) {
    LinkBench bench;
    bench.port.arrives(1ms, "r");
    bench.port.when(kItem1, "r");
    bench.port.when(kItem2, "r");
    bench.port.when(kItem3, "r");

    EXPECT_EQ(write(bench).end, WriteEnd::NoEndCode);
}

TEST(write_stream, waits_for_ever_without_a_limit) {
    LinkBench bench;
    bench.port.arrives(5min, "r");
    bench.port.when(kItem1, {{5min, "r"}});
    bench.port.when(kItem2, {{5min, "r"}});
    bench.port.when(kItem3, {{5min, "@"}});

    EXPECT_EQ(write(bench, "*", kNoLimit).end, WriteEnd::Done);
}

TEST(write_stream, hides_the_bar_whichever_way_it_ends) {
    LinkBench bench;
    bench.form.P_Bar.Visible.set(true);
    bench.form.Lbl_Persent.Visible.set(true);
    bench.port.arrives(1ms, "@!");
    write(bench);

    EXPECT_FALSE(bench.form.P_Bar.Visible.get());
    EXPECT_FALSE(bench.form.Lbl_Persent.Visible.get());
}

TEST(write_config, sends_eight_items_and_takes_the_end_code) {
    LinkBench bench;
    take_config_items(bench, 7);
    bench.port.when("\x4E\x4F", "@");
    const auto result = bench.wire.write_config(config_image());

    EXPECT_EQ(result.end, WriteEnd::Done);
    EXPECT_TRUE(bench.host.sleeps.empty());
}

TEST(write_config, stops_at_a_report_of_four_bytes) {
    LinkBench bench;
    take_config_items(bench, 2);
    bench.port.when("\x44\x45", "*\x3F\x12\x34");
    const auto result = bench.wire.write_config(config_image());

    EXPECT_EQ(result.end, WriteEnd::Interrupted);
    EXPECT_EQ(result.index, 6U);
    EXPECT_EQ(result.reply, bytes_of("*\x3F\x12\x34"));
}

TEST(write_config, takes_a_report_that_comes_byte_by_byte_for_one) {
    LinkBench bench;
    take_config_items(bench, 0);
    bench.port.when("\x40\x41",
                    {{1ms, "*"}, {kByteTime, "\x3F"}, {kByteTime, "\x12"}, {kByteTime, "\x34"}});
    const auto result = bench.wire.write_config(config_image());

    EXPECT_EQ(result.end, WriteEnd::Interrupted);
    EXPECT_EQ(result.index, 2U);
}

TEST(write_config, goes_on_after_less_than_four_bytes) {
    LinkBench bench;
    bench.port.arrives(1ms, "*");
    bench.port.when("\x40\x41", "*ab");
    for (char first = 0x42; first < 0x4E; first = static_cast<char>(first + 2))
        bench.port.when(std::string{first, static_cast<char>(first + 1)}, "r");
    bench.port.when("\x4E\x4F", "@");

    EXPECT_EQ(bench.wire.write_config(config_image()).end, WriteEnd::Done);
}

TEST(write_config, hands_over_a_report_on_the_last_item) {
    LinkBench bench;
    take_config_items(bench, 7);
    bench.port.when("\x4E\x4F", "*\x3F\x12\x34");
    const auto result = bench.wire.write_config(config_image());

    EXPECT_NE(result.end, WriteEnd::Done);
    EXPECT_EQ(result.index, 16U);
    EXPECT_EQ(result.reply, bytes_of("*\x3F\x12\x34"));
}

TEST(write_config, waits_for_ever_for_each_item_and_the_end_code) {
    LinkBench bench;
    bench.port.arrives(5min, "r");
    for (char first = 0x40; first < 0x4E; first = static_cast<char>(first + 2))
        bench.port.when(std::string{first, static_cast<char>(first + 1)}, {{5min, "r"}});
    bench.port.when("\x4E\x4F", {{5min, "@"}});

    EXPECT_EQ(bench.wire.write_config(config_image()).end, WriteEnd::Done);
}

TEST(write_config, gives_up_an_item_that_is_not_asked_for_within_the_limit) {
    LinkBench bench;
    bench.open_port();
    const auto result = bench.wire.write_config(config_image(), 10s);
    EXPECT_EQ(result.end, WriteEnd::NoReady);
    EXPECT_TRUE(result.reply.empty());
}

}  // namespace quillon::test
