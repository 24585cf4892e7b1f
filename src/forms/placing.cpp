// SPDX-License-Identifier: MIT
// Places whole frames: a desktop's title bar and borders cover the screen too.
#include "forms/placing.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>
#include <array>

namespace quillon {

namespace {

constexpr int kGap = 8;  // between a form and the window beside it

QPoint kept_on(const QRect& screen, const QPoint& wished, const QSize& size) {
    const auto within = [](int wished_at, int first, int last) {
        return std::clamp(wished_at, first, std::max(first, last));
    };
    return {within(wished.x(), screen.left(), screen.left() + screen.width() - size.width()),
            within(wished.y(), screen.top(), screen.top() + screen.height() - size.height())};
}

int covered(const QRect& form, const QRect& frame) {
    const QRect both = form & frame;
    return both.isEmpty() ? 0 : both.width() * both.height();
}

// The free areas of the screens; the form's own screen is first.
QList<QRect> areas_from(const QWidget& form) {
    QList<QRect> areas{form.screen()->availableGeometry()};
    for (const auto* screen : QGuiApplication::screens())
        if (screen != form.screen()) areas << screen->availableGeometry();
    return areas;
}

QRect frame_of(const QWidget& form, const QWidget& window, const QPoint& wished) {
    // A window that was never shown has no borders yet. The form's are at least as wide.
    const QSize borders = form.frameGeometry().size() - form.size();
    return {wished, window.sizeHint() + borders};
}

}  // namespace

QPoint reachable(const QPoint& wished) {
    const QRect title{wished, QSize{120, 24}};
    for (const auto* screen : QGuiApplication::screens())
        if (screen->availableGeometry().intersects(title)) return wished;
    return QGuiApplication::primaryScreen()->availableGeometry().topLeft() + QPoint{7, 7};
}

QPoint centred_on(const QWidget& form, const QSize& size) {
    const QPoint wished =
        form.frameGeometry().center() - QPoint{size.width() / 2, size.height() / 2};
    return kept_on(form.screen()->availableGeometry(), wished, size);
}

QPoint beside(const QRect& form, const QRect& wished, const QList<QRect>& screens) {
    return beside(form, {form}, wished, screens);
}

QPoint beside(const QRect& form, const QList<QRect>& kept_free, const QRect& wished,
              const QList<QRect>& screens) {
    const bool is_free = std::ranges::none_of(
        kept_free, [&](const QRect& area) { return covered(area, wished) > 0; });
    for (const QRect& screen : screens)
        if (is_free && screen.contains(wished)) return wished.topLeft();
    const int right = form.x() + form.width() + kGap;
    const int left = form.x() - kGap - wished.width();
    const int below = form.y() + form.height() + kGap;
    const int above = form.y() - kGap - wished.height();
    // Takes the first of the best places.
    const std::array sides{
        QPoint{right, form.y()}, QPoint{left, form.y()}, QPoint{form.x(), below},
        QPoint{form.x(), above}, QPoint{right, below},   QPoint{left, below},
        QPoint{right, above},    QPoint{left, above},
    };
    const auto covered_from = [&](const QPoint& side) {
        return covered(form, {kept_on(screens.front(), side, wished.size()), wished.size()});
    };
    const QPoint best = *std::ranges::min_element(sides, {}, covered_from);
    // No side has room. The upper right corner has mostly memory views; the buttons of the
    // operations, the stop button and the messages are below.
    const QPoint corner{screens.front().x() + screens.front().width(), screens.front().y()};
    return kept_on(screens.front(), covered_from(best) == 0 ? best : corner, wished.size());
}

QPoint beside(const QWidget& form, const QWidget& window, const QPoint& wished) {
    return beside(form.frameGeometry(), frame_of(form, window, wished), areas_from(form));
}

QPoint beside(const QWidget& form, const QList<const QWidget*>& kept_free, const QWidget& window,
              const QPoint& wished) {
    QList<QRect> areas;
    for (const auto* widget : kept_free)
        areas << QRect{widget->mapToGlobal(QPoint{0, 0}), widget->size()};
    return beside(form.frameGeometry(), areas, frame_of(form, window, wished), areas_from(form));
}

}  // namespace quillon
