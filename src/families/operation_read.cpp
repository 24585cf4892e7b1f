// SPDX-License-Identifier: MIT
// Read and verify.
#include <fmt/format.h>

#include <chrono>
#include <string>

#include "app/buttons.h"
#include "families/operation.h"
#include "families/reading_config.h"
#include "image/config_area.h"

namespace quillon {

namespace {

using namespace std::chrono_literals;

}  // namespace

Outcome Operation::Read_All() {
    const ReadingConfig reading{session_.ConfigFromFile};
    LockButtons(form_);
    form_.Lbl_ID_Rev.Caption.set("");
    form_.Lbl_ID_Dev.Caption.set("");
    if (const auto socket = check_socket(); socket != Outcome::Success) return socket;
    const auto tokens = read_areas();
    set_results(tokens);
    if (tokens.pgm == Token::NG || tokens.eep == Token::NG || tokens.cfg == Token::NG) {
        context_.views.ShowConfigSummary();  // what has been read is in the image
        return Outcome::Failed;
    }
    refresh_after_read();
    const bool is_protected = shows_protection();
    if (areas_->read_was_blank())
        messages_.ShowMessage(texts_.read_blank);
    else
        messages_.ShowMessage(is_protected ? texts_.read_protected : texts_.read_done);
    context_.log.note(texts_.read_log);
    // A protected part doesn't answer with its content.
    return is_protected ? Outcome::Failed : Outcome::Success;
}

AreaTokens Operation::read_areas() {
    AreaTokens tokens{Token::Absent, Token::Absent, Token::Absent};
    announce(texts_.reading_pgm);
    if ((tokens.pgm = areas_->Read_Pgm()) == Token::NG) return tokens;
    announce(texts_.reading_eep);
    if ((tokens.eep = areas_->Read_Eep()) == Token::NG) return tokens;
    announce(texts_.reading_cfg);
    tokens.cfg = areas_->Read_Cfg();
    return tokens;
}

// Protection bits that match no option of the catalogue are no open part either.
bool Operation::shows_protection() const {
    return session_.CodeProtect.any() || context_.config.ProtectMixed();
}

void Operation::refresh_after_read() {
    for (std::size_t n = 1; n <= kConfigWords; ++n)
        if (session_.ConfigPresent[n])
            session_.ConfigWord[n] = config_area::word(session_.CfgIdMem, n);
    context_.config.ShowConfigWords();
    context_.views.ShowConfigSummary();
    session_.IdText = form_.Text_ID.Text.get();
}

Outcome Operation::Verify_All() {
    context_.views.ShowProgramMemory();  // removes the mismatches of an earlier run
    if (const auto socket = check_socket(); socket != Outcome::Success) return socket;
    announce(texts_.verify_cfg_now);
    const AreaTokens tokens{Token::Absent, Token::Absent, areas_->Verify_Cfg_Id()};
    Outcome outcome = Outcome::Failed;
    if (session_.CodeProtect.any()) {
        set_results(tokens);
        messages_.ShowMessage(texts_.verify_protected);
        context_.dialogs.box({.title = std::string{texts_.verify_title},
                              .text = std::string{texts_.verify_skipped}});
    } else {
        outcome = verify_memories(tokens);
    }
    for (int i = 0; record_.pauses_after_verify && i < 2; ++i) {
        host_.pump();
        host_.sleep(200ms);
    }
    context_.log.note(texts_.verify_log);
    return outcome;
}

Outcome Operation::verify_memories(AreaTokens tokens) {
    announce(texts_.verify_pgm_now);
    tokens.pgm = areas_->Verify_Pgm();
    announce(texts_.verify_eep_now);
    tokens.eep = areas_->Verify_Eep();
    set_results(tokens);
    return report_verify(tokens);
}

Outcome Operation::report_verify(const AreaTokens& tokens) {
    if (all_verified(tokens) && tokens.cfg == Token::OK) {
        messages_.ShowMessage(texts_.verify_good);
        return Outcome::Success;
    }
    messages_.ShowMessage(texts_.verify_bad);
    const auto line = [this](std::string_view area, Token token) {
        if (token == Token::Absent && record_.blank_report != BlankReport::EveryArea)
            return std::string{};
        return fmt::format("{}\t：{}\r\n", area, text(token));
    };
    std::string report = line(texts_.pgm_checked, tokens.pgm) + line(texts_.eep, tokens.eep) +
                         config_line(tokens.cfg);
    if (const auto note = areas_->verify_note(); !note.empty()) report += "\r\n" + note;
    context_.dialogs.box({.title = std::string{texts_.verify_error_title},
                          .text = report,
                          .icon = BoxIcon::Critical});
    return Outcome::Failed;
}

std::string Operation::config_line(Token token) const {
    const auto& found = areas_->config_found();
    const auto line = fmt::format("{}\t：{}", texts_.cfg_verified, text(token));
    if (found.config.empty() && record_.blank_report != BlankReport::EveryArea) return line;
    return line + fmt::format(texts_.cfg_found, found.config, found.id);
}

}  // namespace quillon
