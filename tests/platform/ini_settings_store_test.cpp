// SPDX-License-Identifier: MIT
#include "platform/ini_settings_store.h"

#include <gtest/gtest.h>

#include <QSettings>
#include <filesystem>

#include "support/fakes.h"
#include "support/no_room.h"

namespace quillon {
namespace {

namespace fs = std::filesystem;
using test::TempFolder;

class IniSettingsStore_ : public testing::Test {
  protected:
    std::string file() const { return folder.read("settings.ini"); }
    // What a later run reads from the file.
    std::optional<std::string> later(std::string_view key) const {
        return IniSettingsStore{folder.path()}.read("Settings6", key);
    }
    TempFolder folder;
};

TEST_F(IniSettingsStore_, has_nothing_where_there_is_no_file_yet) {
    IniSettingsStore store{folder.path()};
    EXPECT_EQ(store.read("Settings6", "ComNo"), std::nullopt);
    EXPECT_EQ(store.problem(), "");
    EXPECT_FALSE(fs::exists(folder / "settings.ini"));
}

TEST_F(IniSettingsStore_, keeps_section_and_key_in_a_file_that_a_user_can_read) {
    IniSettingsStore store{folder.path()};
    EXPECT_TRUE(store.write("Settings6", "ComNo", "3"));
    EXPECT_EQ(file(), "[Settings6]\nComNo=3\n");
    EXPECT_EQ(later("ComNo"), "3");
}

TEST_F(IniSettingsStore_, makes_its_folder) {
    IniSettingsStore store{folder / "a/b"};
    EXPECT_TRUE(store.write("Settings6", "ComNo", "3"));
    EXPECT_TRUE(fs::exists(folder / "a/b/settings.ini"));
}

TEST_F(IniSettingsStore_, gives_every_text_back_as_it_was) {
    for (const std::string text :
         {"", " ", " a ", "c:\\仕事\\a b    PIC16F877A", "a,b, c", "a\tb", "\"q\"", "a;b#c", "@at",
          "@Invalid()", "%20", "[x]=y", "100", "a\r\nb", "true", "製作確認資料.pdf"}) {
        {
            IniSettingsStore store{folder.path()};
            EXPECT_TRUE(store.write("Settings6", "OPEN_DIR1", text)) << text;
            EXPECT_EQ(store.read("Settings6", "OPEN_DIR1"), text);
        }
        EXPECT_EQ(later("OPEN_DIR1"), text) << text;
    }
}

// These are the words with which QSettings marks its own types.
TEST_F(IniSettingsStore_, takes_no_value_for_anything_but_a_text) {
    const std::string variant = R"(@Variant(\0\0\0\x7f\0\0\0\xfQDateTime))";
    folder.write("settings.ini", "[Settings6]\nA=" + variant +
                                     "\nB=@Invalid()\nC=@ByteArray(abc)\nD=@Rect(1 2 3 4)\n");
    EXPECT_TRUE(later("A").value_or("").starts_with("@Variant("));
    EXPECT_EQ(later("B"), "@Invalid()");
    EXPECT_EQ(later("C"), "@ByteArray(abc)");
    EXPECT_EQ(later("D"), "@Rect(1 2 3 4)");
}

TEST_F(IniSettingsStore_, reads_and_writes_the_form_of_earlier_versions) {
    const QString file = QString::fromStdString((folder / "settings.ini").string());
    for (const QString text : {"", " a ", "c:\\仕事\\a b    PIC16F877A", "a,b, c", "a\tb", "\"q\"",
                               "a;b#c", "@at", "%20", "[x]=y",
                               "\x01"
                               "1F",
                               "a\r\nb", "ﾌﾟﾛ😀", "\x7f"}) {
        QSettings{file, QSettings::IniFormat}.setValue("Settings6/OPEN_DIR1", text);
        EXPECT_EQ(later("OPEN_DIR1"), text.toStdString());
        IniSettingsStore{folder.path()}.write("Settings6", "OPEN_DIR2", text.toStdString());
        EXPECT_EQ(QSettings(file, QSettings::IniFormat).value("Settings6/OPEN_DIR2").toString(),
                  text);
    }
}

TEST_F(IniSettingsStore_, keeps_another_programs_changes_and_a_hands_comments) {
    folder.write("settings.ini", "; mine\n[Settings6]\nComNo=3\n");
    IniSettingsStore store{folder.path()};
    EXPECT_TRUE(IniSettingsStore{folder.path()}.write("Settings6", "SkipMode", "1"));
    EXPECT_TRUE(store.write("Settings6", "ComNo", "4"));
    EXPECT_EQ(file(), "; mine\n\n[Settings6]\nComNo=4\nSkipMode=1\n");
}

TEST_F(IniSettingsStore_, keeps_a_link_in_its_place) {
    fs::create_directory(folder / "real");
    folder.write("real/settings.ini", "[Settings6]\nComNo=3\n");
    fs::create_symlink(folder / "real/settings.ini", folder / "settings.ini");
    EXPECT_TRUE(IniSettingsStore{folder.path()}.write("Settings6", "ComNo", "4"));
    EXPECT_TRUE(fs::is_symlink(fs::symlink_status(folder / "settings.ini")));
    EXPECT_EQ(folder.read("real/settings.ini"), "[Settings6]\nComNo=4\n");
}

TEST_F(IniSettingsStore_, says_why_it_cannot_write) {
    folder.write("settings.ini", "[Settings6]\nComNo=3\n");
    IniSettingsStore store{folder.path()};
    {
        const test::NoRoom disk{10};
        EXPECT_FALSE(store.write("Settings6", "ComNo", "4"));
        EXPECT_NE(store.problem().find("File too large"), std::string::npos) << store.problem();
    }
    fs::permissions(folder / "settings.ini", fs::perms::owner_read);
    EXPECT_FALSE(store.write("Settings6", "ComNo", "5"));
    EXPECT_NE(store.problem().find("Permission denied"), std::string::npos) << store.problem();
    EXPECT_EQ(store.read("Settings6", "ComNo"), "5") << "for this run";
}

// A file larger than any settings would fill the memory.
TEST_F(IniSettingsStore_, reads_no_file_that_is_far_too_large) {
    folder.write("settings.ini", "[Settings6]\nComNo=3\n");
    fs::resize_file(folder / "settings.ini", std::uintmax_t{1} << 40);
    IniSettingsStore store{folder.path()};
    EXPECT_EQ(store.read("Settings6", "ComNo"), std::nullopt);
    EXPECT_NE(store.problem(), "");
    EXPECT_FALSE(store.write("Settings6", "ComNo", "4"));
}

TEST_F(IniSettingsStore_, keeps_keys_apart_that_hold_separators) {
    {
        IniSettingsStore store{folder.path()};
        EXPECT_TRUE(store.write("HostPorts", "/dev/a", "1"));
        EXPECT_TRUE(store.write("HostPorts", "\\dev\\a", "2"));
        EXPECT_TRUE(store.write("HostPorts", "%2Fdev%2Fa", "3"));
    }
    IniSettingsStore store{folder.path()};
    EXPECT_EQ(store.read("HostPorts", "/dev/a"), "1");
    EXPECT_EQ(store.read("HostPorts", "\\dev\\a"), "2");
    EXPECT_EQ(store.read("HostPorts", "%2Fdev%2Fa"), "3");
}

TEST_F(IniSettingsStore_, reads_a_comma_that_a_hand_has_written_without_quotes) {
    folder.write("settings.ini", "[Settings6]\nOPEN_DIR0=/home/a, b\n");
    EXPECT_EQ(later("OPEN_DIR0"), "/home/a, b");
}

TEST_F(IniSettingsStore_, leaves_other_sections_and_keys_alone) {
    folder.write("settings.ini", "[Other]\nx=1\n\n[Settings6]\nComNo=3\nSkipMode=1\n");
    {
        IniSettingsStore store{folder.path()};
        EXPECT_TRUE(store.write("Settings6", "ComNo", "4"));
    }
    IniSettingsStore store{folder.path()};
    EXPECT_EQ(store.read("Other", "x"), "1");
    EXPECT_EQ(store.read("Settings6", "SkipMode"), "1");
    EXPECT_EQ(store.read("Settings6", "ComNo"), "4");
}

TEST_F(IniSettingsStore_, does_not_touch_the_file_for_a_value_that_stands_in_it) {
    IniSettingsStore store{folder.path()};
    EXPECT_TRUE(store.write("Settings6", "ComNo", "3"));
    const fs::file_time_type long_ago{};
    fs::last_write_time(folder / "settings.ini", long_ago);
    EXPECT_TRUE(store.write("Settings6", "ComNo", "3"));
    EXPECT_EQ(fs::last_write_time(folder / "settings.ini"), long_ago);
}

TEST_F(IniSettingsStore_, reads_a_damaged_file_as_far_as_it_goes_and_says_so) {
    folder.write("settings.ini", "[Settings6]\nComNo=3\nrubbish\n");
    IniSettingsStore store{folder.path()};
    EXPECT_EQ(store.read("Settings6", "ComNo"), "3");
    EXPECT_TRUE(store.problem().starts_with("設定ファイルが壊れているため、")) << store.problem();
    EXPECT_NE(store.problem().find((folder / "settings.ini").string()), std::string::npos);
}

TEST_F(IniSettingsStore_, keeps_a_damaged_file_beside_the_first_one_that_it_writes) {
    const std::string damaged = "[Settings6]\nComNo=3\nrubbish\n";
    folder.write("settings.ini", damaged);
    IniSettingsStore store{folder.path()};
    EXPECT_EQ(file(), damaged);  // reading changes nothing
    EXPECT_TRUE(store.write("Settings6", "SkipMode", "1"));
    EXPECT_TRUE(store.write("Settings6", "mnuComMode1", "1"));
    EXPECT_EQ(folder.read("settings.ini.bak"), damaged);
    EXPECT_FALSE(fs::exists(folder / "settings.ini.bak2"));
    EXPECT_EQ(later("ComNo"), "3");
    EXPECT_EQ(later("SkipMode"), "1");
    EXPECT_EQ(later("mnuComMode1"), "1");
    EXPECT_EQ(IniSettingsStore{folder.path()}.problem(), "");
}

TEST_F(IniSettingsStore_, keeps_an_earlier_damaged_file_too) {
    folder.write("settings.ini.bak", "first");
    folder.write("settings.ini", "rubbish\n");
    IniSettingsStore store{folder.path()};
    EXPECT_TRUE(store.write("Settings6", "SkipMode", "1"));
    EXPECT_EQ(folder.read("settings.ini.bak"), "first");
    EXPECT_EQ(folder.read("settings.ini.bak2"), "rubbish\n");
}

TEST_F(IniSettingsStore_, takes_a_file_of_zeros_or_of_a_picture_for_damaged) {
    for (const std::string& content :
         {std::string(300, '\0'), std::string("\x89PNG\r\n\x1a\n\0\0", 10)}) {
        TempFolder own;
        own.write("settings.ini", content);
        IniSettingsStore store{own.path()};
        EXPECT_EQ(store.read("Settings6", "ComNo"), std::nullopt);
        EXPECT_NE(store.problem(), "");
        EXPECT_TRUE(store.write("Settings6", "ComNo", "3"));
        EXPECT_EQ(own.read("settings.ini.bak"), content);
    }
}

TEST_F(IniSettingsStore_, leaves_a_read_only_file_as_it_is_and_says_so) {
    folder.write("settings.ini", "[Settings6]\nComNo=3\n");
    fs::permissions(folder / "settings.ini", fs::perms::owner_read);
    IniSettingsStore store{folder.path()};
    EXPECT_EQ(store.read("Settings6", "ComNo"), "3");
    EXPECT_FALSE(store.write("Settings6", "ComNo", "4"));
    EXPECT_FALSE(store.write("Settings6", "ComNo", "4"));
    EXPECT_EQ(file(), "[Settings6]\nComNo=3\n");
    EXPECT_TRUE(store.problem().starts_with("設定ファイルに書き込むことができませんでした。"))
        << store.problem();
}

TEST_F(IniSettingsStore_, keeps_the_whole_file_where_the_disk_is_full_and_saves_again_later) {
    const std::string before = "[Settings6]\nComNo=3\nSkipMode=1\n";
    folder.write("settings.ini", before);
    IniSettingsStore store{folder.path()};
    {
        const test::NoRoom disk{before.size() / 2};
        EXPECT_FALSE(store.write("Settings6", "ComNo", "4"));
        EXPECT_TRUE(store.problem().starts_with("設定ファイルに書き込むことができませんでした。"));
        EXPECT_EQ(file(), before);
    }
    EXPECT_TRUE(store.write("Settings6", "ComNo", "5"));
    EXPECT_EQ(later("ComNo"), "5");
    EXPECT_EQ(later("SkipMode"), "1");
}

TEST_F(IniSettingsStore_, answers_false_where_the_folder_cannot_be_made) {
    folder.write("file", "x");
    IniSettingsStore store{folder / "file"};
    EXPECT_EQ(store.read("Settings6", "ComNo"), std::nullopt);
    EXPECT_FALSE(store.write("Settings6", "ComNo", "4"));
    EXPECT_FALSE(store.write("Settings6", "ComNo", "4"));
    EXPECT_NE(store.problem(), "");
    EXPECT_EQ(folder.read("file"), "x");
}

TEST_F(IniSettingsStore_, goes_on_with_the_defaults_where_a_folder_stands_in_the_files_place) {
    fs::create_directory(folder / "settings.ini");
    IniSettingsStore store{folder.path()};
    EXPECT_EQ(store.read("Settings6", "ComNo"), std::nullopt);
    EXPECT_NE(store.problem(), "");
    EXPECT_FALSE(store.write("Settings6", "ComNo", "4"));
}

}  // namespace
}  // namespace quillon
