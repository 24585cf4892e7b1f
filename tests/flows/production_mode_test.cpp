// SPDX-License-Identifier: MIT
// mnuLock: a line that programs one part after the other keeps three buttons only.
#include "flow_support.h"

namespace quillon::test {

namespace {

const Lines kThree{"Command_program", "Command_Verify", "Command_blank"};

struct Locked : Bench {
    Locked() {
        buttons_stay_locked = true;
        form().mnuLock.Checked.set(true);
    }
};

}  // namespace

TEST(mnuLock, leaves_three_buttons_after_any_operation) {
    for (const auto operation :
         {&Flows::Command_blank, &Flows::Command_read, &Flows::Command_Verify,
          &Flows::Command_program, &Flows::mnuPgmErase_Click, &Flows::mnuChipErase_Click}) {
        Locked bench;
        (bench.run->flows.*operation)();

        EXPECT_EQ(bench.enabled_buttons(), kThree);
        EXPECT_FALSE(bench.port.is_open());
    }
}

TEST(mnuLock, leaves_three_buttons_where_no_board_answers) {
    Locked bench;
    bench.board.ignore_bursts(2);
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::NoBoard);

    EXPECT_EQ(bench.enabled_buttons(), kThree);
}

TEST(mnuLock, programs_part_after_part) {
    Locked bench;
    const auto blank = bench.target();
    for (int part = 1; part <= 3; ++part) {
        bench.target() = blank;
        EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);
        EXPECT_EQ(bench.session().PassCount, part);
        EXPECT_EQ(bench.enabled_buttons(), kThree);
    }
}

TEST(mnuLock, gives_all_controls_back_once_it_is_off) {
    Locked bench;
    EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Success);
    bench.form().mnuLock.Checked.set(false);
    EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Success);

    EXPECT_TRUE(bench.controls_are_back());
}

}  // namespace quillon::test
