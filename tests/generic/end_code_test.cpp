// SPDX-License-Identifier: MIT
// Each area routine of the devices without a family with another byte in the place of its end code,
// and those with a limit at both sides of it: its own words, and what the operation does then.
#include "generic_lines.h"

namespace quillon::test {

namespace {

constexpr auto kBlank = &Flows::Command_blank;
constexpr auto kRead = &Flows::Command_read;
constexpr auto kVerify = &Flows::Command_Verify;
constexpr auto kProgram = &Flows::Command_program;

const std::string kReadingCfg = "コンフィギュレーションワード読み出し中..........";
const std::string kVerifyingCfg = "ベリファイ中..........コンフィギュレーションワード";
const std::string kPatching = "コンフィグレーションの修正データ修得中..........";
const std::string kVerifyingPgm = "プログラムメモリのベリファイ中..........";
const std::string kVerifyingEep = "ＥＥＰＲＯＭデータメモリのベリファイ中..........";

// A fault of one byte. PLACE in it stands for the letters of the exchange.
struct Broken {
    const char* name;
    Outcome (Flows::*operation)();
    const char* place;  // "b", or the area behind the letters of a read
    int byte;           // from 1; 0 for the end code of the area's size
    std::string message;
    std::string from = "";  // the message at which the fault is set
    bool goes_on = false;   // the operation runs to its report
};
void PrintTo(const Broken& broken, std::ostream* out) { *out << broken.name; }

const std::vector<Broken> kBroken{
    {"Socket_Check", kRead, "c", 17, "ソケット確認失敗。　　終了コードを受信できませんでした。"},
    {"Socket_Check_of_a_verify", kVerify, "c", 17,
     "ソケット確認失敗。　　終了コードを受信できませんでした。"},
    {"Socket_Check_of_a_program_run", kProgram, "c", 17,
     "ソケット確認失敗。　　終了コードを受信できませんでした。"},
    {"Blank_Pgm_of_a_program_run", kProgram, "b", 3,
     "プログラムメモリブランクチェック失敗。　　終了コードを受信できませんでした。"},
    {"Blank_Eep_of_a_program_run", kProgram, "d", 0,
     "ＥＥＰＲＯＭデータメモリブランクチェック失敗。　　終了コードを受信できませんでした。"},
    {"Blank_Pgm", kBlank, "b", 3,
     "プログラムメモリブランクチェック失敗。　　終了コードを受信できませんでした。", "", true},
    {"Blank_Eep", kBlank, "d", 0,
     "ＥＥＰＲＯＭデータメモリブランクチェック失敗。　　終了コードを受信できませんでした。", "",
     true},
    {"Blank_Cfg", kBlank, "c", 0,
     "コンフィギュレーションワードブランクチェック失敗。　　終了コードを受信できませんでした。", "",
     true},
    {"Read_Pgm", kRead, "p", 0,
     "プログラムメモリ読み出し失敗。　　終了コードを受信できませんでした。"},
    {"Read_Eep", kRead, "d", 0,
     "ＥＥＰＲＯＭデータメモリ読み出し失敗。　　終了コードを受信できませんでした。"},
    {"Read_Cfg", kRead, "c", 0,
     "コンフィギュレーションワード読み出し失敗。　　終了コードを受信できませんでした。",
     kReadingCfg},
    {"Verify_Pgm", kVerify, "p", 0,
     "プログラムメモリ ベリファイ失敗。　　終了コードを受信できませんでした。", "", true},
    {"Verify_Eep", kVerify, "d", 0,
     "ＥＥＰＲＯＭデータメモリの ベリファイエラー。  終了コードを受信できませんでした。", "", true},
    {"Verify_Pgm_of_a_program_run", kProgram, "p", 0,
     "プログラムメモリ ベリファイ失敗。　　終了コードを受信できませんでした。", kVerifyingPgm,
     true},
    {"Verify_Eep_of_a_program_run", kProgram, "d", 0,
     "ＥＥＰＲＯＭデータメモリの ベリファイエラー。  終了コードを受信できませんでした。",
     kVerifyingEep, true},
    {"Cfg_Patch_Read", kProgram, "c", 17,
     "コンフィギュレーションワード修正失敗。　　終了コードを受信できませんでした。", kPatching},
};

std::string letters(const GenericCase& row, const std::string& place) {
    return place == "b" ? std::string{row.blank} : std::string{row.read} + place;
}

int end_code_of(const GenericBench& bench, const Broken& broken) {
    if (broken.byte != 0) return broken.byte;
    const auto& session = bench.run->session;
    const std::string area = broken.place;
    if (area == "p") return 2 * session.PgmWords + 1;
    if (area == "d") return 2 * session.EepBytes + 1;
    return 2 * (broken.operation == kBlank ? bench.row().words.blank : bench.row().words.read) + 1;
}

std::string broken_name(const testing::TestParamInfo<Broken>& info) { return info.param.name; }

}  // namespace

class generic_end_code : public testing::TestWithParam<Broken> {};
INSTANTIATE_TEST_SUITE_P(, generic_end_code, testing::ValuesIn(kBroken), broken_name);

TEST_P(generic_end_code, is_missed_in_the_routines_own_words) {
    const Broken& broken = GetParam();
    for (const auto& row : kGenericCases) {
        GenericBench bench{row, kFewWords};
        if (std::string_view{broken.place} == "d" && !bench.has_eeprom()) continue;
        if (broken.operation == kVerify) bench.program_target();
        const auto fault =
            fmt::format("{}/alter:{}:0x21", letters(row, broken.place), end_code_of(bench, broken));
        const auto set = [&] { bench.board.add_fault(fault); };
        if (broken.from.empty())
            set();
        else
            bench.when_shown(broken.from, set);
        EXPECT_EQ((bench.run->flows.*broken.operation)(), Outcome::Failed) << row.name;

        EXPECT_EQ(std::ranges::count(bench.shown->lines, broken.message), 1) << row.name;
        EXPECT_EQ(bench.session().PassCount, 0);
        // An operation that stops sends nothing more and leaves no line in the log.
        if (broken.goes_on) continue;
        EXPECT_TRUE(bench.wire().ends_with(" 21\n")) << row.name;
        EXPECT_EQ(bench.log(), "") << row.name;
    }
}

namespace {

// A wait with a limit: just below it the operation goes on, just above it it says so.
struct Limit {
    const char* name;
    Outcome (Flows::*operation)();
    const char* place;
    const char* below;
    const char* above;
    std::string message;
    std::string from = "";
};
void PrintTo(const Limit& limit, std::ostream* out) { *out << limit.name; }

const std::vector<Limit> kLimits{
    {"Socket_Check", kRead, "c", "9900ms", "10100ms", "ソケット確認失敗。　　読み出しデータ不足。"},
    {"Read_Eep", kRead, "d", "9000ms", "10100ms",
     "ＥＥＰＲＯＭデータメモリ読み出し失敗。　　読み出しデータ不足。"},
    {"Read_Cfg", kRead, "c", "9900ms", "10100ms",
     "コンフィギュレーションワード読み出し失敗。　　読み出しデータ不足。", kReadingCfg},
};

std::string limit_name(const testing::TestParamInfo<Limit>& info) { return info.param.name; }

}  // namespace

TEST(generic_read_of_program_memory, leaves_the_image_as_it_was_where_its_end_code_is_missing) {
    for (const auto& row : kGenericCases) {
        GenericBench bench{row, kFewWords};
        const auto program = bench.program_image();
        const auto eeprom = bench.eeprom_image();
        bench.board.add_fault(
            fmt::format("{}/alter:{}:0x21", letters(row, "p"), 2 * bench.session().PgmWords + 1));
        EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Failed) << row.name;
        EXPECT_EQ(bench.program_image(), program) << row.name;
        EXPECT_EQ(bench.eeprom_image(), eeprom) << row.name;
    }
}

