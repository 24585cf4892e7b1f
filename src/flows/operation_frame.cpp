// SPDX-License-Identifier: MIT
#include "flows/operation_frame.h"

#include <fmt/format.h>

#include <string>

#include "app/buttons.h"
#include "families/make_family.h"
#include "flows/flow_texts.h"

namespace quillon {

namespace {

// True while an operation runs, whichever way it ends.
class Running {
  public:
    explicit Running(bool& flag) : flag_{flag} { flag_ = true; }
    ~Running() { flag_ = false; }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

  private:
    bool& flag_;
};

}  // namespace

Outcome OperationFrame::run(const Operation& operation) {
    if (running_) return Outcome::Failed;
    const Running running{running_};
    Outcome outcome = Outcome::Failed;
    try {
        outcome = run_within(operation);
        give_controls_back();
    } catch (const Abandoned& abandoned) {
        outcome = abandon(abandoned.reason);
    } catch (...) {
        context_.port.close();
        give_controls_back();
        throw;
    }
    context_.session.Status = outcome == Outcome::Success ? Token::OK : Token::NG;
    failed_runs_ = context_.session.TryCount - context_.session.PassCount;
    return outcome;
}

Outcome OperationFrame::run_within(const Operation& operation) {
    open();
    const Outcome outcome = operation();
    report_lost_calibration();
    close_link();
    return outcome;
}

void OperationFrame::open() {
    auto& session = context_.session;
    auto& form = context_.form;
    LockButtons(form);
    form.mnuComPort.Enabled.set(false);
    form.Command_stop.Enabled.set(true);
    form.Lbl_Calib_ReadWrite_Data.Caption.set("--");
    form.CmbInit.Visible.set(false);
    form.TxtInit.Visible.set(false);
    session.OpStart = context_.host.now();
    session.CodeProtect = {};
    session.ResultPgm = session.ResultEep = session.ResultCfg = Token::Absent;
    session.ResultAll.clear();
    session.FailDetail.clear();
    session.word_known = session.bandgap_known = false;
    session.word_at_risk = session.bandgap_at_risk = false;
}

// The operation's verdict is known by now: giving up here only cuts the pauses short.
void OperationFrame::close_link() {
    try {
        context_.link.Writer_Close();
    } catch (const Abandoned& abandoned) {
        context_.port.close();
        if (abandoned.reason == Abandoned::Reason::PortLost) context_.link.show_no_board();
    }
}

void OperationFrame::give_controls_back() {
    context_.form.Command_stop.Enabled.set(false);
    context_.form.mnuComPort.Enabled.set(true);
    release_buttons(context_.session.PgmType.text(), context_.form);
    context_.form.WaitCursor.set(false);
    context_.messages.ShowProgress(Messages::Progress::Off);
    context_.form.Focus.set("frmMain");
}

// No one can restore the factory's values but from here: the next read finds the part erased.
void OperationFrame::report_lost_calibration() {
    auto& session = context_.session;
    if (!session.word_at_risk && !session.bandgap_at_risk) return;
    session.word_at_risk = session.bandgap_at_risk = false;
    const auto values = fmt::format(flow_text::kCalibrationAtRisk, session.CalibHi, session.CalibLo,
                                    session.CalibBg);
    context_.messages.AddMessage("red" + values, flow_text::kCalibrationAtRiskHint);
    context_.log.note(fmt::format("{}  {}", values, session.DeviceName));
}

// Doesn't wait and sends nothing, so that giving up takes effect at once. The next operation's
// check brings the board back to its command loop.
Outcome OperationFrame::abandon(Abandoned::Reason reason) {
    auto& session = context_.session;
    context_.port.close();
    // The run as a whole has no result, even if an area has one.
    session.ResultPgm = session.ResultEep = session.ResultCfg = Token::Absent;
    session.ResultAll.clear();
    // A read may have changed a part of the image: the check sum is the present image's.
    context_.views.ShowConfigSummary();
    give_controls_back();
    if (reason == Abandoned::Reason::PortLost) {
        context_.link.show_no_board();
        context_.messages.ShowMessage(flow_text::kPortLost, flow_text::kPortLostHint);
        report_lost_calibration();
        return Outcome::PortLost;
    }
    context_.messages.ShowMessage(flow_text::kGivenUp);
    report_lost_calibration();
    return Outcome::GivenUp;
}

// A count of words is sent in two bytes. A count of 0 would be written and verified at once, as a
// success.
bool OperationFrame::size_fits_wire() const {
    const auto& session = context_.session;
    return session.PgmWords > 0 && (session.PgmWords <= 0xFFFF || is_pic18(session.PgmType));
}

Module OperationFrame::module(Chain chain) const {
    return module_of(context_.form.Combo_device.Text.get(), chain);
}

Outcome OperationFrame::with_family(Module module, std::string_view status,
                                    const FamilyOperation& operation) {
    auto& messages = context_.messages;
    if (context_.selection.Mcu_Selected_Check() == Token::NG) return Outcome::NoDevice;
    if (!size_fits_wire()) {
        messages.ShowMessage(flow_text::kBadSize);
        return Outcome::Failed;
    }
    const auto family = make_family(module, context_);
    if (!family) {
        messages.ShowMessage(flow_text::kNotServed);
        return Outcome::NotServed;
    }
    if (!status.empty()) {
        messages.ShowMessage(status);
        context_.host.pump();
    }
    if (context_.link.Writer_Check() == Token::NG) return Outcome::NoBoard;
    return operation(*family);
}

void OperationFrame::stop() {
    if (!running_) return;
    context_.form.Command_stop.Enabled.set(false);
    context_.host.give_up(Abandoned::Reason::Stopped);
}

}  // namespace quillon
