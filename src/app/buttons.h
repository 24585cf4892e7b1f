// SPDX-License-Identifier: MIT
// Which controls of the main form can be used: around an operation, and by device.
#pragma once

#include <string_view>

#include "app/main_form.h"

namespace quillon {

// Sets Command_program's caption and enables the controls that only flash parts use.
void ApplyBlankSkip(std::string_view DeviceName, MainForm& form);

// Called at the start of every device operation: disables what would start or disturb another.
void LockButtons(MainForm& form);
// Enables them again; Cmd_Extend_Program stays disabled for one-time types.
void UnlockButtons(std::string_view PgmType, MainForm& form);
// Called at the end of a flow. In production mode (mnuLock) it enables three buttons, else all.
void release_buttons(std::string_view PgmType, MainForm& form);

}  // namespace quillon
