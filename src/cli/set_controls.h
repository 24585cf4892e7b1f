// SPDX-License-Identifier: MIT
// --set: sets controls as a user would, before the operation.
//
// Selecting the device and loading the file reset the device's controls. So --set is applied after
// both, and the command line's values count. Only the controls for reading a file are set before it
// is loaded.
#pragma once

#include <optional>
#include <span>
#include <string>

#include "cli/options.h"
#include "run/run.h"

namespace quillon::cli {

// Returns what is wrong with the first bad setting, before any file is touched. Only the names and
// the form of the values are checked.
[[nodiscard]] std::optional<std::string> check_sets(Run& run, std::span<const NamedValue> sets);
// Sets HexUpperAddress and HexFileCheck.
void apply_reading_sets(Run& run, std::span<const NamedValue> sets);
// Applies all settings in the order given. Stops at the first one that this device can't have, and
// returns what is wrong.
[[nodiscard]] std::optional<std::string> apply_sets(Run& run, std::span<const NamedValue> sets);

}  // namespace quillon::cli
