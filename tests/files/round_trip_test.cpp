// SPDX-License-Identifier: MIT
// Every device of the catalogue: what is saved loads back equal, and other tools read it.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "files/files_bench.h"
#include "hex/hex_writer.h"
#include "hex/hex_zones.h"
#include "hex/id_words.h"
#include "image/fill.h"

namespace quillon {

namespace fs = std::filesystem;
using test::AllDevices;
using test::FilesBench;

namespace {

// Random content, limited to the bits that the device has and to what its ID rule allows.
class RandomImage {
  public:
    explicit RandomImage(const FilesBench& bench, Session& session)
        : session_{session},
          addresses_{hex_addresses(bench.form, session.DeviceName)},
          random_{static_cast<unsigned>(session.PgmWords)} {}

    void fill() {
        if (is_pic18_flash(session_.PgmType))
            fill_pic18();
        else
            fill_words();
    }

  private:
    std::uint8_t byte() { return static_cast<std::uint8_t>(random_()); }

    void fill_pic18() {
        for (std::size_t i = 0; i < program_span(session_); ++i) session_.PgmMem[i] = byte();
        for (std::size_t i = 0; i < static_cast<std::size_t>(session_.EepBytes); ++i)
            session_.EepMem[i] = byte();
        for (auto& id : session_.IdBytes18) id = byte();
        for (std::size_t n = 1; n <= kConfigWords; ++n)
            session_.ConfigWord[n] =
                ((byte() * 256U + byte()) & session_.ConfigMask[n]) | session_.ConfigForce[n];
    }

    void fill_words() {
        const std::uint8_t width = is_12bit(session_.PgmType) ? 0x0F : 0x3F;
        auto& area = session_.CfgIdMem;
        const bool parity = session_.PgmType == ProgrammingType::EPROM2;
        for (std::size_t i = 0; i < program_span(session_); i += 2) {
            session_.PgmMem[i] = byte() & width;
            session_.PgmMem[i + 1] = byte();
            if (parity) ParityFix(session_.PgmMem[i], session_.PgmMem[i + 1]);
        }
        for (std::size_t i = 0; i < eeprom_span(session_); i += 2) {
            session_.EepMem[i] = 0x3F;
            session_.EepMem[i + 1] = byte();
        }
        for (std::size_t i = 0; i < 8; i += 2) {
            area[i] = 0;
            area[i + 1] = byte() & 0x0F;
        }
        fix_id_words(session_.DeviceName, session_);
        fill_config();
    }

    // A file holds one word from configuration word 1 on for a 12-bit part, two by full address,
    // nine otherwise.
    std::size_t behind_config() const {
        if (is_12bit(session_.PgmType)) return 16;
        return addresses_ == HexAddresses::Full ? 18 : 32;
    }

    void fill_config() {
        auto& area = session_.CfgIdMem;
        for (std::size_t i = 14; i < behind_config(); i += 2) {
            area[i] = byte() & 0x3F;
            area[i + 1] = byte();
        }
        auto word = (area[14] * 256U + area[15]) & session_.ConfigMask[1];
        if (session_.PgmType == ProgrammingType::T12C5)
            word |= 0x08;  // else the other bits mean nothing
        word |= session_.ConfigForce[1];
        area[14] = static_cast<std::uint8_t>(word / 256);
        area[15] = static_cast<std::uint8_t>(word % 256);
        if (session_.PgmType == ProgrammingType::EPROM2) area[14] |= 0xC0;
    }

    Session& session_;
    HexAddresses addresses_;
    std::mt19937 random_;
};

// What a file holds of an image.
struct Kept {
    explicit Kept(const Session& session)
        : program(session.PgmMem.begin(),
                  session.PgmMem.begin() + static_cast<std::ptrdiff_t>(program_span(session))),
          eeprom(session.EepMem),
          has_area(!is_pic18_flash(session.PgmType)),
          area(session.CfgIdMem),
          id(session.IdBytes18),
          words(has_area ? PerConfigWord{} : session.ConfigWord) {}

    std::vector<std::uint8_t> program;
    std::array<std::uint8_t, 2048> eeprom;
    bool has_area;
    std::array<std::uint8_t, 257> area;
    std::array<std::uint8_t, 8> id;
    PerConfigWord words;

