// SPDX-License-Identifier: MIT
// Files and folders as start-up needs them: found without regard to case, tested, made.
//
// The command line is upper-cased before its path is used, so a name is looked up by its letters
// alone where the file system distinguishes cases. Only ASCII letters have cases here.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "app/dialogs.h"

namespace quillon {

inline constexpr char kSeparator = static_cast<char>(std::filesystem::path::preferred_separator);

// The path as it is spelt on the disk: itself where it exists, else the first (in alphabetical
// order) whose names differ by case only. "\" separates folders as well. Empty where there is none.
std::filesystem::path on_disk(const std::filesystem::path& path);

// True for a file that can be opened for reading.
bool FileExists(const std::filesystem::path& path);
// True for a file that can be read but not written: its attribute says so, or the system does.
bool is_read_only(const std::filesystem::path& path);

// True where a file can be made and filled in the folder. Leaves nothing behind.
bool takes_files(const std::filesystem::path& folder);

enum class Ask : bool { No, Yes };
// Makes a folder with its parents; true where it exists afterwards. No folder whose path begins
// with "A" is made. Appends a separator to `path` where the parents had to be made.
bool MakeFolder(std::string& path, Ask ask, Dialogs& dialogs);

// The text with a separator at its end.
std::string with_separator(std::string path);
// Everything before the last separator of either kind, empty where there is none.
std::string folder_of(std::string_view path);

}  // namespace quillon
