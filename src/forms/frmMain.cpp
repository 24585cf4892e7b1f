// SPDX-License-Identifier: MIT
// frmMain while it runs: commands, closing, its place, dropped files.
//
// The layout and what each control starts are in frmMain_controls.cpp.
#include "forms/frmMain.h"

#include <fmt/format.h>

#include <QApplication>
#include <QCloseEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QScreen>
#include <QTimer>
#include <QUrl>
#include <algorithm>

#include "app/host.h"
#include "forms/file_watch.h"
#include "forms/frmMain_texts.h"
#include "forms/lost_focus.h"
#include "forms/main_header.h"
#include "forms/main_menus.h"
#include "forms/memory_panel.h"
#include "forms/placing.h"

namespace quillon {

namespace {

// The path of a single dragged local file. With several it would be unclear which one is meant.
QString dragged_file(const QMimeData& data) {
    const auto urls = data.urls();
    if (urls.size() != 1 || !urls.front().isLocalFile()) return {};
    const QFileInfo file{urls.front().toLocalFile()};
    return file.isFile() ? file.absoluteFilePath() : QString{};
}

}  // namespace

void frmMain::command(const std::function<void()>& act) {
    if (busy_) return;
    busy_ = true;
    menus_->set_busy(true);
    file_watch_->set_busy(true);
    focus_asked_.clear();
    const LostFocus focus{focusWidget()};
    run_.id_entry.drop_unfinished();
    try {
        wishes_.frame(act);
    } catch (const Abandoned&) {
        // An operation catches this itself. Any other act, such as writing a view, ends here.
        run_.port.close();
    }
    menus_->set_busy(false);
    busy_ = false;
    file_watch_->set_busy(false);
    // When the command asked for the focus, the control may still have been disabled.
    if (focus_asked_.empty())
        focus.give_back();
    else
        focus_on(focus_asked_);
    show_facts();
    if (closing_) QTimer::singleShot(0, this, [this] { close(); });
}

// Runs a command that may load a file. The header then shows the file, and its changes are watched.
void frmMain::load(const std::function<void()>& act) {
    command([&] {
        const std::string former = run_.session.HexFilePath;
        run_.session.LoadResult.clear();
        act();
        const bool loaded = run_.session.LoadResult == "OK";
        const bool same = run_.session.HexFilePath == former;
        // Another file was refused. The current file stays, and so does an offer to reload it.
        if (!loaded && same) return;
        header_->take_file(q(run_.session.HexFilePath));
        file_watch_->watch(q(run_.session.HexFilePath));
    });
}

// After a save the buffer and the file agree, so there is nothing to offer for reload.
void frmMain::save() {
    command([this] {
        if (run_.files.mnuFileSave_Click() != Outcome::Success) return;
        header_->take_file(q(run_.session.HexFilePath));
        file_watch_->watch(q(run_.session.HexFilePath));
    });
}

void frmMain::show_facts() {
    header_->show_file(run_.files.buffer_is_file());
    show_counters();
}

void frmMain::show_counters() {
    const auto& session = run_.session;
    counters_->setText(q(fmt::format(form_text::kCounters, session.TryCount, session.PassCount,
                                     run_.flows.failed_runs())));
}

void frmMain::quit() {
    if (!busy_) {
        close();
        return;
    }
    closing_ = true;
    wishes_.give_up();
}

void frmMain::closeEvent(QCloseEvent* event) {
    if (busy_) {
        event->ignore();
        if (run_.stop.may_close()) quit();
        return;
    }
    keep_place();
    if (wishes_.leave) std::exchange(wishes_.leave, nullptr)(isMinimized());
    QMainWindow::closeEvent(event);
}

void frmMain::dragEnterEvent(QDragEnterEvent* event) {
    const bool open = !busy_ && run_.form.Enabled.get() && run_.form.Cmd_open.Enabled.get();
    if (open && !dragged_file(*event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void frmMain::dropEvent(QDropEvent* event) {
    const QString path = dragged_file(*event->mimeData());
    if (path.isEmpty()) return;
    event->acceptProposedAction();
    // The drag's source waits until this event ends, but the load may ask questions.
    QTimer::singleShot(0, this, [this, path] {
        load([&] { run_.files.mnuFileOpen_Click(std::filesystem::path{utf8(path)}); });
    });
}

void frmMain::place() {
    const auto& form = run_.form;
    const QPoint at = reachable({form.Left / kTwips, form.Top / kTwips});
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const int least = minimumSizeHint().height();
    const int tall = std::max(std::min(form.Height / kTwips, screen.height() - 40), least);
    resize(std::max({form.Width / kTwips, minimumSizeHint().width(), width()}), tall);
    move(at);
}

void frmMain::keep_place() {
    if (isMinimized() || isMaximized() || !isVisible()) return;
    run_.form.Left = x() * kTwips;
    run_.form.Top = y() * kTwips;
    run_.form.Height = height() * kTwips;
}

void frmMain::moveEvent(QMoveEvent* event) {
    QMainWindow::moveEvent(event);
    keep_place();
}

void frmMain::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    run_.form.ScaleWidth = width() * kTwips;
    keep_place();
}

void frmMain::focus_on(std::string name) {
    // The flows set an empty name to release the focus. Searching for it would find any widget.
    auto* widget = name.empty() ? nullptr : findChild<QWidget*>(q(name));
    if (widget == nullptr) return;
    focus_asked_ = std::move(name);
    // The command may have been started in a window of its own beside this one.
    const auto* active = QApplication::activeWindow();
    if (active != nullptr && active != this) activateWindow();
    widget->setFocus(Qt::OtherFocusReason);
}

// Copies from the box that has the focus, else from the memory view that last had it.
void frmMain::copy() const {
    if (auto* line = qobject_cast<QLineEdit*>(focusWidget()))
        line->copy();
    else if (auto* text = qobject_cast<QPlainTextEdit*>(focusWidget()))
        text->copy();
    else
        memory_->view().copy();
}

void frmMain::select_all() const {
    if (auto* line = qobject_cast<QLineEdit*>(focusWidget()))
        line->selectAll();
    else if (auto* text = qobject_cast<QPlainTextEdit*>(focusWidget()))
        text->selectAll();
    else
        memory_->view().selectAll();
}

}  // namespace quillon
