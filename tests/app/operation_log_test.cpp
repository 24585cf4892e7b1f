// SPDX-License-Identifier: MIT
#include "app/operation_log.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <vector>

#include "support/fakes.h"
#include "support/no_room.h"

namespace quillon {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using test::FakeHost;
using test::TempFolder;

class LogBench : public testing::Test {
  protected:
    LogBench() {
        session.TempDir = folder.path().string() + "/";
        session.FailDetail = "プログラム成功";
        session.DeviceName = "PIC16F877A";
        session.PgmType = "FLASH8";
        session.LoadedHexPath = "/home/u/blink.hex";
        form.Text_ID.Text.set("FFFF");
        form.Lbl_Calib_ReadWrite_Data.Caption.set("3480");
    }
    std::string content() const { return folder.read("LOG_NEW0.txt"); }
    const std::string& caption() const { return form.LabelCmt.Caption.get(); }

    TempFolder folder;
    Session session;
    MainForm form;
    FakeHost host;
    Messages messages{form};
    OperationLog log{session, form, host, messages};
};

class LOG_data_write : public LogBench {};
class mnuLogFileOpen_ : public LogBench {};

TEST_F(LOG_data_write, writes_result_device_id_file_and_time) {
    log.LOG_data_write();
    EXPECT_EQ(content(),
              "プログラム成功  PIC16F877A  ID:FFFF  /home/u/blink.hex\t2026-11-20 14:03:22\n");
}

// A TAB separates fields and a line end separates lines, so a name must contain neither.
TEST_F(LOG_data_write, shows_control_characters_escaped_so_that_no_line_can_be_forged) {
    session.DeviceName = "PIC\x1b[2J";
    session.LoadedHexPath = "/home/u/a.hex\t2026-01-01 00:00:00\nプログラム成功  PIC16F84A";
    log.LOG_data_write();
    log.note("終了\r\n");
    EXPECT_EQ(content(),
              "プログラム成功  PIC\\x1B[2J  ID:FFFF  /home/u/a.hex\\x092026-01-01 00:00:00\\x0A"
              "プログラム成功  PIC16F84A\t2026-11-20 14:03:22\n"
              "終了\\x0D\\x0A\t\t2026-11-20 14:03:22\n");
}

TEST_F(LOG_data_write, writes_into_nothing_that_a_link_leads_to) {
    folder.write("other", "precious");
    fs::create_symlink(folder / "other", folder / "LOG_NEW0.txt");
    log.LOG_data_write();
    EXPECT_EQ(folder.read("other"), "precious");
    EXPECT_NE(caption().find("ログファイルに書き込むことができませんでした。"), std::string::npos);
}

TEST_F(LOG_data_write, adds_the_calibration_word_for_the_four_types_that_have_it) {
    for (const auto* type : {"12C5", "10F2", "12C6", "12F6"}) {
        fs::remove(folder / "LOG_NEW0.txt");
        session.PgmType = type;
        log.LOG_data_write();
        EXPECT_EQ(content(),
                  "プログラム成功  PIC16F877A  ID:FFFF  3480  /home/u/blink.hex\t"
                  "2026-11-20 14:03:22\n")
            << type;
    }
}

TEST_F(LOG_data_write, leaves_the_calibration_word_out_for_all_others) {
    for (const auto* type :
         {"5F28", "5F18", "FLASH6", "18F_00", "12F5", "12F61", "EPROM", "12c5", "5X28", ""}) {
        fs::remove(folder / "LOG_NEW0.txt");
        session.PgmType = type;
        log.LOG_data_write();
        EXPECT_EQ(content().find("3480"), std::string::npos) << type;
    }
}

TEST_F(LOG_data_write, keeps_the_blanks_of_what_is_empty) {
    session.FailDetail = session.DeviceName = session.LoadedHexPath = "";
    form.Text_ID.Text.set("");
    log.LOG_data_write();
    EXPECT_EQ(content(), "    ID:  \t2026-11-20 14:03:22\n");
}

TEST_F(LOG_data_write, appends) {
    folder.write("LOG_NEW0.txt", "old\n");
    log.LOG_data_write();
    EXPECT_EQ(content().substr(0, 4), "old\n");
    EXPECT_EQ(content().size(),
              std::string{"old\n"}.size() + std::string{"プログラム成功  PIC16F877A  ID:FFFF  "
                                                        "/home/u/blink.hex\t2026-11-20 14:03:22\n"}
                                                .size());
}

TEST_F(LOG_data_write, hands_the_line_on_to_those_who_follow_along) {
    std::vector<std::string> lines;
    const auto connection =
        log.appended.connect([&](const std::string& line) { lines.push_back(line); });
    log.LOG_data_write();
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0] + "\n", content());
}

