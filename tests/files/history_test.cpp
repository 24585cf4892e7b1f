// SPDX-License-Identifier: MIT
// The five entries of the file history.
#include "files/history.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/fakes.h"

namespace quillon {

namespace {

struct Bench {
    std::vector<std::string> entries() const {
        std::vector<std::string> result;
        for (const auto& item : form.nmuFile) result.push_back(item.Caption.get());
        return result;
    }
    std::vector<bool> visible() const {
        std::vector<bool> result;
        for (const auto& item : form.nmuFile) result.push_back(item.Visible.get());
        return result;
    }
    std::string saved(std::string_view key) { return store[key]; }

    MainForm form;
    test::MemoryStore store;
    Settings settings{store};
    FileHistory history{form, settings};
};

using Entries = std::vector<std::string>;

}  // namespace

TEST(FileHistory, puts_a_lower_cased_folder_four_blanks_and_the_device_first) {
    Bench bench;
    bench.history.add("/Home/Work", "PIC16F877A", 3);
    bench.history.add("/Home/Other", "PIC16F84A", 7);
    EXPECT_EQ(bench.entries(),
              (Entries{"/home/other    PIC16F84A", "/home/work    PIC16F877A", "", "", ""}));
    EXPECT_EQ(bench.visible(), (std::vector<bool>{true, true, false, false, false}));
    EXPECT_EQ(bench.form.nmuDevice[0].Caption.get(), "7");
    EXPECT_EQ(bench.form.nmuDevice[1].Caption.get(), "3");
}

TEST(FileHistory, saves_all_ten_settings) {
    Bench bench;
    bench.history.add("/a", "PIC16F877A", 3);
    EXPECT_EQ(bench.saved("OPEN_DIR1"), "/a    PIC16F877A");
    EXPECT_EQ(bench.saved("OPEN_Device1"), "3");
    EXPECT_EQ(bench.saved("OPEN_DIR5"), "");
    EXPECT_EQ(bench.saved("OPEN_Device5"), "");
    EXPECT_EQ(bench.store.values.size(), 10U);
}

TEST(FileHistory, drops_the_fifth_for_a_sixth) {
    Bench bench;
    for (const int n : {1, 2, 3, 4, 5, 6}) bench.history.add("/" + std::to_string(n), "P", n);
    EXPECT_EQ(bench.entries(), (Entries{"/6    P", "/5    P", "/4    P", "/3    P", "/2    P"}));
    EXPECT_EQ(bench.saved("OPEN_Device5"), "2");
    EXPECT_EQ(bench.saved("OPEN_Device1"), "6");
}

TEST(FileHistory, keeps_an_entry_that_stands_in_its_place) {
    Bench bench;
    bench.history.add("/a", "P", 1);
    bench.history.add("/b", "P", 2);
    bench.history.add("/A", "P", 9);
    EXPECT_EQ(bench.entries(), (Entries{"/b    P", "/a    P", "", "", ""}));
    EXPECT_EQ(bench.saved("OPEN_Device2"), "1");
    bench.history.add("/a", "Q", 4);  // the same folder for another device is another entry
    EXPECT_EQ(bench.entries(), (Entries{"/a    Q", "/b    P", "/a    P", "", ""}));
}

TEST(FileHistory, comes_back_from_the_settings) {
    Bench first;
    first.history.add("/a", "P", 1);
    first.history.add("/b", "P", 2);
    Bench second;
    second.store.values = first.store.values;
    second.history.restore();
    EXPECT_EQ(second.entries(), first.entries());
    EXPECT_EQ(second.visible(), first.visible());
    EXPECT_EQ(second.form.nmuDevice[1].Caption.get(), "1");
}

TEST(FileHistory, is_empty_and_hidden_where_nothing_was_saved) {
    Bench bench;
    bench.history.restore();
    EXPECT_EQ(bench.entries(), (Entries{"", "", "", "", ""}));
    EXPECT_EQ(bench.visible(), std::vector<bool>(5, false));
    EXPECT_EQ(bench.form.nmuDevice[0].Caption.get(), "");
}

TEST(FileHistory, never_shows_the_entries_that_hold_the_devices_place) {
    Bench bench;
    bench.history.add("/a", "P", 1);
    for (const auto& item : bench.form.nmuDevice) EXPECT_FALSE(item.Visible.get());
}

TEST(FileHistory, is_cleared_in_the_menu_and_the_settings) {
    Bench bench;
    for (const int n : {1, 2, 3, 4, 5}) bench.history.add("/" + std::to_string(n), "P", n);
    bench.history.clear();
    EXPECT_EQ(bench.entries(), (Entries{"", "", "", "", ""}));
    EXPECT_EQ(bench.visible(), std::vector<bool>(5, false));
    for (const auto* n : {"1", "2", "3", "4", "5"}) {
        EXPECT_EQ(bench.saved(std::string{"OPEN_DIR"} + n), "");
        EXPECT_EQ(bench.saved(std::string{"OPEN_Device"} + n), "0");
    }
}

TEST(FileHistory, takes_the_first_word_of_an_entry_as_its_folder) {
    Bench bench;
    bench.history.add("/home/work", "PIC16F877A", 3);
    EXPECT_EQ(bench.history.folder(1), "/home/work");
    // Blanks and "=" end a word: such a folder is cut.
    bench.history.add("/my work/x", "PIC16F877A", 3);
    EXPECT_EQ(bench.history.folder(1), "/my");
    bench.history.add("/a=b", "PIC16F877A", 3);
    EXPECT_EQ(bench.history.folder(1), "/a");
    EXPECT_EQ(bench.history.folder(5), "");
}

TEST(FileHistory, reads_an_entrys_device_from_the_settings) {
    Bench bench;
    bench.history.add("/a", "P", 12);
    EXPECT_EQ(bench.history.device_index(1), 12);
    EXPECT_EQ(bench.history.device_index(2), 0);
}

TEST(FileHistory, knows_the_device_that_an_entry_shows) {
    Bench bench;
    bench.history.add("/my    work", "PIC16F877A", 3);
    EXPECT_EQ(bench.history.device_name(1), "PIC16F877A");
    EXPECT_EQ(bench.history.device_name(2), "");
    bench.form.nmuFile[1].Caption.set("/no/device");
    EXPECT_EQ(bench.history.device_name(2), "");
}

TEST(FileHistory, stays_usable_where_the_settings_cannot_be_written) {
    Bench bench;
    bench.store.writable = false;
    bench.history.add("/a", "P", 12);
    EXPECT_EQ(bench.entries()[0], "/a    P");
}

}  // namespace quillon
