// SPDX-License-Identifier: MIT
// The menu bar of frmMain: the place of each entry, its key and what it starts.
//
// The title of a menu is a control if the flows lock the whole menu ("file", "mnuAsmC"). The
// control "mnuHelp" is an entry of the help menu: only that entry can be locked.
#include "forms/main_menus.h"

#include <QAction>
#include <QKeySequence>
#include <QMenuBar>
#include <QProxyStyle>
#include <QStyleOption>

#include "forms/frmMain_texts.h"

namespace quillon {

namespace {

// Adds the width of one letter to each entry. A style measures an entry as one text and may draw it
// a few pixels wider; the widest entry of a menu would then be shortened in its middle.
class RoomyEntries : public QProxyStyle {
  public:
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override {
        const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
        if (type != CT_MenuItem || option == nullptr) return size;
        return size + QSize{option->fontMetrics.height(), 0};
    }
};

}  // namespace

MainMenus::MainMenus(QMenuBar& bar, MainForm& form, Bindings& bindings)
    : bar_{bar}, bindings_{bindings} {
    make_file(form);
    make_tools(form);
    make_edit();
    make_buffer(form);
    make_device(form);
    make_options(form);
    make_help(form);
}

QMenu* MainMenus::add_menu() {
    auto* result = bar_.addMenu(QString{});
    auto* style = new RoomyEntries;
    style->setParent(result);
    result->setStyle(style);
    return result;
}

QMenu* MainMenus::menu(std::string_view title, std::string_view name) {
    auto* result = add_menu();
    result->setTitle(q(title));
    result->setObjectName(q(name));
    result->setToolTipsVisible(true);
    return result;
}

QAction* MainMenus::entry(QMenu& menu, MenuItem& control, const QKeySequence& key) {
    auto* action = menu.addAction(QString{});
    action->setShortcut(key);
    bindings_.bind(control, *action);
    return action;
}

QAction* MainMenus::own_entry(QMenu& menu, std::string_view name, std::string_view text,
                              const QKeySequence& key) {
    auto* action = menu.addAction(q(text));
    action->setObjectName(q(name));
    action->setShortcut(key);
    return action;
}

void MainMenus::make_file(MainForm& form) {
    auto* file = add_menu();
    bindings_.bind(form.file, *file);
    entry(*file, form.mnuFileOpen, QKeySequence::Open);
    entry(*file, form.mnuFileSave, QKeySequence::Save);
    file->addSeparator();
    for (auto& control : form.nmuFile)
        bindings_.bind(control, *file->addAction(QString{}), Bindings::Ampersand::IsShown);
    // The device index of each file: the control only stores it as a text, and its entry is hidden.
    for (auto& control : form.nmuDevice) {
        control.Visible.set(false);
        entry(*file, control);
    }
    entry(*file, form.nmuHistryClear);
    file->addSeparator();
    entry(*file, form.mnuLogFileOpen);
    file->addSeparator();
    entry(*file, form.exit, QKeySequence{Qt::CTRL | Qt::Key_Q});
}

void MainMenus::make_tools(MainForm& form) {
    auto* tools = add_menu();
    bindings_.bind(form.mnuAsmC, *tools);
    entry(*tools, form.mnuRELOAD);
    entry(*tools, form.mnuASMwithRELOAD);
    entry(*tools, form.mnuAsmReloadProgram);
}

void MainMenus::make_edit() {
    auto* edit = menu(form_text::kEditMenu, "edit_menu");
    copy = own_entry(*edit, "copy", form_text::kCopy);
    select_all = own_entry(*edit, "select_all", form_text::kSelectAll);
    edit->addSeparator();
    find = own_entry(*edit, "find", form_text::kFindMenu, QKeySequence::Find);
    find_next = own_entry(*edit, "find_next", form_text::kFindNextMenu, Qt::Key_F3);
    find_previous = own_entry(*edit, "find_previous", form_text::kFindPreviousMenu,
                              QKeySequence{Qt::SHIFT | Qt::Key_F3});
    edit->addSeparator();
    search_device = own_entry(*edit, "search_device", form_text::kSearchDevice,
                              QKeySequence{Qt::CTRL | Qt::Key_D});
}

void MainMenus::make_buffer(MainForm& form) {
    auto* buffer = menu(form_text::kBufferMenu, "buffer_menu");
    entry(*buffer, form.mnuPcBufferMemoryClear);
    entry(*buffer, form.mnuPcBufferMemory_0);
    lockable_.push_back(buffer);
}

void MainMenus::make_device(MainForm& form) {
    auto* device = menu(form_text::kDeviceMenu, "device_menu");
    search_board = own_entry(*device, "search_board", form_text::kSearchBoard);
    device->addSeparator();
    entry(*device, form.mnuPgmErase);
    entry(*device, form.mnuChipErase);
    lockable_.push_back(device);
}

void MainMenus::make_options(MainForm& form) {
    auto* options = menu(form_text::kOptionMenu, "option_menu");
    entry(*options, form.mnuComPort);
    entry(*options, form.mnuComMode1)->setCheckable(true);
    options->addSeparator();
    entry(*options, form.mnuBlankSkip)->setCheckable(true);
    entry(*options, form.mnuLock)->setCheckable(true);
    options->addSeparator();
    entry(*options, form.HexFileCheck)->setCheckable(true);
    entry(*options, form.HexUpperAddress)->setCheckable(true);
    options->addSeparator();
    entry(*options, form.mnuBoardInfomation)->setCheckable(true);
    entry(*options, form.mnuFrmmainHight);
    for (MenuItem* control :
         {&form.mnuComMode1, &form.mnuBlankSkip, &form.mnuLock, &form.HexFileCheck,
          &form.HexUpperAddress, &form.mnuBoardInfomation}) {
        auto* action = bar_.findChild<QAction*>(q(control->name));
        action->setChecked(control->Checked.get());
    }
}

void MainMenus::make_help(MainForm& form) {
    auto* help = menu(form_text::kHelpMenu, "help_menu");
    entry(*help, form.mnuHelp, Qt::Key_F1);
    entry(*help, form.mnuBoardAmend);
    socket_pins = own_entry(*help, "socket_pins", form_text::kSocketPins);
    help->addSeparator();
    entry(*help, form.mnuFirmwareUpdate);
    about = own_entry(*help, "about", form_text::kAbout);
}

void MainMenus::start(const MenuItem& control, Act act) {
    auto* action = bar_.findChild<QAction*>(q(control.name));
    QObject::connect(action, &QAction::triggered, action, [&control, action, act = std::move(act)] {
        act();
        // The click has toggled the mark, but the control decides.
        if (action->isCheckable()) action->setChecked(control.Checked.get());
    });
}

void MainMenus::set_busy(bool busy) {
    for (auto* menu : lockable_) menu->setEnabled(!busy);
}

}  // namespace quillon
