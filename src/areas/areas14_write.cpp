// SPDX-License-Identifier: MIT
// Writes of the 14-bit parts.
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <span>
#include <string>

#include "app/text.h"
#include "areas/areas14.h"
#include "image/config_area.h"

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
    if (reply.empty()) return "????";
    if (reply.size() == 1) return hex(reply.front(), 4);
    return word_at(reply, reply.front() == kItemFailed ? 1 : 0);
}

}  // namespace

std::string_view Areas14::write_pgm_letters() const {
    for (const auto& named : record_.letters.write_pgm_of)
        if (session_.DeviceName.starts_with(named.prefix)) return named.letters;
    return record_.letters.write_pgm;
}

Token Areas14::Write_Pgm() {
    wire_.begin();
    wire_.send("w");
    wire_.send(write_pgm_letters());
    wire_.send_number(session_.PgmWords);
    const auto written = wire_.write_stream(program_image(), {.abort = "@", .limit = kWriteLimit});
    switch (written.end) {
        case WriteEnd::Done:
            session_.word_at_risk = false;
            return report(Token::OK, texts_.write_pgm_done);
        case WriteEnd::NoReady:
            // The shown number is that of the awaited word less two, as the product's text has it.
            return report(Token::NG, texts_.write_pgm_failed,
                          fmt::format(texts_.write_pgm_timeout_at,
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
    if (record_.letters.write_eep.empty()) return report(Token::NG, texts_.write_eep_failed);
    wire_.begin();
    wire_.send("w");
    wire_.send(record_.letters.write_eep);
    wire_.send_number(session_.EepBytes);
    const auto image =
        std::span{session_.EepMem}.first(2 * static_cast<std::size_t>(session_.EepBytes));
    const auto written = wire_.write_stream(image, {.abort = "*"});
    if (written.end == WriteEnd::Done) return report(Token::OK, texts_.write_eep_done);
    if (written.end != WriteEnd::Interrupted)
        return report(Token::NG, texts_.write_eep_no_end_code);
    const auto cell = static_cast<std::ptrdiff_t>(written.index / 2) - 1;
    return report(Token::NG, texts_.write_eep_failed,
                  fmt::format(text::kWriteEepDetail, cell, word_at(image, written.index - 2),
                              word_at(written.reply, 1)));
}

Limit Areas14::config_limit() const {
    return record_.limits_config_write ? Limit{kWriteLimit} : kNoLimit;
}

// The device's own words, the identity among them, are written as they were read.
Token Areas14::Cfg_Patch_Read() {
    const auto device = read_config_area(record_.config.check, kNoLimit);
    if (device[bytes_of(record_.config.check)] != kEndCode)
        return report(Token::NG, texts_.patch_cfg_no_end_code);
    auto& copy = session_.CfgIdVerify;
    copy = session_.CfgIdMem;
    std::copy(device.begin() + config_area::kIdEnd, device.begin() + config_area::kConfig1,
              copy.begin() + config_area::kIdEnd);
    if (record_.swaps_id_bytes)
        for (std::size_t i = 0; i < config_area::kIdEnd; i += 2) std::swap(copy[i], copy[i + 1]);
    return Token::OK;
}

Token Areas14::Write_Cfg() {
    auto& source = record_.patches_config ? session_.CfgIdVerify : session_.CfgIdMem;
    wire_.begin();
    wire_.send("w");
    wire_.send(record_.letters.write_cfg);
    wire_.send_number(record_.config.write);
    const auto area = std::span{source}.first(bytes_of(record_.config.write));
    Bytes image{area.begin(), area.end()};
    if (record_.marks_own_words)
        for (const auto i : kUntouchedWords) image[i] |= kDontWrite;
    const auto written = wire_.write_config(image, config_limit());
    for (const auto i : kUntouchedWords) source[i] &= 0x3F;
    if (written.end == WriteEnd::Done) {
        session_.bandgap_at_risk = false;
        return report(Token::OK, texts_.write_cfg_done);
    }
    return report(Token::NG, texts_.write_cfg_failed,
                  fmt::format(texts_.write_cfg_detail, static_cast<int>(written.index / 2) - 1,
                              word_read_back(written.reply)));
}

}  // namespace quillon
