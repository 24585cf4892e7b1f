// SPDX-License-Identifier: MIT
// What the window shows of each device, written out independently of the program: a row for each
// group of devices and for each programming type. What a row doesn't name is hidden.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::test {

using Texts = std::vector<std::string>;

inline bool holds(const Texts& texts, std::string_view text) {
    return std::ranges::find(texts, text) != texts.end();
}

struct GroupRow {
    Texts devices;
    Texts shown;        // BOR, POR, FCAL, LVD, WUR; ID: the four words; 88X: the other three combos
    bool keep = false;  // true: all stays as the former device left it
    bool user_decides = false;    // the box that keeps calibration is shown
    bool power_question = false;  // which supply rises first?
};

inline const std::vector<GroupRow>& group_rows() {
    static const std::vector<GroupRow> kRows{
        {.devices = {"PIC12F1822",  "PIC12LF1822", "PIC16F1823",  "PIC16LF1823", "PIC16F1824",
                     "PIC16LF1824", "PIC16F1825",  "PIC16LF1825", "PIC16F1828",  "PIC16LF1828",
                     "PIC16F1829",  "PIC16LF1829", "PIC16F1933",  "PIC16LF1933", "PIC16F1934",
                     "PIC16LF1934", "PIC16F1936",  "PIC16LF1936", "PIC16F1937",  "PIC16LF1937",
                     "PIC16F1938",  "PIC16LF1938", "PIC16F1939",  "PIC16LF1939"},
         .shown = {"ID"},
         .power_question = true},
        {.devices = {"PIC16F882", "PIC16F883", "PIC16F884", "PIC16F886", "PIC16F887", "ZQ-LDR418"},
         .shown = {"ID", "88X"},
         .user_decides = true,
         .power_question = true},
        {.devices = {"PIC16F913", "PIC16F914", "PIC16F916", "PIC16F917", "PIC16F946"},
         .shown = {"BOR", "POR", "FCAL", "LVD", "ID"},
         .user_decides = true,
         .power_question = true},
        {.devices = {"PIC16F737", "PIC16F747", "PIC16F767", "PIC16F777"},
         .shown = {},
         .keep = true},
        {.devices = {"PIC16F631", "PIC16F677", "PIC16F684", "PIC16F685", "PIC16F687", "PIC16F688",
                     "PIC16F689", "PIC16F690"},
         .shown = {"BOR", "POR", "FCAL", "ID"},
         .user_decides = true,
         .power_question = true},
        {.devices = {"PIC12F635", "PIC16F636", "PIC16F639"},
         .shown = {"BOR", "POR", "FCAL", "LVD", "WUR", "ID"},
         .user_decides = true,
         .power_question = true},
        {.devices = {"PIC12F609", "PIC12F615", "PIC16F610", "PIC16F616", "PIC12HV609", "PIC12HV615",
                     "PIC16HV610", "PIC16HV616"},
         .shown = {"FCAL", "ID"},
         .user_decides = true,
         .power_question = true},
        {.devices = {"PIC16F785", "PIC16HV785"},
         .shown = {"ID"},
         .user_decides = true,
         .power_question = true},
        {.devices = {"PIC16F716"}, .shown = {"ID"}, .user_decides = true},
        {.devices = {"PIC18F13K50", "PIC18F14K50", "PIC18LF13K50", "PIC18LF14K50"}, .shown = {}},
        // all other devices; tests that take a device of each row take these two
        {.devices = {"PIC16F84A", "PIC12F683"}, .shown = {}},
    };
    return kRows;
}

inline const GroupRow& group_row(std::string_view device) {
    for (const auto& row : group_rows())
        if (holds(row.devices, device)) return row;
    return group_rows().back();
}

// Lbl_div, Lbl_rev and their values.
enum class Revision : std::uint8_t { Hidden, Shown, AsBefore };

struct TypeRow {
    Texts types;
    std::optional<std::size_t> tab = std::nullopt;
    Texts shown;  // of the tab's widgets
    std::string Text_Calib_Data = "--";
    bool keeps = false;         // Chk_12F_CalibData_Select is shown and checked
    bool bandgap_open = false;  // Text_BG is white and can be edited
    Revision revision = Revision::AsBefore;
    std::string Text_ID = "FFFF";  // its length is the limit
};

inline const std::vector<TypeRow>& type_rows() {
    static const std::vector<TypeRow> kRows{
        {.types = {"5F28", "5F18"},
         .tab = 3,
         .shown = {"Label_CalibInfo", "Text_OSCCAL_Data"},
         .keeps = true,
         .revision = Revision::Hidden},
        {.types = {"10F2"},
         .tab = 5,
         .shown = {"Label_CalibInfo", "Label_Calib"},
         .keeps = true,
         .revision = Revision::Hidden},
        {.types = {"12C5", "12C6"},
         .tab = 0,
         .shown = {"Label_CalibInfo", "Label_Calib", "Lbl_Calib_ReadWrite_Data", "Text_Calib_Data",
                   "Text_BG"},
         .Text_Calib_Data = "FF",
         .keeps = true},
        {.types = {"12F6"},
         .tab = 0,
         .shown = {"Label_CalibInfo", "Label_Calib", "Lbl_Calib_ReadWrite_Data", "Text_Calib_Data",
                   "Text_BG", "Label_BG"},
         .Text_Calib_Data = "FF",
         .keeps = true,
         .bandgap_open = true},
        {.types = {"EPROM2"}, .tab = 1, .shown = {"Check_Parity_Disp"}},
        {.types = {"18F_00", "18F_01"},
         .tab = 2,
         .shown = {"Label_DEV_id", "Label_DEV_rev"},
         .revision = Revision::Hidden,
         .Text_ID = "FFFFFFFF"},
        // any other
        {.types = {"FLASH0", "FLASH1", "FLASH2", "FLASH4", "FLASH4.9", "FLASH8", "EPROM", "5X18",
                   "5X28", "LDR412", "LDR412A", "LDR418"},
         .shown = {},
         .revision = Revision::Shown},
    };
    return kRows;
}

inline const TypeRow& type_row(std::string_view PgmType) {
    for (const auto& row : type_rows())
        if (holds(row.types, PgmType)) return row;
    ADD_FAILURE() << "no row for the type " << PgmType;
    return type_rows().back();
}

}  // namespace quillon::test
