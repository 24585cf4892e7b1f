// SPDX-License-Identifier: MIT
// frmHint: the overwrite question. Every way to close it except OK means cancel.
#pragma once

#include <QDialog>
#include <functional>

#include "app/dialogs.h"

namespace quillon {

class frmHint : public QDialog {
  public:
    frmHint(const HintQuestion& question, QWidget* owner);

    // 1 OK, 2 cancel.
    int FormAnswer() const { return answer_; }
    std::function<void()> on_hint;  // opens the document; the question stays open

  private:
    int answer_ = 2;
};

}  // namespace quillon
