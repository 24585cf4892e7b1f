// SPDX-License-Identifier: MIT
// The memory views of frmMain: program memory above, EEPROM below where the device has one.
//
// The panel is as wide as a line of a view. The heights follow the window, so the height in the
// form's control, meant for a fixed layout, isn't used.
#include "forms/memory_panel.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QVBoxLayout>

#include "forms/find_bar.h"
#include "forms/frmMain_texts.h"
#include "forms/theme.h"

namespace quillon {

namespace {

constexpr int kLineCharacters = 70;  // of the EEPROM view, the wider one, and a blank
constexpr int kProgramShare = 3;     // heights of the two views
constexpr int kEepromShare = 2;

QHBoxLayout* heading(QLabel* title, QLabel* size, QLabel* check_sum = nullptr,
                     QLabel* check_sum_title = nullptr) {
    auto* row = new QHBoxLayout;
    row->setSpacing(6);
    row->addWidget(title);
    row->addWidget(size);
    row->addStretch(1);
    if (check_sum_title != nullptr) row->addWidget(check_sum_title);
    if (check_sum != nullptr) row->addWidget(check_sum);
    return row;
}

}  // namespace

MemoryPanel::MemoryPanel(MainForm& form, Bindings& bindings, QWidget* parent) : QWidget{parent} {
    program_ = make_view(form.RichTxtPgmMem, bindings, form_text::kProgramMemory);
    eeprom_ = make_view(form.rText_EepromMem, bindings, form_text::kEepromMemory);
    last_used_ = program_;
    program_->setPlaceholderText(q(form_text::kNoDevice));
    find_ = new FindBar{[this]() -> QPlainTextEdit& { return view(); }, this};

    auto* program_title = new QLabel{q(form_text::kProgramMemory), this};
    auto* program_size = new QLabel{this};
    auto* eeprom_title = new QLabel{q(form_text::kEepromMemory), this};
    auto* eeprom_size = new QLabel{this};
    auto* check_sum_title = new QLabel{q(form_text::kCheckSum), this};
    auto* check_sum = new QLabel{this};
    check_sum->setTextInteractionFlags(Qt::TextSelectableByMouse);
    check_sum->setToolTip(q(form_text::kCheckSumTip));
    check_sum->setMinimumWidth(check_sum->fontMetrics().horizontalAdvance("0000"));
    bindings.bind(form.Label_pm_size, *program_size);
    // The title is the window's text. The control's text comes and goes with the device.
    eeprom_title->setObjectName(q(form.Label4.name));
    bindings.follow(form.Label4.Visible, [eeprom_title](bool on) { eeprom_title->setVisible(on); });
    bindings.bind(form.Label_ed_size, *eeprom_size);
    bindings.bind(form.LblCheckSUM, *check_sum);

    auto* layout = new QVBoxLayout{this};
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addLayout(heading(program_title, program_size, check_sum, check_sum_title));
    layout->addWidget(program_, kProgramShare);
    layout->addLayout(heading(eeprom_title, eeprom_size));
    layout->addWidget(eeprom_, kEepromShare);
    layout->addWidget(find_);
    apply_font();
}

QPlainTextEdit* MemoryPanel::make_view(RichTextBox& control, Bindings& bindings,
                                       std::string_view name) {
    auto* view = new QPlainTextEdit{this};
    view->setLineWrapMode(QPlainTextEdit::NoWrap);
    view->setUndoRedoEnabled(false);
    view->setTabChangesFocus(true);
    view->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    view->setAccessibleName(q(name));
    view->installEventFilter(this);
    bindings.bind(control, *view);
    return view;
}

QPlainTextEdit& MemoryPanel::view() const {
    // The view used last is hidden if the new device has no EEPROM.
    return last_used_->isVisibleTo(this) ? *last_used_ : *program_;
}

void MemoryPanel::open_find() { find_->open(); }

void MemoryPanel::find_next() {
    if (find_->isVisible())
        find_->find_next();
    else
        open_find();
}

void MemoryPanel::find_previous() {
    if (find_->isVisible())
        find_->find_previous();
    else
        open_find();
}

bool MemoryPanel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn) last_used_ = watched == eeprom_ ? eeprom_ : program_;
    return QWidget::eventFilter(watched, event);
}

void MemoryPanel::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange) apply_font();
}

void MemoryPanel::apply_font() {
    const QFont fixed = fixed_font(font());
    for (auto* view : {program_, eeprom_}) {
        view->setFont(fixed);
        const QFontMetrics metrics{fixed};
        const int frame = 2 * view->frameWidth() + view->verticalScrollBar()->sizeHint().width();
        const int margin = static_cast<int>(2 * view->document()->documentMargin());
        view->setMinimumWidth(metrics.horizontalAdvance('0') * kLineCharacters + frame + margin +
                              1);
        view->setMinimumHeight(metrics.lineSpacing() * 3 + 2 * view->frameWidth() + margin);
    }
}

}  // namespace quillon
