// SPDX-License-Identifier: MIT
#include "board/session_facts.h"

#include <algorithm>

namespace quillon {

TargetFacts facts_of(const DeviceRecord& device) {
    TargetFacts facts;
    facts.name = device.DeviceName;
    facts.type = device.PgmType.text();
    facts.program_words = static_cast<std::size_t>(device.PgmWords);
    facts.eeprom_cells = static_cast<std::size_t>(device.EepBytes);
    for (std::size_t i = 0; i < facts.config_present.size(); ++i) {
        facts.config_present[i] = device.ConfigPresent[i + 1];
        facts.config_default[i] = static_cast<std::uint16_t>(device.ConfigDefault[i + 1]);
        facts.config_mask[i] = static_cast<std::uint16_t>(device.ConfigMask[i + 1]);
        facts.config_force[i] = static_cast<std::uint16_t>(device.ConfigForce[i + 1]);
    }
    const bool pic18 = is_pic18(device.PgmType);
    facts.protect_mask = static_cast<std::uint16_t>(pic18 ? device.CpMaskCf5 : device.CpMask);
    facts.identity18 = static_cast<std::uint16_t>(device.DevIdExpect);
    facts.erase_chip = device.EraseChip18;
    facts.erase_config = device.EraseConfig18;
    facts.erase_eeprom = device.EraseEeprom18;
    std::ranges::copy(device.EraseBlock18, facts.erase_block.begin());
    return facts;
}

}  // namespace quillon
