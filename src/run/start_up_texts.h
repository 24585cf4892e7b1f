// SPDX-License-Identifier: MIT
// The texts of start-up.
#pragma once

#include <string_view>

namespace quillon::start_up_text {

// 10 full-width blanks
inline constexpr std::string_view kWait =
    "\r\n\r\n"
    "　　　　　　　　　　"
    "しばらくお待ちください.....";
// The stored title ends in a blank.
inline constexpr std::string_view kTitle = "Quillon V4 ";
inline constexpr std::string_view kPcVersion = "Quillon.exe : Ver ";
inline constexpr std::string_view kCatalogueVersion = "device6.ini : Ver ";
inline constexpr std::string_view kSupportPage = "ｻﾎﾟｰﾄﾍﾟｰｼﾞ : ";
inline constexpr std::string_view kHexNotOpened = "HEXファイルをオープンできませんでした。";
inline constexpr std::string_view kNotConnected = "COM{} ライター未接続";

inline constexpr std::string_view kFolderTitle = "ﾃﾝﾌﾟﾌｫﾙﾀﾞ作成失敗";
inline constexpr std::string_view kFolderFailed =
    "テンポラリフォルダーの作成に失敗しました。"
    "\r"
    "{}　を、"
    "\r"
    "予め作成し再度ソフトウエアを起動してください。";
// 11 full-width blanks behind the first sentence, a line of one at each of the two last line ends
inline constexpr std::string_view kWorkFileReadOnly =
    "一時作業ファイルにアクセスすることができませんでした。"
    "　　　　　　　　　　　"
    "\r\n\r\n"
    "フォルダー {}　内の、"
    "\r\n"
    "ファイルを削除後に、Quillon.exeを再起動してください。"
    "\r\n"
    "　"
    "\r\n"
    "　";

inline constexpr std::string_view kNoDevices =
    "redデバイス情報設定ファイルにデバイスが一つもありません。";
inline constexpr std::string_view kBadSetting =
    "設定 {} の値が正しくないため、既定値を使用します。";
inline constexpr std::string_view kFolderNotWritten =
    "red作業フォルダーに書き込むことができません。ログは保存されません。";
inline constexpr std::string_view kPortLost =
    "red通信ポートが切断されました。ライターの接続を確認してください。";

}  // namespace quillon::start_up_text
