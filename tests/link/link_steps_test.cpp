// SPDX-License-Identifier: MIT
// The power delay, the advice on old firmware, and the end of an operation.
#include "link_bench.h"

namespace quillon::test {

TEST(Power_Delay_Set, sends_the_delay_of_the_device_as_one_byte) {
    LinkBench bench;
    bench.open_port();
    bench.session.VddVppDelay = 250;
    bench.port.arrives(0ms, "left over");
    bench.port.when("mD\xFA", "\xFA");
    EXPECT_EQ(bench.link.Power_Delay_Set(), Token::OK);

    EXPECT_EQ(bench.journal.text(),
              "flush, flush, send m, sleep 1, send D, sleep 1, send FA, sleep 1, sleep 500");
    EXPECT_EQ(bench.shown.lines, (Lines{"電源印加遅延時間　設定＝ 250 ミリ秒"}));
}

TEST(Power_Delay_Set, takes_a_reply_after_exactly_10_s) {
    LinkBench bench;
    bench.port.when(kDelay, {{1ms + 10s, "\x0A"}});
    EXPECT_EQ(bench.link.Power_Delay_Set(), Token::OK);
}

TEST(Power_Delay_Set, times_out_once_10_s_have_passed) {
    LinkBench bench;
    bench.port.when(kDelay, {{1ms + 10s + 1ms, "\x0A"}});
    EXPECT_EQ(bench.link.Power_Delay_Set(), Token::NG);

    EXPECT_EQ(bench.shown.lines, (Lines{"電源印加遅延時間を設定でタイムアウトが発生しました。"}));
}

TEST(Power_Delay_Set, refuses_another_value_and_does_not_wait_then) {
    LinkBench bench;
    bench.port.when(kDelay, "\x05");
    EXPECT_EQ(bench.link.Power_Delay_Set(), Token::NG);

    EXPECT_EQ(bench.shown.lines,
              (Lines{"電源印加遅延時間を設定で返信データが一致しませんでした。"}));
    EXPECT_EQ(bench.host.sleeps, (std::vector{1ms, 1ms, 1ms}));
}

TEST(Firm_Version_Check, says_nothing_from_version_6_76_on) {
    LinkBench bench;
    bench.session.FirmVersion = 6.76;
    bench.link.Firm_Version_Check();

    EXPECT_TRUE(bench.dialogs.boxes.empty());
}

TEST(Firm_Version_Check, tells_of_the_versions_below_6_76) {
    LinkBench bench;
    bench.session.FirmVersion = 6.75;
    bench.session.FirmwareText = "ZQ-LDR412A V6.75";
    bench.link.Firm_Version_Check();

    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    const auto& box = bench.dialogs.boxes[0];
    EXPECT_EQ(box.title, "ファームウエアのアップデートが必要です。");
    EXPECT_EQ(box.icon, BoxIcon::Critical);
    EXPECT_EQ(box.buttons, BoxButtons::OkCancel);
    // In this order, each a line of its own.
    std::size_t at = 0;
    for (
        const std::string_view line : {
            "ファームウエアバージョンが古いのでアップデートを行なってください。　　　　\r\n　\r\n",
            "ファームウエアのアップデートは、メニューバー「ヘルプ」の「ファームウエアアップデート」から行います。　　　　\r\n　\r\n",
            "現在のファームウエアバージョン　 ： ZQ-LDR412A V6.75 \r\n",
            "推奨するファームウエアバージョン ： ZQ-LDR412 V6.76 、または、それ以降。　\r\n",
            "（現在使用中のファームウエアバージョンは、メイン画面の右下に表示されます。）\r\n　\r\n",
        }) {
        const auto found = box.text.find(line, at);
        ASSERT_NE(found, std::string::npos) << line;
        at = found;
    }
}

TEST(Firm_Version_Check, names_the_support_page_twice_and_says_what_ok_does_at_the_end) {
    LinkBench bench;
    bench.session.FirmVersion = 6.75;
    bench.link.Firm_Version_Check();

    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    const auto& text = bench.dialogs.boxes[0].text;
    EXPECT_NE(
        text.find(
            "\r\n　\r\n"
            "最新のファームウエアは、サポートページ（https://quillon.example/support）で公開しています。"
            "\r\n"
            "アップデートの詳細も、サポートページ（https://quillon.example/support）をご覧ください。"
            "\r\n　\r\n"
            "現在のファームウエアバージョン"),
        std::string::npos);
    EXPECT_TRUE(text.ends_with("\r\n　\r\n[OK] を押すと、アップデートのページを開きます。"));
}

// A run that begins with an operation has made no search.
TEST(Firm_Version_Check, names_the_board_of_the_check_where_no_search_was_made) {
    LinkBench bench;
    bench.session.FirmVersion = 6.75;
    bench.session.FirmVersionText = "ZQ-LDR412A V6.75";
    bench.link.Firm_Version_Check();

    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    EXPECT_NE(bench.dialogs.boxes[0].text.find("現在のファームウエアバージョン　 ： "
                                               "ZQ-LDR412A V6.75 \r\n"),
              std::string::npos);
}

TEST(Firm_Version_Check, opens_the_update_page_on_ok_only) {
    LinkBench bench;
    bench.session.FirmVersion = 1.0;
    bench.dialogs.answers = {BoxAnswer::Cancel, BoxAnswer::Ok};
    bench.link.Firm_Version_Check();
    EXPECT_TRUE(bench.host.opened.empty());

    bench.link.Firm_Version_Check();
    EXPECT_EQ(bench.host.opened, (Lines{"https://quillon.example/support"}));
    EXPECT_EQ(bench.dialogs.boxes.size(), 2U);
}

TEST(Firm_Version_Check, names_the_update_page_that_cannot_be_opened) {
    LinkBench bench;
    bench.session.FirmVersion = 1.0;
    bench.dialogs.answers = {BoxAnswer::Ok};
    bench.host.opens = false;
    bench.link.Firm_Version_Check();
    ASSERT_EQ(bench.dialogs.boxes.size(), 2U);
    EXPECT_EQ(bench.dialogs.boxes[1].text,
              "サポートページを開くことができませんでした。\rhttps://quillon.example/support");
    EXPECT_EQ(bench.dialogs.boxes[1].icon, BoxIcon::Warning);
    EXPECT_EQ(bench.dialogs.boxes[1].buttons, BoxButtons::Ok);
}

TEST(Writer_Close, gives_the_last_bytes_400_ms_before_it_closes_the_port) {
    LinkBench bench;
    bench.open_port();
    bench.session.WriterFound = true;
    bench.link.Writer_Close();

    EXPECT_EQ(bench.journal.text(),
              "flush, flush output, pump, sleep 200, pump, sleep 200, pump, close");
    EXPECT_FALSE(bench.port.is_open());
    EXPECT_TRUE(bench.session.WriterFound);
}

TEST(Writer_Close, only_sleeps_the_second_time) {
    LinkBench bench;
    bench.open_port();
    bench.link.Writer_Close();
    bench.journal.clear();
    bench.link.Writer_Close();

    EXPECT_EQ(bench.journal.text(), "pump, sleep 200, pump, sleep 200, pump");
}

TEST(firm_version, is_the_number_in_the_last_four_characters) {
    EXPECT_EQ(firm_version("ZQ-LDR412A V6.80"), 6.80);
    EXPECT_EQ(firm_version("ZQ-LDR412A  10.5"), 10.5);
    EXPECT_EQ(firm_version("ZQ-LDR412A V?.??"), std::nullopt);
    EXPECT_EQ(firm_version("ZQ-LDR412A V6.8x"), std::nullopt);
    EXPECT_EQ(firm_version("ZQ-LDR412A      "), std::nullopt);
    EXPECT_EQ(firm_version("6.8"), std::nullopt);
}

}  // namespace quillon::test
