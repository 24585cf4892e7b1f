// SPDX-License-Identifier: MIT
#include "run/stop_form.h"

namespace quillon {

// The end of the operation hides the question: nothing is left to ask, and the result has to be
// seen.
StopDialog::StopDialog(StopForm& form, MainForm& main_form, const Flows& flows)
    : form_{form}, flows_{flows}, ended_{main_form.Command_stop.Enabled.observe([this](bool on) {
          if (!on) form_.Visible.set(false);
      })} {}

bool StopDialog::may_close() {
    if (!flows_.running()) return true;
    form_.Visible.set(true);
    return false;
}

void StopDialog::cmdOK_Click() {
    form_.Visible.set(false);
    form_.Confirmed.emit();
}

void StopDialog::cmdCancel_Click() { form_.Visible.set(false); }

}  // namespace quillon
