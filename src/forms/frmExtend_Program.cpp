// SPDX-License-Identifier: MIT
// frmExtend_Program: no button is the default one, so that Return starts nothing. An erase has a
// warning sign, and the erase of the whole chip is apart from the others.
#include "forms/frmExtend_Program.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "forms/frmExtend_Program_texts.h"
#include "forms/frmMain.h"
#include "forms/lost_focus.h"
#include "forms/placing.h"

namespace quillon {

struct AreaButton {
    Button ExtendForm::*control;
    void (*click)(ExtendFlows& flows);
    std::string_view name;
    std::string_view tip;
    bool erases = false;
};

namespace {

constexpr std::array kProgramSide{
    AreaButton{&ExtendForm::Cmd_PGM_Read, [](ExtendFlows& flows) { flows.Cmd_PGM_Read_Click(); },
               form_text::kPgmReadName, form_text::kPgmReadTip},
    AreaButton{&ExtendForm::Cmd_PGM_Program,
               [](ExtendFlows& flows) { flows.Cmd_PGM_Program_Click(); },
               form_text::kPgmProgramName, form_text::kPgmProgramTip},
    AreaButton{&ExtendForm::Cmd_PGM_Erase, [](ExtendFlows& flows) { flows.Cmd_PGM_Erase_Click(); },
               form_text::kPgmEraseName, form_text::kPgmEraseTip, true},
    AreaButton{&ExtendForm::Cmd_PGM_PcbufferClear,
               [](ExtendFlows& flows) { flows.Cmd_PGM_PcbufferClear_Click(); },
               form_text::kPgmClearName, form_text::kPgmClearTip},
};
constexpr std::array kDataSide{
    AreaButton{&ExtendForm::Cmd_DATA_Read, [](ExtendFlows& flows) { flows.Cmd_DATA_Read_Click(); },
               form_text::kEepReadName, form_text::kEepReadTip},
    AreaButton{&ExtendForm::Cmd_DATA_Program,
               [](ExtendFlows& flows) { flows.Cmd_DATA_Program_Click(); },
               form_text::kEepProgramName, form_text::kEepProgramTip},
    AreaButton{&ExtendForm::Cmd_DATA_Erase,
               [](ExtendFlows& flows) { flows.Cmd_DATA_Erase_Click(); }, form_text::kEepEraseName,
               form_text::kEepEraseTip, true},
    AreaButton{&ExtendForm::Cmd_DATA_PcbufferClear,
               [](ExtendFlows& flows) { flows.Cmd_DATA_PcbufferClear_Click(); },
               form_text::kEepClearName, form_text::kEepClearTip},
};
constexpr AreaButton kChipErase{&ExtendForm::Cmd_Chip_Erace,
                                [](ExtendFlows& flows) { flows.Cmd_Chip_Erace_Click(); },
                                form_text::kChipEraseName, form_text::kChipEraseTip, true};

constexpr int kBetweenGroups = 20;

}  // namespace

frmExtend_Program::frmExtend_Program(Run& run, Command command, QList<const QWidget*> kept_free,
                                     QWidget* owner)
    : QDialog{owner}, run_{run}, command_{std::move(command)}, kept_free_{std::move(kept_free)} {
    setObjectName("frmExtend_Program");
    auto& form = run.extend_form;
    bindings_.follow(form.Caption, [this](const std::string& text) { setWindowTitle(q(text)); });

    auto* layout = new QVBoxLayout{this};
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->setContentsMargins(16, 14, 16, 14);
    layout->setSpacing(kBetweenGroups);
    layout->addWidget(make_side(form.Label_PGM, kProgramSide));
    layout->addWidget(make_side(form.Label_DATA, kDataSide));
    layout->addWidget(make_button(kChipErase));
    connect_stop();

    bindings_.keep(form.Visible.observe([this](bool shown) {
        if (shown) place();
        setVisible(shown);
    }));
}

QWidget* frmExtend_Program::make_side(Label& caption, std::span<const AreaButton> buttons) {
    auto* side = new QWidget{this};
    auto* grid = new QGridLayout{side};
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(8);
    auto* heading = new QLabel{side};
    QFont strong = heading->font();
    strong.setBold(true);
    heading->setFont(strong);
    bindings_.bind(caption, *heading);
    grid->addWidget(heading, 0, 0, 1, 2);
    int at = 0;
    for (const auto& button : buttons) {
        grid->addWidget(make_button(button), 1 + at / 2, at % 2);
        ++at;
    }
    return side;
}

QPushButton* frmExtend_Program::make_button(const AreaButton& row) {
    auto* button = new QPushButton{this};
    button->setAutoDefault(false);
    button->setMinimumHeight(button->fontMetrics().height() * 2);
    button->setToolTip(q(row.tip));
    button->setAccessibleName(q(row.name));
    button->setAccessibleDescription(q(row.tip));
    if (row.erases) button->setIcon(style()->standardIcon(QStyle::SP_MessageBoxWarning));
    bindings_.bind(run_.extend_form.*row.control, *button);
    connect(button, &QPushButton::clicked, this, [this, button, click = row.click] {
        const LostFocus focus{button};
        command_([this, click] { click(run_.extend); });
        focus.give_back();
    });
    return button;
}

// Escape stops an operation here as it does in the main window, whose stop button it presses.
void frmExtend_Program::connect_stop() {
    auto* escape = new QShortcut{Qt::Key_Escape, this};
    connect(escape, &QShortcut::activated, this, [this] { run_.flows.Command_stop_Click(); });
    bindings_.follow(run_.form.Command_stop.Enabled, [escape](bool on) { escape->setEnabled(on); });
}

void frmExtend_Program::come_up() {
    if (!run_.extend_form.Visible.get()) {
        run_.extend.Form_Load();
        // The first button only reads.
        findChild<QPushButton*>(q(run_.extend_form.Cmd_PGM_Read.name))->setFocus();
    }
    raise();
    activateWindow();
}

// The buttons of the two sides are columns of one width.
void frmExtend_Program::align() {
    int widest = 0;
    const auto buttons = findChildren<QPushButton*>();
    for (const auto* button : buttons) widest = std::max(widest, button->sizeHint().width());
    for (auto* button : buttons) button->setMinimumWidth(widest);
}

void frmExtend_Program::place() {
    align();
    // The size must be set before the place: a later resize would place the window by its inside,
    // with the title off the screen.
    adjustSize();
    const auto& form = run_.extend_form;
    move(beside(*parentWidget(), kept_free_, *this, {form.Left / kTwips, form.Top / kTwips}));
}

void frmExtend_Program::moveEvent(QMoveEvent* event) {
    QDialog::moveEvent(event);
    if (!isVisible()) return;
    run_.extend_form.Left = x() * kTwips;
    run_.extend_form.Top = y() * kTwips;
}

void frmExtend_Program::closeEvent(QCloseEvent* event) {
    event->ignore();  // the form's Visible hides it
    run_.extend.Form_Unload();
}

void frmExtend_Program::reject() {
    if (!run_.flows.running()) run_.extend.Form_Unload();
}

}  // namespace quillon
