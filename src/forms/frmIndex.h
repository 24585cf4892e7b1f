// SPDX-License-Identifier: MIT
// frmIndex: the board's sockets with the functions of the pins that programming uses.
#pragma once

#include <QDialog>

namespace quillon {

class frmIndex : public QDialog {
  public:
    explicit frmIndex(QWidget* owner);
    // Modeless, centred on the given form.
    void show_over(const QWidget& form);
};

}  // namespace quillon
