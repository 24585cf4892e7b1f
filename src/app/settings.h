// SPDX-License-Identifier: MIT
// What survives a restart: section "Settings6" of a per-user store of texts.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillon {

// A key-value file of texts, per user. Neither call reports an error of its own: a store that can't
// be read has no values, and a failed write returns false.
class SettingsStore {
  public:
    virtual ~SettingsStore() = default;
    virtual std::optional<std::string> read(std::string_view section, std::string_view key) = 0;
    virtual bool write(std::string_view section, std::string_view key, std::string_view value) = 0;
    // What is wrong with the store, as a text for the user; empty if nothing is.
    virtual std::string problem() const { return {}; }
};

class Settings {
  public:
    explicit Settings(SettingsStore& store) : store_{store} {}

    static constexpr std::string_view kSection = "Settings6";

    std::string text(std::string_view key, std::string_view default_value = "") const;
    // The default also replaces a value that isn't a number.
    int number(std::string_view key, int default_value) const;
    // "1", "true" and any number but 0 are true; "0", "false" false; anything else the default.
    bool flag(std::string_view key, bool default_value) const;
    // False for a value that number() or flag() can't convert; a missing one can be.
    bool converts(std::string_view key) const;

    // False where the store couldn't be written.
    bool save(std::string_view key, std::string_view value);
    bool save(std::string_view key, int value);
    bool save_flag(std::string_view key, bool value);  // "1" or "0"

    std::string problem() const { return store_.problem(); }

  private:
    SettingsStore& store_;
};

}  // namespace quillon
