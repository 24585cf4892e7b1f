// SPDX-License-Identifier: MIT
// The key filter of the boxes that hold hexadecimal digits: a to f become capitals, all else is
// refused. The length is the box's own limit.
#pragma once

#include <QValidator>

namespace quillon {

class HexValidator : public QValidator {
  public:
    using QValidator::QValidator;
    State validate(QString& input, int& position) const override;
};

}  // namespace quillon
