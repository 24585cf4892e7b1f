// SPDX-License-Identifier: MIT
// Where windows are placed: on a screen, over the main window or beside it.
#pragma once

#include <QList>
#include <QPoint>
#include <QRect>

class QWidget;

namespace quillon {

// Returns the wished place if the title can be reached on some screen, else one that can.
QPoint reachable(const QPoint& wished);

// Centres a window of the given size on a form, within the form's screen.
QPoint centred_on(const QWidget& form, const QSize& size);

// Returns the place of a frame that belongs to a form. The wished place is used if it is whole on a
// screen and doesn't cover the form. Otherwise the frame is placed beside the form on the first
// screen, to its right if there is room. If that screen has no room, the place covers as little of
// the form as possible.
QPoint beside(const QRect& form, const QRect& wished, const QList<QRect>& screens);
// The same for a frame that may cover the form, except for some areas of it.
QPoint beside(const QRect& form, const QList<QRect>& kept_free, const QRect& wished,
              const QList<QRect>& screens);
// The same for a window and its frame, on the screens of the desktop. `kept_free` are widgets of
// the form.
QPoint beside(const QWidget& form, const QWidget& window, const QPoint& wished);
QPoint beside(const QWidget& form, const QList<const QWidget*>& kept_free, const QWidget& window,
              const QPoint& wished);

}  // namespace quillon
