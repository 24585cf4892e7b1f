// SPDX-License-Identifier: MIT
// The selected device's record as the facts from which a blank target is made.
#pragma once

#include "app/session.h"
#include "board/target_facts.h"

namespace quillon {

TargetFacts facts_of(const DeviceRecord& device);

}  // namespace quillon
