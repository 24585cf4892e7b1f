// SPDX-License-Identifier: MIT
// A catalogue damaged by an edit: each fault is reported, and what can be read is kept.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "catalogue/bench.h"

namespace quillon::test {
namespace {

// Expects one box of the selection, with these words behind its fixed text.
void expect_box(const Bench& bench, std::string_view words) {
    EXPECT_TRUE(bench.session.CatError);
    EXPECT_EQ(bench.session.CatErrorText, words);
    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    EXPECT_EQ(bench.dialogs.boxes[0].title, "ﾌｧｲﾙ 開く失敗");
    EXPECT_EQ(bench.dialogs.boxes[0].text,
              "設定ファイルの読み出しに失敗しました。\r　" + std::string{words});
    EXPECT_EQ(bench.dialogs.boxes[0].icon, BoxIcon::Critical);
}

TEST(damaged_catalogue, tells_of_a_block_that_the_end_of_the_file_cuts_off) {
    Bench bench{"#BEGIN\nPIC1\nPGM_TYPE FLASH4\nCONFIG1 1 0 0 1\n"};
    bench.session.PgmType = "FLASH8";
    bench.load("PIC1");
    expect_box(bench, "EOF を検出しました。");
    EXPECT_EQ(bench.session.PgmType.text(), "FLASH8") << "nothing of the block may be loaded";
    EXPECT_FALSE(bench.session.ConfigPresent[1]);
}

TEST(damaged_catalogue, tells_of_a_block_without_an_end_mark) {
    Bench bench{"#BEGIN\nPIC1\nPGM_TYPE FLASH4\n" + block("PIC2", "PGM_TYPE FLASH0\n")};
    bench.load("PIC1");
    expect_box(bench, "#End が見つかりませんでした。");
    EXPECT_EQ(bench.session.PgmType.text(), "");
}

TEST(damaged_catalogue, is_forgotten_when_a_sound_block_is_loaded) {
    Bench bench{block("PIC1", "JP2 NON\n") + "#BEGIN\nPIC2\nJP2 NON\n"};
    bench.load("PIC2");
    bench.load("PIC1");
    EXPECT_FALSE(bench.session.CatError);
    EXPECT_EQ(bench.session.CatErrorText, "");
    EXPECT_EQ(bench.dialogs.boxes.size(), 1U);
}

TEST(damaged_catalogue, tells_of_a_file_that_has_gone) {
    Bench bench{block("PIC1", "JP2 NON\n")};
    std::filesystem::remove(bench.folder / "device6.ini");
    bench.load("PIC1");
    expect_box(bench, "device6.ini を開けませんでした。");
}

struct BadRow {
    const char* line;
    const char* reason;
};

class damaged_row : public testing::TestWithParam<BadRow> {};

TEST_P(damaged_row, is_told_with_its_number_and_text_and_the_rest_is_kept) {
    const auto& [line, reason] = GetParam();
    Bench bench{block("PIC1", std::string{"PGM_TYPE FLASH4\n"} + line + "\nJP2 NON\n")};
    bench.session.PowerMode = "VPP";
    bench.session.PgmWords = 7;
    bench.session.EepBytes = 5;
    bench.session.VddVppDelay = 3;
    bench.session.CpMaskCf5 = 9;
    bench.load("PIC1");

    expect_box(bench, "4行目 : " + std::string{line} + " : " + reason);
    EXPECT_EQ(bench.session.PgmType.text(), "FLASH4");
    EXPECT_EQ(bench.session.Jp2Key, "NON");
    EXPECT_EQ(bench.session.PowerMode, "VPP");
    EXPECT_EQ(bench.session.PgmWords, 7);
    EXPECT_EQ(bench.session.EepBytes, 5);
    EXPECT_EQ(bench.session.VddVppDelay, 3);
    EXPECT_EQ(bench.session.CpMaskCf5, 9U);
    EXPECT_EQ(bench.session.CalibText, "");
    EXPECT_EQ(bench.session.CommentText, "");
    EXPECT_EQ(bench.session.ConfigPresent, decltype(bench.session.ConfigPresent){});
    EXPECT_TRUE(bench.catalogue.options().empty());
    for (int n = 1; n <= 7; ++n) EXPECT_TRUE(bench.grid(n).empty());
}

TEST_P(damaged_row, leaves_the_next_device_selectable_with_nothing_of_it) {
    Bench bench{block("PIC16F1", std::string{"PGM_TYPE FLASH4\n"} + GetParam().line + "\n") +
                block("PIC16F2", kFlashRows)};
    bench.select("PIC16F1");
    EXPECT_EQ(bench.dialogs.boxes.size(), 1U);
    bench.dialogs.boxes.clear();
    ASSERT_TRUE(bench.select("PIC16F2"));
    EXPECT_TRUE(bench.dialogs.boxes.empty());
    EXPECT_FALSE(bench.session.CatError);
    EXPECT_EQ(bench.session.DeviceName, "PIC16F2");
    EXPECT_EQ(bench.session.PgmWords, 0x2000);
    EXPECT_EQ(bench.session.ConfigWord[1], 0x3FFFU);
    EXPECT_EQ(bench.grid(1), (std::vector<std::string>{"FOSC=RC", "CP=OFF"}));
    for (int n = 2; n <= 7; ++n) EXPECT_TRUE(bench.grid(n).empty());
    EXPECT_EQ(bench.form.LblCheckSUM.Caption.get(), "E000");
}

constexpr const char* kBadValue = "値を読み取れません。";
constexpr const char* kNoValue = "値がありません。";
constexpr const char* kBadSize = "大きさが扱える範囲を超えています。";
constexpr const char* kBadKey = "キーの末尾が1から7の数字ではありません。";

INSTANTIATE_TEST_SUITE_P(
    rows, damaged_row,
    testing::Values(
        // a value that doesn't convert
        BadRow{"VDD_VPP_DELAY 256", kBadValue}, BadRow{"VDD_VPP_DELAY ten", kBadValue},
        BadRow{"VDD_VPP_DELAY -1", kBadValue}, BadRow{"VDD_VPP_DELAY 0x0A", kBadValue},
        BadRow{"WRITE_BUFFER_SIZE_BYTE 256", kBadValue}, BadRow{"ERASE_TIME_MS 1000", kBadValue},
        BadRow{"BLOCK_NUMBER 40000", kBadValue}, BadRow{"BLOCK_SIZE_WORD 4294967296", kBadValue},
        BadRow{"FIRM 6.7a", kBadValue}, BadRow{"POWER_MODE VCC", kBadValue},
        BadRow{"PGM_SIZE_WORD 8K", kBadValue}, BadRow{"PGM_SIZE_WORD -2", kBadValue},
        BadRow{"PGM_SIZE_WORD 0xFG", kBadValue}, BadRow{"EEPROM_BYTE abc", kBadValue},
        BadRow{"EEPROM_BYTE 0B2", kBadValue}, BadRow{"CALIB(retlw) 8", kBadValue},
        BadRow{"CALIB(movlw) XY", kBadValue}, BadRow{"CP_MASK_CF5 0B12", kBadValue},
        BadRow{"DEVID1 0x12 x 0", kBadValue}, BadRow{"CONFIG1 1 0 0 0x10000", kBadValue},
        BadRow{"CONFIG2 1 0 0B2 1", kBadValue}, BadRow{"CFG1 CP ON 0x10000 0", kBadValue},
        BadRow{"CFG1 FOSC RC 0B3 0", kBadValue},
        BadRow{"ERASE3C0005-04_CHIP 0x0C3F3 0x0C8F8F", kBadValue},
        BadRow{"ERASE3C0005-04_CHIP 0x0C3F3G 0x0C8F8F", kBadValue},
        BadRow{"ERASE3C0005-04_BLOCK8 110C3F3F 0x0C8F8F", kBadValue},
        // a key without its value
        BadRow{"PGM_SIZE_WORD", kNoValue}, BadRow{"EEPROM_BYTE", kNoValue},
        BadRow{"POWER_MODE", kNoValue}, BadRow{"PACKAGE", kNoValue}, BadRow{"JP2", kNoValue},
        BadRow{"PGM_TYPE", kNoValue}, BadRow{"COMMENT", kNoValue}, BadRow{"FIRM", kNoValue},
        BadRow{"VDD_VPP_DELAY", kNoValue}, BadRow{"CALIB(retlw)", kNoValue},
        BadRow{"CP_MASK_CF5", kNoValue}, BadRow{"DEVID1 0x12 0x34", kNoValue},
        BadRow{"CONFIG1 1 0 0", kNoValue}, BadRow{"CFG1", kNoValue}, BadRow{"CFG1 FOSC", kNoValue},
        BadRow{"CFG1 FOSC RC", kNoValue}, BadRow{"CFG1 FOSC RC 3", kNoValue},
        BadRow{"ERASE3C0005-04_EEPROM 0x0C3F3F", kNoValue},
        BadRow{"CODE_PGM_DIRECT_ACCESS_SKIP_FLAG", kNoValue}, BadRow{"BLOCK_NUMBER", kNoValue},
        // a size beyond the image's arrays
        BadRow{"PGM_SIZE_WORD 0x100000", kBadSize}, BadRow{"PGM_SIZE_WORD 2147483647", kBadSize},
        BadRow{"EEPROM_BYTE 0x400", kBadSize},
        // a key that isn't in the table and names no word
        BadRow{"calib(retlw) 34", kBadKey}, BadRow{"CALIB(RETLW) 34", kBadKey},
        BadRow{"VOLTAGE 5 6 7 8", kBadKey}, BadRow{"CFG0 A B 1 1", kBadKey},
        BadRow{"CFG8 A B 1 1", kBadKey}, BadRow{"CONFIG8 1 0 0 1", kBadKey},
        BadRow{"説明 A B 1 1", kBadKey}));

TEST(damaged_catalogue, allows_a_pic18_type_twice_the_cells_wherever_its_type_stands) {
    Bench bench{block("PIC1", "EEPROM_BYTE 0x7FF\nPGM_TYPE 18F_01\n") +
                block("PIC2", "PGM_TYPE 18F_00\nEEPROM_BYTE 0x800\n") +
                block("PIC3", "PGM_TYPE FLASH8\nEEPROM_BYTE 0x3FF\n")};
    bench.load("PIC1");
    EXPECT_EQ(bench.session.EepBytes, 2048);
    EXPECT_TRUE(bench.dialogs.boxes.empty());
    bench.load("PIC2");
    EXPECT_EQ(bench.dialogs.boxes.size(), 1U);
    EXPECT_EQ(bench.session.EepBytes, 2048);
    bench.load("PIC3");
    EXPECT_EQ(bench.dialogs.boxes.size(), 1U);
    EXPECT_EQ(bench.session.EepBytes, 1024);
}

TEST(damaged_catalogue, drops_a_former_eeprom_size_that_the_new_type_cannot_hold) {
    Bench bench{block("PIC1", "PGM_TYPE 18F_01\nEEPROM_BYTE 0x7FF\n") +
                block("PIC2", "PGM_TYPE FLASH8\n")};
    bench.load("PIC1");
    bench.load("PIC2");
    expect_box(bench,
               "EEPROM_BYTE の行がなく、前のデバイスの値は使えません。EEPROM無しとして扱います。");
    EXPECT_EQ(bench.session.EepBytes, 0);
    EXPECT_EQ(bench.session.EepBytesCat, 0);
}

TEST(damaged_catalogue, tells_of_several_lines_at_once) {
    Bench bench{block("PIC1", "FIRM x\nJP2 NON\nFOO\n")};
    bench.load("PIC1");
    expect_box(bench,
               "3行目 : FIRM x : 値を読み取れません。\r　"
               "5行目 : FOO : キーの末尾が1から7の数字ではありません。");
}

TEST(damaged_catalogue, counts_the_lines_that_its_box_does_not_show) {
    std::string rows;
    for (int i = 0; i < 20; ++i) rows += "FOO\n";
    Bench bench{block("PIC1", rows)};
    bench.load("PIC1");
    EXPECT_TRUE(bench.session.CatErrorText.ends_with("\r　他 12 行"));
}

TEST(damaged_catalogue, tells_of_a_block_of_more_than_257_rows) {
    std::string rows;
    for (int i = 0; i < 258; ++i) rows += "JP2 NON\n";
    Bench bench{block("PIC1", rows)};
    bench.load("PIC1");
    expect_box(bench, "260行目 : 一つのデバイスの行数が多すぎます。（最大257行）");
}

TEST(damaged_catalogue, keeps_129_help_rows_and_tells_of_the_next) {
    std::string help;
    for (int i = 0; i < 129; ++i) help += "CMT F" + std::to_string(i) + " t x\n";
    Bench fits{help + block("PIC1", "JP2 NON\n")};
    fits.load("PIC1");
    EXPECT_EQ(fits.catalogue.CmtTable().size(), 129U);
    EXPECT_TRUE(fits.dialogs.boxes.empty());

    Bench bench{help + "CMT MORE t x\n" + block("PIC1", "JP2 NON\n")};
    bench.load("PIC1");
    expect_box(bench, "130行目 : CMT MORE : CMT の行数が多すぎます。（最大129行）");
    EXPECT_EQ(bench.catalogue.CmtTable().size(), 129U);
    EXPECT_EQ(bench.session.Jp2Key, "NON");
}

TEST(damaged_catalogue, tells_of_a_row_of_more_than_65_tokens_and_uses_its_first) {
    std::string row = "COMMENT";
    for (int i = 0; i < 65; ++i) row += " w";
    Bench bench{block("PIC1", row + "\nJP2 NON\n")};
    bench.load("PIC1");
    expect_box(bench, "3行目 : " + row + " : 一行の語数が多すぎます。（最大65語）");
    EXPECT_EQ(bench.session.CommentText, " w w w w w");
    EXPECT_EQ(bench.session.Jp2Key, "NON");
}

TEST(damaged_catalogue, does_not_upset_the_selection_that_reads_it) {
    Bench bench{block("PIC16F84A", kFlashRows) + "#BEGIN\nPIC16F877\nPGM_TYPE FLASH4\n"};
    ASSERT_TRUE(bench.select("PIC16F84A"));
    ASSERT_TRUE(bench.select("PIC16F877"));
    expect_box(bench, "EOF を検出しました。");
    EXPECT_EQ(bench.session.DeviceName, "PIC16F877");
    for (std::size_t tab = 0; tab < 7; ++tab)
        EXPECT_FALSE(bench.form.SSTab_Config.TabVisible.get()[tab]);
    EXPECT_TRUE(bench.form.SSTab_MCU_Information.Redraw.get());
    ASSERT_TRUE(bench.select("PIC16F84A"));
    EXPECT_EQ(bench.dialogs.boxes.size(), 1U);
}

TEST(damaged_catalogue, of_arbitrary_bytes_is_read_to_its_end) {
    std::string noise = "#BEGIN\nPIC1\n";
    for (int i = 0; i < 4096; ++i) noise += static_cast<char>(i * 7919 % 256);
    Bench bench{noise};
    bench.catalogue.LoadDeviceList();
    bench.load("PIC1");
    EXPECT_TRUE(bench.session.CatError);
}

}  // namespace
}  // namespace quillon::test
