// SPDX-License-Identifier: MIT
// frmMain, the main window: its layout, its bindings and its handlers.
//
// Only one command runs at a time. While one runs, its waits keep the window alive. The command
// disables the controls that would start another one, and any other request is dropped. Closing the
// window meanwhile asks for confirmation if an operation runs. Then the command is given up, and
// the window closes after it has ended.
#pragma once

#include <QMainWindow>
#include <functional>
#include <memory>

#include "forms/binders.h"
#include "run/run.h"

class QLabel;
class QPushButton;

namespace quillon {

class ConfigPanel;
class FileWatch;
class InfoPanel;
class MainHeader;
class MainMenus;
class MemoryPanel;
class OperationPanel;
class frmStop;
class frmAbout;
class frmBoard;
class frmExtend_Program;
class frmIndex;

class frmMain : public QMainWindow {
  public:
    // What the window needs from the program around it.
    struct Wishes {
        std::function<void()> give_up;  // gives up the running command: Host::pump then throws
        // Runs a command so that it can be given up.
        std::function<void(const std::function<void()>& act)> frame;
        std::function<void(bool minimized)> leave;  // called when the window has closed: shuts down
    };

    frmMain(Run& run, Wishes wishes);
    ~frmMain() override;

    // Runs an act as a command, or drops it if another one runs. Afterwards the file and the
    // counters are shown again.
    void command(const std::function<void()>& act);
    // The same for an act that may load a file. The file's name is then shown and its changes are
    // watched.
    void load(const std::function<void()>& act);
    void save();
    bool busy() const { return busy_; }
    // Closes the window without a question. A running command is given up first.
    void quit();
    // Shows the file's name and date, and the counters, as the session has them now.
    void show_facts();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void hide_what_is_not_there();
    void make_layout();
    void make_status_bar();
    void connect_buttons();
    void connect_stop();
    void connect_menus();
    void connect_entries();
    void connect_own_entries();
    void connect_form();
    void order_focus();

    void place();
    void keep_place();
    void focus_on(std::string name);
    void copy() const;
    void select_all() const;
    void show_counters();

    Run& run_;
    Wishes wishes_;
    Bindings bindings_;
    bool busy_ = false;
    bool closing_ = false;
    std::string focus_asked_;  // the control that the running command asked for

    MainHeader* header_ = nullptr;
    FileWatch* file_watch_ = nullptr;
    ConfigPanel* config_ = nullptr;
    InfoPanel* info_ = nullptr;
    MemoryPanel* memory_ = nullptr;
    OperationPanel* operation_ = nullptr;
    QPushButton* board_label_ = nullptr;
    QLabel* counters_ = nullptr;
    std::unique_ptr<MainMenus> menus_;
    frmBoard* board_ = nullptr;
    frmExtend_Program* extend_ = nullptr;
    frmIndex* index_ = nullptr;
    frmAbout* about_ = nullptr;
    frmStop* stop_ = nullptr;
    // The context of the boxes' connections. As a member it is destroyed before the boxes: a dying
    // box loses the focus and emits editingFinished, whose handler uses this class.
    QObject entries_;
};

// Forms keep their places in twips, fifteen to a pixel of the unscaled desktop.
inline constexpr int kTwips = 15;

}  // namespace quillon
