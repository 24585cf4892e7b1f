// SPDX-License-Identifier: MIT
// What a device's name decides on the panel: which calibration and ID controls are shown.
#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "app/main_form.h"
#include "catalogue/calibration_panel.h"
#include "parts/modules.h"

namespace quillon {

struct GroupControls {
    bool BOR_91X = false;
    bool POR_91X = false;
    bool FCAL_91X = false;
    bool LVD_91X = false;
    bool WUR_63X = false;
    bool id_words = false;      // Text_ID1 to Text_ID4 and their labels
    bool fcal_bor_por = false;  // Combo_FCAL, Combo_BOR, Combo_POR and their labels
};

struct DeviceGroup {
    std::span<const Module> modules;  // those of its devices; empty for all others
    // Unset: each control stays as the former device left it.
    std::optional<GroupControls> controls = GroupControls{};
    const CalibrationPanel* panel = nullptr;
    // Frm_VPP_DECIDE asks which supply rises first.
    bool power_question = false;
};

// In the order in which they are searched; the last is for all others.
std::span<const DeviceGroup> device_groups();
// The first group that has exactly this name.
const DeviceGroup& group_of(std::string_view DeviceName);

void show_controls(const GroupControls& controls, MainForm& form);

}  // namespace quillon
