// SPDX-License-Identifier: MIT
// Program and read of the program side: program memory with configuration and ID words, and no
// EEPROM.
#include "extend_support.h"
#include "image/config_area.h"

namespace quillon::test {

namespace {

class program_side : public testing::TestWithParam<ExtendCase> {};
INSTANTIATE_TEST_SUITE_P(, program_side, testing::ValuesIn(kExtendCases), extend_name);

const Lines kChecking{"ライターチェック中.........."};

void expect_flags_clear(const Bench& bench) {
    EXPECT_FALSE(bench.run->session.ExtendPgmOnly);
    EXPECT_FALSE(bench.run->session.ExtendCfgToo);
}

// The lines of the list that were shown, in the order shown.
Lines only(const Lines& shown, const Lines& wanted) {
    Lines found;
    for (const auto& line : shown)
        if (std::ranges::find(wanted, line) != wanted.end()) found.push_back(line);
    return found;
}

std::size_t occurrences(const std::string& text, const std::string& part) {
    std::size_t n = 0;
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++n;
    return n;
}

void expect_program_side(ExtendBench& bench, const SimulatedTarget& fresh) {
    const auto& session = bench.session();
    const auto words = bench.target().program.size() - (bench.is_12F6() ? 1 : 0);
    for (std::size_t w = 0; w < words; ++w)
        ASSERT_EQ(bench.target().program[w],
                  word_high_first(session.PgmMem[2 * w], session.PgmMem[2 * w + 1]))
            << "word " << w;
    EXPECT_EQ(bench.target().id, (std::vector<std::uint16_t>{0x3FFA, 0x3FFB, 0x3FFC, 0x3FFD}));
    EXPECT_EQ(bench.target().config[0], session.ConfigWord[1]);
    EXPECT_EQ(bench.target().eeprom, fresh.eeprom);
}

}  // namespace

TEST_P(program_side, checks_the_board_for_the_dialog_for_the_flow_and_for_the_erase) {
    ExtendBench bench{GetParam()};
    const auto fresh = bench.target();
    EXPECT_EQ(bench.run->extend.Cmd_PGM_Program_Click(), Outcome::Success);

    expect_program_side(bench, fresh);
    const auto wire = bench.wire();
    EXPECT_TRUE(wire.starts_with(bench.check() + bench.check() + "> ")) << wire;
    EXPECT_EQ(occurrences(wire, bench.check()), 3U) << wire;
    EXPECT_NE(wire.find(bench.check() + bench.erase("0A") + bench.write_pgm() + bench.read_pgm()),
              std::string::npos)
        << wire;
    EXPECT_EQ(wire.find(std::string{"> "} + GetParam().power + "wed"), std::string::npos);
    EXPECT_EQ(wire.find(std::string{"> "} + GetParam().power + "wId"), std::string::npos);
    EXPECT_EQ(occurrences(wire, "rsd"), GetParam().device == kFlash2.device ? 0U : 1U)
        << "EEPROM is read by the blank check alone\n"
        << wire;
    expect_flags_clear(bench);
}

TEST_P(program_side, writes_and_verifies_the_configuration_behind_program_memory) {
    ExtendBench bench{GetParam()};
    EXPECT_EQ(bench.run->extend.Cmd_PGM_Program_Click(), Outcome::Success);

    auto items =
        std::vector<std::uint8_t>(bench.session().CfgIdMem.begin(),
                                  bench.session().CfgIdMem.begin() + 2 * GetParam().written_words);
    // The words of the device, as it holds them, with the mark of words that aren't written.
    for (std::size_t w = 4; w < 7; ++w) {
        items[2 * w] = static_cast<std::uint8_t>(bench.target().read_area(w) >> 8U | 0x80U);
        items[2 * w + 1] = static_cast<std::uint8_t>(bench.target().read_area(w));
    }
    const auto wire = bench.wire();
    const auto write = bench.write(GetParam().write_cfg,
                                   static_cast<std::int32_t>(GetParam().written_words), items);
    EXPECT_NE(wire.find(bench.read_pgm()), std::string::npos) << wire;
    const auto at = wire.find(write);
    ASSERT_NE(at, std::string::npos) << wire << "\nexpected " << write;
    EXPECT_GT(at, wire.find(bench.read_pgm()));
    // One read before it, to keep what the device holds, and one behind it, to verify.
    EXPECT_NE(wire.find("rsc", at), std::string::npos);
}

TEST_P(program_side, shows_the_stages_of_a_run_without_those_of_eeprom) {
    ExtendBench bench{GetParam()};
    EXPECT_EQ(bench.run->extend.Cmd_PGM_Program_Click(), Outcome::Success);

    const auto wanted =
        stages({kChecking,
                {"ソケット確認中.....", "ソケット確認終了。", "ブランクチェック中..........",
                 "ブランクチェック終了。　デバイスは消去されています。",
                 "チップイレース中..........", "プログラムメモリのプログラミング中..........",
                 "プログラムメモリのプログラミングに成功しました。",
                 "プログラムメモリのベリファイ中..........",
                 "コンフィグレーションの修正データ修得中..........",
                 "コンフィギュレーションワード プログラミング中..........",
                 "コンフィギュレーションワードのプログラミングに成功しました。",
                 "コンフィギュレーションワードのベリファイ中.........."}});
    EXPECT_EQ(
        only(bench.shown->lines, wanted),
        stages({kChecking,
                kChecking,
                {"ソケット確認中.....",
                 GetParam().device == kFlash1.device ? "ソケット確認終了。" : "ソケット確認終了。",
                 "ブランクチェック中..........",
                 "ブランクチェック終了。　デバイスは消去されています。",
                 "チップイレース中..........", "プログラムメモリのプログラミング中..........",
                 "プログラムメモリのプログラミング中..........",
                 "プログラムメモリのプログラミングに成功しました。",
                 "プログラムメモリのベリファイ中..........",
                 "コンフィグレーションの修正データ修得中..........",
                 "コンフィギュレーションワード プログラミング中..........",
                 "コンフィギュレーションワードのプログラミングに成功しました。",
                 "コンフィギュレーションワードのベリファイ中.........."}}));
    EXPECT_FALSE(bench.was_shown("ＥＥＰＲＯＭデータメモリのプログラミング.........."));
    EXPECT_FALSE(bench.was_shown("ＥＥＰＲＯＭデータメモリのベリファイ中.........."));
    EXPECT_TRUE(bench.shown->lines.back().starts_with("プログラミング成功。　　"));
    EXPECT_TRUE(bench.log().starts_with("プログラミング成功。　　"));
    EXPECT_EQ(bench.session().TryCount, 1);
    EXPECT_EQ(bench.session().PassCount, 1);
}

TEST_P(program_side, counts_program_memory_alone_as_success) {
    ExtendBench bench{GetParam()};
    EXPECT_EQ(bench.run->extend.Cmd_PGM_Program_Click(), Outcome::Success);
    EXPECT_EQ(bench.session().ResultAll, "OK----");
}

TEST_P(program_side, does_not_pass_where_the_configuration_differs_after_the_write) {
    ExtendBench bench{GetParam()};
    bench.when_shown("コンフィギュレーションワードのベリファイ中..........",
                     [&] { bench.target().config[0] ^= 0x0004U; });
    EXPECT_EQ(bench.run->extend.Cmd_PGM_Program_Click(), Outcome::Failed);
    EXPECT_EQ(bench.session().PassCount, 0);
    EXPECT_TRUE(bench.shown->lines.back().starts_with("[red] プログラミング失敗。"));
    expect_flags_clear(bench);
}

TEST_P(program_side, does_not_pass_where_a_word_differs) {
    ExtendBench bench{GetParam()};
    bench.board.add_fault("stuck-cell:9");
    EXPECT_EQ(bench.run->extend.Cmd_PGM_Program_Click(), Outcome::Failed);
    EXPECT_EQ(bench.session().ResultPgm, Token::NG);
    EXPECT_EQ(bench.session().PassCount, 0);
    expect_flags_clear(bench);
}

TEST_P(program_side, clears_its_flags_after_a_cancelled_question_and_after_giving_up) {
    ExtendBench bench{GetParam()};
    bench.program_part();
    const auto part = bench.target();
    bench.dialogs.hint_answer = 2;
    EXPECT_EQ(bench.run->extend.Cmd_PGM_Program_Click(), Outcome::Cancelled);
    EXPECT_EQ(bench.target(), part);
    expect_flags_clear(bench);

    bench.dialogs.hint_answer = 1;
    bench.stop_when([&] { return bench.session().ExtendPgmOnly; });
    EXPECT_EQ(bench.run->extend.Cmd_PGM_Program_Click(), Outcome::GivenUp);
    expect_flags_clear(bench);
}

TEST_P(program_side, clears_its_flags_where_a_write_breaks_off_and_the_next_run_is_whole) {
    ExtendBench bench{GetParam()};
    bench.board.add_fault("w/abort-write:9");
    EXPECT_EQ(bench.run->extend.Cmd_PGM_Program_Click(), Outcome::Failed);
    expect_flags_clear(bench);

    bench.dialogs.hint_answer = 1;
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);
    EXPECT_EQ(bench.session().ResultAll, bench.session().EepBytes != 0 ? "OKOKOK" : "OK--OK");
}

