// SPDX-License-Identifier: MIT
// The panels of the main window: the device list, the configuration grids, the memory views.
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QCompleter>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>
#include <QWheelEvent>
#include <algorithm>

#include "app/text.h"
#include "form_bench.h"

namespace quillon::test {
namespace {

void type_device(FormBench& bench, const char* text) {
    auto* box = bench.find<QComboBox>("Combo_device");
    box->setFocus();
    box->lineEdit()->selectAll();
    QTest::keyClicks(box->lineEdit(), text);
}

TEST(Combo_device, typing_any_part_of_a_name_lists_the_names_that_hold_it) {
    FormBench bench;
    type_device(bench, "f675");
    auto* names = bench.find<QComboBox>("Combo_device")->completer();
    EXPECT_GE(names->completionCount(), 1);
    for (int i = 0; names->setCurrentRow(i); ++i)
        EXPECT_TRUE(names->currentCompletion().contains("F675")) << i;
}

TEST(Combo_device, return_selects_the_typed_device_whatever_its_case) {
    FormBench bench;
    type_device(bench, "pic12f675");
    EXPECT_EQ(bench.run->session.DeviceName, "PIC16F877A");
    QTest::keyClick(bench.find<QComboBox>("Combo_device"), Qt::Key_Return);
    EXPECT_EQ(bench.run->session.DeviceName, "PIC12F675");
    EXPECT_EQ(bench.find<QComboBox>("Combo_device")->lineEdit()->text(), "PIC12F675");
    EXPECT_EQ(bench.run->form.Combo_device.ListIndex.get(),
              bench.find<QComboBox>("Combo_device")->currentIndex());
}

TEST(Combo_device, return_takes_a_whole_name_without_its_PIC_though_longer_names_hold_it) {
    FormBench bench;
    type_device(bench, "16F877");
    QTest::keyClick(bench.find<QComboBox>("Combo_device"), Qt::Key_Return);
    EXPECT_EQ(bench.run->session.DeviceName, "PIC16F877");
    EXPECT_EQ(bench.find<QComboBox>("Combo_device")->lineEdit()->text(), "PIC16F877");
}

TEST(Combo_device, return_takes_the_only_name_that_holds_what_was_typed) {
    FormBench bench;
    type_device(bench, "628a");
    QTest::keyClick(bench.find<QComboBox>("Combo_device"), Qt::Key_Return);
    EXPECT_EQ(bench.run->session.DeviceName, "PIC16F628A");
}

TEST(Combo_device, a_name_that_stands_for_several_or_for_none_selects_nothing) {
    FormBench bench;
    for (const char* text : {"PIC16F", "nonsense"}) {
        type_device(bench, text);
        QTest::keyClick(bench.find<QComboBox>("Combo_device"), Qt::Key_Return);
        EXPECT_EQ(bench.run->session.DeviceName, "PIC16F877A") << text;
        EXPECT_TRUE(bench.message().starts_with("「" + std::string{text} + "」に該当するデバイス"))
            << bench.message();
        EXPECT_EQ(bench.find<QComboBox>("Combo_device")->lineEdit()->text(), "PIC16F877A");
    }
}

TEST(Combo_device, return_on_the_selected_name_keeps_the_image) {
    FormBench bench;
    bench.run->session.PgmMem[0] = 0x12;
    auto* box = bench.find<QComboBox>("Combo_device");
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_EQ(bench.run->session.PgmMem[0], 0x12);
}

TEST(Combo_device, the_wheel_selects_nothing) {
    FormBench bench;
    auto* box = bench.find<QComboBox>("Combo_device");
    QWheelEvent wheel{{5, 5},
                      box->mapToGlobal(QPointF{5, 5}),
                      {},
                      {0, -240},
                      Qt::NoButton,
                      Qt::NoModifier,
                      Qt::NoScrollPhase,
                      false};
    QApplication::sendEvent(box, &wheel);
    EXPECT_EQ(bench.run->session.DeviceName, "PIC16F877A");
}

TEST(Combo_device, escape_puts_the_selected_name_back) {
    FormBench bench;
    type_device(bench, "xyz");
    auto* box = bench.find<QComboBox>("Combo_device");
    QTest::keyClick(box, Qt::Key_Escape);
    EXPECT_EQ(box->lineEdit()->text(), "PIC16F877A");
}

// The grid's row of a field, counted from 0.
int row_of(const QTableWidget& grid, const QString& field) {
    for (int row = 0; row < grid.rowCount(); ++row)
        if (grid.item(row, 0)->text() == field) return row;
    ADD_FAILURE() << "no field " << field.toStdString();
    return 0;
}

TEST(HFGrid, shows_the_tabs_fields_and_word_of_the_device) {
    FormBench bench;
    auto* grid = bench.find<QTableWidget>("HFGrid(1)");
    EXPECT_EQ(grid->horizontalHeaderItem(1)->text().toStdString(),
              "0x" + hex(bench.run->session.ConfigWord[1], 4));
    EXPECT_EQ(
        grid->item(row_of(*grid, "WDTE"), 1)->text().toStdString(),
        bench.run->form.HFGrid(1).cell(static_cast<std::size_t>(row_of(*grid, "WDTE")) + 1, 1));
    auto* tabs = bench.find<QTabWidget>("SSTab_Config");
    EXPECT_TRUE(tabs->isTabVisible(0));
    EXPECT_FALSE(tabs->isTabVisible(1));
}

TEST(HFGrid, an_option_is_chosen_by_keyboard_alone) {
    FormBench bench;
    auto* grid = bench.find<QTableWidget>("HFGrid(1)");
    auto* list = bench.find<QComboBox>("CmbInit");
    const int row = row_of(*grid, "WDTE");
    const std::uint32_t before = bench.run->session.ConfigWord[1];
    grid->setFocus();
    grid->setCurrentCell(row, 0);
    QTest::keyClick(grid, Qt::Key_Return);
    ASSERT_TRUE(list->isVisible());
    const int other = list->currentIndex() == 0 ? 1 : 0;
    QTest::keyClick(list->view(), other == 0 ? Qt::Key_Up : Qt::Key_Down);
    QTest::keyClick(list->view(), Qt::Key_Return);
    EXPECT_EQ(bench.run->session.ConfigWord[1], before ^ 0x0004U);
    EXPECT_FALSE(list->isVisible());
    EXPECT_EQ(grid->horizontalHeaderItem(1)->text().toStdString(), "0x" + hex(before ^ 0x0004U, 4));
    EXPECT_EQ(bench.window->focusWidget(), grid);
}

TEST(HFGrid, an_option_is_chosen_by_mouse) {
    FormBench bench;
    auto* grid = bench.find<QTableWidget>("HFGrid(1)");
    auto* list = bench.find<QComboBox>("CmbInit");
    const std::uint32_t before = bench.run->session.ConfigWord[1];
    const QRect cell = grid->visualItemRect(grid->item(row_of(*grid, "WDTE"), 1));
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, cell.center());
    ASSERT_TRUE(list->isVisible());
    EXPECT_TRUE(cell.contains(list->geometry()));
    const int other = list->currentIndex() == 0 ? 1 : 0;
    const QRect entry = list->view()->visualRect(list->model()->index(other, 0));
    QTest::mouseMove(list->view()->viewport(), entry.center());
    QTest::mouseClick(list->view()->viewport(), Qt::LeftButton, {}, entry.center());
    QApplication::processEvents();
    EXPECT_EQ(bench.run->session.ConfigWord[1], before ^ 0x0004U);
    EXPECT_FALSE(list->isVisible());
}

TEST(HFGrid, escape_leaves_the_option_as_it_was) {
    FormBench bench;
    auto* grid = bench.find<QTableWidget>("HFGrid(1)");
    auto* list = bench.find<QComboBox>("CmbInit");
    const std::uint32_t before = bench.run->session.ConfigWord[1];
    grid->setFocus();
    grid->setCurrentCell(row_of(*grid, "WDTE"), 1);
    QTest::keyClick(grid, Qt::Key_F2);
    ASSERT_TRUE(list->isVisible());
    QTest::keyClick(list->view(), Qt::Key_Escape);
    QTest::qWait(1);
    EXPECT_FALSE(list->isVisible());
    EXPECT_EQ(bench.run->session.ConfigWord[1], before);
    EXPECT_EQ(bench.window->focusWidget(), grid);
}

TEST(HFGrid, a_hexadecimal_digit_opens_the_free_entry_over_the_option) {
    FormBench bench;
    auto* grid = bench.find<QTableWidget>("HFGrid(1)");
    auto* entry = bench.find<QLineEdit>("TxtInit");
    const int row = row_of(*grid, "WDTE");
    const QString option = grid->item(row, 1)->text();
    grid->setFocus();
    grid->setCurrentCell(row, 1);
    QTest::keyClick(grid, 'b');
    ASSERT_TRUE(entry->isVisible());
    EXPECT_TRUE(grid->visualItemRect(grid->item(row, 1)).contains(entry->geometry()));
    EXPECT_EQ(bench.window->focusWidget(), entry);
    QTest::keyClicks(entry, "4x");
    EXPECT_EQ(entry->text(), "B4");
    QTest::keyClick(entry, Qt::Key_Return);
    EXPECT_FALSE(entry->isVisible());
    EXPECT_EQ(grid->item(row, 1)->text(), option + "B4");
    EXPECT_EQ(bench.window->focusWidget(), grid);
}

TEST(HFGrid, escape_or_another_widget_leaves_the_free_entry_and_the_option) {
    FormBench bench;
    auto* grid = bench.find<QTableWidget>("HFGrid(1)");
    auto* entry = bench.find<QLineEdit>("TxtInit");
    const int row = row_of(*grid, "WDTE");
    const QString option = grid->item(row, 1)->text();
    const auto open = [&] {
        grid->setFocus();
        grid->setCurrentCell(row, 1);
        QTest::keyClick(grid, '1');
        return entry->isVisible();
    };
    ASSERT_TRUE(open());
    QTest::keyClick(entry, Qt::Key_Escape);
    EXPECT_FALSE(entry->isVisible());
    EXPECT_EQ(bench.window->focusWidget(), grid);
    ASSERT_TRUE(open());
    bench.find<QPlainTextEdit>("RichTxtPgmMem")->setFocus();
    EXPECT_FALSE(entry->isVisible());
    EXPECT_EQ(grid->item(row, 1)->text(), option);
    EXPECT_FALSE(bench.run->form.TxtInit.Visible.get());
}

TEST(HFGrid, other_keys_and_shortcuts_open_no_entry) {
    FormBench bench;
    auto* grid = bench.find<QTableWidget>("HFGrid(1)");
    grid->setFocus();
    grid->setCurrentCell(0, 0);
    QTest::keyClick(grid, 'w');
    EXPECT_EQ(grid->currentRow(), row_of(*grid, "WDTE"));
    QTest::keyClick(grid, Qt::Key_C, Qt::ControlModifier);
    EXPECT_FALSE(bench.find<QLineEdit>("TxtInit")->isVisible());
}

TEST(HFGrid, a_click_on_a_fields_name_opens_nothing) {
    FormBench bench;
    auto* grid = bench.find<QTableWidget>("HFGrid(1)");
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {},
                      grid->visualItemRect(grid->item(0, 0)).center());
    EXPECT_FALSE(bench.find<QComboBox>("CmbInit")->isVisible());
}

