// SPDX-License-Identifier: MIT
#include "areas/mismatch_list.h"

#include <fmt/format.h>

#include <string_view>

namespace quillon {

namespace {

constexpr std::string_view kLine = "Error　 アドレス:0x{:04X} , 正:0x{:04X} , 誤:0x{:04X}\r\n";
constexpr std::string_view kMore =
    "\r\n"
    "これ以降もエラーがある可能性があります。"
    "\r\n";
// The list ends after the line that exceeds it.
constexpr int kMost = 100;

}  // namespace

bool MismatchList::compare(std::size_t address, std::uint16_t expected, std::uint16_t actual) {
    if (expected == actual) return true;
    text_ += fmt::format(kLine, address, expected, actual);
    if (++count_ <= kMost || length_ == Length::Full) return true;
    text_ += kMore;
    return false;
}

}  // namespace quillon
