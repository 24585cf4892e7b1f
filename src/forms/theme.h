// SPDX-License-Identifier: MIT
// What the desktop's theme doesn't define: the colours that the flows ask for, and the typefaces.
//
// A theme counts as dark if its window is darker than its text.
#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>

#include "app/controls.h"

namespace quillon {

bool is_dark(const QPalette& palette);

// The text colour of a message. Red has a contrast of at least 4.5 to 1 against the theme's
// background. All other colours use the theme's own.
QColor text_colour(Colour colour, const QPalette& palette);

// The background of a control, with a text colour that can be read on it.
struct Ground {
    QColor back;
    QColor text;
};
Ground ground(Colour colour, const QPalette& palette);

// A colour between the two: 0 gives the first, 1 the second.
QColor mixed(const QColor& first, const QColor& second, double share);
// The colour of an explaining caption: weaker than text, but readable.
QColor caption_colour(const QPalette& palette);

// The window's typeface in the desktop's size. All Japanese glyphs have one design.
QFont window_font(const QFont& desktop);
// The typeface of the memory views: a half-width character is half as wide as a full-width one.
QFont fixed_font(const QFont& desktop);

// Pixels by which the letters of the typeface reach below the descent that it reports. A label of
// the reported height would cut them off.
int overhang(const QFont& font);

// Relative luminance contrast of two colours, 1 to 21.
double contrast(const QColor& first, const QColor& second);

}  // namespace quillon
