// SPDX-License-Identifier: MIT
// Names from outside that could steer the terminal or add lines of their own.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "app/text.h"
#include "cli_bench.h"

namespace quillon::cli {
namespace {

using test::CliBench;
using test::kBlinker;

// Everything that steers a terminal, except the ends of lines.
bool has_controls(std::string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if ((byte < 0x20 && byte != '\n') || byte == 0x7F) return true;
        const auto next = i + 1 < text.size() ? static_cast<unsigned char>(text[i + 1]) : 0xFFU;
        if (byte == 0xC2 && next < 0xA0) return true;
    }
    return false;
}

// ESC, DEL, C1's CSI, a line end and a TAB.
constexpr std::string_view kWild =
    "a\x1b[2J\x7f\xC2\x9B"
    "31m\nプログラム完了\t.hex";

class a_wild_name : public testing::Test {
  protected:
    void expect_tame() const {
        EXPECT_FALSE(has_controls(cli.out)) << cli.out;
        EXPECT_FALSE(has_controls(cli.err)) << cli.err;
    }
    CliBench cli;
};

TEST_F(a_wild_name, of_a_file_is_shown_escaped) {
    const auto file = cli.path(kWild);
    std::filesystem::copy_file(kBlinker, file);
    for (const bool json : {false, true}) {
        std::vector<std::string> arguments{"--port", "sim", "--device", "PIC16F877A"};
        if (json) arguments.emplace_back("--json");
        auto program = arguments;
        program.insert(program.end(), {"program", file});
        EXPECT_EQ(cli(program), 0) << cli.err;
        expect_tame();
        arguments.insert(arguments.end(), {"load", kBlinker, "--save", cli.path(kWild) + "2"});
        // The second run would replace the file of the first one, and that is not answered.
        EXPECT_EQ(cli(arguments), json ? 4 : 0) << cli.err;
        expect_tame();
        EXPECT_EQ(cli.out.find("\nプログラム完了"), std::string::npos) << cli.out;
    }
    const auto log = cli.home.read("QUILLON4_TEMP/LOG_NEW0.txt");
    EXPECT_EQ(std::ranges::count(log, '\n'), 2) << log;
    EXPECT_EQ(std::ranges::count(log, '\t'), 2) << "before the time only: " << log;
    EXPECT_FALSE(has_controls(replace_all(log, "\t", ""))) << log;
}

TEST_F(a_wild_name, that_is_nowhere_is_shown_escaped) {
    EXPECT_EQ(cli({"--device", std::string{kWild}, "blank"}), 2);
    EXPECT_EQ(std::ranges::count(cli.err, '\n'), 1) << cli.err;
    expect_tame();
    EXPECT_EQ(cli({"--device", "PIC16F877A", "load", cli.path(kWild)}), 1);
    expect_tame();
    EXPECT_EQ(cli({"--answer", std::string{kWild} + "=ok", "blank"}), 2);
    expect_tame();
    EXPECT_EQ(cli({"--trace", cli.path("no/\x1b[2J"), "--device", "PIC16F877A", "blank"}), 2);
    expect_tame();
}

TEST_F(a_wild_name, of_a_board_is_shown_escaped) {
    for (const auto* identity : {"ZQ-LDR\x1b[2J\r\nX 6.80",
                                 "ZQ-LDR\xC2\x9B"
                                 "2J\x7f"
                                 "  5.00"}) {
        const auto fault = std::string{"identity:"} + identity;
        EXPECT_EQ(cli({"--port", "sim", "--fault", fault, "detect"}), 0) << cli.out << cli.err;
        expect_tame();
        EXPECT_EQ(cli({"--port", "sim", "--fault", fault, "--json", "detect"}), 0) << cli.err;
        expect_tame();
    }
}

TEST_F(a_wild_name, of_a_device_in_the_catalogue_is_shown_escaped) {
    std::ifstream original{cli.catalogue, std::ios::binary};
    std::string text{std::istreambuf_iterator<char>{original}, {}};
    const std::string name = "PIC16F877A";
    for (auto at = text.find(name); at != std::string::npos; at = text.find(name, at + 1))
        text.replace(at, name.size(), "PIC16\x1b[2J");
    cli.catalogue = cli.home.write("device6.ini", text).string();
    EXPECT_EQ(cli({"devices"}), 0) << cli.err;
    EXPECT_NE(cli.out.find("PIC16\\x1B[2J"), std::string::npos);
    expect_tame();
    EXPECT_EQ(cli({"--json", "devices"}), 0);
    expect_tame();
}

}  // namespace
}  // namespace quillon::cli
