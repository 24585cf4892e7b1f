// SPDX-License-Identifier: MIT
// Parts with parity: words of 16 bits, ID words low byte first, no marks on reserved words.
#include <gtest/gtest.h>

#include "board_driver.h"

namespace quillon {
namespace {

using test::Driver;

// PIC16C642 as the catalogue has it.
TargetFacts facts_16c642() {
    TargetFacts facts;
    facts.name = "PIC16C642";
    facts.type = "EPROM2";
    facts.program_words = 4096;
    facts.config_present[0] = true;
    facts.config_default[0] = 0x3FFF;
    facts.config_mask[0] = 0x3FFF;
    facts.protect_mask = 0x3F30;
    return facts;
}

TEST(parity_part, program_words_have_sixteen_bits) {
    Driver host{facts_16c642()};
    host.command("NwSp", {0, 2});
    host.item({0x92, 0x34});
    host.item({0xFF, 0xFF});
    EXPECT_EQ(host.reply(), "2B 2B 40");
    EXPECT_EQ(host.board.target().program[0], 0x9234);
    host.command("NrSp", {0, 3});
    EXPECT_EQ(host.reply(), "92 34 FF FF FF FF 40");
    host.command("NbS", {0, 2});
    EXPECT_EQ(host.reply(), "92 34 40");
}

TEST(parity_part, is_written_by_its_own_algorithm_only) {
    for (const char* letters : {"wsp", "wsc", "wee"}) {
        Driver host{facts_16c642()};
        const auto before = host.board.target();
        host.command(std::string{"N"} + letters, {0, 8});
        EXPECT_EQ(host.reply(), "2B");
        host.item({0x12, 0x34});
        EXPECT_EQ(host.reply(), letters == std::string_view{"wsc"} ? "2A 00 00 40" : "40 40");
        EXPECT_EQ(host.board.target(), before);
        ASSERT_EQ(host.board.notes().size(), 1u);
        EXPECT_EQ(host.board.notes()[0], fmt::format("\"{}\": PIC16C642 isn't written by these "
                                                     "letters",
                                                     letters));
    }
}

TEST(parity_part, id_words_are_read_low_byte_first) {
    Driver host{facts_16c642()};
    auto& target = host.board.target();
    target.id = {0x1234, 0x5678, 0x9ABC, 0xFFFF};
    target.config[0] = 0x3FF2;
    host.command("NrSc", {0, 8});
    EXPECT_EQ(host.reply(), "34 12 78 56 BC 9A FF FF 3F FF 3F FF 3F FF 3F F2");
    host.send('@');
    EXPECT_EQ(host.reply(), "40");
}

TEST(parity_part, an_area_that_is_written_as_it_was_read_is_the_same) {
    Driver source{facts_16c642()};
    source.board.target().id = {0x1234, 0x80FF, 0xFF80, 0x7FFF};
    source.board.target().config[0] = 0x3FF2;
    source.command("NrSc", {0, 8});
    const auto area = source.stream(17);
    ASSERT_EQ(area.size(), 17u);

    Driver copy{facts_16c642()};
    copy.command("NwSc", {0, 8});
    for (std::size_t i = 0; i < 16; i += 2) copy.item({area[i], area[i + 1]});
    EXPECT_EQ(copy.reply(), "2B 2B 2B 2B 2B 2B 2B 2B 40");
    EXPECT_EQ(copy.board.target(), source.board.target());
}

TEST(parity_part, writing_the_reserved_words_changes_nothing) {
    Driver host{facts_16c642()};
    const auto before = host.board.target();
    host.command("NwSc", {0, 8});
    for (int i = 0; i < 4; ++i) host.item({0xFF, 0xFF});
    for (int i = 0; i < 3; ++i) host.item({0x00, 0x00});
    host.item({0xFF, 0xFF});
    EXPECT_EQ(host.reply(), "2B 2B 2B 2B 2B 2B 2B 2B 40");
    EXPECT_EQ(host.board.target(), before);
}

TEST(parity_part, the_two_bits_above_the_configuration_word_do_not_matter) {
    for (const int high : {0x3F, 0xFF}) {
        Driver host{facts_16c642()};
        host.command("NwSc", {0, 8});
        for (int i = 0; i < 7; ++i) host.item({0xFF, 0xFF});
        host.item({high, 0xF2});
        EXPECT_EQ(host.reply(), "2B 2B 2B 2B 2B 2B 2B 2B 40") << high;
        EXPECT_EQ(host.board.target().config[0], 0x3FF2) << high;
    }
}

TEST(parity_part, an_id_word_that_does_not_program_is_reported_in_the_order_of_the_wire) {
    Driver host{facts_16c642()};
    host.board.target().id[0] = 0xFF0F;
    host.command("NwSc", {0, 8});
    EXPECT_EQ(host.reply(), "2B");
    host.item({0xF0, 0xFF});
    EXPECT_EQ(host.reply(), "2A 00 FF 40");
}

}  // namespace
}  // namespace quillon
