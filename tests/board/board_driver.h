// SPDX-License-Identifier: MIT
// A host that sends single bytes in virtual time and shows the answers as text.
#pragma once

#include <fmt/core.h>

#include <chrono>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "board/board.h"
#include "board/target_facts.h"

namespace quillon::test {

using namespace std::chrono_literals;

// PIC16F877A as the catalogue has it.
inline TargetFacts facts_16f877a() {
    TargetFacts facts;
    facts.name = "PIC16F877A";
    facts.type = "FLASH8";
    facts.program_words = 8192;
    facts.eeprom_cells = 256;
    facts.config_present[0] = true;
    facts.config_default[0] = 0x3FFF;
    facts.config_mask[0] = 0x3FFF;
    facts.config_force[0] = 0x1030;
    facts.protect_mask = 0x2000;
    return facts;
}

inline TargetFacts facts_10f200() {
    TargetFacts facts;
    facts.name = "PIC10F200";
    facts.type = "10F2";
    facts.program_words = 256;
    facts.config_present[0] = true;
    facts.config_default[0] = 0x0FFF;
    facts.config_mask[0] = 0x0FFF;
    facts.config_force[0] = 0x0FE3;
    facts.protect_mask = 0x0008;
    return facts;
}

inline TargetFacts facts_18f2550() {
    TargetFacts facts;
    facts.name = "PIC18F2550";
    facts.type = "18F_01";
    facts.program_words = 16384;
    facts.eeprom_cells = 256;
    facts.config_present.fill(true);
    facts.config_default = {0x0500, 0x1F1F, 0x8300, 0x0085, 0xC00F, 0xE00F, 0x400F};
    facts.config_mask = {0xCF3F, 0x1F3F, 0x8700, 0x00E5, 0xC00F, 0xE00F, 0x400F};
    facts.protect_mask = 0xC00F;
    facts.identity18 = 0x1240;
    facts.erase_chip = {0x0C, 0x3F, 0x3F, 0x0C, 0x8F, 0x8F};
    facts.erase_eeprom = {0x0C, 0x00, 0x00, 0x0C, 0x84, 0x84};
    facts.erase_block[0] = {0x0C, 0x00, 0x00, 0x0C, 0x81, 0x81};
    facts.erase_block[1] = {0x0C, 0x01, 0x01, 0x0C, 0x80, 0x80};
    facts.erase_block[2] = {0x0C, 0x02, 0x02, 0x0C, 0x80, 0x80};
    facts.erase_block[3] = {0x0C, 0x04, 0x04, 0x0C, 0x80, 0x80};
    facts.erase_block[4] = {0x0C, 0x08, 0x08, 0x0C, 0x80, 0x80};
    return facts;
}

struct Driver {
    explicit Driver(const TargetFacts& facts, BoardTimes times = BoardTimes::none())
        : board{blank_target(facts), times} {}

    void send(std::uint8_t byte) { board.receive(byte, now); }
    // Waits 1 ms after each letter and each parameter.
    void command(std::string_view letters, std::initializer_list<int> parameters = {}) {
        for (const char c : letters) paced(static_cast<std::uint8_t>(c));
        for (const int byte : parameters) paced(static_cast<std::uint8_t>(byte));
    }
    void paced(std::uint8_t byte) {
        send(byte);
        now += 1ms;
    }
    // An item of a write, in one piece.
    void item(std::initializer_list<int> bytes) {
        for (const int byte : bytes) send(static_cast<std::uint8_t>(byte));
    }
    void wait(Host::Time time) { now += time; }

    std::vector<std::uint8_t> bytes() {
        board.run_until(now);
        std::vector<std::uint8_t> all;
        for (const auto& sent : board.take_sent(now)) all.push_back(sent.value);
        return all;
    }
    // The bytes since the last call, "3F FF 40".
    std::string reply() {
        std::string text;
        for (const auto byte : bytes())
            text += fmt::format("{}{:02X}", text.empty() ? "" : " ", byte);
        return text;
    }
    // Takes a read of `size` bytes, the end code included, and acknowledges its blocks.
    std::vector<std::uint8_t> stream(std::size_t size) {
        std::vector<std::uint8_t> all;
        while (all.size() < size) {
            const auto block = bytes();
            if (block.empty()) return all;
            all.insert(all.end(), block.begin(), block.end());
            if (all.size() % 16 != 0) continue;
            now += 1ms;
            send('@');
        }
        return all;
    }

    SimulatedBoard board;
    Host::Time now = 1s;
};

}  // namespace quillon::test
