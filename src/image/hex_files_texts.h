// SPDX-License-Identifier: MIT
// Dialogs and refusals of the Open sequence.
#pragma once

#include <string_view>

namespace quillon::hex_files_text {

inline constexpr std::string_view kOpenFilter = "Hexファイル|*.HEX|全てのファイル|*.*|";
inline constexpr std::string_view kDirectFilter = "Hex File|*.HEX|All Files|*.*|";
inline constexpr std::string_view kNotOpened = "ファイルをオープンできませんでした。";
inline constexpr std::string_view kNotText = "テキスト形式のＨＥＸファイルではありません。";
inline constexpr std::string_view kTooLarge = "ＨＥＸファイルとしてはサイズが大きすぎます。";
inline constexpr std::string_view kUnknownDevice =
    "HEXファイル内に、サポート外のデバイス名({})が設定されています。\r\n"
    "現在のデバイス設定のままHEXファイルをロードします。";
inline constexpr std::string_view kBoxTitle = "Quillon";

}  // namespace quillon::hex_files_text