TEST(HFGrid, a_field_has_its_help_line_as_tooltip) {
    FormBench bench;
    auto* grid = bench.find<QTableWidget>("HFGrid(1)");
    EXPECT_FALSE(grid->item(row_of(*grid, "WDTE"), 0)->toolTip().isEmpty());
}

TEST(Text_Config1, is_there_with_its_label_for_all_but_a_pic18) {
    FormBench bench;
    const auto shown = [&](const char* name) {
        auto* box = bench.find<QLineEdit>(name);
        const auto labels = bench.window->findChildren<QLabel*>();
        const auto label = std::ranges::find(labels, box, &QLabel::buddy);
        return label != labels.end() && (*label)->isVisible() && box->isVisible();
    };
    EXPECT_TRUE(shown("Text_Config1") && shown("Text_Config2"));
    bench.select("PIC18F2550");
    EXPECT_FALSE(shown("Text_Config1") || shown("Text_Config2"));
    for (const auto* label : bench.window->findChildren<QLabel*>())
        EXPECT_FALSE(label->isVisible() && label->text().contains("CFG"));
    bench.select("PIC16F887");
    EXPECT_TRUE(shown("Text_Config1") && shown("Text_Config2"));
}

TEST(Text_Config1, a_click_shows_the_words_in_binary_and_another_in_hexadecimal) {
    FormBench bench{"PIC16F877A"};
    auto* box = bench.find<QLineEdit>("Text_Config1");
    const QString word = box->text();
    EXPECT_EQ(word.size(), 4);
    QTest::mouseClick(box, Qt::LeftButton);
    EXPECT_EQ(box->text().remove(' ').toInt(nullptr, 2), word.toInt(nullptr, 16));
    EXPECT_EQ(box->text().size(), 17);
    EXPECT_GE(box->contentsRect().width(), box->fontMetrics().horizontalAdvance(box->text()));
    QTest::mouseClick(box, Qt::LeftButton);
    EXPECT_EQ(box->text(), word);
}

