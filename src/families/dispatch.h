// SPDX-License-Identifier: MIT
// Which family module serves a device, by its name and the operation.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "families/context.h"
#include "families/family.h"

namespace quillon {

// The four chains differ in a few places, on purpose.
enum class Chain : std::uint8_t { Blank, Program, Read, Verify };

// Name of the module, "generic" for a device that no family claims.
std::string_view family_of(std::string_view device, Chain chain = Chain::Program);

// The module's entries, or nothing where the device has no module that serves it.
std::unique_ptr<Family> make_family(std::string_view device, Chain chain, RunContext& context);

}  // namespace quillon
