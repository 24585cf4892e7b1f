// SPDX-License-Identifier: MIT
// What isn't written in a row is the template's, PIC16F877. Identities: PIC16F87X and PIC16F87XA
// EEPROM Memory Programming Specification (Microchip DS39025 and DS39589), device ID values.
#include "families/flash14.h"

#include <algorithm>
#include <array>

namespace quillon {

namespace {

constexpr std::array kDevices877{
    Device14{"PIC16F873", 75},  // identity word >> 5
    Device14{"PIC16F874", 73},
    Device14{"PIC16F876", 79},
    Device14{"PIC16F877", 77},
};
constexpr std::array kDevices877A{
    Device14{"PIC16F873A", 114},
    Device14{"PIC16F874A", 115},
    Device14{"PIC16F876A", 112},
    Device14{"PIC16F877A", 113},
};

constexpr std::array kModules14{
    Module14{
        .module = Module::PIC16F877,
        .areas = {.devices = kDevices877},
    },
    // Eight words at a time; configuration, program memory and EEPROM are erased each on its own.
    Module14{
        .module = Module::PIC16F877A,
        .areas =
            {
                .devices = kDevices877A,
                .letters = {.write_pgm = "Ge", .write_cfg = "Fc"},
                .erase = {.chip = 10, .pgm = 11, .eep = 12},
            },
        .operation = {.erase = steps14::kCfgPgmEep},
    },
};
static_assert(std::ranges::all_of(kModules14, is_sound, &Module14::areas));

}  // namespace

std::span<const Module14> modules14() { return kModules14; }

}  // namespace quillon
