// SPDX-License-Identifier: MIT
// Files in the window: open, save, history, caption, and the two switches for reading them.
#include <QDropEvent>
#include <QMessageBox>
#include <QMimeData>
#include <QUrl>

#include "app/text.h"
#include "file_menu_bench.h"

namespace quillon::test {
namespace {

using std::string;

class file_menu : public FileMenuBench {};

}  // namespace

// Save.

TEST_F(file_menu, saves_by_the_menu_and_shows_name_and_date_of_the_new_file) {
    run().session.PgmMem[0] = 0x12;
    save(folder / "out.hex");
    EXPECT_TRUE(user.is_done());
    EXPECT_EQ(folder.read("out.hex").substr(0, 17), ":10000000FF12FF3F");
    EXPECT_EQ(message(), "out.hexファイル保存完了。  ");  // the message's own blank and the area's
    EXPECT_TRUE(title().starts_with("out.hex  Quillon V4 ")) << title();
    EXPECT_TRUE(file_line().starts_with("out.hex   20")) << file_line();
    EXPECT_EQ(file_line().find("バッファと相違"), string::npos);
    EXPECT_EQ(find<QLabel>("file_at_hand")->toolTip().toStdString(), path("out.hex"));
    EXPECT_EQ(store["SAVE_DIR"], folder.path().string());
}

TEST_F(file_menu, saves_by_the_button) {
    user.will(chooses(folder / "out.hex"));
    click("Cmd_save");
    EXPECT_TRUE(fs::exists(folder / "out.hex"));
    EXPECT_TRUE(file_line().starts_with("out.hex   20")) << file_line();
}

TEST_F(file_menu, asks_among_the_documents_or_beside_the_file_where_nothing_was_saved_yet) {
    const auto cancel_in = [](const std::string& wanted) {
        return [wanted](QWidget& form) {
            auto& dialog = dynamic_cast<QFileDialog&>(form);
            EXPECT_EQ(dialog.directory().absolutePath().toStdString(), wanted);
            dialog.reject();
        };
    };
    user.will(cancel_in(folder.path().string()));
    trigger("mnuFileSave");
    open(hex("one/a.hex"));
    user.will(cancel_in(path("one")));
    trigger("mnuFileSave");
}

TEST_F(file_menu, asks_for_a_name_in_the_folder_of_the_last_save_and_adds_the_extension) {
    fs::create_directory(folder / "saved");
    store.write(Settings::kSection, "SAVE_DIR", path("saved"));
    user.will([this](QWidget& form) {
        auto& dialog = dynamic_cast<QFileDialog&>(form);
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
        EXPECT_EQ(dialog.directory().absolutePath().toStdString(), path("saved"));
        EXPECT_EQ(dialog.nameFilters(),
                  (QStringList{"Hexファイル (*.HEX *.hex)", "全てのファイル (*)"}));
        chooses("new")(form);
    });
    trigger("mnuFileSave");
    EXPECT_TRUE(fs::exists(folder / "saved/new.Hex"));
}

TEST_F(file_menu, asks_once_before_it_replaces_a_file) {
    folder.write("out.hex", "old");
    user.will(chooses(folder / "out.hex")).will([](QWidget& form) {
        const auto& box = dynamic_cast<QMessageBox&>(form);
        EXPECT_EQ(box.windowTitle(), "上書き保存");
        EXPECT_EQ(box.text(), "ファイルが存在します。上書きしますか？");
        EXPECT_EQ(box.icon(), QMessageBox::Question);
        EXPECT_EQ(box.buttons().size(), 2);
        presses("OK")(form);
    });
    click("Cmd_save");
    EXPECT_TRUE(user.is_done());
    EXPECT_TRUE(folder.read("out.hex").starts_with(":10000000FF3F"));
}

TEST_F(file_menu, leaves_all_in_sight_as_it_was_where_the_user_does_not_want_to_replace) {
    open(hex("a.hex"));
    const auto line = file_line();
    folder.write("out.hex", "old");
    for (const auto& no : {presses("キャンセル"), escapes("replace")}) {
        user.will(chooses(folder / "out.hex")).will(no);
        trigger("mnuFileSave");
        EXPECT_EQ(message(), "ファイル保存をキャンセルしました。  ");
    }
    user.will(escapes("file_dialog"));
    trigger("mnuFileSave");
    EXPECT_EQ(message(), "ファイル保存をキャンセルしました。  ");
    EXPECT_EQ(folder.read("out.hex"), "old");
    EXPECT_EQ(file_line(), line);
    EXPECT_TRUE(title().starts_with("a.hex  ")) << title();
}

TEST_F(file_menu, tells_a_save_that_failed_and_keeps_the_file_in_sight) {
    open(hex("a.hex"));
    const auto line = file_line();
    const auto caption = title();
    save(folder / "none/out.hex");
    EXPECT_TRUE(message().starts_with("ファイルを保存できませんでした。 ")) << message();
    EXPECT_EQ(run().form.LabelCmt.ForeColor.get(), Colour::Red);
    EXPECT_EQ(file_line(), line);
    EXPECT_EQ(title(), caption);
}

TEST_F(file_menu, needs_a_device_to_save) {
    run().session.DeviceName.clear();
    user.will([](QWidget& form) {
        EXPECT_EQ(form.windowTitle(), "ｲﾝﾌｫﾒｰｼｮﾝ");
        form.close();
    });
    trigger("mnuFileSave");
    EXPECT_TRUE(user.is_done());
    EXPECT_EQ(message(), "MCUを選んでください。 ");
}

TEST_F(file_menu, saving_over_the_file_at_hand_is_no_change_to_be_offered) {
    open(hex("a.hex"));
    run().session.PgmMem[0] = 0x11;
    user.will(chooses(folder / "a.hex")).will(presses("OK"));
    trigger("mnuFileSave");
    EXPECT_NE(folder.read("a.hex").find(":100000003411"), string::npos);
    let_settle();
    EXPECT_FALSE(offered());
    window().command([] {});
    EXPECT_FALSE(offered());
}

TEST_F(file_menu, watches_the_saved_file_from_then_on_and_no_longer_the_one_before) {
    open(hex("a.hex"));
    save(folder / "out.hex");
    let_settle();
    EXPECT_FALSE(offered());
    hex("a.hex", ";\n");
    let_settle();
    EXPECT_FALSE(offered());
    folder.write("out.hex", ":020000007816700\n:00000001FF\n");
    EXPECT_TRUE(QTest::qWaitFor([this] { return offered(); }, 5000));
    QTest::mouseClick(find<QPushButton>("reload"), Qt::LeftButton);
    EXPECT_EQ(run().session.PgmMem[0], 0x16);
    EXPECT_TRUE(file_line().starts_with("out.hex   20")) << file_line();
}

TEST_F(file_menu, a_save_takes_back_the_offer_and_one_that_is_cancelled_does_not) {
    open(hex("a.hex"));
    hex("a.hex", ";\n");
    ASSERT_TRUE(QTest::qWaitFor([this] { return offered(); }, 5000));
    user.will(escapes("file_dialog"));
    trigger("mnuFileSave");
    EXPECT_TRUE(offered());
    save(folder / "out.hex");
    EXPECT_FALSE(offered());
}

TEST_F(file_menu, saved_image_is_the_one_in_the_buffer_until_the_buffer_changes) {
    trigger("mnuPcBufferMemory_0");
    save(folder / "out.hex");
    EXPECT_EQ(file_line().find("バッファと相違"), string::npos);
    trigger("mnuPcBufferMemoryClear");
    EXPECT_TRUE(file_line().ends_with("（バッファと相違）")) << file_line();
}

TEST_F(file_menu, keys_open_and_save_but_not_in_a_production_run) {
    const auto type = [this](Qt::Key key) {
        window().activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
        QTest::keyClick(&window(), key, Qt::ControlModifier);
    };
    for (const auto key : {Qt::Key_S, Qt::Key_O}) {
        user.will(escapes("file_dialog"));
        type(key);
        EXPECT_TRUE(user.is_done()) << key;
    }
    trigger("mnuLock");
    // No answer is expected: a dialog would fail the test.
    type(Qt::Key_S);
    type(Qt::Key_O);
    EXPECT_FALSE(find<QPushButton>("Cmd_save")->isEnabled());
}

// Open, drop and the caption.

TEST_F(file_menu, opens_by_menu_and_button_in_the_folder_of_the_last_file) {
    open(hex("one/a.hex"));
    EXPECT_EQ(run().session.LoadResult, "OK");
    EXPECT_TRUE(title().starts_with("a.hex  Quillon V4 ")) << title();
    user.will([this](QWidget& form) {
        const auto& dialog = dynamic_cast<QFileDialog&>(form);
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptOpen);
        EXPECT_EQ(dialog.directory().absolutePath().toStdString(), path("one"));
        chooses(hex("two/b.hex"))(form);
    });
    click("Cmd_open");
    EXPECT_TRUE(title().starts_with("b.hex  Quillon V4 ")) << title();
    EXPECT_EQ(store["OPEN_DIR0"], path("two"));
}

