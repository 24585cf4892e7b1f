// SPDX-License-Identifier: MIT
// The operations behind the main form's buttons.
#pragma once

#include <string_view>

#include "app/outcome.h"
#include "areas/context.h"
#include "families/family.h"
#include "families/named_erase.h"
#include "flows/operation_frame.h"

namespace quillon {

// Each entry returns when the port is closed and the controls are back, whatever happened.
class Flows {
  public:
    Flows(RunContext& context, OperationFrame& frame)
        : context_{context}, frame_{frame}, erases_{context} {}

    Outcome Command_blank();
    Outcome Command_read();
    Outcome Command_Verify();
    Outcome Command_program();
    // The main form's two erase commands: by device name, for every device. They don't keep a
    // calibration word, so a device that has one asks first.
    Outcome mnuPgmErase_Click();
    Outcome mnuChipErase_Click();
    // The calibration word: read into Text_Calib_Data, written from there. NotServed for a device
    // that has none which can be read alone.
    Outcome Command1_Click();
    Outcome Command2_Click();
    // A click on the board's label: searches for the board, then closes the port.
    Outcome Label_FirmwareVersion_Click();
    // The stop button and Esc: the next wait or sleep of the operation that runs ends it.
    void Command_stop_Click() { frame_.stop(); }

    bool running() const { return frame_.running(); }
    int failed_runs() const { return frame_.failed_runs(); }

  private:
    Outcome main_button(Chain chain, Outcome (Family::*entry)());
    Outcome erase_command(std::string_view status, Token (NamedErase::*erase)());
    Outcome word_command(Outcome (Family::*entry)());
    bool may_lose_calibration();
    void advise_other_erase(bool known);

    RunContext& context_;
    OperationFrame& frame_;
    NamedErase erases_;
};

}  // namespace quillon
