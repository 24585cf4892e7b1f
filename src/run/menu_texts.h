// SPDX-License-Identifier: MIT
// The messages of the menu commands.
#pragma once

#include <string_view>

namespace quillon::menu_text {

inline constexpr std::string_view kComMode1 =
    "通信が正常に行われないとき、この設定を有効にしてみてください。";
inline constexpr std::string_view kNotOpened = "redファイルを開くことができませんでした。";
inline constexpr std::string_view kHintNotOpened =
    "ファイルを開くことができませんでした。"
    "\r"
    "{}";

inline constexpr std::string_view kHelpFile = "Quillon.chm";
inline constexpr std::string_view kBoardFile = "製作確認資料.pdf";

}  // namespace quillon::menu_text
