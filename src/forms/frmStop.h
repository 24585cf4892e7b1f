// SPDX-License-Identifier: MIT
// frmStop: the question before the window is closed in the middle of an operation.
#pragma once

#include <QMessageBox>

#include "forms/binders.h"
#include "run/stop_form.h"

namespace quillon {

class frmStop : public QMessageBox {
  public:
    frmStop(StopForm& form, StopDialog& dialog, QWidget* owner);

  private:
    QPushButton* button(quillon::Button& control, ButtonRole role);

    Bindings bindings_;
};

}  // namespace quillon
