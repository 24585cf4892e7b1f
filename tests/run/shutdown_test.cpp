// SPDX-License-Identifier: MIT
#include "start_up_bench.h"

namespace quillon {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

constexpr std::array kTemporary{"temp.txt", "pgmmemory_temp.txt", "eepmemory_temp.txt",
                                "dis_asm.asm", "eepmemory_temp.asm"};

class shutdown_ : public test::StartUpBench {
  protected:
    shutdown_() {
        with_board();
        start();
        for (const auto* name : kTemporary) put_work_file(name, "x");
        run.form.Left = 11;
        run.form.Top = 22;
        run.form.Height = 3333;
    }
};

TEST_F(shutdown_, deletes_the_temporary_files_and_keeps_the_logs_and_the_folder) {
    put_work_file("LOG_NEW0.txt", "line\n");
    start_up.shutdown(false);
    for (const auto* name : kTemporary) EXPECT_FALSE(fs::exists(work(name))) << name;
    EXPECT_EQ(work_file("LOG_NEW0.txt"), "line\n");
    EXPECT_TRUE(fs::exists(work("LOG_OLD9.txt")));
}

TEST_F(shutdown_, saves_the_forms_place) {
    start_up.shutdown(false);
    EXPECT_EQ(store["MainLeft"], "11");
    EXPECT_EQ(store["MainTop"], "22");
    EXPECT_EQ(store["MainHeight"], "3333");
}

TEST_F(shutdown_, keeps_the_last_place_of_a_minimized_window) {
    set("MainLeft", "7");
    start_up.shutdown(true);
    EXPECT_EQ(store["MainLeft"], "7");
    EXPECT_EQ(store["MainTop"], "<none>");
    EXPECT_FALSE(fs::exists(work("temp.txt")));
}

TEST_F(shutdown_, closes_the_port_after_the_boards_last_bytes) {
    ASSERT_EQ(port.open(), PortOpen::Ok);
    host.sleeps.clear();
    start_up.shutdown(false);
    EXPECT_FALSE(port.is_open());
    EXPECT_EQ(host.sleeps, (std::vector<std::chrono::milliseconds>{200ms, 200ms}));
}

TEST_F(shutdown_, deletes_a_view_that_was_written_while_the_port_was_closed) {
    host.on_pump = [&] { put_work_file("pgmmemory_temp.txt", "again"); };
    start_up.shutdown(false);
    EXPECT_FALSE(fs::exists(work("pgmmemory_temp.txt")));
}

TEST_F(shutdown_, starts_nothing_any_more) {
    int turns = 0;
    host.on_pump = [&] {
        ++turns;
        EXPECT_FALSE(run.form.Enabled.get());
    };
    start_up.shutdown(false);
    EXPECT_GT(turns, 0);
}

TEST_F(shutdown_, deletes_the_views_before_it_closes_the_port) {
    bool looked = false;
    host.on_pump = [&] {
        if (std::exchange(looked, true)) return;
        EXPECT_FALSE(fs::exists(work("temp.txt")));
        EXPECT_FALSE(fs::exists(work("pgmmemory_temp.txt")));
        EXPECT_FALSE(fs::exists(work("eepmemory_temp.txt")));
        EXPECT_TRUE(fs::exists(work("dis_asm.asm")));
    };
    start_up.shutdown(false);
    EXPECT_TRUE(looked);
}

TEST_F(shutdown_, goes_on_over_every_error) {
    fs::remove(work("temp.txt"));
    fs::create_directories(work("temp.txt/inside"));
    store.writable = false;
    ASSERT_EQ(port.open(), PortOpen::Ok);
    host.on_pump = [] { throw Abandoned{Abandoned::Reason::Closed}; };
    start_up.shutdown(false);
    EXPECT_FALSE(port.is_open());
    EXPECT_FALSE(fs::exists(work("eepmemory_temp.asm")));
}

TEST_F(shutdown_, of_a_second_instance_leaves_the_firsts_files_alone) {
    quillon::Run other{store, host, port, dialogs};
    StartUp second{other};
    EXPECT_EQ(second.Main("", true), StartUp::End::EndProcess);
    second.shutdown(false);
    EXPECT_EQ(work_file("temp.txt"), "x");
    EXPECT_EQ(store["MainLeft"], "<none>");
}

}  // namespace
}  // namespace quillon
