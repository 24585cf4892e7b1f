// SPDX-License-Identifier: MIT
// Ties the controls of the view model to their widgets, both ways: one bind for each kind.
//
// The widget gets the control's name, shows its state at once and follows each change. A user's act
// goes through the gate. If the gate refuses it, the widget shows the control's state again. A
// control must outlive its widget; the bindings may be destroyed before it.
#pragma once

#include <QString>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "app/controls.h"

class QAction;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QMenu;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class QTableWidget;
class QTabWidget;
class QWidget;

namespace quillon {

QString q(std::string_view text);
std::string utf8(const QString& text);

class MessageArea;

class Bindings {
  public:
    // Runs the user's act, or drops it.
    using Gate = std::function<void(const std::function<void()>& act)>;

    Bindings() = default;
    explicit Bindings(Gate gate) : gate_{std::move(gate)} {}
    Bindings(const Bindings&) = delete;
    Bindings& operator=(const Bindings&) = delete;

    void bind(Label& control, QLabel& widget);
    void bind(Label& control, QPushButton& widget);  // a label that can be clicked
    void bind(Label& control, MessageArea& widget);
    void bind(TextBox& control, QLineEdit& widget);
    void bind(RichTextBox& control, QPlainTextEdit& widget);
    void bind(CheckBox& control, QCheckBox& widget);
    void bind(ComboBox& control, QComboBox& widget);
    void bind(Button& control, QPushButton& widget);
    // What an "&" in an entry's caption does: it marks the letter behind it, or is shown itself, as
    // in a file's path.
    enum class Ampersand : std::uint8_t { MarksLetter, IsShown };
    void bind(MenuItem& control, QAction& widget, Ampersand ampersand = Ampersand::MarksLetter);
    void bind(MenuItem& control, QMenu& widget);
    void bind(Grid& control, QTableWidget& widget);
    void bind(TabSet& control, QTabWidget& widget);
    void bind(ProgressBar& control, QProgressBar& widget);
    void bind(Shape& control, QWidget& widget);

    // Calls the follower now and at each change of the property.
    template <typename T, typename Follower>
    void follow(Property<T>& property, Follower follower) {
        follower(property.get());
        keep(property.observe(std::move(follower)));
    }
    void keep(Connection connection) { connections_.push_back(std::move(connection)); }
    void act(const std::function<void()>& act) const {
        if (gate_)
            gate_(act);
        else
            act();
    }

  private:
    void bind_common(Control& control, QWidget& widget);

    Gate gate_;
    std::vector<Connection> connections_;
};

}  // namespace quillon
