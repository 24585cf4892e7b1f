// SPDX-License-Identifier: MIT
// Read, verify and the operations on a single area of the 14-bit families.
#include <fmt/format.h>

#include <array>
#include <chrono>

#include "app/buttons.h"
#include "families/flow14.h"
#include "families/flow14_texts.h"
#include "link/words.h"

namespace quillon {

namespace {

using namespace std::chrono_literals;
namespace text = flow14_text;

// The words stand as the device gave them until the read is over, whichever way it ends.
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

Outcome Flow14::Read_All() {
    const FromFileUntilEnd guard{session_.ConfigFromFile};
    LockButtons(form_);
    form_.Lbl_ID_Rev.Caption.set("");
    form_.Lbl_ID_Dev.Caption.set("");
    if (Socket_Check() == Token::NG)
        return session_.Cancelled ? Outcome::Cancelled : Outcome::Failed;
    const Token read = read_areas();
    set_results({session_.ResultPgm, session_.ResultEep, session_.ResultCfg});
    if (read == Token::NG) {
        context_.views.ShowConfigSummary();  // what has been read stands in the image
        return Outcome::Failed;
    }
    refresh_after_read();
    const bool is_protected = session_.CodeProtect == Token::CP;
    if (read_was_blank())
        messages_.ShowMessage(text::kReadBlank);
    else
        messages_.ShowMessage(is_protected ? text::kReadProtected : text::kReadDone);
    context_.log.note(text::kReadLog);
    // What a protected part answers isn't its content.
    return is_protected ? Outcome::Failed : Outcome::Success;
}

Token Flow14::read_areas() {
    if ((session_.ResultPgm = Read_Pgm()) == Token::NG) return Token::NG;
    if ((session_.ResultEep = Read_Eep()) == Token::NG) return Token::NG;
    return session_.ResultCfg = Read_Cfg();
}

void Flow14::refresh_after_read() {
    for (std::size_t n = 1; n <= kConfigWords; ++n) {
        if (!session_.ConfigPresent[n]) continue;
        const auto high = static_cast<std::uint8_t>(session_.CfgIdMem[12 + 2 * n] & 63);
        session_.ConfigWord[n] = word_high_first(high, session_.CfgIdMem[13 + 2 * n]);
    }
    context_.config.ShowConfigWords();
    context_.views.ShowConfigSummary();
    session_.IdText = form_.Text_ID.Text.get();
}

Outcome Flow14::Verify_All() {
    context_.views.ShowProgramMemory();  // the mismatches of an earlier run go
    if (Socket_Check() == Token::NG)
        return session_.Cancelled ? Outcome::Cancelled : Outcome::Failed;
    announce(text::kVerifyCfgNow);
    const ConfigVerdict config = Verify_Cfg();
    Outcome outcome = Outcome::Failed;
    if (session_.CodeProtect == Token::CP) {
        set_results({Token::Absent, Token::Absent, config.result});
        messages_.ShowMessage(text::kVerifyProtected);
        context_.dialogs.box(
            {.title = std::string{text::kVerifyTitle}, .text = std::string{text::kVerifySkipped}});
    } else {
        AreaTokens tokens{.cfg = config.result};
        announce(text::kVerifyPgmNow);
        tokens.pgm = Verify_Pgm();
        announce(text::kVerifyEepNow);
        tokens.eep = Verify_Eep();
        set_results(tokens);
        outcome = report_verify(tokens, config);
    }
    for (int i = 0; i < 2; ++i) {
        host_.pump();
        host_.sleep(200ms);
    }
    context_.log.note(text::kVerifyLog);
    return outcome;
}

Outcome Flow14::report_verify(const AreaTokens& tokens, const ConfigVerdict& config) {
    if (all_verified(tokens) && tokens.cfg == Token::OK) {
        messages_.ShowMessage(text::kVerifyGood);
        return Outcome::Success;
    }
    messages_.ShowMessage(text::kVerifyBad);
    const auto line = [](std::string_view area, Token token) {
        return fmt::format("{}\t：{}", area, quillon::text(token));
    };
    const std::string report =
        line(text::kPgm, tokens.pgm) + "\r\n" + line(text::kEep, tokens.eep) + "\r\n" +
        line(text::kCfgVerified, tokens.cfg) +
        fmt::format(text::kVerifyCfgData, config.config_text, config.id_text);
    context_.dialogs.box(
        {.title = std::string{text::kVerifyErrorTitle}, .text = report, .icon = BoxIcon::Critical});
    return Outcome::Failed;
}

// Status line, pause, routine, and what to say where its word isn't OK.
struct Flow14::ReloadStep {
    std::string_view status;
    std::chrono::milliseconds pause;
    Token (*routine)(Flow14&);
    std::string_view failure;
};

Outcome Flow14::reload(std::span<const ReloadStep> steps, std::string_view done) {
    Outcome outcome = Outcome::Success;
    for (const auto& step : steps) {
        announce(step.status);
        if (step.pause > 0ms) host_.sleep(step.pause);
        if (step.routine(*this) == Token::OK) continue;
        messages_.ShowMessage(step.failure);
        outcome = Outcome::Failed;
        break;
    }
    if (outcome == Outcome::Success) messages_.ShowMessage(done);
    context_.link.Writer_Close();
    return outcome;
}

Outcome Flow14::Pgm_Reload() {
    static constexpr std::array kSteps{
        ReloadStep{text::kWritingPgm, 0ms, [](Flow14& f) { return f.Write_Pgm(); },
                   text::kReloadWritePgmFailed},
        ReloadStep{text::kReloadVerifyingPgm, 0ms, [](Flow14& f) { return f.Verify_Pgm(); },
                   text::kReloadVerifyPgmFailed},
        ReloadStep{text::kReloadWritingCfg, 200ms, [](Flow14& f) { return f.Write_Cfg(); },
                   text::kReloadWriteCfgFailed},
        ReloadStep{text::kVerifyingCfg, 0ms, [](Flow14& f) { return f.Verify_Cfg().result; },
                   text::kReloadVerifyCfgFailed},
    };
    context_.views.ShowProgramMemory();
    return reload(kSteps, text::kReloadPgmDone);
}

Outcome Flow14::Eep_Reload() {
    static constexpr std::array kSteps{
        ReloadStep{text::kReloadErasingEep, 50ms, [](Flow14& f) { return f.Eep_Erase(); },
                   text::kReloadEraseEepFailed},
        ReloadStep{text::kReloadWritingEep, 50ms, [](Flow14& f) { return f.Write_Eep(); },
                   text::kReloadWriteEepFailed},
        ReloadStep{text::kReloadVerifyingEep, 50ms, [](Flow14& f) { return f.Verify_Eep(); },
                   text::kReloadVerifyEepFailed},
    };
    if (session_.EepBytes == 0) {
        messages_.ShowMessage(text::kNoEeprom);
        return Outcome::Failed;
    }
    context_.views.show_eeprom();
    return reload(kSteps, text::kReloadEepDone);
}

}  // namespace quillon
