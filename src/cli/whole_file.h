// SPDX-License-Identifier: MIT
// Files that are written whole or not at all: a script never finds half a dump.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace quillon::cli {

// Writes beside the file and renames. Gives the reason where that failed; what stood there stands.
[[nodiscard]] std::optional<std::string> write_whole(const std::filesystem::path& path,
                                                     std::string_view content);

}  // namespace quillon::cli
