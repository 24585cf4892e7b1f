// SPDX-License-Identifier: MIT
// The calibration word in the window: the fields that the check box locks, and the two buttons.
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPushButton>

#include "device_panels.h"

namespace quillon::test {
namespace {

class calibration_entry : public DevicePanels {
  protected:
    static QCheckBox& box() { return *bench().find<QCheckBox>("Chk_12F_CalibData_Select"); }
    static void expect_enabled(const char* button, bool wanted) {
        EXPECT_EQ(bench().find<QPushButton>(button)->isEnabled(), wanted)
            << session().DeviceName << " " << button;
    }
};

TEST_F(calibration_entry, is_open_while_the_box_that_keeps_the_calibration_is_clear) {
    for (const char* device : {"PIC12F675", "PIC12C671", "PIC12C509A"}) {
        ASSERT_NO_FATAL_FAILURE(choose(device));
        ASSERT_TRUE(box().isVisible()) << device;
        expect_box("Text_Calib_Data", false);
        box().click();
        expect_box("Text_Calib_Data", true);
        EXPECT_EQ(bench().message(),
                  "ﾃﾞﾊﾞｲｽ内部のｷｬﾘﾌﾞﾚｰｼｮﾝﾃﾞｰﾀ（工場出荷時の設定値）を変更したくない場合は"
                  "ﾁｪｯｸﾎﾞｯｸｽをｸﾘｱしないでください。 ");
        box().click();
        expect_box("Text_Calib_Data", false);
    }
}

TEST_F(calibration_entry, of_the_band_gap_is_open_at_the_selection_and_follows_the_box_afterwards) {
    ASSERT_NO_FATAL_FAILURE(choose("PIC12F675"));
    expect_box("Text_BG", true);
    box().click();
    expect_box("Text_BG", true);
    box().click();
    expect_box("Text_BG", false);
    for (const char* device : {"PIC12C671", "PIC12C509A"}) {
        ASSERT_NO_FATAL_FAILURE(choose(device));
        box().click();
        expect_box("Text_BG", false);
    }
}

TEST_F(calibration_entry, is_locked_again_for_the_next_device) {
    ASSERT_NO_FATAL_FAILURE(choose("PIC12F675"));
    box().click();
    ASSERT_NO_FATAL_FAILURE(choose("PIC12F629"));
    EXPECT_TRUE(box().isChecked());
    expect_box("Text_Calib_Data", false);
    expect_enabled("Command2", false);
}

TEST_F(calibration_entry, has_its_buttons_where_the_word_can_be_accessed_alone) {
    for (const auto& [device, offered] :
         std::vector<std::pair<const char*, bool>>{{"PIC12F675", true},
                                                   {"PIC12C671", true},
                                                   {"PIC12C509A", false},
                                                   {"PIC10F200", false},
                                                   {"PIC16F877A", false},
                                                   {"PIC16F690", false}}) {
        ASSERT_NO_FATAL_FAILURE(choose(device));
        expect_shown("Command1", offered);
        expect_shown("Command2", offered);
    }
}

TEST_F(calibration_entry, is_written_only_after_the_box_is_cleared) {
    ASSERT_NO_FATAL_FAILURE(choose("PIC12F675"));
    expect_enabled("Command1", true);
    expect_enabled("Command2", false);
    box().click();
    expect_enabled("Command2", true);
    for (const char* name : {"Command1", "Command2"}) {
        const auto* button = bench().find<QPushButton>(name);
        EXPECT_FALSE(button->isDefault() || button->autoDefault()) << name;
    }
    QTest::keyClick(bench().find<QLineEdit>("Text_Calib_Data"), Qt::Key_Return);
    EXPECT_EQ(bench().run->form.Lbl_Calib_ReadWrite_Data.Caption.get(), "--");
    box().click();
    expect_enabled("Command2", false);
}

TEST(calibration_buttons, read_and_write_the_word_and_are_disabled_meanwhile) {
    FormBench bench{"PIC12F675"};
    bench.find<QCheckBox>("Chk_12F_CalibData_Select")->click();
    for (const char* name : {"Command1", "Command2"}) {
        int disabled = 0;
        bench.on_turn = [&] {
            if (bench.run->flows.running() && !bench.find<QPushButton>(name)->isEnabled())
                ++disabled;
        };
        const auto opens = bench.port.opens();
        bench.click<QPushButton>(name);
        EXPECT_GT(bench.port.opens(), opens) << name;
        EXPECT_GT(disabled, 0) << name;
        EXPECT_FALSE(bench.port.is_open()) << name;
        EXPECT_TRUE(bench.find<QPushButton>(name)->isEnabled()) << name;
    }
}

}  // namespace
}  // namespace quillon::test
