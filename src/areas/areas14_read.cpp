// SPDX-License-Identifier: MIT
// Reads of the 14-bit parts, and the check of their identity.
#include <fmt/format.h>

#include <algorithm>
#include <chrono>

#include "areas/areas14.h"
#include "image/config_area.h"

namespace quillon {

namespace {

using namespace std::chrono_literals;

constexpr auto kReadLimit = 10s;
// The low five bits of the identity word are the revision. Up to this value the word names no part.
constexpr std::uint16_t kRevisionBits = 31;
constexpr int kIdentityShift = 5;
// Added to the identity, so that it is shown with its leading zeros behind a 1.
constexpr int kIdNumberBase = 4096;

std::uint16_t identity_of(std::span<const std::uint8_t> area) {
    return word_high_first(area[config_area::kIdentity] & 0x3F, area[config_area::kIdentity + 1]);
}

}  // namespace

SocketVerdict Areas14::Socket_Check() {
    IdentityCheck check{*record_.identity, messages_, context_.dialogs};
    check.begin();
    const auto reply = read_config_area(record_.config.check, kReadLimit);
    if (reply.empty()) return check.no_data();
    if (reply[bytes_of(record_.config.check)] != kEndCode) return check.no_end_code();
    const auto id = identity_of(reply);
    const bool empty = id <= kRevisionBits;
    const auto known =
        std::ranges::find(record_.devices, context_.form.Combo_device.Text.get(), &Device14::name);
    if (known == record_.devices.end())
        return check.judge(record_.other_devices_pass && !empty, empty);
    return check.judge(known->id == id >> kIdentityShift, empty);
}

Token Areas14::Read_Pgm() {
    if (!texts_.reading_pgm.empty()) messages_.ShowMessage(texts_.reading_pgm);
    const auto reply = read_area('p', session_.PgmWords, kNoLimit);
    const auto data = 2 * static_cast<std::size_t>(session_.PgmWords);
    if (reply[data] != kEndCode) return report(Token::NG, texts_.read_pgm_no_end_code);
    pgm_and_ = {};
    for (std::size_t i = 0; i < data; i += 2) pgm_and_.add(reply[i], reply[i + 1]);
    std::copy_n(reply.begin(), data, session_.PgmMem.begin());
    context_.views.ShowProgramMemory();
    return report(Token::OK, texts_.read_pgm_done);
}

Token Areas14::Read_Eep() {
    if (session_.EepBytes == 0) return report(Token::Absent, texts_.no_eep_to_read);
    if (!texts_.reading_eep.empty()) messages_.ShowMessage(texts_.reading_eep);
    const auto reply = read_area('d', session_.EepBytes, kReadLimit);
    if (reply.empty()) return report(Token::NG, texts_.read_eep_timeout);
    const auto data = 2 * static_cast<std::size_t>(session_.EepBytes);
    if (reply[data] != kEndCode) return report(Token::NG, texts_.read_eep_no_end_code);
    eep_and_ = {};
    for (std::size_t i = 0; i < data; i += 2) eep_and_.add(reply[i], reply[i + 1]);
    std::copy_n(reply.begin(), data, session_.EepMem.begin());
    context_.views.show_eeprom();
    return report(Token::OK, texts_.read_eep_done);
}

// Three digits each, with leading zeros.
void Areas14::show_identity(std::span<const std::uint8_t> area) {
    const auto id = identity_of(area);
    context_.form.Lbl_ID_Rev.Caption.set(fmt::format("{:03X}", id & kRevisionBits));
    context_.form.Lbl_ID_Dev.Caption.set(fmt::format("{:03X}", id >> kIdentityShift));
    if (record_.shows_id_number)
        context_.form.Label_DEV_id.Caption.set(
            fmt::format("{:X}", (id >> kIdentityShift) + kIdNumberBase));
}

Token Areas14::Read_Cfg() {
    session_.ConfigFromFile = true;
    if (!texts_.reading_cfg.empty()) messages_.ShowMessage(texts_.reading_cfg);
    const auto reply = read_config_area(record_.config.read, kReadLimit);
    if (reply.empty()) return report(Token::NG, texts_.read_cfg_timeout);
    const std::size_t data = bytes_of(record_.config.read);
    if (reply[data] != kEndCode) return report(Token::NG, texts_.read_cfg_no_end_code);
    show_identity(reply);
    std::copy_n(reply.begin(), data, session_.CfgIdMem.begin());
    config_area::mark_eprom2(session_);
    cfg_and_ = config_sum(reply);
    judge_protection(judged_config(reply), texts_.read_protected);
    context_.views.ShowConfigSummary();
    return report(Token::OK, texts_.read_cfg_done);
}

bool Areas14::read_was_blank() const {
    const bool eep_blank = session_.EepBytes == 0 || eep_and_.lo == 0xFF;
    return pgm_and_.value() == record_.blank_word && eep_blank && is_blank_config(cfg_and_.value());
}

}  // namespace quillon
