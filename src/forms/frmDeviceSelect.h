// SPDX-License-Identifier: MIT
// frmDeviceSelect: asks which device the command line's HEX file is for.
#pragma once

#include <QDialog>

#include "forms/binders.h"
#include "run/device_select_form.h"

namespace quillon {

class frmDeviceSelect : public QDialog {
  public:
    frmDeviceSelect(DeviceSelectForm& form, DeviceSelectDialog& dialog, QWidget* owner);

  protected:
    void reject() override;  // Escape and the close box

  private:
    QLabel* make_notice(Label& control);

    DeviceSelectDialog& dialog_;
    Bindings bindings_;
};

}  // namespace quillon
