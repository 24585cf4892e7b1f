// SPDX-License-Identifier: MIT
// Where the windows go: on a screen, over the main window or beside it.
#pragma once

#include <QList>
#include <QPoint>
#include <QRect>

class QWidget;

namespace quillon {

// The place as wished, where at least the title can be reached on some screen.
QPoint reachable(const QPoint& wished);

// The place that centres a window of the given size on a form, kept on the form's screen.
QPoint centred_on(const QWidget& form, const QSize& size);

// The place of a frame that belongs to a form. The wished one, where it is whole on a screen and
// leaves the form free; else beside the form on the first screen, right of it if there is room. On
// a screen without room it is the place there that covers the least of the form.
QPoint beside(const QRect& form, const QRect& wished, const QList<QRect>& screens);
// The same for a window, by its frame, on the screens of the desktop.
QPoint beside(const QWidget& form, const QWidget& window, const QPoint& wished);

}  // namespace quillon
