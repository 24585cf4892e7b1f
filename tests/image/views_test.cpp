// SPDX-License-Identifier: MIT
// The memory views and the ID and configuration texts.
#include "image/views.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <vector>

#include "image/fill.h"
#include "image/image_support.h"
#include "support/fakes.h"
#include "support/no_room.h"

namespace quillon {

using test::device;

namespace {

struct Bench {
    explicit Bench(std::unique_ptr<Session> session_) : session{std::move(session_)} {
        session->TempDir = (folder.path() / "").string();
    }
    std::vector<std::string> program_lines() { return lines(form.RichTxtPgmMem.Text.get()); }
    std::vector<std::string> eeprom_lines() { return lines(form.rText_EepromMem.Text.get()); }
    static std::vector<std::string> lines(const std::string& text) {
        std::vector<std::string> result;
        std::istringstream stream{text};
        for (std::string line; std::getline(stream, line);) result.push_back(line);
        return result;
    }

    test::TempFolder folder;
    std::unique_ptr<Session> session;
    MainForm form;
    test::FakeHost host;
    MemoryViews views{*session, form, host};
};

std::string dots(int count) {
    std::string text;
    while (count-- > 0) text += "･";
    return text;
}

}  // namespace

TEST(ShowProgramMemory, shows_eight_words_a_line_with_their_word_address) {
    Bench bench{device("FLASH8", "PIC16F877A", 24)};
    FillProgramOnes(*bench.session);
    bench.views.ShowProgramMemory();
    const std::string data = "3FFF 3FFF 3FFF 3FFF 3FFF 3FFF 3FFF 3FFF ";
    EXPECT_EQ(bench.program_lines(),
              (std::vector<std::string>{"000000: " + data + dots(16), "000008: " + data + dots(16),
                                        "000010: " + data + dots(16)}));
    EXPECT_EQ(bench.host.pumps, 1);
}

TEST(ShowProgramMemory, counts_a_PIC18_in_bytes_and_a_PIC18_of_either_kind_alike) {
    for (const auto* type : {"18F_00", "18C_00"}) {
        Bench bench{device(type, "PIC18F2550", 24)};
        bench.views.ShowProgramMemory();
        ASSERT_EQ(bench.program_lines().size(), 3U);
        EXPECT_EQ(bench.program_lines()[2].substr(0, 8), "000020: ") << type;
    }
}

TEST(ShowProgramMemory, shows_the_second_byte_of_a_word_as_a_character_and_the_first_as_a_dot) {
    Bench bench{device("FLASH8", "PIC16F877A", 8)};
    const test::Bytes bytes{0x41, 0x41, 0x41, 0x20, 0x41, 0x1F, 0x41, 0x7E,
                            0x41, 0x7F, 0x41, 0xA5, 0x41, 0x2C, 0x41, 0x00};
    std::ranges::copy(bytes, bench.session->PgmMem.begin());
    bench.views.ShowProgramMemory();
    EXPECT_EQ(bench.program_lines().at(0),
              "000000: 4141 4120 411F 417E 417F 41A5 412C 4100 "
              "･A･ ･･･~･････,･･");
}

TEST(ShowProgramMemory, shows_both_bytes_of_an_18F_word_but_not_of_an_18C_word) {
    for (const auto* type : {"18F_00", "18F_01", "18C_00"}) {
        Bench bench{device(type, "PIC18F2550", 8)};
        bench.session->PgmMem[0] = 'Q';
        bench.session->PgmMem[1] = 'u';
        bench.views.ShowProgramMemory();
        const bool flash = type[2] == 'F';
        EXPECT_EQ(bench.program_lines().at(0).substr(48), (flash ? "Qu" : "･u") + dots(14)) << type;
    }
}

TEST(ShowProgramMemory, leaves_out_a_last_group_of_less_than_eight_words) {
    for (const auto& [words, lines] : std::vector<std::pair<std::int32_t, std::size_t>>{
             {0, 0}, {7, 0}, {8, 1}, {9, 1}, {15, 1}, {16, 2}}) {
        Bench bench{device("FLASH8", "PIC16F877A", words)};
        bench.views.ShowProgramMemory();
        EXPECT_EQ(bench.program_lines().size(), lines) << words;
    }
}

TEST(ShowProgramMemory, shows_the_parity_bits_of_each_word_when_asked) {
    Bench bench{device("EPROM2", "PIC16C710", 8)};
    bench.form.Check_Parity_Disp.Checked.set(true);
    FillProgramZeros(*bench.session);
    bench.session->PgmMem[0] = 0x00;
    bench.session->PgmMem[2] = 0x7F;
    bench.session->PgmMem[4] = 0xC0;
    bench.views.ShowProgramMemory();
    EXPECT_EQ(bench.program_lines().at(0),
              "000000: ---0 ---1 ---3 ---2 ---2 ---2 ---2 ---2 " + dots(16));
}

TEST(ShowProgramMemory, shows_every_word_of_a_blank_image_as_its_type_erases_it) {
    struct Row {
        const char* type;
        const char* word;
    };
    for (const auto& [type, word] : {
             Row{"12C5", "0FFF"},   Row{"10F2", "0FFF"},   Row{"5F18", "0FFF"},
             Row{"5F28", "0FFF"},   Row{"5X18", "0FFF"},   Row{"5X28", "0FFF"},
             Row{"12F6", "3FFF"},   Row{"12C6", "3FFF"},   Row{"EPROM", "3FFF"},
             Row{"EPROM2", "7FFF"}, Row{"FLASH0", "3FFF"}, Row{"FLASH1", "3FFF"},
             Row{"FLASH2", "3FFF"}, Row{"FLASH4", "3FFF"}, Row{"FLASH4.9", "3FFF"},
             Row{"FLASH8", "3FFF"}, Row{"LDR412", "3FFF"}, Row{"LDR412A", "3FFF"},
             Row{"18F_00", "FFFF"}, Row{"18F_01", "FFFF"}, Row{"18C_00", "FFFF"},
             Row{"18C_01", "FFFF"},
         }) {
        Bench bench{device(type, "PIC", 16)};
        FillProgramOnes(*bench.session);
        bench.views.ShowProgramMemory();
        std::string words;
        for (int i = 0; i < 8; ++i) words += std::string{word} + " ";
        ASSERT_EQ(bench.program_lines().size(), 2U) << type;
        for (const auto& line : bench.program_lines())
            EXPECT_EQ(line.substr(8), words + dots(16)) << type;
        EXPECT_EQ(bench.folder.read("pgmmemory_temp.txt"), bench.form.RichTxtPgmMem.Text.get());
    }
}

TEST(ShowProgramMemory, of_a_zeroed_EPROM2_shows_the_odd_parity_bit_alone) {
    Bench bench{device("EPROM2", "PIC16C710", 8)};
    FillProgramZeros(*bench.session);
    bench.views.ShowProgramMemory();
    EXPECT_EQ(bench.program_lines().at(0),
              "000000: 8000 8000 8000 8000 8000 8000 8000 8000 " + dots(16));
    bench.form.Check_Parity_Disp.Checked.set(true);
    bench.views.ShowProgramMemory();
    EXPECT_EQ(bench.program_lines().at(0),
              "000000: ---2 ---2 ---2 ---2 ---2 ---2 ---2 ---2 " + dots(16));
    EXPECT_EQ(bench.folder.read("pgmmemory_temp.txt"), bench.form.RichTxtPgmMem.Text.get());
}

TEST(ShowProgramMemory, of_parity_keeps_the_character_column_of_the_words) {
    Bench bench{device("EPROM2", "PIC16C710", 8)};
    bench.form.Check_Parity_Disp.Checked.set(true);
    bench.session->PgmMem[1] = 'A';
    bench.views.ShowProgramMemory();
    EXPECT_EQ(bench.program_lines().at(0),
              "000000: ---0 ---0 ---0 ---0 ---0 ---0 ---0 ---0 ･A" + dots(14));
}

TEST(ShowProgramMemory, writes_its_display_file_as_it_shows_it) {
    Bench bench{device("FLASH8", "PIC16F877A", 8192)};
    FillProgramOnes(*bench.session);
    bench.views.ShowProgramMemory();
    EXPECT_EQ(bench.program_lines().size(), 1024U);
    EXPECT_EQ(bench.folder.read("pgmmemory_temp.txt"), bench.form.RichTxtPgmMem.Text.get());
    bench.session->PgmWords = 8;
    bench.views.ShowProgramMemory();
    EXPECT_EQ(bench.program_lines().size(), 1U);
    EXPECT_EQ(bench.folder.read("pgmmemory_temp.txt"), bench.form.RichTxtPgmMem.Text.get());
}

TEST(ShowProgramMemory, loads_the_box_with_its_drawing_off) {
    Bench bench{device("FLASH8", "PIC16F877A", 8)};
    bool drawn = true;
    const auto watch = bench.form.RichTxtPgmMem.Text.observe(
        [&](const std::string&) { drawn = bench.form.RichTxtPgmMem.Redraw.get(); });
    bench.views.ShowProgramMemory();
    EXPECT_FALSE(drawn);
    EXPECT_TRUE(bench.form.RichTxtPgmMem.Redraw.get());
}

TEST(MemoryViews, show_the_image_where_the_display_files_cannot_be_written) {
    Bench bench{device("FLASH8", "PIC16F877A", 8, 16)};
    // No file can be written: a folder has its name, the work folder is missing, or none is named.
    std::filesystem::create_directory(bench.folder / "pgmmemory_temp.txt");
    std::filesystem::create_directory(bench.folder / "eepmemory_temp.txt");
    const std::string in_place = bench.session->TempDir;
    for (const auto& folder : {in_place, (bench.folder / "nowhere" / "").string(), std::string{}}) {
        bench.session->TempDir = folder;
        bench.form.RichTxtPgmMem.Text.set("");
        bench.form.rText_EepromMem.Text.set("");
        bench.views.ShowProgramMemory();
        bench.views.ShowEepromMemory();
        EXPECT_EQ(bench.program_lines().size(), 1U) << folder;
        EXPECT_EQ(bench.eeprom_lines().size(), 1U) << folder;
    }
}

TEST(MemoryViews, never_write_through_a_link_in_a_display_files_place) {
    Bench bench{device("FLASH8", "PIC16F877A", 8)};
    bench.folder.write("other", "precious");
    std::filesystem::create_symlink(bench.folder / "other", bench.folder / "pgmmemory_temp.txt");
    bench.views.ShowProgramMemory();
    EXPECT_EQ(bench.folder.read("other"), "precious");
    EXPECT_EQ(bench.folder.read("pgmmemory_temp.txt"), bench.form.RichTxtPgmMem.Text.get());
}

TEST(MemoryViews, keep_their_files_where_they_are_asked_to) {
    Bench bench{device("FLASH8", "PIC16F877A", 8)};
    const test::TempFolder own;
    bench.views.keep_files_in((own / "").string());
    bench.views.ShowProgramMemory();
    EXPECT_EQ(own.read("pgmmemory_temp.txt"), bench.form.RichTxtPgmMem.Text.get());
    EXPECT_FALSE(std::filesystem::exists(bench.folder / "pgmmemory_temp.txt"));
}

TEST(MemoryViews, show_the_image_on_a_full_disk) {
    Bench bench{device("FLASH8", "PIC16F877A", 8192)};
    const test::NoRoom disk{100};
    bench.views.ShowProgramMemory();
    EXPECT_EQ(bench.program_lines().size(), 1024U);
}

TEST(MemoryViews, end_at_the_arrays_whatever_sizes_the_catalogue_names) {
    Bench bench{device("18F_00", "PIC18F", 0x7FFFFFFF, 0x7FFFFFFF)};
    bench.session->TempDir.clear();
    bench.views.ShowProgramMemory();
    bench.views.ShowEepromBytes();
    EXPECT_EQ(bench.program_lines().back().substr(0, 8), "1FFFF0: ");
    EXPECT_EQ(bench.eeprom_lines().size(), 128U);
    bench.views.ShowEepromMemory();
    EXPECT_EQ(bench.eeprom_lines().size(), 64U);
}

TEST(ShowEepromMemory, shows_the_odd_bytes_sixteen_a_line) {
    Bench bench{device("FLASH8", "PIC16F877A", 8, 18)};
    FillEepromOnes(*bench.session);
    bench.session->EepMem[1] = 'A';
    bench.session->EepMem[31] = 0x7F;
    bench.session->EepMem[33] = '~';
    bench.views.ShowEepromMemory();
    EXPECT_EQ(
        bench.eeprom_lines(),
        (std::vector<std::string>{
            "0000: 41 FF FF FF FF FF FF FF FF FF FF FF FF FF FF 7FA" + dots(15), "0010: 7E FF~･"}));
    EXPECT_EQ(bench.folder.read("eepmemory_temp.txt"), bench.form.rText_EepromMem.Text.get());
}

TEST(ShowEepromBytes, shows_each_byte_sixteen_a_line) {
    Bench bench{device("18F_00", "PIC18F2550", 8, 256)};
    for (std::size_t i = 0; i < 256; ++i) bench.session->EepMem[i] = static_cast<std::uint8_t>(i);
    bench.views.ShowEepromBytes();
    ASSERT_EQ(bench.eeprom_lines().size(), 16U);
    EXPECT_EQ(bench.eeprom_lines()[4],
              "0040: 40 41 42 43 44 45 46 47 48 49 4A 4B 4C 4D 4E 4F@ABCDEFGHIJKLMNO");
    EXPECT_EQ(bench.eeprom_lines()[15].substr(0, 8), "00F0: F0");
}

TEST(ShowEeprom, comes_back_as_visible_as_it_was) {
    Bench bench{device("FLASH8", "PIC16F877A", 8, 16)};
    int shown = 0;
    const auto watch =
        bench.form.rText_EepromMem.Visible.observe([&](bool visible) { shown += visible; });
    bench.views.ShowEepromMemory();
    EXPECT_TRUE(bench.form.rText_EepromMem.Visible.get());
    EXPECT_EQ(shown, 1);  // hidden meanwhile
    bench.form.rText_EepromMem.Visible.set(false);
    bench.views.ShowEepromBytes();
    EXPECT_FALSE(bench.form.rText_EepromMem.Visible.get());
}

TEST(ShowEeprom, empties_the_view_of_a_device_without_cells) {
    Bench bench{device("FLASH8", "PIC16F57", 8, 0)};
    bench.form.rText_EepromMem.Text.set("old");
    bench.views.ShowEepromMemory();
    EXPECT_EQ(bench.form.rText_EepromMem.Text.get(), "");
}

TEST(show_eeprom, takes_the_form_that_the_type_asks_for) {
    for (const auto* type : {"FLASH8", "18F_00"}) {
        Bench bench{device(type, "PIC", 8, 1)};
        bench.session->EepMem[0] = 0x3F;
        bench.session->EepMem[1] = 0x12;
        bench.views.show_eeprom();
        EXPECT_EQ(bench.eeprom_lines().at(0).substr(0, 8),
                  std::string{"0000: "} + (type[0] == 'F' ? "12" : "3F"));
    }
}

TEST(ShowConfigSummary, shows_ID_digits_and_the_first_two_words) {
    Bench bench{device("FLASH8", "PIC16F877A", 8)};
    const test::Bytes id{0x3F, 0x81, 0x3F, 0x82, 0x3F, 0x8A, 0x3F, 0x8F};
    std::ranges::copy(id, bench.session->CfgIdMem.begin());
    bench.session->CfgIdMem[14] = 0xFF;
    bench.session->CfgIdMem[15] = 0x0A;
    bench.session->CfgIdMem[16] = 0xC0;
    bench.session->CfgIdMem[17] = 0xFC;
    bench.session->PgmMem[1] = 0x07;
    bench.form.Text_ID1.Text.set("left");
    bench.views.ShowConfigSummary();
    EXPECT_EQ(bench.form.Text_ID.Text.get(), "12AF");
    EXPECT_EQ(bench.form.Text_Config1.Text.get(), "3F0A");
    EXPECT_EQ(bench.form.Text_Config2.Text.get(), "00FC");
    EXPECT_EQ(bench.form.LblCheckSUM.Caption.get(), "0007");
    EXPECT_EQ(bench.form.Text_ID1.Text.get(), "left");
}

TEST(ShowConfigSummary, shows_whole_ID_words_where_they_are_entered_so) {
    Bench bench{device("FLASH8", "PIC16F887", 8)};
    const test::Bytes id{0xFF, 0x81, 0x00, 0x02, 0x2A, 0xBC, 0x3F, 0xFF};
    std::ranges::copy(id, bench.session->CfgIdMem.begin());
    bench.views.ShowConfigSummary();
    EXPECT_EQ(bench.form.Text_ID1.Text.get(), "3F81");
    EXPECT_EQ(bench.form.Text_ID2.Text.get(), "0002");
    EXPECT_EQ(bench.form.Text_ID3.Text.get(), "2ABC");
    EXPECT_EQ(bench.form.Text_ID4.Text.get(), "3FFF");
    EXPECT_EQ(bench.form.Text_ID.Text.get(), "12CF");
}

TEST(ShowConfigSummary, refreshes_the_check_sum_alone_for_18F) {
    Bench bench{device("18F_00", "PIC18F2550", 8)};
    bench.form.Text_ID.Text.set("12345678");
    bench.form.Text_Config1.Text.set("left");
    bench.session->PgmMem[1] = 0x07;
    bench.views.ShowConfigSummary();
    EXPECT_EQ(bench.form.LblCheckSUM.Caption.get(), "0007");
    EXPECT_EQ(bench.form.Text_ID.Text.get(), "12345678");
    EXPECT_EQ(bench.form.Text_Config1.Text.get(), "left");
}

}  // namespace quillon
