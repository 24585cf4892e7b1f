// SPDX-License-Identifier: MIT
// A part read into the image.
#include "flow_support.h"

namespace quillon::test {

namespace {

Lines read_lines(const std::string& verdict) {
    return after_check({
        "マイコンの種類の確認中.....",
        "書込みマイコンの種類の確認終了。",
        "Ｆｌａｓｈプログラムメモリ読み出し中.....",
        "Ｆｌａｓｈプログラムメモリ読み出し終了",
        "ＥＥＰＲＯＭデータメモリ読み出し中.....",
        "ＥＥＰＲＯＭデータメモリ読み出し終了",
        "コンフィギュレーションワード読み出し中.....",
        "コンフィギュレーションワード読み出し終了",
        verdict,
    });
}

std::string whole_read(Bench& bench) {
    const ExpectedWire wire{bench};
    return wire.check() + wire.config() + wire.read_pgm(wire.program_of_target()) +
           wire.read_eep(wire.eeprom_of_target()) + wire.config();
}

}  // namespace

using Command_read = EveryFamily;
INSTANTIATE_TEST_SUITE_P(, Command_read, testing::ValuesIn(kFamilyCases), case_name);

TEST_P(Command_read, takes_every_area_of_a_used_part_into_the_image) {
    Bench bench{GetParam()};
    const auto program = bench.program_image();
    const auto eeprom = bench.eeprom_image();
    const auto config = bench.session().ConfigWord[1];
    bench.program_target();
    bench.clear_image();
    EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Success);

    EXPECT_EQ(bench.program_image(), program);
    EXPECT_EQ(bench.eeprom_image(), eeprom);
    EXPECT_EQ(bench.session().ConfigWord[1], config);
    EXPECT_EQ(bench.form().Text_ID.Text.get(), "ABCD");
    EXPECT_EQ(bench.session().IdText, "ABCD");
    EXPECT_EQ(bench.form().Text_Config1.Text.get(), hex(config, 4));
    EXPECT_EQ(bench.wire(), whole_read(bench));
    EXPECT_EQ(bench.shown->lines, read_lines("読み出し完了。"));
    EXPECT_EQ(bench.session().ResultAll, "OKOKOK");
    EXPECT_EQ(bench.log(), "リード 操作終了\t\t2026-11-20 14:03:22\n");
    EXPECT_EQ(pauses(bench), between_check_and_close({}));
}

TEST_P(Command_read, shows_what_it_read_in_views_grid_and_check_sum) {
    Bench bench{GetParam()};
    const auto sum = bench.form().LblCheckSUM.Caption.get();
    bench.program_target();
    bench.clear_image();
    ASSERT_NE(bench.form().LblCheckSUM.Caption.get(), sum);
    EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Success);

    EXPECT_EQ(bench.form().LblCheckSUM.Caption.get(), sum);
    EXPECT_TRUE(bench.form().RichTxtPgmMem.Text.get().starts_with("000000: 0123 1B58 "));
    EXPECT_TRUE(bench.form().rText_EepromMem.Text.get().starts_with("0000: 05 2A 4F "));
    EXPECT_EQ(bench.form().HFGrid(1).cell(0, 1), "0x" + bench.form().Text_Config1.Text.get());
}

TEST_P(Command_read, shows_identity_and_revision_as_three_digits) {
    Bench bench{GetParam()};
    EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Success);

    const bool a = bench.device() == "PIC16F877A";
    EXPECT_EQ(bench.form().Lbl_ID_Dev.Caption.get(), a ? "071" : "04D");
    EXPECT_EQ(bench.form().Lbl_ID_Rev.Caption.get(), hex(bench.target().identity & 0x1FU, 3));
}

TEST_P(Command_read, tells_that_a_part_is_blank) {
    Bench bench{GetParam()};
    EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Success);

    EXPECT_EQ(bench.wire(), whole_read(bench));
    EXPECT_EQ(bench.shown->lines, read_lines("読み出し完了。　デバイスは消去されています。"));
    EXPECT_EQ(bench.session().PgmMem[0], 0x3F);
}

TEST_P(Command_read, does_not_call_a_part_blank_that_is_used_in_one_place) {
    for (auto* const use : {
             +[](SimulatedTarget& part) { part.program.back() = 0x3FFE; },
             +[](SimulatedTarget& part) { part.eeprom.front() = 0xFE; },
             +[](SimulatedTarget& part) { part.id[0] = 0x3FF1; },
             +[](SimulatedTarget& part) { part.config[0] &= 0x3FFEU; },
         }) {
        Bench bench{GetParam()};
        use(bench.target());
        EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Success);
        EXPECT_EQ(bench.shown->lines.back(), "読み出し完了。");
    }
}

TEST_P(Command_read, warns_in_red_of_a_protected_part) {
    Bench bench{GetParam()};
    bench.program_target();
    bench.protect_target();
    EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Failed);

    EXPECT_EQ(bench.wire(), whole_read(bench));
    auto lines = read_lines(
        "[red] "
        "コードプロテクトされています。（または不適切なデータがコードプロテクトビットにセットされています。）");
    lines.insert(lines.end() - 2, "リード..........このデバイスはコードプロテクトされています。");
    EXPECT_EQ(bench.shown->lines, lines);
    EXPECT_TRUE(bench.session().CodeProtect.any());
    EXPECT_EQ(bench.session().PgmMem[0], 0);
    EXPECT_TRUE(bench.dialogs.boxes.empty());
}

TEST_P(Command_read, keeps_the_words_as_the_device_has_them_and_masks_them_again_afterwards) {
    Bench bench{GetParam()};
    // A word without the bits that the catalogue forces to one.
    bench.target().config[0] =
        static_cast<std::uint16_t>(0x3FFEU & ~bench.session().ConfigForce[1]);
    EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Success);

    EXPECT_EQ(bench.session().ConfigWord[1], 0x3FFEU & ~bench.session().ConfigForce[1]);
    EXPECT_FALSE(bench.session().ConfigFromFile);
}

TEST_P(Command_read, stops_where_the_socket_is_empty) {
    Bench bench{GetParam()};
    const auto image = bench.program_image();
    bench.board.add_fault("empty-socket");
    EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Failed);

    EXPECT_EQ(bench.wire(), ExpectedWire::check() +
                                "> Nrsc 00 08  < 00 00 00 00 00 00 00 00 "
                                "00 00 00 00 00 00 00 00  > @  < @\n");
    EXPECT_EQ(bench.program_image(), image);
    EXPECT_EQ(bench.log(), "");
}

}  // namespace quillon::test
