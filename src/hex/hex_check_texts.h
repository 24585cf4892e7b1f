// SPDX-License-Identifier: MIT
// The file check's findings, each with the number of them and the first one's line.
#pragma once

#include <string_view>

namespace quillon::hex_check_text {

inline constexpr std::string_view kHead = "redファイル検査：";
inline constexpr std::string_view kJoin = "、";
inline constexpr std::string_view kBadSums = "チェックサムの合わないレコードが{}件（最初は{}行目）";
inline constexpr std::string_view kSumsAsData =
    "チェックサムまでデータとして読まれた奇数バイトのレコードが{}件（最初は{}行目）";
inline constexpr std::string_view kOutside = "デバイスの範囲外のデータが{}バイト（最初は{}行目）";
inline constexpr std::string_view kOutsideId = "デバイスの範囲外のIDが{}バイト（最初は{}行目）";
inline constexpr std::string_view kContradicting =
    "異なる値で二重に書かれたデータが{}バイト（最初は{}行目）";
inline constexpr std::string_view kFolded =
    "下位アドレスに折り返された上位アドレスのレコードが{}件（最初は{}行目。"
    "オプション「HEXファイルの上位アドレスを使う」(HexUpperAddress)で本来の位置に置けます）";
inline constexpr std::string_view kSegments =
    "無視されたセグメントレコード(タイプ02)が{}件（最初は{}行目）";
inline constexpr std::string_view kBehindEnd =
    "終了レコードより後のデータレコードが{}件（最初は{}行目）";
inline constexpr std::string_view kNoEnd =
    "終了レコードがありません（途中で切れたファイルの可能性があります）";

}  // namespace quillon::hex_check_text
