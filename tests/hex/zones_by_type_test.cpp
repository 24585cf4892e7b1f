// SPDX-License-Identifier: MIT
// Each zone of the 16-bit address space for each programming type, and each device whose ID has an
// address of its own: the record's effect, after all fixes made at the end of a load.
#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "hex/word_image_loader.h"
#include "image/fill.h"
#include "image/image_support.h"

namespace quillon {

using test::Bytes;
using test::bytes_of;
using test::data;
using test::device;

namespace {

struct TypeRow {
    const char* PgmType;
    const char* program;   // of the word 0x3A5C
    const char* id;        // of the words 0x2A81, 0x1572, 0x3F63, 0x0054
    const char* blank_id;  // of an image whose ID no record names
    const char* word_1;    // of 0xFF71: CfgIdMem[14] and [15]
    unsigned ConfigWord;
    bool config_at_1FFE;
    const char* fuse_id;  // of a fuse block with the ID 1234
};

void PrintTo(const TypeRow& row, std::ostream* stream) { *stream << row.PgmType; }

constexpr const char* kDigits = "0001000200030004";
constexpr const char* kOnes12 = "0FF10FF20FF30FF4";
constexpr const char* kBlank12 = "0FFF0FFF0FFF0FFF";
constexpr const char* kBlank14 = "3FFF3FFF3FFF3FFF";
constexpr const char* kFuse14 = "0071007200730074";

constexpr TypeRow twelve(const char* PgmType) {
    return {PgmType, "3A5C", kOnes12, kBlank12, "3F71", 0x3F71, true, kOnes12};
}
constexpr TypeRow fourteen(const char* PgmType) {
    return {PgmType, "3A5C", kDigits, kBlank14, "3F71", 0x3F71, false, kFuse14};
}

const auto kTypes = testing::Values(
    // Bit 3 of 0x71 is clear: only bits 0, 1, 2 and 4 are left.
    TypeRow{"12C5", "3A5C", "3FF13FF23FF33FF4", "3FFF3FFF3FFF3FFF", "0011", 0x0011, true,
            "3FF13FF23FF33FF4"},
    twelve("10F2"), twelve("5F18"), twelve("5F28"), twelve("5X18"), twelve("5X28"),
    fourteen("12F6"), fourteen("12C6"), fourteen("EPROM"),
    // 0x3A5C: four of its even bits are set, and four of its odd ones.
    TypeRow{"EPROM2", "BA5C", "C00100024003C004", "7FFF7FFF7FFF7FFF", "FF71", 0x3F71, false,
            "40718072C0734074"},
    fourteen("FLASH0"), fourteen("FLASH1"), fourteen("FLASH2"), fourteen("FLASH4"),
    fourteen("FLASH4.9"), fourteen("FLASH8"), fourteen("LDR412"), fourteen("LDR412A"),
    // No fill covers this type: places without a record keep their former content, here zeros.
    TypeRow{"LDR418", "3A5C", kDigits, "0000000000000000", "3F71", 0x3F71, false, kFuse14},
    TypeRow{"18C_00", "3A5C", kDigits, "0000000000000000", "3F71", 0x3F71, false, kFuse14});

class zones_of_type : public testing::TestWithParam<TypeRow> {
  protected:
    zones_of_type() {
        FillProgramOnes(*session);
        FillEepromOnes(*session);
        FillIdOnes(*session);
    }
    bool load(const std::string& text) {
        result = load_word_image(text, "PIC", *session);
        return result.ok;
    }
    std::string id() const { return bytes_of(session->CfgIdMem, 0, 7); }

