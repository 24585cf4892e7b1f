// SPDX-License-Identifier: MIT
#include "catalogue/device_groups.h"

#include <algorithm>
#include <array>

namespace quillon {

namespace {

using Names = std::string_view;

constexpr std::array k16F1939{
    Names{"PIC12F1822"}, Names{"PIC12LF1822"}, Names{"PIC16F1823"}, Names{"PIC16LF1823"},
    Names{"PIC16F1824"}, Names{"PIC16LF1824"}, Names{"PIC16F1825"}, Names{"PIC16LF1825"},
    Names{"PIC16F1828"}, Names{"PIC16LF1828"}, Names{"PIC16F1829"}, Names{"PIC16LF1829"},
    Names{"PIC16F1933"}, Names{"PIC16LF1933"}, Names{"PIC16F1934"}, Names{"PIC16LF1934"},
    Names{"PIC16F1936"}, Names{"PIC16LF1936"}, Names{"PIC16F1937"}, Names{"PIC16LF1937"},
    Names{"PIC16F1938"}, Names{"PIC16LF1938"}, Names{"PIC16F1939"}, Names{"PIC16LF1939"},
};
// The group above takes PIC12F1822; here it is never reached.
constexpr std::array k16F88X{
    Names{"PIC16F882"}, Names{"PIC16F883"}, Names{"PIC16F884"},  Names{"PIC16F886"},
    Names{"PIC16F887"}, Names{"ZQ-LDR418"}, Names{"PIC12F1822"},
};
constexpr std::array k16F91X{
    Names{"PIC16F913"}, Names{"PIC16F914"}, Names{"PIC16F916"},
    Names{"PIC16F917"}, Names{"PIC16F946"},
};
constexpr std::array k16F7X7{
    Names{"PIC16F737"},
    Names{"PIC16F747"},
    Names{"PIC16F767"},
    Names{"PIC16F777"},
};
constexpr std::array k16F6XX{
    Names{"PIC16F631"}, Names{"PIC16F677"}, Names{"PIC16F684"}, Names{"PIC16F685"},
    Names{"PIC16F687"}, Names{"PIC16F688"}, Names{"PIC16F689"}, Names{"PIC16F690"},
};
constexpr std::array k1XF63X{Names{"PIC12F635"}, Names{"PIC16F636"}, Names{"PIC16F639"}};
constexpr std::array k12F609{
    Names{"PIC12F609"},  Names{"PIC12F615"},  Names{"PIC16F610"},  Names{"PIC16F616"},
    Names{"PIC12HV609"}, Names{"PIC12HV615"}, Names{"PIC16HV610"}, Names{"PIC16HV616"},
};
constexpr std::array k16F785{Names{"PIC16F785"}, Names{"PIC16HV785"}};
constexpr std::array k16F716{Names{"PIC16F716"}};
constexpr std::array k18F1XK50{
    Names{"PIC18F13K50"},
    Names{"PIC18F14K50"},
    Names{"PIC18LF13K50"},
    Names{"PIC18LF14K50"},
};

}  // namespace

std::span<const DeviceGroup> device_groups() {
    static const std::array kGroups{
        DeviceGroup{
            .devices = k16F1939,
            .controls = GroupControls{.id_words = true},
            .panel = &kPanel16F1939,
            .power_question = true,
        },
        DeviceGroup{
            .devices = k16F88X,
            .controls = GroupControls{.id_words = true, .fcal_bor_por = true},
            .panel = &kPanel16F88X,
            .power_question = true,
        },
        DeviceGroup{
            .devices = k16F91X,
            .controls = GroupControls{.BOR_91X = true,
                                      .POR_91X = true,
                                      .FCAL_91X = true,
                                      .LVD_91X = true,
                                      .id_words = true},
            .panel = &kPanel16F91X,
            .power_question = true,
        },
        DeviceGroup{
            .devices = k16F7X7,
            .controls = std::nullopt,
            .panel = &kPanel16F7X7,
        },
        DeviceGroup{
            .devices = k16F6XX,
            .controls =
                GroupControls{.BOR_91X = true, .POR_91X = true, .FCAL_91X = true, .id_words = true},
            .panel = &kPanel16F6XX,
            .power_question = true,
        },
        DeviceGroup{
            .devices = k1XF63X,
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
            .devices = k12F609,
            .controls = GroupControls{.FCAL_91X = true, .id_words = true},
            .panel = &kPanel12F609,
            .power_question = true,
        },
        DeviceGroup{
            .devices = k16F785,
            .controls = GroupControls{.id_words = true},
            .panel = &kPanel16F785,
            .power_question = true,
        },
        DeviceGroup{
            .devices = k16F716,
            .controls = GroupControls{.id_words = true},
            .panel = &kPanel16F716,
        },
        DeviceGroup{.devices = k18F1XK50},
        DeviceGroup{.devices = {}},
    };
    return kGroups;
}

const DeviceGroup& group_of(std::string_view DeviceName) {
    const auto groups = device_groups();
    for (const auto& group : groups)
        if (std::ranges::find(group.devices, DeviceName) != group.devices.end()) return group;
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
