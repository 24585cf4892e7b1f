// SPDX-License-Identifier: MIT
// The memory image as Intel HEX text, for the reader and for an assembler's tools.
#pragma once

#include <string>
#include <string_view>

#include "app/session.h"
#include "hex/hex_zones.h"

namespace quillon {

// The text holds the whole device, blank or not: its size depends on the device, not on the data.
// Upper-case records of 16 data bytes, lines ended by CR LF. Full addresses are for the enhanced
// mid-range parts only. `device_shown` is the device in Combo_device. For a PIC18 flash part the
// configuration words are copied to CfgBytes18 first.
std::string hex_text(Session& session, std::string_view device_shown,
                     HexAddresses addresses = HexAddresses::Folded);

}  // namespace quillon
