// SPDX-License-Identifier: MIT
// Whole commands on the simulated board: what they do to the part, and what they report.
#include <gtest/gtest.h>

#include <sstream>

#include "cli_bench.h"

namespace quillon::cli {
namespace {

using test::CliBench;
using test::Json;
using test::kBlinker;

bool holds(const std::vector<std::string>& texts, std::string_view text) {
    return std::ranges::count(texts, text) > 0;
}

// "1234.567 > 2A 0D": a time with three decimals, a direction, bytes.
bool is_trace_line(std::string_view line) {
    const auto in = [](std::string_view text, std::string_view set) {
        return !text.empty() && text.find_first_not_of(set) == std::string_view::npos;
    };
    const auto point = line.find('.');
    if (point == std::string_view::npos || line.size() < point + 9) return false;
    const auto bytes = line.substr(point + 6);
    if (bytes.size() % 3 != 0) return false;
    for (std::size_t i = 0; i < bytes.size(); i += 3)
        if (bytes[i] != ' ' || !in(bytes.substr(i + 1, 2), "0123456789ABCDEF")) return false;
    const auto way = line.substr(point + 4, 2);
    return in(line.substr(0, point), "0123456789") && in(line.substr(point + 1, 3), "0123456789") &&
           (way == " >" || way == " <");
}

// A part that stays in its socket from call to call.
class on_the_board : public testing::Test {
  protected:
    int run(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(),
                         {"--device", "PIC16F877A", "--socket", cli.path("socket.json")});
        return cli.on_board(std::move(arguments));
    }
    void program() { ASSERT_EQ(run({"program", kBlinker}), 0) << cli.out << cli.err; }
    Json socket() const { return cli.file("socket.json"); }

