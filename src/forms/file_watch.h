// SPDX-License-Identifier: MIT
// Notices that the loaded HEX file has changed on disk, and offers to load it again.
//
// A compiler rewrites its output in several steps, often replaces the file, and may empty its whole
// folder first: so the folder is watched too, or what is left above it, and the offer waits until
// the file has been quiet for a moment and no command runs. Each change is offered once, and
// nothing is loaded unless the user asks for it.
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
    // While a command runs nothing is offered; what has changed meanwhile is offered at its end.
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
    State told_;  // what the last offer told of; as loaded at first
    bool busy_ = false;
    QLabel* text_;
    QPushButton* reload_;
};

}  // namespace quillon
