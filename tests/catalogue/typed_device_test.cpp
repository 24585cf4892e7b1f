// SPDX-License-Identifier: MIT
#include "catalogue/typed_device.h"

#include <gtest/gtest.h>

#include <array>

namespace quillon {
namespace {

const std::array<std::string, 6> kNames{"PIC16F877", "PIC16F877A",  "PIC16LF877",
                                        "PIC12F675", "PIC18F2455a", "ZQ-LDR418"};

TEST(typed_device, takes_a_whole_name_of_either_case_though_longer_names_hold_it) {
    EXPECT_EQ(typed_device("PIC16F877", kNames).index, 0);
    EXPECT_EQ(typed_device("pic16f877", kNames).index, 0);
    EXPECT_EQ(typed_device("PIC16F877A", kNames).index, 1);
    EXPECT_EQ(typed_device("pic18f2455A", kNames).index, 4);
    EXPECT_EQ(typed_device("zq-ldr418", kNames).index, 5);
}

TEST(typed_device, takes_a_name_without_its_PIC_though_longer_names_hold_it) {
    EXPECT_EQ(typed_device("16F877", kNames).index, 0);
    EXPECT_EQ(typed_device("16f877a", kNames).index, 1);
    EXPECT_EQ(typed_device("16LF877", kNames).index, 2);
}

TEST(typed_device, takes_the_only_name_that_holds_the_text) {
    EXPECT_EQ(typed_device("675", kNames).index, 3);
    EXPECT_EQ(typed_device("f2455", kNames).index, 4);
    EXPECT_EQ(typed_device("-ldr", kNames).index, 5);
}

TEST(typed_device, takes_no_notice_of_blanks_around_the_text) {
    EXPECT_EQ(typed_device("  16F877 ", kNames).index, 0);
}

TEST(typed_device, says_how_many_names_hold_a_text_that_could_mean_several) {
    const auto several = typed_device(" f877", kNames);
    EXPECT_EQ(several.index, std::nullopt);
    EXPECT_EQ(several.problem, "「f877」に該当するデバイスが3個あります。続きを入力してください。");
}

TEST(typed_device, says_that_no_name_holds_a_text) {
    const auto none = typed_device("16F999", kNames);
    EXPECT_EQ(none.index, std::nullopt);
    EXPECT_EQ(none.problem, "「16F999」に該当するデバイスはありません。");
}

TEST(typed_device, asks_for_a_device_where_nothing_was_typed) {
    const auto nothing = typed_device(" ", kNames);
    EXPECT_EQ(nothing.index, std::nullopt);
    EXPECT_EQ(nothing.problem, "MCUを選んでください。");
    EXPECT_EQ(typed_device("16F877", {}).index, std::nullopt);
}

}  // namespace
}  // namespace quillon
