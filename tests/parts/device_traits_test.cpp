// SPDX-License-Identifier: MIT
// What depends on a device's name alone.
#include "parts/device_traits.h"

#include <gtest/gtest.h>

namespace quillon::test {

TEST(device_traits, four_word_id_entry_belongs_to_the_panels_that_show_it) {
    for (const auto* name :
         {"PIC12F1822", "PIC16LF1939", "PIC16F882", "PIC16F887", "ZQ-LDR418", "PIC16F913",
          "PIC16F946", "PIC16F631", "PIC16F690", "PIC12F635", "PIC16F639", "PIC12F609",
          "PIC16HV616", "PIC16F785", "PIC16HV785", "PIC16F716"})
        EXPECT_TRUE(has_four_word_id(name)) << name;
    for (const auto* name :
         {"PIC16F737", "PIC16F777", "PIC18F14K50", "PIC16F877A", "PIC16F88", "PIC12F683", "",
          "PIC16F8820", "PIC16F1826", "PIC16LF1826", "PIC16F1827", "PIC16LF1827"})
        EXPECT_FALSE(has_four_word_id(name)) << name;
}

TEST(device_traits, two_series_use_their_id_words_in_full) {
    for (const auto* name : {"PIC16F882", "PIC16F887", "PIC16F913", "PIC16F946"})
        EXPECT_TRUE(has_whole_id(name)) << name;
    for (const auto* name : {"PIC16F877A", "PIC16F690", "PIC12F1822", "ZQ-LDR418", ""})
        EXPECT_FALSE(has_whole_id(name)) << name;
}

TEST(device_traits, four_devices_have_bit_7_above_their_id_digit) {
    for (const auto* name : {"PIC16F73", "PIC16F74", "PIC16F76", "PIC16F77"})
        EXPECT_TRUE(has_id_with_bit_7(name)) << name;
    EXPECT_FALSE(has_id_with_bit_7("PIC16F737"));
}

TEST(device_traits, flash_parts_are_known_by_the_beginning_of_their_name) {
    for (const auto* name : {"PIC10F200", "PIC12F675", "PIC16F84A", "PIC18F2550", "ZQ-LDR412"})
        EXPECT_TRUE(has_flash_name(name)) << name;
    for (const auto* name : {"PIC12C508", "PIC16C54", "PIC16LF1938", "LDR412", ""})
        EXPECT_FALSE(has_flash_name(name)) << name;
}

}  // namespace quillon::test
