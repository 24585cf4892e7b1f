// SPDX-License-Identifier: MIT
// Blank checks and erases, and what all routines share.
//
// Each routine: status line, power letter, letters, count, reply.
#include "areas/areas14.h"

#include <algorithm>
#include <chrono>
#include <string>

#include "image/config_area.h"

namespace quillon {

namespace {

using namespace std::chrono_literals;

constexpr auto kReadLimit = 10s;
constexpr auto kEraseLimit = 3s;
// The board reads the part word by word before it answers a blank check.
constexpr int kWordsPerMillisecond = 5;
constexpr std::uint8_t kWordsPerBlock = 8;
constexpr std::uint8_t kBandgapBits = 0x30;  // of configuration word 1's high byte

}  // namespace

Areas14::Areas14(RunContext& context, const Areas14Record& record)
    : WiredAreas{context, power_letter(context.session.PowerMode)},
      record_{record},
      texts_{*record.texts} {}

Areas14::Bytes Areas14::read_area(char area, std::int32_t count, Limit limit) {
    return read_words(std::string{'r', record_.letters.read, area}, count, limit);
}

Areas14::Bytes Areas14::read_config_area(std::uint8_t words, Limit limit, ConfigAck ack) {
    Bytes area;
    if (words > kWordsPerBlock && words % kWordsPerBlock == 0) {
        area = read_area('c', words, kReadLimit);
    } else {
        wire_.begin();
        wire_.send(std::string{'r', record_.letters.read, 'c'});
        wire_.send_number(words);
        area = ack == ConfigAck::AtOnce ? wire_.read_config_at_once(bytes_of(words))
                                        : wire_.read_config(bytes_of(words), limit);
    }
    if (record_.swaps_id_bytes && !area.empty())
        for (std::size_t i = 0; i < config_area::kIdEnd; i += 2) std::swap(area[i], area[i + 1]);
    return area;
}

std::uint16_t Areas14::judged_config(std::span<const std::uint8_t> area) const {
    auto high = area[config_area::kConfig1];
    if (has_bandgap()) high |= kBandgapBits;
    return word_high_first(high, area[config_area::kConfig1 + 1]);
}

// The ID words and the words from configuration word 1 on; those between are the device's own.
AndWord Areas14::config_sum(std::span<const std::uint8_t> area) const {
    AndWord sum{.hi = 0x3F, .lo = 0xFF};
    for (std::size_t i = 0; i < config_area::kIdEnd; i += 2) sum.add(area[i], area[i + 1]);
    const auto config = judged_config(area);
    sum.add(static_cast<std::uint8_t>(config >> 8), static_cast<std::uint8_t>(config));
    return sum;
}

bool Areas14::is_blank_config(std::uint16_t value) const {
    constexpr std::uint16_t kOnes = 0x3FFF;  // the two bits above them are a parity or nothing
    return value == kOnes || value == session_.ConfigMask[1];
}

Token Areas14::Blank_Pgm() {
    messages_.ShowMessage(texts_.blank_pgm);
    const auto count = session_.PgmWords - record_.blank_leaves_out;
    wire_.begin();
    wire_.send(std::string{'b', record_.letters.read});
    wire_.send_number(count);
    wire_.wait(3, kNoLimit, kUsualReply + count / kWordsPerMillisecond * 1ms);
    const auto reply = wire_.take();
    if (reply[2] != kEndCode) return report(Token::ER, texts_.blank_pgm_no_end_code);
    return blank_verdict(word_high_first(reply[0], reply[1]) == record_.blank_word);
}

Token Areas14::Blank_Eep() {
    if (session_.EepBytes == 0) return Token::Absent;
    messages_.ShowMessage(texts_.blank_eep);
    const auto reply = read_area('d', session_.EepBytes, kReadLimit);
    if (reply.empty()) return report(Token::ER, texts_.blank_eep_timeout);
    const auto data = 2 * static_cast<std::size_t>(session_.EepBytes);
    if (reply[data] != kEndCode) return report(Token::ER, texts_.blank_eep_no_end_code);
    AndWord sum;
    for (std::size_t i = 0; i < data; i += 2) sum.add(reply[i], reply[i + 1]);
    // A cell is the low byte; the high byte is unused.
    return blank_verdict(sum.lo == 0xFF);
}

Token Areas14::Blank_Cfg() {
    messages_.ShowMessage(texts_.blank_cfg);
    const auto reply = read_config_area(record_.config.blank, kNoLimit, record_.config_ack);
    if (reply.empty() || reply[bytes_of(record_.config.blank)] != kEndCode)
        return report(Token::ER, texts_.blank_cfg_no_end_code);
    judge_protection(judged_config(reply), texts_.is_protected);
    return blank_verdict(is_blank_config(config_sum(reply).value()));
}

Token Areas14::erase(std::uint8_t mode) {
    wire_.begin();
    wire_.send(record_.letters.erase);
    wire_.send_unpaced(mode);
    const bool done = wire_.wait(1, kEraseLimit) && wire_.take().front() == kEndCode;
    messages_.ShowMessage(done ? texts_.erase_good : texts_.erase_bad);
    return done ? Token::OK : Token::ER;
}

Token Areas14::Chip_Erase() { return erase(record_.erase.chip); }
Token Areas14::Pgm_Erase() { return erase(record_.erase.pgm); }
Token Areas14::Eep_Erase() { return erase(record_.erase.eep); }

}  // namespace quillon
