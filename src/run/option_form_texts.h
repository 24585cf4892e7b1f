// SPDX-License-Identifier: MIT
// The messages of the port dialog.
#pragma once

#include <string_view>

namespace quillon::option_text {

inline constexpr std::string_view kFailedTitle = "COM{}　エラー";
// 5 full-width blanks at the end of each line, 2 before the second one
inline constexpr std::string_view kFailed =
    "COM{}　オープンに失敗しました。"
    "　　　　　"
    "\r\r"
    "　　"
    "他のポート番号を指定してください。"
    "　　　　　";
inline constexpr std::string_view kChosen = "COM{}を選択しました。";
inline constexpr std::string_view kNotChosen = "通信ポートを選択しませんでした。";

}  // namespace quillon::option_text
