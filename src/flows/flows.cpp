// SPDX-License-Identifier: MIT
#include "flows/flows.h"

#include <fmt/format.h>

#include <string>

#include "flows/flow_texts.h"
#include "parts/device_traits.h"

namespace quillon {

Outcome Flows::main_button(Chain chain, Outcome (Family::*entry)()) {
    return frame_.run([&] {
        return frame_.with_family(frame_.module(chain), flow_text::kChecking,
                                  [&](Family& family) { return (family.*entry)(); });
    });
}

Outcome Flows::Command_blank() { return main_button(Chain::Blank, &Family::Blank_All); }
Outcome Flows::Command_read() { return main_button(Chain::Read, &Family::Read_All); }
Outcome Flows::Command_Verify() { return main_button(Chain::Verify, &Family::Verify_All); }
Outcome Flows::Command_program() { return main_button(Chain::Program, &Family::Program_All); }

// The per-area dialog keeps what these commands don't.
bool Flows::may_lose_calibration() {
    if (context_.session.PgmType != ProgrammingType::T12F6) return true;
    const auto answer = context_.dialogs.box({
        .title = std::string{flow_text::kCalibrationTitle},
        .text = std::string{flow_text::kCalibrationLost},
        .icon = BoxIcon::Warning,
        .buttons = BoxButtons::OkCancel,
        .default_answer = BoxAnswer::Cancel,
        .name = "calibration",
    });
    if (answer == BoxAnswer::Ok) return true;
    context_.messages.ShowMessage(flow_text::kEraseCancelled);
    return false;
}

void Flows::advise_other_erase(bool known) {
    if (!known && has_flash_name(context_.session.DeviceName))
        context_.messages.AddMessage(flow_text::kUseAreaDialog);
}

Outcome Flows::erase_command(std::string_view status, Token (NamedErase::*erase)()) {
    return frame_.run([&] {
        if (context_.selection.Mcu_Selected_Check() == Token::NG) return Outcome::NoDevice;
        if (!may_lose_calibration()) return Outcome::Cancelled;
        if (context_.link.Writer_Check() == Token::NG) return Outcome::NoBoard;
        context_.link.Writer_Find();
        if (!context_.session.WriterFound) return Outcome::NoBoard;
        if (!status.empty()) context_.messages.ShowMessage(status);
        const Token erased = (erases_.*erase)();
        if (erased == Token::NG) return Outcome::NoBoard;  // its own check found no board
        return erased == Token::OK ? Outcome::Success : Outcome::Failed;
    });
}

Outcome Flows::mnuPgmErase_Click() {
    const auto outcome = erase_command("", &NamedErase::Pgm_Erase);
    if (outcome == Outcome::Failed) advise_other_erase(erases_.knows_Pgm_Erase());
    return outcome;
}

Outcome Flows::mnuChipErase_Click() {
    const auto outcome = erase_command(flow_text::kChipErasing, &NamedErase::Chip_Erase);
    if (outcome == Outcome::Failed) advise_other_erase(erases_.knows_Chip_Erase());
    return outcome;
}

// On other parts the write would overwrite the last word of the program.
Outcome Flows::word_command(Outcome (Family::*entry)()) {
    return frame_.run([&] {
        if (context_.selection.Mcu_Selected_Check() == Token::NG) return Outcome::NoDevice;
        if (!has_single_calibration_word(context_.session.PgmType)) {
            context_.messages.ShowMessage(flow_text::kNoCalibrationWord);
            return Outcome::NotServed;
        }
        return frame_.with_family(frame_.module(), "",
                                  [&](Family& family) { return (family.*entry)(); });
    });
}

Outcome Flows::Command1_Click() { return word_command(&Family::Word_Read); }
Outcome Flows::Command2_Click() { return word_command(&Family::Word_Write); }

Outcome Flows::Label_FirmwareVersion_Click() {
    if (context_.session.WriterFound && !running()) {
        context_.messages.ShowMessage(
            fmt::format(flow_text::kAlreadyFound, context_.session.ComNo));
        return Outcome::Success;
    }
    return frame_.run([&] {
        context_.link.Writer_Find();
        return context_.session.WriterFound ? Outcome::Success : Outcome::NoBoard;
    });
}

}  // namespace quillon
