// SPDX-License-Identifier: MIT
// The area routines of the 12-bit parts, driven by a record.
//
// Configuration word, program memory and ID words lie in one stream. A count of PgmWords + 5 is all
// of it. None of these parts has an EEPROM, an identity word or an erase of its own.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "areas/areas12_record.h"
#include "areas/context.h"
#include "areas/wired_areas.h"
#include "link/words.h"

namespace quillon {

class Areas12 : public WiredAreas {
  public:
    Areas12(RunContext& context, const Areas12Record& record);

    Token Blank_Cfg() override;
    Token Blank_Pgm() override;
    Token Blank_Eep() override { return Token::Absent; }
    Token Write_Cfg() override;
    // Leaves the protection bits open: they are written last, by Write_Cfg.
    Token Write_Pgm() override;
    Token Write_Eep() override;
    SocketVerdict Socket_Check() override;
    Token Read_Cfg() override;
    Token Read_Pgm() override;
    Token Read_Eep() override;
    Token Verify_Cfg() override;
    // Program memory without a calibration word, and the digits of the ID words.
    Token Verify_Pgm() override;
    Token Verify_Eep() override;
    Token Chip_Erase() override { return Token::ER; }
    Token Pgm_Erase() override { return Token::ER; }
    Token Eep_Erase() override { return Token::Absent; }
    Token Calibration_Entry() override;
    Token Word_Read() override;
    Token Word_Write() override;
    Token Take_Calibration() override;
    Token Show_Calibration() override;
    bool read_was_blank() const override;
    BlankNotes blank_notes() const override;
    std::string calibration_warning() const override;

  private:
    // All of the stream, with the end code behind it.
    struct Stream {
        Bytes bytes;
        std::size_t words = 0;  // of program memory

        bool is_whole() const;
        std::uint16_t word(std::size_t index) const;
        std::uint16_t program(std::size_t index) const { return word(index + 1); }
        std::span<const std::uint8_t> program_bytes() const;
        std::span<const std::uint8_t> id_bytes() const;
    };

    Stream read_stream();
    // The AND of so many words behind the configuration word; nothing without the end code.
    std::optional<std::uint16_t> and_of_words(std::int32_t count);
    std::optional<std::uint16_t> read_config_word();
    Token blank_osccal();
    Token blank_verdict(bool is_blank) const {
        return is_blank ? record_.words.blank : record_.words.used;
    }
    bool is_blank_config(std::uint16_t word) const;
    // The catalogue names a factory value for the last word of program memory.
    bool has_calibration_word() const { return !session_.CalibText.empty(); }
    void take_calibration_word(std::uint16_t word);
    void put_default_calibration();
    Bytes stream_to_write() const;

    const Areas12Record& record_;
    const Areas12Texts& texts_;
    bool knows_calibration_ = false;  // read from the part in this operation
    std::uint16_t config_ = 0;        // the last one read
    std::uint16_t word_back_ = 0;     // calibration word of the last program verify
    AndWord and_;                     // of all words of the last read
};

}  // namespace quillon
