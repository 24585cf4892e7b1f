// SPDX-License-Identifier: MIT
// The operations of frmExtend_Program: one memory area at a time, or the erase of the whole chip.
//
// The program side is program memory with configuration and ID words; the data side is EEPROM.
#pragma once

#include <string_view>
#include <vector>

#include "app/extend_form.h"
#include "app/outcome.h"
#include "app/property.h"
#include "app/settings.h"
#include "areas/context.h"
#include "families/named_erase.h"
#include "flows/operation_frame.h"

namespace quillon {

// Each entry with the board returns when the port is closed and the controls are back. What an
// erase has done before a later step failed stays done.
class ExtendFlows {
  public:
    ExtendFlows(RunContext& context, OperationFrame& frame, ExtendForm& form, Settings& settings);

    // The modeless form: its place comes from the settings and is saved when it unloads.
    void Form_Load();
    void Form_Unload();

    Outcome Cmd_Chip_Erace_Click();
    Outcome Cmd_PGM_Erase_Click();
    Outcome Cmd_DATA_Erase_Click();
    Outcome Cmd_PGM_Program_Click();
    Outcome Cmd_DATA_Program_Click();
    Outcome Cmd_PGM_Read_Click();
    Outcome Cmd_DATA_Read_Click();
    // On the PC only: the image's blank values.
    void Cmd_PGM_PcbufferClear_Click();
    void Cmd_DATA_PcbufferClear_Click();

  private:
    void tell(Outcome outcome, std::string_view done, std::string_view failed);
    void name_other_areas();
    void advise_chip_erase(Outcome outcome, bool known);
    void enable_buttons(bool enabled);
    void save_place();

    RunContext& context_;
    OperationFrame& frame_;
    ExtendForm& form_;
    Settings& settings_;
    NamedErase erases_;
    std::vector<Connection> watches_;
};

}  // namespace quillon
