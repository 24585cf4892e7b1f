// SPDX-License-Identifier: MIT
// frmBoard: the programmer board with the socket and the jumper place for the selected device.
//
// A window of its own beside the main form. It shows and hides with its form's Visible, and tells
// where the user has put it.
#pragma once

#include <QDialog>

#include "forms/binders.h"
#include "run/run.h"

namespace quillon {

class BoardDrawing;

class frmBoard : public QDialog {
  public:
    frmBoard(Run& run, QWidget* owner);

  protected:
    void moveEvent(QMoveEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void reject() override;  // Escape closes as the close box does

  private:
    void make_sockets();
    void make_jumper();
    void place();

    Run& run_;
    Bindings bindings_;
    BoardDrawing* drawing_;
};

}  // namespace quillon
