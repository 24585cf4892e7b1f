// SPDX-License-Identifier: MIT
// Each kind of control and its widget: a change of one shows in the other.
#include "forms/binders.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>

#include "forms/message_area.h"
#include "forms/theme.h"

namespace quillon::test {
namespace {

struct OneForm : Form {};

// A parent for the widgets: a widget without one would open as a window of its own.
struct Bench {
    OneForm form;
    QWidget parent;
    Bindings bindings;
};

TEST(Bindings, a_widget_has_its_controls_name_and_state_from_the_start) {
    Bench bench;
    Button control{bench.form, "Command_blank", "ブランクチェック(&B)"};
    control.Enabled.set(false);
    auto* widget = new QPushButton{&bench.parent};
    bench.bindings.bind(control, *widget);
    EXPECT_EQ(widget->objectName(), "Command_blank");
    EXPECT_EQ(widget->text(), "ブランクチェック(&B)");
    EXPECT_FALSE(widget->isEnabled());
}

TEST(Bindings, any_control_is_disabled_and_hidden_with_its_property) {
    Bench bench;
    Label control{bench.form, "Label4", "x"};
    auto* widget = new QLabel{&bench.parent};
    bench.bindings.bind(control, *widget);
    control.Visible.set(false);
    control.Enabled.set(false);
    EXPECT_TRUE(widget->isHidden());
    EXPECT_FALSE(widget->isEnabled());
    control.Visible.set(true);
    EXPECT_FALSE(widget->isHidden());
}

TEST(Bindings, a_label_shows_marks_as_they_are) {
    Bench bench;
    Label control{bench.form, "Label1", "<<注意>> a & b"};
    auto* widget = new QLabel{&bench.parent};
    bench.bindings.bind(control, *widget);
    EXPECT_EQ(widget->text(), "<<注意>> a & b");
    EXPECT_EQ(widget->textFormat(), Qt::PlainText);
}

TEST(Bindings, a_text_box_goes_both_ways) {
    Bench bench;
    TextBox control{bench.form, "Text_ID", "FFFF"};
    auto* widget = new QLineEdit{&bench.parent};
    bench.bindings.bind(control, *widget);
    EXPECT_EQ(widget->text(), "FFFF");
    control.Text.set("1234");
    EXPECT_EQ(widget->text(), "1234");
    widget->selectAll();
    QTest::keyClicks(widget, "8");
    EXPECT_EQ(control.Text.get(), "8");
}

TEST(Bindings, a_text_box_keeps_its_length_and_shows_what_a_longer_one_allows) {
    Bench bench;
    TextBox control{bench.form, "Text_ID", "FFFF"};
    control.MaxLength.set(4);
    auto* widget = new QLineEdit{&bench.parent};
    bench.bindings.bind(control, *widget);
    QTest::keyClicks(widget, "12");
    EXPECT_EQ(control.Text.get(), "FFFF");
    control.Text.set("FFFFFFFF");
    control.MaxLength.set(8);
    EXPECT_EQ(widget->text(), "FFFFFFFF");
    EXPECT_EQ(control.Text.get(), "FFFFFFFF");
}

TEST(Bindings, a_large_text_is_shown_whole_within_a_blink) {
    Bench bench;
    RichTextBox control{bench.form, "RichTxtPgmMem"};
    auto* widget = new QPlainTextEdit{&bench.parent};
    bench.bindings.bind(control, *widget);
    std::string text;
    for (int line = 0; line < 8192; ++line)
        text += "00FFF8: 3FFF 3FFF 3FFF 3FFF 3FFF 3FFF 3FFF 3FFF ................\n";
    QElapsedTimer timer;
    timer.start();
    control.Text.set(text);
#if !defined(__SANITIZE_ADDRESS__)
    EXPECT_LT(timer.elapsed(), 50);
#endif
    EXPECT_EQ(widget->blockCount(), 8193);
    EXPECT_TRUE(widget->isReadOnly());
}

TEST(Bindings, a_text_that_grows_is_shown_from_its_first_new_line_and_any_other_from_the_top) {
    Bench bench;
    RichTextBox control{bench.form, "RichTxtPgmMem"};
    auto* widget = new QPlainTextEdit{&bench.parent};
    bench.bindings.bind(control, *widget);
    widget->resize(300, 120);
    bench.parent.show();
    std::string image;
    for (int line = 0; line < 100; ++line) image += "image\n";
    control.Text.set(image);
    EXPECT_EQ(widget->verticalScrollBar()->value(), 0);
    std::string list;
    for (int line = 0; line < 100; ++line) list += "Error\r\n";
    control.Text.set(image + list);
    EXPECT_EQ(widget->verticalScrollBar()->value(), 100);
    control.Text.set("other");
    EXPECT_EQ(widget->verticalScrollBar()->value(), 0);
    // An empty text can't grow: what follows is a new text.
    control.Text.set("");
    control.Text.set(image);
    EXPECT_EQ(widget->verticalScrollBar()->value(), 0);
}

TEST(Bindings, a_label_has_room_for_what_hangs_below_its_line) {
    Bench bench;
    Label control{bench.form, "Lbl_div", "ID_Dev"};
    auto* widget = new QLabel{&bench.parent};
    bench.bindings.bind(control, *widget);
    const QFontMetrics metrics{widget->font()};
    const int below = metrics.tightBoundingRect("gjpqy_").bottom() + 1;
    EXPECT_GE(widget->sizeHint().height(), metrics.ascent() + below);
    EXPECT_EQ(overhang(widget->font()), std::max(0, below - metrics.descent()));
}

TEST(Bindings, a_check_box_goes_both_ways) {
    Bench bench;
    CheckBox control{bench.form, "Check_Parity_Disp", "parity"};
    auto* widget = new QCheckBox{&bench.parent};
    bench.bindings.bind(control, *widget);
    control.Checked.set(true);
    EXPECT_TRUE(widget->isChecked());
    widget->click();
    EXPECT_FALSE(control.Checked.get());
}

TEST(Bindings, an_act_that_the_gate_refuses_leaves_the_widget_as_its_control) {
    OneForm form;
    QWidget parent;
    Bindings bindings{[](const std::function<void()>&) {}};
    CheckBox box{form, "Chk_UseFileData"};
    ComboBox combo{form, "Combo_BOR"};
    combo.Items.set({"000", "001"});
    combo.show(0);
    auto* box_widget = new QCheckBox{&parent};
    auto* combo_widget = new QComboBox{&parent};
    bindings.bind(box, *box_widget);
    bindings.bind(combo, *combo_widget);
    box_widget->click();
    combo_widget->setCurrentIndex(1);
    Q_EMIT combo_widget->activated(1);
    EXPECT_FALSE(box_widget->isChecked());
    EXPECT_FALSE(box.Checked.get());
    EXPECT_EQ(combo_widget->currentIndex(), 0);
    EXPECT_EQ(combo.ListIndex.get(), 0);
}

TEST(Bindings, a_combo_goes_both_ways_and_a_choice_fires_its_click) {
    Bench bench;
    ComboBox control{bench.form, "Combo_device"};
    int clicks = 0;
    control.Click = [&clicks] { ++clicks; };
    auto* widget = new QComboBox{&bench.parent};
    bench.bindings.bind(control, *widget);
    control.Items.set({"PIC16F84A", "PIC16F877A"});
    EXPECT_EQ(widget->count(), 2);
    EXPECT_EQ(widget->currentIndex(), -1);
    control.show(1);
    EXPECT_EQ(widget->currentText(), "PIC16F877A");
    EXPECT_EQ(clicks, 0);
    widget->setFocus();
    QTest::keyClick(widget, Qt::Key_Up);
    EXPECT_EQ(control.Text.get(), "PIC16F84A");
    EXPECT_EQ(control.ListIndex.get(), 0);
    EXPECT_EQ(clicks, 1);
}

TEST(Bindings, a_menu_entry_follows_its_control) {
    Bench bench;
    MenuItem control{bench.form, "mnuBlankSkip", "skip"};
    QMenu menu;
    auto* action = menu.addAction("");
    action->setCheckable(true);
    bench.bindings.bind(control, *action);
    control.Checked.set(true);
    control.Enabled.set(false);
    control.Visible.set(false);
    EXPECT_EQ(action->objectName(), "mnuBlankSkip");
    EXPECT_EQ(action->text(), "skip");
    EXPECT_TRUE(action->isChecked());
    EXPECT_FALSE(action->isEnabled());
    EXPECT_FALSE(action->isVisible());
}

TEST(Bindings, a_grid_shows_row_0_as_its_heading_and_follows_its_cells) {
    Bench bench;
    Grid control{bench.form, "HFGrid(1)"};
    auto* widget = new QTableWidget{&bench.parent};
    bench.bindings.bind(control, *widget);
    control.set_cell(0, 0, "ｺﾝﾌｨｸﾞ1");
    control.set_cell(0, 1, "0x3F72");
    control.set_cell(1, 0, "FOSC");
    control.set_cell(1, 1, "HS");
    EXPECT_EQ(widget->horizontalHeaderItem(0)->text(), "ｺﾝﾌｨｸﾞ1");
    EXPECT_EQ(widget->horizontalHeaderItem(1)->text(), "0x3F72");
    ASSERT_EQ(widget->rowCount(), 1);
    EXPECT_EQ(widget->item(0, 0)->text(), "FOSC");
    EXPECT_EQ(widget->item(0, 1)->text(), "HS");
    control.clear();
    EXPECT_EQ(widget->rowCount(), 0);
}

TEST(Bindings, the_cursor_of_a_grid_goes_both_ways_counted_from_the_heading) {
    Bench bench;
    Grid control{bench.form, "HFGrid(1)"};
    for (std::size_t row = 0; row < 4; ++row) control.set_cell(row, 0, std::to_string(row));
    auto* widget = new QTableWidget{&bench.parent};
    bench.bindings.bind(control, *widget);
    control.CursorRow.set(2);
    EXPECT_EQ(widget->currentRow(), 1);
    widget->setCurrentCell(2, 1);
    EXPECT_EQ(control.CursorRow.get(), 3);
    EXPECT_EQ(control.CursorColumn.get(), 1);
}

TEST(Bindings, a_tab_set_goes_both_ways_and_hides_tabs) {
    Bench bench;
    TabSet control{bench.form, "SSTab_Config"};
    control.TabVisible.set({true, true, false});
    auto* widget = new QTabWidget{&bench.parent};
    for (int tab = 0; tab < 3; ++tab) widget->addTab(new QWidget, QString::number(tab));
    bench.bindings.bind(control, *widget);
    EXPECT_TRUE(widget->isTabVisible(1));
    EXPECT_FALSE(widget->isTabVisible(2));
    control.Tab.set(1);
    EXPECT_EQ(widget->currentIndex(), 1);
    widget->setCurrentIndex(0);
    EXPECT_EQ(control.Tab.get(), 0);
}

TEST(Bindings, a_tab_set_shows_what_changed_without_drawing_once_it_draws_again) {
    Bench bench;
    TabSet control{bench.form, "SSTab_Config"};
    control.TabVisible.set({true, true, true});
    auto* widget = new QTabWidget{&bench.parent};
    for (int tab = 0; tab < 3; ++tab) widget->addTab(new QWidget, QString::number(tab));
    bench.bindings.bind(control, *widget);
    control.Redraw.set(false);
    control.Tab.set(1);
    for (std::size_t tab = 0; tab < 3; ++tab) control.show_tab(tab, false);
    control.show_tab(1, true);
    EXPECT_TRUE(widget->isTabVisible(0));
    control.Redraw.set(true);
    EXPECT_FALSE(widget->isTabVisible(0));
    EXPECT_TRUE(widget->isTabVisible(1));
    EXPECT_FALSE(widget->isTabVisible(2));
    EXPECT_EQ(widget->currentIndex(), 1);
    EXPECT_EQ(control.Tab.get(), 1);
}

TEST(Bindings, hiding_the_tabs_for_a_new_device_moves_no_tab_by_itself) {
    Bench bench;
    TabSet control{bench.form, "SSTab_Config"};
    control.TabVisible.set({true, true, true});
    auto* widget = new QTabWidget{&bench.parent};
    for (int tab = 0; tab < 3; ++tab) widget->addTab(new QWidget, QString::number(tab));
    bench.bindings.bind(control, *widget);
    control.TabVisible.set({});
    EXPECT_EQ(control.Tab.get(), 0);
    control.TabVisible.set({true, true, true});
    EXPECT_EQ(widget->currentIndex(), 0);
}

TEST(Bindings, a_progress_bar_follows_its_range_and_value) {
    Bench bench;
    ProgressBar control{bench.form, "P_Bar"};
    auto* widget = new QProgressBar{&bench.parent};
    bench.bindings.bind(control, *widget);
    EXPECT_TRUE(widget->isHidden());
    control.Max.set(8192);
    control.Value.set(4096);
    control.Visible.set(true);
    EXPECT_EQ(widget->maximum(), 8192);
    EXPECT_EQ(widget->value(), 4096);
    EXPECT_FALSE(widget->isHidden());
    // A range that excludes the value for a moment doesn't lose it.
    control.Max.set(256);
    control.Max.set(8192);
    EXPECT_EQ(widget->value(), 4096);
}

TEST(Bindings, a_shape_is_shown_and_hidden) {
    Bench bench;
    Shape control{bench.form, "Shape_40P"};
    auto* widget = new QWidget{&bench.parent};
    bench.bindings.bind(control, *widget);
    control.Visible.set(false);
    EXPECT_TRUE(widget->isHidden());
}

TEST(Bindings, the_board_label_takes_the_colour_of_a_board_that_has_answered) {
    Bench bench;
    Label control{bench.form, "Label_FirmwareVersion", "COM3 : ZQ-LDR412A V6.80"};
    auto* widget = new QPushButton{&bench.parent};
    bench.bindings.bind(control, *widget);
    control.BackColor.set(Colour::Found);
    EXPECT_EQ(widget->palette().color(QPalette::Button), QColor(255, 224, 192));
    EXPECT_GT(contrast(widget->palette().color(QPalette::ButtonText), QColor(255, 224, 192)), 4.5);
    control.BackColor.set(Colour::ButtonFace);
    EXPECT_EQ(widget->palette().color(QPalette::Button),
              bench.parent.palette().color(QPalette::Button));
}

TEST(MessageArea, shows_lines_of_either_line_end_and_a_red_message_in_red) {
    Bench bench;
    Label control{bench.form, "LabelCmt"};
    auto* widget = new MessageArea{&bench.parent};
    bench.bindings.bind(control, *widget);
    control.Caption.set("first\r\nsecond\rthird");
    control.ForeColor.set(Colour::Red);
    EXPECT_EQ(widget->toPlainText(), "first\nsecond\nthird");
    EXPECT_EQ(widget->palette().color(QPalette::Text),
              text_colour(Colour::Red, bench.parent.palette()));
    control.ForeColor.set(Colour::Black);
    EXPECT_EQ(widget->palette().color(QPalette::Text),
              bench.parent.palette().color(QPalette::Text));
}

TEST(MessageArea, keeps_its_colour_right_when_the_theme_turns_dark) {
    Bench bench;
    Label control{bench.form, "LabelCmt", "error"};
    auto* widget = new MessageArea{&bench.parent};
    bench.bindings.bind(control, *widget);
    control.ForeColor.set(Colour::Red);
    const QColor light = widget->palette().color(QPalette::Text);
    QPalette dark;
    dark.setColor(QPalette::Window, QColor{30, 30, 30});
    dark.setColor(QPalette::WindowText, QColor{230, 230, 230});
    dark.setColor(QPalette::Base, QColor{20, 20, 20});
    bench.parent.setPalette(dark);
    EXPECT_NE(widget->palette().color(QPalette::Text), light);
    EXPECT_GT(contrast(widget->palette().color(QPalette::Text), QColor(20, 20, 20)), 4.5);
}

TEST(theme, red_can_be_read_on_a_light_and_on_a_dark_ground) {
    QPalette light;
    light.setColor(QPalette::Window, Qt::white);
    light.setColor(QPalette::WindowText, Qt::black);
    QPalette dark;
    dark.setColor(QPalette::Window, QColor{35, 38, 41});
    dark.setColor(QPalette::WindowText, Qt::white);
    EXPECT_FALSE(is_dark(light));
    EXPECT_TRUE(is_dark(dark));
    EXPECT_GT(contrast(text_colour(Colour::Red, light), Qt::white), 4.5);
    EXPECT_GT(contrast(text_colour(Colour::Red, dark), QColor(27, 30, 32)), 4.5);
}

TEST(theme, fonts_name_a_japanese_family_first_and_keep_the_desktops_size) {
    QFont desktop{"Sans", 13};
    EXPECT_EQ(window_font(desktop).families().first(), "BIZ UDPGothic");
    EXPECT_EQ(fixed_font(desktop).families().first(), "BIZ UDGothic");
    EXPECT_EQ(window_font(desktop).pointSize(), 13);
    EXPECT_EQ(fixed_font(desktop).pointSize(), 13);
}

}  // namespace
}  // namespace quillon::test
