// SPDX-License-Identifier: MIT
// The messages of the 12-bit parts' area routines: those of the 14-bit parts, where a routine does
// the same. A message with a value in it is a format string.
#pragma once

#include <string_view>

#include "areas/areas14_texts.h"

namespace quillon {

struct Areas12Texts {
    std::string_view checking_socket = "ソケット確認中.....";
    // Blank checks
    std::string_view blank_pgm = kAreas14Texts.blank_pgm;
    std::string_view blank_cfg = kAreas14Texts.blank_cfg;
    std::string_view blank_pgm_no_end_code = kAreas14Texts.blank_pgm_no_end_code;
    std::string_view blank_cfg_no_end_code = kAreas14Texts.blank_cfg_no_end_code;
    std::string_view is_protected = kAreas14Texts.is_protected;
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
    std::string_view write_pgm_done = kAreas14Texts.write_pgm_done;
    std::string_view write_pgm_failed = "プログラムメモリのプログラミングに失敗しました。";
    std::string_view no_eep_to_write = kAreas14Texts.no_eep_to_write;
    std::string_view write_cfg_failed = kAreas14Texts.write_cfg_failed;
    std::string_view write_cfg_done = kAreas14Texts.write_cfg_done;
    // Reads
    std::string_view read_pgm_no_end_code = kAreas14Texts.read_pgm_no_end_code;
    std::string_view no_eep_to_read = kAreas14Texts.no_eep_to_read;
    std::string_view read_cfg_no_end_code = kAreas14Texts.read_cfg_no_end_code;
    // Verifies
    std::string_view verify_pgm_failed = kAreas14Texts.verify_pgm_failed;
    std::string_view verify_pgm_no_end_code = kAreas14Texts.verify_pgm_no_end_code;
    std::string_view no_eep_to_verify = kAreas14Texts.no_eep_to_write;
    std::string_view verify_cfg_no_end_code = kAreas14Texts.verify_cfg_no_end_code;
    std::string_view verify_cfg_failed = kAreas14Texts.verify_cfg_failed;
    // The calibration word can't be read or written alone.
    std::string_view read_word_failed = kAreas14Texts.read_word_failed;
    std::string_view write_word_failed = kAreas14Texts.write_word_failed;
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

}  // namespace areas12_text

}  // namespace quillon
