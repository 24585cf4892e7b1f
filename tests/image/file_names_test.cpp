// SPDX-License-Identifier: MIT
// File names converted between texts and paths.
#include "image/file_names.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/fakes.h"

namespace quillon {

namespace fs = std::filesystem;

TEST(path_of, finds_the_file_that_a_Japanese_name_names) {
    const test::TempFolder folder;
    const auto file = folder.write("点滅 ｶﾅ.hex", "x");
    EXPECT_TRUE(fs::exists(path_of(folder.path().string() + "/点滅 ｶﾅ.hex")));
    EXPECT_EQ(path_of(text_of(file)), file);
}

TEST(text_of, gives_the_text_back_that_path_of_took) {
    for (const auto* name : {"", "/", "a b.hex", "/home/仕事/点滅.HEX", "C:\\仕事\\a.hex"})
        EXPECT_EQ(text_of(path_of(name)), name);
}

}  // namespace quillon