TEST(Text_Config1, a_click_tells_of_the_display) {
    FormBench bench;
    QTest::mouseClick(bench.find<QLineEdit>("Text_Config1"), Qt::LeftButton);
    EXPECT_EQ(bench.message(),
              "コンフィギュレーションデータ表示。クリックでの１６ or ２進数表示を切り替えます。"
              "変更は左側のデバイス設定で行います。 ");
}

TEST(Text_ID, takes_hexadecimal_digits_only_and_makes_them_capitals) {
    FormBench bench;
    auto* box = bench.find<QLineEdit>("Text_ID");
    box->selectAll();
    QTest::keyClicks(box, "1gaz-fF");
    EXPECT_EQ(box->text(), "1AFF");
    EXPECT_EQ(bench.run->form.Text_ID.Text.get(), "1AFF");
}

TEST(RichTxtPgmMem, a_text_is_found_again_from_the_top_and_a_missing_one_is_told) {
    FormBench bench;
    auto* view = bench.find<QPlainTextEdit>("RichTxtPgmMem");
    view->setFocus();
    bench.find<QMenu>("edit_menu");
    auto* text = bench.find<QLineEdit>("find_text");
    QTest::keyClick(bench.window.get(), Qt::Key_F, Qt::ControlModifier);
    ASSERT_TRUE(text->isVisible());
    QTest::keyClicks(text, "000010:");
    EXPECT_EQ(view->textCursor().selectedText(), "000010:");
    EXPECT_EQ(view->textCursor().blockNumber(), 2);
    QTest::keyClick(text, Qt::Key_Return);
    EXPECT_EQ(view->textCursor().blockNumber(), 2);
    text->selectAll();
    QTest::keyClicks(text, "QQQQ");
    EXPECT_EQ(text->parentWidget()->findChildren<QLabel*>().last()->text(), "見つかりません");
    QTest::keyClick(text, Qt::Key_Escape);
    EXPECT_FALSE(text->isVisible());
    EXPECT_EQ(bench.window->focusWidget(), view);
}