    std::unique_ptr<Session> session = device(GetParam().PgmType, "PIC", 1024, 64);
    HexLoad result;
};

}  // namespace

TEST_P(zones_of_type, below_4000_are_program) {
    ASSERT_TRUE(load(data(0x0010, {0x5C, 0x3A}) + data(0x3FFE, {0x5C, 0x3A})));
    EXPECT_EQ(bytes_of(session->PgmMem, 0x10, 0x11), GetParam().program);
    EXPECT_EQ(bytes_of(session->PgmMem, 0x3FFE, 0x3FFF), GetParam().program);
    EXPECT_EQ(id(), GetParam().blank_id);
    EXPECT_EQ(session->IdText, "FFFF");
    EXPECT_FALSE(result.has_config);
}

TEST_P(zones_of_type, at_4000_are_the_ID) {
    ASSERT_TRUE(load(data(0x4000, {0x81, 0x2A, 0x72, 0x15, 0x63, 0x3F, 0x54, 0x00})));
    EXPECT_EQ(id(), GetParam().id);
    EXPECT_EQ(session->IdText, "1234");
}

TEST_P(zones_of_type, from_4001_to_41FF_are_ID_and_configuration) {
    ASSERT_TRUE(load(data(0x400E, {0x71, 0xFF, 0xA5, 0xFF, 0x12, 0xFF, 0x34, 0xFF, 0x56, 0xFF})));
    EXPECT_EQ(bytes_of(session->CfgIdMem, 14, 15), GetParam().word_1);
    EXPECT_EQ(bytes_of(session->CfgIdMem, 16, 23), "3FA53F123F34FF56");
    EXPECT_EQ(session->ConfigWord[1], GetParam().ConfigWord);
    EXPECT_EQ(session->ConfigWord[2], 0x3FA5U);
    EXPECT_TRUE(result.has_config);
}

TEST_P(zones_of_type, of_EEPROM_take_the_low_bytes_in_both_forms) {
    for (const unsigned base : {0x4200U, 0x8000U}) {
        ASSERT_TRUE(load(data(base + 4, {0x5A, 0x77, 0xA5, 0x00})));
        EXPECT_EQ(bytes_of(session->EepMem, 4, 7), "3F5A3FA5") << base;
        session->EepMem.fill(0);
    }
}

TEST_P(zones_of_type, from_4400_to_7FFF_are_a_fault) {
    EXPECT_FALSE(load(data(0x4400, {1, 2})));
    EXPECT_FALSE(load(data(0x7FFE, {1, 2})));
}

TEST_P(zones_of_type, without_a_place_change_nothing) {
    ASSERT_TRUE(load(""));
    const auto area = session->CfgIdMem;
    const auto program = session->PgmMem;
    ASSERT_TRUE(load(data(0x8200, {1, 2}) + data(0xFEFE, {1, 2}) + data(0xFF02, {1, 2})));
    EXPECT_EQ(session->CfgIdMem, area);
    EXPECT_TRUE(session->PgmMem == program);
}

TEST_P(zones_of_type, at_FF00_are_the_fuse_block) {
    const Bytes block{0, 0, 0, 0, 0, 0, 0, 0, 0, 3, 1, 0, 0, 0, 0x34, 0x12};
    ASSERT_TRUE(load(data(0xFF00, block)));
    EXPECT_EQ(id(), GetParam().fuse_id);
    EXPECT_EQ(session->ConfigWord[1], 0x3FFFU);
    EXPECT_TRUE(result.has_config);
}

TEST_P(zones_of_type, hold_the_12_bit_configuration_at_1FFE) {
    ASSERT_TRUE(load(data(0x1FFE, {0x1F, 0x02})));
    EXPECT_EQ(result.has_config, GetParam().config_at_1FFE);
    EXPECT_EQ(session->ConfigWord[1] == 0x021F, GetParam().config_at_1FFE);
    EXPECT_EQ(session->PgmMem[0x1FFF], 0x1F);
}

INSTANTIATE_TEST_SUITE_P(word_image, zones_of_type, kTypes);

// Own ID addresses.

namespace {

struct IdRow {
    const char* PgmType;
    const char* name;
    unsigned address;
};

void PrintTo(const IdRow& row, std::ostream* stream) { *stream << row.name; }

class own_id_of : public testing::TestWithParam<IdRow> {};

}  // namespace

TEST_P(own_id_of, is_taken_at_its_address_and_stays_program_data) {
    const auto& [type, name, at] = GetParam();
    for (const unsigned address : {0x0400U, 0x0800U, 0x1000U}) {
        auto session = device(type, name, 256);
        FillIdOnes(*session);
        const auto text =
            data(address, {0x5A, 0x01, 0x6B, 0x02, 0x7C, 0x03, 0x8D, 0x04, 0x9E, 0x05});
        ASSERT_TRUE(load_word_image(text, name, *session).ok);
        EXPECT_EQ(bytes_of(session->PgmMem, address, address + 9), "015A026B037C048D059E");
        const bool own = address == at;
        const std::string high = std::string{type} == "12C5" ? "3F" : "0F";
        std::string words;
        for (const char digit : std::string{own ? "ABCD" : "FFFF"}) words += high + "F" + digit;
        EXPECT_EQ(bytes_of(session->CfgIdMem, 0, 7), words) << address;
        EXPECT_EQ(session->IdText, own ? "ABCD" : "FFFF") << address;
    }
}

INSTANTIATE_TEST_SUITE_P(
    word_image, own_id_of,
    testing::Values(IdRow{"5F28", "PIC16F57", 0x1000}, IdRow{"12C5", "PIC12CE519", 0x0800},
                    IdRow{"12C5", "PIC12C509A", 0x0800}, IdRow{"12C5", "PIC12C509", 0x0800},
                    IdRow{"10F2", "PIC12F509", 0x0800}, IdRow{"10F2", "PIC10F222", 0x0800},
                    IdRow{"10F2", "PIC10F206", 0x0800}, IdRow{"10F2", "PIC10F202", 0x0800},
                    IdRow{"12C5", "PIC12CE518", 0x0400}, IdRow{"12C5", "PIC12C508A", 0x0400},
                    IdRow{"12C5", "PIC12C508", 0x0400}, IdRow{"5F18", "PIC16F54", 0x0400},
                    IdRow{"10F2", "PIC12F508", 0x0400}, IdRow{"10F2", "PIC10F220", 0x0400},
                    IdRow{"10F2", "PIC10F204", 0x0400}, IdRow{"10F2", "PIC10F200", 0x0400},
                    IdRow{"5X18", "PIC16C54", 0x0400}, IdRow{"5X18", "PIC16C54A", 0x0400},
                    IdRow{"5X18", "PIC16C54B", 0x0400}, IdRow{"5X18", "PIC16C54C", 0x0400},
                    IdRow{"5X18", "PIC16C56", 0x0800}, IdRow{"5X18", "PIC16C56A", 0x0800},
                    IdRow{"5X18", "PIC16C58A", 0x1000}, IdRow{"5X18", "PIC16C58B", 0x1000},
                    IdRow{"5X28", "PIC16C55", 0x0400}, IdRow{"5X28", "PIC16C55A", 0x0400},
                    IdRow{"5X28", "PIC16C57", 0x1000}, IdRow{"5X28", "PIC16C57C", 0x1000},
                    // Parts of the same types without an ID address of their own.
                    IdRow{"12C5", "PIC12C518", 0}, IdRow{"12C5", "PIC12C519", 0},
                    IdRow{"12C5", "PIC16C505", 0}, IdRow{"10F2", "PIC12F510", 0},
                    IdRow{"5F18", "PIC16F57", 0}));

}  // namespace quillon
