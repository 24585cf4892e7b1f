// SPDX-License-Identifier: MIT
// The messages of the 14-bit parts' area routines. The defaults are the template's; a family
// replaces those that it words differently. One that is empty isn't shown. A message with a value
// in it is a format string, checked when it is compiled.
#pragma once

#include <fmt/format.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace quillon {

struct Areas14Texts {
    // Blank checks
    std::string_view blank_pgm = "ブランクチェック中..........プログラムメモリー";
    std::string_view blank_eep = "ブランクチェック中..........ＥＥＰＲＯＭメモリ";
    std::string_view blank_cfg = "ブランクチェック中..........コンフィグ・ＩＤワード";
    // 2 full-width blanks in the middle of each
    std::string_view blank_pgm_no_end_code =
        "プログラムメモリブランクチェック失敗。"
        "　　"
        "終了コードを受信できませんでした。";
    std::string_view blank_eep_timeout =
        "ＥＥＰＲＯＭデータメモリブランクチェック失敗。"
        "　　"
        "読み出しデータ不足。";
    std::string_view blank_eep_no_end_code =
        "ＥＥＰＲＯＭデータメモリブランクチェック失敗。"
        "　　"
        "終了コードを受信できませんでした。";
    std::string_view blank_cfg_no_end_code =
        "コンフィギュレーションワードブランクチェック失敗。"
        "　　"
        "終了コードを受信できませんでした。";
    std::string_view is_protected = "このデバイスはコードプロテクトされています。";
    // Writes
    // The shown number is that of the awaited word less two, as the product's text has it.
    fmt::format_string<std::uint16_t> write_pgm_timeout_at =
        "0x{:X}アドレスでタイムアウトが発生しました。";
    std::string_view write_pgm_failed =
        "プログラムメモリのプログラミングに失敗しました。"
        " ";
    std::string_view write_pgm_interrupted =
        "プログラムメモリのプログラミングに失敗しました。  中断コードが返信されました。";
    std::string_view write_pgm_no_reply =
        "プログラムメモリのプログラミングに失敗しました。  受信タイムアウトが発生しました。";
    std::string_view write_pgm_no_end_code =
        "プログラムメモリのプログラミングに失敗しました。  終了コードを受信できませんでした。";
    std::string_view write_pgm_done = "プログラムメモリのプログラミングに成功しました。";
    std::string_view no_eep_to_write =
        "このデバイスは、ＥＥＰＲＯＭデータメモリを内蔵していません。";
    std::string_view write_eep_failed = "ＥＥＰＲＯＭデータメモリのプログラミングに失敗しました。";
    std::string_view write_eep_no_end_code =
        "ＥＥＰＲＯＭデータメモリのプログラミングに失敗しました。  終了コードを受信できませんでした。";
    std::string_view write_eep_done = "ＥＥＰＲＯＭデータメモリのプログラミングに成功しました。";
    // The value to write is never shown.
    fmt::format_string<int, std::string> write_cfg_detail =
        "( Address = {}  Read = {}  Write = ???? )";
    std::string_view write_cfg_failed =
        "コンフィギュレーションワードのプログラミングに失敗しました。";
    std::string_view write_cfg_done =
        "コンフィギュレーションワードのプログラミングに成功しました。";
    std::string_view patch_cfg_no_end_code =
        "コンフィギュレーションワード修正失敗。"
        "　　"
        "終了コードを受信できませんでした。";
    // Reads
    std::string_view reading_pgm = "Ｆｌａｓｈプログラムメモリ読み出し中.....";
    std::string_view read_pgm_no_end_code =
        "プログラムメモリ読み出し失敗。"
        "　　"
        "終了コードを受信できませんでした。";
    std::string_view read_pgm_done = "Ｆｌａｓｈプログラムメモリ読み出し終了";
    std::string_view no_eep_to_read = "ＯＴＰ版は、ＥＥＰＲＯＭデータメモリを内蔵していません。";
    std::string_view reading_eep = "ＥＥＰＲＯＭデータメモリ読み出し中.....";
    std::string_view read_eep_timeout =
        "ＥＥＰＲＯＭデータメモリ読み出し失敗。"
        "　　"
        "読み出しデータ不足。";
    std::string_view read_eep_no_end_code =
        "ＥＥＰＲＯＭデータメモリ読み出し失敗。"
        "　　"
        "終了コードを受信できませんでした。";
    std::string_view read_eep_done = "ＥＥＰＲＯＭデータメモリ読み出し終了";
    std::string_view reading_cfg = "コンフィギュレーションワード読み出し中.....";
    std::string_view read_cfg_timeout =
        "コンフィギュレーションワード読み出し失敗。"
        "　　"
        "読み出しデータ不足。";
    std::string_view read_cfg_no_end_code =
        "コンフィギュレーションワード読み出し失敗。"
        "　　"
        "終了コードを受信できませんでした。";
    std::string_view read_protected =
        "リード..........このデバイスはコードプロテクトされています。";
    std::string_view read_cfg_done = "コンフィギュレーションワード読み出し終了";
    // Verifies
    std::string_view verify_pgm_failed = "プログラムメモリ ベリファイエラー。";
    std::string_view verify_pgm_no_end_code =
        "プログラムメモリ ベリファイ失敗。"
        "　　"
        "終了コードを受信できませんでした。";
    std::string_view no_eep_to_verify = "";
    std::string_view verify_eep_failed = "ＥＥＰＲＯＭデータメモリの ベリファイエラー。";
    std::string_view verify_eep_no_end_code =
        "ＥＥＰＲＯＭデータメモリの ベリファイエラー。  終了コードを受信できませんでした。";
    std::string_view verify_cfg_no_end_code =
        "コンフィギュレーションワードのベリファイに失敗しました。  終了コードを受信できませんでした。";
    std::string_view verify_cfg_failed = "コンフィギュレーションワードのベリファイエラー";
    fmt::format_string<const std::string&, const std::string&> verify_cfg_data =
        "\r\n"
        "デバイスにプログラミングされているデータ。ＣＯＮＦＩＧ：{}ＩＤ：{}";

