// SPDX-License-Identifier: MIT
// Commands that need no board: devices, load, and how a run starts.
#include <gtest/gtest.h>

#include "app/text.h"
#include "cli_bench.h"

namespace quillon::cli {
namespace {

using test::CliBench;
using test::Json;
using test::kBlinker;
using test::kBlinkerNamed;

bool holds(const std::vector<std::string>& texts, std::string_view text) {
    return std::ranges::count(texts, text) > 0;
}

TEST(devices, lists_the_catalogue_one_a_line) {
    CliBench cli;
    ASSERT_EQ(cli({"devices"}), 0) << cli.err;
    EXPECT_NE(cli.out.find("PIC16F877A\n"), std::string::npos);
    EXPECT_EQ(std::ranges::count(cli.out, '\n'), 212);
}

TEST(devices, tells_type_sizes_and_family_of_each_as_json) {
    CliBench cli;
    ASSERT_EQ(cli.json({"devices"}), 0) << cli.err;
    const auto devices = cli.of("device");
    ASSERT_EQ(devices.size(), 212U);
    const auto named = [&](std::string_view name) {
        return *std::ranges::find_if(devices,
                                     [&](const Json& device) { return device["name"] == name; });
    };
    const auto check = [](const Json& device, std::string_view type, int words, int bytes,
                          std::string_view family) {
        EXPECT_EQ(device["PgmType"], type);
        EXPECT_EQ(device["PgmWords"], words);
        EXPECT_EQ(device["EepBytes"], bytes);
        EXPECT_EQ(device["family"], family);
    };
    check(named("PIC16F877A"), "FLASH8", 8192, 256, "PIC16F877A");
    check(named("PIC16F84A"), "FLASH0", 1024, 64, "generic");
    check(named("PIC18F2550"), "18F_01", 16384, 256, "PIC18F2550");
    EXPECT_EQ(cli.result()["event"], "result") << "the result is the last line here too";
}

TEST(load, says_nothing_of_the_firmware_of_a_board_that_it_has_not_asked) {
    CliBench cli;
    const auto file = cli.home.write("named.hex", ":00000001FF\n;PIC16F887\n").string();
    ASSERT_EQ(cli.json({"--device", "PIC16F877A", "load", file}), 0) << cli.err;
    for (const auto& message : cli.messages())
        EXPECT_EQ(message.find("以降でサポートしています"), std::string::npos) << message;
}

TEST(load, puts_the_file_into_the_image_and_dumps_it) {
    CliBench cli;
    ASSERT_EQ(cli.json({"--device", "PIC16F877A", "load", kBlinker, "--dump", cli.path("d.json")}),
              0)
        << cli.err;
    const auto dump = cli.file("d.json");
    std::vector<std::string> keys;
    const auto in_order = nlohmann::ordered_json::parse(cli.home.read("d.json"));
    for (const auto& [key, value] : in_order.items()) keys.push_back(key);
    EXPECT_EQ(keys, (std::vector<std::string>{"device", "PgmType", "PgmWords", "EepBytes",
                                              "PgmWordsCat", "EepBytesCat", "PgmMem", "EepMem",
                                              "CfgIdMem", "IdBytes18", "CfgBytes18", "ConfigWord",
                                              "IdText", "Text_ID", "CheckSum", "LoadResult"}));
    EXPECT_EQ(dump["device"], "PIC16F877A");
    EXPECT_EQ(dump["PgmType"], "FLASH8");
    EXPECT_EQ(dump["PgmWords"], 8192);
    EXPECT_EQ(dump["EepBytesCat"], 256);
    const std::string program = dump["PgmMem"];
    EXPECT_EQ(program.size(), 4U * 8192);
    EXPECT_TRUE(program.starts_with("018A28053FFF3FFF0009")) << program.substr(0, 20);
    EXPECT_TRUE(program.ends_with("3442346C3469346E346B34653472340A"));
    const std::string eeprom = dump["EepMem"];
    EXPECT_EQ(eeprom.size(), 4U * 256);
    EXPECT_TRUE(eeprom.starts_with("3F823F023F82")) << eeprom.substr(0, 12);
    EXPECT_EQ(dump["CfgIdMem"].get<std::string>().size(), 68U);
    EXPECT_EQ(dump["CfgIdMem"].get<std::string>().substr(0, 16), "0002000000020006");
    EXPECT_EQ(dump["CfgIdMem"].get<std::string>().substr(28, 4), "3F71");
    EXPECT_EQ(dump["IdBytes18"].get<std::string>().size(), 16U);
    EXPECT_EQ(dump["CfgBytes18"].get<std::string>().size(), 28U);
    ASSERT_EQ(dump["ConfigWord"].size(), 7U);
    EXPECT_EQ(dump["ConfigWord"][0], 0x3F71);
    EXPECT_EQ(dump["IdText"], "2026");
    EXPECT_EQ(dump["Text_ID"], "2026");
    EXPECT_EQ(dump["CheckSum"].get<std::string>().size(), 4U);
    EXPECT_EQ(dump["LoadResult"], "OK");
}

TEST(load, dumps_one_byte_an_eeprom_cell_for_pic18) {
    CliBench cli;
    const auto hex = cli.home.write("a.hex", ":0400000001EF00F01C\n:00000001FF\n");
    ASSERT_EQ(
        cli.json({"--device", "PIC18F2550", "load", hex.string(), "--dump", cli.path("d.json")}), 0)
        << cli.err;
    const auto dump = cli.file("d.json");
    EXPECT_EQ(dump["EepMem"].get<std::string>().size(), 2U * 256);
    EXPECT_EQ(dump["PgmMem"].get<std::string>().size(), 4U * 16384);
}

TEST(load, shows_the_products_messages_once_and_nothing_about_a_board) {
    CliBench cli;
    ASSERT_EQ(cli({"--device", "PIC16F877A", "load", kBlinker}), 0);
    EXPECT_EQ(cli.out, "ファイルロード中..........\nファイルロード完了\n");
}

TEST(load, takes_the_device_that_the_file_names) {
    CliBench cli;
    ASSERT_EQ(
        cli.json({"--device", "PIC16F84A", "load", kBlinkerNamed, "--dump", cli.path("d.json")}),
        0);
    EXPECT_EQ(cli.file("d.json")["device"], "PIC16F877A");
}

TEST(load, fails_with_1_on_a_file_that_cannot_be_loaded_and_says_so) {
    CliBench cli;
    const auto binary = cli.home.write("binary.hex", std::string("\0\x01\x02\xFF", 4));
    const auto bad = cli.home.write("bad.hex", ":04000000ZZ010528XX\n");
    for (const auto& path :
         {binary.string(), bad.string(), cli.path("missing.hex"), cli.home.path().string()}) {
        EXPECT_EQ(cli.json({"--device", "PIC16F877A", "load", path}), 1) << path;
        EXPECT_EQ(cli.result()["status"], "failed") << path;
        EXPECT_FALSE(cli.messages().empty()) << path;
    }
    EXPECT_EQ(cli.json({"--device", "PIC16F877A", "load", cli.path("missing.hex")}), 1);
    EXPECT_TRUE(holds(cli.messages(), "ファイルをオープンできませんでした。"));
}

TEST(load, fails_with_1_where_the_dump_cannot_be_written) {
    CliBench cli;
    EXPECT_EQ(cli.json({"--device", "PIC16F877A", "load", kBlinker, "--dump",
                        cli.path("no/such/folder/d.json")}),
              1);
    EXPECT_NE(cli.err.find("d.json"), std::string::npos);
    EXPECT_NE(cli.result()["error"].get<std::string>().find("d.json"), std::string::npos);
}

TEST(load, keeps_the_windows_file_history) {
    CliBench cli;
    cli.home.write("settings.ini",
                   "[Settings6]\nOPEN_DIR1=/a    PIC16F84A\nOPEN_Device1=3\n"
                   "OPEN_DIR2=/b    PIC16F877A\nOPEN_Device2=5\n");
    ASSERT_EQ(cli.json({"--device", "PIC16F877A", "load", kBlinker}), 0);
    const auto settings = cli.home.read("settings.ini");
    for (const auto* line : {"OPEN_DIR2=\"/a    PIC16F84A\"\n", "OPEN_Device2=3\n",
                             "OPEN_DIR3=\"/b    PIC16F877A\"\n", "OPEN_Device3=5\n"})
        EXPECT_NE(settings.find(line), std::string::npos) << line << settings;
    EXPECT_NE(settings.find("OPEN_DIR1=\"" + lower(QUILLON_EXAMPLES)), std::string::npos)
        << settings;
}

// As from a script whose variable is unset.
TEST(empty_name, is_a_file_that_does_not_exist) {
    CliBench cli;
    ASSERT_EQ(cli.on_board(
                  {"--device", "PIC16F877A", "--socket", cli.path("s.json"), "program", kBlinker}),
              0)
        << cli.out;
    const auto part = cli.home.read("s.json");
    for (const auto* command : {"program", "verify", "load"}) {
        EXPECT_EQ(cli.on_board({"--socket", cli.path("s.json"), command, ""}), 1) << command;
        EXPECT_TRUE(holds(cli.messages(), "ファイルをオープンできませんでした。")) << command;
        EXPECT_EQ(cli.home.read("s.json"), part) << command;
    }
}

TEST(empty_name, of_an_output_is_refused_before_anything_is_done) {
    CliBench cli;
    for (const auto* option : {"-o", "--dump"}) {
        EXPECT_EQ(cli.on_board({"--device", "PIC16F877A", "read", option, ""}), 1) << option;
        EXPECT_TRUE(cli.messages().empty()) << option;
        EXPECT_NE(cli.err.find("No such file or directory"), std::string::npos) << cli.err;
    }
    for (const auto* option : {"--save", "--dump"}) {
        EXPECT_EQ(cli.json({"--device", "PIC16F877A", "load", kBlinker, option, ""}), 1) << option;
        EXPECT_TRUE(cli.messages().empty()) << option;
    }
}

TEST(empty_name, of_a_folder_or_of_the_catalogue_is_no_default) {
    CliBench cli;
    for (const std::string option : {"--home", "--socket", "--port"}) {
        EXPECT_EQ(cli.json({option, "", "devices"}), 2) << option;
        EXPECT_NE(cli.err.find(option + ": is empty"), std::string::npos) << cli.err;
    }
    EXPECT_EQ(cli.json({"simulate", "--link", ""}), 2);
    ASSERT_EQ(cli.json({"--device", "PIC16F877A", "load", kBlinker}), 0);
    EXPECT_EQ(cli.json({"--device", "", "load", kBlinker}), 2) << "not the device of the last call";
    cli.catalogue.clear();
    EXPECT_EQ(cli.json({"devices"}), 2);
    EXPECT_NE(cli.err.find("--catalogue: is empty"), std::string::npos) << cli.err;
}

// Latin-1, from an older system.
TEST(name_that_is_no_UTF_8, is_refused_for_an_output) {
    for (const auto* output : {"--save", "--dump"}) {
        CliBench cli;
        cli.home.write("caf\xEF\xBF\xBD.hex", "another's");
        EXPECT_EQ(
            cli.json({"--device", "PIC16F84A", "load", kBlinker, output, cli.path("caf\xE9.hex")}),
            1);
        EXPECT_NE(cli.err.find("caf\\xE9.hex"), std::string::npos) << cli.err;
        EXPECT_NE(cli.err.find("not valid UTF-8"), std::string::npos) << cli.err;
        EXPECT_FALSE(std::filesystem::exists(cli.path("caf\xE9.hex")));
        EXPECT_EQ(cli.home.read("caf\xEF\xBF\xBD.hex"), "another's");
    }
}

TEST(name_that_is_no_UTF_8, is_refused_for_the_home) {
    CliBench cli;
    EXPECT_EQ(cli.json({"--home", cli.path("caf\xE9"), "devices"}), 2);
    EXPECT_NE(cli.err.find("--home"), std::string::npos);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator{cli.home.path()}, {}), 0);
}

