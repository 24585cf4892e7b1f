// SPDX-License-Identifier: MIT
#include "structure/includes.h"

#include <fstream>
#include <sstream>

namespace quillon::test {
namespace {

constexpr std::string_view kDirective = "#include ";

std::string folder_of(std::string_view path) { return std::string{path.substr(0, path.find('/'))}; }

std::string library_of(std::string_view folder) { return "quillon_" + std::string{folder}; }

void reach(const std::string& library, const LinkLines& lines, std::set<std::string>& reached) {
    const auto line = lines.find(library);
    if (line == lines.end()) return;
    for (const auto& linked : line->second)
        if (reached.insert(linked).second) reach(linked, lines, reached);
}

}  // namespace

std::vector<Include> includes_of(std::istream& source, const std::string& file) {
    std::vector<Include> includes;
    std::string line;
    for (int number = 1; std::getline(source, line); ++number) {
        if (!line.starts_with(kDirective)) continue;
        const auto named = std::string_view{line}.substr(kDirective.size());
        const bool angled = named.starts_with('<');
        const auto end = named.find(angled ? '>' : '"', 1);
        if (end == std::string_view::npos) continue;
        includes.push_back({file + ":" + std::to_string(number), folder_of(file),
                            std::string{named.substr(1, end - 1)}, angled});
    }
    return includes;
}

std::vector<Include> includes_below(const std::filesystem::path& sources) {
    std::vector<Include> all;
    for (const auto& entry : std::filesystem::recursive_directory_iterator{sources}) {
        const auto extension = entry.path().extension();
        if (extension != ".h" && extension != ".cpp") continue;
        std::ifstream source{entry.path()};
        const auto file = entry.path().lexically_relative(sources).generic_string();
        for (auto& include : includes_of(source, file)) all.push_back(std::move(include));
    }
    return all;
}

LinkLines read_link_lines(std::istream& text) {
    LinkLines lines;
    std::string line;
    while (std::getline(text, line)) {
        std::istringstream words{line};
        std::string library, linked;
        if (!(words >> library)) continue;
        library.pop_back();  // the colon
        auto& links = lines[library];
        while (words >> linked) links.insert(linked);
    }
    return lines;
}

std::set<std::string> reached_from(const std::string& library, const LinkLines& lines) {
    std::set<std::string> reached;
    reach(library, lines, reached);
    return reached;
}

bool may_include(std::string_view folder, std::string_view header, const LinkLines& lines) {
    const auto target = folder_of(header);
    if (target == folder) return true;
    const auto reached = reached_from(library_of(folder), lines);
    if (reached.contains(library_of(target))) return true;
    return header == "link/serial_port.h" && reached.contains("quillon_serial_port");
}

}  // namespace quillon::test
