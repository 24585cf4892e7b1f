// SPDX-License-Identifier: MIT
// The texts of the catalogue, of device selection and of the configuration words.
#pragma once

#include <string_view>

namespace quillon::catalogue_text {

// device6.ini can't be opened, or is beyond its limits, at start-up; AppPath follows the text
inline constexpr std::string_view kNoCatalogueTitle = "設定ファイルを開けませんでした";
inline constexpr std::string_view kNoCatalogue =
    "デバイス情報設定ファイル 'device6.ini'が、以下のフォルダーに有りませんでした。";
// The same for a file that the user has named; its path follows the text
inline constexpr std::string_view kNoNamedCatalogue =
    "指定されたデバイス情報設定ファイルを開けませんでした。\r";

// A block can't be read; 1 full-width blank before the reason
inline constexpr std::string_view kBlockFailedTitle = "ﾌｧｲﾙ 開く失敗";
inline constexpr std::string_view kBlockFailed =
    "設定ファイルの読み出しに失敗しました。\r"
    "　";
inline constexpr std::string_view kEndOfFile = "EOF を検出しました。";
inline constexpr std::string_view kBlockNotEnded = "#End が見つかりませんでした。";
inline constexpr std::string_view kCannotOpen = "device6.ini を開けませんでした。";
inline constexpr std::string_view kTooManyRows =
    "{}行目 : 一つのデバイスの行数が多すぎます。（最大257行）";

// Single lines of a block that can't be used: line number, its text, the reason
inline constexpr std::string_view kBadLine = "{}行目 : {} : {}";
inline constexpr std::string_view kBadValue = "値を読み取れません。";
inline constexpr std::string_view kNoValue = "値がありません。";
inline constexpr std::string_view kBadSize = "大きさが扱える範囲を超えています。";
inline constexpr std::string_view kBadKey = "キーの末尾が1から7の数字ではありません。";
inline constexpr std::string_view kTooManyTokens = "一行の語数が多すぎます。（最大65語）";
inline constexpr std::string_view kTooManyComments = "CMT の行数が多すぎます。（最大129行）";
// 1 full-width blank before each further line
inline constexpr std::string_view kNextLine =
    "\r"
    "　";
inline constexpr std::string_view kMoreLines = "他 {} 行";
inline constexpr std::string_view kFormerEeprom =
    "EEPROM_BYTE の行がなく、前のデバイスの値は使えません。EEPROM無しとして扱います。";

inline constexpr std::string_view kNoDevice = "MCUを選んでください。";
inline constexpr std::string_view kNoDeviceTitle = "ｲﾝﾌｫﾒｰｼｮﾝ";

// No single device matches the text typed into a list: the text, and how many names hold it
inline constexpr std::string_view kUnknownDevice = "「{}」に該当するデバイスはありません。";
inline constexpr std::string_view kSeveralDevices =
    "「{}」に該当するデバイスが{}個あります。続きを入力してください。";

// The firmware is too old; shown in red
inline constexpr std::string_view kFirmwareTooOld =
    "red指定したＰＩＣマイコンは、ファームウエアバージョン ZQ-LDR412 V{} 以降でサポートしています。";

inline constexpr std::string_view kCalibrationOpen =
    "redﾃﾞﾊﾞｲｽ内部のｷｬﾘﾌﾞﾚｰｼｮﾝﾃﾞｰﾀ（工場出荷時の設定値）を変更したくない場合はﾁｪｯｸﾎﾞｯｸｽをｸﾘｱしないでください。";

// The power question; 2 full-width blanks between its two halves
inline constexpr std::string_view kPowerQuestion =
    "{}は\r\n"
    "「内部オシレータモード」かつ「ＭＣＬＲデジタルインプット」に設定されている場合、仕様書でＶＰＰを先に投入するように指定されています。これはプログラミング時と言えども先にＶＤＤが投入された場合にデバイス内部の書込み済みコードが実行されてしまうのを防ぐ為です。"
    "　　"
    "未書込みのデバイス、あるいは自走する可能性の無い事が明らかな場合は「VDD-FIRST」の設定が可能です。これによりイン・サーキット・プログラミングの手法を用いて書き込める可能性が向上します。ですが当プログラマはインサーキットプログラミングを推奨しておりません。ご自身の判断の上での設定変更をお願いします。初期設定は「VPP-FIRST」です。（パワーアップシーケンスオプションで再設定可能です。）";

// The fill with zeros changes what would be written, but not the words that the tabs show
inline constexpr std::string_view kZerosKept =
    "redコンフィギュレーションワードの表示は元のままですが、このまま書込むと０が書込まれます。";

// A field whose text is no option leaves its bits as the word's mask has them.
inline constexpr std::string_view kNoSuchOption =
    "red「{}」という設定はありません。この項目のビットは消去時の値で書き込まれます。";
inline constexpr std::string_view kConfigRadix =
    "コンフィギュレーションデータ表示。クリックでの１６ or "
    "２進数表示を切り替えます。変更は左側のデバイス設定で行います。";

// The heading row of a word's grid: the columns' titles, each behind the "^" that centres it and
// cut by "|"
inline constexpr std::string_view kGridFormat =
    "^ｺﾝﾌｨｸﾞ"
    "{}|^FFFF";

}  // namespace quillon::catalogue_text
