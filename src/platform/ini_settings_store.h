// SPDX-License-Identifier: MIT
// The settings store: one file of sections, keys and texts, written whole at each change.
//
// A change is applied to the file as it is at that moment, under a lock, so another program's
// changes are kept. A damaged file is read as far as possible and copied to a backup before it is
// first replaced. If the file can't be written, it stays unchanged and the run continues with the
// values in memory.
#pragma once

#include <chrono>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "app/settings.h"
#include "platform/ini_text.h"

namespace quillon {

class IniSettingsStore : public SettingsStore {
  public:
    // Uses settings.ini in `folder`. Without one it uses the user's own configuration folder, which
    // both programs share.
    explicit IniSettingsStore(const std::optional<std::filesystem::path>& folder = std::nullopt);

    std::optional<std::string> read(std::string_view section, std::string_view key) override;
    bool write(std::string_view section, std::string_view key, std::string_view value) override;
    std::string problem() const override { return problem_; }

    const std::filesystem::path& path() const { return path_; }

  private:
    using Key = std::pair<std::string, std::string>;  // section, key
    using Reason = std::optional<std::string>;

    Reason write_unsaved();
    Reason not_writable() const;
    Reason put_into_file();
    Reason keep_damaged_file() const;

    // Another program holds the file for milliseconds only.
    static constexpr std::chrono::milliseconds kLongestWait{2000};

    std::filesystem::path path_;
    IniText text_;  // as last read or written
    std::map<Key, std::string> unsaved_;
    std::chrono::milliseconds patience_ = kLongestWait;
    std::string problem_;
};

}  // namespace quillon
