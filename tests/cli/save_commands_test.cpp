// SPDX-License-Identifier: MIT
// What the command line saves: `load --save` and `read -o`, and the question before a file is
// replaced. A run that fails leaves no new file and changes no older one.
#include <gtest/gtest.h>

#include <filesystem>

#include "cli_bench.h"
#include "saved_file.h"

namespace quillon::cli {
namespace {

namespace fs = std::filesystem;
using test::CliBench;
using test::data;
using test::filled;
using test::Json;
using test::kBlinker;
using test::kEndRecord;
using test::line;
using test::lines_of_file;
using test::upper_address;

// A small file for a PIC16F84A, and a folder to save to.
class save_option : public testing::Test {
  protected:
    int load_to(const std::string& out, std::vector<std::string> before = {}) {
        before.insert(before.end(), {"--device", "PIC16F84A", "load", hex, "--save", out});
        return cli.json(std::move(before));
    }
    std::string old_file() { return cli.home.write("out.hex", "old\n").string(); }
    // The files in the folder whose names begin like a saved one, whole or half written.
    std::vector<std::string> files_named(std::string_view head) const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator{cli.home.path()}) {
            const auto name = entry.path().filename().string();
            if (name.find(head) != std::string::npos) names.push_back(name);
        }
        return names;
    }

    CliBench cli;
    std::string hex = cli.home.write("in.hex", data(0, {0x34, 0x12}) + kEndRecord).string();
};

TEST_F(save_option, tells_of_the_saved_file_last) {
    ASSERT_EQ(load_to(cli.path("out.hex")), 0);
    EXPECT_EQ(cli.messages().back(), "out.hexファイル保存完了。 ");
    EXPECT_TRUE(cli.of("question").empty()) << "a new file is no question";
    EXPECT_EQ(cli({"--device", "PIC16F84A", "load", hex, "--save", cli.path("b.hex")}), 0);
    EXPECT_EQ(cli.out, "ファイルロード中..........\nファイルロード完了\nb.hexファイル保存完了。\n");
}

TEST_F(save_option, asks_before_it_replaces_a_file_and_keeps_it_where_nobody_answers) {
    const auto out = old_file();
    EXPECT_EQ(load_to(out), 4);
    EXPECT_EQ(cli.result()["status"], "cancelled");
    EXPECT_EQ(cli.home.read("out.hex"), "old\n");
    ASSERT_EQ(cli.of("question").size(), 1U);
    EXPECT_EQ(cli.of("question")[0]["name"], "replace");
    EXPECT_EQ(cli.of("question")[0]["lines"], Json{"ファイルが存在します。上書きしますか？"});
    EXPECT_EQ(cli.of("question")[0]["answer"], "cancel");
    ASSERT_EQ(cli.of("box").size(), 1U);
    EXPECT_EQ(cli.of("box")[0]["title"], "上書き保存");
    EXPECT_EQ(cli.of("box")[0]["icon"], "question");
    EXPECT_EQ(cli.of("box")[0]["buttons"], (Json{"ok", "cancel"}));
    EXPECT_EQ(cli.messages().back(), "ファイル保存をキャンセルしました。 ");
}

TEST_F(save_option, goes_by_the_answer_that_the_command_line_gives) {
    const auto out = old_file();
    EXPECT_EQ(load_to(out, {"--answer", "replace=cancel"}), 4);
    EXPECT_EQ(cli.home.read("out.hex"), "old\n");
    EXPECT_EQ(load_to(out, {"--answer", "overwrite=ok"}), 4) << "that is another question";
    EXPECT_EQ(cli.home.read("out.hex"), "old\n");
    EXPECT_EQ(load_to(out, {"--answer", "replace=ok"}), 0);
    EXPECT_TRUE(cli.home.read("out.hex").starts_with(":100000003412FF3F"));
    EXPECT_EQ(files_named("out.hex"), std::vector<std::string>{"out.hex"}) << "nothing beside it";
}

TEST_F(save_option, asks_on_the_terminal_where_there_is_one) {
    const auto out = old_file();
    cli.terminal.interactive_ = true;
    cli.terminal.lines = {"cancel"};
    EXPECT_EQ(load_to(out), 4);
    EXPECT_NE(cli.err.find("ファイルが存在します。上書きしますか？\n(ok/cancel) "),
              std::string::npos);
    EXPECT_EQ(cli.home.read("out.hex"), "old\n");
    cli.terminal.lines = {"ok"};
    EXPECT_EQ(load_to(out), 0);
    EXPECT_TRUE(cli.home.read("out.hex").starts_with(":10000000"));
}

