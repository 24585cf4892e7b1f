// SPDX-License-Identifier: MIT
// The part in the simulated board's socket: its memories, and what a read, a write and an erase do.
//
// A protected part reads as zeros (program memory and EEPROM; ID and configuration stay readable)
// and takes no program word, apart from the calibration word of a 14-bit part. A one-time part only
// clears bits. A flash part clears bits too, unless the write algorithm erases the word first.
// EEPROM cells are replaced; so are ID and configuration words of a flash part, but a protection
// bit that is 0 stays 0 until an erase sets it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quillon {

enum class Core : std::uint8_t { Bits12, Bits14, Pic18 };
enum class ProgramMemory : std::uint8_t { Flash, OneTime };
enum class WordWrite : std::uint8_t { ClearsBits, ErasesFirst };

// What one erase clears. An erase of the configuration also releases the protection. On a protected
// part it then clears program memory and EEPROM too: no part releases its code by an erase.
struct Erasure {
    bool program = false;
    bool eeprom = false;
    bool config = false;       // configuration and ID words
    bool calibration = false;  // factory words behind the configuration, backup OSCCAL

    bool operator==(const Erasure&) const = default;
};

// An erase code of a PIC18 part: the six bytes as they come on the wire, and what they erase.
struct EraseCode18 {
    std::vector<std::uint8_t> code{};
    Erasure erases{};
    // The program words of a block erase: from (included) to (excluded).
    std::size_t from = 0;
    std::size_t to = 0;

    bool operator==(const EraseCode18&) const = default;
};

struct SimulatedTarget {
    std::string name;
    Core core = Core::Bits14;
    ProgramMemory memory = ProgramMemory::Flash;
    // The algorithm letter that reads this part: 's', '8' for the modules and PIC16F57, 'S' for
    // words with parity. For parts that are read in parallel it is 'p' for those of 18 pins, whose
    // letters are "p" "s", and 'l' for those of 28 pins, whose letters are "p" "l".
    char algorithm = 's';
    std::uint16_t blank_word = 0x3FFF;

    std::vector<std::uint16_t> program;
    std::vector<std::uint8_t> eeprom;
    std::vector<std::uint16_t> id;  // four words as wide as program words; PIC18: eight bytes
    std::vector<std::uint16_t> config;
    std::vector<std::uint16_t> config_blank;  // after an erase
    std::vector<std::uint16_t> config_mask;   // bits that may be 1
    std::vector<std::uint16_t> config_force;  // bits that are always 1
    std::vector<std::uint16_t> calibration;   // words behind the configuration words
    std::optional<std::uint16_t> backup_osccal;
    // 14-bit parts whose last program word holds the oscillator's calibration. The word is never
    // protected, and the board leaves it out of its blank test.
    bool osccal_word = false;
    bool chip_erase_only = false;  // the part has no erase of one memory alone
    // With its revision bits. PIC18: DEVID2 in the high byte. 0x3FFF: the part has none.
    std::uint16_t identity = 0x3FFF;
    std::uint16_t protect_mask = 0;  // in word 1; PIC18: in word 5, bit 15 for the EEPROM
    std::vector<EraseCode18> erase_codes;

    bool operator==(const SimulatedTarget&) const = default;

    bool program_protected() const;
    bool eeprom_protected() const;
    bool is_osccal(std::size_t word) const { return osccal_word && word + 1 == program.size(); }

    // Beyond the memory's end a read returns the blank value and a write does nothing.
    std::uint16_t read_program(std::size_t word) const;
    void write_program(std::size_t word, std::uint16_t value, WordWrite how);
    std::uint8_t read_eeprom(std::size_t cell) const;
    void write_eeprom(std::size_t cell, std::uint8_t value);

    // Words with parity, 16 bits wide: program memory and ID. Configuration words have 14 bits.
    bool wide() const { return core == Core::Bits14 && blank_word == 0xFFFF; }

    // The "c" area of 14-bit parts: words 0 to 3 ID, 4 and 5 reserved, 6 identity, from 7 the
    // configuration words, behind them the calibration words.
    std::uint16_t read_area(std::size_t word) const;
    void write_area(std::size_t word, std::uint16_t value);
    // The bits of that word that a write can change. A check compares only these.
    std::uint16_t area_mask(std::size_t word) const;
    // The same of a configuration word, counted from 0. 0 where the part has no such word.
    std::uint16_t config_bits(std::size_t index) const;

    // The address range of 12-bit parts: the configuration word, program memory, four ID words, the
    // backup OSCCAL.
    std::uint16_t read_line(std::size_t word) const;
    void write_line(std::size_t word, std::uint16_t value, WordWrite how);

    // PIC18 by byte address: program memory from 0, ID from 0x200000, configuration from 0x300000,
    // identity at 0x3FFFFE.
    std::uint8_t read_byte(std::uint32_t address) const;
    void write_byte(std::uint32_t address, std::uint8_t value);

    void erase(const Erasure& erasure);
    void erase_program(std::size_t from, std::size_t to);

  private:
    void write_config(std::size_t index, std::uint16_t value);
    std::uint16_t protection_of(std::size_t index) const;
};

}  // namespace quillon
