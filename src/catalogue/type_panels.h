// SPDX-License-Identifier: MIT
// What a programming type decides on the panel: the information tab and its controls.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "app/main_form.h"
#include "app/session.h"

namespace quillon {

enum class Mark : std::uint8_t { Keep, Hidden, Shown };

// A box of the calibration tab: what it reads, and whether it can be edited.
enum class BoxState : std::uint8_t { Keep, Locked, Open };

struct TypePanel {
    ProgrammingType type = ProgrammingType::Other;  // Other: any that has no row of its own
    // Of SSTab_MCU_Information; the others stay hidden.
    std::optional<std::size_t> tab = std::nullopt;

    // Calibration
    Mark Label_Calib = Mark::Keep;
    Mark Label_CalibInfo = Mark::Keep;
    Mark Lbl_Calib_ReadWrite_Data = Mark::Keep;  // reads "--" wherever it isn't kept
    bool keeps_calibration = false;              // Chk_12F_CalibData_Select shown and checked
    bool unchecks_file_data = false;             // Chk_UseFileData
    bool locks_osccal = false;                   // Text_OSCCAL_Data disabled and grey
    Mark Text_OSCCAL_Data = Mark::Keep;
    std::string_view Text_Calib_Data = "";  // "": kept
    BoxState calib_box = BoxState::Keep;
    BoxState bandgap_box = BoxState::Keep;  // Text_BG reads "3" wherever it isn't kept
    // The user enters the value while Chk_12F_CalibData_Select is clear.
    bool calib_follows_choice = false;    // Text_Calib_Data
    bool bandgap_follows_choice = false;  // Text_BG
    bool word_buttons = false;            // Command1 and Command2 shown
    Mark Label_BG = Mark::Keep;
    Mark Check_Parity_Disp = Mark::Keep;  // unchecked where shown

    // Identity and ID
    bool clears_identity = false;  // Label_DEV_id, Label_DEV_rev read "--"
    Mark Frame2 = Mark::Keep;
    Mark revision = Mark::Keep;     // Lbl_div, Lbl_rev, Lbl_ID_Dev, Lbl_ID_Rev
    bool empties_revision = false;  // the last two of them
    std::string_view Text_ID = "";  // "": kept; its length is the limit
    bool sets_IdText = false;       // to the same text
};

std::span<const TypePanel> type_panels();
const TypePanel& panel_of(ProgrammingType type);

void show_type(const TypePanel& panel, Session& session, MainForm& form);
// Locks what a user may enter or write while Chk_12F_CalibData_Select is checked: the part keeps
// its calibration. Unlocks it while the box is clear.
void lock_entries(const TypePanel& panel, MainForm& form);

}  // namespace quillon
