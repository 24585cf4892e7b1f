// SPDX-License-Identifier: MIT
// frmDeviceSelect: asks which device the command line's HEX file is for.
#include "forms/frmDeviceSelect.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "forms/device_box.h"
#include "forms/frmMain.h"
#include "forms/small_form_texts.h"
#include "forms/theme.h"

namespace quillon {

frmDeviceSelect::frmDeviceSelect(DeviceSelectForm& form, DeviceSelectDialog& dialog, QWidget* owner)
    : QDialog{owner}, dialog_{dialog} {
    setObjectName("frmDeviceSelect");
    bindings_.follow(form.Caption, [this](const std::string& text) { setWindowTitle(q(text)); });
    auto* question = new QLabel{q(form_text::kDeviceQuestion), this};
    auto* device = new DeviceBox{this, DeviceBox::Leaving::Keeps};
    question->setBuddy(device);
    auto* ok = new QPushButton{this};
    auto* cancel = new QPushButton{this};
    bindings_.bind(form.Combo_device, *device);
    bindings_.bind(form.OKButton, *ok);
    bindings_.bind(form.CancelButton, *cancel);
    auto* notice = make_notice(form.Notice);
    // Return in the list presses OK already. A default button would be pressed a second time.
    for (auto* button : {ok, cancel}) button->setAutoDefault(false);
    device->on_typed = [ok](const QString&) { ok->click(); };
    connect(ok, &QPushButton::clicked, this, [this, &form, device] {
        form.Combo_device.Text.set(utf8(device->currentText()));
        dialog_.OKButton_Click();
    });
    connect(cancel, &QPushButton::clicked, this, [this] { dialog_.CancelButton_Click(); });

    auto* foot = new QHBoxLayout;
    foot->addStretch(1);
    foot->addWidget(ok);
    foot->addWidget(cancel);
    auto* layout = new QVBoxLayout{this};
    layout->setContentsMargins(16, 16, 16, 12);
    layout->setSpacing(10);
    layout->addWidget(question);
    layout->addWidget(device);
    layout->addWidget(notice);
    layout->addLayout(foot);
    device->setFocus();
    move(form.Left / kTwips, form.Top / kTwips);
    bindings_.keep(form.Visible.observe([this](bool shown) {
        if (!shown) done(Accepted);
    }));
}

QLabel* frmDeviceSelect::make_notice(Label& control) {
    auto* notice = new QLabel{this};
    QPalette own;
    own.setColor(QPalette::WindowText, text_colour(Colour::Red, palette()));
    notice->setPalette(own);
    bindings_.bind(control, *notice);
    return notice;
}

void frmDeviceSelect::reject() { dialog_.CancelButton_Click(); }

}  // namespace quillon
