// SPDX-License-Identifier: MIT
#include "app/folders.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "app/text.h"
#include "support/fakes.h"

namespace quillon {
namespace {

namespace fs = std::filesystem;
using test::FakeDialogs;
using test::TempFolder;

class FoldersBench : public testing::Test {
  protected:
    std::string in(std::string_view name) const { return (folder / name).string(); }
    TempFolder folder;
    FakeDialogs dialogs;
};

class FileExists_ : public FoldersBench {};
class on_disk_ : public FoldersBench {};
class MakeFolder_ : public FoldersBench {};
class is_read_only_ : public FoldersBench {};

TEST_F(FileExists_, is_true_for_a_file_that_can_be_opened) {
    EXPECT_TRUE(FileExists(folder.write("a.hex", "")));
    EXPECT_FALSE(FileExists(folder / "b.hex"));
}

TEST_F(FileExists_, is_false_for_a_folder) {
    fs::create_directory(folder / "a.hex");
    EXPECT_FALSE(FileExists(folder / "a.hex"));
}

TEST_F(FileExists_, is_false_for_an_empty_name_and_for_a_separator_behind_a_file) {
    folder.write("a.hex", "x");
    EXPECT_FALSE(FileExists(""));
    EXPECT_FALSE(FileExists(in("a.hex/")));
}

TEST_F(on_disk_, finds_an_upper_cased_path) {
    fs::create_directories(folder / "Work Dir/sub");
    folder.write("Work Dir/sub/Blink.hex", "x");
    EXPECT_EQ(on_disk(upper(in("Work Dir/sub/Blink.hex"))), folder / "Work Dir/sub/Blink.hex");
}

TEST_F(on_disk_, takes_the_exact_name_before_any_other) {
    folder.write("A.HEX", "x");
    folder.write("a.hex", "x");
    EXPECT_EQ(on_disk(folder / "a.hex"), folder / "a.hex");
    EXPECT_EQ(on_disk(folder / "A.HEX"), folder / "A.HEX");
    EXPECT_EQ(on_disk(folder / "a.Hex"), folder / "A.HEX");  // the first by alphabet
}

TEST_F(on_disk_, tries_each_folder_whose_name_differs_by_case_only) {
    fs::create_directory(folder / "WORK");
    fs::create_directory(folder / "work");
    folder.write("work/a.hex", "x");
    EXPECT_EQ(on_disk(in("WORK/A.HEX")), folder / "work/a.hex");
}

TEST_F(on_disk_, takes_both_separators) {
    fs::create_directory(folder / "sub");
    folder.write("sub/a.hex", "x");
    EXPECT_EQ(on_disk(folder.path().string() + "\\SUB\\A.HEX"), folder / "sub/a.hex");
}

TEST_F(on_disk_, keeps_letters_that_are_not_ASCII) {
    folder.write("点滅ａ.hex", "x");
    EXPECT_EQ(on_disk(folder / "点滅ａ.HEX"), folder / "点滅ａ.hex");
    EXPECT_EQ(on_disk(folder / "点滅Ａ.HEX"), fs::path{});  // full-width letters have no case here
}

TEST_F(on_disk_, finds_folders_and_goes_up_by_dots) {
    fs::create_directory(folder / "Sub");
    EXPECT_EQ(on_disk(folder / "sub"), folder / "Sub");
    EXPECT_EQ(on_disk(in("sub/") + "../SUB"), folder.path() / "Sub" / ".." / "Sub");
}

TEST_F(on_disk_, looks_for_a_relative_name_in_the_current_folder) {
    folder.write("Relative.hex", "");
    const auto before = fs::current_path();
    fs::current_path(folder.path());
    EXPECT_EQ(on_disk("RELATIVE.HEX"), fs::path{"Relative.hex"});
    fs::current_path(before);
}

TEST_F(on_disk_, is_empty_where_nothing_has_these_letters) {
    EXPECT_EQ(on_disk(folder / "a.hex"), fs::path{});
    EXPECT_EQ(on_disk(in("absent/a.hex")), fs::path{});
    folder.write("file", "");
    EXPECT_EQ(on_disk(in("file/a.hex")), fs::path{});
    EXPECT_EQ(on_disk(""), fs::path{});
}

TEST_F(MakeFolder_, is_content_with_a_folder_that_is_there) {
    std::string path = folder.path().string();
    EXPECT_TRUE(MakeFolder(path, Ask::Yes, dialogs));
    EXPECT_TRUE(dialogs.boxes.empty());
    EXPECT_EQ(path, folder.path().string());
}

TEST_F(MakeFolder_, refuses_a_path_that_begins_with_a_capital_A_before_it_asks) {
    std::string path = "Anew";
    EXPECT_FALSE(MakeFolder(path, Ask::Yes, dialogs));
    EXPECT_TRUE(dialogs.boxes.empty());
    EXPECT_FALSE(fs::exists("Anew"));
}

TEST_F(MakeFolder_, makes_a_path_that_begins_with_a_small_a) {
    const auto before = fs::current_path();
    fs::current_path(folder.path());
    std::string path = "anew";
    EXPECT_TRUE(MakeFolder(path, Ask::No, dialogs));
    fs::current_path(before);
    EXPECT_TRUE(fs::is_directory(folder / "anew"));
}

TEST_F(MakeFolder_, asks_and_takes_anything_but_yes_for_no) {
    std::string path = in("new");
    dialogs.answers = {BoxAnswer::No};
    EXPECT_FALSE(MakeFolder(path, Ask::Yes, dialogs));
    ASSERT_EQ(dialogs.boxes.size(), 1U);
    EXPECT_EQ(dialogs.boxes[0].title, "フォルダ作成");
    EXPECT_EQ(dialogs.boxes[0].text,
              "フォルダ \"" + path + "\" は存在しません。\r\n作成しますか？");
    EXPECT_EQ(dialogs.boxes[0].icon, BoxIcon::Question);
    EXPECT_EQ(dialogs.boxes[0].buttons, BoxButtons::YesNo);
    EXPECT_FALSE(fs::exists(path));
}

TEST_F(MakeFolder_, makes_the_folder_after_a_yes) {
    std::string path = in("new");
    dialogs.answers = {BoxAnswer::Yes};
    EXPECT_TRUE(MakeFolder(path, Ask::Yes, dialogs));
    EXPECT_TRUE(fs::is_directory(path));
    EXPECT_EQ(path, in("new"));
}

TEST_F(MakeFolder_, does_not_ask_without_the_flag) {
    std::string path = in("new");
    EXPECT_TRUE(MakeFolder(path, Ask::No, dialogs));
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(MakeFolder_, makes_the_parents_and_appends_a_separator_to_the_callers_path) {
    std::string path = in("a/b/c");
    EXPECT_TRUE(MakeFolder(path, Ask::No, dialogs));
    EXPECT_TRUE(fs::is_directory(folder / "a/b/c"));
    EXPECT_EQ(path, in("a/b/c") + "/");
}

TEST_F(MakeFolder_, reports_a_failure_where_it_had_asked) {
    folder.write("file", "x");
    std::string path = in("file/sub");
    dialogs.answers = {BoxAnswer::Yes};
    EXPECT_FALSE(MakeFolder(path, Ask::Yes, dialogs));
    ASSERT_EQ(dialogs.boxes.size(), 2U);
    EXPECT_EQ(dialogs.boxes[1].title, "エラー");
    EXPECT_EQ(dialogs.boxes[1].text, "フォルダ \"" + in("file/sub/") + "\" の作成に失敗しました");
    EXPECT_EQ(dialogs.boxes[1].icon, BoxIcon::Warning);
    EXPECT_EQ(folder.read("file"), "x");
}

TEST_F(MakeFolder_, fails_in_silence_where_it_had_not_asked) {
    folder.write("file", "x");
    std::string path = in("file/sub");
    EXPECT_FALSE(MakeFolder(path, Ask::No, dialogs));
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(is_read_only_, follows_the_files_attribute) {
    const auto path = folder.write("LOG_NEW0.txt", "x");
    EXPECT_FALSE(is_read_only(path));
    fs::permissions(path, fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    EXPECT_TRUE(is_read_only(path));
    EXPECT_EQ(folder.read("LOG_NEW0.txt"), "x");
}

TEST_F(is_read_only_, is_false_for_a_file_that_is_not_there) {
    EXPECT_FALSE(is_read_only(folder / "absent"));
    EXPECT_FALSE(fs::exists(folder / "absent"));
}

TEST_F(is_read_only_, looks_at_the_file_that_has_the_name_but_for_its_case) {
    const auto path = folder.write("log_new0.txt", "x");
    EXPECT_FALSE(is_read_only(folder / "LOG_NEW0.txt"));
    EXPECT_FALSE(fs::exists(folder / "LOG_NEW0.txt"));
    fs::permissions(path, fs::perms::owner_read);
    EXPECT_TRUE(is_read_only(folder / "LOG_NEW0.txt"));
}

class takes_files_ : public FoldersBench {};

TEST_F(takes_files_, is_true_for_a_folder_that_can_be_written_and_leaves_nothing_in_it) {
    EXPECT_TRUE(takes_files(folder.path()));
    EXPECT_TRUE(fs::is_empty(folder.path()));
}

// The test may run as the superuser, who can write to any folder except the kernel's.
TEST_F(takes_files_, is_false_for_a_folder_that_takes_none_and_for_one_that_is_not_there) {
    EXPECT_FALSE(takes_files("/proc/self"));
    EXPECT_FALSE(takes_files(folder / "absent"));
}

TEST_F(takes_files_, is_content_with_what_an_earlier_test_has_left) {
    folder.write("QUILLON_WRITE_TEST.tmp", "x");
    EXPECT_TRUE(takes_files(folder.path()));
}

TEST(with_separator, appends_one_where_there_is_none) {
    EXPECT_EQ(with_separator("/a"), "/a/");
    EXPECT_EQ(with_separator("/a/"), "/a/");
    EXPECT_EQ(with_separator("C:\\a\\"), "C:\\a\\");
}

TEST(folder_of, cuts_at_the_last_separator_of_either_kind) {
    EXPECT_EQ(folder_of("/a/b/X.HEX"), "/a/b");
    EXPECT_EQ(folder_of("C:\\A B\\X.HEX"), "C:\\A B");
    EXPECT_EQ(folder_of("X.HEX"), "");
}

}  // namespace
}  // namespace quillon
