// SPDX-License-Identifier: MIT
// The selection's steps. Their order matters. The image is cleared for the new type. The words then
// get their numbers from the options that the clear has shown. The power question is asked after
// the catalogue's own order has been loaded.
#include "catalogue/device_selection.h"

#include <fmt/format.h>

#include <string>

#include "app/buttons.h"
#include "app/text.h"
#include "catalogue/calibration_panel.h"
#include "catalogue/catalogue_texts.h"
#include "catalogue/device_groups.h"
#include "catalogue/number.h"
#include "catalogue/type_panels.h"
#include "catalogue/typed_device.h"
#include "image/fill.h"

namespace quillon {

namespace {

// Index of the version in the board's identity: "ZQ-LDR412A V6.80".
constexpr std::size_t kVersionAt = 12;
constexpr std::size_t kVersionLength = 6;
constexpr std::size_t kIdDigits = 4;

double firmware_version(std::string_view FirmwareText) {
    return FirmwareText.size() <= kVersionAt
               ? 0
               : numeric_prefix(FirmwareText.substr(kVersionAt, kVersionLength));
}

// Two decimals, and no digit before the point for a version below 1.
std::string version_text(double version) {
    auto text = fmt::format("{:.2f}", version);
    return text.starts_with("0.") ? text.substr(1) : text;
}

}  // namespace

DeviceSelection::DeviceSelection(Session& session, MainForm& form, BoardForm& board,
                                 ExtendForm& extend, Settings& settings, Dialogs& dialogs,
                                 Messages& messages, DeviceCheck& device_check,
                                 Catalogue& catalogue, ConfigModel& config, BufferCommands& buffer)
    : session_{session},
      form_{form},
      board_{board},
      extend_{extend},
      settings_{settings},
      dialogs_{dialogs},
      messages_{messages},
      device_check_{device_check},
      catalogue_{catalogue},
      config_{config},
      buffer_{buffer} {}

void DeviceSelection::Combo_device_Click() {
    if (session_.DeviceEventLock || form_.Combo_device.Text.get().empty()) return;
    load_record();
    board_.Visible.set(form_.mnuBoardInfomation.Checked.get());
    config_.ShowConfigWords();
    buffer_.mnuPcBufferMemoryClear();
    show_firmware_verdict();
    settings_.save("deviceNew", form_.Combo_device.ListIndex.get());
    for (int n = 1; n <= kConfigWords; ++n) config_.ConfigGridChanged(n);
    form_.LblCheckSUM.Caption.set(ProgramCheckSum(session_));
    ApplyBlankSkip(session_.DeviceName, form_);
    show_config_words();
    reset_information_tabs();
    show_group();
    show_type(panel_of(session_.PgmType), session_, form_);
    if (session_.DeviceName == "PIC12F683") show_panel(kPanel12F683, session_.DeviceName, form_);
    form_.SSTab_MCU_Information.Redraw.set(true);
}

void DeviceSelection::load_record() {
    if (session_.WriterFound) form_.LabelCmt.Caption.set("");
    extend_.Visible.set(false);
    form_.CmbInit.Visible.set(false);
    form_.TxtInit.Visible.set(false);
    const std::string name = form_.Combo_device.Text.get();
    if (name != session_.DeviceName) {
        form_.Chk_UseFileData.Checked.set(false);
        form_.Chk_UseFileData.Visible.set(false);
    }
    // Cleared before the image is, as that shows the program: the box was the former device's.
    form_.Check_Parity_Disp.Checked.set(false);
    if (name != session_.DeviceName) power_answered_ = false;
    const std::string order = session_.PowerMode;
    session_.DeviceName = name;
    ClearDeviceView();
    catalogue_.LoadDeviceRecord(name);
    if (power_answered_) session_.PowerMode = order;
}

void DeviceSelection::Combo_device_Typed(std::string_view typed) {
    if (trim(typed).empty()) return;
    const auto meant = typed_device(typed, form_.Combo_device.Items.get());
    if (!meant.index)
        messages_.ShowMessage(fmt::format("red{}", meant.problem));
    else if (*meant.index != form_.Combo_device.ListIndex.get())
        form_.Combo_device.select(*meant.index);
}

// The board that answered last, whether a search or the check of an operation found it.
std::string_view DeviceSelection::known_board() const {
    const bool checked = session_.WriterFound && !session_.FirmVersionText.empty();
    return checked ? session_.FirmVersionText : session_.FirmwareText;
}

// Silent at the first selection without a board: start-up has reported that already. A board that
// hasn't been asked for its version isn't reported as too old.
void DeviceSelection::show_firmware_verdict() {
    const bool due = session_.FirmChecked || session_.WriterFound;
    session_.FirmChecked = true;
    if (!due) return;
    if (firmware_version(known_board()) >= session_.FirmRequired)
        messages_.ShowMessage(session_.CommentText);
    else if (!session_.BoardUnasked)
        messages_.ShowMessage(
            fmt::format(catalogue_text::kFirmwareTooOld, version_text(session_.FirmRequired)));
}

void DeviceSelection::show_config_words() {
    TabSet& tabs = form_.SSTab_Config;
    tabs.Redraw.set(false);
    tabs.Tab.set(0);
    for (std::size_t n = 1; n <= kConfigWords; ++n) tabs.show_tab(n - 1, session_.ConfigPresent[n]);
    tabs.Redraw.set(true);
    // The two boxes show words of CfgIdMem, which a PIC18 doesn't use.
    const bool in_boxes = !is_pic18_flash(session_.PgmType);
    form_.Text_Config1.Visible.set(in_boxes);
    form_.Text_Config2.Visible.set(in_boxes);
}

// Leaves the tabs' Redraw off; the end of the selection turns it on.
void DeviceSelection::reset_information_tabs() {
    TabSet& tabs = form_.SSTab_MCU_Information;
    tabs.Redraw.set(false);
    tabs.Tab.set(3);
    tabs.TabVisible.set({});

    form_.Chk_12F_CalibData_Select.Visible.set(false);
    // Checked is the safe state, whatever the user did to the former device.
    form_.Chk_12F_CalibData_Select.Checked.set(true);
    form_.Text_Calib_Data.Enabled.set(false);
    form_.Text_Calib_Data.Text.set("--");
    form_.Label_Calib.Visible.set(false);
    form_.Label_CalibInfo.Visible.set(false);
    form_.Lbl_Calib_ReadWrite_Data.Caption.set("--");
    form_.Check_Parity_Disp.Visible.set(false);
    form_.Check_Parity_Disp.Checked.set(false);
    form_.Lbl_ID_Dev.Caption.set("");
    form_.Lbl_ID_Rev.Caption.set("");
}

void DeviceSelection::show_group() {
    const DeviceGroup& group = group_of(session_.DeviceName);
    form_.SSTab91X.Redraw.set(false);
    form_.Text_ID.MaxLength.set(kIdDigits);
    if (group.controls) show_controls(*group.controls, form_);
    if (group.panel != nullptr) show_panel(*group.panel, session_.DeviceName, form_);
    if (group.power_question) ask_power_order();
    form_.SSTab91X.Redraw.set(true);
}

// Asks once per device: opening a file selects the device again, and the user's answer still holds.
void DeviceSelection::ask_power_order() {
    if (power_answered_) return;
    session_.FormAnswer =
        dialogs_.Frm_VPP_DECIDE(fmt::format(catalogue_text::kPowerQuestion, session_.DeviceName));
    if (session_.FormAnswer == 1) session_.PowerMode = "VPP";
    if (session_.FormAnswer == 2) session_.PowerMode = "VDD";
    power_answered_ = session_.FormAnswer == 1 || session_.FormAnswer == 2;
}

void DeviceSelection::ClearDeviceView() {
    form_.RichTxtPgmMem.Text.set("");
    form_.rText_EepromMem.Text.set("");
    for (auto* box : {&form_.Text_ID, &form_.Text_Config1, &form_.Text_Config2}) box->Text.set("");
    form_.Label_pm_size.Caption.set("");
    form_.Label_ed_size.Caption.set("");
    config_.ResetConfigGrids();
}

void DeviceSelection::Chk_12F_CalibData_Select_Click() {
    lock_calibration(form_);
    lock_entries(panel_of(session_.PgmType), form_);
    if (!form_.Chk_12F_CalibData_Select.Checked.get())
        messages_.ShowMessage(catalogue_text::kCalibrationOpen);
}

}  // namespace quillon
