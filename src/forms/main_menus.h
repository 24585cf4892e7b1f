// SPDX-License-Identifier: MIT
// The menu bar of frmMain: the place of each entry, its key and what it starts.
#pragma once

#include <QMenu>
#include <functional>
#include <string_view>
#include <vector>

#include "app/main_form.h"
#include "forms/binders.h"

class QAction;
class QKeySequence;
class QMenuBar;

namespace quillon {

class MainMenus {
  public:
    MainMenus(QMenuBar& bar, MainForm& form, Bindings& bindings);

    using Act = std::function<void()>;
    // Sets what an entry starts. A checkable entry then shows its control's mark.
    void start(const MenuItem& entry, Act act);

    // The window's own entries, which have no control.
    QAction* copy = nullptr;
    QAction* select_all = nullptr;
    QAction* find = nullptr;
    QAction* find_next = nullptr;
    QAction* find_previous = nullptr;
    QAction* search_device = nullptr;
    QAction* search_board = nullptr;
    QAction* socket_pins = nullptr;
    QAction* about = nullptr;

    // Disables the entries that would start a second command and that no control locks.
    void set_busy(bool busy);

  private:
    QMenu* add_menu();
    QMenu* menu(std::string_view title, std::string_view name);
    QAction* entry(QMenu& menu, MenuItem& control, const QKeySequence& key = {});
    QAction* own_entry(QMenu& menu, std::string_view name, std::string_view text,
                       const QKeySequence& key = {});
    void make_file(MainForm& form);
    void make_tools(MainForm& form);
    void make_edit();
    void make_buffer(MainForm& form);
    void make_device(MainForm& form);
    void make_options(MainForm& form);
    void make_help(MainForm& form);

    QMenuBar& bar_;
    Bindings& bindings_;
    std::vector<QMenu*> lockable_;
};

}  // namespace quillon
