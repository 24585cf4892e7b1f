// SPDX-License-Identifier: MIT
// The search line under the memory views: looks for a text in the view that was used last.
//
// At the end of the view the search continues at the other end, and shows that it does. A text that
// isn't found is shown in the colour of an error, and the view doesn't move.
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
    // Returns the view to search, called for each search.
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
