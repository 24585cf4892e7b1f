// SPDX-License-Identifier: MIT
// A target as JSON, the form in which it is kept between calls. It can be read and changed by hand.
//
// Words are hexadecimal texts. Program memory is an array of rows of 16 words, EEPROM an array of
// rows of 16 cells. Erased rows at the end may be left out. The device's facts are under "part".
// They are taken from the catalogue once, when the file is made.
#pragma once

#include <filesystem>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <string_view>

#include "board/target.h"

namespace quillon {

nlohmann::ordered_json to_json(const SimulatedTarget& target);

struct TargetReading {
    std::optional<SimulatedTarget> target;
    std::string error;  // one line, where there is no target
};

// Reads the text of a file. A target that is incomplete or contradicts itself is refused.
TargetReading read_target(std::string_view text);

// The error doesn't name the file. What is not a regular file, or is too large for a target, is
// refused unread.
TargetReading load_target(const std::filesystem::path& file);
// The text that read_target() reads back.
std::string target_text(const SimulatedTarget& target);

}  // namespace quillon
