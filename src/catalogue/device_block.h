// SPDX-License-Identifier: MIT
// The rows of one device block as ReadDeviceBlock stores them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/line_reader.h"

namespace quillon {

// One row of a device block: column 0 the key. Missing columns are empty.
using CatRow = std::array<std::string, 16>;

// One option of a configuration field.
struct FieldOption {
    int word = 0;  // configuration word, 1 to 7
    std::string name;
    std::string option;
    std::uint32_t mask = 0;   // the field's bits
    std::uint32_t value = 0;  // what they read with this option
};

struct DeviceBlock {
    // Rows 0 to 256 can be stored; processing stops before the last.
    static constexpr std::size_t kMostRows = 257;

    struct Source {
        int line = 0;
        std::string_view text;  // in the file's text
        bool too_many_tokens = false;
    };

    std::vector<CatRow> rows;
    std::vector<Source> sources;  // where each row came from
    std::string error;            // why the block can't be used, "" if it can
};

// Reads on to the "#END".
DeviceBlock ReadDeviceBlock(LineReader& reader);

// Binary values are written as two tokens for legibility, ten characters and eight; where the
// lengths fit, the pairs become one token each and the columns behind them move up.
void join_binary_pairs(CatRow& row);

}  // namespace quillon