TEST_F(save_option, may_name_the_file_that_was_loaded) {
    EXPECT_EQ(load_to(hex, {"--answer", "replace=ok"}), 0);
    EXPECT_TRUE(cli.home.read("in.hex").starts_with(":100000003412FF3F"));
}

TEST_F(save_option, ends_with_1_and_the_reason_where_the_file_cannot_be_written) {
    const auto out_in_file = cli.path("in.hex") + "/out.hex";
    struct Case {
        std::string out;
        std::string reason;
    };
    for (const auto& [out, reason] : std::vector<Case>{
             {cli.path("none/out.hex"), "No such file or directory"},
             {out_in_file, "Not a directory"},
             {"/proc/out.hex", ""},  // a folder in which nobody may make a file
         }) {
        EXPECT_EQ(load_to(out), 1) << out;
        EXPECT_EQ(cli.result()["status"], "failed") << out;
        const auto told = cli.of("message").back();
        EXPECT_EQ(told["text"], "ファイルを保存できませんでした。") << out;
        EXPECT_EQ(told["colour"], "red") << out;
        EXPECT_FALSE(told["extra"].get<std::string>().empty()) << out;
        EXPECT_NE(told["extra"].get<std::string>().find(reason), std::string::npos)
            << told["extra"];
        EXPECT_FALSE(fs::exists(out)) << out;
    }
}

TEST_F(save_option, never_replaces_a_folder) {
    fs::create_directory(cli.home / "folder");
    cli.home.write("folder/keep", "kept");
    EXPECT_EQ(load_to(cli.path("folder"), {"--answer", "replace=ok"}), 1);
    EXPECT_FALSE(cli.of("message").back()["extra"].get<std::string>().empty());
    EXPECT_EQ(cli.home.read("folder/keep"), "kept");
    EXPECT_EQ(files_named("folder"), std::vector<std::string>{"folder"});
}

TEST_F(save_option, saves_nothing_of_a_file_that_does_not_load) {
    const auto out = old_file();
    hex = cli.home.write("bad.hex", data(0, {0x34, 0x12}) + ":04000200FG00FFFF00\n").string();
    EXPECT_EQ(load_to(out, {"--answer", "replace=ok"}), 1);
    EXPECT_EQ(cli.home.read("out.hex"), "old\n");
    EXPECT_EQ(load_to(cli.path("new.hex")), 1);
    EXPECT_FALSE(fs::exists(cli.home / "new.hex"));
}

TEST_F(save_option, saves_nothing_where_a_control_cannot_be_set) {
    EXPECT_EQ(load_to(cli.path("new.hex"), {"--set", "CONFIG1=NOSUCH:ON"}), 2);
    EXPECT_FALSE(fs::exists(cli.home / "new.hex"));
}

TEST_F(save_option, saves_what_the_controls_made_of_the_file) {
    ASSERT_EQ(load_to(cli.path("out.hex"), {"--set", "CONFIG1=WDTE:OFF", "--set", "Text_ID=12AB"}),
              0)
        << cli.err;
    const auto saved = cli.home.read("out.hex");
    EXPECT_NE(saved.find(line(0x4000, {1, 0, 2, 0, 0x0A, 0, 0x0B, 0})), std::string::npos);
    EXPECT_NE(saved.find(":02400E00FB3F76"), std::string::npos) << saved.substr(saved.size() - 120);
}

class file_check_option : public testing::Test {
  protected:
    int load(std::vector<std::string> before = {}) {
        before.insert(before.end(), {"--device", "PIC16F84A", "load", hex});
        return cli.json(std::move(before));
    }
    CliBench cli;
    // A wrong check sum in line 2.
    std::string hex =
        cli.home.write("in.hex", data(0, {0x34, 0x12}) + ":0200020034128F\r\n" + kEndRecord)
            .string();
};

TEST_F(file_check_option, gives_the_findings_as_a_message_event_of_their_own_behind_the_told_one) {
    ASSERT_EQ(load(), 0);
    const auto told = cli.of("message");
    ASSERT_GE(told.size(), 2U);
    EXPECT_EQ(told[told.size() - 2]["text"], "ファイルロード完了");
    EXPECT_EQ(told[told.size() - 2]["colour"], "black");
    const std::string found = told.back()["text"];
    EXPECT_TRUE(found.starts_with("ファイル検査：")) << found;
    EXPECT_NE(found.find("1件（最初は2行目"), std::string::npos) << found;
    EXPECT_EQ(told.back()["colour"], "red");
    EXPECT_EQ(cli.result()["exit"], 0) << "a finding is no failure";
}

