// SPDX-License-Identifier: MIT
// The 14-bit modules, a row each.
#pragma once

#include <span>

#include "areas/areas14_record.h"
#include "families/operation.h"
#include "parts/modules.h"

namespace quillon {

struct Module14 {
    Module module;
    Areas14Record areas;
    OperationRecord operation{};
};

std::span<const Module14> modules14();

}  // namespace quillon
