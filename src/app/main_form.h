// SPDX-License-Identifier: MIT
// The controls of frmMain under their real names.
#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "app/controls.h"

namespace quillon {

struct MainForm : Form {
    // Message area, progress, the board and the counters
    Label LabelCmt{*this, "LabelCmt"};
    ProgressBar P_Bar{*this, "P_Bar"};
    Label Lbl_Persent{*this, "Lbl_Persent"};
    Label Label_FirmwareVersion{*this, "Label_FirmwareVersion"};
    Label Label_Ver{*this, "Label_Ver"};
    Label Lbl_PcVersion{*this, "Lbl_PcVersion"};
    Label Label_back{*this, "Label_back"};
    Label Label_Debug{*this, "Label_Debug"};

    // The device, its image and its file
    ComboBox Combo_device{*this, "Combo_device"};
    RichTextBox RichTxtPgmMem{*this, "RichTxtPgmMem"};
    RichTextBox rText_EepromMem{*this, "rText_EepromMem"};
    Label Label_pm_size{*this, "Label_pm_size"};
    Label Label_ed_size{*this, "Label_ed_size"};
    Label Label4{*this, "Label4", "ＥＥＰＲＯＭデータメモリ"};
    Label LblCheckSUM{*this, "LblCheckSUM"};

    // ID and configuration. Boxes are limited to the digits that their values have: a digit beyond
    // them would be dropped silently. The limit of Text_ID follows the device.
    TextBox Text_ID{*this, "Text_ID"};
    TextBox Text_ID1{*this, "Text_ID1", "", 4};
    TextBox Text_ID2{*this, "Text_ID2", "", 4};
    TextBox Text_ID3{*this, "Text_ID3", "", 4};
    TextBox Text_ID4{*this, "Text_ID4", "", 4};
    std::array<Label, 4> Label10{{{*this, "Label10(0)", "ID1"},
                                  {*this, "Label10(1)", "ID2"},
                                  {*this, "Label10(2)", "ID3"},
                                  {*this, "Label10(3)", "ID4"}}};
    TextBox Text_Config1{*this, "Text_Config1"};
    TextBox Text_Config2{*this, "Text_Config2"};
    TabSet SSTab_Config{*this, "SSTab_Config"};
    std::array<Grid, 7> HFGrids{{{*this, "HFGrid(1)"},
                                 {*this, "HFGrid(2)"},
                                 {*this, "HFGrid(3)"},
                                 {*this, "HFGrid(4)"},
                                 {*this, "HFGrid(5)"},
                                 {*this, "HFGrid(6)"},
                                 {*this, "HFGrid(7)"}}};
    ComboBox CmbInit{*this, "CmbInit"};  // option list over the clicked cell
    TextBox TxtInit{*this, "TxtInit"};   // free entry of a value

    // Word n's grid, n from 1 to 7.
    Grid& HFGrid(int n) { return HFGrids.at(static_cast<std::size_t>(n - 1)); }

    // Device information and calibration tabs
    TabSet SSTab_MCU_Information{*this, "SSTab_MCU_Information"};
    TabSet SSTab91X{*this, "SSTab91X"};
    Label Lbl_div{*this, "Lbl_div", "ID_Dev"};
    Label Lbl_rev{*this, "Lbl_rev", "ID_Rev"};
    Label Lbl_ID_Dev{*this, "Lbl_ID_Dev"};
    Label Lbl_ID_Rev{*this, "Lbl_ID_Rev"};
    Label Label_DEV_id{*this, "Label_DEV_id", "--"};
    Label Label_DEV_rev{*this, "Label_DEV_rev", "--"};
    Shape Frame2{*this, "Frame2"};
    CheckBox Chk_12F_CalibData_Select{*this, "Chk_12F_CalibData_Select",
                                      "デバイス内部のデータを保持する"};
    CheckBox Chk_UseFileData{*this, "Chk_UseFileData", "ファイルのデータを使用する"};
    CheckBox Check_Parity_Disp{*this, "Check_Parity_Disp", "パリティビットを表示する"};
    Label Label_Calib{*this, "Label_Calib", "ｷｬﾘﾌﾞﾚｰｼｮﾝﾃﾞｰﾀ"};
    Label Label_CalibInfo{*this, "Label_CalibInfo", "工場出荷時のｷｬﾘﾌﾞﾚｰｼｮﾝﾃﾞｰﾀ"};
    Label Lbl_Calib_ReadWrite_Data{*this, "Lbl_Calib_ReadWrite_Data", "--"};
    TextBox Text_Calib_Data{*this, "Text_Calib_Data", "--", 2};
    Label Label_BG{*this, "Label_BG", "BG"};
    TextBox Text_BG{*this, "Text_BG", "3", 1};
    TextBox Text_OSCCAL_Data{*this, "Text_OSCCAL_Data", "", 3};
    ComboBox Combo_BOR_91X{*this, "Combo_BOR_91X"};
    ComboBox Combo_POR_91X{*this, "Combo_POR_91X"};
    ComboBox Combo_FCAL_91X{*this, "Combo_FCAL_91X"};
    ComboBox Combo_LVD_91X{*this, "Combo_LVD_91X"};
    ComboBox Combo_WUR_63X{*this, "Combo_WUR_63X"};
    ComboBox Combo_FCAL{*this, "Combo_FCAL"};
    ComboBox Combo_BOR{*this, "Combo_BOR"};
    ComboBox Combo_POR{*this, "Combo_POR"};
    std::array<Label, 3> Label11{{{*this, "Label11(0)", "FCAL"},
                                  {*this, "Label11(1)", "BOR"},
                                  {*this, "Label11(2)", "POR"}}};

