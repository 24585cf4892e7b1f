// SPDX-License-Identifier: MIT
// The calibration tabs: lists, defaults and locks of each family.
#include "catalogue/calibration_panel.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "catalogue/device_groups.h"

namespace quillon::test {
namespace {

using Texts = std::vector<std::string>;

const Texts kThreeBits{"111 (最大値)", "110", "101", "100 (中央値)",
                       "000 (中央値)", "001", "010", "011 (最小値)"};
const Texts kTwoBits{"11 (最大値)", "10", "01", "00 (最小値)"};
const Texts kBor91X{"111 (最大値)", "110", "101", "100", "011", "010", "001 (最小値)"};

void select(MainForm& form, std::string_view name) {
    show_panel(*group_of(name).panel, name, form);
}

void expect_combo(const ComboBox& combo, const Texts& entries, int index) {
    EXPECT_EQ(combo.Items.get(), entries) << combo.name;
    EXPECT_EQ(combo.ListIndex.get(), index) << combo.name;
    EXPECT_EQ(combo.Text.get(), entries[static_cast<std::size_t>(index)]) << combo.name;
}

void expect_fcal(const ComboBox& combo) {
    const auto& entries = combo.Items.get();
    ASSERT_EQ(entries.size(), 128U) << combo.name;
    EXPECT_EQ(entries[0], "+63 (最大値)");
    EXPECT_EQ(entries[1], "+62");
    EXPECT_EQ(entries[62], "+1");
    EXPECT_EQ(entries[63], "0  (中央値)");
    EXPECT_EQ(entries[64], "-1");
    EXPECT_EQ(entries[127], "-64 (最小値)");
    EXPECT_EQ(combo.ListIndex.get(), 63);
}

TEST(calibration_panel, of_16F88X_has_three_bit_lists) {
    for (const char* name : {"PIC16F887", "ZQ-LDR418"}) {
        MainForm form;
        select(form, name);
        expect_combo(form.Combo_POR, kThreeBits, 4);
        expect_combo(form.Combo_BOR, kThreeBits, 4);
        expect_fcal(form.Combo_FCAL);
        EXPECT_TRUE(form.Combo_FCAL_91X.Items.get().empty());
    }
}

TEST(calibration_panel, of_16F91X_has_a_two_bit_por_and_no_lowest_bor) {
    for (const char* name : {"PIC16F917", "PIC16F785", "PIC16HV785", "PIC16F716"}) {
        MainForm form;
        select(form, name);
        expect_combo(form.Combo_POR_91X, kTwoBits, 3);
        expect_combo(form.Combo_BOR_91X, kBor91X, 6);
        expect_combo(form.Combo_LVD_91X, kThreeBits, 4);
        expect_fcal(form.Combo_FCAL_91X);
        EXPECT_TRUE(form.Combo_FCAL.Items.get().empty());
    }
}

TEST(calibration_panel, of_16F6XX_has_a_three_bit_por_for_two_of_its_devices) {
    for (const char* name : {"PIC16F684", "PIC16F688"}) {
        MainForm form;
        select(form, name);
        expect_combo(form.Combo_POR_91X, kThreeBits, 4);
        expect_combo(form.Combo_BOR_91X, kBor91X, 6);
    }
    for (const char* name : {"PIC16F631", "PIC16F677", "PIC16F685", "PIC16F687", "PIC16F689",
                             "PIC16F690", "PIC12F609", "PIC16HV616"}) {
        MainForm form;
        select(form, name);
        expect_combo(form.Combo_POR_91X, kTwoBits, 3);
        expect_combo(form.Combo_BOR_91X, kBor91X, 6);
        expect_fcal(form.Combo_FCAL_91X);
        EXPECT_TRUE(form.Combo_LVD_91X.Items.get().empty());
    }
}

TEST(calibration_panel, of_1XF63X_adds_the_wake_up_reset) {
    MainForm form;
    select(form, "PIC16F636");
    expect_combo(form.Combo_POR_91X, kThreeBits, 4);
    expect_combo(form.Combo_LVD_91X, kThreeBits, 4);
    expect_combo(form.Combo_WUR_63X, {"000", "001", "010", "011", "100", "101", "110", "111"}, 0);
    expect_fcal(form.Combo_FCAL_91X);
}

TEST(calibration_panel, of_families_without_fields_fills_no_combo) {
    for (const char* name : {"PIC16F1939", "PIC16F777"}) {
        MainForm form;
        select(form, name);
        for (const auto* combo : {&form.Combo_FCAL, &form.Combo_POR, &form.Combo_BOR,
                                  &form.Combo_FCAL_91X, &form.Combo_POR_91X})
            EXPECT_TRUE(combo->Items.get().empty()) << name << " " << combo->name;
    }
}

TEST(calibration_panel, resets_the_four_id_fields) {
    MainForm form;
    form.Text_ID1.Text.set("0001");
    form.Text_ID4.Text.set("0004");
    select(form, "PIC16F887");
    for (const auto* id : {&form.Text_ID1, &form.Text_ID2, &form.Text_ID3, &form.Text_ID4})
        EXPECT_EQ(id->Text.get(), "3FFF") << id->name;
}

TEST(calibration_panel, keeps_the_factory_calibration_until_the_user_says_otherwise) {
    MainForm form;
    form.Chk_12F_CalibData_Select.Visible.set(false);
    select(form, "PIC16F887");
    EXPECT_TRUE(form.Chk_12F_CalibData_Select.Visible.get());
    EXPECT_TRUE(form.Chk_12F_CalibData_Select.Checked.get());
    EXPECT_FALSE(form.Combo_FCAL.Enabled.get());
    EXPECT_FALSE(form.Combo_BOR_91X.Enabled.get());
}

TEST(calibration_panel, locks_its_fields_while_the_box_is_checked) {
    MainForm form;
    const std::array<ComboBox*, 8> fields{
        &form.Combo_FCAL,    &form.Combo_POR,     &form.Combo_BOR,     &form.Combo_FCAL_91X,
        &form.Combo_POR_91X, &form.Combo_BOR_91X, &form.Combo_LVD_91X, &form.Combo_WUR_63X};
    for (const bool checked : {true, false, true}) {
        form.Chk_12F_CalibData_Select.Checked.set(checked);
        lock_calibration(form);
        for (const auto* field : fields) EXPECT_EQ(field->Enabled.get(), !checked) << field->name;
    }
}

TEST(calibration_panel, of_families_with_nothing_to_decide_shows_no_box_and_stays_locked) {
    for (const auto* panel : {&kPanel12F683, &kPanel16F1939, &kPanel16F7X7}) {
        MainForm form;
        form.Chk_12F_CalibData_Select.Visible.set(false);
        form.Chk_12F_CalibData_Select.Checked.set(false);
        show_panel(*panel, "PIC", form);
        EXPECT_FALSE(form.Chk_12F_CalibData_Select.Visible.get()) << panel->family;
        EXPECT_FALSE(form.Combo_BOR_91X.Enabled.get()) << panel->family;
        EXPECT_EQ(form.Text_ID1.Text.get(), "3FFF") << panel->family;
    }
}

}  // namespace
}  // namespace quillon::test
