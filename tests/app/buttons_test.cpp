// SPDX-License-Identifier: MIT
#include "app/buttons.h"

#include <gtest/gtest.h>

#include <array>
#include <set>
#include <string>
#include <variant>

namespace quillon {
namespace {

constexpr std::string_view kProgram = "プログラム(&P)";
constexpr std::string_view kSkipping = "ﾌﾞﾗﾝｸﾁｪｯｸ ｽｷｯﾌﾟ\r\nプログラム(&P)";

const std::set<std::string> kLocked{
    "Text_ID",
    "Command_program",
    "Command_read",
    "Command_Verify",
    "Command_blank",
    "Cmd_Extend_Program",
    "Cmd_open",
    "Cmd_save",
    "Command_com",
    "SSTab_Config",
    "SSTab_MCU_Information",
    "Combo_device",
    "file",
    "mnuAsmC",
    "mnuRELOAD",
    "mnuASMwithRELOAD",
    "mnuAsmReloadProgram",
    "mnuHelp",
    "mnuPcBufferMemoryClear",
};

std::set<std::string> disabled(const MainForm& form) {
    std::set<std::string> names;
    for (const auto& [name, control] : form.controls())
        if (!std::visit([](const auto* c) { return c->Enabled.get(); }, control))
            names.insert(name);
    return names;
}

class ApplyBlankSkip_ : public testing::Test {
  protected:
    MainForm form;
};

TEST_F(ApplyBlankSkip_, is_for_flash_parts_only) {
    for (const auto* name : {"PIC12F675", "PIC16F877A", "ZQ-LDR412", "PIC10F200", "PIC18F2550"}) {
        ApplyBlankSkip(name, form);
        EXPECT_TRUE(form.mnuBlankSkip.Enabled.get()) << name;
        EXPECT_TRUE(form.Cmd_Extend_Program.Enabled.get()) << name;
    }
    for (const auto* name :
         {"PIC16C84", "PIC12C508", "PIC18C242", "PIC16LF1823", "pic16f877", ""}) {
        ApplyBlankSkip(name, form);
        EXPECT_FALSE(form.mnuBlankSkip.Enabled.get()) << name;
        EXPECT_FALSE(form.Cmd_Extend_Program.Enabled.get()) << name;
    }
}

TEST_F(ApplyBlankSkip_, says_on_the_button_that_the_check_is_skipped) {
    form.mnuBlankSkip.Checked.set(true);
    ApplyBlankSkip("PIC16F877A", form);
    EXPECT_EQ(form.Command_program.Caption.get(), kSkipping);
    form.mnuBlankSkip.Checked.set(false);
    ApplyBlankSkip("PIC16F877A", form);
    EXPECT_EQ(form.Command_program.Caption.get(), kProgram);
}

TEST_F(ApplyBlankSkip_, skips_nothing_on_a_one_time_part_and_keeps_the_check_mark) {
    form.mnuBlankSkip.Checked.set(true);
    ApplyBlankSkip("PIC16C74", form);
    EXPECT_EQ(form.Command_program.Caption.get(), kProgram);
    EXPECT_TRUE(form.mnuBlankSkip.Checked.get());
}

TEST(LockButtons, disables_exactly_what_would_start_or_disturb_an_operation) {
    MainForm form;
    LockButtons(form);
    EXPECT_EQ(disabled(form), kLocked);
}

TEST(UnlockButtons, enables_them_again) {
    MainForm form;
    LockButtons(form);
    UnlockButtons("FLASH8", form);
    EXPECT_EQ(disabled(form), std::set<std::string>{});
}

TEST(UnlockButtons, leaves_the_area_operations_disabled_for_one_time_types) {
    for (const auto* type :
         {"5X_28", "5X_18", "12C5", "12C6", "EPROM", "EPROM2", "18C_00", "18C_01"}) {
        MainForm form;
        LockButtons(form);
        UnlockButtons(type, form);
        EXPECT_EQ(disabled(form), std::set<std::string>{"Cmd_Extend_Program"}) << type;
    }
}

// The list has "5X_28" where the catalogue has "5X28".
TEST(UnlockButtons, enables_the_area_operations_for_the_catalogues_spelling_of_5X28) {
    MainForm form;
    LockButtons(form);
    UnlockButtons("5X28", form);
    EXPECT_TRUE(form.Cmd_Extend_Program.Enabled.get());
}

TEST(release_buttons, enables_three_buttons_only_in_production_mode) {
    MainForm form;
    form.mnuLock.Checked.set(true);
    LockButtons(form);
    release_buttons("FLASH8", form);
    auto expected = kLocked;
    for (const auto* name : {"Command_program", "Command_blank", "Command_Verify"})
        expected.erase(name);
    EXPECT_EQ(disabled(form), expected);
}

TEST(release_buttons, enables_all_otherwise) {
    MainForm form;
    LockButtons(form);
    release_buttons("FLASH8", form);
    EXPECT_EQ(disabled(form), std::set<std::string>{});
}

}  // namespace
}  // namespace quillon
