// SPDX-License-Identifier: MIT
// Places a HEX text in the image of the 12-bit and 14-bit devices, by address zones.
#pragma once

#include <string_view>

#include "app/session.h"
#include "hex/hex_items.h"
#include "hex/hex_zones.h"

namespace quillon {

// For every type that doesn't begin "18F". Unless full addresses are asked for, extended addresses
// fold into the 16-bit space on purpose. A record from 0x4400 to 0x7FFF then has no place and is a
// fault: that is how a file for a PIC18 is detected. Records behind an end record are loaded. After
// the last record the ID words' upper bits are set, configuration word 1 masked as the catalogue
// asks, and ConfigWord 1 and 2 taken from CfgIdMem. `device_shown` is the device in Combo_device.
HexLoad load_word_image(std::string_view text, std::string_view device_shown, Session& session,
                        HexAddresses addresses = HexAddresses::Folded);

}  // namespace quillon
