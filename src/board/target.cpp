// SPDX-License-Identifier: MIT
#include "board/target.h"

#include <algorithm>

namespace quillon {
namespace {

constexpr std::uint16_t kBlankAreaWord = 0x3FFF;
constexpr std::size_t kIdentityWord = 6;   // of the "c" area
constexpr std::size_t kConfigStart = 7;    // of the "c" area
constexpr std::size_t kProtectWord18 = 4;  // configuration word 5
constexpr std::uint16_t kEepromProtect18 = 0x8000;

constexpr std::uint32_t kId18 = 0x200000;
constexpr std::uint32_t kConfig18 = 0x300000;
constexpr std::uint32_t kIdentity18 = 0x3FFFFE;

std::uint8_t byte_of(std::uint16_t word, std::uint32_t address) {
    return static_cast<std::uint8_t>(address % 2 == 0 ? word : word >> 8);
}

std::uint16_t with_byte(std::uint16_t word, std::uint32_t address, std::uint8_t value) {
    return static_cast<std::uint16_t>(address % 2 == 0 ? (word & 0xFF00) | value
                                                       : (word & 0x00FF) | (value << 8));
}

}  // namespace

bool SimulatedTarget::program_protected() const {
    const std::size_t word = core == Core::Pic18 ? kProtectWord18 : 0;
    const auto mask = static_cast<std::uint16_t>(
        core == Core::Pic18 ? protect_mask & ~kEepromProtect18 : protect_mask);
    return word < config.size() && (config[word] & mask) != mask;
}

bool SimulatedTarget::eeprom_protected() const {
    if (core != Core::Pic18) return program_protected();
    const auto mask = static_cast<std::uint16_t>(protect_mask & kEepromProtect18);
    return kProtectWord18 < config.size() && (config[kProtectWord18] & mask) != mask;
}

std::uint16_t SimulatedTarget::read_program(std::size_t word) const {
    if (program_protected() && !is_osccal(word)) return 0;
    return word < program.size() ? program[word] : blank_word;
}

void SimulatedTarget::write_program(std::size_t word, std::uint16_t value, WordWrite how) {
    if (word >= program.size() || (program_protected() && !is_osccal(word))) return;
    const auto fits = static_cast<std::uint16_t>(value & blank_word);
    const bool replaces = memory == ProgramMemory::Flash && how == WordWrite::ErasesFirst;
    program[word] = replaces ? fits : static_cast<std::uint16_t>(program[word] & fits);
}

std::uint8_t SimulatedTarget::read_eeprom(std::size_t cell) const {
    if (eeprom_protected()) return 0;
    return cell < eeprom.size() ? eeprom[cell] : std::uint8_t{0xFF};
}

void SimulatedTarget::write_eeprom(std::size_t cell, std::uint8_t value) {
    if (cell < eeprom.size()) eeprom[cell] = value;
}

std::uint16_t SimulatedTarget::read_area(std::size_t word) const {
    if (word < id.size()) return id[word];
    if (word == kIdentityWord) return identity;
    if (word < kConfigStart) return kBlankAreaWord;
    std::size_t index = word - kConfigStart;
    if (index < config.size()) return config[index];
    index -= config.size();
    return index < calibration.size() ? calibration[index] : kBlankAreaWord;
}

std::uint16_t SimulatedTarget::area_mask(std::size_t word) const {
    if (word < id.size()) return blank_word;
    if (word < kConfigStart) return 0;
    std::size_t index = word - kConfigStart;
    if (index < config.size()) return config_bits(index);
    index -= config.size();
    return index < calibration.size() ? kBlankAreaWord : std::uint16_t{0};
}

std::uint16_t SimulatedTarget::config_bits(std::size_t index) const {
    if (index >= config.size()) return 0;
    return static_cast<std::uint16_t>(config_mask[index] & ~config_force[index]);
}

void SimulatedTarget::write_area(std::size_t word, std::uint16_t value) {
    const auto store = [&](std::uint16_t& cell, std::uint16_t mask) {
        const auto fits = static_cast<std::uint16_t>(value & mask);
        cell = memory == ProgramMemory::OneTime ? static_cast<std::uint16_t>(cell & fits) : fits;
    };
    if (word < id.size()) return store(id[word], blank_word);
    if (word < kConfigStart) return;
    std::size_t index = word - kConfigStart;
    if (index < config.size()) return write_config(index, value);
    index -= config.size();
    if (index < calibration.size()) store(calibration[index], kBlankAreaWord);
}

std::uint16_t SimulatedTarget::protection_of(std::size_t index) const {
    return index == (core == Core::Pic18 ? kProtectWord18 : 0) ? protect_mask : std::uint16_t{0};
}

void SimulatedTarget::write_config(std::size_t index, std::uint16_t value) {
    auto fits = static_cast<std::uint16_t>((value & config_mask[index]) | config_force[index]);
    // Bits that a write can clear and never set again.
    const std::uint16_t keeps_zero =
        memory == ProgramMemory::OneTime ? config_mask[index] : protection_of(index);
    fits = static_cast<std::uint16_t>(fits & ~(keeps_zero & ~config[index]));
    config[index] = fits;
}

std::uint16_t SimulatedTarget::read_line(std::size_t word) const {
    if (word == 0) return config.empty() ? blank_word : config[0];
    std::size_t place = word - 1;
    if (place < program.size()) return read_program(place);
    place -= program.size();
    if (place < id.size()) return id[place];
    if (place == id.size() && backup_osccal) return *backup_osccal;
    return blank_word;
}

void SimulatedTarget::write_line(std::size_t word, std::uint16_t value, WordWrite how) {
    if (word == 0) {
        if (!config.empty()) write_config(0, value);
        return;
    }
    std::size_t place = word - 1;
    if (place < program.size()) return write_program(place, value, how);
    place -= program.size();
    if (place < id.size())
        id[place] = static_cast<std::uint16_t>(id[place] & value);
    else if (place == id.size() && backup_osccal)
        backup_osccal = static_cast<std::uint16_t>(*backup_osccal & value);
}

std::uint8_t SimulatedTarget::read_byte(std::uint32_t address) const {
    if (address >= kIdentity18) return byte_of(identity, address);
    if (address >= kConfig18) {
        const std::size_t index = (address - kConfig18) / 2;
        return index < config.size() ? byte_of(config[index], address) : std::uint8_t{0};
    }
    if (address >= kId18) {
        const std::size_t index = address - kId18;
        return index < id.size() ? static_cast<std::uint8_t>(id[index]) : std::uint8_t{0xFF};
    }
    return byte_of(read_program(address / 2), address);
}

void SimulatedTarget::write_byte(std::uint32_t address, std::uint8_t value) {
    if (address >= kIdentity18) return;
    if (address >= kConfig18) {
        const std::size_t index = (address - kConfig18) / 2;
        if (index < config.size()) write_config(index, with_byte(config[index], address, value));
    } else if (address >= kId18) {
        const std::size_t index = address - kId18;
        if (index < id.size()) id[index] = value;
    } else {
        const auto other = std::uint16_t{0xFFFF};
        write_program(address / 2, with_byte(other, address, value), WordWrite::ClearsBits);
    }
}

void SimulatedTarget::erase(const Erasure& erasure) {
    if (memory == ProgramMemory::OneTime) return;
    const bool releases = erasure.config && (program_protected() || eeprom_protected());
    if (erasure.program || releases) std::ranges::fill(program, blank_word);
    if (erasure.eeprom || releases) std::ranges::fill(eeprom, std::uint8_t{0xFF});
    if (erasure.config) {
        config = config_blank;
        const auto blank_id = core == Core::Pic18 ? std::uint16_t{0xFF} : blank_word;
        std::ranges::fill(id, blank_id);
    }
    if (!erasure.calibration) return;
    std::ranges::fill(calibration, kBlankAreaWord);
    if (backup_osccal) backup_osccal = blank_word;
}

void SimulatedTarget::erase_program(std::size_t from, std::size_t to) {
    if (memory == ProgramMemory::OneTime) return;
    for (std::size_t word = from; word < to && word < program.size(); ++word)
        program[word] = blank_word;
}

}  // namespace quillon