TEST(one_file_under_two_names, is_refused_before_anything_is_written) {
    CliBench cli;
    cli.home.write("x.hex", ":020000000000FE\n:00000001FF\n");
    const auto file = cli.home.read("x.hex");
    std::filesystem::create_symlink(cli.path("x.hex"), cli.path("link.hex"));
    for (const auto* option : {"--dump", "--trace"}) {
        EXPECT_EQ(cli.json({"--device", "PIC16F877A", "load", cli.path("x.hex"), option,
                            cli.path("link.hex")}),
                  2)
            << option;
        EXPECT_NE(cli.err.find("the HEX file and " + std::string{option}), std::string::npos)
            << cli.err;
        EXPECT_EQ(cli.home.read("x.hex"), file) << option;
    }
    EXPECT_EQ(cli.json({"--device", "PIC16F877A", "load", cli.path("X.HEX"), "--dump",
                        cli.path("x.hex")}),
              2)
        << "a HEX file is found in another case";
    EXPECT_EQ(cli.home.read("x.hex"), file);
    EXPECT_EQ(cli.json({"--device", "PIC16F877A", "load", cli.path("x.hex"), "--save",
                        cli.path("new"), "--dump", cli.path("./new")}),
              2);
    EXPECT_FALSE(std::filesystem::exists(cli.path("new")));
}

