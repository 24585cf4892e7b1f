// SPDX-License-Identifier: MIT
// The user at the keyboard, if there is one.
#pragma once

#include <functional>
#include <optional>
#include <ostream>
#include <string>

#include "cli/events.h"

namespace quillon::cli {

class Terminal {
  public:
    virtual ~Terminal() = default;

    // False where standard input is a file, a pipe or closed: nobody can be asked.
    virtual bool interactive() const = 0;
    // One line without its end, nothing at the end of the input. Calls `idle` some times a second
    // while it waits; what that throws ends the wait.
    virtual std::optional<std::string> read_line(const std::function<void()>& idle) = 0;
};

// Standard input of the process.
class StandardInput : public Terminal {
  public:
    bool interactive() const override;
    std::optional<std::string> read_line(const std::function<void()>& idle) override;

  private:
    std::string waiting_;  // read, but behind the line that was asked for
};

// Where a run of the command line reads and writes.
struct Console {
    std::ostream& out;
    std::ostream& err;
    Terminal& terminal;
    TextStyle style{};
    // Why some of what was printed on `out` is missing; nothing where it arrived, or where its
    // reader chose to go away.
    std::function<std::optional<std::string>()> lost_output = [] { return std::nullopt; };
};

}  // namespace quillon::cli