    // Buttons
    Button Command_blank{*this, "Command_blank", "ブランクチェック(&B)"};
    Button Command_read{*this, "Command_read", "リード(&R)"};
    Button Command_Verify{*this, "Command_Verify", "ベリファイ(&V)"};
    Button Command_program{*this, "Command_program", "プログラム(&P)"};
    Button Cmd_Extend_Program{*this, "Cmd_Extend_Program", "拡張(&E)"};
    Button Cmd_open{*this, "Cmd_open", "開く"};
    Button Cmd_save{*this, "Cmd_save", "保存"};
    Button Command_com{*this, "Command_com", "COMポート"};
    Button Command_stop{*this, "Command_stop", "中断"};
    Button Command1{*this, "Command1", "リード"};  // calibration word
    Button Command2{*this, "Command2", "ライト"};  // calibration word

    // Menus
    MenuItem file{*this, "file", "ファイル(&F)"};
    MenuItem mnuFileOpen{*this, "mnuFileOpen", "HEXファイルを開く(&O)..."};
    MenuItem mnuFileSave{*this, "mnuFileSave", "HEXファイルを保存(&S)..."};
    std::array<MenuItem, 5> nmuFile{{{*this, "nmuFile1"},
                                     {*this, "nmuFile2"},
                                     {*this, "nmuFile3"},
                                     {*this, "nmuFile4"},
                                     {*this, "nmuFile5"}}};
    std::array<MenuItem, 5> nmuDevice{{{*this, "nmuDevice1"},
                                       {*this, "nmuDevice2"},
                                       {*this, "nmuDevice3"},
                                       {*this, "nmuDevice4"},
                                       {*this, "nmuDevice5"}}};
    MenuItem nmuHistryClear{*this, "nmuHistryClear", "履歴のクリア(&C)"};
    MenuItem mnuLogFileOpen{*this, "mnuLogFileOpen", "ログファイルを開く(&L)"};
    MenuItem exit{*this, "exit", "終了(&X)"};
    MenuItem mnuAsmC{*this, "mnuAsmC", "アセンブラ・C(&A)"};
    MenuItem mnuRELOAD{*this, "mnuRELOAD", "HEXファイルの再ロード"};
    MenuItem mnuASMwithRELOAD{*this, "mnuASMwithRELOAD", "HEXファイルの再生成とロード"};
    MenuItem mnuAsmReloadProgram{*this, "mnuAsmReloadProgram", "再生成、ロード、プログラム"};
    MenuItem mnuPcBufferMemoryClear{*this, "mnuPcBufferMemoryClear",
                                    "ＰＣバッファメモリ - ALL\"1\"(クリア)(&P)"};
    MenuItem mnuPcBufferMemory_0{*this, "mnuPcBufferMemory_0", "ＰＣバッファメモリ - ALL\"0\""};
    MenuItem mnuPgmErase{*this, "mnuPgmErase", "プログラムメモリ消去"};
    MenuItem mnuChipErase{*this, "mnuChipErase", "チップイレース"};
    MenuItem mnuBlankSkip{*this, "mnuBlankSkip",
                          "プログラム時のブランクチェックをスキップ(Flashマイコンのみ)"};
    MenuItem mnuComPort{*this, "mnuComPort", "ＣＯＭポート設定"};
    MenuItem mnuComMode1{*this, "mnuComMode1", "通信モードその１"};
    MenuItem mnuBoardInfomation{*this, "mnuBoardInfomation", "ボード情報ウインドウの表示"};
    MenuItem mnuLock{*this, "mnuLock", "連続プログラムモード（ﾌﾟﾛｸﾞﾗﾑに不必要なﾎﾞﾀﾝを無効化）"};
    MenuItem mnuFrmmainHight{*this, "mnuFrmmainHight", "ウインドウの高さを少し伸ばす"};
    MenuItem mnuHelp{*this, "mnuHelp", "ヘルプ(&H)"};
    MenuItem mnuBoardAmend{*this, "mnuBoardAmend", "製作確認資料.pdf(&A)"};
    MenuItem HexUpperAddress{*this, "HexUpperAddress",
                             "HEXファイルの上位アドレスを使う(PIC12F1xxx,PIC16F1xxx)"};
    MenuItem HexFileCheck{*this, "HexFileCheck", "ロード時にHEXファイルを検査"};
    MenuItem mnuFirmwareUpdate{*this, "mnuFirmwareUpdate", "ファームウエアアップデート"};

