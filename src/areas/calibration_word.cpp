// SPDX-License-Identifier: MIT
#include "areas/calibration_word.h"

#include <fmt/format.h>

#include "app/text.h"
#include "image/config_area.h"
#include "link/words.h"

namespace quillon {

namespace {

namespace text {
constexpr std::string_view kNoEntry = "redｷｬﾘﾌﾞﾚｰｼｮﾝﾃﾞｰﾀを、１６進数２桁で入力してください。";
constexpr std::string_view kCantTake =
    "redデバイスの最後のワード 0x{:04X} は、0x{:04X} に書き換えられません。書き込みを中止しました。";
constexpr std::string_view kNoBandgap = "redＢＧデータを、０から３の数字で入力してください。";
}  // namespace text

constexpr unsigned kHighestBandgap = 3;

// The value of a text of one or two hexadecimal digits.
std::optional<std::uint8_t> byte_value(std::string_view digits) {
    if (digits.empty() || digits.size() > 2) return std::nullopt;
    unsigned value = 0;
    for (const char digit : digits) {
        const auto nibble = hex_digit(digit);
        if (!nibble) return std::nullopt;
        value = 16 * value + *nibble;
    }
    return static_cast<std::uint8_t>(value);
}

}  // namespace

std::optional<std::uint8_t> CalibrationWord::entered_byte() const {
    return byte_value(trim(form_.Text_Calib_Data.Text.get()));
}

std::optional<std::uint8_t> CalibrationWord::entered_bandgap() const {
    const auto value = byte_value(trim(form_.Text_BG.Text.get()));
    return value && *value <= kHighestBandgap ? value : std::nullopt;
}

Token CalibrationWord::check_entry(bool with_bandgap) const {
    if (is_kept()) return Token::OK;
    if (!entered_byte()) {
        messages_.ShowMessage(text::kNoEntry);
        return Token::NG;
    }
    if (with_bandgap && !entered_bandgap()) {
        messages_.ShowMessage(text::kNoBandgap);
        return Token::NG;
    }
    return Token::OK;
}

Token CalibrationWord::take_entry(std::uint8_t opcode, WordBits bits) {
    const auto entered = entered_byte();
    if (!entered) {
        messages_.ShowMessage(text::kNoEntry);
        return Token::NG;
    }
    const auto held = word_high_first(session_.CalibHi, session_.CalibLo);
    const auto wanted = word_high_first(opcode, *entered);
    if (bits == WordBits::OneTime && (held & wanted) != wanted) {
        messages_.ShowMessage(fmt::format(text::kCantTake, held, wanted));
        return Token::NG;
    }
    session_.CalibHi = opcode;
    session_.CalibLo = *entered;
    return Token::OK;
}

void CalibrationWord::take_bandgap_entry() {
    if (const auto entered = entered_bandgap()) session_.CalibBg = *entered;
}

void CalibrationWord::show_read() {
    form_.Lbl_Calib_ReadWrite_Data.Caption.set(
        "R:" + hex(word_high_first(session_.CalibHi, session_.CalibLo), 4) + ",");
}

void CalibrationWord::show_written(std::uint16_t word) {
    auto& caption = form_.Lbl_Calib_ReadWrite_Data.Caption;
    caption.set(caption.get() + "W:" + hex(word, 4));
}

void CalibrationWord::show_entry() { form_.Text_Calib_Data.Text.set(hex(session_.CalibLo, 2)); }

void CalibrationWord::show_bandgap() { form_.Text_BG.Text.set(hex(session_.CalibBg, 1)); }

void CalibrationWord::put_into_image() {
    const auto last = 2 * static_cast<std::size_t>(session_.PgmWords) - 2;
    session_.PgmMem[last] = session_.CalibHi;
    session_.PgmMem[last + 1] = session_.CalibLo;
}

void CalibrationWord::put_bandgap_into_image() {
    auto& high = session_.CfgIdMem[config_area::kConfig1];
    high = static_cast<std::uint8_t>(session_.CalibBg << 4 | (high & 0x0F));
    session_.ConfigWord[1] = config_area::word(session_.CfgIdMem, 1);
}

}  // namespace quillon
