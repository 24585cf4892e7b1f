// SPDX-License-Identifier: MIT
#include "app/messages.h"

#include <fmt/format.h>

#include <cstdint>
#include <utility>

#include "app/text.h"

namespace quillon {

namespace {

// The tests run in this order and the last that matches wins.
ShownMessage coloured(std::string_view main_text, std::string_view extra) {
    ShownMessage message{.text = std::string{main_text}, .extra = std::string{extra}};
    if (main_text.starts_with("<<注意>>")) message.colour = Colour::Red;
    if (upper(main_text.substr(0, 3)) == "RED") {
        message.colour = Colour::Red;
        message.text = main_text.substr(3);
    }
    if (upper(main_text.substr(0, 4)) == " RED") {
        message.colour = Colour::Red;
        message.text = main_text.substr(4);
    }
    return message;
}

}  // namespace

void Messages::ShowMessage(std::string_view main_text, std::string_view extra) {
    show(coloured(main_text, extra));
}

void Messages::ShowPlain(std::string_view text) { show({.text = std::string{text}}); }

void Messages::AddMessage(std::string_view main_text, std::string_view extra) {
    auto message = coloured(main_text, extra);
    message.appended = true;
    show(std::move(message));
}

// A text may hold a name from a file, whose control characters must not reach the user's terminal.
void Messages::show(ShownMessage message) {
    message.text = printable_lines(message.text);
    message.extra = printable_lines(message.extra);
    const std::string line = fmt::format("{} {}", message.text, message.extra);
    form_.LabelCmt.ForeColor.set(message.colour);
    form_.LabelCmt.Caption.set(
        message.appended ? fmt::format("{}\r\n{}", form_.LabelCmt.Caption.get(), line) : line);
    shown.emit(message);
}

void Messages::ShowProgress(Progress state, int min, int max, int value) {
    if (state == Progress::Off || max == value) {
        form_.P_Bar.Visible.set(false);
        form_.Lbl_Persent.Visible.set(false);
        return;
    }
    const int step = max / 100;
    if (step == 0 || value % step != 0) return;
    form_.P_Bar.Max.set(max);
    form_.P_Bar.Min.set(min);
    form_.P_Bar.Value.set(value);
    form_.P_Bar.Visible.set(true);
    form_.Lbl_Persent.Caption.set(fmt::format("{}%", std::int64_t{100} * value / max));
    form_.Lbl_Persent.Visible.set(true);
}

}  // namespace quillon
