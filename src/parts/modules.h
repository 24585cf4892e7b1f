// SPDX-License-Identifier: MIT
// The family modules, and which of them serves a device in which operation.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace quillon {

// In the order in which the operations search for a device. Each serves a group of devices with one
// algorithm; Generic serves every device that no other does, by its programming type.
enum class Module : std::uint8_t {
    PIC1XF18XX,
    PIC16F19xx,
    PIC16F1939,
    PIC10F200,
    PIC16F54,
    PIC16F57,
    PIC16F88X,
    PIC16F91X,
    PIC16F7X7,
    PIC16F6XX,
    PIC1XF63X,
    PIC12F609,
    PIC16F785,
    PIC16F716,
    PIC12C5XXX,
    PIC12F683,
    PIC16F877,
    PIC16F877A,
    ZQLDR412,
    ZQLDR412A,
    ZQLDR418,
    PIC18F252,
    PIC18F452,
    PIC18F8720,
    PIC18F1320,
    PIC18F2320,
    PIC18F2420,
    PIC18F2431,
    PIC18F2450,
    PIC18F2455,
    PIC18F2515,
    PIC18F4585,
    PIC18F2550,
    PIC18F8722,
    PIC18F14K50,
    Generic,
};

inline constexpr std::size_t kModules = static_cast<std::size_t>(Module::Generic) + 1;

// The four operations of the main form look the device up separately, and differ in a few places
// on purpose.
enum class Chain : std::uint8_t { Blank, Program, Read, Verify };

Module module_of(std::string_view device, Chain chain = Chain::Program);
// The enumerator's own name, "generic" for Generic.
std::string_view name_of(Module module);
// Empty for Generic.
std::span<const std::string_view> devices_of(Module module);

}  // namespace quillon
