// SPDX-License-Identifier: MIT
// The target in the simulated board's socket: made from the selected device, or kept in a file.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "app/session.h"
#include "board/board.h"

namespace quillon::cli {

// The socket of one run. Both calls give what went wrong.
class SimulatedSocket {
  public:
    SimulatedSocket(SimulatedBoard& board, std::optional<std::filesystem::path> file)
        : board_{board}, file_{std::move(file)} {}

    // Puts in the file's target, whatever device is selected: it is the part that lies there. A
    // file that is absent is made, with a blank part of the selected device. A damaged one stays.
    [[nodiscard]] std::optional<std::string> insert(const Session& session);
    // Writes what has become of it.
    [[nodiscard]] std::optional<std::string> save() const;

  private:
    SimulatedBoard& board_;
    std::optional<std::filesystem::path> file_;
    bool inserted_ = false;
};

}  // namespace quillon::cli
