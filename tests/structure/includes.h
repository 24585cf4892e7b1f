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

// One line of a source file: the file and its line ("hex/hex_check.cpp:12"), the folder that the
// file is in, and what is included, as it is between the quotes or the angles.
struct Include {
    std::string place;
    std::string folder;
    std::string header;
    bool angled = false;
};
std::vector<Include> includes_of(std::istream& source, const std::string& file);
std::vector<Include> includes_below(const std::filesystem::path& sources);

// Library by library, what its link line names.
using LinkLines = std::map<std::string, std::set<std::string>>;
LinkLines read_link_lines(std::istream& text);
// All that a library links, through others too. Itself is among them only where the lines form a
// circle.
std::set<std::string> reached_from(const std::string& library, const LinkLines& lines);

// Whether a folder may include a header of ours. quillon_serial_port is the one library that is a
// header only: "link/serial_port.h".
bool may_include(std::string_view folder, std::string_view header, const LinkLines& lines);

}  // namespace quillon::test