TEST_P(program_side, ends_where_the_board_is_not_found) {
    ExtendBench bench{GetParam()};
    bench.board.add_fault("ignore-bursts:2");
    EXPECT_EQ(bench.run->extend.Cmd_PGM_Program_Click(), Outcome::NoBoard);
    EXPECT_EQ(bench.session().TryCount, 0);
    expect_flags_clear(bench);
}

TEST_P(program_side, closes_the_port_twice_as_both_frames_do) {
    ExtendBench bench{GetParam()};
    EXPECT_EQ(bench.run->extend.Cmd_PGM_Program_Click(), Outcome::Success);
    const auto all = pauses(bench);
    ASSERT_GE(all.size(), 8U);
    EXPECT_EQ((Pauses{all.begin(), all.begin() + 4}), (Pauses{100ms, 500ms, 100ms, 500ms}));
    EXPECT_EQ((Pauses{all.end() - 4, all.end()}), (Pauses{200ms, 200ms, 200ms, 200ms}));
}

TEST_P(program_side, Cmd_PGM_Read_reads_program_memory_and_configuration) {
    ExtendBench bench{GetParam()};
    bench.program_part();
    const auto program = ExpectedWire{bench}.program_of_target();
    const auto area = bench.target();
    bench.clear_image();
    const auto eeprom = bench.eeprom_image();
    EXPECT_EQ(bench.run->extend.Cmd_PGM_Read_Click(), Outcome::Success);

    EXPECT_EQ(bench.wire(), bench.check() + bench.read_pgm() + bench.config());
    EXPECT_EQ(bench.program_image(), program);
    EXPECT_EQ(bench.eeprom_image(), eeprom);
    for (std::size_t w = 0; w < 8; ++w)
        EXPECT_EQ(
            word_high_first(bench.session().CfgIdMem[2 * w], bench.session().CfgIdMem[2 * w + 1]),
            area.read_area(w))
            << w;
    EXPECT_EQ(bench.shown->lines,
              stages({bench.found(),
                      {"プログラムメモリ読み出し中..........", "プログラムメモリ読み出し成功。"}}));
    EXPECT_EQ(bench.log(),
              "Ｆｌａｓｈプログラムメモリ＆コンフィグレーションワード　読み出し終了"
              "\t\t2026-11-20 14:03:22\n");
    EXPECT_EQ(pauses(bench), between_check_and_close({}));
}

TEST_P(program_side, Cmd_PGM_Read_tells_each_read_that_failed) {
    ExtendBench count{GetParam()};
    for (const auto& fault : {fmt::format("rsp/alter:{}:0x21", 2 * count.session().PgmWords + 1),
                              fmt::format("rsc/alter:{}:0x21", 2 * GetParam().config_words + 1)}) {
        ExtendBench bench{GetParam()};
        bench.board.add_fault(fault);
        EXPECT_EQ(bench.run->extend.Cmd_PGM_Read_Click(), Outcome::Failed) << fault;
        EXPECT_TRUE(bench.was_shown("プログラムメモリの読み出し失敗。")) << fault;
        EXPECT_FALSE(bench.was_shown("プログラムメモリ読み出し成功。"));
    }
}

}  // namespace quillon::test
