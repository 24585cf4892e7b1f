// SPDX-License-Identifier: MIT
// The short ways to a file: the one at hand once more, the one of the command line, a history
// entry.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "app/text.h"
#include "files/files_bench.h"
#include "files/hex_files.h"

namespace quillon {

namespace fs = std::filesystem;
using test::data;
using test::FilesBench;

namespace {

using Shown = std::vector<std::string>;

const std::string kWord = data(0, {0x34, 0x12}) + test::kEndRecord;

}  // namespace

TEST(open_directly, loads_the_file_at_hand_again_and_leaves_folder_and_history) {
    FilesBench bench;
    bench.open(kWord);
    bench.folder.write("work/a.hex", data(0, {0x78, 0x16}));
    const auto settings = bench.store.values;
    bench.files.nmuHistryClear_Click();
    bench.store.values = settings;
    EXPECT_EQ(bench.files.open_directly(), Token::OK);
    EXPECT_EQ(bench.session.PgmMem[0], 0x16);
    EXPECT_TRUE(bench.dialogs.file_dialogs.empty());
    EXPECT_EQ(bench.store.values, settings);
    EXPECT_EQ(bench.form.nmuFile[0].Caption.get(), "");
}

TEST(open_directly, refuses_where_no_file_is_at_hand) {
    FilesBench bench;
    EXPECT_EQ(bench.files.open_directly(), Token::NG);
    EXPECT_EQ(bench.shown.back(), "ファイルをオープンできませんでした。");
}

TEST(mnuFileDirectOpen, takes_the_command_lines_file_without_a_dialog) {
    FilesBench bench;
    bench.folder.write("Board.hex", ";PIC16F84A\n" + kWord);
    bench.session.CommandLine = upper(bench.path("Board.hex"));
    bench.store.write(Settings::kSection, "OPEN_DIR0", "/kept");
    EXPECT_EQ(bench.files.mnuFileDirectOpen("/anywhere"), Token::OK);
    EXPECT_TRUE(bench.dialogs.file_dialogs.empty());
    EXPECT_EQ(bench.session.HexFilePath, bench.path("Board.hex"));
    EXPECT_EQ(bench.form.Caption.get(), "Board.hex  Quillon V4 V4.0.1  ");
    // No scan for a device, no history, no folder.
    EXPECT_EQ(bench.session.DeviceName, "PIC16F877A");
    EXPECT_EQ(bench.store["OPEN_DIR0"], "/kept");
    EXPECT_EQ(bench.store["OPEN_DIR1"], "<none>");
    EXPECT_EQ(bench.shown.back(), "1行目はＨＥＸデータでないので読み飛ばしました。");
}

TEST(mnuFileDirectOpen, asks_in_the_given_folder_where_the_command_line_names_none) {
    FilesBench bench;
    bench.dialogs.chosen_file = bench.folder.write("b.hex", kWord);
    EXPECT_EQ(bench.files.mnuFileDirectOpen("/given"), Token::OK);
    ASSERT_EQ(bench.dialogs.file_dialogs.size(), 1U);
    EXPECT_EQ(bench.dialogs.file_dialogs[0].folder, "/given");
    EXPECT_EQ(bench.dialogs.file_dialogs[0].filter, "Hex File|*.HEX|All Files|*.*|");
    EXPECT_EQ(bench.dialogs.file_dialogs[0].default_extension, "hex");
    bench.dialogs.chosen_file.reset();
    EXPECT_EQ(bench.files.mnuFileDirectOpen("/given"), Token::NG);
    EXPECT_EQ(bench.shown.back(), "ファイルをオープンできませんでした。");
}

TEST(mnuFileDirectOpen, needs_a_device) {
    FilesBench bench{""};
    EXPECT_EQ(bench.files.mnuFileDirectOpen("/given"), Token::NG);
    EXPECT_TRUE(bench.dialogs.file_dialogs.empty());
}

TEST(mnuFileDirectOpen, clears_the_image_and_the_fields_but_selects_nothing) {
    FilesBench bench{"PIC16F887"};
    bench.open(data(0x10, {0x34, 0x12}) + test::kEndRecord);
    bench.dialogs.power_questions.clear();
    bench.form.Lbl_ID_Dev.Caption.set("x");
    bench.form.Lbl_ID_Rev.Caption.set("x");
    bench.form.TxtInit.Text.set("x");
    bench.dialogs.chosen_file = bench.folder.write("b.hex", kWord);
    EXPECT_EQ(bench.files.mnuFileDirectOpen("/given"), Token::OK);
    EXPECT_EQ(test::bytes_of(bench.session.PgmMem, 0x10, 0x11), "3FFF");
    EXPECT_EQ(bench.form.Lbl_ID_Dev.Caption.get() + bench.form.Lbl_ID_Rev.Caption.get(), "");
    EXPECT_EQ(bench.form.TxtInit.Text.get(), "");
    EXPECT_TRUE(bench.dialogs.power_questions.empty());  // one comes with each selection
    EXPECT_EQ(bench.session.LoadedHexPath, bench.path("b.hex"));
}

TEST(mnuFileDirectOpen, keeps_image_and_file_where_the_new_one_cannot_be_read) {
    FilesBench bench;
    bench.open(kWord);
    bench.dialogs.chosen_file = bench.folder / "none.hex";
    EXPECT_EQ(bench.files.mnuFileDirectOpen("/given"), Token::NG);
    EXPECT_EQ(bench.session.LoadResult, "NG");
    EXPECT_EQ(bench.session.HexFilePath, bench.path("work/a.hex"));
    EXPECT_EQ(test::bytes_of(bench.session.PgmMem, 0, 1), "1234");
    bench.session.CommandLine = bench.path("gone.hex");
    EXPECT_EQ(bench.files.mnuFileDirectOpen("/given"), Token::NG);
    EXPECT_EQ(bench.shown.back(), "ファイルをオープンできませんでした。");
}

TEST(nmuFile_Click, selects_the_entrys_device_and_asks_in_its_folder) {
    FilesBench bench;
    bench.open(";PIC18F2550\n" + data(0, {1, 2}), "Mixed/a.hex");
    bench.form.Combo_device.select("PIC16F877A");
    bench.dialogs.chosen_file = bench.folder.write("b.hex", data(0x4400, {3, 4}));
    bench.files.nmuFile_Click(1);
    EXPECT_EQ(bench.session.DeviceName, "PIC18F2550");
    ASSERT_EQ(bench.dialogs.file_dialogs.size(), 1U);
    // The entry is in lower case; the folder is found all the same.
    EXPECT_EQ(bench.dialogs.file_dialogs[0].folder, bench.folder / "Mixed");
    EXPECT_EQ(bench.session.PgmMem[0x4400], 4);
}

TEST(nmuFile_Click, refuses_an_entry_whose_device_the_list_no_longer_holds) {
    FilesBench bench;
    bench.shown.clear();
    bench.form.nmuFile[0].Caption.set(bench.folder.path().string() + "    PIC99F99");
    bench.store.write(Settings::kSection, "OPEN_Device1", "77");
    bench.dialogs.chosen_file = bench.folder.write("a.hex", data(0, {1, 2}) + test::kEndRecord);
    bench.files.nmuFile_Click(1);
    EXPECT_TRUE(bench.dialogs.file_dialogs.empty());
    EXPECT_EQ(bench.session.PgmMem[0], 0x3F);
    EXPECT_EQ(bench.session.DeviceName, "PIC16F877A");
    EXPECT_EQ(bench.shown, Shown{"red 履歴のデバイスがデバイスリストにありません。"});
}

TEST(nmuFile_Click, asks_for_a_file_though_the_program_was_started_with_one) {
    FilesBench bench;
    bench.open(kWord, "Mixed/a.hex");
    bench.session.CommandLine = bench.folder.write("started.hex", data(0, {1, 1})).string();
    bench.dialogs.chosen_file = bench.folder.write("b.hex", data(0, {0x78, 0x16}));
    bench.files.nmuFile_Click(1);
    EXPECT_EQ(bench.dialogs.file_dialogs.size(), 1U);
    EXPECT_EQ(bench.session.HexFilePath, bench.path("b.hex"));
    EXPECT_EQ(test::bytes_of(bench.session.PgmMem, 0, 1), "1678");
}

TEST(nmuFile_Click, finds_its_device_by_name_where_the_list_has_changed) {
    for (const auto* place : {"2", "99", "-1"}) {
        FilesBench bench;
        bench.open(";PIC16F84A\n" + kWord);
        bench.store.write(Settings::kSection, "OPEN_Device1", place);
        bench.form.Combo_device.select("PIC16F877A");
        bench.dialogs.chosen_file = bench.folder / "work/a.hex";
        bench.files.nmuFile_Click(1);
        EXPECT_EQ(bench.session.DeviceName, "PIC16F84A") << place;
        EXPECT_EQ(bench.session.LoadResult, "OK") << place;
    }
}

TEST(nmuFile_Click, does_no_scan_and_enters_nothing) {
    FilesBench bench;
    bench.open(kWord, "Work/a.hex");
    const auto settings = bench.store.values;
    fs::create_directory(bench.folder / "Other");
    bench.dialogs.chosen_file = bench.folder.write("Other/b.hex", ";PIC16F84A\n" + kWord);
    bench.files.nmuFile_Click(1);
    EXPECT_EQ(bench.session.DeviceName, "PIC16F877A");
    EXPECT_EQ(bench.session.HexFilePath, bench.path("Other/b.hex"));
    EXPECT_EQ(bench.store.values, settings);
    EXPECT_EQ(bench.form.nmuFile[1].Caption.get(), "");
}

TEST(nmuHistryClear_Click, empties_the_menu_and_the_settings) {
    FilesBench bench;
    bench.open(kWord);
    bench.files.nmuHistryClear_Click();
    EXPECT_FALSE(bench.form.nmuFile[0].Visible.get());
    EXPECT_EQ(bench.store["OPEN_DIR1"], "");
    bench.files.restore_history();
    EXPECT_FALSE(bench.form.nmuFile[0].Visible.get());
}

}  // namespace quillon
