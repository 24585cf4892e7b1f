// SPDX-License-Identifier: MIT
#include "app/text.h"
#include "start_up_bench.h"

namespace quillon {
namespace {

namespace fs = std::filesystem;
using End = StartUp::End;

class Main_file : public test::StartUpBench {
  protected:
    Main_file() {
        with_board();
        fs::create_directory(documents / "A b");
        hex = documents.write("A b/X.hex", test::kHexFile).string();
    }
    // Expects no operands of the command line in the session.
    void expect_no_operands() const {
        EXPECT_EQ(run.session.CmdHexPath, "");
        EXPECT_EQ(run.session.CmdArg2, "");
        EXPECT_EQ(run.session.CmdArg3, "");
        EXPECT_EQ(run.session.CommandLine, "");
    }
    bool loaded() const { return run.session.PgmMem[0] == 0x28 && run.session.PgmMem[1] == 0xA5; }

    std::string hex;
};

TEST_F(Main_file, loads_nothing_without_an_argument) {
    set("OPEN_DIR0", "/last");
    EXPECT_EQ(start(), End::Ready);
    expect_no_operands();
    EXPECT_EQ(caption(), run.session.MainTitle + "/last");
    EXPECT_EQ(dialogs.device_selects_shown, 0);
    EXPECT_EQ(run.session.LoadedHexPath, "");
}

TEST_F(Main_file, loads_a_path_with_blanks_for_the_device_behind_it_and_asks_nothing) {
    EXPECT_EQ(start(hex + " /PIC16F877"), End::Ready);
    EXPECT_EQ(run.session.CmdHexPath, upper(hex));
    EXPECT_EQ(run.session.CommandLine, upper(hex));
    EXPECT_EQ(run.session.CmdArg2, "PIC16F877");
    EXPECT_EQ(run.session.PickedDevice, "PIC16F877");
    EXPECT_EQ(run.session.DeviceName, "PIC16F877");
    EXPECT_EQ(dialogs.device_selects_shown, 0);
    EXPECT_TRUE(loaded());
    EXPECT_TRUE(dialogs.file_dialogs.empty());
}

// The title shows the file first, and its folder once the device is known.
TEST_F(Main_file, shows_the_command_lines_file_and_then_its_folder_in_the_title) {
    std::vector<std::string> titles;
    const auto connection =
        run.form.Caption.observe([&](const std::string& title) { titles.push_back(title); });
    start(hex + " /PIC16F877");
    const std::string main_title = "Quillon V4 V4.0.1  ";
    ASSERT_GE(titles.size(), 2U);
    EXPECT_EQ(titles[0], main_title + upper(hex));
    EXPECT_EQ(titles[1], main_title + upper((documents / "A b").string()));
}

TEST_F(Main_file, takes_an_operand_in_small_letters_as_one_in_capitals) {
    EXPECT_EQ(start(hex + " /pic16f877 /b"), End::Ready);
    EXPECT_EQ(run.session.CmdArg2, "PIC16F877");
    EXPECT_EQ(run.session.CmdArg3, "B");
    EXPECT_EQ(run.session.DeviceName, "PIC16F877");
    EXPECT_EQ(dialogs.device_selects_shown, 0);
    EXPECT_TRUE(loaded());
}

// A name with a small letter in the catalogue matches no operand, whatever its case.
TEST_F(Main_file, asks_for_a_device_whose_name_has_small_letters) {
    run.session.CatalogueFile =
        documents.write("my.ini", "#BEGIN\nPIC16x84\nPGM_TYPE FLASH4\nPGM_SIZE_WORD 0x3FF\n#END\n")
            .string();
    for (const auto* operand : {" /PIC16x84", " /PIC16X84", " /pic16x84"}) {
        port.close();
        dialogs.on_device_select = [&] { run.device_select.CancelButton_Click(); };
        dialogs.device_selects_shown = 0;
        start(hex + operand);
        EXPECT_EQ(run.session.CmdArg2, "PIC16X84") << operand;
        EXPECT_EQ(dialogs.device_selects_shown, 1) << operand;
    }
}

TEST_F(Main_file, takes_the_folder_as_the_disk_spells_it_for_later_dialogs) {
    start(hex + " /PIC16F877");
    EXPECT_EQ(run.session.HexFolder, (documents / "A b").string());
    EXPECT_EQ(store["OPEN_DIR0"], (documents / "A b").string());
}

TEST_F(Main_file, shows_what_it_understood_while_it_waits) {
    std::string shown;
    host.on_pump = [&] {
        if (run.session.TempDir.empty()) return;
        if (shown.empty()) shown = waiting_text();
    };
    start(hex + " /PIC16F877/b");
    EXPECT_EQ(shown, "\r\n\r\n　　　　　　　　　　しばらくお待ちください.....\r\ni:" + hex +
                         " /PIC16F877/b\r\n\r\n1:" + upper(hex) + "\r\n2:PIC16F877\r\n3:B");
}

TEST_F(Main_file, takes_quotes_off) {
    start("\"" + hex + "\" /\"PIC16F877\"");
    EXPECT_EQ(run.session.CmdHexPath, upper(hex));
    EXPECT_TRUE(loaded());
}

TEST_F(Main_file, takes_backslashes_for_separators_too) {
    start(documents.path().string() + "\\a b\\x.hex /PIC16F877");
    EXPECT_EQ(run.session.CmdHexPath, upper(documents.path().string() + "\\A B\\X.HEX"));
    EXPECT_EQ(run.session.HexFolder, (documents / "A b").string());
}

TEST_F(Main_file, does_not_find_a_path_with_the_operand_right_behind_it) {
    EXPECT_EQ(start(hex + "/PIC16F877"), End::Ready);
    EXPECT_TRUE(said("HEXファイルをオープンできませんでした。"));
    expect_no_operands();
    EXPECT_FALSE(loaded());
    EXPECT_EQ(dialogs.device_selects_shown, 0);
}

TEST_F(Main_file, still_says_at_the_end_that_the_file_was_not_opened) {
    start((documents / "none.hex").string());
    const std::string_view line = "HEXファイルをオープンできませんでした。 ";
    EXPECT_TRUE(run.form.LabelCmt.Caption.get().ends_with(line)) << run.form.LabelCmt.Caption.get();
    EXPECT_EQ(run.form.LabelCmt.ForeColor.get(), Colour::Black);
}

TEST_F(Main_file, cuts_a_longer_extension_and_does_not_find_it) {
    documents.write("A.HEX.BAK", test::kHexFile);
    start((documents / "A.HEX.BAK").string());
    EXPECT_TRUE(said("HEXファイルをオープンできませんでした。"));
    expect_no_operands();
}

TEST_F(Main_file, says_nothing_of_an_argument_that_names_no_HEX) {
    start("/home/u/a.txt /PIC16F877");
    EXPECT_FALSE(said("HEXファイルをオープンできませんでした。"));
    expect_no_operands();
}

TEST_F(Main_file, takes_the_first_of_the_items_that_TABs_part) {
    start(hex + " /PIC16F877\tsecond");
    EXPECT_EQ(run.session.CmdArg2, "PIC16F877");
    EXPECT_TRUE(loaded());
}

TEST_F(Main_file, asks_for_the_device_where_none_is_named) {
    dialogs.on_device_select = [&] {
        EXPECT_TRUE(run.device_select_form.Visible.get());
        EXPECT_EQ(caption(), run.session.MainTitle + upper((documents / "A b").string()));
        run.device_select_form.Combo_device.select("PIC16F84A");
        run.device_select.OKButton_Click();
    };
    start(hex);
    EXPECT_EQ(dialogs.device_selects_shown, 1);
    EXPECT_EQ(run.session.DeviceName, "PIC16F84A");
    EXPECT_TRUE(loaded());
}

// The line is upper-cased: a device name with small letters in the catalogue never matches.
TEST_F(Main_file, asks_for_the_device_where_the_name_matches_none_exactly) {
    dialogs.on_device_select = [&] { run.device_select.CancelButton_Click(); };
    start(hex + " /PIC16X999");
    EXPECT_EQ(dialogs.device_selects_shown, 1);
}

TEST_F(Main_file, loads_nothing_where_the_question_is_cancelled) {
    set("OPEN_DIR0", "/last");
    dialogs.on_device_select = [&] { run.device_select.CancelButton_Click(); };
    EXPECT_EQ(start(hex), End::Ready);
    EXPECT_FALSE(loaded());
    EXPECT_EQ(run.session.CommandLine, "");
    EXPECT_EQ(store["OPEN_DIR0"], "/last");
    EXPECT_TRUE(run.form.Enabled.get());
}

TEST_F(Main_file, finds_a_file_named_from_the_users_folder) {
    fs::current_path(documents / "A b");
    start("x.hex /PIC16F877");
    EXPECT_EQ(run.session.CmdHexPath, "X.HEX");
    EXPECT_TRUE(loaded());
    EXPECT_EQ(fs::canonical(run.session.HexFolder), fs::canonical(documents / "A b"));
}

TEST_F(Main_file, refuses_a_folder_that_is_named_like_a_file) {
    fs::create_directory(documents / "D.HEX");
    start((documents / "D.HEX").string());
    EXPECT_TRUE(said("HEXファイルをオープンできませんでした。"));
    expect_no_operands();
}

}  // namespace
}  // namespace quillon
