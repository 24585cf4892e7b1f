// SPDX-License-Identifier: MIT
// The guard of every command that works on a device: a device has to be selected.
#pragma once

#include "app/dialogs.h"
#include "app/main_form.h"
#include "app/messages.h"
#include "app/session.h"
#include "app/token.h"

namespace quillon {

class DeviceCheck {
  public:
    DeviceCheck(const Session& session, MainForm& form, Dialogs& dialogs, Messages& messages)
        : session_{session}, form_{form}, dialogs_{dialogs}, messages_{messages} {}

    // OK, or NG with a message, a box and the focus on Combo_device where no device is selected.
    Token Mcu_Selected_Check();

  private:
    const Session& session_;
    MainForm& form_;
    Dialogs& dialogs_;
    Messages& messages_;
};

}  // namespace quillon
