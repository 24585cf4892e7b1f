// SPDX-License-Identifier: MIT
// frmMain: its life. Commands, closing, place, files that are dropped.
//
// The layout and what each control starts stand in frmMain_controls.cpp.
#include "forms/frmMain.h"

#include <fmt/format.h>

#include <QCloseEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPointer>
#include <QScreen>
#include <QTimer>
#include <QUrl>
#include <algorithm>

#include "app/host.h"
#include "forms/file_watch.h"
#include "forms/frmMain_texts.h"
#include "forms/main_header.h"
#include "forms/main_menus.h"
#include "forms/memory_panel.h"
#include "forms/placing.h"

namespace quillon {

namespace {

// Gives the focus back to a widget that lost it by being disabled, and only then.
class LostFocus : public QObject {
  public:
    explicit LostFocus(QWidget* widget) : widget_{widget} {
        if (widget_) widget_->installEventFilter(this);
    }
    void give_back() const {
        if (widget_ && disabled_ && widget_->isEnabled() && widget_->isVisible())
            widget_->setFocus(Qt::OtherFocusReason);
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::EnabledChange && !widget_->isEnabled()) disabled_ = true;
        return QObject::eventFilter(watched, event);
    }

  private:
    QPointer<QWidget> widget_;
    bool disabled_ = false;
};

// The one local file that is dragged; several would leave open which is meant.
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
        // An act without a frame of its own, such as a view that was being written.
        run_.port.close();
    }
    menus_->set_busy(false);
    busy_ = false;
    file_watch_->set_busy(false);
    // The control that the command asked for may have been disabled at that time.
    if (focus_asked_.empty())
        focus.give_back();
    else
        focus_on(focus_asked_);
    show_facts();
    if (closing_) QTimer::singleShot(0, this, [this] { close(); });
}

// What loads a file: the head shows it, and it is watched for changes.
void frmMain::load(const std::function<void()>& act) {
    command([&] {
        const std::string former = run_.session.HexFilePath;
        run_.session.LoadResult.clear();
        act();
        const bool loaded = run_.session.LoadResult == "OK";
        const bool same = run_.session.HexFilePath == former;
        // Another file that was refused leaves the one at hand, and an offer to reload it, as it
        // is.
        if (!loaded && same) return;
        header_->take_file(q(run_.session.HexFilePath));
        file_watch_->watch(q(run_.session.HexFilePath));
    });
}

// The file at hand is then what the buffer holds: nothing to be offered for reload.
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
    // The source of the drag waits for this event's end, and the load may ask questions.
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
    // An empty name is the flows' way of letting go, and would find any widget at all.
    auto* widget = name.empty() ? nullptr : findChild<QWidget*>(q(name));
    if (widget == nullptr) return;
    focus_asked_ = std::move(name);
    widget->setFocus(Qt::OtherFocusReason);
}

// From the box that has the focus; from the memory view that had it last where none has.
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
