// SPDX-License-Identifier: MIT
#include "board/faults.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "board_driver.h"

namespace quillon {
namespace {

using namespace std::chrono_literals;
using test::Driver;
using test::facts_16f877a;
using Kind = Fault::Kind;

std::string error_of(std::string_view text) {
    const auto reading = read_fault(text);
    EXPECT_FALSE(reading.fault.has_value()) << text;
    return reading.error;
}

TEST(fault_text, names_the_fault_and_its_place) {
    const auto plain = read_fault("drop:120");
    ASSERT_TRUE(plain.fault.has_value());
    EXPECT_EQ(plain.fault->kind, Kind::Drop);
    EXPECT_EQ(plain.fault->n, 120u);
    EXPECT_EQ(plain.fault->place, "");

    const auto placed = read_fault("rsc/alter:17:0x2A");
    ASSERT_TRUE(placed.fault.has_value());
    EXPECT_EQ(placed.fault->kind, Kind::Alter);
    EXPECT_EQ(placed.fault->place, "rsc");
    EXPECT_EQ(placed.fault->n, 17u);
    EXPECT_EQ(placed.fault->value, 0x2A);
}

TEST(fault_text, reads_every_kind) {
    EXPECT_EQ(read_fault("add:3").fault->kind, Kind::Add);
    EXPECT_EQ(read_fault("late:2000ms").fault->time, 2s);
    EXPECT_EQ(read_fault("late:2s:5").fault->n, 5u);
    EXPECT_EQ(read_fault("late:250us").fault->time, 250us);
    EXPECT_EQ(read_fault("no-end-code").fault->kind, Kind::NoEndCode);
    EXPECT_EQ(read_fault("abort-write:0").fault->n, 0u);
    EXPECT_EQ(read_fault("silent-after:300").fault->kind, Kind::SilentAfter);
    EXPECT_EQ(read_fault("unplug-after:500").fault->kind, Kind::UnplugAfter);
    EXPECT_EQ(read_fault("ignore-bursts:1").fault->kind, Kind::IgnoreBursts);
    EXPECT_EQ(read_fault("identity:a/b:c").fault->text, "a/b:c");
    EXPECT_EQ(read_fault("empty-socket").fault->kind, Kind::EmptySocket);
    EXPECT_EQ(read_fault("wrong-part:0x09A0").fault->n, 0x09A0u);
    EXPECT_EQ(read_fault("stuck-cell:0x10").fault->n, 16u);
    EXPECT_EQ(read_fault("stuck-eeprom:7").fault->kind, Kind::StuckEeprom);
    EXPECT_EQ(read_fault("stuck-config:7").fault->kind, Kind::StuckConfig);
}

TEST(fault_text, tells_what_it_would_have_understood) {
    EXPECT_TRUE(error_of("drip:5").starts_with("\"drip:5\" is no fault. Faults: drop:N, alter:N["));
    EXPECT_EQ(error_of("").substr(0, 14), "\"\" is no fault");
    EXPECT_EQ(error_of("drop"), "\"drop\": the fault's form is drop:N");
    EXPECT_EQ(error_of("drop:0"), "\"drop:0\": the fault's form is drop:N");
    EXPECT_EQ(error_of("drop:x"), "\"drop:x\": the fault's form is drop:N");
    EXPECT_EQ(error_of("drop:-1"), "\"drop:-1\": the fault's form is drop:N");
    EXPECT_EQ(error_of("drop:99999999999999999999"),
              "\"drop:99999999999999999999\": the fault's form is drop:N");
    EXPECT_EQ(error_of("alter:5:256"), "\"alter:5:256\": the fault's form is alter:N[:BYTE]");
    EXPECT_EQ(error_of("late:5"), "\"late:5\": the fault's form is late:TIME[:N]");
    EXPECT_EQ(error_of("no-end-code:1"), "\"no-end-code:1\": the fault's form is no-end-code");
    EXPECT_EQ(error_of("identity:"), "\"identity:\": the fault's form is identity:TEXT");
    EXPECT_EQ(error_of("wrong-part:0x10000"),
              "\"wrong-part:0x10000\": a word has four digits at most");
}

TEST(fault_text, a_test_that_misspells_a_fault_is_stopped) {
    Driver host{facts_16f877a()};
    EXPECT_THROW(host.board.add_fault("dorp:1"), std::invalid_argument);
}

TEST(faults, a_byte_is_dropped_altered_or_added_at_its_place_and_once) {
    Driver host{facts_16f877a()};
    host.board.add_fault("bs/drop:2");
    host.command("nbs", {0, 1});
    EXPECT_EQ(host.reply(), "3F 40");
    host.command("nbs", {0, 1});
    EXPECT_EQ(host.reply(), "3F FF 40");

    host.board.clear_faults();
    host.board.add_fault("bs/alter:1");
    host.board.add_fault("bs/add:2:0x55");
    host.command("nbs", {0, 1});
    EXPECT_EQ(host.reply(), "C0 FF 55 40");
}

TEST(faults, a_place_of_its_own_counts_from_the_start_of_that_exchange) {
    Driver host{facts_16f877a()};
    host.board.add_fault("rsd/drop:1");
    host.command("nbs", {0, 1});
    EXPECT_EQ(host.reply(), "3F FF 40");
    host.command("nrsd", {0, 1});
    EXPECT_EQ(host.reply(), "FF 40");
}

TEST(faults, without_a_place_all_bytes_since_the_fault_was_set_count) {
    Driver host{facts_16f877a()};
    host.command("mD", {5});
    EXPECT_EQ(host.reply(), "05");
    host.board.add_fault("drop:5");
    host.command("nbs", {0, 1});
    EXPECT_EQ(host.reply(), "3F FF 40");
    host.command("nbs", {0, 1});
    EXPECT_EQ(host.reply(), "3F 40");
}

TEST(faults, the_end_code_is_left_out) {
    Driver host{facts_16f877a()};
    host.board.add_fault("rsc/no-end-code");
    host.command("nbs", {0, 1});
    EXPECT_EQ(host.reply(), "3F FF 40");
    host.command("nrsc", {0, 8});
    host.bytes();
    host.send('@');
    EXPECT_EQ(host.reply(), "");
    host.command("nbs", {0, 1});
    EXPECT_EQ(host.reply(), "3F FF 40");
}

TEST(faults, a_write_is_broken_off_after_so_many_items) {
    Driver host{facts_16f877a()};
    host.board.add_fault("abort-write:2");
    host.command("nwGe", {0, 5});
    host.item({0, 1});
    host.item({0, 2});
    EXPECT_EQ(host.reply(), "2B 2B 40 40");
    EXPECT_EQ(host.board.target().program[1], 2);

    host.board.add_fault("wed/abort-write:1");
    host.command("nwed", {0, 5});
    host.item({0x3F, 0x77});
    EXPECT_EQ(host.reply(), "2B 2A 00 77 40");

    host.board.add_fault("wFc/abort-write:0");
    host.command("nwFc", {0, 8});
    EXPECT_EQ(host.reply(), "2A 00 00 40");
}

TEST(faults, an_answer_comes_late_and_what_is_behind_it_in_order) {
    Driver host{facts_16f877a()};
    host.board.add_fault("bs/late:2s:2");
    host.command("nbs", {0, 1});
    EXPECT_EQ(host.reply(), "3F");
    EXPECT_EQ(host.board.next_event(), host.now - 1ms + 2s);
    host.wait(1998ms);
    EXPECT_EQ(host.reply(), "");
    host.wait(1ms);
    EXPECT_EQ(host.reply(), "FF 40");
}

TEST(faults, a_late_answer_is_forgotten_when_the_board_is_called) {
    Driver host{facts_16f877a()};
    host.board.add_fault("bs/late:2s");
    host.command("nbs", {0, 1});
    host.command("***");
    host.wait(10s);
    EXPECT_EQ(host.reply(), "");
    host.command("mD", {5});
    EXPECT_EQ(host.reply(), "05");
}

TEST(faults, a_silent_board_stays_silent) {
    Driver host{facts_16f877a()};
    host.board.add_fault("silent-after:1");
    host.command("nbs", {0, 1});
    EXPECT_EQ(host.reply(), "3F");
    host.command("***?");
    EXPECT_EQ(host.reply(), "");
    host.board.clear_faults();
    host.command("***?");
    EXPECT_EQ(host.bytes().size(), 18u);
}

TEST(faults, silence_in_one_kind_of_exchange_begins_there) {
    Driver host{facts_16f877a()};
    host.board.add_fault("rsp/silent-after:0");
    host.command("nbs", {0, 1});
    EXPECT_EQ(host.reply(), "3F FF 40");
    host.command("nrsp", {0, 1});
    EXPECT_EQ(host.reply(), "");
    host.command("***?");
    EXPECT_EQ(host.reply(), "");
}

TEST(faults, the_port_vanishes_after_so_many_bytes) {
    Driver host{facts_16f877a()};
    host.board.add_fault("unplug-after:2");
    host.command("nbs", {0, 1});
    EXPECT_TRUE(host.board.unplugged());
    host.board.clear_faults();
    host.board.add_fault("unplug-after:0");
    EXPECT_TRUE(host.board.unplugged());
}

TEST(faults, bursts_are_ignored_and_the_next_one_is_answered) {
    Driver host{facts_16f877a()};
    host.board.ignore_bursts(1);
    host.command("***?");
    EXPECT_EQ(host.reply(), "");
    host.command("***?");
    EXPECT_EQ(host.bytes().size(), 18u);
}

TEST(faults, an_ignored_burst_leaves_the_board_where_it_was) {
    Driver host{facts_16f877a()};
    host.command("nrsp", {0, 16});
    host.bytes();
    host.board.ignore_bursts(1);
    host.command("***?");
    host.send('@');
    EXPECT_EQ(host.bytes().size(), 16u);
}

TEST(faults, another_identity_is_told) {
    Driver host{facts_16f877a()};
    host.board.add_fault("identity:HELLO");
    host.command("?");
    EXPECT_EQ(host.reply(), "48 45 4C 4C 4F 0D 0A");
}

TEST(faults, an_empty_socket_reads_as_zeros_and_takes_nothing) {
    Driver host{facts_16f877a()};
    host.board.add_fault("empty-socket");
    host.command("nrsc", {0, 8});
    EXPECT_EQ(host.reply(), "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00");
    host.send('@');
    host.reply();
    host.command("nbs", {0, 1});
    EXPECT_EQ(host.reply(), "00 00 40");
    host.command("nwGe", {0, 1});
    host.item({0x12, 0x34});
    EXPECT_EQ(host.reply(), "2B 40");
    host.command("nwed", {0, 1});
    host.item({0x3F, 0x34});
    EXPECT_EQ(host.reply(), "2B 2A 00 00 40");
    host.command("nbd", {0x0A});
    EXPECT_EQ(host.reply(), "40");
    EXPECT_EQ(host.board.target(), blank_target(facts_16f877a()));
}

TEST(faults, the_wrong_part_differs_in_its_identification) {
    Driver host{facts_16f877a()};
    host.board.add_fault("wrong-part:0x09A0");
    host.command("nrsc", {0, 8});
    EXPECT_EQ(host.reply().substr(36, 5), "09 A0");
}

TEST(faults, a_stuck_cell_keeps_its_value) {
    Driver host{facts_16f877a()};
    host.board.add_fault("stuck-cell:1");
    host.command("nwGe", {0, 2});
    host.item({0x12, 0x34});
    host.item({0x12, 0x34});
    EXPECT_EQ(host.board.target().program[0], 0x1234);
    EXPECT_EQ(host.board.target().program[1], 0x3FFF);
}

}  // namespace
}  // namespace quillon
