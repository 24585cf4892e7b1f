// SPDX-License-Identifier: MIT
// A part that no family claims, read into the image.
#include "generic_lines.h"

namespace quillon::test {

namespace {

constexpr std::string_view kLogged = "リード 操作終了\t\t2026-11-20 14:03:22\n";
constexpr std::string_view kDone = "読み出し完了。";
constexpr std::string_view kBlank = "読み出し完了。　デバイスは消去されています。";

Lines read_lines(const GenericBench& bench, std::string_view verdict) {
    Lines lines{"プログラムメモリ読み出し中..........",
                "ＥＥＰＲＯＭデータメモリ読み出し中.........."};
    if (!bench.has_eeprom())
        lines.emplace_back("ＯＴＰ版は、ＥＥＰＲＯＭデータメモリを内蔵していません。");
    lines.emplace_back("コンフィギュレーションワード読み出し中..........");
    lines.emplace_back(verdict);
    return generic::behind_check(bench, generic::all_of({generic::kSocket, lines}));
}

std::string whole_read(GenericBench& bench) {
    const GenericWire wire{bench};
    return wire.check() + wire.socket() + wire.read_pgm() + wire.read_eep() +
           wire.config(bench.row().words.read);
}

}  // namespace

using generic_read = EveryType;
INSTANTIATE_TEST_SUITE_P(, generic_read, testing::ValuesIn(kGenericCases), type_name);

TEST_P(generic_read, takes_every_area_of_a_used_part_into_the_image) {
    GenericBench bench{GetParam()};
    const auto program = bench.program_image();
    const auto eeprom = bench.eeprom_image();
    const auto words = bench.session().ConfigWord;
    bench.program_target();
    bench.spoil_image();
    EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Success);

    EXPECT_EQ(bench.program_image(), program);
    EXPECT_EQ(bench.eeprom_image(), eeprom);
    for (std::size_t n = 1; n <= bench.target().config.size(); ++n)
        EXPECT_EQ(bench.session().ConfigWord[n], words[n]) << n;
    EXPECT_EQ(bench.form().Text_ID.Text.get(), "ABCD");
    EXPECT_EQ(bench.session().IdText, "ABCD");
    EXPECT_EQ(bench.form().Text_Config1.Text.get(), hex(words[1], 4));
    EXPECT_EQ(bench.wire(), whole_read(bench));
    EXPECT_EQ(bench.shown->lines, read_lines(bench, kDone));
    EXPECT_EQ(bench.session().ResultAll, generic::result_of(bench));
    EXPECT_EQ(bench.log(), kLogged);
    EXPECT_EQ(pauses(bench), between_check_and_close({}));
    EXPECT_TRUE(bench.dialogs.boxes.empty());
}

TEST_P(generic_read, holds_the_id_words_and_the_words_of_the_device_in_their_order) {
    GenericBench bench{GetParam()};
    bench.target().id = {0x1234, 0x2345, 0x3456, 0x0567};
    bench.spoil_image();
    EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Success);

    const auto image = bench.id_and_config_image();
    EXPECT_EQ((std::vector<std::uint8_t>{image.begin(), image.begin() + 8}),
              (std::vector<std::uint8_t>{0x12, 0x34, 0x23, 0x45, 0x34, 0x56, 0x05, 0x67}));
    EXPECT_EQ(image[12] << 8 | image[13], bench.target().identity);
    // The bits above a configuration word of a part with parity read as ones.
    const unsigned above = bench.row().type == "EPROM2" ? 0xC000 : 0;
    EXPECT_EQ(static_cast<unsigned>(image[14] << 8 | image[15]), bench.target().config[0] | above);
}

// The calibration word counts as the other words do, so a part that has one never reads as blank.
TEST_P(generic_read, shows_that_a_fresh_part_is_blank_unless_it_holds_a_calibration_word) {
    GenericBench bench{GetParam()};
    bench.spoil_image();
    EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Success);

    EXPECT_EQ(bench.wire(), whole_read(bench));
    EXPECT_EQ(bench.shown->lines, read_lines(bench, bench.row().calibrated ? kDone : kBlank));
}

TEST_P(generic_read, calls_no_part_blank_that_is_used_in_one_place) {
    for (auto* const use : {
             +[](SimulatedTarget& part) { part.program[0] = 0x3FFE; },
             +[](SimulatedTarget& part) { part.id[0] = 0x3FF1; },
             +[](SimulatedTarget& part) { part.config[0] &= 0x3FFEU; },
         }) {
        GenericBench bench{GetParam()};
        use(bench.target());
        EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Success);
        EXPECT_EQ(bench.shown->lines.back(), kDone);
    }
}

TEST_P(generic_read, warns_in_red_of_a_protected_part) {
    GenericBench bench{GetParam()};
    bench.program_target();
    bench.protect_target();
    EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Failed);

    EXPECT_EQ(bench.wire(), whole_read(bench));
    EXPECT_EQ(bench.shown->lines.back(),
              "[red] コードプロテクトされています。（または不適切なデータがコードプロテクトビットに"
              "セットされています。）");
    EXPECT_EQ(bench.session().PgmMem[0], 0);
    EXPECT_EQ(bench.log(), kLogged);
}

TEST_P(generic_read, warns_of_protection_bits_that_match_no_option) {
    GenericBench bench{GetParam()};
    bench.program_target();
    const unsigned mask = bench.session().CpMask;
    if ((mask & (mask - 1)) == 0) return;  // one bit has an option for both its values
    // One copy of the bits protects, the others don't.
    bench.target().config[0] =
        static_cast<std::uint16_t>(bench.target().config[0] & ~(mask & -mask));
    EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Failed);

    EXPECT_TRUE(bench.shown->lines.back().starts_with("[red] コードプロテクトされています。"));
}

TEST_P(generic_read, keeps_counters_and_part) {
    GenericBench bench{GetParam()};
    bench.program_target();
    const auto part = bench.target();
    EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Success);

    EXPECT_EQ(bench.target(), part);
    EXPECT_EQ(bench.session().TryCount, 0);
    EXPECT_FALSE(bench.session().ConfigFromFile);
}

TEST_P(generic_read, stops_at_an_empty_socket) {
    GenericBench bench{GetParam()};
    const auto program = bench.program_image();
    bench.board.add_fault("empty-socket");
    EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Failed);

    EXPECT_EQ(bench.program_image(), program);
    EXPECT_EQ(bench.log(), "");
    EXPECT_EQ(bench.wire(),
              GenericWire{bench}.check() +
                  fmt::format("> {}{}c 00 08  < 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00  "
                              "> @  < @\n",
                              bench.row().power, bench.row().read));
}

TEST(generic_read_identity, is_shown_with_4096_added) {
    for (const auto& [type, shown] : {std::pair{"FLASH0_of_any_other", "102B"},
                                      std::pair{"FLASH4_9", "103B"}, std::pair{"T12F6", "107E"}}) {
        GenericBench bench{type};
        EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Success);
        EXPECT_EQ(bench.form().Label_DEV_id.Caption.get(), shown) << type;
    }
}

}  // namespace quillon::test
