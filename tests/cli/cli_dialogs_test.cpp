// SPDX-License-Identifier: MIT
#include "cli/cli_dialogs.h"

#include <gtest/gtest.h>

#include <sstream>

#include "cli_bench.h"
#include "support/fakes.h"

namespace quillon::cli {
namespace {

class CliDialogs_answer : public testing::Test {
  protected:
    CliDialogs dialogs() { return {options, *events, console, host}; }

    Options options;
    std::ostringstream out, err;
    test::FakeTerminal terminal;
    Console console{out, err, terminal};
    std::unique_ptr<Events> events = json_events(out);
    test::FakeHost host;
};

constexpr int kOk = 1;
constexpr int kCancel = 2;
const MessageBox kMismatch{.title = "確認",
                           .text = "違うデバイスです。",
                           .icon = BoxIcon::Question,
                           .buttons = BoxButtons::OkCancel,
                           .name = "mismatch"};

TEST_F(CliDialogs_answer, boxes_with_one_button_at_once) {
    terminal.lines = {"unused"};
    EXPECT_EQ(dialogs().box({.title = "t", .text = "x"}), BoxAnswer::Ok);
    EXPECT_EQ(terminal.lines.size(), 1U) << "nobody is asked";
    EXPECT_NE(out.str().find("\"event\":\"box\""), std::string::npos);
}

TEST_F(CliDialogs_answer, questions_by_the_answer_given_beforehand_even_at_a_terminal) {
    terminal.lines = {"cancel"};
    options.answers = {{"overwrite", "ok"}, {"mismatch", "ok"}, {"power", "vdd"}};
    EXPECT_EQ(dialogs().frmHint({"書込み済みです。", "上書きしますか？"}), kOk);
    EXPECT_EQ(dialogs().box(kMismatch), BoxAnswer::Ok);
    EXPECT_EQ(dialogs().Frm_VPP_DECIDE("x"), 2);
    EXPECT_EQ(terminal.lines.size(), 1U);
}

TEST_F(CliDialogs_answer, questions_with_the_safe_choice_where_nobody_can_be_asked) {
    EXPECT_EQ(dialogs().frmHint({"a", "b"}), kCancel);
    EXPECT_EQ(dialogs().box(kMismatch), BoxAnswer::Cancel);
    EXPECT_EQ(dialogs().box({.text = "?", .buttons = BoxButtons::YesNo}), BoxAnswer::No);
    EXPECT_EQ(dialogs().Frm_VPP_DECIDE("x"), 0);
    EXPECT_EQ(err.str(), "") << "no prompt that nobody reads";
    EXPECT_NE(out.str().find("{\"event\":\"question\",\"name\":\"overwrite\","
                             "\"lines\":[\"a\",\"b\"],\"answer\":\"cancel\"}"),
              std::string::npos);
    EXPECT_NE(out.str().find("\"name\":\"power\""), std::string::npos);
}

TEST_F(CliDialogs_answer, questions_by_what_is_typed_at_a_terminal_until_it_is_an_answer) {
    terminal.interactive_ = true;
    terminal.lines = {"", "perhaps", "OK"};
    EXPECT_EQ(dialogs().frmHint({"書込み済みです。", "上書きしますか？"}), kOk);
    EXPECT_EQ(err.str(),
              "書込み済みです。\n上書きしますか？\n(ok/cancel) (ok/cancel) (ok/cancel) ");
    terminal.lines = {"v", "vd"};
    EXPECT_EQ(dialogs().Frm_VPP_DECIDE("x"), 2) << "\"v\" fits two choices";
}

TEST_F(CliDialogs_answer, questions_with_the_safe_choice_at_the_end_of_the_input) {
    terminal.interactive_ = true;
    EXPECT_EQ(dialogs().frmHint({"a", "b"}), kCancel);
}

TEST_F(CliDialogs_answer, nothing_any_more_once_the_user_gives_up_at_the_question) {
    terminal.interactive_ = true;
    terminal.lines = {"ok"};
    host.on_pump = [] { throw Abandoned{Abandoned::Reason::Interrupted}; };
    EXPECT_THROW(dialogs().frmHint({"a", "b"}), Abandoned);
}

}  // namespace
}  // namespace quillon::cli
