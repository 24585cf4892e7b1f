// SPDX-License-Identifier: MIT
// The messages of the board's discovery and check.
#pragma once

#include <string_view>

namespace quillon::link_text {

inline constexpr std::string_view kChoosePort =
    "通信ポートを選んでください。"
    "\r"
    "メニューバーの [オプション] から [ＣＯＭポート設定] を選択してください。";
inline constexpr std::string_view kSearching = "ライターを探しています..... ";
// The same two sentences in the message area and, each with 4 full-width blanks, in a box.
inline constexpr std::string_view kPortBusy =
    "他のソフトウエアが、すでに通信ポート使用しています。"
    "\r"
    "通信ポートを使用しているソフトウエアを終了してください。";
inline constexpr std::string_view kPortBusyBox =
    "他のソフトウエアが、すでに通信ポート使用しています。"
    "　　　　"
    "\r\n"
    "通信ポートを使用しているソフトウエアを終了してください。"
    "　　　　";
inline constexpr std::string_view kPortUnusable =
    "通信ポートが使用できませんでした。"
    "\r";
inline constexpr std::string_view kInformation = "ｲﾝﾌｫﾒｰｼｮﾝ";
// 3 full-width blanks at the end
inline constexpr std::string_view kPortUnusableBox =
    "通信ポートが使用できませんでした。　他のシリアルポートを選択して下さい。"
    "　　　"
    "\r\n";
// Behind the two above, on a line of its own
inline constexpr std::string_view kPortDenied =
    "この通信ポートを使用する権限がありません。ポートのグループ（dialout など）への登録が必要です。";
inline constexpr std::string_view kNotFound =
    "ライターを検出できませんでした。"
    "メニューバーの [オプション] から [ＣＯＭポート設定] を選択してください。";
inline constexpr std::string_view kFound = "ライターを COM{}に検出しました。";
inline constexpr std::string_view kVersionUnreadable =
    "ファームウエアバージョンを読み出せませんでした。"
    "\r"
    "メニューバーの [オプション] から [ＣＯＭポート設定] を選択してください。";
inline constexpr std::string_view kLabelFound = "COM{} : {}";
inline constexpr std::string_view kLabelNotConnected = "COM{} : ライター未接続";
inline constexpr std::string_view kLabelNoPort = "通信ポート未選択";
inline constexpr std::string_view kCheckNotFound =
    "redライターを検出できませんでした。"
    "\r\n"
    "メニューバーの [オプション] から [ＣＯＭポート設定] を選択してください。"
    "\r\n"
    "ライターのＢＵＳＹ ＬＥＤが消灯しないときは、ライターの電源を再投入してください。";
inline constexpr std::string_view kPortNotChosen =
    "redシリアルポートが未指定です。"
    "\r\n"
    "メニューバーの [オプション] から [ＣＯＭポート設定] を選択してください。"
    "\r\n";
inline constexpr std::string_view kDelayTimeout =
    "電源印加遅延時間を設定でタイムアウトが発生しました。";
inline constexpr std::string_view kDelayMismatch =
    "電源印加遅延時間を設定で返信データが一致しませんでした。";
inline constexpr std::string_view kDelaySet = "電源印加遅延時間　設定＝ {} ミリ秒";

// The wait goes on.
inline constexpr std::string_view kSilent =
    "<<注意>>ライターからの応答が {} 秒間ありません。待ち続けています。";

inline constexpr std::string_view kUpdateTitle = "ファームウエアのアップデートが必要です。";
// Groups are separated by a line of one full-width blank; three lines end in full-width blanks, 4
// in the first two, 1 in the one that names the version.
inline constexpr std::string_view kUpdateAdvice =
    "ファームウエアバージョンが古いのでアップデートを行なってください。"
    "　　　　"
    "\r\n"
    "　"
    "\r\n"
    "ファームウエアのアップデートは、メニューバー「ヘルプ」の「ファームウエアアップデート」から行います。"
    "　　　　"
    "\r\n"
    "　"
    "\r\n"
    "最新のファームウエアは、サポートページ（{0}）で公開しています。"
    "\r\n"
    "アップデートの詳細も、サポートページ（{0}）をご覧ください。"
    "\r\n"
    "　"
    "\r\n"
    "現在のファームウエアバージョン　 ： {1} "
    "\r\n"
    "推奨するファームウエアバージョン ： ZQ-LDR412 V{2:.2f} 、または、それ以降。"
    "　"
    "\r\n"
    "（現在使用中のファームウエアバージョンは、メイン画面の右下に表示されます。）"
    "\r\n"
    "　"
    "\r\n"
    "[OK] を押すと、アップデートのページを開きます。";
inline constexpr std::string_view kSupportPage = "https://quillon.example/support";
inline constexpr std::string_view kPageNotOpened =
    "サポートページを開くことができませんでした。"
    "\r"
    "{}";

}  // namespace quillon::link_text
