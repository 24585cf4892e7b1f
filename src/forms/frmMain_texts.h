// SPDX-License-Identifier: MIT
// The texts of frmMain that its controls don't carry: titles, tooltips, the window's own bars.
#pragma once

#include <string_view>

namespace quillon::form_text {

// Menus without a control of their own
inline constexpr std::string_view kEditMenu = "編集(&T)";
inline constexpr std::string_view kBufferMenu = "バッファ(&U)";
inline constexpr std::string_view kDeviceMenu = "デバイス(&D)";
inline constexpr std::string_view kOptionMenu = "オプション(&O)";
inline constexpr std::string_view kHelpMenu = "ヘルプ(&H)";
inline constexpr std::string_view kCopy = "コピー(&C)\tCtrl+C";
inline constexpr std::string_view kSelectAll = "すべて選択(&A)\tCtrl+A";
inline constexpr std::string_view kFindMenu = "検索(&F)...";
inline constexpr std::string_view kFindNextMenu = "次を検索(&N)";
inline constexpr std::string_view kFindPreviousMenu = "前を検索(&P)";
inline constexpr std::string_view kSearchDevice = "デバイスの検索(&D)";
inline constexpr std::string_view kSearchBoard = "ライターの検索(&W)";
inline constexpr std::string_view kSocketPins = "ソケットのピン配置(&I)";
inline constexpr std::string_view kAbout = "バージョン情報(&V)";

// Titles
inline constexpr std::string_view kDevice = "デバイス";
inline constexpr std::string_view kNoFile = "HEXファイルは読み込まれていません";
// Shown behind the name of a file that differs from the image
inline constexpr std::string_view kNotInBuffer = "   （バッファと相違）";
inline constexpr std::string_view kConfiguration = "コンフィギュレーション";
inline constexpr std::string_view kConfigTab = "CFG";
inline constexpr std::string_view kId = "ID";
inline constexpr std::string_view kConfig1 = "CFG1";
inline constexpr std::string_view kConfig2 = "CFG2";
// Shown in the view while no device is selected
inline constexpr std::string_view kNoDevice = "デバイスを選択してください";
inline constexpr std::string_view kProgramMemory = "プログラムメモリ";
inline constexpr std::string_view kEepromMemory = "ＥＥＰＲＯＭデータメモリ";
inline constexpr std::string_view kCheckSum = "チェックサム";
inline constexpr std::string_view kDeviceIdentity = "デバイスID";
inline constexpr std::string_view kDeviceRevision = "リビジョン";
inline constexpr std::string_view kMessage = "メッセージ";
inline constexpr std::string_view kProgress = "進行状況";
inline constexpr std::string_view kCounters = "試行 {}   Pass {}   Fail {}";
inline constexpr std::string_view kCountersTip = "起動後のプログラム回数";

// In front of a button's caption, for a screen reader
inline constexpr std::string_view kCalibrationWord = "キャリブレーションデータの";

// Search in a view
inline constexpr std::string_view kFind = "検索する文字列";
inline constexpr std::string_view kFindPlaceholder = "検索する文字列 (例 3FFF)";
inline constexpr std::string_view kFindNext = "次を検索 (F3)";
inline constexpr std::string_view kFindPrevious = "前を検索 (Shift+F3)";
inline constexpr std::string_view kNotFound = "見つかりません";
inline constexpr std::string_view kFromTop = "先頭へ戻りました";
inline constexpr std::string_view kFromBottom = "末尾へ戻りました";

// A file that has changed
inline constexpr std::string_view kFileChanged = "{} が変更されました。";
inline constexpr std::string_view kFileGone = "{} が見つかりません。";
inline constexpr std::string_view kReload = "再ロード(&L)";
inline constexpr std::string_view kLater = "閉じる";

// Tooltips
inline constexpr std::string_view kDeviceTip =
    "名前の一部を入力して検索できます (Ctrl+D)。選択するとバッファメモリはクリアされます";
inline constexpr std::string_view kOpenTip =
    "HEXファイルを開きます (Ctrl+O)。ウインドウへのドロップでも開けます";
inline constexpr std::string_view kSaveTip = "バッファメモリをHEXファイルに保存します (Ctrl+S)";
inline constexpr std::string_view kComTip = "通信ポートを選択します";
inline constexpr std::string_view kBlankTip = "デバイスが消去されているか調べます (F6)";
inline constexpr std::string_view kReadTip = "デバイスの内容をバッファメモリへ読み出します (F7)";
inline constexpr std::string_view kVerifyTip = "デバイスとバッファメモリを比較します (F8)";
inline constexpr std::string_view kProgramTip = "バッファメモリの内容をデバイスに書き込みます (F9)";
inline constexpr std::string_view kExtendTip =
    "領域ごとの読み出し、書き込み、消去のウインドウを開きます";
inline constexpr std::string_view kStopTip = "実行中の操作を中断します (Esc)";
inline constexpr std::string_view kReadWordTip =
    "デバイスのキャリブレーションデータだけを読み出します。デバイスは変わりません";
inline constexpr std::string_view kWriteWordTip =
    "入力したキャリブレーションデータだけをデバイスに書き込みます。\n"
    "「デバイス内部のデータを保持する」のチェックを外すと使えます";
inline constexpr std::string_view kBoardTip = "クリックでライターを検索します";
inline constexpr std::string_view kConfigTextTip =
    "クリックでコンフィギュレーションデータの説明を表示します";
inline constexpr std::string_view kReloadTip =
    "変更されたHEXファイルを読み込み直します。バッファメモリの内容は失われます";
inline constexpr std::string_view kLaterTip = "読み込み直さずに、この表示を閉じます";
inline constexpr std::string_view kProtectMaskTip = "コードプロテクトビットのマスク値";
inline constexpr std::string_view kCheckSumTip = "プログラムメモリ全ワードの和の下位16ビット";

}  // namespace quillon::form_text
