// SPDX-License-Identifier: MIT
// Replaces files whole or not at all, so that nobody reads a half-written one.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace quillon {

// Writes beside the file, flushes to the disk and renames. A link still leads to the file behind it
// afterwards, and that file keeps its permissions. A device or a pipe ("/dev/stdout"), which can't
// be replaced, is written to. A name that isn't valid UTF-8 is refused. Returns the reason where
// that failed; the old content is then unchanged.
[[nodiscard]] std::optional<std::string> write_whole(const std::filesystem::path& path,
                                                     std::string_view content);

}  // namespace quillon
