// SPDX-License-Identifier: MIT
// Shown to the user when the settings file can't be read or written.
#pragma once

#include <string_view>

namespace quillon::ini_text {

inline constexpr std::string_view kDamaged =
    "設定ファイルが壊れているため、読み出せた設定だけを使用します。";
inline constexpr std::string_view kUnreadable =
    "設定ファイルを読み出せないため、既定値を使用します。";
inline constexpr std::string_view kNotWritten =
    "設定ファイルに書き込むことができませんでした。設定は保存されません。";

}  // namespace quillon::ini_text
