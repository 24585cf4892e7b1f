// SPDX-License-Identifier: MIT
// The offer to reload a file that has changed on disk.
#include "forms/file_watch.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <fstream>

#include "form_bench.h"

namespace quillon::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* kOther = ":0200000001217C\n:00000001FF\n";

void write(const fs::path& path, std::string_view text) {
    std::ofstream{path, std::ios::trunc} << text;
}

bool soon(const std::function<bool()>& condition) { return QTest::qWaitFor(condition, 5000); }
// Longer than the watch waits for a file to be quiet.
void let_settle() { QTest::qWait(450); }

struct Watched {
    TempFolder folder;
    fs::path path;
    QWidget window;
    FileWatch watch{&window};

    Watched() {
        fs::create_directories(folder / "out/hex");
        path = folder / "out/hex/a.hex";
        write(path, ":00000001FF\n");
        window.show();
        watch.watch(QString::fromStdString(path.string()));
    }
    bool offered() const { return watch.isVisible(); }
    QString text() const { return watch.findChild<QLabel*>()->text(); }
    void later() {
        QTest::mouseClick(watch.findChild<QPushButton*>("reload_later"), Qt::LeftButton);
    }
};

TEST(FileWatch, a_deleted_file_that_comes_back_is_offered) {
    Watched bench;
    fs::remove(bench.path);
    ASSERT_TRUE(soon([&] { return bench.offered(); }));
    EXPECT_EQ(bench.text(), "a.hex が見つかりません。");
    write(bench.path, kOther);
    ASSERT_TRUE(soon([&] { return bench.text() == "a.hex が変更されました。"; }));
    EXPECT_TRUE(bench.watch.reload_button()->isVisible());
}

TEST(FileWatch, a_file_that_comes_back_as_it_was_takes_the_word_back) {
    Watched bench;
    fs::rename(bench.path, bench.folder / "kept");
    ASSERT_TRUE(soon([&] { return bench.offered(); }));
    fs::rename(bench.folder / "kept", bench.path);
    EXPECT_TRUE(soon([&] { return !bench.offered(); }));
}

TEST(FileWatch, a_folder_that_is_emptied_and_made_anew_is_followed) {
    Watched bench;
    fs::remove_all(bench.folder / "out");
    ASSERT_TRUE(soon([&] { return bench.offered(); }));
    fs::create_directories(bench.folder / "out");
    let_settle();
    fs::create_directories(bench.folder / "out/hex");
    let_settle();
    write(bench.path, kOther);
    EXPECT_TRUE(soon([&] { return bench.text() == "a.hex が変更されました。"; }));
}

TEST(FileWatch, a_change_that_was_put_off_is_not_offered_again_but_the_next_one_is) {
    Watched bench;
    write(bench.path, kOther);
    ASSERT_TRUE(soon([&] { return bench.offered(); }));
    bench.later();
    EXPECT_FALSE(bench.offered());
    write(bench.folder / "out/hex/another.hex", "x");  // the folder changes, the file doesn't
    let_settle();
    bench.watch.set_busy(true);
    bench.watch.set_busy(false);
    EXPECT_FALSE(bench.offered());
    write(bench.path, ":0100000000FF\n:00000001FF\n");
    EXPECT_TRUE(soon([&] { return bench.offered(); }));
}

TEST(FileWatch, a_file_that_is_gone_is_told_once) {
    Watched bench;
    fs::remove(bench.path);
    ASSERT_TRUE(soon([&] { return bench.offered(); }));
    bench.later();
    write(bench.folder / "out/hex/another.hex", "x");
    let_settle();
    EXPECT_FALSE(bench.offered());
}

TEST(FileWatch, offers_nothing_while_a_command_runs_and_then_what_has_changed_meanwhile) {
    Watched bench;
    bench.watch.set_busy(true);
    write(bench.path, kOther);
    let_settle();
    EXPECT_FALSE(bench.offered());
    bench.watch.set_busy(false);
    EXPECT_TRUE(bench.offered());
    EXPECT_EQ(bench.text(), "a.hex が変更されました。");
}

