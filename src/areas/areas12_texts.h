// SPDX-License-Identifier: MIT
// The messages of the 12-bit parts' area routines. A message with a value in it is a format string.
#pragma once

#include <fmt/format.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace quillon {

struct Areas12Texts {
    std::string_view checking_socket = "ソケット確認中.....";
    // Blank checks
    std::string_view blank_pgm = "ブランクチェック中..........プログラムメモリー";
    std::string_view blank_cfg = "ブランクチェック中..........コンフィグ・ＩＤワード";
    // 2 full-width blanks in the middle of each
    std::string_view blank_pgm_no_end_code =
        "プログラムメモリブランクチェック失敗。"
        "　　"
        "終了コードを受信できませんでした。";
    std::string_view blank_cfg_no_end_code =
        "コンフィギュレーションワードブランクチェック失敗。"
        "　　"
        "終了コードを受信できませんでした。";
    std::string_view is_protected = "このデバイスはコードプロテクトされています。";
    // Writes. The letters in brackets tell service which of the board's answers failed.
    std::string_view write_pgm_no_ready = "プログラムメモリのプログラミングに失敗しました。  (TMO)";
    std::string_view write_pgm_interrupted =
        "プログラムメモリのプログラミングに失敗しました。  (ABT)";
    std::string_view write_pgm_no_reply = "プログラムメモリのプログラミングに失敗しました。  (RXO)";
    std::string_view write_pgm_no_end_code =
        "プログラムメモリのプログラミングに失敗しました。  (EOF)";
    std::string_view check_oscillator =
        "念のためデバイスと書き込みのオシレータ設定を確認してください。"
        "\r\n";
    std::string_view write_pgm_done = "プログラムメモリのプログラミングに成功しました。";
    std::string_view write_pgm_failed = "プログラムメモリのプログラミングに失敗しました。";
    std::string_view no_eep_to_write =
        "このデバイスは、ＥＥＰＲＯＭデータメモリを内蔵していません。";
    std::string_view write_cfg_failed =
        "コンフィギュレーションワードのプログラミングに失敗しました。";
    std::string_view write_cfg_done =
        "コンフィギュレーションワードのプログラミングに成功しました。";
    // Reads
    std::string_view read_pgm_no_end_code =
        "プログラムメモリ読み出し失敗。"
        "　　"
        "終了コードを受信できませんでした。";
    std::string_view no_eep_to_read = "ＯＴＰ版は、ＥＥＰＲＯＭデータメモリを内蔵していません。";
    std::string_view read_cfg_no_end_code =
        "コンフィギュレーションワード読み出し失敗。"
        "　　"
        "終了コードを受信できませんでした。";
    // Verifies
    std::string_view verify_pgm_failed = "プログラムメモリ ベリファイエラー。";
    std::string_view verify_pgm_no_end_code =
        "プログラムメモリ ベリファイ失敗。"
        "　　"
        "終了コードを受信できませんでした。";
    std::string_view no_eep_to_verify =
        "このデバイスは、ＥＥＰＲＯＭデータメモリを内蔵していません。";
    std::string_view verify_cfg_no_end_code =
        "コンフィギュレーションワードのベリファイに失敗しました。  終了コードを受信できませんでした。";
    std::string_view verify_cfg_failed = "コンフィギュレーションワードのベリファイエラー";
    // The calibration word can't be read or written alone.
    std::string_view read_word_failed = "指定プログラムメモリのデータリード失敗。";
    std::string_view write_word_failed = "指定プログラムメモリのデータライト失敗。";
};

inline constexpr Areas12Texts kAreas12Texts{};

inline constexpr Areas12Texts kAreas10F2Texts{
    .no_eep_to_read = "10F2xx,12F50xは、ＥＥＰＲＯＭデータメモリを内蔵していません。",
};

namespace areas12_text {

inline constexpr std::string_view kWriteCfgDetail = "( Read = {}  Write = {} )\r\n";
inline constexpr std::string_view kVerifyCfgData =
    "\r\n"
    "デバイスにプログラミングされているデータ。ＣＯＮＦＩＧ：0x{}";
inline constexpr std::string_view kCalibrationWord =
    "キャリブレーションデータ格納アドレスのデータは 0x{:04X}(0x{:02X}) です。";
inline constexpr std::string_view kNoCalibration =
    "redデバイスの最後のワード 0x{:04X} は、キャリブレーションデータではありません。";

}  // namespace areas12_text

}  // namespace quillon
