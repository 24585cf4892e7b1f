// SPDX-License-Identifier: MIT
// frmExtend_Program over a real run: its buttons against the simulated board, the keyboard, its
// place, and its coming and going.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <algorithm>
#include <set>

#include "form_bench.h"
#include "forms/frmExtend_Program.h"

namespace quillon::test {
namespace {

// In the order of the eye.
constexpr std::array kButtons{
    "Cmd_PGM_Read",          "Cmd_PGM_Program",        "Cmd_PGM_Erase",
    "Cmd_PGM_PcbufferClear", "Cmd_DATA_Read",          "Cmd_DATA_Program",
    "Cmd_DATA_Erase",        "Cmd_DATA_PcbufferClear", "Cmd_Chip_Erace",
};

struct ExtendBench : FormBench {
    explicit ExtendBench(std::string_view device = "PIC16F84A") : FormBench{device} {
        click<QPushButton>("Cmd_Extend_Program");
        dialog->activateWindow();
        QApplication::processEvents();
    }
    QPushButton& button(const char* name) const { return *dialog->findChild<QPushButton*>(name); }
    void press(const char* name) const { QTest::mouseClick(&button(name), Qt::LeftButton); }
    std::string caption(const char* name) const {
        return dialog->findChild<QLabel*>(name)->text().toStdString();
    }
    std::size_t disabled() const {
        return static_cast<std::size_t>(std::ranges::count_if(
            kButtons, [this](const char* name) { return !button(name).isEnabled(); }));
    }