TEST(RichTxtPgmMem, a_selection_is_copied) {
    FormBench bench;
    auto* view = bench.find<QPlainTextEdit>("RichTxtPgmMem");
    view->setFocus();
    QTextCursor cursor = view->textCursor();
    cursor.movePosition(QTextCursor::Start);
    cursor.movePosition(QTextCursor::Right, QTextCursor::KeepAnchor, 12);
    view->setTextCursor(cursor);
    QTest::keyClick(view, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "000000: 3FFF");
}

TEST(rText_EepromMem, is_there_for_a_device_with_eeprom_only) {
    FormBench bench{"PIC16F877A"};
    EXPECT_TRUE(bench.find<QPlainTextEdit>("rText_EepromMem")->isVisible());
    bench.select("PIC16F716");
    EXPECT_FALSE(bench.find<QPlainTextEdit>("rText_EepromMem")->isVisible());
}

TEST(InfoPanel, shows_the_calibration_of_a_device_that_has_one_and_nothing_else) {
    FormBench bench{"PIC12F675"};
    EXPECT_TRUE(bench.find<QLineEdit>("Text_Calib_Data")->isVisible());
    EXPECT_TRUE(bench.find<QLineEdit>("Text_BG")->isVisible());
    EXPECT_FALSE(bench.find<QLineEdit>("Text_OSCCAL_Data")->isVisible());
    EXPECT_FALSE(bench.find<QCheckBox>("Check_Parity_Disp")->isVisible());
    bench.select("PIC16F877A");
    EXPECT_FALSE(bench.find<QLineEdit>("Text_Calib_Data")->isVisible());
    EXPECT_FALSE(bench.find<QLineEdit>("Text_ID1")->isVisible());
    bench.select("PIC18F2550");
    EXPECT_TRUE(bench.find<QLabel>("Label_DEV_id")->isVisible());
}

}  // namespace
}  // namespace quillon::test
