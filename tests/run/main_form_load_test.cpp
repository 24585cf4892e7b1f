// SPDX-License-Identifier: MIT
#include "start_up_bench.h"

namespace quillon {
namespace {

class frmMain_load : public test::StartUpBench {};

TEST_F(frmMain_load, takes_its_place_from_the_settings_and_a_fixed_width) {
    set("MainLeft", "-300");
    set("MainTop", "20");
    set("MainHeight", "9000");
    int placed = 0;
    const auto connection = run.form.Placed.connect([&] { ++placed; });
    start_up.load_main_form();
    EXPECT_EQ(run.form.Left, -300);
    EXPECT_EQ(run.form.Top, 20);
    EXPECT_EQ(run.form.Height, 9000);
    EXPECT_EQ(run.form.Width, 10710);
    EXPECT_EQ(placed, 1);
}

TEST_F(frmMain_load, stands_at_100_100_and_7860_high_the_first_time) {
    start_up.load_main_form();
    EXPECT_EQ(run.form.Left, 100);
    EXPECT_EQ(run.form.Top, 100);
    EXPECT_EQ(run.form.Height, 7860);
}

TEST_F(frmMain_load, makes_Label_back_120_narrower_than_the_form_inside) {
    run.form.ScaleWidth = 10590;
    start_up.load_main_form();
    EXPECT_EQ(run.form.LabelBackWidth.get(), 10470);
}

TEST_F(frmMain_load, shows_the_programs_version) {
    start_up.load_main_form();
    EXPECT_EQ(run.form.Lbl_PcVersion.Caption.get(), "Quillon.exe : Ver 4.0.1");
}

TEST_F(frmMain_load, hides_the_developers_view_of_the_configuration) {
    start_up.load_main_form();
    for (const auto& box : run.form.Text1) EXPECT_FALSE(box.Visible.get()) << box.name;
    for (const auto& label : run.form.Label12) EXPECT_FALSE(label.Visible.get()) << label.name;
    EXPECT_EQ(run.form.Text1.size(), 22U);
    EXPECT_EQ(run.form.Label12.size(), 15U);
    EXPECT_FALSE(run.form.Command4.Visible.get());
    EXPECT_FALSE(run.form.Text2.Visible.get());
    EXPECT_FALSE(run.form.Text3.Visible.get());
}

}  // namespace
}  // namespace quillon
