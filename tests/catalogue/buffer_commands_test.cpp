// SPDX-License-Identifier: MIT
// The two commands that fill the image, type by type.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>

#include "catalogue/bench.h"

namespace quillon::test {
namespace {

struct Selected : Bench {
    explicit Selected(std::string_view rows, std::string_view name = "PIC1")
        : Bench{block(name, rows)} {
        select(name);
    }
    void clear() { buffer.mnuPcBufferMemoryClear(); }
    void zero() { buffer.mnuPcBufferMemory_0(); }
};

constexpr std::string_view kPic18Rows =
    "PGM_TYPE 18F_00\n"
    "PGM_SIZE_WORD 0x1F\n"
    "EEPROM_BYTE 0x1F\n"
    "CONFIG1 0x2700 0 0 0xFFFF\n"
    "CFG1 OSC LP 0x0700 0x0000\n"
    "CFG1 OSC RC 0x0700 0x0700\n"
    "CONFIG2 0x0F0F 0 0 0xFFFF\n"
    "CFG2 WDT ON 0x0001 0x0001\n"
    "CFG2 WDT OFF 0x0001 0x0000\n";

TEST(mnuPcBufferMemoryClear, needs_a_device) {
    Bench bench;
    bench.form.CmbInit.Visible.set(true);
    bench.form.TxtInit.Visible.set(true);
    bench.form.Text_ID.Text.set("1234");
    bench.buffer.mnuPcBufferMemoryClear();
    EXPECT_FALSE(bench.form.CmbInit.Visible.get());
    EXPECT_FALSE(bench.form.TxtInit.Visible.get());
    EXPECT_EQ(bench.form.Text_ID.Text.get(), "1234");
    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    EXPECT_EQ(bench.dialogs.boxes[0].text, "MCUを選んでください。");
}

TEST(mnuPcBufferMemory_0, needs_a_device) {
    Bench bench;
    bench.buffer.mnuPcBufferMemory_0();
    EXPECT_EQ(bench.form.LabelCmt.Caption.get(), "MCUを選んでください。 ");
    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
}

TEST(mnuPcBufferMemoryClear, fills_a_14_bit_image_with_ones) {
    Selected bench{kFlashRows};
    bench.session.PgmMem[0] = 0x12;
    bench.session.EepMem[1] = 0x34;
    bench.session.CfgIdMem[1] = 0x05;
    bench.form.SSTab_Config.Tab.set(3);
    bench.clear();
    EXPECT_EQ(bench.session.PgmMem[0], 0x3F);
    EXPECT_EQ(bench.session.EepMem[0], 0x3F);
    EXPECT_EQ(bench.session.EepMem[1], 0xFF);
    EXPECT_EQ(bench.session.CfgIdMem[1], 0xFF);
    EXPECT_EQ(bench.session.IdText, "FFFF");
    EXPECT_EQ(bench.form.Text_ID.Text.get(), "FFFF");
    EXPECT_EQ(bench.session.ConfigWord[1], 0x3FFFU);
    EXPECT_EQ(bench.form.HFGrid(1).cell(1, 1), "RC");
    EXPECT_EQ(bench.form.LblCheckSUM.Caption.get(), "E000");  // 0x3FFF x 0x2000
    EXPECT_EQ(bench.form.SSTab_Config.Tab.get(), 0);
    EXPECT_TRUE(bench.form.RichTxtPgmMem.Text.get().starts_with("000000: 3FFF 3FFF "));
    EXPECT_TRUE(bench.form.rText_EepromMem.Text.get().starts_with("0000: FF FF "));
}

TEST(mnuPcBufferMemoryClear, gives_words_their_fixed_bits) {
    Selected bench{"PGM_TYPE FLASH4\nPGM_SIZE_WORD 7\nCONFIG1 0x3FFF 0x0F00 0x0004 0x3FFF\n"};
    bench.clear();
    EXPECT_EQ(bench.session.ConfigWord[1], 0x30FFU);
}

TEST(mnuPcBufferMemory_0, fills_a_14_bit_image_with_zeros_and_leaves_the_words) {
    Selected bench{kFlashRows};
    bench.session.ConfigWord[1] = 0x0FCD;
    bench.zero();
    EXPECT_EQ(bench.session.PgmMem[0], 0);
    EXPECT_EQ(bench.session.EepMem[0], 0);
    EXPECT_EQ(bench.session.IdText, "0000");
    EXPECT_EQ(bench.form.Text_ID.Text.get(), "0000");
    EXPECT_EQ(bench.session.ConfigWord[1], 0x0FCDU);
    EXPECT_EQ(bench.form.HFGrid(1).cell(1, 1), "XT");
    EXPECT_EQ(bench.form.LblCheckSUM.Caption.get(), "0000");
}

TEST(mnuPcBufferMemory_0, hides_the_entries_and_selects_the_first_tab) {
    for (const std::string_view rows : {kFlashRows, kPic18Rows}) {
        Selected bench{rows};
        bench.form.CmbInit.Visible.set(true);
        bench.form.TxtInit.Visible.set(true);
        bench.form.SSTab_Config.Tab.set(1);
        bench.zero();
        EXPECT_FALSE(bench.form.CmbInit.Visible.get());
        EXPECT_FALSE(bench.form.TxtInit.Visible.get());
        EXPECT_EQ(bench.form.SSTab_Config.Tab.get(), 0);
    }
}

TEST(mnuPcBufferMemory_0, zeroes_every_byte_of_program_eeprom_and_16_words) {
    Selected bench{kFlashRows};
    bench.zero();
    const auto& session = bench.session;
    const auto zeros = [](const auto& bytes, std::size_t count) {
        return std::all_of(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(count),
                           [](std::uint8_t byte) { return byte == 0; });
    };
    EXPECT_TRUE(zeros(session.PgmMem, 0x4000));
    EXPECT_TRUE(zeros(session.EepMem, 0x200));
    EXPECT_TRUE(zeros(session.CfgIdMem, 32));
    EXPECT_EQ(session.CfgIdMem[32], 0x3F) << "the fill with ones takes one word more";
    EXPECT_EQ(session.CfgIdMem[33], 0xFF);
    EXPECT_TRUE(bench.form.RichTxtPgmMem.Text.get().starts_with("000000: 0000 0000 "));
    EXPECT_TRUE(bench.form.rText_EepromMem.Text.get().starts_with("0000: 00 00 "));
}

TEST(mnuPcBufferMemory_0, zeroes_the_8_words_of_a_12_bit_part) {
    Selected bench{"PGM_TYPE 10F2\nPGM_SIZE_WORD 0xFF\nCONFIG1 0x0FFF 0 0 0x0FFF\n"};
    bench.session.CfgIdMem[16] = 0x12;
    bench.zero();
    for (std::size_t i = 0; i < 16; ++i) EXPECT_EQ(bench.session.CfgIdMem[i], 0) << i;
    EXPECT_EQ(bench.session.CfgIdMem[16], 0x12);
    EXPECT_EQ(bench.session.PgmMem[0x1FF], 0);
}

constexpr std::string_view kZerosLine =
    "コンフィギュレーションワードの表示は元のままですが、このまま書込むと０が書込まれます。";

TEST(mnuPcBufferMemory_0, says_in_red_that_zeros_would_be_written_for_the_words_it_leaves) {
    for (const std::string_view type : {"FLASH4", "EPROM2", "10F2"}) {
        Selected bench{"PGM_TYPE " + std::string{type} +
                       "\nPGM_SIZE_WORD 7\nEEPROM_BYTE 0\nCONFIG1 0x0FFF 0 0 0x0FFF\n"};
        bench.form.LabelCmt.Caption.set("before");
        bench.zero();
        EXPECT_EQ(bench.session.ConfigWord[1], 0x0FFFU) << type;
        EXPECT_EQ(bench.form.LabelCmt.Caption.get(), "before\r\n" + std::string{kZerosLine} + " ")
            << type;
        EXPECT_EQ(bench.form.LabelCmt.ForeColor.get(), Colour::Red) << type;
    }
}

TEST(mnuPcBufferMemory_0, says_nothing_where_the_words_shown_are_those_in_the_buffer) {
    for (const std::string_view type : {"18F_00", "18C_00", "LDR418"}) {
        Selected bench{"PGM_TYPE " + std::string{type} +
                       "\nPGM_SIZE_WORD 7\nEEPROM_BYTE 0\nCONFIG1 0x0FFF 0 0 0x0FFF\n"};
        bench.form.LabelCmt.Caption.set("before");
        bench.zero();
        EXPECT_EQ(bench.form.LabelCmt.Caption.get(), "before") << type;
    }
    Selected bench{"PGM_TYPE FLASH4\nPGM_SIZE_WORD 7\nCONFIG1 0x0FFF 0 0 0x0FFF\n"};
    bench.session.ConfigWord[1] = 0;
    bench.form.LabelCmt.Caption.set("before");
    bench.zero();
    EXPECT_EQ(bench.form.LabelCmt.Caption.get(), "before");
}

TEST(mnuPcBufferMemoryClear, leaves_the_eeprom_of_a_device_that_has_none) {
    Selected bench{"PGM_TYPE FLASH4\nPGM_SIZE_WORD 7\nEEPROM_BYTE 0\n"};
    bench.session.EepMem[0] = 0x12;
    bench.clear();
    EXPECT_EQ(bench.session.EepMem[0], 0x12);
    EXPECT_FALSE(bench.form.rText_EepromMem.Visible.get());
    EXPECT_EQ(bench.form.rText_EepromMem.Text.get(), "");
}

TEST(mnuPcBufferMemoryClear, gives_a_pic18_its_defaults) {
    Selected bench{kPic18Rows};
    bench.session.PgmWordsCat = 5;
    bench.session.ConfigWord[1] = 0;
    bench.session.IdBytes18.fill(0);
    bench.form.Label_DEV_id.Caption.set("12");
    bench.form.Label_DEV_rev.Caption.set("3");
    bench.clear();
    EXPECT_EQ(bench.session.PgmMem[63], 0xFF);
    EXPECT_EQ(bench.session.PgmWordsCat, 32);
    EXPECT_EQ(bench.session.ConfigWord[1], 0x2700U);
    EXPECT_EQ(bench.session.ConfigWord[2], 0x0F0FU);
    EXPECT_EQ(bench.form.HFGrid(1).cell(1, 1), "RC");
    EXPECT_EQ(bench.form.HFGrid(2).cell(1, 1), "ON");
    EXPECT_EQ(bench.session.IdText, "FFFFFFFF");
    EXPECT_EQ(bench.form.Text_ID.Text.get(), "FFFFFFFF");
    EXPECT_EQ(bench.session.IdBytes18[7], 0xFF);
    EXPECT_EQ(bench.form.Label_DEV_id.Caption.get(), "--");
    EXPECT_EQ(bench.form.Label_DEV_rev.Caption.get(), "--");
    // One byte a cell: 32 cells are two lines.
    EXPECT_TRUE(bench.form.rText_EepromMem.Text.get().find("0010:") != std::string::npos);
    EXPECT_TRUE(bench.form.rText_EepromMem.Text.get().find("0020:") == std::string::npos);
}

TEST(mnuPcBufferMemory_0, gives_a_pic18_zero_words_and_an_id_of_low_nibbles) {
    Selected bench{kPic18Rows};
    bench.form.Label_DEV_id.Caption.set("12");
    bench.zero();
    EXPECT_EQ(bench.session.PgmMem[63], 0);
    EXPECT_EQ(bench.session.ConfigWord[1], 0U);
    EXPECT_EQ(bench.form.HFGrid(1).cell(1, 1), "LP");
    EXPECT_EQ(bench.session.IdText, "00000000");
    EXPECT_EQ(bench.form.Text_ID.Text.get(), "00000000");
    EXPECT_EQ(bench.session.IdBytes18[0], 0x0F);
    EXPECT_EQ(bench.session.IdBytes18[7], 0x0F);
    EXPECT_EQ(bench.session.EepMem[31], 0);
    EXPECT_EQ(bench.form.Label_DEV_id.Caption.get(), "--");
}

TEST(mnuPcBufferMemory_0, takes_a_pic18_eprom_for_another_type_where_the_clear_does_not) {
    Selected bench{"PGM_TYPE 18C_00\nPGM_SIZE_WORD 7\nEEPROM_BYTE 0\nCONFIG1 0x2700 0 0 0xFFFF\n"};
    bench.clear();
    EXPECT_EQ(bench.session.IdText, "FFFFFFFF");
    bench.session.IdBytes18.fill(0x55);
    bench.zero();
    EXPECT_EQ(bench.session.IdText, "0000");
    EXPECT_EQ(bench.session.IdBytes18[0], 0x55);
    EXPECT_EQ(bench.session.ConfigWord[1], 0x2700U);
}

TEST(buffer_commands, fill_the_four_id_words_of_the_devices_that_have_them) {
    Selected bench{kFlashRows, "PIC16F887"};
    bench.form.Text_ID4.Text.set("1234");
    bench.clear();
    EXPECT_EQ(bench.form.Text_ID1.Text.get(), "3FFF");
    EXPECT_EQ(bench.form.Text_ID4.Text.get(), "3FFF");
    bench.zero();
    EXPECT_EQ(bench.form.Text_ID1.Text.get(), "0000");
    EXPECT_EQ(bench.form.Text_ID4.Text.get(), "0000");
}

TEST(buffer_commands, leave_the_four_id_words_of_all_others) {
    Selected bench{kFlashRows};
    bench.form.Text_ID1.Text.set("1234");
    bench.clear();
    bench.zero();
    EXPECT_EQ(bench.form.Text_ID1.Text.get(), "1234");
}

}  // namespace
}  // namespace quillon::test
