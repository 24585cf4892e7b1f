// SPDX-License-Identifier: MIT
// The message area LabelCmt with its colour rule, and the progress bar.
#pragma once

#include <string>
#include <string_view>

#include "app/main_form.h"
#include "app/property.h"

namespace quillon {

// A message as it was shown, for its observers: the command line, a test.
struct ShownMessage {
    std::string text;  // the main text without its colour prefix
    std::string extra{};
    Colour colour = Colour::Black;
    bool appended = false;
};

class Messages {
  public:
    explicit Messages(MainForm& form) : form_{form} {}

    // Replaces the message area's text by main text, a blank and extra text. A main text that
    // begins "<<注意>>", "RED" in any case, or " RED" is shown in red; the latter two are cut off,
    // from any text that happens to begin so.
    void ShowMessage(std::string_view main_text, std::string_view extra = "");
    // Shows the text unchanged and in black: for a text that begins with a name chosen by the user.
    void ShowPlain(std::string_view text);
    // Like ShowMessage, but on a new line after the present text.
    void AddMessage(std::string_view main_text, std::string_view extra = "");

    enum class Progress { On, Off };
    // The bar is hidden by Off and by a value that has reached max. On redraws it at each hundredth
    // part of max. A max below 100 shows nothing.
    void ShowProgress(Progress state, int min = 0, int max = 0, int value = 0);

    Signal<const ShownMessage&> shown;

  private:
    void show(ShownMessage message);

    MainForm& form_;
};

}  // namespace quillon
