// SPDX-License-Identifier: MIT
// The facts, from the maker's data sheets. Sorted by name, because they are searched by halving.
#include "board/part_facts.h"

#include <algorithm>
#include <array>

namespace quillon {
namespace {

// The opcodes that hold the oscillator's calibration in the last program word.
constexpr std::uint16_t kRetlw = 0x3400;
constexpr std::uint16_t kMovlw = 0x0C00;

// The factory's band gap calibration. It isn't the value that an erase leaves.
constexpr std::uint16_t kBandgap = 0x2000;

// Factory words behind the configuration words: clock (FCAL +5, POR 1, BOR 1), low voltage.
constexpr std::uint16_t kClock = 0x2149;
constexpr std::uint16_t kVoltage = 0x3FFC;

constexpr std::array kParts{
    PartFacts{.name = "PIC10F200", .osccal_opcode = kMovlw, .backup_osccal = true},
    PartFacts{.name = "PIC10F202", .osccal_opcode = kMovlw, .backup_osccal = true},
    PartFacts{.name = "PIC10F204", .osccal_opcode = kMovlw, .backup_osccal = true},
    PartFacts{.name = "PIC10F206", .osccal_opcode = kMovlw, .backup_osccal = true},
    PartFacts{.name = "PIC10F220", .osccal_opcode = kMovlw, .backup_osccal = true},
    PartFacts{.name = "PIC10F222", .osccal_opcode = kMovlw, .backup_osccal = true},
    PartFacts{.name = "PIC12C508", .osccal_opcode = kMovlw},
    PartFacts{.name = "PIC12C508A", .osccal_opcode = kMovlw},
    PartFacts{.name = "PIC12C509", .osccal_opcode = kMovlw},
    PartFacts{.name = "PIC12C509A", .osccal_opcode = kMovlw},
    PartFacts{.name = "PIC12C518", .osccal_opcode = kMovlw},
    PartFacts{.name = "PIC12C519", .osccal_opcode = kMovlw},
    PartFacts{.name = "PIC12C671", .osccal_opcode = kRetlw},
    PartFacts{.name = "PIC12C672", .identity = 0x0520, .osccal_opcode = kRetlw},
    PartFacts{.name = "PIC12CE518", .osccal_opcode = kMovlw},
    PartFacts{.name = "PIC12CE519", .osccal_opcode = kMovlw},
    PartFacts{.name = "PIC12CE673", .osccal_opcode = kRetlw},
    PartFacts{.name = "PIC12CE674", .identity = 0x05E0, .osccal_opcode = kRetlw},
    PartFacts{.name = "PIC12F1822",
              .identity = 0x2700,
              .calibration = {kClock, kVoltage},
              .calibration_words = 2},
    PartFacts{.name = "PIC12F508", .osccal_opcode = kMovlw, .backup_osccal = true},
    PartFacts{.name = "PIC12F509", .osccal_opcode = kMovlw, .backup_osccal = true},
    PartFacts{.name = "PIC12F510", .osccal_opcode = kMovlw, .backup_osccal = true},
    PartFacts{
        .name = "PIC12F609", .identity = 0x2240, .calibration = {kClock}, .calibration_words = 1},
    PartFacts{
        .name = "PIC12F615", .identity = 0x2180, .calibration = {kClock}, .calibration_words = 1},
    PartFacts{
        .name = "PIC12F629", .identity = 0x0F80, .osccal_opcode = kRetlw, .bandgap = kBandgap},
    PartFacts{.name = "PIC12F635",
              .identity = 0x0FA0,
              .calibration = {kClock, kVoltage},
              .calibration_words = 2},
    PartFacts{
        .name = "PIC12F675", .identity = 0x0FC0, .osccal_opcode = kRetlw, .bandgap = kBandgap},
    PartFacts{
        .name = "PIC12F683", .identity = 0x0460, .calibration = {kClock}, .calibration_words = 1},
    PartFacts{
        .name = "PIC12HV609", .identity = 0x2280, .calibration = {kClock}, .calibration_words = 1},
    PartFacts{
        .name = "PIC12HV615", .identity = 0x21A0, .calibration = {kClock}, .calibration_words = 1},
    PartFacts{.name = "PIC12LF1822",
              .identity = 0x2800,
              .calibration = {kClock, kVoltage},
              .calibration_words = 2},
    PartFacts{.name = "PIC16C505", .osccal_opcode = kMovlw},
    PartFacts{.name = "PIC16C620A", .identity = 0x0480},
    PartFacts{.name = "PIC16C621A", .identity = 0x04A0},
    PartFacts{.name = "PIC16C622A", .identity = 0x04E0},
    PartFacts{.name = "PIC16C63A", .identity = 0x0180},
    PartFacts{.name = "PIC16C65B", .identity = 0x01C0},
    PartFacts{.name = "PIC16C67", .identity = 0x03C0},
    PartFacts{.name = "PIC16C73B", .identity = 0x01A0},
    PartFacts{.name = "PIC16C76", .identity = 0x03A0},
    PartFacts{.name = "PIC16C77", .identity = 0x03E0},
    PartFacts{.name = "PIC16F1823",
              .identity = 0x2720,
              .calibration = {kClock, kVoltage},
              .calibration_words = 2},
    PartFacts{.name = "PIC16F1824",
              .identity = 0x2740,
              .calibration = {kClock, kVoltage},
              .calibration_words = 2},
    PartFacts{.name = "PIC16F1825",
              .identity = 0x2760,
              .calibration = {kClock, kVoltage},
              .calibration_words = 2},
    PartFacts{.name = "PIC16F1826",
              .identity = 0x2780,
              .calibration = {kClock, kVoltage},
              .calibration_words = 2},
    PartFacts{.name = "PIC16F1827",
              .identity = 0x27A0,
              .calibration = {kClock, kVoltage},
              .calibration_words = 2},
    PartFacts{.name = "PIC16F1828",
              .identity = 0x27C0,
              .calibration = {kClock, kVoltage},
              .calibration_words = 2},
    PartFacts{.name = "PIC16F1829",
              .identity = 0x27E0,
              .calibration = {kClock, kVoltage},
              .calibration_words = 2},
    PartFacts{.name = "PIC16F1933",
              .identity = 0x2300,
              .calibration = {kClock, kVoltage},
              .calibration_words = 2},
    PartFacts{.name = "PIC16F1934",
              .identity = 0x2340,
              .calibration = {kClock, kVoltage},
              .calibration_words = 2},
    PartFacts{.name = "PIC16F1936",
              .identity = 0x2360,
              .calibration = {kClock, kVoltage},
              .calibration_words = 2},
    PartFacts{.name = "PIC16F1937",
              .identity = 0x2380,
              .calibration = {kClock, kVoltage},
              .calibration_words = 2},
    PartFacts{.name = "PIC16F1938",
              .identity = 0x23A0,
              .calibration = {kClock, kVoltage},
              .calibration_words = 2},
    PartFacts{.name = "PIC16F1939",
              .identity = 0x23C0,
              .calibration = {kClock, kVoltage},
              .calibration_words = 2},
    PartFacts{
        .name = "PIC16F610", .identity = 0x2260, .calibration = {kClock}, .calibration_words = 1},
    PartFacts{
        .name = "PIC16F616", .identity = 0x1240, .calibration = {kClock}, .calibration_words = 1},
    PartFacts{.name = "PIC16F627", .identity = 0x07A0},
    PartFacts{.name = "PIC16F627A", .identity = 0x1040},
    PartFacts{.name = "PIC16F628", .identity = 0x07C0},
    PartFacts{.name = "PIC16F628A", .identity = 0x1060},
    PartFacts{
        .name = "PIC16F630", .identity = 0x10C0, .osccal_opcode = kRetlw, .bandgap = kBandgap},
    PartFacts{
        .name = "PIC16F631", .identity = 0x1420, .calibration = {kClock}, .calibration_words = 1},
    PartFacts{.name = "PIC16F636",
              .identity = 0x10A0,
              .calibration = {kClock, kVoltage},
              .calibration_words = 2},
    PartFacts{.name = "PIC16F639",
              .identity = 0x10A0,
              .calibration = {kClock, kVoltage},
              .calibration_words = 2},
    PartFacts{.name = "PIC16F648A", .identity = 0x1100},
    PartFacts{
        .name = "PIC16F676", .identity = 0x10E0, .osccal_opcode = kRetlw, .bandgap = kBandgap},
    PartFacts{
        .name = "PIC16F677", .identity = 0x1440, .calibration = {kClock}, .calibration_words = 1},
    PartFacts{
        .name = "PIC16F684", .identity = 0x1080, .calibration = {kClock}, .calibration_words = 1},
    PartFacts{
        .name = "PIC16F685", .identity = 0x04A0, .calibration = {kClock}, .calibration_words = 1},
    PartFacts{
        .name = "PIC16F687", .identity = 0x1320, .calibration = {kClock}, .calibration_words = 1},
    PartFacts{
        .name = "PIC16F688", .identity = 0x1180, .calibration = {kClock}, .calibration_words = 1},
    PartFacts{
        .name = "PIC16F689", .identity = 0x1340, .calibration = {kClock}, .calibration_words = 1},
    PartFacts{
        .name = "PIC16F690", .identity = 0x1400, .calibration = {kClock}, .calibration_words = 1},
    PartFacts{.name = "PIC16F716", .identity = 0x1140},
    PartFacts{.name = "PIC16F73", .identity = 0x0600, .chip_erase_only = true},
    PartFacts{.name = "PIC16F737", .identity = 0x0BA0},
    PartFacts{.name = "PIC16F74", .identity = 0x0620, .chip_erase_only = true},
    PartFacts{.name = "PIC16F747", .identity = 0x0BE0},
    PartFacts{.name = "PIC16F76", .identity = 0x0640, .chip_erase_only = true},
    PartFacts{.name = "PIC16F767", .identity = 0x0EA0},
    PartFacts{.name = "PIC16F77", .identity = 0x0660, .chip_erase_only = true},
    PartFacts{.name = "PIC16F777", .identity = 0x0DE0},
    PartFacts{.name = "PIC16F785",
              .identity = 0x1200,
              .calibration = {kClock, kVoltage},
              .calibration_words = 2},
    PartFacts{.name = "PIC16F818", .identity = 0x04C0},
    PartFacts{.name = "PIC16F819", .identity = 0x04E0},
    PartFacts{.name = "PIC16F84A", .identity = 0x0560},
    PartFacts{.name = "PIC16F87", .identity = 0x0720},
    PartFacts{.name = "PIC16F870", .identity = 0x0D00},
    PartFacts{.name = "PIC16F871", .identity = 0x0D20},
    PartFacts{.name = "PIC16F872", .identity = 0x08E0},
    PartFacts{.name = "PIC16F873", .identity = 0x0960},
    PartFacts{.name = "PIC16F873A", .identity = 0x0E40},
    PartFacts{.name = "PIC16F874", .identity = 0x0920},
    PartFacts{.name = "PIC16F874A", .identity = 0x0E60},
    PartFacts{.name = "PIC16F876", .identity = 0x09E0},
    PartFacts{.name = "PIC16F876A", .identity = 0x0E00},
    PartFacts{.name = "PIC16F877", .identity = 0x09A0},
    PartFacts{.name = "PIC16F877A", .identity = 0x0E20},
    PartFacts{.name = "PIC16F88", .identity = 0x0760},
    PartFacts{
        .name = "PIC16F882", .identity = 0x2000, .calibration = {kClock}, .calibration_words = 1},
    PartFacts{
        .name = "PIC16F883", .identity = 0x2020, .calibration = {kClock}, .calibration_words = 1},
    PartFacts{
        .name = "PIC16F884", .identity = 0x2040, .calibration = {kClock}, .calibration_words = 1},
    PartFacts{
        .name = "PIC16F886", .identity = 0x2060, .calibration = {kClock}, .calibration_words = 1},
    PartFacts{
        .name = "PIC16F887", .identity = 0x2080, .calibration = {kClock}, .calibration_words = 1},
    PartFacts{.name = "PIC16F913",
              .identity = 0x13E0,
              .calibration = {kClock, kVoltage},
              .calibration_words = 2},
    PartFacts{.name = "PIC16F914",
              .identity = 0x13C0,
              .calibration = {kClock, kVoltage},
              .calibration_words = 2},
    PartFacts{.name = "PIC16F916",
              .identity = 0x13A0,
              .calibration = {kClock, kVoltage},
              .calibration_words = 2},
    PartFacts{.name = "PIC16F917",
              .identity = 0x1380,
              .calibration = {kClock, kVoltage},
              .calibration_words = 2},
    PartFacts{.name = "PIC16F946",
              .identity = 0x1460,
              .calibration = {kClock, kVoltage},
              .calibration_words = 2},
    PartFacts{
        .name = "PIC16HV610", .identity = 0x22A0, .calibration = {kClock}, .calibration_words = 1},
    PartFacts{
        .name = "PIC16HV616", .identity = 0x1260, .calibration = {kClock}, .calibration_words = 1},
    PartFacts{.name = "PIC16HV785",
              .identity = 0x1220,
              .calibration = {kClock, kVoltage},
              .calibration_words = 2},
    PartFacts{.name = "PIC16LF1823",
              .identity = 0x2820,
              .calibration = {kClock, kVoltage},
              .calibration_words = 2},
    PartFacts{.name = "PIC16LF1824",
              .identity = 0x2840,
              .calibration = {kClock, kVoltage},
              .calibration_words = 2},
    PartFacts{.name = "PIC16LF1825",
              .identity = 0x2860,
              .calibration = {kClock, kVoltage},
              .calibration_words = 2},
    PartFacts{.name = "PIC16LF1826",
              .identity = 0x2880,
              .calibration = {kClock, kVoltage},
              .calibration_words = 2},
    PartFacts{.name = "PIC16LF1827",
              .identity = 0x28A0,
              .calibration = {kClock, kVoltage},
              .calibration_words = 2},
    PartFacts{.name = "PIC16LF1828",
              .identity = 0x28C0,
              .calibration = {kClock, kVoltage},
              .calibration_words = 2},
    PartFacts{.name = "PIC16LF1829",
              .identity = 0x28E0,
              .calibration = {kClock, kVoltage},
              .calibration_words = 2},
    PartFacts{.name = "PIC16LF1933",
              .identity = 0x2400,
              .calibration = {kClock, kVoltage},
              .calibration_words = 2},
    PartFacts{.name = "PIC16LF1934",
              .identity = 0x2440,
              .calibration = {kClock, kVoltage},
              .calibration_words = 2},
    PartFacts{.name = "PIC16LF1936",
              .identity = 0x2460,
              .calibration = {kClock, kVoltage},
              .calibration_words = 2},
    PartFacts{.name = "PIC16LF1937",
              .identity = 0x2480,
              .calibration = {kClock, kVoltage},
              .calibration_words = 2},
    PartFacts{.name = "PIC16LF1938",
              .identity = 0x24A0,
              .calibration = {kClock, kVoltage},
              .calibration_words = 2},
    PartFacts{.name = "PIC16LF1939",
              .identity = 0x24C0,
              .calibration = {kClock, kVoltage},
              .calibration_words = 2},
    PartFacts{.name = "ZQ-LDR412", .identity = 0x09A0},
    PartFacts{.name = "ZQ-LDR412A", .identity = 0x0E20},
    PartFacts{
        .name = "ZQ-LDR418", .identity = 0x2080, .calibration = {kClock}, .calibration_words = 1},
};
static_assert(std::ranges::is_sorted(kParts, {}, &PartFacts::name));

}  // namespace

PartFacts part_facts(std::string_view name) {
    const auto found = std::ranges::lower_bound(kParts, name, {}, &PartFacts::name);
    if (found != kParts.end() && found->name == name) return *found;
    return PartFacts{.name = name};
}

}  // namespace quillon
