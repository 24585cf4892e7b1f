// SPDX-License-Identifier: MIT
#include "run/option_form.h"

#include <fmt/format.h>

#include "app/number_settings.h"
#include "run/option_form_texts.h"

namespace quillon {

void OptionDialog::Form_Load() {
    messages_.ShowMessage("");
    for (auto& button : form_.Option_Com) button.Checked.set(false);
    session_.ComNo = value_of(settings_, number_setting::ComNo);
    // A saved number that this form has no button for leaves all of them clear.
    if (session_.ComNo >= 1 && session_.ComNo <= kComPorts) Option_Com_Click(session_.ComNo - 1);
    form_.Visible.set(true);
}

void OptionDialog::Option_Com_Click(int instance) {
    for (int i = 0; i < kComPorts; ++i)
        form_.Option_Com[static_cast<std::size_t>(i)].Checked.set(i == instance);
}

void OptionDialog::choose() {
    session_.ComNo = 0;
    port_.close();
    for (int i = 0; i < kComPorts; ++i) {
        if (!form_.Option_Com[static_cast<std::size_t>(i)].Checked.get()) continue;
        session_.ComNo = i + 1;
        port_.CommPort(session_.ComNo);
    }
}

bool OptionDialog::Command_Ok_Click() {
    choose();
    if (session_.ComNo == 0 || port_.open() != PortOpen::Ok) {
        refuse();
        return false;
    }
    messages_.ShowMessage(fmt::format(option_text::kChosen, session_.ComNo));
    settings_.save("ComNo", session_.ComNo);
    form_.Visible.set(false);
    return true;
}

void OptionDialog::refuse() {
    session_.WriterFound = false;
    dialogs_.box({.title = fmt::format(option_text::kFailedTitle, session_.ComNo),
                  .text = fmt::format(option_text::kFailed, session_.ComNo),
                  .icon = BoxIcon::Critical});
}

void OptionDialog::Command1_Click() {
    if (session_.ComNo == 0) messages_.ShowMessage(option_text::kNotChosen);
    form_.Visible.set(false);
}

}  // namespace quillon
