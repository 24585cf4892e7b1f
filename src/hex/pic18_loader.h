// SPDX-License-Identifier: MIT
// Places a HEX text in the image of the PIC18 flash devices, by extended address.
#pragma once

#include <string_view>

#include "app/session.h"
#include "hex/hex_items.h"

namespace quillon {

// Sets PgmWordsCat to the words that the file uses, rounded up to whole write buffers, and
// EepBytesCat to its EEPROM bytes, 0 for none: a load decides how much of a device is programmed.
// After a fault both are the full sizes again. Sets ConfigWord from the configuration bytes.
HexLoad load_pic18(std::string_view text, Session& session);

}  // namespace quillon
