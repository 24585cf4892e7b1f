// SPDX-License-Identifier: MIT
#include "platform/documents.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <thread>

#include "support/fakes.h"

namespace quillon {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using test::TempFolder;

TEST(decode_text, leaves_ascii_and_valid_utf8_as_they_are) {
    EXPECT_EQ(decode_text(""), "");
    EXPECT_EQ(decode_text("PIC16F877A\\~"), "PIC16F877A\\~");
    EXPECT_EQ(decode_text("製作①～"), "製作①～");
}

TEST(decode_text, reads_code_page_932) {
    EXPECT_EQ(decode_text("\x83\x77\x83\x8B\x83\x76"), "ヘルプ");
    EXPECT_EQ(decode_text("\xCC\xDF\xDB\xB8\xDE\xD7\xD1"), "ﾌﾟﾛｸﾞﾗﾑ");
}

TEST(decode_text, knows_the_vendors_additions_and_keeps_backslash_and_tilde) {
    EXPECT_EQ(decode_text("\x87\x40\x81\x60\x81\x7C"), "①～－");
    EXPECT_EQ(decode_text("\xFA\xB1\xED\x40"), "﨑纊");
    EXPECT_EQ(decode_text("\x83\x5C\\~"), "ソ\\~");  // the second byte of ソ is a backslash
}

TEST(decode_text, puts_the_replacement_character_for_what_does_not_convert) {
    EXPECT_EQ(decode_text("\xFF"
                          "A"),
              "\xEF\xBF\xBD"
              "A");
    EXPECT_EQ(decode_text("\x83\x77\x82"), "ヘ\xEF\xBF\xBD");  // cut off inside a character
}

TEST(decode_text, keeps_the_end_mark_of_an_old_text_file) {
    EXPECT_EQ(decode_text("\x83\x77\x1A"), "ヘ\x1A");
}

// Replaces the desktop's program by one that writes down what it was asked to open.
class start_default_ : public testing::Test {
  protected:
    start_default_() : old_path_{std::getenv("PATH")} {
        const auto script = folder.write(
            "xdg-open",
            "#!/bin/sh\nprintf '%s' \"$1\" > \"$0.part\"\nmv \"$0.part\" \"$0.asked\"\n");
        fs::permissions(script, fs::perms::owner_all);
        ::setenv("PATH", (folder.path().string() + ":" + old_path_).c_str(), 1);
    }
    ~start_default_() override { ::setenv("PATH", old_path_.c_str(), 1); }
    std::string asked() const {
        for (int i = 0; i < 500 && !fs::exists(folder / "xdg-open.asked"); ++i)
            std::this_thread::sleep_for(10ms);
        return folder.read("xdg-open.asked");
    }
    TempFolder folder;

  private:
    std::string old_path_;
};

TEST_F(start_default_, hands_a_file_with_blanks_and_japanese_in_its_name_over) {
    const auto path = folder.write("製作 確認資料.pdf", "x");
    EXPECT_TRUE(start_default(path.string()));
    EXPECT_EQ(asked(), path.string());
}

TEST_F(start_default_, hands_a_web_page_over) {
    EXPECT_TRUE(start_default("https://quillon.example/support"));
    EXPECT_EQ(asked(), "https://quillon.example/support");
}

TEST_F(start_default_, refuses_a_file_that_is_not_there) {
    EXPECT_FALSE(start_default((folder / "absent.pdf").string()));
    EXPECT_FALSE(fs::exists(folder / "xdg-open.asked"));
}

TEST_F(start_default_, says_so_where_there_is_no_such_program) {
    ::setenv("PATH", (folder / "empty").c_str(), 1);
    EXPECT_FALSE(start_default("https://quillon.example/support"));
}

}  // namespace
}  // namespace quillon
