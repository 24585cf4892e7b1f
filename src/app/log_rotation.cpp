// SPDX-License-Identifier: MIT
// Rotation of the log chain.
//
// The oldest file steps aside first and goes last: until all others have found their new place, all
// that was there can be put back. A crash on the way leaves one gap, which the next start fills
// with an empty file.
#include <fstream>
#include <ranges>
#include <system_error>
#include <utility>
#include <vector>

#include "app/operation_log.h"

namespace quillon {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kAside = "LOG_OLD9.tmp";

class Moves {
  public:
    explicit Moves(const MoveFile& move) : move_{move} {}

    bool move(fs::path from, fs::path to) {
        if (!move_(from, to)) return false;
        done_.emplace_back(std::move(from), std::move(to));
        return true;
    }
    void undo() {
        for (const auto& [from, to] : done_ | std::views::reverse) move_file(to, from);
    }

  private:
    const MoveFile& move_;
    std::vector<std::pair<fs::path, fs::path>> done_;
};

// False where something that isn't a file stands in a log's place.
bool complete_chain(const fs::path& folder) {
    std::error_code error;
    for (const auto name : kLogFiles) {
        const fs::path path = folder / name;
        if (!fs::exists(path, error)) std::ofstream{path};
        if (!fs::is_regular_file(path, error)) return false;
    }
    return true;
}

bool shift(const fs::path& folder, Moves& moves) {
    if (!moves.move(folder / kLogFiles.back(), folder / kAside)) return false;
    for (std::size_t to = kLogFiles.size() - 1; to > 0; --to)
        if (!moves.move(folder / kLogFiles[to - 1], folder / kLogFiles[to])) return false;
    return true;
}

}  // namespace

bool move_file(const fs::path& from, const fs::path& to) {
    std::error_code error;
    fs::rename(from, to, error);
    return !error;
}

void rotate_log(const std::string& TempDir, const MoveFile& move) {
    const fs::path folder{TempDir};
    if (!complete_chain(folder)) return;
    std::error_code error;
    if (fs::file_size(folder / kLogFiles.front(), error) == 0 || error) return;
    Moves moves{move};
    if (shift(folder, moves))
        fs::remove(folder / kAside, error);
    else
        moves.undo();
}

}  // namespace quillon