    // A developer's view of the configuration words; hidden in normal use
    std::array<TextBox, 22> Text1{
        {{*this, "Text1(0)"},  {*this, "Text1(1)"},  {*this, "Text1(2)"},  {*this, "Text1(3)"},
         {*this, "Text1(4)"},  {*this, "Text1(5)"},  {*this, "Text1(6)"},  {*this, "Text1(7)"},
         {*this, "Text1(8)"},  {*this, "Text1(9)"},  {*this, "Text1(10)"}, {*this, "Text1(11)"},
         {*this, "Text1(12)"}, {*this, "Text1(13)"}, {*this, "Text1(14)"}, {*this, "Text1(15)"},
         {*this, "Text1(16)"}, {*this, "Text1(17)"}, {*this, "Text1(18)"}, {*this, "Text1(19)"},
         {*this, "Text1(20)"}, {*this, "Text1(21)"}}};
    std::array<Label, 15> Label12{{{*this, "Label12(0)"},
                                   {*this, "Label12(1)"},
                                   {*this, "Label12(2)"},
                                   {*this, "Label12(3)"},
                                   {*this, "Label12(4)"},
                                   {*this, "Label12(5)"},
                                   {*this, "Label12(6)"},
                                   {*this, "Label12(7)"},
                                   {*this, "Label12(8)"},
                                   {*this, "Label12(9)"},
                                   {*this, "Label12(10)"},
                                   {*this, "Label12(11)"},
                                   {*this, "Label12(12)"},
                                   {*this, "Label12(13)"},
                                   {*this, "Label12(14)"}}};
    Button Command4{*this, "Command4"};
    TextBox Text2{*this, "Text2"};
    TextBox Text3{*this, "Text3"};

    int Left = 100;  // twips
    int Top = 100;
    int Height = 7860;
    int Width = 10710;             // fixed
    int ScaleWidth = 10710;        // inner width; a window with a border keeps it here
    Property<int> LabelBackWidth;  // of Label_back
    Signal<> Placed;               // Left, Top or Height was set by the program
};

// The drawing of the board: the socket to use and the jumper's place.
struct BoardForm : Form {
    Shape Shape_8P{*this, "Shape_8P"};
    Shape Shape_18P{*this, "Shape_18P"};
    Shape Shape_28P{*this, "Shape_28P"};
    Shape Shape_28AP{*this, "Shape_28AP"};
    Shape Shape_40P{*this, "Shape_40P"};
    Shape Shape_12{*this, "Shape_12"};
    Shape Shape_23{*this, "Shape_23"};
    Label Label_sel{*this, "Label_sel", "どちらでも可"};
    Label Label2{*this, "Label2", "Ｉｎｄｅｘ は上向き"};

    int Left = 0;  // twips
    int Top = 0;
};

struct AboutForm : Form {
    Label lblTitle{*this, "lblTitle"};
    Label lblVersion{*this, "lblVersion"};
    Label lblDescription{*this, "lblDescription"};
    Label lblDisclaimer{*this, "lblDisclaimer"};
    Label Label_ID_Word{*this, "Label_ID_Word"};
};

}  // namespace quillon
