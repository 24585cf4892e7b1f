// SPDX-License-Identifier: MIT
// The facts of each device, from device_facts.json. The catalogue is compared with them.
//
// The file lists each distinct configuration word once, and a device names its words by index. Its
// devices are in the order of the selection list, because saved settings hold positions in it.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "plain_reader.h"

namespace catalogue_data {

// The two 16-bit words of a bulk erase. A part of the older kind has nothing at 3C0005.
struct ErasePayload {
    std::optional<std::uint32_t> at_3C0005;
    std::uint32_t at_3C0004 = 0;
};

struct Pic18Facts {
    std::array<std::uint32_t, 3> devid{};  // high byte, low byte, revision bits
    std::uint32_t config5_mask = 0;
    std::map<std::string, std::uint32_t> numbers;  // by catalogue key
    std::map<std::string, ErasePayload> erase;     // by the key's ending, such as "BLOCK1"
};

struct CodeProtect {
    unsigned word = 0;
    std::string field;
    std::uint32_t mask = 0;
};

struct Osccal {
    std::string opcode;                   // "movlw" or "retlw"
    std::optional<std::uint32_t> centre;  // unknown for one-time parts
};

struct DeviceFacts {
    std::string name, core, memory, family, type, package, power;
    double vpp_max = 0;  // volts
    double vdd_max = 0;  // volts
    std::uint32_t words = 0;
    std::uint32_t eeprom = 0;  // bytes, 0 for none
    std::vector<Word> config;
    std::optional<CodeProtect> code_protect;  // of the 12-bit and 14-bit parts
    std::optional<Osccal> osccal;
    std::optional<Pic18Facts> pic18;

    // Whether one of the configuration words has a field of that name.
    [[nodiscard]] bool has_field(std::string_view field) const;
};

// All devices, in list order.
[[nodiscard]] const std::vector<DeviceFacts>& all_facts();

// Null for an unknown name.
[[nodiscard]] const DeviceFacts* facts_of(std::string_view name);

}  // namespace catalogue_data
