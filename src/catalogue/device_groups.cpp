// SPDX-License-Identifier: MIT
#include "catalogue/device_groups.h"

#include <algorithm>
#include <array>

#include "parts/device_traits.h"

namespace quillon {

namespace {

using enum Module;

constexpr std::array k16F1939{PIC1XF18XX, PIC16F19xx, PIC16F1939};
constexpr std::array k16F88X{PIC16F88X, ZQLDR418};
constexpr std::array k16F91X{PIC16F91X};
constexpr std::array k16F7X7{PIC16F7X7};
constexpr std::array k16F6XX{PIC16F6XX};
constexpr std::array k1XF63X{PIC1XF63X};
constexpr std::array k12F609{PIC12F609};
constexpr std::array k16F785{PIC16F785};
constexpr std::array k16F716{PIC16F716};
constexpr std::array k18F1XK50{PIC18F14K50};

// A group that shows ID boxes takes only devices that have them.
bool holds(const DeviceGroup& group, std::string_view device) {
    if (std::ranges::find(group.modules, module_of(device)) == group.modules.end()) return false;
    return !group.controls || !group.controls->id_words || has_four_word_id(device);
}

}  // namespace

std::span<const DeviceGroup> device_groups() {
    static const std::array kGroups{
        DeviceGroup{
            .modules = k16F1939,
            .controls = GroupControls{.id_words = true},
            .panel = &kPanel16F1939,
            .power_question = true,
        },
        DeviceGroup{
            .modules = k16F88X,
            .controls = GroupControls{.id_words = true, .fcal_bor_por = true},
            .panel = &kPanel16F88X,
            .power_question = true,
        },
        DeviceGroup{
            .modules = k16F91X,
            .controls = GroupControls{.BOR_91X = true,
                                      .POR_91X = true,
                                      .FCAL_91X = true,
                                      .LVD_91X = true,
                                      .id_words = true},
            .panel = &kPanel16F91X,
            .power_question = true,
        },
        DeviceGroup{
            .modules = k16F7X7,
            .controls = std::nullopt,
            .panel = &kPanel16F7X7,
        },
        DeviceGroup{
            .modules = k16F6XX,
            .controls =
                GroupControls{.BOR_91X = true, .POR_91X = true, .FCAL_91X = true, .id_words = true},
            .panel = &kPanel16F6XX,
            .power_question = true,
        },
        DeviceGroup{
            .modules = k1XF63X,
            .controls = GroupControls{.BOR_91X = true,
                                      .POR_91X = true,
                                      .FCAL_91X = true,
                                      .LVD_91X = true,
                                      .WUR_63X = true,
                                      .id_words = true},
            .panel = &kPanel1XF63X,
            .power_question = true,
        },
        DeviceGroup{
            .modules = k12F609,
            .controls = GroupControls{.FCAL_91X = true, .id_words = true},
            .panel = &kPanel12F609,
            .power_question = true,
        },
        DeviceGroup{
            .modules = k16F785,
            .controls = GroupControls{.id_words = true},
            .panel = &kPanel16F785,
            .power_question = true,
        },
        DeviceGroup{
            .modules = k16F716,
            .controls = GroupControls{.id_words = true},
            .panel = &kPanel16F716,
        },
        DeviceGroup{.modules = k18F1XK50},
        DeviceGroup{.modules = {}},
    };
    return kGroups;
}

const DeviceGroup& group_of(std::string_view DeviceName) {
    const auto groups = device_groups();
    for (const auto& group : groups)
        if (holds(group, DeviceName)) return group;
    return groups.back();
}

void show_controls(const GroupControls& controls, MainForm& form) {
    form.Combo_BOR_91X.Visible.set(controls.BOR_91X);
    form.Combo_POR_91X.Visible.set(controls.POR_91X);
    form.Combo_FCAL_91X.Visible.set(controls.FCAL_91X);
    form.Combo_LVD_91X.Visible.set(controls.LVD_91X);
    form.Combo_WUR_63X.Visible.set(controls.WUR_63X);
    for (auto* id : {&form.Text_ID1, &form.Text_ID2, &form.Text_ID3, &form.Text_ID4})
        id->Visible.set(controls.id_words);
    for (auto& label : form.Label10) label.Visible.set(controls.id_words);
    for (auto* combo : {&form.Combo_FCAL, &form.Combo_BOR, &form.Combo_POR})
        combo->Visible.set(controls.fcal_bor_por);
    for (auto& label : form.Label11) label.Visible.set(controls.fcal_bor_por);
}

}  // namespace quillon
