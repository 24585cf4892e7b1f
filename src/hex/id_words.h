// SPDX-License-Identifier: MIT
// How an ID record becomes the ID words, by type and by device.
#pragma once

#include <string>
#include <string_view>

#include "app/session.h"
#include "hex/hex_items.h"
#include "hex/hex_zones.h"

namespace quillon {

// Takes a record at 0x4000, or at the ID's full address, where the words are kept whole. Words that
// the record doesn't have keep their values. False for a line that ends within its words or has a
// bad digit.
[[nodiscard]] bool take_id_record(const HexRecord& record, Session& session,
                                  HexAddresses addresses);

// Whether the byte address is the one where a 12-bit part keeps its ID, behind program memory.
bool is_own_id_address(const DeviceRecord& device, unsigned address);
// Takes a record at that address: one digit from each of its words. False as above.
[[nodiscard]] bool take_id_digits(const HexRecord& record, Session& session);

// Text_ID of a PIC18 flash part: the low digits of its eight ID bytes.
std::string pic18_id_digits(const Session& session);

// Called after the last record: sets the upper bits of the ID words as in an erased device of the
// type. `device_shown` is the device in Combo_device.
void fix_id_words(std::string_view device_shown, Session& session);

}  // namespace quillon
