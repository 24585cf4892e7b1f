// SPDX-License-Identifier: MIT
#include "platform/single_instance.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

#include "support/fakes.h"

namespace quillon {
namespace {

namespace fs = std::filesystem;
using test::TempFolder;

TEST(SingleInstance_, is_the_only_one_until_another_comes) {
    const TempFolder folder;
    const SingleInstance first{folder.path()};
    EXPECT_FALSE(first.second());
    EXPECT_TRUE(SingleInstance{folder.path()}.second());
    EXPECT_FALSE(first.second());
}

TEST(SingleInstance_, makes_room_when_it_ends) {
    const TempFolder folder;
    { const SingleInstance first{folder.path()}; }
    EXPECT_FALSE(SingleInstance{folder.path()}.second());
}

TEST(SingleInstance_, minds_its_own_work_folder_only) {
    const TempFolder one;
    const TempFolder two;
    const SingleInstance first{one.path()};
    EXPECT_FALSE(SingleInstance{two.path()}.second());
}

TEST(SingleInstance_, takes_over_from_a_program_that_died) {
    const TempFolder folder;
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        const SingleInstance dying{folder.path()};
        ::_exit(dying.second() ? 1 : 0);  // no destructor runs
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_EQ(WEXITSTATUS(status), 0);
    ASSERT_TRUE(fs::exists(folder / "QUILLON4_TEMP/quillon.lock"));
    EXPECT_FALSE(SingleInstance{folder.path()}.second());
}

TEST(SingleInstance_, leaves_a_folder_that_cannot_be_made_to_start_up) {
    const TempFolder folder;
    folder.write("file", "x");
    EXPECT_FALSE(SingleInstance{folder / "file"}.second());
    EXPECT_EQ(folder.read("file"), "x");
}

}  // namespace
}  // namespace quillon
