// SPDX-License-Identifier: MIT
// ID records by type and device.
#include "hex/id_words.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "hex/word_image_loader.h"
#include "image/fill.h"
#include "image/image_support.h"

namespace quillon {

using test::Bytes;
using test::bytes_of;
using test::data;
using test::device;

namespace {

// Words 0x2A81, 0x1572, 0x3F63, 0x0054.
const std::string kIdRecord = data(0x4000, {0x81, 0x2A, 0x72, 0x15, 0x63, 0x3F, 0x54, 0x00});

std::string id_after(const std::string& text, std::string_view type, std::string_view name,
                     std::string_view shown = "") {
    auto session = device(type, name, 512);
    session->CfgIdMem.fill(0xAA);
    const auto load = load_word_image(text, shown.empty() ? name : shown, *session);
    return (load.ok ? "" : "NG ") + session->IdText + " " + bytes_of(session->CfgIdMem, 0, 7);
}

// The same for a device whose image was cleared, as before every load.
std::string id_for(std::int32_t words, const std::string& text, std::string_view name = "PIC10F200",
                   std::string_view type = "10F2") {
    auto session = device(type, name, words);
    FillIdOnes(*session);
    const auto load = load_word_image(text, name, *session);
    return (load.ok ? "" : "NG ") + session->IdText + " " + bytes_of(session->CfgIdMem, 0, 7);
}

}  // namespace

TEST(IdRecord, counts_by_its_low_digits_on_most_parts) {
    EXPECT_EQ(id_after(kIdRecord, "FLASH8", "PIC16F877A"), "1234 0001000200030004");
    EXPECT_EQ(id_after(kIdRecord, "12F6", "PIC12F675"), "1234 0001000200030004");
    EXPECT_EQ(id_after(kIdRecord, "LDR418", "ZQ-LDR418"), "1234 0001000200030004");
    EXPECT_EQ(id_after(kIdRecord, "18C_00", "PIC18C242"), "1234 0001000200030004");
}

TEST(IdRecord, is_taken_whole_by_the_parts_that_use_it_in_full) {
    for (const auto* name : {"PIC16F882", "PIC16F883", "PIC16F884", "PIC16F886", "PIC16F887",
                             "PIC16F913", "PIC16F914", "PIC16F916", "PIC16F917", "PIC16F946"})
        EXPECT_EQ(id_after(kIdRecord, "FLASH4", name), "1234 2A8115723F630054") << name;
    for (const auto* name : {"PIC16F881", "PIC16F690", "PIC16F8870"})
        EXPECT_EQ(id_after(kIdRecord, "FLASH4", name), "1234 0001000200030004") << name;
}

TEST(IdRecord, is_taken_whole_and_then_fixed_on_12C5_and_10F2) {
    EXPECT_EQ(id_after(kIdRecord, "12C5", "PIC12C508"), "1234 3FF13FF23FF33FF4");
    EXPECT_EQ(id_after(kIdRecord, "10F2", "PIC10F200"), "1234 0FF10FF20FF30FF4");
}

TEST(IdRecord, gets_the_upper_ones_of_the_other_12_bit_types) {
    for (const auto* type : {"5F18", "5F28", "5X18", "5X28"})
        EXPECT_EQ(id_after(kIdRecord, type, "PIC"), "1234 0FF10FF20FF30FF4") << type;
}

TEST(IdRecord, gets_bit_7_on_the_four_parts_that_show_it) {
    for (const auto* name : {"PIC16F73", "PIC16F74", "PIC16F76", "PIC16F77"})
        EXPECT_EQ(id_after(kIdRecord, "FLASH2", name), "1234 3F813F823F833F84") << name;
    // The device that Combo_device shows counts, not the one in the session.
    EXPECT_EQ(id_after(kIdRecord, "FLASH2", "PIC16F72", "PIC16F77"), "1234 3F813F823F833F84");
    EXPECT_EQ(id_after(kIdRecord, "FLASH2", "PIC16F77", "PIC16F72"), "1234 0001000200030004");
}

TEST(IdRecord, keeps_the_case_of_its_digits_in_the_text) {
    EXPECT_EQ(id_after(":084000000a000B000c000F00xx\n", "FLASH8", "PIC16F877A"),
              "aBcF 000A000B000C000F");
}

TEST(IdRecord, that_runs_on_keeps_its_rule_for_the_ID_words) {
    auto session = device("FLASH8", "PIC16F877A", 8192);
    const auto load = load_word_image(data(0x4000, test::Bytes(16, 0x11)), "", *session);
    EXPECT_TRUE(load.ok && load.has_config);
    EXPECT_EQ(bytes_of(session->CfgIdMem, 0, 15), "00010001000100011111111111111111");
}

TEST(IdRecord, of_fewer_than_four_words_leaves_the_others_as_they_were) {
    struct Case {
        std::size_t words;
        const char* digits;
        const char* whole;
    };
    for (const auto& [words, digits, whole] :
         {Case{0, "FFFF 3FFF3FFF3FFF3FFF", "FFFF 3FFF3FFF3FFF3FFF"},
          Case{1, "1FFF 00013FFF3FFF3FFF", "1FFF 2A813FFF3FFF3FFF"},
          Case{2, "12FF 000100023FFF3FFF", "12FF 2A8115723FFF3FFF"},
          Case{3, "123F 0001000200033FFF", "123F 2A8115723F633FFF"}}) {
        Bytes bytes{0x81, 0x2A, 0x72, 0x15, 0x63, 0x3F};
        bytes.resize(2 * words);
        EXPECT_EQ(id_for(512, data(0x4000, bytes), "PIC16F877A", "FLASH8"), digits);
        EXPECT_EQ(id_for(512, data(0x4000, bytes), "PIC16F887", "FLASH4"), whole);
    }
    EXPECT_EQ(id_for(512, data(0x4000, {0x81, 0x2A}), "PIC10F200", "10F2"),
              "1FFF 0FF10FFF0FFF0FFF");
    EXPECT_EQ(id_for(512, data(0x0400, {0x01, 0x00, 0x02, 0x00}), "PIC10F200", "10F2"),
              "12FF 0FF10FF20FFF0FFF");
}

TEST(IdRecord, keeps_a_blank_word_blank) {
    const auto text = data(0x4000, {0xFF, 0x3F, 0x72, 0x15, 0xFF, 0x3F, 0xFF, 0x3F});
    EXPECT_EQ(id_after(text, "FLASH8", "PIC16F877A"), "F2FF 3FFF00023FFF3FFF");
    EXPECT_EQ(id_after(text, "FLASH1", "PIC16F84A"), "F2FF 3FFF00023FFF3FFF");
    // A word with ones in its low byte alone isn't blank.
    EXPECT_EQ(id_after(data(0x4000, {0xFF, 0x1F}), "FLASH8", "PIC16F877A").substr(0, 9),
              "FAAA 000F");
    // The parity bits above the word belong to it.
    EXPECT_EQ(id_after(data(0x4000, {0xFF, 0x7F}), "EPROM2", "PIC16C711").substr(0, 9),
              "FAAA 7FFF");
}

TEST(IdRecord, is_taken_whole_by_full_address) {
    auto session = device("FLASH8", "PIC16F1938", 16384);
    const auto text = test::upper_address(1) + data(0, {0x81, 0x2A, 0x72, 0x15, 0xFF, 0x3F});
    session->CfgIdMem.fill(0xAA);
    ASSERT_TRUE(load_word_image(text, "PIC16F1938", *session, HexAddresses::Full).ok);
    EXPECT_EQ(session->IdText, "12FA");
    EXPECT_EQ(bytes_of(session->CfgIdMem, 0, 7), "2A8115723FFFAAAA");
}

TEST(IdRecord, too_short_for_its_digits_is_a_fault) {
    EXPECT_EQ(id_after(":02400000\n", "FLASH8", "PIC16F877A").substr(0, 3), "NG ");
    EXPECT_EQ(id_after(":084000000100020003\n", "FLASH8", "PIC16F877A").substr(0, 3), "NG ");
    EXPECT_EQ(id_after(":0840000001000200030\n", "12C5", "PIC12C508").substr(0, 3), "NG ");
    EXPECT_EQ(id_after(":08400000010002000300\n", "FLASH4", "PIC16F887").substr(0, 3), "NG ");
    EXPECT_EQ(id_after(":08400000010002000x00040000\n", "FLASH8", "PIC16F877A").substr(0, 3),
              "NG ");
}

TEST(OwnIdAddress, is_each_devices_own) {
    struct Row {
        const char* type;
        const char* name;
        unsigned address;
    };
    const std::vector<Row> rows{
        {"5F28", "PIC16F57", 0x1000},   {"12C5", "PIC12CE519", 0x0800},
        {"12C5", "PIC12C509A", 0x0800}, {"12C5", "PIC12C509", 0x0800},
        {"10F2", "PIC12F509", 0x0800},  {"10F2", "PIC10F222", 0x0800},
        {"10F2", "PIC10F206", 0x0800},  {"10F2", "PIC10F202", 0x0800},
        {"12C5", "PIC12CE518", 0x0400}, {"12C5", "PIC12C508A", 0x0400},
        {"12C5", "PIC12C508", 0x0400},  {"5F18", "PIC16F54", 0x0400},
        {"10F2", "PIC12F508", 0x0400},  {"10F2", "PIC10F220", 0x0400},
        {"10F2", "PIC10F204", 0x0400},  {"10F2", "PIC10F200", 0x0400},
        {"5X18", "PIC16C54C", 0x0400},  {"5X18", "PIC16C56A", 0x0800},
        {"5X18", "PIC16C58B", 0x1000},  {"5X28", "PIC16C55A", 0x0400},
        {"5X28", "PIC16C57C", 0x1000},
    };
    for (const auto& row : rows) {
        for (const unsigned address : {0x0400U, 0x0800U, 0x1000U, 0x0402U, 0x4000U}) {
            const auto session = device(row.type, row.name, 512);
            EXPECT_EQ(is_own_id_address(*session, address), address == row.address)
                << row.name << " " << address;
        }
        // The type must match too, and only the EPROM parts are matched by prefix.
        EXPECT_FALSE(is_own_id_address(*device("FLASH8", row.name, 512), row.address)) << row.name;
        EXPECT_EQ(
            is_own_id_address(*device(row.type, row.name + std::string{"X"}, 512), row.address),
            row.type[1] == 'X')
            << row.name;
    }
}

TEST(OwnIdAddress, holds_the_ID_and_is_stored_as_program_data_as_well) {
    auto session = device("10F2", "PIC10F200", 256);
    session->CfgIdMem.fill(0xAA);
    const auto text = data(0x0400, {0x0A, 0x00, 0x0B, 0x00, 0x0C, 0x00, 0x0D, 0x01});
    ASSERT_TRUE(load_word_image(text, "PIC10F200", *session).ok);
    EXPECT_EQ(session->IdText, "ABCD");
    EXPECT_EQ(bytes_of(session->CfgIdMem, 0, 7), "0FFA0FFB0FFC0FFD");
    EXPECT_EQ(bytes_of(session->PgmMem, 0x400, 0x407), "000A000B000C010D");
}

TEST(OwnIdAddress, of_another_device_is_program_data_only) {
    auto session = device("10F2", "PIC10F200", 256);
    const auto text = data(0x0800, {0x0A, 0x00, 0x0B, 0x00, 0x0C, 0x00, 0x0D, 0x01});
    ASSERT_TRUE(load_word_image(text, "PIC10F200", *session).ok);
    EXPECT_EQ(session->IdText, "FFFF");
    EXPECT_EQ(bytes_of(session->PgmMem, 0x800, 0x801), "000A");
}

// ID words directly behind the program, as an assembler writes them.
TEST(id_behind_the_program, is_taken_where_the_told_place_holds_nothing) {
    const Bytes id{0x01, 0x00, 0xF2, 0x0F, 0x03, 0x00, 0x04, 0x00};
    EXPECT_EQ(id_for(256, data(0x0200, id)), "1234 0FF10FF20FF30FF4");
    EXPECT_EQ(id_for(256, data(0x01FC, {1, 2, 3, 4, 0x0A, 0x00, 0x0B, 0x00})),
              "ABFF 0FFA0FFB0FFF0FFF");
    EXPECT_EQ(id_for(256, data(0x0204, {0x0A, 0x00})), "FFAF 0FFF0FFF0FFA0FFF");
    EXPECT_EQ(id_for(256, data(0x0208, {0x0A, 0x00})), "FFFF 0FFF0FFF0FFF0FFF");
    EXPECT_EQ(id_for(1024, data(0x0800, id), "PIC12F510"), "1234 0FF10FF20FF30FF4");
    EXPECT_EQ(id_for(1024, data(0x0800, id), "PIC16F506", "5F28"), "1234 0FF10FF20FF30FF4");
    EXPECT_EQ(id_for(512, data(0x0400, id), "PIC12C509", "12C5"), "1234 3FF13FF23FF33FF4");
}

TEST(id_behind_the_program, gives_way_to_the_told_place_on_either_side_of_it) {
    const auto behind = data(0x0200, {0x01, 0x00, 0x02, 0x00, 0x03, 0x00, 0x04, 0x00});
    for (const unsigned told : {0x0400U, 0x4000U}) {
        const auto own = data(told, {0x0A, 0x00, 0x0B, 0x00, 0x0C, 0x00, 0x0D, 0x00});
        EXPECT_EQ(id_for(256, own + behind), "ABCD 0FFA0FFB0FFC0FFD") << told;
        EXPECT_EQ(id_for(256, behind + own), "ABCD 0FFA0FFB0FFC0FFD") << told;
    }
}

TEST(id_behind_the_program, is_one_of_the_12_bit_parts_alone) {
    EXPECT_EQ(id_for(1024, data(0x0800, {0x01, 0x00}), "PIC16F84A", "FLASH1"),
              "FFFF 3FFF3FFF3FFF3FFF");
}

}  // namespace quillon
