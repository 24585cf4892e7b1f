// SPDX-License-Identifier: MIT
#include "catalogue/line_reader.h"

#include "app/text.h"

namespace quillon {

namespace {

constexpr std::string_view kTabBlanks = "        ";  // 8 blanks

constexpr bool ends_line(char c) { return c == '\r' || c == '\n'; }

}  // namespace

std::string ExpandTabs(std::string_view text) {
    return replace_all(std::string{text}, "\t", kTabBlanks);
}

void LineTokens::split(std::string_view line) {
    count_ = 0;
    too_many_ = false;
    std::size_t at = 0;
    while (true) {
        while (at < line.size() && line[at] == ' ') ++at;
        if (at == line.size()) return;
        if (count_ == kMost) {
            too_many_ = true;
            return;
        }
        const std::size_t first = at;
        while (at < line.size() && line[at] != ' ') ++at;
        tokens_[count_++] = line.substr(first, at - first);
    }
}

LineTokens SplitLine(std::string_view line) {
    LineTokens tokens;
    tokens.split(line);
    return tokens;
}

bool LineReader::next() {
    if (at_ >= text_.size()) return false;
    line_ = next_line_;
    while (at_ < text_.size() && text_[at_] == ' ') ++at_;
    if (at_ < text_.size() && text_[at_] == '"')
        take_quoted();
    else
        take_plain();
    if (item_.find('\t') == std::string_view::npos) {
        tokens_.split(item_);
    } else {
        expanded_ = ExpandTabs(item_);
        tokens_.split(expanded_);
    }
    return true;
}

std::size_t LineReader::line_end(std::size_t from) const {
    while (from < text_.size() && !ends_line(text_[from])) ++from;
    return from;
}

void LineReader::take_plain() {
    const std::size_t first = at_;
    while (at_ < text_.size() && text_[at_] != ',' && !ends_line(text_[at_])) ++at_;
    item_ = text_.substr(first, at_ - first);
    take_separator();
}

void LineReader::take_quoted() {
    const std::size_t first = at_ + 1;
    const std::size_t end = line_end(first);
    const std::string_view rest = text_.substr(first, end - first);
    const std::size_t quote = rest.find('"');
    item_ = rest.substr(0, quote);
    at_ = quote == std::string_view::npos ? end : first + quote + 1;
    while (at_ < end && text_[at_] == ' ') ++at_;
    take_separator();
}

// Text directly behind a closing quote, with no comma between, is the next item.
void LineReader::take_separator() {
    if (at_ >= text_.size()) return;
    if (text_[at_] == ',') {
        ++at_;
    } else if (ends_line(text_[at_])) {
        const bool pair = text_[at_] == '\r' && at_ + 1 < text_.size() && text_[at_ + 1] == '\n';
        at_ += pair ? 2 : 1;
        ++next_line_;
    }
}

}  // namespace quillon
