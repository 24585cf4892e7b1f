// SPDX-License-Identifier: MIT
// The search line under the memory views: looks for a text in the view that was used last.
//
// The search goes on at the other end, and says so. A text that doesn't occur is shown in the
// colour of an error and leaves the view as it stands.
#pragma once

#include <QWidget>
#include <cstdint>
#include <functional>

class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace quillon {

class FindBar : public QWidget {
  public:
    // The view to look into: asked anew each time.
    using View = std::function<QPlainTextEdit&()>;

    explicit FindBar(View view, QWidget* parent = nullptr);

    // Opens the line; the view's selection becomes the text to look for.
    void open();
    bool find_next();
    bool find_previous();

  protected:
    void keyPressEvent(QKeyEvent* event) override;  // Escape closes

  private:
    bool find(bool backward, bool from_selection_start);
    enum class Verdict : std::uint8_t { Found, FromTop, FromBottom, NotFound };
    void show_verdict(Verdict verdict);

    View view_;
    QLineEdit* text_;
    QLabel* verdict_;
};

}  // namespace quillon
