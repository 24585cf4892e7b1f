// SPDX-License-Identifier: MIT
#include "catalogue/config_row.h"

#include <fmt/format.h>

#include <array>
#include <cstdint>

#include "app/text.h"
#include "catalogue/number.h"

namespace quillon {

void ApplyConfigRow(Session& session, MainForm& form, int n, const CatRow& row) {
    std::array<std::uint32_t, 4> values{};
    for (std::size_t i = 0; i < values.size(); ++i) {
        const auto value = parse_number(row[1 + i]);
        if (!value || *value < 0) return;
        values[i] = static_cast<std::uint32_t>(*value);
    }
    const auto [standard, always_zero, always_one, width] = values;
    const std::size_t word = static_cast<std::size_t>(n);
    session.ConfigDefault[word] = session.ConfigWord[word] = standard;
    session.ConfigForce[word] = always_one;
    session.ConfigWidth[word] = width;
    session.ConfigMask[word] = width ^ always_zero;
    if (!session.ConfigFromFile)
        session.ConfigWord[word] = (session.ConfigMask[word] & standard) | always_one;

    const std::uint32_t value = session.ConfigWord[word];
    show_config_heading(session, form, n, "L01_0x");
    session.CfgBytes18[2 * word - 2] = static_cast<std::uint8_t>(value);
    session.CfgBytes18[2 * word - 1] = static_cast<std::uint8_t>(value >> 8);
    if (n != 1) return;
    session.CfgIdMem[14] = static_cast<std::uint8_t>(value >> 8);
    session.CfgIdMem[15] = static_cast<std::uint8_t>(value);
    form.Text_Config1.Text.set(hex(value & 0xFFFF, 4));
}

void show_config_heading(const Session& session, MainForm& form, int n, std::string_view prefix) {
    const std::uint32_t word = session.ConfigWord[static_cast<std::size_t>(n)] & 0xFFFF;
    form.HFGrid(n).set_cell(0, 1, fmt::format("{}{}", prefix, hex(word, 4)));
}

}  // namespace quillon
