// SPDX-License-Identifier: MIT
// The messages of frmExtend_Program.
#pragma once

#include <string_view>

#include "families/operation_texts.h"
#include "families/step14_texts.h"

namespace quillon::extend_text {

// The program side's caption: some parts' configuration isn't in its erase.
inline constexpr std::string_view kWithConfig = "コードメモリ,CFG,ID";
inline constexpr std::string_view kCodeAlone = "コードメモリ";

// The data side's caption
inline constexpr std::string_view kEeprom = "ＥＥＰＲＯＭデータメモリ";
inline constexpr std::string_view kEepromNone = "ＥＥＰＲＯＭデータメモリ（なし）";

inline constexpr std::string_view kChipErased = "チップイレースしました。";
inline constexpr std::string_view kChipEraseFailed = "チップイレースに失敗しました。";
inline constexpr std::string_view kLongErase = "消去中。１０秒ほどお待ちください。";
inline constexpr std::string_view kLongEraseDone = "終了しました。";
inline constexpr std::string_view kPgmErased = "プログラムメモリ、コンフィグ、ＩＤの消去しました。";
inline constexpr std::string_view kPgmEraseFailed =
    "プログラムメモリ、コンフィグ、ＩＤの消去に失敗しました。";
inline constexpr std::string_view kNoEeprom = kOperationTexts.no_eeprom;
inline constexpr std::string_view kEepErased = "データメモリの消去しました。";
inline constexpr std::string_view kEepEraseFailed = "データメモリの消去に失敗しました。";
inline constexpr std::string_view kProgrammingEep = step14_text::kWritingEep;
inline constexpr std::string_view kPgmRead = "プログラムメモリ読み出し成功。";
inline constexpr std::string_view kPgmReadFailed = "プログラムメモリの読み出し失敗。";
inline constexpr std::string_view kPgmReadLog =
    "Ｆｌａｓｈプログラムメモリ＆コンフィグレーションワード"
    "　"
    "読み出し終了";
// With a plain blank, for the board's own modules
inline constexpr std::string_view kPgmReadLogOfModule =
    "Ｆｌａｓｈプログラムメモリ＆コンフィグレーションワード 読み出し終了";
inline constexpr std::string_view kEepRead = "ＥＥＰＲＯＭデータメモリ読み出し成功。";
inline constexpr std::string_view kEepReadFailed = "ＥＥＰＲＯＭデータメモリの読み出し失敗。";
inline constexpr std::string_view kReadProtected = kOperationTexts.read_protected;
// What an erase of the program side does beyond its verdict, or leaves
inline constexpr std::string_view kEepromErasedToo =
    "チップイレースのため、ＥＥＰＲＯＭデータメモリも消去されています。";
inline constexpr std::string_view kConfigByChipErase =
    "コンフィグ、ＩＤの消去とプロテクトの解除には、チップイレースを使用してください。";
// A part that only the chip erase can erase
inline constexpr std::string_view kUseChipErase =
    "redこのデバイスは、チップイレースで消去してください。";
inline constexpr std::string_view kPgmCleared = "ＰＣバッファのプログラムメモリをクリアしました。";
inline constexpr std::string_view kEepCleared =
    "ＰＣバッファのＥＥＰＲＯＭデータメモリをクリアしました。";

}  // namespace quillon::extend_text
