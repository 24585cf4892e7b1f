// SPDX-License-Identifier: MIT
// The messages of the frame that every operation runs in.
#pragma once

#include <string_view>

namespace quillon::flow_text {

inline constexpr std::string_view kChecking = "ライターチェック中..........";
inline constexpr std::string_view kNotServed =
    "redこのデバイスのアルゴリズムは、まだ用意されていません。";
inline constexpr std::string_view kBadSize =
    "redデバイス情報設定ファイルのプログラムメモリサイズが正しくありません。";
inline constexpr std::string_view kChipErasing = "チップイレース.....";
// A calibration word that an erase would lose
inline constexpr std::string_view kCalibrationTitle = "キャリブレーションデータの消去";
inline constexpr std::string_view kCalibrationLost =
    "この消去では、工場出荷時のキャリブレーションデータとＢＧデータも失われます。"
    "\r\n"
    "データを保持して消去する時は、［拡張］の画面の消去を使用してください。"
    "\r\n"
    "消去しますか？";
inline constexpr std::string_view kEraseCancelled = "消去操作をキャンセルしました。";
inline constexpr std::string_view kNoCalibrationWord =
    "redこのデバイスには、単独で読み書きできるキャリブレーションデータがありません。";
// An operation that ended between the erase and the write of the calibration
inline constexpr std::string_view kCalibrationAtRisk =
    "デバイスのキャリブレーションデータが書き戻されていません。 0x{:02X}{:02X}  BG:{:X}";
inline constexpr std::string_view kCalibrationAtRiskHint =
    "「デバイス内部のデータを保持する」のチェックを外し、この値を入力してプログラムしてください。";
// An erase for which the device has no command
inline constexpr std::string_view kUseAreaDialog =
    "redこのデバイスは、［拡張］の画面から消去してください。";
inline constexpr std::string_view kGivenUp = "red操作を中止しました。";
// A search while the board is known from the last one
inline constexpr std::string_view kAlreadyFound = "ライターは、COM{}に検出済みです。";
inline constexpr std::string_view kPortLost = "red通信ポートが使用できませんでした。";
inline constexpr std::string_view kPortLostHint = "ライターとの接続を確認してください。";

}  // namespace quillon::flow_text
