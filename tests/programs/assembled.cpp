// SPDX-License-Identifier: MIT
// A row of the listing has the address in its first 7 columns, up to 15 characters of object code,
// and the number of its source line. Longer object code continues on rows with nothing but code. A
// page header may come between these rows.
#include "programs/assembled.h"

#include <cstdlib>
#include <fstream>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

namespace quillon::test {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kCode = 7;
constexpr std::size_t kSourceLine = 22;

std::optional<std::uint32_t> number(const std::string& digits) {
    if (digits.empty() || digits.find_first_not_of("0123456789ABCDEF") != std::string::npos)
        return std::nullopt;
    return static_cast<std::uint32_t>(std::stoul(digits, nullptr, 16));
}

std::string trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// The words of the code columns. Empty for a row without code, or with single bytes.
std::vector<std::uint32_t> words_of(const std::string& line) {
    std::vector<std::uint32_t> words;
    if (line.size() <= kCode) return words;
    std::istringstream code{line.substr(kCode, kSourceLine - kCode)};
    for (std::string digits; code >> digits;) {
        const auto word = digits.size() == 4 ? number(digits) : std::nullopt;
        if (!word) return {};
        words.push_back(*word);
    }
    return words;
}

FileBytes bytes_of_listing(const fs::path& listing, bool pic18) {
    FileBytes bytes;
    std::ifstream file{listing};
    std::uint32_t at = 0;
    for (std::string line; std::getline(file, line);) {
        const auto address = trimmed(line.substr(0, kCode));
        const bool first = address.size() == (pic18 ? 6U : 4U) && number(address);
        const auto words = words_of(line);
        if (words.empty() || (!first && !address.empty())) continue;
        if (first) at = *number(address) * (pic18 ? 1 : 2);
        for (const auto word : words) {
            bytes[at++] = static_cast<std::uint8_t>(word);
            bytes[at++] = static_cast<std::uint8_t>(word >> 8U);
        }
    }
    return bytes;
}

}  // namespace

Assembled assemble(std::string_view name, const fs::path& folder, bool pic18) {
    const fs::path source = fs::path{QUILLON_PROGRAMS} / (std::string{name} + ".asm");
    const fs::path hex = folder / (std::string{name} + ".hex");
    const auto command = "gpasm -q -o '" + hex.string() + "' '" + source.string() + "'";
    Assembled assembled;
    assembled.ok = std::system(command.c_str()) == 0;
    assembled.hex = hex;
    assembled.listing = bytes_of_listing(fs::path{hex}.replace_extension(".lst"), pic18);
    return assembled;
}

FileBytes bytes_of_hex(const fs::path& path) {
    FileBytes bytes;
    std::ifstream file{path};
    std::uint32_t upper = 0;
    for (std::string line; std::getline(file, line);) {
        std::vector<std::uint8_t> record;
        unsigned sum = 0;
        for (std::size_t at = 1; at + 1 < line.size(); at += 2) {
            record.push_back(
                static_cast<std::uint8_t>(std::stoul(line.substr(at, 2), nullptr, 16)));
            sum += record.back();
        }
        if (line.front() != ':' || record.size() < 5 || record[0] + 5U != record.size() ||
            sum % 0x100 != 0)
            return {};
        if (record[3] == 4) upper = (record[4] * 0x100U + record[5]) * 0x10000U;
        if (record[3] != 0) continue;
        const std::uint32_t address = upper + record[1] * 0x100U + record[2];
        for (std::uint32_t i = 0; i < record[0]; ++i)
            if (!bytes.emplace(address + i, record[4 + i]).second) return {};
    }
    return bytes;
}

}  // namespace quillon::test
