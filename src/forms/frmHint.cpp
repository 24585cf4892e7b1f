// SPDX-License-Identifier: MIT
// frmHint: the overwrite question.
#include "forms/frmHint.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

#include "forms/binders.h"
#include "forms/small_form_texts.h"

namespace quillon {

frmHint::frmHint(const HintQuestion& question, QWidget* owner) : QDialog{owner} {
    setObjectName("frmHint");
    setWindowTitle(q(form_text::kHintCaption));
    auto* icon = new QLabel{this};
    const int side = style()->pixelMetric(QStyle::PM_MessageBoxIconSize);
    icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxQuestion).pixmap(side, side));
    auto* lines = new QVBoxLayout;
    lines->setSpacing(6);
    int number = 0;
    for (const std::string* line : {&question.line1, &question.line2}) {
        auto* label = new QLabel{q(*line), this};
        label->setTextFormat(Qt::PlainText);
        label->setObjectName(QStringLiteral("Label1(%1)").arg(number++));
        lines->addWidget(label);
    }
    auto* head = new QHBoxLayout;
    head->setSpacing(14);
    head->addWidget(icon, 0, Qt::AlignTop);
    head->addLayout(lines, 1);

    const auto button = [this](std::string_view name, std::string_view caption) {
        auto* result = new QPushButton{q(caption), this};
        result->setObjectName(q(name));
        result->setAutoDefault(false);
        return result;
    };
    auto* hint = button("CmdHint", form_text::kShowHint);
    auto* ok = button("cmdOK", form_text::kOk);
    auto* cancel = button("cmdCancel", form_text::kCancel);
    cancel->setDefault(true);
    cancel->setFocus();
    connect(hint, &QPushButton::clicked, this, [this] {
        if (on_hint) on_hint();
    });
    connect(ok, &QPushButton::clicked, this, [this] {
        answer_ = 1;
        accept();
    });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

    auto* foot = new QHBoxLayout;
    foot->addWidget(hint);
    foot->addStretch(1);
    foot->addSpacing(40);
    foot->addWidget(ok);
    foot->addWidget(cancel);
    auto* layout = new QVBoxLayout{this};
    layout->setContentsMargins(16, 16, 16, 12);
    layout->setSpacing(16);
    layout->addLayout(head);
    layout->addLayout(foot);
}

}  // namespace quillon
