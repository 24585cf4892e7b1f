// SPDX-License-Identifier: MIT
// frmAbout: the program's name and version, and a link to the maker's page.
#pragma once

#include <QDialog>

#include "forms/binders.h"
#include "run/run.h"

namespace quillon {

class frmAbout : public QDialog {
  public:
    frmAbout(Run& run, QWidget* owner);
    void show_over(const QWidget& form);

  private:
    Bindings bindings_;
};

}  // namespace quillon
