// SPDX-License-Identifier: MIT
#include "image/fill.h"
#include "start_up_bench.h"

namespace quillon {
namespace {

namespace fs = std::filesystem;
using End = StartUp::End;

constexpr std::string_view kWaiting = "\r\n\r\n　　　　　　　　　　しばらくお待ちください.....";

class Main : public test::StartUpBench {
  protected:
    Main() { with_board(); }
};

TEST_F(Main, shows_the_disabled_form_with_the_waiting_text_before_anything_else) {
    bool seen = false;
    host.on_pump = [&] {
        if (seen) return;
        seen = true;
        EXPECT_TRUE(run.form.Visible.get());
        EXPECT_TRUE(run.form.WaitCursor.get());
        EXPECT_FALSE(run.form.Enabled.get());
        EXPECT_EQ(waiting_text(), kWaiting);
        EXPECT_FALSE(fs::exists(work()));
    };
    start();
    EXPECT_TRUE(seen);
}

TEST_F(Main, ends_a_second_instance_at_once_with_no_message) {
    EXPECT_EQ(start_up.Main("", true), End::EndProcess);
    EXPECT_TRUE(dialogs.boxes.empty());
    EXPECT_TRUE(log.lines.empty());
    EXPECT_FALSE(fs::exists(work()));
    EXPECT_EQ(journal.text(), "");
    EXPECT_EQ(host.pumps, 1);
}

TEST_F(Main, ends_ready_with_the_form_enabled_and_the_normal_pointer) {
    EXPECT_EQ(start(), End::Ready);
    EXPECT_TRUE(run.form.Enabled.get());
    EXPECT_FALSE(run.form.WaitCursor.get());
    EXPECT_TRUE(run.form.Visible.get());
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(Main, keeps_the_form_disabled_until_everything_else_is_done) {
    int turns_disabled = 0;
    int turns_enabled = 0;
    host.on_pump = [&] { ++(run.form.Enabled.get() ? turns_enabled : turns_disabled); };
    start();
    EXPECT_EQ(turns_enabled, 2);
    EXPECT_GT(turns_disabled, 4);
}

TEST_F(Main, fills_the_about_form) {
    start();
    EXPECT_EQ(run.about.lblVersion.Caption.get(), "V4.0.1");
    EXPECT_EQ(run.about.lblTitle.Caption.get(), "Quillon");
    EXPECT_EQ(run.about.lblDescription.Caption.get(), "ＰＩＣマイコンプログラマ");
    EXPECT_EQ(run.about.lblDisclaimer.Caption.get(),
              "ｻﾎﾟｰﾄﾍﾟｰｼﾞ : https://quillon.example/support");
}

TEST_F(Main, shows_the_first_eight_id_bytes_in_the_about_form) {
    set("deviceNew", "-1");  // no selection clears the image
    auto& id = run.session.CfgIdMem;
    for (std::uint8_t i = 0; i < 9; ++i) id[i] = static_cast<std::uint8_t>(0x0F + 0x1E * i);
    start();
    EXPECT_EQ(run.about.Label_ID_Word.Caption.get(), "NEW :0F2D:4B69:87A5:C3E1");
}

TEST_F(Main, makes_the_programs_folder_the_current_one_and_ends_AppPath_in_a_separator) {
    start();
    EXPECT_EQ(run.session.AppPath, app_folder.path().string() + "/");
    EXPECT_EQ(fs::canonical(fs::current_path()), fs::canonical(app_folder.path()));
}

TEST_F(Main, works_in_QUILLON4_TEMP_under_the_documents_folder_and_makes_it) {
    host.documents = documents / "deep/er";
    start();
    EXPECT_EQ(run.session.TempDir, documents.path().string() + "/deep/er/QUILLON4_TEMP/");
    EXPECT_TRUE(fs::is_directory(documents / "deep/er/QUILLON4_TEMP"));
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(Main, ends_with_a_box_where_the_work_folder_cannot_be_made) {
    documents.write("QUILLON4_TEMP", "a file in its place");
    EXPECT_EQ(start(), End::EndProcess);
    ASSERT_EQ(dialogs.boxes.size(), 1U);
    EXPECT_EQ(dialogs.boxes[0].title, "ﾃﾝﾌﾟﾌｫﾙﾀﾞ作成失敗");
    EXPECT_EQ(dialogs.boxes[0].text, "テンポラリフォルダーの作成に失敗しました。\r" + work() +
                                         "　を、\r予め作成し再度ソフトウエアを起動してください。");
    EXPECT_EQ(dialogs.boxes[0].icon, BoxIcon::Critical);
    EXPECT_EQ(journal.text(), "");
    EXPECT_EQ(documents.read("QUILLON4_TEMP"), "a file in its place");
    // The about form has been filled by then.
    EXPECT_EQ(run.about.lblVersion.Caption.get(), "V4.0.1");
    EXPECT_EQ(run.about.lblTitle.Caption.get(), "Quillon");
    EXPECT_EQ(run.about.lblDisclaimer.Caption.get(), "MIT License");
    EXPECT_EQ(run.session.MainTitle, "");
}

TEST_F(Main, ends_with_a_box_where_a_work_file_is_read_only) {
    for (const auto* name : {"temp.txt", "pgmmemory_temp.txt", "LOG_NEW0.txt", "LOG_OLD1.txt",
                             "LOG_OLD2.txt", "LOG_OLD3.txt", "LOG_OLD4.txt", "LOG_OLD5.txt",
                             "LOG_OLD6.txt", "LOG_OLD7.txt", "LOG_OLD8.txt", "LOG_OLD9.txt"}) {
        put_work_file(name, "x");
        fs::permissions(work(name), fs::perms::owner_read);
        dialogs.boxes.clear();
        EXPECT_EQ(start(), End::EndProcess) << name;
        ASSERT_EQ(dialogs.boxes.size(), 1U) << name;
        EXPECT_EQ(dialogs.boxes[0].title, "");
        EXPECT_EQ(
            dialogs.boxes[0].text,
            "一時作業ファイルにアクセスすることができませんでした。　　　　　　　　　　　\r\n\r\n"
            "フォルダー " +
                work() +
                "　内の、\r\nファイルを削除後に、Quillon.exeを再起動してください。\r\n　\r\n　");
        EXPECT_EQ(dialogs.boxes[0].icon, BoxIcon::Critical);
        fs::remove(work(name));
    }
}

TEST_F(Main, does_not_notice_a_read_only_eepmemory_temp) {
    put_work_file("eepmemory_temp.txt", "x");
    fs::permissions(work("eepmemory_temp.txt"), fs::perms::owner_read);
    EXPECT_EQ(start(), End::Ready);
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(Main, builds_the_title_from_name_and_version_and_shows_the_last_folder) {
    set("OPEN_DIR0", "c:\\仕事\\a b");
    start();
    EXPECT_EQ(run.session.MainTitle, "Quillon V4 V4.0.1  ");
    EXPECT_EQ(caption(), "Quillon V4 V4.0.1  c:\\仕事\\a b");
}

TEST_F(Main, restores_the_file_history_and_hides_its_empty_entries) {
    set("OPEN_DIR1", "/home/u    PIC16F877A");
    set("OPEN_Device1", "4");
    set("OPEN_DIR3", "/home/v    PIC12F675");
    start();
    EXPECT_EQ(run.form.nmuFile[0].Caption.get(), "/home/u    PIC16F877A");
    EXPECT_EQ(run.form.nmuDevice[0].Caption.get(), "4");
    EXPECT_TRUE(run.form.nmuFile[0].Visible.get());
    EXPECT_FALSE(run.form.nmuFile[1].Visible.get());
    EXPECT_EQ(run.form.nmuDevice[1].Caption.get(), "");
    EXPECT_TRUE(run.form.nmuFile[2].Visible.get());
    EXPECT_FALSE(run.form.nmuFile[3].Visible.get());
    EXPECT_FALSE(run.form.nmuFile[4].Visible.get());
}

TEST_F(Main, shows_board_information_by_default_and_as_it_was_left) {
    start();
    EXPECT_TRUE(run.form.mnuBoardInfomation.Checked.get());
    EXPECT_EQ(run.board.Left, 0);
}

TEST_F(Main, leaves_board_information_off_where_it_was_switched_off) {
    set("mnuBoardInfomation", "False");
    set("BoardLeft", "55");
    start();
    EXPECT_FALSE(run.form.mnuBoardInfomation.Checked.get());
    EXPECT_EQ(run.board.Left, 55);
}

TEST_F(Main, stops_with_the_waiting_text_where_there_is_no_catalogue) {
    run.session.CatalogueFile.clear();
    EXPECT_EQ(start(), End::CatalogueFailed);
    EXPECT_EQ(dialogs.boxes.size(), 1U);
    EXPECT_FALSE(run.form.Enabled.get());
    EXPECT_TRUE(run.form.WaitCursor.get());
    EXPECT_EQ(waiting_text(), kWaiting);
    EXPECT_EQ(journal.text(), "");
    EXPECT_EQ(dialogs.options_shown, 0);
    EXPECT_EQ(host.pumps, 1 + 1 + 2);  // the form, the title, the history
}

TEST_F(Main, finds_the_catalogue_in_the_programs_folder) {
    run.session.CatalogueFile.clear();
    fs::copy_file(QUILLON_CATALOGUE, app_folder / "device6.ini");
    EXPECT_EQ(start(), End::Ready);
    EXPECT_NE(run.session.DeviceList.size(), 0U);
}

TEST_F(Main, finds_a_catalogue_that_was_named_from_the_users_folder) {
    fs::copy_file(QUILLON_CATALOGUE, documents / "my.ini");
    fs::current_path(documents.path());
    run.session.CatalogueFile = "my.ini";
    EXPECT_EQ(start(), End::Ready);
    EXPECT_NE(run.session.DeviceList.size(), 0U);
}

TEST_F(Main, shows_the_catalogues_version_and_list) {
    start();
    EXPECT_EQ(run.form.Label_Ver.Caption.get(), "device6.ini : Ver " + run.session.CatVersion);
    EXPECT_NE(run.session.CatVersion, "");
    EXPECT_EQ(run.form.Combo_device.Items.get(), run.session.DeviceList);
}

TEST_F(Main, selects_the_first_device_the_first_time) {
    start();
    EXPECT_EQ(run.form.Combo_device.ListIndex.get(), 0);
    EXPECT_EQ(run.session.DeviceName, run.session.DeviceList[0]);
}

TEST_F(Main, selects_the_last_device) {
    set("deviceNew", "5");
    start();
    EXPECT_EQ(run.session.DeviceName, run.session.DeviceList[5]);
    EXPECT_EQ(run.form.LblCheckSUM.Caption.get(), ProgramCheckSum(run.session));
}

TEST_F(Main, selects_no_device_for_an_index_that_the_list_does_not_hold) {
    for (const auto* value : {"99999", "-1", "abc"}) {
        set("deviceNew", value);
        port.close();
        EXPECT_EQ(start(), End::Ready) << value;
        EXPECT_EQ(run.session.DeviceName, "") << value;
        EXPECT_TRUE(dialogs.boxes.empty()) << value;
        EXPECT_EQ(run.form.Combo_device.ListIndex.get(), -1);
    }
}

TEST_F(Main, takes_the_waiting_text_away_where_no_device_is_selected) {
    set("deviceNew", "-1");
    std::string shown = "unseen";
    const auto connection = run.form.Enabled.observe([&](bool on) {
        if (on) shown = waiting_text();
    });
    start();
    EXPECT_EQ(shown, "");
}

TEST_F(Main, leaves_the_views_of_a_selected_device_as_they_are) {
    set("deviceNew", "5");
    start();
    EXPECT_TRUE(waiting_text().starts_with("000000:")) << waiting_text().substr(0, 40);
}

TEST_F(Main, makes_the_configuration_grids_ready_before_a_device_is_selected) {
    set("deviceNew", "-1");
    run.form.CmbInit.Visible.set(true);
    run.form.CmbInit.Items.set({"left over"});
    run.form.TxtInit.Visible.set(true);
    run.form.TxtInit.Text.set("left over");
    start();
    for (int n = 1; n <= 7; ++n) {
        const Grid& grid = run.form.HFGrid(n);
        ASSERT_EQ(grid.rows(), 1U) << n;  // the heading
        EXPECT_EQ(grid.cell(0, 0), fmt::format("ｺﾝﾌｨｸﾞ{}", n));
        EXPECT_EQ(grid.cell(0, 1), "FFFF");
    }
    EXPECT_FALSE(run.form.CmbInit.Visible.get());
    EXPECT_TRUE(run.form.CmbInit.Items.get().empty());
    EXPECT_FALSE(run.form.TxtInit.Visible.get());
    EXPECT_EQ(run.form.TxtInit.Text.get(), "");
}

TEST_F(Main, shows_the_images_check_sum_where_no_selection_has_shown_one) {
    set("deviceNew", "-1");
    run.session.PgmWords = 2;
    const std::array<std::uint8_t, 6> words{0x12, 0x34, 0xFF, 0x01, 0x77, 0x77};
    std::ranges::copy(words, run.session.PgmMem.begin());
    start();
    EXPECT_EQ(run.form.LblCheckSUM.Caption.get(), "1135");  // 1234 + FF01, 16 bits of it
}

TEST_F(Main, restores_the_modes) {
    set("deviceNew", "0");
    set("SkipMode", "1");
    set("mnuComMode1", "1");
    set("AsmFilePathWithFileName", "/home/u/a.asm");
    start();
    EXPECT_TRUE(run.form.mnuBlankSkip.Checked.get());
    EXPECT_TRUE(run.form.mnuComMode1.Checked.get());
    EXPECT_EQ(run.session.AsmToolPath, "/home/u/a.asm");
}

TEST_F(Main, skips_the_blank_check_as_it_was_left_and_says_so_on_the_button) {
    const auto list = [this] {
        run.catalogue.LoadDeviceList();
        return run.session.DeviceList;
    }();
    const auto flash = std::ranges::find(list, "PIC16F877A");
    ASSERT_NE(flash, list.end());
    set("deviceNew", std::to_string(flash - list.begin()));
    set("SkipMode", "1");
    start();
    EXPECT_EQ(run.form.Command_program.Caption.get(), "ﾌﾞﾗﾝｸﾁｪｯｸ ｽｷｯﾌﾟ\r\nプログラム(&P)");
}

TEST_F(Main, does_each_step_before_those_that_need_it) {
    std::vector<std::string> order;
    const auto note = [&order](std::string step) { order.push_back(std::move(step)); };
    put_work_file("LOG_NEW0.txt", "last session\n");
    set("OPEN_DIR0", "/last");
    set("OPEN_DIR1", "/a    P");
    std::vector<Connection> watches;
    auto& form = run.form;
    watches.push_back(form.Caption.observe([&](const auto&) { note("title"); }));
    watches.push_back(
        form.nmuFile[0].Caption.observe([&](const std::string&) { note("history"); }));
    watches.push_back(form.Combo_device.Items.observe([&](const auto&) { note("list"); }));
    watches.push_back(form.Label_Ver.Caption.observe([&](const auto&) { note("version"); }));
    watches.push_back(
        form.Label_FirmwareVersion.Caption.observe([&](const std::string&) { note("board"); }));
    watches.push_back(form.Combo_device.ListIndex.observe([&](int) {
        note(port.is_open() ? "device, port open" : "device");
        EXPECT_TRUE(fs::exists(work("LOG_NEW0.txt")));
    }));
    watches.push_back(form.Enabled.observe([&](bool on) {
        note(on ? "enabled" : "disabled");
        EXPECT_EQ(fs::exists(work("LOG_OLD9.txt")), on);
    }));
    start();
    EXPECT_EQ(order, (std::vector<std::string>{"disabled", "title", "history", "list", "version",
                                               "board", "board", "device", "title", "enabled"}));
}

TEST_F(Main, leaves_the_modes_off_by_default) {
    start();
    EXPECT_FALSE(run.form.mnuBlankSkip.Checked.get());
    EXPECT_FALSE(run.form.mnuComMode1.Checked.get());
    EXPECT_EQ(run.session.AsmToolPath, "");
}

TEST_F(Main, shows_the_skip_on_the_program_button_of_a_flash_part) {
    run.session.CatalogueFile = QUILLON_CATALOGUE;
    set("SkipMode", "1");
    start();
    const auto& devices = run.session.DeviceList;
    const auto flash = std::ranges::find(devices, "PIC16F877A");
    ASSERT_NE(flash, devices.end());
    run.form.Combo_device.select("PIC16F877A");
    EXPECT_EQ(run.form.Command_program.Caption.get(), "ﾌﾞﾗﾝｸﾁｪｯｸ ｽｷｯﾌﾟ\r\nプログラム(&P)");
}

TEST_F(Main, rotates_the_log) {
    put_work_file("LOG_NEW0.txt", "last session\n");
    start();
    EXPECT_EQ(work_file("LOG_OLD1.txt"), "last session\n");
    EXPECT_FALSE(fs::exists(work("LOG_NEW0.txt")));
    EXPECT_TRUE(fs::exists(work("LOG_OLD9.txt")));
}

TEST_F(Main, makes_Label_back_follow_the_width_at_the_end) {
    host.on_pump = [&] { run.form.ScaleWidth = 10000; };
    start();
    EXPECT_EQ(run.form.LabelBackWidth.get(), 9880);
}

TEST_F(Main, tells_of_settings_that_do_not_convert_and_takes_the_defaults) {
    set("MainLeft", "left");
    set("SkipMode", "maybe");
    EXPECT_EQ(start(), End::Ready);
    EXPECT_EQ(run.form.Left, 100);
    EXPECT_FALSE(run.form.mnuBlankSkip.Checked.get());
    EXPECT_TRUE(said("[+] 設定 MainLeft の値が正しくないため、既定値を使用します。"));
    EXPECT_TRUE(said("[+] 設定 SkipMode の値が正しくないため、既定値を使用します。"));
    EXPECT_FALSE(said("[+] 設定 MainTop の値が正しくないため、既定値を使用します。"));
}

class DamagedStore : public test::MemoryStore {
  public:
    std::string problem() const override { return "設定ファイルが壊れています。"; }
};

TEST_F(Main, tells_of_a_settings_store_with_a_problem) {
    DamagedStore damaged;
    quillon::Run other{damaged, host, port, dialogs};
    other.session.CatalogueFile = QUILLON_CATALOGUE;
    dialogs.on_option = [&] { other.option.Command1_Click(); };
    const test::MessageLog seen{other.messages};
    EXPECT_EQ(StartUp{other}.Main("", false), End::Ready);
    EXPECT_EQ(seen.lines.back(), "[+] 設定ファイルが壊れています。");
}

class prepare : public test::StartUpBench {};

TEST_F(prepare, makes_folders_catalogue_and_modes_ready_without_board_or_device) {
    set("SkipMode", "1");
    set("mnuComMode1", "1");
    set("deviceNew", "5");
    EXPECT_EQ(start_up.prepare(), End::Ready);
    EXPECT_TRUE(fs::is_directory(work()));
    EXPECT_NE(run.session.DeviceList.size(), 0U);
    EXPECT_TRUE(run.form.mnuBlankSkip.Checked.get());
    EXPECT_TRUE(run.form.mnuComMode1.Checked.get());
    EXPECT_EQ(run.session.DeviceName, "");
    EXPECT_EQ(run.session.ComNo, 3);
    EXPECT_EQ(port.chosen, 3);
    EXPECT_EQ(journal.text(), "");
    EXPECT_TRUE(host.sleeps.empty());
    EXPECT_EQ(dialogs.options_shown, 0);
}

TEST_F(prepare, rotates_no_log_and_leaves_the_current_folder) {
    put_work_file("LOG_NEW0.txt", "line\n");
    const auto before = fs::current_path();
    EXPECT_EQ(start_up.prepare(), End::Ready);
    EXPECT_EQ(work_file("LOG_NEW0.txt"), "line\n");
    EXPECT_FALSE(fs::exists(work("LOG_OLD1.txt")));
    EXPECT_EQ(fs::current_path(), before);
}

TEST_F(prepare, fails_as_the_window_does) {
    run.session.CatalogueFile = (documents / "absent.ini").string();
    EXPECT_EQ(start_up.prepare(), End::CatalogueFailed);
    put_work_file("temp.txt", "x");
    fs::permissions(work("temp.txt"), fs::perms::owner_read);
    EXPECT_EQ(start_up.prepare(), End::EndProcess);
}

}  // namespace
}  // namespace quillon