TEST(one_file_under_two_names, may_be_saved_over_and_a_device_may_have_two_uses) {
    CliBench cli;
    cli.home.write("x.hex", ":020000000000FE\n:00000001FF\n");
    EXPECT_EQ(
        cli.json({"--device", "PIC16F877A", "--answer", "replace=ok", "--trace", "/dev/null",
                  "load", cli.path("x.hex"), "--save", cli.path("x.hex"), "--dump", "/dev/null"}),
        0)
        << cli.err;
}

TEST(file_without_data, is_not_programmed_nor_verified) {
    CliBench cli;
    const auto on_part = [&](const char* command, const std::string& file) {
        return cli.on_board(
            {"--device", "PIC16F877A", "--socket", cli.path("socket.json"), command, file});
    };
    ASSERT_EQ(on_part("program", kBlinker), 0);
    const auto part = cli.home.read("socket.json");
    for (const auto* content : {"", "<html>404 Not Found</html>\n", ":00000001FF\n"}) {
        cli.home.write("empty.hex", content);
        for (const auto* command : {"program", "verify"}) {
            EXPECT_EQ(on_part(command, cli.path("empty.hex")), 1) << content;
            EXPECT_NE(cli.err.find("holds no data record"), std::string::npos) << cli.err;
        }
    }
    EXPECT_EQ(cli.home.read("socket.json"), part);
}

