// SPDX-License-Identifier: MIT
// Files that a user may open by mistake, and damaged contents: each is reported clearly, nothing
// crashes or hangs, and the file at hand can be loaded again at once.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "files/files_bench.h"
#include "hex/text_file.h"
#include "support/ordinary_user.h"

namespace quillon {

namespace fs = std::filesystem;
using test::data;
using test::FilesBench;

namespace {

constexpr std::string_view kNotOpened = "ファイルをオープンできませんでした。";
constexpr std::string_view kNotText =
    "ファイルをオープンできませんでした。|テキスト形式のＨＥＸファイルではありません。";
constexpr std::string_view kTooLarge =
    "ファイルをオープンできませんでした。|ＨＥＸファイルとしてはサイズが大きすぎます。";
constexpr std::string_view kChanging =
    "ファイルをオープンできませんでした。"
    "|読み込み中にファイルの大きさが変わりました。書き込みが終わってから開いてください。";
constexpr std::string_view kSkipped = "行目はＨＥＸデータでないので読み飛ばしました。";
constexpr std::string_view kCleared = "バッファメモリはクリアされました。";

const std::string kWord = data(0, {0x34, 0x12}) + test::kEndRecord;

// A bench with a valid file at hand, which no bad file may replace.
struct BadFileBench : FilesBench {
    BadFileBench() { open(kWord, "work/good.hex"); }

