// SPDX-License-Identifier: MIT
// The grammar of the commands, as far as it follows from their letters.
#include "board/wire_text.h"

namespace quillon {
namespace {

using Kind = WireForm::Kind;

constexpr WireForm kUnknown{};
constexpr std::size_t kCount = 2;
constexpr std::size_t kCount18 = 6;  // three-byte address, three-byte count

std::optional<WireForm> blank_form(std::string_view letters, bool pic18) {
    if (letters.empty()) return std::nullopt;
    switch (letters[0]) {
        case 's':
        case '8':
        case 'S':
        case 'K':
            return WireForm{Kind::Reply, pic18 ? kCount18 : kCount, 2};
        case 'p':
            if (letters.size() < 2) return std::nullopt;
            return WireForm{Kind::Reply, kCount, 4};
        case 'r':
            return WireForm{Kind::Reply, kCount, 2};
        case 'w':
        case 'W':
        case '5':
        case '6':
            return WireForm{Kind::Reply, 2 * kCount, 0};
        case 'd':
        case 'D':
        case 'k':
            return WireForm{Kind::Reply, pic18 ? kCount18 : 1, 0};
        default:
            return kUnknown;
    }
}

std::optional<WireForm> target_form(std::string_view letters) {
    if (letters.empty()) return std::nullopt;
    const bool pic18 = letters[0] == 'X';
    if (pic18) letters.remove_prefix(1);
    if (letters.empty()) return std::nullopt;
    const std::size_t parameters = pic18 ? kCount18 : kCount;
    switch (letters[0]) {
        case 'P':
            return WireForm{Kind::Silent, 0, 0};
        case 'r':
            if (letters.size() < 3) return std::nullopt;
            return WireForm{Kind::Read, parameters, 0};
        case 'w':
            if (letters.size() < 3) return std::nullopt;
            return WireForm{Kind::Write, parameters, 0};
        case 'b':
            return blank_form(letters.substr(1), pic18);
        default:
            return kUnknown;
    }
}

}  // namespace

std::optional<WireForm> wire_form(std::string_view letters) {
    if (letters.empty()) return std::nullopt;
    switch (letters[0]) {
        case '*':
            if (letters.back() == '?') return WireForm{Kind::Text, 0, 0};
            return std::nullopt;
        case '?':
            return WireForm{Kind::Text, 0, 0};
        case 'm':
            if (letters.size() < 2) return std::nullopt;
            return letters[1] == 'D' ? WireForm{Kind::Reply, 1, 1} : kUnknown;
        case 'p':
            return WireForm{Kind::Silent, 0, 0};
        case 'n':
        case 'N':
            return target_form(letters.substr(1));
        default:
            return kUnknown;
    }
}

}  // namespace quillon
