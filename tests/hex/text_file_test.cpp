// SPDX-License-Identifier: MIT
// Text files are read whole; anything else is recognised and refused.
#include "hex/text_file.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/fakes.h"
#include "support/ordinary_user.h"

namespace quillon {

namespace fs = std::filesystem;

namespace {

// Replaces the real code page and shows the bytes it was given.
struct MarkingHost : test::FakeHost {
    std::string from_code_page(std::string_view bytes) const override {
        return "<932:" + std::to_string(bytes.size()) + ">";
    }
};

using Problem = TextFile::Problem;

}  // namespace

TEST(read_text_file, gives_UTF_8_as_it_stands) {
    const test::TempFolder folder;
    const auto file = read_text_file(folder.write("a.hex", ":00\r\n;日本語\n"), MarkingHost{});
    EXPECT_EQ(file.problem, Problem::None);
    EXPECT_EQ(file.text, ":00\r\n;日本語\n");
}

TEST(read_text_file, reads_anything_else_through_the_code_page) {
    const test::TempFolder folder;
    const auto file = read_text_file(folder.write("a.hex", ";\x93\xFA\n"), MarkingHost{});
    EXPECT_EQ(file.text, "<932:4>");
}

TEST(read_text_file, drops_a_byte_order_mark) {
    const test::TempFolder folder;
    EXPECT_EQ(read_text_file(folder.write("a.hex", "\xEF\xBB\xBF:00"), MarkingHost{}).text, ":00");
}

TEST(read_text_file, gives_an_empty_file_as_an_empty_text) {
    const test::TempFolder folder;
    const auto file = read_text_file(folder.write("a.hex", ""), MarkingHost{});
    EXPECT_EQ(file.problem, Problem::None);
    EXPECT_EQ(file.text, "");
}

TEST(read_text_file, refuses_what_is_missing_a_folder_or_a_pipe) {
    const test::TempFolder folder;
    EXPECT_EQ(read_text_file(folder / "none.hex", MarkingHost{}).problem, Problem::NotReadable);
    EXPECT_EQ(read_text_file(folder.path(), MarkingHost{}).problem, Problem::NotReadable);
    EXPECT_EQ(read_text_file("", MarkingHost{}).problem, Problem::NotReadable);
    EXPECT_EQ(read_text_file("/dev/zero", MarkingHost{}).problem, Problem::NotReadable);
}

TEST(read_text_file, refuses_a_file_that_is_closed_to_the_user) {
    const test::TempFolder folder;
    const auto path = folder.write("a.hex", ":00");
    fs::permissions(folder.path(), fs::perms::all);
    fs::permissions(path, fs::perms::none);
    const test::OrdinaryUser user;
    EXPECT_EQ(read_text_file(path, MarkingHost{}).problem, Problem::NotReadable);
}

TEST(read_text_file, tells_a_binary_by_its_NUL) {
    const test::TempFolder folder;
    const auto path = folder.write("a.hex", std::string_view{":00\0", 4});
    EXPECT_EQ(read_text_file(path, MarkingHost{}).problem, Problem::NotText);
}

TEST(read_text_file, refuses_one_byte_above_its_limit_and_takes_the_limit) {
    const test::TempFolder folder;
    const auto path = folder.write("a.hex", "");
    fs::resize_file(path, kMostTextBytes);
    // All NULs: refused for that, not for the size.
    EXPECT_EQ(read_text_file(path, MarkingHost{}).problem, Problem::NotText);
    fs::resize_file(path, kMostTextBytes + 1);
    EXPECT_EQ(read_text_file(path, MarkingHost{}).problem, Problem::TooLarge);
    fs::resize_file(path, std::uintmax_t{1} << 36U);  // 64 GB with nothing behind them
    EXPECT_EQ(read_text_file(path, MarkingHost{}).problem, Problem::TooLarge);
}

}  // namespace quillon
