// SPDX-License-Identifier: MIT
#include "areas/identity_check.h"

#include <fmt/format.h>

#include <string>

namespace quillon {

SocketVerdict IdentityCheck::no_data() {
    messages_.ShowMessage(texts_.timeout);
    return SocketVerdict::NoLink;
}

SocketVerdict IdentityCheck::no_end_code() {
    messages_.ShowMessage(texts_.no_end_code);
    return SocketVerdict::NoLink;
}

SocketVerdict IdentityCheck::judge(bool same, bool empty) {
    if (same) {
        messages_.ShowMessage(texts_.done);
        return SocketVerdict::Same;
    }
    if (empty) {
        if (texts_.hint_first) {
            messages_.ShowMessage(texts_.empty_hint);
            messages_.AddMessage(texts_.empty);
        } else {
            messages_.ShowMessage(texts_.empty, texts_.empty_hint);
        }
        return SocketVerdict::Empty;
    }
    messages_.ShowMessage(texts_.mismatch);
    const auto answer = dialogs_.box({
        .title = std::string{texts_.title},
        .text = fmt::format("{}\r\n{}\r\n{}", texts_.mismatch, texts_.go_on, texts_.stop),
        .icon = BoxIcon::Warning,
        .buttons = BoxButtons::OkCancel,
        .default_answer = BoxAnswer::Cancel,
        .name = "mismatch",
    });
    return answer == BoxAnswer::Ok ? SocketVerdict::Other : SocketVerdict::Refused;
}

}  // namespace quillon
