// SPDX-License-Identifier: MIT
// The device's information under the configuration tabs: identity, calibration, parity display,
// whole ID words. Only what the selected device has is shown.
#pragma once

#include <QWidget>

#include "app/main_form.h"
#include "forms/binders.h"

class QBoxLayout;
class QCheckBox;
class QPushButton;

namespace quillon {

class InfoPanel : public QWidget {
  public:
    InfoPanel(MainForm& form, Bindings& bindings, QWidget* parent = nullptr);

    QCheckBox* Check_Parity_Disp = nullptr;
    QCheckBox* Chk_12F_CalibData_Select = nullptr;
    QPushButton* Command1 = nullptr;  // reads the calibration word
    QPushButton* Command2 = nullptr;  // writes it

  private:
    QWidget* make_identity(MainForm& form, Bindings& bindings);
    QWidget* make_information(MainForm& form, Bindings& bindings);
    QWidget* make_calibration(MainForm& form, Bindings& bindings, QWidget* parent);
    QPushButton* word_button(Button& control, Bindings& bindings, QWidget* parent,
                             std::string_view tip);
    QWidget* make_choices(MainForm& form, Bindings& bindings, QWidget* parent);
    QWidget* make_whole_words(MainForm& form, Bindings& bindings);
};

}  // namespace quillon
