// SPDX-License-Identifier: MIT
// Every device of the shipped catalogue, by name from the command line. Also catalogues that were
// badly edited by hand.
#include <gtest/gtest.h>

#include <sstream>

#include "cli_bench.h"

namespace quillon::cli {
namespace {

using test::CliBench;
using test::Json;

// The devices are tested in this many shares, because every device needs calls of its own.
constexpr std::size_t kShares = 4;

class every_device_of_the_catalogue : public testing::TestWithParam<std::size_t> {};

TEST_P(every_device_of_the_catalogue, is_selected_by_its_name_without_a_box) {
    CliBench cli;
    const auto hex = cli.home.write("a.hex", ":00000001FF\n").string();
    ASSERT_EQ(cli.json({"devices"}), 0) << cli.err;
    EXPECT_TRUE(cli.of("box").empty());
    const auto devices = cli.of("device");
    ASSERT_EQ(devices.size(), 212U);
    for (std::size_t i = GetParam(); i < devices.size(); i += kShares) {
        const Json& device = devices[i];
        const std::string name = device["name"];
        ASSERT_EQ(cli.json({"--device", name, "load", hex, "--dump", cli.path("d.json")}), 0)
            << name << ": " << cli.err;
        EXPECT_TRUE(cli.of("box").empty()) << name;
        const auto dump = cli.file("d.json");
        EXPECT_EQ(dump["device"], name);
        for (const char* fact : {"PgmType", "PgmWords", "EepBytes"})
            EXPECT_EQ(dump[fact], device[fact]) << name << " " << fact;
        EXPECT_NE(dump["ConfigWord"][0], 0) << name;
    }
}

// The families without an algorithm so far are refused; a device without a family has its type's.
TEST_P(every_device_of_the_catalogue, is_served_or_refused_before_anything_is_sent) {
    CliBench cli;
    ASSERT_EQ(cli.json({"devices"}), 0) << cli.err;
    const auto devices = cli.of("device");
    int served = 0;
    for (std::size_t i = 0; i < devices.size(); ++i) {
        const std::string name = devices[i]["name"], family = devices[i]["family"];
        const bool serves = family == "generic" || family == "PIC16F877" || family == "PIC16F877A";
        served += serves ? 1 : 0;
        if (i % kShares != GetParam()) continue;
        // The silent board is told apart from the refusal without the whole operation.
        EXPECT_EQ(cli.on_board({"--device", name, "--trace", cli.path("t.txt"), "--fault",
                                "silent-after:0", "blank"}),
                  serves ? 3 : 2)
            << name;
        EXPECT_EQ(cli.home.read("t.txt").empty(), !serves) << name;
        EXPECT_EQ(cli.result()["status"], serves ? "no-board" : "not-served") << name;
    }
    EXPECT_EQ(served, 86 + 8);
}

INSTANTIATE_TEST_SUITE_P(shares, every_device_of_the_catalogue,
                         testing::Range<std::size_t>(0, kShares));

// Two sound devices; the tests put a fault between them.
constexpr const char* kSound =
    "PGM_TYPE FLASH4\nPOWER_MODE VDD\nPACKAGE 28\nJP2 2-3\nVDD_VPP_DELAY 10\n"
    "PGM_SIZE_WORD 0xFF\nEEPROM_BYTE 0x7F\nCOMMENT sound\nCONFIG1 0x3FFF 0 0 0x3FFF\n";

std::string block(std::string_view name, std::string_view rows) {
    return "#BEGIN\n" + std::string{name} + "\n" + std::string{rows} + "#END\n";
}

struct OwnCatalogue : CliBench {
    explicit OwnCatalogue(std::string_view text) {
        catalogue = home.write("own.ini", text).string();
        hex = home.write("a.hex", ":00000001FF\n").string();
    }
    int load(const std::string& device) {
        return json({"--device", device, "load", hex, "--dump", path("d.json")});
    }
    std::string hex;
};

TEST(a_bad_catalogue, is_told_for_the_device_it_concerns_and_leaves_the_others_usable) {
    std::string too_many = "COMMENT";
    for (int i = 0; i < 65; ++i) too_many += " w";
    struct Fault {
        std::string rows;
        std::string words;
    };
    const std::vector<Fault> faults{
        {"VOLTAGE 5\n", "15行目 : VOLTAGE 5 : キーの末尾が1から7の数字ではありません。"},
        {"VDD_VPP_DELAY 256\n", "15行目 : VDD_VPP_DELAY 256 : 値を読み取れません。"},
        {"PGM_SIZE_WORD 8K\n", "15行目 : PGM_SIZE_WORD 8K : 値を読み取れません。"},
        {"JP2\n", "15行目 : JP2 : 値がありません。"},
    };
    for (const auto& [rows, words] : faults) {
        OwnCatalogue cli{block("PIC16F1", kSound) + block("PIC16F2", rows + kSound) +
                         block("PIC16F3", kSound)};
        ASSERT_EQ(cli.load("PIC16F2"), 0) << rows << cli.err;
        ASSERT_EQ(cli.of("box").size(), 1U) << rows;
        EXPECT_EQ(cli.of("box")[0]["title"], "ﾌｧｲﾙ 開く失敗");
        EXPECT_EQ(cli.of("box")[0]["text"], "設定ファイルの読み出しに失敗しました。\r　" + words);
        EXPECT_EQ(cli.file("d.json")["PgmWords"], 256) << "what was read is kept";
        for (const char* other : {"PIC16F1", "PIC16F3"}) {
            ASSERT_EQ(cli.load(other), 0) << rows;
            EXPECT_TRUE(cli.of("box").empty()) << rows << other;
        }
    }
}

TEST(a_bad_catalogue, with_a_block_cut_off_is_told_and_its_first_device_usable) {
    OwnCatalogue cli{block("PIC16F1", kSound) + "#BEGIN\nPIC16F2\nPGM_TYPE FLASH4\n"};
    cli.load("PIC16F2");
    ASSERT_FALSE(cli.of("box").empty());
    EXPECT_EQ(cli.of("box")[0]["text"],
              "設定ファイルの読み出しに失敗しました。\r　EOF を検出しました。");
    ASSERT_EQ(cli.load("PIC16F1"), 0) << cli.err;
    EXPECT_TRUE(cli.of("box").empty());
    EXPECT_EQ(cli.file("d.json")["PgmWords"], 256);
}

TEST(a_bad_catalogue, beyond_the_limits_of_the_list_stops_the_start_with_its_box) {
    std::string devices;
    for (int i = 0; i < 2000; ++i) devices += block("PIC" + std::to_string(i), kSound);
    std::string words;
    for (int i = 0; i < 66; ++i) words += "w ";
    for (const auto& text : {devices, words + "\n" + block("PIC16F1", kSound)}) {
        OwnCatalogue cli{text};
        EXPECT_EQ(cli.load("PIC16F1"), 2);
        ASSERT_EQ(cli.of("box").size(), 1U);
        EXPECT_EQ(cli.of("box")[0]["title"], "設定ファイルを開けませんでした");
        EXPECT_EQ(cli.result()["event"], "result");
    }
}

TEST(a_catalogue, with_a_pic18_that_no_family_names_gets_it_refused_before_anything_is_sent) {
    std::string rows = kSound;
    rows.replace(rows.find("FLASH4"), 6, "18F_00");
    OwnCatalogue cli{block("PIC18F9999", rows)};
    for (const std::string command : {"blank", "read"}) {
        EXPECT_EQ(cli.on_board({"--device", "PIC18F9999", "--trace", cli.path("t.txt"), command}),
                  2);
        EXPECT_EQ(cli.of("message").back()["text"],
                  "このデバイスのアルゴリズムは、まだ用意されていません。");
        EXPECT_EQ(cli.of("message").back()["colour"], "red");
        EXPECT_EQ(cli.home.read("t.txt"), "");
    }
}

// "発振" and "注意" in code page 932.
constexpr const char* kComment932 = "COMMENT \x94\xAD\x90\x55 \x92\x8D\x88\xD3";

TEST(a_catalogue, in_code_page_932_with_carriage_returns_and_no_last_line_end_is_read) {
    std::string text = "VERSION 6 . 1\nCMT FOSC \x94\xAD\x90\x55 x\n" +
                       block("PIC16F1", std::string{kSound} + kComment932 + "\n");
    text.pop_back();
    std::string dos;
    for (const char c : text) dos += c == '\n' ? std::string{"\r\n"} : std::string{c};
    OwnCatalogue cli{dos};
    // The file names the device, so it is selected again and its comment is shown.
    cli.hex = cli.home.write("named.hex", ":00000001FF\n;PIC16F1\n").string();
    ASSERT_EQ(cli.load("PIC16F1"), 0) << cli.err;
    EXPECT_TRUE(cli.of("box").empty());
    EXPECT_EQ(std::ranges::count(cli.messages(), " 発振 注意"), 1)
        << ::testing::PrintToString(cli.messages());
    EXPECT_EQ(cli.file("d.json")["PgmWords"], 256);
}

}  // namespace
}  // namespace quillon::cli
