// SPDX-License-Identifier: MIT
// What isn't written in a row is the template's of its group, below.
#include "families/generic.h"

#include <algorithm>
#include <array>

#include "areas/areas12.h"
#include "areas/areas14.h"
#include "families/generic_identities.h"
#include "families/generic_texts.h"
#include "families/named_erase.h"
#include "families/steps_generic.h"

namespace quillon {

namespace {

using enum ProgrammingType;
namespace steps = steps_generic;

// The write letters of the first flash generation, by the beginning of the device's name.
constexpr std::array kFlash0Letters{
    LettersByName{"PIC16F87", "e8"},
    LettersByName{"PIC16F62", "e5"},
    LettersByName{"PIC16F7", "e1"},
};

// A row for each type of flash part is a change of this one.
constexpr Areas14Record kAreas14{
    .devices = kGenericIdentities,
    .other_devices_pass = true,
    .letters = {.write_pgm = "", .write_eep = "", .write_cfg = "ec"},
    .blank_leaves_out = 1,
    .config_ack = ConfigAck::AtOnce,
    .compare = ConfigCompare::Words,
    .patches_config = true,
    .limits_config_write = true,
    .limits_eep_verify = true,
    .shows_id_number = true,
    .words = {.blank = Token::OK, .used = Token::NG},
    .texts = &generic_text::kAreas14,
    .identity = &generic_text::kIdentity,
};

constexpr Areas14Record with_letters(Letters14 letters, Areas14Record record = kAreas14) {
    record.letters = letters;
    return record;
}

constexpr Areas14Record with_osccal(Osccal14 osccal, Areas14Record record) {
    record.osccal = osccal;
    record.blank_leaves_out = 0;
    return record;
}

constexpr Areas14Record one_time(Areas14Record record) {
    record.bits = WordBits::OneTime;
    return record;
}

// Words with two parity bits above the 14.
constexpr Areas14Record with_parity(Areas14Record record) {
    record.blank_word = 0xFFFF;
    record.swaps_id_bytes = true;
    record.marks_own_words = false;
    return record;
}

// A second configuration word: an area of 16 words, of which nine are written.
constexpr Areas14Record with_second_config(Areas14Record record) {
    record.config = {.blank = 16, .read = 16, .verify = 16, .check = 8, .write = 9};
    return record;
}

constexpr OperationRecord kOperation14{
    .before = steps::kBefore,
    .erase = {},
    .write = steps::kWriteStage14,
    .erase_chip = steps::kEraseChip,
    .reload_eep = steps::kReloadEep,
    .blank_report = BlankReport::OwnAreas,
    .pauses_without_check = true,
    .pauses_after_verify = false,
    .counts_check_time = true,
    .hides_config_of_side = true,
    .texts = &generic_text::kOperation14,
};

constexpr OperationRecord kOperation12 = [] {
    OperationRecord record = kOperation14;
    record.before = steps::kBeforeEntry;
    record.write = steps::kWriteStage12;
    record.texts = &generic_text::kOperation12;
    return record;
}();

constexpr OperationRecord kOscillator12 = [] {
    OperationRecord record = kOperation12;
    record.before = steps::kBefore;
    record.blank_report = BlankReport::StatusOnly;
    record.blank_config_first = true;
    return record;
}();

// `chip` and `pgm`: the per-area dialog's erases.
constexpr OperationRecord flash(std::span<const Step> chip, std::span<const Step> pgm,
                                std::span<const Step> before = steps::kBefore) {
    OperationRecord record = kOperation14;
    record.before = before;
    record.erase = steps::kErase;
    record.erase_chip = chip;
    record.erase_pgm = pgm;
    return record;
}

constexpr OperationRecord kOneTimeWithWord = [] {
    OperationRecord record = kOperation14;
    record.before = steps::kBeforeWord;
    return record;
}();

constexpr std::span<const Step> kByName = steps14::kErasePgm;
constexpr std::span<const Step> kByChip = steps::kErasePgmByChip;

// Letters behind the power letter and "w": program memory, EEPROM, configuration.
constexpr std::array kGeneric14{
    Generic14{T12C6, one_time(with_osccal(Osccal14::Word, with_letters({'s', "sp", "", "sc"}))),
              kOneTimeWithWord},
    Generic14{T12F6, with_osccal(Osccal14::WordAndBandgap, with_letters({'s', "ee", "ed", "ec"})),
              flash(steps::kEraseChip12F6, steps::kErasePgm12F6, steps::kBeforeWord)},
    Generic14{EPROM, with_letters({'s', "sp", "", "sc"}), kOperation14},
    Generic14{EPROM2, with_parity(with_letters({'S', "Sp", "", "Sc"})), kOperation14},
    Generic14{FLASH0, with_letters({'s', "ef", "ed", "ec", "bd", kFlash0Letters}),
              flash(steps::kEraseChip, kByName)},
    Generic14{FLASH1, with_letters({'s', "e8", "ed", "ec"}), flash(steps::kEraseChip, kByChip)},
    Generic14{FLASH2, with_letters({'s', "Ee", "", "Ec"}), flash(steps::kEraseChipAlone, kByName)},
    Generic14{FLASH4, with_letters({'s', "He", "Id", "Fc"}),
              flash(steps::kEraseChipPgmEep, kByChip)},
    Generic14{FLASH4_9, with_second_config(with_letters({'s', "He", "Id", "Jc"})),
              flash(steps::kEraseChipPgmEep, kByChip)},
    Generic14{FLASH8, with_letters({'s', "Ge", "ed", "Fc"}),
              flash(steps::kEraseChipPgmEep, kByChip)},
    Generic14{LDR412, with_letters({'8', "84", "8d", "8c"}), flash(steps::kEraseChip, kByName)},
};
static_assert(std::ranges::all_of(kGeneric14,
                                  [](const Generic14& row) { return is_sound(row.areas); }));

// Letters behind the power letter: blank check, reads of program memory and configuration, writes
// of both.
constexpr std::array kGeneric12{
    Generic12{T5X18,
              {.letters = {"bps", "rps", "rps", "wps", "wps"},
               .blank_reply = BlankReply12::ConfigAndWord,
               .osccal = false,
               .names_oscillator = true},
              kOscillator12},
    Generic12{T5X28,
              {.letters = {"bpl", "rpl", "rpl", "wpl", "wpl"},
               .blank_reply = BlankReply12::ConfigAndWord,
               .osccal = false,
               .names_oscillator = true},
              kOscillator12},
    Generic12{T12C5, {.letters = {"bs", "rsp", "rsc", "wsp", "wsc"}}, kOperation12},
    Generic12{T10F2,
              {.letters = {"bs", "rsp", "rsc", "", "wec"}, .texts = &kAreas10F2Texts},
              kOperation12},
};
static_assert(std::ranges::all_of(kGeneric12,
                                  [](const Generic12& row) { return is_sound(row.areas); }));

// A core's areas with the erases that the device's name decides.
template <typename Core>
class ByName : public Core {
  public:
    template <typename Record>
    ByName(RunContext& context, const Record& record) : Core{context, record}, erases_{context} {}

    Token Chip_Erase() override { return erases_.Chip_Erase(); }
    Token Pgm_Erase() override { return erases_.Pgm_Erase(); }
    Token Eep_Erase() override { return erases_.Eep_Erase(); }

  private:
    NamedErase erases_;
};

template <typename Core, typename Rows>
std::unique_ptr<Family> make_of(const Rows& rows, RunContext& context) {
    const ProgrammingType type = context.session.PgmType;
    const auto row = std::ranges::find_if(rows, [&](const auto& r) { return r.type == type; });
    if (row == rows.end()) return nullptr;
    return std::make_unique<Operation>(context, std::make_unique<ByName<Core>>(context, row->areas),
                                       row->operation);
}

}  // namespace

std::span<const Generic14> generic14() { return kGeneric14; }
std::span<const Generic12> generic12() { return kGeneric12; }

std::unique_ptr<Family> make_generic(RunContext& context) {
    if (auto family = make_of<Areas14>(kGeneric14, context)) return family;
    return make_of<Areas12>(kGeneric12, context);
}

}  // namespace quillon
