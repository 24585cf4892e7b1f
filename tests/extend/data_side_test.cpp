// SPDX-License-Identifier: MIT
// Program and read of the data side: EEPROM alone.
#include "extend_support.h"

namespace quillon::test {

namespace {

class data_side : public testing::TestWithParam<ExtendCase> {};
INSTANTIATE_TEST_SUITE_P(, data_side, testing::ValuesIn(kExtendCasesWithEeprom), extend_name);

const Lines kProgramming{"ＥＥＰＲＯＭデータメモリのプログラミング.........."};
const Lines kErasing{"ＥＥＰＲＯＭデータメモリの消去.........."};

struct FailingStep {
    std::string fault;
    std::string_view title;
    std::string_view text;
};

}  // namespace

TEST_P(data_side, Cmd_DATA_Program_erases_writes_and_verifies_eeprom_alone) {
    ExtendBench bench{GetParam()};
    std::ranges::fill(bench.target().eeprom, std::uint8_t{0});
    bench.target().program[1] = 0x1234;
    const auto part = bench.target();
    EXPECT_EQ(bench.run->extend.Cmd_DATA_Program_Click(), Outcome::Success);

    EXPECT_EQ(bench.wire(),
              bench.check() + bench.erase("0C") + bench.write_eep() + bench.read_eep());
    EXPECT_EQ(bench.shown->lines,
              stages({kProgramming,
                      bench.found(),
                      kErasing,
                      kEepErased,
                      {"ＥＥＰＲＯＭデータメモリのプログラミングに成功しました。",
                       "ＥＥＰＲＯＭデータメモリのベリファイ中..........",
                       "ＥＥＰＲＯＭデータメモリのプログラミング成功。"}}));
    for (std::size_t c = 0; c < bench.target().eeprom.size(); ++c)
        ASSERT_EQ(bench.target().eeprom[c], bench.session().EepMem[2 * c + 1]) << c;
    EXPECT_EQ(bench.target().program, part.program);
    EXPECT_EQ(bench.target().config, part.config);
    // The operation closes the port, and so does the frame that it runs in.
    EXPECT_EQ(pauses(bench), between_check_and_close({200ms, 200ms}));
    EXPECT_TRUE(bench.dialogs.boxes.empty());
}

TEST_P(data_side, Cmd_DATA_Program_shows_a_box_for_the_step_that_failed) {
    ExtendBench count{GetParam()};
    const auto cells = count.session().EepBytes;
    const FailingStep rows[] = {
        {"bd/alter:1:0x21", "ＥＥＰＲＯＭデータメモリ消去",
         "ＥＥＰＲＯＭデータメモリの消去に失敗しました。"},
        {"bd/late:3100ms", "ＥＥＰＲＯＭデータメモリ消去",
         "ＥＥＰＲＯＭデータメモリの消去に失敗しました。"},
        {"stuck-eeprom:9", "ＥＥＰＲＯＭデータメモリプログラミング",
         "ＥＥＰＲＯＭデータメモリのプログラミングに失敗しました。"},
        {fmt::format("{}/alter:{}:0x21", GetParam().write_eep, cells + 1),
         "ＥＥＰＲＯＭデータメモリプログラミング",
         "ＥＥＰＲＯＭデータメモリのプログラミングに失敗しました。"},
        {"rsd/alter:20:0x21", "ＥＥＰＲＯＭデータメモリベリファイ",
         "ＥＥＰＲＯＭデータメモリのベリファイに失敗しました。"},
        {fmt::format("rsd/alter:{}:0x21", 2 * cells + 1), "ＥＥＰＲＯＭデータメモリベリファイ",
         "ＥＥＰＲＯＭデータメモリのベリファイに失敗しました。"},
    };
    for (const auto& row : rows) {
        ExtendBench bench{GetParam()};
        bench.board.add_fault(row.fault);
        EXPECT_EQ(bench.run->extend.Cmd_DATA_Program_Click(), Outcome::Failed) << row.fault;
        ASSERT_EQ(bench.dialogs.boxes.size(), 1U) << row.fault;
        EXPECT_EQ(bench.dialogs.boxes[0].title, row.title) << row.fault;
        EXPECT_EQ(bench.dialogs.boxes[0].text, row.text) << row.fault;
        EXPECT_EQ(bench.shown->lines.back(), "ＥＥＰＲＯＭデータメモリのプログラミング失敗。")
            << row.fault;
        EXPECT_FALSE(bench.was_shown("ＥＥＰＲＯＭデータメモリのプログラミング成功。"));
    }
}

TEST_P(data_side, Cmd_DATA_Program_writes_nothing_behind_an_erase_that_failed) {
    ExtendBench bench{GetParam()};
    bench.board.add_fault("bd/alter:1:0x21");
    EXPECT_EQ(bench.run->extend.Cmd_DATA_Program_Click(), Outcome::Failed);
    EXPECT_EQ(
        bench.wire().find("> " + std::string{GetParam().power} + std::string{GetParam().write_eep}),
        std::string::npos);
}

TEST_P(data_side, Cmd_DATA_Read_reads_eeprom_into_the_image) {
    ExtendBench bench{GetParam()};
    bench.program_part();
    const auto cells = ExpectedWire{bench}.eeprom_of_target();
    bench.clear_image();
    const auto program = bench.program_image();
    EXPECT_EQ(bench.run->extend.Cmd_DATA_Read_Click(), Outcome::Success);

    EXPECT_EQ(bench.wire(), bench.check() + bench.read_eep());
    EXPECT_EQ(bench.eeprom_image(), cells);
    EXPECT_EQ(bench.program_image(), program);
    EXPECT_EQ(bench.shown->lines, stages({bench.found(),
                                          {"ＥＥＰＲＯＭデータメモリ読み出し中..........",
                                           "ＥＥＰＲＯＭデータメモリ読み出し成功。"}}));
    EXPECT_EQ(pauses(bench), between_check_and_close({}));
}

TEST_P(data_side, Cmd_DATA_Read_tells_a_read_that_failed) {
    ExtendBench count{GetParam()};
    const auto end = 2 * count.session().EepBytes + 1;
    struct Row {
        std::string fault;
        std::string_view line;
    };
    for (const auto& [fault, line] :
         {Row{fmt::format("rsd/alter:{}:0x21", end),
              "ＥＥＰＲＯＭデータメモリ読み出し失敗。　　終了コードを受信できませんでした。"},
          Row{"rsd/late:10100ms:5",
              "ＥＥＰＲＯＭデータメモリ読み出し失敗。　　読み出しデータ不足。"}}) {
        ExtendBench bench{GetParam()};
        bench.board.add_fault(fault);
        EXPECT_EQ(bench.run->extend.Cmd_DATA_Read_Click(), Outcome::Failed) << fault;
        EXPECT_TRUE(bench.was_shown(line)) << fault;
        EXPECT_EQ(bench.shown->lines.back(), "ＥＥＰＲＯＭデータメモリの読み出し失敗。") << fault;
    }
}

TEST(data_side_, shows_a_line_and_sends_nothing_on_a_device_without_eeprom) {
    ExtendBench reading{kFlash2};
    EXPECT_EQ(reading.run->extend.Cmd_DATA_Read_Click(), Outcome::Failed);
    EXPECT_EQ(reading.wire(), reading.check());
    EXPECT_FALSE(reading.was_shown("ＥＥＰＲＯＭデータメモリ読み出し成功。"));

    ExtendBench writing{kFlash2};
    EXPECT_EQ(writing.run->extend.Cmd_DATA_Program_Click(), Outcome::Failed);
    EXPECT_EQ(writing.wire(), writing.check());
    EXPECT_FALSE(writing.was_shown("ＥＥＰＲＯＭデータメモリのプログラミング成功。"));
}

}  // namespace quillon::test
