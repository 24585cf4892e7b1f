// SPDX-License-Identifier: MIT
// The header of frmMain: the device list, the file buttons, the current file with its date.
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

    // Called after a load. The shown date is that of the file at this moment, even if it changes
    // later.
    void take_file(const QString& path);
    // Shows the name and date. `in_buffer` is false if the image no longer holds the file's
    // content.
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
