// SPDX-License-Identifier: MIT
#include "cli/options.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

namespace quillon::cli {
namespace {

ParsedLine line(std::initializer_list<std::string> arguments) {
    return parse(std::vector<std::string>{arguments});
}

TEST(parse, takes_the_options_before_and_behind_the_command) {
    const auto parsed = line({"--home", "/h", "--device", "PIC16F84A", "program", "a b.hex",
                              "--port", "COM3", "--json", "--trace", "t", "--deadline", "2.5"});
    ASSERT_TRUE(parsed.options) << parsed.text;
    EXPECT_EQ(parsed.options->command, Command::Program);
    EXPECT_EQ(parsed.options->operation, "program");
    EXPECT_EQ(parsed.options->home, "/h");
    EXPECT_EQ(parsed.options->device, "PIC16F84A");
    EXPECT_EQ(parsed.options->hex, "a b.hex");
    EXPECT_EQ(parsed.options->port, "COM3");
    EXPECT_EQ(parsed.options->trace, "t");
    EXPECT_EQ(parsed.options->deadline, std::chrono::milliseconds{2500});
    EXPECT_TRUE(parsed.options->json);
    EXPECT_FALSE(parsed.options->simulated());
}

TEST(parse, keeps_repeated_sets_and_answers_in_order_and_leaves_the_command_alone) {
    const auto parsed = line({"--set", "Text_ID=1234", "--set", "CONFIG1=CP:OFF", "--answer",
                              "overwrite=cancel", "--answer", "overwrite=ok", "program", "x.hex"});
    ASSERT_TRUE(parsed.options) << parsed.text;
    ASSERT_EQ(parsed.options->sets.size(), 2U);
    EXPECT_EQ(parsed.options->sets[0].name, "Text_ID");
    EXPECT_EQ(parsed.options->sets[0].value, "1234");
    EXPECT_EQ(parsed.options->sets[1].value, "CP:OFF");
    EXPECT_EQ(answer(*parsed.options, "overwrite"), "ok") << "the last one counts";
    EXPECT_EQ(answer(*parsed.options, "mismatch"), std::nullopt);
}

TEST(parse, knows_every_command) {
    EXPECT_EQ(line({"devices"}).options->command, Command::Devices);
    EXPECT_EQ(line({"detect"}).options->command, Command::Detect);
    EXPECT_EQ(line({"blank"}).options->command, Command::Blank);
    EXPECT_EQ(line({"verify", "a.hex"}).options->command, Command::Verify);
    EXPECT_EQ(line({"read", "--dump", "d.json"}).options->dump, "d.json");
    EXPECT_EQ(line({"erase", "pgm"}).options->command, Command::ErasePgm);
    EXPECT_EQ(line({"erase", "chip"}).options->command, Command::EraseChip);
    EXPECT_EQ(line({"erase", "chip"}).options->operation, "erase chip");
    EXPECT_EQ(line({"extend", "pgm-program", "a.hex"}).options->hex, "a.hex");
    EXPECT_EQ(line({"extend", "data-read", "-o", "a.hex"}).options->save, "a.hex");
    EXPECT_EQ(line({"extend", "pgm-read", "--dump", "d.json"}).options->dump, "d.json");
    EXPECT_EQ(line({"load", "a.hex"}).options->command, Command::Load);
    EXPECT_EQ(line({"simulate", "--link", "p"}).options->link, "p");
}

TEST(parse, knows_every_second_word) {
    const std::vector<std::pair<std::string, Command>> extends{
        {"chip-erase", Command::ExtendChipErase},     {"pgm-erase", Command::ExtendPgmErase},
        {"data-erase", Command::ExtendDataErase},     {"pgm-program", Command::ExtendPgmProgram},
        {"data-program", Command::ExtendDataProgram}, {"pgm-read", Command::ExtendPgmRead},
        {"data-read", Command::ExtendDataRead},
    };
    for (const auto& [area, command] : extends) {
        std::vector<std::string> words{"extend", area};
        if (area.ends_with("program")) words.emplace_back("a.hex");
        const auto parsed = parse(words);
        ASSERT_TRUE(parsed.options) << area << parsed.text;
        EXPECT_EQ(parsed.options->command, command);
        EXPECT_EQ(parsed.options->operation, "extend " + area);
    }
    EXPECT_EQ(line({"calib", "read"}).options->command, Command::CalibRead);
    const auto write = line({"calib", "write", "--set", "Text_Calib_Data=80"});
    ASSERT_TRUE(write.options) << write.text;
    EXPECT_EQ(write.options->command, Command::CalibWrite);
    EXPECT_EQ(write.options->operation, "calib write");
}

TEST(parse, takes_options_between_the_words_and_a_file_named_like_a_command) {
    const auto parsed = line({"extend", "--device", "PIC16F84A", "pgm-program", "--json", "blank"});
    ASSERT_TRUE(parsed.options) << parsed.text;
    EXPECT_EQ(parsed.options->command, Command::ExtendPgmProgram);
    EXPECT_EQ(parsed.options->hex, "blank");
    EXPECT_TRUE(parsed.options->json);
    EXPECT_EQ(line({"extend", "data-program", "data-read"}).options->hex, "data-read");
}

TEST(parse, shows_help_and_version_as_a_success) {
    EXPECT_EQ(line({"--help"}).exit, 0);
    EXPECT_NE(line({"--help"}).text.find("--deadline"), std::string::npos);
    EXPECT_NE(line({"program", "--help"}).text.find("HEX"), std::string::npos);
    for (const std::string word : {"erase", "extend", "calib"}) {
        EXPECT_NE(line({"--help"}).text.find("\n  " + word), std::string::npos) << word;
        EXPECT_EQ(line({word, "--help"}).exit, 0);
    }
    EXPECT_NE(line({"extend", "--help"}).text.find("data-program"), std::string::npos);
    EXPECT_EQ(line({"extend", "pgm-read", "--help"}).exit, 0);
    EXPECT_NE(line({"extend", "pgm-read", "--help"}).text.find("--dump"), std::string::npos);
    EXPECT_EQ(line({"--version"}).exit, 0);
    EXPECT_TRUE(line({"--version"}).text.starts_with("quillon-cli "));
}

struct BadLine {
    std::vector<std::string> arguments;
    std::string complaint;
};
class parse_refuses : public testing::TestWithParam<BadLine> {};

TEST_P(parse_refuses, with_exit_2_and_says_why) {
    const auto parsed = parse(GetParam().arguments);
    EXPECT_FALSE(parsed.options);
    EXPECT_EQ(parsed.exit, 2);
    EXPECT_NE(parsed.text.find(GetParam().complaint), std::string::npos) << parsed.text;
}

INSTANTIATE_TEST_SUITE_P(
    bad_lines, parse_refuses,
    testing::Values(BadLine{{}, "a command is required"},
                    BadLine{{"frobnicate"}, "no command named 'frobnicate'"},
                    BadLine{{"--bogus", "blank"}, "--bogus"},
                    BadLine{{"program"}, "HEX is required"},
                    BadLine{{"program", "a.hex", "b.hex"}, "b.hex"},
                    BadLine{{"blank", "detect"}, "detect"},
                    BadLine{{"erase"}, "erase needs one of: pgm, chip"},
                    BadLine{{"erase", "data"}, "erase has no 'data'; it needs one of: pgm, chip"},
                    BadLine{{"erase", "pgm", "chip"}, "chip"},
                    BadLine{{"extend"}, "extend needs one of: chip-erase, pgm-erase, data-erase"},
                    BadLine{{"extend", "cfg-erase"}, "extend has no 'cfg-erase'"},
                    BadLine{{"extend", "blank"}, "extend has no 'blank'"},
                    BadLine{{"extend", "Chip-Erase"}, "extend has no 'Chip-Erase'"},
                    BadLine{{"chip-erase"}, "no command named 'chip-erase'"},
                    BadLine{{"extend", "pgm-program"}, "HEX is required"},
                    BadLine{{"extend", "data-program"}, "HEX is required"},
                    BadLine{{"extend", "chip-erase", "a.hex"}, "a.hex"},
                    BadLine{{"extend", "data-erase", "a.hex"}, "a.hex"},
                    BadLine{{"extend", "pgm-read", "a.hex"}, "a.hex"},
                    BadLine{{"extend", "pgm-erase", "-o", "a.hex"}, "-o"},
                    BadLine{{"extend", "chip-erase", "--dump", "d.json"}, "--dump"},
                    BadLine{{"extend", "pgm-program", "a.hex", "-o", "b.hex"}, "-o"},
                    BadLine{{"extend", "data-read", "-o"}, "-o"},
                    BadLine{{"extend", "pgm-erase", "data-erase"}, "data-erase"},
                    BadLine{{"calib"}, "calib needs one of: read, write"},
                    BadLine{{"calib", "verify"}, "calib has no 'verify'"},
                    BadLine{{"calib", "write"}, "--set Text_Calib_Data=XX"},
                    BadLine{{"calib", "write", "80"}, "80"},
                    BadLine{{"--answer", "calibration=yes", "erase", "chip"}, "'yes' is no answer"},
                    BadLine{{"--set", "Text_ID", "blank"}, "'Text_ID' is not NAME=VALUE"},
                    BadLine{{"--set", "=1", "blank"}, "'=1' is not NAME=VALUE"},
                    BadLine{{"--answer", "overwrite=yes", "blank"}, "'yes' is no answer"},
                    BadLine{{"--answer", "power=", "blank"}, "'' is no answer"},
                    BadLine{{"--answer", "colour=ok", "blank"}, "no question named 'colour'"},
                    BadLine{{"--deadline", "0", "blank"}, "--deadline"},
                    BadLine{{"--deadline", "soon", "blank"}, "--deadline"},
                    BadLine{{"--deadline", "", "blank"}, "--deadline"},
                    BadLine{{"--port", "sim", "--sim-baud", "", "blank"}, "--sim-baud"},
                    BadLine{{"--deadline", "nan", "blank"}, "--deadline"},
                    BadLine{{"--port", "sim", "--sim-baud", "-1", "blank"}, "--sim-baud"},
                    BadLine{{"--socket", "s.json", "blank"}, "--port sim"},
                    BadLine{{"--fault", "drop:1", "--port", "COM1", "blank"}, "--port sim"},
                    BadLine{{"read", "-o"}, "-o"}, BadLine{{"load", "a.hex", "--save"}, "--save"}));

}  // namespace
}  // namespace quillon::cli
