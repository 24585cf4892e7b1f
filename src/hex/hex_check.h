// SPDX-License-Identifier: MIT
// The file check: signs of a damaged or unsuitable HEX file that the loaders don't report.
//
// It parses the text separately and changes nothing: a file loads the same with and without it.
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
    Findings outside;        // data bytes that have no place in the device, except padding
    Findings outside_id;     // the same of ID words
    Findings contradicting;  // data bytes written twice with different values
    Findings folded;         // records whose full address was folded onto a low one
    Findings segments;       // dropped segment records that should have moved data
    Findings behind_end;     // data records behind the end record, which are loaded all the same
    bool no_end = false;     // no end record: the file may have been cut off on its way
};

// Checks the text as the loader of the selected device would place it.
HexCheck check_hex(std::string_view text, const DeviceRecord& device, HexAddresses addresses);

// The findings in one line for the message area; empty where there are none. `sums_as_data` is what
// the loader noted.
std::string describe(const HexCheck& check, const Findings& sums_as_data = {});

}  // namespace quillon
