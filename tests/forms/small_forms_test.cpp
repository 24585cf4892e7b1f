// SPDX-License-Identifier: MIT
// The small forms and the boxes, answered as a user would.
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QCompleter>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <algorithm>

#include "form_bench.h"
#include "forms/Frm_VPP_DECIDE.h"
#include "forms/board_drawing.h"
#include "forms/frmBoard.h"
#include "forms/frmDeviceSelect.h"
#include "forms/frmHint.h"
#include "forms/frmOption.h"
#include "forms/qt_dialogs.h"

namespace quillon::test {
namespace {

// Runs the act in the loop of the next form that opens.
void meanwhile(const std::function<void(QWidget& form)>& act) {
    QTimer::singleShot(0, qApp, [act] {
        QWidget* form = QApplication::activeModalWidget();
        ASSERT_NE(form, nullptr);
        act(*form);
    });
}

void press(QWidget& form, const char* name) {
    auto* button = form.findChild<QAbstractButton*>(name);
    ASSERT_NE(button, nullptr) << name;
    QTest::mouseClick(button, Qt::LeftButton);
}

TEST(frmHint, ok_answers_1_and_cancel_2) {
    QtDialogs dialogs;
    meanwhile([](QWidget& form) {
        EXPECT_EQ(form.windowTitle(), "Quillon");
        EXPECT_EQ(form.findChild<QLabel*>("Label1(0)")->text(), "書込み済みです。");
        EXPECT_EQ(form.findChild<QLabel*>("Label1(1)")->text(), "上書きしますか？");
        press(form, "cmdOK");
    });
    EXPECT_EQ(dialogs.frmHint({"書込み済みです。", "上書きしますか？"}), 1);
    meanwhile([](QWidget& form) { press(form, "cmdCancel"); });
    EXPECT_EQ(dialogs.frmHint({"a", "b"}), 2);
}

TEST(frmHint, return_escape_and_the_close_box_cancel) {
    QtDialogs dialogs;
    meanwhile([](QWidget& form) { QTest::keyClick(&form, Qt::Key_Return); });
    EXPECT_EQ(dialogs.frmHint({"a", "b"}), 2);
    meanwhile([](QWidget& form) { QTest::keyClick(&form, Qt::Key_Escape); });
    EXPECT_EQ(dialogs.frmHint({"a", "b"}), 2);
    meanwhile([](QWidget& form) { form.close(); });
    EXPECT_EQ(dialogs.frmHint({"a", "b"}), 2);
}

TEST(frmHint, the_hint_opens_the_document_and_asks_on) {
    FormBench bench;
    QtDialogs dialogs;
    dialogs.attach(*bench.run, bench.window.get());
    meanwhile([](QWidget& form) {
        EXPECT_EQ(form.findChild<QPushButton*>("CmdHint")->text(), "ヒントを表示");
        press(form, "CmdHint");
        EXPECT_TRUE(form.isVisible());
        press(form, "cmdOK");
    });
    EXPECT_EQ(dialogs.frmHint({"a", "b"}), 1);
    EXPECT_EQ(bench.host.opened, std::vector{bench.run->session.AppPath + "製作確認資料.pdf"});
}

TEST(frmHint, stands_in_the_middle_of_the_main_form) {
    FormBench bench;
    QtDialogs dialogs;
    dialogs.attach(*bench.run, bench.window.get());
    bench.window->resize(bench.window->minimumSizeHint());
    for (const QPoint at : {QPoint{0, 0}, QPoint{-200, 100}}) {
        bench.window->move(at);
        meanwhile([&](QWidget& form) {
            const QPoint off =
                form.frameGeometry().center() - bench.window->frameGeometry().center();
            EXPECT_LE(off.manhattanLength(), 4) << at.x() << "," << at.y();
            form.close();
        });
        dialogs.frmHint({"書込み済みです。", "上書きしますか？"});
    }
}

TEST(frmHint, a_hint_that_cannot_be_opened_is_named_over_the_question) {
    FormBench bench;
    QtDialogs dialogs;
    dialogs.attach(*bench.run, bench.window.get());
    bench.host.opens = false;
    meanwhile([](QWidget& form) {
        press(form, "CmdHint");
        EXPECT_TRUE(form.isVisible());
        press(form, "cmdCancel");
    });
    EXPECT_EQ(dialogs.frmHint({"a", "b"}), 2);
    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    EXPECT_NE(bench.dialogs.boxes[0].text.find("製作確認資料.pdf"), std::string::npos);
}

TEST(Frm_VPP_DECIDE, the_buttons_answer_1_and_2_and_closing_0) {
    QtDialogs dialogs;
    meanwhile([](QWidget& form) {
        EXPECT_EQ(form.findChild<QPushButton*>("Command1")->text(), "VPP-FIRST (推奨)");
        EXPECT_EQ(form.findChild<QPushButton*>("Command2")->text(), "VDD-FIRST");
        press(form, "Command1");
    });
    EXPECT_EQ(dialogs.Frm_VPP_DECIDE("PIC16F690は\r\n"), 1);
    meanwhile([](QWidget& form) { press(form, "Command2"); });
    EXPECT_EQ(dialogs.Frm_VPP_DECIDE("x"), 2);
    meanwhile([](QWidget& form) { QTest::keyClick(&form, Qt::Key_Escape); });
    EXPECT_EQ(dialogs.Frm_VPP_DECIDE("x"), 0);
}

TEST(frmOption, shows_twenty_ports_with_what_is_behind_them_and_opens_the_chosen_one) {
    FormBench bench;
    QtDialogs dialogs;
    dialogs.attach(*bench.run, bench.window.get(), [](int number) {
        return number == 3 ? QStringLiteral("/dev/ttyUSB0") : QString{};
    });
    bench.run->option.Form_Load();
    meanwhile([](QWidget& form) {
        EXPECT_EQ(form.windowTitle(), "通信ポート選択して下さい。");
        EXPECT_EQ(form.findChildren<QRadioButton*>().size(), 20);
        EXPECT_TRUE(form.findChild<QRadioButton*>("Option_Com(0)")->isChecked());
        EXPECT_EQ(form.findChild<QRadioButton*>("Option_Com(2)")->accessibleDescription(),
                  "/dev/ttyUSB0");
        press(form, "Option_Com(2)");
        EXPECT_FALSE(form.findChild<QRadioButton*>("Option_Com(0)")->isChecked());
        press(form, "Command_Ok");
    });
    dialogs.frmOption();
    EXPECT_EQ(bench.run->session.ComNo, 3);
    EXPECT_EQ(bench.store["ComNo"], "3");
    EXPECT_TRUE(bench.port.is_open());
    EXPECT_EQ(bench.message(), "COM3を選択しました。 ");
}

TEST(frmOption, stays_open_after_a_port_that_cannot_be_opened) {
    FormBench bench;
    QtDialogs dialogs;
    dialogs.attach(*bench.run, bench.window.get());
    bench.port.set_open_result(PortOpen::Unavailable);
    bench.run->option.Form_Load();
    meanwhile([](QWidget& form) {
        press(form, "Command_Ok");
        EXPECT_TRUE(form.isVisible());
        press(form, "Command1");
        EXPECT_FALSE(form.isVisible());
    });
    dialogs.frmOption();
    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    EXPECT_EQ(bench.dialogs.boxes[0].title, "COM1　エラー");
}

TEST(frmOption, escape_cancels) {
    FormBench bench;
    QtDialogs dialogs;
    dialogs.attach(*bench.run, bench.window.get());
    bench.run->session.ComNo = 0;
    bench.store.write(Settings::kSection, "ComNo", "0");
    bench.run->option.Form_Load();
    meanwhile([](QWidget& form) { QTest::keyClick(&form, Qt::Key_Escape); });
    dialogs.frmOption();
    EXPECT_EQ(bench.message(), "通信ポートを選択しませんでした。 ");
    EXPECT_FALSE(bench.run->option_form.Visible.get());
}

// Chooses an entry of the list as a click on it would.
void choose_entry(QComboBox& list, const char* entry) {
    list.setCurrentIndex(list.findText(entry));
    Q_EMIT list.activated(list.currentIndex());
}

void type_over(QWidget& form, const char* text) {
    auto* list = form.findChild<QComboBox*>("Combo_device");
    list->setFocus();
    list->lineEdit()->selectAll();
    QTest::keyClicks(list->lineEdit(), text);
}

TEST(frmDeviceSelect, a_typed_name_counts_by_ok_and_by_return) {
    FormBench bench;
    QtDialogs dialogs;
    dialogs.attach(*bench.run, bench.window.get());
    bench.run->session.CommandLine = "X.HEX";
    ASSERT_TRUE(bench.run->device_select.Form_Load());
    meanwhile([](QWidget& form) {
        type_over(form, "12f675");
        QTest::keyClick(form.findChild<QComboBox*>("Combo_device")->completer()->popup(),
                        Qt::Key_Tab);  // to OK, as a user with the mouse would leave the list
        press(form, "OKButton");
        EXPECT_FALSE(form.isVisible());
    });
    dialogs.frmDeviceSelect();
    EXPECT_EQ(bench.run->session.PickedDevice, "PIC12F675");

    ASSERT_TRUE(bench.run->device_select.Form_Load());
    meanwhile([](QWidget& form) {
        type_over(form, "16f84a");
        QTest::keyClick(form.findChild<QComboBox*>("Combo_device"), Qt::Key_Return);
        EXPECT_FALSE(form.isVisible());
    });
    dialogs.frmDeviceSelect();
    EXPECT_EQ(bench.run->session.PickedDevice, "PIC16F84A");
}

TEST(frmDeviceSelect, says_why_a_typed_name_is_not_taken_and_leaves_it_to_be_mended) {
    FormBench bench;
    QtDialogs dialogs;
    dialogs.attach(*bench.run, bench.window.get());
    bench.run->session.CommandLine = "X.HEX";
    ASSERT_TRUE(bench.run->device_select.Form_Load());
    meanwhile([](QWidget& form) {
        type_over(form, "16F999");
        QTest::keyClick(form.findChild<QComboBox*>("Combo_device"), Qt::Key_Return);
        EXPECT_TRUE(form.isVisible());
        EXPECT_EQ(form.findChild<QLabel*>("Notice")->text(),
                  "「16F999」に該当するデバイスはありません。");
        EXPECT_EQ(form.findChild<QComboBox*>("Combo_device")->currentText(), "16F999");
        press(form, "CancelButton");
    });
    dialogs.frmDeviceSelect();
    EXPECT_EQ(bench.run->session.PickedDevice, "");
    EXPECT_EQ(bench.run->session.CommandLine, "");
}

TEST(frmDeviceSelect, ok_takes_the_list_choice_and_cancel_drops_the_file) {
    FormBench bench;
    QtDialogs dialogs;
    dialogs.attach(*bench.run, bench.window.get());
    bench.run->session.CommandLine = "X.HEX";
    ASSERT_TRUE(bench.run->device_select.Form_Load());
    meanwhile([](QWidget& form) {
        EXPECT_EQ(form.windowTitle(), "マイコン選択サブウインドウ");
        choose_entry(*form.findChild<QComboBox*>("Combo_device"), "PIC12F675");
        EXPECT_TRUE(form.isVisible());
        press(form, "OKButton");
    });
    dialogs.frmDeviceSelect();
    EXPECT_EQ(bench.run->session.PickedDevice, "PIC12F675");
    EXPECT_EQ(bench.run->session.CommandLine, "X.HEX");

    ASSERT_TRUE(bench.run->device_select.Form_Load());
    meanwhile([](QWidget& form) { QTest::keyClick(&form, Qt::Key_Escape); });
    dialogs.frmDeviceSelect();
    EXPECT_EQ(bench.run->session.CommandLine, "");
}

TEST(frmBoard, lights_the_devices_socket_and_jumper_and_no_other) {
    FormBench bench{"PIC16F877A"};
    auto* board = bench.window->findChild<frmBoard*>("frmBoard");
    bench.run->board.Visible.set(true);
    EXPECT_TRUE(board->isVisible());
    EXPECT_EQ(board->windowTitle(), "ＰＩＣマイコン情報");
    for (const auto& socket : board_sockets()) {
        const QString name = QString::fromUtf8(socket.control.data());
        EXPECT_EQ(board->findChild<QWidget*>(name)->isVisible(), name == "Shape_40P")
            << socket.control;
    }
    EXPECT_TRUE(board->findChild<QWidget*>("Shape_23")->isVisible());
    EXPECT_FALSE(board->findChild<QWidget*>("Shape_12")->isVisible());
    EXPECT_EQ(board->findChild<QLabel*>("Label2")->text(), "Ｉｎｄｅｘ は上向き");
}

TEST(frmBoard, its_close_box_clears_the_menu_mark_and_its_place_is_saved) {
    FormBench bench;
    auto* board = bench.window->findChild<frmBoard*>("frmBoard");
    bench.find<QAction>("mnuBoardInfomation")->trigger();
    ASSERT_TRUE(board->isVisible());
    board->move(60, 40);
    QApplication::processEvents();
    EXPECT_EQ(bench.store["BoardLeft"], "900");
    EXPECT_EQ(bench.store["BoardTop"], "600");
    board->close();
    EXPECT_FALSE(board->isVisible());
    EXPECT_FALSE(bench.run->form.mnuBoardInfomation.Checked.get());
    EXPECT_FALSE(bench.find<QAction>("mnuBoardInfomation")->isChecked());
}

TEST(frmBoard, keeps_its_parts_in_place_when_the_font_changes) {
    FormBench bench{"PIC16F877A"};
    auto* board = bench.window->findChild<frmBoard*>("frmBoard");
    bench.run->board.Visible.set(true);
    const auto* lit = board->findChild<QWidget*>("Shape_40P");
    const QSize before = lit->size();
    QFont larger = board->font();
    larger.setPointSizeF(larger.pointSizeF() * 1.5);
    board->setFont(larger);
    QApplication::processEvents();
    auto* drawing = dynamic_cast<BoardDrawing*>(lit->parentWidget());
    ASSERT_NE(drawing, nullptr);
    EXPECT_GT(lit->width(), before.width() * 5 / 4);
    EXPECT_EQ(lit->geometry(), drawing->socket_area(4));
    EXPECT_EQ(board->findChild<QWidget*>("Shape_12")->geometry(), drawing->jumper_area(1));
    EXPECT_EQ(board->findChild<QWidget*>("Shape_23")->geometry(), drawing->jumper_area(2));
    EXPECT_TRUE(drawing->rect().contains(board->findChild<QWidget*>("Label_sel")->geometry()));
    EXPECT_EQ(drawing->size(), drawing->sizeHint());
}

TEST(frmAbout, comes_up_from_the_menu_with_what_the_program_says_of_itself) {
    FormBench bench;
    auto* form = bench.window->findChild<QDialog*>("frmAbout");
    ASSERT_NE(form, nullptr);
    EXPECT_FALSE(form->isVisible());
    bench.find<QAction>("about")->trigger();
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(form->windowTitle(), "バージョン情報");
    EXPECT_EQ(form->findChild<QLabel*>("lblVersion")->text(), "V4.0.1");
    EXPECT_EQ(form->findChild<QLabel*>("lblTitle")->text(), "Quillon");
    press(*form, "Command1");
    EXPECT_EQ(bench.host.opened, std::vector<std::string>{"https://quillon.example/support"});
    press(*form, "cmdOK");
    EXPECT_FALSE(form->isVisible());
}

TEST(frmIndex, comes_up_from_the_menu_with_the_drawing_and_goes_by_its_button) {
    FormBench bench;
    auto* form = bench.window->findChild<QDialog*>("frmIndex");
    ASSERT_NE(form, nullptr);
    EXPECT_FALSE(form->isVisible());
    bench.find<QAction>("socket_pins")->trigger();
    EXPECT_TRUE(form->isVisible());
    EXPECT_FALSE(form->isModal());
    EXPECT_EQ(form->windowTitle(), "ソケットのピン配置");
    const auto children = form->findChildren<QWidget*>();
    EXPECT_TRUE(std::ranges::any_of(children, [](QWidget* child) {
        return dynamic_cast<BoardDrawing*>(child) != nullptr && child->isVisible();
    }));
    press(*form, "Command_close");
    EXPECT_FALSE(form->isVisible());
}

TEST(QtDialogs, a_box_has_the_told_buttons_and_default_and_escape_means_no) {
    QtDialogs dialogs;
    meanwhile([](QWidget& form) {
        auto& box = dynamic_cast<QMessageBox&>(form);
        EXPECT_EQ(box.icon(), QMessageBox::Question);
        EXPECT_EQ(box.text(), "一行目\n二行目");
        EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::No));
        QTest::keyClick(&form, Qt::Key_Return);
    });
    const MessageBox question{.title = "t",
                              .text = "一行目\r\n二行目",
                              .icon = BoxIcon::Question,
                              .buttons = BoxButtons::YesNo,
                              .default_answer = BoxAnswer::No};
    EXPECT_EQ(dialogs.box(question), BoxAnswer::No);
    meanwhile([](QWidget& form) {
        QTest::mouseClick(dynamic_cast<QMessageBox&>(form).button(QMessageBox::Yes),
                          Qt::LeftButton);
    });
    EXPECT_EQ(dialogs.box(question), BoxAnswer::Yes);
    meanwhile([](QWidget& form) { QTest::keyClick(&form, Qt::Key_Escape); });
    EXPECT_EQ(dialogs.box(question), BoxAnswer::No);
    meanwhile([](QWidget& form) { form.close(); });
    EXPECT_EQ(dialogs.box({.text = "x", .buttons = BoxButtons::OkCancel}), BoxAnswer::Cancel);
}

TEST(QtDialogs, a_filter_is_offered_in_both_cases) {
    EXPECT_EQ(qt_filter("Hexファイル|*.HEX|全てのファイル|*.*|"),
              "Hexファイル (*.HEX *.hex);;全てのファイル (*)");
}

}  // namespace
}  // namespace quillon::test
