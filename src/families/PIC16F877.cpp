// SPDX-License-Identifier: MIT
// PIC16F873, 874, 876, 877: the template itself.
#include <array>

#include "families/flash14.h"
#include "families/modules.h"

namespace quillon {

namespace {

constexpr std::array kDevices{
    DeviceId{"PIC16F873", 75},
    DeviceId{"PIC16F874", 73},
    DeviceId{"PIC16F876", 79},
    DeviceId{"PIC16F877", 77},
};
constexpr Flash14Record kRecord{.devices = kDevices};
static_assert(is_sound(kRecord));

}  // namespace

std::unique_ptr<Family> PIC16F877(RunContext& context) {
    return std::make_unique<Flash14>(context, kRecord);
}

}  // namespace quillon