TEST_F(file_check_option, silences_the_findings_of_this_call_alone) {
    ASSERT_EQ(load({"--set", "HexFileCheck=0"}), 0);
    EXPECT_EQ(cli.messages().back(), "ファイルロード完了");
    ASSERT_EQ(load(), 0);
    EXPECT_TRUE(cli.messages().back().starts_with("ファイル検査："));
}

TEST_F(file_check_option, changes_nothing_of_what_is_saved) {
    const auto save = [&](const std::string& out, const std::string& value) {
        return cli.json({"--set", "HexFileCheck=" + value, "--device", "PIC16F84A", "load", hex,
                         "--save", cli.path(out), "--dump", cli.path(out + ".json")});
    };
    ASSERT_EQ(save("on.hex", "1"), 0);
    ASSERT_EQ(save("off.hex", "0"), 0);
    EXPECT_EQ(cli.home.read("on.hex"), cli.home.read("off.hex"));
    EXPECT_EQ(cli.file("on.hex.json"), cli.file("off.hex.json"));
    EXPECT_TRUE(cli.home.read("on.hex").starts_with(":1000000034123412"));
}

TEST(upper_address_option, off_folds_an_enhanced_file_and_names_itself_in_the_findings) {
    CliBench cli;
    const auto hex =
        cli.home
            .write("in.hex", upper_address(0) + data(0, {0x34, 0x12}) + upper_address(1) +
                                 data(0x0E, {0x84, 0xCF}) + data(0xE000, {0x5A, 0}) + kEndRecord)
            .string();
    const auto load = [&](const std::string& value) {
        return cli.json({"--device", "PIC16F1827", "--set", "HexUpperAddress=" + value, "load", hex,
                         "--dump", cli.path("d.json")});
    };
    ASSERT_EQ(load("0"), 0);
    const auto found = cli.messages().back();
    EXPECT_NE(found.find("2件（最初は4行目"), std::string::npos) << found;
    EXPECT_NE(found.find("HexUpperAddress"), std::string::npos) << found;
    EXPECT_EQ(cli.file("d.json")["PgmMem"].get<std::string>().substr(28, 4), "CF84");
    EXPECT_EQ(cli.file("d.json")["EepMem"].get<std::string>().substr(0, 4), "3FFF");
    ASSERT_EQ(load("1"), 0);
    EXPECT_EQ(cli.messages().back(), "ファイルロード完了");
    EXPECT_EQ(cli.file("d.json")["PgmMem"].get<std::string>().substr(28, 4), "3FFF");
    EXPECT_EQ(cli.file("d.json")["EepMem"].get<std::string>().substr(0, 4), "3F5A");
    EXPECT_EQ(cli.file("d.json")["ConfigWord"][0], 0x0F84);
}

// A part that holds the blinker and stays in its socket from call to call.
class read_and_save : public testing::Test {
  protected:
    int run(std::vector<std::string> arguments, const std::string& socket = "socket.json") {
        arguments.insert(arguments.begin(),
                         {"--device", "PIC16F877A", "--socket", cli.path(socket)});
        return cli.on_board(std::move(arguments));
    }
    void program() { ASSERT_EQ(run({"program", kBlinker}), 0) << cli.out << cli.err; }
    Json dump_of(const std::string& hex) {
        const int status =
            cli.json({"--device", "PIC16F877A", "load", hex, "--dump", cli.path("dump.json")});
        EXPECT_EQ(status, 0) << cli.err;
        return cli.file("dump.json");
    }
    bool saved() const { return fs::exists(cli.home / "out.hex"); }
    std::string out() const { return cli.path("out.hex"); }

    CliBench cli;
};

