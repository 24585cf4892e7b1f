// SPDX-License-Identifier: MIT
// The menu bar: its entries with their texts and keys, and when they can be used.
#include "forms/main_menus.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QComboBox>
#include <QImage>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <set>
#include <utility>
#include <vector>

#include "app/buttons.h"
#include "form_bench.h"

namespace quillon::test {
namespace {

constexpr const char* kBlinker = QUILLON_EXAMPLES "/blinker.hex";

void load(FormBench& bench, const std::filesystem::path& path) {
    bench.window->load([&] { bench.run->files.mnuFileOpen_Click(path); });
}

struct Entry {
    const char* name;
    const char* menu;
    const char* text;
    const char* key;
};

// Prints only the name, so that a failure names the entry.
void PrintTo(const Entry& entry, std::ostream* stream) { *stream << entry.name; }

class Menus : public testing::TestWithParam<Entry> {};

TEST_P(Menus, have_this_entry_with_its_text_and_key) {
    FormBench bench;
    const Entry& entry = GetParam();
    auto* menu = bench.find<QMenu>(entry.menu);
    auto* action = bench.find<QAction>(entry.name);
    EXPECT_TRUE(menu->actions().contains(action));
    EXPECT_EQ(action->text().toStdString(), entry.text);
    EXPECT_EQ(action->shortcut().toString().toStdString(), entry.key);
    EXPECT_TRUE(action->isVisible());
    EXPECT_TRUE(action->isEnabled());
}

INSTANTIATE_TEST_SUITE_P(
    frmMain, Menus,
    testing::Values(Entry{"mnuFileOpen", "file", "HEXファイルを開く(&O)...", "Ctrl+O"},
                    Entry{"mnuFileSave", "file", "HEXファイルを保存(&S)...", "Ctrl+S"},
                    Entry{"nmuHistryClear", "file", "履歴のクリア(&C)", ""},
                    Entry{"mnuLogFileOpen", "file", "ログファイルを開く(&L)", ""},
                    Entry{"exit", "file", "終了(&X)", "Ctrl+Q"},
                    Entry{"mnuPcBufferMemoryClear", "buffer_menu",
                          "ＰＣバッファメモリ - ALL\"1\"(クリア)(&P)", ""},
                    Entry{"mnuPcBufferMemory_0", "buffer_menu", "ＰＣバッファメモリ - ALL\"0\"",
                          ""},
                    Entry{"mnuPgmErase", "device_menu", "プログラムメモリ消去", ""},
                    Entry{"mnuChipErase", "device_menu", "チップイレース", ""},
                    Entry{"mnuComPort", "option_menu", "ＣＯＭポート設定", ""},
                    Entry{"mnuComMode1", "option_menu", "通信モードその１", ""},
                    Entry{"mnuBlankSkip", "option_menu",
                          "プログラム時のブランクチェックをスキップ(Flashマイコンのみ)", ""},
                    Entry{"mnuLock", "option_menu",
                          "連続プログラムモード（ﾌﾟﾛｸﾞﾗﾑに不必要なﾎﾞﾀﾝを無効化）", ""},
                    Entry{"HexFileCheck", "option_menu", "ロード時にHEXファイルを検査", ""},
                    Entry{"HexUpperAddress", "option_menu",
                          "HEXファイルの上位アドレスを使う(PIC12F1xxx,PIC16F1xxx)", ""},
                    Entry{"mnuBoardInfomation", "option_menu", "ボード情報ウインドウの表示", ""},
                    Entry{"mnuFrmmainHight", "option_menu", "ウインドウの高さを少し伸ばす", ""},
                    Entry{"mnuHelp", "help_menu", "ヘルプ(&H)", "F1"},
                    Entry{"mnuBoardAmend", "help_menu", "製作確認資料.pdf(&A)", ""}));

TEST(Menus, letters_of_one_menu_do_not_meet) {
    FormBench bench;
    for (const auto* menu : bench.window->menuBar()->findChildren<QMenu*>()) {
        std::multiset<QString> letters;
        for (const auto* action : menu->actions()) {
            const auto at = action->text().indexOf('&');
            if (action->isVisible() && at >= 0) letters.insert(action->text().mid(at + 1, 1));
        }
        for (const auto& letter : letters)
            EXPECT_EQ(letters.count(letter), 1U)
                << menu->objectName().toStdString() << " " << letter.toStdString();
    }
}

QImage picture_of(QMenu& menu) {
    menu.adjustSize();
    return menu.grab().toImage();
}

// Compares each entry with its picture in a wider menu. Keys at the right end may move.
TEST(Menus, show_their_texts_whole) {
    FormBench bench;
    int compared = 0;
    for (const auto* title : bench.window->menuBar()->actions()) {
        auto* menu = title->menu();
        const QImage picture = picture_of(*menu);
        std::vector<std::pair<QAction*, QRect>> entries;
        for (auto* action : menu->actions())
            if (action->isVisible() && !action->isSeparator() && action->shortcut().isEmpty() &&
                !action->text().contains('\t'))
                entries.emplace_back(action, menu->actionGeometry(action));
        compared += static_cast<int>(entries.size());
        menu->setMinimumWidth(picture.width() + 100);
        const QImage wide = picture_of(*menu);
        ASSERT_GT(wide.width(), picture.width());
        for (const auto& [action, area] : entries) {
            const QRect text = area.adjusted(0, 0, -8, 0);
            EXPECT_TRUE(picture.copy(text) == wide.copy(text)) << action->text().toStdString();
        }
    }
    EXPECT_GE(compared, 15);
}

TEST(Menus, keys_start_one_entry_each) {
    FormBench bench;
    std::multiset<QString> keys;
    for (const auto* action : bench.window->findChildren<QAction*>())
        if (!action->shortcut().isEmpty()) keys.insert(action->shortcut().toString());
    for (const auto& key : keys) EXPECT_EQ(keys.count(key), 1U) << key.toStdString();
    EXPECT_GE(keys.size(), 7U);
}

TEST(Menus, of_a_locked_window_are_disabled_as_the_buttons_are) {
    FormBench bench;
    LockButtons(bench.run->form);
    EXPECT_FALSE(bench.find<QMenu>("file")->isEnabled());
    for (const char* name : {"mnuHelp", "mnuPcBufferMemoryClear"})
        EXPECT_FALSE(bench.find<QAction>(name)->isEnabled()) << name;
    for (const char* name : {"mnuLock", "mnuBlankSkip", "mnuBoardInfomation"})
        EXPECT_TRUE(bench.find<QAction>(name)->isEnabled()) << name;
    UnlockButtons(bench.run->session.PgmType.text(), bench.run->form);
    EXPECT_TRUE(bench.find<QMenu>("file")->isEnabled());
    EXPECT_TRUE(bench.find<QAction>("mnuHelp")->isEnabled());
}

TEST(Menus, skip_mode_belongs_to_flash_parts) {
    FormBench bench{"PIC16F877A"};
    EXPECT_TRUE(bench.find<QAction>("mnuBlankSkip")->isEnabled());
    bench.select("PIC12C508");
    EXPECT_FALSE(bench.find<QAction>("mnuBlankSkip")->isEnabled());
}

TEST(mnuLock, leaves_the_three_buttons_of_production_and_puts_the_focus_on_program) {
    FormBench bench;
    bench.window->activateWindow();
    bench.find<QAction>("mnuLock")->trigger();
    for (const char* name : {"Command_program", "Command_blank", "Command_Verify"})
        EXPECT_TRUE(bench.find<QPushButton>(name)->isEnabled()) << name;
    for (const char* name : {"Command_read", "Cmd_open", "Command_com"})
        EXPECT_FALSE(bench.find<QPushButton>(name)->isEnabled()) << name;
    EXPECT_FALSE(bench.find<QComboBox>("Combo_device")->isEnabled());
    EXPECT_EQ(bench.window->focusWidget(), bench.find<QPushButton>("Command_program"));
    bench.click<QPushButton>("Command_blank");
    EXPECT_TRUE(bench.find<QPushButton>("Command_blank")->isEnabled());
    EXPECT_FALSE(bench.find<QPushButton>("Command_read")->isEnabled());
    bench.find<QAction>("mnuLock")->trigger();
    EXPECT_TRUE(bench.find<QPushButton>("Command_read")->isEnabled());
}

TEST(mnuFrmmainHight, makes_the_window_a_little_taller) {
    FormBench bench;
    bench.run->form.Height = 500 * kTwips;
    bench.run->form.Placed.emit();
    const int before = bench.window->height();
    bench.find<QAction>("mnuFrmmainHight")->trigger();
    EXPECT_GT(bench.window->height(), before);
    EXPECT_LT(bench.window->height(), before + 60);
}

TEST(history, entries_are_shown_once_there_is_a_file_and_cleared_again) {
    FormBench bench;
    EXPECT_FALSE(bench.find<QAction>("nmuFile1")->isVisible());
    load(bench, kBlinker);
    EXPECT_TRUE(bench.find<QAction>("nmuFile1")->isVisible());
    EXPECT_TRUE(bench.find<QAction>("nmuFile1")->text().endsWith("    PIC16F877A"));
    EXPECT_FALSE(bench.find<QAction>("nmuDevice1")->isVisible());
    EXPECT_FALSE(bench.find<QAction>("nmuFile2")->isVisible());
    bench.find<QAction>("nmuHistryClear")->trigger();
    EXPECT_FALSE(bench.find<QAction>("nmuFile1")->isVisible());
}

TEST(history, an_ampersand_in_a_path_is_shown) {
    FormBench bench;
    const auto folder = bench.folder / "R&D";
    std::filesystem::create_directory(folder);
    std::filesystem::copy_file(kBlinker, folder / "a.hex");
    load(bench, folder / "a.hex");
    const auto* entry = bench.find<QAction>("nmuFile1");
    EXPECT_TRUE(entry->text().endsWith("/r&&d    PIC16F877A")) << entry->text().toStdString();
    EXPECT_TRUE(bench.run->form.nmuFile[0].Caption.get().ends_with("/r&d    PIC16F877A"));
}

}  // namespace
}  // namespace quillon::test
