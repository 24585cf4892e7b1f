// SPDX-License-Identifier: MIT
// The message area: a few lines in the message's colour, to be selected and copied.
//
// Always plain text: messages may hold "<<", which would otherwise be read as mark-up.
#pragma once

#include <QPlainTextEdit>

#include "app/controls.h"

namespace quillon {

class MessageArea : public QPlainTextEdit {
  public:
    explicit MessageArea(QWidget* parent = nullptr);

    // Shows the first line of a new message and the last one of a message that has grown.
    void show_text(const QString& text);
    void show_colour(Colour colour);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void apply_colour();

    Colour colour_ = Colour::Black;
};

}  // namespace quillon
