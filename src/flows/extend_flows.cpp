// SPDX-License-Identifier: MIT
#include "flows/extend_flows.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "app/number_settings.h"
#include "families/named_erase.h"
#include "flows/extend_texts.h"
#include "flows/flow_texts.h"
#include "image/config_area.h"
#include "image/fill.h"
#include "parts/device_traits.h"

namespace quillon {

namespace {

// The erase of these parts takes long enough to look like a hang.
constexpr std::array<std::string_view, 2> kLongErase{"PIC18F2515", "PIC18F4585"};
constexpr std::uint32_t kOnes14 = 0x3FFF;

// True while the program button's operation runs, whichever way it ends.
class ProgramSideOnly {
  public:
    explicit ProgramSideOnly(Session& session) : session_{session} { set(true); }
    ~ProgramSideOnly() { set(false); }
    ProgramSideOnly(const ProgramSideOnly&) = delete;
    ProgramSideOnly& operator=(const ProgramSideOnly&) = delete;

  private:
    void set(bool on) { session_.ExtendPgmOnly = session_.ExtendCfgToo = on; }

    Session& session_;
};

bool is_board_module(std::string_view device) { return device.starts_with("ZQ-LDR"); }

}  // namespace

ExtendFlows::ExtendFlows(RunContext& context, OperationFrame& frame, ExtendForm& form,
                         Settings& settings)
    : context_{context}, frame_{frame}, form_{form}, settings_{settings}, erases_{context} {
    // The dialog's buttons can be used whenever the button that opens it can.
    watches_.push_back(context.form.Cmd_Extend_Program.Enabled.observe(
        [this](bool enabled) { enable_buttons(enabled); }));
    // Selecting a device unloads the form too.
    watches_.push_back(form.Visible.observe([this](bool visible) {
        if (!visible) save_place();
    }));
}

void ExtendFlows::Form_Load() {
    form_.Left = value_of(settings_, number_setting::ExtPgmLeft);
    form_.Top = value_of(settings_, number_setting::ExtPgmTop);
    const auto& session = context_.session;
    const bool code_alone = is_pic18(session.PgmType) || has_id_with_bit_7(session.DeviceName);
    form_.Label_PGM.Caption.set(
        std::string{code_alone ? extend_text::kCodeAlone : extend_text::kWithConfig});
    form_.Label_DATA.Caption.set(
        std::string{session.EepBytes == 0 ? extend_text::kEepromNone : extend_text::kEeprom});
    enable_buttons(context_.form.Cmd_Extend_Program.Enabled.get());
    form_.Visible.set(true);
}

void ExtendFlows::Form_Unload() { form_.Visible.set(false); }

void ExtendFlows::save_place() {
    settings_.save("ExtPgmLeft", form_.Left);
    settings_.save("ExtPgmTop", form_.Top);
}

void ExtendFlows::enable_buttons(bool enabled) {
    for (auto* button :
         {&form_.Cmd_Chip_Erace, &form_.Cmd_PGM_Erase, &form_.Cmd_PGM_Program, &form_.Cmd_PGM_Read,
          &form_.Cmd_PGM_PcbufferClear, &form_.Cmd_DATA_Erase, &form_.Cmd_DATA_Program,
          &form_.Cmd_DATA_Read, &form_.Cmd_DATA_PcbufferClear})
        button->Enabled.set(enabled);
}

Outcome ExtendFlows::Cmd_Chip_Erace_Click() {
    return frame_.run([this] {
        return frame_.with_family(frame_.module(), "", [this](Family& family) {
            const bool is_long = std::ranges::count(kLongErase, context_.session.DeviceName) > 0;
            if (is_long) context_.messages.ShowMessage(extend_text::kLongErase);
            const auto outcome = family.Erase_All();
            if (outcome == Outcome::NoBoard) return outcome;  // the check's words stay
            const bool done = outcome == Outcome::Success;
            context_.messages.ShowMessage(done ? extend_text::kChipErased
                                               : extend_text::kChipEraseFailed);
            if (is_long && done) context_.messages.AddMessage(extend_text::kLongEraseDone);
            return outcome;
        });
    });
}

Outcome ExtendFlows::Cmd_PGM_Erase_Click() {
    return frame_.run([this] {
        return frame_.with_family(frame_.module(), "", [this](Family& family) {
            const auto outcome = family.Pgm_Erase();
            tell(outcome, extend_text::kPgmErased, extend_text::kPgmEraseFailed);
            if (outcome == Outcome::Success && frame_.module() == Module::Generic)
                name_other_areas();
            const bool by_name = frame_.module() == Module::Generic;
            advise_chip_erase(outcome, !by_name || erases_.knows_Pgm_Erase());
            return outcome;
        });
    });
}

Outcome ExtendFlows::Cmd_DATA_Erase_Click() {
    // The list of this operation names PIC16F690 differently, so that part is erased by name.
    const bool by_name = context_.session.DeviceName == "PIC16F690";
    return frame_.run([this, by_name] {
        const auto module = by_name ? Module::Generic : frame_.module();
        return frame_.with_family(module, "", [this, module](Family& family) {
            if (context_.session.EepBytes == 0) {
                context_.messages.ShowMessage(extend_text::kNoEeprom);
                return Outcome::Failed;
            }
            const auto outcome = family.Eep_Erase();
            tell(outcome, extend_text::kEepErased, extend_text::kEepEraseFailed);
            advise_chip_erase(outcome, module != Module::Generic || erases_.knows_Eep_Erase());
            return outcome;
        });
    });
}

// A device that no family claims runs the main form's operation, with a check of its own.
Outcome ExtendFlows::Cmd_PGM_Program_Click() {
    return frame_.run([this] {
        const auto module = frame_.module();
        return frame_.with_family(module, flow_text::kChecking, [this, module](Family& family) {
            const ProgramSideOnly only{context_.session};
            if (module != Module::Generic) return family.Pgm_Reload();
            return frame_.run_within([this] {
                return frame_.with_family(Module::Generic, flow_text::kChecking,
                                          [](Family& generic) { return generic.Program_All(); });
            });
        });
    });
}

Outcome ExtendFlows::Cmd_DATA_Program_Click() {
    return frame_.run([this] {
        return frame_.with_family(frame_.module(), extend_text::kProgrammingEep,
                                  [](Family& family) { return family.Eep_Reload(); });
    });
}

Outcome ExtendFlows::Cmd_PGM_Read_Click() {
    return frame_.run([this] {
        return frame_.with_family(frame_.module(), "", [this](Family& family) {
            const auto outcome = family.Read_Pgm();
            tell(outcome, extend_text::kPgmRead, extend_text::kPgmReadFailed);
            if (context_.session.CodeProtect.any())
                context_.messages.AddMessage(extend_text::kReadProtected);
            if (outcome == Outcome::Success)
                context_.log.note(is_board_module(context_.session.DeviceName)
                                      ? extend_text::kPgmReadLogOfModule
                                      : extend_text::kPgmReadLog);
            return outcome;
        });
    });
}

Outcome ExtendFlows::Cmd_DATA_Read_Click() {
    return frame_.run([this] {
        return frame_.with_family(frame_.module(), "", [this](Family& family) {
            const auto outcome = family.Read_Eep();
            // Without EEPROM the routine's own line is the verdict.
            if (context_.session.EepBytes != 0)
                tell(outcome, extend_text::kEepRead, extend_text::kEepReadFailed);
            if (context_.session.CodeProtect.any())
                context_.messages.AddMessage(extend_text::kReadProtected);
            return outcome;
        });
    });
}

void ExtendFlows::tell(Outcome outcome, std::string_view done, std::string_view failed) {
    if (outcome == Outcome::NoBoard) return;  // the check's words stay
    context_.messages.ShowMessage(outcome == Outcome::Success ? done : failed);
}

// The verdict names configuration and ID for every part, and EEPROM for none.
void ExtendFlows::name_other_areas() {
    using enum ProgrammingType;
    const ProgrammingType type = context_.session.PgmType;
    const bool by_chip_erase =
        type == FLASH1 || type == T12F6 || type == FLASH4 || type == FLASH4_9 || type == FLASH8;
    if (!by_chip_erase)
        context_.messages.AddMessage(extend_text::kConfigByChipErase);
    else if (context_.session.EepBytes != 0)
        context_.messages.AddMessage(extend_text::kEepromErasedToo);
}

// Behind the failure of an erase for which the device has no letters.
void ExtendFlows::advise_chip_erase(Outcome outcome, bool known) {
    const bool chip_is_served = frame_.module() != Module::Generic || erases_.knows_Chip_Erase();
    if (outcome == Outcome::Failed && !known && chip_is_served)
        context_.messages.AddMessage(extend_text::kUseChipErase);
}

void ExtendFlows::Cmd_PGM_PcbufferClear_Click() {
    auto& session = context_.session;
    if (frame_.running() || context_.selection.Mcu_Selected_Check() == Token::NG) return;
    session.PgmWordsCat = session.PgmWords;
    FillProgramOnes(session);
    context_.views.ShowProgramMemory();
    const bool is_12F683 = session.DeviceName == "PIC12F683";
    using enum ProgrammingType;
    const ProgrammingType type = session.PgmType;
    if (is_12F683 || type == T12F6 || type == T18F_00 || type == T18F_01) {
        FillIdOnes(session);
        if (is_12F683) session.ConfigWord[1] = session.ConfigWord[2] = kOnes14;
        if (type == T12F6) session.ConfigWord[1] = config_area::word(session.CfgIdMem, 1);
        context_.config.ShowConfigWords();
    }
    context_.views.ShowConfigSummary();
    context_.messages.ShowMessage(extend_text::kPgmCleared);
}

void ExtendFlows::Cmd_DATA_PcbufferClear_Click() {
    auto& session = context_.session;
    if (frame_.running() || context_.selection.Mcu_Selected_Check() == Token::NG) return;
    if (session.EepBytes == 0) {
        context_.messages.ShowMessage(extend_text::kNoEeprom);
        return;
    }
    session.EepBytesCat = session.EepBytes;
    FillEepromOnes(session);
    context_.views.show_eeprom();
    context_.messages.ShowMessage(extend_text::kEepCleared);
}

}  // namespace quillon
