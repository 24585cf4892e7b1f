// SPDX-License-Identifier: MIT
// Erases that only the device's name decides: those of the devices that no family claims, and of
// the main form's erase commands for all.
#pragma once

#include <cstdint>
#include <string_view>

#include "app/token.h"
#include "areas/context.h"

namespace quillon {

// A device for which no letters are known gets the power letter alone, and the wait for its answer
// runs out: ER.
class NamedErase {
  public:
    explicit NamedErase(RunContext& context) : context_{context} {}

    // OK, ER.
    Token Pgm_Erase();
    // The same; Absent, with nothing sent and shown, for the devices that have no such memory.
    Token Eep_Erase();
    // Checks device and board itself first; NG where either is missing. Releases code protection.
    Token Chip_Erase();

    // True if there are letters for it.
    bool knows_Pgm_Erase() const;
    bool knows_Eep_Erase() const;
    bool knows_Chip_Erase() const;

  private:
    void note_calibration();
    bool erase(std::string_view letters, std::uint8_t mode);

    RunContext& context_;
};

}  // namespace quillon