    void expect(const Kept& wanted) const {
        EXPECT_TRUE(program == wanted.program);
        EXPECT_TRUE(eeprom == wanted.eeprom);
        EXPECT_TRUE(area == wanted.area || !has_area);
        EXPECT_EQ(id, wanted.id);
        EXPECT_EQ(words, wanted.words);
    }
};

bool is_large(const Session& session) {
    return !is_pic18_flash(session.PgmType) && program_span(session) > kFoldedProgramBytes;
}

}  // namespace

TEST(round_trip, brings_back_the_random_image_of_every_device) {
    AllDevices bench;
    std::size_t devices = 0;
    for (const auto& name : bench.session.DeviceList) {
        SCOPED_TRACE(name);
        bench.form.HexUpperAddress.Checked.set(false);
        ASSERT_TRUE(bench.form.Combo_device.select(std::string_view{name}));
        bench.form.HexUpperAddress.Checked.set(is_large(bench.session));
        bench.buffer.mnuPcBufferMemoryClear();
        RandomImage{bench, bench.session}.fill();
        const Kept before{bench.session};
        const auto path = bench.folder / "a.hex";
        fs::remove(path);
        ASSERT_EQ(bench.files.mnuFileSave_Click(path), Outcome::Success);
        bench.shown.clear();
        ASSERT_EQ(bench.files.mnuFileOpen_Click(path), Token::OK);
        Kept{bench.session}.expect(before);
        EXPECT_TRUE(bench.shown.back().starts_with("ファイルロード完了")) << bench.shown.back();
        ++devices;
    }
    EXPECT_EQ(devices, 212U);
}

TEST(round_trip, by_full_address_brings_back_every_enhanced_device) {
    AllDevices bench;
    bench.form.HexUpperAddress.Checked.set(true);
    std::size_t devices = 0;
    for (const auto& name : bench.session.DeviceList) {
        if (!has_full_addresses(name)) continue;
        SCOPED_TRACE(name);
        ASSERT_TRUE(bench.form.Combo_device.select(std::string_view{name}));
        bench.buffer.mnuPcBufferMemoryClear();
        RandomImage{bench, bench.session}.fill();
        const Kept before{bench.session};
        const auto path = bench.folder / "a.hex";
        fs::remove(path);
        ASSERT_EQ(bench.files.mnuFileSave_Click(path), Outcome::Success);
        ASSERT_EQ(bench.files.mnuFileOpen_Click(path), Token::OK);
        Kept{bench.session}.expect(before);
        ++devices;
    }
    EXPECT_EQ(devices, 28U);
}

TEST(round_trip, loses_the_upper_program_of_a_large_device_without_the_option_and_says_so) {
    AllDevices bench;
    for (const auto* name : {"PIC16F1938", "PIC16LF1939"}) {
        SCOPED_TRACE(name);
        ASSERT_TRUE(bench.form.Combo_device.select(std::string_view{name}));
        const auto path = bench.folder / (std::string{name} + ".hex");
        ASSERT_EQ(bench.files.mnuFileSave_Click(path), Outcome::Success);
        EXPECT_NE(bench.shown.back().find("HexUpperAddress"), std::string::npos);
        bench.files.mnuFileOpen_Click(path);
        EXPECT_EQ(bench.session.LoadResult, "NG");
        EXPECT_NE(bench.shown.back().find("HexUpperAddress"), std::string::npos);
    }
}

// The files of all devices at once: a shell for each tool, not one for each file.
TEST(round_trip, files_are_accepted_by_srec_cat_and_objcopy) {
    for (const auto* tool : {"srec_cat --version", "objcopy --version"})
        ASSERT_EQ(std::system((std::string{tool} + " > /dev/null").c_str()), 0) << tool;
    AllDevices bench;
    for (const auto& name : bench.session.DeviceList) {
        bench.form.HexUpperAddress.Checked.set(false);
        ASSERT_TRUE(bench.form.Combo_device.select(std::string_view{name}));
        bench.form.HexUpperAddress.Checked.set(is_large(bench.session));
        bench.buffer.mnuPcBufferMemoryClear();
        RandomImage{bench, bench.session}.fill();
        ASSERT_EQ(bench.files.mnuFileSave_Click(bench.folder / (name + ".hex")), Outcome::Success);
    }
    const auto each = [&](const std::string& command) {
        return std::system(("cd '" + bench.folder.path().string() + "' && for f in *.hex; do " +
                            command + " || exit 1; done")
                               .c_str());
    };
    EXPECT_EQ(each("srec_cat --disable-sequence-warnings \"$f\" -intel -o \"$f.srec\" -intel"), 0);
    EXPECT_EQ(each("objcopy -I ihex -O srec \"$f\" \"$f.srec\""), 0);
    // Proves that the tools can fail: they refuse a record with a wrong check sum.
    std::ofstream{bench.folder / "bad.hex"} << ":020000000130FF\r\n";
    EXPECT_NE(
        each(
            "srec_cat --disable-sequence-warnings \"$f\" -intel -o \"$f.srec\" -intel 2> /dev/null"),
        0);
    EXPECT_NE(each("objcopy -I ihex -O srec \"$f\" \"$f.srec\" 2> /dev/null"), 0);
}

}  // namespace quillon
