// SPDX-License-Identifier: MIT
#include "flows/flows.h"

#include <fmt/format.h>

#include "app/buttons.h"
#include "flows/flow_texts.h"
#include "image/fill.h"

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

template <typename Operation>
Outcome Flows::run(Operation operation) {
    if (running_) return Outcome::Failed;
    const Running running{running_};
    Outcome outcome = Outcome::Failed;
    try {
        open();
        outcome = operation();
        close();
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

void Flows::open() {
    auto& session = context_.session;
    auto& form = context_.form;
    LockButtons(form);
    form.mnuComPort.Enabled.set(false);
    form.Command_stop.Enabled.set(true);
    form.Lbl_Calib_ReadWrite_Data.Caption.set("--");
    form.CmbInit.Visible.set(false);
    form.TxtInit.Visible.set(false);
    session.CodeProtect = {};
    session.ResultPgm = session.ResultEep = session.ResultCfg = Token::Absent;
    session.ResultAll.clear();
    session.FailDetail.clear();
}

// The operation's verdict is known by now: giving up here only cuts the pauses short.
void Flows::close() {
    try {
        context_.link.Writer_Close();
    } catch (const Abandoned& abandoned) {
        context_.port.close();
        if (abandoned.reason == Abandoned::Reason::PortLost) context_.link.show_no_board();
    }
    give_controls_back();
}

void Flows::give_controls_back() {
    context_.form.Command_stop.Enabled.set(false);
    context_.form.mnuComPort.Enabled.set(true);
    release_buttons(context_.session.PgmType.text(), context_.form);
    context_.form.WaitCursor.set(false);
    context_.messages.ShowProgress(Messages::Progress::Off);
    context_.form.Focus.set("frmMain");
}

// Doesn't wait and sends nothing, so that giving up takes effect at once. The next operation's
// check brings the board back to its command loop.
Outcome Flows::abandon(Abandoned::Reason reason) {
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
        return Outcome::PortLost;
    }
    context_.messages.ShowMessage(flow_text::kGivenUp);
    return Outcome::GivenUp;
}

// A count of words is sent in two bytes. A count of 0 would be written and verified at once, as a
// success.
bool Flows::size_fits_wire() const {
    const auto& session = context_.session;
    return session.PgmWords > 0 && (session.PgmWords <= 0xFFFF || is_pic18(session.PgmType));
}

Outcome Flows::main_button(Chain chain, Outcome (Family::*entry)()) {
    return run([&] {
        if (context_.selection.Mcu_Selected_Check() == Token::NG) return Outcome::NoDevice;
        if (!size_fits_wire()) {
            context_.messages.ShowMessage(flow_text::kBadSize);
            return Outcome::Failed;
        }
        context_.messages.ShowMessage(flow_text::kChecking);
        context_.host.pump();
        if (context_.link.Writer_Check() == Token::NG) return Outcome::NoBoard;
        const auto family =
            make_family(module_of(context_.form.Combo_device.Text.get(), chain), context_);
        if (!family) {
            context_.messages.ShowMessage(flow_text::kNotServed);
            return Outcome::NotServed;
        }
        return ((*family).*entry)();
    });
}

Outcome Flows::Command_blank() { return main_button(Chain::Blank, &Family::Blank_All); }
Outcome Flows::Command_read() { return main_button(Chain::Read, &Family::Read_All); }
Outcome Flows::Command_Verify() { return main_button(Chain::Verify, &Family::Verify_All); }
Outcome Flows::Command_program() { return main_button(Chain::Program, &Family::Program_All); }

Outcome Flows::erase_command(std::string_view status, Token (GenericEngine::*erase)()) {
    return run([&] {
        if (context_.selection.Mcu_Selected_Check() == Token::NG) return Outcome::NoDevice;
        if (context_.link.Writer_Check() == Token::NG) return Outcome::NoBoard;
        context_.link.Writer_Find();
        if (!context_.session.WriterFound) return Outcome::NoBoard;
        if (!status.empty()) context_.messages.ShowMessage(status);
        const Token erased = (engine_.*erase)();
        if (erased == Token::NG) return Outcome::NoBoard;  // its own check found no board
        return erased == Token::OK ? Outcome::Success : Outcome::Failed;
    });
}

Outcome Flows::mnuPgmErase_Click() { return erase_command("", &GenericEngine::Pgm_Erase); }
Outcome Flows::mnuChipErase_Click() {
    return erase_command(flow_text::kChipErasing, &GenericEngine::Chip_Erase);
}

void Flows::Command_stop_Click() {
    if (!running_) return;
    context_.form.Command_stop.Enabled.set(false);
    context_.host.give_up(Abandoned::Reason::Stopped);
}

Outcome Flows::Label_FirmwareVersion_Click() {
    if (context_.session.WriterFound && !running_) {
        context_.messages.ShowMessage(
            fmt::format(flow_text::kAlreadyFound, context_.session.ComNo));
        return Outcome::Success;
    }
    return run([&] {
        context_.link.Writer_Find();
        return context_.session.WriterFound ? Outcome::Success : Outcome::NoBoard;
    });
}

}  // namespace quillon
