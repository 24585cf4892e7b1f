// SPDX-License-Identifier: MIT
#include "platform/ini_text.h"

#include <fmt/format.h>

#include <QString>
#include <algorithm>
#include <array>
#include <utility>

#include "app/text.h"

namespace quillon {

namespace {

// C's escapes that write one character as a letter.
constexpr std::array<std::pair<char, char>, 9> kEscapes{{
    {'a', '\a'},
    {'b', '\b'},
    {'f', '\f'},
    {'n', '\n'},
    {'r', '\r'},
    {'t', '\t'},
    {'v', '\v'},
    {'"', '"'},
    {'\\', '\\'},
}};

bool is_plain(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' ||
           c == '-' || c == '.';
}

// Names of sections and keys. A character that could be taken for syntax becomes "%" and two
// digits.
std::string encoded_name(std::string_view name) {
    std::string text;
    for (const char c : name)
        text += is_plain(c) ? std::string(1, c) : '%' + hex(static_cast<unsigned char>(c), 2);
    return text;
}

std::string decoded_name(std::string_view text) {
    std::string name;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto high = i + 2 < text.size() ? hex_digit(text[i + 1]) : std::nullopt;
        const auto low = high ? hex_digit(text[i + 2]) : std::nullopt;
        if (text[i] == '%' && low) {
            name += static_cast<char>(*high << 4 | *low);
            i += 2;
        } else {
            name += text[i];
        }
    }
    return name;
}

// Removes the digits at the front and returns their value in 16 bits.
char16_t take_number(std::string_view& text, unsigned base) {
    unsigned value = 0;
    while (!text.empty()) {
        const auto digit = hex_digit(text.front());
        if (!digit || *digit >= base) break;
        value = (value * base + *digit) & 0xFFFF;
        text.remove_prefix(1);
    }
    return static_cast<char16_t>(value);
}

// Decodes one escape; its "\" is removed already. A character beyond 16 bits has two escapes.
std::string take_escape(std::string_view& text) {
    std::u16string units;
    const auto take_unit = [&] {
        const bool hexadecimal = text.front() == 'x';
        if (hexadecimal) text.remove_prefix(1);
        units += take_number(text, hexadecimal ? 16 : 8);
    };
    if (text.empty()) return {};
    const auto* escape = std::ranges::find(kEscapes, text.front(), &std::pair<char, char>::first);
    if (escape != kEscapes.end()) {
        text.remove_prefix(1);
        return {escape->second};
    }
    if (text.front() != 'x' && (text.front() < '0' || text.front() > '7')) return {};
    take_unit();
    if (QChar::isHighSurrogate(units.front()) && text.starts_with("\\x")) {
        text.remove_prefix(1);
        take_unit();
    }
    return QString::fromStdU16String(units).toStdString();
}

// Blanks at both ends count only within quotes. A ";" outside quotes begins a comment.
std::string decoded_value(std::string_view text) {
    std::string value;
    std::size_t kept = 0;  // length without the trailing blanks
    bool quoted = false;
    while (!text.empty()) {
        const char c = text.front();
        text.remove_prefix(1);
        if (c == ';' && !quoted) break;
        if (c == '"') {
            quoted = !quoted;
        } else if (c == '\\') {
            value += take_escape(text);
        } else if (quoted || (c != ' ' && c != '\t')) {
            value += c;
        } else {
            if (!value.empty()) value += c;
            continue;
        }
        kept = value.size();
    }
    value.resize(kept);
    // In the file, a value that begins with "@" has a second one in front.
    return value.starts_with("@@") ? value.substr(1) : value;
}

std::string encoded_value(std::string_view value) {
    constexpr std::string_view kQuoted = ";,=#%[] ";
    std::string text;
    bool after_number = false;  // a digit now would be read as part of the number
    for (const char c : value) {
        const auto* escape = std::ranges::find(kEscapes, c, &std::pair<char, char>::second);
        const bool has_letter = escape != kEscapes.end();
        const auto code = static_cast<unsigned char>(c);
        const bool number = !has_letter && (code < 0x20 || (after_number && hex_digit(c)));
        if (number)
            text += fmt::format("\\x{:x}", code);
        else
            text += has_letter ? std::string{'\\', escape->first} : std::string(1, c);
        after_number = number;
    }
    if (value.starts_with('@')) text = "@" + text;
    return value.find_first_of(kQuoted) == std::string_view::npos ? text : '"' + text + '"';
}

}  // namespace

IniText::IniText(std::string_view text) : damaged_{text.find('\0') != std::string_view::npos} {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
    while (!text.empty()) {
        const auto end = std::min(text.find_first_of("\r\n"), text.size());
        read_line(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

void IniText::read_line(std::string_view line) {
    const std::string trimmed = trim(line);
    const std::string section = lines_.empty() ? "" : lines_.back().section;
    if (trimmed.empty() || trimmed.front() == ';') {
        if (!trimmed.empty()) lines_.push_back({trimmed, section});
        return;
    }
    if (trimmed.front() == '[' && trimmed.back() == ']') {
        lines_.push_back({trimmed, decoded_name(trim(trimmed.substr(1, trimmed.size() - 2)))});
        return;
    }
    const auto equals = trimmed.find('=');
    if (equals == std::string::npos || equals == 0 || trimmed.find('\0') != std::string::npos) {
        damaged_ = true;
        return;
    }
    lines_.push_back({trimmed, section, decoded_name(trim(trimmed.substr(0, equals)))});
}

std::optional<std::string> IniText::value(std::string_view section, std::string_view key) const {
    const auto line = std::find_if(lines_.rbegin(), lines_.rend(), [&](const Line& there) {
        return there.section == section && there.key == key;
    });
    if (line == lines_.rend()) return std::nullopt;
    return decoded_value(std::string_view{line->text}.substr(line->text.find('=') + 1));
}

std::vector<IniText::Line>::iterator IniText::end_of(std::string_view section) {
    const auto of_section = [&](const Line& line) { return line.section == section; };
    return std::find_if(lines_.rbegin(), lines_.rend(), of_section).base();
}

void IniText::set(std::string_view section, std::string_view key, std::string_view value) {
    Line line{fmt::format("{}={}", encoded_name(key), encoded_value(value)), std::string{section},
              std::string{key}};
    const auto same = [&](const Line& there) {
        return there.section == section && there.key == key;
    };
    const auto found = std::find_if(lines_.rbegin(), lines_.rend(), same).base();
    if (found != lines_.begin()) {
        *std::prev(found) = std::move(line);
        return;
    }
    auto end = end_of(section);
    if (end == lines_.begin() && !section.empty()) {
        lines_.push_back({fmt::format("[{}]", encoded_name(section)), std::string{section}});
        end = lines_.end();
    }
    lines_.insert(end, std::move(line));
}

std::string IniText::text() const {
    std::string text;
    for (const auto& line : lines_) {
        if (!text.empty() && line.text.front() == '[') text += '\n';
        text += line.text + '\n';
    }
    return text;
}

}  // namespace quillon
