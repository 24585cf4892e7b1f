// SPDX-License-Identifier: MIT
// The text of a settings file: sections, keys and values, all of them plain texts.
//
// The format is that of QSettings' INI files, which earlier versions wrote: a value may be quoted
// and may hold C's escapes. QSettings isn't used, because it decodes a value that begins with "@"
// into objects of other types. A text from a file must not be able to cause that. Here every value
// is a text. Bytes that aren't UTF-8 are kept unchanged.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

class IniText {
  public:
    // Reads every line that it understands and leaves out the others.
    explicit IniText(std::string_view text = "");

    // True if a line wasn't understood, or if the text holds a NUL.
    bool damaged() const { return damaged_; }
    // If a key occurs several times, the last one counts.
    std::optional<std::string> value(std::string_view section, std::string_view key) const;
    // Keeps comments and the order of lines. A new key is added at the end of its section.
    void set(std::string_view section, std::string_view key, std::string_view value);
    std::string text() const;

  private:
    struct Line {
        std::string text;                  // as it is in the file
        std::string section;               // decoded
        std::optional<std::string> key{};  // nothing for a section's head, a comment, a blank line
    };

    void read_line(std::string_view line);
    std::vector<Line>::iterator end_of(std::string_view section);

    std::vector<Line> lines_;
    bool damaged_ = false;
};

}  // namespace quillon
