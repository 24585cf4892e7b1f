// SPDX-License-Identifier: MIT
#include "image/file_names.h"

namespace quillon {

namespace fs = std::filesystem;

fs::path path_of(std::string_view utf8) { return std::u8string{utf8.begin(), utf8.end()}; }

std::string text_of(const fs::path& path) {
    const auto utf8 = path.u8string();
    return {utf8.begin(), utf8.end()};
}

}  // namespace quillon
