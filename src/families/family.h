// SPDX-License-Identifier: MIT
// What a family of devices offers to the flows: whole operations, each from its first status line
// to its log line. The caller has locked the buttons and checked the board; it closes the port and
// gives the controls back afterwards.
#pragma once

#include "app/outcome.h"

namespace quillon {

class Family {
  public:
    virtual ~Family() = default;

    virtual Outcome Blank_All() = 0;
    virtual Outcome Program_All() = 0;
    virtual Outcome Read_All() = 0;
    virtual Outcome Verify_All() = 0;

    // Program memory and configuration only; EEPROM only. Both close the link.
    virtual Outcome Pgm_Reload() = 0;
    virtual Outcome Eep_Reload() = 0;
};

}  // namespace quillon
