// SPDX-License-Identifier: MIT
#include "app/messages.h"

#include <gtest/gtest.h>

#include <vector>

namespace quillon {
namespace {

class MessagesBench : public testing::Test {
  protected:
    const std::string& caption() const { return form.LabelCmt.Caption.get(); }
    Colour colour() const { return form.LabelCmt.ForeColor.get(); }
    MainForm form;
    Messages messages{form};
};

class ShowMessage : public MessagesBench {};
class AddMessage : public MessagesBench {};
class ShowProgress : public MessagesBench {
  protected:
    void show(int min, int max, int value) {
        messages.ShowProgress(Messages::Progress::On, min, max, value);
    }
    bool visible() const { return form.P_Bar.Visible.get(); }
    const std::string& percent() const { return form.Lbl_Persent.Caption.get(); }
};

TEST_F(ShowMessage, puts_a_blank_between_main_and_extra_text) {
    messages.ShowMessage("COM3を選択しました。", "extra");
    EXPECT_EQ(caption(), "COM3を選択しました。 extra");
    EXPECT_EQ(colour(), Colour::Black);
}

TEST_F(ShowMessage, has_a_form_that_takes_no_name_for_a_colour) {
    for (const auto* name : {"red_lamp.hexファイル", "RED", " red", "<<注意>>"}) {
        messages.ShowMessage("redx");
        messages.ShowPlain(name);
        EXPECT_EQ(caption(), std::string{name} + " ");
        EXPECT_EQ(colour(), Colour::Black);
    }
}

TEST_F(ShowMessage, with_an_empty_text_clears_the_caption_to_a_single_blank_in_black) {
    messages.ShowMessage("redx");
    messages.ShowMessage("");
    EXPECT_EQ(caption(), " ");
    EXPECT_EQ(colour(), Colour::Black);
}

TEST_F(ShowMessage, cuts_red_off_in_any_case) {
    for (const auto* prefix : {"red", "Red", "RED", "rEd"}) {
        messages.ShowMessage("");
        messages.ShowMessage(std::string{prefix} + "失敗");
        EXPECT_EQ(caption(), "失敗 ") << prefix;
        EXPECT_EQ(colour(), Colour::Red) << prefix;
    }
}

TEST_F(ShowMessage, cuts_red_behind_a_blank_off_too) {
    messages.ShowMessage(" Red失敗");
    EXPECT_EQ(caption(), "失敗 ");
    EXPECT_EQ(colour(), Colour::Red);
}

TEST_F(ShowMessage, shows_a_text_that_happens_to_begin_so_without_its_first_letters) {
    messages.ShowMessage("Reduce");
    EXPECT_EQ(caption(), "uce ");
    EXPECT_EQ(colour(), Colour::Red);
}

TEST_F(ShowMessage, keeps_the_attention_mark_and_shows_it_in_red) {
    messages.ShowMessage("<<注意>>書込み済みです。");
    EXPECT_EQ(caption(), "<<注意>>書込み済みです。 ");
    EXPECT_EQ(colour(), Colour::Red);
}

TEST_F(ShowMessage, asks_for_the_attention_mark_exactly_and_at_the_front) {
    for (const auto* text : {"<注意>>x", " <<注意>>x", "<<注>>x", "x<<注意>>"}) {
        messages.ShowMessage(text);
        EXPECT_EQ(colour(), Colour::Black) << text;
    }
}

TEST_F(ShowMessage, stays_black_for_two_blanks_or_two_letters) {
    for (const auto* text : {"  red", "re", "r ed", "ＲＥＤ"}) {
        messages.ShowMessage(text);
        EXPECT_EQ(caption(), std::string{text} + " ") << text;
        EXPECT_EQ(colour(), Colour::Black) << text;
    }
}

TEST_F(ShowMessage, tests_the_main_text_only) {
    messages.ShowMessage("x", "red");
    EXPECT_EQ(caption(), "x red");
    EXPECT_EQ(colour(), Colour::Black);
}

TEST_F(ShowMessage, goes_back_to_black_after_red) {
    messages.ShowMessage("redx");
    messages.ShowMessage("y");
    EXPECT_EQ(colour(), Colour::Black);
}

TEST_F(ShowMessage, tells_those_who_follow_along) {
    std::vector<ShownMessage> seen;
    const auto connection =
        messages.shown.connect([&](const ShownMessage& shown) { seen.push_back(shown); });
    messages.ShowMessage("redx", "y");
    messages.AddMessage("z");
    ASSERT_EQ(seen.size(), 2U);
    EXPECT_EQ(seen[0].text, "x");
    EXPECT_EQ(seen[0].extra, "y");
    EXPECT_EQ(seen[0].colour, Colour::Red);
    EXPECT_FALSE(seen[0].appended);
    EXPECT_EQ(seen[1].text, "z");
    EXPECT_EQ(seen[1].colour, Colour::Black);
    EXPECT_TRUE(seen[1].appended);
}

TEST_F(AddMessage, appends_a_line) {
    messages.ShowMessage("a", "b");
    messages.AddMessage("c", "d");
    EXPECT_EQ(caption(), "a b\r\nc d");
}

TEST_F(AddMessage, begins_with_a_line_end_where_nothing_stood) {
    messages.AddMessage("c");
    EXPECT_EQ(caption(), "\r\nc ");
}

TEST_F(AddMessage, colours_the_whole_area_by_its_own_text) {
    messages.ShowMessage("a");
    messages.AddMessage("redb");
    EXPECT_EQ(caption(), "a \r\nb ");
    EXPECT_EQ(colour(), Colour::Red);
    messages.AddMessage("c");
    EXPECT_EQ(colour(), Colour::Black);
}

TEST_F(ShowProgress, with_a_maximum_of_99_shows_nothing) {
    for (int value = 0; value < 99; ++value) show(0, 99, value);
    EXPECT_FALSE(visible());
    EXPECT_EQ(percent(), "");
}

TEST_F(ShowProgress, with_a_maximum_of_100_updates_at_each_value) {
    for (int value = 0; value < 100; ++value) {
        show(0, 100, value);
        EXPECT_EQ(form.P_Bar.Value.get(), value);
        EXPECT_EQ(percent(), std::to_string(value) + "%");
    }
    EXPECT_TRUE(visible());
    EXPECT_TRUE(form.Lbl_Persent.Visible.get());
}

TEST_F(ShowProgress, hides_the_bar_where_the_value_has_reached_the_maximum) {
    show(0, 100, 50);
    show(0, 100, 100);
    EXPECT_FALSE(visible());
    EXPECT_FALSE(form.Lbl_Persent.Visible.get());
}

TEST_F(ShowProgress, hides_the_bar_when_switched_off) {
    show(0, 100, 50);
    messages.ShowProgress(Messages::Progress::Off);
    EXPECT_FALSE(visible());
    EXPECT_FALSE(form.Lbl_Persent.Visible.get());
}

TEST_F(ShowProgress, redraws_about_a_hundred_times_in_a_run) {
    int redrawn = 0;
    const auto connection = form.P_Bar.Value.observe([&](const int&) { ++redrawn; });
    for (int value = 1; value < 8192; ++value) show(0, 8192, value);
    EXPECT_EQ(redrawn, 101);  // each 81 words
    EXPECT_EQ(percent(), "99%");
    EXPECT_EQ(form.P_Bar.Max.get(), 8192);
    EXPECT_EQ(form.P_Bar.Min.get(), 0);
}

TEST_F(ShowProgress, keeps_what_stands_between_two_redraws) {
    show(0, 1000, 10);
    show(0, 1000, 15);
    EXPECT_EQ(form.P_Bar.Value.get(), 10);
    EXPECT_EQ(percent(), "1%");
}

TEST_F(ShowProgress, counts_the_percent_of_the_largest_memory_right) {
    show(0, 0x40000000, 0x40000000 / 100 * 60);
    EXPECT_EQ(percent(), "59%");  // the integer part
}

}  // namespace
}  // namespace quillon
