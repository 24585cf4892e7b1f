// SPDX-License-Identifier: MIT
// The messages of the 14-bit flash families' area routines.
#pragma once

#include <string_view>

namespace quillon::flash14_text {

// Blank checks
inline constexpr std::string_view kBlankPgm = "ブランクチェック中..........プログラムメモリー";
inline constexpr std::string_view kBlankEep = "ブランクチェック中..........ＥＥＰＲＯＭメモリ";
inline constexpr std::string_view kBlankCfg = "ブランクチェック中..........コンフィグ・ＩＤワード";
// 2 full-width blanks in the middle of each
inline constexpr std::string_view kBlankPgmNoEndCode =
    "プログラムメモリブランクチェック失敗。"
    "　　"
    "終了コードを受信できませんでした。";
inline constexpr std::string_view kBlankEepTimeout =
    "ＥＥＰＲＯＭデータメモリブランクチェック失敗。"
    "　　"
    "読み出しデータ不足。";
inline constexpr std::string_view kBlankEepNoEndCode =
    "ＥＥＰＲＯＭデータメモリブランクチェック失敗。"
    "　　"
    "終了コードを受信できませんでした。";
inline constexpr std::string_view kBlankCfgNoEndCode =
    "コンフィギュレーションワードブランクチェック失敗。"
    "　　"
    "終了コードを受信できませんでした。";
inline constexpr std::string_view kProtected = "このデバイスはコードプロテクトされています。";

// Writes
inline constexpr std::string_view kWritePgmTimeoutAt =
    "0x{:X}アドレスでタイムアウトが発生しました。";
inline constexpr std::string_view kWritePgmFailed =
    "プログラムメモリのプログラミングに失敗しました。"
    " ";
inline constexpr std::string_view kWritePgmInterrupted =
    "プログラムメモリのプログラミングに失敗しました。  中断コードが返信されました。";
inline constexpr std::string_view kWritePgmNoReply =
    "プログラムメモリのプログラミングに失敗しました。  受信タイムアウトが発生しました。";
inline constexpr std::string_view kWritePgmNoEndCode =
    "プログラムメモリのプログラミングに失敗しました。  終了コードを受信できませんでした。";
inline constexpr std::string_view kWritePgmDone =
    "プログラムメモリのプログラミングに成功しました。";
inline constexpr std::string_view kNoEepToWrite =
    "このデバイスは、ＥＥＰＲＯＭデータメモリを内蔵していません。";
inline constexpr std::string_view kWriteEepFailed =
    "ＥＥＰＲＯＭデータメモリのプログラミングに失敗しました。";
inline constexpr std::string_view kWriteEepDetail = "( Address = {}  Write = {}  Read = {} )";
inline constexpr std::string_view kWriteEepNoEndCode =
    "ＥＥＰＲＯＭデータメモリのプログラミングに失敗しました。  終了コードを受信できませんでした。";
inline constexpr std::string_view kWriteEepDone =
    "ＥＥＰＲＯＭデータメモリのプログラミングに成功しました。";
inline constexpr std::string_view kWriteCfgFailed =
    "コンフィギュレーションワードのプログラミングに失敗しました。";
// The value that was to be written is never told: its place holds "????".
inline constexpr std::string_view kWriteCfgDetail = "( Address = {}  Read = {}  Write = ???? )";
inline constexpr std::string_view kWriteCfgDone =
    "コンフィギュレーションワードのプログラミングに成功しました。";

// Device check
inline constexpr std::string_view kChecking = "マイコンの種類の確認中.....";
inline constexpr std::string_view kCheckTimeout =
    "書込みマイコンの種類の確認失敗。"
    "　　"
    "読み出しデータ不足。";
inline constexpr std::string_view kCheckNoEndCode =
    "モジュールチェック失敗。"
    "　　"
    "終了コードを受信できませんでした。";
inline constexpr std::string_view kCheckDone = "書込みマイコンの種類の確認終了。";
inline constexpr std::string_view kMismatch =
    "指定しているマイコンとソケットにセットしているマイコンの種類が違います。";
inline constexpr std::string_view kMismatchTitle = "書込みマイコンの種類の確認";
// 2 full-width blanks twice
inline constexpr std::string_view kMismatchGoOn =
    "　継続する時は、"
    "　　"
    "『ＯＫ』"
    "　　"
    " を押してください。";
inline constexpr std::string_view kMismatchStop =
    "　中止する時は、『キャンセル』　を押してください。";
inline constexpr std::string_view kSocketEmpty =
    "redマイコンがソケットに正しくセットされていません。";
inline constexpr std::string_view kSocketHint =
    "キットの組立て直後の場合は、製作にミスがある可能性があります。メニューバー ⇒ ヘルプ ⇒ 製作確認資料をご覧になり確認を行ってください。";

// Reads
inline constexpr std::string_view kReadingPgm = "Ｆｌａｓｈプログラムメモリ読み出し中.....";
inline constexpr std::string_view kReadPgmNoEndCode =
    "プログラムメモリ読み出し失敗。"
    "　　"
    "終了コードを受信できませんでした。";
inline constexpr std::string_view kReadPgmDone = "Ｆｌａｓｈプログラムメモリ読み出し終了";
inline constexpr std::string_view kNoEepToRead =
    "ＯＴＰ版は、ＥＥＰＲＯＭデータメモリを内蔵していません。";
inline constexpr std::string_view kReadingEep = "ＥＥＰＲＯＭデータメモリ読み出し中.....";
inline constexpr std::string_view kReadEepTimeout =
    "ＥＥＰＲＯＭデータメモリ読み出し失敗。"
    "　　"
    "読み出しデータ不足。";
inline constexpr std::string_view kReadEepNoEndCode =
    "ＥＥＰＲＯＭデータメモリ読み出し失敗。"
    "　　"
    "終了コードを受信できませんでした。";
inline constexpr std::string_view kReadEepDone = "ＥＥＰＲＯＭデータメモリ読み出し終了";
inline constexpr std::string_view kReadingCfg = "コンフィギュレーションワード読み出し中.....";
inline constexpr std::string_view kReadCfgTimeout =
    "コンフィギュレーションワード読み出し失敗。"
    "　　"
    "読み出しデータ不足。";
inline constexpr std::string_view kReadCfgNoEndCode =
    "コンフィギュレーションワード読み出し失敗。"
    "　　"
    "終了コードを受信できませんでした。";
inline constexpr std::string_view kReadProtected =
    "リード..........このデバイスはコードプロテクトされています。";
inline constexpr std::string_view kReadCfgDone = "コンフィギュレーションワード読み出し終了";

// Verifies
inline constexpr std::string_view kMismatchLine =
    "Error　 アドレス:0x{:04X} , 正:0x{:04X} , 誤:0x{:04X}\r\n";
inline constexpr std::string_view kMoreMismatches =
    "\r\n"
    "これ以降もエラーがある可能性があります。"
    "\r\n";
inline constexpr std::string_view kVerifyPgmFailed = "プログラムメモリ ベリファイエラー。";
inline constexpr std::string_view kVerifyPgmNoEndCode =
    "プログラムメモリ ベリファイ失敗。"
    "　　"
    "終了コードを受信できませんでした。";
inline constexpr std::string_view kVerifyEepFailed =
    "ＥＥＰＲＯＭデータメモリの ベリファイエラー。";
inline constexpr std::string_view kVerifyEepNoEndCode =
    "ＥＥＰＲＯＭデータメモリの ベリファイエラー。  終了コードを受信できませんでした。";
inline constexpr std::string_view kVerifyCfgNoEndCode =
    "コンフィギュレーションワードのベリファイに失敗しました。  終了コードを受信できませんでした。";
inline constexpr std::string_view kVerifyCfgFailed =
    "コンフィギュレーションワードのベリファイエラー";
inline constexpr std::string_view kVerifyCfgData =
    "\r\n"
    "デバイスにプログラミングされているデータ。ＣＯＮＦＩＧ：{}ＩＤ：{}";

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
inline constexpr std::string_view kErased = "イレース.........イレースしました。";
inline constexpr std::string_view kEraseGood = "成功。";
inline constexpr std::string_view kEraseBad = "失敗。";

}  // namespace quillon::flash14_text
