// SPDX-License-Identifier: MIT
// Every device of the catalogue: showing a configuration word that came from a file never changes
// it. Each code of each field comes in a file of its own.
//
// The words alone matter here, so a device is cut to one line of program: a load of some thousand
// files takes two seconds.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "files/files_bench.h"
#include "image/fill.h"

namespace quillon::test {
namespace {

// No field but protection has more than four bits. A protection field, whose copied bits have up to
// 1024 codes, gives sixteen of them.
constexpr std::size_t kFiles = 16;

std::vector<std::uint32_t> codes_of(std::uint32_t mask) {
    std::vector<std::uint32_t> codes{0};
    for (std::uint32_t code = mask; code != 0; code = (code - 1) & mask) codes.push_back(code);
    return codes;
}

struct Field {
    int word = 0;
    std::string name;
    std::vector<std::uint32_t> codes;
    std::uint32_t mask = 0;

    std::uint32_t code(std::size_t file) const {
        const std::size_t step = std::max<std::size_t>(1, codes.size() / kFiles);
        return codes[file * step % codes.size()];
    }
};

std::vector<Field> fields_of(const Catalogue& catalogue) {
    std::vector<Field> fields;
    for (const auto& option : catalogue.options()) {
        if (!fields.empty() && fields.back().name == option.name) continue;
        fields.push_back({option.word, option.name, codes_of(option.mask), option.mask});
    }
    return fields;
}

std::uint8_t low(std::uint32_t word) { return static_cast<std::uint8_t>(word); }
std::uint8_t high(std::uint32_t word) { return static_cast<std::uint8_t>(word >> 8U); }

struct KeptWords : AllDevices {
    void select(std::string_view name) {
        ASSERT_TRUE(form.Combo_device.select(name));
        session.PgmWords = session.PgmWordsCat = 8;
        session.EepBytes = session.EepBytesCat = 0;
        fields = fields_of(catalogue);
        form.HexFileCheck.Checked.set(false);
    }

    // The words of file number `file`: code number `file` of each field, and what isn't in a field
    // as the catalogue has it.
    PerConfigWord words(std::size_t file) const {
        PerConfigWord words{};
        for (std::size_t n = 1; n <= kConfigWords; ++n)
            words[n] = (session.ConfigMask[n] & session.ConfigWidth[n]) | session.ConfigForce[n];
        for (const auto& field : fields) {
            auto& word = words[static_cast<std::size_t>(field.word)];
            word = (word & ~field.mask) | field.code(file);
        }
        return words;
    }

    std::string text_with(const PerConfigWord& words) const {
        if (is_12bit(session.PgmType)) return data(0x1FFE, {low(words[1]), high(words[1])});
        if (!is_pic18_flash(session.PgmType))
            return data(0x400E, {low(words[1]), high(words[1]), low(words[2]), high(words[2])});
        return upper_address(0x30) + data(0, pic18_bytes(words));
    }
    static Bytes pic18_bytes(const PerConfigWord& words) {
        Bytes bytes;
        for (std::size_t n = 1; n <= kConfigWords; ++n) {
            bytes.push_back(low(words[n]));
            bytes.push_back(high(words[n]));
        }
        return bytes;
    }

    // The beginnings of the configuration records that a saved file must hold.
    std::vector<std::string> records_of(const PerConfigWord& words) const {
        std::uint32_t word = words[1];
        // With bit 3 clear, only bits 0, 1, 2 and 4 of such a part have a meaning.
        if (session.PgmType == ProgrammingType::T12C5 && (word & 0x08) == 0) word &= 0x17;
        if (session.PgmType == ProgrammingType::EPROM2) word |= 0xC000;
        const Bytes bytes{low(word), high(word)};
        if (is_pic18_flash(session.PgmType)) return {data(0, pic18_bytes(words))};
        if (is_12bit(session.PgmType)) return {data(0x1FFE, bytes)};
        std::vector<std::string> records{data(0x400E, bytes)};
        if (session.ConfigPresent[2])
            records.push_back(":10401000" + hex_bytes(Bytes{low(words[2]), high(words[2])}));
        return records;
    }

    void load(const std::string& text) {
        dialogs.chosen_file = folder.write("in.hex", text);
        ASSERT_EQ(files.mnuFileDirectOpen({}), Token::OK);
    }
    std::string save() {
        const auto path = folder / "out.hex";
        std::filesystem::remove(path);
        EXPECT_EQ(files.mnuFileSave_Click(path), Outcome::Success);
        return folder.read("out.hex");
    }

    static void expect_in(const std::string& saved, const std::vector<std::string>& records) {
        for (const auto& record : records)
            EXPECT_NE(saved.find(record), std::string::npos) << record << "in\n" << saved;
    }
    void expect_present_words(const PerConfigWord& before) const {
        for (std::size_t n = 1; n <= kConfigWords; ++n)
            EXPECT_TRUE(!session.ConfigPresent[n] ||
                        session.ConfigWord[n] == (before[n] | session.ConfigForce[n]))
                << "CONFIG" << n << " " << hex(session.ConfigWord[n], 4);
    }

    std::vector<Field> fields;
};

// First a file is loaded. Then each word is computed from its cells, as after a user's choice of an
// option, which restores the bits that are always 1.
TEST(configuration_words, of_every_device_outlive_a_load_and_a_choice_in_the_grid) {
    KeptWords bench;
    std::size_t rebuilt = 0;
    for (const auto& name : bench.session.DeviceList) {
        SCOPED_TRACE(name);
        ASSERT_NO_FATAL_FAILURE(bench.select(name));
        for (std::size_t file = 0; file < kFiles; ++file) {
            const auto words = bench.words(file);
            ASSERT_NO_FATAL_FAILURE(bench.load(bench.text_with(words)));
            bench.expect_in(bench.save(), bench.records_of(words));
            if (bench.config.ProtectMixed()) continue;
            const auto before = bench.session.ConfigWord;
            for (int n = 1; n <= kConfigWords; ++n) bench.config.ConfigGridChanged(n);
            bench.expect_present_words(before);
            ++rebuilt;
        }
    }
    EXPECT_EQ(bench.session.DeviceList.size(), 212U);
    EXPECT_GT(rebuilt, 212U * kFiles / 2);
}

}  // namespace
}  // namespace quillon::test
