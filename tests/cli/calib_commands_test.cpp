// SPDX-License-Identifier: MIT
// The calibration word: the calib commands, and the question before an erase that loses it.
#include <gtest/gtest.h>

#include <filesystem>

#include "cli_bench.h"

namespace quillon::cli {
namespace {

namespace fs = std::filesystem;
using test::CliBench;
using test::Json;

constexpr const char* kNoWord =
    "このデバイスには、単独で読み書きできるキャリブレーションデータがありません。";

// The part's last program word, in four digits.
std::string last_word_of(const CliBench& cli) {
    const std::string row = cli.file("socket.json")["program"].back();
    return row.substr(row.size() - 4);
}

// A part with a calibration word, fresh from the factory.
class calib : public testing::TestWithParam<std::string> {
  protected:
    int run(std::vector<std::string> arguments, const std::string& device = GetParam()) {
        arguments.insert(arguments.begin(),
                         {"--device", device, "--socket", cli.path("socket.json")});
        return cli.on_board(std::move(arguments));
    }
    std::string last_word() const { return last_word_of(cli); }

    CliBench cli;
};
INSTANTIATE_TEST_SUITE_P(parts, calib, testing::Values("PIC12F675", "PIC12C671", "PIC12CE673"));

TEST_P(calib, read_gives_the_word_and_the_value_in_it) {
    ASSERT_EQ(run({"calib", "read"}), 0) << cli.out << cli.err;
    EXPECT_EQ(cli.result()["operation"], "calib read");
    EXPECT_EQ(cli.result()["CalibWord"], "3474");
    EXPECT_EQ(cli.result()["Text_Calib_Data"], "74");
    EXPECT_EQ(last_word(), "3474");
    EXPECT_EQ(cli({"--port", "sim", "--device", GetParam(), "calib", "read"}), 0);
    EXPECT_TRUE(cli.out.ends_with("\nCalibWord=3474 Text_Calib_Data=74\n")) << cli.out;
}

TEST_P(calib, write_puts_the_given_value_into_the_part) {
    ASSERT_EQ(run({"--set", "Text_Calib_Data=70", "calib", "write"}), 0) << cli.out << cli.err;
    EXPECT_EQ(cli.result()["operation"], "calib write");
    EXPECT_FALSE(cli.result().contains("CalibWord")) << "nothing was read";
    EXPECT_EQ(last_word(), "3470");
    ASSERT_EQ(run({"calib", "read"}), 0);
    EXPECT_EQ(cli.result()["Text_Calib_Data"], "70");
}

TEST_P(calib, write_without_a_value_is_wrong_usage) {
    EXPECT_EQ(run({"calib", "write"}), 2);
    EXPECT_NE(cli.err.find("--set Text_Calib_Data=XX"), std::string::npos) << cli.err;
    EXPECT_EQ(run({"--set", "Text_BG=1", "calib", "write"}), 2) << "another control's value";
    EXPECT_FALSE(fs::exists(cli.home / "socket.json"));
}

TEST_P(calib, write_refuses_a_value_that_is_no_byte_before_the_board_is_touched) {
    for (const std::string value : {"", "--", "0x80", "123", "G0", " 8"}) {
        EXPECT_EQ(run({"--set", "Text_Calib_Data=" + value, "calib", "write"}), 2) << value;
        EXPECT_FALSE(fs::exists(cli.home / "socket.json")) << value;
    }
}

TEST_P(calib, read_that_fails_gives_no_value) {
    EXPECT_EQ(run({"--fault", "silent-after:0", "calib", "read"}), 3);
    EXPECT_FALSE(cli.result().contains("CalibWord"));
    EXPECT_EQ(run({"--fault", "br/silent-after:0", "calib", "read"}), 1) << cli.out;
    EXPECT_FALSE(cli.result().contains("CalibWord"));
    EXPECT_FALSE(cli.result().contains("Text_Calib_Data"));
}

TEST_P(calib, takes_no_file_and_no_output) {
    EXPECT_EQ(run({"calib", "read", "a.hex"}), 2);
    EXPECT_EQ(run({"calib", "read", "-o", "a.hex"}), 2);
    EXPECT_EQ(run({"--set", "Text_Calib_Data=80", "calib", "write", "a.hex"}), 2);
}

// On these the write would go into the last word of the program.
TEST(calib_of_other_devices, is_refused_with_2_before_anything_is_sent) {
    CliBench cli;
    for (const std::string device : {"PIC16F84A", "PIC16F877A", "PIC12C508A", "PIC12F683"}) {
        for (const std::string verb : {"read", "write"}) {
            EXPECT_EQ(cli.on_board({"--device", device, "--trace", cli.path("t.txt"), "--set",
                                    "Text_Calib_Data=80", "calib", verb}),
                      2)
                << device;
            EXPECT_EQ(cli.result()["status"], "not-served");
            EXPECT_EQ(cli.result()["operation"], "calib " + verb);
            EXPECT_EQ(cli.of("message").back()["text"], kNoWord) << device;
            EXPECT_EQ(cli.home.read("t.txt"), "") << device;
        }
    }
}

// The main form's erases don't keep the calibration.
class erase_of_a_calibrated_part : public testing::TestWithParam<std::string> {
  protected:
    int run(std::vector<std::string> before, const std::string& device = "PIC12F675") {
        before.insert(before.begin(), {"--device", device, "--socket", cli.path("socket.json"),
                                       "--trace", cli.path("t.txt")});
        before.insert(before.end(), {"erase", GetParam()});
        return cli.on_board(std::move(before));
    }
    CliBench cli;
};
INSTANTIATE_TEST_SUITE_P(areas, erase_of_a_calibrated_part, testing::Values("pgm", "chip"));

TEST_P(erase_of_a_calibrated_part, asks_and_is_cancelled_where_nobody_answers) {
    EXPECT_EQ(run({}), 4);
    EXPECT_EQ(cli.result()["status"], "cancelled");
    ASSERT_EQ(cli.of("question").size(), 1U);
    EXPECT_EQ(cli.of("question")[0]["name"], "calibration");
    EXPECT_EQ(cli.of("question")[0]["answer"], "cancel");
    EXPECT_EQ(cli.of("question")[0]["lines"].back(), "消去しますか？");
    ASSERT_EQ(cli.of("box").size(), 1U);
    EXPECT_EQ(cli.of("box")[0]["icon"], "warning");
    EXPECT_EQ(cli.messages().back(), "消去操作をキャンセルしました。");
    EXPECT_EQ(cli.home.read("t.txt"), "") << "nothing was sent";
}

TEST_P(erase_of_a_calibrated_part, goes_by_the_answer) {
    EXPECT_EQ(run({"--answer", "calibration=cancel"}), 4);
    EXPECT_EQ(run({"--answer", "overwrite=ok"}), 4) << "that is another question";
    EXPECT_NE(run({"--answer", "calibration=ok"}), 4);
    EXPECT_NE(cli.home.read("t.txt"), "") << "the erase was tried";
}

TEST_P(erase_of_a_calibrated_part, is_no_question_for_other_parts) {
    EXPECT_EQ(run({}, "PIC16F84A"), 0) << cli.out;
    EXPECT_TRUE(cli.of("question").empty());
}

TEST(extended_erase_of_a_calibrated_part, keeps_the_word_without_a_question) {
    CliBench cli;
    for (const std::string area : {"chip-erase", "pgm-erase"}) {
        ASSERT_EQ(cli.on_board({"--device", "PIC12F675", "--socket", cli.path("socket.json"),
                                "extend", area}),
                  0)
            << cli.out;
        EXPECT_TRUE(cli.of("question").empty());
        EXPECT_EQ(last_word_of(cli), "3474") << area;
    }
}

// The field shows a value of the catalogue, which nobody has chosen.
TEST(calibration_by_hand, needs_its_value) {
    CliBench cli;
    const auto erase = [&](std::vector<std::string> sets) {
        std::vector<std::string> line{"--device", "PIC12F675", "--socket", cli.path("socket.json")};
        line.insert(line.end(), sets.begin(), sets.end());
        line.insert(line.end(), {"extend", "chip-erase"});
        return cli.on_board(line);
    };
    EXPECT_EQ(erase({"--set", "Chk_12F_CalibData_Select=0"}), 2);
    EXPECT_EQ(erase({"--set", "Chk_12F_CalibData_Select=0", "--set", "Text_Calib_Data=80"}), 0);
    EXPECT_EQ(last_word_of(cli), "3480");
}

}  // namespace
}  // namespace quillon::cli
