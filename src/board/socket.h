// SPDX-License-Identifier: MIT
// The socket: the target as the board sees it through its pins, faults included.
#pragma once

#include <cstddef>
#include <cstdint>

#include "board/faults.h"
#include "board/target.h"

namespace quillon {

// An empty socket reads as zeros and takes nothing; a stuck cell keeps what it holds.
class Socket {
  public:
    explicit Socket(const FaultDesk& faults) : faults_{faults} {}

    SimulatedTarget target;

    bool empty() const { return faults_.standing(Fault::Kind::EmptySocket) != nullptr; }

    std::uint16_t read_program(std::size_t word) const;
    void write_program(std::size_t word, std::uint16_t value, WordWrite how);
    std::uint8_t read_eeprom(std::size_t cell) const;
    void write_eeprom(std::size_t cell, std::uint8_t value);
    std::uint16_t read_area(std::size_t word) const;
    void write_area(std::size_t word, std::uint16_t value);
    std::uint16_t read_line(std::size_t word) const;
    void write_line(std::size_t word, std::uint16_t value, WordWrite how);
    std::uint8_t read_byte(std::uint32_t address) const;
    void write_byte(std::uint32_t address, std::uint8_t value);
    void erase(const Erasure& erasure);
    void erase_program(std::size_t from, std::size_t to);

  private:
    std::uint16_t identity() const;
    bool takes(Fault::Kind stuck, std::size_t address) const {
        return !empty() && !faults_.stuck(stuck, address);
    }

    const FaultDesk& faults_;
};

}  // namespace quillon
