// SPDX-License-Identifier: MIT
// The messages of the frame that every operation runs in.
#pragma once

#include <string_view>

namespace quillon::flow_text {

inline constexpr std::string_view kChecking = "ライターチェック中..........";
inline constexpr std::string_view kNotServed =
    "redこのデバイスのアルゴリズムは、まだ用意されていません。";
inline constexpr std::string_view kBadSize =
    "redデバイス情報設定ファイルのプログラムメモリサイズが正しくありません。";
inline constexpr std::string_view kChipErasing = "チップイレース.....";
inline constexpr std::string_view kGivenUp = "red操作を中止しました。";
// A search while the board is known from the last one
inline constexpr std::string_view kAlreadyFound = "ライターは、COM{}に検出済みです。";
inline constexpr std::string_view kPortLost = "red通信ポートが使用できませんでした。";
inline constexpr std::string_view kPortLostHint = "ライターとの接続を確認してください。";

}  // namespace quillon::flow_text
