// SPDX-License-Identifier: MIT
// The settings store: one file of sections, keys and texts, written whole at each change.
//
// A damaged file is read as far as it goes and kept beside the new one before it is first written
// over. A file that can't be written stays as it is, and the run goes on with what it has read.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "app/settings.h"

class QSettings;

namespace quillon {

class IniSettingsStore : public SettingsStore {
  public:
    // DIR/settings.ini; the user's own configuration folder, which both programs share, where none
    // is named.
    explicit IniSettingsStore(const std::optional<std::filesystem::path>& folder = std::nullopt);
    ~IniSettingsStore() override;

    std::optional<std::string> read(std::string_view section, std::string_view key) override;
    bool write(std::string_view section, std::string_view key, std::string_view value) override;
    std::string problem() const override { return problem_; }

    const std::filesystem::path& path() const { return path_; }

  private:
    void open();
    bool put(std::string_view section, std::string_view key, std::string_view value);
    bool may_write();
    bool keep_damaged_file();

    std::filesystem::path path_;
    std::unique_ptr<QSettings> settings_;
    bool damaged_ = false;
    bool unsaved_ = false;  // the last write failed: a value read back may not be on the disk
    std::string problem_;
};

}  // namespace quillon
