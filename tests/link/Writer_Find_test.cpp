// SPDX-License-Identifier: MIT
// The search for the board: which bytes, sleeps and flushes, and what a user sees.
#include "link_bench.h"

namespace quillon::test {

namespace {

constexpr std::string_view kNoPort =
    "通信ポートを選んでください。\rメニューバーの [オプション] から [ＣＯＭポート設定] を選択してください。";

void expect_no_board(const LinkBench& bench) {
    EXPECT_FALSE(bench.session.WriterFound);
    EXPECT_EQ(bench.label(), "COM3 : ライター未接続");
    EXPECT_EQ(bench.form.Label_FirmwareVersion.BackColor.get(), Colour::ButtonFace);
}

}  // namespace

TEST(Writer_Find, wakes_the_board_throws_that_reply_away_and_reads_the_second) {
    LinkBench bench;
    bench.port.when("?", "ZQ-LDR412A V1.00\r\n");
    bench.port.when("?", kIdentity);
    bench.link.Writer_Find();

    EXPECT_EQ(
        bench.journal.text(),
        "rts on, open, flush, send ?, sleep 1, sleep 200, pump, flush, send ?, sleep 1, sleep 200");
    EXPECT_EQ(bench.session.FirmVersionText, "ZQ-LDR412A V6.80");
    EXPECT_EQ(bench.session.FirmwareText, "ZQ-LDR412A V6.80");
    EXPECT_DOUBLE_EQ(bench.session.FirmVersion, 6.80);
    EXPECT_TRUE(bench.port.is_open());
}

TEST(Writer_Find, shows_a_found_board_and_remembers_its_module) {
    LinkBench bench;
    bench.form.mnuFirmwareUpdate.Enabled.set(false);
    bench.port.when("?");
    bench.port.when("?", kIdentity);
    bench.link.Writer_Find();

    EXPECT_TRUE(bench.session.WriterFound);
    EXPECT_EQ(bench.shown.lines,
              (Lines{"ライターを探しています..... ", "ライターを COM3に検出しました。"}));
    EXPECT_EQ(bench.label(), "COM3 : ZQ-LDR412A V6.80");
    EXPECT_EQ(bench.form.Label_FirmwareVersion.BackColor.get(), Colour::Found);
    EXPECT_TRUE(bench.form.mnuFirmwareUpdate.Enabled.get());
    EXPECT_EQ(bench.store["FirmModule"], "ZQ-LDR412A");
    EXPECT_TRUE(bench.dialogs.boxes.empty());
}

TEST(Writer_Find, keeps_the_trailing_blank_of_a_ten_character_module_name) {
    LinkBench bench;
    bench.port.when("?");
    bench.port.when("?", "ZQ-LDR412  V6.80\r\n");
    bench.link.Writer_Find();

    EXPECT_EQ(bench.store["FirmModule"], "ZQ-LDR412 ");
}

TEST(Writer_Find, turns_rts_off_in_communication_mode_1) {
    LinkBench bench;
    bench.form.mnuComMode1.Checked.set(true);
    bench.port.when("?");
    bench.port.when("?", kIdentity);
    bench.link.Writer_Find();

    EXPECT_TRUE(bench.journal.text().starts_with("rts off, open, "));
}

TEST(Writer_Find, does_not_open_an_open_port_again) {
    LinkBench bench;
    bench.open_port();
    bench.port.when("?");
    bench.port.when("?", kIdentity);
    bench.link.Writer_Find();

    EXPECT_EQ(bench.journal.text(),
              "rts on, flush, send ?, sleep 1, sleep 200, pump, flush, send ?, sleep 1, sleep 200");
}

TEST(Writer_Find, does_nothing_while_the_board_is_known) {
    LinkBench bench;
    bench.session.WriterFound = true;
    bench.session.ComNo = 0;
    bench.link.Writer_Find();

    EXPECT_EQ(bench.journal.text(), "");
    EXPECT_TRUE(bench.shown.lines.empty());
    EXPECT_TRUE(bench.dialogs.boxes.empty());
}

TEST(Writer_Find, asks_for_a_port_where_none_is_chosen_and_touches_nothing) {
    LinkBench bench;
    bench.session.ComNo = 0;
    bench.link.Writer_Find();

    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    EXPECT_EQ(bench.dialogs.boxes[0].text, kNoPort);
    EXPECT_EQ(bench.dialogs.boxes[0].icon, BoxIcon::Information);
    EXPECT_EQ(bench.journal.text(), "");
    EXPECT_TRUE(bench.shown.lines.empty());
}

TEST(Writer_Find, tells_that_another_program_holds_the_port) {
    LinkBench bench;
    bench.session.WriterFound = false;
    bench.port.next_open = PortOpen::Busy;
    bench.link.Writer_Find();

    EXPECT_EQ(bench.shown.lines.back(),
              "他のソフトウエアが、すでに通信ポート使用しています。"
              "\r"
              "通信ポートを使用しているソフトウエアを終了してください。");
    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    EXPECT_EQ(bench.dialogs.boxes[0].icon, BoxIcon::Critical);
    EXPECT_EQ(bench.dialogs.boxes[0].text,
              "他のソフトウエアが、すでに通信ポート使用しています。"
              "　　　　"
              "\r\n"
              "通信ポートを使用しているソフトウエアを終了してください。"
              "　　　　");
    EXPECT_EQ(bench.journal.text(), "rts on, open");
    EXPECT_FALSE(bench.session.WriterFound);
}

TEST(Writer_Find, tells_that_the_port_cannot_be_used) {
    LinkBench bench;
    bench.port.next_open = PortOpen::Unavailable;
    bench.link.Writer_Find();

    EXPECT_EQ(bench.shown.lines.back(), "通信ポートが使用できませんでした。\r");
    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    EXPECT_EQ(bench.dialogs.boxes[0].icon, BoxIcon::Critical);
    EXPECT_EQ(bench.dialogs.boxes[0].title, "ｲﾝﾌｫﾒｰｼｮﾝ");
    EXPECT_EQ(bench.dialogs.boxes[0].text,
              "通信ポートが使用できませんでした。　他のシリアルポートを選択して下さい。"
              "　　　"
              "\r\n");
    EXPECT_EQ(bench.journal.text(), "rts on, open");
}

TEST(Writer_Find, says_that_the_rights_are_missing_where_they_are) {
    LinkBench bench;
    bench.port.next_open = PortOpen::Denied;
    bench.link.Writer_Find();

    ASSERT_EQ(bench.shown.lines.size(), 3U);
    EXPECT_EQ(bench.shown.lines[1], "通信ポートが使用できませんでした。\r");
    EXPECT_EQ(
        bench.shown.lines[2],
        "[+] [red] "
        "この通信ポートを使用する権限がありません。ポートのグループ（dialout など）への登録が必要です。");
    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    EXPECT_EQ(
        bench.dialogs.boxes[0].text,
        "通信ポートが使用できませんでした。　他のシリアルポートを選択して下さい。"
        "　　　"
        "\r\n"
        "この通信ポートを使用する権限がありません。ポートのグループ（dialout など）への登録が必要です。");
}

TEST(Writer_Find, takes_a_reply_that_is_complete_after_exactly_3_s) {
    LinkBench bench;
    bench.port.when("?");
    bench.port.when("?", {{1ms + 200ms + 3s, std::string{kIdentity}}});
    bench.link.Writer_Find();

    EXPECT_TRUE(bench.session.WriterFound);
}

TEST(Writer_Find, finds_no_board_once_3_s_have_passed) {
    LinkBench bench;
    bench.port.when("?");
    bench.port.when("?", {{1ms + 200ms + 3s + 1ms, std::string{kIdentity}}});
    bench.link.Writer_Find();

    expect_no_board(bench);
    EXPECT_EQ(bench.shown.lines.back(),
              "ライターを検出できませんでした。"
              "メニューバーの [オプション] から [ＣＯＭポート設定] を選択してください。");
    EXPECT_EQ(bench.store["FirmModule"], "<none>");
    EXPECT_TRUE(bench.dialogs.boxes.empty());
}

TEST(Writer_Find, does_not_take_17_bytes_for_a_reply) {
    LinkBench bench;
    bench.port.when("?");
    bench.port.when("?", kIdentity.substr(0, 17));
    bench.link.Writer_Find();

    expect_no_board(bench);
    EXPECT_EQ(bench.session.FirmVersionText, "");
}

TEST(Writer_Find, ignores_what_follows_the_16th_character) {
    LinkBench bench;
    bench.port.when("?");
    bench.port.when("?", "ZQ-LDR412A V6.80 and more\r\n");
    bench.link.Writer_Find();

    EXPECT_EQ(bench.session.FirmVersionText, "ZQ-LDR412A V6.80");
}

TEST(Writer_Find, takes_no_other_identity_than_its_own) {
    LinkBench bench;
    bench.port.when("?");
    bench.port.when("?", "ZQ-LDX412A V6.80\r\n");
    bench.link.Writer_Find();

    expect_no_board(bench);
    EXPECT_EQ(bench.shown.lines.back(),
              "ファームウエアバージョンを読み出せませんでした。"
              "\r"
              "メニューバーの [オプション] から [ＣＯＭポート設定] を選択してください。");
}

TEST(Writer_Find, finds_a_board_whose_version_is_no_number_and_keeps_the_former_number) {
    for (const double former : {6.80, 6.75}) {
        LinkBench bench;
        bench.form.mnuFirmwareUpdate.Enabled.set(false);
        bench.session.FirmVersion = former;
        bench.port.when("?");
        bench.port.when("?", "ZQ-LDR412A V6.8x\r\n");
        bench.link.Writer_Find();

        EXPECT_TRUE(bench.session.WriterFound);
        EXPECT_EQ(bench.session.FirmwareText, "ZQ-LDR412A V6.8x");
        EXPECT_DOUBLE_EQ(bench.session.FirmVersion, former);
        EXPECT_EQ(bench.label(), "COM3 : ZQ-LDR412A V6.8x");
        EXPECT_EQ(bench.form.Label_FirmwareVersion.BackColor.get(), Colour::Found);
        EXPECT_EQ(bench.shown.lines.back(), "ライターを COM3に検出しました。");
        EXPECT_TRUE(bench.form.mnuFirmwareUpdate.Enabled.get());
        // The advice depends on the number in the session, and names the board by its reply.
        ASSERT_EQ(bench.dialogs.boxes.size(), former < 6.76 ? 1U : 0U);
        for (const auto& box : bench.dialogs.boxes)
            EXPECT_NE(box.text.find("： ZQ-LDR412A V6.8x \r\n"), std::string::npos);
        EXPECT_EQ(bench.store["FirmModule"], "ZQ-LDR412A");
    }
}

TEST(Label_FirmwareVersion, says_that_no_port_is_chosen) {
    LinkBench bench;
    bench.session.ComNo = 0;
    bench.session.WriterFound = true;
    bench.link.show_no_board();

    EXPECT_EQ(bench.label(), "通信ポート未選択");
    EXPECT_FALSE(bench.session.WriterFound);
}

TEST(Writer_Find, advises_an_update_of_an_old_board) {
    LinkBench bench;
    bench.port.when("?");
    bench.port.when("?", "ZQ-LDR412A V6.75\r\n");
    bench.link.Writer_Find();

    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    EXPECT_EQ(bench.dialogs.boxes[0].title, "ファームウエアのアップデートが必要です。");
    EXPECT_TRUE(bench.session.WriterFound);
}

}  // namespace quillon::test
