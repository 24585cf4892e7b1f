// SPDX-License-Identifier: MIT
#include "catalogue/device_check.h"

#include <string>

#include "catalogue/catalogue_texts.h"

namespace quillon {

Token DeviceCheck::Mcu_Selected_Check() {
    if (!session_.DeviceName.empty()) return Token::OK;
    messages_.ShowMessage(catalogue_text::kNoDevice);
    dialogs_.box({.title = std::string{catalogue_text::kNoDeviceTitle},
                  .text = std::string{catalogue_text::kNoDevice},
                  .icon = BoxIcon::Warning});
    form_.Focus.set("");
    form_.Focus.set(form_.Combo_device.name);
    return Token::NG;
}

}  // namespace quillon
