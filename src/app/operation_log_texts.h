// SPDX-License-Identifier: MIT
// The messages of the operation log.
#pragma once

#include <string_view>

namespace quillon::log_text {

inline constexpr std::string_view kNoLogFile = "ログファイルがありませんでした。";
inline constexpr std::string_view kNotOpened = "ログファイルを開くことができませんでした。";
inline constexpr std::string_view kNotWritten =
    "ログファイルに書き込むことができませんでした。ディスクの空き容量とファイルの属性を確認してください。";

}  // namespace quillon::log_text
