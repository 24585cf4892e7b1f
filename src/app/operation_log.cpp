// SPDX-License-Identifier: MIT
#include "app/operation_log.h"

#include <fmt/format.h>

#include <algorithm>
#include <system_error>

#include "app/operation_log_texts.h"
#include "app/own_files.h"
#include "app/text.h"

namespace quillon {

namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;

}  // namespace

std::string log_time(const std::tm& time) {
    return fmt::format("{:04}-{:02}-{:02} {:02}:{:02}:{:02}", time.tm_year + 1900, time.tm_mon + 1,
                       time.tm_mday, time.tm_hour, time.tm_min, time.tm_sec);
}

void OperationLog::LOG_data_write() {
    std::string line =
        fmt::format("{}  {}  ID:{}  ", printable(session_.FailDetail),
                    printable(session_.DeviceName), printable(form_.Text_ID.Text.get()));
    if (logs_calibration(session_.PgmType))
        line += printable(form_.Lbl_Calib_ReadWrite_Data.Caption.get()) + "  ";
    append(fmt::format("{}{}\t{}", line, printable(session_.LoadedHexPath),
                       log_time(host_.local_time())));
}

void OperationLog::note(std::string_view text) {
    append(fmt::format("{}\t\t{}", printable(text), log_time(host_.local_time())));
}

void OperationLog::append(const std::string& line) {
    // The folder may have been deleted since the start. Its parents aren't created: a drive that is
    // gone has to be reported.
    std::error_code ignored;
    fs::create_directory(session_.TempDir, ignored);
    if (!append_line(fs::path{session_.TempDir} / kLogFiles.front(), line)) {
        tell_once();
        return;
    }
    told_ = false;
    appended.emit(line);
}

// Appends to the verdict on the part and keeps its colour: a log that can't be written must not
// make a good part look bad, nor a bad one good.
void OperationLog::tell_once() {
    if (told_) return;
    told_ = true;
    const bool red = form_.LabelCmt.ForeColor.get() == Colour::Red;
    messages_.AddMessage(fmt::format("{}{}", red ? "red" : "", log_text::kNotWritten),
                         printable((fs::path{session_.TempDir} / kLogFiles.front()).string()));
}

void mnuLogFileOpen(const Session& session, Host& host, Messages& messages) {
    bool found = false;
    bool opened = true;
    for (auto name = kLogFiles.rbegin(); name != kLogFiles.rend(); ++name) {
        const fs::path path = fs::path{session.TempDir} / *name;
        std::error_code ignored;
        if (!fs::is_regular_file(path, ignored)) continue;
        found = true;
        opened = host.open_document(path.string()) && opened;
        host.pump();
        host.sleep(200ms);
        host.pump();
        host.pump();
    }
    if (!found) messages.ShowMessage(log_text::kNoLogFile);
    if (!opened) messages.ShowMessage(log_text::kNotOpened);
}

}  // namespace quillon
