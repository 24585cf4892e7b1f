// SPDX-License-Identifier: MIT
// The message area: a few lines in the message's colour, to be selected and copied.
//
// The colour depends on the theme, so it is looked up again when the theme changes.
#include "forms/message_area.h"

#include <QEvent>
#include <QScrollBar>

#include "forms/theme.h"

namespace quillon {

namespace {
constexpr int kLines = 4;  // the longest of the usual messages
}

MessageArea::MessageArea(QWidget* parent) : QPlainTextEdit{parent} {
    setReadOnly(true);
    setTabChangesFocus(true);
    setUndoRedoEnabled(false);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void MessageArea::show_text(const QString& text) {
    const QString former = toPlainText();
    const bool grown = !former.isEmpty() && text.startsWith(former);
    setPlainText(text);
    verticalScrollBar()->setValue(grown ? verticalScrollBar()->maximum() : 0);
}

void MessageArea::show_colour(Colour colour) {
    colour_ = colour;
    apply_colour();
}

QSize MessageArea::sizeHint() const {
    const int margins = 2 * frameWidth() + static_cast<int>(2 * document()->documentMargin()) + 1;
    return {200, kLines * fontMetrics().lineSpacing() + margins};
}

void MessageArea::changeEvent(QEvent* event) {
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) {
        apply_colour();
        updateGeometry();
    }
}

void MessageArea::apply_colour() {
    const QPalette theme = parentWidget() != nullptr ? parentWidget()->palette() : QPalette{};
    const QColor wanted = text_colour(colour_, theme);
    // setPalette() below causes another change event, which ends here.
    if (palette().color(QPalette::Active, QPalette::Text) == wanted) return;
    QPalette own;
    own.setColor(QPalette::Text, wanted);
    setPalette(own);
}

}  // namespace quillon
