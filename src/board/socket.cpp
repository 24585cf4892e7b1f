// SPDX-License-Identifier: MIT
#include "board/socket.h"

namespace quillon {
namespace {

using Kind = Fault::Kind;

constexpr std::size_t kIdentityWord = 6;
constexpr std::uint32_t kConfig18 = 0x300000;
constexpr std::uint32_t kId18 = 0x200000;
constexpr std::uint32_t kIdentity18 = 0x3FFFFE;

}  // namespace

std::uint16_t Socket::identity() const {
    const Fault* wrong = faults_.standing(Kind::WrongPart);
    return wrong == nullptr ? target.identity : static_cast<std::uint16_t>(wrong->n);
}

std::uint16_t Socket::read_program(std::size_t word) const {
    return empty() ? std::uint16_t{0} : target.read_program(word);
}

void Socket::write_program(std::size_t word, std::uint16_t value, WordWrite how) {
    if (takes(Kind::StuckCell, word)) target.write_program(word, value, how);
}

std::uint8_t Socket::read_eeprom(std::size_t cell) const {
    return empty() ? std::uint8_t{0} : target.read_eeprom(cell);
}

void Socket::write_eeprom(std::size_t cell, std::uint8_t value) {
    if (takes(Kind::StuckEeprom, cell)) target.write_eeprom(cell, value);
}

std::uint16_t Socket::read_area(std::size_t word) const {
    if (empty()) return 0;
    return word == kIdentityWord ? identity() : target.read_area(word);
}

void Socket::write_area(std::size_t word, std::uint16_t value) {
    if (takes(Kind::StuckConfig, word)) target.write_area(word, value);
}

std::uint16_t Socket::read_line(std::size_t word) const {
    return empty() ? std::uint16_t{0} : target.read_line(word);
}

void Socket::write_line(std::size_t word, std::uint16_t value, WordWrite how) {
    const bool takes_it =
        word == 0 ? takes(Kind::StuckConfig, 0) : takes(Kind::StuckCell, word - 1);
    if (takes_it) target.write_line(word, value, how);
}

std::uint8_t Socket::read_byte(std::uint32_t address) const {
    if (empty()) return 0;
    if (address < kIdentity18) return target.read_byte(address);
    return static_cast<std::uint8_t>(address % 2 == 0 ? identity() : identity() >> 8);
}

void Socket::write_byte(std::uint32_t address, std::uint8_t value) {
    const bool config = address >= kConfig18;
    const bool takes_it = config             ? takes(Kind::StuckConfig, (address - kConfig18) / 2)
                          : address >= kId18 ? !empty()
                                             : takes(Kind::StuckCell, address / 2);
    if (takes_it) target.write_byte(address, value);
}

void Socket::erase(const Erasure& erasure) {
    if (!empty()) target.erase(erasure);
}

void Socket::erase_program(std::size_t from, std::size_t to) {
    if (!empty()) target.erase_program(from, to);
}

}  // namespace quillon
