// SPDX-License-Identifier: MIT
// Looks names up one part at a time, so that folders match as files do.
#include "image/file_names.h"

#include <system_error>

#include "app/text.h"

namespace quillon {

namespace fs = std::filesystem;

namespace {

std::optional<fs::path> entry_of(const fs::path& folder, const fs::path& name) {
    std::error_code error;
    if (fs::exists(folder / name, error)) return folder / name;
    const std::string wanted = lower(text_of(name));
    std::optional<fs::path> found;
    // A relative name's first part is looked for in the current folder.
    const fs::path place = folder.empty() ? fs::path{"."} : folder;
    for (fs::directory_iterator at{place, error}, end; !error && at != end; at.increment(error)) {
        const fs::path entry = at->path().filename();
        if (lower(text_of(entry)) != wanted) continue;
        if (!found || entry < *found) found = entry;
    }
    if (!found) return std::nullopt;
    return folder / *found;
}

}  // namespace

fs::path path_of(std::string_view utf8) { return std::u8string{utf8.begin(), utf8.end()}; }

std::string text_of(const fs::path& path) {
    const auto utf8 = path.u8string();
    return {utf8.begin(), utf8.end()};
}

std::optional<fs::path> find_ignoring_case(const fs::path& path) {
    std::error_code error;
    if (path.empty()) return std::nullopt;
    if (fs::exists(path, error)) return path;
    fs::path found = path.root_path();
    for (const auto& part : path.relative_path()) {
        if (part.empty()) continue;
        const auto next = entry_of(found, part);
        if (!next) return std::nullopt;
        found = *next;
    }
    return found;
}

}  // namespace quillon