TEST(load, says_that_the_file_has_chosen_another_device_than_the_option) {
    CliBench cli;
    cli.home.write("x.hex", ":020000000000FE\n:00000001FF\n;PIC16F873\n");
    ASSERT_EQ(cli.json({"--device", "PIC16F877A", "load", cli.path("x.hex")}), 0);
    EXPECT_TRUE(
        holds(cli.messages(),
              "ファイルの指定により、デバイスは PIC16F873 になりました（--device PIC16F877A "
              "ではありません）。"));
}

TEST(run_cli, remembers_the_device_for_the_next_call) {
    CliBench cli;
    ASSERT_EQ(cli.json({"--device", "PIC16F877A", "load", kBlinker}), 0);
    ASSERT_EQ(cli.json({"load", kBlinker, "--dump", cli.path("d.json")}), 0) << cli.err;
    EXPECT_EQ(cli.file("d.json")["device"], "PIC16F877A");
}

TEST(run_cli, ends_with_2_without_a_device_or_with_one_that_the_catalogue_does_not_hold) {
    CliBench cli;
    EXPECT_EQ(cli.json({"load", kBlinker}), 2);
    EXPECT_NE(cli.err.find("--device"), std::string::npos);
    EXPECT_EQ(cli.json({"--device", "PIC99F1", "load", kBlinker}), 2);
    EXPECT_EQ(cli.err, "quillon-cli: the catalogue holds no device named 'PIC99F1'\n");
    EXPECT_EQ(cli.result()["exit"], 2);
    EXPECT_EQ(cli.json({"--device", "", "load", kBlinker}), 2);
}

