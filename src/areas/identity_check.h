// SPDX-License-Identifier: MIT
// Whether the part in the socket is the selected one: judges an identity that was read, and asks
// whether to go on with another part.
#pragma once

#include <cstdint>
#include <string_view>

#include "app/dialogs.h"
#include "app/messages.h"

namespace quillon {

enum class SocketVerdict : std::uint8_t {
    Same,
    Other,    // another part, and the user goes on with it
    Empty,    // no part, or one that isn't seated
    Refused,  // another part, and the user stopped
    NoLink,   // the identity couldn't be read
};

constexpr bool may_go_on(SocketVerdict verdict) {
    return verdict == SocketVerdict::Same || verdict == SocketVerdict::Other;
}

// The defaults are the 14-bit template's.
struct IdentityTexts {
    std::string_view checking = "マイコンの種類の確認中.....";
    std::string_view timeout =
        "書込みマイコンの種類の確認失敗。"
        "　　"
        "読み出しデータ不足。";
    std::string_view no_end_code =
        "モジュールチェック失敗。"
        "　　"
        "終了コードを受信できませんでした。";
    std::string_view done = "書込みマイコンの種類の確認終了。";
    std::string_view mismatch =
        "指定しているマイコンとソケットにセットしているマイコンの種類が違います。";
    std::string_view title = "書込みマイコンの種類の確認";
    // 2 full-width blanks twice
    std::string_view go_on =
        "　継続する時は、"
        "　　"
        "『ＯＫ』"
        "　　"
        " を押してください。";
    std::string_view stop = "　中止する時は、『キャンセル』　を押してください。";
    std::string_view empty = "redマイコンがソケットに正しくセットされていません。";
    std::string_view empty_hint =
        "キットの組立て直後の場合は、製作にミスがある可能性があります。メニューバー ⇒ ヘルプ ⇒ 製作確認資料をご覧になり確認を行ってください。";
    bool hint_first = false;  // above the verdict on an empty socket
};

inline constexpr IdentityTexts kIdentityTexts{};

class IdentityCheck {
  public:
    IdentityCheck(const IdentityTexts& texts, Messages& messages, Dialogs& dialogs)
        : texts_{texts}, messages_{messages}, dialogs_{dialogs} {}

    void begin() { messages_.ShowMessage(texts_.checking); }
    SocketVerdict no_data();
    SocketVerdict no_end_code();
    // `same`: the identity is the selected device's. `empty`: it is one that no part has.
    SocketVerdict judge(bool same, bool empty);

  private:
    const IdentityTexts& texts_;
    Messages& messages_;
    Dialogs& dialogs_;
};

}  // namespace quillon
