// SPDX-License-Identifier: MIT
#include "app/buttons.h"

#include <algorithm>
#include <array>

#include "parts/device_traits.h"

namespace quillon {

namespace {

namespace text {
constexpr std::string_view kProgram = "プログラム(&P)";
constexpr std::string_view kProgramSkipping = "ﾌﾞﾗﾝｸﾁｪｯｸ ｽｷｯﾌﾟ\r\nプログラム(&P)";
}  // namespace text

// Only this list has the spellings "5X_28" and "5X_18"; a catalogue has "5X28" and "5X18".
constexpr std::array<std::string_view, 8> kNoAreaOperations{
    "5X_28", "5X_18", "12C5", "12C6", "EPROM", "EPROM2", "18C_00", "18C_01",
};

void enable_all(MainForm& form, bool enabled) {
    const std::array<Control*, 19> controls{
        &form.Text_ID,
        &form.Command_program,
        &form.Command_read,
        &form.Command_Verify,
        &form.Command_blank,
        &form.Cmd_Extend_Program,
        &form.Cmd_open,
        &form.Cmd_save,
        &form.Command_com,
        &form.SSTab_Config,
        &form.SSTab_MCU_Information,
        &form.Combo_device,
        &form.file,
        &form.mnuAsmC,
        &form.mnuRELOAD,
        &form.mnuASMwithRELOAD,
        &form.mnuAsmReloadProgram,
        &form.mnuHelp,
        &form.mnuPcBufferMemoryClear,
    };
    for (auto* control : controls) control->Enabled.set(enabled);
}

}  // namespace

void ApplyBlankSkip(std::string_view DeviceName, MainForm& form) {
    // The check may be skipped on flash parts only: a one-time part that isn't blank is lost.
    const bool flash = has_flash_name(DeviceName);
    const bool skip = flash && form.mnuBlankSkip.Checked.get();
    form.mnuBlankSkip.Enabled.set(flash);
    form.Cmd_Extend_Program.Enabled.set(flash);
    form.Command_program.Caption.set(std::string{skip ? text::kProgramSkipping : text::kProgram});
}

void LockButtons(MainForm& form) { enable_all(form, false); }

void UnlockButtons(std::string_view PgmType, MainForm& form) {
    enable_all(form, true);
    if (std::ranges::find(kNoAreaOperations, PgmType) != kNoAreaOperations.end())
        form.Cmd_Extend_Program.Enabled.set(false);
}

void release_buttons(std::string_view PgmType, MainForm& form) {
    if (!form.mnuLock.Checked.get()) {
        UnlockButtons(PgmType, form);
        return;
    }
    form.Command_program.Enabled.set(true);
    form.Command_blank.Enabled.set(true);
    form.Command_Verify.Enabled.set(true);
}

}  // namespace quillon
