// SPDX-License-Identifier: MIT
// The check that every operation begins with: the burst, its one repetition, the verdicts.
#include "link_bench.h"

namespace quillon::test {

namespace {

constexpr std::string_view kBurstSent =
    "send *, sleep 1, send *, sleep 1, send *, sleep 1, sleep 100, flush, send ?, sleep 1";
constexpr std::string_view kDelaySent =
    "flush, flush, send m, sleep 1, send D, sleep 1, send 0A, sleep 1";
// What a burst and the power delay take besides waiting: 3 + 100 + 1 ms and 3 ms.
constexpr auto kBurstTime = 104ms;

std::string joined(std::initializer_list<std::string_view> parts) {
    std::string text;
    for (const auto part : parts) text.append(text.empty() ? "" : ", ").append(part);
    return text;
}

void answer_check(LinkBench& bench, std::string_view identity = kIdentity) {
    bench.port.when(kBurst, identity);
    bench.port.when(kDelay, "\x0A");
}

}  // namespace

TEST(Writer_Check, opens_the_port_sends_the_burst_and_sets_the_power_delay) {
    LinkBench bench;
    answer_check(bench);
    EXPECT_EQ(bench.link.Writer_Check(), Token::OK);

    EXPECT_EQ(bench.journal.text(), joined({"flush, open", kBurstSent, kDelaySent, "sleep 500"}));
    EXPECT_EQ(bench.shown.lines, (Lines{
                                     "ライターを COM3に検出しました。",
                                     "電源印加遅延時間　設定＝ 10 ミリ秒",
                                 }));
    EXPECT_TRUE(bench.session.WriterFound);
    EXPECT_EQ(bench.session.FirmVersionText, "ZQ-LDR412A V6.80");
    EXPECT_DOUBLE_EQ(bench.session.FirmVersion, 6.80);
    EXPECT_EQ(bench.label(), "COM3 : ZQ-LDR412A V6.80");
    EXPECT_EQ(bench.form.Label_FirmwareVersion.BackColor.get(), Colour::Found);
    EXPECT_EQ(bench.store["FirmModule"], "ZQ-LDR412A");
}

TEST(Writer_Check, leaves_an_open_port_and_its_rts_as_they_are) {
    LinkBench bench;
    bench.open_port();
    bench.form.mnuComMode1.Checked.set(true);
    answer_check(bench);
    EXPECT_EQ(bench.link.Writer_Check(), Token::OK);

    EXPECT_EQ(bench.journal.text(), joined({"flush", kBurstSent, kDelaySent, "sleep 500"}));
}

TEST(Writer_Check, leaves_FirmwareText_to_Writer_Find) {
    LinkBench bench;
    bench.session.FirmwareText = "ZQ-LDR412A V6.70";
    answer_check(bench);
    EXPECT_EQ(bench.link.Writer_Check(), Token::OK);

    EXPECT_EQ(bench.session.FirmwareText, "ZQ-LDR412A V6.70");
}

TEST(Writer_Check, forgets_what_a_busy_board_was_still_sending) {
    LinkBench bench;
    bench.port.arrives(0ms, "\x12\x34");
    bench.port.arrives(60ms, "@ZQ-LDR rubbish of an operation that was given up");
    answer_check(bench);
    EXPECT_EQ(bench.link.Writer_Check(), Token::OK);

    EXPECT_EQ(bench.session.FirmVersionText, "ZQ-LDR412A V6.80");
}

TEST(Writer_Check, takes_a_reply_that_is_complete_after_exactly_4_s) {
    LinkBench bench;
    bench.port.when(kBurst, {{1ms + 4s, std::string{kIdentity}}});
    bench.port.when(kDelay, "\x0A");
    EXPECT_EQ(bench.link.Writer_Check(), Token::OK);

    EXPECT_EQ(bench.shown.lines.front(), "ライターを COM3に検出しました。");
}

TEST(Writer_Check, sends_the_burst_again_when_the_first_gets_no_answer) {
    LinkBench bench;
    bench.port.when(kBurst);
    answer_check(bench);
    EXPECT_EQ(bench.link.Writer_Check(), Token::OK);

    EXPECT_EQ(bench.journal.text(), joined({"flush, open", kBurstSent, "pump, flush", kBurstSent,
                                            kDelaySent, "sleep 500"}));
    EXPECT_EQ(bench.shown.lines, (Lines{
                                     "*",
                                     "ライターを COM3に検出しました。",
                                     "電源印加遅延時間　設定＝ 10 ミリ秒",
                                 }));
}

TEST(Writer_Check, discards_a_reply_that_came_after_4_s_and_asks_again) {
    LinkBench bench;
    bench.port.when(kBurst, {{1ms + 4s + 1ms, "ZQ-LDR412A V1.11\r\n"}});
    answer_check(bench);
    EXPECT_EQ(bench.link.Writer_Check(), Token::OK);

    EXPECT_EQ(bench.shown.lines.front(), "*");
    EXPECT_EQ(bench.session.FirmVersionText, "ZQ-LDR412A V6.80");
}

TEST(Writer_Check, takes_a_second_reply_that_is_complete_after_exactly_3_s) {
    LinkBench bench;
    bench.port.when(kBurst);
    bench.port.when(kBurst, {{1ms + 3s, std::string{kIdentity}}});
    bench.port.when(kDelay, "\x0A");
    EXPECT_EQ(bench.link.Writer_Check(), Token::OK);
}

TEST(Writer_Check, gives_up_4_s_and_3_s_after_its_two_bursts) {
    LinkBench bench;
    bench.session.WriterFound = true;
    bench.port.when(kBurst);
    bench.port.when(kBurst, {{1ms + 3s + 1ms, std::string{kIdentity}}});
    EXPECT_EQ(bench.link.Writer_Check(), Token::NG);

    EXPECT_EQ(bench.journal.text(),
              joined({"flush, open", kBurstSent, "pump, flush", kBurstSent, "pump"}));
    EXPECT_GT(bench.host.now(), 2 * kBurstTime + 7s);
    EXPECT_LT(bench.host.now(), 2 * kBurstTime + 7s + 1ms);
    EXPECT_EQ(
        bench.shown.lines,
        (Lines{
            "*",
            "[red] ライターを検出できませんでした。"
            "\r\n"
            "メニューバーの [オプション] から [ＣＯＭポート設定] を選択してください。"
            "\r\n"
            "ライターのＢＵＳＹ ＬＥＤが消灯しないときは、ライターの電源を再投入してください。"}));
    EXPECT_FALSE(bench.session.WriterFound);
    EXPECT_TRUE(bench.dialogs.boxes.empty());
}

TEST(Writer_Check, refuses_a_board_of_another_kind_at_once) {
    LinkBench bench;
    bench.session.WriterFound = true;
    bench.port.when(kBurst, "OTHER-BOARD V9.99\r\n");
    EXPECT_EQ(bench.link.Writer_Check(), Token::NG);

    EXPECT_EQ(bench.journal.text(), joined({"flush, open", kBurstSent}));
    EXPECT_EQ(bench.shown.lines,
              (Lines{"ファームウエアバージョンを読み出せませんでした。"
                     "\r"
                     "メニューバーの [オプション] から [ＣＯＭポート設定] を選択してください。"}));
    EXPECT_FALSE(bench.session.WriterFound);
    EXPECT_EQ(bench.form.Label_FirmwareVersion.BackColor.get(), Colour::ButtonFace);
    EXPECT_EQ(bench.store["FirmModule"], "<none>");
}

TEST(Writer_Check, takes_a_version_that_is_no_number_for_a_wrong_port) {
    for (const double former : {6.80, 6.75}) {
        LinkBench bench;
        bench.session.FirmVersion = former;
        bench.port.when(kBurst, "ZQ-LDR412A V6.8x\r\n");
        EXPECT_EQ(bench.link.Writer_Check(), Token::NG);

        // The board was found and its label shows that; the steps after the version aren't run.
        EXPECT_EQ(bench.shown.lines,
                  (Lines{"ライターを COM3に検出しました。",
                         "[red] シリアルポートが未指定です。"
                         "\r\n"
                         "メニューバーの [オプション] から [ＣＯＭポート設定] を選択してください。"
                         "\r\n"}));
        EXPECT_TRUE(bench.session.WriterFound);
        EXPECT_EQ(bench.label(), "COM3 : ZQ-LDR412A V6.8x");
        EXPECT_DOUBLE_EQ(bench.session.FirmVersion, former);
        EXPECT_EQ(bench.journal.text(), joined({"flush, open", kBurstSent}));
        EXPECT_EQ(bench.store["FirmModule"], "<none>");
        EXPECT_TRUE(bench.dialogs.boxes.empty());
    }
}

TEST(Writer_Check, says_that_the_rights_are_missing_where_they_are) {
    LinkBench bench;
    bench.port.next_open = PortOpen::Denied;
    EXPECT_EQ(bench.link.Writer_Check(), Token::NG);

    EXPECT_EQ(
        bench.shown.lines,
        (Lines{
            "[red] シリアルポートが未指定です。"
            "\r\n"
            "メニューバーの [オプション] から [ＣＯＭポート設定] を選択してください。"
            "\r\n",
            "[+] [red] "
            "この通信ポートを使用する権限がありません。ポートのグループ（dialout など）への登録が必要です。",
        }));
}

TEST(Writer_Check, tells_that_no_usable_port_is_chosen_where_it_cannot_be_opened) {
    for (const auto opened : {PortOpen::Busy, PortOpen::Unavailable}) {
        LinkBench bench;
        bench.port.next_open = opened;
        EXPECT_EQ(bench.link.Writer_Check(), Token::NG);

        EXPECT_EQ(bench.journal.text(), "flush, open");
        EXPECT_EQ(bench.shown.lines,
                  (Lines{"[red] シリアルポートが未指定です。"
                         "\r\n"
                         "メニューバーの [オプション] から [ＣＯＭポート設定] を選択してください。"
                         "\r\n"}));
    }
}

TEST(Writer_Check, goes_on_with_a_power_delay_that_the_board_did_not_take) {
    LinkBench bench;
    bench.port.when(kBurst, kIdentity);
    bench.port.when(kDelay, "\x0B");
    EXPECT_EQ(bench.link.Writer_Check(), Token::OK);

    EXPECT_EQ(bench.shown.lines.back(), "電源印加遅延時間を設定で返信データが一致しませんでした。");
    EXPECT_TRUE(bench.session.WriterFound);
    EXPECT_EQ(bench.journal.text(), joined({"flush, open", kBurstSent, kDelaySent}));
}

TEST(Writer_Check, advises_an_update_before_it_sets_the_power_delay) {
    LinkBench bench;
    answer_check(bench, "ZQ-LDR412A V6.75\r\n");
    EXPECT_EQ(bench.link.Writer_Check(), Token::OK);

    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    EXPECT_EQ(bench.dialogs.boxes[0].title, "ファームウエアのアップデートが必要です。");
    EXPECT_EQ(bench.shown.lines.back(), "電源印加遅延時間　設定＝ 10 ミリ秒");
}

}  // namespace quillon::test