TEST_F(file_menu, a_cancelled_open_tells_so_and_marks_the_file_whose_image_is_gone) {
    open(hex("a.hex"));
    user.will(escapes("file_dialog"));
    trigger("mnuFileOpen");
    EXPECT_EQ(message(),
              "ファイルをオープンできませんでした。 \r\nバッファメモリはクリアされました。 ");
    EXPECT_TRUE(title().starts_with("a.hex  ")) << title();
    EXPECT_TRUE(file_line().ends_with("（バッファと相違）")) << file_line();
}

TEST_F(file_menu, a_file_for_a_device_that_is_not_there_is_told_in_a_box_and_loaded) {
    user.will(chooses(hex("a.hex", ";PIC99F99\n"))).will([](QWidget& form) {
        const auto& box = dynamic_cast<QMessageBox&>(form);
        EXPECT_EQ(box.icon(), QMessageBox::Information);
        EXPECT_EQ(box.text(),
                  "HEXファイル内に、サポート外のデバイス名(PIC99F99)が設定されています。\n"
                  "現在のデバイス設定のままHEXファイルをロードします。");
        form.close();
    });
    trigger("mnuFileOpen");
    EXPECT_TRUE(user.is_done());
    EXPECT_EQ(run().session.LoadResult, "OK");
    EXPECT_EQ(run().session.DeviceName, "PIC16F877A");
}

