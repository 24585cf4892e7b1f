// SPDX-License-Identifier: MIT
// The question and the warning about a folder that is to be made.
#pragma once

#include <string_view>

namespace quillon::folders_text {

inline constexpr std::string_view kMakeTitle = "フォルダ作成";
inline constexpr std::string_view kMake = "フォルダ \"{}\" は存在しません。\r\n作成しますか？";
inline constexpr std::string_view kFailedTitle = "エラー";
inline constexpr std::string_view kFailed = "フォルダ \"{}\" の作成に失敗しました";

}  // namespace quillon::folders_text
