// SPDX-License-Identifier: MIT
// The files that a run keeps for itself, and those that it shares with other runs.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>

#include "cli_bench.h"

namespace quillon::cli {
namespace {

namespace fs = std::filesystem;
using test::CliBench;
using test::kBlinker;

class a_run : public testing::Test {
  protected:
    void put(std::string_view name, std::string_view content) {
        fs::create_directories(cli.home / "QUILLON4_TEMP");
        cli.home.write("QUILLON4_TEMP/" + std::string{name}, content);
    }
    std::string work(std::string_view name) {
        return cli.home.read("QUILLON4_TEMP/" + std::string{name});
    }
    int blank(std::vector<std::string> more = {}) {
        more.insert(more.begin(), {"--device", "PIC16F877A"});
        more.emplace_back("blank");
        return cli.on_board(std::move(more));
    }
    CliBench cli;
};

// The window may have these files open in the same work folder, and other runs may too.
TEST_F(a_run, leaves_the_windows_display_files_alone) {
    put("pgmmemory_temp.txt", "the window's");
    put("eepmemory_temp.txt", "the window's");
    EXPECT_EQ(cli.on_board({"--device", "PIC16F877A", "program", kBlinker}), 0) << cli.err;
    EXPECT_EQ(work("pgmmemory_temp.txt"), "the window's");
    EXPECT_EQ(work("eepmemory_temp.txt"), "the window's");
}

TEST_F(a_run, leaves_no_display_files_behind) {
    EXPECT_EQ(cli.on_board({"--device", "PIC16F877A", "program", kBlinker}), 0) << cli.err;
    EXPECT_FALSE(fs::exists(cli.home / "QUILLON4_TEMP/pgmmemory_temp.txt"));
    EXPECT_FALSE(fs::exists(cli.home / "QUILLON4_TEMP/eepmemory_temp.txt"));
}

TEST_F(a_run, adds_to_the_log_and_never_rotates_it) {
    put("LOG_NEW0.txt", "before\n");
    for (int run = 0; run < 2; ++run) EXPECT_EQ(blank(), 0) << cli.err;
    EXPECT_TRUE(work("LOG_NEW0.txt").starts_with("before\n"));
    EXPECT_FALSE(fs::exists(cli.home / "QUILLON4_TEMP/LOG_OLD1.txt"));
}

TEST_F(a_run, keeps_the_link_in_the_place_of_its_socket_file) {
    fs::create_directory(cli.home / "parts");
    fs::create_symlink("parts/real.json", cli.home / "s.json");
    cli.home.write("s.json.new", "somebody's");
    EXPECT_EQ(blank({"--socket", cli.path("s.json")}), 0) << cli.err;
    EXPECT_EQ(blank({"--socket", cli.path("s.json")}), 0) << cli.err;
    EXPECT_TRUE(fs::is_symlink(fs::symlink_status(cli.home / "s.json")));
    EXPECT_EQ(cli.file("parts/real.json")["device"], "PIC16F877A");
    EXPECT_EQ(cli.home.read("s.json.new"), "somebody's");
}

TEST_F(a_run, says_what_is_in_the_place_of_its_socket_file) {
    EXPECT_EQ(blank({"--socket", "/dev/full"}), 2);
    EXPECT_NE(cli.err.find("/dev/full doesn't hold a simulated target: it is a device"),
              std::string::npos)
        << cli.err;
    EXPECT_EQ(blank({"--socket", cli.home.path().string()}), 2);
    EXPECT_NE(cli.err.find("it is a folder"), std::string::npos) << cli.err;
    cli.home.write("s.json", "");
    fs::resize_file(cli.home / "s.json", std::uintmax_t{1} << 40);
    EXPECT_EQ(blank({"--socket", cli.path("s.json")}), 2);
    EXPECT_NE(cli.err.find("it is larger than 16 MB"), std::string::npos) << cli.err;
}

TEST_F(a_run, reports_a_setting_that_cannot_be_saved_and_succeeds_all_the_same) {
    fs::create_directory(cli.home / "settings.ini.lock");
    EXPECT_EQ(cli.json({"--device", "PIC16F877A", "load", kBlinker, "--save", cli.path("a.hex")}),
              0)
        << cli.err;
    EXPECT_TRUE(fs::exists(cli.home / "a.hex"));
    EXPECT_EQ(std::ranges::count_if(cli.messages(),
                                    [&](const std::string& message) {
                                        return message.starts_with("設定ファイルに書き込") &&
                                               message.find(cli.path("settings.ini: ")) !=
                                                   std::string::npos;
                                    }),
              1)
        << cli.out;
}

}  // namespace
}  // namespace quillon::cli
