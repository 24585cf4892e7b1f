// SPDX-License-Identifier: MIT
// Brings device6.ini into memory as UTF-8.
//
// The file may be UTF-8, with or without a byte order mark, or the system's code page: one that
// isn't valid UTF-8 is taken as the latter.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "app/host.h"

namespace quillon {

// Nothing where the file isn't there, is a folder, or can't be read to its end.
std::optional<std::string> read_catalogue_file(const std::filesystem::path& path, const Host& host);

}  // namespace quillon
