// SPDX-License-Identifier: MIT
#include "catalogue/device_block.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "app/text.h"
#include "catalogue/catalogue_texts.h"

namespace quillon {

namespace {

// True for a token as long as "0B" and eight digits, followed by one as long as eight digits.
bool is_pair(const CatRow& row, std::size_t column) {
    return row[column].size() == 10 && row[column + 1].size() == 8;
}

// `pairs` pairs from `first` on become one column each; `behind` columns move up after them.
void join(CatRow& row, std::size_t first, std::size_t pairs, std::size_t behind) {
    for (std::size_t pair = 0; pair < pairs; ++pair)
        if (!is_pair(row, first + 2 * pair)) return;
    std::size_t to = first;
    std::size_t from = first;
    for (std::size_t pair = 0; pair < pairs; ++pair, from += 2)
        row[to++] = row[from] + row[from + 1];
    for (std::size_t i = 0; i < behind; ++i) row[to++] = std::exchange(row[from++], "");
    while (to < from) row[to++].clear();
}

}  // namespace

void join_binary_pairs(CatRow& row) {
    const std::string key = upper(row[0]);
    if (key.starts_with("CFG")) join(row, 3, 2, 0);
    if (key.starts_with("CONFIG")) join(row, 1, 3, 1);
    if (key.starts_with("CP_MASK_CF5")) join(row, 1, 1, 0);
}

DeviceBlock ReadDeviceBlock(LineReader& reader) {
    DeviceBlock block;
    while (reader.next()) {
        const LineTokens& tokens = reader.tokens();
        if (tokens[0].empty() || tokens[0].starts_with(';')) continue;
        if (tokens[0] == "#END") return block;
        if (tokens[0] == "#BEGIN") {
            block.error = catalogue_text::kBlockNotEnded;
            return block;
        }
        if (block.rows.size() == DeviceBlock::kMostRows) {
            block.error = fmt::format(catalogue_text::kTooManyRows, reader.line_number());
            return block;
        }
        CatRow row;
        for (std::size_t i = 0; i < row.size(); ++i) row[i] = tokens[i];
        join_binary_pairs(row);
        block.rows.push_back(std::move(row));
        block.sources.push_back({reader.line_number(), reader.item(), tokens.too_many()});
    }
    block.error = catalogue_text::kEndOfFile;
    return block;
}

}  // namespace quillon
