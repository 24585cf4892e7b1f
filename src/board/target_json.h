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

// The errors of the two below don't name the file.
TargetReading load_target(const std::filesystem::path& file);
// Replaces the file as a whole, so that an interrupted call leaves the old one. The error, "" if
// all went well.
std::string save_target(const SimulatedTarget& target, const std::filesystem::path& file);

}  // namespace quillon
