// SPDX-License-Identifier: MIT
// The family panel routines: combos and locks of the calibration tabs.
//
// A combo entry's text begins with the field's bits, or with a signed number for FCAL; the writing
// routines take the value from there.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "app/main_form.h"

namespace quillon {

// The lists that a calibration combo may hold.
enum class ComboList : std::uint8_t {
    ThreeBits,   // "111" down to "100", then "000" to "011": signed, centre in the middle
    TwoBits,     // "11" to "00"
    BorOf91X,    // "111" to "001"; the lowest value is left out
    Fcal,        // 63 to -64
    ThreePlain,  // "000" to "111"
};

struct CalibrationCombo {
    ComboBox MainForm::*combo;
    ComboList list;
};

// One family's calibration tab.
struct CalibrationPanel {
    std::string_view family;
    std::span<const CalibrationCombo> combos = {};
    // Devices of the family whose Combo_POR_91X has three bits instead of two.
    std::span<const std::string_view> three_bit_por = {};
    // The chip erase keeps or clears calibration by Chk_12F_CalibData_Select, which is shown then.
    bool user_decides = true;
};

extern const CalibrationPanel kPanel16F1939;
extern const CalibrationPanel kPanel16F88X;
extern const CalibrationPanel kPanel16F91X;
extern const CalibrationPanel kPanel16F7X7;
extern const CalibrationPanel kPanel16F6XX;
extern const CalibrationPanel kPanel1XF63X;
extern const CalibrationPanel kPanel12F609;
extern const CalibrationPanel kPanel16F785;
extern const CalibrationPanel kPanel16F716;
extern const CalibrationPanel kPanel12F683;

std::vector<std::string> entries(ComboList list);
// The entry that a fresh selection shows: the centre, or the value that a blank part holds.
int default_index(ComboList list);

// Fills the combos, sets the four ID fields to "3FFF", checks the box and locks the fields.
void show_panel(const CalibrationPanel& panel, std::string_view DeviceName, MainForm& form);
// Locks all calibration combos while the box is checked and unlocks them while it is clear.
void lock_calibration(MainForm& form);

}  // namespace quillon
