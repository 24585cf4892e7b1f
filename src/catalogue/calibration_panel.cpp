// SPDX-License-Identifier: MIT
#include "catalogue/calibration_panel.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace quillon {

namespace {

using enum ComboList;

constexpr int kHighestFcal = 63;
constexpr int kLowestFcal = -64;

constexpr std::array kThreeBits{
    "111 (最大値)", "110", "101", "100 (中央値)", "000 (中央値)", "001", "010", "011 (最小値)",
};
constexpr std::array kTwoBits{"11 (最大値)", "10", "01", "00 (最小値)"};
constexpr std::array kBorOf91X{"111 (最大値)", "110", "101", "100", "011", "010", "001 (最小値)"};
constexpr std::array kThreePlain{"000", "001", "010", "011", "100", "101", "110", "111"};

constexpr std::array kCombos88X{
    CalibrationCombo{&MainForm::Combo_FCAL, Fcal},
    CalibrationCombo{&MainForm::Combo_POR, ThreeBits},
    CalibrationCombo{&MainForm::Combo_BOR, ThreeBits},
};
constexpr std::array kCombos91X{
    CalibrationCombo{&MainForm::Combo_FCAL_91X, Fcal},
    CalibrationCombo{&MainForm::Combo_POR_91X, TwoBits},
    CalibrationCombo{&MainForm::Combo_BOR_91X, BorOf91X},
    CalibrationCombo{&MainForm::Combo_LVD_91X, ThreeBits},
};
constexpr std::array kCombos6XX{
    CalibrationCombo{&MainForm::Combo_FCAL_91X, Fcal},
    CalibrationCombo{&MainForm::Combo_POR_91X, TwoBits},
    CalibrationCombo{&MainForm::Combo_BOR_91X, BorOf91X},
};
constexpr std::array kCombos63X{
    CalibrationCombo{&MainForm::Combo_FCAL_91X, Fcal},
    CalibrationCombo{&MainForm::Combo_POR_91X, ThreeBits},
    CalibrationCombo{&MainForm::Combo_BOR_91X, BorOf91X},
    CalibrationCombo{&MainForm::Combo_LVD_91X, ThreeBits},
    CalibrationCombo{&MainForm::Combo_WUR_63X, ThreePlain},
};
constexpr std::array<std::string_view, 2> kThreeBitPor6XX{"PIC16F684", "PIC16F688"};

std::vector<std::string> fcal_entries() {
    std::vector<std::string> list;
    for (int value = kHighestFcal; value >= kLowestFcal; --value) {
        auto entry = std::string{value > 0 ? "+" : ""} + std::to_string(value);
        if (value == kHighestFcal) entry += " (最大値)";
        if (value == 0) entry += "  (中央値)";  // 2 blanks
        if (value == kLowestFcal) entry += " (最小値)";
        list.push_back(std::move(entry));
    }
    return list;
}

template <std::size_t N>
std::vector<std::string> texts(const std::array<const char*, N>& list) {
    return {list.begin(), list.end()};
}

void fill(ComboBox& combo, ComboList list) {
    combo.Items.set(entries(list));
    combo.show(default_index(list));
}

}  // namespace

// The parts of these two hold no calibration that a user could keep or erase.
const CalibrationPanel kPanel16F1939{.family = "16F1939", .user_decides = false};
const CalibrationPanel kPanel16F7X7{.family = "16F7X7", .user_decides = false};
const CalibrationPanel kPanel16F88X{.family = "16F88X", .combos = kCombos88X};
const CalibrationPanel kPanel16F91X{.family = "16F91X", .combos = kCombos91X};
const CalibrationPanel kPanel16F6XX{
    .family = "16F6XX", .combos = kCombos6XX, .three_bit_por = kThreeBitPor6XX};
const CalibrationPanel kPanel1XF63X{.family = "1XF63X", .combos = kCombos63X};
// These three build the word from combos of which the tab shows only some.
const CalibrationPanel kPanel12F609{.family = "12F609", .combos = kCombos6XX};
const CalibrationPanel kPanel16F785{.family = "16F785", .combos = kCombos91X};
const CalibrationPanel kPanel16F716{.family = "16F716", .combos = kCombos91X};
// Writes back what it has read from the part: there is nothing to decide.
const CalibrationPanel kPanel12F683{.family = "12F683", .user_decides = false};

std::vector<std::string> entries(ComboList list) {
    switch (list) {
        case ThreeBits:
            return texts(kThreeBits);
        case TwoBits:
            return texts(kTwoBits);
        case BorOf91X:
            return texts(kBorOf91X);
        case Fcal:
            return fcal_entries();
        case ThreePlain:
            return texts(kThreePlain);
    }
    return {};
}

int default_index(ComboList list) {
    switch (list) {
        case ThreeBits:
            return 4;
        case TwoBits:
            return 3;
        case BorOf91X:
            return 6;
        case Fcal:
            return 63;
        case ThreePlain:
            return 0;
    }
    return 0;
}

void show_panel(const CalibrationPanel& panel, std::string_view DeviceName, MainForm& form) {
    const bool three_bits =
        std::ranges::find(panel.three_bit_por, DeviceName) != panel.three_bit_por.end();
    for (const auto& [combo, list] : panel.combos)
        fill(form.*combo, three_bits && list == TwoBits ? ThreeBits : list);
    for (auto* id : {&form.Text_ID1, &form.Text_ID2, &form.Text_ID3, &form.Text_ID4})
        id->Text.set("3FFF");
    if (panel.user_decides) form.Chk_12F_CalibData_Select.Visible.set(true);
    // Checked is the safe state: a part's factory calibration can't be restored once it is lost.
    form.Chk_12F_CalibData_Select.Checked.set(true);
    lock_calibration(form);
}

void lock_calibration(MainForm& form) {
    const bool open = !form.Chk_12F_CalibData_Select.Checked.get();
    for (auto* combo :
         {&form.Combo_FCAL, &form.Combo_POR, &form.Combo_BOR, &form.Combo_FCAL_91X,
          &form.Combo_POR_91X, &form.Combo_BOR_91X, &form.Combo_LVD_91X, &form.Combo_WUR_63X})
        combo->Enabled.set(open);
}

}  // namespace quillon
