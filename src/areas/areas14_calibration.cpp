// SPDX-License-Identifier: MIT
// The calibration word of the 14-bit parts, read and written alone, and the band gap in the
// configuration word.
#include <fmt/format.h>

#include <array>
#include <chrono>

#include "areas/areas14.h"
#include "image/config_area.h"

namespace quillon {

namespace {

using namespace std::chrono_literals;

constexpr auto kReadLimit = 10s;
constexpr auto kWordLimit = 3s;
constexpr std::uint8_t kAreaWords = 8;

// A configuration area that changes the band gap alone: ID words and all other bits blank, the
// device's own words marked as not to be written.
std::array<std::uint8_t, 16> bandgap_area(std::uint8_t bandgap) {
    std::array<std::uint8_t, 16> area{};
    for (std::size_t i = 0; i < area.size(); i += 2) {
        const bool own = i >= config_area::kIdEnd && i < config_area::kConfig1;
        area[i] = own ? 0xBF : 0x3F;
        area[i + 1] = 0xFF;
    }
    area[config_area::kConfig1] = static_cast<std::uint8_t>(bandgap << 4 | 0x0F);
    return area;
}

}  // namespace

Token Areas14::Calibration_Entry() {
    if (record_.osccal == Osccal14::None) return Token::Absent;
    return calibration_.check_entry(has_bandgap());
}

// The address counts from 1, so the number of words is that of the last one.
Token Areas14::Word_Read() {
    if (record_.osccal == Osccal14::None) return report(Token::ER, texts_.read_word_failed);
    messages_.ShowMessage(texts_.reading_word);
    wire_.begin();
    wire_.send("br");
    wire_.send_number(session_.PgmWords);
    const auto reply = wire_.wait(3, kWordLimit) ? wire_.take() : Bytes{};
    if (reply.empty() || reply[2] != kEndCode) return report(Token::ER, texts_.read_word_failed);
    session_.CalibHi = reply[0];
    session_.CalibLo = reply[1];
    session_.word_known = true;
    return report(Token::OK, texts_.read_word_done);
}

// A bad contact or an altered byte must not end as the part's calibration. A word that is erased is
// no calibration any more and can't be lost.
Token Areas14::Calibration_Check() {
    if (record_.osccal == Osccal14::None || !calibration_.is_kept() ||
        session_.CalibHi == kRetlw14 || is_erased_word())
        return Token::OK;
    return report(Token::NG,
                  fmt::format(areas14_text::kBadCalibration, session_.CalibHi, session_.CalibLo));
}

bool Areas14::is_erased_word() const {
    return word_high_first(session_.CalibHi, session_.CalibLo) == record_.blank_word;
}

Token Areas14::Word_Restore() {
    if (!calibration_.is_kept() || !is_erased_word()) return Word_Write();
    session_.word_at_risk = false;
    return report(Token::Absent, fmt::format(areas14_text::kNoCalibration, record_.blank_word));
}

Token Areas14::Word_Write() {
    // It would overwrite the last word of the program.
    if (record_.osccal == Osccal14::None) return report(Token::ER, texts_.write_word_failed);
    messages_.ShowMessage(texts_.writing_word);
    wire_.begin();
    wire_.send("bw");
    wire_.send_number(session_.PgmWords);
    wire_.send_byte(kRetlw14);
    wire_.send_byte(session_.CalibLo);
    const bool done = wire_.wait(1, kWordLimit) && wire_.take().front() == kEndCode;
    if (done) session_.word_at_risk = false;
    return report(done ? Token::OK : Token::ER,
                  done ? texts_.write_word_done : texts_.write_word_failed);
}

Token Areas14::Cfg_Read_12F6() {
    if (!has_bandgap()) return Token::Absent;
    const auto area = read_config_area(kAreaWords, kReadLimit);
    if (area.empty()) return report(Token::NG, texts_.read_cfg_timeout);
    if (area[bytes_of(kAreaWords)] != kEndCode)
        return report(Token::NG, texts_.read_cfg_no_end_code);
    session_.CalibBg = area[config_area::kConfig1] >> 4 & 0x03;
    session_.bandgap_known = true;
    return Token::OK;
}

Token Areas14::Cfg_Write_12F6() {
    if (!has_bandgap()) return Token::Absent;
    wire_.begin();
    wire_.send("wec");
    wire_.send_number(kAreaWords);
    const auto written = wire_.write_config(bandgap_area(session_.CalibBg), config_limit());
    if (written.end != WriteEnd::Done) return report(Token::NG, texts_.write_cfg_failed);
    session_.bandgap_at_risk = false;
    return Token::OK;
}

Token Areas14::Take_Calibration() {
    WiredAreas::Take_Calibration();
    if (record_.osccal == Osccal14::None) return Token::OK;
    calibration_.show_read();
    if (calibration_.is_kept())
        calibration_.show_entry();
    else if (calibration_.take_entry(kRetlw14, record_.bits) == Token::NG)
        return Token::NG;
    else if (has_bandgap())
        calibration_.take_bandgap_entry();
    calibration_.put_into_image();
    if (has_bandgap()) {
        calibration_.put_bandgap_into_image();
        calibration_.show_bandgap();
    }
    context_.views.ShowProgramMemory();
    context_.views.ShowConfigSummary();
    return Token::OK;
}

Token Areas14::Show_Kept_Calibration() {
    calibration_.show_entry();
    calibration_.show_bandgap();
    return Token::OK;
}

Token Areas14::Take_Erase_Calibration() {
    if (!calibration_.is_kept()) {
        if (calibration_.take_entry(kRetlw14) == Token::NG) return Token::NG;
        calibration_.take_bandgap_entry();
    }
    calibration_.put_bandgap_into_image();
    context_.views.ShowConfigSummary();
    return Token::OK;
}

// The program of a part whose calibration was lost before calls a word that is no instruction of
// the factory's.
std::string Areas14::calibration_warning() const {
    if (record_.osccal == Osccal14::None || last_word_ >> 8 == kRetlw14) return {};
    return fmt::format(areas14_text::kNoCalibration, last_word_);
}

Token Areas14::Show_Calibration() {
    if (record_.osccal == Osccal14::None) return Token::Absent;
    calibration_.show_written(last_word_);
    return Token::OK;
}

}  // namespace quillon
