// SPDX-License-Identifier: MIT
// The partial operations of a family: program memory with configuration, and EEPROM alone.
#include "families/make_family.h"
#include "program_lines.h"

namespace quillon::test {

namespace {

// Runs a partial operation as its caller does: the board checked, the port open.
Outcome run_partial(Bench& bench, Outcome (Family::*operation)()) {
    EXPECT_EQ(bench.run->link.Writer_Check(), Token::OK);
    bench.wire();
    bench.shown->lines.clear();
    bench.host.sleeps.clear();
    const auto family = make_family(module_of(bench.device()), bench.run->context);
    EXPECT_NE(family, nullptr);
    return ((*family).*operation)();
}

struct Step {
    std::string_view fault;
    std::string_view failure;
};

}  // namespace

using Pgm_Reload = EveryFamily;
INSTANTIATE_TEST_SUITE_P(, Pgm_Reload, testing::ValuesIn(kFamilyCases), case_name);

TEST_P(Pgm_Reload, writes_and_verifies_program_memory_and_configuration) {
    Bench bench{GetParam()};
    EXPECT_EQ(run_partial(bench, &Family::Pgm_Reload), Outcome::Success);

    const ExpectedWire wire{bench};
    EXPECT_EQ(bench.wire(), wire.write_pgm() + wire.read_pgm(wire.program_of_target()) +
                                wire.write_cfg() + wire.config());
    EXPECT_EQ(bench.shown->lines,
              (Lines{
                  "Ｆｌａｓｈプログラムメモリのプログラミング中..........",
                  "プログラムメモリのプログラミングに成功しました。",
                  "Ｆｌａｓｈプログラムメモリのベリファイ中..........",
                  "コンフィギュレーションワードのプログラミング中..........",
                  "コンフィギュレーションワードのプログラミングに成功しました。",
                  "コンフィギュレーションワードのベリファイ中..........",
                  "Ｆｌａｓｈプログラムメモリ＆コンフィグレーションワード プログラム終了",
              }));
    EXPECT_EQ(pauses(bench), (Pauses{200ms, 200ms, 200ms}));
    EXPECT_EQ(bench.target().eeprom, std::vector<std::uint8_t>(256, 0xFF));
    EXPECT_EQ(bench.session().TryCount, 0);
}

TEST_P(Pgm_Reload, stops_at_the_first_failure_with_a_text_that_lacks_a_character) {
    for (const auto& [fault, failure] : {
             Step{"w/abort-write:9", "Ｆｌａｓｈプログラムメモリのプログラミングに敗しました。"},
             Step{"stuck-cell:9", "Ｆｌａｓｈプログラムメモリのベリファイに敗しました。"},
             Step{"stuck-config:0", "コンフィギュレーションワードのプログラミングに敗しました。"},
             Step{"rsc/alter:17:0x21", "コンフィギュレーションワードのベリファイに敗しました。"},
         }) {
        Bench bench{GetParam()};
        bench.board.add_fault(fault);
        EXPECT_EQ(run_partial(bench, &Family::Pgm_Reload), Outcome::Failed);
        EXPECT_EQ(bench.shown->lines.back(), failure);
    }
}

using Eep_Reload = EveryFamily;
INSTANTIATE_TEST_SUITE_P(, Eep_Reload, testing::ValuesIn(kFamilyCases), case_name);

TEST_P(Eep_Reload, erases_writes_and_verifies_eeprom_alone) {
    Bench bench{GetParam()};
    std::ranges::fill(bench.target().eeprom, std::uint8_t{0});
    bench.target().program[1] = 0x1234;
    EXPECT_EQ(run_partial(bench, &Family::Eep_Reload), Outcome::Success);

    const ExpectedWire wire{bench};
    EXPECT_EQ(bench.wire(),
              wire.erase_eep() + wire.write_eep() + wire.read_eep(wire.eeprom_of_target()));
    EXPECT_EQ(
        bench.shown->lines,
        (Lines{
            "プログラムデータメモリー..........ＥＥＰＲＯＭデータメモリーの消去中..........",
            "成功。",
            "プログラムデータメモリー..........ＥＥＰＲＯＭデータメモリーのプログラミング中..........",
            "ＥＥＰＲＯＭデータメモリのプログラミングに成功しました。",
            "プログラムデータメモリー..........ＥＥＰＲＯＭデータメモリーのベリファイ中..........",
            "プログラムデータメモリー..........ＥＥＰＲＯＭデータメモリーのプログラミングに成功しました。",
        }));
    EXPECT_EQ(pauses(bench), (Pauses{50ms, 50ms, 50ms, 200ms, 200ms}));
    EXPECT_EQ(bench.target().eeprom[9], bench.session().EepMem[19]);
    EXPECT_EQ(bench.target().program[1], 0x1234);
}

TEST_P(Eep_Reload, stops_at_the_first_failure) {
    for (
        const auto& [fault, failure] : {
            Step{
                "bd/alter:1:0x21",
                "プログラムデータメモリー..........ＥＥＰＲＯＭデータメモリーの消去に失敗しました。"},
            Step{
                "stuck-eeprom:9",
                "プログラムデータメモリー..........ＥＥＰＲＯＭデータメモリーのプログラミングに失敗しました。"},
            Step{
                "rsd/alter:513:0x21",
                "プログラムデータメモリー..........ＥＥＰＲＯＭデータメモリーのベリファイに失敗しました。"},
        }) {
        Bench bench{GetParam()};
        bench.board.add_fault(fault);
        EXPECT_EQ(run_partial(bench, &Family::Eep_Reload), Outcome::Failed);
        EXPECT_EQ(bench.shown->lines.back(), failure);
    }
}

}  // namespace quillon::test