TEST_F(file_menu, a_dropped_file_selects_its_device_and_enters_the_history_as_an_opened_one) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(
        QString::fromStdString(hex("Dropped/d.hex", ";PIC16F84A\n").string()))});
    QDragEnterEvent enter{{10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier};
    QApplication::sendEvent(&window(), &enter);
    QDropEvent event{{10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier};
    QApplication::sendEvent(&window(), &event);
    QApplication::processEvents();
    EXPECT_EQ(run().session.DeviceName, "PIC16F84A");
    EXPECT_TRUE(title().starts_with("d.hex  Quillon V4 ")) << title();
    EXPECT_TRUE(file_line().starts_with("d.hex   20")) << file_line();
    EXPECT_EQ(find<QAction>("nmuFile1")->text().toStdString(),
              lower(path("Dropped")) + "    PIC16F84A");
    EXPECT_EQ(store["OPEN_DIR0"], path("Dropped"));
}

TEST_F(file_menu, takes_no_drop_in_a_production_run) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(hex("d.hex").string()))});
    const auto accepted = [&] {
        QDragEnterEvent enter{{10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier};
        QApplication::sendEvent(&window(), &enter);
        return enter.isAccepted();
    };
    EXPECT_TRUE(accepted());
    trigger("mnuLock");
    EXPECT_FALSE(accepted());
    trigger("mnuLock");
    EXPECT_TRUE(accepted());
}

// The history.

