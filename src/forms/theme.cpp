// SPDX-License-Identifier: MIT
// What the desktop's theme doesn't define: the colours that the flows ask for, and the typefaces.
//
// The typeface families are a list: for each glyph, the first family that has it is used.
#include "forms/theme.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QStringList>
#include <algorithm>
#include <cmath>

namespace quillon {

namespace {

// The board's label after the board has answered. It is always light, so its text is always dark.
const QColor kFound{255, 224, 192};
const QColor kOnFound{0x40, 0x28, 0x10};
const QColor kRedOnLight{0xC0, 0x00, 0x10};
const QColor kRedOnDark{0xFF, 0x8A, 0x80};

// Uses the colours of the active state. By default a palette gives those of the widget's current
// state, and start-up looks colours up while the window is still disabled.
QColor enabled(const QPalette& palette, QPalette::ColorRole role) {
    return palette.color(QPalette::Active, role);
}

double luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

QStringList with_fallbacks(QStringList families, const QStringList& desktop) {
    families += desktop;
    families.removeDuplicates();
    return families;
}

}  // namespace

double contrast(const QColor& first, const QColor& second) {
    const double one = luminance(first), other = luminance(second);
    return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

bool is_dark(const QPalette& palette) {
    return luminance(enabled(palette, QPalette::Window)) <
           luminance(enabled(palette, QPalette::WindowText));
}

QColor mixed(const QColor& first, const QColor& second, double share) {
    const auto part = [share](double one, double other) {
        return static_cast<float>(one + (other - one) * share);
    };
    return QColor::fromRgbF(part(first.redF(), second.redF()),
                            part(first.greenF(), second.greenF()),
                            part(first.blueF(), second.blueF()));
}

QColor caption_colour(const QPalette& palette) {
    return mixed(enabled(palette, QPalette::WindowText), enabled(palette, QPalette::Window), 0.30);
}

QColor text_colour(Colour colour, const QPalette& palette) {
    if (colour != Colour::Red) return enabled(palette, QPalette::Text);
    return is_dark(palette) ? kRedOnDark : kRedOnLight;
}

Ground ground(Colour colour, const QPalette& palette) {
    switch (colour) {
        case Colour::Found:
            return {kFound, kOnFound};
        case Colour::Grey:
            return {enabled(palette, QPalette::Window),
                    mixed(enabled(palette, QPalette::WindowText),
                          enabled(palette, QPalette::Window), 0.35)};
        case Colour::ButtonFace:
            return {enabled(palette, QPalette::Button), enabled(palette, QPalette::ButtonText)};
        case Colour::Default:
        case Colour::Black:
        case Colour::Red:
        case Colour::White:
            break;
    }
    return {enabled(palette, QPalette::Base), enabled(palette, QPalette::Text)};
}

QFont window_font(const QFont& desktop) {
    QFont font{desktop};
    font.setFamilies(with_fallbacks({"BIZ UDPGothic", "Yu Gothic UI", "Meiryo UI", "Hiragino Sans",
                                     "Noto Sans CJK JP", "IPAPGothic"},
                                    desktop.families()));
    return font;
}

QFont fixed_font(const QFont& desktop) {
    QFont font{desktop};
    font.setFamilies(with_fallbacks(
        {"BIZ UDGothic", "MS Gothic", "Osaka-Mono", "Noto Sans Mono CJK JP", "IPAGothic"},
        QFontDatabase::systemFont(QFontDatabase::FixedFont).families()));
    font.setStyleHint(QFont::Monospace);
    font.setFixedPitch(true);
    font.setKerning(false);
    return font;
}

int overhang(const QFont& font) {
    const QFontMetrics metrics{font};
    return std::max(
        0, metrics.tightBoundingRect(QStringLiteral("gjpqy_")).bottom() + 1 - metrics.descent());
}

}  // namespace quillon
