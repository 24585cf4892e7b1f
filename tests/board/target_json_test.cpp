// SPDX-License-Identifier: MIT
#include "board/target_json.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "board_driver.h"
#include "support/fakes.h"

namespace quillon {
namespace {

using test::facts_10f200;
using test::facts_16f877a;
using test::facts_18f2550;

std::string error_of(const std::string& text) {
    const auto reading = read_target(text);
    EXPECT_FALSE(reading.target.has_value());
    return reading.error;
}

// The text of a sound target with one member replaced.
std::string with(std::string_view pointer, const nlohmann::ordered_json& value) {
    auto json = to_json(blank_target(facts_16f877a()));
    json[nlohmann::ordered_json::json_pointer{std::string{pointer}}] = value;
    return json.dump();
}

TEST(target_json, comes_back_the_same_for_every_core) {
    for (const auto& facts : {facts_16f877a(), facts_10f200(), facts_18f2550()}) {
        auto target = blank_target(facts);
        target.program[3] = 0x0123;
        target.calibration = {0x2149};
        if (!target.eeprom.empty()) target.eeprom.back() = 0x5A;
        const auto reading = read_target(to_json(target).dump());
        ASSERT_TRUE(reading.target.has_value()) << facts.name << ": " << reading.error;
        EXPECT_EQ(*reading.target, target) << facts.name;
    }
}

TEST(target_json, says_of_a_part_that_it_has_a_calibration_word) {
    auto target = blank_target(facts_16f877a());
    EXPECT_FALSE(to_json(target).at("part").contains("osccal_word"));
    target.osccal_word = true;
    EXPECT_TRUE(read_target(to_json(target).dump()).target->osccal_word);
    EXPECT_EQ(error_of(with("/part/osccal_word", 1)), "\"osccal_word\" is neither true nor false");
}

TEST(target_json, says_of_a_part_that_it_knows_the_chip_erase_only) {
    auto target = blank_target(facts_16f877a());
    EXPECT_FALSE(to_json(target).at("part").contains("chip_erase_only"));
    target.chip_erase_only = true;
    EXPECT_TRUE(read_target(to_json(target).dump()).target->chip_erase_only);
}

TEST(target_json, is_readable_rows_of_words) {
    auto target = blank_target(facts_16f877a());
    target.program[17] = 0x0123;
    const auto json = to_json(target);
    EXPECT_EQ(json.at("device"), "PIC16F877A");
    EXPECT_EQ(json.at("identity"), "0E22");
    EXPECT_EQ(json.at("program").size(), 512u);
    EXPECT_EQ(json.at("program")[1].get<std::string>().substr(0, 14), "3FFF 0123 3FFF");
    EXPECT_EQ(json.at("eeprom")[0].get<std::string>().substr(0, 8), "FF FF FF");
}

TEST(target_json, rows_that_are_left_out_are_erased) {
    const auto reading = read_target(with("/program", {"0001 0002"}));
    ASSERT_TRUE(reading.target.has_value()) << reading.error;
    EXPECT_EQ(reading.target->program.size(), 8192u);
    EXPECT_EQ(reading.target->program[1], 2);
    EXPECT_EQ(reading.target->program[2], 0x3FFF);
}

TEST(target_json, tells_what_is_damaged) {
    EXPECT_EQ(error_of("").substr(0, 21), "not a whole JSON text");
    EXPECT_EQ(error_of("{\"device\": \"PIC").substr(0, 21), "not a whole JSON text");
    EXPECT_EQ(error_of("[1]"), "it is no JSON object");
    EXPECT_EQ(error_of("{}"), "\"device\" is missing");
    EXPECT_EQ(error_of(with("/device", 5)), "\"device\" is no text");
    EXPECT_EQ(error_of(with("/part", "x")), "\"core\" is missing");
    EXPECT_EQ(error_of(with("/part/core", "13-bit")),
              "\"core\": \"13-bit\" is none of 12-bit, 14-bit, pic18");
    EXPECT_EQ(error_of(with("/identity", "0E2G")),
              "\"identity\": \"0E2G\" is no hexadecimal number up to FFFF");
    EXPECT_EQ(error_of(with("/eeprom", {"100"})),
              "\"eeprom\": \"100\" is no hexadecimal number up to FF");
    EXPECT_EQ(error_of(with("/eeprom", {5})), "\"eeprom\" holds what is no text");
    EXPECT_EQ(error_of(with("/eeprom", "FF")), "\"eeprom\" is no list");
    EXPECT_EQ(error_of(with("/id", {"3FFF"})), "\"id\" has the wrong number of words");
    EXPECT_EQ(error_of(with("/config", nlohmann::ordered_json::array())),
              "\"config\" and the part's lists differ in length");
    EXPECT_EQ(error_of(with("/part/program_words", -1)),
              "\"program_words\" is no number from 0 to 1048576");
    EXPECT_EQ(error_of(with("/part/program_words", 100000000000)),
              "\"program_words\" is no number from 0 to 1048576");
    EXPECT_EQ(error_of(with("/part/program_words", 16)), "\"program\" has more than 16 cells");
    EXPECT_EQ(error_of(with("/part/one_time", 1)), "\"one_time\" is neither true nor false");
    EXPECT_EQ(error_of(with("/part/algorithm", "")), "\"algorithm\" is not one letter");
}

TEST(target_json, a_target_is_loaded_as_it_was_written) {
    const test::TempFolder folder;
    auto target = blank_target(facts_16f877a());
    target.eeprom[0] = 0x12;
    folder.write("socket.json", target_text(target));
    const auto reading = load_target(folder / "socket.json");
    ASSERT_TRUE(reading.target.has_value()) << reading.error;
    EXPECT_EQ(*reading.target, target);
}

TEST(target_json, a_file_that_cannot_be_read_says_why) {
    const test::TempFolder folder;
    EXPECT_EQ(load_target(folder / "absent.json").error, "there is no such file");
    EXPECT_EQ(load_target(folder.path()).error, "it is a folder");
    EXPECT_EQ(load_target("/dev/full").error, "it is a device or a pipe, not a file");
    EXPECT_EQ(load_target(folder.write("bad.json", "{}")).error, "\"device\" is missing");
}

// A file with a hole takes no room on the disk, but in memory it would take its full size.
TEST(target_json, a_file_over_16_MB_is_refused_before_it_is_read) {
    const test::TempFolder folder;
    const auto file = folder.write("large.json", "{}");
    std::filesystem::resize_file(file, 16 * 1024 * 1024);
    EXPECT_EQ(load_target(file).error, "\"device\" is missing");
    std::filesystem::resize_file(file, std::uintmax_t{1} << 40);
    EXPECT_EQ(load_target(file).error, "it is larger than 16 MB");
}

}  // namespace
}  // namespace quillon
