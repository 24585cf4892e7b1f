// SPDX-License-Identifier: MIT
// Reads device6.ini item by item, as every pass over it does.
//
// An item ends at a line end or at a comma, so a comma splits a line in two. Leading blanks are
// dropped, and a double-quoted item loses its quotes; commas inside the quotes don't split. A quote
// that isn't closed ends at its line's end, so that it costs one line and not the rest of the file.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace quillon {

// Every TAB becomes eight blanks, wherever it is.
std::string ExpandTabs(std::string_view text);

// The blank-separated tokens of a line, views into it. Reading beyond the last gives "".
class LineTokens {
  public:
    static constexpr std::size_t kMost = 65;

    std::string_view operator[](std::size_t i) const {
        return i < count_ ? tokens_[i] : std::string_view{};
    }
    std::size_t count() const { return count_; }
    // The line held more than kMost; the first kMost are here.
    bool too_many() const { return too_many_; }

    // Takes the tokens of another line. The places behind them aren't cleared, as most lines have
    // few tokens.
    void split(std::string_view line);

  private:
    std::array<std::string_view, kMost> tokens_{};
    std::size_t count_ = 0;
    bool too_many_ = false;
};

// Cuts a line at its blanks; a run of them counts as one. Full-width blanks don't cut.
LineTokens SplitLine(std::string_view line);

class LineReader {
  public:
    // The text, UTF-8, must outlive the reader.
    explicit LineReader(std::string_view text) : text_{text} {}

    // Goes to the next item; false at the end of the file.
    bool next();

    const LineTokens& tokens() const { return tokens_; }
    std::string_view item() const { return item_; }
    int line_number() const { return line_; }  // of the physical line, from 1

  private:
    std::size_t line_end(std::size_t from) const;
    void take_plain();
    void take_quoted();
    void take_separator();

    std::string_view text_;
    std::size_t at_ = 0;
    int line_ = 0;
    int next_line_ = 1;
    std::string_view item_;
    std::string expanded_;
    LineTokens tokens_;
};

}  // namespace quillon
