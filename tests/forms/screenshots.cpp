// SPDX-License-Identifier: MIT
// Takes pictures of the window and of each form, to be looked at: screenshots FOLDER [light|dark]
// [SUFFIX]
//
// The run is the program's own, with the simulated board in the same process, so the pictures show
// what a user sees. The states: empty, loaded, while programming, after a failure, with the list of
// a failed verify, with the search line and the reload offer, each small form.
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QIcon>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>

#include "board/session_facts.h"
#include "forms/Frm_VPP_DECIDE.h"
#include "forms/binders.h"
#include "forms/frmAbout.h"
#include "forms/frmBoard.h"
#include "forms/frmDeviceSelect.h"
#include "forms/frmHint.h"
#include "forms/frmIndex.h"
#include "forms/frmMain.h"
#include "forms/frmOption.h"
#include "forms/japanese.h"
#include "forms/qt_dialogs.h"
#include "forms/simulated_socket.h"
#include "forms/theme.h"
#include "platform/qt_host.h"
#include "run/start_up.h"
#include "support/fakes.h"

namespace {

using namespace quillon;

QPalette dark_palette() {
    QPalette palette;
    const QColor window{0x2B, 0x2D, 0x30}, text{0xE6, 0xE6, 0xE6};
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Base, QColor{0x1E, 0x1F, 0x22});
    palette.setColor(QPalette::AlternateBase, QColor{0x26, 0x28, 0x2B});
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::Button, QColor{0x3A, 0x3D, 0x41});
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::ToolTipBase, QColor{0x3A, 0x3D, 0x41});
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::PlaceholderText, QColor{0x90, 0x90, 0x90});
    palette.setColor(QPalette::Highlight, QColor{0x3D, 0x6F, 0xB5});
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor{0x7A, 0xB0, 0xF0});
    const QColor faint{0x80, 0x82, 0x86};
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, faint);
    return palette;
}

// Takes the pictures. Closing each form after its picture is the safe answer.
class Shots {
  public:
    Shots(QDir folder, QString suffix) : folder_{std::move(folder)}, suffix_{std::move(suffix)} {}

    bool all_written() const { return all_written_; }

    void take(QWidget& widget, const char* name) {
        QApplication::processEvents();
        const QString path = folder_.filePath(QString{name} + suffix_ + ".png");
        if (widget.grab().save(path)) {
            std::printf("%s\n", qPrintable(path));
        } else {
            std::fprintf(stderr, "not written: %s\n", qPrintable(path));
            all_written_ = false;
        }
    }
    // Takes the whole screen: where the windows are.
    void take_screen(const char* name) {
        QTest::qWait(300);
        const QString path = folder_.filePath(QString{name} + suffix_ + ".png");
        if (QGuiApplication::primaryScreen()->grabWindow(0).save(path)) {
            std::printf("%s\n", qPrintable(path));
        } else {
            std::fprintf(stderr, "not written: %s\n", qPrintable(path));
            all_written_ = false;
        }
    }
    // Takes the form that comes up next, and closes it.
    void take_next_modal(const char* name) {
        QTimer::singleShot(50, qApp, [this, name] {
            QWidget* form = QApplication::activeModalWidget();
            if (form == nullptr) {
                take_next_modal(name);  // a slow machine hasn't shown it yet
                return;
            }
            take(*form, name);
            form->close();
        });
    }

  private:
    QDir folder_;
    bool all_written_ = true;
    QString suffix_;
};

struct Stage {
    test::TempFolder folder;
    QtHost host{QtHost::Interface::Window, {.home = folder.path(), .data = folder.path()}};
    test::MemoryStore store;
    QtDialogs dialogs;
    SimulatedSocket socket{host, 0};
    std::unique_ptr<Run> run;
    std::unique_ptr<StartUp> start_up;
    std::unique_ptr<frmMain> window;

    Stage() {
        store.write(Settings::kSection, "ComNo", "1");
        store.write(Settings::kSection, "mnuBoardInfomation", "False");
        store.write(Settings::kSection, "deviceNew", "-1");
        run = std::make_unique<Run>(store, host, socket.port(), dialogs);
        run->session.CatalogueFile = QUILLON_CATALOGUE;
        socket.follow(*run);
        start_up = std::make_unique<StartUp>(*run);
        window = std::make_unique<frmMain>(
            *run, frmMain::Wishes{.give_up = [] {},
                                  .frame = [](const std::function<void()>& act) { act(); },
                                  .leave = {}});
        dialogs.attach(*run, window.get(), [](int number) {
            if (number == 1) return QStringLiteral("シミュレーションボード");
            return number == 3 ? QStringLiteral("/dev/ttyUSB0 (FT232R USB UART)") : QString{};
        });
        window->command([this] { start_up->Main("", false); });
    }
    void select(std::string_view device) {
        window->command([&] { run->form.Combo_device.select(device); });
    }
    void load() {
        const auto folder_of_file = std::filesystem::path{QUILLON_EXAMPLES};
        window->load([&] { run->files.mnuFileOpen_Click(folder_of_file / "blinker.hex"); });
    }
    void program() { window->findChild<QPushButton*>("Command_program")->click(); }
};

