// SPDX-License-Identifier: MIT
// Reads device6.ini as UTF-8.
//
// The file may be UTF-8, with or without a byte order mark, or in the system's code page. A file
// that isn't valid UTF-8 is converted from the code page.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "app/host.h"

namespace quillon {

// Nothing where the file isn't there, is a folder, or can't be read to its end.
std::optional<std::string> read_catalogue_file(const std::filesystem::path& path, const Host& host);

}  // namespace quillon
