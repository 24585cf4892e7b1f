// SPDX-License-Identifier: MIT
// The operations on a single area, and on the calibration word.
#include <algorithm>
#include <span>

#include "areas/calibration_word.h"
#include "families/operation.h"
#include "families/reading_config.h"
#include "image/fill.h"

namespace quillon {

namespace {

Outcome outcome_of(Token token) {
    return token == Token::NG || token == Token::ER ? Outcome::Failed : Outcome::Success;
}

}  // namespace

Outcome Operation::reload(std::span<const Step> steps, std::string_view done,
                          std::string_view failed) {
    const bool stopped = run_steps(steps, *areas_, context_).stopped;
    announce(stopped ? failed : done);
    context_.link.Writer_Close();
    return stopped ? Outcome::Failed : Outcome::Success;
}

Outcome Operation::Pgm_Reload() {
    context_.views.ShowProgramMemory();
    return reload(record_.reload_pgm, texts_.reload_pgm_done, "");
}

Outcome Operation::Eep_Reload() {
    if (session_.EepBytes == 0) {
        messages_.ShowMessage(texts_.no_eeprom);
        return Outcome::Failed;
    }
    context_.views.show_eeprom();
    return reload(record_.reload_eep, texts_.reload_eep_done, texts_.reload_eep_failed);
}

Outcome Operation::erase(std::span<const Step> steps) {
    const auto done = run_steps(steps, *areas_, context_);
    if (done.refused) return Outcome::NoBoard;
    return done.failed ? Outcome::Failed : Outcome::Success;
}

Outcome Operation::Erase_All() {
    const auto outcome = erase(record_.erase_chip.empty() ? record_.erase : record_.erase_chip);
    if (outcome == Outcome::Success && !texts_.erased.empty()) messages_.ShowMessage(texts_.erased);
    return outcome;
}
Outcome Operation::Pgm_Erase() { return erase(record_.erase_pgm); }
Outcome Operation::Eep_Erase() { return erase(record_.erase_eep); }

Outcome Operation::Read_Pgm() {
    const ReadingConfig reading{session_.ConfigFromFile};
    announce(texts_.reading_pgm);
    auto token = areas_->Read_Pgm();
    if (token != Token::NG) token = areas_->Read_Cfg();
    if (token == Token::NG) {
        context_.views.ShowConfigSummary();  // what has been read is in the image
        return Outcome::Failed;
    }
    refresh_after_read();
    // A protected part doesn't answer with its content.
    return shows_protection() ? Outcome::Failed : Outcome::Success;
}

// A cell's high byte has ones in an open part: nothing but zeros is the answer of a protected one,
// whose configuration this operation doesn't read.
Outcome Operation::Read_Eep() {
    announce(texts_.reading_eep);
    if (areas_->Read_Eep() != Token::OK) return Outcome::Failed;
    const auto bytes = std::span{session_.EepMem}.first(eeprom_span(session_));
    session_.CodeProtect.eep = has_word_eeprom(session_.PgmType) &&
                               std::ranges::all_of(bytes, [](auto byte) { return byte == 0; });
    return session_.CodeProtect.any() ? Outcome::Failed : Outcome::Success;
}

Outcome Operation::Word_Read() {
    const auto outcome = outcome_of(areas_->Word_Read());
    if (outcome != Outcome::Success) return outcome;
    CalibrationWord word{session_, form_, messages_};
    word.show_read();
    word.show_entry();
    return outcome;
}

Outcome Operation::Word_Write() {
    CalibrationWord word{session_, form_, messages_};
    if (word.take_entry(kRetlw14) == Token::NG) return Outcome::Failed;
    return outcome_of(areas_->Word_Write());
}

}  // namespace quillon
