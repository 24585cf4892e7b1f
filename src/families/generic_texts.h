// SPDX-License-Identifier: MIT
// What the devices that no family claims word differently from the 14-bit template.
#pragma once

#include "areas/areas14_texts.h"
#include "areas/identity_check.h"
#include "families/operation_texts.h"

namespace quillon::generic_text {

inline constexpr Areas14Texts kAreas14{
    .write_pgm_timeout_at = "アドレスでタイムアウトが発生しました。 0x{:05X}",
    .write_eep_failed =
        "ＥＥＰＲＯＭデータメモリのプログラミングに失敗しました。"
        "　　",
    .write_cfg_detail = "( Address = {}  Read = {}  Write = 0000 )",
    .write_cfg_failed =
        "コンフィギュレーションワードのプログラミングに失敗しました。"
        "　　",
    .reading_pgm = "",
    .read_pgm_done = "",
    .reading_eep = "",
    .read_eep_done = "",
    .reading_cfg = "",
    .read_protected = "",
    .read_cfg_done = "",
    .no_eep_to_verify = "このデバイスは、ＥＥＰＲＯＭデータメモリを内蔵していません。",
    .verify_cfg_data =
        "\r\n"
        "デバイスにプログラミングされているデータ。ＣＯＮＦＩＧ：0x{}ＩＤ：{}",
};

inline constexpr IdentityTexts kIdentity{
    .checking = "ソケット確認中.....",
    .timeout =
        "ソケット確認失敗。"
        "　　"
        "読み出しデータ不足。",
    .no_end_code =
        "ソケット確認失敗。"
        "　　"
        "終了コードを受信できませんでした。",
    .done = "ソケット確認終了。",
    .hint_first = true,
};

inline constexpr OperationTexts kOperation14{
    .result_is = "=　",
    .programming = "",
    .erased = "",
    .reading_pgm = "プログラムメモリ読み出し中..........",
    .reading_eep = "ＥＥＰＲＯＭデータメモリ読み出し中..........",
    .reading_cfg = "コンフィギュレーションワード読み出し中..........",
    .reload_eep_done = "ＥＥＰＲＯＭデータメモリのプログラミング成功。",
    .reload_eep_failed = "ＥＥＰＲＯＭデータメモリのプログラミング失敗。",
    .no_eeprom = "このデバイスは、ＥＥＰＲＯＭデータメモリを内蔵していません。",
};

// ID words lie behind program memory, in one stream with it.
inline constexpr OperationTexts kOperation12 = [] {
    OperationTexts texts = kOperation14;
    texts.pgm_checked = "プログラムメモリ　ｏｒ　ＩＤ";
    texts.cfg_and_id = "ＣＯＮＦＩＧワード";
    texts.cfg_verified = "Ｃｏｎｆｉｇ.ワード ";
    texts.cfg_found = "（0x{}）";
    return texts;
}();

}  // namespace quillon::generic_text
