// SPDX-License-Identifier: MIT
// frmDeviceSelect asks which device a HEX file of the command line is for. The form's state and
// behaviour are here; a window only shows them.
#pragma once

#include "app/controls.h"
#include "app/main_form.h"
#include "app/session.h"

namespace quillon {

// Visible from its load until it is hidden or unloaded.
struct DeviceSelectForm : Form {
    DeviceSelectForm() { Caption.set("マイコン選択サブウインドウ"); }

    ComboBox Combo_device{*this, "Combo_device"};
    Label Notice{*this, "Notice"};  // why OK was not accepted
    Button OKButton{*this, "OKButton", "OK"};
    Button CancelButton{*this, "CancelButton", "キャンセル"};

    int Left = 0;  // twips
    int Top = 0;
};

class DeviceSelectDialog {
  public:
    DeviceSelectDialog(DeviceSelectForm& form, Session& session, const MainForm& main_form)
        : form_{form}, session_{session}, main_form_{main_form} {}

    // True if the question has to be asked. False if the command line's second operand is a
    // device's exact name, or if there is no file.
    bool Form_Load();
    // Takes the device that the list's text means, chosen or typed. If it means none, the question
    // stays open with a notice.
    void OKButton_Click();
    // Also called by the close box: the file isn't loaded.
    void CancelButton_Click();

  private:
    void fill();

    DeviceSelectForm& form_;
    Session& session_;
    const MainForm& main_form_;
};

}  // namespace quillon
