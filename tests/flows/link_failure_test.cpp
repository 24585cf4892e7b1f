// SPDX-License-Identifier: MIT
// Operations that find no board, no port or no device.
#include "flow_support.h"

namespace quillon::test {

namespace {

constexpr std::string_view kNoBoard =
    "[red] ライターを検出できませんでした。\r\n"
    "メニューバーの [オプション] から [ＣＯＭポート設定] を選択してください。\r\n"
    "ライターのＢＵＳＹ ＬＥＤが消灯しないときは、ライターの電源を再投入してください。";
constexpr std::string_view kNoPort =
    "[red] シリアルポートが未指定です。\r\n"
    "メニューバーの [オプション] から [ＣＯＭポート設定] を選択してください。\r\n";
constexpr std::string_view kChecking = "ライターチェック中..........";

// Every operation of the main form that communicates with the target.
constexpr std::array kOperations{
    &Flows::Command_blank,   &Flows::Command_read,      &Flows::Command_Verify,
    &Flows::Command_program, &Flows::mnuPgmErase_Click, &Flows::mnuChipErase_Click,
};

}  // namespace

TEST(no_board, is_told_in_red_after_two_bursts_by_every_operation) {
    for (const auto operation : kOperations) {
        Bench bench;
        bench.board.ignore_bursts(2);
        const auto from = bench.host.now();
        EXPECT_EQ((bench.run->flows.*operation)(), Outcome::NoBoard);

        EXPECT_EQ(bench.wire(), "> ***?\n> ***?\n");
        EXPECT_EQ(bench.shown->lines.back(), kNoBoard);
        EXPECT_GT(bench.host.now() - from, 7s);
        EXPECT_LT(bench.host.now() - from, 8s);
        EXPECT_EQ(pauses(bench), (Pauses{100ms, 100ms, 200ms, 200ms}));
        EXPECT_FALSE(bench.session().WriterFound);
        EXPECT_EQ(bench.form().Label_FirmwareVersion.Caption.get(), "COM3 : ライター未接続");
        EXPECT_EQ(bench.log(), "");
    }
}

TEST(no_board, is_no_matter_where_the_second_burst_is_answered) {
    Bench bench;
    bench.board.ignore_bursts(1);
    EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Success);

    EXPECT_TRUE(bench.wire().starts_with("> ***?\n> ***?  < ZQ-LDR412A V6.80\n> mD 0A  < 0A\n"));
    EXPECT_EQ((Lines{bench.shown->lines.begin(), bench.shown->lines.begin() + 3}),
              (Lines{std::string{kChecking}, "*", "ライターを COM3に検出しました。"}));
}

TEST(no_board, is_what_another_device_on_the_port_counts_as) {
    Bench bench;
    bench.board.add_fault("identity:OTHER-BOARD-V9.99");
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::NoBoard);

    EXPECT_EQ(bench.wire(), "> ***?  < OTHER-BOARD-V9.99\n");
    EXPECT_EQ(bench.shown->lines,
              (Lines{std::string{kChecking},
                     "ファームウエアバージョンを読み出せませんでした。\r"
                     "メニューバーの [オプション] から [ＣＯＭポート設定] を選択してください。"}));
}

TEST(no_board, brings_a_board_back_that_was_left_in_the_middle_of_an_exchange) {
    Bench bench;
    EXPECT_EQ(bench.port.open(), PortOpen::Ok);
    constexpr std::array<std::uint8_t, 6> kReadOfProgramMemory{'N', 'r', 's', 'p', 0x20, 0x00};
    for (const auto byte : kReadOfProgramMemory) {
        bench.port.write(std::array{byte});
        bench.host.sleep(1ms);
    }
    EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Success);
}

TEST(power_delay, that_is_not_taken_stops_no_operation) {
    for (const auto& [fault, message] : {
             std::pair{"mD/alter:1:0x0B",
                       "電源印加遅延時間を設定で返信データが一致しませんでした。"},
             std::pair{"mD/drop:1", "電源印加遅延時間を設定でタイムアウトが発生しました。"},
         }) {
        Bench bench;
        bench.board.add_fault(fault);
        EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Success);

        EXPECT_EQ(std::ranges::count(bench.shown->lines, message), 1);
        EXPECT_EQ(bench.shown->lines.back(), "デバイスは消去されています。");
        EXPECT_EQ(pauses(bench), (Pauses{100ms, 200ms, 200ms}));
    }
}

TEST(old_firmware, is_advised_against_and_refuses_nothing) {
    Bench bench;
    bench.board.set_identity("ZQ-LDR412A V6.50");
    EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Success);

    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    EXPECT_EQ(bench.dialogs.boxes[0].title, "ファームウエアのアップデートが必要です。");
}

