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
    // Returns one line without its end, or nothing at the end of the input. Calls `idle` several
    // times a second while it waits. If `idle` throws, the wait ends.
    virtual std::optional<std::string> read_line(const std::function<void()>& idle) = 0;
};

// Standard input of the process.
class StandardInput : public Terminal {
  public:
    bool interactive() const override;
    std::optional<std::string> read_line(const std::function<void()>& idle) override;

  private:
    std::string waiting_;  // read already, behind the requested line
};

// Where a run of the command line reads and writes.
struct Console {
    std::ostream& out;
    std::ostream& err;
    Terminal& terminal;
    TextStyle style{};
    // Why output on `out` is missing. Nothing if it all arrived or its reader closed the pipe.
    std::function<std::optional<std::string>()> lost_output = [] { return std::nullopt; };
};

}  // namespace quillon::cli