class generic_limit : public testing::TestWithParam<Limit> {};
INSTANTIATE_TEST_SUITE_P(, generic_limit, testing::ValuesIn(kLimits), limit_name);

TEST_P(generic_limit, is_10_s) {
    const Limit& limit = GetParam();
    for (const auto& row : kGenericCases) {
        for (const bool late : {false, true}) {
            GenericBench bench{row, kFewWords};
            if (std::string_view{limit.place} == "d" && !bench.has_eeprom()) continue;
            const auto fault = fmt::format("{}/late:{}", letters(row, limit.place),
                                           late ? limit.above : limit.below);
            const auto set = [&] { bench.board.add_fault(fault); };
            limit.from.empty() ? set() : bench.when_shown(limit.from, set);
            EXPECT_EQ((bench.run->flows.*limit.operation)(),
                      late ? Outcome::Failed : Outcome::Success)
                << row.name;
            EXPECT_EQ(std::ranges::count(bench.shown->lines, limit.message), late ? 1 : 0)
                << row.name;
        }
    }
}

TEST(generic_blank_of_eeprom, is_waited_for_up_to_10_s) {
    for (const auto& row : kGenericCases) {
        GenericBench bench{row, kFewWords};
        if (!bench.has_eeprom()) continue;
        bench.board.add_fault(letters(row, "d") + "/late:9000ms");
        EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Success) << row.name;

        // Without its last byte the area is never complete.
        bench.board.add_fault(
            fmt::format("{}/drop:{}", letters(row, "d"), 2 * bench.session().EepBytes + 1));
        const auto from = bench.host.now();
        EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Failed) << row.name;
        EXPECT_GT(bench.host.now() - from, 10s);
        EXPECT_EQ(std::ranges::count(
                      bench.shown->lines,
                      "ＥＥＰＲＯＭデータメモリブランクチェック失敗。　　読み出しデータ不足。"),
                  1);
        EXPECT_EQ(bench.session().ResultEep, Token::ER);
    }
}

TEST(generic_chip_erase, is_waited_for_up_to_3_s) {
    for (const auto& row : kGenericCases) {
        if (row.chip_erase.empty()) continue;
        for (const std::string fault : {"/late:2980ms", "/late:3100ms", "/alter:1:0x21"}) {
            GenericBench bench{row, kFewWords};
            const auto part = bench.target();
            bench.board.add_fault(std::string{row.chip_erase} + fault);
            const bool good = fault == "/late:2980ms";
            EXPECT_EQ(bench.run->flows.Command_program(), good ? Outcome::Success : Outcome::Failed)
                << row.name;
            if (good) continue;
            const auto& lines = bench.shown->lines;
            EXPECT_EQ((Lines{lines.end() - 2, lines.end()}),
                      (Lines{"失敗。", "チップイレース失敗。"}));
            EXPECT_EQ(bench.session().TryCount, 0);
            EXPECT_EQ(bench.log(), "");
            EXPECT_TRUE(bench.dialogs.boxes.empty());
            // The port is closed at once, and once more at the end of the operation.
            const auto all = pauses(bench);
            EXPECT_EQ((Pauses{all.end() - 4, all.end()}), (Pauses{200ms, 200ms, 200ms, 200ms}));
        }
    }
}

}  // namespace quillon::test
