// SPDX-License-Identifier: MIT
// The devices that no family claims: a row for each programming type, by core.
#pragma once

#include <memory>
#include <span>

#include "areas/areas12_record.h"
#include "areas/areas14_record.h"
#include "areas/context.h"
#include "families/family.h"
#include "families/operation.h"
#include "parts/pgm_type.h"

namespace quillon {

struct Generic14 {
    ProgrammingType type;
    Areas14Record areas;
    OperationRecord operation;
};

struct Generic12 {
    ProgrammingType type;
    Areas12Record areas;
    OperationRecord operation;
};

std::span<const Generic14> generic14();
std::span<const Generic12> generic12();

// The operations of the selected device's type, or nothing for a type that only families serve.
std::unique_ptr<Family> make_generic(RunContext& context);

}  // namespace quillon
