// SPDX-License-Identifier: MIT
#include "run/device_select_form.h"

#include <algorithm>

#include "catalogue/typed_device.h"

namespace quillon {

namespace {

constexpr int kPlaceRight = 2700;  // twips from the main form's place
constexpr int kPlaceBelow = 700;

}  // namespace

void DeviceSelectDialog::fill() {
    const auto& all = session_.DeviceList;
    form_.Combo_device.clear();
    form_.Combo_device.Items.set({all.begin(), std::ranges::find(all, std::string{})});
    const int chosen = main_form_.Combo_device.ListIndex.get();
    if (chosen >= 0 && static_cast<std::size_t>(chosen) < form_.Combo_device.Items.get().size())
        form_.Combo_device.show(chosen);
}

bool DeviceSelectDialog::Form_Load() {
    if (session_.CommandLine.empty()) return false;
    form_.Left = main_form_.Left + kPlaceRight;
    form_.Top = main_form_.Top + kPlaceBelow;
    form_.Notice.Caption.set("");
    fill();
    if (!session_.CmdArg2.empty() && form_.Combo_device.select(session_.CmdArg2)) {
        session_.PickedDevice = form_.Combo_device.Text.get();
        return false;
    }
    form_.Visible.set(true);
    return true;
}

void DeviceSelectDialog::OKButton_Click() {
    auto& list = form_.Combo_device;
    const auto meant = typed_device(list.Text.get(), list.Items.get());
    form_.Notice.Caption.set(meant.problem);
    if (!meant.index) return;
    list.select(*meant.index);
    session_.PickedDevice = list.Text.get();
    form_.Visible.set(false);
}

void DeviceSelectDialog::CancelButton_Click() {
    session_.CommandLine.clear();
    form_.Visible.set(false);
}

}  // namespace quillon
