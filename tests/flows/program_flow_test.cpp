// SPDX-License-Identifier: MIT
// A part programmed from the image without a fault: every exchange, message and pause.
#include "program_lines.h"
#include "run/start_up.h"

namespace quillon::test {

namespace {

// The last line of a run that went well.
std::string success(const Bench& bench, std::string_view seconds, int passed) {
    return fmt::format("プログラミング成功。　　{}sec　終了時刻：14:03:22  Pass = {}    Fail = {}",
                       seconds, passed, bench.run->session.TryCount - passed);
}

// The seconds in the last line, to compare them with the clock.
int seconds_told(const Bench& bench) {
    const auto& line = bench.shown->lines.back();
    const auto from = line.find("　　") + std::string_view{"　　"}.size();
    return std::stoi(line.substr(from, line.find("sec") - from));
}

}  // namespace

using Command_program = EveryFamily;
INSTANTIATE_TEST_SUITE_P(, Command_program, testing::ValuesIn(kFamilyCases), case_name);

TEST_P(Command_program, programs_a_blank_part) {
    Bench bench{GetParam()};
    const ExpectedWire wire{bench};
    const auto before = wire.check() + wire.config() + wire.blank_pgm("3F FF") +
                        wire.read_eep(wire.eeprom_of_target()) + wire.config();
    bench.session().LoadedHexPath = "/home/user/BLINK.HEX";
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);

    expect_programmed(bench);
    EXPECT_EQ(bench.wire(), before + written_wire(wire));
    const auto last = success(bench, std::to_string(seconds_told(bench)), 1);
    EXPECT_EQ(
        bench.shown->lines,
        after_check(joined(
            {kSocketLines, kBlankLines, kFoundBlankLines, written_lines(GetParam()), {last}})));
    EXPECT_EQ(bench.log(), last + "  " + bench.device() +
                               "  ID:ABCD  /home/user/BLINK.HEX\t2026-11-20 14:03:22\n");
    EXPECT_EQ(pauses(bench), between_check_and_close(joined(
                                 {{200ms}, erase_pauses(GetParam()), {200ms, 200ms, 200ms}})));
    EXPECT_TRUE(bench.dialogs.boxes.empty());
    EXPECT_TRUE(bench.dialogs.hints.empty());
    EXPECT_EQ(bench.form().Lbl_Calib_ReadWrite_Data.Caption.get(), "");
    EXPECT_EQ(bench.form().Focus.get(), "frmMain");
}

TEST_P(Command_program, counts_a_success_and_leaves_its_verdict) {
    Bench bench{GetParam()};
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);

    EXPECT_EQ(bench.session().ResultAll, "OKOKOK");
    EXPECT_EQ(bench.session().TryCount, 1);
    EXPECT_EQ(bench.session().PassCount, 1);
    EXPECT_EQ(bench.session().FailCount, 0);
    EXPECT_EQ(bench.session().Status, Token::OK);
    EXPECT_EQ(bench.session().FailDetail, bench.shown->lines.back());
}

TEST_P(Command_program, tells_the_whole_seconds_that_it_took) {
    Bench bench{GetParam()};
    FakeHost::Time from{};
    bench.when_shown("電源印加遅延時間　設定＝ 10 ミリ秒",
                     [&] { from = bench.host.now() + 500ms; });
    FakeHost::Time to{};
    bench.when_shown("コンフィギュレーションワードのベリファイ中..........",
                     [&] { to = bench.host.now(); });
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);

    // 8192 words of 1.3 ms and 256 cells of 4 ms alone are more than 11 s.
    EXPECT_GE(seconds_told(bench), 11);
    EXPECT_EQ(seconds_told(bench), (to - from + 10ms) / 1s);
}

TEST_P(Command_program, counts_on_from_run_to_run) {
    Bench bench{GetParam()};
    bench.dialogs.hint_answer = 1;
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);
    bench.board.add_fault("stuck-cell:0");
    bench.session().PgmMem[1] ^= 0xFF;
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Failed);

    EXPECT_EQ(bench.session().TryCount, 3);
    EXPECT_EQ(bench.session().PassCount, 2);
    EXPECT_EQ(bench.session().FailCount, 1);
    EXPECT_TRUE(bench.shown->lines.back().ends_with("  Pass = 2    Fail = 1"));
}

TEST_P(Command_program, marks_the_words_that_are_the_devices_own_and_unmarks_them) {
    Bench bench{GetParam()};
    bench.session().CfgIdMem[8] = 0xBF;
    bench.session().CfgIdMem[10] = 0x15;
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);

    EXPECT_EQ(bench.session().CfgIdMem[8], 0x3F);
    EXPECT_EQ(bench.session().CfgIdMem[10], 0x15);
    EXPECT_EQ(bench.session().CfgIdMem[12], 0x3F);
}

