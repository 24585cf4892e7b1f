// SPDX-License-Identifier: MIT
// The head of frmMain: the device list, the file buttons, the file at hand with its date.
#pragma once

#include <QDateTime>
#include <QFrame>
#include <QString>

#include "app/main_form.h"
#include "forms/binders.h"

class QLabel;
class QPushButton;

namespace quillon {

class DeviceBox;

class MainHeader : public QFrame {
  public:
    MainHeader(MainForm& form, Bindings& bindings, QWidget* parent = nullptr);

    // A file has been loaded: its date is the one of now, whatever becomes of the file later.
    void take_file(const QString& path);
    // Shows its name and date; `in_buffer` is false once something else has taken its place in the
    // image.
    void show_file(bool in_buffer);

    DeviceBox* Combo_device;
    QPushButton* Cmd_open;
    QPushButton* Cmd_save;
    QPushButton* Command_com;

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    QPushButton* button(Button& control, Bindings& bindings, std::string_view tip);
    void show_elided();

    QLabel* file_;
    QString path_;
    QDateTime date_;
    QString file_text_;
};

}  // namespace quillon
