// SPDX-License-Identifier: MIT
// The header of frmMain: the device list, the file buttons, the current file with its date.
#include "forms/main_header.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "forms/device_box.h"
#include "forms/frmMain_texts.h"
#include "forms/theme.h"

namespace quillon {

MainHeader::MainHeader(MainForm& form, Bindings& bindings, QWidget* parent)
    : QFrame{parent}, Combo_device{new DeviceBox{this}}, file_{new QLabel{this}} {
    setObjectName(q(form.Label_back.name));
    auto* title = new QLabel{q(form_text::kDevice), this};
    title->setBuddy(Combo_device);
    Combo_device->setAccessibleName(q(form_text::kDevice));
    Combo_device->setToolTip(q(form_text::kDeviceTip));
    bindings.bind(form.Combo_device, *Combo_device);

    Cmd_open = button(form.Cmd_open, bindings, form_text::kOpenTip);
    Cmd_save = button(form.Cmd_save, bindings, form_text::kSaveTip);
    Command_com = button(form.Command_com, bindings, form_text::kComTip);
    file_->setObjectName("file_at_hand");
    file_->setTextFormat(Qt::PlainText);
    file_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    file_->setMinimumWidth(120);
    file_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);

    auto* row = new QHBoxLayout{this};
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(8);
    row->addWidget(title);
    row->addWidget(Combo_device);
    row->addSpacing(8);
    row->addWidget(Cmd_open);
    row->addWidget(Cmd_save);
    row->addWidget(file_, 1);
    row->addWidget(Command_com);
    show_file(false);
}

QPushButton* MainHeader::button(Button& control, Bindings& bindings, std::string_view tip) {
    auto* result = new QPushButton{this};
    result->setAutoDefault(false);
    result->setToolTip(q(tip));
    bindings.bind(control, *result);
    return result;
}

void MainHeader::take_file(const QString& path) {
    path_ = path;
    date_ = QFileInfo{path}.lastModified();
}

void MainHeader::show_file(bool in_buffer) {
    const bool loaded = !path_.isEmpty();
    QString name = loaded ? QFileInfo{path_}.fileName() : q(form_text::kNoFile);
    if (loaded && date_.isValid()) name += "   " + date_.toString("yyyy-MM-dd HH:mm");
    if (loaded && !in_buffer) name += q(form_text::kNotInBuffer);
    file_text_ = name;
    file_->setToolTip(path_);
    QPalette own;
    if (!loaded || !in_buffer) own.setColor(QPalette::WindowText, caption_colour(palette()));
    file_->setPalette(own);
    show_elided();
}

void MainHeader::resizeEvent(QResizeEvent* event) {
    QFrame::resizeEvent(event);
    show_elided();
}

void MainHeader::show_elided() {
    file_->setText(file_->fontMetrics().elidedText(file_text_, Qt::ElideRight, file_->width()));
}

}  // namespace quillon
