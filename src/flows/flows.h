// SPDX-License-Identifier: MIT
// The operations behind the main form's buttons: precondition, link check, the family or the
// generic engine, and the closing that every path runs.
#pragma once

#include <string_view>

#include "app/outcome.h"
#include "areas/context.h"
#include "families/family.h"
#include "families/generic_engine.h"
#include "families/make_family.h"

namespace quillon {

// One operation at a time. Each entry returns when the port is closed and the controls are back,
// whatever happened: nothing is thrown. A call while another one runs does nothing and returns
// Failed.
class Flows {
  public:
    explicit Flows(RunContext& context) : context_{context}, engine_{context} {
        context.form.Command_stop.Enabled.set(false);
    }

    Outcome Command_blank();
    Outcome Command_read();
    Outcome Command_Verify();
    Outcome Command_program();
    // The main form's two erase commands: the generic engine's, for every device.
    Outcome mnuPgmErase_Click();
    Outcome mnuChipErase_Click();
    // A click on the board's label: searches for the board, then closes the port.
    Outcome Label_FirmwareVersion_Click();
    // The stop button and Esc: the next wait or sleep of the operation that runs ends it.
    void Command_stop_Click();

    bool running() const { return running_; }
    // Counts the runs that have ended: the one that is writing hasn't failed yet.
    int failed_runs() const { return failed_runs_; }

  private:
    template <typename Operation>
    Outcome run(Operation operation);
    Outcome main_button(Chain chain, Outcome (Family::*entry)());
    Outcome erase_command(std::string_view status, Token (GenericEngine::*erase)());
    void open();
    void close();
    void give_controls_back();
    bool size_fits_wire() const;
    Outcome abandon(Abandoned::Reason reason);

    RunContext& context_;
    GenericEngine engine_;
    bool running_ = false;
    int failed_runs_ = 0;
};

}  // namespace quillon
