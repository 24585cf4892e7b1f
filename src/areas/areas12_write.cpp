// SPDX-License-Identifier: MIT
// Writes of the 12-bit parts.
#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <chrono>

#include "app/text.h"
#include "areas/areas12.h"
#include "image/config_area.h"

namespace quillon {

namespace {

using namespace std::chrono_literals;

constexpr auto kWriteLimit = 10s;
constexpr std::uint16_t kBlank = 0x0FFF;

// The value that the catalogue names: "retlw 0x80" ends in its two digits.
std::uint8_t default_value(std::string_view CalibText) {
    const auto digits =
        CalibText.substr(CalibText.size() - std::min<std::size_t>(2, CalibText.size()));
    std::uint8_t value = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    return value;
}

}  // namespace

// A part whose calibration word is lost or was never written gets the middle value.
void Areas12::put_default_calibration() {
    if (!has_calibration_word() || word_high_first(session_.CalibHi, session_.CalibLo) != kBlank)
        return;
    const auto last = 2 * static_cast<std::size_t>(session_.PgmWords) - 2;
    session_.PgmMem[last] = kMovlw12;
    session_.PgmMem[last + 1] = default_value(session_.CalibText);
}

// Configuration word with its protection open, program memory, ID words.
Areas12::Bytes Areas12::stream_to_write() const {
    const auto config =
        static_cast<std::uint16_t>(word_high_first(session_.CfgIdMem[config_area::kConfig1],
                                                   session_.CfgIdMem[config_area::kConfig1 + 1]) |
                                   session_.CpMask);
    Bytes stream{static_cast<std::uint8_t>(config >> 8), static_cast<std::uint8_t>(config)};
    std::ranges::copy(program_image(), std::back_inserter(stream));
    std::ranges::copy(std::span{session_.CfgIdMem}.first(config_area::kIdEnd),
                      std::back_inserter(stream));
    return stream;
}

Token Areas12::Write_Pgm() {
    if (record_.letters.write_pgm.empty()) return report(Token::NG, texts_.write_pgm_failed);
    put_default_calibration();
    wire_.begin();
    wire_.send(record_.letters.write_pgm);
    wire_.send_number(session_.PgmWords + kMoreWords12);
    const auto written =
        wire_.write_stream(stream_to_write(), {.abort = "@*", .limit = kWriteLimit});
    switch (written.end) {
        case WriteEnd::Done:
            return report(Token::OK, texts_.write_pgm_done);
        case WriteEnd::NoReady:
            return report(Token::NG, std::string{texts_.check_oscillator} +
                                         std::string{texts_.write_pgm_no_ready});
        case WriteEnd::Interrupted:
            return report(Token::NG, texts_.write_pgm_interrupted);
        case WriteEnd::NoReply:
            return report(Token::NG, std::string{texts_.check_oscillator} +
                                         std::string{texts_.write_pgm_no_reply});
        case WriteEnd::NoEndCode:
            return report(Token::NG, texts_.write_pgm_no_end_code);
    }
    return Token::NG;
}

Token Areas12::Write_Eep() { return report(Token::Absent, texts_.no_eep_to_write); }

Token Areas12::Write_Cfg() {
    const auto word = std::span{session_.CfgIdMem}.subspan(config_area::kConfig1, 2);
    wire_.begin();
    wire_.send(record_.letters.write_cfg);
    wire_.send_number(1);
    const auto written = wire_.write_stream(word, {.abort = "*", .limit = kWriteLimit});
    if (written.end == WriteEnd::Done) return report(Token::OK, texts_.write_cfg_done);
    const auto& reply = written.reply;
    const std::string read = reply.size() >= 3 ? hex_bytes(std::span{reply}.subspan(1, 2)) : "????";
    messages_.ShowMessage(fmt::format(areas12_text::kWriteCfgDetail, read, hex_bytes(word)) +
                          std::string{texts_.write_cfg_failed});
    // Some parts' fuses read back in the low digit alone. The verify that follows has the last
    // word.
    const bool low_digit =
        written.end == WriteEnd::NoEndCode && reply.size() >= 2 && reply[1] == (word[1] & 0x0F);
    return low_digit ? Token::OK : Token::NG;
}

}  // namespace quillon
