// SPDX-License-Identifier: MIT
// File names between the session's texts, which are UTF-8, and the host's paths.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace quillon {

std::filesystem::path path_of(std::string_view utf8);
std::string text_of(const std::filesystem::path& path);

}  // namespace quillon
