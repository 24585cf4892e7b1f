// SPDX-License-Identifier: MIT
// The bottom of frmMain: the big buttons, the message area, the progress bar and its stop button.
//
// A hidden bar keeps its space, so that nothing moves when an operation begins.
#include "forms/operation_panel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include "forms/frmMain_texts.h"
#include "forms/message_area.h"

namespace quillon {

namespace {

void keep_place(QWidget* widget) {
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
}

}  // namespace

OperationPanel::OperationPanel(MainForm& form, Bindings& bindings, QWidget* parent)
    : QWidget{parent} {
    Command_blank = big_button(form.Command_blank, bindings, form_text::kBlankTip);
    Command_read = big_button(form.Command_read, bindings, form_text::kReadTip);
    Command_Verify = big_button(form.Command_Verify, bindings, form_text::kVerifyTip);
    Command_program = big_button(form.Command_program, bindings, form_text::kProgramTip);
    Cmd_Extend_Program = big_button(form.Cmd_Extend_Program, bindings, form_text::kExtendTip);

    // Bold because programming is what the program is for.
    QFont strong = Command_program->font();
    strong.setBold(true);
    Command_program->setFont(strong);

    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    for (auto* button : {Command_blank, Command_read, Command_Verify, Command_program})
        buttons->addWidget(button, 3);
    buttons->addWidget(Cmd_Extend_Program, 1);

    auto* messages = new MessageArea{this};
    messages->setAccessibleName(q(form_text::kMessage));
    bindings.bind(form.LabelCmt, *messages);

    auto* layout = new QVBoxLayout{this};
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addLayout(buttons);
    layout->addWidget(messages);
    layout->addWidget(make_progress(form, bindings));
}

QPushButton* OperationPanel::big_button(Button& control, Bindings& bindings, std::string_view tip) {
    auto* button = new QPushButton{this};
    button->setAutoDefault(false);
    // High enough for two lines: the program button's text sometimes has two.
    button->setMinimumHeight(2 * button->fontMetrics().lineSpacing() + 14);
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    button->setToolTip(q(tip));
    bindings.bind(control, *button);
    return button;
}

QWidget* OperationPanel::make_progress(MainForm& form, Bindings& bindings) {
    auto* line = new QWidget{this};
    auto* row = new QHBoxLayout{line};
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(8);
    auto* bar = new QProgressBar{line};
    bar->setTextVisible(false);
    bar->setFixedHeight(fontMetrics().height() * 3 / 4);
    bar->setAccessibleName(q(form_text::kProgress));
    auto* percent = new QLabel{line};
    percent->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    percent->setMinimumWidth(percent->fontMetrics().horizontalAdvance("100%"));
    keep_place(bar);
    keep_place(percent);
    bindings.bind(form.P_Bar, *bar);
    bindings.bind(form.Lbl_Persent, *percent);
    Command_stop = new QPushButton{line};
    Command_stop->setAutoDefault(false);
    Command_stop->setToolTip(q(form_text::kStopTip));
    // An operation disables the button that started it, and the focus moves on. A second Return or
    // Space must not reach the stop button.
    Command_stop->setFocusPolicy(Qt::NoFocus);
    bindings.bind(form.Command_stop, *Command_stop);
    row->addWidget(bar, 1);
    row->addWidget(percent);
    row->addWidget(Command_stop);
    return line;
}

}  // namespace quillon
