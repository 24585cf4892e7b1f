// SPDX-License-Identifier: MIT
// The Save command: its question, its refusals, and that nothing is half done.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "files/files_bench.h"
#include "files/hex_files.h"

namespace quillon {

namespace fs = std::filesystem;
using test::data;
using test::FilesBench;

namespace {

struct SaveBench : FilesBench {
    explicit SaveBench(std::string_view device = "PIC16F877A") : FilesBench{device} {
        shown.clear();
    }
    Outcome save(std::string_view name) { return files.mnuFileSave_Click(folder / name); }
    Outcome save_by_dialog(std::string_view name) {
        dialogs.chosen_file = folder / name;
        return files.mnuFileSave_Click();
    }
};

using Shown = std::vector<std::string>;

}  // namespace

TEST(mnuFileSave_Click, writes_the_image_and_makes_the_file_the_one_at_hand) {
    SaveBench bench;
    bench.session.PgmMem[0] = 0x12;
    bench.session.PgmMem[1] = 0x34;
    EXPECT_EQ(bench.save_by_dialog("out.hex"), Outcome::Success);
    EXPECT_EQ(bench.folder.read("out.hex").substr(0, 17), ":100000003412FF3F");
    EXPECT_EQ(bench.session.HexFilePath, bench.path("out.hex"));
    EXPECT_EQ(bench.form.Caption.get(), "out.hex  Quillon V4 V4.0.1  ");
    EXPECT_EQ(bench.store["SAVE_DIR"], bench.folder.path().string());
    EXPECT_EQ(bench.shown, Shown{"out.hexファイル保存完了。 "});
    EXPECT_TRUE(bench.dialogs.boxes.empty());
}

TEST(mnuFileSave_Click, keeps_name_and_colour_of_a_file_that_begins_with_red) {
    SaveBench bench;
    for (const auto* name : {"red_lamp.hex", " RED.hex"}) {
        bench.shown.clear();
        bench.save(name);
        EXPECT_EQ(bench.shown, Shown{name + std::string{"ファイル保存完了。 "}});
    }
}

TEST(mnuFileSave_Click, asks_in_the_folder_of_the_last_save) {
    SaveBench bench;
    bench.store.write(Settings::kSection, "SAVE_DIR", "/somewhere");
    bench.save_by_dialog("out.hex");
    ASSERT_EQ(bench.dialogs.file_dialogs.size(), 1U);
    const auto& dialog = bench.dialogs.file_dialogs[0];
    EXPECT_EQ(dialog.kind, FileDialog::Kind::Save);
    EXPECT_EQ(dialog.folder, "/somewhere");
    EXPECT_EQ(dialog.filter, "Hexファイル|*.hex|全てのファイル|*.*|");
    EXPECT_EQ(dialog.default_extension, "Hex");
}

TEST(mnuFileSave_Click, needs_a_device) {
    SaveBench bench{""};
    EXPECT_EQ(bench.save("out.hex"), Outcome::NoDevice);
    EXPECT_FALSE(fs::exists(bench.folder / "out.hex"));
    EXPECT_EQ(bench.shown, Shown{"MCUを選んでください。"});
}

TEST(mnuFileSave_Click, clears_what_stood_for_entry) {
    SaveBench bench;
    bench.form.TxtInit.Text.set("old");
    bench.form.CmbInit.Items.set({"old"});
    bench.save("out.hex");
    EXPECT_TRUE(bench.form.CmbInit.Items.get().empty());
    EXPECT_EQ(bench.form.TxtInit.Text.get(), "");
}

TEST(mnuFileSave_Click, asks_before_it_replaces_a_file) {
    SaveBench bench;
    bench.folder.write("out.hex", "old");
    bench.dialogs.answers = {BoxAnswer::Ok};
    EXPECT_EQ(bench.save("out.hex"), Outcome::Success);
    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    const auto& box = bench.dialogs.boxes[0];
    EXPECT_EQ(box.title, "上書き保存");
    EXPECT_EQ(box.text, "ファイルが存在します。上書きしますか？");
    EXPECT_EQ(box.icon, BoxIcon::Question);
    EXPECT_EQ(box.buttons, BoxButtons::OkCancel);
    EXPECT_EQ(box.name, "replace");
    EXPECT_TRUE(bench.folder.read("out.hex").starts_with(":10000000FF3F"));
}

TEST(mnuFileSave_Click, leaves_all_as_it_was_where_the_user_says_no) {
    SaveBench bench;
    bench.open(data(0, {1, 2}) + test::kEndRecord, "in.hex");
    bench.folder.write("out.hex", "old");
    bench.shown.clear();
    bench.dialogs.answers = {BoxAnswer::Cancel};
    const auto caption = bench.form.Caption.get();
    EXPECT_EQ(bench.save("out.hex"), Outcome::Cancelled);
    EXPECT_EQ(bench.shown, Shown{"ファイル保存をキャンセルしました。 "});
    EXPECT_EQ(bench.folder.read("out.hex"), "old");
    EXPECT_EQ(bench.session.HexFilePath, bench.path("in.hex"));
    EXPECT_EQ(bench.form.Caption.get(), caption);
    EXPECT_FALSE(bench.store.read(Settings::kSection, "SAVE_DIR"));
}

TEST(mnuFileSave_Click, ends_with_a_cancelled_dialog) {
    SaveBench bench;
    EXPECT_EQ(bench.files.mnuFileSave_Click(), Outcome::Cancelled);
    EXPECT_EQ(bench.shown, Shown{"ファイル保存をキャンセルしました。 "});
    EXPECT_EQ(bench.session.HexFilePath, "");
}

TEST(mnuFileSave_Click, tells_why_a_file_cannot_be_written_and_leaves_all_as_it_was) {
    SaveBench bench;
    bench.open(data(0, {1, 2}) + test::kEndRecord, "in.hex");
    bench.shown.clear();
    bench.host.write_problem = "No space left on device";
    EXPECT_EQ(bench.save("out.hex"), Outcome::Failed);
    EXPECT_EQ(bench.shown, Shown{"red ファイルを保存できませんでした。|No space left on device"});
    EXPECT_EQ(bench.session.HexFilePath, bench.path("in.hex"));
    EXPECT_TRUE(bench.form.Caption.get().starts_with("in.hex"));
    EXPECT_FALSE(bench.store.read(Settings::kSection, "SAVE_DIR"));
}

TEST(mnuFileSave_Click, refuses_names_that_are_no_file) {
    SaveBench bench;
    EXPECT_EQ(bench.files.mnuFileSave_Click(""), Outcome::Failed);
    EXPECT_TRUE(bench.shown.back().starts_with("red ファイルを保存できませんでした。|"));
    bench.dialogs.answers = {BoxAnswer::Ok};
    EXPECT_EQ(bench.files.mnuFileSave_Click(bench.folder.path()), Outcome::Failed);
    EXPECT_EQ(bench.files.mnuFileSave_Click(bench.folder / "none/out.hex"), Outcome::Failed);
    EXPECT_EQ(bench.session.HexFilePath, "");
}

TEST(mnuFileSave_Click, asks_for_the_device_before_the_name) {
    SaveBench bench{""};
    EXPECT_EQ(bench.save_by_dialog("out.hex"), Outcome::NoDevice);
    EXPECT_TRUE(bench.dialogs.file_dialogs.empty());
}

TEST(mnuFileSave_Click, does_not_ask_to_replace_a_file_that_is_not_there) {
    SaveBench bench;
    EXPECT_EQ(bench.save("new.hex"), Outcome::Success);
    EXPECT_TRUE(bench.dialogs.boxes.empty());
    EXPECT_EQ(bench.save("new.hex"), Outcome::Cancelled);
    EXPECT_EQ(bench.dialogs.boxes.size(), 1U);
}

TEST(mnuFileSave_Click, replaces_a_longer_file_whole) {
    SaveBench bench;
    bench.save("out.hex");
    const auto whole = bench.folder.read("out.hex");
    bench.folder.write("out.hex", whole + whole);
    bench.dialogs.answers = {BoxAnswer::Ok};
    ASSERT_EQ(bench.save("out.hex"), Outcome::Success);
    EXPECT_EQ(bench.folder.read("out.hex"), whole);
}

TEST(mnuFileSave_Click, keeps_the_history_and_the_last_opened_file) {
    SaveBench bench;
    bench.open(data(0, {1, 2}) + test::kEndRecord, "in.hex");
    const auto entry = bench.form.nmuFile[0].Caption.get();
    bench.save("out.hex");
    EXPECT_EQ(bench.form.nmuFile[0].Caption.get(), entry);
    EXPECT_EQ(bench.session.LoadedHexPath, bench.path("in.hex"));
}

TEST(mnuFileSave_Click, writes_what_is_read_back_equal) {
    SaveBench bench{"PIC18F2550"};
    for (std::size_t i = 0; i < 0x8000; ++i)
        bench.session.PgmMem[i] = static_cast<std::uint8_t>(i * 7 + i / 256);
    for (std::size_t i = 0; i < 256; ++i) bench.session.EepMem[i] = static_cast<std::uint8_t>(i);
    bench.session.ConfigWord[1] = 0x0500;
    bench.session.IdBytes18 = {0xF1, 0xF2, 0xF3, 0xF4, 0xF5, 0xF6, 0xF7, 0xF8};
    const auto program = bench.session.PgmMem;
    const auto eeprom = bench.session.EepMem;
    ASSERT_EQ(bench.save("out.hex"), Outcome::Success);
    ASSERT_EQ(bench.files.mnuFileOpen_Click(bench.folder / "out.hex"), Token::OK);
    EXPECT_EQ(bench.session.PgmMem, program);
    EXPECT_EQ(bench.session.EepMem, eeprom);
    EXPECT_EQ(bench.session.ConfigWord[1], 0x0500U);
    EXPECT_EQ(bench.form.Text_ID.Text.get(), "12345678");
    EXPECT_EQ(bench.shown.back().find("redファイル検査"), std::string::npos);
}

}  // namespace quillon
