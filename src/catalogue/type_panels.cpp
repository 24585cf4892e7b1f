// SPDX-License-Identifier: MIT
#include "catalogue/type_panels.h"

#include <algorithm>
#include <array>
#include <string>

namespace quillon {

namespace {

using enum Mark;

constexpr TypePanel k5F28{
    .type = ProgrammingType::T5F28,
    .tab = 3,
    .Label_Calib = Hidden,
    .Label_CalibInfo = Shown,
    .Lbl_Calib_ReadWrite_Data = Hidden,
    .keeps_calibration = true,
    .unchecks_file_data = true,
    .locks_osccal = true,
    .Text_OSCCAL_Data = Shown,
    .Text_Calib_Data = "--",
    .bandgap_box = BoxState::Locked,
    .Label_BG = Hidden,
    .revision = Hidden,
};

constexpr TypePanel k12C5{
    .type = ProgrammingType::T12C5,
    .tab = 0,
    .Label_Calib = Shown,
    .Label_CalibInfo = Shown,
    .Lbl_Calib_ReadWrite_Data = Shown,
    .keeps_calibration = true,
    .Text_Calib_Data = "FF",
    .calib_box = BoxState::Locked,
    .bandgap_box = BoxState::Locked,
    .calib_follows_choice = true,
    .Label_BG = Hidden,
};

constexpr TypePanel kEprom2{.type = ProgrammingType::EPROM2, .tab = 1, .Check_Parity_Disp = Shown};

constexpr TypePanel k18F_00{
    .type = ProgrammingType::T18F_00,
    .tab = 2,
    .clears_identity = true,
    .Frame2 = Shown,
    .revision = Hidden,
    .empties_revision = true,
    .Text_ID = "FFFFFFFF",
    .sets_IdText = true,
};

constexpr TypePanel kAnyOther{
    .type = ProgrammingType::Other,
    .tab = std::nullopt,
    .clears_identity = true,
    .Frame2 = Shown,
    .revision = Shown,
    .empties_revision = true,
    .Text_ID = "FFFF",
    .sets_IdText = true,
};

constexpr TypePanel named(TypePanel panel, ProgrammingType type) {
    panel.type = type;
    return panel;
}

constexpr TypePanel k10F2 = [] {
    TypePanel panel = named(k5F28, ProgrammingType::T10F2);
    panel.tab = 5;
    panel.Label_Calib = Shown;
    panel.Text_OSCCAL_Data = Hidden;
    return panel;
}();

constexpr TypePanel k12C6 = [] {
    TypePanel panel = named(k12C5, ProgrammingType::T12C6);
    panel.word_buttons = true;
    return panel;
}();

constexpr TypePanel k12F6 = [] {
    TypePanel panel = named(k12C6, ProgrammingType::T12F6);
    panel.Label_BG = Shown;
    panel.bandgap_box = BoxState::Open;
    panel.bandgap_follows_choice = true;
    return panel;
}();

constexpr TypePanel k18F_01 = [] {
    TypePanel panel = named(k18F_00, ProgrammingType::T18F_01);
    panel.sets_IdText = false;
    return panel;
}();

constexpr std::array kPanels{
    k5F28,   named(k5F28, ProgrammingType::T5F18),
    k10F2,   k12C5,
    k12C6,   k12F6,
    kEprom2, k18F_00,
    k18F_01, kAnyOther,
};

void show(Control& control, Mark mark) {
    if (mark != Keep) control.Visible.set(mark == Shown);
}

void set_box(TextBox& box, BoxState state) {
    if (state == BoxState::Keep) return;
    const bool open = state == BoxState::Open;
    box.Enabled.set(open);
    box.BackColor.set(open ? Colour::White : Colour::Grey);
}

void show_calibration(const TypePanel& panel, MainForm& form) {
    show(form.Label_Calib, panel.Label_Calib);
    show(form.Label_CalibInfo, panel.Label_CalibInfo);
    show(form.Lbl_Calib_ReadWrite_Data, panel.Lbl_Calib_ReadWrite_Data);
    if (panel.Lbl_Calib_ReadWrite_Data != Keep) form.Lbl_Calib_ReadWrite_Data.Caption.set("--");
    if (panel.keeps_calibration) {
        form.Chk_12F_CalibData_Select.Visible.set(true);
        form.Chk_12F_CalibData_Select.Checked.set(true);
    }
    if (panel.unchecks_file_data) form.Chk_UseFileData.Checked.set(false);
    if (panel.locks_osccal) set_box(form.Text_OSCCAL_Data, BoxState::Locked);
    show(form.Text_OSCCAL_Data, panel.Text_OSCCAL_Data);
    if (!panel.Text_Calib_Data.empty())
        form.Text_Calib_Data.Text.set(std::string{panel.Text_Calib_Data});
    set_box(form.Text_Calib_Data, panel.calib_box);
    set_box(form.Text_BG, panel.bandgap_box);
    if (panel.bandgap_box != BoxState::Keep) form.Text_BG.Text.set("3");
    show(form.Label_BG, panel.Label_BG);
    for (auto* button : {&form.Command1, &form.Command2}) button->Visible.set(panel.word_buttons);
    // The write would replace a calibration that the checked box keeps.
    form.Command2.Enabled.set(false);
}

void show_identity(const TypePanel& panel, Session& session, MainForm& form) {
    if (panel.clears_identity) {
        form.Label_DEV_id.Caption.set("--");
        form.Label_DEV_rev.Caption.set("--");
    }
    show(form.Frame2, panel.Frame2);
    for (auto* label : {&form.Lbl_div, &form.Lbl_rev, &form.Lbl_ID_Dev, &form.Lbl_ID_Rev})
        show(*label, panel.revision);
    if (panel.empties_revision) {
        form.Lbl_ID_Dev.Caption.set("");
        form.Lbl_ID_Rev.Caption.set("");
    }
    if (panel.Text_ID.empty()) return;
    form.Text_ID.MaxLength.set(panel.Text_ID.size());
    form.Text_ID.Text.set(std::string{panel.Text_ID});
    if (panel.sets_IdText) session.IdText = panel.Text_ID;
}

}  // namespace

std::span<const TypePanel> type_panels() { return kPanels; }

const TypePanel& panel_of(ProgrammingType type) {
    const auto* const found = std::ranges::find(kPanels, type, &TypePanel::type);
    return found == kPanels.end() ? kPanels.back() : *found;
}

void show_type(const TypePanel& panel, Session& session, MainForm& form) {
    if (panel.tab) {
        form.SSTab_MCU_Information.show_tab(*panel.tab, true);
        form.SSTab_MCU_Information.Tab.set(static_cast<int>(*panel.tab));
    }
    show_calibration(panel, form);
    show(form.Check_Parity_Disp, panel.Check_Parity_Disp);
    if (panel.Check_Parity_Disp == Shown) form.Check_Parity_Disp.Checked.set(false);
    show_identity(panel, session, form);
}

void lock_entries(const TypePanel& panel, MainForm& form) {
    const bool open = !form.Chk_12F_CalibData_Select.Checked.get();
    const BoxState state = open ? BoxState::Open : BoxState::Locked;
    if (panel.calib_follows_choice) set_box(form.Text_Calib_Data, state);
    if (panel.bandgap_follows_choice) set_box(form.Text_BG, state);
    if (panel.word_buttons) form.Command2.Enabled.set(open);
}

}  // namespace quillon
