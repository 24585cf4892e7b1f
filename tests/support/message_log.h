// SPDX-License-Identifier: MIT
// Records every message in order, one line each: "[red] text | extra", "[+] text" if appended.
#pragma once

#include <string>
#include <vector>

#include "app/messages.h"

namespace quillon::test {

class MessageLog {
  public:
    explicit MessageLog(Messages& messages)
        : connection_{messages.shown.connect([this](const ShownMessage& message) {
              std::string line = message.appended ? "[+] " : "";
              if (message.colour == Colour::Red) line += "[red] ";
              line += message.text;
              if (!message.extra.empty()) line += " | " + message.extra;
              lines.push_back(line);
          })} {}

    std::vector<std::string> lines;

  private:
    Connection connection_;
};

}  // namespace quillon::test
