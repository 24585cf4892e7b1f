// SPDX-License-Identifier: MIT
// Copies the ID that a user enters into the memory image, so that a program run writes, and a saved
// file holds, what the boxes show.
#pragma once

#include <string_view>

#include "app/main_form.h"
#include "app/session.h"
#include "image/views.h"

namespace quillon {

class IdEntry {
  public:
    IdEntry(Session& session, MainForm& form, MemoryViews& views)
        : session_{session}, form_{form}, views_{views} {}

    // Digits of Text_ID: one for each ID word, four of them, or eight for the PIC18 flash parts.
    int digits() const;
    // Takes the text of Text_ID. The words get the same form as from a loaded file. False, with
    // nothing changed, for a text that isn't exactly digits() hexadecimal digits.
    [[nodiscard]] bool take_digits(std::string_view text);
    // Takes the text of Text_ID1 to Text_ID4, n from 1: one whole ID word of four digits. False for
    // anything else. Also false while an operation runs: it writes and shows the ID it began with.
    [[nodiscard]] bool take_word(int n, std::string_view text);
    // Each box that holds fewer digits than its value has shows the image's value again.
    void drop_unfinished();

  private:
    void show();

    Session& session_;
    MainForm& form_;
    MemoryViews& views_;
};

}  // namespace quillon
