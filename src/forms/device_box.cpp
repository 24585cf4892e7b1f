// SPDX-License-Identifier: MIT
// The device list: a combo that is searched by typing any part of a name.
//
// Return takes the typed name, or the only name that holds what was typed. Anything else, Escape
// and leaving the box put the selected device's name back.
#include "forms/device_box.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QWheelEvent>

namespace quillon {

DeviceBox::DeviceBox(QWidget* parent) : QComboBox{parent} {
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
    connect(lineEdit(), &QLineEdit::returnPressed, this, [this] { choose_typed(); });
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
    // The popup of names takes the focus too; the search goes on then.
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason)
        restore();
    QComboBox::focusOutEvent(event);
}

void DeviceBox::choose_typed() {
    const QString typed = lineEdit()->text().trimmed();
    const QString standing = itemText(currentIndex());
    if (typed.compare(standing, Qt::CaseInsensitive) == 0) return restore();
    int chosen = findText(typed, Qt::MatchFixedString);
    if (chosen < 0 && !typed.isEmpty()) {
        const auto holding = model()->match(model()->index(0, modelColumn()), Qt::DisplayRole,
                                            typed, 2, Qt::MatchContains);
        if (holding.size() == 1) chosen = holding.front().row();
    }
    if (chosen < 0) return restore();
    setCurrentIndex(chosen);
    Q_EMIT activated(chosen);
}

void DeviceBox::restore() { setEditText(itemText(currentIndex())); }

}  // namespace quillon
