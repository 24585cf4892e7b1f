// SPDX-License-Identifier: MIT
// The memory views of frmMain: program memory above, EEPROM below where the device has one.
#pragma once

#include <QWidget>

#include "app/main_form.h"
#include "forms/binders.h"

class QPlainTextEdit;

namespace quillon {

class FindBar;

class MemoryPanel : public QWidget {
  public:
    MemoryPanel(MainForm& form, Bindings& bindings, QWidget* parent = nullptr);

    // Opens the search for the view that has, or last had, the focus.
    void open_find();
    void find_next();
    void find_previous();
    QPlainTextEdit& view() const;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    QPlainTextEdit* make_view(RichTextBox& control, Bindings& bindings, std::string_view name);
    void apply_font();

    QPlainTextEdit* program_;
    QPlainTextEdit* eeprom_;
    QPlainTextEdit* last_used_;
    FindBar* find_;
};

}  // namespace quillon
