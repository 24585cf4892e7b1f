// SPDX-License-Identifier: MIT
// Blank check and program; flow14_read.cpp has read, verify and the single areas.
#include "families/flow14.h"

#include <fmt/format.h>

#include <chrono>

#include "app/buttons.h"
#include "families/flow14_texts.h"

namespace quillon {

namespace {

using namespace std::chrono_literals;
namespace text = flow14_text;

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
    if (session_.FormAnswer == 1) return Go::On;
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

}  // namespace quillon
