// SPDX-License-Identifier: MIT
#include "run/option_form.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/fakes.h"
#include "support/scripted_port.h"

namespace quillon {
namespace {

using test::FakeDialogs;
using test::FakeHost;
using test::Journal;
using test::MemoryStore;
using test::ScriptedPort;

class frmOption : public testing::Test {
  protected:
    std::vector<int> chosen() const {
        std::vector<int> numbers;
        for (std::size_t i = 0; i < form.Option_Com.size(); ++i)
            if (form.Option_Com[i].Checked.get()) numbers.push_back(static_cast<int>(i));
        return numbers;
    }
    const std::string& message() const { return main_form.LabelCmt.Caption.get(); }
    const std::string& label() const { return main_form.Label_FirmwareVersion.Caption.get(); }
    // The board was found at COM3, the saved port.
    void found_at_com3() {
        store.write("Settings6", "ComNo", "3");
        port.CommPort(3);
        session.WriterFound = true;
        main_form.Label_FirmwareVersion.Caption.set("COM3 : ZQ-LDR412A V6.80");
    }

    OptionForm form;
    MainForm main_form;
    Session session;
    MemoryStore store;
    Settings settings{store};
    Journal journal;
    FakeHost host;
    ScriptedPort port{host, journal};
    FakeDialogs dialogs;
    Messages messages{main_form};
    Link link{session, main_form, settings, host, port, dialogs, messages};
    OptionDialog dialog{form, session, settings, port, dialogs, messages, link};
};

TEST_F(frmOption, has_a_button_for_each_of_COM1_to_COM20) {
    EXPECT_EQ(form.Caption.get(), "通信ポート選択して下さい。");
    ASSERT_EQ(form.Option_Com.size(), 20U);
    EXPECT_EQ(form.Option_Com[0].Caption.get(), "COM1");
    EXPECT_EQ(form.Option_Com[19].Caption.get(), "COM20");
    EXPECT_EQ(form.Option_Com[19].name, "Option_Com(19)");
}

TEST_F(frmOption, loads_with_the_saved_port_set_and_the_message_line_clear) {
    messages.ShowMessage("redold");
    store.write("Settings6", "ComNo", "5");
    form.Option_Com[9].Checked.set(true);
    dialog.Form_Load();
    EXPECT_EQ(chosen(), std::vector<int>{4});
    EXPECT_EQ(message(), " ");
    EXPECT_EQ(session.ComNo, 5);
    EXPECT_TRUE(form.Visible.get());
}

TEST_F(frmOption, loads_with_no_button_set_where_no_port_is_saved) {
    form.Option_Com[9].Checked.set(true);
    dialog.Form_Load();
    EXPECT_EQ(chosen(), std::vector<int>{});
    EXPECT_EQ(session.ComNo, 0);
}

TEST_F(frmOption, loads_with_no_button_set_for_a_number_that_it_has_none_for) {
    for (const auto* value : {"21", "-3", "99999", "abc"}) {
        store.write("Settings6", "ComNo", value);
        dialog.Form_Load();
        EXPECT_EQ(chosen(), std::vector<int>{}) << value;
    }
}

TEST_F(frmOption, lets_go_of_the_other_buttons_when_one_is_chosen) {
    dialog.Form_Load();
    dialog.Option_Com_Click(2);
    dialog.Option_Com_Click(19);
    EXPECT_EQ(chosen(), std::vector<int>{19});
}

TEST_F(frmOption, opens_and_saves_the_chosen_port_and_leaves_it_open) {
    dialog.Form_Load();
    dialog.Option_Com_Click(2);
    EXPECT_TRUE(dialog.Command_Ok_Click());
    EXPECT_EQ(port.chosen, 3);
    EXPECT_TRUE(port.is_open());
    EXPECT_EQ(session.ComNo, 3);
    EXPECT_EQ(store["ComNo"], "3");
    EXPECT_EQ(message(), "COM3を選択しました。 ");
    EXPECT_FALSE(form.Visible.get());
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(frmOption, closes_the_port_that_was_open_before) {
    ASSERT_EQ(port.open(), PortOpen::Ok);
    journal.clear();
    dialog.Form_Load();
    dialog.Option_Com_Click(2);
    dialog.Command_Ok_Click();
    EXPECT_EQ(journal.text(), "close, open");
}

TEST_F(frmOption, takes_the_last_of_several_buttons_that_are_set) {
    dialog.Form_Load();
    form.Option_Com[1].Checked.set(true);
    form.Option_Com[7].Checked.set(true);
    dialog.Command_Ok_Click();
    EXPECT_EQ(port.chosen, 8);
}

TEST_F(frmOption, stays_open_with_a_box_where_the_port_cannot_be_opened) {
    for (const auto failure : {PortOpen::Unavailable, PortOpen::Busy}) {
        dialogs.boxes.clear();
        port.next_open = failure;
        session.WriterFound = true;
        dialog.Form_Load();
        dialog.Option_Com_Click(2);
        EXPECT_FALSE(dialog.Command_Ok_Click());
        ASSERT_EQ(dialogs.boxes.size(), 1U);
        EXPECT_EQ(dialogs.boxes[0].title, "COM3　エラー");
        EXPECT_EQ(dialogs.boxes[0].text,
                  "COM3　オープンに失敗しました。　　　　　\r\r"
                  "　　他のポート番号を指定してください。　　　　　");
        EXPECT_EQ(dialogs.boxes[0].icon, BoxIcon::Critical);
        EXPECT_FALSE(session.WriterFound);
        EXPECT_TRUE(form.Visible.get());
        EXPECT_EQ(store["ComNo"], "<none>");
    }
}

TEST_F(frmOption, stays_open_with_a_box_where_no_port_is_chosen) {
    session.WriterFound = true;
    dialog.Form_Load();
    EXPECT_FALSE(dialog.Command_Ok_Click());
    ASSERT_EQ(dialogs.boxes.size(), 1U);
    EXPECT_EQ(dialogs.boxes[0].title, "COM0　エラー");
    EXPECT_FALSE(session.WriterFound);
    EXPECT_FALSE(port.is_open());
    EXPECT_TRUE(form.Visible.get());
}

TEST_F(frmOption, forgets_the_board_of_the_former_port_once_another_is_chosen) {
    found_at_com3();
    dialog.Form_Load();
    dialog.Option_Com_Click(4);
    EXPECT_TRUE(dialog.Command_Ok_Click());
    EXPECT_FALSE(session.WriterFound);
    EXPECT_EQ(label(), "COM5 : ライター未接続");
}

TEST_F(frmOption, keeps_the_board_where_its_port_is_chosen_again) {
    found_at_com3();
    dialog.Form_Load();
    EXPECT_TRUE(dialog.Command_Ok_Click());
    EXPECT_TRUE(session.WriterFound);
    EXPECT_EQ(label(), "COM3 : ZQ-LDR412A V6.80");
}

TEST_F(frmOption, gives_the_former_port_back_on_cancel_after_a_refusal) {
    found_at_com3();
    dialog.Form_Load();
    dialog.Option_Com_Click(4);
    port.next_open = PortOpen::Unavailable;
    EXPECT_FALSE(dialog.Command_Ok_Click());
    EXPECT_EQ(label(), "COM5 : ライター未接続");
    dialog.Command1_Click();
    EXPECT_EQ(session.ComNo, 3);
    EXPECT_EQ(port.chosen, 3);
    EXPECT_EQ(store["ComNo"], "3");
    EXPECT_EQ(label(), "COM3 : ライター未接続");
    EXPECT_EQ(message(), " ");
    EXPECT_FALSE(form.Visible.get());
}

TEST_F(frmOption, says_on_cancel_after_a_refusal_that_no_port_is_chosen_where_none_was) {
    dialog.Form_Load();
    dialog.Option_Com_Click(4);
    port.next_open = PortOpen::Unavailable;
    EXPECT_FALSE(dialog.Command_Ok_Click());
    dialog.Command1_Click();
    EXPECT_EQ(session.ComNo, 0);
    EXPECT_EQ(port.chosen, 0);
    EXPECT_EQ(label(), "通信ポート未選択");
    EXPECT_EQ(message(), "通信ポートを選択しませんでした。 ");
}

TEST_F(frmOption, says_that_the_rights_are_missing_where_they_are) {
    port.next_open = PortOpen::Denied;
    dialog.Form_Load();
    dialog.Option_Com_Click(2);
    EXPECT_FALSE(dialog.Command_Ok_Click());
    ASSERT_EQ(dialogs.boxes.size(), 1U);
    EXPECT_EQ(
        dialogs.boxes[0].text,
        "COM3　オープンに失敗しました。　　　　　\r\r"
        "　　他のポート番号を指定してください。　　　　　\r\r"
        "この通信ポートを使用する権限がありません。ポートのグループ（dialout など）への登録が必要です。");
}

TEST_F(frmOption, says_on_cancel_that_no_port_is_chosen) {
    dialog.Form_Load();
    dialog.Command1_Click();
    EXPECT_EQ(message(), "通信ポートを選択しませんでした。 ");
    EXPECT_FALSE(form.Visible.get());
}

TEST_F(frmOption, says_nothing_on_cancel_where_a_port_is_known) {
    store.write("Settings6", "ComNo", "5");
    dialog.Form_Load();
    dialog.Command1_Click();
    EXPECT_EQ(message(), " ");
    EXPECT_EQ(session.ComNo, 5);
    EXPECT_FALSE(form.Visible.get());
}

}  // namespace
}  // namespace quillon