TEST_F(LOG_data_write, leaves_a_note_of_an_operation_without_a_result) {
    log.note("電源の異常");
    EXPECT_EQ(content(), "電源の異常\t\t2026-11-20 14:03:22\n");
}

// A folder takes the place of a file that can't be opened for writing: tests may run as the
// superuser, whom a read-only attribute doesn't stop.
TEST_F(LOG_data_write, tells_once_that_the_log_cannot_be_opened_and_keeps_the_verdict) {
    fs::create_directory(folder / "LOG_NEW0.txt");
    messages.ShowMessage("プログラム成功");
    std::vector<std::string> lines;
    const auto connection =
        log.appended.connect([&](const std::string& line) { lines.push_back(line); });
    log.LOG_data_write();
    const std::string told = caption();
    EXPECT_TRUE(
        told.starts_with("プログラム成功 \r\nログファイルに書き込むことができませんでした。"))
        << told;
    EXPECT_NE(told.find((folder / "LOG_NEW0.txt").string()), std::string::npos) << told;
    EXPECT_EQ(form.LabelCmt.ForeColor.get(), Colour::Black);
    log.LOG_data_write();
    EXPECT_EQ(caption(), told);
    EXPECT_EQ(lines.size(), 0U);
}

TEST_F(LOG_data_write, leaves_a_failure_red_when_the_log_cannot_be_written) {
    fs::create_directory(folder / "LOG_NEW0.txt");
    messages.ShowMessage("red失敗");
    log.LOG_data_write();
    EXPECT_EQ(form.LabelCmt.ForeColor.get(), Colour::Red);
    EXPECT_TRUE(caption().starts_with("失敗 \r\nログファイル")) << caption();
}

TEST_F(LOG_data_write, tells_of_a_full_disk) {
    const test::NoRoom disk{0};
    log.LOG_data_write();
    EXPECT_NE(caption().find("ログファイルに書き込むことができませんでした。"), std::string::npos);
}

TEST_F(LOG_data_write, takes_back_what_a_full_disk_cut_off_and_appends_a_whole_line_later) {
    const std::string before = "old  ID:  \t2026-11-20 14:03:21\n";
    folder.write("LOG_NEW0.txt", before);
    {
        const test::NoRoom disk{before.size() + 7};
        log.LOG_data_write();
        EXPECT_EQ(content(), before);
        EXPECT_NE(caption().find("ログファイルに書き込むことができませんでした。"),
                  std::string::npos);
    }
    log.LOG_data_write();
    EXPECT_EQ(content(), before +
                             "プログラム成功  PIC16F877A  ID:FFFF  /home/u/blink.hex\t"
                             "2026-11-20 14:03:22\n");
}

TEST_F(LOG_data_write, makes_the_work_folder_again_where_it_was_tidied_away) {
    session.TempDir = (folder / "QUILLON4_TEMP").string() + "/";
    log.LOG_data_write();
    fs::remove_all(session.TempDir);
    log.LOG_data_write();
    EXPECT_EQ(folder.read("QUILLON4_TEMP/LOG_NEW0.txt"),
              "プログラム成功  PIC16F877A  ID:FFFF  /home/u/blink.hex\t2026-11-20 14:03:22\n");
    EXPECT_EQ(caption(), "");
}

