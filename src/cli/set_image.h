// SPDX-License-Identifier: MIT
// ID texts and configuration words given as texts, carried into the memory image and its views.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "app/run.h"

namespace quillon::cli {

// Text_ID: one digit for each ID word, four of them, eight for PIC18. The words get the form that a
// loaded file gives them. False for a text that isn't so many hexadecimal digits.
[[nodiscard]] bool set_id_digits(Run& run, std::string_view text);
// Text_ID1 to Text_ID4: one whole ID word of four digits, n from 1. The same for a bad text.
[[nodiscard]] bool set_id_word(Run& run, int n, std::string_view text);

// Configuration word n as a whole, in hexadecimal, or one field by "FIELD:OPTION"; bits that are
// always 0 or 1 stay so. Gives what is wrong, where the word wasn't set.
[[nodiscard]] std::optional<std::string> set_config(Run& run, int n, std::string_view value);

}  // namespace quillon::cli
