// SPDX-License-Identifier: MIT
#include "board/target_facts.h"

#include <algorithm>
#include <string_view>

#include "board/part_facts.h"

namespace quillon {
namespace {

constexpr std::array<std::string_view, 6> kTypes12{"12C5", "10F2", "5F18", "5F28", "5X18", "5X28"};
constexpr std::array<std::string_view, 6> kOneTime{"12C5",   "12C6", "EPROM",
                                                   "EPROM2", "5X18", "5X28"};

// Silicon revision of every simulated part that has an identification word.
constexpr std::uint16_t kRevision = 2;
constexpr std::uint16_t kNoIdentity = 0x3FFF;
// The factory's calibration, the low byte of the OSCCAL instruction.
constexpr std::uint16_t kOsccalValue = 0x74;
constexpr std::uint16_t kBandgapMask = 0x3000;
constexpr std::size_t kBootWords = 1024;

template <std::size_t N>
bool holds(const std::array<std::string_view, N>& list, std::string_view value) {
    return std::ranges::find(list, value) != list.end();
}

Core core_of(std::string_view type) {
    if (type.starts_with("18")) return Core::Pic18;
    return holds(kTypes12, type) ? Core::Bits12 : Core::Bits14;
}

char algorithm_of(const TargetFacts& facts) {
    if (facts.type == "EPROM2") return 'S';
    if (facts.type == "5X18") return 'p';
    if (facts.type == "5X28") return 'l';
    const std::string_view name = facts.name;
    const bool eight = name.starts_with("ZQ-LDR") || name == "PIC16F57" ||
                       std::string_view{facts.type}.starts_with("LDR");
    return eight ? '8' : 's';
}

std::uint16_t blank_word_of(Core core, std::string_view type) {
    if (core == Core::Pic18 || type == "EPROM2") return 0xFFFF;
    return core == Core::Bits12 ? 0x0FFF : 0x3FFF;
}

void add_config(SimulatedTarget& target, const TargetFacts& facts) {
    std::size_t count = facts.config_present.size();
    // PIC18 words have fixed addresses, so all seven are kept. Other parts end at their last word.
    if (target.core != Core::Pic18)
        while (count > 0 && !facts.config_present[count - 1]) --count;
    for (std::size_t i = 0; i < count; ++i) {
        target.config_blank.push_back(facts.config_default[i]);
        target.config_mask.push_back(facts.config_mask[i]);
        target.config_force.push_back(facts.config_force[i]);
    }
    target.config = target.config_blank;
}

void add_erase_code(SimulatedTarget& target, const TargetFacts::EraseWords& words,
                    const EraseCode18& effect) {
    if (words == TargetFacts::EraseWords{}) return;
    target.erase_codes.push_back(effect);
    target.erase_codes.back().code.assign(words.begin(), words.end());
}

void add_erase_codes(SimulatedTarget& target, const TargetFacts& facts) {
    add_erase_code(target, facts.erase_chip,
                   {.erases = Erasure{.program = true, .eeprom = true, .config = true}});
    add_erase_code(target, facts.erase_config, {.erases = Erasure{.config = true}});
    add_erase_code(target, facts.erase_eeprom, {.erases = Erasure{.eeprom = true}});
    add_erase_code(target, facts.erase_block[0], {.to = kBootWords});
    std::size_t blocks = 0;
    while (blocks + 1 < facts.erase_block.size() &&
           facts.erase_block[blocks + 1] != TargetFacts::EraseWords{})
        ++blocks;
    for (std::size_t i = 0; i < blocks; ++i) {
        const std::size_t size = (facts.program_words + blocks - 1) / blocks;
        add_erase_code(target, facts.erase_block[i + 1], {.from = i * size, .to = (i + 1) * size});
    }
}

void add_part_facts(SimulatedTarget& target, const TargetFacts& facts) {
    const PartFacts part = part_facts(facts.name);
    target.chip_erase_only = part.chip_erase_only;
    if (target.core == Core::Pic18)
        target.identity = static_cast<std::uint16_t>(facts.identity18 | kRevision);
    else
        target.identity = part.identity == 0
                              ? kNoIdentity
                              : static_cast<std::uint16_t>(part.identity | kRevision);
    target.calibration.assign(
        part.calibration.begin(),
        part.calibration.begin() + static_cast<std::ptrdiff_t>(part.calibration_words));
    const auto osccal = static_cast<std::uint16_t>(part.osccal_opcode | kOsccalValue);
    if (part.osccal_opcode != 0 && !target.program.empty()) target.program.back() = osccal;
    target.osccal_word = part.osccal_opcode != 0 && target.core == Core::Bits14;
    if (part.bandgap != 0 && !target.config.empty())
        target.config[0] =
            static_cast<std::uint16_t>((target.config[0] & ~kBandgapMask) | part.bandgap);
    if (part.backup_osccal) target.backup_osccal = osccal;
}

}  // namespace

SimulatedTarget blank_target(const TargetFacts& facts) {
    SimulatedTarget target;
    target.name = facts.name;
    target.core = core_of(facts.type);
    target.memory = holds(kOneTime, facts.type) ? ProgramMemory::OneTime : ProgramMemory::Flash;
    target.algorithm = algorithm_of(facts);
    target.blank_word = blank_word_of(target.core, facts.type);
    target.program.assign(facts.program_words, target.blank_word);
    target.eeprom.assign(facts.eeprom_cells, 0xFF);
    if (target.core == Core::Pic18)
        target.id.assign(8, 0xFF);
    else
        target.id.assign(4, target.blank_word);
    target.protect_mask = facts.protect_mask;
    add_config(target, facts);
    add_erase_codes(target, facts);
    add_part_facts(target, facts);
    return target;
}

}  // namespace quillon
