// SPDX-License-Identifier: MIT
// The search line under the memory views: looks for a text in the view that was used last.
#include "forms/find_bar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QToolButton>

#include "forms/binders.h"
#include "forms/frmMain_texts.h"
#include "forms/theme.h"

namespace quillon {

namespace {

QToolButton* tool(QWidget* parent, std::string_view tip, Qt::ArrowType arrow) {
    auto* button = new QToolButton{parent};
    button->setAutoRaise(true);
    button->setArrowType(arrow);
    button->setToolTip(q(tip));
    button->setAccessibleName(q(tip));
    return button;
}

}  // namespace

FindBar::FindBar(View view, QWidget* parent)
    : QWidget{parent},
      view_{std::move(view)},
      text_{new QLineEdit{this}},
      verdict_{new QLabel{this}} {
    setObjectName("find_bar");
    text_->setObjectName("find_text");
    text_->setClearButtonEnabled(true);
    text_->setPlaceholderText(q(form_text::kFindPlaceholder));
    text_->setAccessibleName(q(form_text::kFind));
    text_->setAcceptDrops(false);
    auto* previous = tool(this, form_text::kFindPrevious, Qt::UpArrow);
    auto* next = tool(this, form_text::kFindNext, Qt::DownArrow);

    auto* layout = new QHBoxLayout{this};
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addWidget(text_, 1);
    layout->addWidget(previous);
    layout->addWidget(next);
    layout->addWidget(verdict_);

    connect(text_, &QLineEdit::textEdited, this, [this] { find(false, true); });
    connect(text_, &QLineEdit::returnPressed, this, [this] { find_next(); });
    connect(next, &QToolButton::clicked, this, [this] { find_next(); });
    connect(previous, &QToolButton::clicked, this, [this] { find_previous(); });
    hide();
}

void FindBar::open() {
    const QString selected = view_().textCursor().selectedText();
    if (!selected.isEmpty() && !selected.contains(QChar::ParagraphSeparator))
        text_->setText(selected);
    show_verdict(Verdict::Found);
    show();
    text_->setFocus(Qt::ShortcutFocusReason);
    text_->selectAll();
}

bool FindBar::find_next() { return find(false, false); }
bool FindBar::find_previous() { return find(true, false); }

bool FindBar::find(bool backward, bool from_selection_start) {
    show_verdict(Verdict::Found);
    if (text_->text().isEmpty()) return false;
    QPlainTextEdit& view = view_();
    const auto direction = backward ? QTextDocument::FindFlags{QTextDocument::FindBackward}
                                    : QTextDocument::FindFlags{};
    QTextCursor from = view.textCursor();
    // While the text grows, the current match may also match the longer text.
    if (from_selection_start) from.setPosition(from.selectionStart());
    QTextCursor hit = view.document()->find(text_->text(), from, direction);
    if (hit.isNull()) {
        from.movePosition(backward ? QTextCursor::End : QTextCursor::Start);
        hit = view.document()->find(text_->text(), from, direction);
        show_verdict(hit.isNull() ? Verdict::NotFound
                     : backward   ? Verdict::FromBottom
                                  : Verdict::FromTop);
    }
    if (!hit.isNull()) view.setTextCursor(hit);
    return !hit.isNull();
}

void FindBar::show_verdict(Verdict verdict) {
    QPalette own;
    if (verdict == Verdict::NotFound)
        own.setColor(QPalette::Text, text_colour(Colour::Red, palette()));
    text_->setPalette(own);
    switch (verdict) {
        case Verdict::Found:
            return verdict_->clear();
        case Verdict::FromTop:
            return verdict_->setText(q(form_text::kFromTop));
        case Verdict::FromBottom:
            return verdict_->setText(q(form_text::kFromBottom));
        case Verdict::NotFound:
            return verdict_->setText(q(form_text::kNotFound));
    }
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Escape) return QWidget::keyPressEvent(event);
    hide();
    view_().setFocus(Qt::OtherFocusReason);
}

}  // namespace quillon
