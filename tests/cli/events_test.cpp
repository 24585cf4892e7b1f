// SPDX-License-Identifier: MIT
#include "cli/events.h"

#include <gtest/gtest.h>

#include <sstream>

namespace quillon::cli {
namespace {

class json_events_print : public testing::Test {
  protected:
    std::string printed() {
        auto text = out_.str();
        out_.str("");
        return text;
    }
    std::ostringstream out_;
    std::unique_ptr<Events> events_ = json_events(out_);
};

TEST_F(json_events_print, a_message_with_its_parts_and_colour) {
    events_->message({.text = "ブランクチェック中..........", .extra = "extra"});
    EXPECT_EQ(
        printed(),
        "{\"event\":\"message\",\"text\":\"ブランクチェック中..........\",\"extra\":\"extra\","
        "\"colour\":\"black\"}\n");
    events_->message({.text = "通信エラー\r\n", .colour = Colour::Red});
    EXPECT_EQ(printed(),
              "{\"event\":\"message\",\"text\":\"通信エラー\\r\\n\",\"extra\":\"\","
              "\"colour\":\"red\"}\n");
}

TEST_F(json_events_print, progress_in_whole_percent) {
    events_->progress(1999, 2000);
    EXPECT_EQ(printed(), "{\"event\":\"progress\",\"value\":1999,\"max\":2000,\"percent\":99}\n");
}

TEST_F(json_events_print, a_box_with_its_buttons_and_answer) {
    events_->box({.title = "ベリファイ", .text = "a\r\nb", .icon = BoxIcon::Critical},
                 BoxAnswer::Ok, AnsweredBy::Rule);
    EXPECT_EQ(printed(),
              "{\"event\":\"box\",\"title\":\"ベリファイ\",\"text\":\"a\\r\\nb\","
              "\"icon\":\"critical\",\"buttons\":[\"ok\"],\"answer\":\"ok\"}\n");
}

TEST_F(json_events_print, a_named_box_as_a_question_too) {
    events_->box({.title = "t",
                  .text = "one\rtwo",
                  .icon = BoxIcon::Question,
                  .buttons = BoxButtons::OkCancel,
                  .name = "mismatch"},
                 BoxAnswer::Cancel, AnsweredBy::Rule);
    EXPECT_EQ(printed(),
              "{\"event\":\"box\",\"title\":\"t\",\"text\":\"one\\rtwo\",\"icon\":\"question\","
              "\"buttons\":[\"ok\",\"cancel\"],\"answer\":\"cancel\"}\n"
              "{\"event\":\"question\",\"name\":\"mismatch\",\"lines\":[\"one\",\"two\"],"
              "\"answer\":\"cancel\"}\n");
}

TEST_F(json_events_print, a_device_a_log_line_and_the_pseudo_terminal) {
    events_->device({"PIC16F84A", "FLASH0", 1024, 64, "generic"});
    events_->log("line\ttime");
    events_->serving("/dev/pts/7");
    EXPECT_EQ(printed(),
              "{\"event\":\"device\",\"name\":\"PIC16F84A\",\"PgmType\":\"FLASH0\","
              "\"PgmWords\":1024,\"EepBytes\":64,\"family\":\"generic\"}\n"
              "{\"event\":\"log\",\"line\":\"line\\ttime\"}\n"
              "{\"event\":\"serving\",\"path\":\"/dev/pts/7\"}\n");
}

TEST_F(json_events_print, the_result_with_every_field_in_order) {
    events_->result({.operation = "program",
                     .status = "success",
                     .ResultPgm = "OK",
                     .ResultEep = "OK",
                     .ResultCfg = "OK",
                     .ResultAll = "OKOKOK",
                     .CodeProtect = "--",
                     .TryCount = 1,
                     .PassCount = 1,
                     .seconds = 2.5});
    EXPECT_EQ(printed(),
              "{\"event\":\"result\",\"operation\":\"program\",\"status\":\"success\","
              "\"ResultPgm\":\"OK\",\"ResultEep\":\"OK\",\"ResultCfg\":\"OK\","
              "\"ResultAll\":\"OKOKOK\",\"CodeProtect\":\"--\",\"TryCount\":1,\"PassCount\":1,"
              "\"seconds\":2.5,\"exit\":0}\n");
}

TEST_F(json_events_print, the_calibration_that_was_read_behind_the_other_fields) {
    events_->result({.CalibWord = "3474", .Text_Calib_Data = "74"});
    EXPECT_TRUE(
        printed().ends_with("\"exit\":0,\"CalibWord\":\"3474\",\"Text_Calib_Data\":\"74\"}\n"));
    events_->result({});
    EXPECT_EQ(printed().find("Calib"), std::string::npos);
}

TEST_F(json_events_print, a_text_that_is_not_utf8_without_failing) {
    events_->log("a\xFF z");
    EXPECT_EQ(printed(), "{\"event\":\"log\",\"line\":\"a\xEF\xBF\xBD z\"}\n");
}

class text_events_print : public testing::Test {
  protected:
    std::string with(TextStyle style, const std::function<void(Events&)>& act) {
        std::ostringstream out;
        const auto events = text_events(out, style);
        act(*events);
        return out.str();
    }
};

TEST_F(text_events_print, messages_as_lines_without_blanks_at_their_end) {
    EXPECT_EQ(with({},
                   [](Events& events) {
                       events.message({.text = "一行目\r\n二行目　　"});
                       events.message({.text = "", .extra = ""});
                       events.message({.text = "main", .extra = "extra"});
                   }),
              "一行目\n二行目\nmain extra\n");
}

TEST_F(text_events_print, red_only_where_colours_are_wanted) {
    const auto red = [](Events& events) { events.message({.text = "x", .colour = Colour::Red}); };
    EXPECT_EQ(with({.colours = true}, red), "\x1b[31mx\x1b[0m\n");
    EXPECT_EQ(with({}, red), "x\n");
}

TEST_F(text_events_print, the_bar_on_one_line_that_the_next_message_replaces) {
    const auto shown = with({.bar = true}, [](Events& events) {
        events.progress(50, 100);
        events.progress(75, 100);
        events.message({.text = "done"});
    });
    EXPECT_EQ(shown,
              "\r\x1b[K[####################--------------------]  50%"
              "\r\x1b[K[##############################----------]  75%"
              "\r\x1b[Kdone\n");
}

TEST_F(text_events_print, no_bar_into_a_file) {
    EXPECT_EQ(with({}, [](Events& events) { events.progress(50, 100); }), "");
}

TEST_F(text_events_print, questions_with_their_answer_unless_the_user_gave_it_there) {
    const auto ask = [](AnsweredBy by) {
        return [by](Events& events) { events.question("overwrite", {"a", "b"}, "cancel", by); };
    };
    EXPECT_EQ(with({}, ask(AnsweredBy::Rule)), "a\nb\noverwrite -> cancel\n");
    EXPECT_EQ(with({}, ask(AnsweredBy::User)), "");
}

TEST_F(text_events_print, the_boards_identity_at_the_end_of_detect) {
    EXPECT_EQ(with({},
                   [](Events& events) {
                       events.result({.operation = "detect", .FirmwareText = "ZQ-LDR412A V6.80"});
                   }),
              "ZQ-LDR412A V6.80\n");
}

TEST_F(text_events_print, the_calibration_that_was_read_at_the_end) {
    EXPECT_EQ(
        with({},
             [](Events& events) { events.result({.CalibWord = "3474", .Text_Calib_Data = "74"}); }),
        "CalibWord=3474 Text_Calib_Data=74\n");
}

TEST(lines_of, ends_lines_at_any_of_the_products_ends) {
    EXPECT_EQ(lines_of("a\r\nb\rc\nd"), (std::vector<std::string>{"a", "b", "c", "d"}));
    EXPECT_EQ(lines_of(""), std::vector<std::string>{});
    EXPECT_EQ(lines_of("a\r\n"), std::vector<std::string>{"a"});
}

}  // namespace
}  // namespace quillon::cli
