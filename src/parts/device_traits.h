// SPDX-License-Identifier: MIT
// What only a device's name decides, as neither its programming type nor the catalogue does.
#pragma once

#include <string_view>

namespace quillon {

// The ID is entered as four whole words, Text_ID1 to Text_ID4.
bool has_four_word_id(std::string_view device);
// 14-bit parts whose ID words are used in full; the others use the low digit of each.
bool has_whole_id(std::string_view device);
// The ID words hold a digit under bit 7.
bool has_id_with_bit_7(std::string_view device);
// Flash parts and firmware modules, by the beginning of their name.
bool has_flash_name(std::string_view device);

}  // namespace quillon
