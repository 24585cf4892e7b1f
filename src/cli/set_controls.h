// SPDX-License-Identifier: MIT
// --set: the controls as a user would have set them, before the operation.
//
// They are set when the device is selected and the file is loaded, since both put the device's
// controls back: what the command line asks for is what counts. Only what says how a file is to be
// read is set before it is.
#pragma once

#include <optional>
#include <span>
#include <string>

#include "cli/options.h"
#include "run/run.h"

namespace quillon::cli {

// What is wrong with the first bad one, judged by names and forms alone, before any file is
// touched.
[[nodiscard]] std::optional<std::string> check_sets(Run& run, std::span<const NamedValue> sets);
// Sets HexUpperAddress and HexFileCheck.
void apply_reading_sets(Run& run, std::span<const NamedValue> sets);
// Sets them all in the order given, up to the first that this device has no place for.
[[nodiscard]] std::optional<std::string> apply_sets(Run& run, std::span<const NamedValue> sets);

}  // namespace quillon::cli