TEST_F(read_and_save, writes_what_the_part_holds) {
    program();
    ASSERT_EQ(run({"read", "-o", out(), "--dump", cli.path("read.json")}), 0) << cli.err;
    EXPECT_EQ(cli.messages().back(), "out.hexファイル保存完了。 ");
    const auto part = cli.file("read.json");
    const auto loaded = dump_of(out()), wanted = dump_of(kBlinker);
    for (const char* fact : {"PgmMem", "EepMem", "CheckSum", "Text_ID"}) {
        EXPECT_EQ(loaded[fact], wanted[fact]) << fact;
        EXPECT_EQ(loaded[fact], part[fact]) << fact;
    }
    EXPECT_EQ(loaded["ConfigWord"][0], wanted["ConfigWord"][0]);
    for (const auto& text : cli.messages())
        EXPECT_EQ(text.find("ファイル検査"), std::string::npos) << text;
}

TEST_F(read_and_save, gives_a_file_that_makes_a_second_part_the_same) {
    program();
    ASSERT_EQ(run({"read", "-o", out()}), 0);
    EXPECT_EQ(run({"verify", out()}), 0);
    ASSERT_EQ(run({"program", out()}, "second.json"), 0) << cli.out;
    const auto first = cli.file("socket.json"), second = cli.file("second.json");
    EXPECT_EQ(second["program"], first["program"]);
    EXPECT_EQ(second["eeprom"], first["eeprom"]);
}

TEST_F(read_and_save, of_a_blank_part_writes_the_blank_device_whole) {
    ASSERT_EQ(run({"read", "-o", out()}), 0);
    const auto lines = lines_of_file(cli.home.read("out.hex"));
    EXPECT_EQ(lines.size(), 8192U / 8 + 2 * 256 / 8 + 4);
    EXPECT_EQ(lines.front(), line(0, filled({}, {0xFF, 0x3F})));
}

TEST_F(read_and_save, asks_before_it_replaces_a_file) {
    program();
    cli.home.write("out.hex", "old\n");
    EXPECT_EQ(run({"read", "-o", out()}), 4);
    EXPECT_EQ(cli.result()["status"], "cancelled");
    EXPECT_EQ(cli.home.read("out.hex"), "old\n");
    EXPECT_EQ(run({"--answer", "replace=ok", "read", "-o", out()}), 0);
    EXPECT_EQ(dump_of(out())["PgmMem"], dump_of(kBlinker)["PgmMem"]);
}

TEST_F(read_and_save, that_cannot_write_ends_with_1_and_the_reason) {
    EXPECT_EQ(run({"read", "-o", cli.path("none/out.hex")}), 1);
    const auto told = cli.of("message").back();
    EXPECT_EQ(told["text"], "ファイルを保存できませんでした。");
    EXPECT_NE(told["extra"].get<std::string>().find("No such file or directory"),
              std::string::npos);
}

TEST_F(read_and_save, that_fails_saves_nothing) {
    program();
    cli.home.write("old.hex", "old\n");
    struct Case {
        std::string fault;
        int status;
    };
    for (const auto& [fault, status] : std::vector<Case>{{"rsc/alter:17", 1},
                                                         {"silent-after:0", 3},
                                                         {"rsp/unplug-after:500", 3},
                                                         {"rsp/silent-after:100", 4}}) {
        const std::vector<std::string> early{"--fault", fault, "--deadline", "30"};
        auto arguments = early;
        arguments.insert(arguments.end(), {"read", "-o", out()});
        EXPECT_EQ(run(arguments), status) << fault;
        EXPECT_FALSE(saved()) << fault;
        arguments = early;
        arguments.insert(arguments.end(),
                         {"--answer", "replace=ok", "read", "-o", cli.path("old.hex")});
        EXPECT_EQ(run(arguments), status) << fault;
        EXPECT_EQ(cli.home.read("old.hex"), "old\n") << fault;
        EXPECT_TRUE(cli.of("question").empty()) << fault << ": there is nothing to ask about";
    }
}

TEST_F(read_and_save, of_a_protected_part_saves_no_zeros_but_dumps_what_there_is) {
    ASSERT_EQ(run({"--set", "CONFIG1=CP:ON", "program", kBlinker}), 0) << cli.out;
    EXPECT_EQ(run({"read", "-o", out(), "--dump", cli.path("read.json")}), 1);
    EXPECT_EQ(cli.result()["CodeProtect"], "CP");
    EXPECT_FALSE(saved());
    EXPECT_EQ(cli.file("read.json")["device"], "PIC16F877A");
    EXPECT_EQ(run({"read", "--dump", cli.path("none/read.json")}), 1);
    EXPECT_NE(cli.err.find("none/read.json"), std::string::npos) << cli.err;
}

}  // namespace
}  // namespace quillon::cli
