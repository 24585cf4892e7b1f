// SPDX-License-Identifier: MIT
// The programming type of a device: the catalogue's PGM_TYPE token, read once where it comes in.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quillon {

// In the order of the cores. The T is there because a name can't begin with a digit.
enum class ProgrammingType : std::uint8_t {
    Other,  // a token that no routine knows, or none
    // 12-bit words
    T5X18,
    T5X28,
    T5F18,
    T5F28,
    T12C5,
    T10F2,
    // 14-bit words
    T12C6,
    T12F6,
    EPROM,
    EPROM2,  // with two parity bits above the 14
    FLASH0,
    FLASH1,
    FLASH2,
    FLASH4,
    FLASH4_9,
    FLASH8,
    LDR412,
    LDR412A,
    LDR418,
    // 16-bit words
    T18C,  // any token that begins "18" but not "18F"
    T18F,  // any other token that begins "18F"
    T18F_00,
    T18F_01,
};

// Other for a token that isn't in the list. Case matters.
ProgrammingType programming_type(std::string_view token);

// A token of the catalogue with its meaning: assigned as text, compared as a type.
class PgmTypeToken {
  public:
    PgmTypeToken() = default;
    PgmTypeToken(std::string_view token) : text_{token}, type_{programming_type(token)} {}
    PgmTypeToken(const char* token) : PgmTypeToken{std::string_view{token}} {}
    PgmTypeToken(const std::string& token) : PgmTypeToken{std::string_view{token}} {}

    operator ProgrammingType() const { return type_; }
    // As the catalogue spells it.
    const std::string& text() const { return text_; }

  private:
    std::string text_;
    ProgrammingType type_ = ProgrammingType::Other;
};

// 5X18, 5X28, 5F18, 5F28, 12C5, 10F2
bool is_12bit(ProgrammingType type);
// 12F6, 12C6, EPROM, EPROM2, FLASH... and the modules LDR412 and LDR412A; LDR418 is left out on
// purpose: the fills leave its image as it is.
bool is_14bit(ProgrammingType type);
// Tokens that begin "18".
bool is_pic18(ProgrammingType type);
// Tokens that begin "18F": the flash parts, whose files and ID have a form of their own.
bool is_pic18_flash(ProgrammingType type);
// The image holds an EEPROM cell as two bytes: 0x3F and the data.
bool has_word_eeprom(ProgrammingType type);
// The last word of program memory is a calibration word, shown in the log.
bool logs_calibration(ProgrammingType type);
// 12F6, 12C6: that word can be read and written alone.
bool has_single_calibration_word(ProgrammingType type);

}  // namespace quillon
