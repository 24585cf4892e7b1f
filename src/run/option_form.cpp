// SPDX-License-Identifier: MIT
#include "run/option_form.h"

#include <fmt/format.h>

#include <string>
#include <utility>

#include "app/number_settings.h"
#include "link/link_texts.h"
#include "run/option_form_texts.h"

namespace quillon {

void OptionDialog::Form_Load() {
    messages_.ShowMessage("");
    for (auto& button : form_.Option_Com) button.Checked.set(false);
    session_.ComNo = former_ = value_of(settings_, number_setting::ComNo);
    // A saved number that this form has no button for leaves all of them clear.
    if (session_.ComNo >= 1 && session_.ComNo <= kComPorts) Option_Com_Click(session_.ComNo - 1);
    form_.Visible.set(true);
}

void OptionDialog::Option_Com_Click(int instance) {
    for (int i = 0; i < kComPorts; ++i)
        form_.Option_Com[static_cast<std::size_t>(i)].Checked.set(i == instance);
}

// The data of a board are valid only for the port at which it was found.
void OptionDialog::choose() {
    const int before = std::exchange(session_.ComNo, 0);
    port_.close();
    for (int i = 0; i < kComPorts; ++i) {
        if (!form_.Option_Com[static_cast<std::size_t>(i)].Checked.get()) continue;
        session_.ComNo = i + 1;
        port_.CommPort(session_.ComNo);
    }
    if (session_.ComNo != before) link_.show_no_board();
}

bool OptionDialog::Command_Ok_Click() {
    choose();
    const PortOpen opened = session_.ComNo == 0 ? PortOpen::Unavailable : port_.open();
    if (opened != PortOpen::Ok) {
        refuse(opened);
        return false;
    }
    messages_.ShowMessage(fmt::format(option_text::kChosen, session_.ComNo));
    settings_.save("ComNo", session_.ComNo);
    form_.Visible.set(false);
    return true;
}

void OptionDialog::refuse(PortOpen reason) {
    link_.show_no_board();
    std::string text = fmt::format(option_text::kFailed, session_.ComNo);
    if (reason == PortOpen::Denied) text += fmt::format("\r\r{}", link_text::kPortDenied);
    dialogs_.box({.title = fmt::format(option_text::kFailedTitle, session_.ComNo),
                  .text = std::move(text),
                  .icon = BoxIcon::Critical});
}

void OptionDialog::Command1_Click() {
    if (session_.ComNo != former_) {
        session_.ComNo = former_;
        port_.CommPort(former_);
        link_.show_no_board();
    }
    if (session_.ComNo == 0) messages_.ShowMessage(option_text::kNotChosen);
    form_.Visible.set(false);
}

}  // namespace quillon
