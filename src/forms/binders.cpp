// SPDX-License-Identifier: MIT
// Ties the controls of the view model to their widgets, both ways: one bind for each kind.
//
// Changes that come from the control are written with the widget's signals blocked. So only the
// user's own changes are sent back to the control.
#include "forms/binders.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStringList>
#include <QTabWidget>
#include <QTableWidget>
#include <algorithm>

#include "forms/message_area.h"
#include "forms/theme.h"

namespace quillon {

namespace {

constexpr int kUnlimited = 32767;  // QLineEdit's own limit

// A caption has the line ends of a dialog or of a file; Qt wants "\n".
QString caption(std::string_view text) {
    QString result = q(text);
    result.replace("\r\n", "\n");
    result.replace('\r', '\n');
    return result;
}

void paint_ground(QWidget& widget, Colour colour, QPalette::ColorRole back,
                  QPalette::ColorRole text) {
    widget.setPalette(QPalette{});
    if (colour == Colour::Default || colour == Colour::White) return;
    const Ground wanted = ground(colour, widget.palette());
    QPalette own;  // these two roles only: the theme gives the others
    own.setColor(back, wanted.back);
    own.setColor(text, wanted.text);
    widget.setPalette(own);
}

// Replaces the view's text. After a verify the user looks for the lines added under the image, so
// the first of them becomes the top line.
void show_view(QPlainTextEdit& view, std::string_view former, std::string_view text) {
    view.setPlainText(q(text));
    const bool added = !former.empty() && text.starts_with(former);
    if (added)
        view.verticalScrollBar()->setValue(static_cast<int>(std::ranges::count(former, '\n')));
}

QTableWidgetItem& item_at(QTableWidget& table, int row, int column) {
    if (auto* item = table.item(row, column)) return *item;
    auto* item = new QTableWidgetItem;
    table.setItem(row, column, item);
    return *item;
}

void show_cells(const Grid& grid, QTableWidget& table) {
    const QSignalBlocker blocker{table};
    table.setRowCount(std::max(0, static_cast<int>(grid.rows()) - 1));
    for (int column = 0; column < 2; ++column) {
        const auto at = static_cast<std::size_t>(column);
        table.setHorizontalHeaderItem(column, new QTableWidgetItem{caption(grid.cell(0, at))});
        for (int row = 0; row < table.rowCount(); ++row)
            item_at(table, row, column)
                .setText(caption(grid.cell(static_cast<std::size_t>(row) + 1, at)));
    }
}

void show_choice(const ComboBox& control, QComboBox& widget) {
    const QSignalBlocker blocker{widget};
    const QString text = q(control.Text.get());
    const int index = control.ListIndex.get();
    widget.setCurrentIndex(index >= 0 && index < widget.count() ? index : widget.findText(text));
    if (widget.isEditable()) widget.setEditText(text);
}

void show_tabs(const TabSet& control, QTabWidget& widget) {
    const QSignalBlocker blocker{widget};
    const auto& shown = control.TabVisible.get();
    for (int tab = 0; tab < widget.count() && tab < static_cast<int>(shown.size()); ++tab)
        widget.setTabVisible(tab, shown[static_cast<std::size_t>(tab)]);
    const int current = control.Tab.get();
    if (current >= 0 && current < widget.count() && widget.isTabVisible(current))
        widget.setCurrentIndex(current);
}

}  // namespace

QString q(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string utf8(const QString& text) { return text.toStdString(); }

void Bindings::bind_common(Control& control, QWidget& widget) {
    widget.setObjectName(q(control.name));
    follow(control.Enabled, [&widget](bool on) { widget.setEnabled(on); });
    follow(control.Visible, [&widget](bool on) { widget.setVisible(on); });
}

void Bindings::bind(Label& control, QLabel& widget) {
    bind_common(control, widget);
    widget.setTextFormat(Qt::PlainText);
    const int below = overhang(widget.font());
    widget.setContentsMargins(0, below, 0, below);
    follow(control.Caption, [&widget](const std::string& text) { widget.setText(caption(text)); });
}

void Bindings::bind(Label& control, QPushButton& widget) {
    bind_common(control, widget);
    follow(control.Caption, [&widget](const std::string& text) {
        widget.setText(caption(text).replace('&', "&&"));
    });
    follow(control.BackColor, [&widget](Colour colour) {
        paint_ground(widget, colour, QPalette::Button, QPalette::ButtonText);
    });
}

void Bindings::bind(Label& control, MessageArea& widget) {
    bind_common(control, widget);
    follow(control.Caption,
           [&widget](const std::string& text) { widget.show_text(caption(text)); });
    follow(control.ForeColor, [&widget](Colour colour) { widget.show_colour(colour); });
}

void Bindings::bind(TextBox& control, QLineEdit& widget) {
    bind_common(control, widget);
    follow(control.Text, [&widget](const std::string& text) {
        if (utf8(widget.text()) == text) return;  // keeps the cursor in place while the user types
        const QSignalBlocker blocker{widget};
        widget.setText(q(text));
    });
    follow(control.MaxLength, [&control, &widget](std::size_t length) {
        const QSignalBlocker blocker{widget};
        widget.setMaxLength(length == 0 ? kUnlimited : static_cast<int>(length));
        widget.setText(q(control.Text.get()));  // a longer limit shows what the shorter one cut
    });
    follow(control.BackColor, [&widget](Colour colour) {
        paint_ground(widget, colour, QPalette::Base, QPalette::Text);
    });
    QObject::connect(&widget, &QLineEdit::textChanged, &widget,
                     [&control](const QString& text) { control.Text.set(utf8(text)); });
}

void Bindings::bind(RichTextBox& control, QPlainTextEdit& widget) {
    bind_common(control, widget);
    widget.setReadOnly(true);
    follow(control.Text, [&widget, former = std::string{}](const std::string& text) mutable {
        show_view(widget, former, text);
        former = text;
    });
    follow(control.Redraw, [&widget](bool on) { widget.setUpdatesEnabled(on); });
}

void Bindings::bind(CheckBox& control, QCheckBox& widget) {
    bind_common(control, widget);
    follow(control.Caption, [&widget](const std::string& text) { widget.setText(caption(text)); });
    follow(control.Checked, [&widget](bool on) { widget.setChecked(on); });
    QObject::connect(&widget, &QCheckBox::clicked, &widget, [this, &control, &widget](bool on) {
        act([&] { control.Checked.set(on); });
        widget.setChecked(control.Checked.get());
    });
}

void Bindings::bind(ComboBox& control, QComboBox& widget) {
    bind_common(control, widget);
    follow(control.Items, [&control, &widget](const std::vector<std::string>& items) {
        const QSignalBlocker blocker{widget};
        QStringList entries;
        for (const auto& item : items) entries << q(item);
        widget.clear();
        widget.addItems(entries);
        show_choice(control, widget);
    });
    follow(control.ListIndex, [&control, &widget](int) { show_choice(control, widget); });
    follow(control.Text, [&control, &widget](const std::string&) { show_choice(control, widget); });
    QObject::connect(&widget, &QComboBox::activated, &widget, [this, &control, &widget](int index) {
        act([&] { control.select(index); });
        show_choice(control, widget);
    });
}

void Bindings::bind(Button& control, QPushButton& widget) {
    bind_common(control, widget);
    follow(control.Caption, [&widget](const std::string& text) { widget.setText(caption(text)); });
}

void Bindings::bind(MenuItem& control, QAction& widget, Ampersand ampersand) {
    widget.setObjectName(q(control.name));
    follow(control.Enabled, [&widget](bool on) { widget.setEnabled(on); });
    follow(control.Visible, [&widget](bool on) { widget.setVisible(on); });
    follow(control.Caption, [&widget, ampersand](const std::string& text) {
        QString shown = caption(text);
        if (ampersand == Ampersand::IsShown) shown.replace('&', "&&");
        widget.setText(shown);
    });
    follow(control.Checked, [&widget](bool on) { widget.setChecked(on); });
}

void Bindings::bind(MenuItem& control, QMenu& widget) {
    widget.setObjectName(q(control.name));
    follow(control.Enabled, [&widget](bool on) { widget.setEnabled(on); });
    follow(control.Visible, [&widget](bool on) { widget.menuAction()->setVisible(on); });
    follow(control.Caption, [&widget](const std::string& text) { widget.setTitle(caption(text)); });
}

void Bindings::bind(Grid& control, QTableWidget& widget) {
    bind_common(control, widget);
    widget.setColumnCount(2);
    show_cells(control, widget);
    keep(control.Changed.connect([&control, &widget] { show_cells(control, widget); }));
    const auto show_cursor = [&control, &widget](int) {
        const QSignalBlocker blocker{widget};
        // Row 0 is the heading, which the cursor can't reach.
        if (control.CursorRow.get() >= 1)
            widget.setCurrentCell(control.CursorRow.get() - 1, control.CursorColumn.get());
    };
    keep(control.CursorRow.observe(show_cursor));
    keep(control.CursorColumn.observe(show_cursor));
    QObject::connect(&widget, &QTableWidget::currentCellChanged, &widget,
                     [&control](int row, int column, int, int) {
                         if (row < 0) return;
                         control.CursorColumn.set(column);
                         control.CursorRow.set(row + 1);
                     });
}

void Bindings::bind(TabSet& control, QTabWidget& widget) {
    bind_common(control, widget);
    // A selection hides all tabs and shows the device's one by one. Each step would lay out again.
    const auto show = [&control, &widget] {
        if (control.Redraw.get()) show_tabs(control, widget);
    };
    follow(control.TabVisible, [show](const std::array<bool, 10>&) { show(); });
    follow(control.Tab, [show](int) { show(); });
    follow(control.Redraw, [show, &widget](bool on) {
        show();
        widget.setUpdatesEnabled(on);
    });
    QObject::connect(&widget, &QTabWidget::currentChanged, &widget,
                     [&control](int tab) { control.Tab.set(tab); });
}

void Bindings::bind(ProgressBar& control, QProgressBar& widget) {
    bind_common(control, widget);
    // The widget drops a value outside a new range, and the control doesn't send it again.
    const auto show = [&control, &widget](int) {
        widget.setRange(control.Min.get(), control.Max.get());
        widget.setValue(control.Value.get());
    };
    follow(control.Max, show);
    follow(control.Min, show);
    follow(control.Value, show);
}

void Bindings::bind(Shape& control, QWidget& widget) { bind_common(control, widget); }

}  // namespace quillon
