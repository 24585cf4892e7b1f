// SPDX-License-Identifier: MIT
// Rotation of the log chain.
//
// The oldest file is first renamed to kAside and deleted last. Until all others have moved, every
// move can be undone. A crash on the way leaves one gap in the chain and a file kAside. With that
// file there, the next start undoes the moves and rotates again. Without it, the user made the gap,
// and it is filled with an empty file.
#include <system_error>
#include <utility>
#include <vector>

#include "app/operation_log.h"
#include "app/own_files.h"

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
        for (auto move = done_.rbegin(); move != done_.rend(); ++move)
            move_file(move->second, move->first);
    }

  private:
    const MoveFile& move_;
    std::vector<std::pair<fs::path, fs::path>> done_;
};

// False where a file can't be moved now. The moves made by then are right, and the next start
// continues from there. Rotation moves the current file last: if only that one is missing, all
// moves were complete.
bool take_back_interrupted(const fs::path& folder, const MoveFile& move) {
    std::error_code error;
    if (!fs::exists(folder / kAside, error)) return true;
    std::size_t gap = 1;
    while (gap < kLogFiles.size() && fs::exists(folder / kLogFiles[gap], error)) ++gap;
    if (gap == kLogFiles.size()) return fs::remove(folder / kAside, error);
    for (; gap + 1 < kLogFiles.size(); ++gap)
        if (!move(folder / kLogFiles[gap + 1], folder / kLogFiles[gap])) return false;
    return move(folder / kAside, folder / kLogFiles.back());
}

// False where a log's name belongs to something that isn't a file.
bool complete_chain(const fs::path& folder) {
    std::error_code error;
    for (const auto name : kLogFiles) {
        const fs::path path = folder / name;
        if (!fs::exists(path, error)) write_fresh(path, "");
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
    if (!take_back_interrupted(folder, move) || !complete_chain(folder)) return;
    std::error_code error;
    if (fs::file_size(folder / kLogFiles.front(), error) == 0 || error) return;
    Moves moves{move};
    if (shift(folder, moves))
        fs::remove(folder / kAside, error);
    else
        moves.undo();
}

}  // namespace quillon
