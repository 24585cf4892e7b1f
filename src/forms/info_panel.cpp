// SPDX-License-Identifier: MIT
// The device's information under the configuration tabs.
//
// There are ten information tabs. At most one is shown at a time, and several share their controls.
// So each tab is a group of rows here, shown while the tab is, and no tab strip is needed.
#include "forms/info_panel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <initializer_list>

#include "forms/frmMain_texts.h"
#include "forms/hex_validator.h"

namespace quillon {

namespace {

constexpr std::size_t kCalibrationTab = 0;
constexpr std::size_t kParityTab = 1;
constexpr std::size_t kIdentityTab = 2;  // PIC18
constexpr std::size_t kOsccal5FTab = 3;
constexpr std::size_t kOsccal10FTab = 5;

// A container without margins: rows line up with those of its neighbours.
template <typename Layout>
Layout* bare(QWidget* container, int spacing = 4) {
    auto* layout = new Layout{container};
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(spacing);
    return layout;
}

QLabel* label(Label& control, Bindings& bindings, QWidget* parent) {
    auto* result = new QLabel{parent};
    bindings.bind(control, *result);
    return result;
}

QLineEdit* hex_box(TextBox& control, Bindings& bindings, QWidget* parent, int digits) {
    auto* edit = new QLineEdit{parent};
    edit->setMinimumWidth(edit->fontMetrics().horizontalAdvance('0') * digits + 16);
    edit->setValidator(new HexValidator{edit});
    edit->setAcceptDrops(false);
    bindings.bind(control, *edit);
    return edit;
}

// A box of fixed width, for a value of a few digits.
QLineEdit* short_box(TextBox& control, Bindings& bindings, QWidget* parent, int digits) {
    auto* edit = hex_box(control, bindings, parent, digits);
    edit->setFixedWidth(edit->fontMetrics().horizontalAdvance('0') * digits + 24);
    return edit;
}

// A combo with its title, shown and hidden together.
QWidget* titled_combo(std::string_view title, ComboBox& control, Bindings& bindings,
                      QWidget* parent) {
    auto* field = new QWidget{parent};
    auto* row = bare<QHBoxLayout>(field);
    auto* name = new QLabel{q(title), field};
    auto* combo = new QComboBox{field};
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo->setMinimumContentsLength(5);
    combo->setAccessibleName(q(title));
    name->setBuddy(combo);
    row->addWidget(name);
    row->addWidget(combo, 1);
    bindings.bind(control, *combo);
    bindings.follow(control.Visible, [field](bool shown) { field->setVisible(shown); });
    return field;
}

// The same with a title that is a control of the form.
QWidget* labelled_combo(Label& title, ComboBox& control, Bindings& bindings, QWidget* parent) {
    auto* field = new QWidget{parent};
    auto* row = bare<QHBoxLayout>(field);
    row->addWidget(label(title, bindings, field));
    auto* combo = new QComboBox{field};
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo->setMinimumContentsLength(5);
    combo->setAccessibleName(q(title.Caption.get()));
    row->addWidget(combo, 1);
    bindings.bind(control, *combo);
    bindings.follow(control.Visible, [field](bool shown) { field->setVisible(shown); });
    return field;
}

void show_with_tabs(QWidget* rows, TabSet& tabs, std::initializer_list<std::size_t> mine,
                    Bindings& bindings) {
    bindings.follow(tabs.TabVisible, [rows, mine = std::vector<std::size_t>{mine}](
                                         const std::array<bool, 10>& shown) {
        rows->setVisible(
            std::any_of(mine.begin(), mine.end(), [&](std::size_t tab) { return shown[tab]; }));
    });
}

}  // namespace

InfoPanel::InfoPanel(MainForm& form, Bindings& bindings, QWidget* parent) : QWidget{parent} {
    auto* layout = bare<QVBoxLayout>(this, 6);
    layout->addWidget(make_identity(form, bindings));
    layout->addWidget(make_information(form, bindings));
    layout->addWidget(make_whole_words(form, bindings));
    // Each control's Visible depends on the device. Without a device the whole panel is hidden.
    bindings.follow(form.Combo_device.Text,
                    [this](const std::string& name) { setVisible(!name.empty()); });
}

QWidget* InfoPanel::make_identity(MainForm& form, Bindings& bindings) {
    auto* frame = new QWidget{this};
    auto* row = bare<QHBoxLayout>(frame, 6);
    for (Label* control : {&form.Lbl_div, &form.Lbl_ID_Dev, &form.Lbl_rev, &form.Lbl_ID_Rev}) {
        auto* part = label(*control, bindings, frame);
        const bool value = control == &form.Lbl_ID_Dev || control == &form.Lbl_ID_Rev;
        if (value) part->setTextInteractionFlags(Qt::TextSelectableByMouse);
        row->addWidget(part, value ? 1 : 0);
    }
    bindings.bind(form.Frame2, *frame);
    // On PIC18 all labels are hidden, and an empty frame would leave a gap.
    const auto show = [frame, &form](bool) {
        frame->setVisible(form.Frame2.Visible.get() && form.Lbl_div.Visible.get());
    };
    bindings.follow(form.Frame2.Visible, show);
    bindings.follow(form.Lbl_div.Visible, show);
    return frame;
}

QWidget* InfoPanel::make_information(MainForm& form, Bindings& bindings) {
    auto& tabs = form.SSTab_MCU_Information;
    auto* area = new QWidget{this};
    area->setObjectName(q(tabs.name));
    auto* layout = bare<QVBoxLayout>(area, 6);
    layout->addWidget(make_calibration(form, bindings, area));
    layout->addWidget(make_choices(form, bindings, area));

    auto* parity = new QWidget{area};
    auto* parity_row = bare<QHBoxLayout>(parity);
    Check_Parity_Disp = new QCheckBox{parity};
    bindings.bind(form.Check_Parity_Disp, *Check_Parity_Disp);
    parity_row->addWidget(Check_Parity_Disp);
    show_with_tabs(parity, tabs, {kParityTab}, bindings);
    layout->addWidget(parity);

    auto* identity = new QWidget{area};
    auto* identity_row = bare<QHBoxLayout>(identity, 6);
    identity_row->addWidget(new QLabel{q(form_text::kDeviceIdentity), identity});
    identity_row->addWidget(label(form.Label_DEV_id, bindings, identity), 1);
    identity_row->addWidget(new QLabel{q(form_text::kDeviceRevision), identity});
    identity_row->addWidget(label(form.Label_DEV_rev, bindings, identity), 1);
    show_with_tabs(identity, tabs, {kIdentityTab}, bindings);
    layout->addWidget(identity);

    bindings.follow(tabs.Enabled, [area](bool on) { area->setEnabled(on); });
    bindings.follow(tabs.Redraw, [area](bool on) { area->setUpdatesEnabled(on); });
    return area;
}

QWidget* InfoPanel::make_calibration(MainForm& form, Bindings& bindings, QWidget* parent) {
    auto* rows = new QWidget{parent};
    auto* layout = bare<QVBoxLayout>(rows);
    auto* info = label(form.Label_CalibInfo, bindings, rows);
    info->setWordWrap(true);
    layout->addWidget(info);

    auto* values = new QWidget{rows};
    auto* value_row = bare<QHBoxLayout>(values, 6);
    value_row->addWidget(label(form.Label_Calib, bindings, values));
    auto* word = new QWidget{values};
    auto* word_row = bare<QHBoxLayout>(word, 6);
    word_row->addWidget(short_box(form.Text_Calib_Data, bindings, word, 2));
    word_row->addWidget(label(form.Label_BG, bindings, word));
    word_row->addWidget(short_box(form.Text_BG, bindings, word, 1));
    show_with_tabs(word, form.SSTab_MCU_Information, {kCalibrationTab}, bindings);
    value_row->addWidget(word);
    auto* osccal = new QWidget{values};
    bare<QHBoxLayout>(osccal)->addWidget(short_box(form.Text_OSCCAL_Data, bindings, osccal, 3));
    show_with_tabs(osccal, form.SSTab_MCU_Information, {kOsccal5FTab, kOsccal10FTab}, bindings);
    value_row->addWidget(osccal);
    value_row->addWidget(label(form.Lbl_Calib_ReadWrite_Data, bindings, values), 1);
    Command1 = word_button(form.Command1, bindings, values, form_text::kReadWordTip);
    Command2 = word_button(form.Command2, bindings, values, form_text::kWriteWordTip);
    value_row->addWidget(Command1);
    value_row->addWidget(Command2);
    value_row->addStretch();  // with the wide label hidden, the boxes stay at the left
    layout->addWidget(values);

    show_with_tabs(rows, form.SSTab_MCU_Information, {kCalibrationTab, kOsccal5FTab, kOsccal10FTab},
                   bindings);
    return rows;
}

QPushButton* InfoPanel::word_button(Button& control, Bindings& bindings, QWidget* parent,
                                    std::string_view tip) {
    auto* button = new QPushButton{parent};
    button->setAutoDefault(false);
    button->setToolTip(q(tip));
    button->setAccessibleDescription(q(tip));
    bindings.bind(control, *button);
    // The calibration fields are two: the button's caption alone doesn't say which it is for.
    bindings.follow(control.Caption, [button](const std::string& caption) {
        button->setAccessibleName(q(form_text::kCalibrationWord) + q(caption));
    });
    return button;
}

// These aren't rows of a tab: parts with calibration in combo boxes use the first check box too,
// and have no tab.
QWidget* InfoPanel::make_choices(MainForm& form, Bindings& bindings, QWidget* parent) {
    auto* choices = new QWidget{parent};
    auto* layout = bare<QVBoxLayout>(choices);
    Chk_12F_CalibData_Select = new QCheckBox{choices};
    auto* use_file = new QCheckBox{choices};
    bindings.bind(form.Chk_12F_CalibData_Select, *Chk_12F_CalibData_Select);
    bindings.bind(form.Chk_UseFileData, *use_file);
    layout->addWidget(Chk_12F_CalibData_Select);
    layout->addWidget(use_file);
    // With both boxes hidden, an empty container would leave a gap.
    const auto show = [choices, &form](bool) {
        choices->setVisible(form.Chk_12F_CalibData_Select.Visible.get() ||
                            form.Chk_UseFileData.Visible.get());
    };
    bindings.follow(form.Chk_12F_CalibData_Select.Visible, show);
    bindings.follow(form.Chk_UseFileData.Visible, show);
    return choices;
}

QWidget* InfoPanel::make_whole_words(MainForm& form, Bindings& bindings) {
    auto* area = new QWidget{this};
    area->setObjectName(q(form.SSTab91X.name));
    auto* layout = bare<QVBoxLayout>(area);
    auto* ids = bare<QHBoxLayout>(nullptr);
    const std::array boxes{&form.Text_ID1, &form.Text_ID2, &form.Text_ID3, &form.Text_ID4};
    for (std::size_t word = 0; word < boxes.size(); ++word) {
        ids->addWidget(label(form.Label10[word], bindings, area));
        ids->addWidget(hex_box(*boxes[word], bindings, area, 4), 1);
    }
    layout->addLayout(ids);

    auto* first = bare<QHBoxLayout>(nullptr);
    first->addWidget(titled_combo("BOR", form.Combo_BOR_91X, bindings, area), 1);
    first->addWidget(titled_combo("POR", form.Combo_POR_91X, bindings, area), 1);
    first->addWidget(titled_combo("FCAL", form.Combo_FCAL_91X, bindings, area), 1);
    layout->addLayout(first);
    auto* second = bare<QHBoxLayout>(nullptr);
    second->addWidget(titled_combo("LVD", form.Combo_LVD_91X, bindings, area), 1);
    second->addWidget(titled_combo("WUR", form.Combo_WUR_63X, bindings, area), 1);
    layout->addLayout(second);
    auto* third = bare<QHBoxLayout>(nullptr);
    third->addWidget(labelled_combo(form.Label11[0], form.Combo_FCAL, bindings, area), 1);
    third->addWidget(labelled_combo(form.Label11[1], form.Combo_BOR, bindings, area), 1);
    third->addWidget(labelled_combo(form.Label11[2], form.Combo_POR, bindings, area), 1);
    layout->addLayout(third);

    bindings.follow(form.SSTab91X.Enabled, [area](bool on) { area->setEnabled(on); });
    bindings.follow(form.SSTab91X.Redraw, [area](bool on) { area->setUpdatesEnabled(on); });
    return area;
}

}  // namespace quillon
