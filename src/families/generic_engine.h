// SPDX-License-Identifier: MIT
// One routine for each memory area and operation, by programming type and device name: what serves
// every device that no family claims, and the main form's erase commands for all.
#pragma once

#include <cstdint>
#include <string_view>

#include "app/token.h"
#include "areas/context.h"

namespace quillon {

class GenericEngine {
  public:
    explicit GenericEngine(RunContext& context) : context_{context} {}

    // OK or ER. A device for which no letters are known gets the power letter alone, and the wait
    // for its answer runs out.
    Token Pgm_Erase();
    // Checks device and board itself first; NG where either is missing. Releases code protection.
    Token Chip_Erase();

  private:
    bool erase(std::string_view letters, std::uint8_t mode);

    RunContext& context_;
};

}  // namespace quillon