TEST(FileWatch, waits_until_a_file_that_is_being_written_is_quiet) {
    Watched bench;
    for (int part = 0; part < 8; ++part) {
        std::ofstream{bench.path, std::ios::app} << ":00000001FF\n";
        QTest::qWait(50);
        EXPECT_FALSE(bench.offered()) << part;
    }
    EXPECT_TRUE(soon([&] { return bench.offered(); }));
}

// In the window.

struct Loaded : FormBench {
    fs::path path = folder / "a.hex";
    FileWatch* watch = find<FileWatch>("reload_bar");

    Loaded() {
        write(path, ":0200000001117C\n:00000001FF\n");
        fs::last_write_time(path, fs::last_write_time(path) - std::chrono::hours{48});
        open(path);
    }
    void open(const fs::path& file) {
        window->load([&] { run->files.mnuFileOpen_Click(file); });
    }
    QString file_line() const { return find<QLabel>("file_at_hand")->text(); }
};

TEST(frmMain, loads_a_changed_file_when_asked_and_not_before) {
    Loaded bench;
    EXPECT_EQ(bench.run->session.PgmMem[1], 0x01);
    write(bench.path, kOther);
    ASSERT_TRUE(soon([&] { return bench.watch->isVisible(); }));
    EXPECT_EQ(bench.run->session.PgmMem[0], 0x11);
    QTest::mouseClick(bench.watch->reload_button(), Qt::LeftButton);
    EXPECT_EQ(bench.run->session.PgmMem[0], 0x21);
    EXPECT_FALSE(bench.watch->isVisible());
    EXPECT_EQ(bench.run->session.LoadResult, "OK");
}

TEST(frmMain, shows_the_date_of_the_file_as_it_was_loaded) {
    Loaded bench;
    const QString before = bench.file_line();
    EXPECT_TRUE(before.startsWith("a.hex   20")) << before.toStdString();
    write(bench.path, kOther);
    bench.window->command([] {});
    EXPECT_EQ(bench.file_line(), before);
    bench.open(bench.path);
    EXPECT_NE(bench.file_line(), before);
}

TEST(frmMain, a_file_that_was_refused_leaves_the_offer_for_the_one_at_hand) {
    Loaded bench;
    write(bench.path, kOther);
    ASSERT_TRUE(soon([&] { return bench.watch->isVisible(); }));
    bench.open(bench.folder / "none.hex");
    EXPECT_EQ(bench.run->session.LoadResult, "NG");
    EXPECT_TRUE(bench.watch->isVisible());
    EXPECT_TRUE(bench.file_line().endsWith("（バッファと相違）"))
        << bench.file_line().toStdString();
}

TEST(frmMain, offers_no_reload_in_the_middle_of_an_operation) {
    Loaded bench;
    int turns = 0;
    bench.on_turn = [&] {
        if (!bench.run->flows.running()) return;
        if (++turns == 1) {
            write(bench.path, kOther);
            let_settle();
        }
        EXPECT_FALSE(bench.watch->isVisible());
    };
    bench.click<QPushButton>("Command_blank");
    bench.on_turn = nullptr;
    EXPECT_GT(turns, 1);
    EXPECT_TRUE(bench.watch->isVisible());
    EXPECT_TRUE(bench.watch->reload_button()->isEnabled());
}

TEST(frmMain, a_production_run_can_not_reload) {
    Loaded bench;
    write(bench.path, kOther);
    ASSERT_TRUE(soon([&] { return bench.watch->isVisible(); }));
    bench.find<QAction>("mnuLock")->trigger();
    EXPECT_FALSE(bench.watch->reload_button()->isEnabled());
    bench.find<QAction>("mnuLock")->trigger();
    EXPECT_TRUE(bench.watch->reload_button()->isEnabled());
}

}  // namespace
}  // namespace quillon::test
