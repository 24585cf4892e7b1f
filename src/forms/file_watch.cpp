// SPDX-License-Identifier: MIT
// Notices that the loaded HEX file has changed on disk, and offers to load it again.
#include "forms/file_watch.h"

#include <fmt/format.h>

#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>

#include "forms/binders.h"
#include "forms/frmMain_texts.h"
#include "forms/theme.h"

namespace quillon {

namespace {
constexpr std::chrono::milliseconds kQuiet{300};
}

FileWatch::FileWatch(QWidget* parent) : QWidget{parent} {
    setObjectName("reload_bar");
    text_ = new QLabel{this};
    text_->setTextFormat(Qt::PlainText);
    reload_ = new QPushButton{q(form_text::kReload), this};
    reload_->setObjectName("reload");
    auto* later = new QPushButton{q(form_text::kLater), this};
    later->setObjectName("reload_later");
    reload_->setToolTip(q(form_text::kReloadTip));
    later->setToolTip(q(form_text::kLaterTip));
    for (auto* button : {reload_, later}) button->setAutoDefault(false);
    auto* row = new QHBoxLayout{this};
    row->setContentsMargins(10, 4, 4, 4);
    row->addWidget(text_, 1);
    row->addWidget(reload_);
    row->addWidget(later);

    // A light band draws the eye without a message box in the way.
    const Ground band = ground(Colour::Found, palette());
    QPalette own;
    own.setColor(QPalette::Window, band.back);
    own.setColor(QPalette::WindowText, band.text);
    text_->setPalette(own);
    setPalette(own);
    setAutoFillBackground(true);
    for (auto* button : {reload_, later}) button->setPalette(parent->palette());

    quiet_.setSingleShot(true);
    quiet_.setInterval(kQuiet);
    connect(&quiet_, &QTimer::timeout, this, [this] { look(); });
    connect(&watcher_, &QFileSystemWatcher::fileChanged, this, [this] { quiet_.start(); });
    connect(&watcher_, &QFileSystemWatcher::directoryChanged, this, [this] { quiet_.start(); });
    connect(later, &QPushButton::clicked, this, &QWidget::hide);
    connect(reload_, &QPushButton::clicked, this, [this] {
        if (on_reload) on_reload();
    });
    hide();
}

void FileWatch::watch(const QString& path) {
    hide();
    quiet_.stop();
    const QStringList watched = watcher_.files() + watcher_.directories();
    if (!watched.isEmpty()) watcher_.removePaths(watched);
    path_ = path;
    if (path.isEmpty()) return;
    loaded_ = told_ = state();
    follow();
}

void FileWatch::set_busy(bool busy) {
    busy_ = busy;
    if (!busy_ && !path_.isEmpty() && !quiet_.isActive()) look();
}

FileWatch::State FileWatch::state() const {
    const QFileInfo file{path_};
    if (!file.exists()) return {};
    return {.exists = true, .time = file.lastModified(), .size = file.size()};
}

// Adds what is missing: the watcher drops a path when its file or folder is removed.
void FileWatch::follow() {
    if (QFileInfo::exists(path_) && !watcher_.files().contains(path_)) watcher_.addPath(path_);
    QString folder = QFileInfo{path_}.absolutePath();
    while (!QFileInfo::exists(folder)) {
        const QString above = QFileInfo{folder}.absolutePath();
        if (above == folder) return;
        folder = above;
    }
    if (!watcher_.directories().contains(folder)) watcher_.addPath(folder);
}

void FileWatch::look() {
    if (busy_) return;
    follow();
    const State now = state();
    if (now == told_) return;
    told_ = now;
    if (now == loaded_)
        hide();
    else
        offer(now);
}

void FileWatch::offer(const State& now) {
    const std::string name = utf8(QFileInfo{path_}.fileName());
    text_->setText(q(now.exists ? fmt::format(form_text::kFileChanged, name)
                                : fmt::format(form_text::kFileGone, name)));
    reload_->setVisible(now.exists);
    show();
}

}  // namespace quillon
