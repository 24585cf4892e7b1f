// SPDX-License-Identifier: MIT
// Items and records.
#include "hex/hex_items.h"

#include <fmt/format.h>

#include <algorithm>

namespace quillon {

namespace {

constexpr std::string_view kSeparators = "\r\n,";
constexpr std::string_view kQuoteEnds = "\"\r\n";

// Position of the first separator, or the text's length. Reads each character once, as a load
// spends most of its time here.
std::size_t end_of_item(std::string_view text) {
    const auto is_separator = [](char c) { return c == '\n' || c == '\r' || c == ','; };
    return static_cast<std::size_t>(std::ranges::find_if(text, is_separator) - text.begin());
}

std::optional<unsigned> word_at(std::string_view item, std::size_t position) {
    const auto high = hex_byte_at(item, position);
    const auto low = hex_byte_at(item, position + 2);
    if (!high || !low) return std::nullopt;
    return *high * 256U + *low;
}

}  // namespace

std::string_view HexItems::take(std::size_t length) {
    length = std::min(length, rest_.size());
    const auto taken = rest_.substr(0, length);
    rest_.remove_prefix(length);
    return taken;
}

void HexItems::drop_blanks() {
    rest_.remove_prefix(std::min(rest_.find_first_not_of(" \t"), rest_.size()));
}

void HexItems::drop_separator() {
    const bool stands = !rest_.empty() && kSeparators.find(rest_.front()) != std::string_view::npos;
    line_ended_ = stands && rest_.front() != ',';
    if (stands) take(rest_.starts_with("\r\n") ? 2 : 1);
}

std::optional<std::string_view> HexItems::next() {
    if (rest_.empty()) return std::nullopt;
    if (line_ended_) ++line_;
    drop_blanks();
    if (!rest_.starts_with('"')) {
        const auto item = take(end_of_item(rest_));
        drop_separator();
        return item.substr(0, item.find_last_not_of(' ') + 1);
    }
    take(1);
    const auto item = take(rest_.find_first_of(kQuoteEnds));
    if (rest_.starts_with('"')) take(1);
    drop_blanks();
    drop_separator();
    return item;
}

std::optional<HexRecord> HexRecord::parse(std::string_view item) {
    HexRecord record;
    record.item_ = item;
    const auto type = record.byte(8);
    if (!type) return std::nullopt;
    record.type_ = *type;
    if (!record.is_data()) return record;
    const auto count = record.byte(2);
    const auto address = word_at(item, 4);
    if (!count || !address) return std::nullopt;
    record.count_ = *count;
    record.address_ = *address;
    return record;
}

std::optional<char> HexRecord::character(std::size_t position) const {
    if (position > item_.size()) return std::nullopt;
    return item_[position - 1];
}

bool is_extended_address(std::string_view item) { return item.starts_with(":02000004"); }

bool is_segment_address(std::string_view item) { return item.starts_with(":02000002"); }

std::optional<unsigned> address_value(std::string_view item) { return word_at(item, kHexData); }

void SkippedItems::add(std::size_t item_number) {
    if (numbers_.size() < kListed)
        numbers_.push_back(item_number);
    else
        more_ = true;
}

std::string SkippedItems::list() const {
    return fmt::format("{}{}", fmt::join(numbers_, "、"), more_ ? "、…" : "");
}

}  // namespace quillon
