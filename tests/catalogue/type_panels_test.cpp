// SPDX-License-Identifier: MIT
// The type table, row by row, from the controls.
#include "catalogue/type_panels.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace quillon::test {
namespace {

// A form whose controls all have the opposite of what a row may ask for.
struct Panel {
    explicit Panel(std::string_view type, bool shown = false) {
        for (auto* control : std::vector<Control*>{
                 &form.Label_Calib, &form.Label_CalibInfo, &form.Lbl_Calib_ReadWrite_Data,
                 &form.Chk_12F_CalibData_Select, &form.Text_OSCCAL_Data, &form.Label_BG,
                 &form.Check_Parity_Disp, &form.Frame2, &form.Lbl_div, &form.Lbl_rev,
                 &form.Lbl_ID_Dev, &form.Lbl_ID_Rev})
            control->Visible.set(shown);
        form.Lbl_Calib_ReadWrite_Data.Caption.set("R:3480");
        form.Chk_12F_CalibData_Select.Checked.set(false);
        form.Chk_UseFileData.Checked.set(true);
        form.Check_Parity_Disp.Checked.set(true);
        form.Text_Calib_Data.Text.set("12");
        form.Text_BG.Text.set("0");
        form.Label_DEV_id.Caption.set("1");
        form.Label_DEV_rev.Caption.set("2");
        form.Lbl_ID_Dev.Caption.set("3");
        form.Lbl_ID_Rev.Caption.set("4");
        form.Text_ID.MaxLength.set(4);
        form.Text_ID.Text.set("1234");
        session->IdText = "1234";
        show_type(panel_of(programming_type(type)), *session, form);
    }
    std::vector<std::size_t> tabs() const {
        std::vector<std::size_t> result;
        for (std::size_t tab = 0; tab < 10; ++tab)
            if (form.SSTab_MCU_Information.TabVisible.get()[tab]) result.push_back(tab);
        return result;
    }
    void expect_locked(const TextBox& box) const {
        EXPECT_FALSE(box.Enabled.get()) << box.name;
        EXPECT_EQ(box.BackColor.get(), Colour::Grey) << box.name;
    }

