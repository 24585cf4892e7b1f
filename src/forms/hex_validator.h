// SPDX-License-Identifier: MIT
// The key filter of the boxes that hold hexadecimal digits. It turns a to f into capitals and
// refuses any other character. The box itself limits the length.
#pragma once

#include <QValidator>

namespace quillon {

class HexValidator : public QValidator {
  public:
    using QValidator::QValidator;
    State validate(QString& input, int& position) const override;
};

}  // namespace quillon
