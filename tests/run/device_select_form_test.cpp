// SPDX-License-Identifier: MIT
#include "run/device_select_form.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

class frmDeviceSelect : public testing::Test {
  protected:
    frmDeviceSelect() {
        session.DeviceList = {"PIC16F877", "PIC16F877A", "PIC12F675"};
        session.CommandLine = "/A/X.HEX";
        main_form.Combo_device.Items.set(session.DeviceList);
        main_form.Left = 100;
        main_form.Top = 200;
    }
    DeviceSelectForm form;
    Session session;
    MainForm main_form;
    DeviceSelectDialog dialog{form, session, main_form};
};

TEST_F(frmDeviceSelect, asks_nothing_without_a_file) {
    session.CommandLine.clear();
    EXPECT_FALSE(dialog.Form_Load());
    EXPECT_FALSE(form.Visible.get());
}

TEST_F(frmDeviceSelect, stands_beside_the_main_forms_corner) {
    EXPECT_TRUE(dialog.Form_Load());
    EXPECT_EQ(form.Caption.get(), "マイコン選択サブウインドウ");
    EXPECT_EQ(form.Left, 2800);
    EXPECT_EQ(form.Top, 900);
    EXPECT_TRUE(form.Visible.get());
}

TEST_F(frmDeviceSelect, offers_the_devices_with_the_main_forms_choice) {
    main_form.Combo_device.select(2);
    dialog.Form_Load();
    EXPECT_EQ(form.Combo_device.Items.get(), session.DeviceList);
    EXPECT_EQ(form.Combo_device.ListIndex.get(), 2);
    EXPECT_EQ(form.Combo_device.Text.get(), "PIC12F675");
}

TEST_F(frmDeviceSelect, stops_filling_at_the_first_empty_entry) {
    session.DeviceList = {"PIC16F877", "", "PIC12F675"};
    main_form.Combo_device.select(2);
    dialog.Form_Load();
    EXPECT_EQ(form.Combo_device.Items.get(), std::vector<std::string>{"PIC16F877"});
    EXPECT_EQ(form.Combo_device.ListIndex.get(), -1);
}

TEST_F(frmDeviceSelect, is_done_at_once_where_the_operand_is_a_devices_name) {
    session.CmdArg2 = "PIC16F877A";
    EXPECT_FALSE(dialog.Form_Load());
    EXPECT_EQ(session.PickedDevice, "PIC16F877A");
    EXPECT_FALSE(form.Visible.get());
}

TEST_F(frmDeviceSelect, compares_the_operand_with_regard_to_case) {
    session.DeviceList = {"PIC16lf877"};
    session.CmdArg2 = "PIC16LF877";
    EXPECT_TRUE(dialog.Form_Load());
    EXPECT_EQ(session.PickedDevice, "");
}

TEST_F(frmDeviceSelect, takes_the_device_by_OK) {
    dialog.Form_Load();
    form.Combo_device.select("PIC12F675");
    dialog.OKButton_Click();
    EXPECT_EQ(session.PickedDevice, "PIC12F675");
    EXPECT_EQ(session.CommandLine, "/A/X.HEX");
    EXPECT_FALSE(form.Visible.get());
}

TEST_F(frmDeviceSelect, takes_a_typed_name_by_OK) {
    main_form.Combo_device.select("PIC12F675");
    dialog.Form_Load();
    form.Combo_device.Text.set("16f877");
    dialog.OKButton_Click();
    EXPECT_EQ(session.PickedDevice, "PIC16F877");
    EXPECT_EQ(form.Combo_device.ListIndex.get(), 0);
    EXPECT_FALSE(form.Visible.get());
}

TEST_F(frmDeviceSelect, stays_open_and_says_why_where_the_typed_name_means_no_device) {
    dialog.Form_Load();
    form.Combo_device.Text.set("16F999");
    dialog.OKButton_Click();
    EXPECT_TRUE(form.Visible.get());
    EXPECT_EQ(form.Notice.Caption.get(), "「16F999」に該当するデバイスはありません。");
    EXPECT_EQ(form.Combo_device.Text.get(), "16F999");  // kept for the user to correct
    EXPECT_EQ(session.PickedDevice, "");

    form.Combo_device.Text.set("12F675");
    dialog.OKButton_Click();
    EXPECT_EQ(form.Notice.Caption.get(), "");
    EXPECT_EQ(session.PickedDevice, "PIC12F675");
}

TEST_F(frmDeviceSelect, asks_for_a_device_where_none_is_chosen) {
    dialog.Form_Load();
    dialog.OKButton_Click();
    EXPECT_TRUE(form.Visible.get());
    EXPECT_EQ(form.Notice.Caption.get(), "MCUを選んでください。");

    dialog.Form_Load();  // the next question begins without it
    EXPECT_EQ(form.Notice.Caption.get(), "");
}

TEST_F(frmDeviceSelect, forgets_the_file_by_cancel) {
    dialog.Form_Load();
    dialog.CancelButton_Click();
    EXPECT_EQ(session.CommandLine, "");
    EXPECT_EQ(session.PickedDevice, "");
    EXPECT_FALSE(form.Visible.get());
}

}  // namespace
}  // namespace quillon
