// SPDX-License-Identifier: MIT
// frmHint: the overwrite question. Cancel is what every way out but OK means.
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
    std::function<void()> on_hint;  // opens the document; the question stays

  private:
    int answer_ = 2;
};

}  // namespace quillon