TEST_F(LOG_data_write, tells_of_a_work_folder_whose_drive_is_gone) {
    session.TempDir = (folder / "drive/QUILLON4_TEMP").string() + "/";
    log.LOG_data_write();
    EXPECT_NE(caption().find("ログファイルに書き込むことができませんでした。"), std::string::npos);
    EXPECT_FALSE(fs::exists(folder / "drive"));
}

TEST_F(LOG_data_write, writes_again_once_the_trouble_is_over_and_tells_of_the_next) {
    fs::create_directory(folder / "LOG_NEW0.txt");
    log.LOG_data_write();
    fs::remove(folder / "LOG_NEW0.txt");
    messages.ShowMessage("");
    log.LOG_data_write();
    EXPECT_NE(content(), "");
    EXPECT_EQ(caption(), " ");
    fs::remove(folder / "LOG_NEW0.txt");
    fs::create_directory(folder / "LOG_NEW0.txt");
    log.LOG_data_write();
    EXPECT_NE(caption(), " ");
}

TEST(log_time, is_a_date_and_a_time_that_sort) {
    std::tm time{};
    time.tm_year = 99, time.tm_mon = 0, time.tm_mday = 2;
    time.tm_hour = 3, time.tm_min = 4, time.tm_sec = 5;
    EXPECT_EQ(log_time(time), "1999-01-02 03:04:05");
}

TEST_F(mnuLogFileOpen_, opens_each_log_that_exists_and_the_newest_last) {
    folder.write("LOG_NEW0.txt", "n");
    folder.write("LOG_OLD1.txt", "1");
    folder.write("LOG_OLD9.txt", "");
    mnuLogFileOpen(session, host, messages);
    EXPECT_EQ(host.opened, (std::vector<std::string>{(folder / "LOG_OLD9.txt").string(),
                                                     (folder / "LOG_OLD1.txt").string(),
                                                     (folder / "LOG_NEW0.txt").string()}));
    EXPECT_EQ(caption(), "");
}

TEST_F(mnuLogFileOpen_, yields_sleeps_200_ms_and_yields_twice_after_each) {
    folder.write("LOG_NEW0.txt", "n");
    folder.write("LOG_OLD1.txt", "1");
    mnuLogFileOpen(session, host, messages);
    EXPECT_EQ(host.sleeps, (std::vector<std::chrono::milliseconds>{200ms, 200ms}));
    EXPECT_EQ(host.pumps, 2 * (1 + 1 + 2));  // the sleep itself keeps the interface alive once
}

TEST_F(mnuLogFileOpen_, says_so_where_there_is_none) {
    mnuLogFileOpen(session, host, messages);
    EXPECT_EQ(caption(), "ログファイルがありませんでした。 ");
    EXPECT_TRUE(host.opened.empty());
    EXPECT_TRUE(host.sleeps.empty());
}

TEST_F(mnuLogFileOpen_, says_that_there_is_none_where_the_work_folder_has_vanished) {
    session.TempDir = (folder / "absent").string() + "/";
    mnuLogFileOpen(session, host, messages);
    EXPECT_EQ(caption(), "ログファイルがありませんでした。 ");
}

TEST_F(mnuLogFileOpen_, opens_the_whole_chain_from_the_oldest_to_the_newest) {
    std::vector<std::string> expected;
    for (int n = 9; n >= 1; --n)
        expected.push_back(folder.write("LOG_OLD" + std::to_string(n) + ".txt", "x").string());
    expected.push_back(folder.write("LOG_NEW0.txt", "x").string());
    mnuLogFileOpen(session, host, messages);
    EXPECT_EQ(host.opened, expected);
}

TEST_F(mnuLogFileOpen_, says_so_where_no_program_opens_one) {
    host.opens = false;
    folder.write("LOG_NEW0.txt", "n");
    mnuLogFileOpen(session, host, messages);
    EXPECT_EQ(caption(), "ログファイルを開くことができませんでした。 ");
}

}  // namespace
}  // namespace quillon
