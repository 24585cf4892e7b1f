// SPDX-License-Identifier: MIT
// Notices that the loaded HEX file has changed on disk, and offers to load it again.
//
// A compiler writes its output in several steps, often replaces the file and may empty the whole
// folder first. So the folder is watched too, or its nearest parent that still exists. The offer
// waits until the file has been quiet for a moment and no command runs. Each change is offered
// once, and nothing is loaded unless the user asks for it.
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

    // Watches the file that has just been loaded. An empty path stops the watch.
    void watch(const QString& path);
    // Nothing is offered while a command runs. A change in that time is offered when it ends.
    void set_busy(bool busy);
    QPushButton* reload_button() const { return reload_; }

    std::function<void()> on_reload;

  private:
    struct State {
        bool exists = false;
        QDateTime time;
        qint64 size = 0;
        bool operator==(const State&) const = default;
    };

    State state() const;
    void follow();
    void look();
    void offer(const State& now);

    QFileSystemWatcher watcher_;
    QTimer quiet_;
    QString path_;
    State loaded_;
    State told_;  // the state in the last offer; at first the same as loaded_
    bool busy_ = false;
    QLabel* text_;
    QPushButton* reload_;
};

}  // namespace quillon
