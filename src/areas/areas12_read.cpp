// SPDX-License-Identifier: MIT
// Reads and verifies of the 12-bit parts.
#include <fmt/format.h>

#include <algorithm>

#include "app/text.h"
#include "areas/areas12.h"
#include "areas/mismatch_list.h"
#include "image/config_area.h"

namespace quillon {

namespace {

constexpr std::uint16_t kBlank = 0x0FFF;

void add_all(AndWord& sum, std::span<const std::uint8_t> words) {
    for (std::size_t i = 0; i < words.size(); i += 2) sum.add(words[i], words[i + 1]);
}

}  // namespace

// The calibration word goes to its field and not into the image, which holds what is to be written.
Token Areas12::Read_Pgm() {
    const auto stream = read_stream();
    if (!stream.is_whole()) return report(Token::NG, texts_.read_pgm_no_end_code);
    auto program = stream.program_bytes();
    if (has_calibration_word()) {
        take_calibration_word(stream.program(stream.words - 1));
        session_.CalibText = "movlw 0x" + hex(session_.CalibLo, 2);
        calibration_.show_entry();
        program = program.first(program.size() - 2);
    }
    std::ranges::copy(program, session_.PgmMem.begin());
    std::ranges::copy(stream.id_bytes(), session_.CfgIdMem.begin());
    std::copy_n(stream.bytes.begin(), 2, session_.CfgIdMem.begin() + config_area::kConfig1);
    and_ = {};
    add_all(and_, program);
    add_all(and_, stream.id_bytes());
    context_.views.ShowProgramMemory();
    context_.views.ShowConfigSummary();
    session_.IdText = context_.form.Text_ID.Text.get();
    return Token::OK;
}

Token Areas12::Read_Eep() { return report(Token::Absent, texts_.no_eep_to_read); }

Token Areas12::Read_Cfg() {
    session_.ConfigFromFile = true;
    const auto word = read_config_word();
    if (!word) return report(Token::NG, texts_.read_cfg_no_end_code);
    config_area::put_word(session_, 1, *word);
    judge_protection(*word, "");
    context_.views.ShowConfigSummary();
    return Token::OK;
}

bool Areas12::read_was_blank() const {
    return (and_.value() & kBlank) == kBlank && is_blank_config(config_);
}

Token Areas12::Verify_Pgm() {
    const auto stream = read_stream();
    const auto& image = session_.PgmMem;
    const auto& id = session_.CfgIdMem;
    word_back_ = stream.program(stream.words - 1);
    const auto compared = stream.words - (has_calibration_word() ? 1 : 0);
    if (has_calibration_word()) take_calibration_word(word_back_);
    MismatchList list;
    bool goes_on = true;
    for (std::size_t w = 0; goes_on && w < compared; ++w)
        goes_on =
            list.compare(w, word_high_first(image[2 * w], image[2 * w + 1]), stream.program(w));
    // The upper digits of an ID word are unused.
    for (std::size_t n = 0; goes_on && n < config_area::kIdEnd / 2; ++n)
        goes_on = list.compare(stream.words + n, id[2 * n + 1] & 0x0F,
                               stream.program(stream.words + n) & 0x0F);
    if (!list.text().empty()) return list_mismatches(list.text(), texts_.verify_pgm_failed);
    return stream.is_whole() ? Token::OK : report(Token::NG, texts_.verify_pgm_no_end_code);
}

Token Areas12::Verify_Eep() { return report(Token::Absent, texts_.no_eep_to_verify); }

Token Areas12::Verify_Cfg() {
    config_found_ = {};
    const auto word = read_config_word();
    if (!word) return report(Token::NG, texts_.verify_cfg_no_end_code);
    judge_protection(*word, texts_.is_protected);
    config_found_.config = hex(*word, 4);
    const auto expected = word_high_first(session_.CfgIdMem[config_area::kConfig1],
                                          session_.CfgIdMem[config_area::kConfig1 + 1]);
    if (((*word ^ expected) & kBlank) == 0) return Token::OK;
    return report(Token::NG, std::string{texts_.verify_cfg_failed} +
                                 fmt::format(areas12_text::kVerifyCfgData, config_found_.config));
}

}  // namespace quillon
