// SPDX-License-Identifier: MIT
// Blank checks, reads, the device check and erases; flash14_write.cpp has writes and verifies.
//
// Each routine: status line, power letter, letters, count, reply. Waits of program memory have no
// limit, since the board answers when the whole part is done.
#include "families/flash14.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <span>
#include <string>
#include <vector>

#include "families/config_area.h"
#include "families/flash14_texts.h"

namespace quillon {

namespace {

using namespace std::chrono_literals;
namespace text = flash14_text;

constexpr std::uint16_t kBlankWord = 0x3FFF;
constexpr std::uint16_t kIdentityBits = 0x3FFF;
// The five low bits of the identity word are the revision: up to here no part is named.
constexpr std::uint16_t kRevisionBits = 31;
constexpr int kIdentityShift = 5;
constexpr auto kReadLimit = 10s;
constexpr auto kEraseLimit = 3s;

// The ID words and configuration word 1; the three words between are the device's own.
void add_config(AndWord& sum, std::span<const std::uint8_t> reply) {
    for (std::size_t i = 0; i < config_area::kBytes; i += 2)
        if (i < config_area::kIdEnd || i >= config_area::kConfig1) sum.add(reply[i], reply[i + 1]);
}

}  // namespace

Token Flash14::fail(std::string_view message, std::string_view extra) {
    messages_.ShowMessage(message, extra);
    return Token::NG;
}

void Flash14::start_read(char area, std::int32_t count) {
    wire_.begin();
    wire_.send(std::string{'r', record_.algorithm, area});
    wire_.send_count(count);
}

// Empty where the limit has passed.
std::vector<std::uint8_t> Flash14::read_area(char area, std::int32_t count, Limit limit,
                                             Exchange::Bar bar) {
    start_read(area, count);
    const auto total = 2 * static_cast<std::size_t>(count) + 1;
    return wire_.read_stream(total, limit, bar) ? wire_.take() : std::vector<std::uint8_t>{};
}

std::vector<std::uint8_t> Flash14::read_config_area(Limit limit) {
    start_read('c', config_area::kWords);
    return wire_.read_config(limit);
}

void Flash14::judge_protection(std::uint16_t word, std::string_view message) {
    const bool is_protected = (word & session_.CpMask) != session_.CpMask;
    session_.CodeProtect = is_protected ? Token::CP : Token::Absent;
    if (is_protected) messages_.ShowMessage(message);
}

bool Flash14::is_blank_config(std::uint16_t value) const {
    return value == kBlankWord || value == session_.ConfigMask[1];
}

Token Flash14::Blank_Pgm() {
    messages_.ShowMessage(text::kBlankPgm);
    wire_.begin();
    wire_.send(std::string{'b', record_.algorithm});
    wire_.send_count(session_.PgmWords);
    wire_.wait(3, kNoLimit);
    const auto reply = wire_.take();
    if (reply[2] != kEndCode) {
        messages_.ShowMessage(text::kBlankPgmNoEndCode);
        return Token::ER;
    }
    return word_high_first(reply[0], reply[1]) == kBlankWord ? Token::YB : Token::NB;
}

Token Flash14::Blank_Eep() {
    if (session_.EepBytes == 0) return Token::Absent;
    messages_.ShowMessage(text::kBlankEep);
    const auto reply = read_area('d', session_.EepBytes, kReadLimit, Exchange::Bar::Shown);
    if (reply.empty()) {
        messages_.ShowMessage(text::kBlankEepTimeout);
        return Token::ER;
    }
    const auto data = 2 * static_cast<std::size_t>(session_.EepBytes);
    if (reply[data] != kEndCode) {
        messages_.ShowMessage(text::kBlankEepNoEndCode);
        return Token::ER;
    }
    AndWord sum;
    for (std::size_t i = 0; i < data; i += 2) sum.add(reply[i], reply[i + 1]);
    // A cell is the low byte; the high one holds nothing of it.
    return sum.lo == 0xFF ? Token::YB : Token::NB;
}

Token Flash14::Blank_Cfg() {
    messages_.ShowMessage(text::kBlankCfg);
    const auto reply = read_config_area(kNoLimit);
    if (reply[config_area::kBytes] != kEndCode) {
        messages_.ShowMessage(text::kBlankCfgNoEndCode);
        return Token::ER;
    }
    judge_protection(
        word_high_first(reply[config_area::kConfig1], reply[config_area::kConfig1 + 1]),
        text::kProtected);
    AndWord sum{.hi = 0x3F, .lo = 0xFF};
    add_config(sum, reply);
    return is_blank_config(sum.value()) ? Token::YB : Token::NB;
}

Token Flash14::Socket_Check() {
    messages_.ShowMessage(text::kChecking);
    const auto reply = read_config_area(kReadLimit);
    if (reply.empty()) return fail(text::kCheckTimeout);
    if (reply[config_area::kBytes] != kEndCode) return fail(text::kCheckNoEndCode);
    return judge_identity(static_cast<std::uint16_t>(
        word_high_first(reply[config_area::kIdentity], reply[config_area::kIdentity + 1]) &
        kIdentityBits));
}

Token Flash14::judge_identity(std::uint16_t id) {
    const auto& name = form_.Combo_device.Text.get();
    const auto known = std::ranges::find(record_.devices, name, &DeviceId::name);
    if (known != record_.devices.end() && known->id == id >> kIdentityShift) {
        messages_.ShowMessage(text::kCheckDone);
        return Token::OK;
    }
    if (id <= kRevisionBits) return fail(text::kSocketEmpty, text::kSocketHint);
    messages_.ShowMessage(text::kMismatch);
    const auto answer = context_.dialogs.box({
        .title = std::string{text::kMismatchTitle},
        .text = fmt::format("{}\r\n{}\r\n{}", text::kMismatch, text::kMismatchGoOn,
                            text::kMismatchStop),
        .icon = BoxIcon::Warning,
        .buttons = BoxButtons::OkCancel,
        .default_answer = BoxAnswer::Cancel,
        .name = "mismatch",
    });
    if (answer == BoxAnswer::Ok) return Token::OK;
    session_.Cancelled = true;
    return Token::NG;
}

Token Flash14::Read_Pgm() {
    messages_.ShowMessage(text::kReadingPgm);
    const auto data = 2 * static_cast<std::size_t>(session_.PgmWords);
    const auto reply = read_area('p', session_.PgmWords, kNoLimit, Exchange::Bar::Shown);
    if (reply[data] != kEndCode) return fail(text::kReadPgmNoEndCode);
    pgm_and_ = {};
    for (std::size_t i = 0; i < data; i += 2) pgm_and_.add(reply[i], reply[i + 1]);
    std::copy_n(reply.begin(), data, session_.PgmMem.begin());
    context_.views.ShowProgramMemory();
    messages_.ShowMessage(text::kReadPgmDone);
    return Token::OK;
}

Token Flash14::Read_Eep() {
    if (session_.EepBytes == 0) {
        messages_.ShowMessage(text::kNoEepToRead);
        return Token::Absent;
    }
    messages_.ShowMessage(text::kReadingEep);
    const auto data = 2 * static_cast<std::size_t>(session_.EepBytes);
    const auto reply = read_area('d', session_.EepBytes, kReadLimit, Exchange::Bar::Shown);
    if (reply.empty()) return fail(text::kReadEepTimeout);
    if (reply[data] != kEndCode) return fail(text::kReadEepNoEndCode);
    eep_and_ = {};
    for (std::size_t i = 0; i < data; i += 2) eep_and_.add(reply[i], reply[i + 1]);
    std::copy_n(reply.begin(), data, session_.EepMem.begin());
    context_.views.show_eeprom();
    messages_.ShowMessage(text::kReadEepDone);
    return Token::OK;
}

Token Flash14::Read_Cfg() {
    session_.ConfigFromFile = true;
    messages_.ShowMessage(text::kReadingCfg);
    const auto reply = read_config_area(kReadLimit);
    if (reply.empty()) return fail(text::kReadCfgTimeout);
    if (reply[config_area::kBytes] != kEndCode) return fail(text::kReadCfgNoEndCode);

    // Three digits each: 4096 is added so that the leading zeros stay.
    const auto id =
        word_high_first(reply[config_area::kIdentity] & 0x3F, reply[config_area::kIdentity + 1]);
    form_.Lbl_ID_Rev.Caption.set(
        fmt::format("{:03X}", reply[config_area::kIdentity + 1] & kRevisionBits));
    form_.Lbl_ID_Dev.Caption.set(fmt::format("{:03X}", id >> kIdentityShift));

    std::copy_n(reply.begin(), config_area::kBytes, session_.CfgIdMem.begin());
    cfg_and_ = {};
    add_config(cfg_and_, reply);
    judge_protection(
        word_high_first(reply[config_area::kConfig1], reply[config_area::kConfig1 + 1]),
        text::kReadProtected);
    context_.views.ShowConfigSummary();
    messages_.ShowMessage(text::kReadCfgDone);
    return Token::OK;
}

bool Flash14::read_was_blank() const {
    const bool eep_blank = session_.EepBytes == 0 || eep_and_.lo == 0xFF;
    return pgm_and_.value() == kBlankWord && eep_blank && is_blank_config(cfg_and_.value());
}

// Status line, pause, routine, and what to say where its word isn't OK.
struct Flash14::EraseStep {
    std::string_view status;
    std::chrono::milliseconds pause;
    Token (Flash14::*routine)();
    std::string_view failure;
};

std::span<const Flash14::EraseStep> Flash14::steps_of(EraseSteps steps) {
    static constexpr EraseStep kEepStep{text::kErasingEep, 100ms, &Flash14::Eep_Erase,
                                        text::kEraseEepFailed};
    static constexpr std::array kChipEep{
        EraseStep{text::kErasingChip, 100ms, &Flash14::Chip_Erase, text::kEraseChipFailed},
        kEepStep,
    };
    static constexpr std::array kCfgPgmEep{
        EraseStep{text::kErasingCfg, 0ms, &Flash14::Chip_Erase, text::kEraseCfgFailed},
        EraseStep{text::kErasingPgm, 100ms, &Flash14::Pgm_Erase, text::kErasePgmFailed},
        kEepStep,
    };
    switch (steps) {
        case EraseSteps::ChipEep:
            return kChipEep;
        case EraseSteps::CfgPgmEep:
            return kCfgPgmEep;
    }
    return {};
}

Token Flash14::Erase_All() {
    if (record_.erase_steps == EraseSteps::ChipEep) announce(text::kErasing);
    for (const auto& step : steps_of(record_.erase_steps)) {
        if (step.routine == &Flash14::Eep_Erase && session_.EepBytes == 0) continue;
        announce(step.status);
        if (step.pause > 0ms) host_.sleep(step.pause);
        if ((this->*step.routine)() != Token::OK) return fail(step.failure);
    }
    messages_.ShowMessage(text::kErased);
    return Token::OK;
}

Token Flash14::erase(std::uint8_t mode) {
    wire_.begin();
    wire_.send(record_.erase);
    wire_.send_unpaced(mode);
    const bool done = wire_.wait(1, kEraseLimit) && wire_.take().front() == kEndCode;
    messages_.ShowMessage(done ? text::kEraseGood : text::kEraseBad);
    return done ? Token::OK : Token::ER;
}

Token Flash14::Chip_Erase() { return erase(record_.mode.chip); }
Token Flash14::Pgm_Erase() { return erase(record_.mode.pgm); }
Token Flash14::Eep_Erase() { return erase(record_.mode.eep); }

}  // namespace quillon
