// SPDX-License-Identifier: MIT
// Files that the program keeps for itself in the work folder.
//
// Somebody else may have put a link there by the name of a file that is about to be written: it is
// never followed, so that nothing outside the folder is written over.
#pragma once

#include <filesystem>
#include <string_view>

namespace quillon {

// Makes the file anew with that content. A file or a link of its name is removed first; a folder
// stays. False where that failed, which a caller may leave at that: none of these files is needed.
bool write_fresh(const std::filesystem::path& path, std::string_view content);

// Appends a line; the file is made where it is absent. False for a link, for anything else that is
// no file, and where not all of the line could be written: the file has its former length then.
[[nodiscard]] bool append_line(const std::filesystem::path& path, std::string_view line);

}  // namespace quillon
