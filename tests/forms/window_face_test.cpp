// SPDX-License-Identifier: MIT
// What the window offers around the operations: search and copy in the views, the list of a failed
// verify, the keyboard.
#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QCompleter>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QTableWidget>
#include <QTest>
#include <QTextBlock>
#include <QToolButton>
#include <algorithm>
#include <vector>

#include "form_bench.h"

namespace quillon::test {
namespace {

constexpr const char* kBlinker = QUILLON_EXAMPLES "/blinker.hex";

void load(FormBench& bench, const std::filesystem::path& path) {
    bench.window->load([&] { bench.run->files.mnuFileOpen_Click(path); });
}

// --- The views

// The text of the first line that the view shows.
QString first_line(const QPlainTextEdit& view) {
    return view.document()->findBlockByNumber(view.verticalScrollBar()->value()).text();
}

TEST(RichTxtPgmMem, a_failed_verify_scrolls_to_its_list) {
    FormBench bench;
    load(bench, kBlinker);
    auto* view = bench.find<QPlainTextEdit>("RichTxtPgmMem");
    EXPECT_EQ(first_line(*view).left(7), "000000:");
    bench.click<QPushButton>("Command_Verify");
    EXPECT_TRUE(first_line(*view).startsWith("Error　 アドレス:0x0000"))
        << first_line(*view).toStdString() << " / " << bench.message();
    EXPECT_EQ(view->document()->findBlockByNumber(0).text().left(7), "000000:");
    // The next image is shown from its top again.
    load(bench, kBlinker);
    EXPECT_EQ(first_line(*view).left(7), "000000:");
}

TEST(RichTxtPgmMem, is_empty_and_says_what_to_do_where_no_device_is_selected_after_start) {
    FormBench bench{""};
    bench.run->session.DeviceName.clear();
    bench.store.write(Settings::kSection, "deviceNew", "-1");
    StartUp again{*bench.run};
    bench.window->command([&] { again.Main("", false); });
    auto* view = bench.find<QPlainTextEdit>("RichTxtPgmMem");
    EXPECT_EQ(bench.run->session.DeviceName, "");
    EXPECT_EQ(view->toPlainText(), "");
    EXPECT_EQ(view->placeholderText(), "デバイスを選択してください");
}

TEST(RichTxtPgmMem, keeps_the_waiting_text_where_the_catalogue_failed) {
    FormBench bench{""};
    bench.run->session.DeviceName.clear();
    bench.run->session.CatalogueFile = (bench.folder / "none.ini").string();
    StartUp again{*bench.run};
    bench.window->command([&] { bench.end = again.Main("", false); });
    EXPECT_EQ(bench.end, StartUp::End::CatalogueFailed);
    EXPECT_TRUE(bench.find<QPlainTextEdit>("RichTxtPgmMem")
                    ->toPlainText()
                    .endsWith("　　　　　　　　　　しばらくお待ちください....."));
    EXPECT_FALSE(bench.window->centralWidget()->isEnabled());
}

struct Finder {
    explicit Finder(FormBench& bench, const char* text)
        : view{bench.find<QPlainTextEdit>("RichTxtPgmMem")},
          line{bench.find<QLineEdit>("find_text")} {
        view->setFocus();
        bench.find<QAction>("find")->trigger();
        line->clear();
        QTest::keyClicks(line, text);
    }
    int row() const { return view->textCursor().blockNumber(); }
    QString verdict() const { return line->parentWidget()->findChildren<QLabel*>().last()->text(); }

