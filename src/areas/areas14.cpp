// SPDX-License-Identifier: MIT
// Blank checks and erases, and what all routines share.
//
// Each routine: status line, power letter, letters, count, reply.
#include "areas/areas14.h"

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

Dialect dialect_of(const DeviceRecord& device) { return {.power = power_letter(device.PowerMode)}; }

}  // namespace

Areas14::Areas14(RunContext& context, const Areas14Record& record)
    : context_{context},
      session_{context.session},
      messages_{context.messages},
      record_{record},
      texts_{*record.texts},
      wire_{dialect_of(context.session), context.host, context.port, context.messages} {}

Token Areas14::report(Token token, std::string_view message, std::string_view extra) {
    messages_.ShowMessage(message, extra);
    return token;
}

void Areas14::start_read(char area, std::int32_t count) {
    wire_.begin();
    wire_.send(std::string{'r', record_.letters.read, area});
    wire_.send_number(count);
}

Areas14::Bytes Areas14::read_area(char area, std::int32_t count, Limit limit) {
    start_read(area, count);
    const auto total = 2 * static_cast<std::size_t>(count) + 1;
    return wire_.read_stream(total, limit) ? wire_.take() : Bytes{};
}

Areas14::Bytes Areas14::read_config_area(std::uint8_t words, Limit limit) {
    start_read('c', words);
    return wire_.read_config(bytes_of(words), limit);
}

void Areas14::judge_protection(std::span<const std::uint8_t> area, std::string_view message) {
    const auto word = word_high_first(area[config_area::kConfig1], area[config_area::kConfig1 + 1]);
    const bool is_protected = (word & session_.CpMask) != session_.CpMask;
    session_.CodeProtect = {.pgm = is_protected, .eep = is_protected};
    if (is_protected) messages_.ShowMessage(message);
}

// The ID words and the words from configuration word 1 on; those between are the device's own.
AndWord Areas14::config_sum(std::span<const std::uint8_t> area) const {
    AndWord sum{.hi = 0x3F, .lo = 0xFF};
    for (std::size_t i = 0; i < config_area::kConfig1 + 2; i += 2)
        if (i < config_area::kIdEnd || i >= config_area::kConfig1) sum.add(area[i], area[i + 1]);
    return sum;
}

bool Areas14::is_blank_config(std::uint16_t value) const {
    return value == record_.blank_word || value == session_.ConfigMask[1];
}

Token Areas14::Blank_Pgm() {
    messages_.ShowMessage(texts_.blank_pgm);
    wire_.begin();
    wire_.send(std::string{'b', record_.letters.read});
    wire_.send_number(session_.PgmWords);
    wire_.wait(3, kNoLimit, kUsualReply + session_.PgmWords / kWordsPerMillisecond * 1ms);
    const auto reply = wire_.take();
    if (reply[2] != kEndCode) return report(Token::ER, texts_.blank_pgm_no_end_code);
    return word_high_first(reply[0], reply[1]) == record_.blank_word ? Token::YB : Token::NB;
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
    return sum.lo == 0xFF ? Token::YB : Token::NB;
}

Token Areas14::Blank_Cfg() {
    messages_.ShowMessage(texts_.blank_cfg);
    const auto reply = read_config_area(record_.config.blank, kNoLimit);
    if (reply[bytes_of(record_.config.blank)] != kEndCode)
        return report(Token::ER, texts_.blank_cfg_no_end_code);
    judge_protection(reply, texts_.is_protected);
    return is_blank_config(config_sum(reply).value()) ? Token::YB : Token::NB;
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
