// SPDX-License-Identifier: MIT
#include "platform/ini_settings_store.h"

#include <fmt/format.h>

#include <QSettings>
#include <QStandardPaths>
#include <QString>
#include <QVariant>
#include <algorithm>
#include <fstream>
#include <iterator>
#include <system_error>
#include <utility>

#include "platform/ini_settings_texts.h"

namespace quillon {

namespace {

namespace fs = std::filesystem;

QString q(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// A separator of sections inside a key would open a section of its own.
QString full_key(std::string_view section, std::string_view key) {
    QString name = q(key);
    name.replace('%', "%25").replace('/', "%2F").replace('\\', "%5C");
    return q(section) + '/' + name;
}

// A crash of the system can leave a file of the right size that holds nothing but zeros.
bool holds_nul(const fs::path& path) {
    std::ifstream file{path, std::ios::binary};
    return std::find(std::istreambuf_iterator<char>{file}, {}, '\0') !=
           std::istreambuf_iterator<char>{};
}

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

}  // namespace

IniSettingsStore::IniSettingsStore(const std::optional<fs::path>& folder) {
    std::error_code error;
    path_ = fs::absolute(folder ? *folder : default_folder(), error) / "settings.ini";
    open();
    if (!fs::exists(path_, error)) return;
    const bool readable = fs::is_regular_file(path_, error) && std::ifstream{path_}.is_open();
    damaged_ = readable && (settings_->status() == QSettings::FormatError || holds_nul(path_));
    if (damaged_ || !readable)
        problem_ = fmt::format("{} ({})", damaged_ ? ini_text::kDamaged : ini_text::kUnreadable,
                               path_.string());
}

void IniSettingsStore::open() {
    // Made before the former one goes: what that one couldn't write is taken over.
    settings_ = std::make_unique<QSettings>(q(path_.string()), QSettings::IniFormat);
    static_cast<void>(settings_->allKeys());  // reads all sections now: the status speaks of them
}

IniSettingsStore::~IniSettingsStore() = default;

std::optional<std::string> IniSettingsStore::read(std::string_view section, std::string_view key) {
    const QVariant value = settings_->value(full_key(section, key));
    if (!value.isValid()) return std::nullopt;
    // A comma that a hand has written without quotes makes a list of the text.
    if (value.typeId() == QMetaType::QStringList)
        return value.toStringList().join(", ").toStdString();
    return value.toString().toStdString();
}

bool IniSettingsStore::write(std::string_view section, std::string_view key,
                             std::string_view value) {
    if (!unsaved_ && read(section, key) == std::string{value}) return true;
    unsaved_ = !(may_write() && keep_damaged_file() && put(section, key, value));
    if (unsaved_) problem_ = fmt::format("{} ({})", ini_text::kNotWritten, path_.string());
    return !unsaved_;
}

bool IniSettingsStore::put(std::string_view section, std::string_view key, std::string_view value) {
    settings_->setValue(full_key(section, key), q(value));
    settings_->sync();
    // An object's status never gets better: that of the file which was read, or of a write that
    // failed earlier, would hide how this one went.
    if (settings_->status() != QSettings::NoError) {
        open();
        settings_->sync();
    }
    damaged_ = false;
    return settings_->status() == QSettings::NoError && read(section, key) == std::string{value};
}

// The superuser may write to anything; a file that is marked read-only is meant to stay so.
bool IniSettingsStore::may_write() {
    std::error_code error;
    if (!fs::exists(path_, error)) return true;
    return fs::is_regular_file(path_, error) && has_write_permission(path_);
}

bool IniSettingsStore::keep_damaged_file() {
    if (!damaged_) return true;
    std::error_code error;
    fs::path kept = path_;
    kept += ".bak";
    for (int copy = 2; fs::exists(kept, error); ++copy)
        kept = fmt::format("{}.bak{}", path_.string(), copy);
    return fs::copy_file(path_, kept, error);
}

}  // namespace quillon
