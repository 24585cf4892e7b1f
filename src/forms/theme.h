// SPDX-License-Identifier: MIT
// What the desktop's theme leaves open: the colours that the flows ask for, and the typefaces.
//
// A theme is dark where its window is darker than its text; nothing else tells.
#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>

#include "app/controls.h"

namespace quillon {

bool is_dark(const QPalette& palette);

// The text colour for a message: the theme's own for all but Red, which keeps a contrast of at
// least 4.5 to 1 against the theme's ground.
QColor text_colour(Colour colour, const QPalette& palette);

// The ground of a control, with the text colour that can be read on it.
struct Ground {
    QColor back;
    QColor text;
};
Ground ground(Colour colour, const QPalette& palette);

// A colour between the two: 0 gives the first, 1 the second.
QColor mixed(const QColor& first, const QColor& second, double share);
// The colour of a caption that explains: weaker than text, still readable.
QColor caption_colour(const QPalette& palette);

// The window's typeface in the desktop's size; Japanese glyphs of one design throughout.
QFont window_font(const QFont& desktop);
// The typeface of the memory views: a half-width character takes half of a full-width one.
QFont fixed_font(const QFont& desktop);

// Pixels by which the typeface's letters hang below the descent that it tells of: a label of that
// height would cut them off.
int overhang(const QFont& font);

// Relative luminance contrast of two colours, 1 to 21.
double contrast(const QColor& first, const QColor& second);

}  // namespace quillon
