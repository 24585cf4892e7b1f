// SPDX-License-Identifier: MIT
// Configuration words: from the catalogue, from options to the number, from the number to options.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "catalogue/bench.h"
#include "catalogue/config_row.h"

namespace quillon::test {
namespace {

using Rows = std::vector<std::string>;

// A word row as the catalogue stores it.
CatRow word_row(std::string standard, std::string zero, std::string one, std::string width) {
    return {"CONFIG1", std::move(standard), std::move(zero), std::move(one), std::move(width)};
}

struct Loaded : Bench {
    explicit Loaded(std::string_view rows) : Bench{block("PIC1", rows)} {
        config.ResetConfigGrids();
        load("PIC1");
        session.DeviceName = "PIC1";
        EXPECT_TRUE(dialogs.boxes.empty());
    }
    void choose(int n, std::size_t row, std::string option) {
        form.HFGrid(n).set_cell(row, 1, std::move(option));
    }
};

constexpr std::string_view kTwoWords =
    "PGM_TYPE FLASH4\n"
    "CONFIG1 0x3FFF 0 0 0x3FFF\n"
    "CFG1 WDTE OFF 0x0004 0x0000\n"
    "CFG1 WDTE ON 0x0004 0x0004\n"
    "CONFIG2 0x3FFF 0 0 0x3FFF\n"
    "CFG2 WDTE OFF 0x0100 0x0000\n"
    "CFG2 WDTE ON 0x0100 0x0100\n";

TEST(ResetConfigGrids, leaves_each_grid_its_heading_alone) {
    Loaded bench{kTwoWords};
    bench.config.ResetConfigGrids();
    for (int n = 1; n <= 7; ++n) {
        EXPECT_EQ(bench.form.HFGrid(n).rows(), 1U);
        EXPECT_EQ(bench.form.HFGrid(n).cell(0, 0), "ｺﾝﾌｨｸﾞ" + std::to_string(n));
        EXPECT_EQ(bench.form.HFGrid(n).cell(0, 1), "FFFF");
    }
}

TEST(InitConfigGrids, hides_and_empties_the_two_entries) {
    Bench bench;
    bench.form.CmbInit.Items.set({"ON"});
    bench.form.CmbInit.show(0);
    bench.form.TxtInit.Text.set("12");
    bench.config.InitConfigGrids();
    EXPECT_FALSE(bench.form.CmbInit.Visible.get());
    EXPECT_TRUE(bench.form.CmbInit.Items.get().empty());
    EXPECT_EQ(bench.form.CmbInit.Text.get(), "");
    EXPECT_FALSE(bench.form.TxtInit.Visible.get());
    EXPECT_EQ(bench.form.TxtInit.Text.get(), "");
    EXPECT_EQ(bench.form.HFGrid(1).cell(0, 1), "FFFF");
}

TEST(ApplyConfigRow, passes_a_word_with_no_fixed_bits_unchanged) {
    Bench bench;
    ApplyConfigRow(bench.session, bench.form, 1, word_row("0x2ABC", "0", "0", "0x3FFF"));
    EXPECT_EQ(bench.session.ConfigDefault[1], 0x2ABCU);
    EXPECT_EQ(bench.session.ConfigWord[1], 0x2ABCU);
    EXPECT_EQ(bench.session.ConfigMask[1], 0x3FFFU);
    EXPECT_EQ(bench.session.ConfigWidth[1], 0x3FFFU);
}

TEST(ApplyConfigRow, clears_the_bits_that_are_always_0_and_sets_those_that_are_always_1) {
    Bench bench;
    ApplyConfigRow(bench.session, bench.form, 2, word_row("0xFFFB", "0x0F00", "0x0004", "0xFFFF"));
    EXPECT_EQ(bench.session.ConfigMask[2], 0xF0FFU);
    EXPECT_EQ(bench.session.ConfigForce[2], 0x0004U);
    EXPECT_EQ(bench.session.ConfigDefault[2], 0xFFFBU);
    EXPECT_EQ(bench.session.ConfigWord[2], 0xF0FFU);
}

TEST(ApplyConfigRow, does_not_mask_a_word_that_came_from_outside) {
    Bench bench;
    bench.session.ConfigFromFile = true;
    ApplyConfigRow(bench.session, bench.form, 2, word_row("0xFFFB", "0x0F00", "0x0004", "0xFFFF"));
    EXPECT_EQ(bench.session.ConfigWord[2], 0xFFFBU);
}

TEST(ApplyConfigRow, shows_word_1_and_stores_its_bytes) {
    Bench bench;
    ApplyConfigRow(bench.session, bench.form, 1, word_row("0x2ABC", "0", "0", "0x3FFF"));
    EXPECT_EQ(bench.form.HFGrid(1).cell(0, 1), "L01_0x2ABC");
    EXPECT_EQ(bench.form.Text_Config1.Text.get(), "2ABC");
    EXPECT_EQ(bench.session.CfgIdMem[14], 0x2A);
    EXPECT_EQ(bench.session.CfgIdMem[15], 0xBC);
    EXPECT_EQ(bench.session.CfgBytes18[0], 0xBC);
    EXPECT_EQ(bench.session.CfgBytes18[1], 0x2A);
}

TEST(ApplyConfigRow, stores_a_further_word_in_the_pic18_bytes_only) {
    Bench bench;
    ApplyConfigRow(bench.session, bench.form, 7, word_row("0x1234", "0", "0", "0xFFFF"));
    EXPECT_EQ(bench.form.HFGrid(7).cell(0, 1), "L01_0x1234");
    EXPECT_EQ(bench.session.CfgBytes18[12], 0x34);
    EXPECT_EQ(bench.session.CfgBytes18[13], 0x12);
    EXPECT_EQ(bench.session.CfgIdMem[26], 0);
    EXPECT_EQ(bench.form.Text_Config1.Text.get(), "");
}

TEST(ApplyConfigRow, takes_nothing_of_a_row_that_does_not_convert) {
    Bench bench;
    ApplyConfigRow(bench.session, bench.form, 1, word_row("0x2ABC", "0", "x", "0x3FFF"));
    EXPECT_EQ(bench.session.ConfigWord[1], 0U);
    EXPECT_EQ(bench.session.ConfigWidth[1], 0U);
}

TEST(ConfigGridChanged, gives_each_field_the_bits_of_its_option) {
    Loaded bench{kFlashRows};
    bench.choose(1, 1, "XT");
    bench.choose(1, 2, "ON");
    bench.config.ConfigGridChanged(1);
    EXPECT_EQ(bench.session.ConfigWord[1], 0x0FCDU);
    EXPECT_EQ(bench.form.HFGrid(1).cell(0, 1), "0x0FCD");
    EXPECT_EQ(bench.form.Text_Config1.Text.get(), "0FCD");
}

TEST(ConfigGridChanged, leaves_the_bits_of_an_empty_option_cell_at_1) {
    Loaded bench{kFlashRows};
    bench.choose(1, 2, "ON");
    bench.config.ConfigGridChanged(1);
    EXPECT_EQ(bench.session.ConfigWord[1], 0x0FCFU);
}

TEST(ConfigGridChanged, leaves_an_unknown_option_at_1_and_reads_the_fields_behind_it) {
    Loaded bench{kFlashRows};
    bench.choose(1, 1, "nothing");
    bench.choose(1, 2, "ON");
    bench.config.ConfigGridChanged(1);
    EXPECT_EQ(bench.session.ConfigWord[1], 0x0FCFU);
}

TEST(ConfigGridChanged, sets_the_bits_that_are_always_1_whatever_the_options) {
    Loaded bench{"CONFIG1 0x3FFF 0x0100 0x0004 0x3FFF\nCFG1 A OFF 3 0\nCFG1 A ON 3 3\n"};
    bench.choose(1, 1, "OFF");
    bench.config.ConfigGridChanged(1);
    EXPECT_EQ(bench.session.ConfigWord[1], 0x3EFCU);
    EXPECT_TRUE(bench.session.ConfigWord[1] & 0x0004U);
}

TEST(ConfigGridChanged, only_clears_bits_of_a_word_that_came_from_outside) {
    Loaded bench{kFlashRows};
    bench.session.ConfigFromFile = true;
    bench.session.ConfigWord[1] = 0x0F00;
    bench.choose(1, 1, "RC");
    bench.config.ConfigGridChanged(1);
    EXPECT_EQ(bench.session.ConfigWord[1], 0x0F00U);
}

TEST(ConfigGridChanged, looks_for_a_field_in_its_own_word_only) {
    Loaded bench{kTwoWords};
    bench.choose(1, 1, "ON");
    bench.choose(2, 1, "OFF");
    bench.config.ConfigGridChanged(1);
    bench.config.ConfigGridChanged(2);
    EXPECT_EQ(bench.session.ConfigWord[1], 0x3FFFU);
    EXPECT_EQ(bench.session.ConfigWord[2], 0x3EFFU);
}

TEST(ConfigGridChanged, tells_fields_apart_whose_joined_texts_read_the_same) {
    Loaded bench{
        "CONFIG1 0x3FFF 0 0 0x3FFF\n"
        "CFG1 CP D0 1 0\nCFG1 CP D1 1 1\nCFG1 CPD 0 2 0\nCFG1 CPD 1 2 2\n"};
    bench.choose(1, 2, "0");
    bench.config.ConfigGridChanged(1);
    EXPECT_EQ(bench.session.ConfigWord[1], 0x3FFDU);
}

TEST(ConfigGridChanged, goes_on_from_the_last_hit) {
    Loaded bench{"CONFIG1 0x3FFF 0 0 0x3FFF\nCFG1 A X 1 0\nCFG1 B X 2 0\nCFG1 A X 4 0\n"};
    for (std::size_t row : {1U, 2U, 3U}) bench.choose(1, row, "X");
    bench.config.ConfigGridChanged(1);
    EXPECT_EQ(bench.session.ConfigWord[1], 0x3FFFU & ~7U)
        << "the third grid row is the third option, not the first again";
}

TEST(ConfigGridChanged, stores_the_bytes_of_both_images) {
    Loaded bench{kTwoWords};
    bench.choose(2, 1, "OFF");
    bench.config.ConfigGridChanged(2);
    EXPECT_EQ(bench.session.CfgIdMem[16], 0x3E);
    EXPECT_EQ(bench.session.CfgIdMem[17], 0xFF);
    EXPECT_EQ(bench.session.CfgBytes18[2], 0xFF);
    EXPECT_EQ(bench.session.CfgBytes18[3], 0x3E);
    EXPECT_EQ(bench.form.Text_Config2.Text.get(), "3EFF");
}

TEST(ConfigGridChanged, sets_the_two_top_bits_of_word_1_on_eprom2) {
    Loaded bench{"PGM_TYPE EPROM2\nCONFIG1 0x3FFF 0 0 0x3FFF\nCONFIG2 0x3FFF 0 0 0x3FFF\n"};
    bench.config.ConfigGridChanged(1);
    bench.config.ConfigGridChanged(2);
    EXPECT_EQ(bench.session.CfgIdMem[14], 0xFF);
    EXPECT_EQ(bench.session.CfgIdMem[16], 0x3F);
    EXPECT_EQ(bench.session.ConfigWord[1], 0x3FFFU);
}

TEST(ConfigGridChanged, redraws_once_and_keeps_the_cursor) {
    Loaded bench{kFlashRows};
    bench.form.HFGrid(1).CursorRow.set(1);
    bench.form.HFGrid(1).CursorColumn.set(1);
    int told = 0;
    const auto connection = bench.form.HFGrid(1).Changed.connect([&] { ++told; });
    bench.config.ConfigGridChanged(1);
    EXPECT_EQ(told, 1);
    EXPECT_EQ(bench.form.HFGrid(1).CursorRow.get(), 1);
    EXPECT_EQ(bench.form.HFGrid(1).CursorColumn.get(), 1);
}

TEST(ConfigGridChanged, gives_a_word_that_the_device_lacks_no_bits) {
    Loaded bench{kFlashRows};
    bench.session.ConfigWord[3] = 0x3FFF;
    bench.config.ConfigGridChanged(3);
    EXPECT_EQ(bench.session.ConfigWord[3], 0U);
}

TEST(put_word, sets_number_options_and_bytes_of_its_word_alone) {
    Loaded bench{kTwoWords};
    bench.session.ConfigWord[2] = 0x7EFF;  // as it came from outside, with a bit beyond the word
    bench.config.put_word(1, 0x3FFB);
    EXPECT_EQ(bench.session.ConfigWord[1], 0x3FFBU);
    EXPECT_EQ(bench.grid(1), Rows{"WDTE=OFF"});
    EXPECT_EQ(bench.form.HFGrid(1).cell(0, 1), "0x3FFB");
    EXPECT_EQ(bench.session.CfgIdMem[14], 0x3F);
    EXPECT_EQ(bench.session.CfgIdMem[15], 0xFB);
    EXPECT_EQ(bench.session.CfgBytes18[0], 0xFB);
    EXPECT_EQ(bench.form.Text_Config1.Text.get(), "3FFB");
    EXPECT_EQ(bench.session.ConfigWord[2], 0x7EFFU);
}

TEST(put_word, keeps_the_bits_that_are_always_0_or_1) {
    Loaded bench{"PGM_TYPE EPROM2\nCONFIG1 0x3FFF 0x0100 0x0004 0x3FFF\n"};
    bench.config.put_word(1, 0x0FF0);
    EXPECT_EQ(bench.session.ConfigWord[1], 0x0EF4U);
    EXPECT_EQ(bench.session.CfgIdMem[14], 0xCE) << "the two top bits of an EPROM2 word";
}

TEST(set_field, changes_the_bits_of_one_field) {
    Loaded bench{kFlashRows};
    bench.session.ConfigWord[1] = 0x1FFE;  // a protection that no option has
    EXPECT_EQ(bench.config.set_field(1, "FOSC", "XT"), ConfigModel::FieldChange::Done);
    EXPECT_EQ(bench.session.ConfigWord[1], 0x1FFDU);
    EXPECT_EQ(bench.form.HFGrid(1).cell(1, 1), "XT");
}

TEST(set_field, changes_nothing_where_the_word_has_no_such_field_or_option) {
    Loaded bench{kTwoWords};
    EXPECT_EQ(bench.config.set_field(1, "FOSC", "XT"), ConfigModel::FieldChange::NoField);
    EXPECT_EQ(bench.config.set_field(2, "WDTE", "MAYBE"), ConfigModel::FieldChange::NoOption);
    EXPECT_EQ(bench.session.ConfigWord[2], 0x3FFFU);
}

TEST(ShowConfigWords, shows_the_options_that_the_numbers_stand_for) {
    Loaded bench{kFlashRows};
    bench.session.ConfigWord[1] = 0x3FFE;
    bench.config.ShowConfigWords();
    EXPECT_EQ(bench.grid(1), (Rows{"FOSC=HS", "CP=OFF"}));
    EXPECT_EQ(bench.form.HFGrid(1).cell(0, 1), "0x3FFE");
    EXPECT_FALSE(bench.config.ProtectMixed());
}

TEST(ShowConfigWords, shows_every_word_that_is_present_while_its_tab_is_still_hidden) {
    Loaded bench{kTwoWords};
    bench.session.ConfigWord[2] = 0x3EFF;
    bench.config.ShowConfigWords();
    EXPECT_EQ(bench.grid(1), Rows{"WDTE=ON"});
    EXPECT_EQ(bench.grid(2), Rows{"WDTE=OFF"});
}

TEST(ShowConfigWords, leaves_the_cell_of_a_number_that_matches_no_option) {
    Loaded bench{"CONFIG1 3 0 0 0x3FFF\nCFG1 A X 3 0\nCFG1 A Y 3 3\nCFG1 B Z 4 4\n"};
    bench.choose(1, 1, "Y");
    bench.session.ConfigWord[1] = 0x0005;
    bench.config.ShowConfigWords();
    EXPECT_EQ(bench.grid(1), (Rows{"A=Y", "B=Z"}));
}

TEST(ShowConfigWords, takes_no_option_of_the_same_field_in_another_word) {
    Loaded bench{
        "CONFIG1 3 0 0 0x3FFF\nCONFIG2 3 0 0 0x3FFF\n"
        "CFG1 A X 3 0\nCFG2 A Y 3 1\n"};
    bench.session.ConfigWord[1] = 1;
    bench.session.ConfigWord[2] = 1;
    bench.config.ShowConfigWords();
    EXPECT_EQ(bench.grid(1), Rows{"A="});
    EXPECT_EQ(bench.grid(2), Rows{"A=Y"});
}

TEST(ShowConfigWords, shows_the_first_of_two_options_of_one_value) {
    Loaded bench{"CONFIG1 3 0 0 0x3FFF\nCFG1 A X 3 1\nCFG1 A Y 3 1\n"};
    bench.session.ConfigWord[1] = 1;
    bench.config.ShowConfigWords();
    EXPECT_EQ(bench.grid(1), Rows{"A=X"});
}

TEST(ShowConfigWords, applies_the_fixed_bits_unless_the_word_came_from_outside) {
    Loaded bench{"CONFIG1 0x3FFF 0x0F00 0x0004 0x3FFF\n"};
    bench.session.ConfigWord[1] = 0x0FF0;
    bench.config.ShowConfigWords();
    EXPECT_EQ(bench.session.ConfigWord[1], 0x00F4U);
    bench.session.ConfigFromFile = true;
    bench.session.ConfigWord[1] = 0x0FF0;
    bench.config.ShowConfigWords();
    EXPECT_EQ(bench.session.ConfigWord[1], 0x0FF0U);
    EXPECT_EQ(bench.form.HFGrid(1).cell(0, 1), "0x0FF0");
}

TEST(ShowConfigWords, takes_the_mask_of_the_row_itself_and_not_of_the_field_before) {
    Loaded bench{
        "CONFIG1 0x3FFF 0 0 0x3FFF\n"
        "CFG1 A OFF 0x0003 0x0000\nCFG1 A ON 0x0003 0x0003\n"
        "CFG1 CP ON 0x0300 0x0000\nCFG1 CP OFF 0x0300 0x0300\n"};
    bench.session.ConfigFromFile = true;
    bench.session.ConfigWord[1] = 0x0301;  // A matches nothing, CP is off
    bench.config.ShowConfigWords();
    EXPECT_EQ(bench.grid(1), (Rows{"A=", "CP=OFF"}));
    EXPECT_FALSE(bench.config.ProtectMixed());
    bench.session.ConfigWord[1] = 0x0103;
    bench.config.ShowConfigWords();
    EXPECT_EQ(bench.grid(1), (Rows{"A=ON", "CP=OFF"})) << "the cell stays as it was";
    EXPECT_TRUE(bench.config.ProtectMixed());
}

TEST(ShowConfigWords, forgets_a_mixed_protection_at_the_next_number) {
    Loaded bench{kFlashRows};
    bench.session.ConfigFromFile = true;
    bench.session.ConfigWord[1] = 0x1FFF;
    bench.config.ShowConfigWords();
    ASSERT_TRUE(bench.config.ProtectMixed());
    bench.session.ConfigFromFile = false;
    bench.session.ConfigWord[1] = 0x3FFF;
    bench.config.ShowConfigWords();
    EXPECT_FALSE(bench.config.ProtectMixed());
}

TEST(ShowConfigWords, tells_a_protection_that_is_no_option) {
    Loaded bench{kFlashRows};
    bench.session.ConfigFromFile = true;
    bench.session.ConfigWord[1] = 0x1FFF;
    bench.config.ShowConfigWords();
    EXPECT_TRUE(bench.config.ProtectMixed());
    bench.session.ConfigWord[1] = 0x0FCF;
    bench.config.ShowConfigWords();
    EXPECT_FALSE(bench.config.ProtectMixed()) << "ON is an option";
    bench.session.ConfigWord[1] = 0x3FFF;
    bench.config.ShowConfigWords();
    EXPECT_FALSE(bench.config.ProtectMixed());
}

TEST(ShowConfigWords, does_not_call_an_unprotected_part_mixed_that_has_no_option_for_it) {
    Loaded bench{"CONFIG1 3 0 0 0x3FFF\nCFG1 CP ON 0x30 0\n"};
    bench.session.ConfigFromFile = true;
    bench.session.ConfigWord[1] = 0x30;
    bench.config.ShowConfigWords();
    EXPECT_FALSE(bench.config.ProtectMixed());
    bench.session.ConfigWord[1] = 0x10;
    bench.config.ShowConfigWords();
    EXPECT_TRUE(bench.config.ProtectMixed());
}

TEST(ShowConfigWords, brings_back_the_number_from_the_options_it_showed) {
    Loaded bench{kFlashRows};
    for (const std::uint32_t word : {0x3FFFU, 0x3FFCU, 0x0FCDU, 0x0FCFU}) {
        bench.session.ConfigWord[1] = word;
        bench.config.ShowConfigWords();
        bench.config.ConfigGridChanged(1);
        EXPECT_EQ(bench.session.ConfigWord[1], word);
    }
}

}  // namespace
}  // namespace quillon::test
