// SPDX-License-Identifier: MIT
#include "run/menu_commands.h"

#include "start_up_bench.h"

namespace quillon {
namespace {

class MenuCommands_ : public test::StartUpBench {
  protected:
    MenuCommands_() {
        EXPECT_EQ(start_up.prepare(), StartUp::End::Ready);
        run.form.Combo_device.select("PIC16F877A");
        log.lines.clear();
    }
    bool enabled(const Control& control) const { return control.Enabled.get(); }
};

TEST_F(MenuCommands_, mnuBlankSkip_toggles_saves_and_shows_on_the_button) {
    run.menu.mnuBlankSkip_Click();
    EXPECT_TRUE(run.form.mnuBlankSkip.Checked.get());
    EXPECT_EQ(store["SkipMode"], "1");
    EXPECT_EQ(run.form.Command_program.Caption.get(), "ﾌﾞﾗﾝｸﾁｪｯｸ ｽｷｯﾌﾟ\r\nプログラム(&P)");
    run.menu.mnuBlankSkip_Click();
    EXPECT_FALSE(run.form.mnuBlankSkip.Checked.get());
    EXPECT_EQ(store["SkipMode"], "0");
    EXPECT_EQ(run.form.Command_program.Caption.get(), "プログラム(&P)");
}

TEST_F(MenuCommands_, mnuComMode1_toggles_saves_and_shows_its_hint_each_time) {
    run.menu.mnuComMode1_Click();
    EXPECT_TRUE(run.form.mnuComMode1.Checked.get());
    EXPECT_EQ(store["mnuComMode1"], "1");
    run.menu.mnuComMode1_Click();
    EXPECT_EQ(store["mnuComMode1"], "0");
    EXPECT_EQ(log.lines, (std::vector<std::string>{
                             "通信が正常に行われないとき、この設定を有効にしてみてください。",
                             "通信が正常に行われないとき、この設定を有効にしてみてください。"}));
    EXPECT_EQ(journal.text(), "");  // takes effect at the next search only
}

TEST_F(MenuCommands_, mnuBoardInfomation_hides_and_shows_the_board) {
    ASSERT_TRUE(run.form.mnuBoardInfomation.Checked.get());
    run.menu.mnuBoardInfomation_Click();
    EXPECT_FALSE(run.form.mnuBoardInfomation.Checked.get());
    EXPECT_FALSE(run.board.Visible.get());
    EXPECT_FALSE(run.settings.flag("mnuBoardInfomation", true));
    run.menu.frmBoard_Moved(70, 80);
    run.menu.mnuBoardInfomation_Click();
    EXPECT_TRUE(run.board.Visible.get());
    EXPECT_TRUE(run.settings.flag("mnuBoardInfomation", false));
    EXPECT_EQ(store["BoardLeft"], "70");
    EXPECT_EQ(store["BoardTop"], "80");
}

TEST_F(MenuCommands_, frmBoard_closed_by_its_box_stays_away) {
    run.menu.frmBoard_Closed();
    EXPECT_FALSE(run.form.mnuBoardInfomation.Checked.get());
    EXPECT_FALSE(run.settings.flag("mnuBoardInfomation", true));
    run.form.Combo_device.select("PIC16F877");
    EXPECT_FALSE(run.board.Visible.get());
}

TEST_F(MenuCommands_, mnuLock_leaves_the_buttons_of_the_production_line_only) {
    run.menu.mnuLock_Click();
    EXPECT_TRUE(run.form.mnuLock.Checked.get());
    EXPECT_TRUE(enabled(run.form.Command_program));
    EXPECT_TRUE(enabled(run.form.Command_blank));
    EXPECT_TRUE(enabled(run.form.Command_Verify));
    EXPECT_FALSE(enabled(run.form.Command_read));
    EXPECT_FALSE(enabled(run.form.Combo_device));
    EXPECT_FALSE(enabled(run.form.file));
    EXPECT_EQ(run.form.Focus.get(), "Command_program");
    run.menu.mnuLock_Click();
    EXPECT_FALSE(run.form.mnuLock.Checked.get());
    EXPECT_TRUE(enabled(run.form.Command_read));
    EXPECT_TRUE(enabled(run.form.Combo_device));
}

TEST_F(MenuCommands_, mnuLock_asks_for_the_focus_each_time) {
    int asked = 0;
    const auto connection = run.form.Focus.observe([&](const std::string& name) {
        if (name == "Command_program") ++asked;
    });
    for (int i = 0; i < 4; ++i) run.menu.mnuLock_Click();
    EXPECT_EQ(asked, 2);
}

TEST_F(MenuCommands_, mnuLock_toggled_while_an_operation_runs_touches_no_button) {
    bool toggled = false;
    host.on_pump = [&] {
        if (!run.flows.running() || toggled) return;
        toggled = true;
        run.menu.mnuLock_Click();
        EXPECT_TRUE(run.form.mnuLock.Checked.get());
        EXPECT_FALSE(enabled(run.form.Command_program));
        throw Abandoned{Abandoned::Reason::Closed};
    };
    run.flows.Command_blank();
    EXPECT_TRUE(toggled);
    host.on_pump = nullptr;
    EXPECT_TRUE(enabled(run.form.Command_program));  // enabled by the operation's end
    EXPECT_FALSE(enabled(run.form.Command_read));
}

TEST_F(MenuCommands_, mnuFrmmainHight_makes_the_form_a_little_taller) {
    int placed = 0;
    const auto connection = run.form.Placed.connect([&] { ++placed; });
    const int before = run.form.Height;
    run.menu.mnuFrmmainHight_Click();
    EXPECT_GT(run.form.Height, before);
    EXPECT_LT(run.form.Height, before + 1500);
    EXPECT_EQ(placed, 1);
}

TEST_F(MenuCommands_, mnuHelp_and_mnuBoardAmend_open_their_documents) {
    run.menu.mnuHelp_Click();
    run.menu.mnuBoardAmend_Click();
    const std::string folder = app_folder.path().string() + "/";
    EXPECT_EQ(host.opened,
              (std::vector<std::string>{folder + "Quillon.chm", folder + "製作確認資料.pdf"}));
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(MenuCommands_, a_document_that_cannot_be_opened_is_named) {
    host.opens = false;
    run.menu.mnuHelp_Click();
    EXPECT_EQ(log.lines,
              std::vector<std::string>{"[red] ファイルを開くことができませんでした。 | " +
                                       (app_folder / "Quillon.chm").string()});
}

TEST_F(MenuCommands_, CmdHint_opens_the_document_and_says_in_a_box_where_it_cannot) {
    const std::string path = (app_folder / "製作確認資料.pdf").string();
    run.menu.CmdHint_Click();
    EXPECT_EQ(host.opened, std::vector<std::string>{path});
    EXPECT_TRUE(dialogs.boxes.empty());

    host.opens = false;
    run.menu.CmdHint_Click();
    ASSERT_EQ(dialogs.boxes.size(), 1U);
    EXPECT_EQ(dialogs.boxes[0].title, "Quillon");
    EXPECT_EQ(dialogs.boxes[0].text, "ファイルを開くことができませんでした。\r" + path);
    EXPECT_EQ(dialogs.boxes[0].icon, BoxIcon::Warning);
    EXPECT_TRUE(log.lines.empty());  // the running operation's message stays
}

TEST_F(MenuCommands_, the_about_forms_button_opens_the_support_page) {
    run.menu.open_support_page();
    EXPECT_EQ(host.opened, std::vector<std::string>{"https://quillon.example/support"});
}

TEST_F(MenuCommands_, mnuLogFileOpen_says_that_there_is_none) {
    run.menu.mnuLogFileOpen_Click();
    EXPECT_EQ(log.lines, std::vector<std::string>{"ログファイルがありませんでした。"});
}

TEST_F(MenuCommands_, mnuComPort_searches_the_board_behind_the_chosen_port) {
    with_board();
    dialogs.on_option = [&] {
        run.option.Option_Com_Click(8);
        EXPECT_TRUE(run.option.Command_Ok_Click());
    };
    bool disabled = false;
    host.on_pump = [&] { disabled = disabled || !run.form.Enabled.get(); };
    run.menu.mnuComPort_Click();
    EXPECT_EQ(store["ComNo"], "9");
    EXPECT_TRUE(run.session.WriterFound);
    EXPECT_TRUE(port.is_open());
    EXPECT_TRUE(disabled);  // no operation starts inside the search
    EXPECT_TRUE(run.form.Enabled.get());
}

TEST_F(MenuCommands_, mnuComPort_searches_behind_another_port_though_a_board_was_found_before) {
    run.session.WriterFound = true;
    run.form.Label_FirmwareVersion.Caption.set("COM3 : ZQ-LDR412A V6.50");
    with_board();
    dialogs.on_option = [&] {
        run.option.Option_Com_Click(8);
        EXPECT_TRUE(run.option.Command_Ok_Click());
    };
    run.menu.mnuComPort_Click();
    EXPECT_EQ(run.form.Label_FirmwareVersion.Caption.get(), "COM9 : ZQ-LDR412A V6.80");
    EXPECT_EQ(port.problem(), "");
}

TEST_F(MenuCommands_, mnuComPort_cancelled_searches_nothing) {
    run.menu.mnuComPort_Click();
    EXPECT_EQ(dialogs.options_shown, 1);
    EXPECT_EQ(journal.text(), "");
    EXPECT_TRUE(run.form.Enabled.get());
}

TEST_F(MenuCommands_, mnuComPort_gives_the_form_back_where_the_port_vanishes) {
    port.when("?");
    dialogs.on_option = [&] {
        run.option.Option_Com_Click(8);
        EXPECT_TRUE(run.option.Command_Ok_Click());
        host.on_pump = [] { throw Abandoned{Abandoned::Reason::PortLost}; };
    };
    run.menu.mnuComPort_Click();
    EXPECT_FALSE(port.is_open());
    EXPECT_TRUE(run.form.Enabled.get());
    EXPECT_EQ(log.lines.back(),
              "[red] 通信ポートが切断されました。ライターの接続を確認してください。");
}

}  // namespace
}  // namespace quillon
