// SPDX-License-Identifier: MIT
// frmDeviceSelect: which device is a HEX file of the command line for? Its state, and what it does;
// a window only shows it.
#pragma once

#include "app/controls.h"
#include "app/main_form.h"
#include "app/session.h"

namespace quillon {

// Visible from its load until it is hidden or unloaded.
struct DeviceSelectForm : Form {
    DeviceSelectForm() { Caption.set("マイコン選択サブウインドウ"); }

    ComboBox Combo_device{*this, "Combo_device"};
    Label Notice{*this, "Notice"};  // why OK has not been taken
    Button OKButton{*this, "OKButton", "OK"};
    Button CancelButton{*this, "CancelButton", "キャンセル"};

    int Left = 0;  // twips
    int Top = 0;
};

class DeviceSelectDialog {
  public:
    DeviceSelectDialog(DeviceSelectForm& form, Session& session, const MainForm& main_form)
        : form_{form}, session_{session}, main_form_{main_form} {}

    // True where the question is open. False where it is answered already: by the command line's
    // second operand, which has to be a device's exact name, or as there is no file.
    bool Form_Load();
    // Takes the device that the list's text means, chosen or typed. The question stays open, with a
    // notice, where the text means none.
    void OKButton_Click();
    // The close box too: the file isn't loaded.
    void CancelButton_Click();

  private:
    void fill();

    DeviceSelectForm& form_;
    Session& session_;
    const MainForm& main_form_;
};

}  // namespace quillon