TEST(run_cli, ends_a_json_run_with_a_result_even_where_the_line_cannot_be_understood) {
    CliBench cli;
    EXPECT_EQ(cli.json({"frobnicate"}), 2);
    ASSERT_EQ(cli.events.size(), 1U);
    EXPECT_EQ(cli.result()["event"], "result");
    EXPECT_EQ(cli.result()["exit"], 2);
    EXPECT_EQ(cli({"frobnicate"}), 2);
    EXPECT_EQ(cli.out, "") << "complaints go to standard error";
    EXPECT_NE(cli.err, "");
}

TEST(run_cli, ends_with_2_where_the_catalogue_is_missing_and_shows_its_box) {
    CliBench cli;
    cli.catalogue = cli.path("no.ini");
    EXPECT_EQ(cli.json({"devices"}), 2);
    ASSERT_EQ(cli.of("box").size(), 1U);
    EXPECT_EQ(cli.of("box")[0]["title"], "設定ファイルを開けませんでした");
    EXPECT_EQ(cli.of("box")[0]["icon"], "critical");
    EXPECT_EQ(cli.of("box")[0]["answer"], "ok");
}

TEST(run_cli, names_the_catalogue_that_was_asked_for) {
    CliBench cli;
    cli.catalogue = cli.path("no.ini");
    EXPECT_EQ(cli.json({"devices"}), 2);
    ASSERT_EQ(cli.of("box").size(), 1U);
    EXPECT_EQ(cli.of("box")[0]["text"],
              "指定されたデバイス情報設定ファイルを開けませんでした。\r" + cli.catalogue);
}

TEST(run_cli, says_that_a_catalogue_holds_no_device) {
    CliBench cli;
    cli.catalogue = cli.home.write("none.ini", "VERSION 6 . 1\n").string();
    EXPECT_EQ(cli.json({"devices"}), 0);
    ASSERT_EQ(cli.of("message").size(), 1U);
    EXPECT_EQ(cli.of("message")[0]["text"],
              "デバイス情報設定ファイルにデバイスが一つもありません。");
    EXPECT_EQ(cli.of("message")[0]["extra"], cli.catalogue);
    EXPECT_EQ(cli.of("message")[0]["colour"], "red");
}

TEST(run_cli, ends_with_1_where_the_work_folder_cannot_be_made) {
    CliBench cli;
    cli.home.write("file", "");
    EXPECT_EQ(cli.json({"--home", cli.path("file/home"), "devices"}), 1);
    ASSERT_FALSE(cli.of("box").empty());
    EXPECT_EQ(cli.of("box")[0]["title"], "ﾃﾝﾌﾟﾌｫﾙﾀﾞ作成失敗");
}

TEST(run_cli, ends_with_2_where_the_trace_cannot_be_written) {
    CliBench cli;
    EXPECT_EQ(cli.on_board({"--trace", cli.path("no/such/t"), "detect"}), 2);
    EXPECT_NE(cli.err.find("no/such/t"), std::string::npos);
}

TEST(run_cli, asks_the_power_question_of_a_device_and_takes_the_answer) {
    CliBench cli;
    const auto hex = cli.home.write("a.hex", ":00000001FF\n").string();
    ASSERT_EQ(cli.json({"--device", "PIC16F886", "--answer", "power=vdd", "load", hex}), 0);
    ASSERT_EQ(cli.of("question").size(), 1U);
    EXPECT_EQ(cli.of("question")[0]["name"], "power");
    EXPECT_EQ(cli.of("question")[0]["answer"], "vdd");
    EXPECT_EQ(cli.of("question")[0]["lines"][0], "PIC16F886は");
    ASSERT_EQ(cli.json({"--device", "PIC16F886", "load", hex}), 0);
    EXPECT_EQ(cli.of("question")[0]["answer"], "close") << "the catalogue's order stands";
}

}  // namespace
}  // namespace quillon::cli
