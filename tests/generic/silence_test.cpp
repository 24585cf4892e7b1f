// SPDX-License-Identifier: MIT
// A board that falls silent in a wait that has no limit: only the user ends it.
#include "generic_lines.h"

namespace quillon::test {

namespace {

struct Wait {
    const char* name;
    Outcome (Flows::*operation)();
    const char* place;  // "b", the area behind the letters of a read, or "wd" for the EEPROM write
    int bytes;          // that come before the silence
    std::string from = "";
};
void PrintTo(const Wait& wait, std::ostream* out) { *out << wait.name; }

const std::vector<Wait> kWaits{
    {"Blank_Pgm", &Flows::Command_blank, "b", 0},
    {"Blank_Pgm_at_its_end_code", &Flows::Command_blank, "b", 2},
    {"Blank_Cfg", &Flows::Command_blank, "c", 3},
    {"end_code_of_Socket_Check", &Flows::Command_read, "c", 16},
    {"Read_Pgm", &Flows::Command_read, "p", 33},
    {"Verify_Pgm", &Flows::Command_Verify, "p", 40},
    {"Verify_Cfg_Id", &Flows::Command_Verify, "c", 5,
     "ベリファイ中..........コンフィギュレーションワード"},
    {"end_code_of_Read_Cfg", &Flows::Command_read, "c", 16,
     "コンフィギュレーションワード読み出し中.........."},
    {"Write_Eep", &Flows::Command_program, "wd", 20},
    {"Cfg_Patch_Read", &Flows::Command_program, "c", 5,
     "コンフィグレーションの修正データ修得中.........."},
    {"end_code_of_Cfg_Patch_Read", &Flows::Command_program, "c", 16,
     "コンフィグレーションの修正データ修得中.........."},
};

std::string wait_name(const testing::TestParamInfo<Wait>& info) { return info.param.name; }

std::string place_of(const GenericCase& row, std::string_view place) {
    if (place == "b") return std::string{row.blank};
    if (place == "wd") return std::string{row.write_eep};
    return std::string{row.read} + std::string{place};
}

// The area of 16 words is bounded as a whole, so its waits end by themselves.
bool is_bounded(const GenericCase& row, const Wait& wait) {
    if (row.words.read != 16 || std::string_view{wait.place} != "c") return false;
    const std::string_view name = wait.name;
    return name == "Blank_Cfg" || name == "Verify_Cfg_Id" || name == "end_code_of_Read_Cfg";
}

}  // namespace

class generic_silence : public testing::TestWithParam<Wait> {};
INSTANTIATE_TEST_SUITE_P(, generic_silence, testing::ValuesIn(kWaits), wait_name);

TEST_P(generic_silence, is_waited_through_until_the_user_gives_up) {
    const Wait& wait = GetParam();
    for (const auto& row : kGenericCases) {
        GenericBench bench{row, kFewWords};
        if (std::string_view{wait.place} == "wd" && !bench.has_eeprom()) continue;
        if (is_bounded(row, wait)) continue;
        if (wait.operation == &Flows::Command_Verify) bench.program_target();
        const auto fault = fmt::format("{}/silent-after:{}", place_of(row, wait.place), wait.bytes);
        const auto set = [&] { bench.board.add_fault(fault); };
        wait.from.empty() ? set() : bench.when_shown(wait.from, set);
        const auto end = bench.host.now() + 2min;
        bench.give_up_when([&] { return bench.host.now() >= end; });
        EXPECT_EQ((bench.run->flows.*wait.operation)(), Outcome::GivenUp) << row.name;

        EXPECT_GE(bench.host.now(), end) << row.name;
        EXPECT_EQ(bench.shown->lines.back(), "[red] 操作を中止しました。");
        EXPECT_FALSE(bench.port.is_open());
        EXPECT_EQ(bench.session().PassCount, 0);
        EXPECT_EQ(bench.log(), "");

        // The next operation finds the board again.
        bench.board.clear_faults();
        EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Success) << row.name;
    }
}

// The area of 16 words is bounded wherever it is read.
TEST(generic_silence_of_FLASH4_9, ends_every_wait_for_its_configuration_after_10_s) {
    struct Place {
        Outcome (Flows::*operation)();
        std::string from;
    };
    for (const auto& [operation, from] : {
             Place{&Flows::Command_blank, "ブランクチェック中..........コンフィグ・ＩＤワード"},
             Place{&Flows::Command_Verify, "ベリファイ中..........コンフィギュレーションワード"},
             Place{&Flows::Command_read, "コンフィギュレーションワード読み出し中.........."},
             Place{&Flows::Command_program, "コンフィギュレーションワードのベリファイ中.........."},
         }) {
        GenericBench bench{generic_case("FLASH4_9"), kFewWords};
        bench.notes_expected = true;  // letters that follow where the board awaits an acknowledge
        if (operation == &Flows::Command_Verify) bench.program_target();
        FakeHost::Time silent{};
        bench.when_shown(from, [&] {
            bench.board.add_fault("rsc/silent-after:3");
            silent = bench.host.now();
        });
        bench.give_up_when(
            [&] { return silent.count() != 0 && bench.host.now() >= silent + 1min; });
        // A verify goes on to program memory, whose wait has no limit.
        const bool goes_on = operation == &Flows::Command_Verify;
        EXPECT_EQ((bench.run->flows.*operation)(), goes_on ? Outcome::GivenUp : Outcome::Failed);
        if (goes_on) {
            EXPECT_EQ(
                std::ranges::count(bench.shown->lines, "ベリファイ中..........プログラムメモリー"),
                1);
        }
        EXPECT_GT(bench.host.now() - silent, 10s) << from;
        EXPECT_EQ(bench.session().PassCount, 0);
    }
}

}  // namespace quillon::test
