// SPDX-License-Identifier: MIT
// What a family of devices offers to the flows: whole operations, each from its first status line
// to its log line, and the operations on a single area. The caller has locked the buttons and
// checked the board; it closes the port and gives the controls back afterwards.
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

    // The whole chip with its protection; the program side; EEPROM. Each shows the lines of its
    // steps, and none shows a verdict.
    virtual Outcome Erase_All() = 0;
    virtual Outcome Pgm_Erase() = 0;
    virtual Outcome Eep_Erase() = 0;
    // Program memory and configuration into the image; EEPROM into the image.
    virtual Outcome Read_Pgm() = 0;
    virtual Outcome Read_Eep() = 0;

    // The calibration word alone: from the device into Text_Calib_Data, and from there into the
    // device. Failed, with nothing sent, for a family that has no such word.
    virtual Outcome Word_Read() = 0;
    virtual Outcome Word_Write() = 0;
};

}  // namespace quillon
