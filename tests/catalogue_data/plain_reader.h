// SPDX-License-Identifier: MIT
// A plain reader of the device catalogue, for the tests of data/device6.ini.
//
// It is strict where the product is lenient: what the product skips, guesses or reads as -1 is a
// problem here. It shares no code with the product's parser, so that a mistake in the parser can't
// hide a mistake in the file.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace catalogue_data {

struct Row {
    int line = 0;                     // counted from 1
    std::vector<std::string> tokens;  // tokens[0] is the key
};

struct Option {
    std::string name;
    std::uint32_t mask = 0;
    std::uint32_t value = 0;
    bool operator==(const Option&) const = default;
};

struct Field {
    std::string name;
    std::vector<Option> options;  // in the order of the file
    bool operator==(const Field&) const = default;
};

struct Word {
    unsigned n = 0;
    std::uint32_t width = 0;
    std::uint32_t default_value = 0;
    std::uint32_t always_zero = 0;
    std::uint32_t always_one = 0;
    std::vector<Field> fields;
    bool operator==(const Word&) const = default;
};

struct Block {
    std::string name;
    int line = 0;
    std::vector<Row> rows;    // all rows, the configuration ones too
    std::vector<Word> words;  // the configuration rows, joined and converted

    // The only row of that key, or null.
    [[nodiscard]] const Row* row(std::string_view key) const;
};

struct Catalogue {
    std::string bytes;
    std::vector<Row> lines;    // every line that isn't empty, comments and blocks included
    std::vector<Row> outside;  // the lines outside blocks, in order
    std::vector<Block> blocks;
    std::vector<std::string> problems;  // "line 12 PIC16F84: reason"
};

// Takes decimal digits and the prefixes "0B" and "0X". Nothing else converts.
[[nodiscard]] std::optional<std::uint32_t> number(std::string_view text);

// The two binary halves at `at` as one number, or the single token there. Moves `at` past them.
[[nodiscard]] std::optional<std::uint32_t> take_number(const Row& row, std::size_t& at);

[[nodiscard]] Catalogue read_catalogue(const std::string& path);

// The file under test, read once.
[[nodiscard]] const Catalogue& catalogue();

}  // namespace catalogue_data
