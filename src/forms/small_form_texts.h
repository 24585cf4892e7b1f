// SPDX-License-Identifier: MIT
// Texts of the small forms that aren't captions of a control.
#pragma once

#include <string_view>

namespace quillon::form_text {

inline constexpr std::string_view kBoardCaption = "ＰＩＣマイコン情報";
inline constexpr std::string_view kIndexCaption = "ソケットのピン配置";
inline constexpr std::string_view kIndexNote =
    "ソケットの番号はピン数です。8、14、20ピンのデバイスは「8-20」にインデックス側を揃えて挿入します。";
inline constexpr std::string_view kClose = "閉じる";

inline constexpr std::string_view kHintCaption = "Quillon";
inline constexpr std::string_view kOk = "OK";
inline constexpr std::string_view kCancel = "キャンセル";
inline constexpr std::string_view kShowHint = "ヒントを表示";

inline constexpr std::string_view kPowerCaption = "Quillon";
inline constexpr std::string_view kVppFirst = "VPP-FIRST (推奨)";
inline constexpr std::string_view kVddFirst = "VDD-FIRST";

inline constexpr std::string_view kAboutCaption = "バージョン情報";
inline constexpr std::string_view kSupportPage = "サポートページ";
inline constexpr std::string_view kYes = "はい(&Y)";
inline constexpr std::string_view kNo = "いいえ(&N)";

inline constexpr std::string_view kSimulated = "シミュレーションボード";
inline constexpr std::string_view kDeviceQuestion = "このHEXファイルのデバイスを選択してください。";

}  // namespace quillon::form_text
