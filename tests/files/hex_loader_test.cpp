// SPDX-License-Identifier: MIT
// What a load shows: messages in order, LoadResult, the panel.
#include "files/hex_loader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "files/files_bench.h"

namespace quillon {

using test::Bytes;
using test::data;
using test::upper_address;

namespace {

struct Bench : test::FilesBench {
    using FilesBench::FilesBench;

    void load(std::string_view text) {
        shown.clear();
        loader.load(text);
    }
    HexLoader loader{session, form, about, messages, views, config};
};

using Shown = std::vector<std::string>;

}  // namespace

TEST(HexLoader, tells_the_start_and_the_end_of_a_load) {
    Bench bench;
    bench.load(data(0, {0x34, 0x12}) + test::kEndRecord);
    EXPECT_EQ(bench.shown, (Shown{"ファイルロード中..........", "ファイルロード完了"}));
    EXPECT_EQ(bench.session.LoadResult, "OK");
    EXPECT_EQ(bench.form.LabelCmt.ForeColor.get(), Colour::Black);
}

TEST(HexLoader, has_no_result_while_it_runs) {
    Bench bench;
    std::vector<std::string> results;
    const auto watch = bench.messages.shown.connect(
        [&](const ShownMessage&) { results.push_back(bench.session.LoadResult); });
    bench.load(test::kEndRecord);
    bench.load(test::kEndRecord);
    EXPECT_EQ(results, (Shown{"", "", "OK", ""}));
}

TEST(HexLoader, names_the_items_that_it_skipped) {
    for (const auto* device : {"PIC16F877A", "PIC18F2550"}) {
        Bench bench{device};
        bench.load("; head, line\n" + data(0, {0x34, 0x12}) + "\n" + test::kEndRecord);
        EXPECT_EQ(bench.shown, (Shown{"ファイルロード中..........",
                                      "1、2、4行目はＨＥＸデータでないので読み飛ばしました。"}));
        EXPECT_EQ(bench.session.LoadResult, "OK");
    }
}

TEST(HexLoader, tells_the_file_checks_findings_last_and_only_where_they_are_wanted) {
    const auto text = "; head\n" + data(0, {1, 2}) + ":020002000102F8\n" + test::kEndRecord;
    for (const auto* device : {"PIC16F877A", "PIC18F2550"}) {
        Bench bench{device};
        bench.load(text);
        ASSERT_EQ(bench.shown.size(), 3U);
        EXPECT_EQ(bench.shown[1], "1行目はＨＥＸデータでないので読み飛ばしました。");
        EXPECT_EQ(bench.shown[2],
                  "red ファイル検査：チェックサムの合わないレコードが1件（最初は3行目）");
        bench.form.HexFileCheck.Checked.set(false);
        bench.load(text);
        EXPECT_EQ(bench.shown.size(), 2U);
        EXPECT_EQ(bench.session.LoadResult, "OK");
    }
}

TEST(HexLoader, tells_the_findings_of_a_file_that_does_not_load_too) {
    Bench bench;
    bench.load(data(0x5000, {1, 2}));
    ASSERT_EQ(bench.shown.size(), 3U);
    EXPECT_TRUE(bench.shown[2].starts_with("red ファイル検査：デバイスの範囲外のデータが1バイト"));
}

TEST(HexLoader, tells_check_sums_that_became_data_as_an_assemblers_odd_records_bring_them) {
    Bench bench{"PIC18F2550"};
    bench.load(":020000040020DA\n:0100000012ED\n:0200000400F00A\n:03000000010203F7\n:00000001FF\n");
    EXPECT_EQ(bench.shown.back(),
              "red ファイル検査："
              "チェックサムまでデータとして読まれた奇数バイトのレコードが2件（最初は2行目）");
    EXPECT_EQ(test::bytes_of(bench.session.EepMem, 0, 3), "010203F7");
    EXPECT_EQ(bench.form.Text_ID.Text.get().substr(0, 2), "2D");
}

TEST(HexLoader, warns_of_a_file_that_may_have_been_cut_off) {
    Bench bench;
    bench.load(data(0, {0x34, 0x12}));
    EXPECT_EQ(
        bench.shown,
        (Shown{
            "ファイルロード中..........", "ファイルロード完了",
            "red ファイル検査：終了レコードがありません（途中で切れたファイルの可能性があります）"}));
    EXPECT_EQ(bench.form.LabelCmt.ForeColor.get(), Colour::Red);
    EXPECT_EQ(bench.session.LoadResult, "OK");
    EXPECT_EQ(bench.session.PgmMem[0], 0x12);
}

TEST(HexLoader, tells_a_fault_of_a_word_image_in_two_texts) {
    Bench bench;
    bench.form.HexFileCheck.Checked.set(false);
    bench.load(data(0, {0x34, 0x12}) + data(0x5000, {1, 2}));
    EXPECT_EQ(bench.shown,
              (Shown{"ファイルロード中..........",
                     "ファイルをロードできませんでした。"
                     "|ＰＩＣ１８用のファイルをロードしようとした可能性があります。"}));
    EXPECT_EQ(bench.session.LoadResult, "NG");
    EXPECT_EQ(bench.session.PgmMem[0], 0x12);
}

TEST(HexLoader, tells_a_fault_of_a_PIC18_file_in_one) {
    Bench bench{"PIC18F2550"};
    bench.form.HexFileCheck.Checked.set(false);
    bench.load(data(0, {0x34, 0x12}) + ":zz\n");
    EXPECT_EQ(bench.shown,
              (Shown{"ファイルロード中..........", "ファイルをロードできませんでした。"}));
    EXPECT_EQ(bench.session.LoadResult, "NG");
    EXPECT_EQ(bench.session.PgmWordsCat, 16384);
}

TEST(HexLoader, tells_how_much_of_a_PIC18_the_file_uses) {
    Bench bench{"PIC18F2550"};
    bench.load(data(0x0FFE, {1, 2}) + upper_address(0xF0) + data(0x10, {1, 2}) + test::kEndRecord);
    EXPECT_EQ(bench.shown.at(1),
              "ファイルロード完了。\r\n"
              "データ最終アドレス ( コードメモリ≒0x00FFF , EEPROMメモリ≒0x0011 ) [byte換算]\r\n"
              "使用率 ( コードメモリ≒12% , EEPROMメモリ≒7% )");  // 12.5 and 7.03
}

TEST(HexLoader, tells_a_PIC18_file_without_EEPROM_data) {
    for (const auto* device : {"PIC18F2550", "PIC18F2515"}) {
        Bench bench{device};
        const bool small = bench.session.PgmWords == 16384;
        bench.load(data(0, {1, 2}) + test::kEndRecord);
        EXPECT_EQ(bench.shown.at(1),
                  std::string{"ファイルロード完了。\r\nデータ最終アドレス ( コードメモリ≒0x"} +
                      (small ? "0001F" : "0003F") +
                      " , EEPROMメモリ≒0x0000 ) [byte換算]\r\n"
                      "使用率 ( コードメモリ≒0% , EEPROMメモリ≒0% )");
    }
}

TEST(HexLoader, tells_a_full_PIC18) {
    Bench bench{"PIC18F2550"};
    bench.load(data(0x7FFE, {1, 2}) + upper_address(0xF0) + data(0xFE, {1, 2}) + test::kEndRecord);
    EXPECT_EQ(bench.shown.at(1),
              "ファイルロード完了。\r\n"
              "データ最終アドレス ( コードメモリ≒0x07FFF , EEPROMメモリ≒0x00FF ) [byte換算]\r\n"
              "使用率 ( コードメモリ≒100% , EEPROMメモリ≒100% )");
}

TEST(HexLoader, notes_the_ID_words_in_the_about_form) {
    Bench bench;
    bench.load(data(0x4000, {1, 0, 2, 0, 0x0A, 0, 0x0F, 0}));
    EXPECT_EQ(bench.about.Label_ID_Word.Caption.get(), "OPEN:0001:0002:000A:000F");
    EXPECT_EQ(bench.form.Text_ID.Text.get(), "12AF");
    EXPECT_EQ(bench.session.IdText, "12AF");
}

TEST(HexLoader, shows_the_configuration_that_the_file_brings) {
    Bench bench;
    bench.load(data(0x400E, {0x31, 0x3F}));
    // 0x3F31 without the bits that the catalogue holds at 0
    EXPECT_EQ(bench.session.ConfigWord[1], 0x2F01U);
    EXPECT_TRUE(bench.session.ConfigFromFile);
    EXPECT_EQ(bench.form.Text_Config1.Text.get(), "2F01");
    EXPECT_EQ(bench.form.HFGrid(1).cell(0, 1), "0x2F01");
    EXPECT_EQ(bench.form.HFGrid(1).cell(1, 1), "XT");
    EXPECT_EQ(bench.form.HFGrid(1).cell(2, 1), "OFF");
}

TEST(HexLoader, leaves_the_words_to_the_catalogue_where_the_file_brings_none) {
    Bench bench;
    bench.load(data(0, {1, 2}));
    EXPECT_FALSE(bench.session.ConfigFromFile);
    EXPECT_EQ(bench.session.ConfigWord[1], 0x2FCFU);
}

TEST(HexLoader, shows_the_low_digits_of_the_PIC18_ID_bytes) {
    Bench bench{"PIC18F2550"};
    bench.load(upper_address(0x20) + data(0, {0xF1, 2, 3, 4, 0x0A, 0x0B, 0x0C, 0xFF}));
    EXPECT_EQ(bench.form.Text_ID.Text.get(), "1234ABCF");
}

}  // namespace quillon
