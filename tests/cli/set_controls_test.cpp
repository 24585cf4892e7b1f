// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "cli_bench.h"

namespace quillon::cli {
namespace {

using test::CliBench;
using test::Json;
using test::kBlinker;

class set_option : public testing::Test {
  protected:
    // Loads the blinker with these settings and returns the dump.
    Json dump(std::string device, std::vector<std::string> sets) {
        EXPECT_EQ(load(std::move(device), std::move(sets)), 0) << cli.err << cli.out;
        return cli.file("d.json");
    }
    int load(std::string device, const std::vector<std::string>& sets) {
        std::vector<std::string> line{"--device", std::move(device)};
        for (const auto& set : sets) line.insert(line.end(), {"--set", set});
        line.insert(line.end(), {"load", hex, "--dump", cli.path("d.json")});
        return cli.json(line);
    }
    static std::string bytes(const Json& dump, std::size_t from, std::size_t count) {
        return dump["CfgIdMem"].get<std::string>().substr(2 * from, 2 * count);
    }

    CliBench cli;
    std::string hex = kBlinker;
};

TEST_F(set_option, puts_a_configuration_word_in_place_of_the_files) {
    for (const std::string word : {"3FFA", "0x3ffa", "0X3FFA"}) {
        const auto image = dump("PIC16F877A", {"CONFIG1=" + word});
        EXPECT_EQ(image["ConfigWord"][0], 0x3FFA);
        EXPECT_EQ(bytes(image, 14, 2), "3FFA");
        EXPECT_EQ(image["CfgBytes18"].get<std::string>().substr(0, 4), "FA3F");
    }
}

TEST_F(set_option, leaves_bits_without_a_function_as_they_must_be) {
    // Bits 12, 5 and 4 are always 1 on this part.
    EXPECT_EQ(dump("PIC16F877A", {"CONFIG1=0000"})["ConfigWord"][0], 0x1030);
}

TEST_F(set_option, changes_one_field_and_keeps_the_rest_of_the_files_word) {
    EXPECT_EQ(dump("PIC16F877A", {"CONFIG1=WDTE:ON"})["ConfigWord"][0], 0x3F71 | 0x0004);
    EXPECT_EQ(dump("PIC16F877A", {"CONFIG1=WDTE:ON", "CONFIG1=CP:ON"})["ConfigWord"][0], 0x1F75);
}

TEST_F(set_option, sets_the_id_digits_as_a_file_gives_them) {
    const auto image = dump("PIC16F877A", {"Text_ID=1a2F"});
    EXPECT_EQ(image["Text_ID"], "1A2F");
    EXPECT_EQ(image["IdText"], "1A2F");
    EXPECT_EQ(bytes(image, 0, 8), "0001000A0002000F");
}

TEST_F(set_option, sets_the_id_of_a_12_bit_part_with_its_upper_ones) {
    hex = cli.home.write("a.hex", ":00000001FF\n").string();
    EXPECT_EQ(bytes(dump("PIC12F508", {"Text_ID=1234"}), 0, 8), "0FF10FF20FF30FF4");
}

TEST_F(set_option, sets_the_eight_id_digits_of_a_pic18) {
    hex = cli.home.write("a.hex", ":00000001FF\n").string();
    const auto image = dump("PIC18F2550", {"Text_ID=01234567"});
    EXPECT_EQ(image["IdBytes18"], "F0F1F2F3F4F5F6F7");
    EXPECT_EQ(image["Text_ID"], "01234567");
    EXPECT_EQ(load("PIC18F2550", {"Text_ID=1234"}), 2);
}

TEST_F(set_option, sets_whole_id_words_where_the_device_has_them) {
    hex = cli.home.write("a.hex", ":00000001FF\n").string();
    const auto image = dump("PIC16F886", {"Text_ID1=1234", "Text_ID4=3ABC"});
    EXPECT_EQ(bytes(image, 0, 2), "1234");
    EXPECT_EQ(bytes(image, 6, 2), "3ABC");
    EXPECT_EQ(load("PIC16F877A", {"Text_ID1=1234"}), 2) << "this one takes digits";
}

struct BadSet {
    std::string set;
    std::string complaint;
};
class set_option_refuses : public set_option, public testing::WithParamInterface<BadSet> {};

TEST_P(set_option_refuses, with_exit_2_and_says_why) {
    EXPECT_EQ(load("PIC16F877A", {GetParam().set}), 2);
    EXPECT_NE(cli.err.find(GetParam().complaint), std::string::npos) << cli.err;
    EXPECT_FALSE(std::filesystem::exists(cli.home / "d.json"));
}

INSTANTIATE_TEST_SUITE_P(
    bad_sets, set_option_refuses,
    testing::Values(
        BadSet{"Text_Nothing=1", "no control named 'Text_Nothing'"},
        BadSet{"LabelCmt=x", "'LabelCmt' is not a control with a value"},
        BadSet{"Command_program=1", "'Command_program' is not"},
        BadSet{"mnuHelp=1", "'mnuHelp' is not"}, BadSet{"TxtInit=1", "'TxtInit' is not"},
        BadSet{"Combo_device=PIC16F84A", "--device"},
        BadSet{"mnuBlankSkip=yes", "'yes' is not 0 or 1"},
        BadSet{"Chk_UseFileData=2", "'2' is not 0 or 1"}, BadSet{"Text_ID=12345", "'12345' is not"},
        BadSet{"Text_ID=12G4", "'12G4' is not a text of hexadecimal digits"},
        BadSet{"Text_ID=", "'' is not"}, BadSet{"Text_BG=33", "a text of at most 1 characters"},
        BadSet{"Text_Calib_Data=123", "a text of at most 2 characters"},
        BadSet{"Text_OSCCAL_Data=1234", "a text of at most 3 characters"},
        BadSet{"Combo_FCAL_91X=no such entry", "'no such entry' is not an entry"},
        BadSet{"PowerMode=vpp", "'vpp' is not VPP or VDD"},
        BadSet{"VddVppDelay=256", "'256' is not from 0 to 255"},
        BadSet{"VddVppDelay=-1", "'-1' is not"}, BadSet{"VddVppDelay=5ms", "'5ms' is not"},
        BadSet{"CONFIG2=3FFF", "PIC16F877A has no such configuration word"},
        BadSet{"CONFIG8=3FFF", "no control named 'CONFIG8'"},
        BadSet{"CONFIG1=4000", "'4000' is not a word of this device"},
        BadSet{"CONFIG1=", "'' is not a word"}, BadSet{"CONFIG1=NOPE:ON", "no field 'NOPE'"},
        BadSet{"CONFIG1=WDTE:MAYBE", "field 'WDTE' has no option 'MAYBE'"}));

TEST_F(set_option, refuses_a_bad_name_before_the_file_is_opened) {
    hex = cli.path("missing.hex");
    EXPECT_EQ(load("PIC16F877A", {"Text_Nothing=1"}), 2);
    EXPECT_TRUE(cli.messages().empty());
}

TEST_F(set_option, sends_the_power_order_and_the_delay_to_the_board) {
    ASSERT_EQ(cli.on_board({"--device", "PIC16F877A", "--set", "PowerMode=VPP", "--set",
                            "VddVppDelay=77", "--trace", cli.path("t"), "blank"}),
              0);
    const auto trace = cli.home.read("t");
    EXPECT_NE(trace.find(" > 6D\n"), std::string::npos);
    EXPECT_NE(trace.find(" > 4D\n"), std::string::npos) << "the delay, 77";
    EXPECT_NE(trace.find(" > 6E\n"), std::string::npos) << "VPP first: 'n'";
    EXPECT_EQ(trace.find(" > 4E\n"), std::string::npos) << "never 'N'";
}

TEST_F(set_option, programs_the_configuration_word_that_it_was_given) {
    ASSERT_EQ(cli.on_board({"--device", "PIC16F877A", "--socket", cli.path("s.json"), "--set",
                            "CONFIG1=FOSC:HS", "--set", "Text_ID=4321", "program", kBlinker}),
              0);
    ASSERT_EQ(cli.on_board({"--device", "PIC16F877A", "--socket", cli.path("s.json"), "read",
                            "--dump", cli.path("d.json")}),
              0);
    EXPECT_EQ(cli.file("d.json")["ConfigWord"][0], 0x3F72);
    EXPECT_EQ(cli.file("d.json")["Text_ID"], "4321");
}

}  // namespace
}  // namespace quillon::cli
