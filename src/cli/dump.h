// SPDX-License-Identifier: MIT
// The memory image as one JSON object.
#pragma once

#include <string>

#include "app/main_form.h"
#include "app/session.h"

namespace quillon::cli {

// Memories are hexadecimal text in the image's own byte order. A word or cell has two bytes, but an
// EEPROM cell of the PIC18 types has one.
std::string dump(const Session& session, const MainForm& form);

}  // namespace quillon::cli
