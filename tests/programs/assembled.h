// SPDX-License-Identifier: MIT
// A program of this folder, assembled by gpasm when the test runs: its HEX file and its listing.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string_view>

namespace quillon::test {

// The content of a HEX file: bytes by their full byte address.
using FileBytes = std::map<std::uint32_t, std::uint8_t>;

struct Assembled {
    bool ok = false;  // false where gpasm is missing or reports an error
    std::filesystem::path hex;
    // The words of the listing, from its columns of addresses and object code. EEPROM is left out:
    // this assembler's listing counts its cells in bytes.
    FileBytes listing;
};

// Assembles `name`.asm into `folder`. A PIC18's listing gives byte addresses, any other word
// addresses.
Assembled assemble(std::string_view name, const std::filesystem::path& folder, bool pic18);

// The data of a HEX file. It is read without any code of the program under test. Empty where a
// record is damaged or has a wrong check sum, or where a byte is written twice.
FileBytes bytes_of_hex(const std::filesystem::path& path);

}  // namespace quillon::test
