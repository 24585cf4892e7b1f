// SPDX-License-Identifier: MIT
// The per-area dialog itself: its place, its caption, its buttons, and what works on the PC alone.
#include "extend_support.h"

namespace quillon::test {

TEST(extend_form, comes_up_at_its_saved_place_and_saves_it) {
    ExtendBench bench{kFlash0};
    bench.store.write(Settings::kSection, "ExtPgmLeft", "1234");
    bench.store.write(Settings::kSection, "ExtPgmTop", "567");
    bench.run->extend.Form_Load();
    EXPECT_TRUE(bench.run->extend_form.Visible.get());
    EXPECT_EQ(bench.run->extend_form.Left, 1234);
    EXPECT_EQ(bench.run->extend_form.Top, 567);

    bench.run->extend_form.Left = 2345;
    bench.run->extend_form.Top = 678;
    bench.run->extend.Form_Unload();
    EXPECT_FALSE(bench.run->extend_form.Visible.get());
    EXPECT_EQ(bench.store["ExtPgmLeft"], "2345");
    EXPECT_EQ(bench.store["ExtPgmTop"], "678");
}

TEST(extend_form, names_the_areas_of_the_program_side_by_device) {
    ExtendBench all{kFlash0};
    all.run->extend.Form_Load();
    EXPECT_EQ(all.run->extend_form.Label_PGM.Caption.get(), "コードメモリ,CFG,ID");
    all.run->extend.Form_Unload();

    for (const std::string_view device :
         {"PIC16F73", "PIC16F74", "PIC16F76", "PIC16F77", "PIC18F1320"}) {
        Bench bench{device, {{device}}};
        bench.run->extend.Form_Load();
        EXPECT_EQ(bench.run->extend_form.Label_PGM.Caption.get(), "コードメモリ") << device;
        bench.run->extend.Form_Unload();
    }
}

TEST(extend_form, is_unloaded_when_a_device_is_selected) {
    ExtendBench bench{kFlash0};
    bench.run->extend.Form_Load();
    bench.run->extend_form.Left = 4321;
    ASSERT_TRUE(bench.form().Combo_device.select("PIC16F628A"));
    EXPECT_FALSE(bench.run->extend_form.Visible.get());
    EXPECT_EQ(bench.store["ExtPgmLeft"], "4321");
}

TEST(extend_form, locks_its_buttons_while_an_operation_runs) {
    ExtendBench bench{kFlash0};
    bench.run->extend.Form_Load();
    auto& form = bench.run->extend_form;
    const auto enabled = [&] {
        int n = 0;
        for (const auto* button :
             {&form.Cmd_Chip_Erace, &form.Cmd_PGM_Erase, &form.Cmd_PGM_Program, &form.Cmd_PGM_Read,
              &form.Cmd_PGM_PcbufferClear, &form.Cmd_DATA_Erase, &form.Cmd_DATA_Program,
              &form.Cmd_DATA_Read, &form.Cmd_DATA_PcbufferClear})
            if (button->Enabled.get()) ++n;
        return n;
    };
    EXPECT_EQ(enabled(), 9);
    int during = -1;
    bench.when_shown("ＥＥＰＲＯＭデータメモリ消去中.........", [&] { during = enabled(); });
    EXPECT_EQ(bench.run->extend.Cmd_DATA_Erase_Click(), Outcome::Success);
    EXPECT_EQ(during, 0);
    EXPECT_EQ(enabled(), 9);
    bench.run->extend.Form_Unload();
}

TEST(extend_buffer, fills_the_program_image_with_blank_words_and_keeps_the_rest) {
    ExtendBench bench{kFlash0};
    const auto eeprom = bench.eeprom_image();
    const auto area = bench.session().CfgIdMem;
    bench.session().PgmWordsCat = 7;
    bench.run->extend.Cmd_PGM_PcbufferClear_Click();

    const auto image = bench.program_image();
    for (std::size_t b = 0; b < image.size(); b += 2) {
        ASSERT_EQ(image[b], 0x3F) << b;
        ASSERT_EQ(image[b + 1], 0xFF) << b;
    }
    EXPECT_EQ(bench.session().PgmWordsCat, bench.session().PgmWords);
    EXPECT_EQ(bench.eeprom_image(), eeprom);
    EXPECT_EQ(bench.session().CfgIdMem, area);
    EXPECT_EQ(bench.wire(), "");
}

TEST(extend_buffer, resets_id_and_configuration_of_12F6_too) {
    ExtendBench bench{k12F6};
    bench.clear_image();
    const auto selected = bench.session().ConfigWord[1];
    bench.fill_image();
    ASSERT_NE(bench.session().ConfigWord[1], selected);
    bench.run->extend.Cmd_PGM_PcbufferClear_Click();
    for (std::size_t w = 0; w < 4; ++w)
        EXPECT_EQ(
            word_high_first(bench.session().CfgIdMem[2 * w], bench.session().CfgIdMem[2 * w + 1]),
            0x3FFF);
    EXPECT_EQ(word_high_first(bench.session().CfgIdMem[14], bench.session().CfgIdMem[15]), 0x3FFF);
    // Shown with the bits that the word can't have left out, as after the selection.
    EXPECT_EQ(bench.session().ConfigWord[1], selected);
}

TEST(extend_buffer, gives_PIC12F683_a_word_of_all_ones) {
    Bench bench{"PIC12F683", {{"PIC12F683"}}};
    bench.run->extend.Cmd_PGM_PcbufferClear_Click();
    EXPECT_EQ(bench.session().ConfigWord[1], 16383U);
    EXPECT_EQ(bench.session().CfgIdMem[0], 0x3F);
    EXPECT_EQ(bench.session().CfgIdMem[1], 0xFF);
}

TEST(extend_buffer, fills_PIC18_with_FF) {
    Bench bench{"PIC18F1320", {{"PIC18F1320"}}};
    bench.run->extend.Cmd_PGM_PcbufferClear_Click();
    const auto image = bench.program_image();
    EXPECT_EQ(std::ranges::count(image, std::uint8_t{0xFF}),
              static_cast<std::ptrdiff_t>(image.size()));
    bench.run->extend.Cmd_DATA_PcbufferClear_Click();
    for (std::int32_t c = 0; c < bench.session().EepBytes; ++c)
        ASSERT_EQ(bench.session().EepMem[static_cast<std::size_t>(c)], 0xFF);
}

TEST(extend_buffer, fills_the_eeprom_image_with_blank_cells_and_keeps_the_rest) {
    ExtendBench bench{kFlash0};
    const auto program = bench.program_image();
    bench.session().EepBytesCat = 3;
    bench.run->extend.Cmd_DATA_PcbufferClear_Click();

    const auto image = bench.eeprom_image();
    for (std::size_t b = 0; b < image.size(); b += 2) {
        ASSERT_EQ(image[b], 0x3F) << b;
        ASSERT_EQ(image[b + 1], 0xFF) << b;
    }
    EXPECT_EQ(bench.session().EepBytesCat, bench.session().EepBytes);
    EXPECT_EQ(bench.program_image(), program);
}

TEST(extend_buffer, leaves_the_eeprom_image_of_a_device_without_eeprom) {
    ExtendBench bench{kFlash2};
    bench.session().EepMem[1] = 0x12;
    bench.session().EepBytesCat = 3;
    bench.run->extend.Cmd_DATA_PcbufferClear_Click();
    EXPECT_EQ(bench.session().EepMem[1], 0x12);
    EXPECT_EQ(bench.session().EepBytesCat, 3);
}

}  // namespace quillon::test
