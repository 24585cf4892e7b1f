// SPDX-License-Identifier: MIT
// The file history: the last five pairs of folder and device, in the menu and in the settings.
#pragma once

#include <string>
#include <string_view>

#include "app/main_form.h"
#include "app/settings.h"

namespace quillon {

class FileHistory {
  public:
    static constexpr int kEntries = 5;

    FileHistory(MainForm& form, Settings& settings) : form_{form}, settings_{settings} {}

    // Puts a new entry first and drops the fifth; an entry that exists already keeps its place.
    void add(std::string_view folder, std::string_view DeviceName, int device_index);
    void clear();
    // Shows nmuFile1 to nmuFile5 and nmuDevice1 to nmuDevice5 from the settings.
    void restore();

    // Entry n, 1 to 5. The folder is the caption's first word; blanks and "=" end a word.
    std::string folder(int n) const;
    int device_index(int n) const;
    // The text behind the four blanks: the device that the entry shows.
    std::string device_name(int n) const;

  private:
    const std::string& caption_of(int n) const;
    void save();
    void show_entries();

    MainForm& form_;
    Settings& settings_;
};

}  // namespace quillon
