// SPDX-License-Identifier: MIT
// PIC16F873A, 874A, 876A, 877A: eight words at a time, and an erase of configuration, program
// memory and EEPROM, each on its own.
#include <array>

#include "families/flash14.h"
#include "families/modules.h"

namespace quillon {

namespace {

constexpr std::array kDevices{
    DeviceId{"PIC16F873A", 114},
    DeviceId{"PIC16F874A", 115},
    DeviceId{"PIC16F876A", 112},
    DeviceId{"PIC16F877A", 113},
};
constexpr Flash14Record kRecord{
    .devices = kDevices,
    .write_pgm = "Ge",
    .write_cfg = "Fc",
    .mode = {.chip = 10, .pgm = 11, .eep = 12},
    .erase_steps = EraseSteps::CfgPgmEep,
};
static_assert(is_sound(kRecord));

}  // namespace

std::unique_ptr<Family> PIC16F877A(RunContext& context) {
    return std::make_unique<Flash14>(context, kRecord);
}

}  // namespace quillon