    QPlainTextEdit* view;
    QLineEdit* line;
};

TEST(find_bar, goes_on_and_back_and_round_and_says_when_it_went_round) {
    FormBench bench;
    for (const std::size_t word : {8U, 80U, 800U}) {
        bench.run->session.PgmMem[2 * word] = 0x12;
        bench.run->session.PgmMem[2 * word + 1] = 0x34;
    }
    bench.run->views.ShowProgramMemory();
    Finder find{bench, "1234"};
    EXPECT_EQ(find.row(), 1);
    EXPECT_EQ(find.verdict(), "");
    QTest::keyClick(find.line, Qt::Key_Return);
    EXPECT_EQ(find.row(), 10);
    bench.find<QAction>("find_next")->trigger();
    EXPECT_EQ(find.row(), 100);
    EXPECT_EQ(find.verdict(), "");
    bench.find<QAction>("find_next")->trigger();
    EXPECT_EQ(find.row(), 1);
    EXPECT_EQ(find.verdict(), "先頭へ戻りました");
    bench.find<QAction>("find_previous")->trigger();
    EXPECT_EQ(find.row(), 100);
    EXPECT_EQ(find.verdict(), "末尾へ戻りました");
    bench.find<QAction>("find_previous")->trigger();
    EXPECT_EQ(find.row(), 10);
    EXPECT_EQ(find.verdict(), "");
}

TEST(find_bar, leaves_the_view_where_the_text_does_not_occur) {
    FormBench bench;
    Finder find{bench, "000010:"};
    ASSERT_EQ(find.row(), 2);
    find.line->selectAll();
    QTest::keyClicks(find.line, "QQ");
    EXPECT_EQ(find.verdict(), "見つかりません");
    EXPECT_EQ(find.row(), 2);
    find.line->clear();
    QTest::keyClick(find.line, Qt::Key_Return);
    EXPECT_EQ(find.verdict(), "");
}

TEST(find_bar, takes_letters_of_either_case) {
    FormBench bench;
    Finder find{bench, "00001f8: 3fff"};
    EXPECT_EQ(find.verdict(), "見つかりません");
    Finder other{bench, "0001f8: 3fff"};
    EXPECT_EQ(other.verdict(), "");
    EXPECT_EQ(other.row(), 0x1F8 / 8);
}

TEST(find_bar, looks_into_the_view_that_was_used_last) {
    FormBench bench;
    Finder find{bench, "0010:"};
    auto* eeprom = bench.find<QPlainTextEdit>("rText_EepromMem");
    eeprom->setFocus();
    bench.find<QAction>("find_next")->trigger();
    EXPECT_EQ(eeprom->textCursor().selectedText(), "0010:");
    // The new device has no EEPROM, so its view is hidden.
    bench.select("PIC16F716");
    bench.find<QAction>("find_next")->trigger();
    EXPECT_EQ(find.view->textCursor().selectedText(), "0010:");
}

TEST(find_bar, opens_with_the_key_of_the_next_hit_and_with_the_selected_text) {
    FormBench bench;
    auto* view = bench.find<QPlainTextEdit>("RichTxtPgmMem");
    view->setFocus();
    QTextCursor cursor = view->textCursor();
    cursor.movePosition(QTextCursor::Right, QTextCursor::KeepAnchor, 6);
    view->setTextCursor(cursor);
    QTest::keyClick(bench.window.get(), Qt::Key_F3);
    EXPECT_TRUE(bench.find<QLineEdit>("find_text")->isVisible());
    EXPECT_EQ(bench.find<QLineEdit>("find_text")->text(), "000000");
}

TEST(copy, takes_the_selection_of_the_box_in_use_and_else_of_the_last_view) {
    FormBench bench;
    auto* view = bench.find<QPlainTextEdit>("rText_EepromMem");
    view->setFocus();
    bench.find<QAction>("select_all")->trigger();
    bench.find<QAction>("copy")->trigger();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), view->toPlainText());
    EXPECT_TRUE(QGuiApplication::clipboard()->text().startsWith("0000: FF FF"));

    bench.find<QPushButton>("Command_blank")->setFocus();
    QGuiApplication::clipboard()->clear();
    bench.find<QAction>("copy")->trigger();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), view->toPlainText());

    auto* id = bench.find<QLineEdit>("Text_ID");
    id->setText("12AB");
    id->setFocus();
    id->selectAll();
    bench.find<QAction>("copy")->trigger();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "12AB");

    auto* message = bench.find<QPlainTextEdit>("LabelCmt");
    bench.run->messages.ShowMessage("abc");
    message->setFocus();
    bench.find<QAction>("select_all")->trigger();
    bench.find<QAction>("copy")->trigger();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "abc ");
}

