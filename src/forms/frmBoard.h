// SPDX-License-Identifier: MIT
// frmBoard: the programmer board with the socket and the jumper place for the selected device.
//
// A window of its own beside the main form. It is shown and hidden by its form's Visible, and
// reports where the user has moved it.
#pragma once

#include <QDialog>
#include <QRect>
#include <functional>
#include <vector>

#include "forms/binders.h"
#include "run/run.h"

class QHBoxLayout;

namespace quillon {

class BoardDrawing;

class frmBoard : public QDialog {
  public:
    frmBoard(Run& run, QWidget* owner);

  protected:
    void moveEvent(QMoveEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void reject() override;  // Escape closes as the close box does

  private:
    void make_sockets();
    void make_jumper();
    void make_legend(QHBoxLayout& legend);
    // Places each overlay again, because the drawing's size depends on the font.
    void lay_out();
    void place();

    Run& run_;
    Bindings bindings_;
    BoardDrawing* drawing_;
    struct Placed {
        QWidget* overlay;
        std::function<QRect()> area;
    };
    std::vector<Placed> overlays_;
    std::vector<QWidget*> colours_;  // the legend's colours
};

}  // namespace quillon
