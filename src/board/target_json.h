// SPDX-License-Identifier: MIT
// A target as JSON: the form in which it is kept between calls, to be read and changed by hand.
//
// Words are hexadecimal texts. Program memory is an array of rows of 16 words, EEPROM one of rows
// of 16 cells, an erased row at the end may be left out. What a reader needs of the device's facts
// is under "part"; it is written from the catalogue once, when the file is made.
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

// Text of a file; nothing but a whole and sound target is taken.
TargetReading read_target(std::string_view text);

// The error doesn't name the file. What is no file, or too large for a target, isn't even read.
TargetReading load_target(const std::filesystem::path& file);
// The text of such a file.
std::string target_text(const SimulatedTarget& target);

}  // namespace quillon
