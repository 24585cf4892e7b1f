// SPDX-License-Identifier: MIT
// The bottom of frmMain: the big buttons, the message area, the progress bar.
#pragma once

#include <QWidget>

#include "app/main_form.h"
#include "forms/binders.h"

class QPushButton;

namespace quillon {

class OperationPanel : public QWidget {
  public:
    OperationPanel(MainForm& form, Bindings& bindings, QWidget* parent = nullptr);

    QPushButton* Command_blank;
    QPushButton* Command_read;
    QPushButton* Command_Verify;
    QPushButton* Command_program;
    QPushButton* Cmd_Extend_Program;
    QPushButton* Command_stop;

  private:
    QPushButton* big_button(Button& control, Bindings& bindings, std::string_view tip);
    QWidget* make_progress(MainForm& form, Bindings& bindings);
};

}  // namespace quillon
