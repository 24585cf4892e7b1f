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

// The place that centres a window of the given size on a form, kept on the form's screen.
QPoint centred_on(const QWidget& form, const QSize& size);

}  // namespace quillon
