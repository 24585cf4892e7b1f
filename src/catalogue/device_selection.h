// SPDX-License-Identifier: MIT
// Choosing a device: the main form becomes that device's panel.
#pragma once

#include <string_view>

#include "app/dialogs.h"
#include "app/extend_form.h"
#include "app/main_form.h"
#include "app/messages.h"
#include "app/session.h"
#include "app/settings.h"
#include "app/token.h"
#include "catalogue/buffer_commands.h"
#include "catalogue/catalogue.h"
#include "catalogue/config_model.h"
#include "catalogue/device_check.h"

namespace quillon {

struct DeviceGroup;

class DeviceSelection {
  public:
    DeviceSelection(Session& session, MainForm& form, BoardForm& board, ExtendForm& extend,
                    Settings& settings, Dialogs& dialogs, Messages& messages,
                    DeviceCheck& device_check, Catalogue& catalogue, ConfigModel& config,
                    BufferCommands& buffer);

    // What happens when Combo_device's choice is made, by the user or by an assignment. The image
    // of the former device is lost, even where the same device is chosen again.
    void Combo_device_Click();
    // Return was pressed after a text was typed into Combo_device: chooses the device that it
    // means, or shows why it means none. The selected device isn't chosen again, so that its image
    // is kept.
    void Combo_device_Typed(std::string_view typed);
    Token Mcu_Selected_Check() { return device_check_.Mcu_Selected_Check(); }
    void ClearDeviceView();
    // The user has checked or cleared the box: the calibration fields and the button
    // that writes them are locked or unlocked.
    void Chk_12F_CalibData_Select_Click();

  private:
    void load_record();
    std::string_view known_board() const;
    void show_firmware_verdict();
    void show_config_words();
    void reset_information_tabs();
    void show_group();
    void ask_power_order();

    Session& session_;
    MainForm& form_;
    BoardForm& board_;
    ExtendForm& extend_;
    Settings& settings_;
    Dialogs& dialogs_;
    Messages& messages_;
    DeviceCheck& device_check_;
    Catalogue& catalogue_;
    ConfigModel& config_;
    BufferCommands& buffer_;
    bool power_answered_ = false;  // the power question, for the device that is selected
};

}  // namespace quillon
