// SPDX-License-Identifier: MIT
// The three erases of the per-area dialog on devices without a family.
#include "extend_support.h"

namespace quillon::test {

namespace {

class area_erase : public testing::TestWithParam<ExtendCase> {};
INSTANTIATE_TEST_SUITE_P(, area_erase, testing::ValuesIn(kExtendCases), extend_name);
class data_erase : public testing::TestWithParam<ExtendCase> {};
// Parts whose program side has an erase and nothing that must survive it.
class plain_erase : public testing::TestWithParam<ExtendCase> {};
INSTANTIATE_TEST_SUITE_P(, plain_erase, testing::Values(kFlash0, kFlash1, kFlash4, kFlash49),
                         extend_name);
INSTANTIATE_TEST_SUITE_P(, data_erase, testing::ValuesIn(kExtendCasesWithEeprom), extend_name);

// What a 12F6 part gets back behind its erase: blank ID words, three words that the board skips or
// ignores, the band gap.
bool is_restoring_write(const std::string& line) {
    return line.starts_with("> nwec 00 08  < + x8  > 3F FF 3F FF 3F FF 3F FF ");
}

std::vector<std::string> lines_of(const std::string& wire) {
    std::vector<std::string> lines;
    for (std::size_t from = 0; from < wire.size();) {
        const auto end = wire.find('\n', from);
        lines.push_back(wire.substr(from, end - from + 1));
        from = end + 1;
    }
    return lines;
}

}  // namespace

namespace {

void expect_chip_erased(const ExtendCase& row) {
    ExtendBench bench{row};
    const auto blank = bench.target();
    bench.program_part();
    bench.protect_target();
    EXPECT_EQ(bench.run->extend.Cmd_Chip_Erace_Click(), Outcome::Success);

    const bool with_pgm = row.device == kFlash4.device || row.device == kFlash49.device;
    const bool with_eep = row.device != kFlash2.device;
    EXPECT_EQ(bench.target(), blank);
    EXPECT_EQ(bench.wire(), bench.check() + bench.check() + bench.erase("0A") +
                                (with_pgm ? bench.erase("08") : "") +
                                (with_eep ? bench.erase("0C") : ""));
    EXPECT_EQ(bench.shown->lines, stages({bench.found(),
                                          {"チップイレース....."},
                                          bench.found(),
                                          kChipErased,
                                          with_pgm ? kPgmErased : Lines{},
                                          with_eep ? kEepErased : Lines{},
                                          {"チップイレースしました。"}}));
    Pauses middle{100ms, 100ms, 500ms};
    if (with_pgm) middle.push_back(100ms);
    if (with_eep) middle.push_back(100ms);
    EXPECT_EQ(pauses(bench), between_check_and_close(middle));
    EXPECT_TRUE(bench.dialogs.boxes.empty());
    EXPECT_EQ(bench.log(), "");
}

}  // namespace

TEST_P(plain_erase, Cmd_Chip_Erace_erases_the_whole_part) { expect_chip_erased(GetParam()); }
TEST(chip_erase_FLASH2, sends_the_chip_erase_and_nothing_more) { expect_chip_erased(kFlash2); }

TEST_P(area_erase, Cmd_Chip_Erace_tells_a_chip_erase_that_failed) {
    for (const std::string_view fault : {"bd/alter:1:0x21", "bd/late:3100ms"}) {
        ExtendBench bench{GetParam()};
        bench.board.add_fault(fault);
        EXPECT_EQ(bench.run->extend.Cmd_Chip_Erace_Click(), Outcome::Failed);
        EXPECT_TRUE(bench.was_shown("失敗。"));
        EXPECT_TRUE(bench.was_shown("チップイレースに失敗しました。"));
        EXPECT_FALSE(bench.was_shown("チップイレースしました。"));
    }
}

TEST_P(area_erase, waits_three_seconds_for_the_answer) {
    ExtendBench bench{GetParam()};
    bench.board.add_fault("bd/late:2900ms");
    EXPECT_EQ(bench.run->extend.Cmd_Chip_Erace_Click(), Outcome::Success);
}

TEST_P(data_erase, is_part_of_a_chip_erase_that_fails_with_it) {
    ExtendBench bench{GetParam()};
    bench.when_shown("ＥＥＰＲＯＭデータメモリ消去中.........",
                     [&] { bench.board.add_fault("bd/alter:1:0x21"); });
    EXPECT_EQ(bench.run->extend.Cmd_Chip_Erace_Click(), Outcome::Failed);
    EXPECT_TRUE(bench.was_shown("チップイレースに失敗しました。"));
    EXPECT_FALSE(bench.was_shown("チップイレースしました。"));
}

TEST(chip_erase_12F6, reads_word_and_band_gap_first_and_writes_them_back) {
    ExtendBench bench{k12F6};
    bench.program_part();
    const auto before = bench.target();
    const auto eep_blank = std::vector<std::uint8_t>(before.eeprom.size(), 0xFF);
    const auto read_word = bench.read_word();
    const auto config = bench.config();
    EXPECT_EQ(bench.run->extend.Cmd_Chip_Erace_Click(), Outcome::Success);

    const auto lines = lines_of(bench.wire());
    const auto head = lines_of(bench.check() + read_word + config + bench.check() +
                               bench.erase("0A") + bench.write_word(before.program.back() & 0xFFU));
    ASSERT_EQ(lines.size(), head.size() + 2);
    EXPECT_TRUE(std::equal(head.begin(), head.end(), lines.begin()))
        << fmt::format("{}", fmt::join(lines, "\n"));
    EXPECT_TRUE(is_restoring_write(lines[head.size()])) << lines[head.size()];
    EXPECT_EQ(lines.back(), bench.erase("0C"));

    EXPECT_EQ(bench.target().program.back(), before.program.back());
    EXPECT_EQ(bench.target().config[0] & 0x3000U, before.config[0] & 0x3000U);
    EXPECT_EQ(bench.target().id, (std::vector<std::uint16_t>(4, 0x3FFF)));
    EXPECT_EQ(bench.target().eeprom, eep_blank);
    EXPECT_EQ(std::ranges::count(bench.target().program, std::uint16_t{0x3FFF}),
              static_cast<std::ptrdiff_t>(before.program.size()) - 1);
    EXPECT_EQ(pauses(bench),
              between_check_and_close({100ms, 100ms, 100ms, 100ms, 500ms, 100ms, 100ms}));
    const auto wanted = stages({bench.found(),
                                {"チップイレース....."},
                                kReadWordLines,
                                bench.found(),
                                kChipErased,
                                kWriteWordLines,
                                kEepErased,
                                {"チップイレースしました。"}});
    EXPECT_EQ(bench.shown->lines, wanted);
}

TEST_P(plain_erase, Cmd_PGM_Erase_erases_program_memory_and_configuration) {
    ExtendBench bench{GetParam()};
    bench.program_part();
    EXPECT_EQ(bench.run->extend.Cmd_PGM_Erase_Click(), Outcome::Success);

    EXPECT_EQ(std::ranges::count(bench.target().program, std::uint16_t{0x3FFF}),
              bench.session().PgmWords);
    if (GetParam().pgm_erase_is_chip) {
        EXPECT_EQ(bench.wire(), bench.check() + bench.check() + bench.erase("0A"));
        EXPECT_EQ(
            bench.shown->lines,
            stages({bench.found(),
                    bench.found(),
                    kChipErased,
                    {"プログラムメモリ、コンフィグ、ＩＤの消去しました。",
                     "[+] チップイレースのため、ＥＥＰＲＯＭデータメモリも消去されています。"}}));
        EXPECT_EQ(bench.target().id, (std::vector<std::uint16_t>(4, 0x3FFF)));
        EXPECT_EQ(bench.target().config, bench.target().config_blank);
    } else {
        EXPECT_EQ(bench.wire(), bench.check() + bench.erase("08"));
        EXPECT_EQ(bench.shown->lines, stages({bench.found(),
                                              kPgmErased,
                                              {"プログラムメモリ、コンフィグ、ＩＤの消去しました。",
                                               "[+] コンフィグ、ＩＤの消去とプロテクトの解除には、"
                                               "チップイレースを使用してください。"}}));
    }
    EXPECT_EQ(bench.log(), "");
}

TEST_P(area_erase, Cmd_PGM_Erase_tells_its_failure) {
    ExtendBench bench{GetParam()};
    bench.board.add_fault("bd/alter:1:0x21");
    EXPECT_EQ(bench.run->extend.Cmd_PGM_Erase_Click(), Outcome::Failed);
    EXPECT_TRUE(bench.was_shown("プログラムメモリ、コンフィグ、ＩＤの消去に失敗しました。"));
    EXPECT_FALSE(bench.was_shown("プログラムメモリ、コンフィグ、ＩＤの消去しました。"));
}

// Its program memory can't be erased alone: the power letter goes out alone, and 3 s pass.
TEST(program_side_erase_FLASH2, sends_the_power_letter_alone_and_names_the_chip_erase) {
    ExtendBench bench{kFlash2};
    bench.program_part();
    const auto part = bench.target();
    const auto before = bench.host.now();
    EXPECT_EQ(bench.run->extend.Cmd_PGM_Erase_Click(), Outcome::Failed);

    EXPECT_EQ(bench.target(), part);
    EXPECT_EQ(bench.wire(), bench.check() + "> N\n");
    EXPECT_GT(bench.host.now() - before, 3s);
    const auto& lines = bench.shown->lines;
    const auto told = stages(
        {bench.found(),
         {"Ｆｌａｓｈプログラムメモリ消去中.........", "プログラムメモリを消去に失敗しました。",
          "プログラムメモリ、コンフィグ、ＩＤの消去に失敗しました。"}});
    ASSERT_EQ(lines.size(), told.size() + 1) << fmt::format("{}", fmt::join(lines, "\n"));
    EXPECT_TRUE(std::equal(told.begin(), told.end(), lines.begin()))
        << fmt::format("{}", fmt::join(lines, "\n"));
    EXPECT_TRUE(lines.back().starts_with("[+] "));
    EXPECT_NE(lines.back().find("チップイレース"), std::string::npos);
}

TEST(program_side_erase_12F6, keeps_word_and_band_gap_and_leaves_the_id_words_blank) {
    ExtendBench bench{k12F6};
    bench.program_part();
    const auto before = bench.target();
    const auto read_word = bench.read_word();
    const auto config = bench.config();
    EXPECT_EQ(bench.run->extend.Cmd_PGM_Erase_Click(), Outcome::Success);

    const auto lines = lines_of(bench.wire());
    const auto head = lines_of(bench.check() + read_word + config + bench.check() +
                               bench.erase("0A") + bench.write_word(before.program.back() & 0xFFU));
    ASSERT_EQ(lines.size(), head.size() + 1);
    EXPECT_TRUE(std::equal(head.begin(), head.end(), lines.begin()))
        << fmt::format("{}", fmt::join(lines, "\n"));
    EXPECT_TRUE(is_restoring_write(lines.back())) << lines.back();

    EXPECT_EQ(bench.target().program.back(), before.program.back());
    EXPECT_EQ(bench.target().config[0] & 0x3000U, before.config[0] & 0x3000U);
    EXPECT_EQ(bench.target().id, (std::vector<std::uint16_t>(4, 0x3FFF)));
    EXPECT_EQ(*(bench.shown->lines.end() - 2),
              "プログラムメモリ、コンフィグ、ＩＤの消去しました。");
}

TEST_P(data_erase, erases_eeprom_alone) {
    ExtendBench bench{GetParam()};
    bench.program_part();
    auto part = bench.target();
    EXPECT_EQ(bench.run->extend.Cmd_DATA_Erase_Click(), Outcome::Success);

    std::ranges::fill(part.eeprom, std::uint8_t{0xFF});
    EXPECT_EQ(bench.target(), part);
    EXPECT_EQ(bench.wire(), bench.check() + bench.erase("0C"));
    EXPECT_EQ(bench.shown->lines,
              stages({bench.found(), kEepErased, {"データメモリの消去しました。"}}));
    EXPECT_EQ(pauses(bench), between_check_and_close({}));
}

TEST_P(data_erase, tells_its_failure) {
    for (const std::string_view fault : {"bd/alter:1:0x21", "bd/late:3100ms"}) {
        ExtendBench bench{GetParam()};
        bench.board.add_fault(fault);
        EXPECT_EQ(bench.run->extend.Cmd_DATA_Erase_Click(), Outcome::Failed);
        EXPECT_EQ(bench.shown->lines, stages({bench.found(),
                                              {"ＥＥＰＲＯＭデータメモリ消去中.........", "失敗。",
                                               "データメモリの消去に失敗しました。"}}));
    }
}

TEST(data_erase_, shows_its_line_and_sends_nothing_on_a_device_without_eeprom) {
    ExtendBench bench{kFlash2};
    EXPECT_EQ(bench.run->extend.Cmd_DATA_Erase_Click(), Outcome::Failed);
    EXPECT_EQ(bench.wire(), bench.check());
    EXPECT_EQ(bench.shown->lines,
              stages({bench.found(), {"このデバイスにはデータメモリがありません。"}}));
}

// The list of names that reach their family misspells this one, so it is served by the generic
// table, which has no erase for it.
TEST(data_erase_, goes_the_generic_way_for_PIC16F690) {
    const ExtendCase row{.device = "PIC16F690",
                         .delay = 5,
                         .power = 'n',
                         .write_pgm = "",
                         .write_eep = "",
                         .write_cfg = ""};
    ExtendBench bench{row};
    EXPECT_EQ(bench.run->extend.Cmd_DATA_Erase_Click(), Outcome::Failed);
    EXPECT_EQ(bench.wire(), bench.check() + "> n\n");
    EXPECT_TRUE(bench.was_shown("失敗。"));
    EXPECT_TRUE(bench.was_shown("データメモリの消去に失敗しました。"));
    EXPECT_TRUE(bench.shown->lines.back().starts_with("[+] "));
    EXPECT_NE(bench.shown->lines.back().find("チップイレース"), std::string::npos);
}

TEST(extend_refused, sends_nothing_for_a_device_whose_family_is_missing) {
    const ExtendCase row{.device = "PIC16F690",
                         .delay = 5,
                         .power = 'n',
                         .write_pgm = "",
                         .write_eep = "",
                         .write_cfg = ""};
    ExtendBench bench{row};
    auto& extend = bench.run->extend;
    EXPECT_EQ(extend.Cmd_Chip_Erace_Click(), Outcome::NotServed);
    EXPECT_EQ(extend.Cmd_PGM_Erase_Click(), Outcome::NotServed);
    EXPECT_EQ(extend.Cmd_PGM_Program_Click(), Outcome::NotServed);
    EXPECT_EQ(extend.Cmd_DATA_Program_Click(), Outcome::NotServed);
    EXPECT_EQ(extend.Cmd_PGM_Read_Click(), Outcome::NotServed);
    EXPECT_EQ(extend.Cmd_DATA_Read_Click(), Outcome::NotServed);
    EXPECT_EQ(bench.wire(), "");
    EXPECT_FALSE(bench.session().ExtendPgmOnly);
    EXPECT_FALSE(bench.session().ExtendCfgToo);
}

TEST(extend_refused, asks_for_a_device_where_none_is_selected) {
    Bench bench{""};
    EXPECT_EQ(bench.run->extend.Cmd_Chip_Erace_Click(), Outcome::NoDevice);
    EXPECT_EQ(bench.wire(), "");
    EXPECT_EQ(bench.shown->lines.back(), "MCUを選んでください。");
    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    EXPECT_EQ(bench.dialogs.boxes[0].text, "MCUを選んでください。");
}

}  // namespace quillon::test
