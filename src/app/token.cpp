// SPDX-License-Identifier: MIT
#include "app/token.h"

namespace quillon {

std::string_view text(Token token) {
    switch (token) {
        case Token::None:
            return "";
        case Token::OK:
            return "OK";
        case Token::NG:
            return "NG";
        case Token::ER:
            return "ER";
        case Token::Absent:
            return "--";
        case Token::YB:
            return "YB";
        case Token::NB:
            return "NB";
    }
    return "";
}

std::string_view text(const Protection& protection) { return protection.any() ? "CP" : "--"; }

std::string text(const AreaTokens& tokens) {
    return std::string{text(tokens.pgm)}.append(text(tokens.eep)).append(text(tokens.cfg));
}

}  // namespace quillon
