// SPDX-License-Identifier: MIT
// Writes of the 14-bit parts.
#include <fmt/format.h>

#include <array>
#include <chrono>
#include <span>
#include <string>

#include "app/text.h"
#include "areas/areas14.h"

namespace quillon {

namespace {

using namespace std::chrono_literals;
namespace text = areas14_text;

constexpr auto kWriteLimit = 10s;
// The words between ID and configuration are never written.
constexpr std::array<std::size_t, 3> kUntouchedWords{8, 10, 12};
constexpr std::uint8_t kDontWrite = 0x80;

std::string word_at(std::span<const std::uint8_t> bytes, std::size_t at) {
    return at + 1 < bytes.size() ? hex_bytes(bytes.subspan(at, 2)) : "????";
}

// The word that the board read back: behind its "*", or at the start of a reply without one.
std::string word_read_back(std::span<const std::uint8_t> reply) {
    if (reply.size() == 1) return hex(reply.front(), 4);
    return word_at(reply, reply.front() == kItemFailed ? 1 : 0);
}

}  // namespace

Token Areas14::Write_Pgm() {
    wire_.begin();
    wire_.send("w");
    wire_.send(record_.letters.write_pgm);
    wire_.send_number(session_.PgmWords);
    const auto image =
        std::span{session_.PgmMem}.first(2 * static_cast<std::size_t>(session_.PgmWords));
    const auto written = wire_.write_stream(image, {.abort = kEndCode, .limit = kWriteLimit});
    switch (written.end) {
        case WriteEnd::Done:
            return report(Token::OK, texts_.write_pgm_done);
        case WriteEnd::NoReady:
            // The shown number is that of the awaited word less two, as the product's text has it.
            return report(Token::NG, texts_.write_pgm_failed,
                          fmt::format(text::kWritePgmTimeoutAt,
                                      static_cast<std::uint16_t>(written.index / 2 - 2)));
        case WriteEnd::Interrupted:
            return report(Token::NG, texts_.write_pgm_interrupted);
        case WriteEnd::NoReply:
            return report(Token::NG, texts_.write_pgm_no_reply);
        case WriteEnd::NoEndCode:
            return report(Token::NG, texts_.write_pgm_no_end_code);
    }
    return Token::NG;
}

Token Areas14::Write_Eep() {
    if (session_.EepBytes == 0) return report(Token::Absent, texts_.no_eep_to_write);
    wire_.begin();
    wire_.send("w");
    wire_.send(record_.letters.write_eep);
    wire_.send_number(session_.EepBytes);
    const auto image =
        std::span{session_.EepMem}.first(2 * static_cast<std::size_t>(session_.EepBytes));
    const auto written = wire_.write_stream(image, {.abort = kItemFailed});
    if (written.end == WriteEnd::Done) return report(Token::OK, texts_.write_eep_done);
    if (written.end != WriteEnd::Interrupted)
        return report(Token::NG, texts_.write_eep_no_end_code);
    const auto cell = static_cast<std::ptrdiff_t>(written.index / 2) - 1;
    return report(Token::NG, texts_.write_eep_failed,
                  fmt::format(text::kWriteEepDetail, cell, word_at(image, written.index - 2),
                              word_at(written.reply, 1)));
}

Token Areas14::Write_Cfg() {
    wire_.begin();
    wire_.send("w");
    wire_.send(record_.letters.write_cfg);
    wire_.send_number(record_.config.write);
    const auto area = std::span{session_.CfgIdMem}.first(bytes_of(record_.config.write));
    Bytes image{area.begin(), area.end()};
    for (const auto i : kUntouchedWords) image[i] |= kDontWrite;
    const auto written = wire_.write_config(image);
    for (const auto i : kUntouchedWords) session_.CfgIdMem[i] &= 0x3F;
    if (written.end == WriteEnd::Done) return report(Token::OK, texts_.write_cfg_done);
    return report(Token::NG, texts_.write_cfg_failed,
                  fmt::format(text::kWriteCfgDetail, static_cast<int>(written.index / 2) - 1,
                              word_read_back(written.reply)));
}

}  // namespace quillon
