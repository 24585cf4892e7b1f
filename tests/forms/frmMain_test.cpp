// SPDX-License-Identifier: MIT
// The main window over a real run: how it reacts to a user.
#include "forms/frmMain.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QComboBox>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QUrl>
#include <set>

#include "form_bench.h"

namespace quillon::test {
namespace {

constexpr const char* kBlinker = QUILLON_EXAMPLES "/blinker.hex";

void drop(QWidget& window, const std::vector<std::string>& paths) {
    QMimeData data;
    QList<QUrl> urls;
    for (const auto& path : paths) urls << QUrl::fromLocalFile(QString::fromStdString(path));
    data.setUrls(urls);
    QDragEnterEvent enter{{10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier};
    QApplication::sendEvent(&window, &enter);
    if (!enter.isAccepted()) return;
    QDropEvent event{{10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier};
    QApplication::sendEvent(&window, &event);
    QApplication::processEvents();
}

TEST(frmMain, every_control_of_the_form_has_a_widget_of_its_name) {
    FormBench bench;
    // The controls of the developer's hidden view.
    const auto unseen = [](const std::string& name) {
        return name.starts_with("Text1(") || name.starts_with("Label12(") || name == "Command4" ||
               name == "Text2" || name == "Text3";
    };
    for (const auto& [name, control] : bench.run->form.controls()) {
        if (unseen(name)) continue;
        EXPECT_NE(bench.window->findChild<QObject*>(QString::fromStdString(name)), nullptr) << name;
    }
}

TEST(frmMain, start_up_shows_it_ready_with_its_title) {
    FormBench bench;
    EXPECT_EQ(bench.end, StartUp::End::Ready);
    EXPECT_TRUE(bench.window->isVisible());
    EXPECT_TRUE(bench.window->windowTitle().startsWith("Quillon V4 "));
    EXPECT_TRUE(bench.window->centralWidget()->isEnabled());
}

TEST(frmMain, a_click_on_blank_check_runs_it_on_the_board) {
    FormBench bench;
    bench.click<QPushButton>("Command_blank");
    EXPECT_EQ(bench.port.opens() - bench.port.closes(), 0);
    EXPECT_TRUE(bench.message().find("消去されています") != std::string::npos) << bench.message();
    EXPECT_EQ(bench.find<QPlainTextEdit>("LabelCmt")->toPlainText().toStdString(),
              QString::fromStdString(bench.message()).replace("\r\n", "\n").toStdString());
}

TEST(frmMain, a_dropped_file_is_opened_programmed_and_counted) {
    FormBench bench;
    drop(*bench.window, {kBlinker});
    EXPECT_EQ(bench.run->session.LoadResult, "OK");
    EXPECT_TRUE(bench.find<QLabel>("file_at_hand")->text().startsWith("blinker.hex"));

    bench.click<QPushButton>("Command_program");
    EXPECT_EQ(bench.run->session.PassCount, 1) << bench.message();
    EXPECT_EQ(bench.find<QLabel>("counters")->text(), "試行 1   Pass 1   Fail 0");
    EXPECT_EQ(bench.board.target().program.at(0),
              bench.run->session.PgmMem[0] << 8 | bench.run->session.PgmMem[1]);
}

TEST(frmMain, several_files_and_folders_are_not_taken_as_a_drop) {
    FormBench bench;
    drop(*bench.window, {kBlinker, kBlinker});
    drop(*bench.window, {bench.folder.path().string()});
    EXPECT_EQ(bench.run->session.HexFilePath, "");
}

TEST(frmMain, a_failure_is_red_and_counted_as_one) {
    FormBench bench;
    drop(*bench.window, {kBlinker});
    bench.board.add_fault("stuck-cell:1");
    bench.click<QPushButton>("Command_program");
    EXPECT_EQ(bench.run->form.LabelCmt.ForeColor.get(), Colour::Red) << bench.message();
    EXPECT_EQ(bench.find<QLabel>("counters")->text(), "試行 1   Pass 0   Fail 1");
}

TEST(frmMain, the_file_is_marked_once_the_image_holds_something_else) {
    FormBench bench;
    drop(*bench.window, {kBlinker});
    bench.find<QAction>("mnuPcBufferMemoryClear")->trigger();
    EXPECT_TRUE(bench.find<QLabel>("file_at_hand")->toolTip().endsWith("blinker.hex"));
    EXPECT_FALSE(bench.find<QLabel>("file_at_hand")->palette().color(QPalette::WindowText) ==
                 bench.window->palette().color(QPalette::WindowText));
}

TEST(frmMain, controls_that_would_start_another_command_are_disabled_while_one_runs) {
    FormBench bench;
    bool seen = false;
    bench.on_turn = [&] {
        if (!bench.window->busy() || bench.run->form.Command_program.Enabled.get()) return;
        seen = true;
        EXPECT_FALSE(bench.find<QPushButton>("Command_read")->isEnabled());
        EXPECT_FALSE(bench.find<QComboBox>("Combo_device")->isEnabled());
        EXPECT_FALSE(bench.find<QMenu>("file")->isEnabled());
        EXPECT_FALSE(bench.find<QMenu>("device_menu")->isEnabled());
        EXPECT_FALSE(bench.find<QMenu>("buffer_menu")->isEnabled());
        // A mode may be changed at any time.
        EXPECT_TRUE(bench.find<QMenu>("option_menu")->isEnabled());
        EXPECT_FALSE(bench.find<QAction>("mnuComPort")->isEnabled());
        EXPECT_TRUE(bench.find<QAction>("mnuComMode1")->isEnabled());
    };
    bench.click<QPushButton>("Command_blank");
    EXPECT_TRUE(seen);
    EXPECT_TRUE(bench.find<QPushButton>("Command_read")->isEnabled());
    EXPECT_TRUE(bench.find<QMenu>("device_menu")->isEnabled());
}

TEST(frmMain, a_second_command_inside_a_wait_is_dropped) {
    FormBench bench;
    int dropped = 0;
    bench.on_turn = [&] {
        bench.on_turn = nullptr;
        bench.window->command([&] { ++dropped; });
    };
    bench.click<QPushButton>("Command_blank");
    EXPECT_EQ(dropped, 0);
    bench.window->command([&] { ++dropped; });
    EXPECT_EQ(dropped, 1);
}

// Performs a user's acts during an operation, one every twenty turns.
void in_turns(FormBench& bench, std::vector<std::function<void()>> acts) {
    bench.on_turn = [&bench, acts = std::move(acts), turns = 0U]() mutable {
        if (!bench.run->flows.running() || ++turns % 20 != 0 || turns / 20 > acts.size()) return;
        acts[turns / 20 - 1]();
    };
}

QMessageBox& question(const FormBench& bench) { return *bench.find<QMessageBox>("frmStop"); }

void answer(const FormBench& bench, const char* button) {
    QTest::mouseClick(question(bench).findChild<QPushButton*>(button), Qt::LeftButton);
}

TEST(frmMain, closing_in_an_operation_asks_and_after_yes_closes_when_it_has_unwound) {
    FormBench bench;
    drop(*bench.window, {kBlinker});
    in_turns(bench, {[&] {
                         bench.window->close();
                         EXPECT_TRUE(question(bench).isVisible());
                         EXPECT_EQ(question(bench).text(), "書込み中です。中断しますか？");
                         EXPECT_EQ(question(bench).defaultButton()->text(), "いいえ(&N)");
                         EXPECT_EQ(question(bench).escapeButton()->text(), "いいえ(&N)");
                     },
                     [&] {
                         EXPECT_TRUE(question(bench).isVisible()) << "the operation goes on";
                         answer(bench, "cmdOK");
                         EXPECT_TRUE(bench.window->isVisible());
                         EXPECT_EQ(bench.leaves, 0);
                     }});
    bench.click<QPushButton>("Command_program");
    EXPECT_FALSE(bench.run->flows.running());
    EXPECT_FALSE(bench.port.is_open());
    EXPECT_TRUE(bench.run->form.Command_program.Enabled.get());
    QApplication::processEvents();
    EXPECT_FALSE(bench.window->isVisible());
    EXPECT_EQ(bench.leaves, 1);
    EXPECT_EQ(bench.run->session.PassCount, 0);
}

TEST(frmMain, closing_in_an_operation_changes_nothing_after_no_escape_or_the_end) {
    FormBench bench;
    drop(*bench.window, {kBlinker});
    const auto ask = [&] {
        bench.window->close();
        EXPECT_TRUE(question(bench).isVisible());
    };
    in_turns(bench, {ask, [&] { answer(bench, "cmdCancel"); }, ask,
                     [&] { QTest::keyClick(&question(bench), Qt::Key_Escape); }, ask,
                     [&] { QTest::keyClick(&question(bench), Qt::Key_Return); }, ask});
    bench.click<QPushButton>("Command_program");
    EXPECT_EQ(bench.run->session.PassCount, 1) << bench.message();
    QApplication::processEvents();
    EXPECT_FALSE(question(bench).isVisible());
    EXPECT_TRUE(bench.window->isVisible());
    EXPECT_EQ(bench.leaves, 0);
}

TEST(frmMain, quit_gives_an_operation_up_without_a_question) {
    FormBench bench;
    in_turns(bench, {[&] {
                 bench.window->quit();
                 EXPECT_FALSE(question(bench).isVisible());
             }});
    bench.click<QPushButton>("Command_blank");
    QApplication::processEvents();
    EXPECT_FALSE(bench.window->isVisible());
    EXPECT_EQ(bench.leaves, 1);
}

TEST(Command_stop, and_escape_give_an_operation_up_and_the_window_stays) {
    FormBench bench;
    bench.window->activateWindow();
    auto* stop = bench.find<QPushButton>("Command_stop");
    EXPECT_EQ(stop->text(), "中断");
    EXPECT_TRUE(stop->isVisible());
    EXPECT_FALSE(stop->isEnabled());
    EXPECT_EQ(stop->focusPolicy(), Qt::NoFocus)
        << "a second Return would stop what the first began";
    for (const bool by_key : {false, true}) {
        Host::Time pressed{};
        bench.board.add_fault("bs/silent-after:0");
        in_turns(bench, {[] {},
                         [&] {
                             pressed = bench.host.now();
                             EXPECT_TRUE(stop->isEnabled());
                             if (by_key)
                                 QTest::keyClick(bench.window.get(), Qt::Key_Escape);
                             else
                                 QTest::mouseClick(stop, Qt::LeftButton);
                         }});
        bench.click<QPushButton>("Command_blank");
        ASSERT_GT(pressed, Host::Time{});
        EXPECT_LT(bench.host.now() - pressed, std::chrono::milliseconds{300});
        EXPECT_EQ(bench.message(), "操作を中止しました。 ");
        EXPECT_FALSE(bench.port.is_open());
        EXPECT_FALSE(stop->isEnabled());
        EXPECT_TRUE(bench.window->isVisible());
        bench.board.clear_faults();
        bench.on_turn = nullptr;
    }
    bench.click<QPushButton>("Command_blank");
    EXPECT_EQ(bench.message(), "デバイスは消去されています。 ");
}

TEST(frmMain, a_run_counts_as_failed_when_it_has_ended_and_not_while_it_writes) {
    FormBench bench;
    drop(*bench.window, {kBlinker});
    QString during;
    bench.on_turn = [&] {
        if (bench.run->session.TryCount == 1 && bench.run->session.PassCount == 0)
            during = bench.find<QLabel>("counters")->text();
    };
    bench.click<QPushButton>("Command_program");
    EXPECT_EQ(during, "試行 1   Pass 0   Fail 0");
    EXPECT_EQ(bench.find<QLabel>("counters")->text(), "試行 1   Pass 1   Fail 0");
}

TEST(frmMain, its_texts_are_not_grey_after_a_start_with_no_board) {
    FormBench bench;
    bench.run->messages.ShowMessage("redx");
    bench.run->session.WriterFound = bench.run->session.FirmChecked = false;
    bench.board.add_fault("?/silent-after:0");
    StartUp again{*bench.run};
    bench.window->command([&] { again.Main("", false); });
    ASSERT_EQ(bench.find<QPushButton>("Label_FirmwareVersion")->text(), "COM1 : ライター未接続");
    ASSERT_EQ(bench.run->form.LabelCmt.ForeColor.get(), Colour::Black);
    const auto theme = bench.window->palette();
    const auto colour = [](const QWidget* widget, QPalette::ColorRole role) {
        return widget->palette().color(QPalette::Active, role);
    };
    EXPECT_EQ(colour(bench.find<QPlainTextEdit>("LabelCmt"), QPalette::Text),
              theme.color(QPalette::Active, QPalette::Text));
    EXPECT_EQ(colour(bench.find<QPushButton>("Label_FirmwareVersion"), QPalette::ButtonText),
              theme.color(QPalette::Active, QPalette::ButtonText));
    EXPECT_NE(theme.color(QPalette::Active, QPalette::Text),
              theme.color(QPalette::Disabled, QPalette::Text));
}

TEST(frmMain, escape_closes_nothing) {
    FormBench bench;
    QTest::keyClick(bench.window.get(), Qt::Key_Escape);
    EXPECT_TRUE(bench.window->isVisible());
}

TEST(frmMain, closing_saves_its_place_and_removes_the_temporary_files) {
    FormBench bench;
    bench.window->move(150, 90);
    bench.window->resize(bench.window->width(), 640);
    QApplication::processEvents();
    bench.window->close();
    EXPECT_EQ(bench.leaves, 1);
    EXPECT_EQ(bench.store["MainLeft"], "2250");
    EXPECT_EQ(bench.store["MainTop"], "1350");
    EXPECT_EQ(bench.store["MainHeight"], "9600");
    EXPECT_FALSE(std::filesystem::exists(bench.folder / "QUILLON4_TEMP/pgmmemory_temp.txt"));
}

TEST(frmMain, a_place_off_every_screen_is_not_taken) {
    FormBench bench;
    bench.run->form.Left = 200000;
    bench.run->form.Top = 200000;
    bench.run->form.Placed.emit();
    EXPECT_TRUE(bench.window->screen()->availableGeometry().contains(bench.window->pos()));
}

TEST(frmMain, function_keys_press_the_big_buttons) {
    FormBench bench;
    bench.window->activateWindow();
    QTest::keyClick(bench.window.get(), Qt::Key_F6);
    EXPECT_TRUE(bench.message().find("消去されています") != std::string::npos) << bench.message();
}

TEST(frmMain, the_focus_comes_back_to_the_button_that_started_the_operation) {
    FormBench bench;
    bench.window->activateWindow();
    auto* button = bench.find<QPushButton>("Command_Verify");
    button->setFocus();
    QTest::keyClick(button, Qt::Key_Space);
    EXPECT_EQ(bench.window->focusWidget(), button);
}

TEST(frmMain, an_operation_without_a_device_puts_the_focus_on_the_device_list) {
    FormBench bench{""};
    bench.run->session.DeviceName.clear();
    bench.find<QPushButton>("Command_blank")->setFocus();
    bench.click<QPushButton>("Command_blank");
    EXPECT_EQ(bench.window->focusWidget(), bench.find<QComboBox>("Combo_device"));
}

TEST(frmMain, a_mode_keeps_its_mark_with_its_setting) {
    FormBench bench;
    auto* skip = bench.find<QAction>("mnuBlankSkip");
    skip->trigger();
    EXPECT_TRUE(skip->isChecked());
    EXPECT_EQ(bench.store["SkipMode"], "1");
    EXPECT_EQ(bench.find<QPushButton>("Command_program")->text(),
              "ﾌﾞﾗﾝｸﾁｪｯｸ ｽｷｯﾌﾟ\nプログラム(&P)");
    skip->trigger();
    EXPECT_FALSE(skip->isChecked());
    EXPECT_EQ(bench.store["SkipMode"], "0");
}

TEST(frmMain, a_click_on_the_boards_label_searches_it) {
    FormBench bench;
    bench.run->session.WriterFound = false;
    bench.click<QPushButton>("Label_FirmwareVersion");
    EXPECT_EQ(bench.find<QPushButton>("Label_FirmwareVersion")->text(), "COM1 : ZQ-LDR412A V6.80");
    EXPECT_FALSE(bench.port.is_open());
}

TEST(frmMain, entries_without_a_function_yet_are_not_there) {
    FormBench bench;
    EXPECT_FALSE(bench.find<QAction>("mnuFirmwareUpdate")->isVisible());
    EXPECT_FALSE(bench.find<QMenu>("mnuAsmC")->menuAction()->isVisible());
}

TEST(frmMain, accelerators_of_menus_and_buttons_do_not_meet) {
    FormBench bench;
    std::multiset<QString> letters;
    const auto take = [&letters](const QString& text) {
        const auto at = text.indexOf('&');
        if (at >= 0 && at + 1 < text.size()) letters.insert(text.mid(at + 1, 1).toUpper());
    };
    for (auto* action : bench.window->menuBar()->actions()) take(action->text());
    for (auto* button : bench.window->centralWidget()->findChildren<QPushButton*>())
        take(button->text());
    for (const auto& letter : letters) EXPECT_EQ(letters.count(letter), 1U) << letter.toStdString();
    EXPECT_GE(letters.size(), 12U);
}

TEST(frmMain, fits_a_screen_of_960_by_600_as_a_desktop_at_double_scale_has) {
    for (const char* device : {"PIC16F877A", "PIC12F675", "PIC18F2550"}) {
        FormBench bench{device};
        QApplication::processEvents();
        EXPECT_LE(bench.window->minimumSizeHint().width(), 940) << device;
        EXPECT_LE(bench.window->minimumSizeHint().height(), 570) << device;
    }
}

}  // namespace
}  // namespace quillon::test
