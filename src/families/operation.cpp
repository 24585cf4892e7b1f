// SPDX-License-Identifier: MIT
// Blank check and program; operation_read.cpp has read and verify, operation_areas.cpp the single
// areas.
#include "families/operation.h"

#include <fmt/format.h>

#include <chrono>
#include <string>
#include <utility>

#include "app/buttons.h"

namespace quillon {

namespace {

using namespace std::chrono_literals;

std::string clock_text(const std::tm& time) {
    return fmt::format("{:02}:{:02}:{:02}", time.tm_hour, time.tm_min, time.tm_sec);
}

}  // namespace

Operation::Operation(RunContext& context, std::unique_ptr<Areas> areas,
                     const OperationRecord& record)
    : context_{context},
      session_{context.session},
      form_{context.form},
      host_{context.host},
      messages_{context.messages},
      areas_{std::move(areas)},
      record_{record},
      texts_{*record.texts} {}

void Operation::announce(std::string_view status) {
    if (status.empty()) return;
    messages_.ShowMessage(status);
    host_.pump();
}

void Operation::set_results(const AreaTokens& tokens) {
    session_.ResultPgm = tokens.pgm;
    session_.ResultEep = tokens.eep;
    session_.ResultCfg = tokens.cfg;
    session_.ResultAll = text(tokens);
}

Outcome Operation::check_socket() {
    const auto verdict = areas_->Socket_Check();
    if (may_go_on(verdict)) return Outcome::Success;
    return verdict == SocketVerdict::Refused ? Outcome::Cancelled : Outcome::Failed;
}

Outcome Operation::Blank_All() {
    LockButtons(form_);
    form_.WaitCursor.set(true);
    announce(texts_.blank_checking);
    context_.views.ShowProgramMemory();
    const AreaTokens tokens = blank_areas();
    set_results(tokens);
    const bool link_error =
        tokens.pgm == Token::ER || tokens.eep == Token::ER || tokens.cfg == Token::ER;
    if (link_error)
        messages_.ShowMessage(texts_.link_error);
    else if (!all_blank(tokens))
        report_not_blank(tokens);
    else
        messages_.ShowMessage(texts_.blank, areas_->blank_notes().status);
    context_.log.note(texts_.blank_log);
    return all_blank(tokens) ? Outcome::Success : Outcome::Failed;
}

AreaTokens Operation::blank_areas() {
    AreaTokens tokens;
    if (record_.blank_config_first) tokens.cfg = areas_->Blank_Cfg();
    tokens.pgm = areas_->Blank_Pgm();
    tokens.eep = areas_->Blank_Eep();
    if (!record_.blank_config_first) tokens.cfg = areas_->Blank_Cfg();
    return tokens;
}

void Operation::report_not_blank(const AreaTokens& tokens) {
    const auto notes = areas_->blank_notes();
    messages_.ShowMessage(texts_.not_blank, notes.status);
    if (record_.blank_report == BlankReport::StatusOnly) return;
    // The report has only two verdicts.
    const auto line = [this](std::string_view area, Token token) {
        if (token == Token::Absent && record_.blank_report == BlankReport::OwnAreas)
            return std::string{};
        return fmt::format("{}\t{}\r\n", area,
                           is_blank(token) ? texts_.area_blank : texts_.area_not_blank);
    };
    std::string report = line(texts_.pgm_checked, tokens.pgm) + line(texts_.eep, tokens.eep) +
                         line(texts_.cfg_and_id, tokens.cfg);
    if (notes.oscillator) report += line(texts_.oscillator, *notes.oscillator);
    if (!notes.report.empty()) report += notes.report + "\r\n";
    if (session_.CodeProtect.any()) report += texts_.is_protected;
    context_.dialogs.box(
        {.title = std::string{texts_.blank_title}, .text = report, .icon = BoxIcon::Warning});
}

Outcome Operation::Program_All() {
    const Host::Time started = record_.counts_check_time ? session_.OpStart : host_.now();
    LockButtons(form_);
    form_.Lbl_Calib_ReadWrite_Data.Caption.set("");
    context_.views.ShowProgramMemory();
    context_.views.show_eeprom();
    if (const auto socket = check_socket(); socket != Outcome::Success) return socket;
    announce(texts_.programming);
    if (run_steps(record_.before, *areas_, context_).stopped) return Outcome::Failed;
    const bool skip = form_.mnuBlankSkip.Enabled.get() && form_.mnuBlankSkip.Checked.get();
    if (const auto go = skip ? Go::On : check_blank(); go != Go::On)
        return go == Go::Cancel ? Outcome::Cancelled : Outcome::Failed;
    if (!skip || record_.pauses_without_check) host_.sleep(200ms);
    if (!erase_all()) return Outcome::Failed;
    // From here on the device is changed: a run that stops counts as failed.
    ++session_.TryCount;
    auto written = run_steps(record_.write, *areas_, context_);
    if (record_.hides_config_of_side && session_.ExtendPgmOnly && written.tokens.cfg == Token::OK)
        written.tokens.cfg = Token::Absent;
    set_results(written.tokens);
    return written.stopped ? Outcome::Failed : conclude(started);
}

Operation::Go Operation::check_blank() {
    AreaTokens tokens{Token::Absent, Token::Absent, Token::Absent};
    announce(texts_.blank_checking);
    Go go = Go::On;
    if ((tokens.pgm = areas_->Blank_Pgm()) == Token::ER ||
        (tokens.eep = areas_->Blank_Eep()) == Token::ER ||
        (tokens.cfg = areas_->Blank_Cfg()) == Token::ER)
        go = Go::Stop;
    else if (all_blank(tokens))
        announce(texts_.blank_done);
    else
        go = ask_overwrite();
    if (go != Go::On) set_results(tokens);
    return go;
}

Operation::Go Operation::ask_overwrite() {
    announce(texts_.written);
    const bool is_protected = session_.CodeProtect.any();
    session_.FormAnswer = context_.dialogs.frmHint({
        .line1 = std::string{is_protected ? texts_.overwrite_protected : texts_.overwrite_used},
        .line2 = std::string{texts_.overwrite_question},
    });
    if (session_.FormAnswer == 1) return Go::On;
    messages_.ShowMessage(texts_.overwrite_cancelled);
    return Go::Cancel;
}

bool Operation::erase_all() {
    if (record_.erase.empty()) return true;
    announce(texts_.erasing);
    if (run_steps(record_.erase, *areas_, context_).stopped) {
        messages_.ShowMessage(texts_.erase_failed);
        context_.link.Writer_Close();
        return false;
    }
    if (!texts_.erased.empty()) messages_.ShowMessage(texts_.erased);
    return true;
}

Outcome Operation::conclude(Host::Time started) {
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(host_.now() - started);
    const std::string clock = clock_text(host_.local_time());
    const AreaTokens tokens{session_.ResultPgm, session_.ResultEep, session_.ResultCfg};
    if (all_verified(tokens)) {
        ++session_.PassCount;
        session_.FailDetail =
            fmt::format(operation_text::kSuccess, seconds.count(), clock, session_.PassCount,
                        session_.TryCount - session_.PassCount);
        messages_.ShowMessage(session_.FailDetail);
        if (const auto warning = areas_->calibration_warning(); !warning.empty())
            messages_.AddMessage(warning);
        context_.log.LOG_data_write();
        return Outcome::Success;
    }
    ++session_.FailCount;
    session_.FailDetail = fmt::format(operation_text::kFailure, clock, session_.PassCount,
                                      session_.TryCount - session_.PassCount);
    messages_.ShowMessage("red" + session_.FailDetail);
    context_.log.LOG_data_write();
    show_areas_box(tokens);
    return Outcome::Failed;
}

void Operation::show_areas_box(const AreaTokens& tokens) {
    const auto line = [this](std::string_view area, Token token) {
        return fmt::format("{}\t{}{}\r\n", area, texts_.result_is, text(token));
    };
    std::string report = line(texts_.pgm, tokens.pgm);
    if (tokens.eep != Token::Absent) report += line(texts_.eep, tokens.eep);
    if (tokens.cfg != Token::Absent) report += line(texts_.cfg_programmed, tokens.cfg);
    context_.dialogs.box(
        {.title = std::string{texts_.verify_title}, .text = report, .icon = BoxIcon::Information});
}

}  // namespace quillon
