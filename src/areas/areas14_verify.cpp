// SPDX-License-Identifier: MIT
// Verifies of the 14-bit parts.
#include <fmt/format.h>

#include <chrono>
#include <span>
#include <string>

#include "app/text.h"
#include "areas/areas14.h"
#include "areas/mismatch_list.h"
#include "image/config_area.h"

namespace quillon {

namespace {

using namespace std::chrono_literals;

// The device's ID digits as Text_ID shows them.
std::string id_digits(std::span<const std::uint8_t> area) {
    std::string digits;
    for (std::size_t i = 1; i < config_area::kIdEnd; i += 2) digits += hex(area[i] & 0x0FU, 1);
    return digits;
}

constexpr auto kReadLimit = 10s;
constexpr std::uint16_t kWord14 = 0x3FFF;

}  // namespace

Token Areas14::Verify_Pgm() {
    const auto device = read_area('p', session_.PgmWords, kNoLimit);
    const auto words = static_cast<std::size_t>(session_.PgmWords);
    const auto& image = session_.PgmMem;
    last_word_ = word_high_first(device[2 * words - 2], device[2 * words - 1]);
    MismatchList list;
    for (std::size_t w = 0; w < words; ++w)
        if (!list.compare(w, word_high_first(image[2 * w], image[2 * w + 1]),
                          word_high_first(device[2 * w], device[2 * w + 1])))
            break;
    if (!list.text().empty()) return list_mismatches(list.text(), texts_.verify_pgm_failed);
    if (device[2 * words] != kEndCode) return report(Token::NG, texts_.verify_pgm_no_end_code);
    return Token::OK;
}

Token Areas14::Verify_Eep() {
    if (session_.EepBytes == 0) return report(Token::Absent, texts_.no_eep_to_verify);
    const bool limited = record_.limits_eep_verify;
    const auto device = read_area('d', session_.EepBytes, limited ? Limit{kReadLimit} : kNoLimit);
    if (device.empty()) return report(Token::NG, texts_.read_eep_timeout);
    const auto cells = static_cast<std::size_t>(session_.EepBytes);
    MismatchList list{limited ? MismatchList::Length::Full : MismatchList::Length::Limited};
    // A cell is the low byte; the high byte that the board sends has no meaning.
    for (std::size_t c = 0; c < cells; ++c)
        if (!list.compare(c, session_.EepMem[2 * c + 1], device[2 * c + 1])) break;
    if (!list.text().empty()) return list_mismatches(list.text(), texts_.verify_eep_failed);
    if (device[2 * cells] != kEndCode) return report(Token::NG, texts_.verify_eep_no_end_code);
    return Token::OK;
}

// The words between ID and configuration are the device's own.
bool Areas14::same_config(std::span<const std::uint8_t> device, IdWords id_words) const {
    const auto& image = session_.CfgIdMem;
    if (record_.compare == ConfigCompare::Digits) {
        for (std::size_t i = 1; i < config_area::kIdEnd; i += 2)
            if ((device[i] & 0x0F) != (image[i] & 0x0F)) return false;
        return device[config_area::kConfig1] == image[config_area::kConfig1] &&
               device[config_area::kConfig1 + 1] == image[config_area::kConfig1 + 1];
    }
    const auto word_of = [](const auto& bytes, std::size_t i) {
        return word_high_first(bytes[i], bytes[i + 1]);
    };
    const auto same = [](std::uint32_t one, std::uint32_t other) {
        return ((one ^ other) & kWord14) == 0;
    };
    if (id_words == IdWords::Compared)
        for (std::size_t i = 0; i < config_area::kIdEnd; i += 2)
            if (!same(word_of(device, i), word_of(image, i))) return false;
    const std::size_t end = bytes_of(record_.config.verify);
    for (std::size_t n = 1; n <= kConfigWords && config_area::place_of_word(n) < end; ++n) {
        if (!session_.ConfigPresent[n]) continue;
        const auto at = config_area::place_of_word(n);
        // A file may set bits that the word hasn't got. They read as they always do.
        const auto expected =
            (word_of(image, at) & session_.ConfigMask[n]) | session_.ConfigForce[n];
        if (!same(word_of(device, at), expected)) return false;
    }
    return true;
}

Token Areas14::Verify_Cfg() {
    return verify_config(record_.compare == ConfigCompare::Words ? IdWords::LeftOut
                                                                 : IdWords::Compared);
}

Token Areas14::Verify_Cfg_Id() { return verify_config(IdWords::Compared); }

Token Areas14::verify_config(IdWords id_words) {
    config_found_ = {};
    const auto device = read_config_area(record_.config.verify, kNoLimit, record_.config_ack);
    if (device.empty()) return report(Token::NG, texts_.verify_cfg_no_end_code);
    judge_protection(judged_config(device), texts_.is_protected);
    if (device[bytes_of(record_.config.verify)] != kEndCode)
        return report(Token::NG, texts_.verify_cfg_no_end_code);
    device_bandgap_ = device[config_area::kConfig1] >> 4 & 0x03;
    config_found_ = {
        .config = hex_bytes(std::span{device}.subspan(config_area::kConfig1, 2)),
        .id = id_digits(device),
    };
    if (same_config(device, id_words)) {
        if (record_.compare == ConfigCompare::Digits) config_found_ = {.config = "OK", .id = "OK"};
        return Token::OK;
    }
    const auto& found = config_found_;
    return report(Token::NG, std::string{texts_.verify_cfg_failed} +
                                 fmt::format(texts_.verify_cfg_data, found.config, found.id));
}

std::string Areas14::verify_note() const {
    if (record_.osccal == Osccal14::None) return {};
    std::string note;
    if (has_bandgap())
        note = fmt::format(areas14_text::kVerifyCalibration, device_bandgap_, last_word_);
    const auto last = 2 * static_cast<std::size_t>(session_.PgmWords) - 2;
    const auto in_image = word_high_first(session_.PgmMem[last], session_.PgmMem[last + 1]);
    if (in_image != kWord14 || last_word_ == in_image) return note;
    if (!note.empty()) note += "\r\n";
    return note + std::string{areas14_text::kFileHasNoCalibration};
}

}  // namespace quillon
