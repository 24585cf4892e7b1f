// SPDX-License-Identifier: MIT
// Assembles a program and opens it for its device, with the shipped catalogue.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "app/text.h"
#include "files/files_bench.h"
#include "image/fill.h"
#include "programs/assembled.h"

namespace quillon::test {

struct ProgramBench : FilesBench {
    ProgramBench(std::string_view name, std::string_view device) : FilesBench{""} {
        session.CatalogueFile = QUILLON_CATALOGUE;
        catalogue.LoadDeviceList();
        selected = form.Combo_device.select(device);
        assembled = assemble(name, folder.path(), is_pic18_flash(session.PgmType));
    }

    Token open_program() {
        shown.clear();
        return files.mnuFileOpen_Click(assembled.hex);
    }
    // The messages since the load began.
    std::vector<std::string> told() const {
        return {std::ranges::find(shown, "ファイルロード中.........."), shown.end()};
    }
    std::size_t program_bytes() const { return program_span(session); }
    // Takes the byte address in a file, which has a word's low byte first. The image has the high
    // byte first.
    std::uint8_t program_byte(std::size_t address) const { return session.PgmMem[address ^ 1U]; }
    std::string blank_word() const {
        if (is_pic18_flash(session.PgmType)) return "FFFF";
        return is_12bit(session.PgmType) ? "0FFF" : "3FFF";
    }
    std::string program_word(std::size_t address) const {
        return hex_bytes(std::span{session.PgmMem}.subspan(address, 2));
    }

    bool selected = false;
    Assembled assembled;
};

// Each program word must be the listing's, or blank where the listing has none.
inline void expect_program_of_listing(const ProgramBench& bench) {
    const auto& listing = bench.assembled.listing;
    std::size_t words = 0;
    for (std::size_t at = 0; at < bench.program_bytes(); at += 2) {
        const auto low = listing.find(static_cast<std::uint32_t>(at));
        const auto high = listing.find(static_cast<std::uint32_t>(at + 1));
        if (low == listing.end()) {
            ASSERT_EQ(bench.program_word(at), bench.blank_word()) << "at byte " << at;
            continue;
        }
        ++words;
        const std::array pair{high->second, low->second};
        ASSERT_EQ(bench.program_word(at), hex_bytes(pair)) << "at byte " << at;
    }
    EXPECT_GT(words, 20U) << "the listing was not read";
}

// The parts of an image that a file holds, as text.
struct Content {
    explicit Content(const ProgramBench& bench)
        : program{hex_bytes(std::span{bench.session.PgmMem}.first(bench.program_bytes()))},
          eeprom{hex_bytes(bench.session.EepMem)},
          area{hex_bytes(std::span{bench.session.CfgIdMem}.first(32))},
          id{hex_bytes(bench.session.IdBytes18)},
          words{bench.session.ConfigWord} {}

    void expect(const Content& wanted) const {
        EXPECT_TRUE(program == wanted.program);
        EXPECT_TRUE(eeprom == wanted.eeprom);
        EXPECT_EQ(area, wanted.area);
        EXPECT_EQ(id, wanted.id);
        EXPECT_EQ(words, wanted.words);
    }

    std::string program, eeprom, area, id;
    PerConfigWord words;
};

}  // namespace quillon::test
