// SPDX-License-Identifier: MIT
// Notices that the loaded HEX file has changed on disk, and offers to load it again.
//
// A compiler rewrites its output in several steps, and often replaces the file: so the folder is
// watched too, and the offer waits until the file has been quiet for a moment. Nothing is loaded
// unless the user asks for it.
#pragma once

#include <QDateTime>
#include <QFileSystemWatcher>
#include <QTimer>
#include <QWidget>
#include <functional>

class QLabel;
class QPushButton;

namespace quillon {

class FileWatch : public QWidget {
  public:
    explicit FileWatch(QWidget* parent = nullptr);

    // The file at hand as it has just been loaded; an empty path watches nothing.
    void watch(const QString& path);
    QPushButton* reload_button() const { return reload_; }

    std::function<void()> on_reload;

  private:
    void look();
    void offer(bool exists);

    QFileSystemWatcher watcher_;
    QTimer quiet_;
    QString path_;
    QDateTime time_;
    qint64 size_ = 0;
    QLabel* text_;
    QPushButton* reload_;
};

}  // namespace quillon
