// SPDX-License-Identifier: MIT
// Configuration words given as texts, carried into the memory image and its views.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "run/run.h"

namespace quillon::cli {

// Configuration word n as a whole, in hexadecimal, or one field by "FIELD:OPTION"; bits that are
// always 0 or 1 stay so. Gives what is wrong, where the word wasn't set.
[[nodiscard]] std::optional<std::string> set_config(Run& run, int n, std::string_view value);

}  // namespace quillon::cli
