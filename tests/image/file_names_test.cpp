// SPDX-License-Identifier: MIT
// Names that have lost their case still find their file.
#include "image/file_names.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "app/text.h"
#include "support/fakes.h"

namespace quillon {

namespace fs = std::filesystem;

TEST(find_ignoring_case, finds_a_file_whose_whole_path_was_upper_cased) {
    const test::TempFolder folder;
    fs::create_directories(folder / "My Projects" / "Blinker");
    const auto file = folder.write("My Projects/Blinker/main.hex", "x");
    const fs::path shouted = folder.path() / "MY PROJECTS" / "BLINKER" / "MAIN.HEX";
    EXPECT_EQ(find_ignoring_case(shouted), file);
    EXPECT_EQ(find_ignoring_case(path_of(upper(text_of(file)))), file);
}

TEST(find_ignoring_case, takes_the_name_as_it_stands_where_that_exists) {
    const test::TempFolder folder;
    const auto capital = folder.write("A.HEX", "");
    const auto small = folder.write("a.hex", "");
    EXPECT_EQ(find_ignoring_case(capital), capital);
    EXPECT_EQ(find_ignoring_case(small), small);
    EXPECT_EQ(find_ignoring_case(folder / "A.hex"), capital);  // the first by name
}

TEST(find_ignoring_case, keeps_names_that_are_not_ASCII) {
    const test::TempFolder folder;
    const auto file = folder.write("点滅.hex", "");
    EXPECT_EQ(find_ignoring_case(folder / "点滅.HEX"), file);
    EXPECT_EQ(text_of(*find_ignoring_case(folder / "点滅.HEX")),
              text_of(folder.path()) + "/点滅.hex");
}

TEST(find_ignoring_case, finds_folders_too) {
    const test::TempFolder folder;
    fs::create_directory(folder / "Sub");
    EXPECT_EQ(find_ignoring_case(folder / "sub"), folder / "Sub");
    EXPECT_EQ(find_ignoring_case(folder.path() / "sub" / ".." / "SUB"),
              folder.path() / "Sub" / ".." / "Sub");
}

TEST(find_ignoring_case, finds_a_relative_name) {
    const test::TempFolder folder;
    folder.write("Relative.hex", "");
    const fs::path before = fs::current_path();
    fs::current_path(folder.path());
    EXPECT_EQ(find_ignoring_case("RELATIVE.HEX"), fs::path{"Relative.hex"});
    fs::current_path(before);
}

TEST(find_ignoring_case, gives_nothing_where_nothing_is) {
    const test::TempFolder folder;
    folder.write("a.hex", "");
    EXPECT_EQ(find_ignoring_case(folder / "b.hex"), std::nullopt);
    EXPECT_EQ(find_ignoring_case(folder.path() / "nowhere" / "a.hex"), std::nullopt);
    EXPECT_EQ(find_ignoring_case(folder.path() / "a.hex" / "b.hex"), std::nullopt);
    EXPECT_EQ(find_ignoring_case(""), std::nullopt);
}

}  // namespace quillon
