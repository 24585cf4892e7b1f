// SPDX-License-Identifier: MIT
// The target in the simulated board's socket: made for the selected device, or kept in a file.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "app/session.h"
#include "board/board.h"

namespace quillon::cli {

// The socket of one run. Both calls return what went wrong.
class SimulatedSocket {
  public:
    SimulatedSocket(SimulatedBoard& board, std::optional<std::filesystem::path> file)
        : board_{board}, file_{std::move(file)} {}

    // Puts in the target from the file, whatever device is selected, because that part is in the
    // socket. If the file doesn't exist, it is made with a blank part of the selected device. A
    // damaged file is left unchanged.
    [[nodiscard]] std::optional<std::string> insert(const Session& session);
    // Writes the target's state after the operation.
    [[nodiscard]] std::optional<std::string> save() const;

  private:
    SimulatedBoard& board_;
    std::optional<std::filesystem::path> file_;
    bool inserted_ = false;
};

}  // namespace quillon::cli
