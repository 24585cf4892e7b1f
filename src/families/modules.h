// SPDX-License-Identifier: MIT
// The family modules, each a unit of its own.
#pragma once

#include <memory>

#include "families/context.h"
#include "families/family.h"

namespace quillon {

std::unique_ptr<Family> PIC16F877(RunContext& context);
std::unique_ptr<Family> PIC16F877A(RunContext& context);

}  // namespace quillon
