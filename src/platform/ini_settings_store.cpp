// SPDX-License-Identifier: MIT
#include "platform/ini_settings_store.h"

#include <fmt/format.h>

#include <QLockFile>
#include <QStandardPaths>
#include <QString>
#include <fstream>
#include <iterator>
#include <system_error>
#include <utility>

#include "platform/ini_settings_texts.h"
#include "platform/whole_file.h"

namespace quillon {

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

// Far more than any settings need. A larger file is something else and would fill the memory.
constexpr std::uintmax_t kMostBytes{4U << 20U};

std::string reason(std::errc code) { return std::make_error_code(code).message(); }

bool has_write_permission(const fs::path& path) {
    std::error_code error;
    constexpr auto kAnyWrite =
        fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    return (fs::status(path, error).permissions() & kAnyWrite) != fs::perms::none;
}

fs::path default_folder() {
    const fs::path all =
        QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation).toStdString();
    return all / "quillon";
}

// Returns nothing for a file that can't be read, and an empty text for one that doesn't exist.
std::optional<std::string> bytes_of(const fs::path& path) {
    std::error_code error;
    if (!fs::exists(path, error)) return "";
    if (!fs::is_regular_file(path, error) || fs::file_size(path, error) > kMostBytes)
        return std::nullopt;
    std::ifstream file{path, std::ios::binary};
    if (!file.is_open()) return std::nullopt;
    return std::string{std::istreambuf_iterator<char>{file}, {}};
}

}  // namespace

IniSettingsStore::IniSettingsStore(const std::optional<fs::path>& folder) {
    std::error_code error;
    path_ = fs::absolute(folder ? *folder : default_folder(), error) / "settings.ini";
    const auto bytes = bytes_of(path_);
    text_ = IniText{bytes.value_or("")};
    if (!bytes || text_.damaged())
        problem_ = fmt::format("{} ({})", bytes ? ini_text::kDamaged : ini_text::kUnreadable,
                               path_.string());
}

std::optional<std::string> IniSettingsStore::read(std::string_view section, std::string_view key) {
    if (const auto found = unsaved_.find({std::string{section}, std::string{key}});
        found != unsaved_.end())
        return found->second;
    return text_.value(section, key);
}

bool IniSettingsStore::write(std::string_view section, std::string_view key,
                             std::string_view value) {
    if (unsaved_.empty() && read(section, key) == value) return true;
    unsaved_[{std::string{section}, std::string{key}}] = value;
    if (const auto reason = write_unsaved()) {
        problem_ = fmt::format("{} ({}: {})", ini_text::kNotWritten, path_.string(), *reason);
        return false;
    }
    unsaved_.clear();
    return true;
}

IniSettingsStore::Reason IniSettingsStore::write_unsaved() {
    if (auto reason = not_writable()) return reason;
    std::error_code error;
    fs::create_directories(path_.parent_path(), error);
    if (error) return error.message();
    QLockFile lock{QString::fromStdString(path_.string() + ".lock")};
    // After one long wait the next are short: a lock that was held that long is likely to stay.
    const bool locked = lock.tryLock(std::exchange(patience_, 0ms));
    if (!locked && lock.error() == QLockFile::LockFailedError)
        return reason(std::errc::resource_unavailable_try_again);
    if (locked) patience_ = kLongestWait;
    // If no lock file can be made, writing the settings fails too, and gives the better reason.
    return put_into_file();
}

// Checked here because the superuser may write to any file. A file marked read-only must stay so.
IniSettingsStore::Reason IniSettingsStore::not_writable() const {
    std::error_code error;
    if (!fs::exists(path_, error)) return {};
    if (fs::is_directory(path_, error)) return reason(std::errc::is_a_directory);
    if (!fs::is_regular_file(path_, error)) return reason(std::errc::invalid_argument);
    if (!has_write_permission(path_)) return reason(std::errc::permission_denied);
    return {};
}

IniSettingsStore::Reason IniSettingsStore::put_into_file() {
    const auto bytes = bytes_of(path_);
    if (!bytes) return reason(std::errc::io_error);
    IniText text{*bytes};
    if (text.damaged())
        if (auto reason = keep_damaged_file()) return reason;
    for (const auto& [name, value] : unsaved_) text.set(name.first, name.second, value);
    const auto written = text.text();
    if (auto reason = write_whole(path_, written)) return reason;
    text_ = IniText{written};
    return {};
}

IniSettingsStore::Reason IniSettingsStore::keep_damaged_file() const {
    std::error_code error;
    fs::path kept = path_;
    kept += ".bak";
    for (int copy = 2; fs::exists(fs::symlink_status(kept, error)); ++copy)
        kept = fmt::format("{}.bak{}", path_.string(), copy);
    fs::copy_file(path_, kept, error);
    return error ? Reason{error.message()} : Reason{};
}

}  // namespace quillon