    frmExtend_Program* dialog = window->findChild<frmExtend_Program*>("frmExtend_Program");
};

TEST(frmExtend_Program, comes_up_modeless_over_the_window_that_owns_it) {
    const ExtendBench bench;
    ASSERT_NE(bench.dialog, nullptr);
    EXPECT_TRUE(bench.dialog->isVisible());
    EXPECT_FALSE(bench.dialog->isModal());
    EXPECT_EQ(bench.dialog->parentWidget(), bench.window.get());
    EXPECT_EQ(bench.dialog->windowTitle(), "拡張プログラム");
    for (const char* name : kButtons) {
        EXPECT_TRUE(bench.button(name).isVisible()) << name;
        EXPECT_TRUE(bench.button(name).isEnabled()) << name;
    }
    // The main window goes on working.
    bench.click<QPushButton>("Command_blank");
    EXPECT_EQ(bench.message(), "デバイスは消去されています。 ");
    EXPECT_TRUE(bench.dialog->isVisible());
}

TEST(frmExtend_Program, its_captions_name_the_areas_that_the_device_has) {
    struct Row {
        const char *device, *program, *data;
    };
    for (const auto& [device, program, data] :
         {Row{"PIC16F84A", "コードメモリ,CFG,ID", "ＥＥＰＲＯＭデータメモリ"},
          Row{"PIC16F73", "コードメモリ", "ＥＥＰＲＯＭデータメモリ（なし）"},
          Row{"PIC18F2550", "コードメモリ", "ＥＥＰＲＯＭデータメモリ"}}) {
        const ExtendBench bench{device};
        EXPECT_EQ(bench.caption("Label_PGM"), program) << device;
        EXPECT_EQ(bench.caption("Label_DATA"), data) << device;
    }
}

TEST(frmExtend_Program, the_button_that_opens_it_brings_it_to_the_front_when_it_is_open) {
    const ExtendBench bench;
    bench.window->activateWindow();
    QApplication::processEvents();
    ASSERT_FALSE(bench.dialog->isActiveWindow());
    const QPoint at = bench.dialog->pos();
    bench.click<QPushButton>("Cmd_Extend_Program");
    QApplication::processEvents();
    EXPECT_TRUE(bench.dialog->isActiveWindow());
    EXPECT_EQ(bench.dialog->pos(), at);
}

// --- The nine operations

// A cell of the EEPROM is the low byte of a word in the image.
std::uint8_t& eep_cell(Session& session, std::size_t cell) { return session.EepMem[2 * cell + 1]; }

TEST(frmExtend_Program, program_side_is_written_read_and_erased_without_the_eeprom) {
    ExtendBench bench{"PIC16F877A"};
    auto& session = bench.run->session;
    auto& target = bench.board.target();
    target.eeprom[3] = 0x5A;
    session.PgmMem[0] = 0x28;
    session.PgmMem[1] = 0x05;
    eep_cell(session, 3) = 0x77;
    bench.press("Cmd_PGM_Program");
    EXPECT_EQ(session.Status, Token::OK) << bench.message();
    EXPECT_EQ(target.program[0], 0x2805);

    target.program[1] = 0x1234;
    bench.press("Cmd_PGM_Read");
    EXPECT_EQ(bench.message(), "プログラムメモリ読み出し成功。 ");
    EXPECT_EQ(session.PgmMem[2] << 8 | session.PgmMem[3], 0x1234);
    EXPECT_EQ(eep_cell(session, 3), 0x77);

    bench.press("Cmd_PGM_Erase");
    EXPECT_EQ(bench.message(), "プログラムメモリ、コンフィグ、ＩＤの消去しました。 ");
    EXPECT_EQ(target.program[0], 0x3FFF);
    EXPECT_EQ(target.eeprom[3], 0x5A);
    EXPECT_FALSE(bench.port.is_open());
}

TEST(frmExtend_Program, program_side_of_a_device_without_a_family_asks_before_it_overwrites) {
    for (const int answer : {2, 1}) {
        ExtendBench bench{"PIC16F84A"};
        auto& target = bench.board.target();
        target.program[0] = 0x1111;
        bench.run->session.PgmMem[0] = 0x28;
        bench.run->session.PgmMem[1] = 0x05;
        bench.dialogs.hint_answer = answer;
        bench.press("Cmd_PGM_Program");
        EXPECT_EQ(bench.dialogs.hints.size(), 1U);
        EXPECT_EQ(target.program[0], answer == 1 ? 0x2805 : 0x1111) << bench.message();
    }
}

TEST(frmExtend_Program, data_side_is_written_read_and_erased_without_the_program) {
    for (const char* device : {"PIC16F84A", "PIC16F877A"}) {
        ExtendBench bench{device};
        auto& session = bench.run->session;
        auto& target = bench.board.target();
        target.program[0] = 0x2805;
        eep_cell(session, 3) = 0x77;
        bench.press("Cmd_DATA_Program");
        EXPECT_EQ(session.Status, Token::OK) << device << bench.message();
        EXPECT_EQ(target.eeprom[3], 0x77) << device;

        target.eeprom[4] = 0x12;
        bench.press("Cmd_DATA_Read");
        EXPECT_EQ(bench.message(), "ＥＥＰＲＯＭデータメモリ読み出し成功。 ") << device;
        EXPECT_EQ(eep_cell(session, 4), 0x12) << device;
        EXPECT_EQ(session.PgmMem[0], 0x3F) << device << " the image's program";

        bench.press("Cmd_DATA_Erase");
        EXPECT_EQ(bench.message(), "データメモリの消去しました。 ") << device;
        EXPECT_EQ(target.eeprom[3], 0xFF) << device;
        EXPECT_EQ(target.program[0], 0x2805) << device;
    }
}

TEST(frmExtend_Program, the_chip_erase_clears_both_sides) {
    for (const char* device : {"PIC16F84A", "PIC16F877A"}) {
        ExtendBench bench{device};
        auto& target = bench.board.target();
        target.program[0] = 0x2805;
        target.eeprom[3] = 0x77;
        bench.press("Cmd_Chip_Erace");
        EXPECT_EQ(bench.message(), "チップイレースしました。 ") << device;
        EXPECT_EQ(target.program[0], 0x3FFF) << device;
        EXPECT_EQ(target.eeprom[3], 0xFF) << device;
    }
}

TEST(frmExtend_Program, the_buffer_clears_change_the_image_alone) {
    ExtendBench bench{"PIC16F877A"};
    auto& session = bench.run->session;
    bench.board.target().program[0] = 0x2805;
    session.PgmMem[0] = 0x28;
    eep_cell(session, 3) = 0x77;
    const auto opens = bench.port.opens();
    bench.press("Cmd_PGM_PcbufferClear");
    EXPECT_EQ(bench.message(), "ＰＣバッファのプログラムメモリをクリアしました。 ");
    EXPECT_EQ(session.PgmMem[0], 0x3F);
    EXPECT_EQ(eep_cell(session, 3), 0x77);
    bench.press("Cmd_DATA_PcbufferClear");
    EXPECT_EQ(bench.message(), "ＰＣバッファのＥＥＰＲＯＭデータメモリをクリアしました。 ");
    EXPECT_EQ(eep_cell(session, 3), 0xFF);
    EXPECT_EQ(bench.port.opens(), opens);
    EXPECT_EQ(bench.board.target().program[0], 0x2805);
}

TEST(frmExtend_Program, the_data_side_of_a_device_without_eeprom_says_so) {
    for (const char* name : {"Cmd_DATA_Erase", "Cmd_DATA_PcbufferClear"}) {
        ExtendBench bench{"PIC16F73"};
        bench.press(name);
        EXPECT_EQ(bench.message(), "このデバイスにはデータメモリがありません。 ") << name;
    }
}

TEST(frmExtend_Program, a_run_is_counted_in_the_main_window) {
    ExtendBench bench{"PIC16F84A"};
    bench.press("Cmd_PGM_Program");
    EXPECT_EQ(bench.find<QLabel>("counters")->text(), "試行 1   Pass 1   Fail 0");
}

TEST(frmExtend_Program, without_a_device_asks_for_one_in_the_main_window) {
    ExtendBench bench{""};
    bench.run->session.DeviceName.clear();
    bench.press("Cmd_PGM_Read");
    EXPECT_EQ(bench.message(), "MCUを選んでください。 ");
    EXPECT_EQ(bench.window->focusWidget(), bench.find<QComboBox>("Combo_device"));
    EXPECT_TRUE(bench.window->isActiveWindow());
}

// --- While an operation runs

TEST(frmExtend_Program, its_buttons_are_disabled_while_an_operation_runs) {
    for (const bool in_main_window : {false, true}) {
        ExtendBench bench;
        std::size_t most = 0;
        bench.on_turn = [&] {
            if (bench.run->flows.running()) most = std::max(most, bench.disabled());
        };
        if (in_main_window)
            bench.click<QPushButton>("Command_read");
        else
            bench.press("Cmd_PGM_Read");
        EXPECT_EQ(most, kButtons.size());
        EXPECT_EQ(bench.disabled(), 0U);
    }
}

TEST(frmExtend_Program, the_focus_comes_back_to_the_button_that_started_the_operation) {
    ExtendBench bench;
    for (const char* name : {"Cmd_DATA_Erase", "Cmd_PGM_Read", "Cmd_PGM_PcbufferClear"}) {
        bench.button(name).setFocus();
        QTest::keyClick(&bench.button(name), Qt::Key_Space);
        EXPECT_EQ(bench.dialog->focusWidget(), &bench.button(name)) << name;
        EXPECT_TRUE(bench.dialog->isActiveWindow()) << name;
    }
}

TEST(frmExtend_Program, escape_stops_the_operation_and_leaves_the_window_open) {
    ExtendBench bench;
    bench.board.add_fault("rs/silent-after:0");
    int turns = 0;
    bench.on_turn = [&] {
        if (!bench.run->flows.running()) return;
        if (++turns == 40 || turns == 41) QTest::keyClick(bench.dialog, Qt::Key_Escape);
    };
    bench.press("Cmd_PGM_Read");
    EXPECT_GE(turns, 40);
    EXPECT_EQ(bench.message(), "操作を中止しました。 ");
    EXPECT_FALSE(bench.port.is_open());
    EXPECT_TRUE(bench.dialog->isVisible());
    EXPECT_EQ(bench.disabled(), 0U);
}

TEST(frmExtend_Program, closed_during_an_operation_leaves_it_running) {
    ExtendBench bench;
    bool closed = false;
    bench.on_turn = [&] {
        if (bench.run->flows.running() && !std::exchange(closed, true)) bench.dialog->close();
    };
    bench.press("Cmd_PGM_Read");
    EXPECT_TRUE(closed);
    EXPECT_FALSE(bench.dialog->isVisible());
    EXPECT_EQ(bench.message(), "プログラムメモリ読み出し成功。 ");
}

// --- The keyboard

TEST(frmExtend_Program, tab_visits_its_buttons_in_the_order_of_the_eye_from_one_that_only_reads) {
    const ExtendBench bench;
    std::vector<std::string> visited;
    for (std::size_t i = 0; i < kButtons.size(); ++i) {
        visited.push_back(bench.dialog->focusWidget()->objectName().toStdString());
        QTest::keyClick(bench.dialog->focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(visited, std::vector<std::string>(kButtons.begin(), kButtons.end()));
    EXPECT_EQ(bench.dialog->focusWidget(), &bench.button("Cmd_PGM_Read"));
}

TEST(frmExtend_Program, each_button_has_a_mnemonic_that_means_nothing_in_the_main_window) {
    const ExtendBench bench;
    std::multiset<QString> letters;
    const auto take = [&letters](const QString& text) {
        const auto at = text.indexOf('&');
        if (at >= 0 && at + 1 < text.size()) letters.insert(text.mid(at + 1, 1).toUpper());
    };
    for (const auto* button : bench.window->centralWidget()->findChildren<QPushButton*>())
        take(button->text());
    for (const char* name : kButtons) {
        const auto before = letters.size();
        take(bench.button(name).text());
        EXPECT_EQ(letters.size(), before + 1) << name;
    }
    for (const auto& letter : letters) EXPECT_EQ(letters.count(letter), 1U) << letter.toStdString();
}

TEST(frmExtend_Program, a_mnemonic_presses_its_button) {
    ExtendBench bench{"PIC16F877A"};
    eep_cell(bench.run->session, 3) = 0x77;
    QTest::keyClick(bench.dialog, Qt::Key_8, Qt::AltModifier);
    // A button that a key presses is seen to go down first.
    EXPECT_TRUE(QTest::qWaitFor([&] { return eep_cell(bench.run->session, 3) == 0xFF; }, 2000));
}

TEST(frmExtend_Program, return_presses_no_button) {
    ExtendBench bench;
    bench.board.target().program[0] = 0x2805;
    const auto opens = bench.port.opens();
    for (const char* name : kButtons) {
        EXPECT_FALSE(bench.button(name).isDefault() || bench.button(name).autoDefault()) << name;
        bench.button(name).setFocus();
        QTest::keyClick(&bench.button(name), Qt::Key_Return);
    }
    EXPECT_EQ(bench.port.opens(), opens);
    EXPECT_EQ(bench.board.target().program[0], 0x2805);
    EXPECT_TRUE(bench.dialog->isVisible());
}

TEST(frmExtend_Program, each_button_says_what_it_touches_and_an_erase_has_a_warning_sign) {
    const ExtendBench bench;
    std::set<QString> names;
    for (const char* name : kButtons) {
        const auto& button = bench.button(name);
        EXPECT_FALSE(button.toolTip().isEmpty()) << name;
        EXPECT_EQ(button.accessibleDescription(), button.toolTip()) << name;
        names.insert(button.accessibleName());
        const std::string_view control{name};
        EXPECT_EQ(button.icon().isNull(),
                  !control.ends_with("Erase") && !control.ends_with("Erace"))
            << name;
    }
    EXPECT_EQ(names.size(), kButtons.size());
}

// --- Coming and going

TEST(frmExtend_Program, escape_and_the_close_box_unload_it) {
    ExtendBench bench;
    QTest::keyClick(bench.dialog, Qt::Key_Escape);
    EXPECT_FALSE(bench.dialog->isVisible());
    EXPECT_FALSE(bench.run->extend_form.Visible.get());
    EXPECT_TRUE(bench.window->isVisible());
    bench.click<QPushButton>("Cmd_Extend_Program");
    EXPECT_TRUE(bench.dialog->isVisible());
    bench.dialog->close();
    EXPECT_FALSE(bench.dialog->isVisible());
    EXPECT_FALSE(bench.run->extend_form.Visible.get());
}

TEST(frmExtend_Program, is_hidden_by_the_choice_of_a_device) {
    ExtendBench bench;
    bench.select("PIC16F877A");
    EXPECT_FALSE(bench.dialog->isVisible());
    bench.click<QPushButton>("Cmd_Extend_Program");
    EXPECT_TRUE(bench.dialog->isVisible());
    bench.select("PIC16F877A");
    EXPECT_FALSE(bench.dialog->isVisible()) << "the same device again";
}

TEST(frmExtend_Program, opens_at_first_beside_the_messages_and_the_stop_button) {
    for (const QPoint at : {QPoint{6, 6}, QPoint{0, 0}, QPoint{100, 60}}) {
        ExtendBench bench;
        bench.dialog->close();
        bench.window->move(at);
        bench.store.write(Settings::kSection, "ExtPgmLeft", "100");
        bench.store.write(Settings::kSection, "ExtPgmTop", "100");
        bench.click<QPushButton>("Cmd_Extend_Program");
        const QRect frame = bench.dialog->frameGeometry();
        for (const char* name : {"LabelCmt", "P_Bar", "Command_stop", "Command_program"}) {
            const auto* widget = bench.find<QWidget>(name);
            EXPECT_FALSE(frame.intersects({widget->mapToGlobal(QPoint{0, 0}), widget->size()}))
                << name << " with the window at " << at.x() << "," << at.y();
        }
        EXPECT_TRUE(bench.dialog->screen()->availableGeometry().contains(frame));
    }
}

TEST(frmExtend_Program, opens_where_the_user_has_left_it) {
    ExtendBench bench;
    bench.window->move(500, 0);
    bench.dialog->move(45, 60);
    QApplication::processEvents();
    bench.dialog->close();
    EXPECT_EQ(bench.store["ExtPgmLeft"], "675");
    EXPECT_EQ(bench.store["ExtPgmTop"], "900");
    bench.click<QPushButton>("Cmd_Extend_Program");
    EXPECT_EQ(bench.dialog->pos(), QPoint(45, 60));
}

TEST(frmExtend_Program, a_place_off_every_screen_is_not_taken) {
    ExtendBench bench;
    bench.dialog->close();
    bench.store.write(Settings::kSection, "ExtPgmLeft", "200000");
    bench.store.write(Settings::kSection, "ExtPgmTop", "-200000");
    bench.click<QPushButton>("Cmd_Extend_Program");
    EXPECT_TRUE(
        bench.dialog->screen()->availableGeometry().contains(bench.dialog->frameGeometry()));
}

TEST(frmExtend_Program, its_place_is_kept_when_the_program_ends_or_the_device_changes) {
    for (const bool program_ends : {true, false}) {
        ExtendBench bench;
        bench.dialog->move(30, 45);
        QApplication::processEvents();
        if (program_ends)
            bench.window->close();
        else
            bench.select("PIC16F877A");
        EXPECT_EQ(bench.store["ExtPgmLeft"], "450") << program_ends;
        EXPECT_EQ(bench.store["ExtPgmTop"], "675") << program_ends;
        EXPECT_FALSE(bench.dialog->isVisible()) << program_ends;
    }
}

}  // namespace
}  // namespace quillon::test
