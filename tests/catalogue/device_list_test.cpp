// SPDX-License-Identifier: MIT
// The start-up pass over the catalogue.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "catalogue/bench.h"

namespace quillon::test {
namespace {

using Names = std::vector<std::string>;

std::string many_devices(int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += block("PIC" + std::to_string(i), "JP2 NON\n");
    return text;
}

void expect_start_failure(const Bench& bench) {
    EXPECT_TRUE(bench.session.CatError);
    ASSERT_EQ(bench.dialogs.boxes.size(), 1U);
    EXPECT_EQ(bench.dialogs.boxes[0].title, "設定ファイルを開けませんでした");
    EXPECT_EQ(bench.dialogs.boxes[0].text,
              "デバイス情報設定ファイル 'device6.ini'が、以下のフォルダーに有りませんでした。" +
                  bench.session.AppPath);
    EXPECT_EQ(bench.dialogs.boxes[0].icon, BoxIcon::Critical);
    EXPECT_TRUE(bench.form.Combo_device.Items.get().empty());
}

TEST(LoadDeviceList, lists_the_devices_in_file_order) {
    Bench bench{block("PIC16F84A", "") + block("ZQ-LDR412", "") + block("PIC12F675", "")};
    bench.catalogue.LoadDeviceList();

    EXPECT_EQ(bench.session.DeviceList, (Names{"PIC16F84A", "ZQ-LDR412", "PIC12F675"}));
    EXPECT_EQ(bench.form.Combo_device.Items.get(), bench.session.DeviceList);
    EXPECT_EQ(bench.form.Combo_device.ListIndex.get(), -1);
    EXPECT_FALSE(bench.session.CatError);
    EXPECT_TRUE(bench.dialogs.boxes.empty());
}

TEST(LoadDeviceList, leaves_out_a_device_of_another_name) {
    Bench bench{block("24C64", "") + block("pic16f84", "") + block("XPIC", "") + block("PIC1", "")};
    bench.catalogue.LoadDeviceList();
    EXPECT_EQ(bench.session.DeviceList, Names{"PIC1"});
}

TEST(LoadDeviceList, takes_the_third_token_of_the_version_twice_and_the_fourth_never) {
    Bench bench{"VERSION 6 . 12 99\n"};
    bench.catalogue.LoadDeviceList();
    EXPECT_EQ(bench.session.CatVersion, "6.1212");
}

TEST(LoadDeviceList, ignores_free_text_outside_the_blocks) {
    Bench bench{"Devices of this board\n" + block("PIC1", "") + "#END of it\n\n;PIC2\n"};
    bench.catalogue.LoadDeviceList();
    EXPECT_EQ(bench.session.DeviceList, Names{"PIC1"});
}

TEST(LoadDeviceList, writes_the_names_one_a_line) {
    Bench bench{block("PIC2", "") + block("PIC1", "")};
    bench.catalogue.LoadDeviceList();
    EXPECT_EQ(bench.folder.read("Support_PIC_List.txt"), "PIC2\nPIC1\n");
}

TEST(LoadDeviceList, goes_on_where_the_names_cannot_be_written) {
    Bench bench{block("PIC1", "")};
    bench.session.TempDir = bench.session.AppPath + "no such folder/";
    bench.catalogue.LoadDeviceList();
    EXPECT_EQ(bench.form.Combo_device.Items.get(), Names{"PIC1"});
    EXPECT_FALSE(bench.session.CatError);
}

TEST(LoadDeviceList, writes_no_names_where_there_is_no_work_folder) {
    Bench bench{block("PIC1", "")};
    bench.session.TempDir.clear();
    const auto here = std::filesystem::current_path();
    std::filesystem::current_path(bench.folder.path());
    bench.catalogue.LoadDeviceList();
    std::filesystem::current_path(here);
    EXPECT_EQ(bench.form.Combo_device.Items.get(), Names{"PIC1"});
    EXPECT_FALSE(std::filesystem::exists(bench.folder / "Support_PIC_List.txt"));
}

TEST(LoadDeviceList, starts_from_an_empty_list) {
    Bench bench{block("PIC1", "")};
    bench.catalogue.LoadDeviceList();
    bench.catalogue.LoadDeviceList();
    EXPECT_EQ(bench.session.DeviceList, Names{"PIC1"});
}

TEST(LoadDeviceList, reads_device6_ini_in_AppPath_where_no_other_file_is_named) {
    Bench bench{block("PIC1", "")};
    bench.session.CatalogueFile.clear();
    bench.catalogue.LoadDeviceList();
    EXPECT_EQ(bench.session.DeviceList, Names{"PIC1"});
}

TEST(LoadDeviceList, tells_of_a_missing_file) {
    Bench bench;
    bench.catalogue.LoadDeviceList();
    expect_start_failure(bench);
}

TEST(LoadDeviceList, tells_of_a_folder_in_the_place_of_the_file) {
    Bench bench;
    std::filesystem::create_directory(bench.folder / "device6.ini");
    bench.catalogue.LoadDeviceList();
    expect_start_failure(bench);
}

TEST(LoadDeviceList, has_no_device_in_an_empty_file) {
    Bench bench;
    bench.folder.write("device6.ini", "");
    bench.catalogue.LoadDeviceList();
    EXPECT_TRUE(bench.session.DeviceList.empty());
    EXPECT_FALSE(bench.session.CatError);
    EXPECT_TRUE(bench.dialogs.boxes.empty());
}

TEST(LoadDeviceList, holds_1025_names_of_which_1024_can_be_chosen) {
    Bench bench{many_devices(1025)};
    bench.catalogue.LoadDeviceList();
    EXPECT_EQ(bench.session.DeviceList.size(), 1025U);
    EXPECT_EQ(bench.form.Combo_device.Items.get().size(), 1024U);
    EXPECT_FALSE(bench.session.CatError);
}

TEST(LoadDeviceList, refuses_a_1026th_name) {
    Bench bench{many_devices(1026)};
    bench.catalogue.LoadDeviceList();
    expect_start_failure(bench);
}

TEST(LoadDeviceList, refuses_2000_devices) {
    Bench bench{many_devices(2000)};
    bench.catalogue.LoadDeviceList();
    expect_start_failure(bench);
}

TEST(LoadDeviceList, refuses_a_line_of_more_than_65_tokens) {
    std::string words;
    for (int i = 0; i < 65; ++i) words += "w ";
    Bench fits{words + "\n" + block("PIC1", "")};
    fits.catalogue.LoadDeviceList();
    EXPECT_EQ(fits.session.DeviceList, Names{"PIC1"});

    Bench bench{words + "w\n" + block("PIC1", "")};
    bench.catalogue.LoadDeviceList();
    expect_start_failure(bench);
}

TEST(LoadDeviceList, refuses_too_many_tokens_on_the_line_of_a_name) {
    std::string words;
    for (int i = 0; i < 66; ++i) words += "w ";
    Bench bench{"#BEGIN\n" + words + "\n"};
    bench.catalogue.LoadDeviceList();
    expect_start_failure(bench);
}

TEST(LoadDeviceList, reads_a_file_with_carriage_returns_and_no_last_line_end) {
    Bench bench{"VERSION 6 . 1\r\n#BEGIN\r\nPIC1\r\nJP2 NON\r\n#END\r\n#BEGIN\r\nPIC2"};
    bench.catalogue.LoadDeviceList();
    EXPECT_EQ(bench.session.CatVersion, "6.11");
    EXPECT_EQ(bench.session.DeviceList, (Names{"PIC1", "PIC2"}));
}

TEST(LoadDeviceList, reads_on_to_the_end_where_the_last_block_has_no_name) {
    Bench bench{block("PIC1", "") + "#BEGIN"};
    bench.catalogue.LoadDeviceList();
    EXPECT_EQ(bench.session.DeviceList, Names{"PIC1"});
}

TEST(LoadDeviceList, skips_a_byte_order_mark) {
    Bench bench{
        "\xEF\xBB\xBF"
        "VERSION 6 . 1\n" +
        block("PIC1", "")};
    bench.catalogue.LoadDeviceList();
    EXPECT_EQ(bench.session.CatVersion, "6.11");
}

// A host whose code page is 932, for the two characters that the test uses.
class JapaneseHost : public FakeHost {
  public:
    std::string from_code_page(std::string_view bytes) const override {
        ++conversions;
        return replace(replace(std::string{bytes}, "\x94\xAD", "発"), "\x90\x55", "振");
    }
    mutable int conversions = 0;

