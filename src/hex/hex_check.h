// SPDX-License-Identifier: MIT
// The file check: what a careful user wants to know of a HEX file and the loaders don't judge.
//
// It reads the text on its own and changes nothing: a file loads the same with and without it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "app/session.h"
#include "hex/hex_items.h"
#include "hex/hex_zones.h"

namespace quillon {

struct HexCheck {
    Findings bad_sums;       // records whose check sum is wrong or missing
    Findings outside;        // data bytes that have no place in the device; padding is none
    Findings outside_id;     // the same of ID words
    Findings contradicting;  // data bytes written once more, with another value
    Findings folded;         // records of a full address that was folded onto a low one
    Findings segments;       // segment records that the loader drops, and that moved the data
    Findings behind_end;     // data records behind the end record, which are loaded all the same
    bool no_end = false;     // no end record: the file may have been cut off on its way
};

// Judges the text as the loader of the selected device places it.
HexCheck check_hex(std::string_view text, const DeviceRecord& device, HexAddresses addresses);

// The findings in one line for the message area; empty where there are none. `sums_as_data` is what
// the loader noted.
std::string describe(const HexCheck& check, const Findings& sums_as_data = {});

}  // namespace quillon
