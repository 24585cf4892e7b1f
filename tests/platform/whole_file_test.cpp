// SPDX-License-Identifier: MIT
#include "platform/whole_file.h"

#include <gtest/gtest.h>

#include "support/fakes.h"
#include "support/no_room.h"
#include "support/ordinary_user.h"

namespace quillon {
namespace {

using test::TempFolder;

std::size_t files_in(const TempFolder& folder) {
    return static_cast<std::size_t>(std::distance(
        std::filesystem::directory_iterator{folder.path()}, std::filesystem::directory_iterator{}));
}

TEST(write_whole, replaces_a_file_and_leaves_nothing_beside_it) {
    const TempFolder folder;
    folder.write("a.json", "a long former content");
    EXPECT_EQ(write_whole(folder / "a.json", "new"), std::nullopt);
    EXPECT_EQ(folder.read("a.json"), "new");
    EXPECT_EQ(files_in(folder), 1U);
}

TEST(write_whole, says_why_a_file_in_a_missing_folder_cannot_be_written) {
    const TempFolder folder;
    const auto reason = write_whole(folder / "no/such/a.json", "x");
    ASSERT_TRUE(reason);
    EXPECT_NE(*reason, "");
}

TEST(write_whole, does_not_replace_a_folder) {
    const TempFolder folder;
    std::filesystem::create_directory(folder / "a.json");
    EXPECT_TRUE(write_whole(folder / "a.json", "x"));
    EXPECT_TRUE(std::filesystem::is_directory(folder / "a.json"));
    EXPECT_EQ(files_in(folder), 1U);
}

TEST(write_whole, follows_a_link_to_the_file_behind_it) {
    const TempFolder folder;
    folder.write("real.json", "old");
    std::filesystem::create_symlink(folder / "real.json", folder / "link.json");
    EXPECT_EQ(write_whole(folder / "link.json", "new"), std::nullopt);
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "link.json"));
    EXPECT_EQ(folder.read("real.json"), "new");
}

TEST(write_whole, leaves_what_stood_there_where_the_disk_is_full) {
    const TempFolder folder;
    folder.write("a.json", "old");
    const test::NoRoom disk{4096};
    const auto reason = write_whole(folder / "a.json", std::string(10'000, 'x'));
    ASSERT_TRUE(reason);
    EXPECT_EQ(*reason, "File too large") << "the system's own";
    EXPECT_EQ(folder.read("a.json"), "old");
    EXPECT_EQ(files_in(folder), 1U);
}

TEST(write_whole, makes_its_new_file_under_no_name_that_somebody_has) {
    const TempFolder folder;
    folder.write("a.json.new", "somebody's");
    EXPECT_EQ(write_whole(folder / "a.json", "new"), std::nullopt);
    EXPECT_EQ(folder.read("a.json.new"), "somebody's");
}

TEST(write_whole, makes_the_file_that_a_link_leads_to) {
    const TempFolder folder;
    std::filesystem::create_directory(folder / "there");
    std::filesystem::create_symlink("there/real.json", folder / "link.json");
    EXPECT_EQ(write_whole(folder / "link.json", "new"), std::nullopt);
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "link.json"));
    EXPECT_EQ(folder.read("there/real.json"), "new");
}

TEST(write_whole, refuses_a_name_whose_bytes_it_would_change) {
    const TempFolder folder;
    const auto name = folder.path() / "caf\xE9.hex";  // Latin-1: no valid UTF-8
    const auto other = folder.path() / "caf\xEF\xBF\xBD.hex";
    folder.write(other.filename().string(), "another's");
    EXPECT_EQ(write_whole(name, "new"), "its name is not valid UTF-8");
    EXPECT_EQ(folder.read(other.filename().string()), "another's");
    EXPECT_EQ(files_in(folder), 1U);
}

TEST(write_whole, keeps_the_permissions_of_the_file) {
    const TempFolder folder;
    using std::filesystem::perms;
    folder.write("a.json", "old");
    std::filesystem::permissions(folder / "a.json", perms::owner_read | perms::owner_write);
    EXPECT_EQ(write_whole(folder / "a.json", "new"), std::nullopt);
    EXPECT_EQ(std::filesystem::status(folder / "a.json").permissions(),
              perms::owner_read | perms::owner_write);
}

TEST(write_whole, keeps_a_file_where_the_user_may_not_write) {
    const TempFolder folder;
    folder.write("a.json", "old");
    std::optional<std::string> reason;
    {
        const test::OrdinaryUser user;
        reason = write_whole(folder / "a.json", "new");
    }
    EXPECT_TRUE(reason);
    EXPECT_EQ(folder.read("a.json"), "old");
    EXPECT_EQ(files_in(folder), 1U);
}

TEST(write_whole, tells_that_a_device_took_nothing) {
    EXPECT_EQ(write_whole("/dev/full", std::string(100, 'x')), "No space left on device");
}

TEST(write_whole, writes_into_a_device_without_replacing_it) {
    EXPECT_EQ(write_whole("/dev/null", "x"), std::nullopt);
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
}

}  // namespace
}  // namespace quillon
