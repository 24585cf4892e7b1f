// SPDX-License-Identifier: MIT
// Operations that the user gives up, and those whose port vanishes: the port is closed at once, the
// controls come back, and the next operation finds the board again.
#include "flow_support.h"

namespace quillon::test {

namespace {

constexpr std::string_view kGivenUp = "[red] 操作を中止しました。";

// A silence in a wait that has no limit.
struct Silence {
    const char* name;
    Outcome (Flows::*operation)();
    std::string_view fault;
    std::string_view from = "";  // the message at which the board falls silent
};

const std::vector<Silence> kSilences{
    {"blank_check_of_program_memory", &Flows::Command_blank, "bs/silent-after:0"},
    {"blank_check_of_configuration", &Flows::Command_blank, "rsc/silent-after:3"},
    {"read_of_program_memory", &Flows::Command_read, "rsp/silent-after:1000"},
    {"end_code_of_a_read", &Flows::Command_read, "rsp/silent-after:16384"},
    {"end_code_of_the_device_check", &Flows::Command_read, "rsc/silent-after:16"},
    {"verify_of_program_memory", &Flows::Command_Verify, "rsp/silent-after:33"},
    {"verify_of_configuration", &Flows::Command_Verify, "rsc/silent-after:5",
     "ベリファイ中..........コンフィギュレーションワード"},
    {"write_of_eeprom", &Flows::Command_program, "wed/silent-after:20"},
    {"end_code_of_eeprom", &Flows::Command_program, "wed/silent-after:256"},
    {"write_of_configuration", &Flows::Command_program, "w/silent-after:3",
     "コンフィギュレーションワード プログラミング中.........."},
    {"end_code_of_configuration", &Flows::Command_program, "w/silent-after:8",
     "コンフィギュレーションワード プログラミング中.........."},
};

std::string silence_name(const testing::TestParamInfo<Silence>& info) { return info.param.name; }

}  // namespace

class silent_board : public testing::TestWithParam<Silence> {};
INSTANTIATE_TEST_SUITE_P(, silent_board, testing::ValuesIn(kSilences), silence_name);

TEST_P(silent_board, is_waited_for_until_the_user_gives_up) {
    for (const auto* device : {"PIC16F877", "PIC16F877A"}) {
        Bench bench{device};
        if (GetParam().operation == &Flows::Command_Verify) bench.program_target();
        const auto fall_silent = [&] { bench.board.add_fault(GetParam().fault); };
        if (GetParam().from.empty())
            fall_silent();
        else
            bench.when_shown(GetParam().from, fall_silent);
        const auto end = bench.host.now() + 1min;
        bench.give_up_when([&] { return bench.host.now() >= end; });
        EXPECT_EQ((bench.run->flows.*GetParam().operation)(), Outcome::GivenUp);

        EXPECT_GE(bench.host.now(), end);
        EXPECT_LT(bench.host.now(), end + 10ms);  // nothing is waited for any more
        EXPECT_EQ(bench.shown->lines.back(), kGivenUp);
        EXPECT_FALSE(bench.port.is_open());
        EXPECT_TRUE(bench.controls_are_back());
        EXPECT_EQ(bench.session().Status, Token::NG);
        EXPECT_EQ(bench.session().ResultAll, "");
        EXPECT_EQ(bench.session().PassCount, 0);
        EXPECT_EQ(bench.log(), "");

        bench.board.clear_faults();
        EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Success);
    }
}

TEST_P(silent_board, is_left_within_300_ms_of_the_stop_button) {
    for (const auto* device : {"PIC16F877", "PIC16F877A"}) {
        Bench bench{device};
        if (GetParam().operation == &Flows::Command_Verify) bench.program_target();
        const auto fall_silent = [&] { bench.board.add_fault(GetParam().fault); };
        if (GetParam().from.empty())
            fall_silent();
        else
            bench.when_shown(GetParam().from, fall_silent);
        const auto pressed = bench.host.now() + 1min;
        bench.stop_when([&] { return bench.host.now() >= pressed; });
        EXPECT_EQ((bench.run->flows.*GetParam().operation)(), Outcome::GivenUp);

        EXPECT_GE(bench.host.now(), pressed);
        EXPECT_LT(bench.host.now(), pressed + 300ms);
        EXPECT_EQ(bench.shown->lines.back(), kGivenUp);
        EXPECT_FALSE(bench.port.is_open());
        EXPECT_TRUE(bench.controls_are_back());
        EXPECT_FALSE(bench.form().Command_stop.Enabled.get());
        EXPECT_EQ(bench.log(), "");

        bench.board.clear_faults();
        EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Success);
    }
}

