// SPDX-License-Identifier: MIT
#include "families/flow14.h"

#include <fmt/format.h>

#include <array>
#include <chrono>

#include "app/buttons.h"
#include "families/flow14_texts.h"

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

std::string clock_text(const std::tm& time) {
    return fmt::format("{:02}:{:02}:{:02}", time.tm_hour, time.tm_min, time.tm_sec);
}

// An area that doesn't exist reads as not erased here: the report knows two verdicts only.
std::string blank_line(std::string_view area, Token token) {
    return fmt::format("{}\t{}\r\n", area,
                       token == Token::YB ? text::kAreaBlank : text::kAreaNotBlank);
}

}  // namespace

void Flow14::announce(std::string_view status) {
    messages_.ShowMessage(status);
    host_.pump();
}

void Flow14::set_results(const AreaTokens& tokens) {
    session_.ResultPgm = tokens.pgm;
    session_.ResultEep = tokens.eep;
    session_.ResultCfg = tokens.cfg;
    session_.ResultAll = quillon::text(tokens);
}

Outcome Flow14::Blank_All() {
    LockButtons(form_);
    form_.WaitCursor.set(true);
    announce(text::kBlankChecking);
    context_.views.ShowProgramMemory();
    AreaTokens tokens;
    tokens.pgm = Blank_Pgm();
    tokens.eep = Blank_Eep();
    tokens.cfg = Blank_Cfg();
    set_results(tokens);
    const bool link_error =
        tokens.pgm == Token::ER || tokens.eep == Token::ER || tokens.cfg == Token::ER;
    if (link_error) {
        messages_.ShowMessage(text::kLinkError);
    } else if (!all_blank(tokens)) {
        report_not_blank(tokens);
    } else {
        messages_.ShowMessage(text::kBlank);
    }
    context_.log.note(text::kBlankLog);
    return all_blank(tokens) ? Outcome::Success : Outcome::Failed;
}

void Flow14::report_not_blank(const AreaTokens& tokens) {
    messages_.ShowMessage(text::kNotBlank);
    std::string report = blank_line(text::kPgm, tokens.pgm) + blank_line(text::kEep, tokens.eep) +
                         blank_line(text::kCfgAndId, tokens.cfg);
    if (session_.CodeProtect == Token::CP) report += text::kProtected;
    context_.dialogs.box(
        {.title = std::string{text::kBlankTitle}, .text = report, .icon = BoxIcon::Warning});
}

Outcome Flow14::Program_All() {
    const auto started = host_.now();
    LockButtons(form_);
    form_.Lbl_Calib_ReadWrite_Data.Caption.set("");
    context_.views.ShowProgramMemory();
    context_.views.show_eeprom();
    if (Socket_Check() == Token::NG)
        return session_.Cancelled ? Outcome::Cancelled : Outcome::Failed;
    announce(text::kProgramming);
    const bool skip = form_.mnuBlankSkip.Enabled.get() && form_.mnuBlankSkip.Checked.get();
    if (!skip && check_blank() == Go::Stop)
        return session_.Cancelled ? Outcome::Cancelled : Outcome::Failed;

    announce(text::kErasing);
    if (Erase_All() != Token::OK) {
        messages_.ShowMessage(text::kEraseFailed);
        context_.link.Writer_Close();
        return Outcome::Failed;
    }
    // From here on the device is changed: a run that stops counts as failed.
    ++session_.TryCount;
    set_results({Token::OK, Token::OK, Token::OK});
    if (write_pgm_and_eep() == Go::Stop || write_cfg() == Go::Stop) return Outcome::Failed;
    return conclude(started);
}

Flow14::Go Flow14::check_blank() {
    AreaTokens tokens{Token::Absent, Token::Absent, Token::Absent};
    announce(text::kBlankChecking);
    if ((tokens.pgm = Blank_Pgm()) == Token::ER || (tokens.eep = Blank_Eep()) == Token::ER ||
        (tokens.cfg = Blank_Cfg()) == Token::ER) {
        set_results(tokens);
        return Go::Stop;
    }
    if (all_blank(tokens)) {
        announce(text::kBlankDone);
    } else if (ask_overwrite() == Go::Stop) {
        set_results(tokens);
        return Go::Stop;
    }
    host_.sleep(200ms);
    return Go::On;
}

Flow14::Go Flow14::ask_overwrite() {
    announce(text::kWritten);
    const bool is_protected = session_.CodeProtect == Token::CP;
    session_.FormAnswer = context_.dialogs.frmHint({
        .line1 = std::string{is_protected ? text::kOverwriteProtected : text::kOverwriteUsed},
        .line2 = std::string{text::kOverwriteQuestion},
    });
    if (session_.FormAnswer != 2) return Go::On;
    session_.Cancelled = true;
    messages_.ShowMessage(text::kOverwriteCancelled);
    return Go::Stop;
}

