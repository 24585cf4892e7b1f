// SPDX-License-Identifier: MIT
// The search line under the memory views: looks for a text in the view that was used last.
//
// The search goes on at the other end. A text that doesn't occur is shown in the colour of an error
// and leaves the view as it stands.
#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace quillon {

class FindBar : public QWidget {
  public:
    explicit FindBar(QWidget* parent = nullptr);

    // Opens the line for the view; its selection becomes the text to look for.
    void open(QPlainTextEdit& view);
    bool find_next();
    bool find_previous();

  protected:
    void keyPressEvent(QKeyEvent* event) override;  // Escape closes

  private:
    bool find(bool backward, bool from_selection_start);
    void show_found(bool found);

    QLineEdit* text_;
    QLabel* verdict_;
    QPlainTextEdit* view_ = nullptr;
};

}  // namespace quillon
