// SPDX-License-Identifier: MIT
// The question before the window is closed in the middle of an operation, with no window.
#include "run/stop_form.h"

#include <chrono>
#include <functional>
#include <utility>

#include "start_up_bench.h"

namespace quillon {
namespace {

using namespace std::chrono_literals;

class frmStop_ : public test::StartUpBench {
  protected:
    frmStop_() {
        EXPECT_EQ(start_up.prepare(), StartUp::End::Ready);
        run.form.Combo_device.select("PIC16F877A");
        confirmed_ = run.stop_form.Confirmed.connect([this] { ++confirmations; });
        port.when("***?");
        port.when("***?");
    }
    // Runs an operation that finds no board, and does something in one of its turns.
    void in_an_operation(const std::function<void()>& act) {
        bool done = false;
        host.on_pump = [&] {
            if (!run.flows.running() || std::exchange(done, true)) return;
            act();
        };
        run.flows.Command_blank();
        EXPECT_TRUE(done);
        host.on_pump = nullptr;
    }

    int confirmations = 0;

  private:
    Connection confirmed_;
};

TEST_F(frmStop_, is_not_asked_while_nothing_runs) {
    EXPECT_TRUE(run.stop.may_close());
    EXPECT_FALSE(run.stop_form.Visible.get());
    in_an_operation([] {});
}

TEST_F(frmStop_, asks_while_an_operation_runs_and_goes_once_it_is_over) {
    in_an_operation([&] {
        EXPECT_FALSE(run.stop.may_close());
        EXPECT_TRUE(run.stop_form.Visible.get());
        EXPECT_EQ(run.stop_form.Label1.Caption.get(), "書込み中です。中断しますか？");
    });
    EXPECT_FALSE(run.stop_form.Visible.get());
    EXPECT_EQ(confirmations, 0);
    EXPECT_EQ(run.session.Status, Token::NG);
    EXPECT_GT(host.now(), 7s);  // both attempts of the check ran on behind the question
}

TEST_F(frmStop_, goes_on_after_no_and_asks_the_next_time_again) {
    in_an_operation([&] {
        for (int i = 0; i < 2; ++i) {
            EXPECT_FALSE(run.stop.may_close());
            run.stop.cmdCancel_Click();
            EXPECT_FALSE(run.stop_form.Visible.get());
        }
    });
    EXPECT_EQ(confirmations, 0);
    EXPECT_GT(host.now(), 7s);
}

TEST_F(frmStop_, says_so_after_yes) {
    in_an_operation([&] {
        EXPECT_FALSE(run.stop.may_close());
        run.stop.cmdOK_Click();
        EXPECT_FALSE(run.stop_form.Visible.get());
    });
    EXPECT_EQ(confirmations, 1);
}

}  // namespace
}  // namespace quillon