void Flow14::fail_with_box(std::string_view title, std::string_view message) {
    context_.dialogs.box(
        {.title = std::string{title}, .text = std::string{message}, .icon = BoxIcon::Critical});
}

Flow14::Go Flow14::write_pgm_and_eep() {
    announce(text::kWritingPgm);
    host_.sleep(200ms);
    const Token pgm = Write_Pgm();
    if (pgm == Token::ER || pgm == Token::NG) {
        set_results({pgm, Token::Absent, Token::Absent});
        // The board is let go before the box comes up, so that it isn't held while the user reads.
        context_.link.Writer_Close();
        fail_with_box(text::kWritePgmTitle, text::kWritePgmFailed);
        return Go::Stop;
    }
    if (!session_.ExtendPgmOnly) {
        announce(text::kWritingEep);
        const Token eep = Write_Eep();
        if (eep == Token::ER || eep == Token::NG) {
            set_results({Token::Absent, eep, Token::Absent});
            fail_with_box(text::kWriteEepTitle, text::kWriteEepFailed);
            return Go::Stop;
        }
    }
    // A mismatch doesn't stop the run: it is told at the end, with the other areas'.
    announce(text::kVerifyingPgm);
    host_.sleep(200ms);
    session_.ResultPgm = Verify_Pgm();
    if (!session_.ExtendPgmOnly) {
        announce(text::kVerifyingEep);
        session_.ResultEep = Verify_Eep();
    }
    return Go::On;
}

Flow14::Go Flow14::write_cfg() {
    if (session_.ExtendPgmOnly && !session_.ExtendCfgToo) return Go::On;
    announce(text::kWritingCfg);
    host_.sleep(200ms);
    const Token cfg = Write_Cfg();
    if (cfg != Token::OK) {
        set_results({session_.ResultPgm, session_.ResultEep, cfg});
        fail_with_box("", text::kWriteCfgFailed);
        return Go::Stop;
    }
    announce(text::kVerifyingCfg);
    session_.ResultCfg = Verify_Cfg().result;
    return Go::On;
}

Outcome Flow14::conclude(Host::Time started) {
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(host_.now() - started);
    const std::string clock = clock_text(host_.local_time());
    if (session_.ExtendPgmOnly) {
        session_.ResultEep = Token::Absent;
        if (!session_.ExtendCfgToo) session_.ResultCfg = Token::Absent;
    }
    const AreaTokens tokens{session_.ResultPgm, session_.ResultEep, session_.ResultCfg};
    set_results(tokens);
    if (all_verified(tokens)) {
        ++session_.PassCount;
        session_.FailDetail =
            fmt::format(text::kSuccess, seconds.count(), clock, session_.PassCount,
                        session_.TryCount - session_.PassCount);
        messages_.ShowMessage(session_.FailDetail);
        context_.log.LOG_data_write();
        return Outcome::Success;
    }
    ++session_.FailCount;
    session_.FailDetail = fmt::format(text::kFailure, clock, session_.PassCount,
                                      session_.TryCount - session_.PassCount);
    messages_.ShowMessage("red" + session_.FailDetail);
    context_.log.LOG_data_write();
    show_areas_box(tokens);
    return Outcome::Failed;
}

void Flow14::show_areas_box(const AreaTokens& tokens) {
    const auto line = [](std::string_view area, Token token) {
        return fmt::format("{}\t={}\r\n", area, quillon::text(token));
    };
    std::string report = line(text::kPgm, tokens.pgm);
    if (tokens.eep != Token::Absent) report += line(text::kEep, tokens.eep);
    if (tokens.cfg != Token::Absent) report += line(text::kCfgProgrammed, tokens.cfg);
    context_.dialogs.box(
        {.title = std::string{text::kVerifyTitle}, .text = report, .icon = BoxIcon::Information});
}

Outcome Flow14::Read_All() {
    const FromFileUntilEnd guard{session_.ConfigFromFile};
    LockButtons(form_);
    form_.Lbl_ID_Rev.Caption.set("");
    form_.Lbl_ID_Dev.Caption.set("");
    if (Socket_Check() == Token::NG)
        return session_.Cancelled ? Outcome::Cancelled : Outcome::Failed;
    if ((session_.ResultPgm = Read_Pgm()) == Token::NG) return Outcome::Failed;
    if ((session_.ResultEep = Read_Eep()) == Token::NG) return Outcome::Failed;
    if ((session_.ResultCfg = Read_Cfg()) == Token::NG) return Outcome::Failed;
    set_results({session_.ResultPgm, session_.ResultEep, session_.ResultCfg});
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
        ReloadStep{text::kReloadWritingPgm, 0ms, [](Flow14& f) { return f.Write_Pgm(); },
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
    context_.views.show_eeprom();
    return reload(kSteps, text::kReloadEepDone);
}

}  // namespace quillon