namespace {

// The sleeps from 50 ms on: long enough for a user to press the button.
std::size_t long_sleeps(const Bench& bench) {
    return static_cast<std::size_t>(
        std::ranges::count_if(bench.host.sleeps, [](auto time) { return time >= 50ms; }));
}

// An operation that runs through all its sleeps, on a part that makes it succeed.
struct Sleeper : Bench {
    explicit Sleeper(Outcome (Flows::*operation)()) : operation_{operation} {
        if (operation == &Flows::Command_Verify) program_target();
    }
    Outcome operate() { return (run->flows.*operation_)(); }

  private:
    Outcome (Flows::*operation_)();
};

}  // namespace

TEST(stop_button, cuts_every_sleep_of_every_operation) {
    for (const auto operation : {&Flows::Command_blank, &Flows::Command_read,
                                 &Flows::Command_Verify, &Flows::Command_program}) {
        Sleeper whole{operation};
        EXPECT_EQ(whole.operate(), Outcome::Success);
        const std::size_t sleeps = long_sleeps(whole);
        ASSERT_GE(sleeps, 4U);
        for (std::size_t nth = 1; nth <= sleeps; ++nth) {
            Sleeper bench{operation};
            Host::Time pressed{};
            bench.stop_when([&] {
                if (long_sleeps(bench) < nth) return false;
                pressed = bench.host.now();
                return true;
            });
            const auto outcome = bench.operate();

            EXPECT_EQ(long_sleeps(bench), nth) << "it slept on";
            EXPECT_LT(bench.host.now() - pressed, 30ms);
            EXPECT_FALSE(bench.port.is_open());
            EXPECT_TRUE(bench.controls_are_back());
            // In the last two sleeps, those of the close, the verdict is already known.
            if (nth + 2 > sleeps) {
                EXPECT_EQ(outcome, Outcome::Success);
            } else {
                EXPECT_EQ(outcome, Outcome::GivenUp);
                EXPECT_EQ(bench.shown->lines.back(), kGivenUp);
            }
        }
    }
}

TEST(stop_button, can_be_pressed_once_while_an_operation_runs_and_not_before_or_after) {
    Bench bench;
    auto& button = bench.form().Command_stop;
    EXPECT_FALSE(button.Enabled.get());
    bench.run->flows.Command_stop_Click();
    bench.when_shown("ブランクチェック中..........", [&] {
        EXPECT_TRUE(button.Enabled.get());
        bench.run->flows.Command_stop_Click();
        EXPECT_FALSE(button.Enabled.get());
    });
    EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::GivenUp);

    EXPECT_FALSE(button.Enabled.get());
    EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Success);
}

TEST(stop_button, ends_a_search_and_an_erase) {
    for (const auto operation : {&Flows::Label_FirmwareVersion_Click, &Flows::mnuPgmErase_Click,
                                 &Flows::mnuChipErase_Click}) {
        Bench bench;
        bench.board.add_fault(operation == &Flows::Label_FirmwareVersion_Click
                                  ? "?/silent-after:0"
                                  : "bd/silent-after:0");
        const auto pressed = bench.host.now() + 2s;
        bench.stop_when([&] { return bench.host.now() >= pressed; });
        EXPECT_EQ((bench.run->flows.*operation)(), Outcome::GivenUp);

        EXPECT_LT(bench.host.now(), pressed + 300ms);
        EXPECT_EQ(bench.shown->lines.back(), kGivenUp);
    }
}

TEST(mnuComPort, alone_of_the_options_is_locked_in_an_operation) {
    Bench bench;
    auto& form = bench.form();
    bool seen = false;
    bench.when_shown("ブランクチェック中..........", [&] {
        seen = true;
        EXPECT_FALSE(form.mnuComPort.Enabled.get());
        for (const auto* item :
             {&form.mnuComMode1, &form.mnuBlankSkip, &form.mnuLock, &form.HexFileCheck,
              &form.HexUpperAddress, &form.mnuBoardInfomation, &form.mnuFrmmainHight})
            EXPECT_TRUE(item->Enabled.get()) << item->name;
    });
    bench.run->flows.Command_blank();
    EXPECT_TRUE(seen);
    EXPECT_TRUE(form.mnuComPort.Enabled.get());
}

TEST(failed_runs, counts_a_run_when_it_has_ended) {
    Bench bench;
    auto& flows = bench.run->flows;
    std::vector<int> during;
    for (const auto* step : {"Ｆｌａｓｈプログラムメモリのプログラミング中..........",
                             "コンフィギュレーションワード プログラミング中.........."})
        bench.when_shown(step, [&] {
            EXPECT_EQ(bench.session().TryCount, 1);
            during.push_back(flows.failed_runs());
        });
    EXPECT_EQ(flows.Command_program(), Outcome::Success);
    EXPECT_EQ(during, (std::vector{0, 0}));
    EXPECT_EQ(flows.failed_runs(), 0);

    bench.stop_when([&] { return bench.session().TryCount == 2; });
    bench.dialogs.hint_answer = 1;
    EXPECT_EQ(flows.Command_program(), Outcome::GivenUp);
    EXPECT_EQ(flows.failed_runs(), 1);
}

