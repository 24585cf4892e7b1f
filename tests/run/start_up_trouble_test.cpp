// SPDX-License-Identifier: MIT
// Start-up and the session on a machine that isn't as it should be.
#include <set>

#include "start_up_bench.h"
#include "support/no_room.h"

namespace quillon {
namespace {

namespace fs = std::filesystem;
using End = StartUp::End;

constexpr std::string_view kFolderNotWritten =
    "作業フォルダーに書き込むことができません。ログは保存されません。";
constexpr std::string_view kLogNotWritten = "ログファイルに書き込むことができませんでした。";

class Main_trouble : public test::StartUpBench {
  protected:
    Main_trouble() { with_board(); }
    // Whether the session still does its work: a device, a file, a line of the log.
    void expect_usable() {
        EXPECT_TRUE(run.form.Enabled.get());
        run.form.Combo_device.select("PIC16F84A");
        EXPECT_EQ(run.session.DeviceName, "PIC16F84A");
        run.files.mnuFileOpen_Click(documents.write("a.hex", test::kHexFile));
        EXPECT_EQ(run.session.PgmMem[0], 0x28);
        EXPECT_NE(run.form.RichTxtPgmMem.Text.get().find("28A5"), std::string::npos);
        run.log.LOG_data_write();
    }
    const std::string& message() const { return run.form.LabelCmt.Caption.get(); }
};

// A folder of the kernel is used as the read-only one: the superuser can write to all others.
TEST_F(Main_trouble, goes_on_with_a_work_folder_that_takes_no_files_and_says_so) {
    fs::create_directory_symlink("/proc/self", documents / "QUILLON4_TEMP");
    EXPECT_EQ(start(), End::Ready);
    EXPECT_TRUE(dialogs.boxes.empty());
    EXPECT_TRUE(said(fmt::format("[+] [red] {} | {}", kFolderNotWritten, work())));
    expect_usable();
    EXPECT_NE(message().find(kLogNotWritten), std::string::npos) << message();
    start_up.shutdown(false);
    EXPECT_EQ(store["MainLeft"], "100");
}

TEST_F(Main_trouble, says_nothing_of_a_work_folder_that_takes_files_and_leaves_no_probe) {
    start();
    EXPECT_FALSE(std::ranges::any_of(log.lines, [](const auto& line) {
        return line.find(kFolderNotWritten) != std::string::npos;
    }));
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator{work()})
        names.insert(entry.path().filename().string());
    EXPECT_TRUE(std::ranges::none_of(
        names, [](const auto& name) { return name.find("TEST") != std::string::npos; }));
}

TEST_F(Main_trouble, goes_on_with_a_full_disk_and_keeps_the_logs) {
    put_work_file("LOG_NEW0.txt", "last session\n");
    put_work_file("LOG_OLD1.txt", "the one before\n");
    const test::NoRoom disk{0};
    EXPECT_EQ(start(), End::Ready);
    EXPECT_TRUE(said(fmt::format("[+] [red] {} | {}", kFolderNotWritten, work())));
    EXPECT_EQ(work_file("LOG_OLD1.txt"), "last session\n");
    EXPECT_EQ(work_file("LOG_OLD2.txt"), "the one before\n");
    run.form.Combo_device.select("PIC16F84A");
    run.log.LOG_data_write();
    EXPECT_NE(message().find(kLogNotWritten), std::string::npos) << message();
    EXPECT_EQ(run.session.DeviceName, "PIC16F84A");
}

TEST_F(Main_trouble, goes_on_where_the_work_folder_vanishes_during_the_session) {
    start();
    fs::remove_all(work());
    expect_usable();
    EXPECT_EQ(message().find(kLogNotWritten), std::string::npos) << message();
    EXPECT_NE(work_file("LOG_NEW0.txt"), "");
    fs::remove_all(work());
    start_up.shutdown(false);
    EXPECT_EQ(store["MainLeft"], "100");
    EXPECT_FALSE(port.is_open());
}

TEST_F(Main_trouble, tells_of_each_setting_of_a_wrong_type_once_and_takes_its_default) {
    constexpr std::array kNumbersAndFlags{"MainLeft",  "MainTop",     "MainHeight",
                                          "BoardLeft", "BoardTop",    "ComNo",
                                          "SkipMode",  "mnuComMode1", "mnuBoardInfomation"};
    for (const auto* key : kNumbersAndFlags) set(key, "abc");
    set("deviceNew", "abc");
    EXPECT_EQ(start(), End::Ready);
    for (const auto* key : kNumbersAndFlags)
        EXPECT_EQ(std::ranges::count(
                      log.lines,
                      fmt::format("[+] 設定 {} の値が正しくないため、既定値を使用します。", key)),
                  1)
            << key;
    EXPECT_FALSE(said("[+] 設定 deviceNew の値が正しくないため、既定値を使用します。"));
    EXPECT_EQ(run.form.Left, 100);
    EXPECT_EQ(run.form.Height, 7860);
    EXPECT_EQ(run.board.Left, 0);
    EXPECT_FALSE(run.form.mnuBlankSkip.Checked.get());
    EXPECT_FALSE(run.form.mnuComMode1.Checked.get());
    EXPECT_TRUE(run.form.mnuBoardInfomation.Checked.get());
    EXPECT_EQ(dialogs.options_shown, 1);  // no port is known
    EXPECT_EQ(run.session.DeviceName, "");
    expect_usable();
}

TEST_F(Main_trouble, asks_for_a_port_where_the_saved_one_cannot_be_one) {
    for (const auto* value : {"-3", "32768", "99999999999"}) {
        set("ComNo", value);
        dialogs.options_shown = 0;
        EXPECT_EQ(start(), End::Ready) << value;
        EXPECT_EQ(dialogs.options_shown, 1) << value;
        EXPECT_TRUE(said("[+] 設定 ComNo の値が正しくないため、既定値を使用します。")) << value;
        EXPECT_EQ(run.form.Label_FirmwareVersion.Caption.get(), "通信ポート未選択") << value;
    }
}

TEST_F(Main_trouble, keeps_the_forms_reachable_with_a_place_beyond_all_desktops) {
    set("MainLeft", "2147483647");
    set("MainTop", "-2147483648");
    start();
    EXPECT_EQ(run.form.Left, 100);
    EXPECT_EQ(run.form.Top, 100);
    EXPECT_TRUE(said("[+] 設定 MainLeft の値が正しくないため、既定値を使用します。"));
    EXPECT_TRUE(said("[+] 設定 MainTop の値が正しくないため、既定値を使用します。"));
}

TEST_F(Main_trouble, saves_nothing_and_says_nothing_more_where_the_store_cannot_be_written) {
    store.writable = false;
    EXPECT_EQ(start(), End::Ready);
    expect_usable();
    start_up.shutdown(false);
    EXPECT_EQ(store["deviceNew"], "<none>");
    EXPECT_EQ(store["MainLeft"], "<none>");
}

}  // namespace
}  // namespace quillon
