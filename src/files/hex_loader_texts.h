// SPDX-License-Identifier: MIT
// The messages of a load.
#pragma once

#include <string_view>

namespace quillon::hex_loader_text {

inline constexpr std::string_view kLoading = "ファイルロード中..........";
inline constexpr std::string_view kLoaded = "ファイルロード完了";
inline constexpr std::string_view kLoadFailed = "ファイルをロードできませんでした。";
inline constexpr std::string_view kPerhapsPic18 =
    "ＰＩＣ１８用のファイルをロードしようとした可能性があります。";
// Item numbers, joined by "、"
inline constexpr std::string_view kSkipped = "{}行目はＨＥＸデータでないので読み飛ばしました。";
// Last code address in five digits, last EEPROM address in four, then whole percents
inline constexpr std::string_view kLoadedPic18 =
    "ファイルロード完了。\r\n"
    "データ最終アドレス ( コードメモリ≒0x{} , EEPROMメモリ≒0x{} ) [byte換算]\r\n"
    "使用率 ( コードメモリ≒{}% , EEPROMメモリ≒{}% )";

}  // namespace quillon::hex_loader_text
