// SPDX-License-Identifier: MIT
// Files that the program keeps for itself in the work folder.
//
// Another user may have put a link there under the name of such a file. A link is never followed,
// so that nothing outside the folder is overwritten.
#pragma once

#include <filesystem>
#include <string_view>

namespace quillon {

// Makes the file anew with that content. A file or a link of its name is removed first; a folder
// stays. False if that failed. A caller may ignore it: none of these files is needed.
bool write_fresh(const std::filesystem::path& path, std::string_view content);

// Appends a line; the file is made where it is absent. False for a link, for anything else that
// isn't a regular file, and if the line couldn't be written whole: the file then has its former
// length.
[[nodiscard]] bool append_line(const std::filesystem::path& path, std::string_view line);

}  // namespace quillon
