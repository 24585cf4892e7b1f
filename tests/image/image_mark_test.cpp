// SPDX-License-Identifier: MIT
#include "image/image_mark.h"

#include <gtest/gtest.h>

#include <utility>

#include "image/fill.h"
#include "image/image_support.h"

namespace quillon {

using test::device;

TEST(ImageMark, is_of_the_image_until_something_that_a_file_holds_has_changed) {
    auto session = device("FLASH8", "PIC16F877A", 8192, 256);
    FillProgramOnes(*session);
    const ImageMark mark{*session};
    EXPECT_TRUE(mark.is_of(*session));
    for (auto* byte : {&session->PgmMem[0], &session->PgmMem[16383], &session->EepMem[511],
                       &session->CfgIdMem[0], &session->CfgIdMem[31]}) {
        const auto former = std::exchange(*byte, static_cast<std::uint8_t>(*byte ^ 1U));
        EXPECT_FALSE(mark.is_of(*session));
        *byte = former;
        EXPECT_TRUE(mark.is_of(*session)) << "what was put back is no change";
    }
    for (auto* byte : {&session->PgmMem[16384], &session->EepMem[510], &session->CfgIdMem[32]})
        *byte ^= 1U;
    session->ConfigWord[1] ^= 1U;  // shown from CfgIdMem
    EXPECT_TRUE(mark.is_of(*session)) << "no file holds these";
}

TEST(ImageMark, of_a_PIC18_counts_its_own_areas) {
    auto session = device("18F_00", "PIC18F2550", 16384, 256);
    const ImageMark mark{*session};
    for (auto* byte : {&session->PgmMem[32767], &session->EepMem[255], &session->IdBytes18[7]}) {
        *byte ^= 1U;
        EXPECT_FALSE(mark.is_of(*session));
        *byte ^= 1U;
    }
    session->ConfigWord[7] ^= 0x8000U;
    EXPECT_FALSE(mark.is_of(*session));
    session->ConfigWord[7] ^= 0x8000U;
    session->CfgIdMem[0] ^= 1U;
    session->CfgBytes18[0] ^= 1U;
    EXPECT_TRUE(mark.is_of(*session));
}

TEST(ImageMark, of_another_device_or_of_none_is_of_no_image) {
    auto session = device("FLASH8", "PIC16F877A", 8192, 256);
    const ImageMark mark{*session};
    session->DeviceName = "PIC16F877";
    EXPECT_FALSE(mark.is_of(*session));
    session->DeviceName.clear();
    EXPECT_FALSE(ImageMark{}.is_of(*session));
    EXPECT_FALSE(ImageMark{*session}.is_of(*session));
}

}  // namespace quillon
