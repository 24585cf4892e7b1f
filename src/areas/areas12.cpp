// SPDX-License-Identifier: MIT
// Blank checks, the calibration word, and what all routines share.
#include "areas/areas12.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <string_view>

#include "image/config_area.h"

namespace quillon {

namespace {

using namespace std::chrono_literals;

constexpr std::uint16_t kBlank = 0x0FFF;
constexpr int kWordsPerMillisecond = 5;
constexpr std::uint16_t kOscillatorBits = 0x0003;
// The value of these bits is the index.
constexpr std::array<std::string_view, 4> kOscillators{
    "オシレータタイプ　：　ＬＰ",
    "オシレータタイプ　：　ＸＴ",
    "オシレータタイプ　：　ＨＳ",
    "オシレータタイプ　：　ＲＣ",
};
// The oscillator's bits of these parts don't count as content.
constexpr std::array<std::string_view, 4> kOscillatorIgnored{
    "PIC16C54",
    "PIC16C55",
    "PIC16C56",
    "PIC16C57",
};

}  // namespace

Areas12::Areas12(RunContext& context, const Areas12Record& record)
    : WiredAreas{context, power_letter(context.session.PowerMode)},
      record_{record},
      texts_{*record.texts} {}

// More bytes behind the end code are no part of the stream; one before it makes it no stream.
bool Areas12::Stream::is_whole() const {
    return bytes[2 * (words + static_cast<std::size_t>(kMoreWords12))] == kEndCode;
}

std::uint16_t Areas12::Stream::word(std::size_t index) const {
    return word_high_first(bytes[2 * index], bytes[2 * index + 1]);
}

std::span<const std::uint8_t> Areas12::Stream::program_bytes() const {
    return std::span{bytes}.subspan(2, 2 * words);
}

std::span<const std::uint8_t> Areas12::Stream::id_bytes() const {
    return std::span{bytes}.subspan(2 + 2 * words, config_area::kIdEnd);
}

Areas12::Stream Areas12::read_stream() {
    const auto words = static_cast<std::size_t>(session_.PgmWords);
    return {
        .bytes = read_words(record_.letters.read_pgm, session_.PgmWords + kMoreWords12, kNoLimit),
        .words = words};
}

std::optional<std::uint16_t> Areas12::and_of_words(std::int32_t count) {
    wire_.begin();
    wire_.send(record_.letters.blank);
    wire_.send_number(count);
    const std::size_t words = record_.blank_reply == BlankReply12::ConfigAndWord ? 2 : 1;
    wire_.wait(2 * words + 1, kNoLimit, kUsualReply + count / kWordsPerMillisecond * 1ms);
    const auto reply = wire_.take();
    if (reply[2 * words] != kEndCode) return std::nullopt;
    return word_high_first(reply[2 * words - 2], reply[2 * words - 1]);
}

Token Areas12::Blank_Pgm() {
    messages_.ShowMessage(texts_.blank_pgm);
    knows_calibration_ = false;
    const auto count = session_.PgmWords + (record_.osccal ? 0 : kMoreWords12);
    const auto sum = and_of_words(count);
    if (!sum) return report(Token::ER, texts_.blank_pgm_no_end_code);
    if (*sum != kBlank) return blank_verdict(false);
    return record_.osccal ? blank_osccal() : blank_verdict(true);
}

// With one word more the sum takes the calibration word in, and is that word where all others are
// blank. The words behind program memory must not add a zero bit to it.
Token Areas12::blank_osccal() {
    const auto calibration = and_of_words(session_.PgmWords + 1);
    if (!calibration) return report(Token::ER, texts_.blank_pgm_no_end_code);
    take_calibration_word(*calibration);
    const auto all = and_of_words(session_.PgmWords + kMoreWords12);
    if (!all) return report(Token::ER, texts_.blank_pgm_no_end_code);
    return blank_verdict(*all == *calibration);
}

void Areas12::take_calibration_word(std::uint16_t word) {
    session_.CalibHi = static_cast<std::uint8_t>(word >> 8);
    session_.CalibLo = static_cast<std::uint8_t>(word);
    knows_calibration_ = true;
}

std::optional<std::uint16_t> Areas12::read_config_word() {
    wire_.begin();
    wire_.send(record_.letters.read_cfg);
    wire_.send_number(1);
    wire_.wait(3, kNoLimit);
    const auto reply = wire_.take();
    if (reply[2] != kEndCode) return std::nullopt;
    config_ = word_high_first(reply[0], reply[1]);
    return config_;
}

bool Areas12::is_blank_config(std::uint16_t word) const {
    if (std::ranges::find(kOscillatorIgnored, session_.DeviceName) == kOscillatorIgnored.end())
        return word == kBlank;
    return (word & ~kOscillatorBits) == (kBlank & ~kOscillatorBits);
}

Token Areas12::Blank_Cfg() {
    messages_.ShowMessage(texts_.blank_cfg);
    const auto word = read_config_word();
    if (!word) return report(Token::ER, texts_.blank_cfg_no_end_code);
    judge_protection(*word, texts_.is_protected);
    return blank_verdict(is_blank_config(*word));
}

BlankNotes Areas12::blank_notes() const {
    const auto oscillator = config_ & kOscillatorBits;
    if (record_.names_oscillator) return {.status = std::string{kOscillators[oscillator]}};
    BlankNotes notes{.oscillator = blank_verdict(oscillator == kOscillatorBits)};
    if (knows_calibration_)
        notes.report =
            fmt::format(areas12_text::kCalibrationWord,
                        word_high_first(session_.CalibHi, session_.CalibLo), session_.CalibLo);
    notes.status = notes.report;
    return notes;
}

SocketVerdict Areas12::Socket_Check() {
    messages_.ShowMessage(texts_.checking_socket);
    return SocketVerdict::Same;
}

Token Areas12::Calibration_Entry() {
    return record_.osccal ? calibration_.check_entry(false) : Token::Absent;
}

Token Areas12::Word_Read() { return report(Token::ER, texts_.read_word_failed); }
Token Areas12::Word_Write() { return report(Token::ER, texts_.write_word_failed); }

// A one-time word must not be written from a value of another part: where the blank check hasn't
// given the word, the part is read.
Token Areas12::Take_Calibration() {
    WiredAreas::Take_Calibration();
    if (!record_.osccal) return Token::OK;
    if (!knows_calibration_) {
        const auto stream = read_stream();
        if (!stream.is_whole()) return report(Token::NG, texts_.read_pgm_no_end_code);
        take_calibration_word(stream.program(stream.words - 1));
    }
    calibration_.show_read();
    if (calibration_.is_kept())
        calibration_.show_entry();
    else if (calibration_.take_entry(kMovlw12, WordBits::OneTime) == Token::NG)
        return Token::NG;
    calibration_.put_into_image();
    context_.views.ShowProgramMemory();
    return Token::OK;
}

std::string Areas12::calibration_warning() const {
    if (!record_.osccal || word_back_ >> 8 == kMovlw12) return {};
    return fmt::format(areas14_text::kNoCalibration, word_back_);
}

Token Areas12::Show_Calibration() {
    if (!record_.osccal) return Token::Absent;
    calibration_.show_written(word_back_);
    return Token::OK;
}

}  // namespace quillon