void main_window(Stage& stage, Shots& shots) {
    shots.take(*stage.window, "empty");
    stage.select("PIC16F877A");
    stage.load();
    shots.take(*stage.window, "loaded");

    bool taken = false;
    const Connection progress = stage.run->form.P_Bar.Value.observe([&](int value) {
        if (taken || value < stage.run->form.P_Bar.Max.get() * 2 / 5) return;
        taken = true;
        shots.take(*stage.window, "programming");
    });
    stage.program();
    shots.take(*stage.window, "programmed");
    stage.socket.board().target() = blank_target(facts_of(stage.run->session));
    stage.socket.board().add_fault("stuck-cell:1");
    QTimer closer;  // closes the failure's boxes
    QObject::connect(&closer, &QTimer::timeout, [&] {
        if (QWidget* box = QApplication::activeModalWidget()) {
            shots.take(*box, "box");
            box->close();
        }
    });
    closer.start(100);
    stage.program();
    shots.take(*stage.window, "failure");
    stage.socket.board().clear_faults();
    stage.socket.board().target() = blank_target(facts_of(stage.run->session));
    stage.window->findChild<QPushButton*>("Command_Verify")->click();
    closer.stop();
    shots.take(*stage.window, "mismatches");
}

// The search line with a text that isn't found, and the offer to load a changed file.
void bars(Stage& stage, Shots& shots) {
    const auto copy = stage.folder.path() / "blinker.hex";
    std::filesystem::copy_file(std::filesystem::path{QUILLON_EXAMPLES} / "blinker.hex", copy);
    stage.window->load([&] { stage.run->files.mnuFileOpen_Click(copy); });
    std::ofstream{copy, std::ios::app} << "\n";
    QTest::qWait(500);
    stage.window->findChild<QAction*>("find")->trigger();
    auto* text = stage.window->findChild<QLineEdit*>("find_text");
    text->setText("3FFE");
    QTest::keyClick(text, Qt::Key_Return);
    shots.take(*stage.window, "bars");
    QTest::keyClick(text, Qt::Key_Escape);
    stage.window->findChild<QPushButton*>("reload_later")->click();
}

void devices(Stage& stage, Shots& shots) {
    for (const char* device : {"PIC12F675", "PIC18F2550"}) {
        stage.select(device);
        shots.take(*stage.window, device);
    }
    stage.select("PIC12F675");
    stage.window->findChild<QCheckBox*>("Chk_12F_CalibData_Select")->click();
    shots.take(*stage.window, "calibration");
    shots.take_next_modal("Frm_VPP_DECIDE");
    stage.select("PIC16F690");
    shots.take(*stage.window, "PIC16F690");
}

// The window of the areas: both captions of the data side, and its place beside the main window.
void areas(Stage& stage, Shots& shots) {
    auto* form = stage.window->findChild<QWidget*>("frmExtend_Program");
    for (const char* device : {"PIC12F675", "PIC16F84A", "PIC16F73"}) {
        stage.select(device);
        stage.window->findChild<QPushButton*>("Cmd_Extend_Program")->click();
        shots.take(*form, (std::string{"frmExtend_Program_"} + device).c_str());
    }
    shots.take_screen("frmExtend_Program_place");
    form->close();
}

void small_forms(Stage& stage, Shots& shots) {
    stage.run->option.Form_Load();
    shots.take_next_modal("frmOption");
    stage.dialogs.frmOption();
    shots.take_next_modal("frmHint");
    stage.dialogs.frmHint({"書込み済みです。(コードプロテクトされています｡)", "上書きしますか？"});
    stage.run->session.CommandLine = "X.HEX";
    stage.run->device_select.Form_Load();
    shots.take_next_modal("frmDeviceSelect");
    stage.dialogs.frmDeviceSelect();
    stage.select("PIC16F877A");
    stage.run->board.Visible.set(true);
    shots.take(*stage.window->findChild<QWidget*>("frmBoard"), "frmBoard");
    stage.run->board.Visible.set(false);
    for (const char* name : {"frmIndex", "frmAbout"}) {
        auto* form = stage.window->findChild<QWidget*>(name);
        form->show();
        shots.take(*form, name);
        form->hide();
    }
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application{argc, argv};
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 2) {
        std::fprintf(stderr, "Usage: screenshots FOLDER [light|dark] [SUFFIX]\n");
        return 2;
    }
    QApplication::setStyle("Fusion");
    QApplication::setWindowIcon(QIcon{":/icons/quillon.png"});
    QApplication::setFont(window_font(QApplication::font()));
    install_japanese(application);
    if (arguments.value(2) == "dark") QApplication::setPalette(dark_palette());
    // An absolute path, because start-up changes the current folder.
    const QDir folder{QDir{arguments.at(1)}.absolutePath()};
    folder.mkpath(".");
    Shots shots{folder, arguments.value(3)};
    Stage stage;
    main_window(stage, shots);
    bars(stage, shots);
    devices(stage, shots);
    areas(stage, shots);
    small_forms(stage, shots);
    return shots.all_written() ? 0 : 1;
}
