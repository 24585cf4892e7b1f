// SPDX-License-Identifier: MIT
// Single faults all over what the board sends, in each operation of each family: whatever happens,
// no operation claims a success that isn't one, and port and controls come back.
//
// A part of 64 words and 16 cells keeps the matrix small. An altered byte of a read can't be
// detected, as the protocol has no check sum: reads are judged by the other faults only.
#include <fmt/format.h>

#include "flow_support.h"

namespace quillon::test {

namespace {

constexpr std::array<std::string_view, 5> kFaults{"drop", "alter", "add", "silent-after",
                                                  "unplug-after"};

// Every fifth byte is tried. Items have two bytes, so first and second bytes take turns.
constexpr std::size_t kStride = 5;

class SmallBench : public Bench {
  public:
    explicit SmallBench(std::string_view device)
        : Bench{device,
                {CatalogueBlock{device, {{"PGM_SIZE_WORD", "0x003F"}, {"EEPROM_BYTE", "15"}}}}} {
        EXPECT_EQ(session().PgmWords, 64);
        EXPECT_EQ(session().EepBytes, 16);
        notes_expected = true;  // a fault makes the host break off where the board goes on
        dialogs.hint_answer = 1;
        blank_ = target();
        program_target();
        used_ = target();
        used_.program[33] ^= 0x0010;
        used_.eeprom[9] ^= 0x04;
    }

    // The part and the image as before the first operation.
    void start_over(bool blank) {
        board.clear_faults();
        target() = blank ? blank_ : used_;
        fill_image();
        wire();
        shown->lines.clear();
        dialogs.boxes.clear();
        host.sleeps.clear();
        restart_the_clock();
        const auto end = host.now() + 30s;
        give_up_when([this, end] { return host.now() >= end; });
    }
    std::size_t bytes_sent() {
        std::size_t count = 0;
        for (const auto& event : port.wire().events())
            if (event.way == WireEvent::Way::FromBoard) count += event.bytes.size();
        return count;
    }
    bool part_holds_the_image() {
        for (std::size_t w = 0; w < target().program.size(); ++w)
            if (target().program[w] != (session().PgmMem[2 * w] << 8 | session().PgmMem[2 * w + 1]))
                return false;
        for (std::size_t c = 0; c < target().eeprom.size(); ++c)
            if (target().eeprom[c] != session().EepMem[2 * c + 1]) return false;
        return target().config[0] == session().ConfigWord[1];
    }

  private:
    SimulatedTarget blank_;
    SimulatedTarget used_;
};

struct Operation {
    const char* name;
    Outcome (Flows::*run)();
    bool on_blank_part;
    // What a success must not leave behind, for a fault that isn't an altered byte of a read.
    bool (*is_true_success)(SmallBench&);
};

const std::array kOperations{
    Operation{"blank", &Flows::Command_blank, false, [](SmallBench&) { return false; }},
    Operation{"verify", &Flows::Command_Verify, false, [](SmallBench&) { return false; }},
    Operation{"read", &Flows::Command_read, false,
              [](SmallBench& bench) { return bench.part_holds_the_image(); }},
    Operation{"program", &Flows::Command_program, false,
              [](SmallBench& bench) { return bench.part_holds_the_image(); }},
    Operation{"program_blank", &Flows::Command_program, true,
              [](SmallBench& bench) { return bench.part_holds_the_image(); }},
};

std::size_t bytes_of_operation(SmallBench& bench, const Operation& operation) {
    bench.start_over(operation.on_blank_part);
    static_cast<void>((bench.run->flows.*operation.run)());
    return bench.bytes_sent();
}

bool can_be_judged(const Operation& operation, std::string_view fault) {
    return fault != "alter" || operation.run == &Flows::Command_program;
}

}  // namespace

using fault_matrix = EveryFamily;
INSTANTIATE_TEST_SUITE_P(, fault_matrix, testing::ValuesIn(kFamilyCases), case_name);

TEST_P(fault_matrix, holds_no_success_that_is_none) {
    SmallBench bench{GetParam()};
    int runs = 0;
    int successes = 0;
    for (const auto& operation : kOperations) {
        const auto bytes = bytes_of_operation(bench, operation);
        ASSERT_GT(bytes, 40U) << operation.name;
        for (const auto fault : kFaults) {
            for (std::size_t n = 1; n <= bytes; n += kStride, ++runs) {
                bench.start_over(operation.on_blank_part);
                bench.board.add_fault(fmt::format("{}:{}", fault, n));
                const auto outcome = (bench.run->flows.*operation.run)();
                const auto place = fmt::format("{} {}:{}", operation.name, fault, n);
                ASSERT_FALSE(bench.port.is_open()) << place;
                ASSERT_TRUE(bench.controls_are_back()) << place;
                if (outcome != Outcome::Success || !can_be_judged(operation, fault)) continue;
                ++successes;
                ASSERT_TRUE(operation.is_true_success(bench)) << place;
            }
        }
    }
    RecordProperty("runs", runs);
    RecordProperty("true_successes", successes);
    EXPECT_GT(runs, 600);
}

}  // namespace quillon::test
