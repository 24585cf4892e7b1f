// SPDX-License-Identifier: MIT
// The memory image as one JSON object.
#pragma once

#include <string>

#include "app/main_form.h"
#include "app/session.h"

namespace quillon::cli {

// Memories as hexadecimal text in the image's own byte order: two bytes a word or cell, for the
// PIC18 types one byte an EEPROM cell.
std::string dump(const Session& session, const MainForm& form);

}  // namespace quillon::cli