TEST(giving_up, ends_an_operation_in_any_of_its_pauses) {
    for (const auto pause : {100ms, 500ms, 200ms}) {
        Bench bench;
        bench.give_up_when(
            [&] { return !bench.host.sleeps.empty() && bench.host.sleeps.back() == pause; });
        const auto outcome = bench.run->flows.Command_program();

        EXPECT_EQ(outcome, Outcome::GivenUp);
        EXPECT_EQ(bench.host.sleeps.back(), pause);
        EXPECT_FALSE(bench.port.is_open());
    }
}

TEST(giving_up, ends_the_wait_for_a_board) {
    Bench bench;
    bench.board.ignore_bursts(2);
    bench.give_up_when([&] { return bench.host.now() >= 2s; });
    EXPECT_EQ(bench.run->flows.Command_read(), Outcome::GivenUp);

    EXPECT_LT(bench.host.now(), 2s + 10ms);
}

TEST(giving_up, ends_a_write_of_program_memory_between_two_words) {
    Bench bench;
    bench.give_up_when([&] { return bench.target().program[1000] != 0x3FFF; });
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::GivenUp);

    EXPECT_EQ(bench.target().program[1002], 0x3FFF);
    EXPECT_EQ(bench.session().TryCount, 1);
    EXPECT_EQ(bench.session().PassCount, 0);
    EXPECT_TRUE(bench.dialogs.boxes.empty());
}

TEST(giving_up, takes_nothing_back_from_a_run_that_is_over) {
    Bench bench;
    bench.give_up_when([&] { return bench.session().PassCount == 1; });
    EXPECT_EQ(bench.run->flows.Command_program(), Outcome::Success);

    EXPECT_EQ(bench.session().ResultAll, "OKOKOK");
    EXPECT_NE(bench.log(), "");
}

TEST(giving_up, keeps_production_mode) {
    Bench bench;
    bench.buttons_stay_locked = true;
    bench.form().mnuLock.Checked.set(true);
    bench.board.add_fault("bs/silent-after:0");
    bench.give_up_when([&] { return bench.host.now() >= 1min; });
    EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::GivenUp);

    EXPECT_EQ(bench.enabled_buttons(),
              (Lines{"Command_program", "Command_Verify", "Command_blank"}));
}

TEST(vanished_port, ends_an_operation_wherever_it_is) {
    struct Place {
        Outcome (Flows::*operation)();
        std::string_view fault;
    };
    for (const auto& [operation, fault] : {
             Place{&Flows::Command_blank, "?/unplug-after:5"},
             Place{&Flows::Command_blank, "rsd/unplug-after:100"},
             Place{&Flows::Command_read, "rsp/unplug-after:5000"},
             Place{&Flows::Command_Verify, "rsc/unplug-after:16"},
             Place{&Flows::Command_program, "bd/unplug-after:0"},
             Place{&Flows::Command_program, "wed/unplug-after:99"},
             Place{&Flows::mnuPgmErase_Click, "bd/unplug-after:0"},
         }) {
        Bench bench;
        bench.board.add_fault(fault);
        EXPECT_EQ((bench.run->flows.*operation)(), Outcome::PortLost) << fault;

        EXPECT_EQ(bench.shown->lines.back(),
                  "[red] 通信ポートが使用できませんでした。 | "
                  "ライターとの接続を確認してください。");
        EXPECT_FALSE(bench.session().WriterFound);
        EXPECT_EQ(bench.form().Label_FirmwareVersion.Caption.get(), "COM3 : ライター未接続");
        EXPECT_EQ(bench.session().ResultAll, "");
        EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::NoBoard);

        bench.board.clear_faults();
        EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Success);
    }
}

TEST(running_operation, lets_no_second_one_in) {
    Bench bench;
    int refused = 0;
    bench.give_up_when([&] {
        if (!bench.run->flows.running()) return false;
        EXPECT_EQ(bench.run->flows.Command_read(), Outcome::Failed);
        EXPECT_EQ(bench.enabled_buttons(), Lines{});
        ++refused;
        return false;
    });
    EXPECT_EQ(bench.run->flows.Command_blank(), Outcome::Success);

    EXPECT_GT(refused, 100);
    EXPECT_FALSE(bench.run->flows.running());
    EXPECT_EQ(bench.session().ResultAll, "YBYBYB");
}

}  // namespace quillon::test
