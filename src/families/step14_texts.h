// SPDX-License-Identifier: MIT
// The messages of the 14-bit parts' steps.
#pragma once

#include <string_view>

namespace quillon::step14_text {

// Erases
inline constexpr std::string_view kErasing = "チップイレース(コードプロテクト解除)中.....";
inline constexpr std::string_view kErasingChip =
    "イレース..........プロテクト解除中（プログラムメモリイレース）..........";
inline constexpr std::string_view kEraseChipFailed =
    "イレース.........プロテクト解除（プログラムメモリイレース）に失敗しました。";
inline constexpr std::string_view kErasingCfg =
    "イレース..........プロテクト解除中（コンフィグワードイレース）..........";
inline constexpr std::string_view kEraseCfgFailed =
    "イレース.........プロテクト解除（コンフィグワードイレース）に失敗しました。";
inline constexpr std::string_view kErasingPgm =
    "イレース..........ＦＬＡＳＨプログラムメモリーのイレース中..........";
inline constexpr std::string_view kErasePgmFailed =
    "イレース.........ＦＬＡＳＨプログラムメモリーのイレースに失敗しました。";
inline constexpr std::string_view kErasingEep =
    "イレース..........ＥＥＰＲＯＭデータメモリーのイレース中..........";
inline constexpr std::string_view kEraseEepFailed =
    "イレース.........ＥＥＰＲＯＭデータメモリーのイレースに失敗しました。";

// Write stage
inline constexpr std::string_view kWritingPgm =
    "Ｆｌａｓｈプログラムメモリのプログラミング中..........";
inline constexpr std::string_view kWritePgmTitle = "プログラムメモリプログラミング";
inline constexpr std::string_view kWritePgmFailed =
    "プログラムメモリのプログラミングに失敗しました。";
inline constexpr std::string_view kWritingEep =
    "ＥＥＰＲＯＭデータメモリのプログラミング..........";
inline constexpr std::string_view kWriteEepTitle = "ＥＥＰＲＯＭデータメモリプログラミング";
inline constexpr std::string_view kWriteEepFailed =
    "ＥＥＰＲＯＭデータメモリのプログラミングに失敗しました。";
inline constexpr std::string_view kVerifyingPgm = "プログラムメモリのベリファイ中..........";
inline constexpr std::string_view kVerifyingEep =
    "ＥＥＰＲＯＭデータメモリのベリファイ中..........";
inline constexpr std::string_view kWritingCfg =
    "コンフィギュレーションワード プログラミング中..........";
inline constexpr std::string_view kWriteCfgFailed =
    "コンフィグレーションのプログラミングに失敗しました。";
inline constexpr std::string_view kVerifyingCfg =
    "コンフィギュレーションワードのベリファイ中..........";
// One area at a time. 敗しました lacks a character in four of them; it is the product's text.
inline constexpr std::string_view kReloadWritePgmFailed =
    "Ｆｌａｓｈプログラムメモリのプログラミングに敗しました。";
inline constexpr std::string_view kReloadVerifyingPgm =
    "Ｆｌａｓｈプログラムメモリのベリファイ中..........";
inline constexpr std::string_view kReloadVerifyPgmFailed =
    "Ｆｌａｓｈプログラムメモリのベリファイに敗しました。";
inline constexpr std::string_view kReloadWritingCfg =
    "コンフィギュレーションワードのプログラミング中..........";
inline constexpr std::string_view kReloadWriteCfgFailed =
    "コンフィギュレーションワードのプログラミングに敗しました。";
inline constexpr std::string_view kReloadVerifyCfgFailed =
    "コンフィギュレーションワードのベリファイに敗しました。";
inline constexpr std::string_view kReloadErasingEep =
    "プログラムデータメモリー..........ＥＥＰＲＯＭデータメモリーの消去中..........";
inline constexpr std::string_view kReloadEraseEepFailed =
    "プログラムデータメモリー..........ＥＥＰＲＯＭデータメモリーの消去に失敗しました。";
inline constexpr std::string_view kReloadWritingEep =
    "プログラムデータメモリー..........ＥＥＰＲＯＭデータメモリーのプログラミング中..........";
inline constexpr std::string_view kReloadWriteEepFailed =
    "プログラムデータメモリー..........ＥＥＰＲＯＭデータメモリーのプログラミングに失敗しました。";
inline constexpr std::string_view kReloadVerifyingEep =
    "プログラムデータメモリー..........ＥＥＰＲＯＭデータメモリーのベリファイ中..........";
inline constexpr std::string_view kReloadVerifyEepFailed =
    "プログラムデータメモリー..........ＥＥＰＲＯＭデータメモリーのベリファイに失敗しました。";

}  // namespace quillon::step14_text
