// SPDX-License-Identifier: MIT
// File names between the session's texts, which are UTF-8, and the host's paths.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace quillon {

std::filesystem::path path_of(std::string_view utf8);
std::string text_of(const std::filesystem::path& path);

// The existing file or folder of that name, without regard to the case of ASCII letters: command
// lines and history entries have lost theirs. A name that exists as it stands comes first, then the
// first match in the order of the names. Nothing where there is none.
std::optional<std::filesystem::path> find_ignoring_case(const std::filesystem::path& path);

}  // namespace quillon
