// SPDX-License-Identifier: MIT
// The device group table, row by row, from the controls of a selection.
#include "catalogue/device_groups.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "catalogue/bench.h"
#include "parts/device_traits.h"

namespace quillon::test {
namespace {

using Names = std::vector<std::string>;

// The columns of a row: BOR, POR, FCAL, LVD, WUR, ID words, FCAL etc.
struct Row {
    Names devices;
    std::array<bool, 7> shown;
    const char* panel;
    bool power_question;
};

const std::vector<Row>& rows() {
    static const std::vector<Row> kRows{
        {{"PIC12F1822", "PIC12LF1822", "PIC16F1823", "PIC16LF1823", "PIC16F1824", "PIC16LF1824",
          "PIC16F1825", "PIC16LF1825", "PIC16F1828", "PIC16LF1828", "PIC16F1829", "PIC16LF1829",
          "PIC16F1933", "PIC16LF1933", "PIC16F1934", "PIC16LF1934", "PIC16F1936", "PIC16LF1936",
          "PIC16F1937", "PIC16LF1937", "PIC16F1938", "PIC16LF1938", "PIC16F1939", "PIC16LF1939"},
         {false, false, false, false, false, true, false},
         "16F1939",
         true},
        {{"PIC16F882", "PIC16F883", "PIC16F884", "PIC16F886", "PIC16F887", "ZQ-LDR418"},
         {false, false, false, false, false, true, true},
         "16F88X",
         true},
        {{"PIC16F913", "PIC16F914", "PIC16F916", "PIC16F917", "PIC16F946"},
         {true, true, true, true, false, true, false},
         "16F91X",
         true},
        {{"PIC16F631", "PIC16F677", "PIC16F684", "PIC16F685", "PIC16F687", "PIC16F688", "PIC16F689",
          "PIC16F690"},
         {true, true, true, false, false, true, false},
         "16F6XX",
         true},
        {{"PIC12F635", "PIC16F636", "PIC16F639"},
         {true, true, true, true, true, true, false},
         "1XF63X",
         true},
        {{"PIC12F609", "PIC12F615", "PIC16F610", "PIC16F616", "PIC12HV609", "PIC12HV615",
          "PIC16HV610", "PIC16HV616"},
         {false, false, true, false, false, true, false},
         "12F609",
         true},
        {{"PIC16F785", "PIC16HV785"},
         {false, false, false, false, false, true, false},
         "16F785",
         true},
        {{"PIC16F716"}, {false, false, false, false, false, true, false}, "16F716", false},
        {{"PIC18F13K50", "PIC18F14K50", "PIC18LF13K50", "PIC18LF14K50"},
         {false, false, false, false, false, false, false},
         nullptr,
         false},
        {{"PIC16F877", "PIC12F683", "PIC16F1826", "PIC16F83", "ZQ-LDR412", "PIC16F88", "pic16f887"},
         {false, false, false, false, false, false, false},
         nullptr,
         false},
    };
    return kRows;
}

std::vector<Control*> controls_of(MainForm& form, std::size_t column) {
    switch (column) {
        case 0:
            return {&form.Combo_BOR_91X};
        case 1:
            return {&form.Combo_POR_91X};
        case 2:
            return {&form.Combo_FCAL_91X};
        case 3:
            return {&form.Combo_LVD_91X};
        case 4:
            return {&form.Combo_WUR_63X};
        case 5:
            return {&form.Text_ID1,   &form.Text_ID2,   &form.Text_ID3,   &form.Text_ID4,
                    &form.Label10[0], &form.Label10[1], &form.Label10[2], &form.Label10[3]};
        default:
            return {&form.Combo_FCAL, &form.Combo_BOR,  &form.Combo_POR,
                    &form.Label11[0], &form.Label11[1], &form.Label11[2]};
    }
}

TEST(device_groups, show_the_controls_of_their_row) {
    for (const Row& row : rows())
        for (const auto& name : row.devices)
            for (const bool before : {false, true}) {
                MainForm form;
                for (std::size_t column = 0; column < 7; ++column)
                    for (auto* control : controls_of(form, column)) control->Visible.set(before);
                const DeviceGroup& group = group_of(name);
                ASSERT_TRUE(group.controls) << name;
                show_controls(*group.controls, form);
                for (std::size_t column = 0; column < 7; ++column)
                    for (const auto* control : controls_of(form, column))
                        EXPECT_EQ(control->Visible.get(), row.shown[column])
                            << name << " " << control->name;
            }
}

TEST(device_groups, have_the_panel_and_the_question_of_their_row) {
    for (const Row& row : rows())
        for (const auto& name : row.devices) {
            const DeviceGroup& group = group_of(name);
            EXPECT_EQ(group.panel == nullptr, row.panel == nullptr) << name;
            if (group.panel != nullptr && row.panel != nullptr) {
                EXPECT_EQ(group.panel->family, row.panel) << name;
            }
            EXPECT_EQ(group.power_question, row.power_question) << name;
        }
}

TEST(device_groups, of_the_16F7X7_leave_every_control_as_it_was) {
    for (const char* name : {"PIC16F737", "PIC16F747", "PIC16F767", "PIC16F777"}) {
        const DeviceGroup& group = group_of(name);
        EXPECT_FALSE(group.controls) << name;
        ASSERT_NE(group.panel, nullptr) << name;
        EXPECT_EQ(group.panel->family, "16F7X7");
        EXPECT_FALSE(group.power_question);
    }
}

TEST(device_groups, with_four_id_boxes_are_those_whose_id_is_entered_as_words) {
    for (const auto& row : rows())
        for (const auto& name : row.devices)
            EXPECT_EQ(group_of(name).controls->id_words, has_four_word_id(name)) << name;
}

TEST(device_groups, end_in_one_for_all_others) {
    EXPECT_TRUE(device_groups().back().modules.empty());
    EXPECT_EQ(&group_of("PIC16F84A"), &device_groups().back());
    EXPECT_EQ(&group_of(""), &device_groups().back());
}

}  // namespace
}  // namespace quillon::test
