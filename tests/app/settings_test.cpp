// SPDX-License-Identifier: MIT
#include "app/settings.h"

#include <gtest/gtest.h>

#include "support/fakes.h"

namespace quillon {
namespace {

using test::MemoryStore;

class Settings_ : public testing::Test {
  protected:
    void given(std::string_view key, std::string_view value) {
        store.write("Settings6", key, value);
    }
    MemoryStore store;
    Settings settings{store};
};

TEST_F(Settings_, live_in_section_Settings6) {
    EXPECT_TRUE(settings.save("ComNo", 3));
    EXPECT_EQ(store.read("Settings6", "ComNo"), "3");
    EXPECT_EQ(store.read("Settings", "ComNo"), std::nullopt);
}

TEST_F(Settings_, a_missing_key_gives_the_default) {
    EXPECT_EQ(settings.text("OPEN_DIR0"), "");
    EXPECT_EQ(settings.text("OPEN_DIR0", "x"), "x");
    EXPECT_EQ(settings.number("MainHeight", 7860), 7860);
    EXPECT_TRUE(settings.flag("mnuBoardInfomation", true));
    EXPECT_FALSE(settings.flag("SkipMode", false));
}

TEST_F(Settings_, a_number_may_stand_between_blanks_and_be_negative) {
    given("MainLeft", " -120 ");
    EXPECT_EQ(settings.number("MainLeft", 100), -120);
}

TEST_F(Settings_, what_is_no_number_gives_the_default_and_is_told_of) {
    for (const auto* value : {"abc", "12x", "", "1 2", "99999999999"}) {
        given("MainTop", value);
        EXPECT_EQ(settings.number("MainTop", 100), 100) << value;
        EXPECT_FALSE(settings.converts("MainTop")) << value;
    }
    EXPECT_TRUE(settings.converts("MainLeft"));  // missing
}

TEST_F(Settings_, a_flag_is_a_number_or_a_word_in_any_case) {
    for (const auto* value : {"1", "-1", "True", "true", " TRUE "}) {
        given("SkipMode", value);
        EXPECT_TRUE(settings.flag("SkipMode", false)) << value;
        EXPECT_TRUE(settings.converts("SkipMode")) << value;
    }
    for (const auto* value : {"0", "False", "FALSE"}) {
        given("SkipMode", value);
        EXPECT_FALSE(settings.flag("SkipMode", true)) << value;
    }
    given("SkipMode", "yes");
    EXPECT_TRUE(settings.flag("SkipMode", true));
    EXPECT_FALSE(settings.converts("SkipMode"));
}

TEST_F(Settings_, flags_are_saved_as_1_and_0) {
    EXPECT_TRUE(settings.save_flag("mnuComMode1", true));
    EXPECT_EQ(store["mnuComMode1"], "1");
    EXPECT_TRUE(settings.save_flag("mnuComMode1", false));
    EXPECT_EQ(store["mnuComMode1"], "0");
}

TEST_F(Settings_, texts_keep_their_blanks_and_characters) {
    EXPECT_TRUE(settings.save("OPEN_DIR1", "c:\\仕事\\a b    PIC16F877A"));
    EXPECT_EQ(settings.text("OPEN_DIR1"), "c:\\仕事\\a b    PIC16F877A");
}

TEST_F(Settings_, a_store_that_cannot_be_written_answers_so) {
    store.writable = false;
    EXPECT_FALSE(settings.save("ComNo", 1));
    EXPECT_FALSE(settings.save("OPEN_DIR0", "x"));
    EXPECT_FALSE(settings.save_flag("SkipMode", true));
}

}  // namespace
}  // namespace quillon
