// SPDX-License-Identifier: MIT
// The key filter of the boxes that hold hexadecimal digits.
#include "forms/hex_validator.h"

#include <algorithm>

namespace quillon {

QValidator::State HexValidator::validate(QString& input, int& /*position*/) const {
    // Only ASCII letters: the capital of some other letters is longer than the letter.
    for (QChar& character : input)
        if (character >= u'a' && character <= u'f') character = character.toUpper();
    const auto is_digit = [](QChar character) {
        return (character >= u'0' && character <= u'9') || (character >= u'A' && character <= u'F');
    };
    return std::all_of(input.begin(), input.end(), is_digit) ? Acceptable : Invalid;
}

}  // namespace quillon