TEST_F(file_menu, a_history_entry_selects_its_device_and_asks_in_its_folder) {
    open(hex("First/a.hex", ";PIC16F84A\n"));
    open(hex("second/b.hex", ";PIC16F877A\n"));
    EXPECT_EQ(find<QAction>("nmuFile2")->text().toStdString(),
              lower(path("First")) + "    PIC16F84A");
    // The file isn't searched for a device name: the entry's device stays.
    const auto file = hex("First/c.hex", ";PIC16F877A\n");
    user.will([&](QWidget& form) {
        EXPECT_EQ(run().session.DeviceName, "PIC16F84A");
        EXPECT_EQ(dynamic_cast<QFileDialog&>(form).directory().absolutePath().toStdString(),
                  path("First"));
        chooses(file)(form);
    });
    trigger("nmuFile2");
    EXPECT_EQ(run().session.DeviceName, "PIC16F84A");
    EXPECT_TRUE(file_line().starts_with("c.hex   20")) << file_line();
    EXPECT_TRUE(title().starts_with("c.hex  Quillon V4 ")) << title();
    EXPECT_EQ(store["OPEN_DIR0"], path("second"));
    EXPECT_FALSE(find<QAction>("nmuFile3")->isVisible());
}

TEST_F(file_menu, history_and_folder_come_back_at_the_next_start) {
    open(hex("one/a.hex"));
    start();
    EXPECT_TRUE(title().starts_with("Quillon V4 ")) << title();
    EXPECT_TRUE(title().ends_with(path("one"))) << title();
    EXPECT_EQ(find<QAction>("nmuFile1")->text().toStdString(),
              lower(path("one")) + "    PIC16F877A");
    EXPECT_TRUE(find<QAction>("nmuFile1")->isVisible());
    EXPECT_FALSE(find<QAction>("nmuFile2")->isVisible());
}

// The two switches for reading.

TEST_F(file_menu, file_check_is_on_at_first_and_its_entry_switches_it) {
    const auto cut_off = folder.write("a.hex", ":020000003412B8\n");
    const string finding =
        "ファイル検査：終了レコードがありません（途中で切れたファイルの可能性があります）";
    EXPECT_TRUE(find<QAction>("HexFileCheck")->isChecked());
    open(cut_off);
    EXPECT_NE(message().find(finding), string::npos) << message();
    EXPECT_TRUE(message().starts_with("ファイルロード完了")) << message();

    trigger("HexFileCheck");
    EXPECT_FALSE(find<QAction>("HexFileCheck")->isChecked());
    EXPECT_EQ(store["HexFileCheck"], "0");
    open(cut_off);
    EXPECT_EQ(message(), "ファイルロード完了 ");

    start();
    EXPECT_FALSE(find<QAction>("HexFileCheck")->isChecked());
    EXPECT_FALSE(run().form.HexFileCheck.Checked.get());
    trigger("HexFileCheck");
    EXPECT_EQ(store["HexFileCheck"], "1");
    start();
    EXPECT_TRUE(find<QAction>("HexFileCheck")->isChecked());
}

TEST_F(file_menu, upper_addresses_are_off_at_first_and_their_entry_switches_them) {
    run().form.Combo_device.select("PIC16F1938");
    const auto file = folder.write("a.hex", ":020000040001F9\n:02000E00A40F3D\n:00000001FF\n");
    EXPECT_FALSE(find<QAction>("HexUpperAddress")->isChecked());
    open(file);
    EXPECT_EQ(run().session.PgmMem[0x0E], 0x0F);
    EXPECT_NE(message().find("HexUpperAddress"), string::npos) << message();

    trigger("HexUpperAddress");
    EXPECT_TRUE(find<QAction>("HexUpperAddress")->isChecked());
    EXPECT_EQ(store["HexUpperAddress"], "1");
    open(file);
    EXPECT_EQ(run().session.PgmMem[0x0E], 0x3F);
    EXPECT_EQ(run().session.CfgIdMem[15], 0xA4);
    EXPECT_EQ(message(), "ファイルロード完了 ");

    start();
    EXPECT_TRUE(find<QAction>("HexUpperAddress")->isChecked());
    run().form.Combo_device.select("PIC16F1938");
    save(folder / "full.hex");
    EXPECT_NE(folder.read("full.hex").find(":020000040001F9\r\n:08000000"), string::npos);
    trigger("HexUpperAddress");
    EXPECT_EQ(store["HexUpperAddress"], "0");
    save(folder / "folded.hex");
    EXPECT_EQ(folder.read("folded.hex").find(":02000004"), string::npos);
    EXPECT_NE(message().find("オプション「HEXファイルの上位アドレスを使う」(HexUpperAddress)"),
              string::npos)
        << message();
}

}  // namespace quillon::test
