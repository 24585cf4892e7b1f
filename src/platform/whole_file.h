// SPDX-License-Identifier: MIT
// Files that are replaced whole or not at all: nobody ever finds half of one.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace quillon {

// Writes beside the file, flushes to the disk and renames; a link keeps leading to the file behind
// it, and that file's permissions stay. A name that isn't valid UTF-8 is refused. A device or a
// pipe ("/dev/stdout"), which can't be replaced, is written to. Gives the reason where that failed;
// what stood there stands.
[[nodiscard]] std::optional<std::string> write_whole(const std::filesystem::path& path,
                                                     std::string_view content);

}  // namespace quillon
