// SPDX-License-Identifier: MIT
// What frmExtend_Program's buttons touch and what they keep. The name is for a screen reader, which
// reads a button without the caption of its side.
#pragma once

#include <string_view>

namespace quillon::form_text {

inline constexpr std::string_view kPgmReadName = "コードメモリ側のリード";
inline constexpr std::string_view kPgmReadTip =
    "コードメモリ、CFG、IDをバッファメモリへ読み出します。\n"
    "バッファメモリのEEPROMデータは変わりません";
inline constexpr std::string_view kPgmProgramName = "コードメモリ側のプログラム";
// Parts without a family run the main form's operation: it asks, and then erases the whole chip.
inline constexpr std::string_view kPgmProgramTip =
    "バッファメモリのコードメモリ、CFG、IDをデバイスに書き込みます。\n"
    "書き込み済みのとき、デバイスによっては確認し、EEPROMも含めて消去します。\n"
    "EEPROMへの書き込みはしません";
inline constexpr std::string_view kPgmEraseName = "コードメモリ側の消去";
inline constexpr std::string_view kPgmEraseTip =
    "コードメモリ、CFG、IDを確認なしで消去します。\n"
    "デバイスによってはEEPROMも消去されます";
inline constexpr std::string_view kPgmClearName = "コードメモリ側のＰＣバッファクリア";
inline constexpr std::string_view kPgmClearTip =
    "バッファメモリのコードメモリを初期値にします。\n"
    "デバイスとバッファメモリのEEPROMデータは変わりません";

inline constexpr std::string_view kEepReadName = "ＥＥＰＲＯＭのリード";
inline constexpr std::string_view kEepReadTip =
    "EEPROMをバッファメモリへ読み出します。\n"
    "バッファメモリのコードメモリ、CFG、IDは変わりません";
inline constexpr std::string_view kEepProgramName = "ＥＥＰＲＯＭのプログラム";
inline constexpr std::string_view kEepProgramTip =
    "EEPROMを確認なしで消去し、バッファメモリのEEPROMデータを書き込みます。\n"
    "コードメモリ、CFG、IDは変わりません";
inline constexpr std::string_view kEepEraseName = "ＥＥＰＲＯＭの消去";
inline constexpr std::string_view kEepEraseTip =
    "EEPROMを確認なしで消去します。\n"
    "コードメモリ、CFG、IDは変わりません";
inline constexpr std::string_view kEepClearName = "ＥＥＰＲＯＭのＰＣバッファクリア";
inline constexpr std::string_view kEepClearTip =
    "バッファメモリのEEPROMデータを初期値にします。\n"
    "デバイスとバッファメモリのコードメモリ、CFG、IDは変わりません";

inline constexpr std::string_view kChipEraseName = "チップイレース";
inline constexpr std::string_view kChipEraseTip =
    "デバイス全体を確認なしで消去します。\n"
    "「デバイス内部のデータを保持する」がチェックされていれば、\n"
    "キャリブレーションデータは残ります";

}  // namespace quillon::form_text
