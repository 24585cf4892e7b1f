// SPDX-License-Identifier: MIT
// The factory's calibration word, the last of program memory: kept as the device holds it, or taken
// from the form, as the user has decided by Chk_12F_CalibData_Select.
#pragma once

#include <cstdint>
#include <optional>

#include "app/main_form.h"
#include "app/messages.h"
#include "app/session.h"
#include "app/token.h"

namespace quillon {

// High byte of the instruction that holds the calibration.
inline constexpr std::uint8_t kRetlw14 = 0x34;
inline constexpr std::uint8_t kMovlw12 = 0x0C;

// Whether a 0 bit of program memory can become 1 again.
enum class WordBits : std::uint8_t { Erasable, OneTime };

class CalibrationWord {
  public:
    CalibrationWord(Session& session, MainForm& form, Messages& messages)
        : session_{session}, form_{form}, messages_{messages} {}

    bool is_kept() const { return form_.Chk_12F_CalibData_Select.Checked.get(); }
    // OK where the device's values are kept or the fields hold values; NG with a message.
    Token check_entry(bool with_bandgap) const;
    // CalibLo from Text_Calib_Data, the high byte with it. NG with a message where the box holds no
    // value, or one that the word just read from a one-time part can't take any more.
    Token take_entry(std::uint8_t opcode, WordBits bits = WordBits::Erasable);
    // CalibBg from Text_BG, where that holds a value.
    void take_bandgap_entry();

    // "R:" and the word, as the device holds it before it is written; "W:" and a word behind it.
    void show_read();
    void show_written(std::uint16_t word);
    // The low byte in Text_Calib_Data; the band gap in Text_BG.
    void show_entry();
    void show_bandgap();

    // The last word of the image. The program view shows it.
    void put_into_image();
    // The band gap above the low nibble of configuration word 1's high byte, in the image.
    void put_bandgap_into_image();

  private:
    std::optional<std::uint8_t> entered_byte() const;
    std::optional<std::uint8_t> entered_bandgap() const;

    Session& session_;
    MainForm& form_;
    Messages& messages_;
};

}  // namespace quillon
