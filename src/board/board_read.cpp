// SPDX-License-Identifier: MIT
// The reads behind "r", and the stream that all of them are sent in.
//
// The board sends 16 bytes and waits for the host's "@", also after the last block if that is full.
// The end code follows. A configuration area of nine or ten words goes out in one piece, because
// its readers count to 18 or 20 bytes before they acknowledge. Their "@" comes before the end code.
#include <fmt/core.h>

#include "board/board_program.h"

namespace quillon::firmware {
namespace {

constexpr std::size_t kBlockBytes = 16;
// High byte of an EEPROM location: the part shifts out ones above its eight bits.
constexpr std::uint16_t kEepromHigh = 0x3F00;
// Words of the configuration area in one block. More words go out in one piece, unless they fill
// whole blocks.
constexpr std::size_t kBareAreaWords = 8;

}  // namespace

Routine<void> BoardProgram::read() {
    const auto algorithm = static_cast<char>(co_await letter());
    const auto area = static_cast<char>(co_await letter());
    const bool parallel = algorithm == 'p' && (area == 's' || area == 'l');
    const bool serial = algorithm == 's' || algorithm == '8' || algorithm == 'S';
    if (!parallel && !(serial && (area == 'p' || area == 'd' || area == 'c'))) co_await unknown();
    const std::size_t words = co_await word();
    begin_exchange();
    const Area place = area == 'd' ? Area::Eeprom : area == 'c' ? Area::Config : Area::Program;
    if (suits(area == 'l' ? 'l' : algorithm))
        collect(place, words);
    else
        data_.assign(2 * words, 0);
    if (place == Area::Config && words > kBareAreaWords && words % kBareAreaWords != 0)
        co_await area_of_odd_size();
    else
        co_await stream();
}

bool BoardProgram::suits(char algorithm) {
    const auto& target = bench_.socket.target;
    if (target.core != Core::Pic18 && target.algorithm == algorithm) return true;
    if (bench_.socket.empty()) return false;
    note(fmt::format("\"{}\": {} doesn't answer to algorithm \"{}\"", letters_, target.name,
                     algorithm));
    return false;
}

void BoardProgram::collect(Area area, std::size_t words) {
    const Socket& socket = bench_.socket;
    const bool line = socket.target.core == Core::Bits12;
    data_.clear();
    for (std::size_t i = 0; i < words; ++i) {
        std::uint16_t value = 0;
        if (area == Area::Eeprom)
            // An empty socket and a protected part read as zeros, the high byte included.
            value = socket.empty() || socket.target.eeprom_protected()
                        ? std::uint16_t{0}
                        : static_cast<std::uint16_t>(kEepromHigh | socket.read_eeprom(i));
        else if (line)
            value = socket.read_line(i);
        else
            value =
                area == Area::Config ? area_order(i, socket.read_area(i)) : socket.read_program(i);
        data_.push_back(static_cast<std::uint8_t>(value >> 8));
        data_.push_back(static_cast<std::uint8_t>(value));
    }
}

Routine<void> BoardProgram::stream() {
    for (std::size_t i = 0; i < data_.size(); ++i) {
        send(data_[i]);
        if (i % kBlockBytes == kBlockBytes - 1) co_await acknowledge();
    }
    send_end();
}

Routine<void> BoardProgram::area_of_odd_size() {
    for (const auto byte : data_) send(byte);
    co_await acknowledge();
    send_end();
}

}  // namespace quillon::firmware
