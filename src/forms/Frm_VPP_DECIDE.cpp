// SPDX-License-Identifier: MIT
// Frm_VPP_DECIDE: asks which supply rises first.
#include "forms/Frm_VPP_DECIDE.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "forms/binders.h"
#include "forms/small_form_texts.h"

namespace quillon {

namespace {
constexpr int kLineCharacters = 44;  // full-width characters
}

Frm_VPP_DECIDE::Frm_VPP_DECIDE(const std::string& Label1, QWidget* owner) : QDialog{owner} {
    setObjectName("Frm_VPP_DECIDE");
    setWindowTitle(q(form_text::kPowerCaption));
    auto* label = new QLabel{this};
    label->setObjectName("Label1");
    label->setTextFormat(Qt::PlainText);
    label->setText(q(Label1).replace("\r\n", "\n").replace('\r', '\n'));
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    label->setFixedWidth(label->fontMetrics().horizontalAdvance(u'漢') * kLineCharacters);
    auto* vpp = new QPushButton{q(form_text::kVppFirst), this};
    vpp->setObjectName("Command1");
    vpp->setDefault(true);
    vpp->setFocus();
    auto* vdd = new QPushButton{q(form_text::kVddFirst), this};
    vdd->setObjectName("Command2");
    vdd->setAutoDefault(false);
    const auto answer = [this](QPushButton* button, int value) {
        connect(button, &QPushButton::clicked, this, [this, value] {
            answer_ = value;
            accept();
        });
    };
    answer(vpp, 1);
    answer(vdd, 2);

    auto* foot = new QHBoxLayout;
    foot->addStretch(1);
    foot->addWidget(vpp);
    foot->addWidget(vdd);
    auto* layout = new QVBoxLayout{this};
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->setContentsMargins(16, 16, 16, 12);
    layout->setSpacing(14);
    layout->addWidget(label);
    layout->addLayout(foot);
}

}  // namespace quillon
