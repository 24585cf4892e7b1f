// SPDX-License-Identifier: MIT
// Shared by the fuzz targets of the HEX reader: the choice of a device and the checks of a load.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string_view>
#include <vector>

#include "app/session.h"
#include "hex/hex_check.h"
#include "hex/hex_items.h"
#include "hex/hex_writer.h"
#include "image/fill.h"

namespace quillon::fuzz {

struct Device {
    std::string_view PgmType;
    std::string_view DeviceName;
    std::int32_t words;
    std::int32_t cells;
    HexAddresses addresses = HexAddresses::Folded;
};

inline void require(bool holds) {
    if (!holds) std::abort();
}

inline void choose(Session& session, const Device& device) {
    session.PgmType = device.PgmType;
    session.DeviceName = device.DeviceName;
    session.PgmWords = session.PgmWordsCat = device.words;
    session.EepBytes = session.EepBytesCat = device.cells;
    session.WriteBufBytes = 32;
    session.ConfigMask.fill(0x3FFF);
    FillProgramOnes(session);
    FillEepromOnes(session);
    FillIdOnes(session);
}

// The file check must not count more than the text can hold, nor name a line after its end.
inline void check_findings(std::string_view text, const Session& session, HexAddresses addresses) {
    const auto found = check_hex(text, session, addresses);
    const auto lines = 1 + static_cast<std::size_t>(std::ranges::count(text, '\n') +
                                                    std::ranges::count(text, '\r'));
    std::size_t count = 0;
    for (const auto& findings :
         {found.bad_sums, found.outside, found.outside_id, found.contradicting, found.folded,
          found.segments, found.behind_end}) {
        count += findings.count;
        require(findings.count <= text.size());
        require((findings.count == 0) == (findings.first_line == 0));
        require(findings.first_line <= lines);
    }
    require(describe(found).empty() == (count == 0 && !found.no_end));
}

// Program and EEPROM data as a saved file holds them. A PIC18's cell is one byte. Other parts have
// two bytes a cell, of which the second holds the data.
struct Content {
    explicit Content(const Session& session) {
        const std::size_t step = is_pic18_flash(session.PgmType) ? 1 : 2;
        const auto program_bytes = static_cast<std::ptrdiff_t>(program_span(session));
        program.assign(session.PgmMem.begin(), session.PgmMem.begin() + program_bytes);
        // A record at an odd address may set parity bits that a saved word doesn't have.
        if (session.PgmType == ProgrammingType::EPROM2)
            for (std::size_t i = 0; i < program.size(); i += 2) program[i] &= 0x3F;
        for (std::int32_t cell = 1; cell <= session.EepBytes; ++cell)
            eeprom.push_back(session.EepMem[step * static_cast<std::size_t>(cell) - 1]);
    }
    std::vector<std::uint8_t> program;
    std::vector<std::uint8_t> eeprom;
    bool operator==(const Content&) const = default;
};

}  // namespace quillon::fuzz