  private:
    static std::string replace(std::string text, std::string_view from, std::string_view to) {
        for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
            text.replace(at, from.size(), to);
        return text;
    }
};

TEST(read_catalogue_file, takes_bytes_that_are_not_utf8_as_the_code_page) {
    Bench bench{"CMT FOSC \x94\xAD\x90\x55 x\n" + block("PIC1", "JP2 NON\n")};
    JapaneseHost host;
    Catalogue catalogue{bench.session, bench.form, bench.board, host, bench.dialogs};
    catalogue.LoadDeviceRecord("PIC1");
    ASSERT_EQ(catalogue.CmtTable().size(), 1U);
    EXPECT_EQ(catalogue.CmtTable()[0].title, "発振");
    EXPECT_EQ(host.conversions, 1);
}

TEST(read_catalogue_file, takes_valid_utf8_as_it_stands) {
    Bench bench{"CMT FOSC 発振 x\n" + block("PIC1", "JP2 NON\n")};
    JapaneseHost host;
    Catalogue catalogue{bench.session, bench.form, bench.board, host, bench.dialogs};
    catalogue.LoadDeviceRecord("PIC1");
    ASSERT_EQ(catalogue.CmtTable().size(), 1U);
    EXPECT_EQ(catalogue.CmtTable()[0].title, "発振");
    EXPECT_EQ(host.conversions, 0);
}

}  // namespace
}  // namespace quillon::test
