// SPDX-License-Identifier: MIT
// The text of a settings file: sections, keys and values, all of them plain texts.
//
// The form is the one of QSettings' INI files, which earlier versions have written: values may be
// quoted, with the escapes of C. QSettings itself takes a value that begins with "@" for data of
// its own kinds and decodes it, which a text from a file must not bring about: here a value is
// never anything but a text. Bytes that aren't UTF-8 stay as they are.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

class IniText {
  public:
    // Reads as far as a line makes sense; any other line is left out.
    explicit IniText(std::string_view text = "");

    // True where a line made no sense, or where the text holds a NUL.
    bool damaged() const { return damaged_; }
    // The last one counts.
    std::optional<std::string> value(std::string_view section, std::string_view key) const;
    // Comments and the order of lines stay. A new key goes to the end of its section.
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
