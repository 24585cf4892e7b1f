// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>

#include "app/operation_log.h"
#include "support/fakes.h"
#include "support/no_room.h"

namespace quillon {
namespace {

namespace fs = std::filesystem;
using test::TempFolder;

using Chain = std::map<std::string, std::string>;

const Chain kFull{
    {"LOG_NEW0.txt", "new\n"}, {"LOG_OLD1.txt", "1\n"}, {"LOG_OLD2.txt", "2\n"},
    {"LOG_OLD3.txt", "3\n"},   {"LOG_OLD4.txt", "4\n"}, {"LOG_OLD5.txt", "5\n"},
    {"LOG_OLD6.txt", "6\n"},   {"LOG_OLD7.txt", "7\n"}, {"LOG_OLD8.txt", "8\n"},
    {"LOG_OLD9.txt", "9\n"},
};
const Chain kPushed{
    {"LOG_OLD1.txt", "new\n"}, {"LOG_OLD2.txt", "1\n"}, {"LOG_OLD3.txt", "2\n"},
    {"LOG_OLD4.txt", "3\n"},   {"LOG_OLD5.txt", "4\n"}, {"LOG_OLD6.txt", "5\n"},
    {"LOG_OLD7.txt", "6\n"},   {"LOG_OLD8.txt", "7\n"}, {"LOG_OLD9.txt", "8\n"},
};

class rotate_log_ : public testing::Test {
  protected:
    void given(const Chain& chain) {
        for (const auto& [name, content] : chain) folder.write(name, content);
    }
    // All files of the folder, whatever their names.
    Chain chain() const {
        Chain found;
        for (const auto& entry : fs::directory_iterator{folder.path()})
            if (entry.is_regular_file())
                found[entry.path().filename().string()] =
                    folder.read(entry.path().filename().string());
        return found;
    }
    void rotate() { rotate_log(folder.path().string() + "/"); }

    TempFolder folder;
};

TEST_F(rotate_log_, pushes_the_chain_by_one_and_loses_the_oldest) {
    given(kFull);
    rotate();
    EXPECT_EQ(chain(), kPushed);
}

TEST_F(rotate_log_, keeps_the_chain_of_a_session_that_wrote_no_line) {
    auto quiet = kFull;
    quiet["LOG_NEW0.txt"] = "";
    given(quiet);
    rotate();
    EXPECT_EQ(chain(), quiet);
}

TEST_F(rotate_log_, makes_an_empty_file_of_each_name_that_is_missing) {
    rotate();
    Chain empty;
    for (const auto& [name, content] : kFull) empty[name] = "";
    EXPECT_EQ(chain(), empty);
}

TEST_F(rotate_log_, pushes_the_first_log_of_all) {
    given({{"LOG_NEW0.txt", "new\n"}});
    rotate();
    auto expected = kPushed;
    for (auto& [name, content] : expected)
        if (name != "LOG_OLD1.txt") content = "";
    EXPECT_EQ(chain(), expected);
}

TEST_F(rotate_log_, closes_the_gap_that_a_crash_has_left) {
    auto gap = kFull;
    gap.erase("LOG_OLD4.txt");
    given(gap);
    rotate();
    auto expected = kPushed;
    expected["LOG_OLD5.txt"] = "";
    EXPECT_EQ(chain(), expected);
}

TEST_F(rotate_log_, leaves_the_whole_chain_wherever_a_file_cannot_be_moved) {
    for (int refused = 0; refused < 10; ++refused) {
        given(kFull);
        int moved = 0;
        rotate_log(folder.path().string() + "/", [&](const fs::path& from, const fs::path& to) {
            return moved++ != refused && move_file(from, to);
        });
        EXPECT_EQ(moved, refused + 1);
        EXPECT_EQ(chain(), kFull) << "at move " << refused;
    }
}

struct Crash {};

TEST_F(rotate_log_, loses_nothing_but_the_oldest_wherever_a_crash_cuts_it_short) {
    for (int crash_at = 0; crash_at < 10; ++crash_at) {
        given(kFull);
        int moved = 0;
        EXPECT_THROW(rotate_log(folder.path().string() + "/",
                                [&](const fs::path& from, const fs::path& to) {
                                    if (moved++ == crash_at) throw Crash{};
                                    return move_file(from, to);
                                }),
                     Crash);
        rotate();  // the next start
        EXPECT_EQ(chain(), kPushed) << "after move " << crash_at;
        fs::remove(folder / "LOG_NEW0.txt");
    }
}

TEST_F(rotate_log_, keeps_the_chain_through_a_second_crash_while_it_takes_the_first_back) {
    for (int second_at = 0; second_at < 5; ++second_at) {
        given(kFull);
        int moved = 0;
        const auto crash_at = [&moved](int last) {
            moved = 0;
            return [&moved, last](const fs::path& from, const fs::path& to) {
                if (moved++ == last) throw Crash{};
                return move_file(from, to);
            };
        };
        EXPECT_THROW(rotate_log(folder.path().string(), crash_at(5)), Crash);
        EXPECT_THROW(rotate_log(folder.path().string(), crash_at(second_at)), Crash);
        rotate();
        EXPECT_EQ(chain(), kPushed) << "after move " << second_at;
    }
}

TEST_F(rotate_log_, clears_what_a_crash_left_behind_a_finished_rotation) {
    given(kPushed);
    folder.write("LOG_OLD9.tmp", "9\n");
    rotate();
    auto expected = kPushed;
    expected["LOG_NEW0.txt"] = "";
    EXPECT_EQ(chain(), expected);
}

TEST_F(rotate_log_, waits_for_a_start_at_which_what_a_crash_left_can_be_moved) {
    auto cut_short = kFull;
    cut_short.erase("LOG_OLD9.txt");
    cut_short["LOG_OLD9.tmp"] = "9\n";
    given(cut_short);
    rotate_log(folder.path().string(), [](const fs::path&, const fs::path&) { return false; });
    EXPECT_EQ(chain(), cut_short);
    rotate();
    EXPECT_EQ(chain(), kPushed);
}

// Imitates a full disk: no file may grow, but empty ones can be created.
TEST_F(rotate_log_, needs_no_room_on_the_disk) {
    given(kFull);
    {
        const test::NoRoom disk{0};
        rotate();
    }
    EXPECT_EQ(chain(), kPushed);
}

TEST_F(rotate_log_, leaves_the_chain_where_something_else_stands_in_a_logs_place) {
    auto others = kFull;
    others.erase("LOG_OLD5.txt");
    given(others);
    fs::create_directory(folder / "LOG_OLD5.txt");
    rotate();
    EXPECT_EQ(chain(), others);
}

TEST_F(rotate_log_, ignores_a_work_folder_that_is_not_there) {
    rotate_log((folder / "absent").string() + "/");
    EXPECT_FALSE(fs::exists(folder / "absent"));
}

}  // namespace
}  // namespace quillon
