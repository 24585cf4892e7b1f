// SPDX-License-Identifier: MIT
// What else a newly chosen device changes in the window: the board's drawing, the grids, a box for
// a damaged block. Also how soon the window is ready.
#include <gtest/gtest.h>

#include <QDialog>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QTableWidget>
#include <QTimer>

#include "device_panels.h"
#include "forms/qt_dialogs.h"

namespace quillon::test {
namespace {

class chosen_device : public DevicePanels {};

TEST_F(chosen_device, has_its_socket_and_jumper_on_the_board) {
    struct Place {
        const char* device;
        const char* socket;
        const char* jumper;
    };
    bench().run->board.Visible.set(true);
    for (const auto& [device, socket, jumper] :
         {Place{"PIC12F675", "Shape_8P", "Label_sel"}, Place{"PIC16F84A", "Shape_18P", "Shape_12"},
          Place{"PIC18F2550", "Shape_28P", "Shape_23"}, Place{"PIC16C55", "Shape_28AP", "Shape_12"},
          Place{"PIC16F877A", "Shape_40P", "Shape_23"}}) {
        bench().run->form.mnuBoardInfomation.Checked.set(true);
        ASSERT_NO_FATAL_FAILURE(choose(device));
        expect_shown("frmBoard", true);
        for (const std::string_view name :
             {"Shape_8P", "Shape_18P", "Shape_28P", "Shape_28AP", "Shape_40P"})
            expect_shown(name.data(), name == socket);
        for (const std::string_view name : {"Shape_12", "Shape_23", "Label_sel"})
            expect_shown(name.data(), name == jumper);
    }
    expect_caption("Label_sel", "どちらでも可");
    bench().run->form.mnuBoardInfomation.Checked.set(false);
    ASSERT_NO_FATAL_FAILURE(choose("PIC16F84A"));
    expect_shown("frmBoard", false);
}

TEST_F(chosen_device, shows_the_board_where_it_last_stood) {
    bench().window->move(0, 450);   // leaves the board's place free
    bench().run->board.Left = 900;  // twips, 15 to a pixel
    bench().run->board.Top = 600;
    bench().run->form.mnuBoardInfomation.Checked.set(true);
    ASSERT_NO_FATAL_FAILURE(choose("PIC18F452"));
    const auto* board = bench().window->findChild<QWidget*>("frmBoard");
    EXPECT_TRUE(board->isVisible());
    EXPECT_FALSE(dynamic_cast<const QDialog&>(*board).isModal());
    EXPECT_EQ(board->parentWidget(), bench().window.get());
    EXPECT_EQ(board->pos(), QPoint(60, 40));
    bench().run->form.mnuBoardInfomation.Checked.set(false);
    ASSERT_NO_FATAL_FAILURE(choose("PIC16F877A"));
    EXPECT_FALSE(board->isVisible());
}

TEST_F(chosen_device, gives_the_field_s_name_30_percent_of_the_grid_and_the_option_70) {
    ASSERT_NO_FATAL_FAILURE(choose("PIC16F877A"));
    const auto* grid = bench().find<QTableWidget>("HFGrid(1)");
    const int width = grid->viewport()->width();
    ASSERT_GT(width, 50);
    EXPECT_NEAR(grid->columnWidth(0), width * 0.3, 1);
    EXPECT_EQ(grid->columnWidth(0) + grid->columnWidth(1), width);
    EXPECT_EQ(grid->horizontalHeaderItem(0)->text().toStdString(), "ｺﾝﾌｨｸﾞ1");
    EXPECT_EQ(grid->horizontalHeader()->defaultAlignment(), Qt::AlignCenter);
}

TEST_F(chosen_device, takes_a_free_entry_in_hexadecimal_digits_behind_the_option) {
    ASSERT_NO_FATAL_FAILURE(choose("PIC16F877A"));
    auto* grid = bench().find<QTableWidget>("HFGrid(1)");
    auto* entry = bench().find<QLineEdit>("TxtInit");
    grid->setCurrentCell(0, 1);
    const auto option = grid->item(0, 1)->text();
    bench().run->form.TxtInit.Text.set("");
    bench().run->form.TxtInit.Visible.set(true);
    ASSERT_TRUE(entry->isVisible());
    QTest::keyClicks(entry, "gx-c");
    EXPECT_EQ(entry->text(), "C");
    QTest::keyClick(entry, Qt::Key_Backspace);
    QTest::keyClicks(entry, "a");
    QTest::keyClick(entry, Qt::Key_Return);
    EXPECT_FALSE(entry->isVisible());
    EXPECT_EQ(grid->item(0, 1)->text(), option.left(8) + "0A");
}

TEST_F(chosen_device, outlives_a_catalogue_that_somebody_damages_meanwhile) {
    const std::string former = session().CatalogueFile;
    const auto damaged =
        bench().folder.write("damaged.ini",
                             "#BEGIN\nPIC16F84A\nPGM_TYPE FLASH0\nPGM_SIZE_WORD 8K\n#END\n"
                             "#BEGIN\nPIC16F877A\nPGM_TYPE FLASH8\n");
    session().CatalogueFile = damaged.string();
    for (const auto& [device, words] : std::vector<std::pair<std::string, std::string>>{
             {"PIC16F84A", "4行目 : PGM_SIZE_WORD 8K : 値を読み取れません。"},
             {"PIC16F877A", "EOF を検出しました。"}}) {
        ASSERT_NO_FATAL_FAILURE(choose(device));
        ASSERT_EQ(bench().dialogs.boxes.size(), 1U) << device;
        EXPECT_EQ(bench().dialogs.boxes[0].text,
                  "設定ファイルの読み出しに失敗しました。\r　" + words);
        EXPECT_TRUE(bench().find<QComboBox>("Combo_device")->isEnabled());
        bench().dialogs.boxes.clear();
    }
    session().CatalogueFile = former;
    ASSERT_NO_FATAL_FAILURE(choose_and_compare("PIC16F84A"));
    EXPECT_EQ(session().PgmWords, 1024);
    EXPECT_EQ(bench().find<QTableWidget>("HFGrid(1)")->rowCount(), 4);
}

TEST_F(chosen_device, asks_its_power_question_over_the_middle_of_the_window) {
    QtDialogs dialogs;
    dialogs.attach(*bench().run, bench().window.get());
    bool asked = false;
    QTimer::singleShot(0, qApp, [&asked] {
        QWidget* form = QApplication::activeModalWidget();
        ASSERT_NE(form, nullptr);
        asked = true;
        EXPECT_EQ(form->objectName(), "Frm_VPP_DECIDE");
        EXPECT_TRUE(form->isModal());
        EXPECT_EQ(form->findChild<QLabel*>("Label1")->text(), "PIC16F690は\n二行目");
        const QPoint aside = form->frameGeometry().center() - bench().window->geometry().center();
        EXPECT_LE(aside.manhattanLength(), 40) << aside.x() << ", " << aside.y();
        form->close();
    });
    EXPECT_EQ(dialogs.Frm_VPP_DECIDE("PIC16F690は\r\n二行目"), 0);
    EXPECT_TRUE(asked);
}

TEST_F(chosen_device, is_there_within_the_blink_of_an_eye) {
    // In a release build a user waits 50 ms at most. This build checks every access and is slower.
    constexpr qint64 kMostMilliseconds = 1000;
    for (const char* device : {"PIC18F8722", "PIC16F84A", "ZQ-LDR418"}) {
        QElapsedTimer timer;
        timer.start();
        ASSERT_NO_FATAL_FAILURE(choose(device));
        EXPECT_LT(timer.elapsed(), kMostMilliseconds) << device;
    }
}

}  // namespace
}  // namespace quillon::test
