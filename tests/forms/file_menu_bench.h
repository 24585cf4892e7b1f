// SPDX-License-Identifier: MIT
// The window over a real run with the program's own dialogs, and a user who answers them.
#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <deque>

#include "form_bench.h"
#include "forms/file_watch.h"
#include "forms/qt_dialogs.h"
#include "platform/whole_file.h"

namespace quillon::test {
namespace fs = std::filesystem;

// Replaces files as the program does.
struct SavingHost : FakeHost {
    std::optional<std::string> write_file(const fs::path& path, std::string_view content) override {
        return write_whole(path, content);
    }
};

// Answers the modal windows one after the other, in the loop that each of them runs. An unexpected
// window is closed, and the test fails.
class User : public QObject {
  public:
    using Answer = std::function<void(QWidget& form)>;

    User() {
        timer_.setInterval(5);
        connect(&timer_, &QTimer::timeout, this, [this] { look(); });
        timer_.start();
    }
    User& will(Answer answer) {
        answers_.push_back(std::move(answer));
        return *this;
    }
    bool is_done() const { return answers_.empty(); }

  private:
    void look() {
        QWidget* form = QApplication::activeModalWidget();
        if (form == nullptr || !form->isVisible()) return;
        // Some parts ask at each selection. Without an answer the catalogue's order is used.
        if (form->objectName() == "Frm_VPP_DECIDE") {
            form->close();
            return;
        }
        if (answers_.empty()) {
            ADD_FAILURE() << "nobody expects " << form->objectName().toStdString();
            form->close();
            return;
        }
        const Answer answer = std::move(answers_.front());
        answers_.pop_front();
        answer(*form);
    }

    QTimer timer_;
    std::deque<Answer> answers_;
};

inline User::Answer chooses(const fs::path& path) {
    return [path](QWidget& form) {
        ASSERT_EQ(form.objectName().toStdString(), "file_dialog");
        const auto& dialog = dynamic_cast<QFileDialog&>(form);
        form.findChild<QLineEdit*>("fileNameEdit")->setText(QString::fromStdString(path.string()));
        const bool save = dialog.acceptMode() == QFileDialog::AcceptSave;
        form.findChild<QDialogButtonBox*>("buttonBox")
            ->button(save ? QDialogButtonBox::Save : QDialogButtonBox::Open)
            ->click();
    };
}

inline User::Answer escapes(const char* name) {
    return [name](QWidget& form) {
        EXPECT_EQ(form.objectName().toStdString(), name);
        QTest::keyClick(&form, Qt::Key_Escape);
    };
}

inline User::Answer presses(const char* text) {
    return [text](QWidget& form) {
        for (auto* button : form.findChildren<QPushButton*>())
            if (button->text() == text) return button->click();
        ADD_FAILURE() << "no button " << text;
        form.close();
    };
}

// The window with the program's own dialogs. Its home folder outlives it.
struct Program {
    Program(MemoryStore& store, SavingHost& host)
        : time{host, [&host](Host::Time at) { host.advance_to(at); }},
          run_{store, host, port, dialogs} {
        run_.session.CatalogueFile = QUILLON_CATALOGUE;
        window = std::make_unique<frmMain>(
            run_, frmMain::Wishes{.give_up = [] {},
                                  .frame = [](const std::function<void()>& act) { act(); },
                                  .leave = [this](bool least) { start_up.shutdown(least); }});
        dialogs.attach(run_, window.get());
        window->command([this] { start_up.Main("", false); });
        QApplication::processEvents();
    }

    SimulatedBoard board;
    VirtualTime time;
    InProcessPort port{board, time};
    QtDialogs dialogs;
    Run run_;
    StartUp start_up{run_};
    std::unique_ptr<frmMain> window;
};

class FileMenuBench : public testing::Test {
  protected:
    FileMenuBench() {
        host.app_folder = folder.path() / "";
        host.documents = folder.path();
        host.on_pump = [] { QApplication::processEvents(); };
        store.write(Settings::kSection, "ComNo", "1");
        store.write(Settings::kSection, "mnuBoardInfomation", "False");
        start();
    }

    void start() {
        program.reset();
        program = std::make_unique<Program>(store, host);
        program->run_.form.Combo_device.select("PIC16F877A");
    }
    quillon::Run& run() const { return program->run_; }
    frmMain& window() const { return *program->window; }
    template <typename Widget>
    Widget* find(const char* name) const {
        auto* widget = window().findChild<Widget*>(name);
        if (widget == nullptr) ADD_FAILURE() << "no " << name;
        return widget;
    }
    void trigger(const char* name) const { find<QAction>(name)->trigger(); }
    void click(const char* name) const {
        QTest::mouseClick(find<QPushButton>(name), Qt::LeftButton);
    }

    std::string message() const { return run().form.LabelCmt.Caption.get(); }
    std::string title() const { return window().windowTitle().toStdString(); }
    std::string file_line() const { return find<QLabel>("file_at_hand")->text().toStdString(); }
    bool offered() const { return find<FileWatch>("reload_bar")->isVisible(); }
    std::string path(std::string_view name) const { return (folder / name).string(); }

    // A file with one program word.
    fs::path hex(std::string_view name, std::string_view head = "") const {
        fs::create_directories((folder / name).parent_path());
        return folder.write(name, std::string{head} + ":020000003412B8\n:00000001FF\n");
    }
    void open(const fs::path& file) {
        user.will(chooses(file));
        trigger("mnuFileOpen");
    }
    void save(const fs::path& file) {
        user.will(chooses(file));
        trigger("mnuFileSave");
    }
    // Longer than the watch waits for a file to be quiet.
    static void let_settle() { QTest::qWait(450); }

    TempFolder folder;
    SavingHost host;
    MemoryStore store;
    User user;
    std::unique_ptr<Program> program;
};

}  // namespace quillon::test
