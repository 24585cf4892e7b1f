// SPDX-License-Identifier: MIT
#include "app/folders.h"

#include <fmt/format.h>

#include <algorithm>
#include <fstream>
#include <system_error>
#include <vector>

#include "app/folders_texts.h"
#include "app/own_files.h"
#include "app/text.h"

namespace quillon {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kSeparators = "/\\";

// The names in a folder that equal `name` when case is ignored, the exact one first.
std::vector<fs::path> candidates(const fs::path& folder, const fs::path& name) {
    std::error_code error;
    std::vector<fs::path> found;
    const std::string wanted = upper(name.string());
    const fs::path searched = folder.empty() ? fs::path{"."} : folder;
    for (fs::directory_iterator entry{searched, error}, end; !error && entry != end;
         entry.increment(error)) {
        const fs::path there = entry->path().filename();
        if (there != name && upper(there.string()) == wanted) found.push_back(there);
    }
    std::ranges::sort(found);
    // The exact name is tried first, and also where the folder may be entered but not listed.
    found.insert(found.begin(), name);
    return found;
}

// Several folders may differ by case only: each is tried until the rest of the path is found.
fs::path find_from(const fs::path& folder, fs::path::iterator part, fs::path::iterator end) {
    std::error_code error;
    if (part == end) return folder;
    const auto next = std::next(part);
    // An empty last part is the separator at the end: only a folder has one.
    if (part->empty()) return fs::is_directory(folder, error) ? folder / "" : fs::path{};
    for (const auto& name : candidates(folder, *part)) {
        const fs::path path = folder / name;
        if (!fs::exists(path, error)) continue;
        if (auto found = find_from(path, next, end); !found.empty()) return found;
    }
    return {};
}

fs::path find_ignoring_case_of(const fs::path& path) {
    const fs::path relative = path.relative_path();
    return find_from(path.root_path(), relative.begin(), relative.end());
}

bool create(const fs::path& path) {
    std::error_code error;
    return fs::create_directory(path, error) || fs::is_directory(path, error);
}

void create_with_parents(const std::string& path) {
    for (auto at = path.find_first_of(kSeparators); at != std::string::npos;
         at = path.find_first_of(kSeparators, at + 1))
        create(path.substr(0, at + 1));
}

}  // namespace

fs::path on_disk(const fs::path& path) {
    std::error_code error;
    if (path.empty() || fs::exists(path, error)) return path;
    if (auto found = find_ignoring_case_of(path); !found.empty()) return found;
    const std::string slashes = replace_all(path.string(), "\\", "/");
    return slashes == path.string() ? fs::path{} : find_ignoring_case_of(slashes);
}

bool FileExists(const fs::path& path) {
    std::error_code error;
    const fs::path there = on_disk(path);
    return fs::is_regular_file(there, error) && std::ifstream{there}.is_open();
}

bool is_read_only(const fs::path& name) {
    if (!FileExists(name)) return false;
    std::error_code error;
    const fs::path path = on_disk(name);
    constexpr auto kAnyWrite =
        fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    const auto permissions = fs::status(path, error).permissions();
    if ((permissions & kAnyWrite) == fs::perms::none) return true;
    return !std::ofstream{path, std::ios::app}.is_open();
}

bool takes_files(const fs::path& folder) {
    const fs::path probe = folder / "QUILLON_WRITE_TEST.tmp";
    std::error_code error;
    if (fs::is_regular_file(fs::symlink_status(probe, error))) return !is_read_only(probe);
    const bool taken = write_fresh(probe, "x");
    fs::remove(probe, error);
    return taken;
}

bool MakeFolder(std::string& path, Ask ask, Dialogs& dialogs) {
    std::error_code error;
    if (fs::is_directory(path, error)) return true;
    if (path.starts_with('A')) return false;  // the letter of a diskette drive
    if (ask == Ask::Yes && dialogs.box({.title = std::string{folders_text::kMakeTitle},
                                        .text = fmt::format(folders_text::kMake, printable(path)),
                                        .icon = BoxIcon::Question,
                                        .buttons = BoxButtons::YesNo,
                                        .default_answer = BoxAnswer::Yes}) != BoxAnswer::Yes)
        return false;
    if (create(path)) return true;

    path = with_separator(path);
    create_with_parents(path);
    if (fs::is_directory(path, error)) return true;
    if (ask == Ask::Yes)
        dialogs.box({.title = std::string{folders_text::kFailedTitle},
                     .text = fmt::format(folders_text::kFailed, printable(path)),
                     .icon = BoxIcon::Warning});
    return false;
}

std::string with_separator(std::string path) {
    if (path.empty() || kSeparators.find(path.back()) == std::string_view::npos) path += kSeparator;
    return path;
}

std::string folder_of(std::string_view path) {
    const auto separator = path.find_last_of(kSeparators);
    return separator == std::string_view::npos ? "" : std::string{path.substr(0, separator)};
}

}  // namespace quillon