TEST(P_Bar, shows_each_step_of_a_run_in_its_range_and_goes_at_its_end) {
    FormBench bench;
    auto* bar = bench.find<QProgressBar>("P_Bar");
    auto* percent = bench.find<QLabel>("Lbl_Persent");
    auto& messages = bench.run->messages;
    messages.ShowProgress(Messages::Progress::On, 0, 8192, 8100);
    EXPECT_TRUE(bar->isVisible());
    EXPECT_EQ(bar->value(), 8100);
    EXPECT_EQ(percent->text(), "98%");
    messages.ShowProgress(Messages::Progress::On, 0, 8192, 8192);
    EXPECT_FALSE(bar->isVisible());
    EXPECT_FALSE(percent->isVisible());
    // A short run after a longer one.
    messages.ShowProgress(Messages::Progress::On, 0, 256, 128);
    EXPECT_TRUE(bar->isVisible());
    EXPECT_EQ(bar->maximum(), 256);
    EXPECT_EQ(bar->value(), 128);
    EXPECT_EQ(percent->text(), "50%");
    messages.ShowProgress(Messages::Progress::Off, 0, 0, 0);
    EXPECT_FALSE(bar->isVisible());
}

TEST(Label_Debug, tells_the_mask_of_the_protection_bits) {
    FormBench bench;
    EXPECT_EQ(bench.find<QLabel>("Label_Debug")->text().toStdString(),
              bench.run->form.Label_Debug.Caption.get());
    EXPECT_TRUE(bench.find<QLabel>("Label_Debug")->text().startsWith("dec:"));
    EXPECT_TRUE(bench.find<QLabel>("Label_Debug")->isVisible());
}

// --- Entry

TEST(entry_fields, take_as_many_hexadecimal_digits_as_their_value_has) {
    struct Row {
        const char* device;
        const char* field;
        const char* digits;
    };
    for (const auto& [device, field, digits] : {
             Row{"PIC16F887", "Text_ID1", "AB12"},
             Row{"PIC16F887", "Text_ID4", "AB12"},
             Row{"PIC16F877A", "Text_ID", "AB12"},
             Row{"PIC18F2550", "Text_ID", "AB12CD34"},
             Row{"PIC12F675", "Text_BG", "A"},
         }) {
        FormBench bench{device};
        auto* box = bench.find<QLineEdit>(field);
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, "xa-b1 2g");
        QTest::keyClicks(box, "cd34ef");
        EXPECT_EQ(box->text(), digits) << device << " " << field;
        QTest::keyClick(box, Qt::Key_Backspace);
        EXPECT_EQ(box->text(), QString{digits}.chopped(1)) << device << " " << field;
        box->selectAll();
        QGuiApplication::clipboard()->setText("１２ hex");
        QTest::keyClick(box, Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(box->text(), QString{digits}.chopped(1)) << device << " " << field;
    }
}

TEST(Combo_device, a_name_is_chosen_from_the_list_that_typing_opens) {
    FormBench bench;
    auto* box = bench.find<QComboBox>("Combo_device");
    box->setFocus();
    box->lineEdit()->selectAll();
    QTest::keyClicks(box->lineEdit(), "f675");
    auto* list = box->completer()->popup();
    ASSERT_TRUE(list->isVisible());
    QTest::keyClick(list, Qt::Key_Down);
    int choices = 0;
    bench.run->form.Combo_device.Click = [&, act = bench.run->form.Combo_device.Click] {
        ++choices;
        act();
    };
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_EQ(choices, 1);  // each choice clears the image and may ask a question
    EXPECT_EQ(bench.run->session.DeviceName, "PIC12F675");
    EXPECT_EQ(box->lineEdit()->text(), "PIC12F675");
}

// --- The keyboard

