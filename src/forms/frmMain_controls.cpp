// SPDX-License-Identifier: MIT
// frmMain: its layout, its bindings, and what each control starts.
//
// A handler only calls the object that does the job; nothing is decided here.
#include <QAction>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QStatusBar>
#include <QVBoxLayout>

#include "forms/config_panel.h"
#include "forms/device_box.h"
#include "forms/file_watch.h"
#include "forms/frmAbout.h"
#include "forms/frmBoard.h"
#include "forms/frmExtend_Program.h"
#include "forms/frmIndex.h"
#include "forms/frmMain.h"
#include "forms/frmMain_texts.h"
#include "forms/frmStop.h"
#include "forms/info_panel.h"
#include "forms/main_header.h"
#include "forms/main_menus.h"
#include "forms/memory_panel.h"
#include "forms/operation_panel.h"
#include "forms/theme.h"

namespace quillon {

namespace {
constexpr int kLeftCharacters = 49;  // seven tabs, and the widest row of calibration
}

frmMain::frmMain(Run& run, Wishes wishes)
    : run_{run}, wishes_{std::move(wishes)}, bindings_{[this](const std::function<void()>& act) {
          command(act);
      }} {
    setObjectName("frmMain");
    setAcceptDrops(true);
    hide_what_is_not_there();
    make_layout();
    menus_ = std::make_unique<MainMenus>(*menuBar(), run_.form, bindings_);
    make_status_bar();
    board_ = new frmBoard{run_, this};
    extend_ = new frmExtend_Program{run_,
                                    [this](const std::function<void()>& act) { command(act); },
                                    {header_, operation_},
                                    this};
    index_ = new frmIndex{this};
    about_ = new frmAbout{run_, this};
    stop_ = new frmStop{run_.stop_form, run_.stop, this};
    connect_buttons();
    connect_menus();
    connect_own_entries();
    connect_entries();
    connect_form();
    order_focus();
    show_facts();
}

frmMain::~frmMain() = default;

// Hides entries whose function this version doesn't have. An entry that does nothing would mislead.
void frmMain::hide_what_is_not_there() {
    auto& form = run_.form;
    for (Control* control : std::initializer_list<Control*>{&form.mnuAsmC, &form.mnuFirmwareUpdate})
        control->Visible.set(false);
}

void frmMain::make_layout() {
    auto* central = new QWidget{this};
    header_ = new MainHeader{run_.form, bindings_, central};
    file_watch_ = new FileWatch{central};
    auto* left = new QWidget{central};
    config_ = new ConfigPanel{run_.form, run_.config, run_.catalogue, bindings_, left};
    info_ = new InfoPanel{run_.form, bindings_, left};
    memory_ = new MemoryPanel{run_.form, bindings_, central};
    operation_ = new OperationPanel{run_.form, bindings_, central};

    // Wide enough for the widest device, so that a new device doesn't move the two halves.
    left->setMinimumWidth(fontMetrics().horizontalAdvance('0') * kLeftCharacters);
    auto* left_column = new QVBoxLayout{left};
    left_column->setContentsMargins(0, 0, 0, 0);
    left_column->setSpacing(8);
    left_column->addWidget(config_, 1);
    left_column->addWidget(info_);

    auto* halves = new QSplitter{Qt::Horizontal, central};
    halves->setChildrenCollapsible(false);
    halves->setHandleWidth(12);
    halves->addWidget(left);
    halves->addWidget(memory_);
    halves->setStretchFactor(0, 1);
    halves->setStretchFactor(1, 0);

    auto* layout = new QVBoxLayout{central};
    layout->setContentsMargins(12, 10, 12, 6);
    layout->setSpacing(10);
    layout->addWidget(header_);
    layout->addWidget(file_watch_);
    layout->addWidget(halves, 1);
    layout->addWidget(operation_);
    setCentralWidget(central);
}

void frmMain::make_status_bar() {
    auto* bar = statusBar();
    bar->setSizeGripEnabled(true);
    bar->setContentsMargins(10, 0, 2, 2);
    counters_ = new QLabel{bar};
    counters_->setObjectName("counters");
    counters_->setToolTip(q(form_text::kCountersTip));
    auto* protect_mask = new QLabel{bar};
    protect_mask->setToolTip(q(form_text::kProtectMaskTip));
    auto* catalogue = new QLabel{bar};
    auto* program = new QLabel{bar};
    board_label_ = new QPushButton{bar};
    board_label_->setAutoDefault(false);
    board_label_->setToolTip(q(form_text::kBoardTip));
    QPalette faint;
    faint.setColor(QPalette::WindowText, caption_colour(palette()));
    bar->addWidget(counters_, 1);
    for (auto* fact : {protect_mask, catalogue, program}) {
        fact->setPalette(faint);
        fact->setIndent(5);
        bar->addPermanentWidget(fact);
    }
    bar->addPermanentWidget(board_label_);
    bindings_.bind(run_.form.Label_Debug, *protect_mask);
    bindings_.bind(run_.form.Label_Ver, *catalogue);
    bindings_.bind(run_.form.Lbl_PcVersion, *program);
    bindings_.bind(run_.form.Label_FirmwareVersion, *board_label_);
}

void frmMain::connect_buttons() {
    const auto on_click = [this](QAbstractButton* button, std::function<void()> act) {
        connect(button, &QAbstractButton::clicked, this,
                [this, act = std::move(act)] { command(act); });
    };
    on_click(operation_->Command_blank, [this] { run_.flows.Command_blank(); });
    on_click(operation_->Command_read, [this] { run_.flows.Command_read(); });
    on_click(operation_->Command_Verify, [this] { run_.flows.Command_Verify(); });
    on_click(operation_->Command_program, [this] { run_.flows.Command_program(); });
    on_click(operation_->Cmd_Extend_Program, [this] { extend_->come_up(); });
    on_click(info_->Command1, [this] { run_.flows.Command1_Click(); });
    on_click(info_->Command2, [this] { run_.flows.Command2_Click(); });
    on_click(board_label_, [this] { run_.flows.Label_FirmwareVersion_Click(); });
    on_click(header_->Command_com, [this] { run_.menu.mnuComPort_Click(); });
    on_click(info_->Check_Parity_Disp, [this] { run_.views.ShowProgramMemory(); });
    connect(header_->Cmd_open, &QPushButton::clicked, this,
            [this] { load([this] { run_.files.mnuFileOpen_Click(); }); });
    connect(header_->Cmd_save, &QPushButton::clicked, this, [this] { save(); });
    on_click(info_->Chk_12F_CalibData_Select,
             [this] { run_.selection.Chk_12F_CalibData_Select_Click(); });
    file_watch_->on_reload = [this] { load([this] { run_.files.open_directly(); }); };
    bindings_.follow(run_.form.Cmd_open.Enabled,
                     [this](bool on) { file_watch_->reload_button()->setEnabled(on); });

    const auto on_key = [this](Qt::Key key, QPushButton* button) {
        connect(new QShortcut{key, this}, &QShortcut::activated, button, &QPushButton::click);
    };
    on_key(Qt::Key_F6, operation_->Command_blank);
    on_key(Qt::Key_F7, operation_->Command_read);
    on_key(Qt::Key_F8, operation_->Command_Verify);
    on_key(Qt::Key_F9, operation_->Command_program);
    connect_stop();
}

// Stopping is no command: it comes while one runs. Otherwise Esc belongs to the boxes and lists.
void frmMain::connect_stop() {
    connect(operation_->Command_stop, &QPushButton::clicked, this,
            [this] { run_.flows.Command_stop_Click(); });
    auto* escape = new QShortcut{Qt::Key_Escape, this};
    connect(escape, &QShortcut::activated, operation_->Command_stop, &QPushButton::click);
    bindings_.follow(run_.form.Command_stop.Enabled, [escape](bool on) { escape->setEnabled(on); });
    bindings_.keep(run_.stop_form.Confirmed.connect([this] { quit(); }));
}

void frmMain::connect_menus() {
    auto& form = run_.form;
    auto& menu = run_.menu;
    menus_->start(form.mnuFileOpen, [this] { load([this] { run_.files.mnuFileOpen_Click(); }); });
    menus_->start(form.mnuFileSave, [this] { save(); });
    for (int n = 1; n <= 5; ++n)
        menus_->start(form.nmuFile[static_cast<std::size_t>(n - 1)],
                      [this, n] { load([this, n] { run_.files.nmuFile_Click(n); }); });
    menus_->start(form.nmuHistryClear,
                  [this] { command([this] { run_.files.nmuHistryClear_Click(); }); });
    menus_->start(form.mnuLogFileOpen,
                  [this] { command([this] { run_.menu.mnuLogFileOpen_Click(); }); });
    menus_->start(form.exit, [this] { close(); });
    menus_->start(form.mnuPcBufferMemoryClear,
                  [this] { command([this] { run_.buffer.mnuPcBufferMemoryClear(); }); });
    menus_->start(form.mnuPcBufferMemory_0,
                  [this] { command([this] { run_.buffer.mnuPcBufferMemory_0(); }); });
    menus_->start(form.mnuPgmErase,
                  [this] { command([this] { run_.flows.mnuPgmErase_Click(); }); });
    menus_->start(form.mnuChipErase,
                  [this] { command([this] { run_.flows.mnuChipErase_Click(); }); });
    menus_->start(form.mnuComPort, [this] { command([this] { run_.menu.mnuComPort_Click(); }); });
    // Modes and documents are no commands: they work while an operation waits for the board.
    menus_->start(form.mnuComMode1, [&menu] { menu.mnuComMode1_Click(); });
    menus_->start(form.mnuBlankSkip, [&menu] { menu.mnuBlankSkip_Click(); });
    menus_->start(form.HexFileCheck, [&menu] { menu.HexFileCheck_Click(); });
    menus_->start(form.HexUpperAddress, [&menu] { menu.HexUpperAddress_Click(); });
    menus_->start(form.mnuLock, [&menu] { menu.mnuLock_Click(); });
    menus_->start(form.mnuBoardInfomation, [&menu] { menu.mnuBoardInfomation_Click(); });
    menus_->start(form.mnuFrmmainHight, [&menu] { menu.mnuFrmmainHight_Click(); });
    menus_->start(form.mnuHelp, [&menu] { menu.mnuHelp_Click(); });
    menus_->start(form.mnuBoardAmend, [&menu] { menu.mnuBoardAmend_Click(); });
}

// An ID is used once it is complete. An unfinished one is replaced by the image's ID. After a
// change of the ID or the configuration the buffer may differ from the file, so the facts are shown
// again. The boxes for whole words are read-only while the box for the digits is disabled.
void frmMain::connect_entries() {
    const auto changed = [this] { show_facts(); };
    config_->on_change = changed;
    const auto connect_box = [this, changed](TextBox& control, auto take) {
        auto* box = findChild<QLineEdit*>(q(control.name));
        bindings_.follow(run_.form.Text_ID.Enabled, [box](bool on) { box->setReadOnly(!on); });
        connect(box, &QLineEdit::textEdited, &entries_, [take, changed](const QString& text) {
            if (take(utf8(text))) changed();
        });
        connect(box, &QLineEdit::editingFinished, &entries_, [this] {
            if (!busy_) run_.id_entry.drop_unfinished();
        });
    };
    auto& form = run_.form;
    auto& ids = run_.id_entry;
    connect_box(form.Text_ID, [&ids](const std::string& text) { return ids.take_digits(text); });
    int n = 0;
    for (auto* word : {&form.Text_ID1, &form.Text_ID2, &form.Text_ID3, &form.Text_ID4})
        connect_box(*word,
                    [&ids, n = ++n](const std::string& text) { return ids.take_word(n, text); });
}

void frmMain::connect_own_entries() {
    connect(menus_->copy, &QAction::triggered, this, [this] { copy(); });
    connect(menus_->select_all, &QAction::triggered, this, [this] { select_all(); });
    connect(menus_->find, &QAction::triggered, this, [this] { memory_->open_find(); });
    connect(menus_->find_next, &QAction::triggered, this, [this] { memory_->find_next(); });
    connect(menus_->find_previous, &QAction::triggered, this, [this] { memory_->find_previous(); });
    connect(menus_->search_device, &QAction::triggered, this, [this] {
        header_->Combo_device->setFocus(Qt::ShortcutFocusReason);
        header_->Combo_device->lineEdit()->selectAll();
    });
    connect(menus_->search_board, &QAction::triggered, board_label_, &QPushButton::click);
    connect(menus_->socket_pins, &QAction::triggered, this, [this] { index_->show_over(*this); });
    connect(menus_->about, &QAction::triggered, this, [this] { about_->show_over(*this); });
}

void frmMain::connect_form() {
    auto& form = run_.form;
    bindings_.follow(form.Caption, [this](const std::string& text) { setWindowTitle(q(text)); });
    bindings_.follow(form.Enabled, [this](bool on) {
        centralWidget()->setEnabled(on);
        menuBar()->setEnabled(on);
        statusBar()->setEnabled(on);
    });
    bindings_.follow(form.WaitCursor, [this](bool wait) {
        if (wait)
            setCursor(Qt::WaitCursor);
        else
            unsetCursor();
    });
    bindings_.keep(form.Visible.observe([this](bool shown) {
        if (shown) place();
        setVisible(shown);
    }));
    bindings_.keep(form.Placed.connect([this] { place(); }));
    bindings_.keep(form.Focus.observe([this](const std::string& name) { focus_on(name); }));
    // A selection clears the image, even if the same device is selected again.
    header_->Combo_device->on_typed = [this](const QString& text) {
        command([&] { run_.selection.Combo_device_Typed(utf8(text)); });
    };
    connect(header_->Combo_device, &QComboBox::activated, this, [this] { show_facts(); });
    // The counters change during a run, together with a message each time.
    bindings_.keep(run_.messages.shown.connect([this](const ShownMessage&) { show_counters(); }));
}

// Tab order follows the eye: header, configuration, views, big buttons. The other controls follow
// in the order in which their panels were made.
void frmMain::order_focus() {
    QWidget* former = nullptr;
    for (QWidget* widget : std::initializer_list<QWidget*>{
             header_->Combo_device, header_->Cmd_open, header_->Cmd_save, header_->Command_com}) {
        if (former != nullptr) setTabOrder(former, widget);
        former = widget;
    }
    header_->Combo_device->setFocus();
}

}  // namespace quillon
