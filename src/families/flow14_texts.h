// SPDX-License-Identifier: MIT
// The messages of the 14-bit families' whole operations.
#pragma once

#include <string_view>

namespace quillon::flow14_text {

// Areas, as the reports name them
inline constexpr std::string_view kPgm = "プログラムメモリ";
inline constexpr std::string_view kEep = "ＥＥＰＲＯＭデータメモリ";
inline constexpr std::string_view kCfgAndId = "ＣＯＮＦＩＧ　，　ＩＤ";
// 3 full-width blanks at the end
inline constexpr std::string_view kCfgProgrammed =
    "ＣＯＮＦＩＧ. ワード"
    "　　　";
inline constexpr std::string_view kCfgVerified = "Ｃｏｎｆｉｇワード ";

// Blank check
inline constexpr std::string_view kBlankChecking = "ブランクチェック中..........";
inline constexpr std::string_view kBlankTitle = "ブランクチェック";
// 13 full-width blanks at the end
inline constexpr std::string_view kAreaBlank =
    "：　ブランク。"
    "　　　　　　　　　　　　　";
// 8 full-width blanks at the end
inline constexpr std::string_view kAreaNotBlank =
    "：　消去されていません。"
    "　　　　　　　　";
inline constexpr std::string_view kLinkError =
    "red通信エラーが発生しました。"
    "\r\n";
inline constexpr std::string_view kNotBlank = "redデバイスは消去されてません。";
inline constexpr std::string_view kBlank = "デバイスは消去されています。";
inline constexpr std::string_view kProtected = "このデバイスはコードプロテクトされています。";
inline constexpr std::string_view kBlankLog = "ﾌﾞﾗﾝｸﾁｪｯｸ操作終了";

// Program
inline constexpr std::string_view kProgramming =
    "Ｆｌａｓｈプログラムメモリ プログラミング中..........";
inline constexpr std::string_view kWritten = "デバイスにコードが書き込まれています。";
inline constexpr std::string_view kOverwriteProtected =
    "書込み済みです。(コードプロテクトされています｡)";
inline constexpr std::string_view kOverwriteUsed = "書込み済みです。";
inline constexpr std::string_view kOverwriteQuestion = "上書きしますか？";
inline constexpr std::string_view kOverwriteCancelled = "上書き操作をキャンセルしました。";
inline constexpr std::string_view kBlankDone =
    "ブランクチェック終了。　デバイスは消去されています。";
inline constexpr std::string_view kErasing = "チップイレース中..........";
inline constexpr std::string_view kEraseFailed = "チップイレース失敗。";
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
// 2 full-width blanks in the middle
inline constexpr std::string_view kSuccess =
    "プログラミング成功。"
    "　　"
    "{}sec　終了時刻：{}  Pass = {}    Fail = {}";
inline constexpr std::string_view kFailure =
    "プログラミング失敗。　終了時刻：{}  Pass = {}    Fail = {}";
inline constexpr std::string_view kVerifyTitle = "ベリファイ";

// Read
inline constexpr std::string_view kReadBlank = "読み出し完了。　デバイスは消去されています。";
inline constexpr std::string_view kReadDone = "読み出し完了。";
inline constexpr std::string_view kReadProtected =
    "redコードプロテクトされています。（または不適切なデータがコードプロテクトビットにセットされています。）";
inline constexpr std::string_view kReadLog = "リード 操作終了";

// Verify
inline constexpr std::string_view kVerifyCfgNow =
    "ベリファイ中..........コンフィギュレーションワード";
inline constexpr std::string_view kVerifyPgmNow = "ベリファイ中..........プログラムメモリー";
inline constexpr std::string_view kVerifyEepNow = "ベリファイ中..........ＥＥＰＲＯＭデータメモリ";
inline constexpr std::string_view kVerifyProtected =
    "redこのデバイスはコードプロテクトされています。";
// 13 blanks at the end
inline constexpr std::string_view kVerifySkipped =
    "このデバイスはコードプロテクトされています。"
    "\r"
    "ベリファイををスキップしました。"
    "             ";
inline constexpr std::string_view kVerifyGood = "ベリファイは正常終了しました。";
inline constexpr std::string_view kVerifyBad = "redベリファイエラーを検出しました。";
inline constexpr std::string_view kVerifyErrorTitle = "ベリファイエラー";
// 2 full-width blanks at the end
inline constexpr std::string_view kVerifyCfgData =
    "　（Ｃｏｎｆｉｇ：{}，ＩＤ：{}）"
    "　　";
inline constexpr std::string_view kVerifyLog = "ﾍﾞﾘﾌｧｲ 操作終了";

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
inline constexpr std::string_view kReloadPgmDone =
    "Ｆｌａｓｈプログラムメモリ＆コンフィグレーションワード プログラム終了";
inline constexpr std::string_view kNoEeprom = "このデバイスにはデータメモリがありません。";
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
inline constexpr std::string_view kReloadEepDone =
    "プログラムデータメモリー..........ＥＥＰＲＯＭデータメモリーのプログラミングに成功しました。";

}  // namespace quillon::flow14_text
