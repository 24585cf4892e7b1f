// SPDX-License-Identifier: MIT
// What each key of a device block sets.
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "catalogue/bench.h"

namespace quillon::test {
namespace {

using Erase = DeviceRecord::EraseRecord;
using Rows = std::vector<std::string>;

// A bench that has loaded a block of the given rows with no complaint.
struct Loaded : Bench {
    explicit Loaded(std::string_view rows) : Bench{block("PIC1", rows)} {
        load("PIC1");
        EXPECT_TRUE(dialogs.boxes.empty());
        EXPECT_FALSE(session.CatError);
    }
};

TEST(LoadDeviceRecord, reads_the_example_device) {
    Loaded bench{kFlashRows};
    const auto& session = bench.session;
    EXPECT_EQ(session.PgmType.text(), "FLASH4");
    EXPECT_EQ(session.PowerMode, "VPP");
    EXPECT_EQ(session.PackageKey, "28");
    EXPECT_EQ(session.Jp2Key, "2-3");
    EXPECT_EQ(session.FirmRequired, 6.5);
    EXPECT_EQ(session.VddVppDelay, 10);
    EXPECT_EQ(session.PgmWords, 0x2000);
    EXPECT_EQ(session.EepBytes, 256);
    EXPECT_EQ(session.CommentText, " 8K words and 256 bytes");
    EXPECT_EQ(session.ConfigWidth[1], 0x3FFFU);
    EXPECT_EQ(session.CpMask, 0x3030U);
    EXPECT_EQ(bench.grid(1), (Rows{"FOSC=", "CP="}));
    EXPECT_EQ(bench.form.HFGrid(1).CursorColumn.get(), 1);
    EXPECT_EQ(bench.form.HFGrid(1).CursorRow.get(), 2);
}

TEST(LoadDeviceRecord, takes_keys_in_either_case) {
    Loaded bench{"pgm_type FLASH8\nPower_Mode VDD\ncfg1 A B 1 1\nconfig1 1 0 0 1\n"};
    EXPECT_EQ(bench.session.PgmType.text(), "FLASH8");
    EXPECT_EQ(bench.session.PowerMode, "VDD");
    EXPECT_TRUE(bench.session.ConfigPresent[1]);
    EXPECT_EQ(bench.grid(1), Rows{"A="});
}

TEST(LoadDeviceRecord, finds_a_block_by_its_exact_name) {
    Bench bench{block("PIC16F84A", "JP2 1-2\n") + block("PIC16F84", "JP2 NON\n")};
    bench.load("PIC16F84");
    EXPECT_EQ(bench.session.Jp2Key, "NON");
}

TEST(LoadDeviceRecord, takes_the_first_of_two_blocks_of_a_name) {
    Bench bench{block("PIC1", "JP2 1-2\n") + block("PIC1", "JP2 NON\n")};
    bench.load("PIC1");
    EXPECT_EQ(bench.session.Jp2Key, "1-2");
}

TEST(LoadDeviceRecord, loads_nothing_and_says_nothing_for_a_name_that_is_not_in_the_file) {
    Bench bench{block("PIC1", kFlashRows)};
    bench.load("PIC1");
    bench.load("PIC2");
    EXPECT_EQ(bench.session.PgmType.text(), "FLASH4");
    EXPECT_TRUE(bench.session.ConfigPresent[1]);
    EXPECT_TRUE(bench.dialogs.boxes.empty());
}

TEST(LoadDeviceRecord, turns_the_drawing_of_the_grids_on_again) {
    Bench bench{block("PIC1", kFlashRows)};
    for (const char* name : {"PIC1", "PIC2"}) {
        bench.load(name);
        int told = 0;
        const auto connection = bench.form.HFGrid(7).Changed.connect([&] { ++told; });
        bench.form.HFGrid(7).set_cell(3, 1, name);
        EXPECT_EQ(told, 1) << name;
    }
}

TEST(LoadDeviceRecord, shows_the_socket_of_PACKAGE_alone) {
    const std::array<std::pair<const char*, Shape BoardForm::*>, 5> kSockets{{
        {"8", &BoardForm::Shape_8P},
        {"18", &BoardForm::Shape_18P},
        {"28", &BoardForm::Shape_28P},
        {"28A", &BoardForm::Shape_28AP},
        {"40", &BoardForm::Shape_40P},
    }};
    for (const auto& [key, shown] : kSockets) {
        Loaded bench{std::string{"PACKAGE "} + key + "\n"};
        EXPECT_EQ(bench.session.PackageKey, key);
        for (const auto& [other, shape] : kSockets)
            EXPECT_EQ((bench.board.*shape).Visible.get(), std::string{key} == other)
                << key << " " << other;
    }
}

TEST(LoadDeviceRecord, shows_the_jumper_of_JP2_alone) {
    const std::array<std::array<bool, 3>, 3> kShown{
        {{true, false, false}, {false, true, false}, {false, false, true}}};
    const std::array kKeys{"1-2", "2-3", "NON"};
    for (std::size_t i = 0; i < kKeys.size(); ++i) {
        Loaded bench{std::string{"JP2 "} + kKeys[i] + "\n"};
        const std::array shown{bench.board.Shape_12.Visible.get(),
                               bench.board.Shape_23.Visible.get(),
                               bench.board.Label_sel.Visible.get()};
        EXPECT_EQ(shown, kShown[i]) << kKeys[i];
    }
}

TEST(LoadDeviceRecord, shows_no_socket_and_no_jumper_for_a_word_that_the_board_does_not_have) {
    Loaded bench{"PACKAGE 28\nJP2 NON\nPACKAGE 44\nJP2 3-4\n"};
    EXPECT_EQ(bench.session.PackageKey, "44");
    EXPECT_EQ(bench.session.Jp2Key, "3-4");
    for (const auto* shape : {&bench.board.Shape_8P, &bench.board.Shape_18P, &bench.board.Shape_28P,
                              &bench.board.Shape_28AP, &bench.board.Shape_40P,
                              &bench.board.Shape_12, &bench.board.Shape_23})
        EXPECT_FALSE(shape->Visible.get()) << shape->name;
    EXPECT_FALSE(bench.board.Label_sel.Visible.get());
}

TEST(LoadDeviceRecord, keeps_the_board_s_drawing_for_a_block_without_the_keys) {
    Bench bench{block("PIC1", "PACKAGE 18\nJP2 1-2\n") + block("PIC2", "PGM_TYPE FLASH4\n")};
    bench.load("PIC1");
    bench.load("PIC2");
    EXPECT_TRUE(bench.board.Shape_18P.Visible.get());
    EXPECT_TRUE(bench.board.Shape_12.Visible.get());
}

TEST(LoadDeviceRecord, counts_words_from_the_highest_address) {
    Loaded hexadecimal{"PGM_SIZE_WORD 0x3FF\n"};
    EXPECT_EQ(hexadecimal.session.PgmWords, 1024);
    EXPECT_EQ(hexadecimal.session.PgmWordsCat, 1024);
    EXPECT_EQ(hexadecimal.form.Label_pm_size.Caption.get(), "= 1024 word");
    Loaded decimal{"PGM_SIZE_WORD 1023\n"};
    EXPECT_EQ(decimal.session.PgmWords, 1024);
    Loaded largest{"PGM_SIZE_WORD 0xFFFFF\n"};
    EXPECT_EQ(largest.session.PgmWords, 0x100000);
}

TEST(LoadDeviceRecord, shows_the_eeprom_view_of_a_device_that_has_one) {
    Loaded bench{"EEPROM_BYTE 0\nEEPROM_BYTE 0x7F\n"};
    EXPECT_EQ(bench.session.EepBytes, 128);
    EXPECT_EQ(bench.session.EepBytesCat, 128);
    EXPECT_TRUE(bench.form.rText_EepromMem.Visible.get());
    EXPECT_TRUE(bench.form.Label4.Visible.get());
    EXPECT_TRUE(bench.form.Label_ed_size.Visible.get());
    EXPECT_EQ(bench.form.Label_ed_size.Caption.get(), "= 128 byte");
    EXPECT_EQ(bench.form.RichTxtPgmMem.Height.get(), 2640);
}

TEST(LoadDeviceRecord, hides_and_empties_the_eeprom_view_of_a_device_that_has_none) {
    Bench bench{block("PIC1", "EEPROM_BYTE 0\n")};
    bench.session.EepBytes = bench.session.EepBytesCat = 256;
    bench.form.rText_EepromMem.Text.set("0000: FF");
    bench.form.Label_ed_size.Caption.set("= 256 byte");
    bench.load("PIC1");
    EXPECT_EQ(bench.session.EepBytes, 0);
    EXPECT_EQ(bench.session.EepBytesCat, 0);
    EXPECT_FALSE(bench.form.rText_EepromMem.Visible.get());
    EXPECT_EQ(bench.form.rText_EepromMem.Text.get(), "");
    EXPECT_FALSE(bench.form.Label4.Visible.get());
    EXPECT_FALSE(bench.form.Label_ed_size.Visible.get());
    EXPECT_EQ(bench.form.Label_ed_size.Caption.get(), "");
    EXPECT_EQ(bench.form.RichTxtPgmMem.Height.get(), 4310);
}

TEST(LoadDeviceRecord, keeps_the_former_eeprom_size_for_a_block_without_the_key) {
    Bench bench{block("PIC1", kFlashRows) + block("PIC2", "PGM_TYPE FLASH4\n")};
    bench.load("PIC1");
    bench.load("PIC2");
    EXPECT_EQ(bench.session.EepBytes, 256);
    EXPECT_TRUE(bench.dialogs.boxes.empty());
}

TEST(LoadDeviceRecord, reads_both_calibration_keys) {
    Loaded retlw{"CALIB(retlw) 8a\n"};
    EXPECT_EQ(retlw.session.CalibText, "retlw 0x8a");
    EXPECT_EQ(retlw.form.Text_Calib_Data.Text.get(), "8a");
    Loaded movlw{"CALIB(movlw) 00\n"};
    EXPECT_EQ(movlw.session.CalibText, "movlw 0x00");
    EXPECT_EQ(movlw.form.Text_Calib_Data.Text.get(), "00");
}

TEST(LoadDeviceRecord, forgets_the_former_calibration_even_for_an_unknown_name) {
    Bench bench{block("PIC1", "CALIB(retlw) 80\n")};
    bench.load("PIC1");
    bench.load("PIC2");
    EXPECT_EQ(bench.session.CalibText, "");
}

TEST(LoadDeviceRecord, keeps_five_words_of_a_comment) {
    Loaded six{"COMMENT one  two three four five six\n"};
    EXPECT_EQ(six.session.CommentText, " one two three four five");
    Loaded one{"COMMENT one\n"};
    EXPECT_EQ(one.session.CommentText, " one");
}

TEST(LoadDeviceRecord, reads_the_erase_words_byte_by_byte) {
    Loaded bench{
        "ERASE3C0005-04_CHIP 0x0C3F3F 0x0c8F8f\n"
        "ERASE3C0005-04_CONFIG 0x010203 0x040506\n"
        "ERASE3C0005-04_EEPROM 0X112233 0X445566\n"
        "ERASE3C0005-04_BLOCKB 0x000000 0x000001\n"
        "ERASE3C0005-04_BLOCK1 0x000000 0x000002\n"
        "ERASE3C0005-04_BLOCK2 0x000000 0x000003\n"
        "ERASE3C0005-04_BLOCK3 0x000000 0x000004\n"
        "ERASE3C0005-04_BLOCK4 0x000000 0x000005\n"
        "ERASE3C0005-04_BLOCK5 0x000000 0x000006\n"
        "ERASE3C0005-04_BLOCK6 0x000000 0x000007\n"
        "ERASE3C0005-04_BLOCK7 0x000000 0x000008\n"
        "ERASE3C0005-04_BLOCK8 0x000000 0x000009\n"};
    EXPECT_EQ(bench.session.EraseChip18, (Erase{0x0C, 0x3F, 0x3F, 0x0C, 0x8F, 0x8F}));
    EXPECT_EQ(bench.session.EraseConfig18, (Erase{1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(bench.session.EraseEeprom18, (Erase{0x11, 0x22, 0x33, 0x44, 0x55, 0x66}));
    for (std::size_t n = 0; n < 9; ++n)
        EXPECT_EQ(bench.session.EraseBlock18[n][5], n + 1) << "block " << n;
}

TEST(LoadDeviceRecord, clears_the_block_erase_words_and_keeps_the_other_three) {
    Bench bench{block("PIC1", "JP2 NON\n")};
    bench.session.EraseChip18.fill(1);
    bench.session.EraseConfig18.fill(2);
    bench.session.EraseEeprom18.fill(3);
    bench.session.EraseBlock18[8].fill(4);
    bench.load("PIC1");
    EXPECT_EQ(bench.session.EraseChip18[0], 1);
    EXPECT_EQ(bench.session.EraseConfig18[0], 2);
    EXPECT_EQ(bench.session.EraseEeprom18[0], 3);
    EXPECT_EQ(bench.session.EraseBlock18[8], Erase{});
}

TEST(LoadDeviceRecord, builds_the_identity_without_revision_bits) {
    Loaded bench{"DEVID1 0x12 0x45 0x1F\n"};
    EXPECT_EQ(bench.session.DevIdMask, 0x1FU);
    EXPECT_EQ(bench.session.DevIdExpect, 0x1240U);
}

TEST(LoadDeviceRecord, reads_the_protection_mask_in_both_forms) {
    Loaded pair{"CP_MASK_CF5 0B11000000 00001111\n"};
    EXPECT_EQ(pair.session.CpMaskCf5, 0xC00FU);
    Loaded number{"CP_MASK_CF5 0xC003\n"};
    EXPECT_EQ(number.session.CpMaskCf5, 0xC003U);
}

TEST(LoadDeviceRecord, reads_byte_values_up_to_255) {
    Loaded bench{"VDD_VPP_DELAY 255\nWRITE_BUFFER_SIZE_BYTE 64\n"};
    EXPECT_EQ(bench.session.VddVppDelay, 255);
    EXPECT_EQ(bench.session.WriteBufBytes, 64);
}

TEST(LoadDeviceRecord, takes_the_keys_that_are_kept_for_information) {
    Loaded bench{
        "BLOCK_NUMBER 8\nBLOCK_SIZE_WORD 65536\nERASE_BUFFER_SIZE_BYTE 64\n"
        "PROGRAMMING_TIME_MS 1\nERASE_TIME_MS 5\nCODE_PGM_DIRECT_ACCESS_SKIP_FLAG ON\n"
        "CODE_PGM_CONFIGURE_FOR_MULTI_WRITE_SKIP_FLAG OFF\n"};
    EXPECT_TRUE(bench.catalogue.options().empty());
}

TEST(LoadDeviceRecord, shows_the_protection_bits_to_the_developer) {
    Loaded bench{kFlashRows};
    EXPECT_EQ(bench.form.Label_Debug.Caption.get(), "dec:12336 , hex:3030");
}

TEST(LoadDeviceRecord, gives_a_field_one_grid_row_however_many_options_it_has) {
    Loaded bench{
        "CFG1 A X 1 0\nCFG1 A Y 1 1\nCFG1 B X 2 0\nCFG2 B X 2 0\nCFG2 B Y 2 2\nCFG7 C X 4 4\n"};
    EXPECT_EQ(bench.grid(1), (Rows{"A=", "B="}));
    EXPECT_EQ(bench.grid(2), Rows{"B="});
    EXPECT_EQ(bench.grid(7), Rows{"C="});
}

TEST(LoadDeviceRecord, gives_a_field_that_another_interrupts_two_grid_rows) {
    Loaded bench{"CFG1 A X 1 0\nCFG1 B X 2 0\nCFG1 A Y 1 1\n"};
    EXPECT_EQ(bench.grid(1), (Rows{"A=", "B=", "A="}));
}

TEST(LoadDeviceRecord, takes_any_other_key_that_ends_in_a_word_number_as_a_field) {
    Loaded bench{"WORD3 A X 1 0\n"};
    EXPECT_EQ(bench.grid(3), Rows{"A="});
}

TEST(LoadDeviceRecord, knows_the_words_that_are_present_and_no_others) {
    Bench bench{block("PIC1", "CONFIG1 1 0 0 1\nCONFIG2 1 0 0 1\n") +
                block("PIC2", "CONFIG1 1 0 0 1\nCONFIG3 1 0 0 1\n")};
    bench.load("PIC1");
    bench.load("PIC2");
    EXPECT_EQ(bench.session.ConfigPresent,
              (std::array{false, true, false, true, false, false, false, false}));
    EXPECT_EQ(bench.session.ConfigWidth[2], 0U);
}

TEST(LoadDeviceRecord, sees_the_help_rows_that_stand_before_the_block) {
    Bench bench{"CMT A title text\n" + block("PIC1", "JP2 NON\n") + "CMT B t2 x2\n" +
                block("PIC2", "JP2 NON\n")};
    bench.load("PIC1");
    ASSERT_EQ(bench.catalogue.CmtTable().size(), 1U);
    EXPECT_EQ(bench.catalogue.CmtTable()[0].key, "A");
    EXPECT_EQ(bench.catalogue.CmtTable()[0].title, "title");
    EXPECT_EQ(bench.catalogue.CmtTable()[0].text, "text");
    bench.load("PIC2");
    EXPECT_EQ(bench.catalogue.CmtTable().size(), 2U);
}

TEST(LoadDeviceRecord, ends_a_comment_at_a_comma_and_takes_the_rest_as_a_row) {
    Bench bench{block("PIC1", "COMMENT 8K words, JP2 NON\n")};
    bench.load("PIC1");
    EXPECT_EQ(bench.session.CommentText, " 8K words");
    EXPECT_EQ(bench.session.Jp2Key, "NON");
}

TEST(LoadDeviceRecord, processes_256_rows_and_leaves_the_one_behind_them) {
    std::string rows;
    for (int i = 0; i < 255; ++i) rows += "JP2 NON\n";
    Loaded bench{rows + "PACKAGE 8\nPACKAGE 40\n"};
    EXPECT_EQ(bench.session.PackageKey, "8");
}

TEST(LoadDeviceRecord, reads_the_file_again_at_each_selection) {
    Bench bench{block("PIC1", "JP2 NON\n")};
    bench.load("PIC1");
    bench.folder.write("device6.ini", block("PIC1", "JP2 1-2\n"));
    bench.load("PIC1");
    EXPECT_EQ(bench.session.Jp2Key, "1-2");
}

}  // namespace
}  // namespace quillon::test
