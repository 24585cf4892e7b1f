// SPDX-License-Identifier: MIT
// Sets configuration words, given as texts, in the memory image and its views.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "run/run.h"

namespace quillon::cli {

// Sets configuration word n: the whole word in hexadecimal, or one field as "FIELD:OPTION". Bits
// that are always 0 or 1 don't change. Returns what is wrong if the word wasn't set.
[[nodiscard]] std::optional<std::string> set_config(Run& run, int n, std::string_view value);

}  // namespace quillon::cli
