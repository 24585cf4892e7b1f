// SPDX-License-Identifier: MIT
// The arrows between the folders of src/: a folder includes only what it links, and none runs up.
#include "structure/includes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>

namespace quillon::test {
namespace {

using Places = std::vector<std::string>;

LinkLines lines_of(std::string_view text) {
    std::istringstream stream{std::string{text}};
    return read_link_lines(stream);
}

const LinkLines& link_lines() {
    static const LinkLines lines = [] {
        std::ifstream file{QUILLON_LINK_LINES};
        return read_link_lines(file);
    }();
    return lines;
}

const std::vector<Include>& all_includes() {
    static const std::vector<Include> includes = includes_below(QUILLON_SOURCES);
    return includes;
}

// The includes for which `rule` is true, as "hex/hex_check.cpp:12 includes forms/binders.h".
template <class Rule>
Places those(Rule&& rule) {
    Places found;
    for (const auto& include : all_includes())
        if (rule(include)) found.push_back(include.place + " includes " + include.header);
    return found;
}

TEST(includes_of, gives_place_folder_and_header) {
    std::istringstream source{"// x\n#include \"app/text.h\"\n#include <QLabel>\n#include \"cut"};
    const auto found = includes_of(source, "hex/a.cpp");

    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].place, "hex/a.cpp:2");
    EXPECT_EQ(found[0].folder, "hex");
    EXPECT_EQ(found[0].header, "app/text.h");
    EXPECT_FALSE(found[0].angled);
    EXPECT_EQ(found[1].header, "QLabel");
    EXPECT_TRUE(found[1].angled);
}

TEST(may_include, follows_the_link_lines_downward_only) {
    const auto lines =
        lines_of("quillon_app:\nquillon_image: quillon_app\nquillon_hex: quillon_image fmt::fmt\n");
    EXPECT_TRUE(may_include("hex", "hex/hex_check.h", lines));
    EXPECT_TRUE(may_include("hex", "image/fill.h", lines));
    EXPECT_TRUE(may_include("hex", "app/text.h", lines));
    EXPECT_FALSE(may_include("app", "image/fill.h", lines));
    EXPECT_FALSE(may_include("image", "hex/hex_check.h", lines));
    EXPECT_FALSE(may_include("hex", "unknown/a.h", lines));
}

TEST(may_include, opens_the_serial_port_alone_to_what_links_no_more_of_the_link) {
    const auto lines = lines_of("quillon_board: quillon_serial_port\n");
    EXPECT_TRUE(may_include("board", "link/serial_port.h", lines));
    EXPECT_FALSE(may_include("board", "link/exchange.h", lines));
}

TEST(reached_from, holds_the_library_itself_in_a_circle_only) {
    EXPECT_TRUE(reached_from("a", lines_of("a: b\nb: c\nc: a\n")).contains("a"));
    EXPECT_FALSE(reached_from("a", lines_of("a: b c\nb: c\n")).contains("a"));
}

TEST(folders, include_only_what_their_link_lines_reach) {
    EXPECT_EQ(those([](const Include& include) {
                  return !include.angled &&
                         !may_include(include.folder, include.header, link_lines());
              }),
              Places{});
}

TEST(folders, have_each_a_library_and_includes_that_were_found) {
    for (const auto& entry : std::filesystem::directory_iterator{QUILLON_SOURCES}) {
        const auto folder = entry.path().filename().string();
        EXPECT_TRUE(link_lines().contains("quillon_" + folder)) << folder;
        EXPECT_TRUE(std::ranges::any_of(all_includes(), [&](const Include& include) {
            return include.folder == folder && !include.angled;
        })) << folder;
    }
}

TEST(folders, have_no_link_line_that_leads_back) {
    for (const auto& [library, links] : link_lines())
        EXPECT_FALSE(reached_from(library, link_lines()).contains(library)) << library;
}

TEST(folders, know_Qt_only_where_the_machine_or_the_user_is_met) {
    const std::set<std::string> with_Qt{"platform", "forms", "cli"};
    EXPECT_EQ(those([&](const Include& include) {
                  return include.header.starts_with('Q') && !with_Qt.contains(include.folder);
              }),
              Places{});
    for (const auto& [library, links] : link_lines()) {
        if (with_Qt.contains(library.substr(library.find('_') + 1))) continue;
        for (const auto& linked : reached_from(library, link_lines()))
            EXPECT_FALSE(linked.starts_with("Qt6::")) << library << " links " << linked;
    }
}

TEST(the_board, shares_nothing_with_the_host_but_the_serial_port) {
    EXPECT_EQ(those([](const Include& include) {
                  const auto folder = include.header.substr(0, include.header.find('/'));
                  return include.folder == "board" && !include.angled && folder != "board" &&
                         folder != "app" && include.header != "link/serial_port.h";
              }),
              Places{});
    EXPECT_FALSE(reached_from("quillon_board", link_lines()).contains("quillon_link"));
}

}  // namespace
}  // namespace quillon::test
