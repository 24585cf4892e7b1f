// SPDX-License-Identifier: MIT
// The operation log: a chain of text files in TempDir, "LOG_NEW0.txt" the current one.
//
// A line is written whole or not at all: a line that a full disk cut short is removed again, so
// that the next one doesn't follow half a line. Control characters in a name are shown escaped, so
// that no name can add a field or a line.
#pragma once

#include <array>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "app/host.h"
#include "app/main_form.h"
#include "app/messages.h"
#include "app/property.h"
#include "app/session.h"

namespace quillon {

// The chain, the current file first, then from the newest to the oldest.
inline constexpr std::array<std::string_view, 10> kLogFiles{
    "LOG_NEW0.txt", "LOG_OLD1.txt", "LOG_OLD2.txt", "LOG_OLD3.txt", "LOG_OLD4.txt",
    "LOG_OLD5.txt", "LOG_OLD6.txt", "LOG_OLD7.txt", "LOG_OLD8.txt", "LOG_OLD9.txt",
};

class OperationLog {
  public:
    OperationLog(const Session& session, const MainForm& form, const Host& host, Messages& messages)
        : session_{session}, form_{form}, host_{host}, messages_{messages} {}

    // Appends the result line: FailDetail, device, ID, calibration where the type has it, file, a
    // TAB, date and time.
    void LOG_data_write();
    // Appends the line of an operation without a result: the text, two TABs, date and time.
    void note(std::string_view text);

    Signal<const std::string&> appended;  // each line that was written, without its end

  private:
    void append(const std::string& line);
    void tell_once();

    const Session& session_;
    const MainForm& form_;
    const Host& host_;
    Messages& messages_;
    bool told_ = false;  // the user knows that the log can't be written
};

// "2026-11-20 14:03:22", the log's date and time on every platform, so that logs sort.
std::string log_time(const std::tm& time);

// Moves a file to a new name, replacing a file of that name; false where that can't be done.
using MoveFile =
    std::function<bool(const std::filesystem::path& from, const std::filesystem::path& to)>;
bool move_file(const std::filesystem::path& from, const std::filesystem::path& to);

// Pushes the chain by one where the current file holds anything; the oldest is lost. Call once, at
// start-up. No content is copied, so a full disk can't leave half a file; where one file can't be
// moved, those moved before are put back and the chain stays as it was.
void rotate_log(const std::string& TempDir, const MoveFile& move = move_file);

// Opens each log that exists with its default program, the newest last so that it ends on top.
void mnuLogFileOpen(const Session& session, Host& host, Messages& messages);

}  // namespace quillon
