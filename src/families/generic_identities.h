// SPDX-License-Identifier: MIT
// The identities by which the socket of a device without a family is checked: identity word shifted
// right by five. A device that isn't listed isn't checked.
#pragma once

#include <array>

#include "areas/areas14_record.h"

namespace quillon {

// The part has no identity word: all ones are read.
inline constexpr std::uint16_t kNoIdentity14 = 511;

inline constexpr std::array kGenericIdentities{
    Device14{"PIC12C672", 41},
    Device14{"PIC12CE674", 47},
    Device14{"PIC16C620A", 36},
    Device14{"PIC16C621A", 37},
    // PIC16F819 has the same: one of the two in place of the other isn't noticed.
    Device14{"PIC16C622A", 39},
    Device14{"PIC16C63A", 12},
    Device14{"PIC16C65B", 14},
    Device14{"PIC16C67", 30},
    Device14{"PIC16C73B", 13},
    Device14{"PIC16C76", 29},
    Device14{"PIC16C77", 31},
    Device14{"PIC12F629", 124},
    Device14{"PIC12F675", 126},
    Device14{"PIC12F683", 35},
    Device14{"PIC16F628", 62},
    Device14{"PIC16F628A", 131},
    Device14{"PIC16F648A", 136},
    Device14{"PIC16F630", 134},
    Device14{"PIC16F676", 135},
    Device14{"PIC16F73", 48},
    Device14{"PIC16F74", 49},
    Device14{"PIC16F76", 50},
    Device14{"PIC16F77", 51},
    Device14{"PIC16F819", 39},
    Device14{"PIC16F84A", 43},
    Device14{"PIC16F870", 104},
    Device14{"PIC16F871", 105},
    Device14{"PIC16F872", 71},
    Device14{"PIC16F873", 75},
    Device14{"PIC16F874", 73},
    Device14{"PIC16F876", 79},
    Device14{"PIC16F877", 77},
    Device14{"PIC16F873A", 114},
    Device14{"PIC16F874A", 115},
    Device14{"PIC16F876A", 112},
    Device14{"PIC16F877A", 113},
    Device14{"PIC16F88", 59},
    Device14{"PIC16F87", 57},
    Device14{"PIC16C554", kNoIdentity14},
    Device14{"PIC16C558", kNoIdentity14},
    Device14{"PIC16C620", kNoIdentity14},
    Device14{"PIC16C621", kNoIdentity14},
    Device14{"PIC16C622", kNoIdentity14},
    Device14{"PIC16C62A", kNoIdentity14},
    Device14{"PIC16C63", kNoIdentity14},
    Device14{"PIC16C64", kNoIdentity14},
    Device14{"PIC16C64A", kNoIdentity14},
    Device14{"PIC16C71", kNoIdentity14},
    Device14{"PIC16C711", kNoIdentity14},
    Device14{"PIC16C710", kNoIdentity14},
    Device14{"PIC16C715", kNoIdentity14},
    Device14{"PIC16C72", kNoIdentity14},
    Device14{"PIC16C74A", kNoIdentity14},
    Device14{"PIC16F84", kNoIdentity14},
};

}  // namespace quillon
