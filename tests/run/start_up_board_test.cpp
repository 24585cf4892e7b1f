// SPDX-License-Identifier: MIT
#include "start_up_bench.h"

namespace quillon {
namespace {

using namespace std::chrono_literals;
using End = StartUp::End;

class Main_board : public test::StartUpBench {};

TEST_F(Main_board, searches_the_saved_port_and_closes_it_again) {
    with_board();
    EXPECT_EQ(start(), End::Ready);
    EXPECT_EQ(port.chosen, 3);
    EXPECT_EQ(run.session.ComNo, 3);
    EXPECT_TRUE(run.session.WriterFound);
    EXPECT_EQ(run.form.Label_FirmwareVersion.Caption.get(), "COM3 : ZQ-LDR412A V6.80");
    EXPECT_FALSE(port.is_open());
    EXPECT_EQ(port.problem(), "");
    EXPECT_EQ(dialogs.options_shown, 0);
}

TEST_F(Main_board, says_that_no_board_is_connected_while_it_searches) {
    std::string label;
    port.when("?");
    port.when("?", test::kIdentity);
    host.on_pump = [&] {
        if (port.is_open() && label.empty()) label = run.form.Label_FirmwareVersion.Caption.get();
    };
    start();
    EXPECT_EQ(label, "COM3 ライター未接続");
}

TEST_F(Main_board, searches_in_the_communication_mode_that_was_left) {
    for (const auto* mode : {"1", "0"}) {
        with_board();
        set("mnuComMode1", mode);
        run.session.WriterFound = false;
        journal.clear();
        start();
        const bool off = journal.text().find("rts off, open") != std::string::npos;
        const bool on = journal.text().find("rts on, open") != std::string::npos;
        EXPECT_EQ(off, mode == std::string{"1"}) << journal.text();
        EXPECT_EQ(on, mode == std::string{"0"}) << journal.text();
        EXPECT_TRUE(run.session.WriterFound);
    }
}

TEST_F(Main_board, searches_the_port_just_chosen_in_that_mode_too) {
    set("ComNo", "0");
    set("mnuComMode1", "1");
    with_board();
    dialogs.on_option = [&] {
        run.option.Option_Com_Click(6);
        EXPECT_TRUE(run.option.Command_Ok_Click());
    };
    start();
    EXPECT_EQ(journal.text().find("rts on"), std::string::npos);
    EXPECT_NE(journal.text().find("rts off"), std::string::npos);
}

TEST_F(Main_board, goes_on_without_a_board) {
    port.when("?");
    port.when("?");
    EXPECT_EQ(start(), End::Ready);
    EXPECT_FALSE(run.session.WriterFound);
    EXPECT_FALSE(port.is_open());
    EXPECT_EQ(run.form.Label_FirmwareVersion.Caption.get(), "COM3 : ライター未接続");
    EXPECT_NE(run.session.DeviceName, "");
}

TEST_F(Main_board, goes_on_with_a_port_that_cannot_be_opened) {
    port.next_open = PortOpen::Unavailable;
    EXPECT_EQ(start(), End::Ready);
    EXPECT_EQ(dialogs.boxes.size(), 1U);
    EXPECT_TRUE(run.form.Enabled.get());
}

TEST_F(Main_board, asks_for_a_port_where_none_is_saved) {
    unset("ComNo");
    EXPECT_EQ(start(), End::Ready);
    EXPECT_EQ(dialogs.options_shown, 1);
    EXPECT_EQ(run.session.ComNo, 0);
    EXPECT_EQ(journal.text().find("send"), std::string::npos);
    EXPECT_TRUE(said("通信ポートを選択しませんでした。"));
    EXPECT_EQ(run.form.Label_FirmwareVersion.Caption.get(), "通信ポート未選択");
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(Main_board, searches_the_port_that_was_chosen_and_leaves_it_open) {
    set("ComNo", "0");
    with_board();
    dialogs.on_option = [&] {
        EXPECT_TRUE(run.option_form.Visible.get());
        run.option.Option_Com_Click(6);
        EXPECT_TRUE(run.option.Command_Ok_Click());
    };
    EXPECT_EQ(start(), End::Ready);
    EXPECT_EQ(port.chosen, 7);
    EXPECT_EQ(store["ComNo"], "7");
    EXPECT_TRUE(run.session.WriterFound);
    EXPECT_TRUE(port.is_open());
}

TEST_F(Main_board, stays_silent_about_the_device_at_the_first_selection_without_a_board) {
    port.when("?");
    port.when("?");
    start();
    EXPECT_FALSE(std::ranges::any_of(log.lines, [](const std::string& line) {
        return line.find("指定したＰＩＣマイコンは") != std::string::npos;
    }));
    EXPECT_FALSE(said(run.session.CommentText));
    EXPECT_TRUE(run.session.FirmChecked);
}

TEST_F(Main_board, ends_where_the_user_closes_the_window_during_the_search) {
    port.when("?");
    port.when("?");
    host.on_pump = [&] {
        if (host.now() > 1s) throw Abandoned{Abandoned::Reason::Closed};
    };
    EXPECT_EQ(start(), End::EndProcess);
    EXPECT_FALSE(port.is_open());
}

// The port throws from its waits when its adapter is pulled out.
TEST_F(Main_board, goes_on_where_the_port_vanishes_during_the_search) {
    port.when("?");
    port.when("?");
    bool lost = false;
    host.on_pump = [&] {
        if (!lost && host.now() > 1s) {
            lost = true;
            throw Abandoned{Abandoned::Reason::PortLost};
        }
    };
    EXPECT_EQ(start(), End::Ready);
    EXPECT_TRUE(lost);
    EXPECT_FALSE(port.is_open());
    EXPECT_TRUE(said("[red] 通信ポートが切断されました。ライターの接続を確認してください。"));
    EXPECT_TRUE(run.form.Enabled.get());
}

}  // namespace
}  // namespace quillon
