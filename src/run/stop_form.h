// SPDX-License-Identifier: MIT
// frmStop: the question before the window is closed in the middle of an operation.
//
// The operation continues behind the question. If it paused, a wait would exceed its limit, and a
// slow answer would spoil the part that is being written.
#pragma once

#include "app/controls.h"
#include "app/main_form.h"
#include "flows/flows.h"

namespace quillon {

struct StopForm : Form {
    StopForm() { Caption.set("Quillon"); }

    Label Label1{*this, "Label1", "書込み中です。中断しますか？"};
    Button cmdCancel{*this, "cmdCancel", "いいえ(&N)"};  // every other way out means this
    Button cmdOK{*this, "cmdOK", "はい(&Y)"};
    Signal<> Confirmed;  // the user wants the operation given up and the window closed
};

class StopDialog {
  public:
    StopDialog(StopForm& form, MainForm& main_form, const Flows& flows);

    // True where no operation runs. Else the question comes up, and the window stays for now.
    [[nodiscard]] bool may_close();
    void cmdOK_Click();
    void cmdCancel_Click();

  private:
    StopForm& form_;
    const Flows& flows_;
    Connection ended_;
};

}  // namespace quillon