    CliBench cli;
};

TEST_F(on_the_board, detect_finds_the_board_and_prints_its_identity) {
    EXPECT_EQ(cli({"--port", "sim", "detect"}), 0);
    EXPECT_TRUE(cli.out.ends_with("\nZQ-LDR412A V6.80\n")) << cli.out;
    EXPECT_EQ(cli.on_board({"detect"}), 0);
    EXPECT_EQ(cli.result()["FirmwareText"], "ZQ-LDR412A V6.80");
    EXPECT_TRUE(holds(cli.messages(), "ライターを COM1に検出しました。"));
}

TEST_F(on_the_board, program_writes_the_part_and_tells_it_in_order) {
    program();
    EXPECT_EQ(cli.result()["operation"], "program");
    EXPECT_EQ(cli.result()["status"], "success");
    EXPECT_EQ(cli.result()["ResultPgm"], "OK");
    EXPECT_EQ(cli.result()["ResultEep"], "OK");
    EXPECT_EQ(cli.result()["ResultCfg"], "OK");
    EXPECT_EQ(cli.result()["ResultAll"], "OKOKOK");
    EXPECT_EQ(cli.result()["CodeProtect"], "--");
    EXPECT_EQ(cli.result()["TryCount"], 1);
    EXPECT_EQ(cli.result()["PassCount"], 1);
    EXPECT_EQ(cli.result()["exit"], 0);
    EXPECT_GT(cli.result()["seconds"], 1.0) << "the pauses that the board needs";

    const auto messages = cli.messages();
    const auto at = [&](std::string_view text) {
        return std::ranges::find(messages, text) - messages.begin();
    };
    EXPECT_LT(at("ファイルロード完了"), at("ライターチェック中.........."));
    EXPECT_LT(at("ライターチェック中.........."), at("チップイレース中.........."));
    EXPECT_LT(at("チップイレース中.........."), at("プログラムメモリのベリファイ中.........."));
    EXPECT_TRUE(messages.back().starts_with("プログラミング成功。　　")) << messages.back();

    const auto logged = cli.of("log");
    ASSERT_EQ(logged.size(), 1U);
    EXPECT_TRUE(logged[0]["line"].get<std::string>().starts_with("プログラミング成功。　　"));
    EXPECT_TRUE(cli.of("question").empty()) << "a blank part is no question";
}

TEST_F(on_the_board, progress_rises_to_a_hundred_steps) {
    program();
    const auto steps = cli.of("progress");
    ASSERT_GT(steps.size(), 100U);
    for (const auto& step : steps) {
        EXPECT_LE(step["value"], step["max"]);
        EXPECT_EQ(step["percent"], step["value"].get<int>() * 100 / step["max"].get<int>());
    }
}

TEST_F(on_the_board, what_was_programmed_is_verified_and_read_back_equal) {
    program();
    EXPECT_EQ(run({"verify", kBlinker}), 0);
    EXPECT_EQ(cli.result()["ResultAll"], "OKOKOK");
    ASSERT_EQ(run({"read", "--dump", cli.path("read.json")}), 0);
    ASSERT_EQ(
        cli.json({"--device", "PIC16F877A", "load", kBlinker, "--dump", cli.path("load.json")}), 0);
    const auto read = cli.file("read.json"), loaded = cli.file("load.json");
    EXPECT_EQ(read["PgmMem"], loaded["PgmMem"]);
    EXPECT_EQ(read["EepMem"], loaded["EepMem"]);
    EXPECT_EQ(read["ConfigWord"][0], loaded["ConfigWord"][0]);
    EXPECT_EQ(read["Text_ID"], loaded["Text_ID"]);
    EXPECT_EQ(read["CheckSum"], loaded["CheckSum"]);
}

TEST_F(on_the_board, blank_tells_a_blank_part_from_a_used_one) {
    EXPECT_EQ(run({"blank"}), 0);
    EXPECT_EQ(cli.result()["ResultAll"], "YBYBYB");
    program();
    EXPECT_EQ(run({"blank"}), 1);
    EXPECT_EQ(cli.result()["status"], "failed");
    ASSERT_EQ(cli.of("box").size(), 1U);
    EXPECT_EQ(cli.of("box")[0]["title"], "ブランクチェック");
    EXPECT_EQ(cli.of("box")[0]["icon"], "warning");
}

TEST_F(on_the_board, verify_of_another_file_fails_with_1) {
    program();
    const auto other = cli.home.write("other.hex", ":020000000028D6\n:00000001FF\n").string();
    EXPECT_EQ(run({"verify", other}), 1);
    const auto messages = cli.of("message");
    EXPECT_EQ(messages.back()["text"], "ベリファイエラーを検出しました。");
    EXPECT_EQ(messages.back()["colour"], "red");
    // The other file has no words where the blinker has its own.
    ASSERT_GT(cli.result()["mismatches"].size(), 10U);
    EXPECT_EQ(cli.result()["mismatches"][0], "Error　 アドレス:0x0000 , 正:0x2800 , 誤:0x018A");
}

TEST_F(on_the_board, a_used_part_is_written_over_only_when_the_answer_says_so) {
    program();
    const auto before = socket();
    const auto other = cli.home.write("other.hex", ":020000000028D6\n:00000001FF\n").string();
    EXPECT_EQ(run({"program", other}), 4) << "nobody can be asked: the safe answer";
    EXPECT_EQ(cli.result()["status"], "cancelled");
    ASSERT_EQ(cli.of("question").size(), 1U);
    EXPECT_EQ(cli.of("question")[0]["name"], "overwrite");
    EXPECT_EQ(cli.of("question")[0]["lines"], (Json{"書込み済みです。", "上書きしますか？"}));
    EXPECT_EQ(cli.of("question")[0]["answer"], "cancel");
    EXPECT_EQ(socket(), before) << "the part is untouched";

    EXPECT_EQ(run({"--answer", "overwrite=ok", "program", other}), 0);
    EXPECT_NE(socket(), before);
    EXPECT_EQ(run({"verify", other}), 0);
}

TEST_F(on_the_board, the_terminal_is_asked_where_there_is_one) {
    program();
    cli.terminal.interactive_ = true;
    cli.terminal.lines = {"ok"};
    EXPECT_EQ(run({"program", kBlinker}), 0);
    EXPECT_NE(cli.err.find("上書きしますか？\n(ok/cancel) "), std::string::npos);
}

TEST_F(on_the_board, a_part_that_is_not_the_selected_one_is_a_question) {
    EXPECT_EQ(run({"--fault", "wrong-part:0x0DA0", "program", kBlinker}), 4);
    ASSERT_EQ(cli.of("question").size(), 1U);
    EXPECT_EQ(cli.of("question")[0]["name"], "mismatch");
    EXPECT_EQ(cli.of("box").size(), 1U) << "it is asked by a box";
    EXPECT_EQ(run({"--fault", "wrong-part:0x0DA0", "--answer", "mismatch=ok", "program", kBlinker}),
              0);
}

TEST_F(on_the_board, erase_chip_leaves_a_blank_part_and_erase_pgm_keeps_the_eeprom) {
    program();
    const auto programmed = socket();
    ASSERT_EQ(run({"erase", "pgm"}), 0) << cli.out;
    EXPECT_NE(socket()["program"], programmed["program"]);
    EXPECT_EQ(socket()["eeprom"], programmed["eeprom"]);
    ASSERT_EQ(run({"erase", "chip"}), 0) << cli.out;
    EXPECT_EQ(cli.result()["operation"], "erase chip");
    EXPECT_EQ(run({"blank"}), 0);
}

TEST_F(on_the_board, blank_skip_programs_a_used_part_without_a_question) {
    program();
    EXPECT_EQ(run({"--set", "mnuBlankSkip=1", "program", kBlinker}), 0);
    EXPECT_TRUE(cli.of("question").empty());
    EXPECT_FALSE(holds(cli.messages(), "ブランクチェック中.........."));
}

TEST_F(on_the_board, the_dump_of_a_failed_read_is_written) {
    EXPECT_EQ(run({"--fault", "rsc/alter:17", "read", "--dump", cli.path("d.json")}), 1);
    EXPECT_TRUE(std::filesystem::exists(cli.home / "d.json"));
}

TEST_F(on_the_board, the_socket_file_is_made_with_a_blank_part_of_the_selected_device) {
    ASSERT_EQ(run({"blank"}), 0);
    EXPECT_EQ(socket()["device"], "PIC16F877A");
}

TEST_F(on_the_board, the_socket_keeps_its_part_whatever_device_is_selected) {
    program();
    const auto before = socket();
    EXPECT_EQ(cli.on_board({"--device", "PIC16F877", "--socket", cli.path("socket.json"), "program",
                            kBlinker}),
              4)
        << "it isn't the selected device";
    EXPECT_EQ(socket(), before);
}

TEST_F(on_the_board, the_socket_is_saved_after_a_failed_operation_too) {
    EXPECT_EQ(run({"--fault", "stuck-cell:1", "program", kBlinker}), 1);
    const auto part = socket();
    EXPECT_EQ(run({"blank"}), 1) << "half of it is written: " << part["program"][0];
}

TEST_F(on_the_board, a_damaged_socket_file_is_refused_with_2_and_left_as_it_is) {
    cli.home.write("socket.json", "{\"program\": [");
    EXPECT_EQ(run({"blank"}), 2);
    EXPECT_NE(cli.err.find("socket.json"), std::string::npos);
    EXPECT_EQ(cli.home.read("socket.json"), "{\"program\": [");
    EXPECT_FALSE(holds(cli.messages(), "ライターチェック中..........")) << "nothing was begun";
}

TEST_F(on_the_board, a_socket_that_cannot_be_written_is_reported_with_exit_2_before_anything) {
    EXPECT_EQ(cli.on_board({"--device", "PIC16F877A", "--socket", cli.path("no/such/s.json"),
                            "program", kBlinker}),
              2);
    EXPECT_NE(cli.err.find("no/such/s.json"), std::string::npos);
}

TEST_F(on_the_board, trace_has_a_line_for_each_write_and_read) {
    ASSERT_EQ(cli.on_board({"--trace", cli.path("t.txt"), "detect"}), 0);
    std::istringstream lines{cli.home.read("t.txt")};
    std::vector<std::string> all;
    for (std::string line; std::getline(lines, line);) {
        EXPECT_TRUE(is_trace_line(line)) << line;
        all.push_back(line);
    }
    ASSERT_EQ(all.size(), 3U);
    EXPECT_TRUE(all[0].ends_with(" > 3F"));
    EXPECT_TRUE(all[1].ends_with(" > 3F"));
    EXPECT_NE(all[2].find(" < 5A 51 2D 4C 44 52"), std::string::npos) << all[2];
}

}  // namespace
}  // namespace quillon::cli
