// SPDX-License-Identifier: MIT
// What the folders of src/ include, and what their link lines let them include.
#pragma once

#include <filesystem>
#include <istream>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::test {

// One include: its file and line ("hex/hex_check.cpp:12"), the file's folder, and the name between
// the quotes or the angle brackets.
struct Include {
    std::string place;
    std::string folder;
    std::string header;
    bool angled = false;
};
std::vector<Include> includes_of(std::istream& source, const std::string& file);
std::vector<Include> includes_below(const std::filesystem::path& sources);

// For each library the names in its link line.
using LinkLines = std::map<std::string, std::set<std::string>>;
LinkLines read_link_lines(std::istream& text);
// All that a library links, directly and through others. The library itself is among them only
// where the lines form a circle.
std::set<std::string> reached_from(const std::string& library, const LinkLines& lines);

// Whether a folder may include a header of ours. The library quillon_serial_port is one header,
// "link/serial_port.h".
bool may_include(std::string_view folder, std::string_view header, const LinkLines& lines);

}  // namespace quillon::test
