// SPDX-License-Identifier: MIT
// frmOption: the port dialog.
//
// The option buttons are bound here and not by a check box's binder. The model sets and clears each
// button itself. So the widgets' own exclusion is off while one is set, and no signal goes back.
#include "forms/frmOption.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "forms/theme.h"

namespace quillon {

namespace {
constexpr int kRows = 10;  // two columns of ten
}

frmOption::frmOption(OptionForm& form, OptionDialog& dialog, const Behind& behind, QWidget* owner)
    : QDialog{owner}, form_{form}, dialog_{dialog} {
    setObjectName("frmOption");
    bindings_.follow(form.Caption, [this](const std::string& text) { setWindowTitle(q(text)); });
    auto* ok = new QPushButton{this};
    auto* cancel = new QPushButton{this};
    bindings_.bind(form.Command_Ok, *ok);
    bindings_.bind(form.Command1, *cancel);
    ok->setDefault(true);
    cancel->setAutoDefault(false);
    connect(ok, &QPushButton::clicked, this, [this] { dialog_.Command_Ok_Click(); });
    connect(cancel, &QPushButton::clicked, this, [this] { dialog_.Command1_Click(); });

    auto* foot = new QHBoxLayout;
    foot->addStretch(1);
    foot->addWidget(ok);
    foot->addWidget(cancel);
    auto* layout = new QVBoxLayout{this};
    layout->setContentsMargins(16, 14, 16, 12);
    layout->setSpacing(14);
    layout->addWidget(make_ports(behind));
    layout->addLayout(foot);
    bindings_.keep(form.Visible.observe([this](bool shown) {
        if (!shown) done(Accepted);
    }));
}

QWidget* frmOption::make_ports(const Behind& behind) {
    auto* ports = new QWidget{this};
    auto* grid = new QGridLayout{ports};
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setVerticalSpacing(4);
    grid->setHorizontalSpacing(10);
    grid->setColumnMinimumWidth(1, fontMetrics().averageCharWidth() * 18);
    grid->setColumnMinimumWidth(3, 24);
    grid->setColumnMinimumWidth(4, fontMetrics().averageCharWidth() * 18);
    QPalette faint;
    faint.setColor(QPalette::WindowText, caption_colour(palette()));
    for (int instance = 0; instance < kComPorts; ++instance) {
        auto& control = form_.Option_Com[static_cast<std::size_t>(instance)];
        auto* button = new QRadioButton{q(control.Caption.get()), ports};
        button->setObjectName(q(control.name));
        button->setAutoExclusive(true);
        bindings_.follow(control.Checked, [button](bool on) {
            const QSignalBlocker blocker{button};
            button->setAutoExclusive(false);
            button->setChecked(on);
            button->setAutoExclusive(true);
        });
        connect(button, &QRadioButton::clicked, this,
                [this, instance] { dialog_.Option_Com_Click(instance); });
        const int row = instance % kRows;
        const int column = instance / kRows * 3;
        grid->addWidget(button, row, column);
        const QString name = behind ? behind(instance + 1) : QString{};
        auto* port = new QLabel{name, ports};
        port->setTextFormat(Qt::PlainText);
        port->setPalette(faint);
        button->setAccessibleDescription(name);
        grid->addWidget(port, row, column + 1);
        if (control.Checked.get() || instance == 0) button->setFocus();
    }
    return ports;
}

void frmOption::reject() { dialog_.Command1_Click(); }

}  // namespace quillon
