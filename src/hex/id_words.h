// SPDX-License-Identifier: MIT
// How an ID record becomes the ID words, by type and by device.
#pragma once

#include <string>
#include <string_view>

#include "app/session.h"
#include "hex/hex_items.h"
#include "hex/hex_zones.h"

namespace quillon {

// A record at 0x4000, or where full addresses have the ID; those keep the words whole. Words that
// the record hasn't keep what they hold. False for a line that ends within its words or has a bad
// digit.
[[nodiscard]] bool take_id_record(const HexRecord& record, Session& session,
                                  HexAddresses addresses);

// 12-bit parts keep their ID behind program memory: whether that is the byte address.
bool is_own_id_address(const DeviceRecord& device, unsigned address);
// A record there: a digit from each of its words. False as above.
[[nodiscard]] bool take_id_digits(const HexRecord& record, Session& session);

// Text_ID of a PIC18 flash part: the low digits of its eight ID bytes.
std::string pic18_id_digits(const Session& session);

// After the last record: the upper bits of the ID words as an erased device of the type has them.
// `device_shown` is the device in Combo_device.
void fix_id_words(std::string_view device_shown, Session& session);

}  // namespace quillon
