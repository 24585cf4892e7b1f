// SPDX-License-Identifier: MIT
// The Open command: its steps, its refusals, the device that a file names, the history.
#include "files/hex_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "app/text.h"
#include "files/files_bench.h"
#include "image/fill.h"

namespace quillon {

namespace fs = std::filesystem;
using test::data;
using test::FilesBench;
using test::upper_address;

namespace {

using Texts = std::vector<std::string>;

const std::string kWord = data(0, {0x34, 0x12}) + test::kEndRecord;

}  // namespace

TEST(mnuFileOpen_Click, loads_the_chosen_file_and_shows_it) {
    FilesBench bench;
    EXPECT_EQ(bench.open(data(0x4200, {0x5A, 0}) + kWord), Token::OK);
    EXPECT_EQ(bench.first_program_line(), "000000: 1234 3FFF 3FFF 3FFF 3FFF 3FFF 3FFF 3FFF");
    EXPECT_EQ(bench.form.rText_EepromMem.Text.get().substr(0, 11), "0000: 5A FF");
    EXPECT_EQ(bench.form.LblCheckSUM.Caption.get(), ProgramCheckSum(bench.session));
    EXPECT_EQ(bench.session.LoadResult, "OK");
    EXPECT_EQ(bench.shown.back(), "ファイルロード完了");
    EXPECT_TRUE(bench.dialogs.file_dialogs.empty());
}

TEST(mnuFileOpen_Click, clears_what_an_older_file_left) {
    FilesBench bench;
    bench.open(data(0x10, {0x34, 0x12}) + data(0x4200, {0x5A, 0}) + data(0x400E, {0x01, 0x00}));
    bench.open(kWord);
    EXPECT_EQ(bench.session.PgmMem[0x11], 0xFF);
    EXPECT_EQ(bench.session.EepMem[1], 0xFF);
    EXPECT_EQ(bench.session.ConfigWord[1], 0x2FCFU);
}

TEST(mnuFileOpen_Click, notes_the_sides_that_the_last_file_had_data_for) {
    FilesBench bench;
    bench.open(data(0x4200, {0x5A, 0}));
    EXPECT_TRUE(bench.files.file_sides().eeprom);
    EXPECT_FALSE(bench.files.file_sides().program);
    bench.open(kWord);
    EXPECT_FALSE(bench.files.file_sides().eeprom);
    EXPECT_TRUE(bench.files.file_sides().program);
}

TEST(mnuFileOpen_Click, remembers_the_file_and_shows_its_name) {
    FilesBench bench;
    bench.open(kWord, "Work/点滅 A.hex");
    EXPECT_EQ(bench.session.HexFilePath, bench.path("Work/点滅 A.hex"));
    EXPECT_EQ(bench.session.LoadedHexPath, bench.path("Work/点滅 A.hex"));
    EXPECT_EQ(bench.form.Caption.get(), "点滅 A.hex  Quillon V4 V4.0.1  ");
    EXPECT_EQ(bench.store["OPEN_DIR0"], bench.path("Work"));
}

TEST(mnuFileOpen_Click, asks_in_the_folder_of_the_last_file) {
    FilesBench bench;
    bench.store.write(Settings::kSection, "OPEN_DIR0", "/somewhere");
    bench.dialogs.chosen_file = bench.folder.write("b.hex", kWord);
    EXPECT_EQ(bench.files.mnuFileOpen_Click(), Token::OK);
    ASSERT_EQ(bench.dialogs.file_dialogs.size(), 1U);
    const auto& dialog = bench.dialogs.file_dialogs[0];
    EXPECT_EQ(dialog.kind, FileDialog::Kind::Open);
    EXPECT_EQ(dialog.folder, "/somewhere");
    EXPECT_EQ(dialog.filter, "Hexファイル|*.HEX|全てのファイル|*.*|");
    EXPECT_EQ(dialog.default_extension, "HEX");
    EXPECT_EQ(dialog.initial_name, "*.HEX");
    EXPECT_EQ(bench.session.PgmMem[0], 0x12);
}

TEST(mnuFileOpen_Click, finds_a_name_that_was_upper_cased) {
    FilesBench bench;
    bench.folder.write("Small.hex", kWord);
    EXPECT_EQ(bench.files.mnuFileOpen_Click(bench.folder / "SMALL.HEX"), Token::OK);
    EXPECT_EQ(bench.session.HexFilePath, bench.path("Small.hex"));
}

TEST(mnuFileOpen_Click, takes_a_relative_name_from_the_current_folder) {
    FilesBench bench;
    bench.folder.write("near.hex", kWord);
    const fs::path before = fs::current_path();
    fs::current_path(bench.folder.path());
    EXPECT_EQ(bench.files.mnuFileOpen_Click("./NEAR.hex"), Token::OK);
    fs::current_path(before);
    EXPECT_EQ(bench.session.HexFilePath, bench.path("near.hex"));
    EXPECT_EQ(bench.store["OPEN_DIR0"], bench.folder.path().string());
}

TEST(mnuFileOpen_Click, follows_a_link_on_the_way_before_it_goes_up) {
    FilesBench bench;
    fs::create_directories(bench.folder / "far/inner");
    fs::create_directory_symlink(bench.folder / "far/inner", bench.folder / "link");
    bench.folder.write("a.hex", data(0, {0xFF, 0x00}));
    bench.folder.write("far/a.hex", kWord);
    EXPECT_EQ(bench.files.mnuFileOpen_Click(bench.folder / "link/../a.hex"), Token::OK);
    EXPECT_EQ(bench.session.PgmMem[0], 0x12);
}

TEST(mnuFileOpen_Click, empties_the_entry_fields_and_the_identity) {
    FilesBench bench;
    bench.form.CmbInit.Items.set({"x"});
    bench.form.TxtInit.Text.set("x");
    bench.form.Lbl_ID_Dev.Caption.set("x");
    bench.form.Lbl_ID_Rev.Caption.set("x");
    bench.open(kWord);
    EXPECT_TRUE(bench.form.CmbInit.Items.get().empty());
    EXPECT_EQ(bench.form.TxtInit.Text.get(), "");
    EXPECT_EQ(bench.form.Lbl_ID_Dev.Caption.get(), "");
    EXPECT_EQ(bench.form.Lbl_ID_Rev.Caption.get(), "");
}

TEST(mnuFileOpen_Click, needs_a_device) {
    FilesBench bench{""};
    bench.session.LoadResult = "OK";
    EXPECT_EQ(bench.open(kWord), Token::NG);
    EXPECT_EQ(bench.shown, Texts{"MCUを選んでください。"});
    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    EXPECT_EQ(bench.dialogs.boxes[0].title, "ｲﾝﾌｫﾒｰｼｮﾝ");
    EXPECT_EQ(bench.session.LoadResult, "NG");
    EXPECT_EQ(bench.session.HexFilePath, "");
}

TEST(mnuFileOpen_Click, tells_a_cancelled_dialog_as_a_file_that_is_not_there) {
    FilesBench bench;
    bench.open(kWord);
    bench.shown.clear();
    EXPECT_EQ(bench.files.mnuFileOpen_Click(), Token::NG);
    EXPECT_EQ(std::ranges::count(bench.shown, "ファイルをオープンできませんでした。"), 1);
    EXPECT_EQ(bench.session.HexFilePath, bench.path("work/a.hex"));
}

TEST(mnuFileOpen_Click, clears_the_image_before_it_asks_for_a_file) {
    FilesBench bench;
    bench.open(kWord);
    EXPECT_EQ(bench.files.mnuFileOpen_Click(), Token::NG);
    EXPECT_EQ(test::bytes_of(bench.session.PgmMem, 0, 1), "3FFF");
    EXPECT_EQ(bench.form.Caption.get(), "a.hex  Quillon V4 V4.0.1  ");
}

TEST(mnuFileOpen_Click, refuses_what_is_no_HEX_text_and_keeps_the_current_file_and_its_settings) {
    struct Case {
        std::string name;
        std::string told;
    };
    FilesBench bench;
    bench.open(kWord, "work/good.hex");
    const auto settings = bench.store.values;
    fs::create_directory(bench.folder / "folder.hex");
    bench.folder.write("binary.hex", std::string_view{"\x7F"
                                                      "ELF\0\0",
                                                      6});
    bench.folder.write("huge.hex", "");
    fs::resize_file(bench.folder / "huge.hex", std::uintmax_t{1} << 36U);
    for (
        const auto& [name, told] : std::vector<Case>{
            {"missing.hex", "ファイルをオープンできませんでした。"},
            {"folder.hex", "ファイルをオープンできませんでした。"},
            {"binary.hex",
             "ファイルをオープンできませんでした。|テキスト形式のＨＥＸファイルではありません。"},
            {"huge.hex",
             "ファイルをオープンできませんでした。|ＨＥＸファイルとしてはサイズが大きすぎます。"}}) {
        bench.session.LoadResult = "OK";
        bench.shown.clear();
        EXPECT_EQ(bench.files.mnuFileOpen_Click(bench.folder / name), Token::NG) << name;
        EXPECT_EQ(std::ranges::count(bench.shown, told), 1) << told;
        EXPECT_EQ(bench.session.LoadResult, "NG") << name;
        EXPECT_EQ(bench.session.HexFilePath, bench.path("work/good.hex")) << name;
        EXPECT_EQ(bench.session.LoadedHexPath, bench.path("work/good.hex")) << name;
        EXPECT_EQ(bench.form.Caption.get(), "good.hex  Quillon V4 V4.0.1  ") << name;
        EXPECT_EQ(bench.store.values, settings) << name;
        EXPECT_EQ(bench.session.DeviceName, "PIC16F877A") << name;
    }
    EXPECT_EQ(bench.open(kWord), Token::OK);
}

TEST(mnuFileOpen_Click, fails_for_a_truncated_file_and_one_with_bad_digits) {
    FilesBench bench;
    for (const auto& text : {kWord + ":10000200FF", kWord + ":04000200FG00FFFF00\n"}) {
        EXPECT_EQ(bench.open(text), Token::NG);
        ASSERT_EQ(bench.shown.size(), 4U);
        EXPECT_EQ(bench.shown[2],
                  "ファイルをロードできませんでした。"
                  "|ＰＩＣ１８用のファイルをロードしようとした可能性があります。");
        EXPECT_EQ(bench.session.LoadResult, "NG");
        // The data placed before the fault remain and are shown.
        EXPECT_EQ(bench.first_program_line().substr(0, 17), "000000: 1234 3FFF");
        EXPECT_FALSE(bench.session.ConfigFromFile);
    }
}

TEST(mnuFileOpen_Click, fails_for_a_PIC18_file_on_a_14_bit_device) {
    FilesBench bench;
    EXPECT_EQ(bench.open(upper_address(0) + data(0, {1, 2}) + data(0x4400, {1, 2})), Token::NG);
    EXPECT_EQ(bench.form.LabelCmt.Caption.get(),
              "ファイルをロードできませんでした。 "
              "ＰＩＣ１８用のファイルをロードしようとした可能性があります。\r\n"
              "ファイル検査：デバイスの範囲外のデータが1バイト（最初は3行目）、"
              "終了レコードがありません（途中で切れたファイルの可能性があります） ");
}

TEST(mnuFileOpen_Click, takes_an_empty_file_as_a_blank_image) {
    FilesBench bench;
    EXPECT_EQ(bench.open(""), Token::OK);
    ASSERT_GE(bench.shown.size(), 2U);
    EXPECT_EQ(bench.shown[bench.shown.size() - 2], "ファイルロード完了");
    // It may be all that is left of a file.
    EXPECT_EQ(
        bench.shown.back(),
        "red ファイル検査：終了レコードがありません（途中で切れたファイルの可能性があります）");
    EXPECT_EQ(bench.form.LblCheckSUM.Caption.get(), "E000");
}

TEST(mnuFileOpen_Click, selects_the_device_that_a_comment_names) {
    FilesBench bench;
    EXPECT_EQ(bench.open(kWord + ";PIC16F84A\r\n"), Token::OK);
    EXPECT_EQ(bench.form.Combo_device.Text.get(), "PIC16F84A");
    EXPECT_EQ(bench.form.Combo_device.ListIndex.get(), 1);
    EXPECT_EQ(bench.session.DeviceName, "PIC16F84A");
    EXPECT_EQ(bench.session.PgmWords, 1024);
    EXPECT_EQ(bench.session.PgmMem[0], 0x12);
    EXPECT_EQ(bench.shown.back(), "3行目はＨＥＸデータでないので読み飛ばしました。");
    EXPECT_TRUE(bench.dialogs.boxes.empty());
    EXPECT_FALSE(bench.session.DeviceEventLock);
}

TEST(mnuFileOpen_Click, selects_a_PIC18_before_it_chooses_the_loader) {
    FilesBench bench;
    EXPECT_EQ(bench.open(";PIC18F2550\n" + data(0x4400, {1, 2})), Token::OK);
    EXPECT_EQ(bench.session.PgmMem[0x4400], 0x02);
    EXPECT_EQ(bench.session.IdText, "FFFFFFFF");
}

TEST(mnuFileOpen_Click, takes_a_name_with_blanks_behind_it) {
    FilesBench bench;
    bench.open(";PIC16F84A  \r\n" + kWord);
    EXPECT_EQ(bench.session.DeviceName, "PIC16F84A");
}

TEST(mnuFileOpen_Click, takes_the_last_of_several_names) {
    FilesBench bench;
    bench.open("x;PIC16F877A\n" + kWord + " code ;PIC18F2550, ;PIC16F84A\n; end\n");
    EXPECT_EQ(bench.session.DeviceName, "PIC16F84A");
}

TEST(mnuFileOpen_Click, selects_the_named_device_once) {
    FilesBench bench;
    bench.open(";PIC16F887\n" + kWord);
    EXPECT_EQ(bench.session.DeviceName, "PIC16F887");
    EXPECT_EQ(bench.dialogs.power_questions.size(), 1U);  // one for each selection of this part
    EXPECT_EQ(bench.store["deviceNew"], "4");
}

TEST(mnuFileOpen_Click, loads_into_the_named_device_and_not_into_the_former_one) {
    FilesBench bench;
    bench.open(";PIC16F84A\n" + kWord);
    EXPECT_EQ(std::ranges::count(bench.form.RichTxtPgmMem.Text.get(), '\n'), 128);
    bench.open(";PIC18F2550\n" + data(0, {1, 2}));
    EXPECT_EQ(bench.first_program_line().substr(0, 17), "000000: 0201 FFFF");
}

TEST(mnuFileOpen_Click, keeps_its_device_for_a_name_that_the_list_does_not_hold) {
    for (const auto* name : {"PIC99F1", "PIC16F84", "PIC16F84A\t", "PIC16F84A with words"}) {
        FilesBench bench;
        EXPECT_EQ(bench.open(std::string{";"} + name + "\n" + kWord), Token::OK);
        EXPECT_EQ(bench.session.DeviceName, "PIC16F877A");
        EXPECT_EQ(bench.form.Combo_device.ListIndex.get(), 0);
        ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
        EXPECT_EQ(bench.dialogs.boxes[0].icon, BoxIcon::Information);
        EXPECT_EQ(bench.dialogs.boxes[0].buttons, BoxButtons::Ok);
        EXPECT_EQ(bench.dialogs.boxes[0].text,
                  std::string{"HEXファイル内に、サポート外のデバイス名("} + name +
                      ")が設定されています。\r\n"
                      "現在のデバイス設定のままHEXファイルをロードします。");
        EXPECT_EQ(bench.session.PgmMem[0], 0x12);
        EXPECT_FALSE(bench.session.DeviceEventLock);
    }
}

TEST(mnuFileOpen_Click, trusts_a_compilers_output_and_ignores_the_comment) {
    FilesBench bench;
    bench.store.write(Settings::kSection, "CCSC_option", "1");
    bench.open(";PIC16F84A\n" + kWord);
    EXPECT_EQ(bench.session.DeviceName, "PIC16F877A");
    EXPECT_EQ(bench.shown.back(), "1行目はＨＥＸデータでないので読み飛ばしました。");
    for (const auto* other : {"0", "2", "-1", "x", ""}) {
        bench.form.Combo_device.select("PIC16F877A");
        bench.store.write(Settings::kSection, "CCSC_option", other);
        bench.open(";PIC16F84A\n" + kWord);
        EXPECT_EQ(bench.session.DeviceName, "PIC16F84A") << other;
    }
}

TEST(device_named_in, finds_the_mark_anywhere_in_an_item) {
    EXPECT_EQ(device_named_in(""), "");
    EXPECT_EQ(device_named_in(":00\n; PIC16F84A\nPIC16F84A\n;pic16f84a"), "");
    EXPECT_EQ(device_named_in(":00;PIC16F84A\n:00"), "PIC16F84A");
    EXPECT_EQ(device_named_in(";PIC16F84A\n;PIC16F877A,PIC18F2550\n"), "PIC16F877A");
    EXPECT_EQ(device_named_in("\";PIC16F84A\"\n"), "PIC16F84A");
    EXPECT_EQ(device_named_in(";PIC1;PIC2"), "PIC1;PIC2");
}

TEST(mnuFileOpen_Click, brings_the_configuration_to_the_grid_and_lets_the_catalogue_rule_again) {
    FilesBench bench;
    EXPECT_EQ(bench.open(kWord + data(0x400E, {0x31, 0x3F})), Token::OK);
    EXPECT_EQ(bench.session.ConfigWord[1], 0x2F01U);
    EXPECT_EQ(bench.form.HFGrid(1).cell(1, 1), "XT");
    EXPECT_EQ(bench.form.Text_Config1.Text.get(), "2F01");
    EXPECT_EQ(test::bytes_of(bench.session.CfgIdMem, 14, 15), "2F01");
    EXPECT_FALSE(bench.session.ConfigFromFile);
}

TEST(mnuFileOpen_Click, keeps_a_word_whose_code_has_no_option) {
    FilesBench bench{"PIC18F2550"};
    EXPECT_EQ(bench.open(upper_address(0x30) + data(0, {0x24, 0x0D})), Token::OK);
    EXPECT_EQ(bench.session.ConfigWord[1], 0x0D24U);
    EXPECT_EQ(bench.form.HFGrid(1).cell(0, 1), "0x0D24");
    EXPECT_EQ(bench.form.HFGrid(1).cell(1, 1), "HS") << "the cell stays as it was";
    EXPECT_EQ(bench.form.HFGrid(1).cell(2, 1), "5");
}

TEST(mnuFileOpen_Click, takes_both_words_of_a_device_with_two) {
    FilesBench bench{"PIC16F887"};
    EXPECT_EQ(bench.open(data(0x400E, {0xF4, 0x20, 0xFF, 0x3E})), Token::OK);
    EXPECT_EQ(bench.session.ConfigWord[1], 0x20F4U);
    EXPECT_EQ(bench.session.ConfigWord[2], 0x3EFFU);
    EXPECT_EQ(bench.form.Text_Config2.Text.get(), "3EFF");
    EXPECT_EQ(bench.dialogs.power_questions.size(), 1U);
}

TEST(mnuFileOpen_Click, keeps_the_power_order_that_the_user_has_chosen) {
    FilesBench bench{""};
    bench.dialogs.power_answer = 1;
    bench.form.Combo_device.select("PIC16F887");
    bench.dialogs.power_questions.clear();
    bench.dialogs.power_answer = 2;
    EXPECT_EQ(bench.open(data(0x400E, {0xF4, 0x20, 0xFF, 0x3E})), Token::OK);
    EXPECT_EQ(bench.session.PowerMode, "VPP");
    EXPECT_TRUE(bench.dialogs.power_questions.empty());
}

TEST(mnuFileOpen_Click, rebuilds_the_PIC18_ID_and_loads_all_seven_words) {
    FilesBench bench{"PIC18F2550"};
    const auto text = upper_address(0x20) + data(0, {0xF1, 2, 3, 4, 0x0A, 0x0B, 0x0C, 0xFF}) +
                      upper_address(0x30) +
                      data(0, {0x24, 0x0E, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x0F, 0x40});
    EXPECT_EQ(bench.open(text), Token::OK);
    EXPECT_EQ(bench.form.Text_ID.Text.get(), "1234ABCF");
    EXPECT_EQ(bench.session.IdText, "1234ABCF");
    EXPECT_EQ(bench.session.ConfigWord[1], 0x0E24U);
    EXPECT_EQ(bench.session.ConfigWord[7], 0x400FU);
}

TEST(mnuFileOpen_Click, gives_a_PIC18_file_without_configuration_the_catalogues_words) {
    FilesBench bench{"PIC18F2550"};
    bench.open(upper_address(0x30) + data(0, {0x24, 0x0E}));
    bench.open(data(0, {1, 2}));
    EXPECT_EQ(bench.session.ConfigWord[1], 0x0500U);
}

TEST(mnuFileOpen_Click, shows_PIC18_EEPROM_cell_by_cell) {
    FilesBench bench{"PIC18F2550"};
    bench.open(upper_address(0xF0) + data(0, {0x41, 0x42}));
    EXPECT_EQ(bench.form.rText_EepromMem.Text.get().substr(0, 14), "0000: 41 42 FF");
    EXPECT_EQ(bench.session.EepBytesCat, 2);
}

TEST(mnuFileOpen_Click, enters_folder_and_device_in_the_history) {
    FilesBench bench;
    bench.open(kWord, "Work/a.hex");
    bench.open(";PIC16F84A\n" + kWord, "Work/b.hex");
    bench.open(kWord, "Work/c.hex");  // the same folder and device once more
    const std::string work = lower(bench.path("Work"));
    EXPECT_EQ(bench.form.nmuFile[0].Caption.get(), work + "    PIC16F84A");
    EXPECT_EQ(bench.form.nmuFile[1].Caption.get(), work + "    PIC16F877A");
    EXPECT_EQ(bench.form.nmuFile[2].Caption.get(), "");
    EXPECT_EQ(bench.store["OPEN_DIR1"], work + "    PIC16F84A");
    EXPECT_EQ(bench.store["OPEN_Device1"], "1");
    EXPECT_EQ(bench.store["OPEN_Device2"], "0");
}

TEST(mnuFileOpen_Click, enters_a_file_that_failed_to_load_too) {
    FilesBench bench;
    EXPECT_EQ(bench.open(data(0x5000, {1, 2}), "Work/a.hex"), Token::NG);
    EXPECT_EQ(bench.form.nmuFile[0].Caption.get(), lower(bench.path("Work")) + "    PIC16F877A");
}

TEST(mnuFileOpen_Click, survives_settings_that_cannot_be_written) {
    FilesBench bench;
    bench.store.writable = false;
    EXPECT_EQ(bench.open(kWord), Token::OK);
    EXPECT_EQ(bench.session.PgmMem[0], 0x12);
}

TEST(mnuFileOpen_Click, says_that_a_cancelled_dialog_has_cost_the_image) {
    FilesBench bench;
    const Texts refused{"ファイルをオープンできませんでした。"};
    const Texts cleared{"ファイルをオープンできませんでした。",
                        "バッファメモリはクリアされました。"};
    const auto cancel = [&bench] {
        bench.shown.clear();
        EXPECT_EQ(bench.files.mnuFileOpen_Click(), Token::NG);
        return Texts{std::ranges::find(bench.shown, "ファイルをオープンできませんでした。"),
                     bench.shown.end()};
    };
    EXPECT_EQ(cancel(), refused) << "there was nothing to lose";
    bench.open(kWord);
    EXPECT_EQ(cancel(), cleared);
    EXPECT_EQ(bench.session.PgmMem[0], 0x3F);
    EXPECT_EQ(cancel(), refused);
    bench.session.PgmMem[0] = 0x12;  // as a read leaves it
    EXPECT_EQ(cancel(), cleared);
    bench.open(kWord);
    bench.shown.clear();
    bench.files.mnuFileOpen_Click(bench.path("none.hex"));
    EXPECT_EQ(bench.shown.back(), cleared.back());
}

TEST(nmuFile_Click, says_that_a_cancelled_dialog_has_cost_the_image) {
    FilesBench bench;
    bench.open(kWord);
    bench.shown.clear();
    bench.files.nmuFile_Click(1);
    EXPECT_EQ(bench.shown.back(), "バッファメモリはクリアされました。");
}

TEST(buffer_is_file, from_a_load_or_a_save_until_the_image_changes) {
    FilesBench bench;
    EXPECT_FALSE(bench.files.buffer_is_file());
    bench.open(kWord);
    EXPECT_TRUE(bench.files.buffer_is_file());
    bench.session.PgmMem[0] ^= 1U;
    EXPECT_FALSE(bench.files.buffer_is_file());
    ASSERT_EQ(bench.files.mnuFileSave_Click(bench.folder / "out.hex"), Outcome::Success);
    EXPECT_TRUE(bench.files.buffer_is_file());
    bench.buffer.mnuPcBufferMemoryClear();
    EXPECT_FALSE(bench.files.buffer_is_file());
    bench.open(kWord);
    bench.form.Combo_device.select(std::string_view{"PIC16F84A"});
    EXPECT_FALSE(bench.files.buffer_is_file());
}

TEST(buffer_is_file, not_after_a_load_that_failed) {
    FilesBench bench;
    bench.open(";\n");
    EXPECT_TRUE(bench.files.buffer_is_file());
    bench.open(":02000000ZZZZ00\n", "work/b.hex");
    EXPECT_FALSE(bench.files.buffer_is_file());
    bench.open(kWord, "work/b.hex");
    bench.files.mnuFileOpen_Click(bench.path("none.hex"));
    EXPECT_FALSE(bench.files.buffer_is_file());
}

}  // namespace quillon
