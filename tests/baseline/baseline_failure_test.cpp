// SPDX-License-Identifier: MIT
// Writes of 12-bit types that break off, and the report of a configuration word that doesn't hold.
#include "baseline_support.h"
#include "image/config_area.h"

namespace quillon::test {

namespace {

// Words that the stream of a write has, so that its end code is the byte behind them.
int items_of(const Bench& bench) { return bench.run->session.PgmWords + 5; }

class failing_write_12bit : public testing::TestWithParam<BaselineType> {};
INSTANTIATE_TEST_SUITE_P(, failing_write_12bit, testing::Values(k5X18, k5X28, k12C5),
                         baseline_name);

void expect_write_failed(BaselineBench& bench, const std::string& fault, const std::string& line) {
    bench.board.add_fault(fault);
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Failed);
    EXPECT_EQ(bench.shown->lines.back(), line);
    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    EXPECT_EQ(bench.dialogs.boxes[0].title, "プログラムメモリプログラミング");
    EXPECT_EQ(bench.dialogs.boxes[0].text, "プログラムメモリのプログラミングに失敗しました。");
    EXPECT_EQ(bench.dialogs.boxes[0].icon, BoxIcon::Critical);
    EXPECT_EQ(bench.session().TryCount, 1);
    EXPECT_EQ(bench.session().PassCount, 0);
    EXPECT_EQ(bench.log(), "");
}

const std::string kAdvice = "念のためデバイスと書き込みのオシレータ設定を確認してください。\r\n";
const std::string kFailed = "プログラムメモリのプログラミングに失敗しました。  ";

// A part whose configuration word keeps all its ones. Writing that image fails.
void set_config(BaselineBench& bench, std::uint32_t word) {
    bench.session().ConfigWord[1] = word;
    config_area::put_word(bench.session(), 1, word);
    bench.board.add_fault("stuck-config:0");
}

}  // namespace

TEST_P(failing_write_12bit, advises_to_look_at_the_oscillator_when_the_board_asks_for_no_word) {
    BaselineBench bench{GetParam()};
    expect_write_failed(bench, std::string{GetParam().write_pgm} + "/late:10100ms:6",
                        kAdvice + kFailed + "(TMO)");
}

TEST_P(failing_write_12bit, waits_ten_seconds_for_a_ready_byte) {
    BaselineBench bench{GetParam()};
    bench.board.add_fault(std::string{GetParam().write_pgm} + "/late:9900ms:6");
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);
}

TEST_P(failing_write_12bit, tells_that_the_board_broke_off) {
    BaselineBench bench{GetParam()};
    expect_write_failed(bench, std::string{GetParam().write_pgm} + "/abort-write:9",
                        kFailed + "(ABT)");
}

TEST_P(failing_write_12bit, advises_to_look_at_the_oscillator_when_the_end_code_is_late) {
    BaselineBench bench{GetParam()};
    expect_write_failed(
        bench, fmt::format("{}/late:10100ms:{}", GetParam().write_pgm, items_of(bench) + 1),
        kAdvice + kFailed + "(RXO)");
}

TEST_P(failing_write_12bit, tells_another_byte_than_the_end_code) {
    BaselineBench bench{GetParam()};
    expect_write_failed(bench,
                        fmt::format("{}/alter:{}:0x21", GetParam().write_pgm, items_of(bench) + 1),
                        kFailed + "(EOF)");
}

TEST_P(failing_write_12bit, lets_the_board_go_before_the_box) {
    BaselineBench bench{GetParam()};
    bool open = true;
    bench.dialogs.on_box = [&] { open = bench.port.is_open(); };
    expect_write_failed(bench, std::string{GetParam().write_pgm} + "/abort-write:0",
                        kFailed + "(ABT)");
    EXPECT_FALSE(open);
}

TEST_P(failing_write_12bit, reports_a_configuration_word_that_keeps_its_ones) {
    BaselineBench bench{GetParam()};
    set_config(bench, 0x0FF7 & bench.session().ConfigMask[1]);
    // The quirk below takes a word with that low digit for written.
    bench.session().ConfigWord[1] &= ~1U;
    config_area::put_word(bench.session(), 1, bench.session().ConfigWord[1]);
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Failed);

    const auto word = hex(bench.session().ConfigWord[1], 4);
    const auto& last = bench.shown->lines.back();
    EXPECT_EQ(last, "( Read = 0FFF  Write = " + word +
                        " )\r\nコンフィギュレーションワードのプログラミングに失敗しました。");
    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    EXPECT_EQ(bench.dialogs.boxes[0].text, "コンフィグレーションのプログラミングに失敗しました。");
    EXPECT_EQ(bench.session().PassCount, 0);
}

// The first byte of the reported word is 0F, the low digit of the image F: the step goes on, and
// the verify behind it finds the difference.
TEST_P(failing_write_12bit, takes_a_report_that_repeats_the_low_digit_for_written) {
    BaselineBench bench{GetParam()};
    set_config(bench, GetParam().calibration != 0 ? 0x0FDF : 0x0F0F);
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Failed);

    EXPECT_NE(std::ranges::find(bench.shown->lines,
                                "コンフィギュレーションワードのベリファイ中.........."),
              bench.shown->lines.end());
    EXPECT_EQ(bench.session().ResultCfg, Token::NG);
    EXPECT_EQ(bench.session().PassCount, 0);
    EXPECT_EQ(bench.shown->lines.back(),
              "[red] プログラミング失敗。　終了時刻：14:03:22  Pass = 0    Fail = 1");
}

TEST_P(failing_write_12bit, fails_without_the_end_code_of_the_configuration_word) {
    BaselineBench bench{GetParam()};
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);
    BaselineBench failing{GetParam()};
    // The second write's answer: a ready byte and the end code.
    failing.when_shown("コンフィギュレーションワード プログラミング中..........",
                       [&] { failing.board.add_fault("alter:2:0x21"); });
    EXPECT_EQ(failing.run->flows.Command_program(), Outcome::Failed);
    ASSERT_EQ(failing.dialogs.boxes.size(), 1U);
    EXPECT_EQ(failing.dialogs.boxes[0].text,
              "コンフィグレーションのプログラミングに失敗しました。");
}

TEST_P(failing_write_12bit, does_not_pass_where_the_verify_finds_another_configuration_word) {
    BaselineBench bench{GetParam()};
    bench.when_shown("コンフィギュレーションワードのベリファイ中..........",
                     [&] { bench.target().config[0] ^= 0x0004U; });
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Failed);
    EXPECT_EQ(bench.session().ResultAll, "OK--NG");
}

TEST_P(failing_write_12bit, ends_the_run_where_the_blank_test_has_no_end_code) {
    BaselineBench bench{GetParam()};
    const auto part = bench.target();
    bench.board.add_fault(
        fmt::format("{}/alter:{}:0x21", GetParam().blank, GetParam().calibration == 0 ? 5 : 3));
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Failed);
    EXPECT_EQ(bench.target(), part);
    EXPECT_EQ(bench.session().TryCount, 0);
    EXPECT_TRUE(bench.dialogs.hints.empty());
    EXPECT_EQ(bench.shown->lines.back(),
              "プログラムメモリブランクチェック失敗。　　終了コードを受信できませんでした。");
}

}  // namespace quillon::test
