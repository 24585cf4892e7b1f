// SPDX-License-Identifier: MIT
// Dialogs and refusals of the Open sequence.
#pragma once

#include <string_view>

namespace quillon::hex_files_text {

inline constexpr std::string_view kOpenFilter = "Hexファイル|*.HEX|全てのファイル|*.*|";
inline constexpr std::string_view kDirectFilter = "Hex File|*.HEX|All Files|*.*|";
inline constexpr std::string_view kSaveFilter = "Hexファイル|*.hex|全てのファイル|*.*|";
inline constexpr std::string_view kReplaceTitle = "上書き保存";
inline constexpr std::string_view kReplace = "ファイルが存在します。上書きしますか？";
inline constexpr std::string_view kSaveCancelled = "ファイル保存をキャンセルしました。 ";
inline constexpr std::string_view kSaved = "ファイル保存完了。 ";  // behind the file's name
inline constexpr std::string_view kNotSaved = "redファイルを保存できませんでした。";
inline constexpr std::string_view kSavedFolded =
    "red8Kワードを超えるプログラムを読み戻すには、"
    "オプション「HEXファイルの上位アドレスを使う」(HexUpperAddress)が必要です。";
inline constexpr std::string_view kNotOpened = "ファイルをオープンできませんでした。";
inline constexpr std::string_view kCleared = "バッファメモリはクリアされました。";
inline constexpr std::string_view kNotText = "テキスト形式のＨＥＸファイルではありません。";
inline constexpr std::string_view kChanging =
    "読み込み中にファイルの大きさが変わりました。書き込みが終わってから開いてください。";
inline constexpr std::string_view kTooLarge = "ＨＥＸファイルとしてはサイズが大きすぎます。";
inline constexpr std::string_view kUnknownDevice =
    "HEXファイル内に、サポート外のデバイス名({})が設定されています。\r\n"
    "現在のデバイス設定のままHEXファイルをロードします。";
inline constexpr std::string_view kNoSuchDevice = "red履歴のデバイスがデバイスリストにありません。";
inline constexpr std::string_view kBoxTitle = "Quillon";

}  // namespace quillon::hex_files_text
