// SPDX-License-Identifier: MIT
// The memory image as Intel HEX text, for the reader and for an assembler's tools.
#pragma once

#include <string>
#include <string_view>

#include "app/session.h"
#include "hex/hex_zones.h"

namespace quillon {

// The whole device, blank or not: the size of the text follows the device and not the data.
// Upper-case records of 16 data bytes, lines ended by CR LF. Full addresses are for the enhanced
// mid-range parts only. `device_shown` is the device in Combo_device. For a PIC18 flash part
// CfgBytes18 takes the configuration words before they are written.
std::string hex_text(Session& session, std::string_view device_shown,
                     HexAddresses addresses = HexAddresses::Folded);

}  // namespace quillon
