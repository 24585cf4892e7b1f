// SPDX-License-Identifier: MIT
// Single faults all over what the board sends, in each operation of each family and of each
// programming type: whatever happens, no operation claims a success that isn't one, and port and
// controls come back.
//
// Parts of 16 words and 8 cells keep the matrix small. An altered byte of a read can't be detected,
// as the protocol has no check sum: reads are judged by the other faults only. The places are tried
// in strides; with QUILLON_EVERY_FAULT set in the environment, each one is.
#include <fmt/format.h>

#include <cstdlib>

#include "flow_support.h"
#include "image/config_area.h"
#include "link/words.h"

namespace quillon::test {

namespace {

constexpr std::array<std::string_view, 5> kFaults{"drop", "alter", "add", "silent-after",
                                                  "unplug-after"};

// Items have two bytes, so with an odd stride first and second bytes take turns.
std::size_t stride() { return std::getenv("QUILLON_EVERY_FAULT") != nullptr ? 1 : 17; }

// A shipped device in small, as one of the given programming type ("" for its own).
struct SmallPart {
    std::string_view device;
    bool eeprom = false;
    std::string_view type = "";
    std::string_view renamed = "";  // to a name that the device list doesn't take
};

void PrintTo(const SmallPart& part, std::ostream* out) { *out << part.device << part.type; }

constexpr std::array kParts{
    SmallPart{"PIC16F877", true},
    SmallPart{"PIC16F877A", true},
    SmallPart{"PIC16C54"},
    SmallPart{"PIC16C57"},
    SmallPart{"PIC12CE518"},
    SmallPart{"PIC12CE518", false, "10F2"},
    SmallPart{"PIC12C672"},
    SmallPart{"PIC12F675", true},
    SmallPart{"PIC16C620A"},
    SmallPart{"PIC16C715"},
    SmallPart{"PIC16F84A", true},
    SmallPart{"PIC16F628A", true},
    SmallPart{"PIC16F76"},
    SmallPart{"PIC16F819", true},
    SmallPart{"PIC16F88", true},
    SmallPart{"PIC16F84A", true, "FLASH8"},
    SmallPart{"PIC16F84A", true, "LDR412", "LDR412"},
};

CatalogueBlock block_of(const SmallPart& part) {
    CatalogueBlock block{.device = part.device, .other_values = {{"PGM_SIZE_WORD", "0x000F"}}};
    if (part.eeprom) block.other_values.emplace_back("EEPROM_BYTE", "7");
    if (!part.type.empty()) block.other_values.emplace_back("PGM_TYPE", part.type);
    return block;
}

class SmallBench : public Bench {
  public:
    explicit SmallBench(const SmallPart& part) : Bench{part.device, {block_of(part)}} {
        if (!part.renamed.empty()) session().DeviceName = part.renamed;
        EXPECT_EQ(session().PgmWords, 16);
        notes_expected = true;  // a fault makes the host break off where the board goes on
        dialogs.hint_answer = 1;
        blank_ = target();
        program_target();
        used_ = target();
        used_.program[9] ^= 0x0010;
        if (!used_.eeprom.empty()) used_.eeprom[5] ^= 0x04;
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
    // The factory's word is kept by hand: it is compared by the tests of calibration.
    std::size_t judged_words() {
        return target().program.size() - (logs_calibration(session().PgmType) ? 1 : 0);
    }
    bool holds_program() {
        for (std::size_t w = 0; w < judged_words(); ++w)
            if (target().program[w] !=
                word_high_first(session().PgmMem[2 * w], session().PgmMem[2 * w + 1]))
                return false;
        const auto differing = target().config[0] ^ config_area::word(session().CfgIdMem, 1);
        return (differing & target().config_mask[0] & 0x3FFF) == 0;
    }
    bool holds_eeprom() {
        for (std::size_t c = 0; c < target().eeprom.size(); ++c)
            if (target().eeprom[c] != session().EepMem[2 * c + 1]) return false;
        return true;
    }
    bool program_is_blank() {
        for (std::size_t w = 0; w < judged_words(); ++w)
            if (target().program[w] != target().blank_word) return false;
        return true;
    }
    bool eeprom_is_blank() {
        return std::ranges::all_of(target().eeprom, [](auto cell) { return cell == 0xFF; });
    }

  private:
    SimulatedTarget blank_;
    SimulatedTarget used_;
};

struct Operation {
    const char* name;
    Outcome (*run)(Run&);
    bool on_blank_part;
    bool judged_when_altered;
    // What a success must have left behind.
    bool (*is_true_success)(SmallBench&);
};

template <Outcome (Flows::*entry)()>
Outcome flow(Run& run) {
    return (run.flows.*entry)();
}
template <Outcome (ExtendFlows::*entry)()>
Outcome area(Run& run) {
    return (run.extend.*entry)();
}

bool never(SmallBench&) { return false; }
bool whole(SmallBench& bench) { return bench.holds_program() && bench.holds_eeprom(); }

const std::array kOperations{
    Operation{"blank", flow<&Flows::Command_blank>, false, false, never},
    Operation{"verify", flow<&Flows::Command_Verify>, false, false, never},
    Operation{"read", flow<&Flows::Command_read>, false, false, whole},
    Operation{"program", flow<&Flows::Command_program>, false, true, whole},
    Operation{"program_blank", flow<&Flows::Command_program>, true, true, whole},
    Operation{
        "chip_erase", area<&ExtendFlows::Cmd_Chip_Erace_Click>, false, true,
        [](SmallBench& bench) { return bench.program_is_blank() && bench.eeprom_is_blank(); }},
    Operation{"pgm_erase", area<&ExtendFlows::Cmd_PGM_Erase_Click>, false, true,
              [](SmallBench& bench) { return bench.program_is_blank(); }},
    Operation{"data_erase", area<&ExtendFlows::Cmd_DATA_Erase_Click>, false, true,
              [](SmallBench& bench) { return bench.eeprom_is_blank(); }},
    Operation{"pgm_program", area<&ExtendFlows::Cmd_PGM_Program_Click>, true, true,
              [](SmallBench& bench) { return bench.holds_program(); }},
    Operation{"data_program", area<&ExtendFlows::Cmd_DATA_Program_Click>, false, true,
              [](SmallBench& bench) { return bench.holds_eeprom(); }},
    Operation{"pgm_read", area<&ExtendFlows::Cmd_PGM_Read_Click>, false, false,
              [](SmallBench& bench) { return bench.holds_program(); }},
    Operation{"data_read", area<&ExtendFlows::Cmd_DATA_Read_Click>, false, false,
              [](SmallBench& bench) { return bench.holds_eeprom(); }},
};

std::size_t bytes_of_operation(SmallBench& bench, const Operation& operation) {
    bench.start_over(operation.on_blank_part);
    static_cast<void>(operation.run(*bench.run));
    return bench.bytes_sent();
}

std::string part_name(const testing::TestParamInfo<SmallPart>& info) {
    auto name = fmt::format("{}{}", info.param.device, info.param.type);
    std::erase(name, '.');
    return name;
}

}  // namespace

class fault_matrix : public testing::TestWithParam<SmallPart> {};
INSTANTIATE_TEST_SUITE_P(, fault_matrix, testing::ValuesIn(kParts), part_name);

TEST_P(fault_matrix, holds_no_success_that_is_none) {
    SmallBench bench{GetParam()};
    int runs = 0;
    std::array<int, 8> outcomes{};
    for (const auto& operation : kOperations) {
        const auto bytes = bytes_of_operation(bench, operation);
        ASSERT_GT(bytes, 18U) << operation.name;
        for (const auto fault : kFaults) {
            for (std::size_t n = 1; n <= bytes; n += stride(), ++runs) {
                bench.start_over(operation.on_blank_part);
                bench.board.add_fault(fmt::format("{}:{}", fault, n));
                const auto outcome = operation.run(*bench.run);
                ++outcomes.at(static_cast<std::size_t>(outcome));
                const auto place = fmt::format("{} {}:{}", operation.name, fault, n);
                ASSERT_FALSE(bench.port.is_open()) << place;
                ASSERT_TRUE(bench.controls_are_back()) << place;
                ASSERT_FALSE(bench.session().ExtendPgmOnly) << place;
                const bool judged = operation.judged_when_altered || fault != "alter";
                if (outcome != Outcome::Success || !judged) continue;
                ASSERT_TRUE(operation.is_true_success(bench)) << place << "\n" << bench.wire();
            }
        }
    }
    fmt::print(
        "{}: {} runs: {} true successes, {} failed, {} no board, {} given up, {} port lost\n",
        bench.device(), runs, outcomes[0], outcomes[1], outcomes[4], outcomes[6], outcomes[7]);
    EXPECT_GT(runs, 100);
}

}  // namespace quillon::test
