// SPDX-License-Identifier: MIT
// What the user does in a grid of fields: help, the option list, the free entry.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "catalogue/bench.h"

namespace quillon::test {
namespace {

using Texts = std::vector<std::string>;

struct Grids : Bench {
    Grids()
        : Bench{"CMT FOSC 発振器 発振モードを選択します\n" +
                block("PIC1", std::string{kFlashRows} + "CONFIG2 0x3FFF 0 0 0x3FFF\n"
                                                        "CFG2 FOSC EXTRA 1 0\n")} {
        select("PIC1");
        form.LabelCmt.Caption.set("");
    }
};

TEST(ShowFieldHelp, shows_title_and_text_of_the_field) {
    Grids bench;
    bench.config.ShowFieldHelp(1, 1);
    EXPECT_EQ(bench.form.LabelCmt.Caption.get(), "発振器 発振モードを選択します");
}

TEST(ShowFieldHelp, leaves_the_message_where_a_field_has_no_help) {
    Grids bench;
    bench.form.LabelCmt.Caption.set("before");
    bench.config.ShowFieldHelp(1, 2);
    bench.config.ShowFieldHelp(1, 0);
    bench.config.ShowFieldHelp(1, 99);
    bench.config.ShowFieldHelp(1, -1);
    EXPECT_EQ(bench.form.LabelCmt.Caption.get(), "before");
}

TEST(FieldClicked, opens_the_options_of_the_field_in_catalogue_order) {
    Grids bench;
    bench.config.FieldClicked(1, 1, 1);
    EXPECT_EQ(bench.form.CmbInit.Items.get(), (Texts{"RC", "HS", "XT", "LP"}));
    EXPECT_EQ(bench.form.CmbInit.Text.get(), "RC");
    EXPECT_EQ(bench.form.CmbInit.ListIndex.get(), 0);
    EXPECT_TRUE(bench.form.CmbInit.Visible.get());
    EXPECT_EQ(bench.form.HFGrid(1).CursorRow.get(), 1);
    EXPECT_EQ(bench.form.LabelCmt.Caption.get(), "発振器 発振モードを選択します");
}

TEST(FieldClicked, offers_the_options_of_its_own_word_only) {
    Grids bench;
    bench.config.FieldClicked(2, 1, 1);
    EXPECT_EQ(bench.form.CmbInit.Items.get(), Texts{"EXTRA"});
}

TEST(FieldClicked, does_nothing_outside_the_option_cells) {
    Grids bench;
    bench.config.FieldClicked(1, 0, 1);
    bench.config.FieldClicked(1, 1, 0);
    bench.config.FieldClicked(1, 7, 1);
    bench.config.FieldClicked(1, -1, 1);
    EXPECT_FALSE(bench.form.CmbInit.Visible.get());
    EXPECT_EQ(bench.form.LabelCmt.Caption.get(), "");
}

TEST(FieldClicked, does_nothing_while_no_device_is_selected) {
    Grids bench;
    bench.session.DeviceName.clear();
    bench.config.FieldClicked(1, 1, 1);
    EXPECT_FALSE(bench.form.CmbInit.Visible.get());
}

TEST(CmbInit_Click, writes_the_option_and_the_number) {
    Grids bench;
    bench.config.FieldClicked(1, 1, 1);
    bench.form.CmbInit.show(2);
    bench.config.CmbInit_Click();
    EXPECT_EQ(bench.grid(1), (Texts{"FOSC=XT", "CP=OFF"}));
    EXPECT_EQ(bench.session.ConfigWord[1], 0x3FFDU);
    EXPECT_EQ(bench.session.CfgIdMem[15], 0xFD);
    EXPECT_FALSE(bench.form.CmbInit.Visible.get());
    EXPECT_EQ(bench.form.HFGrid(1).CursorRow.get(), 2) << "the last row";
}

TEST(CmbInit_Click, works_on_the_current_tab) {
    Grids bench;
    bench.form.SSTab_Config.Tab.set(1);
    bench.config.FieldClicked(2, 1, 1);
    bench.form.CmbInit.show(0);
    bench.config.CmbInit_Click();
    EXPECT_EQ(bench.session.ConfigWord[2], 0x3FFEU);
    EXPECT_EQ(bench.session.ConfigWord[1], 0x3FFFU);
}

TEST(CmbInit_Click, changes_nothing_where_the_cursor_is_on_no_field) {
    Grids bench;
    bench.form.CmbInit.Text.set("XT");
    bench.form.CmbInit.Visible.set(true);
    bench.form.HFGrid(1).CursorRow.set(0);
    bench.config.CmbInit_Click();
    EXPECT_EQ(bench.grid(1), (Texts{"FOSC=RC", "CP=OFF"}));
    EXPECT_EQ(bench.form.HFGrid(1).cell(0, 1), "0x3FFF");
    EXPECT_FALSE(bench.form.CmbInit.Visible.get());
}

TEST(FieldTyped, opens_the_free_entry_with_a_hexadecimal_digit) {
    for (const char key : {'7', 'B', 'b'}) {
        Grids bench;
        bench.form.CmbInit.Visible.set(true);
        EXPECT_TRUE(bench.config.FieldTyped(1, 2, 1, key));
        EXPECT_EQ(bench.form.TxtInit.Text.get(), key == '7' ? "7" : "B");
        EXPECT_TRUE(bench.form.TxtInit.Visible.get());
        EXPECT_FALSE(bench.form.CmbInit.Visible.get());
        EXPECT_EQ(bench.form.HFGrid(1).CursorRow.get(), 2);
        EXPECT_EQ(bench.form.HFGrid(1).CursorColumn.get(), 1);
    }
}

TEST(FieldTyped, leaves_other_keys_and_cells) {
    Grids bench;
    EXPECT_FALSE(bench.config.FieldTyped(1, 1, 1, 'G'));
    EXPECT_FALSE(bench.config.FieldTyped(1, 1, 1, ' '));
    EXPECT_FALSE(bench.config.FieldTyped(1, 1, 0, '7'));
    EXPECT_FALSE(bench.config.FieldTyped(1, 0, 1, '7'));
    EXPECT_FALSE(bench.config.FieldTyped(1, 3, 1, '7'));
    bench.session.DeviceName.clear();
    EXPECT_FALSE(bench.config.FieldTyped(1, 1, 1, '7'));
    EXPECT_FALSE(bench.form.TxtInit.Visible.get());
}

TEST(TxtInit_Done, pads_a_digit_and_writes_behind_the_first_eight_characters) {
    Grids bench;
    bench.form.HFGrid(1).CursorRow.set(1);
    bench.form.HFGrid(1).set_cell(1, 1, "値=ABCDEFGH");
    bench.form.TxtInit.Text.set("7");
    bench.form.TxtInit.Visible.set(true);
    bench.config.TxtInit_Done();
    EXPECT_EQ(bench.form.HFGrid(1).cell(1, 1), "値=ABCDEF07");
    EXPECT_FALSE(bench.form.TxtInit.Visible.get());
}

TEST(TxtInit_Done, says_in_red_that_what_was_entered_is_no_option) {
    Grids bench;
    bench.form.HFGrid(1).CursorRow.set(1);
    bench.form.TxtInit.Text.set("7");
    bench.config.TxtInit_Done();
    EXPECT_NE(bench.form.LabelCmt.Caption.get().find("という設定はありません。"),
              std::string::npos);
    EXPECT_EQ(bench.form.LabelCmt.ForeColor.get(), Colour::Red);
}

TEST(TxtInit_Done, writes_two_digits_as_they_are_behind_a_short_text) {
    Grids bench;
    bench.form.HFGrid(1).CursorRow.set(1);
    bench.form.TxtInit.Text.set("1F");
    bench.config.TxtInit_Done();
    EXPECT_EQ(bench.form.HFGrid(1).cell(1, 1), "RC1F");
}

TEST(TxtInit_Done, leaves_the_cell_where_nothing_was_entered) {
    Grids bench;
    bench.form.HFGrid(1).CursorRow.set(1);
    bench.form.TxtInit.Text.set("");
    bench.config.TxtInit_Done();
    EXPECT_EQ(bench.form.HFGrid(1).cell(1, 1), "RC");
}

TEST(Text_Config_Click, switches_the_words_shown_between_hexadecimal_and_binary) {
    Grids bench;
    bench.config.put_word(1, 0x0FC2);
    const auto words = bench.session.ConfigWord;
    const auto bytes = bench.session.CfgIdMem;
    bench.config.Text_Config_Click();
    EXPECT_EQ(bench.form.Text_Config1.Text.get(), "00 1111 1100 0010");
    EXPECT_EQ(bench.form.Text_Config2.Text.get(), "11 1111 1111 1111");
    bench.config.put_word(2, 0x3FFE);
    EXPECT_EQ(bench.form.Text_Config2.Text.get(), "11 1111 1111 1110") << "and stays binary";
    bench.config.put_word(2, 0x3FFF);
    bench.config.Text_Config_Click();
    EXPECT_EQ(bench.form.Text_Config1.Text.get(), "0FC2");
    EXPECT_EQ(bench.form.Text_Config2.Text.get(), "3FFF");
    EXPECT_EQ(bench.session.ConfigWord, words);
    EXPECT_EQ(bench.session.CfgIdMem, bytes);
}

TEST(Text_Config_Click, tells_what_a_click_does) {
    Grids bench;
    bench.config.Text_Config_Click();
    EXPECT_EQ(bench.form.LabelCmt.Caption.get(),
              "コンフィギュレーションデータ表示。クリックでの１６ or "
              "２進数表示を切り替えます。変更は左側のデバイス設定で行います。 ");
}

}  // namespace
}  // namespace quillon::test
