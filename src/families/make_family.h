// SPDX-License-Identifier: MIT
// From a module's name to its operations.
#pragma once

#include <memory>

#include "areas/context.h"
#include "families/family.h"
#include "parts/modules.h"

namespace quillon {

// The module's entries over the run's objects, or nothing for a module that no table holds.
std::unique_ptr<Family> make_family(Module module, RunContext& context);

}  // namespace quillon
