// SPDX-License-Identifier: MIT
// A settings store that shows the command line's port as the saved one: "ComNo" reads as that port
// for this run. The stored value isn't changed. A port that the user chooses in the dialog is
// saved.
#pragma once

#include <string>

#include "app/settings.h"

namespace quillon {

class ChosenPort : public SettingsStore {
  public:
    ChosenPort(SettingsStore& store, int ComNo) : store_{store}, ComNo_{ComNo} {}

    std::optional<std::string> read(std::string_view section, std::string_view key) override {
        if (ComNo_ != 0 && is_port(section, key)) return std::to_string(ComNo_);
        return store_.read(section, key);
    }
    bool write(std::string_view section, std::string_view key, std::string_view value) override {
        if (is_port(section, key)) ComNo_ = 0;
        return store_.write(section, key, value);
    }
    std::string problem() const override { return store_.problem(); }

  private:
    static bool is_port(std::string_view section, std::string_view key) {
        return section == Settings::kSection && key == "ComNo";
    }

    SettingsStore& store_;
    int ComNo_;  // 0: the saved one
};

}  // namespace quillon
