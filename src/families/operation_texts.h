// SPDX-License-Identifier: MIT
// The messages of whole operations. The defaults are the 14-bit template's; a family replaces those
// that it words differently. One that is empty isn't shown. A message with a value in it is a
// format string.
#pragma once

#include <fmt/format.h>

#include <string>
#include <string_view>

namespace quillon {

struct OperationTexts {
    // Areas, as the reports name them
    std::string_view pgm = "プログラムメモリ";
    std::string_view pgm_checked = "プログラムメモリ";  // in blank check and verify
    std::string_view eep = "ＥＥＰＲＯＭデータメモリ";
    std::string_view cfg_and_id = "ＣＯＮＦＩＧ　，　ＩＤ";
    // 3 full-width blanks at the end
    std::string_view cfg_programmed =
        "ＣＯＮＦＩＧ. ワード"
        "　　　";
    std::string_view cfg_verified = "Ｃｏｎｆｉｇワード ";
    // 2 full-width blanks at the end
    fmt::format_string<const std::string&, const std::string&> cfg_found =
        "　（Ｃｏｎｆｉｇ：{}，ＩＤ：{}）"
        "　　";
    // 4 full-width blanks at the end
    std::string_view oscillator =
        "オシレータタイプ"
        "　　　　";
    std::string_view result_is = "=";

    // Blank check
    std::string_view blank_checking = "ブランクチェック中..........";
    std::string_view blank_title = "ブランクチェック";
    // 13 full-width blanks at the end
    std::string_view area_blank =
        "：　ブランク。"
        "　　　　　　　　　　　　　";
    // 8 full-width blanks at the end
    std::string_view area_not_blank =
        "：　消去されていません。"
        "　　　　　　　　";
    std::string_view link_error =
        "red通信エラーが発生しました。"
        "\r\n";
    std::string_view not_blank = "redデバイスは消去されてません。";
    std::string_view blank = "デバイスは消去されています。";
    std::string_view is_protected = "このデバイスはコードプロテクトされています。";
    std::string_view blank_log = "ﾌﾞﾗﾝｸﾁｪｯｸ操作終了";

    // Program
    std::string_view programming = "Ｆｌａｓｈプログラムメモリ プログラミング中..........";
    std::string_view written = "デバイスにコードが書き込まれています。";
    std::string_view overwrite_protected = "書込み済みです。(コードプロテクトされています｡)";
    std::string_view overwrite_used = "書込み済みです。";
    std::string_view overwrite_question = "上書きしますか？";
    std::string_view overwrite_cancelled = "上書き操作をキャンセルしました。";
    std::string_view blank_done = "ブランクチェック終了。　デバイスは消去されています。";
    std::string_view erasing = "チップイレース中..........";
    std::string_view erase_failed = "チップイレース失敗。";
    std::string_view erased = "イレース.........イレースしました。";
    std::string_view verify_title = "ベリファイ";

    // Read
    std::string_view reading_pgm = "";
    std::string_view reading_eep = "";
    std::string_view reading_cfg = "";
    std::string_view read_blank = "読み出し完了。　デバイスは消去されています。";
    std::string_view read_done = "読み出し完了。";
    std::string_view read_protected =
        "redコードプロテクトされています。（または不適切なデータがコードプロテクトビットにセットされています。）";
    std::string_view read_log = "リード 操作終了";

    // Verify
    std::string_view verify_cfg_now = "ベリファイ中..........コンフィギュレーションワード";
    std::string_view verify_pgm_now = "ベリファイ中..........プログラムメモリー";
    std::string_view verify_eep_now = "ベリファイ中..........ＥＥＰＲＯＭデータメモリ";
    std::string_view verify_protected = "redこのデバイスはコードプロテクトされています。";
    // 13 blanks at the end
    std::string_view verify_skipped =
        "このデバイスはコードプロテクトされています。"
        "\r"
        "ベリファイををスキップしました。"
        "             ";
    std::string_view verify_good = "ベリファイは正常終了しました。";
    std::string_view verify_bad = "redベリファイエラーを検出しました。";
    std::string_view verify_error_title = "ベリファイエラー";
    std::string_view verify_log = "ﾍﾞﾘﾌｧｲ 操作終了";
    // One area at a time
    std::string_view reload_pgm_done =
        "Ｆｌａｓｈプログラムメモリ＆コンフィグレーションワード プログラム終了";
    std::string_view reload_eep_done =
        "プログラムデータメモリー..........ＥＥＰＲＯＭデータメモリーのプログラミングに成功しました。";
    std::string_view reload_eep_failed = "";
    std::string_view no_eeprom = "このデバイスにはデータメモリがありません。";
};

inline constexpr OperationTexts kOperationTexts{};

namespace operation_text {

// 2 full-width blanks in the middle
inline constexpr std::string_view kSuccess =
    "プログラミング成功。"
    "　　"
    "{}sec　終了時刻：{}  Pass = {}    Fail = {}";
inline constexpr std::string_view kFailure =
    "プログラミング失敗。　終了時刻：{}  Pass = {}    Fail = {}";

}  // namespace operation_text

}  // namespace quillon
