// SPDX-License-Identifier: MIT
// frmExtend_Program: operations on one memory area at a time, and the erase of the whole chip.
//
// A window of its own beside the main form, which keeps the messages, the progress and the stop
// button. It is shown and hidden by its form's Visible, and reports where the user has moved it.
#pragma once

#include <QDialog>
#include <QList>
#include <functional>
#include <span>

#include "forms/binders.h"
#include "run/run.h"

class QPushButton;
class QWidget;

namespace quillon {

struct AreaButton;

class frmExtend_Program : public QDialog {
  public:
    // Runs an act as a command of the main window, or drops it if another one runs.
    using Command = std::function<void(const std::function<void()>& act)>;

    // `kept_free` are the owner's widgets that this window doesn't cover when it opens.
    frmExtend_Program(Run& run, Command command, QList<const QWidget*> kept_free, QWidget* owner);

    // Opens the window, or brings the open one to the front.
    void come_up();

  protected:
    void moveEvent(QMoveEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void reject() override;  // Escape: nothing while an operation runs, as the main form stops it

  private:
    QWidget* make_side(Label& caption, std::span<const AreaButton> buttons);
    QPushButton* make_button(const AreaButton& button);
    void connect_stop();
    void align();
    void place();

    Run& run_;
    Command command_;
    QList<const QWidget*> kept_free_;
    Bindings bindings_;
};

}  // namespace quillon