TEST_P(Command_program, takes_a_lone_end_code_for_a_request_of_the_next_word) {
    Bench bench{GetParam()};
    bench.board.set_ready_byte('@');
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);

    expect_programmed(bench);
}

TEST_P(Command_program, programs_over_a_line_of_57600_baud) {
    Bench bench{GetParam()};
    InProcessPort slow{bench.board, bench.time, 57600};
    quillon::Run run{bench.store, bench.host, slow, bench.dialogs};
    ASSERT_EQ(StartUp{run}.prepare(), StartUp::End::Ready);
    ASSERT_TRUE(run.form.Combo_device.select(std::string_view{GetParam()}));
    EXPECT_EQ(run.flows.Command_program(), Outcome::Success);

    EXPECT_FALSE(slow.is_open());
    EXPECT_EQ(run.session.ResultAll, "OKOKOK");
}

TEST_P(Command_program, protects_a_part_last_of_all) {
    Bench bench{GetParam()};
    bench.session().ConfigWord[1] &= ~bench.session().CpMask;
    bench.session().CfgIdMem[14] = static_cast<std::uint8_t>(bench.session().ConfigWord[1] >> 8U);
    bench.session().CfgIdMem[15] = static_cast<std::uint8_t>(bench.session().ConfigWord[1]);
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);

    expect_programmed(bench);
    EXPECT_TRUE(bench.target().program_protected());
    const auto& lines = bench.shown->lines;
    EXPECT_EQ(lines[lines.size() - 2], "このデバイスはコードプロテクトされています。");
    EXPECT_EQ(bench.session().ResultAll, "OKOKOK");
}

TEST_P(Command_program, leaves_out_eeprom_and_configuration_for_program_memory_alone) {
    Bench bench{GetParam()};
    bench.form().mnuBlankSkip.Checked.set(true);
    bench.session().ExtendPgmOnly = true;
    const ExpectedWire wire{bench};
    const auto before = wire.check() + wire.config() + wire.erase_all();
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);

    EXPECT_EQ(bench.wire(), before + wire.write_pgm() + wire.read_pgm(wire.program_of_target()));
    EXPECT_EQ(bench.session().ResultAll, "OK----");
    EXPECT_EQ(bench.session().PassCount, 1);
}

TEST_P(Command_program, leaves_out_eeprom_alone_where_the_configuration_goes_along) {
    Bench bench{GetParam()};
    bench.form().mnuBlankSkip.Checked.set(true);
    bench.session().ExtendPgmOnly = bench.session().ExtendCfgToo = true;
    const ExpectedWire wire{bench};
    const auto before = wire.check() + wire.config() + wire.erase_all();
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);

    EXPECT_EQ(bench.wire(), before + wire.write_pgm() + wire.read_pgm(wire.program_of_target()) +
                                wire.write_cfg() + wire.config());
    EXPECT_EQ(bench.session().ResultAll, "OK--OK");
}

class EverySize : public testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(, EverySize,
                         testing::Values("PIC16F873", "PIC16F874", "PIC16F876", "PIC16F877",
                                         "PIC16F873A", "PIC16F874A", "PIC16F876A", "PIC16F877A"),
                         device_name);

TEST_P(EverySize, is_programmed_over_an_old_program_verified_and_read_back) {
    Bench bench{GetParam()};
    std::ranges::fill(bench.target().program, std::uint16_t{0});
    std::ranges::fill(bench.target().eeprom, std::uint8_t{0});
    bench.dialogs.hint_answer = 1;
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);
    expect_programmed(bench);

    EXPECT_EQ(bench.run->flows.Command_Verify(), Outcome::Success);
    const auto program = bench.program_image();
    const auto eeprom = bench.eeprom_image();
    bench.clear_image();
    EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Success);
    EXPECT_EQ(bench.program_image(), program);
    EXPECT_EQ(bench.eeprom_image(), eeprom);
}

TEST_P(EverySize, is_told_from_every_other_by_its_identity) {
    Bench bench{GetParam()};
    for (const auto* other : {"PIC16F873", "PIC16F874", "PIC16F876", "PIC16F877", "PIC16F873A",
                              "PIC16F874A", "PIC16F876A", "PIC16F877A"}) {
        bench.put_into_socket(other);
        const bool same = std::string_view{other} == GetParam();
        EXPECT_EQ(bench.run->flows.Command_read(), same ? Outcome::Success : Outcome::Cancelled)
            << other;
    }
}

}  // namespace quillon::test
