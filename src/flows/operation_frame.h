// SPDX-License-Identifier: MIT
// The frame that every operation with the board runs in: one at a time, buttons locked before the
// first byte, port closed and controls back whichever way it ends.
#pragma once

#include <functional>
#include <string_view>

#include "app/outcome.h"
#include "areas/context.h"
#include "families/family.h"
#include "parts/modules.h"

namespace quillon {

class OperationFrame {
  public:
    using Operation = std::function<Outcome()>;
    using FamilyOperation = std::function<Outcome(Family&)>;

    explicit OperationFrame(RunContext& context) : context_{context} {
        context.form.Command_stop.Enabled.set(false);
    }

    // Returns when the port is closed and the controls are back: nothing is thrown. A call while an
    // operation runs does nothing and returns Failed.
    Outcome run(const Operation& operation);
    // For use inside run(): an operation of its own, with an opening of its own, which closes the
    // port at its end.
    Outcome run_within(const Operation& operation);

    // For use inside run(): checks the device, makes its family, shows the status ("" for none)
    // and checks the board. A device without a family is refused before anything is sent.
    Outcome with_family(Module module, std::string_view status, const FamilyOperation& operation);
    // The selected device's module.
    Module module(Chain chain = Chain::Program) const;

    // The next wait or sleep of the running operation ends it.
    void stop();

    bool running() const { return running_; }
    // Counts the runs that have ended: the one that is writing hasn't failed yet.
    int failed_runs() const { return failed_runs_; }

  private:
    void open();
    void close_link();
    void give_controls_back();
    void report_lost_calibration();
    bool size_fits_wire() const;
    Outcome abandon(Abandoned::Reason reason);

    RunContext& context_;
    bool running_ = false;
    int failed_runs_ = 0;
};

}  // namespace quillon
