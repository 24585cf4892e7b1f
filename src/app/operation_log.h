// SPDX-License-Identifier: MIT
// The operation log: a chain of text files in TempDir, "LOG_NEW0.txt" the current one.
#pragma once

#include <string>
#include <string_view>

#include "app/host.h"
#include "app/main_form.h"
#include "app/messages.h"
#include "app/property.h"
#include "app/session.h"

namespace quillon {

class OperationLog {
  public:
    OperationLog(const Session& session, const MainForm& form, const Host& host, Messages& messages)
        : session_{session}, form_{form}, host_{host}, messages_{messages} {}

    // Appends the result line: FailDetail, device, ID, calibration where the type has it, file, a
    // TAB, date and time.
    void LOG_data_write();
    // Appends what an operation without a result leaves: the text, two TABs, date and time.
    void note(std::string_view text);

    Signal<const std::string&> appended;  // each line, without its end

  private:
    void append(const std::string& line);

    const Session& session_;
    const MainForm& form_;
    const Host& host_;
    Messages& messages_;
};

// "2026-11-20 14:03:22", the log's date and time on every platform, so that logs sort.
std::string log_time(const std::tm& time);

// Pushes the chain by one where the current file holds anything. Each step replaces a file whole:
// where one fails, the chain from there on stays as it was. Call once, at start-up.
void rotate_log(const std::string& TempDir);

}  // namespace quillon
