// SPDX-License-Identifier: MIT
// frmStop: shown without an event loop of its own, so that the operation behind it continues.
//
// The buttons' roles put the safe answer first in the order of the desktop.
#include "forms/frmStop.h"

#include <QPushButton>

namespace quillon {

frmStop::frmStop(StopForm& form, StopDialog& dialog, QWidget* owner) : QMessageBox{owner} {
    setObjectName("frmStop");
    setIcon(QMessageBox::Warning);
    setTextFormat(Qt::PlainText);
    setText(q(form.Label1.Caption.get()));
    auto* cancel = button(form.cmdCancel, QMessageBox::AcceptRole);
    auto* ok = button(form.cmdOK, QMessageBox::DestructiveRole);
    setDefaultButton(cancel);
    setEscapeButton(cancel);
    connect(this, &QDialog::finished, this, [this, ok, &dialog] {
        if (clickedButton() == ok)
            dialog.cmdOK_Click();
        else
            dialog.cmdCancel_Click();
    });
    bindings_.follow(form.Caption, [this](const std::string& text) { setWindowTitle(q(text)); });
    bindings_.keep(form.Visible.observe([this](bool shown) {
        if (shown)
            open();
        else
            hide();
    }));
}

QPushButton* frmStop::button(quillon::Button& control, ButtonRole role) {
    auto* result = addButton(q(control.Caption.get()), role);
    result->setAutoDefault(false);
    bindings_.bind(control, *result);
    return result;
}

}  // namespace quillon