TEST(no_port, is_told_in_red_where_it_is_held_by_another_or_gone) {
    for (const auto result : {PortOpen::Busy, PortOpen::Unavailable}) {
        for (const auto operation : kOperations) {
            Bench bench;
            bench.port.set_open_result(result);
            EXPECT_EQ((bench.run->flows.*operation)(), Outcome::NoBoard);

            EXPECT_EQ(bench.wire(), "");
            EXPECT_EQ(bench.shown->lines.back(), kNoPort);
            EXPECT_EQ(pauses(bench), (Pauses{200ms, 200ms}));
            EXPECT_TRUE(bench.dialogs.boxes.empty());
        }
    }
}

TEST(no_device, ends_every_operation_before_the_port_is_touched) {
    for (const auto operation : kOperations) {
        Bench bench{""};
        EXPECT_EQ((bench.run->flows.*operation)(), Outcome::NoDevice);

        EXPECT_EQ(bench.port.opens(), 0);
        EXPECT_EQ(bench.shown->lines, (Lines{"MCUを選んでください。"}));
        ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
        EXPECT_EQ(bench.dialogs.boxes[0].title, "ｲﾝﾌｫﾒｰｼｮﾝ");
        EXPECT_EQ(bench.dialogs.boxes[0].text, "MCUを選んでください。");
        EXPECT_EQ(bench.dialogs.boxes[0].icon, BoxIcon::Warning);
    }
}

TEST(size_of_no_device, is_refused_before_the_port_is_touched) {
    for (const auto words : {0, -1, 0x10000}) {
        Bench bench;
        bench.session().PgmWords = words;
        EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Failed);

        EXPECT_EQ(bench.port.opens(), 0);
        EXPECT_TRUE(bench.shown->lines.back().starts_with("[red] "));
    }
}

// Types that only families serve, and one that nothing knows, on a device that no family claims.
TEST(not_served, is_reported_before_anything_is_sent) {
    for (const auto* type : {"18F_00", "18F_01", "5F18", "LDR412A", "LDR418", "FLASH7"})
        for (const auto operation : {&Flows::Command_blank, &Flows::Command_read,
                                     &Flows::Command_Verify, &Flows::Command_program}) {
            Bench bench{"PIC16F84A", {CatalogueBlock{"PIC16F84A", {{"PGM_TYPE", type}}}}};
            const auto part = bench.target();
            EXPECT_EQ((bench.run->flows.*operation)(), Outcome::NotServed) << type;

            EXPECT_EQ(bench.wire(), "");
            EXPECT_TRUE(bench.shown->lines.back().starts_with("[red] "));
            EXPECT_EQ(bench.target(), part);
            EXPECT_EQ(bench.session().TryCount, 0);
            EXPECT_EQ(bench.log(), "");
        }
}

TEST(Power_ON, holds_the_power_with_the_supply_first_that_the_device_asks_for) {
    Bench bench;
    auto& link = bench.run->link;
    for (const std::string_view order : {"VPP", "VDD"}) {
        bench.session().PowerMode = order;
        ASSERT_EQ(link.Writer_Check(), Token::OK);
        bench.wire();
        link.Power_ON();
        EXPECT_TRUE(bench.board.target_powered());
        link.Power_OFF();
        EXPECT_FALSE(bench.board.target_powered());
        EXPECT_EQ(bench.wire(), order == "VPP" ? "> nP\n> p\n" : "> NP\n> p\n");
        link.Writer_Close();
    }
}

TEST(Label_FirmwareVersion, searches_the_board_and_lets_it_go_again) {
    Bench bench;
    EXPECT_EQ(bench.run->flows.Label_FirmwareVersion_Click(), Outcome::Success);

    EXPECT_EQ(bench.wire(), "> ?  < ZQ-LDR412A V6.80\n> ?  < ZQ-LDR412A V6.80\n");
    EXPECT_EQ(bench.form().Label_FirmwareVersion.Caption.get(), "COM3 : ZQ-LDR412A V6.80");
    EXPECT_EQ(bench.shown->lines,
              (Lines{"ライターを探しています..... ", "ライターを COM3に検出しました。"}));
}

TEST(Label_FirmwareVersion, says_that_the_board_is_known_and_searches_nothing) {
    Bench bench;
    bench.session().WriterFound = true;
    EXPECT_EQ(bench.run->flows.Label_FirmwareVersion_Click(), Outcome::Success);

    EXPECT_EQ(bench.port.opens(), 0);
    EXPECT_EQ(bench.shown->lines, (Lines{"ライターは、COM3に検出済みです。"}));
}

}  // namespace quillon::test
