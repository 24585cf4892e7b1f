// SPDX-License-Identifier: MIT
#include "app/own_files.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "support/fakes.h"
#include "support/no_room.h"

namespace quillon {
namespace {

namespace fs = std::filesystem;
using test::TempFolder;

class own_files : public testing::Test {
  protected:
    // Somebody else's file, with a link to it in the work folder.
    fs::path link_to_other() const {
        folder.write("other", "precious");
        fs::create_symlink(folder / "other", folder / "link");
        return folder / "link";
    }
    TempFolder folder;
};

TEST_F(own_files, are_made_anew_where_a_link_has_their_name) {
    EXPECT_TRUE(write_fresh(link_to_other(), "mine"));
    EXPECT_EQ(folder.read("other"), "precious");
    EXPECT_EQ(folder.read("link"), "mine");
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(folder / "link")));
}

TEST_F(own_files, are_not_made_through_a_link_that_leads_nowhere) {
    fs::create_symlink(folder / "absent", folder / "link");
    EXPECT_TRUE(write_fresh(folder / "link", "mine"));
    EXPECT_FALSE(fs::exists(folder / "absent"));
}

TEST_F(own_files, hold_the_new_content_and_nothing_of_the_former) {
    folder.write("file", "a long former content");
    EXPECT_TRUE(write_fresh(folder / "file", "new"));
    EXPECT_EQ(folder.read("file"), "new");
}

TEST_F(own_files, never_take_a_folders_place) {
    fs::create_directory(folder / "file");
    EXPECT_FALSE(write_fresh(folder / "file", "new"));
    EXPECT_TRUE(fs::is_directory(folder / "file"));
    EXPECT_FALSE(append_line(folder / "file", "line"));
}

TEST_F(own_files, that_fit_no_disk_are_reported) {
    const test::NoRoom disk{4};
    EXPECT_FALSE(write_fresh(folder / "file", "too long"));
}

TEST_F(own_files, get_no_line_through_a_link) {
    EXPECT_FALSE(append_line(link_to_other(), "line"));
    EXPECT_EQ(folder.read("other"), "precious");
}

TEST_F(own_files, get_a_line_at_their_end) {
    EXPECT_TRUE(append_line(folder / "file", "one"));
    EXPECT_TRUE(append_line(folder / "file", "two"));
    EXPECT_EQ(folder.read("file"), "one\ntwo\n");
}

// A blocking open of a pipe that has no reader would never return.
TEST_F(own_files, get_no_line_where_a_pipe_has_their_name) {
    ASSERT_EQ(::mkfifo((folder / "file").c_str(), 0600), 0);
    EXPECT_FALSE(append_line(folder / "file", "line"));
}

}  // namespace
}  // namespace quillon
