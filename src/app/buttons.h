// SPDX-License-Identifier: MIT
// Which controls of the main form can be used: around an operation, and by device.
#pragma once

#include <string_view>

#include "app/main_form.h"

namespace quillon {

// Sets Command_program's caption and the controls that flash parts only have.
void ApplyBlankSkip(std::string_view DeviceName, MainForm& form);

// Runs at the start of every device operation: what would start or disturb another is disabled.
void LockButtons(MainForm& form);
// Enables them again; Cmd_Extend_Program stays disabled for one-time types.
void UnlockButtons(std::string_view PgmType, MainForm& form);
// The end of a flow: in production mode (mnuLock) the three buttons of the line, else all.
void release_buttons(std::string_view PgmType, MainForm& form);

}  // namespace quillon
