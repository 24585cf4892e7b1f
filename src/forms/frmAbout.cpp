// SPDX-License-Identifier: MIT
// frmAbout: the program's name and version, and a link to the maker's page.
#include "forms/frmAbout.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "forms/placing.h"
#include "forms/small_form_texts.h"

namespace quillon {

frmAbout::frmAbout(Run& run, QWidget* owner) : QDialog{owner} {
    setObjectName("frmAbout");
    setWindowTitle(q(form_text::kAboutCaption));
    auto* icon = new QLabel{this};
    icon->setPixmap(owner->windowIcon().pixmap(64, 64));
    auto* texts = new QVBoxLayout;
    texts->setSpacing(6);
    auto& form = run.about;
    for (Label* control : {&form.lblTitle, &form.lblVersion, &form.lblDescription,
                           &form.lblDisclaimer, &form.Label_ID_Word}) {
        auto* label = new QLabel{this};
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        bindings_.bind(*control, *label);
        texts->addWidget(label);
        if (control == &form.lblTitle) {
            QFont large = label->font();
            large.setPointSizeF(large.pointSizeF() * 1.6);
            label->setFont(large);
        }
    }
    auto* page = new QPushButton{q(form_text::kSupportPage), this};
    page->setObjectName("Command1");
    auto* close = new QPushButton{q(form_text::kOk), this};
    close->setObjectName("cmdOK");
    close->setDefault(true);
    connect(page, &QPushButton::clicked, this, [&run] { run.menu.open_support_page(); });
    connect(close, &QPushButton::clicked, this, &QWidget::close);

    auto* head = new QHBoxLayout;
    head->setSpacing(16);
    head->addWidget(icon, 0, Qt::AlignTop);
    head->addLayout(texts, 1);
    auto* foot = new QHBoxLayout;
    foot->addStretch(1);
    foot->addWidget(page);
    foot->addWidget(close);
    auto* layout = new QVBoxLayout{this};
    layout->setContentsMargins(16, 16, 16, 12);
    layout->setSpacing(14);
    layout->addLayout(head);
    layout->addLayout(foot);
    setMinimumWidth(360);
}

void frmAbout::show_over(const QWidget& form) {
    move(centred_on(form, sizeHint()));
    show();
    raise();
    activateWindow();
}

}  // namespace quillon
