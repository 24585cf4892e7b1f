// SPDX-License-Identifier: MIT
// Every key of the settings: how start-up uses it, and which action writes it.
#include <fmt/format.h>

#include <functional>
#include <ostream>
#include <set>

#include "start_up_bench.h"

namespace quillon {
namespace {

using Run = quillon::Run;  // the test case has one of its own

struct ReadRow {
    std::string key;
    std::string seen_by_default;
    std::string saved;
    std::string seen;  // where it is saved
    std::function<std::string(const Run&)> look;
};

void PrintTo(const ReadRow& row, std::ostream* out) { *out << row.key; }

std::string seen(bool flag) { return flag ? "on" : "off"; }
std::string seen(int number) { return std::to_string(number); }

std::vector<ReadRow> read_rows() {
    std::vector<ReadRow> rows{
        {"ComNo", "0", "7", "7", [](const Run& run) { return seen(run.session.ComNo); }},
        {"deviceNew", "0", "5", "5",
         [](const Run& run) { return seen(run.form.Combo_device.ListIndex.get()); }},
        {"SkipMode", "off", "1", "on",
         [](const Run& run) { return seen(run.form.mnuBlankSkip.Checked.get()); }},
        {"mnuComMode1", "off", "1", "on",
         [](const Run& run) { return seen(run.form.mnuComMode1.Checked.get()); }},
        {"mnuBoardInfomation", "on", "False", "off",
         [](const Run& run) { return seen(run.form.mnuBoardInfomation.Checked.get()); }},
        {"MainLeft", "100", "-30", "-30", [](const Run& run) { return seen(run.form.Left); }},
        {"MainTop", "100", "45", "45", [](const Run& run) { return seen(run.form.Top); }},
        {"MainHeight", "7860", "9000", "9000",
         [](const Run& run) { return seen(run.form.Height); }},
        {"BoardLeft", "0", "70", "70", [](const Run& run) { return seen(run.board.Left); }},
        {"BoardTop", "0", "80", "80", [](const Run& run) { return seen(run.board.Top); }},
        {"OPEN_DIR0", "Quillon V4 V4.0.1  ", "/仕事/a b", "Quillon V4 V4.0.1  /仕事/a b",
         [](const Run& run) { return run.form.Caption.get(); }},
        {"AsmFilePathWithFileName", "", "/a.asm", "/a.asm",
         [](const Run& run) { return run.session.AsmToolPath; }},
    };
    for (std::size_t i = 0; i < 5; ++i) {
        rows.push_back({fmt::format("OPEN_DIR{}", i + 1), "", "/a    P", "/a    P",
                        [i](const Run& run) { return run.form.nmuFile[i].Caption.get(); }});
        rows.push_back({fmt::format("OPEN_Device{}", i + 1), "", "12", "12",
                        [i](const Run& run) { return run.form.nmuDevice[i].Caption.get(); }});
    }
    return rows;
}

class setting_read : public test::StartUpBench, public testing::WithParamInterface<ReadRow> {
  protected:
    setting_read() {
        with_board();
        unset("ComNo");
    }
};

TEST_P(setting_read, has_its_default_where_nothing_is_saved) {
    EXPECT_EQ(start(), StartUp::End::Ready);
    EXPECT_EQ(GetParam().look(run), GetParam().seen_by_default);
    EXPECT_FALSE(std::ranges::any_of(
        log.lines, [](const auto& line) { return line.find("設定 ") != std::string::npos; }));
}

TEST_P(setting_read, comes_back_as_it_was_saved) {
    set(GetParam().key, GetParam().saved);
    EXPECT_EQ(start(), StartUp::End::Ready);
    EXPECT_EQ(GetParam().look(run), GetParam().seen);
}

INSTANTIATE_TEST_SUITE_P(each, setting_read, testing::ValuesIn(read_rows()),
                         [](const auto& row) { return row.param.key; });

using Keys = std::set<std::string>;

struct WriteRow {
    std::string what;
    Keys written;
    std::function<void(Run&, StartUp&)> act;
};

void PrintTo(const WriteRow& row, std::ostream* out) { *out << row.what; }

const Keys kHistory{"OPEN_DIR1",    "OPEN_DIR2",    "OPEN_DIR3",    "OPEN_DIR4",    "OPEN_DIR5",
                    "OPEN_Device1", "OPEN_Device2", "OPEN_Device3", "OPEN_Device4", "OPEN_Device5"};

Keys opened_file() {
    Keys keys = kHistory;
    keys.insert({"OPEN_DIR0", "deviceNew"});
    return keys;
}

std::vector<WriteRow> write_rows() {
    return {
        {"choosing_a_device",
         {"deviceNew"},
         [](Run& run, StartUp&) { run.form.Combo_device.select("PIC16F877"); }},
        {"the_blank_skip", {"SkipMode"}, [](Run& run, StartUp&) { run.menu.mnuBlankSkip_Click(); }},
        {"the_communication_mode",
         {"mnuComMode1"},
         [](Run& run, StartUp&) { run.menu.mnuComMode1_Click(); }},
        {"showing_or_hiding_the_board",
         {"mnuBoardInfomation", "BoardLeft", "BoardTop"},
         [](Run& run, StartUp&) { run.menu.mnuBoardInfomation_Click(); }},
        {"moving_the_board",
         {"BoardLeft", "BoardTop"},
         [](Run& run, StartUp&) { run.menu.frmBoard_Moved(1, 2); }},
        {"choosing_a_port",
         {"ComNo"},
         [](Run& run, StartUp&) {
             run.option.Form_Load();
             run.option.Option_Com_Click(4);
             run.option.Command_Ok_Click();
         }},
        {"leaving_the_port_dialog",
         {},
         [](Run& run, StartUp&) {
             run.option.Form_Load();
             run.option.Option_Com_Click(4);
             run.option.Command1_Click();
         }},
        {"opening_a_file", opened_file(),
         [](Run& run, StartUp&) {
             run.files.mnuFileOpen_Click(std::filesystem::path{run.session.TempDir} / "a.hex");
         }},
        {"clearing_the_history", kHistory,
         [](Run& run, StartUp&) { run.files.nmuHistryClear_Click(); }},
        {"production_mode", {}, [](Run& run, StartUp&) { run.menu.mnuLock_Click(); }},
        {"a_taller_window", {}, [](Run& run, StartUp&) { run.menu.mnuFrmmainHight_Click(); }},
        {"the_end",
         {"MainLeft", "MainTop", "MainHeight"},
         [](Run&, StartUp& start_up) { start_up.shutdown(false); }},
        {"the_end_of_a_minimized_window",
         {},
         [](Run&, StartUp& start_up) { start_up.shutdown(true); }},
    };
}

class setting_written : public test::StartUpBench, public testing::WithParamInterface<WriteRow> {
  protected:
    setting_written() {
        with_board();
        put_work_file("a.hex", test::kHexFile);
        start();
    }
    Keys keys() const {
        Keys found;
        for (const auto& [key, value] : store.values) {
            EXPECT_EQ(key.first, "Settings6");
            found.insert(key.second);
        }
        return found;
    }
};

TEST_P(setting_written, by_this_and_no_other_with_it) {
    store.values.clear();
    GetParam().act(run, start_up);
    EXPECT_EQ(keys(), GetParam().written);
}

INSTANTIATE_TEST_SUITE_P(by, setting_written, testing::ValuesIn(write_rows()),
                         [](const auto& row) { return row.param.what; });

class Main_settings : public test::StartUpBench {};

TEST_F(Main_settings, writes_the_boards_module_and_the_device_and_no_other) {
    with_board();
    start();
    EXPECT_EQ(store["FirmModule"], "ZQ-LDR412A");
    EXPECT_EQ(store["deviceNew"], "0");
    EXPECT_EQ(store.values.size(), 3U);  // the port was there
}

}  // namespace
}  // namespace quillon
