// SPDX-License-Identifier: MIT
// Choosing a device, step by step.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "catalogue/bench.h"

namespace quillon::test {
namespace {

using Texts = std::vector<std::string>;

std::string typed(std::string_view name, std::string_view type, std::string_view more = "") {
    return block(name, "PGM_TYPE " + std::string{type} +
                           "\nPOWER_MODE VDD\nPGM_SIZE_WORD 0x1F\nEEPROM_BYTE 0\n" +
                           std::string{more});
}

TEST(Combo_device_Click, does_nothing_while_a_load_changes_the_selection) {
    Bench bench{block("PIC1", kFlashRows)};
    bench.session.DeviceEventLock = true;
    bench.select("PIC1");
    EXPECT_EQ(bench.session.DeviceName, "");
    EXPECT_EQ(bench.store["deviceNew"], "<none>");
}

TEST(Combo_device_Click, does_nothing_for_an_empty_text) {
    Bench bench{block("PIC1", kFlashRows)};
    bench.select("PIC1");
    bench.form.Combo_device.Text.set("");
    bench.session.PgmMem[0] = 0x12;
    bench.selection.Combo_device_Click();
    EXPECT_EQ(bench.session.DeviceName, "PIC1");
    EXPECT_EQ(bench.session.PgmMem[0], 0x12);
}

TEST(Combo_device_Click, clears_the_message_area_where_a_board_was_found) {
    Bench bench{typed("PIC1", "FLASH4")};
    bench.form.LabelCmt.Caption.set("old");
    Texts captions;
    const auto connection = bench.form.LabelCmt.Caption.observe(
        [&](const std::string& caption) { captions.push_back(caption); });
    bench.select("PIC1");
    EXPECT_EQ(captions, Texts{}) << "no board: the message stays";
    bench.session.WriterFound = true;
    bench.select("PIC1");
    ASSERT_FALSE(captions.empty());
    EXPECT_EQ(captions[0], "");
}

TEST(Combo_device_Click, shows_the_program_in_words_after_a_device_whose_parity_was_shown) {
    Bench bench{typed("PIC1", "EPROM2") + typed("PIC2", "FLASH4")};
    bench.select("PIC1");
    bench.form.Check_Parity_Disp.Checked.set(true);
    bench.select("PIC2");
    EXPECT_EQ(bench.form.RichTxtPgmMem.Text.get().substr(0, 17), "000000: 3FFF 3FFF");
    bench.select("PIC1");
    bench.form.Check_Parity_Disp.Checked.set(true);
    bench.select("PIC1");
    EXPECT_FALSE(bench.form.Check_Parity_Disp.Checked.get());
    EXPECT_EQ(bench.form.RichTxtPgmMem.Text.get().find("---"), std::string::npos);
}

// The boxes show words of CfgIdMem, which a PIC18 doesn't use.
TEST(Combo_device_Click, shows_the_two_configuration_texts_of_all_but_the_PIC18) {
    Bench bench{typed("PIC1", "18F_00") + typed("PIC2", "FLASH4") + typed("PIC3", "18F_01")};
    for (const auto* name : {"PIC1", "PIC2", "PIC3"}) {
        bench.select(name);
        const bool shown = std::string_view{name} == "PIC2";
        EXPECT_EQ(bench.form.Text_Config1.Visible.get(), shown) << name;
        EXPECT_EQ(bench.form.Text_Config2.Visible.get(), shown) << name;
    }
}

TEST(Combo_device_Typed, chooses_the_device_that_the_text_means) {
    Bench bench{typed("PIC16F87", "FLASH4") + typed("PIC16F87A", "FLASH4")};
    bench.select("PIC16F87A");
    bench.selection.Combo_device_Typed("16f87");
    EXPECT_EQ(bench.session.DeviceName, "PIC16F87");
    EXPECT_EQ(bench.form.Combo_device.Text.get(), "PIC16F87");
}

TEST(Combo_device_Typed, leaves_the_image_of_the_selected_device_alone) {
    Bench bench{typed("PIC16F87", "FLASH4")};
    bench.select("PIC16F87");
    bench.session.PgmMem[0] = 0x12;
    bench.selection.Combo_device_Typed("16F87");
    bench.selection.Combo_device_Typed("PIC16F87");
    EXPECT_EQ(bench.session.PgmMem[0], 0x12);
}

TEST(Combo_device_Typed, says_in_red_that_the_text_means_no_device) {
    Bench bench{typed("PIC16F87", "FLASH4") + typed("PIC16F88", "FLASH4")};
    bench.select("PIC16F87");
    bench.selection.Combo_device_Typed("PIC99");
    EXPECT_EQ(bench.form.LabelCmt.Caption.get(), "「PIC99」に該当するデバイスはありません。 ");
    EXPECT_EQ(bench.form.LabelCmt.ForeColor.get(), Colour::Red);
    bench.selection.Combo_device_Typed("16F8");
    EXPECT_EQ(bench.form.LabelCmt.Caption.get(),
              "「16F8」に該当するデバイスが2個あります。続きを入力してください。 ");
    EXPECT_EQ(bench.session.DeviceName, "PIC16F87");
}

TEST(Combo_device_Typed, is_silent_where_nothing_was_typed) {
    Bench bench{typed("PIC16F87", "FLASH4")};
    bench.form.LabelCmt.Caption.set("old");
    bench.selection.Combo_device_Typed(" ");
    EXPECT_EQ(bench.form.LabelCmt.Caption.get(), "old");
}

TEST(Combo_device_Click, hides_the_entries_over_the_grids) {
    Bench bench{typed("PIC1", "FLASH4")};
    bench.form.CmbInit.Visible.set(true);
    bench.form.TxtInit.Visible.set(true);
    bench.select("PIC1");
    EXPECT_FALSE(bench.form.CmbInit.Visible.get());
    EXPECT_FALSE(bench.form.TxtInit.Visible.get());
}

TEST(Combo_device_Click, takes_back_the_file_calibration_for_another_device_only) {
    Bench bench{typed("PIC1", "FLASH4") + typed("PIC2", "FLASH4")};
    bench.select("PIC1");
    bench.form.Chk_UseFileData.Checked.set(true);
    bench.form.Chk_UseFileData.Visible.set(true);
    bench.select("PIC1");
    EXPECT_TRUE(bench.form.Chk_UseFileData.Checked.get());
    EXPECT_TRUE(bench.form.Chk_UseFileData.Visible.get());
    bench.select("PIC2");
    EXPECT_FALSE(bench.form.Chk_UseFileData.Checked.get());
    EXPECT_FALSE(bench.form.Chk_UseFileData.Visible.get());
}

TEST(Combo_device_Click, loads_the_device_and_blanks_the_image) {
    Bench bench{block("PIC1", kFlashRows)};
    bench.select("PIC1");
    EXPECT_EQ(bench.session.DeviceName, "PIC1");
    EXPECT_EQ(bench.session.PgmType.text(), "FLASH4");
    EXPECT_EQ(bench.session.PgmMem[0], 0x3F);
    EXPECT_EQ(bench.session.PgmMem[0x3FFF], 0xFF);
    EXPECT_EQ(bench.form.LblCheckSUM.Caption.get(), "E000");
    EXPECT_EQ(bench.form.Label_pm_size.Caption.get(), "= 8192 word");
    EXPECT_EQ(bench.grid(1), (Texts{"FOSC=RC", "CP=OFF"}));
    EXPECT_EQ(bench.session.ConfigWord[1], 0x3FFFU);
    EXPECT_EQ(bench.form.Text_ID.Text.get(), "FFFF");
    EXPECT_TRUE(bench.dialogs.boxes.empty());
}

TEST(Combo_device_Click, computes_every_word_from_its_options_and_shows_it_in_the_heading) {
    std::string rows;
    for (int n = 1; n <= 7; ++n) {
        const auto digit = std::to_string(n);
        rows += "CONFIG" + digit + " 0x000" + digit + " 0 0 0xFFFF\nCFG" + digit +
                " F A 0xFFFF 0x000" + digit + "\nCFG" + digit + " F B 0xFFFF 0xFFFF\n";
    }
    Bench bench{typed("PIC18F1", "18F_01", rows)};
    bench.select("PIC18F1");
    for (std::size_t n = 1; n <= 7; ++n) {
        const int word = static_cast<int>(n);
        EXPECT_EQ(bench.grid(word), Texts{"F=A"}) << n;
        EXPECT_EQ(bench.form.HFGrid(word).cell(0, 1), "0x000" + std::to_string(n));
        EXPECT_EQ(bench.session.CfgIdMem[13 + 2 * n], n);
        EXPECT_EQ(bench.session.CfgBytes18[2 * n - 2], n);
    }
}

TEST(Combo_device_Click, resets_the_image_for_the_same_device_too) {
    Bench bench{block("PIC1", kFlashRows)};
    bench.select("PIC1");
    bench.session.PgmMem[0] = 0x12;
    bench.select("PIC1");
    EXPECT_EQ(bench.session.PgmMem[0], 0x3F);
}

TEST(Combo_device_Click, shows_the_options_of_every_word_at_the_first_selection) {
    Bench bench{typed("PIC18F1", "18F_01",
                      "CONFIG1 0x2700 0 0 0xFFFF\nCFG1 OSC RC 0x0700 0x0700\nCFG1 OSC LP 0x0700 0\n"
                      "CONFIG5 0x4001 0 0 0xFFFF\nCFG5 CP0 OFF 1 1\nCFG5 CP0 ON 1 0\n")};
    bench.select("PIC18F1");
    EXPECT_EQ(bench.grid(1), Texts{"OSC=RC"});
    EXPECT_EQ(bench.grid(5), Texts{"CP0=OFF"});
}

TEST(Combo_device_Click, shows_or_hides_the_board) {
    Bench bench{typed("PIC1", "FLASH4")};
    bench.form.mnuBoardInfomation.Checked.set(true);
    bench.select("PIC1");
    EXPECT_TRUE(bench.board.Visible.get());
    bench.form.mnuBoardInfomation.Checked.set(false);
    bench.select("PIC1");
    EXPECT_FALSE(bench.board.Visible.get());
}

TEST(Combo_device_Click, saves_the_list_index) {
    Bench bench{typed("PIC1", "FLASH4") + typed("PIC2", "FLASH4")};
    bench.select("PIC2");
    EXPECT_EQ(bench.store["deviceNew"], "1");
}

struct Firmware : Bench {
    Firmware() : Bench{typed("PIC1", "FLASH4", "FIRM 6.76\nCOMMENT hello there\n")} {}
    std::string shown() {
        form.LabelCmt.Caption.set("");
        select("PIC1");
        return form.LabelCmt.Caption.get();
    }
};

TEST(Combo_device_Click, is_silent_at_the_first_selection_with_no_board) {
    Firmware bench;
    EXPECT_EQ(bench.shown(), "");
    EXPECT_TRUE(bench.session.FirmChecked);
}

TEST(Combo_device_Click, warns_in_red_at_a_later_selection_with_no_board) {
    Firmware bench;
    bench.shown();
    EXPECT_EQ(bench.shown(),
              "指定したＰＩＣマイコンは、ファームウエアバージョン ZQ-LDR412 V6.76 "
              "以降でサポートしています。 ");
    EXPECT_EQ(bench.form.LabelCmt.ForeColor.get(), Colour::Red);
}

TEST(Combo_device_Click, shows_the_comment_where_the_firmware_suffices) {
    Firmware bench;
    bench.session.WriterFound = true;
    bench.session.FirmwareText = "ZQ-LDR412A V6.76";
    EXPECT_EQ(bench.shown(), " hello there ");
    EXPECT_EQ(bench.form.LabelCmt.ForeColor.get(), Colour::Black);
    EXPECT_TRUE(bench.session.FirmChecked);
}

TEST(Combo_device_Click, takes_the_device_in_spite_of_a_firmware_that_is_too_old) {
    Firmware bench;
    bench.session.WriterFound = true;
    bench.session.FirmwareText = "ZQ-LDR412A V6.00";
    EXPECT_TRUE(bench.shown().starts_with("指定したＰＩＣマイコンは"));
    EXPECT_EQ(bench.session.DeviceName, "PIC1");
    EXPECT_EQ(bench.session.PgmType.text(), "FLASH4");
    EXPECT_TRUE(bench.form.Command_program.Enabled.get());
    EXPECT_TRUE(bench.dialogs.boxes.empty());
}

TEST(Combo_device_Click, reads_six_characters_of_the_version_from_the_thirteenth_on) {
    Firmware bench;
    bench.session.WriterFound = true;
    bench.session.FirmwareText = "9.99 9.99 99  6.76 ";  // the 13th to 18th: "  6.76"
    EXPECT_EQ(bench.shown(), " hello there ");
    bench.session.FirmwareText = "9.99 9.99 99   6.76";  // one blank more: "   6.7"
    EXPECT_TRUE(bench.shown().starts_with("指定したＰＩＣマイコンは"));
}

TEST(Combo_device_Click, compares_the_version_at_both_sides_of_the_edge) {
    Firmware bench;
    bench.session.WriterFound = true;
    bench.session.FirmwareText = "ZQ-LDR412A V6.75";
    EXPECT_TRUE(bench.shown().starts_with("指定したＰＩＣマイコンは"));
    bench.session.FirmwareText = "ZQ-LDR412A V6.77";
    EXPECT_EQ(bench.shown(), " hello there ");
    bench.session.FirmwareText = "ZQ-LDR412A V";
    EXPECT_TRUE(bench.shown().starts_with("指定したＰＩＣマイコンは"));
}

TEST(Combo_device_Click, takes_the_board_that_a_check_found_after_a_search_in_vain) {
    Firmware bench;
    bench.shown();
    bench.session.WriterFound = true;
    bench.session.FirmVersionText = "ZQ-LDR412A V6.76";
    EXPECT_EQ(bench.shown(), " hello there ");
}

TEST(Combo_device_Click, takes_the_last_board_that_answered_and_not_the_one_of_the_search) {
    Firmware bench;
    bench.session.WriterFound = true;
    bench.session.FirmwareText = "ZQ-LDR412A V6.70";
    bench.session.FirmVersionText = "ZQ-LDR412A V6.80";
    EXPECT_EQ(bench.shown(), " hello there ");
}

TEST(Combo_device_Click, does_not_warn_of_a_board_that_nobody_has_asked_yet) {
    Firmware bench;
    bench.session.BoardUnasked = true;
    bench.shown();
    EXPECT_EQ(bench.shown(), "");
    bench.session.BoardUnasked = false;
    EXPECT_TRUE(bench.shown().starts_with("指定したＰＩＣマイコンは"));
}

TEST(Combo_device_Click, writes_a_version_below_1_without_a_leading_zero) {
    Bench bench{typed("PIC1", "FLASH4", "FIRM 0.5\n")};
    bench.select("PIC1");
    bench.select("PIC1");
    EXPECT_NE(bench.form.LabelCmt.Caption.get().find("ZQ-LDR412 V.50 以降"), std::string::npos);
}

TEST(Combo_device_Click, shows_the_tabs_of_the_words_that_the_device_has) {
    Bench bench{typed("PIC1", "FLASH4", "CONFIG1 1 0 0 1\nCONFIG3 1 0 0 1\n")};
    bench.form.SSTab_Config.TabVisible.set({true, true, true, true, true, true, true});
    bench.form.SSTab_Config.Tab.set(6);
    bench.select("PIC1");
    const std::array<bool, 10> expected{true, false, true};
    EXPECT_EQ(bench.form.SSTab_Config.TabVisible.get(), expected);
    EXPECT_EQ(bench.form.SSTab_Config.Tab.get(), 0);
    EXPECT_TRUE(bench.form.SSTab_Config.Redraw.get());
}

TEST(Combo_device_Click, resets_the_information_tabs_for_a_plain_type) {
    Bench bench{typed("PIC1", "12F6") + typed("PIC2", "FLASH4")};
    bench.select("PIC1");
    EXPECT_TRUE(bench.form.Chk_12F_CalibData_Select.Visible.get());
    bench.form.Lbl_Calib_ReadWrite_Data.Caption.set("R:3480,");
    bench.form.Lbl_ID_Dev.Caption.set("1");
    bench.form.Lbl_ID_Rev.Caption.set("2");
    bench.form.Check_Parity_Disp.Visible.set(true);
    bench.form.Check_Parity_Disp.Checked.set(true);
    bench.select("PIC2");
    const auto& form = bench.form;
    EXPECT_EQ(form.SSTab_MCU_Information.TabVisible.get(), (std::array<bool, 10>{}));
    EXPECT_EQ(form.SSTab_MCU_Information.Tab.get(), 3);
    EXPECT_TRUE(form.SSTab_MCU_Information.Redraw.get());
    EXPECT_FALSE(form.Chk_12F_CalibData_Select.Visible.get());
    EXPECT_FALSE(form.Text_Calib_Data.Enabled.get());
    EXPECT_EQ(form.Text_Calib_Data.Text.get(), "--");
    EXPECT_FALSE(form.Label_Calib.Visible.get());
    EXPECT_FALSE(form.Label_CalibInfo.Visible.get());
    EXPECT_EQ(form.Lbl_Calib_ReadWrite_Data.Caption.get(), "--");
    EXPECT_FALSE(form.Check_Parity_Disp.Visible.get());
    EXPECT_FALSE(form.Check_Parity_Disp.Checked.get());
    EXPECT_EQ(form.Lbl_ID_Dev.Caption.get(), "");
    EXPECT_EQ(form.Lbl_ID_Rev.Caption.get(), "");
}

TEST(Combo_device_Click, shows_the_tab_of_the_type) {
    Bench bench{typed("PIC1", "18F_00") + typed("PIC2", "EPROM2")};
    bench.select("PIC1");
    EXPECT_TRUE(bench.form.SSTab_MCU_Information.TabVisible.get()[2]);
    EXPECT_EQ(bench.form.Text_ID.MaxLength.get(), 8U);
    EXPECT_EQ(bench.form.Text_ID.Text.get(), "FFFFFFFF");
    bench.select("PIC2");
    EXPECT_FALSE(bench.form.SSTab_MCU_Information.TabVisible.get()[2]);
    EXPECT_TRUE(bench.form.SSTab_MCU_Information.TabVisible.get()[1]);
    EXPECT_EQ(bench.form.Text_ID.MaxLength.get(), 4U);
    EXPECT_EQ(bench.session.CfgIdMem[14] & 0xC0, 0xC0);
}

TEST(Combo_device_Click, enables_what_flash_parts_have) {
    Bench bench{typed("PIC16F1", "FLASH4") + typed("PIC12C508", "12C5")};
    bench.select("PIC16F1");
    EXPECT_TRUE(bench.form.Cmd_Extend_Program.Enabled.get());
    bench.select("PIC12C508");
    EXPECT_FALSE(bench.form.Cmd_Extend_Program.Enabled.get());
}

TEST(Combo_device_Click, keeps_the_combos_of_the_former_device_for_the_16F7X7) {
    Bench bench{typed("PIC16F917", "FLASH8") + typed("PIC16F777", "FLASH4") +
                typed("PIC16F84A", "FLASH0")};
    for (const bool shown : {true, false}) {
        bench.select(shown ? "PIC16F917" : "PIC16F84A");
        bench.select("PIC16F777");
        EXPECT_EQ(bench.form.Combo_LVD_91X.Visible.get(), shown);
        EXPECT_EQ(bench.form.Text_ID1.Visible.get(), shown);
        EXPECT_EQ(bench.form.Text_ID.MaxLength.get(), 4U);
    }
}

TEST(Combo_device_Click, runs_the_panel_of_12F683) {
    Bench bench{typed("PIC12F683", "FLASH8")};
    bench.form.Text_ID1.Text.set("0001");
    bench.select("PIC12F683");
    EXPECT_EQ(bench.form.Text_ID1.Text.get(), "3FFF");
    EXPECT_FALSE(bench.form.Text_ID1.Visible.get());
}

TEST(Combo_device_Click, turns_the_drawing_of_the_calibration_tabs_on_again) {
    Bench bench{typed("PIC16F887", "FLASH8")};
    std::vector<bool> drawing;
    const auto connection =
        bench.form.SSTab91X.Redraw.observe([&](const bool& on) { drawing.push_back(on); });
    bench.select("PIC16F887");
    EXPECT_EQ(drawing, (std::vector{false, true}));
}

TEST(Frm_VPP_DECIDE, is_asked_with_the_device_and_decides_the_power_order) {
    for (const auto& [answer, mode] :
         std::vector<std::pair<int, std::string>>{{1, "VPP"}, {2, "VDD"}}) {
        Bench bench{typed("PIC16F887", "FLASH8", answer == 2 ? "POWER_MODE VPP\n" : "")};
        bench.dialogs.power_answer = answer;
        bench.select("PIC16F887");
        ASSERT_EQ(bench.dialogs.power_questions.size(), 1U);
        EXPECT_EQ(
            bench.dialogs.power_questions[0],
            "PIC16F887は\r\n"
            "「内部オシレータモード」かつ「ＭＣＬＲデジタルインプット」に設定されている場合、仕様書でＶＰＰを先に投入するように指定されています。これはプログラミング時と言えども先にＶＤＤが投入された場合にデバイス内部の書込み済みコードが実行されてしまうのを防ぐ為です。　　未書込みのデバイス、あるいは自走する可能性の無い事が明らかな場合は「VDD-FIRST」の設定が可能です。これによりイン・サーキット・プログラミングの手法を用いて書き込める可能性が向上します。ですが当プログラマはインサーキットプログラミングを推奨しておりません。ご自身の判断の上での設定変更をお願いします。初期設定は「VPP-FIRST」です。（パワーアップシーケンスオプションで再設定可能です。）");
        EXPECT_EQ(bench.session.PowerMode, mode);
        EXPECT_EQ(bench.session.FormAnswer, answer);
    }
}

TEST(Frm_VPP_DECIDE, closed_without_an_answer_keeps_the_order_of_the_catalogue) {
    Bench bench{typed("PIC16F887", "FLASH8")};
    bench.session.FormAnswer = 1;
    bench.select("PIC16F887");
    EXPECT_EQ(bench.dialogs.power_questions.size(), 1U);
    EXPECT_EQ(bench.session.FormAnswer, 0);
    EXPECT_EQ(bench.session.PowerMode, "VDD");
}

TEST(Frm_VPP_DECIDE, is_not_asked_again_for_the_device_that_is_selected_and_its_answer_stays) {
    for (const auto& [answer, mode] :
         std::vector<std::pair<int, std::string>>{{1, "VPP"}, {2, "VDD"}}) {
        Bench bench{typed("PIC16F887", "FLASH8", answer == 2 ? "POWER_MODE VPP\n" : "")};
        bench.dialogs.power_answer = answer;
        bench.select("PIC16F887");
        bench.dialogs.power_answer = 0;
        bench.select("PIC16F887");
        EXPECT_EQ(bench.dialogs.power_questions.size(), 1U);
        EXPECT_EQ(bench.session.PowerMode, mode);
    }
}

TEST(Frm_VPP_DECIDE, is_asked_again_after_another_device_and_after_no_answer) {
    Bench bench{typed("PIC16F887", "FLASH8") + typed("PIC16F690", "FLASH8")};
    bench.select("PIC16F887");
    bench.dialogs.power_answer = 1;
    bench.select("PIC16F887");
    EXPECT_EQ(bench.dialogs.power_questions.size(), 2U);
    EXPECT_EQ(bench.session.PowerMode, "VPP");
    bench.dialogs.power_answer = 0;
    bench.select("PIC16F690");
    bench.select("PIC16F887");
    EXPECT_EQ(bench.dialogs.power_questions.size(), 4U);
    EXPECT_EQ(bench.session.PowerMode, "VDD");
}

TEST(Frm_VPP_DECIDE, is_not_asked_for_a_device_whose_row_does_not_say_so) {
    Bench bench{typed("PIC16F716", "FLASH8") + typed("PIC16F84A", "FLASH0")};
    bench.select("PIC16F716");
    bench.select("PIC16F84A");
    EXPECT_TRUE(bench.dialogs.power_questions.empty());
}

TEST(Mcu_Selected_Check, asks_for_a_device_and_gives_its_list_the_focus) {
    Bench bench;
    int focused = 0;
    const auto connection = bench.form.Focus.observe(
        [&](const std::string& name) { focused += name == "Combo_device" ? 1 : 0; });
    EXPECT_EQ(bench.selection.Mcu_Selected_Check(), Token::NG);
    EXPECT_EQ(bench.selection.Mcu_Selected_Check(), Token::NG);
    EXPECT_EQ(focused, 2);
    EXPECT_EQ(bench.form.LabelCmt.Caption.get(), "MCUを選んでください。 ");
    ASSERT_EQ(bench.dialogs.boxes.size(), 2U);
    EXPECT_EQ(bench.dialogs.boxes[0].title, "ｲﾝﾌｫﾒｰｼｮﾝ");
    EXPECT_EQ(bench.dialogs.boxes[0].text, "MCUを選んでください。");
    EXPECT_EQ(bench.dialogs.boxes[0].icon, BoxIcon::Warning);
}

TEST(Mcu_Selected_Check, passes_quietly_once_a_device_is_selected) {
    Bench bench;
    bench.session.DeviceName = "PIC1";
    EXPECT_EQ(bench.selection.Mcu_Selected_Check(), Token::OK);
    EXPECT_TRUE(bench.dialogs.boxes.empty());
    EXPECT_EQ(bench.form.Focus.get(), "");
}

TEST(ClearDeviceView, empties_the_device_s_texts_and_grids) {
    Bench bench{block("PIC1", kFlashRows)};
    bench.select("PIC1");
    bench.selection.ClearDeviceView();
    const auto& form = bench.form;
    EXPECT_EQ(form.RichTxtPgmMem.Text.get(), "");
    EXPECT_EQ(form.rText_EepromMem.Text.get(), "");
    for (const auto* box : {&form.Text_ID, &form.Text_Config1, &form.Text_Config2})
        EXPECT_EQ(box->Text.get(), "") << box->name;
    EXPECT_EQ(form.Label_pm_size.Caption.get(), "");
    EXPECT_EQ(form.Label_ed_size.Caption.get(), "");
    EXPECT_EQ(form.HFGrids[0].rows(), 1U);
}

TEST(Combo_device_Click, keeps_the_former_values_for_a_name_that_is_not_in_the_file) {
    Bench bench{block("PIC1", kFlashRows)};
    bench.select("PIC1");
    bench.form.Combo_device.Text.set("PIC9");
    bench.selection.Combo_device_Click();
    EXPECT_EQ(bench.session.DeviceName, "PIC9");
    EXPECT_EQ(bench.session.PgmType.text(), "FLASH4");
    EXPECT_TRUE(bench.form.SSTab_Config.TabVisible.get()[0]);
    EXPECT_TRUE(bench.dialogs.boxes.empty());
}

TEST(Chk_12F_CalibData_Select_Click, opens_the_fields_and_warns) {
    Bench bench{typed("PIC16F887", "FLASH8")};
    bench.select("PIC16F887");
    bench.form.LabelCmt.Caption.set("");
    bench.form.Chk_12F_CalibData_Select.Checked.set(false);
    bench.selection.Chk_12F_CalibData_Select_Click();
    EXPECT_TRUE(bench.form.Combo_FCAL.Enabled.get());
    EXPECT_EQ(bench.form.LabelCmt.Caption.get(),
              "ﾃﾞﾊﾞｲｽ内部のｷｬﾘﾌﾞﾚｰｼｮﾝﾃﾞｰﾀ（工場出荷時の設定値）を変更したくない場合は"
              "ﾁｪｯｸﾎﾞｯｸｽをｸﾘｱしないでください。 ");
    EXPECT_EQ(bench.form.LabelCmt.ForeColor.get(), Colour::Red);

    bench.form.LabelCmt.Caption.set("");
    bench.form.Chk_12F_CalibData_Select.Checked.set(true);
    bench.selection.Chk_12F_CalibData_Select_Click();
    EXPECT_FALSE(bench.form.Combo_FCAL.Enabled.get());
    EXPECT_EQ(bench.form.LabelCmt.Caption.get(), "");
}

}  // namespace
}  // namespace quillon::test