TEST(keyboard, tab_visits_every_control_that_can_be_worked_in_the_order_of_the_eye) {
    for (const char* device : {"PIC16F877A", "PIC12F675", "PIC16F887", "PIC18F2550"}) {
        FormBench bench{device};
        bench.window->activateWindow();
        auto* first = bench.find<QComboBox>("Combo_device");
        first->setFocus();
        std::vector<QWidget*> visited{first};
        for (int i = 0; i < 100; ++i) {
            QTest::keyClick(bench.window->focusWidget(), Qt::Key_Tab);
            if (bench.window->focusWidget() == first) break;
            visited.push_back(bench.window->focusWidget());
        }
        ASSERT_LT(visited.size(), 100U) << device;
        // Every box, list and button that is shown and enabled.
        for (auto* widget : bench.window->findChildren<QWidget*>()) {
            const bool works = qobject_cast<QPushButton*>(widget) != nullptr ||
                               qobject_cast<QLineEdit*>(widget) != nullptr ||
                               qobject_cast<QComboBox*>(widget) != nullptr ||
                               qobject_cast<QCheckBox*>(widget) != nullptr ||
                               qobject_cast<QTableWidget*>(widget) != nullptr ||
                               qobject_cast<QPlainTextEdit*>(widget) != nullptr;
            const bool here = widget->window() == bench.window.get() && widget->isVisible() &&
                              widget->isEnabled();
            const bool part = qobject_cast<QComboBox*>(widget->parentWidget()) != nullptr;
            if (!works || !here || part) continue;
            EXPECT_TRUE(std::ranges::find(visited, widget) != visited.end())
                << device << " " << widget->objectName().toStdString();
        }
        const auto at = [&](const char* name) {
            return std::ranges::find(visited, bench.find<QWidget>(name)) - visited.begin();
        };
        const std::vector<const char*> order{
            "Combo_device",       "Cmd_open",        "Cmd_save",
            "Command_com",        "HFGrid(1)",       "Text_ID",
            "RichTxtPgmMem",      "rText_EepromMem", "Command_blank",
            "Command_read",       "Command_Verify",  "Command_program",
            "Cmd_Extend_Program", "LabelCmt",        "Label_FirmwareVersion"};
        for (std::size_t i = 1; i < order.size(); ++i)
            EXPECT_LT(at(order[i - 1]), at(order[i])) << device << " " << order[i];
    }
}

TEST(keyboard, every_button_tells_its_meaning_and_its_key_in_a_tooltip) {
    FormBench bench;
    struct Row {
        const char* name;
        const char* key;
    };
    for (const auto& [name, key] :
         {Row{"Cmd_open", "(Ctrl+O)"}, Row{"Cmd_save", "(Ctrl+S)"}, Row{"Command_com", ""},
          Row{"Command_blank", "(F6)"}, Row{"Command_read", "(F7)"}, Row{"Command_Verify", "(F8)"},
          Row{"Command_program", "(F9)"}, Row{"Command_stop", "(Esc)"},
          Row{"Cmd_Extend_Program", ""}, Row{"Command1", ""}, Row{"Command2", ""},
          Row{"Label_FirmwareVersion", ""}}) {
        EXPECT_FALSE(bench.find<QPushButton>(name)->toolTip().isEmpty()) << name;
        EXPECT_TRUE(bench.find<QPushButton>(name)->toolTip().contains(key)) << name;
    }
    EXPECT_TRUE(bench.find<QComboBox>("Combo_device")->toolTip().contains("(Ctrl+D)"));
}

TEST(keyboard, control_d_goes_to_the_device_list_ready_for_typing) {
    FormBench bench;
    bench.window->activateWindow();
    bench.find<QPushButton>("Command_blank")->setFocus();
    QTest::keyClick(bench.window.get(), Qt::Key_D, Qt::ControlModifier);
    auto* box = bench.find<QComboBox>("Combo_device");
    EXPECT_EQ(bench.window->focusWidget(), box);
    EXPECT_EQ(box->lineEdit()->selectedText(), "PIC16F877A");
}

}  // namespace
}  // namespace quillon::test