    std::unique_ptr<Session> session = std::make_unique<Session>();
    MainForm form;
};

using Tabs = std::vector<std::size_t>;

TEST(type_panels, of_5F28_and_5F18_show_the_oscillator_word) {
    for (const char* type : {"5F28", "5F18"})
        for (const bool before : {false, true}) {
            const Panel panel{type, before};
            const auto& form = panel.form;
            EXPECT_EQ(panel.tabs(), Tabs{3}) << type;
            EXPECT_EQ(form.SSTab_MCU_Information.Tab.get(), 3);
            EXPECT_FALSE(form.Label_Calib.Visible.get());
            EXPECT_FALSE(form.Lbl_Calib_ReadWrite_Data.Visible.get());
            EXPECT_EQ(form.Lbl_Calib_ReadWrite_Data.Caption.get(), "--");
            EXPECT_TRUE(form.Label_CalibInfo.Visible.get());
            EXPECT_TRUE(form.Chk_12F_CalibData_Select.Visible.get());
            EXPECT_TRUE(form.Chk_12F_CalibData_Select.Checked.get());
            EXPECT_FALSE(form.Chk_UseFileData.Checked.get());
            panel.expect_locked(form.Text_OSCCAL_Data);
            EXPECT_TRUE(form.Text_OSCCAL_Data.Visible.get());
            EXPECT_EQ(form.Text_Calib_Data.Text.get(), "--");
            EXPECT_EQ(form.Text_BG.Text.get(), "3");
            panel.expect_locked(form.Text_BG);
            EXPECT_FALSE(form.Label_BG.Visible.get());
            for (const auto* label :
                 {&form.Lbl_ID_Dev, &form.Lbl_ID_Rev, &form.Lbl_div, &form.Lbl_rev})
                EXPECT_FALSE(label->Visible.get()) << label->name;
            EXPECT_EQ(form.Text_ID.Text.get(), "1234");
        }
}

TEST(type_panels, of_10F2_has_the_calibration_label_and_no_oscillator_word) {
    for (const bool before : {false, true}) {
        const Panel panel{"10F2", before};
        EXPECT_EQ(panel.tabs(), Tabs{5});
        EXPECT_TRUE(panel.form.Label_Calib.Visible.get());
        EXPECT_FALSE(panel.form.Text_OSCCAL_Data.Visible.get());
        EXPECT_FALSE(panel.form.Lbl_Calib_ReadWrite_Data.Visible.get());
        EXPECT_TRUE(panel.form.Label_CalibInfo.Visible.get());
        EXPECT_TRUE(panel.form.Chk_12F_CalibData_Select.Checked.get());
        EXPECT_FALSE(panel.form.Chk_UseFileData.Checked.get());
        EXPECT_EQ(panel.form.Text_Calib_Data.Text.get(), "--");
        panel.expect_locked(panel.form.Text_BG);
        panel.expect_locked(panel.form.Text_OSCCAL_Data);
        EXPECT_FALSE(panel.form.Lbl_div.Visible.get());
    }
}

TEST(type_panels, of_12C5_and_12C6_show_a_locked_calibration) {
    for (const char* type : {"12C5", "12C6"})
        for (const bool before : {false, true}) {
            const Panel panel{type, before};
            const auto& form = panel.form;
            EXPECT_EQ(panel.tabs(), Tabs{0}) << type;
            EXPECT_TRUE(form.Label_Calib.Visible.get());
            EXPECT_TRUE(form.Label_CalibInfo.Visible.get());
            EXPECT_TRUE(form.Lbl_Calib_ReadWrite_Data.Visible.get())
                << "a former device may have hidden it";
            EXPECT_EQ(form.Lbl_Calib_ReadWrite_Data.Caption.get(), "--");
            EXPECT_TRUE(form.Chk_12F_CalibData_Select.Visible.get());
            EXPECT_TRUE(form.Chk_12F_CalibData_Select.Checked.get());
            EXPECT_TRUE(form.Chk_UseFileData.Checked.get());
            EXPECT_EQ(form.Text_Calib_Data.Text.get(), "FF");
            panel.expect_locked(form.Text_Calib_Data);
            EXPECT_EQ(form.Text_BG.Text.get(), "3");
            panel.expect_locked(form.Text_BG);
            EXPECT_FALSE(form.Label_BG.Visible.get());
        }
}

TEST(type_panels, of_12F6_opens_the_bandgap) {
    const Panel panel{"12F6"};
    EXPECT_EQ(panel.tabs(), Tabs{0});
    EXPECT_TRUE(panel.form.Label_BG.Visible.get());
    EXPECT_TRUE(panel.form.Text_BG.Enabled.get());
    EXPECT_EQ(panel.form.Text_BG.BackColor.get(), Colour::White);
    EXPECT_EQ(panel.form.Text_BG.Text.get(), "3");
    EXPECT_EQ(panel.form.Text_Calib_Data.Text.get(), "FF");
    panel.expect_locked(panel.form.Text_Calib_Data);
    EXPECT_TRUE(panel.form.Chk_12F_CalibData_Select.Checked.get());
}

TEST(type_panels, offer_the_buttons_of_the_calibration_word_on_12C6_and_12F6_only) {
    for (const std::string type : {"5X18", "5X28", "5F18", "5F28", "12C5", "10F2", "12C6", "12F6",
                                   "EPROM", "EPROM2", "FLASH0", "FLASH1", "FLASH4", "18F_00"}) {
        const Panel panel{type};
        const bool offered = type == "12C6" || type == "12F6";
        EXPECT_EQ(panel.form.Command1.Visible.get(), offered) << type;
        EXPECT_EQ(panel.form.Command2.Visible.get(), offered) << type;
    }
}

TEST(type_panels, open_what_the_user_enters_while_the_box_is_clear) {
    struct Row {
        const char* type;
        bool calib, bandgap, write;
    };
    for (const auto& [type, calib, bandgap, write] :
         {Row{"12C5", true, false, false}, Row{"12C6", true, false, true},
          Row{"12F6", true, true, true}, Row{"10F2", false, false, false},
          Row{"FLASH4", false, false, false}}) {
        Panel panel{type};
        auto& form = panel.form;
        form.Text_Calib_Data.Enabled.set(false);  // the selection's own reset
        form.Text_BG.Enabled.set(false);
        EXPECT_FALSE(form.Command2.Enabled.get()) << type;
        for (const bool keeps : {false, true, false}) {
            form.Chk_12F_CalibData_Select.Checked.set(keeps);
            lock_entries(panel_of(programming_type(type)), form);
            EXPECT_EQ(form.Text_Calib_Data.Enabled.get(), calib && !keeps) << type;
            EXPECT_EQ(form.Text_BG.Enabled.get(), bandgap && !keeps) << type;
            EXPECT_EQ(form.Command2.Enabled.get(), write && !keeps) << type;
        }
    }
}

TEST(type_panels, of_EPROM2_offer_the_parity_display) {
    const Panel panel{"EPROM2"};
    EXPECT_EQ(panel.tabs(), Tabs{1});
    EXPECT_TRUE(panel.form.Check_Parity_Disp.Visible.get());
    EXPECT_FALSE(panel.form.Check_Parity_Disp.Checked.get());
    EXPECT_FALSE(panel.form.Frame2.Visible.get());
    EXPECT_EQ(panel.form.Text_ID.Text.get(), "1234");
}

TEST(type_panels, of_pic18_have_an_id_of_eight_digits) {
    for (const char* type : {"18F_00", "18F_01"}) {
        const Panel panel{type, true};
        const auto& form = panel.form;
        EXPECT_EQ(panel.tabs(), Tabs{2}) << type;
        EXPECT_EQ(form.Label_DEV_id.Caption.get(), "--");
        EXPECT_EQ(form.Label_DEV_rev.Caption.get(), "--");
        EXPECT_TRUE(form.Frame2.Visible.get());
        for (const auto* label : {&form.Lbl_ID_Dev, &form.Lbl_ID_Rev, &form.Lbl_div, &form.Lbl_rev})
            EXPECT_FALSE(label->Visible.get()) << label->name;
        EXPECT_EQ(form.Lbl_ID_Dev.Caption.get(), "");
        EXPECT_EQ(form.Lbl_ID_Rev.Caption.get(), "");
        EXPECT_EQ(form.Lbl_div.Caption.get(), "ID_Dev");
        EXPECT_EQ(form.Text_ID.MaxLength.get(), 8U);
        EXPECT_EQ(form.Text_ID.Text.get(), "FFFFFFFF");
    }
}

TEST(type_panels, set_the_id_of_18F_00_and_leave_that_of_18F_01) {
    EXPECT_EQ(Panel{"18F_00"}.session->IdText, "FFFFFFFF");
    EXPECT_EQ(Panel{"18F_01"}.session->IdText, "1234");
}

TEST(type_panels, of_any_other_type_show_no_tab_and_the_revision) {
    for (const char* type :
         {"FLASH4", "FLASH4.9", "EPROM", "5X18", "18C_00", "LDR412", "", "none"}) {
        const Panel panel{type};
        const auto& form = panel.form;
        EXPECT_EQ(panel.tabs(), Tabs{}) << type;
        EXPECT_EQ(form.Label_DEV_id.Caption.get(), "--");
        EXPECT_EQ(form.Label_DEV_rev.Caption.get(), "--");
        EXPECT_TRUE(form.Frame2.Visible.get());
        for (const auto* label : {&form.Lbl_ID_Dev, &form.Lbl_ID_Rev, &form.Lbl_div, &form.Lbl_rev})
            EXPECT_TRUE(label->Visible.get()) << label->name;
        EXPECT_EQ(form.Lbl_ID_Dev.Caption.get(), "");
        EXPECT_EQ(form.Lbl_ID_Rev.Caption.get(), "");
        EXPECT_EQ(form.Text_ID.MaxLength.get(), 4U);
        EXPECT_EQ(form.Text_ID.Text.get(), "FFFF");
        EXPECT_EQ(panel.session->IdText, "FFFF");
        EXPECT_FALSE(form.Chk_12F_CalibData_Select.Checked.get());
    }
}

}  // namespace
}  // namespace quillon::test
