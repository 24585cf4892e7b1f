// SPDX-License-Identifier: MIT
// Read, verify and the operations on a single area.
#include <fmt/format.h>

#include <chrono>
#include <string>

#include "app/buttons.h"
#include "families/operation.h"
#include "image/config_area.h"

namespace quillon {

namespace {

using namespace std::chrono_literals;

// The words are kept as the device gave them until the read is over, whichever way it ends.
class FromFileUntilEnd {
  public:
    explicit FromFileUntilEnd(bool& flag) : flag_{flag} {}
    ~FromFileUntilEnd() { flag_ = false; }
    FromFileUntilEnd(const FromFileUntilEnd&) = delete;
    FromFileUntilEnd& operator=(const FromFileUntilEnd&) = delete;

  private:
    bool& flag_;
};

}  // namespace

Outcome Operation::Read_All() {
    const FromFileUntilEnd guard{session_.ConfigFromFile};
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
    const bool is_protected = session_.CodeProtect.any();
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
    if ((tokens.pgm = areas_->Read_Pgm()) == Token::NG) return tokens;
    if ((tokens.eep = areas_->Read_Eep()) == Token::NG) return tokens;
    tokens.cfg = areas_->Read_Cfg();
    return tokens;
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
    const AreaTokens tokens{Token::Absent, Token::Absent, areas_->Verify_Cfg()};
    Outcome outcome = Outcome::Failed;
    if (session_.CodeProtect.any()) {
        set_results(tokens);
        messages_.ShowMessage(texts_.verify_protected);
        context_.dialogs.box({.title = std::string{texts_.verify_title},
                              .text = std::string{texts_.verify_skipped}});
    } else {
        outcome = verify_memories(tokens);
    }
    for (int i = 0; i < 2; ++i) {
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
    const auto line = [](std::string_view area, Token token) {
        return fmt::format("{}\t：{}", area, text(token));
    };
    const auto& found = areas_->config_found();
    const std::string report = line(texts_.pgm, tokens.pgm) + "\r\n" +
                               line(texts_.eep, tokens.eep) + "\r\n" +
                               line(texts_.cfg_verified, tokens.cfg) +
                               fmt::format(operation_text::kVerifyCfgData, found.config, found.id);
    context_.dialogs.box({.title = std::string{texts_.verify_error_title},
                          .text = report,
                          .icon = BoxIcon::Critical});
    return Outcome::Failed;
}

Outcome Operation::reload(std::span<const Step> steps, std::string_view done) {
    const bool stopped = run_steps(steps, *areas_, context_).stopped;
    if (!stopped) messages_.ShowMessage(done);
    context_.link.Writer_Close();
    return stopped ? Outcome::Failed : Outcome::Success;
}

Outcome Operation::Pgm_Reload() {
    context_.views.ShowProgramMemory();
    return reload(record_.reload_pgm, texts_.reload_pgm_done);
}

Outcome Operation::Eep_Reload() {
    if (session_.EepBytes == 0) {
        messages_.ShowMessage(texts_.no_eeprom);
        return Outcome::Failed;
    }
    context_.views.show_eeprom();
    return reload(record_.reload_eep, texts_.reload_eep_done);
}

}  // namespace quillon