    // The last text shown, or the one before it if the file check has added its findings.
    std::string told() const {
        const bool checked = shown.back().find("ファイル検査：") != std::string::npos;
        return shown.at(shown.size() - (checked ? 2 : 1));
    }
    // The last text without the line about the cleared image.
    std::string refusal() const {
        const bool cleared = shown.back() == kCleared;
        return shown.at(shown.size() - (cleared ? 2 : 1));
    }
    void expect_refused(const fs::path& path, std::string_view wanted) {
        SCOPED_TRACE(path.string().substr(0, 80));
        const auto settings = store.values;
        shown.clear();
        EXPECT_EQ(files.mnuFileOpen_Click(path), Token::NG);
        EXPECT_EQ(shown.back(), kCleared);
        EXPECT_EQ(refusal(), wanted);
        EXPECT_EQ(session.LoadResult, "NG");
        EXPECT_EQ(session.HexFilePath, (folder / "work/good.hex").string());
        EXPECT_EQ(form.Caption.get(), "good.hex  Quillon V4 V4.0.1  ");
        EXPECT_EQ(store.values, settings);
        expect_usable();
    }
    void expect_usable() {
        session.HexFilePath = (folder / "work/good.hex").string();
        EXPECT_EQ(files.open_directly(), Token::OK);
        EXPECT_EQ(first_program_line(), "000000: 1234 3FFF 3FFF 3FFF 3FFF 3FFF 3FFF 3FFF");
        EXPECT_EQ(shown.back(), "ファイルロード完了");
    }
};

// UTF-16 of an ASCII text.
std::string utf16(std::string_view text, bool big_endian, bool mark) {
    const auto unit = [big_endian](char high, char low) {
        return big_endian ? std::string{high, low} : std::string{low, high};
    };
    std::string bytes = mark ? unit('\xFE', '\xFF') : "";
    for (const char c : text) bytes += unit('\0', c);
    return bytes;
}

}  // namespace

TEST(bad_file, that_is_no_file_is_refused) {
    BadFileBench bench;
    const auto pipe = bench.folder / "pipe.hex";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    fs::create_symlink(bench.folder / "loop.hex", bench.folder / "loop.hex");
    fs::create_symlink(bench.folder / "nowhere", bench.folder / "dangling.hex");
    fs::create_symlink("/dev/zero", bench.folder / "zero.hex");
    for (const auto& path :
         {fs::path{"/dev/zero"}, fs::path{"/dev/null"}, fs::path{"/dev/full"}, fs::path{"/dev/tty"},
          pipe, bench.folder / "loop.hex", bench.folder / "dangling.hex", bench.folder / "zero.hex",
          bench.folder / "work/good.hex/a.hex", bench.folder / std::string(300, 'n'),
          bench.folder / std::string(5000, 'n')})
        bench.expect_refused(path, kNotOpened);
}

TEST(bad_file, of_a_gigabyte_is_refused_without_being_read) {
    BadFileBench bench;
    fs::resize_file(bench.folder.write("a.hex", kWord), std::uintmax_t{1} << 30U);
    bench.expect_refused(bench.folder / "a.hex", kTooLarge);
}

TEST(bad_file, that_is_closed_to_the_user_is_refused) {
    BadFileBench bench;
    const auto path = bench.folder.write("closed.hex", kWord);
    fs::permissions(bench.folder.path(), fs::perms::all);
    fs::permissions(path, fs::perms::none);
    Token result = Token::OK;
    {
        const test::OrdinaryUser user;
        result = bench.files.mnuFileOpen_Click(path);
    }
    EXPECT_EQ(result, Token::NG);
    EXPECT_EQ(bench.refusal(), kNotOpened);
    bench.expect_usable();
}

TEST(bad_file, in_UTF_16_or_with_NULs_is_refused_as_no_text) {
    BadFileBench bench;
    const std::string nul(1, '\0');
    for (const auto& text :
         {utf16(kWord, false, true), utf16(kWord, true, true), utf16(kWord, false, false),
          utf16(kWord, true, false), nul, nul + kWord, kWord + nul,
          // What a crash of the host may leave of a file.
          kWord + std::string(4096, '\0'), std::string(4096, '\0'),
          data(0, {0x34, 0x12}).insert(11, nul) + test::kEndRecord})
        bench.expect_refused(bench.folder.write("a.hex", text), kNotText);
}

// The kernel's own files report a wrong size, like a file that changes while it is read.
TEST(bad_file, that_holds_more_or_less_than_its_size_is_refused) {
    BadFileBench bench;
    ASSERT_EQ(fs::file_size("/proc/self/status"), 0U);
    bench.expect_refused("/proc/self/status", kChanging);
    const fs::path shorter{"/sys/devices/system/cpu/online"};
    if (fs::exists(shorter)) bench.expect_refused(shorter, kChanging);
}

// A compiler rewrites the file again and again while it is opened. Half a file may load, but then
// the check warns that its end is missing.
TEST(bad_file, that_shrinks_and_grows_while_it_is_read_is_never_half_of_it_and_well) {
    BadFileBench bench;
    constexpr unsigned kRecords = 1000;
    std::string text;
    for (unsigned i = 0; i < kRecords; ++i) text += data(16 * i, test::Bytes(16, 0x12));
    const auto half = text.size() / 2;
    text += test::kEndRecord;
    const auto path = bench.folder.write("a.hex", text);
    std::atomic<bool> stop = false;
    std::thread writer{[&] {
        while (!stop) {
            fs::resize_file(path, half);
            std::ofstream file{path, std::ios::binary | std::ios::app};
            file.write(text.data() + half, static_cast<std::streamsize>(text.size() - half));
        }
    }};
    int whole = 0, other = 0;
    for (int i = 0; i < 60; ++i) {
        bench.shown.clear();
        const auto result = bench.files.mnuFileOpen_Click(path);
        const bool good = result == Token::OK && bench.shown.back() == "ファイルロード完了";
        ++(good ? whole : other);
        if (!good) {
            // A page that is cut off while it is copied gives zeros.
            EXPECT_TRUE(bench.refusal() == kChanging || bench.refusal() == kNotText ||
                        bench.refusal().starts_with("red ファイル検査："))
                << bench.refusal();
            continue;
        }
        EXPECT_EQ(bench.session.PgmMem[16 * kRecords - 1], 0x12);
        if (HasFailure()) break;
    }
    stop = true;
    writer.join();
    EXPECT_EQ(whole + other, 60);
    bench.expect_usable();
}

TEST(bad_file, of_10_MB_of_garbage_lines_is_told_in_a_text_of_bearable_length) {
    BadFileBench bench;
    std::string text;
    while (text.size() < (std::size_t{10} << 20U))
        text += "garbage line " + std::to_string(text.size()) + " \xE3\x81\x82\n";
    EXPECT_EQ(bench.open(text), Token::OK);
    const auto told = bench.told();
    EXPECT_TRUE(told.starts_with("1、2、3、4、")) << told.substr(0, 100);
    EXPECT_TRUE(told.ends_with("、9999、10000、…" + std::string{kSkipped}));
    EXPECT_EQ(bench.first_program_line(), "000000: 3FFF 3FFF 3FFF 3FFF 3FFF 3FFF 3FFF 3FFF");
    bench.expect_usable();
}

TEST(bad_file, of_10_MB_of_broken_records_fails_at_the_first) {
    BadFileBench bench;
    std::string text;
    while (text.size() < (std::size_t{10} << 20U)) text += ":1000000012QQ\n";
    EXPECT_EQ(bench.open(text), Token::NG);
    EXPECT_EQ(bench.told(),
              "ファイルをロードできませんでした。"
              "|ＰＩＣ１８用のファイルをロードしようとした可能性があります。");
    bench.expect_usable();
}

TEST(bad_file, of_one_line_of_16_MB_is_loaded_or_skipped_as_a_short_one_is) {
    BadFileBench bench;
    EXPECT_EQ(bench.open(std::string(kMostTextBytes, 'x')), Token::OK);
    EXPECT_EQ(bench.told(), "1" + std::string{kSkipped});
    std::string record = ":020000003412B8";
    record.resize(kMostTextBytes, '0');
    EXPECT_EQ(bench.open(record), Token::OK);
    EXPECT_EQ(bench.told(), "ファイルロード完了");
    EXPECT_EQ(bench.session.PgmMem[0], 0x12);
    EXPECT_EQ(bench.session.PgmMem[2], 0x3F);
    record[0] = '"';
    EXPECT_EQ(bench.open(record), Token::OK);
    EXPECT_EQ(bench.told(), "1" + std::string{kSkipped});
    bench.expect_usable();
}

TEST(bad_file, of_a_million_separators_is_told_in_a_text_of_bearable_length) {
    BadFileBench bench;
    for (const char separator : {'\n', '\r', ',', '"'}) {
        EXPECT_EQ(bench.open(std::string(1'000'000, separator)), Token::OK);
        EXPECT_LT(bench.told().size(), 100'000U);
        EXPECT_TRUE(bench.told().ends_with(kSkipped)) << bench.told().substr(0, 100);
    }
    bench.expect_usable();
}

TEST(bad_file, with_a_device_name_of_megabytes_is_asked_about_in_a_box_of_bearable_size) {
    BadFileBench bench;
    const std::string endless = kWord + ";PIC" + std::string(std::size_t{8} << 20U, '9') + "\r\n";
    EXPECT_EQ(bench.open(endless), Token::OK);
    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    const auto& text = bench.dialogs.boxes[0].text;
    EXPECT_EQ(text, "HEXファイル内に、サポート外のデバイス名(PIC" + std::string(61, '9') +
                        "…)が設定されています。\r\n"
                        "現在のデバイス設定のままHEXファイルをロードします。");
    EXPECT_EQ(bench.session.PgmMem[0], 0x12);
    bench.expect_usable();
}

TEST(bad_file, with_all_kinds_of_line_ends_is_read_line_by_line) {
    BadFileBench bench;
    const auto plain = [](unsigned address, std::uint8_t value) {
        const auto text = data(address, {value, 0x12});
        return text.substr(0, text.size() - 2);
    };
    // An empty line counts, as it does in an editor.
    EXPECT_EQ(bench.open(plain(0, 1) + "\r\n" + plain(2, 2) + "\n" + plain(4, 3) + "\r" +
                         plain(6, 4) + "\n\r" + ":0200080005120 \n" + ":00000001FF\r\r\n"),
              Token::OK);
    EXPECT_EQ(bench.first_program_line(), "000000: 1201 1202 1203 1204 1205 3FFF 3FFF 3FFF");
    EXPECT_EQ(bench.told(), "5、8" + std::string{kSkipped});
    EXPECT_NE(bench.shown.back().find("1件（最初は6行目"), std::string::npos) << bench.shown.back();
    bench.expect_usable();
}

TEST(bad_file, with_a_final_end_of_file_sign_loads_and_names_it_as_skipped) {
    BadFileBench bench;
    EXPECT_EQ(bench.open(kWord + "\x1A"), Token::OK);
    EXPECT_EQ(bench.shown.back(), "3" + std::string{kSkipped});
    EXPECT_EQ(bench.session.PgmMem[0], 0x12);
    // Here it follows a record's check sum, where nothing is read.
    EXPECT_EQ(bench.open(data(0, {0x34, 0x12}) + ":00000001FF\x1A"), Token::OK);
    EXPECT_EQ(bench.shown.back(), "ファイルロード完了");
    bench.expect_usable();
}

TEST(bad_file, at_hand_that_has_become_a_folder_or_a_pipe_is_refused_by_a_reload) {
    BadFileBench bench;
    const auto path = bench.folder / "work/good.hex";
    fs::remove(path);
    EXPECT_EQ(bench.files.open_directly(), Token::NG);
    EXPECT_EQ(bench.refusal(), kNotOpened);
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    EXPECT_EQ(bench.files.open_directly(), Token::NG);
    EXPECT_EQ(bench.shown.back(), kNotOpened);
    fs::remove(path);
    fs::create_directory(path);
    EXPECT_EQ(bench.files.open_directly(), Token::NG);
    EXPECT_EQ(bench.shown.back(), kNotOpened);
    EXPECT_EQ(bench.session.HexFilePath, path.string());
    fs::remove(path);
    bench.folder.write("work/good.hex", kWord);
    bench.expect_usable();
}

}  // namespace quillon
