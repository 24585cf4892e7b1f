// SPDX-License-Identifier: MIT
#include "platform/qt_host.h"

#include <QCoreApplication>
#include <QStandardPaths>
#include <QString>
#include <algorithm>
#include <system_error>
#include <utility>

#include "platform/documents.h"
#include "platform/precise_sleep.h"
#include "platform/whole_file.h"

namespace quillon {

namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;

// The longest sleep before the interface gets a turn.
constexpr auto kLongestStill = 10ms;
constexpr int kLevelsUp = 4;

fs::path standard_folder(QStandardPaths::StandardLocation location) {
    return QStandardPaths::writableLocation(location).toStdString();
}

fs::path documents_or_home() {
    const fs::path documents = standard_folder(QStandardPaths::DocumentsLocation);
    return documents.empty() ? standard_folder(QStandardPaths::HomeLocation) : documents;
}

fs::path program_folder() {
    if (QCoreApplication::instance() != nullptr)
        return QCoreApplication::applicationDirPath().toStdString();
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    return error ? fs::current_path(error) : program.parent_path();
}

fs::path whole_path(const fs::path& path) {
    std::error_code error;
    return fs::absolute(path, error);
}

}  // namespace

fs::path find_data_folder(const fs::path& program_folder) {
    std::error_code error;
    const auto holds_catalogue = [&](const fs::path& folder) {
        return fs::is_regular_file(folder / "device6.ini", error);
    };
    if (holds_catalogue(program_folder)) return program_folder;
    fs::path installed = program_folder.parent_path() / "share" / "quillon";
    if (holds_catalogue(installed)) return installed;
    fs::path above = program_folder;
    for (int level = 0; level <= kLevelsUp; ++level, above = above.parent_path())
        if (holds_catalogue(above / "data")) return above / "data";
    return program_folder;
}

QtHost::QtHost(Interface interface) : QtHost{interface, Folders{}} {}

QtHost::QtHost(Interface interface, const Folders& folders)
    : interface_{interface},
      data_{whole_path(folders.data ? *folders.data : find_data_folder(program_folder())) / ""},
      documents_{folders.home ? whole_path(*folders.home) : documents_or_home()} {
    sleep_precisely();
}

Host::Time QtHost::now() const { return std::chrono::steady_clock::now().time_since_epoch(); }

std::tm QtHost::local_time() const {
    const std::time_t time = std::time(nullptr);
    std::tm result{};
#ifdef _WIN32
    localtime_s(&result, &time);
#else
    localtime_r(&time, &result);
#endif
    return result;
}

// The pauses between two letters are too short to be interrupted by turns of the interface.
void QtHost::sleep(std::chrono::milliseconds time) {
    const Time end = now() + time;
    if (time > kLongestStill / 2) pump();
    for (Time left = time; left > Time::zero(); left = end - now()) {
        sleep_until(std::min(end, now() + kLongestStill));
        if (time > kLongestStill / 2) pump();
    }
}

void QtHost::pump() {
    if (interface_ == Interface::Window && QCoreApplication::instance() != nullptr) {
        ++depth_;
        QCoreApplication::processEvents();
        --depth_;
    }
    check();
}

void QtHost::give_up(Abandoned::Reason reason) {
    int former = kNone;
    if (!reason_.compare_exchange_strong(former, static_cast<int>(reason)) && former == kStopped)
        reason_.compare_exchange_strong(former, static_cast<int>(reason));
}

void QtHost::disarm() {
    armed_ = false;
    int stopped = kStopped;
    reason_.compare_exchange_strong(stopped, kNone);
}

// Throws only outside event handlers: an exception must not pass through the event loop.
void QtHost::check() {
    if (!armed_ || depth_ != 0) return;
    if (deadline_ && now() >= *deadline_) give_up(Abandoned::Reason::Deadline);
    const int reason = reason_.load();
    if (reason == kNone) return;
    // The catcher closes the port and may wait for that, so that wait must not throw again.
    armed_ = false;
    throw Abandoned{static_cast<Abandoned::Reason>(reason)};
}

bool QtHost::open_document(const std::string& path_or_url) { return start_default(path_or_url); }

std::optional<std::string> QtHost::write_file(const fs::path& path, std::string_view content) {
    return write_whole(path, content);
}

std::string QtHost::from_code_page(std::string_view bytes) const { return decode_text(bytes); }

}  // namespace quillon
