// SPDX-License-Identifier: MIT
// frmOption: the port dialog. Shows which port each number has.
#pragma once

#include <QDialog>
#include <functional>

#include "forms/binders.h"
#include "run/option_form.h"

namespace quillon {

class frmOption : public QDialog {
  public:
    // Returns the name of the port behind COMn, or nothing.
    using Behind = std::function<QString(int number)>;

    frmOption(OptionForm& form, OptionDialog& dialog, const Behind& behind, QWidget* owner);

  protected:
    void reject() override;  // Escape and the close box

  private:
    QWidget* make_ports(const Behind& behind);

    OptionForm& form_;
    OptionDialog& dialog_;
    Bindings bindings_;
};

}  // namespace quillon
