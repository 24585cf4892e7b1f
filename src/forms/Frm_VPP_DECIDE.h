// SPDX-License-Identifier: MIT
// Frm_VPP_DECIDE: asks which supply rises first.
#pragma once

#include <QDialog>
#include <string>

namespace quillon {

class Frm_VPP_DECIDE : public QDialog {
  public:
    Frm_VPP_DECIDE(const std::string& Label1, QWidget* owner);

    // 1 VPP first, 2 VDD first, 0 if the form was closed without an answer.
    int FormAnswer() const { return answer_; }

  private:
    int answer_ = 0;
};

}  // namespace quillon
