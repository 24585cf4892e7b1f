// SPDX-License-Identifier: MIT
// The program around the window: arguments, the command line's port, the simulated board, the file
// watch, and how long the window fails to react by the machine's clock.
#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <fstream>

#include "form_bench.h"
#include "forms/chosen_port.h"
#include "forms/file_watch.h"
#include "forms/qt_dialogs.h"
#include "forms/window_options.h"
#include "platform/qt_host.h"

namespace quillon::test {
namespace {

WindowOptions read(const std::vector<std::string>& arguments) {
    return read_window_options(arguments);
}

TEST(window_options, takes_its_own_out_and_leaves_the_rest_in_order) {
    const auto options = read({"a b.hex", "--home", "/tmp/h", "/PIC16F877A", "--port=sim", "-style",
                               "fusion", "--catalogue", "d.ini"});
    EXPECT_EQ(options.home, "/tmp/h");
    EXPECT_EQ(options.port, "sim");
    EXPECT_EQ(options.catalogue, "d.ini");
    EXPECT_EQ(options.rest,
              (std::vector<std::string>{"a b.hex", "/PIC16F877A", "-style", "fusion"}));
    EXPECT_FALSE(options.bad.has_value());
}

TEST(window_options, tells_what_it_does_not_understand) {
    EXPECT_EQ(read({"--prot", "sim"}).bad, "unknown option --prot");
    EXPECT_EQ(read({"--port"}).bad, "--port needs a value");
    EXPECT_EQ(read({"--home="}).bad, "--home needs a value");
    EXPECT_EQ(read({"--port", "--help"}).bad, "--port needs a value");
    EXPECT_EQ(read({"--help=x"}).bad, "unknown option --help=x");
    EXPECT_TRUE(read({"--help"}).help);
    EXPECT_TRUE(read({"--version"}).version);
}

TEST(ChosenPort, stands_for_the_saved_port_until_the_user_chooses_another) {
    MemoryStore saved;
    saved.write("Settings6", "ComNo", "7");
    ChosenPort store{saved, 3};
    EXPECT_EQ(store.read("Settings6", "ComNo"), "3");
    EXPECT_EQ(store.read("HostPorts", "ComNo"), std::nullopt);
    EXPECT_EQ(saved["ComNo"], "7");
    store.write("Settings6", "ComNo", "5");
    EXPECT_EQ(store.read("Settings6", "ComNo"), "5");
    EXPECT_EQ(saved["ComNo"], "5");
}

TEST(ChosenPort, without_a_port_of_the_command_line_is_the_saved_one) {
    MemoryStore saved;
    saved.write("Settings6", "ComNo", "7");
    EXPECT_EQ((ChosenPort{saved, 0}.read("Settings6", "ComNo")), "7");
}

TEST(SimulatedSocket, stands_behind_com1_alone) {
    FakeHost host;
    SimulatedSocket socket{host, 0};
    socket.port().CommPort(2);
    EXPECT_EQ(socket.port().open(), PortOpen::Unavailable);
    socket.port().CommPort(1);
    EXPECT_EQ(socket.port().open(), PortOpen::Ok);
}

TEST(SimulatedSocket, gets_a_blank_part_when_the_device_changes_and_keeps_it_when_not) {
    FormBench bench{"PIC16F877A"};
    SimulatedSocket socket{bench.host, 0};
    socket.follow(*bench.run);
    bench.run->form.Combo_device.select("PIC12F675");
    EXPECT_EQ(socket.board().target().name, "PIC12F675");
    EXPECT_EQ(socket.board().target().program.size(), 1024U);
    socket.board().target().program[0] = 0x1234;
    bench.run->form.Combo_device.select("PIC12F675");
    EXPECT_EQ(socket.board().target().program[0], 0x1234);
    bench.run->form.Combo_device.select("PIC16F84A");
    EXPECT_EQ(socket.board().target().program[0], 0x3FFF);
}

void write(const std::filesystem::path& path, const char* text) {
    std::ofstream{path, std::ios::trunc} << text;
}

struct Watched {
    TempFolder folder;
    std::filesystem::path path = folder.write("a.hex", ":00000001FF\n");
    QWidget window;
    FileWatch watch{&window};
    Watched() {
        window.show();
        watch.watch(QString::fromStdString(path.string()));
    }
    QString text() { return watch.findChild<QLabel*>()->text(); }
};

TEST(FileWatch, offers_a_changed_file_and_loads_it_only_when_asked) {
    Watched bench;
    int reloads = 0;
    bench.watch.on_reload = [&] { ++reloads; };
    EXPECT_FALSE(bench.watch.isVisible());
    write(bench.path, ":0100000000FF\n:00000001FF\n");
    ASSERT_TRUE(QTest::qWaitFor([&] { return bench.watch.isVisible(); }, 5000));
    EXPECT_EQ(bench.text(), "a.hex が変更されました。");
    EXPECT_EQ(reloads, 0);
    QTest::mouseClick(bench.watch.reload_button(), Qt::LeftButton);
    EXPECT_EQ(reloads, 1);
}

TEST(FileWatch, notices_a_file_that_is_replaced_as_editors_do) {
    Watched bench;
    write(bench.folder / "a.new", ":0100000011EE\n:00000001FF\n");
    std::filesystem::rename(bench.folder / "a.new", bench.path);
    EXPECT_TRUE(QTest::qWaitFor([&] { return bench.watch.isVisible(); }, 5000));
    EXPECT_EQ(bench.text(), "a.hex が変更されました。");
}

TEST(FileWatch, tells_of_a_file_that_is_gone_and_offers_no_reload) {
    Watched bench;
    std::filesystem::remove(bench.path);
    ASSERT_TRUE(QTest::qWaitFor([&] { return bench.watch.isVisible(); }, 5000));
    EXPECT_EQ(bench.text(), "a.hex が見つかりません。");
    EXPECT_FALSE(bench.watch.reload_button()->isVisible());
}

// The only test by the machine's clock: it measures how long the window doesn't react.
TEST(frmMain, is_never_still_for_100_ms_while_a_device_is_programmed) {
    TempFolder folder;
    QtHost host{QtHost::Interface::Window, {.home = folder.path(), .data = folder.path()}};
    MemoryStore store;
    store.write(Settings::kSection, "ComNo", "1");
    store.write(Settings::kSection, "mnuBoardInfomation", "False");
    FakeDialogs dialogs;
    SimulatedSocket socket{host, 0};
    socket.board().times() = BoardTimes::none();
    // Without the namespace, Run would be a member of the test case.
    quillon::Run run{store, host, socket.port(), dialogs};
    run.session.CatalogueFile = QUILLON_CATALOGUE;
    socket.follow(run);
    StartUp start_up{run};
    frmMain window{run,
                   {.give_up = [&host] { host.give_up(Abandoned::Reason::Closed); },
                    .frame = [](const std::function<void()>& act) { act(); },
                    .leave = {}}};
    window.command([&] { start_up.Main("", false); });
    run.form.Combo_device.select("PIC16F873");

    QElapsedTimer since;
    qint64 longest = 0;
    int turns = 0;
    QTimer heart;
    QObject::connect(&heart, &QTimer::timeout, [&] {
        longest = std::max(longest, since.restart());
        ++turns;
    });
    heart.start(10);
    since.start();
    QTest::mouseClick(window.findChild<QPushButton*>("Command_program"), Qt::LeftButton);
    longest = std::max(longest, since.elapsed());
    EXPECT_EQ(run.session.TryCount, 1) << run.form.LabelCmt.Caption.get();
    EXPECT_GT(turns, 50);
#if defined(__SANITIZE_ADDRESS__)
    EXPECT_LT(longest, 300);  // the sanitizers make everything slower
#else
    EXPECT_LT(longest, 100);
#endif
}

}  // namespace
}  // namespace quillon::test
