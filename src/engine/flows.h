// SPDX-License-Identifier: MIT
// The operations behind the main form's buttons: precondition, link check, the family or the
// generic engine, and the closing that every path runs.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "app/session.h"

namespace quillon {

struct RunContext;

// What became of an operation, beyond the words in the session: the command line's exit status.
enum class Outcome : std::uint8_t {
    Success,
    Failed,     // it ran, and its verdict is bad: not blank, mismatch, write failed
    NoDevice,   // none selected
    NoBoard,    // the board wasn't found, or the port can't be opened
    Cancelled,  // by an answer
    GivenUp,    // the user closed, interrupted, or the deadline passed
    PortLost,   // the port vanished under it
};

class Flows {
  public:
    explicit Flows(RunContext& context);
    ~Flows();

    Outcome Command_blank();
    Outcome Command_read();
    Outcome Command_Verify();
    Outcome Command_program();
    Outcome mnuPgmErase_Click();
    Outcome mnuChipErase_Click();
    // A click on the board's label: searches the board and lets it go again.
    Outcome Label_FirmwareVersion_Click();

    bool running() const { return running_; }

  private:
    Outcome run(const std::function<Outcome()>& operation);

    RunContext& context_;
    bool running_ = false;
};

}  // namespace quillon
