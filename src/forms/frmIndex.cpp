// SPDX-License-Identifier: MIT
// frmIndex: the board's sockets with the functions of the pins that programming uses.
#include "forms/frmIndex.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "forms/binders.h"
#include "forms/board_drawing.h"
#include "forms/placing.h"
#include "forms/small_form_texts.h"

namespace quillon {

frmIndex::frmIndex(QWidget* owner) : QDialog{owner} {
    setObjectName("frmIndex");
    setWindowTitle(q(form_text::kIndexCaption));
    auto* note = new QLabel{q(form_text::kIndexNote), this};
    auto* close = new QPushButton{q(form_text::kClose), this};
    close->setObjectName("Command_close");
    connect(close, &QPushButton::clicked, this, &QWidget::close);
    auto* foot = new QHBoxLayout;
    foot->addWidget(note, 1);
    foot->addWidget(close);
    auto* layout = new QVBoxLayout{this};
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->setContentsMargins(12, 12, 12, 12);
    layout->setSpacing(10);
    layout->addWidget(new BoardDrawing{BoardDrawing::Names::Pins, this});
    layout->addLayout(foot);
}

void frmIndex::show_over(const QWidget& form) {
    move(centred_on(form, sizeHint()));
    show();
    raise();
    activateWindow();
}

}  // namespace quillon
