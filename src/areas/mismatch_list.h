// SPDX-License-Identifier: MIT
// The list of differing words that a verify leaves in the program view.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace quillon {

class MismatchList {
  public:
    enum class Length : std::uint8_t { Limited, Full };

    explicit MismatchList(Length length = Length::Limited) : length_{length} {}

    // Notes a difference; words that agree are ignored. False once a limited list is full: beyond
    // so many differences the part isn't what it should be, and the comparison stops.
    bool compare(std::size_t address, std::uint16_t expected, std::uint16_t actual);

    // "" where all agreed.
    const std::string& text() const { return text_; }

  private:
    Length length_;
    std::string text_;
    int count_ = 0;
};

}  // namespace quillon
