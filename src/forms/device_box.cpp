// SPDX-License-Identifier: MIT
// The device list: a combo box that finds devices by any part of their name.
//
// The box shows the selected device. Return hands over the typed text; a selection that follows is
// shown as any other. Escape and leaving the box restore the selected device's name.
#include "forms/device_box.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QWheelEvent>

namespace quillon {

DeviceBox::DeviceBox(QWidget* parent, Leaving leaving) : QComboBox{parent}, leaving_{leaving} {
    setEditable(true);
    setInsertPolicy(NoInsert);
    setMaxVisibleItems(20);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(16);
    auto* names = new QCompleter{model(), this};
    names->setFilterMode(Qt::MatchContains);
    names->setCaseSensitivity(Qt::CaseInsensitive);
    names->setCompletionMode(QCompleter::PopupCompletion);
    names->setMaxVisibleItems(20);
    setCompleter(names);
    lineEdit()->setAcceptDrops(false);
    connect(lineEdit(), &QLineEdit::returnPressed, this, [this] { hand_over(); });
}

void DeviceBox::wheelEvent(QWheelEvent* event) { event->ignore(); }

void DeviceBox::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            showPopup();
            return;
        case Qt::Key_Escape:
            restore();
            lineEdit()->selectAll();
            return;
        default:
            QComboBox::keyPressEvent(event);
    }
}

void DeviceBox::focusOutEvent(QFocusEvent* event) {
    // The popup of names takes the focus too, but the search continues.
    if (leaving_ == Leaving::Restores && event->reason() != Qt::PopupFocusReason &&
        event->reason() != Qt::ActiveWindowFocusReason)
        restore();
    QComboBox::focusOutEvent(event);
}

void DeviceBox::hand_over() {
    // Return then chooses the entry under the popup's cursor, which is reported as a choice.
    const auto* popup = completer()->popup();
    if (popup->isVisible() && popup->currentIndex().isValid()) return;
    const QString typed = lineEdit()->text();
    if (leaving_ == Leaving::Restores) restore();
    if (on_typed) on_typed(typed);
}

void DeviceBox::restore() { setEditText(itemText(currentIndex())); }

}  // namespace quillon
