// SPDX-License-Identifier: MIT
// Verifies of the 14-bit parts.
#include <fmt/format.h>

#include <span>
#include <string>

#include "app/text.h"
#include "areas/areas14.h"
#include "areas/mismatch_list.h"
#include "image/config_area.h"

namespace quillon {

namespace {

// The device's ID digits as Text_ID shows them.
std::string id_digits(std::span<const std::uint8_t> area) {
    std::string digits;
    for (std::size_t i = 1; i < config_area::kIdEnd; i += 2) digits += hex(area[i] & 0x0FU, 1);
    return digits;
}

// The upper digits of the ID words are unused; the words behind them are the device's own.
bool same_config(std::span<const std::uint8_t> device, std::span<const std::uint8_t> image) {
    for (std::size_t i = 1; i < config_area::kIdEnd; i += 2)
        if ((device[i] & 0x0F) != (image[i] & 0x0F)) return false;
    return device[config_area::kConfig1] == image[config_area::kConfig1] &&
           device[config_area::kConfig1 + 1] == image[config_area::kConfig1 + 1];
}

}  // namespace

// Appends the list to the program view's text, from which the next verify or view removes it.
Token Areas14::list_mismatches(const std::string& list, std::string_view message) {
    auto& view = context_.form.RichTxtPgmMem.Text;
    view.set(view.get() + list);
    return report(Token::NG, message);
}

Token Areas14::Verify_Pgm() {
    const auto device = read_area('p', session_.PgmWords, kNoLimit);
    const auto words = static_cast<std::size_t>(session_.PgmWords);
    const auto& image = session_.PgmMem;
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
    if (session_.EepBytes == 0) return Token::Absent;
    const auto device = read_area('d', session_.EepBytes, kNoLimit);
    const auto cells = static_cast<std::size_t>(session_.EepBytes);
    MismatchList list;
    // A cell is the low byte; the high byte that the board sends has no meaning.
    for (std::size_t c = 0; c < cells; ++c)
        if (!list.compare(c, session_.EepMem[2 * c + 1], device[2 * c + 1])) break;
    if (!list.text().empty()) return list_mismatches(list.text(), texts_.verify_eep_failed);
    if (device[2 * cells] != kEndCode) return report(Token::NG, texts_.verify_eep_no_end_code);
    return Token::OK;
}

Token Areas14::Verify_Cfg() {
    config_found_ = {};
    const auto device = read_config_area(record_.config.verify, kNoLimit);
    judge_protection(device, texts_.is_protected);
    if (device[bytes_of(record_.config.verify)] != kEndCode)
        return report(Token::NG, texts_.verify_cfg_no_end_code);
    if (same_config(device, session_.CfgIdMem)) {
        config_found_ = {.config = "OK", .id = "OK"};
        return Token::OK;
    }
    config_found_ = {
        .config = hex_bytes(std::span{device}.subspan(config_area::kConfig1, 2)),
        .id = id_digits(device),
    };
    return report(Token::NG, std::string{texts_.verify_cfg_failed} +
                                 fmt::format(areas14_text::kVerifyCfgData, config_found_.config,
                                             config_found_.id));
}

}  // namespace quillon
