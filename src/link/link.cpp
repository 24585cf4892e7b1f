// SPDX-License-Identifier: MIT
// The order of sends, sleeps and flushes here is the board's: it has no frame to resynchronise on.
#include "link/link.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>
#include <utility>

#include "app/text.h"
#include "link/dialect.h"
#include "link/link_texts.h"
#include "link/wait.h"

namespace quillon {

namespace {

using namespace std::chrono_literals;

constexpr std::size_t kReplyBytes = 18;
constexpr std::size_t kIdentityBytes = 16;
constexpr std::string_view kModule = "ZQ-LDR";
// Fixed, whatever version the catalogue asks for.
constexpr double kRecommendedVersion = 6.76;
constexpr auto kLetterPause = 1ms;

}  // namespace

std::optional<double> firm_version(std::string_view identity) {
    if (identity.size() < 4) return std::nullopt;
    const std::string_view digits = identity.substr(identity.size() - 4);
    const auto first = digits.find_first_not_of(' ');
    if (first == std::string_view::npos) return std::nullopt;
    // from_chars would take "inf" and an exponent too.
    if (digits.find_first_not_of("0123456789.", first) != std::string_view::npos)
        return std::nullopt;
    double version = 0;
    const auto [end, error] =
        std::from_chars(digits.data() + first, digits.data() + digits.size(), version);
    if (error != std::errc{} || end != digits.data() + digits.size()) return std::nullopt;
    return version;
}

void Link::send(std::uint8_t byte) {
    port_.write(std::array{byte});
    host_.sleep(kLetterPause);
}

void Link::send(char letter) { send(static_cast<std::uint8_t>(letter)); }

std::string Link::read_identity() {
    const auto reply = port_.read();
    const auto used = std::min(reply.size(), kIdentityBytes);
    return {reply.begin(), reply.begin() + static_cast<std::ptrdiff_t>(used)};
}

void Link::show_board() {
    form_.Label_FirmwareVersion.Caption.set(
        fmt::format(link_text::kLabelFound, session_.ComNo, printable(session_.FirmVersionText)));
    form_.Label_FirmwareVersion.BackColor.set(Colour::Found);
}

void Link::show_no_board() {
    session_.WriterFound = false;
    form_.Label_FirmwareVersion.Caption.set(
        session_.ComNo == 0 ? std::string{link_text::kLabelNoPort}
                            : fmt::format(link_text::kLabelNotConnected, session_.ComNo));
    form_.Label_FirmwareVersion.BackColor.set(Colour::ButtonFace);
}

void Link::Writer_Find() {
    if (session_.WriterFound) return;
    if (session_.ComNo == 0) {
        dialogs_.box({.text = std::string{link_text::kChoosePort}, .icon = BoxIcon::Information});
        return;
    }
    session_.BoardUnasked = false;
    messages_.ShowMessage(link_text::kSearching);
    if (!open_for_search()) return;

    if (!wake_and_ask()) {
        show_no_board();
        messages_.ShowMessage(link_text::kNotFound);
        return;
    }
    session_.FirmVersionText = read_identity();
    session_.FirmwareText = session_.FirmVersionText;
    if (!session_.FirmVersionText.starts_with(kModule)) {
        show_no_board();
        messages_.ShowMessage(link_text::kVersionUnreadable);
        return;
    }
    session_.WriterFound = true;
    messages_.ShowMessage(fmt::format(link_text::kFound, session_.ComNo));
    show_board();
    if (const auto version = firm_version(session_.FirmVersionText))
        session_.FirmVersion = *version;
    form_.mnuFirmwareUpdate.Enabled.set(true);
    Firm_Version_Check();
    settings_.save("FirmModule", session_.FirmVersionText.substr(0, 10));
}

// The first "?" only wakes the board; its reply is thrown away.
bool Link::wake_and_ask() {
    for (const bool first : {true, false}) {
        port_.discard_input();
        send('?');
        host_.sleep(200ms);
        if (first) host_.pump();
    }
    return wait_for(host_, port_, kReplyBytes, 3s);
}

bool Link::open_port() {
    last_open_ = port_.is_open() ? PortOpen::Ok : port_.open();
    return last_open_ == PortOpen::Ok;
}

bool Link::open_for_search() {
    port_.RTSEnable(!form_.mnuComMode1.Checked.get());
    if (open_port()) return true;
    session_.WriterFound = false;
    if (last_open_ == PortOpen::Busy) {
        messages_.ShowMessage(link_text::kPortBusy);
        dialogs_.box({.text = std::string{link_text::kPortBusyBox}, .icon = BoxIcon::Critical});
        return false;
    }
    std::string box{link_text::kPortUnusableBox};
    if (last_open_ == PortOpen::Denied) box += link_text::kPortDenied;
    messages_.ShowMessage(link_text::kPortUnusable);
    report_denied();
    dialogs_.box({.title = std::string{link_text::kInformation},
                  .text = std::move(box),
                  .icon = BoxIcon::Critical});
    return false;
}

// The other messages are the same for every port that can't be opened. This line says what the user
// can do about missing permission.
void Link::report_denied() {
    if (last_open_ == PortOpen::Denied)
        messages_.AddMessage(fmt::format("red{}", link_text::kPortDenied));
}

// The board may be in the middle of anything; three "*" bring it back to its command loop.
bool Link::resynchronise(std::chrono::milliseconds limit) {
    port_.discard_input();
    if (!open_port()) return false;
    for (int i = 0; i < 3; ++i) send('*');
    host_.sleep(100ms);
    port_.discard_input();
    send('?');
    return wait_for(host_, port_, kReplyBytes, limit);
}

Token Link::Writer_Check() {
    session_.BoardUnasked = false;
    if (!resynchronise(4s)) {
        if (!port_.is_open()) return port_not_chosen();
        messages_.ShowMessage("*");
        host_.pump();
        if (!resynchronise(3s)) {
            show_no_board();
            messages_.ShowMessage(link_text::kCheckNotFound);
            return Token::NG;
        }
    }
    session_.FirmVersionText = read_identity();
    if (!session_.FirmVersionText.starts_with(kModule)) {
        show_no_board();
        messages_.ShowMessage(link_text::kVersionUnreadable);
        return Token::NG;
    }
    return accept_board();
}

Token Link::accept_board() {
    session_.WriterFound = true;
    show_board();
    messages_.ShowMessage(fmt::format(link_text::kFound, session_.ComNo));
    const auto version = firm_version(session_.FirmVersionText);
    if (!version) return port_not_chosen();
    session_.FirmVersion = *version;
    settings_.save("FirmModule", session_.FirmVersionText.substr(0, 10));
    Firm_Version_Check();
    // A delay that the board refused doesn't stop the operation: its message has been shown.
    static_cast<void>(Power_Delay_Set());
    return Token::OK;
}

Token Link::port_not_chosen() {
    messages_.ShowMessage(link_text::kPortNotChosen);
    report_denied();
    return Token::NG;
}

Token Link::Power_Delay_Set() {
    port_.discard_input();
    port_.discard_input();
    send('m');
    send('D');
    send(session_.VddVppDelay);
    if (!wait_for(host_, port_, 1, 10s)) {
        messages_.ShowMessage(link_text::kDelayTimeout);
        return Token::NG;
    }
    if (port_.read().front() != session_.VddVppDelay) {
        messages_.ShowMessage(link_text::kDelayMismatch);
        return Token::NG;
    }
    messages_.ShowMessage(fmt::format(link_text::kDelaySet, session_.VddVppDelay));
    host_.sleep(500ms);
    return Token::OK;
}

void Link::Power_ON() {
    send(power_letter(session_.PowerMode));
    send('P');
}

void Link::Power_OFF() { send('p'); }

void Link::Firm_Version_Check() {
    if (session_.FirmVersion >= kRecommendedVersion) return;
    // A run that begins with Writer_Check has made no search: only its own reply is known.
    const auto& current =
        session_.FirmwareText.empty() ? session_.FirmVersionText : session_.FirmwareText;
    const auto answer = dialogs_.box({
        .title = std::string{link_text::kUpdateTitle},
        .text = fmt::format(link_text::kUpdateAdvice, link_text::kSupportPage, printable(current),
                            kRecommendedVersion),
        .icon = BoxIcon::Critical,
        .buttons = BoxButtons::OkCancel,
        .name = "firmware",
    });
    if (answer != BoxAnswer::Ok || host_.open_document(std::string{link_text::kSupportPage}))
        return;
    // Shown in a box, as the delay's message replaces the text of the message area.
    dialogs_.box({.title = std::string{link_text::kUpdateTitle},
                  .text = fmt::format(link_text::kPageNotOpened, link_text::kSupportPage),
                  .icon = BoxIcon::Warning});
}

void Link::Writer_Close() {
    if (port_.is_open()) {
        port_.discard_input();
        port_.discard_output();
    }
    for (int i = 0; i < 2; ++i) {
        host_.pump();
        host_.sleep(200ms);
    }
    host_.pump();
    port_.close();
}

}  // namespace quillon