    // The calibration word
    std::string_view reading_word = "指定プログラムメモリのデータリード中..........";
    std::string_view read_word_done = "指定プログラムメモリのデータリード成功。";
    std::string_view read_word_failed = "指定プログラムメモリのデータリード失敗。";
    std::string_view writing_word = "指定プログラムメモリのデータライト中..........";
    std::string_view write_word_done = "指定プログラムメモリのデータライト成功。";
    std::string_view write_word_failed = "指定プログラムメモリのデータライト失敗。";

    // Erases
    std::string_view erase_good = "成功。";
    std::string_view erase_bad = "失敗。";
};

inline constexpr Areas14Texts kAreas14Texts{};

namespace areas14_text {

inline constexpr std::string_view kWriteEepDetail = "( Address = {}  Write = {}  Read = {} )";
inline constexpr std::string_view kVerifyCalibration =
    "マイコン内部のＢＧ(コンフィグ内)データ:0x{:X} ,キャリブレーションデータ:0x{:04X}";
inline constexpr std::string_view kFileHasNoCalibration =
    "ファイルにキャリブレーションデータがないため、最後のワードは一致しません。";
inline constexpr std::string_view kBadCalibration =
    "redキャリブレーションデータを正しく読み出せませんでした。 0x{:02X}{:02X}"
    "\r\n"
    "デバイスの装着を確認してください。デバイスのデータを使用しない時は、チェックボックスをクリアしてください。";
inline constexpr std::string_view kNoCalibration =
    "redデバイスの最後のワード 0x{:04X} は、キャリブレーションデータではありません。";

}  // namespace areas14_text

}  // namespace quillon
