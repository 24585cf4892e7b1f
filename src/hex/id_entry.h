// SPDX-License-Identifier: MIT
// The ID as a user enters it, carried into the memory image: what the boxes show is what a program
// run writes and a saved file holds.
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
    // Text_ID. The words get the form that a loaded file gives them. False for a text that isn't so
    // many hexadecimal digits: nothing is changed then.
    [[nodiscard]] bool take_digits(std::string_view text);
    // Text_ID1 to Text_ID4, n from 1: one whole ID word of four digits. False for anything else,
    // and while an operation runs, which has Text_ID locked: it writes and shows the ID it began
    // with.
    [[nodiscard]] bool take_word(int n, std::string_view text);
    // Boxes that hold fewer digits than their value has show the image's again.
    void drop_unfinished();

  private:
    void show();

    Session& session_;
    MainForm& form_;
    MemoryViews& views_;
};

}  // namespace quillon
